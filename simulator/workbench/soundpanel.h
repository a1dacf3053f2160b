#ifndef SOUNDPANEL_H
#define SOUNDPANEL_H

#include <QWidget>

class QCheckBox;
class QListWidget;

/// The last sounds, newest first, and a switch for the PC's loudspeaker.
class SoundPanel : public QWidget
{
    Q_OBJECT

public:
    explicit SoundPanel(QWidget *parent = nullptr);
    ~SoundPanel() override;

    void setMuted(bool muted);

Q_SIGNALS:
    void mutedChanged(bool muted);

private:
    void add(int id);

    QCheckBox *m_mute;
    QListWidget *m_sounds;
};

#endif

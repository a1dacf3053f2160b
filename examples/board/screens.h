#ifndef SCREENS_H
#define SCREENS_H

#include <QPointer>
#include <QWidget>

class SettingsMenu;

/// The whole display: the menu of settings, and before it a screen that was opened there. They are in the middle of a
/// larger display.
class Screens : public QWidget
{
    Q_OBJECT

public:
    Screens();
    virtual ~Screens();

    /// The watchdog is to hear from it each second from now on. To be called once, when the first picture is painted: how
    /// long that takes is up to fonts and storage.
    void startWatch();

protected:
    virtual void resizeEvent(QResizeEvent *event);
    virtual void timerEvent(QTimerEvent *event);

private Q_SLOTS:
    void openClock();
    void openName();
    void takeName(const QString &name);
    void goBack();

private:
    void open(QWidget *screen);

    QWidget *m_area;
    SettingsMenu *m_menu;
    QPointer<QWidget> m_opened;
    QPointer<QWidget> m_row;  // of the menu, that opened it
};

#endif

#ifndef CLOCKPANEL_H
#define CLOCKPANEL_H

#include <QTimer>
#include <QWidget>

class QDateTimeEdit;
class QLabel;
class QRadioButton;

/// What the device has for a clock: whether its chip works, and what time it is.
class ClockPanel : public QWidget
{
    Q_OBJECT

public:
    explicit ClockPanel(QWidget *parent = nullptr);

    void setChipWorking(bool working);

    /// Stops the local time, in the form of Desktop::setFixedLocalTime(); an empty one lets it run.
    void setTime(const QString &time);

Q_SIGNALS:
    void chipWorkingChanged(bool working);
    void timeChanged(const QString &time);

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void refresh();
    void stopTime();

    QTimer m_refreshTimer;
    QRadioButton *m_working;
    QRadioButton *m_failing;
    QLabel *m_calls;
    QRadioButton *m_running;
    QRadioButton *m_stopped;
    QDateTimeEdit *m_time;
};

#endif

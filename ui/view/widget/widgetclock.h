#ifndef WIDGETCLOCK_H
#define WIDGETCLOCK_H

#include "threadshared.h"
#include "widget.h"

#include <QString>
#include <QThread>

class QLabel;

/// Watches the local time for a clock and reports it when what the clock shows would change.
///
/// WidgetClock has one and runs it; an application needs its own only for a clock of its own making. Start it with
/// start(). To end it set m_stop and wait() until it has finished; only then may it be started again or destroyed.
///
/// In every pass, one per m_interval, the thread kicks the watchdog, under the name "virtual void
/// ClockUpdateThread::run()", and looks at the time. Every 14400 system ticks it sets the system time from the clock
/// chip, the first time 14400 ticks after its start. Where that fails it counts on by 10 ticks and tries again, in each
/// pass until it has caught up where passes come late. Both are reported in the log. A tick that is about to wrap around
/// has it set the time in every pass of up to 14400 ticks before.
///
/// What was last reported is remembered once for the whole process and for good. Of two clocks that run, therefore,
/// usually only one reports a new minute, and a clock that is started in a minute already reported stays silent until
/// the next one, unless it measures seconds or is told timeFormat(true).
class WIDGET_EXPORT ClockUpdateThread : public QThread
{
    Q_OBJECT

public:
    /// Set it to have the thread end; a pass that has begun is finished first. The thread clears it when it ends, not
    /// when it starts: if set beforehand, the next start makes no pass. False at first.
    ThreadShared<bool> m_stop;

    /// The pause between two passes in milliseconds, 100 at first. A change counts from the next pause on.
    ThreadShared<unsigned long> m_interval;

private:
    ThreadShared<bool> m_measureSec;
    ThreadShared<bool> m_forceUpdate;

public:
    /// A thread that measures minutes; not started.
    ClockUpdateThread();
    virtual ~ClockUpdateThread();

    /// The body of the thread; start() calls it.
    virtual void run();

Q_SIGNALS:
    /// The time to show: \a hour 0 to 23, \a min 0 to 59, \a sec 0 to 60 (a leap second). Emitted in the thread itself.
    /// A slot that is called there may set m_stop, but cannot wait() for it; one in another thread may do both, and
    /// delete the thread then.
    void update(int hour, int min, int sec);

public Q_SLOTS:
    /// Whether a change of the second alone is reported too. May be called in any thread.
    void measureSec(bool measure);

    /// With true the next pass reports whatever the time is, with false it no longer has to. A call that comes while a
    /// report is under way counts for that report. May be called in any thread.
    void timeFormat(bool force);
};

/// A clock made of pictures: two large digits for the hour, a separator, two large digits for the minute; above them
/// the mark AM or PM and two small digits for the second, where wanted.
///
/// Each picture is a style sheet that the application sets, usually one that names an image. Between start() and stop()
/// the clock keeps itself current, about a tenth of a second late at most. It is hidden until it first has a time to
/// show, and from then on shows itself with each time that it gets. It is best given a size: its parts reach to 186 by
/// 68 pixels. They stand here until setItemGeometry() moves them, in pixels:
///
///     hour        34 x 45   at (35, 23) and (69, 23)
///     separator   15 x 45   at (103, 23)
///     minute      34 x 45   at (118, 23) and (152, 23)
///     AM or PM    26 x 13   at (40, 0)
///     second       9 x 12   at (65, 0) and (76, 0)
///
/// Pictures of these sizes fill their places. With "image: url(...);" a larger one is made smaller in proportion, and a
/// smaller one stays as it is, in the middle.
///
/// All clocks of the process share one memory of the time last reported (see ClockUpdateThread). So a clock that is
/// started while another one runs, or started again, may stay as it is (a new one: hidden) until the next minute.
/// setDisplaySec(true) or a change of format brings it up within a second.
///
/// Call stop() before destroying a clock that was started: destroying a running thread is an error of the toolkit. A slot
/// may do both, also one of the clock's own signals. The times that are on their way go with the clock.
class WIDGET_EXPORT WidgetClock : public Widget
{
    Q_OBJECT
    Q_ENUMS(Format)
    Q_PROPERTY(bool displaySec READ displaySec WRITE setDisplaySec NOTIFY displaySecChanged)
    Q_PROPERTY(Format format READ format WRITE setFormat NOTIFY formatChanged)

public:
    /// The parts that can be placed. The clock itself is none of them; place it with setGeometry().
    enum Item {
        ItemAMPM = 0,       ///< the mark AM or PM
        ItemHourTens = 1,   ///< the first digit of the hour
        ItemHourUnits = 2,  ///< the second digit of the hour
        ItemSeperator = 3,  ///< the separator of hour and minute
        ItemMinTens = 4,    ///< the first digit of the minute
        ItemMinUnits = 5,   ///< the second digit of the minute
        ItemSecTens = 6,    ///< the first, small digit of the second
        ItemSecUnits = 7    ///< the second, small digit of the second
    };

    enum Format {
        Hour12 = 0,  ///< 00 to 12 with AM or PM: midnight is 00 AM, noon is 12 PM; so is any value but Hour24
        Hour24 = 1   ///< 00 to 23 without a mark
    };

private:
    enum { DigitCount = 10 };

    QString m_numTextUrl[DigitCount];
    QString m_amUrl;
    QString m_pmUrl;
    QString m_numTextXSUrl[DigitCount];
    QLabel *m_hourTensLabel;
    QLabel *m_hourUnitsLabel;
    QLabel *m_seperatorLabel;
    QLabel *m_minTensLabel;
    QLabel *m_minUnitsLabel;
    QLabel *m_ampmLabel;
    QLabel *m_secTensLabel;
    QLabel *m_secUnitsLabel;
    ClockUpdateThread m_thread;
    bool m_displaySec;
    Format m_format;

public:
    /// A hidden clock in \a parent that shows hours and minutes in 12-hour format once it is started. It takes no keys;
    /// \a soundManager, which may be null, is of no use to it.
    WidgetClock(QWidget *parent, SoundManager *soundManager);

    /// Does not stop the thread; see stop().
    virtual ~WidgetClock();

    /// Places \a item at (\a x, \a y) in the clock with the size \a w by \a h, in pixels. An unknown item is rejected
    /// with a log line.
    void setItemGeometry(Item item, int x, int y, int w, int h);

    /// Starts keeping the clock current. Nothing happens if it runs already.
    void start();

    /// Stops it, and returns when the thread has ended: after a pass and its pause, a tenth of a second, at most. After
    /// that the clock can be started again or destroyed. A time that was reported before may still arrive and show.
    ///
    /// Only for a clock that was started and not yet stopped: otherwise nothing answers, and stop() does not return.
    void stop();

    /// Sets the picture of the large \a digit (0 to 9), shown from the next time on. Another \a digit is ignored with
    /// a log line.
    void setNumTextUrl(int digit, QString styleSheet);

    /// Sets the picture of the small \a digit (0 to 9), shown from the next time on. Another \a digit is ignored with
    /// a log line.
    void setNumTextXSUrl(int digit, QString styleSheet);

    /// Sets the picture of the separator, shown at once.
    void setSeperatorUrl(QString styleSheet);

    /// Sets the pictures of the marks AM and PM, shown from the next time on.
    void setAMPMUrl(QString am, QString pm);

    /// Whether the second is shown; false at first. A change is seen at the next report of the thread: within a second
    /// after switching on, at the next minute after switching off.
    bool displaySec() { return m_displaySec; }
    void setDisplaySec(bool displaySec)
    {
        if (displaySec == m_displaySec)
            return;
        m_displaySec = displaySec;
        Q_EMIT displaySecChanged(displaySec);
    }

    /// The time format; Hour12 at first. A change is seen at the next pass of the thread.
    Format format() { return m_format; }
    void setFormat(Format format)
    {
        if (format == m_format)
            return;
        m_format = format;
        Q_EMIT formatChanged(true);
    }

Q_SIGNALS:
    /// The second is shown from now on, or no longer. Not emitted when set to what it was.
    void displaySecChanged(bool displaySec);

    /// There is a new format, whichever it is: \a changed is always true. Not emitted when set to what it was.
    void formatChanged(bool changed);

public Q_SLOTS:
    /// Shows the time \a hour (0 to 23), \a min and \a sec (0 to 59) and the clock itself. What already looks right is
    /// not touched. The separator is left alone. In 24-hour format the mark is hidden and keeps its picture.
    ///
    /// Beyond these ranges units that are not one digit show no picture: 60 seconds are a 5 and a gap, hour 24 is a 0
    /// and a gap.
    void updateHMS(int hour, int min, int sec);

private:
    QLabel *itemLabel(Item item);
};

#endif

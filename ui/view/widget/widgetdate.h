#ifndef WIDGETDATE_H
#define WIDGETDATE_H

#include "threadshared.h"
#include "widget.h"

#include <QFont>
#include <QString>
#include <QThread>

class FittedText;
class QLabel;

/// Reads the local date again and again and reports it each time, changed or not.
///
/// WidgetDate has one and runs it; an application needs its own only for a date display of its own making. Start it
/// with start(). To end it set m_stop and wait() until it has finished; only then may it be started again or destroyed.
/// In every pass, one per m_interval, the thread also kicks the watchdog, under the name "virtual void
/// DateUpdateThread::run()".
class WIDGET_EXPORT DateUpdateThread : public QThread
{
    Q_OBJECT

public:
    /// Set it to have the thread end; a pass that has begun is finished first. The thread clears it when it ends, not
    /// when it starts: if set beforehand, the next start makes no pass. False at first.
    ThreadShared<bool> m_stop;

    /// The pause between two passes in milliseconds, 300 at first. A change counts from the next pause on.
    ThreadShared<unsigned long> m_interval;

    /// A thread that is not started.
    DateUpdateThread();
    virtual ~DateUpdateThread();

    /// The body of the thread; start() calls it.
    virtual void run();

Q_SIGNALS:
    /// Today is \a day (1 to 31) of \a month (1 to 12), week day \a wday (0 Sunday to 6 Saturday). Emitted in the
    /// thread itself. A slot that is called there may set m_stop, but cannot wait() for it; one in another thread may do
    /// both, and delete the thread then.
    void update(int month, int day, int wday);
};

/// The date as text: month and day in two digits each, such as 03/07, and the name of the week day, which ends at
/// x 179.
///
/// Between start() and stop() the widget keeps itself current, about a third of a second late at most. It is hidden
/// until it first has a date to show, and from then on shows itself with each date that it gets. Both texts are white
/// and 22 pixels high; the date begins at x 40 and is 60 pixels wide. The widget is best given a size of 180 by 22
/// pixels.
///
/// Call stop() before destroying a widget that was started: destroying a running thread is an error of the toolkit. A slot
/// may do both, also one of the widget's own signal. The dates that are on their way go with the widget.
class WIDGET_EXPORT WidgetDate : public Widget
{
    Q_OBJECT
    Q_ENUMS(Format)
    Q_PROPERTY(Format format READ format WRITE setFormat NOTIFY formatChanged)

public:
    enum Format {
        MonthDay = 0,  ///< 7 March is 03/07
        DayMonth = 1   ///< 7 March is 07/03; so is any value but MonthDay
    };

private:
    enum { WDayCount = 7 };

    QString m_wdayText[WDayCount];
    QLabel *m_dateLabel;
    QLabel *m_wdayLabel;
    DateUpdateThread m_thread;
    Format m_format;

public:
    /// A hidden widget in \a parent that shows the month first once it is started. It takes no keys; \a soundManager,
    /// which may be null, is of no use to it.
    WidgetDate(QWidget *parent, SoundManager *soundManager);

    /// Does not stop the thread; see stop().
    virtual ~WidgetDate();

    /// Starts keeping the date current. Nothing happens if it runs already.
    void start();

    /// Stops it, and returns when the thread has ended: after a pass and its pause, 0.3 seconds, at most. After that
    /// the widget can be started again or destroyed. A date that was reported before may still arrive and show.
    ///
    /// Only for a widget that was started and not yet stopped: otherwise nothing answers, and stop() does not return.
    void stop();

    /// Sets the name of week day \a wday (0 Sunday to 6 Saturday), shown from the next report on; all are empty at
    /// first. Another \a wday is ignored with a log line.
    void setWDayText(int wday, QString text);

    /// Sets the font of the date.
    void setDateFont(QFont font);

    /// Sets the font of the week day, whose place follows at the next report.
    void setWDayFont(QFont font);

    /// The order of month and day; MonthDay at first. A change is seen at the next report.
    Format format() { return m_format; }
    void setFormat(Format format)
    {
        if (format == m_format)
            return;
        m_format = format;
        Q_EMIT formatChanged(format);
    }

Q_SIGNALS:
    /// The order is \a format from now on. Not emitted when set to what it was.
    void formatChanged(Format format);

public Q_SLOTS:
    /// Shows \a day (1 to 31) of \a month (1 to 12), week day \a wday (0 Sunday to 6 Saturday), and the widget itself.
    /// What already looks right is not touched. With a \a wday outside its range the call is ignored with a log line.
    /// Month and day are not checked: what is no date still gives a text.
    void updateDateMonth(int month, int day, int wday);

private:
    FittedText *m_fittedWDay;
};

#endif

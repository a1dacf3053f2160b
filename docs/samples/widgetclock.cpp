#include "samples.h"

#include "platform/soundmanager.h"
#include "widgetclock.h"

#include <QCoreApplication>
#include <QLabel>

//! [widgetclock_clock]
static WidgetClock *addClock(QWidget *screen)
{
    WidgetClock *clock = new WidgetClock(screen, SoundManager::getInstance());
    clock->resize(220, 72);
    const QString sheet("image: url(:/resource/images_l2/clock_%1.png);");
    for (int digit = 0; digit <= 9; ++digit) {
        clock->setNumTextUrl(digit, sheet.arg(digit));
        clock->setNumTextXSUrl(digit, sheet.arg(QString("xs_%1").arg(digit)));
    }
    clock->setSeperatorUrl(sheet.arg("separator"));
    clock->setAMPMUrl(sheet.arg("am"), sheet.arg("pm"));
    return clock;
}
//! [widgetclock_clock]

SAMPLE(widgetclock_12_hours, 220, 72, Night)
{
    //! [widgetclock_12_hours]
    WidgetClock *clock = addClock(screen);
    clock->updateHMS(10, 42, 9);  // once; start() keeps it current
    //! [widgetclock_12_hours]
}

SAMPLE(widgetclock_24_hours, 220, 72, Night)
{
    //! [widgetclock_24_hours]
    WidgetClock *clock = addClock(screen);
    clock->setFormat(WidgetClock::Hour24);
    clock->updateHMS(22, 42, 9);
    //! [widgetclock_24_hours]
}

SAMPLE(widgetclock_second, 220, 72, Night)
{
    //! [widgetclock_second]
    WidgetClock *clock = addClock(screen);
    clock->setDisplaySec(true);
    clock->updateHMS(13, 5, 9);
    //! [widgetclock_second]
}

SAMPLE(widgetclock_moved_parts, 220, 50, Night)
{
    //! [widgetclock_moved_parts]
    WidgetClock *clock = addClock(screen);
    clock->resize(220, 50);
    const int x[] = {35, 69, 118, 152};
    const WidgetClock::Item digits[] = {WidgetClock::ItemHourTens, WidgetClock::ItemHourUnits,
                                        WidgetClock::ItemMinTens, WidgetClock::ItemMinUnits};
    for (int digit = 0; digit < 4; ++digit)
        clock->setItemGeometry(digits[digit], x[digit], 2, 34, 45);
    clock->setItemGeometry(WidgetClock::ItemSeperator, 103, 2, 15, 45);
    clock->setItemGeometry(WidgetClock::ItemAMPM, 4, 2, 26, 13);
    clock->updateHMS(15, 30, 0);
    //! [widgetclock_moved_parts]
}

SAMPLE(clockupdatethread_label, 220, 30, Paper)
{
    //! [clockupdatethread_label]
    QLabel *label = new QLabel(screen);
    label->setGeometry(10, 0, 200, 30);

    ClockUpdateThread thread;
    QObject::connect(&thread, &ClockUpdateThread::update, label, [label](int hour, int min, int) {
        label->setText(QString("%1:%2 by my own clock").arg(hour).arg(min, 2, 10, QChar('0')));
    });
    thread.timeFormat(true);  // report at once, and not only when the minute changes
    thread.start();
    //! [clockupdatethread_label]
    while (label->text().isEmpty())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    //! [clockupdatethread_end]
    thread.m_stop = true;
    thread.wait();
    //! [clockupdatethread_end]
}

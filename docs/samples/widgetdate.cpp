#include "samples.h"

#include "platform/soundmanager.h"
#include "widgetdate.h"

#include <QCoreApplication>
#include <QLabel>

//! [widgetdate_date]
static WidgetDate *addDate(QWidget *screen)
{
    WidgetDate *date = new WidgetDate(screen, SoundManager::getInstance());
    date->setGeometry(0, 4, 180, 22);
    const char *const days[] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                "Thursday", "Friday", "Saturday"};
    for (int wday = 0; wday < 7; ++wday)
        date->setWDayText(wday, days[wday]);

    QFont font;
    font.setPointSize(16);
    date->setDateFont(font);
    date->setWDayFont(font);
    return date;
}
//! [widgetdate_date]

SAMPLE(widgetdate_month_first, 220, 30, Night)
{
    //! [widgetdate_month_first]
    WidgetDate *date = addDate(screen);
    date->updateDateMonth(3, 7, 6);  // once; start() keeps it current
    //! [widgetdate_month_first]
}

SAMPLE(widgetdate_day_first, 220, 30, Night)
{
    //! [widgetdate_day_first]
    WidgetDate *date = addDate(screen);
    date->setFormat(WidgetDate::DayMonth);
    date->updateDateMonth(3, 7, 6);
    //! [widgetdate_day_first]
}

SAMPLE(dateupdatethread_label, 220, 30, Paper)
{
    //! [dateupdatethread_label]
    QLabel *label = new QLabel(screen);
    label->setGeometry(10, 0, 200, 30);

    DateUpdateThread thread;
    QObject::connect(&thread, &DateUpdateThread::update, label, [label](int month, int day, int) {
        label->setText(QString("Day %1 of month %2").arg(day).arg(month));
    });
    thread.start();
    //! [dateupdatethread_label]
    while (label->text().isEmpty())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    //! [dateupdatethread_end]
    thread.m_stop = true;
    thread.wait();
    //! [dateupdatethread_end]
}

// A clock with the date. Both keep themselves current in threads, which run as long as the screen is there.
//
// 1 changes between 12 and 24 hours, 2 puts the day or the month first. Escape ends the program.

#include "platform/soundmanager.h"
#include "widgetclock.h"
#include "widgetdate.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>

namespace {

const int ClickSound = 901;
const char *const weekDays[] = {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};

QString picture(const QString &name)
{
    return QString("image: url(:/resource/images_l2/%1.png);").arg(name);
}

}

class ClockScreen : public Widget
{
public:
    ClockScreen();
    virtual ~ClockScreen();

protected:
    virtual void keyReleaseEvent(QKeyEvent *event);

private:
    WidgetClock *m_clock;
    WidgetDate *m_date;
};

ClockScreen::ClockScreen()
    : Widget(0, SoundManager::getInstance()),
      m_clock(new WidgetClock(this, m_soundManager)),
      m_date(new WidgetDate(this, m_soundManager))
{
    setPalette(QColor("#1F1618"));
    m_clock->setGeometry(0, 20, 220, 68);
    m_clock->setItemGeometry(WidgetClock::ItemSecTens, 163, 0, 9, 12);  // at the right end
    m_clock->setItemGeometry(WidgetClock::ItemSecUnits, 174, 0, 9, 12);
    for (int digit = 0; digit <= 9; ++digit) {
        m_clock->setNumTextUrl(digit, picture(QString("clock_%1").arg(digit)));
        m_clock->setNumTextXSUrl(digit, picture(QString("clock_xs_%1").arg(digit)));
    }
    m_clock->setSeperatorUrl(picture("clock_separator"));
    m_clock->setAMPMUrl(picture("clock_am"), picture("clock_pm"));
    m_clock->setDisplaySec(true);
    m_date->setGeometry(0, 98, 180, 22);
    QFont font;
    font.setPointSize(15);
    m_date->setDateFont(font);
    m_date->setWDayFont(font);
    for (int day = 0; day < 7; ++day)
        m_date->setWDayText(day, weekDays[day]);
    QLabel *guide = new QLabel("1  12/24 hours    2  Day/month", this);
    guide->setGeometry(0, 140, 220, 20);
    guide->setAlignment(Qt::AlignCenter);
    guide->setStyleSheet("color: #988E8B; font-size: 12px;");

    m_clock->start();
    m_date->start();
}

ClockScreen::~ClockScreen()
{
    m_clock->stop();  // a thread must not run on when its widget goes
    m_date->stop();
}

void ClockScreen::keyReleaseEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_1)
        m_clock->setFormat(m_clock->format() == WidgetClock::Hour12 ? WidgetClock::Hour24 : WidgetClock::Hour12);
    else if (event->key() == Qt::Key_2)
        m_date->setFormat(m_date->format() == WidgetDate::MonthDay ? WidgetDate::DayMonth : WidgetDate::MonthDay);
    else if (event->key() == Qt::Key_Escape)
        close();
    else
        return;
    playSound(ClickSound);
}

int main(int argc, char **argv)
{
    qputenv("QT_FONT_DPI", "72");  // a point is a pixel, as on the device
    QApplication application(argc, argv);

    ClockScreen screen;
    screen.resize(220, 176);
    screen.show();
    return application.exec();
}

#include "clockscreen.h"

#include "platform/soundmanager.h"
#include "widgetdate.h"

#include <QKeyEvent>

namespace {

const int ClickSound = 901;
const char *const WeekDays[] = {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};

QString picture(const QString &name)
{
    return QString("image: url(:/resource/images_l2/%1.png);").arg(name);
}

}

ClockScreen::ClockScreen(QWidget *parent, WidgetClock::Format hours)
    : Widget(parent, SoundManager::getInstance()),
      m_clock(new WidgetClock(this, m_soundManager)),
      m_date(new WidgetDate(this, m_soundManager))
{
    setAutoFillBackground(true);
    setPalette(QColor("#1F1618"));
    m_clock->setGeometry(0, 34, 220, 68);
    for (int digit = 0; digit <= 9; ++digit)
        m_clock->setNumTextUrl(digit, picture(QString("clock_%1").arg(digit)));
    m_clock->setSeperatorUrl(picture("clock_separator"));
    m_clock->setAMPMUrl(picture("clock_am"), picture("clock_pm"));
    m_clock->setFormat(hours);
    m_date->setGeometry(0, 112, 180, 22);
    QFont font;
    font.setPointSize(15);
    m_date->setDateFont(font);
    m_date->setWDayFont(font);
    for (int day = 0; day < 7; ++day)
        m_date->setWDayText(day, WeekDays[day]);
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
    if (event->key() != Qt::Key_Escape)
        return;
    playSound(ClickSound);
    emit finished();
}

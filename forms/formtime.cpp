#include "formtime.h"

#include "formlook.h"

#include "platform/soundmanager.h"
#include "platform/util.h"

#include <ctime>

namespace {

QString forDigit(int digit, QString sheet)
{
    return sheet.replace(QLatin1String("%1"), QString::number(digit));
}

}

FormClock::FormClock(QWidget *parent)
    : WidgetClock(parent, SoundManager::getInstance()),
      m_amSheet(FormLook::picture("clock_am")),
      m_isRunning(false)
{
    FormLook::paintBackground(this);
    setDigitSheet(FormLook::picture("clock_%1"));
    setSmallDigitSheet(FormLook::picture("clock_xs_%1"));
    setSeperatorSheet(FormLook::picture("clock_separator"));
    setPmSheet(FormLook::picture("clock_pm"));
    connect(this, SIGNAL(displaySecChanged(bool)), this, SLOT(showNow()));
    connect(this, SIGNAL(formatChanged(bool)), this, SLOT(showNow()));
}

FormClock::~FormClock()
{
    setRunning(false);
}

void FormClock::setDigitSheet(const QString &sheet)
{
    m_digitSheet = sheet;
    for (int digit = 0; digit <= 9; ++digit)
        setNumTextUrl(digit, forDigit(digit, sheet));
    showNow();
}

void FormClock::setSmallDigitSheet(const QString &sheet)
{
    m_smallDigitSheet = sheet;
    for (int digit = 0; digit <= 9; ++digit)
        setNumTextXSUrl(digit, forDigit(digit, sheet));
    showNow();
}

void FormClock::setSeperatorSheet(const QString &sheet)
{
    m_seperatorSheet = sheet;
    setSeperatorUrl(sheet);
}

void FormClock::setAmSheet(const QString &sheet)
{
    m_amSheet = sheet;
    setAMPMUrl(m_amSheet, m_pmSheet);
    showNow();
}

void FormClock::setPmSheet(const QString &sheet)
{
    m_pmSheet = sheet;
    setAMPMUrl(m_amSheet, m_pmSheet);
    showNow();
}

void FormClock::setRunning(bool running)
{
    if (running == m_isRunning)
        return;
    m_isRunning = running;
    if (FormLook::designing)
        return;
    if (running)
        start();
    else
        stop();
    showNow();
}

void FormClock::showNow()
{
    if (FormLook::designing) {
        updateHMS(10, 42, 30);
    } else if (m_isRunning) {
        // The thread reports a minute that another clock has reported not at all.
        const struct tm now = *Util::localtime(time(0));
        updateHMS(now.tm_hour, now.tm_min, now.tm_sec);
    }
}

FormDate::FormDate(QWidget *parent)
    : WidgetDate(parent, SoundManager::getInstance()),
      m_pointSize(0),
      m_isRunning(false)
{
    FormLook::paintBackground(this);
    setPointSize(16);
    setWeekDays(QStringList() << QLatin1String("Sunday") << QLatin1String("Monday") << QLatin1String("Tuesday")
                << QLatin1String("Wednesday") << QLatin1String("Thursday") << QLatin1String("Friday")
                << QLatin1String("Saturday"));
    connect(this, SIGNAL(formatChanged(Format)), this, SLOT(showNow()));
}

FormDate::~FormDate()
{
    setRunning(false);
}

void FormDate::setWeekDays(const QStringList &names)
{
    m_weekDays = names;
    for (int wday = 0; wday < 7; ++wday)
        setWDayText(wday, FormLook::entry(names, wday));
    showNow();
}

void FormDate::setPointSize(int pointSize)
{
    m_pointSize = pointSize;
    QFont font;
    font.setPointSize(qMax(pointSize, 1));
    setDateFont(font);
    setWDayFont(font);
    showNow();
}

void FormDate::setRunning(bool running)
{
    if (running == m_isRunning)
        return;
    m_isRunning = running;
    if (FormLook::designing)
        return;
    if (running)
        start();
    else
        stop();
    showNow();
}

void FormDate::showNow()
{
    if (FormLook::designing) {
        updateDateMonth(3, 7, 6);
    } else if (m_isRunning) {
        const struct tm now = *Util::localtime(time(0));
        updateDateMonth(now.tm_mon + 1, now.tm_mday, now.tm_wday);
    }
}

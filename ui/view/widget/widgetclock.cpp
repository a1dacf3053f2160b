#include "widgetclock.h"

#include "platform/logging.h"
#include "platform/systemtime.h"
#include "platform/util.h"
#include "widgetdetails.h"

#include <QLabel>

namespace {

const char SourcePath[] = "ui/view/widget/widgetclock.cpp";

const unsigned int SyncTicks = 14400;
const unsigned int SyncRetryTicks = 10;

// The time last reported by any clock of the process.
ThreadShared<int> s_lastSec(-1);
ThreadShared<int> s_lastMin(-1);
ThreadShared<int> s_lastHour(-1);

// In the order of WidgetClock::Item.
const struct
{
    int x, y, w, h;
} DefaultGeometries[] = {
    { 40, 0, 26, 13 },    // ItemAMPM
    { 35, 23, 34, 45 },   // ItemHourTens
    { 69, 23, 34, 45 },   // ItemHourUnits
    { 103, 23, 15, 45 },  // ItemSeperator
    { 118, 23, 34, 45 },  // ItemMinTens
    { 152, 23, 34, 45 },  // ItemMinUnits
    { 65, 0, 9, 12 },     // ItemSecTens
    { 76, 0, 9, 12 },     // ItemSecUnits
};

void dressDigit(QLabel *label, const QString *sheets, int digit)
{
    applyStyleSheet(label, digit >= 0 && digit <= 9 ? sheets[digit] : QString());
}

}

ClockUpdateThread::ClockUpdateThread()
    : m_stop(false),
      m_interval(100),
      m_measureSec(false),
      m_forceUpdate(false)
{
}

ClockUpdateThread::~ClockUpdateThread()
{
}

void ClockUpdateThread::run()
{
    const std::string name("virtual void ClockUpdateThread::run()");
    unsigned int lastSync = 0;

    Util::startWatchThread(name);
    while (!m_stop) {
        Util::kickDog(name);

        const unsigned int now = get_system_tick();
        if (lastSync == 0)
            lastSync = now;
        if (now >= lastSync + SyncTicks) {
            if (set_time()) {
                lastSync = get_system_tick();
                Logging::log(Logging::LogTrace, "Sync RTC, Time: %u ", lastSync);
            } else {
                lastSync += SyncRetryTicks;
                Logging::log(Logging::LogTrace, "Sync RTC, failed ");
            }
        }

        const struct tm time = localTime();
        if ((m_measureSec && time.tm_sec != s_lastSec)
            || time.tm_min != s_lastMin || time.tm_hour != s_lastHour
            || m_forceUpdate) {
            s_lastSec = time.tm_sec;
            s_lastMin = time.tm_min;
            s_lastHour = time.tm_hour;
            emit update(time.tm_hour, time.tm_min, time.tm_sec);
            m_forceUpdate = false;
        }

        Util::delayMs(m_interval);
    }
    m_stop = false;
    Util::stopWatchThread(name);
}

void ClockUpdateThread::measureSec(bool measure)
{
    m_measureSec = measure;
}

void ClockUpdateThread::timeFormat(bool force)
{
    m_forceUpdate = force;
}

WidgetClock::WidgetClock(QWidget *parent, SoundManager *soundManager)
    : Widget(parent, soundManager),
      m_displaySec(false),
      m_format(Hour12)
{
    m_ampmLabel = new QLabel(this);
    m_hourTensLabel = new QLabel(this);
    m_hourUnitsLabel = new QLabel(this);
    m_minTensLabel = new QLabel(this);
    m_minUnitsLabel = new QLabel(this);
    m_seperatorLabel = new QLabel(this);
    m_secTensLabel = new QLabel(this);
    m_secUnitsLabel = new QLabel(this);

    for (int item = ItemAMPM; item <= ItemSecUnits; ++item) {
        itemLabel(Item(item))->setGeometry(DefaultGeometries[item].x, DefaultGeometries[item].y,
                                           DefaultGeometries[item].w, DefaultGeometries[item].h);
    }

    m_thread.m_interval = 100;
    connect(this, SIGNAL(displaySecChanged(bool)), &m_thread, SLOT(measureSec(bool)));
    connect(&m_thread, SIGNAL(update(int,int,int)), this, SLOT(updateHMS(int,int,int)));
    connect(this, SIGNAL(formatChanged(bool)), &m_thread, SLOT(timeFormat(bool)));

    hide();
}

WidgetClock::~WidgetClock()
{
}

void WidgetClock::setItemGeometry(Item item, int x, int y, int w, int h)
{
    QLabel *label = itemLabel(item);
    if (!label) {
        Logging::log(Logging::LogNotice, "[%s, %d] Unknown item!!", "setItemGeometry", 134);
        return;
    }
    placeWidget(label, x, y, w, h);
}

void WidgetClock::start()
{
    m_thread.start(QThread::InheritPriority);
}

void WidgetClock::stop()
{
    stopThread(&m_thread, &m_thread.m_stop);
}

void WidgetClock::setNumTextUrl(int digit, QString styleSheet)
{
    if (rejectsIndex(SourcePath, "setNumTextUrl", digit, DigitCount))
        return;
    m_numTextUrl[digit] = styleSheet;
}

void WidgetClock::setNumTextXSUrl(int digit, QString styleSheet)
{
    if (rejectsIndex(SourcePath, "setNumTextXSUrl", digit, DigitCount))
        return;
    m_numTextXSUrl[digit] = styleSheet;
}

void WidgetClock::setSeperatorUrl(QString styleSheet)
{
    applyStyleSheet(m_seperatorLabel, styleSheet);
}

void WidgetClock::setAMPMUrl(QString am, QString pm)
{
    m_amUrl = am;
    m_pmUrl = pm;
}

void WidgetClock::updateHMS(int hour, int min, int sec)
{
    const bool twelveHours = m_format != Hour24;
    const int shownHour = twelveHours && hour > 12 ? hour - 12 : hour;
    const int lastHourWithTens = twelveHours ? 19 : 23;
    const int hourTens = shownHour >= 10 && shownHour <= lastHourWithTens ? shownHour / 10 : 0;
    const int minTens = qBound(0, min / 10, 5);
    const int secTens = qBound(0, sec / 10, 5);

    // Who watches the labels sees this order.
    dressDigit(m_hourTensLabel, m_numTextUrl, hourTens);
    dressDigit(m_hourUnitsLabel, m_numTextUrl, shownHour - 10 * hourTens);
    dressDigit(m_minTensLabel, m_numTextUrl, minTens);
    dressDigit(m_minUnitsLabel, m_numTextUrl, min - 10 * minTens);
    m_hourTensLabel->show();
    m_hourUnitsLabel->show();
    m_minTensLabel->show();
    m_minUnitsLabel->show();

    if (twelveHours)
        applyStyleSheet(m_ampmLabel, hour > 11 ? m_pmUrl : m_amUrl);

    if (m_displaySec) {
        dressDigit(m_secTensLabel, m_numTextXSUrl, secTens);
        dressDigit(m_secUnitsLabel, m_numTextXSUrl, sec - 10 * secTens);
    }
    m_secTensLabel->setVisible(m_displaySec);
    m_secUnitsLabel->setVisible(m_displaySec);
    m_ampmLabel->setVisible(twelveHours);

    show();
}

QLabel *WidgetClock::itemLabel(Item item)
{
    switch (int(item)) {
    case ItemAMPM:
        return m_ampmLabel;
    case ItemHourTens:
        return m_hourTensLabel;
    case ItemHourUnits:
        return m_hourUnitsLabel;
    case ItemSeperator:
        return m_seperatorLabel;
    case ItemMinTens:
        return m_minTensLabel;
    case ItemMinUnits:
        return m_minUnitsLabel;
    case ItemSecTens:
        return m_secTensLabel;
    case ItemSecUnits:
        return m_secUnitsLabel;
    default:
        return 0;
    }
}

#include "widgetdate.h"

#include "platform/util.h"
#include "widgetdetails.h"

#include <QLabel>

namespace {

const char SourcePath[] = "ui/view/widget/widgetdate.cpp";

const char TextSheet[] = "color: #FFFFFF";
const int WDayEnd = 180;
const int TextHeight = 22;

// Tens and units, of which the tens are not greater than maxTens.
QString digits(int value, int maxTens)
{
    const int tens = qBound(0, value / 10, maxTens);
    return QString::number(tens) + QString::number(value - 10 * tens);
}

}

DateUpdateThread::DateUpdateThread()
    : m_stop(false),
      m_interval(300)
{
}

DateUpdateThread::~DateUpdateThread()
{
}

void DateUpdateThread::run()
{
    const std::string name("virtual void DateUpdateThread::run()");

    Util::startWatchThread(name);
    while (!m_stop) {
        Util::kickDog(name);
        const struct tm time = localTime();
        emit update(time.tm_mon + 1, time.tm_mday, time.tm_wday);
        Util::delayMs(m_interval);
    }
    m_stop = false;
    Util::stopWatchThread(name);
}

WidgetDate::WidgetDate(QWidget *parent, SoundManager *soundManager)
    : Widget(parent, soundManager),
      m_format(MonthDay),
      m_fittedWDay(new FittedText)
{
    m_dateLabel = new QLabel(this);
    m_wdayLabel = new QLabel(this);

    m_dateLabel->setStyleSheet(QLatin1String(TextSheet));
    m_dateLabel->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_wdayLabel->setStyleSheet(QLatin1String(TextSheet));
    m_wdayLabel->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_dateLabel->setGeometry(40, 0, 60, TextHeight);

    m_thread.m_interval = 300;
    connect(&m_thread, SIGNAL(update(int,int,int)), this, SLOT(updateDateMonth(int,int,int)));

    hide();
}

WidgetDate::~WidgetDate()
{
    delete m_fittedWDay;
}

void WidgetDate::start()
{
    m_thread.start(QThread::InheritPriority);
}

void WidgetDate::stop()
{
    stopThread(&m_thread, &m_thread.m_stop);
}

void WidgetDate::setWDayText(int wday, QString text)
{
    if (rejectsIndex(SourcePath, "setWDayText", wday, WDayCount))
        return;
    m_wdayText[wday] = text;
}

void WidgetDate::setDateFont(QFont font)
{
    m_dateLabel->setFont(font);
}

void WidgetDate::setWDayFont(QFont font)
{
    m_wdayLabel->setFont(font);
}

void WidgetDate::updateDateMonth(int month, int day, int wday)
{
    if (rejectsIndex(SourcePath, "updateDateMonth", wday, WDayCount))
        return;

    const QString monthDigits = digits(month, 1);
    const QString dayDigits = digits(day, 3);
    const QLatin1Char slash('/');
    m_dateLabel->setText(m_format == MonthDay ? monthDigits + slash + dayDigits : dayDigits + slash + monthDigits);

    const QString &name = m_wdayText[wday];
    const int width = m_fittedWDay->textWidth(name, m_wdayLabel->font());
    m_wdayLabel->setGeometry(WDayEnd - width, 0, width, TextHeight);
    m_wdayLabel->setText(name);

    show();
}

#include "clockpanel.h"

#include "platform/desktop/desktopclock.h"

#include <QDateTimeEdit>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

const int RefreshPeriod = 500;

QString timeForm()
{
    return QStringLiteral("yyyy-MM-dd HH:mm:ss");
}

QRadioButton *addChoice(QVBoxLayout *layout, const QString &text)
{
    QRadioButton *button = new QRadioButton(text);
    layout->addWidget(button);
    return button;
}

}

ClockPanel::ClockPanel(QWidget *parent)
    : QWidget(parent)
{
    QGroupBox *chip = new QGroupBox(QStringLiteral("Clock chip"), this);
    QVBoxLayout *chipLayout = new QVBoxLayout(chip);
    m_working = addChoice(chipLayout, QStringLiteral("Works"));
    m_failing = addChoice(chipLayout, QStringLiteral("Fails"));
    m_calls = new QLabel(chip);
    chipLayout->addWidget(m_calls);
    connect(m_working, &QRadioButton::clicked, this, [this] { setChipWorking(true); });
    connect(m_failing, &QRadioButton::clicked, this, [this] { setChipWorking(false); });

    QGroupBox *time = new QGroupBox(QStringLiteral("Local time"), this);
    QVBoxLayout *timeLayout = new QVBoxLayout(time);
    m_running = addChoice(timeLayout, QStringLiteral("Runs with this PC's"));
    m_stopped = addChoice(timeLayout, QStringLiteral("Stands at"));
    m_time = new QDateTimeEdit(QDateTime::currentDateTime(), time);
    m_time->setDisplayFormat(timeForm());
    m_time->setContextMenuPolicy(Qt::NoContextMenu);
    m_time->setToolTip(QStringLiteral("Click a part, then the arrows; or turn the wheel"));
    // The form knows no year before.
    m_time->setMinimumDate(QDate(1000, 1, 1));
    timeLayout->addWidget(m_time);
    connect(m_running, &QRadioButton::clicked, this, [this] { setTime(QString()); });
    connect(m_stopped, &QRadioButton::clicked, this, &ClockPanel::stopTime);
    connect(m_time, &QDateTimeEdit::dateTimeChanged, this, [this] {
        if (m_stopped->isChecked())
            stopTime();
    });

    QVBoxLayout *layout = new QVBoxLayout(this);
    layout->addWidget(chip);
    layout->addWidget(time);
    layout->addStretch(1);

    connect(&m_refreshTimer, &QTimer::timeout, this, &ClockPanel::refresh);
    setTime(QString::fromStdString(Desktop::fixedLocalTime()));
}

void ClockPanel::setChipWorking(bool working)
{
    Desktop::setClockChipWorking(working);
    refresh();
    emit chipWorkingChanged(working);
}

void ClockPanel::setTime(const QString &time)
{
    if (time.isEmpty())
        Desktop::clearFixedLocalTime();
    else if (!Desktop::setFixedLocalTime(time.toStdString()))
        return;
    m_running->setChecked(time.isEmpty());
    m_stopped->setChecked(!time.isEmpty());
    if (!time.isEmpty())
        m_time->setDateTime(QDateTime::fromString(time, timeForm()));
    emit timeChanged(time);
}

void ClockPanel::stopTime()
{
    setTime(m_time->dateTime().toString(timeForm()));
}

void ClockPanel::showEvent(QShowEvent *event)
{
    refresh();
    m_refreshTimer.start(RefreshPeriod);
    QWidget::showEvent(event);
}

void ClockPanel::hideEvent(QHideEvent *event)
{
    m_refreshTimer.stop();
    QWidget::hideEvent(event);
}

void ClockPanel::refresh()
{
    // Screens may switch the chip too.
    const bool working = Desktop::isClockChipWorking();
    m_working->setChecked(working);
    m_failing->setChecked(!working);
    m_calls->setText(QStringLiteral("Asked %1 times so far").arg(Desktop::clockChipCalls()));
}

// A clock made of pictures, with the date below it and, above it, lamps for what keeps the two going.

#include "device.h"
#include "screen.h"
#include "texts.h"

#include "platform/desktop/desktopclock.h"
#include "platform/desktop/desktopwatchdog.h"
#include "platform/soundmanager.h"
#include "platform/util.h"
#include "widgetclock.h"
#include "widgetdate.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyle>
#include <QTimer>

#include <ctime>
#include <functional>
#include <vector>

namespace {

const int ClickSound = 901;
const int WatchPeriod = 500;

const QColor Night(0x1f, 0x16, 0x18);
const QColor Bar(0x47, 0x42, 0x42);
const QColor Paper(0xf8, 0xf7, 0xf6);
const QColor Glow(0xf7, 0xce, 0x86);

const QRect LampBar(0, 0, Device::Width, 22);
const int LampY = 5;
const int LampTitleX = 16;
const int LampTextSize = 11;
const QRect ChipDivider(163, 5, 1, 12);

const QRect ClockPlace(0, 35, Device::Width, 45);
const QRect DatePlace(0, 85, 180, 22);
const int DateSize = 16;

const QRect FirstKey(24, 114, 16, 17);  // higher than its picture by one: centres texts on whole pixels
const int KeyColumns = 2;
const int KeyColumnWidth = 98;
const int KeyRowHeight = 20;
const int KeyTextX = 23;
const int KeyTextSize = 12;

/// The large digits stand where the clock has them, what is small beside them instead of above.
const struct
{
    WidgetClock::Item item;
    QRect place;
} itemPlaces[] = {
    {WidgetClock::ItemAMPM, {187, 2, 26, 13}},
    {WidgetClock::ItemHourTens, {35, 0, 34, 45}},
    {WidgetClock::ItemHourUnits, {69, 0, 34, 45}},
    {WidgetClock::ItemSeperator, {103, 0, 15, 45}},
    {WidgetClock::ItemMinTens, {118, 0, 34, 45}},
    {WidgetClock::ItemMinUnits, {152, 0, 34, 45}},
    {WidgetClock::ItemSecTens, {188, 31, 9, 12}},
    {WidgetClock::ItemSecUnits, {199, 31, 9, 12}},
};

const struct
{
    const char *name;
    const char *weekDays[7];  // from Sunday on
} languages[] = {
    {"English", {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"}},
    {"Deutsch", {"Sonntag", "Montag", "Dienstag", "Mittwoch", "Donnerstag", "Freitag", "Samstag"}},
    {"Français", {"Dimanche", "Lundi", "Mardi", "Mercredi", "Jeudi", "Vendredi", "Samedi"}},
    {"العربية", {"الأحد", "الاثنين", "الثلاثاء", "الأربعاء", "الخميس", "الجمعة", "السبت"}},
};
const int LanguageCount = int(sizeof languages / sizeof languages[0]);
const int English = 0;
const int Arabic = 3;

/// What a key changes. The first one is for the key 1, the next one for the key 2, and so on.
struct Setting
{
    std::function<void()> change;
    std::function<QString()> state;  ///< in words, for the screen
};

/// Something that works or fails.
struct Lamp
{
    int x;
    const char *title;
    std::function<bool()> works;
    bool isLit;
};

bool isAlive(const char *thread)
{
    for (const Desktop::WatchedThread &watched : Desktop::watchedThreads()) {
        if (watched.name == thread && watched.hanging)
            return false;
    }
    return true;
}

QFont fontOfSize(int size)
{
    QFont font;
    font.setPointSize(size);
    return font;
}

class ClockScreen : public Widget
{
public:
    explicit ClockScreen(Device &device);
    ~ClockScreen() override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;

private:
    void dressClock();
    void dressDate();
    void describeSettings();

    void setLanguage(int language);
    void setClockChipWorking(bool working);
    void showNow();
    void lookAtLamps();

    void paintLamps(QPainter &painter);
    void paintKeys(QPainter &painter);
    QRect visual(const QRect &rect) const;

    Device &m_device;
    WidgetClock *const m_clock;
    WidgetDate *const m_date;
    int m_language;
    bool m_clockChipWorks;
    std::vector<Setting> m_settings;
    std::vector<Lamp> m_lamps;
    QTimer m_watchTimer;
};

ClockScreen::ClockScreen(Device &device)
    : Widget(&device, SoundManager::getInstance()),
      m_device(device),
      m_clock(new WidgetClock(this, m_soundManager)),
      m_date(new WidgetDate(this, m_soundManager))
{
    setLayoutDirection(writesRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    setPalette(Night);
    dressClock();
    dressDate();
    describeSettings();
    setLanguage(writesRightToLeft() ? Arabic : English);
    setClockChipWorking(true);
    m_lamps = {
        {66, "Clock", [] { return isAlive("virtual void ClockUpdateThread::run()"); }, true},
        {116, "Date", [] { return isAlive("virtual void DateUpdateThread::run()"); }, true},
        {170, "Chip", [this] { return m_clockChipWorks; }, true},
    };

    m_clock->start();
    m_date->start();
    showNow();
    connect(&m_watchTimer, &QTimer::timeout, this, &ClockScreen::lookAtLamps);
    m_watchTimer.start(WatchPeriod);
}

ClockScreen::~ClockScreen()
{
    m_clock->stop();
    m_date->stop();
    Desktop::setClockChipWorking(true);
}

void ClockScreen::dressClock()
{
    const QString sheet = QStringLiteral("image: url(:/resource/images_l2/clock_%1.png);");
    for (int digit = 0; digit <= 9; ++digit) {
        m_clock->setNumTextUrl(digit, sheet.arg(digit));
        m_clock->setNumTextXSUrl(digit, sheet.arg(QStringLiteral("xs_%1").arg(digit)));
    }
    m_clock->setSeperatorUrl(sheet.arg(QStringLiteral("separator")));
    m_clock->setAMPMUrl(sheet.arg(QStringLiteral("am")), sheet.arg(QStringLiteral("pm")));
    for (const auto &[item, place] : itemPlaces)
        m_clock->setItemGeometry(item, place.x(), place.y(), place.width(), place.height());
    m_clock->setGeometry(ClockPlace);
    m_clock->setDisplaySec(true);
}

void ClockScreen::dressDate()
{
    m_date->setDateFont(fontOfSize(DateSize));
    m_date->setWDayFont(fontOfSize(DateSize));
    m_date->setGeometry(DatePlace);
}

void ClockScreen::describeSettings()
{
    const auto has24Hours = [this] { return m_clock->format() == WidgetClock::Hour24; };
    const auto isDayFirst = [this] { return m_date->format() == WidgetDate::DayMonth; };
    m_settings = {
        {[=] { m_clock->setFormat(has24Hours() ? WidgetClock::Hour12 : WidgetClock::Hour24); },
         [=] { return has24Hours() ? text("24 hours") : text("12 hours"); }},
        {[this] { m_clock->setDisplaySec(!m_clock->displaySec()); },
         [this] { return m_clock->displaySec() ? text("Seconds") : text("No seconds"); }},
        {[=] { m_date->setFormat(isDayFirst() ? WidgetDate::MonthDay : WidgetDate::DayMonth); },
         [=] { return isDayFirst() ? text("Day first") : text("Month first"); }},
        {[this] { setLanguage((m_language + 1) % LanguageCount); },
         [this] { return QString::fromUtf8(languages[m_language].name); }},
        {[this] { setClockChipWorking(!m_clockChipWorks); },
         [this] { return m_clockChipWorks ? text("Clock chip works") : text("Clock chip fails"); }},
    };
}

void ClockScreen::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setLayoutDirection(layoutDirection());
    paintLamps(painter);
    paintKeys(painter);
}

void ClockScreen::keyReleaseEvent(QKeyEvent *event)
{
    const int setting = event->key() - Qt::Key_1;
    if (setting >= 0 && setting < int(m_settings.size())) {
        m_settings[setting].change();
        playSound(ClickSound);
        showNow();
    } else if (event->key() == Qt::Key_Escape) {
        playSound(ClickSound);
        m_device.back();
    } else {
        event->ignore();
    }
}

void ClockScreen::setLanguage(int language)
{
    m_language = language;
    for (int wday = 0; wday < 7; ++wday)
        m_date->setWDayText(wday, QString::fromUtf8(languages[language].weekDays[wday]));
}

void ClockScreen::setClockChipWorking(bool working)
{
    m_clockChipWorks = working;
    Desktop::setClockChipWorking(working);
}

void ClockScreen::showNow()
{
    // The threads report in their own time, and a minute that another clock has reported not at all.
    const struct tm now = *Util::localtime(time(nullptr));
    m_clock->updateHMS(now.tm_hour, now.tm_min, now.tm_sec);
    m_date->updateDateMonth(now.tm_mon + 1, now.tm_mday, now.tm_wday);
    lookAtLamps();
    update();
}

void ClockScreen::lookAtLamps()
{
    for (Lamp &lamp : m_lamps) {
        if (lamp.isLit == lamp.works())
            continue;
        lamp.isLit = !lamp.isLit;
        update(LampBar);
    }
}

void ClockScreen::paintLamps(QPainter &painter)
{
    painter.fillRect(LampBar, Bar);
    painter.setFont(fontOfSize(LampTextSize));
    painter.setPen(Glow);
    painter.drawText(visual(LampBar.adjusted(10, 0, 0, 0)), Qt::AlignLeft | Qt::AlignVCenter, text("Watchdog"));
    painter.fillRect(visual(ChipDivider), Night);
    painter.setPen(Paper);
    for (const Lamp &lamp : m_lamps) {
        const QPixmap picture(lamp.isLit ? QStringLiteral(":/resource/images_l2/lamp_working.png")
                                         : QStringLiteral(":/resource/images_l2/lamp_failing.png"));
        painter.drawPixmap(visual(QRect(QPoint(lamp.x, LampY), picture.size())), picture);
        painter.drawText(visual(LampBar.adjusted(lamp.x + LampTitleX, 0, 0, 0)), Qt::AlignLeft | Qt::AlignVCenter,
                         text(lamp.title));
    }
}

void ClockScreen::paintKeys(QPainter &painter)
{
    const QPixmap badge(QStringLiteral(":/resource/images_l2/clock_key.png"));
    painter.setFont(fontOfSize(KeyTextSize));
    for (int i = 0; i < int(m_settings.size()); ++i) {
        const QRect key = FirstKey.translated(i % KeyColumns * KeyColumnWidth, i / KeyColumns * KeyRowHeight);
        painter.drawPixmap(visual(key).topLeft(), badge);
        painter.setPen(Glow);
        painter.drawText(visual(key), Qt::AlignCenter, QString::number(i + 1));
        painter.setPen(Paper);
        painter.drawText(visual(QRect(key.x() + KeyTextX, key.y(), width() - key.x() - KeyTextX, key.height())),
                         Qt::AlignLeft | Qt::AlignVCenter, m_settings[i].state());
    }
}

QRect ClockScreen::visual(const QRect &place) const
{
    return QStyle::visualRect(layoutDirection(), rect(), place);
}

}

Screen clockScreen()
{
    return {
        "clock",
        "The time and the date, kept current by their threads, which the watchdog watches",
        [](Device &device) -> QWidget * { return new ClockScreen(device); },
        {
            {"", ""},
            {"24-hours", "1 2"},
            {"day-first-in-german", "1 3 4"},
            {"arabic-week-day", "4 4 4"},
            {"chip-failing", "5"},
            {"first-screen", "ESC"},
            {"right-to-left", "", true},
        },
        LampBar.height(),
    };
}

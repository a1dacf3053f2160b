// Where the device starts: the main menu below the status bar. The keys 1, 3, 7 and 9 stand in for the radio, the
// phone, the messages and the battery, whose states the status bar shows.

#include "device.h"
#include "parts.h"
#include "screen.h"
#include "texts.h"

#include "platform/soundmanager.h"
#include "platform/util.h"
#include "widgetdate.h"
#include "widgetstatusbar.h"
#include "widgetswitcher.h"

#include <QKeyEvent>
#include <QLabel>
#include <QTimer>

#include <ctime>

namespace {

const int StatusBarHeight = 24;
const int StatusIconWidth = 23;
const QRect StatusIconsPlace(118, 0, 102, StatusBarHeight);
const QRect StatusIconsPlaceRightToLeft(6, 0, 102, StatusBarHeight);
const QRect TimePlace(8, 0, 80, StatusBarHeight);
const QRect DatePlace(0, StatusBarHeight + 2, 220, 22);
const int DatePointSize = 12;

const int NamePointSize = 16;
const QRect FirstPageDot(79, 4, 6, 6);

struct Entry
{
    const char *name;
    const char *picture;
    const char *screen;
};

const Entry entries[] = {
    {"Radio", "main_radio", "radio"},
    {"Clock", "main_clock", "clock"},
    {"Route", "main_route", "choice"},
    {"Message", "main_message", "text"},
    {"Settings", "main_settings", "settings"},
    {"More", "main_more", "more"},
};
const int EntryCount = int(sizeof entries / sizeof entries[0]);

// What is addressed by the numbers of WidgetSwitcher.
enum SwitcherItem { SidePicture = 1, CentrePicture = 3, Name = 4, PageDots = 5, LitPageDot = 6 };

const int StatusCount = 3;

struct StatusIcon
{
    int key;
    void (WidgetStatusBar::*show)(int status);
    const char *pictures[StatusCount];
};

const StatusIcon statusIcons[] = {
    {Qt::Key_1, &WidgetStatusBar::showItem0,
     {"status_reception_full", "status_reception_weak", "status_reception_none"}},
    {Qt::Key_3, &WidgetStatusBar::showItem1, {"status_phone_connected", "status_phone_call", "status_phone_none"}},
    {Qt::Key_7, &WidgetStatusBar::showItem2, {"status_message_new", "status_message_full", "status_message_none"}},
    {Qt::Key_9, &WidgetStatusBar::showItem3, {"status_battery_full", "status_battery_half", "status_battery_low"}},
};
const int StatusIconCount = int(sizeof statusIcons / sizeof statusIcons[0]);

class HomeScreen : public QWidget
{
public:
    explicit HomeScreen(Device &device);
    ~HomeScreen() override;

protected:
    void keyReleaseEvent(QKeyEvent *event) override;

private:
    void addStatusBar();
    void addTime();
    void addSwitcher();
    void addDate();

    Device &m_device;
    WidgetDate *m_date = nullptr;
    WidgetStatusBar *m_statusBar = nullptr;
    int m_status[StatusIconCount] = {};
};

HomeScreen::HomeScreen(Device &device)
    : QWidget(&device),
      m_device(device)
{
    addStatusBar();
    addTime();
    addSwitcher();
    addDate();
}

HomeScreen::~HomeScreen()
{
    m_date->stop();
}

void HomeScreen::addStatusBar()
{
    QWidget *ground = new QWidget(this);
    ground->setGeometry(0, 0, Device::Width, StatusBarHeight);
    ground->setStyleSheet(QStringLiteral("background-color: #1F1618;"));

    m_statusBar = new WidgetStatusBar(this, SoundManager::getInstance());
    // The bar keeps its icons away from its right end, also where they are in the other order.
    const QRect place = writesRightToLeft() ? StatusIconsPlaceRightToLeft : StatusIconsPlace;
    m_statusBar->setLayoutDirection(writesRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    m_statusBar->setBgGeometry(place.x(), place.y(), place.width(), place.height(), StatusIconWidth);
    for (int icon = 0; icon < StatusIconCount; ++icon) {
        for (int status = 0; status < StatusCount; ++status)
            m_statusBar->setStatusUrl(icon, status, pictureSheet(statusIcons[icon].pictures[status]));
    }
}

void HomeScreen::addTime()
{
    QLabel *label = addLabel(this, placeForWriting(TimePlace, Device::Width), 14, true, QStringLiteral("#F8F7F6"));
    label->setAlignment((writesRightToLeft() ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    const auto showTime = [label] {
        const struct tm now = *Util::localtime(time(nullptr));
        label->setText(QString::asprintf("%02d:%02d:%02d", now.tm_hour, now.tm_min, now.tm_sec));
    };
    showTime();
    QTimer *timer = new QTimer(this);
    connect(timer, &QTimer::timeout, this, showTime);
    timer->start(1000);
}

void HomeScreen::addDate()
{
    const char *const weekDays[] = {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};
    QFont font;
    font.setPointSize(DatePointSize);

    m_date = new WidgetDate(this, SoundManager::getInstance());
    m_date->setGeometry(DatePlace);
    m_date->setDateFont(font);
    m_date->setWDayFont(font);
    for (int wday = 0; wday < 7; ++wday)
        m_date->setWDayText(wday, text(weekDays[wday]));
    // At once, so that a picture taken now shows it; from then on its thread keeps it current.
    const struct tm now = *Util::localtime(time(nullptr));
    m_date->updateDateMonth(now.tm_mon + 1, now.tm_mday, now.tm_wday);
    m_date->start();
}

void HomeScreen::addSwitcher()
{
    WidgetSwitcher *switcher = new WidgetSwitcher(this, SoundManager::getInstance());
    // The toolkit paints the background of a style sheet on a widget of ours only where this is set.
    switcher->setAttribute(Qt::WA_StyledBackground);
    switcher->setBgGeometry(0, StatusBarHeight, Device::Width, Device::Height - StatusBarHeight);
    for (int i = 0; i < EntryCount; ++i) {
        const QString picture = QString::fromLatin1(entries[i].picture);
        const int place = placeForWriting(i, EntryCount);
        switcher->setItemStyle(CentrePicture, pictureSheet(picture), QString(), place);
        switcher->setItemStyle(SidePicture, pictureSheet(picture + QStringLiteral("_side")), QString(), place);
        switcher->setItemStyle(Name, text(entries[i].name), QString(), place);
    }
    switcher->selectItem(placeForWriting(0, EntryCount));
    switcher->setFontStyle(Name, NamePointSize, true, QStringLiteral("color: #F8F7F6;"));
    switcher->setItemStyle(PageDots, pictureSheet(QStringLiteral("page_off")), QString(), 0);
    switcher->setItemStyle(LitPageDot, pictureSheet(QStringLiteral("page_on")), QString(), 0);
    // In the middle of the area of the dots, which begins right of the switcher's margin.
    for (int item : {PageDots, LitPageDot}) {
        switcher->setItemGeometry(item, FirstPageDot.x(), FirstPageDot.y(), FirstPageDot.width(),
                                  FirstPageDot.height());
    }
    connect(switcher, &WidgetSwitcher::sendMainItem, this, [this](int place) {
        m_device.open(QString::fromLatin1(entries[placeForWriting(place, EntryCount)].screen));
    });
    setFocusProxy(switcher);
}

void HomeScreen::keyReleaseEvent(QKeyEvent *event)
{
    for (int i = 0; i < StatusIconCount; ++i) {
        if (event->key() != statusIcons[i].key)
            continue;
        m_status[i] = (m_status[i] + 1) % StatusCount;
        (m_statusBar->*statusIcons[i].show)(m_status[i]);
        return;
    }
    QWidget::keyReleaseEvent(event);
}

}

Screen homeScreen()
{
    return {
        "home",
        "The main menu below the status bar, where the device starts",
        [](Device &device) -> QWidget * { return new HomeScreen(device); },
        {
            {"", ""},
            {"clock", "right"},
            {"route", "right right"},
            {"message", "right right right"},
            {"settings", "left left"},
            {"around-the-end", "left"},
            {"status-changed", "1 3 7 9"},
            {"status-changed-again", "1 1 3 3 7 7 9 9"},
            {"back-from-settings", "left left OK down ESC"},
            {"first-screen", "ESC"},
            {"right-to-left", "", true},
        },
        StatusBarHeight,
    };
}

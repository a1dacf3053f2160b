// A settings menu with rows of nearly every kind. The info screen has those of one line.

#include "device.h"
#include "parts.h"
#include "rows.h"
#include "screen.h"
#include "textentry.h"
#include "texts.h"

#include "platform/soundmanager.h"
#include "platform/util.h"
#include "widgetlist.h"
#include "widgetlistitem.h"

#include <QKeyEvent>
#include <QPainter>

#include <ctime>

namespace {

const int RowCount = 12;
const int FavouriteRow = 9;
const int DeviceNameLength = 24;
const int ClickSound = 901;

/// A value that is a widget: a bar of which \a level of ten parts are lit.
class LevelBar : public QWidget
{
public:
    explicit LevelBar(int level)
        : m_level(level)
    {
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        if (writesRightToLeft()) {
            painter.translate(width(), 0);
            painter.scale(-1, 1);
        }
        for (int i = 0; i < 10; ++i)
            painter.fillRect(i * 14, 4, 11, 10, i < m_level ? QColor(0x1f, 0x16, 0x18) : QColor(0x59, 0x4b, 0x4f, 70));
    }

private:
    const int m_level;
};

class SettingsScreen : public WidgetList
{
public:
    explicit SettingsScreen(Device &device);

protected:
    void showEvent(QShowEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;

private:
    void addSound();
    void addLanguage();
    void addTrafficAnnouncements();
    void addRoute();
    void addBrightness();
    void addAlarmVolume();
    void addClockSource();
    void addDeviceName();
    void addPassword();
    WidgetListItem *addDeeperRow(const QString &title, int digit = -1);
    WidgetListItem *addEntryRow(const QString &title);
    void addFavourite();
    void addSoftwareUpdate();
    void addAbout();

    void save();
    void leave();
    void enterDeviceName();
    void setDeviceName(const QString &name);
    void enterPassword();
    void setPassword(const QString &password);
    void showEntry(WidgetListItem *row, const QString &entry);
    void checkForUpdate();
    void deleteFavourite();

    Device &m_device;
    WidgetListItem *m_deviceNameRow = nullptr;
    WidgetListItem *m_passwordRow = nullptr;
    WidgetListItem *m_favourite = nullptr;
    WidgetListItem *m_softwareUpdate = nullptr;
    QString m_deviceName;
    QString m_password;
};

SettingsScreen::SettingsScreen(Device &device)
    : WidgetList(RowCount, &device, SoundManager::getInstance()),
      m_device(device)
{
    setTitleBar(this, text("Settings"), QStringLiteral("icon_settings.png"));
    addSaveGuide(this);

    addSound();
    addLanguage();
    addTrafficAnnouncements();
    addRoute();
    addBrightness();
    addAlarmVolume();
    addClockSource();
    addDeviceName();
    addPassword();
    addFavourite();
    addSoftwareUpdate();
    addAbout();

    connect(this, &WidgetList::doSave, this, &SettingsScreen::save);
    connect(this, &Widget::finished, this, &SettingsScreen::leave);
    connect(this, &WidgetList::upKeyLongPressed, this, [this] { setFocusAtItem(0); });
    connect(this, &WidgetList::downKeyLongPressed, this, [this] { setFocusAtItem(RowCount - 1); });
}

void SettingsScreen::addSound()
{
    WidgetListItem *row = addDeeperRow(text("Sound"), 1);
    connect(row, &WidgetListItem::doEnter, this, [this] { m_device.open(QStringLiteral("sound")); });
}

void SettingsScreen::addLanguage()
{
    WidgetListItem *row = addRow(this, text("Language"));
    const char *const languages[] = {"English", "Deutsch", "Français", "Ελληνικά", "Русский", "العربية"};
    for (const char *language : languages)
        row->addValue(fromWritingSide(QString::fromUtf8(language)));
    row->selectByValue(fromWritingSide(text("English")), false);
}

void SettingsScreen::addTrafficAnnouncements()
{
    WidgetListItem *row = addRow(this, text("Traffic announcements"));
    row->addValue(fromWritingSide(text("Always")));
    row->addValue(fromWritingSide(text("Only on motorways")));
    row->addValue(fromWritingSide(text("Never")));
}

void SettingsScreen::addRoute()
{
    // A title this long scrolls best where no value, and no left arrow, stands beside it.
    WidgetListItem *row = addDeeperRow(text("Route options for journeys abroad"), 3);
    connect(row, &WidgetListItem::doEnter, this, [this] { m_device.open(QStringLiteral("choice")); });
}

void SettingsScreen::addBrightness()
{
    WidgetListItem *row = addRow(this, text("Brightness"));
    for (int level = 1; level <= 10; ++level)
        row->addValue(new LevelBar(level));
    row->setDisplayValueIndex(6);
}

void SettingsScreen::addAlarmVolume()
{
    WidgetListItem *row = addRow(this, text("Alarm volume"));
    for (int volume = 0; volume <= 10; ++volume)
        row->addValue(fromWritingSide(QString::number(volume)));
    row->setDisplayValueIndex(5);
    // An alarm must be heard, but not feared.
    row->setSelectableRange(3, 8);
}

void SettingsScreen::addClockSource()
{
    WidgetListItem *row = addRow(this, text("Clock source"));
    row->addValue(fromWritingSide(text("Radio signal")));
    row->setModifiable(false);
}

void SettingsScreen::addDeviceName()
{
    m_deviceNameRow = addEntryRow(text("Device name"));
    connect(m_deviceNameRow, &WidgetListItem::doEnter, this, &SettingsScreen::enterDeviceName);
    setDeviceName(QStringLiteral("LW 220"));
}

void SettingsScreen::addPassword()
{
    m_passwordRow = addEntryRow(text("Password"));
    connect(m_passwordRow, &WidgetListItem::doEnter, this, &SettingsScreen::enterPassword);
    setPassword(QString());
}

WidgetListItem *SettingsScreen::addDeeperRow(const QString &title, int digit)
{
    WidgetListItem *row = addRow(this, title, digit);
    row->setMoreDepth(true);
    row->m_enterOnOK = true;
    return row;
}

WidgetListItem *SettingsScreen::addEntryRow(const QString &title)
{
    WidgetListItem *row = addDeeperRow(title);
    row->m_ignoreModified = true;
    return row;
}

void SettingsScreen::addFavourite()
{
    m_favourite = addRow(this, text("Favourite station"));
    m_favourite->addValue(fromWritingSide(QStringLiteral("89.4 MHz")));
    m_favourite->setDeletable(true);
}

void SettingsScreen::addSoftwareUpdate()
{
    m_softwareUpdate = addEntryRow(text("Software update"));
    m_softwareUpdate->setDisplayValue(0, text("Never checked"), false);
    connect(m_softwareUpdate, &WidgetListItem::doEnter, this, &SettingsScreen::checkForUpdate);
}

void SettingsScreen::addAbout()
{
    WidgetListItem *row = addDeeperRow(text("About this device"), 9);
    connect(row, &WidgetListItem::doEnter, this, [this] { m_device.open(QStringLiteral("info")); });
}

void SettingsScreen::showEvent(QShowEvent *event)
{
    WidgetList::showEvent(event);
    backup();
}

void SettingsScreen::keyReleaseEvent(QKeyEvent *event)
{
    // The row has no other value to go to, so its key for going back comes here.
    if (isBackKey(this, event->key()) && m_favourite->hasFocus())
        deleteFavourite();
    else
        WidgetList::keyReleaseEvent(event);
}

void SettingsScreen::save()
{
    m_device.showMessage(isModified() ? text("Saved") : text("Nothing to save"));
    backup();
}

void SettingsScreen::leave()
{
    const bool lost = isModified();
    m_device.back();
    if (lost)
        m_device.showMessage(text("Changes not saved"));
}

void SettingsScreen::enterDeviceName()
{
    TextEntry *entry = new TextEntry(m_device, text("Device name"));
    entry->setKeyMaxLength(DeviceNameLength);
    entry->startText(m_deviceName);
    connect(entry, &WidgetKeypad::ready, this, &SettingsScreen::setDeviceName);
    m_device.push(entry);
}

void SettingsScreen::setDeviceName(const QString &name)
{
    m_deviceName = name;
    showEntry(m_deviceNameRow, name);
}

void SettingsScreen::enterPassword()
{
    TextEntry *entry = new TextEntry(m_device, text("New password"));
    entry->startPassword(m_password);
    connect(entry, &WidgetKeypad::ready, this, &SettingsScreen::setPassword);
    m_device.push(entry);
}

void SettingsScreen::setPassword(const QString &password)
{
    m_password = password;
    // Not even its length is told.
    showEntry(m_passwordRow, password.isEmpty() ? QString() : QString(8, QChar(0x2022)));
}

void SettingsScreen::showEntry(WidgetListItem *row, const QString &entry)
{
    row->removeAllValue();
    row->addValue(fromWritingSide(entry.isEmpty() ? text("Not set") : entry));
    row->setDisplayValueIndex(0);
}

void SettingsScreen::checkForUpdate()
{
    const struct tm now = *Util::localtime(time(nullptr));
    const QString hoursAndMinutes = QString::asprintf("%02d:%02d", now.tm_hour, now.tm_min);
    m_softwareUpdate->setDisplayValue(0, text("Checked at %1").arg(hoursAndMinutes), false);
    m_device.showMessage(text("Software is up to date"));
}

void SettingsScreen::deleteFavourite()
{
    hideItem(FavouriteRow);
    setFocusAtItem(findNextRow(FavouriteRow));
    playSound(ClickSound);
    m_device.showMessage(text("Favourite deleted"));
}

}

Screen settingsScreen()
{
    return {
        "settings",
        "A menu with rows of nearly every kind",
        [](Device &device) -> QWidget * { return new SettingsScreen(device); },
        {
            {"", ""},
            {"value-changed", "down right"},
            {"long-title", "down down down"},
            {"long-title-scrolling", "down down down wait:300"},
            {"level", "down down down down right right"},
            {"range", "down down down down down right"},
            {"not-modifiable", "down down down down down down right"},
            {"device-name", "down down down down down down down"},
            {"device-name-editing", "up up up up up OK F3 wait:150 F1 wait:150 2 2"},
            {"device-name-entered", "up up up up up OK F4:long 4 4 3 3 5 5 5 F3 5 5 5 6 6 6 F3 F3 F1 "
                                    "9 6 6 6 7 7 7 5 5 5 3 F3 F3 # 4 2 OK"},
            {"device-name-given-up", "up up up up up OK F4:long 2 ESC"},
            {"device-name-emptied", "up up up up up OK F4:long OK"},
            {"password-set", "up up up up OK # 1 2 3 4 OK"},
            {"deletable", "up up up"},
            {"deleted", "up up up left"},
            {"display-value", "up up right"},
            {"digit", "9"},
            {"saved", "down right OK"},
            {"nothing-to-save", "down OK"},
            {"last-row-by-holding-down", "down:long"},
            {"right-to-left", "", true},
            {"right-to-left-long-title", "down down down", true},
            {"right-to-left-level", "down down down down down", true},
            {"right-to-left-last-rows", "up", true},
        },
    };
}

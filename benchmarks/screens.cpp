#include "screens.h"

#include "content.h"
#include "listmodel.h"
#include "plainclock.h"
#include "plainkeypad.h"
#include "plainlist.h"
#include "plainswitcher.h"

#include "platform/soundmanager.h"
#include "widgetclock.h"
#include "widgetkeypad.h"
#include "widgetlist.h"
#include "widgetlistitem.h"
#include "widgetlistview.h"
#include "widgetswitcher.h"

#include <QApplication>
#include <QPalette>

namespace {

SoundManager *sound()
{
    return SoundManager::getInstance();
}

WidgetList *newLibraryList(int rows, QWidget *parent)
{
    WidgetList *list = new WidgetList(rows, parent, sound());
    list->resize(ScreenWidth, ScreenHeight);
    list->setTitle(QStringLiteral("Settings"), true);
    list->setTitleIcon(pictureSheet(QStringLiteral("icon_sound")));
    for (int row = 0; row < rows; ++row) {
        WidgetListItem *item = new WidgetListItem(list, sound());
        item->resize(ScreenWidth, RowHeight);
        item->setTitle(rowTitle(row), true);
        for (int value = 0; value < ValueCount; ++value)
            item->addValue(rowValue(row, value));
        list->addListItem(item);
    }
    return list;
}

WidgetListView *newLibraryListView(ListModel *model, QWidget *parent)
{
    WidgetListView *list = new WidgetListView(parent, sound());
    list->resize(ScreenWidth, ScreenHeight);
    list->setTitle(QStringLiteral("Settings"), true);
    list->setTitleIcon(pictureSheet(QStringLiteral("icon_sound")));
    list->setModel(model);
    return list;
}

WidgetKeypad *newLibraryKeypad(QWidget *parent)
{
    WidgetKeypad *keypad = new WidgetKeypad(parent, sound());
    keypad->setLineTextHeight(KeypadLineHeight);
    keypad->setKeyMaxLength(KeypadMaxLength);
    keypad->setBgGeometry(0, 0, ScreenWidth, ScreenHeight);
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 3; ++column)
            keypad->setKeyText(0, row, column, QString::fromLatin1(keypadKeys[row][column]));
    }
    keypad->setKeyMap(Qt::Key_0, 3, 1);
    for (int digit = 1; digit <= 9; ++digit)
        keypad->setKeyMap(Qt::Key_0 + digit, (digit - 1) / 3, (digit - 1) % 3);
    for (WidgetKeypad::Item item : {WidgetKeypad::ItemButton1, WidgetKeypad::ItemButton2}) {
        keypad->setItemText(item, QString::fromLatin1(keypadCellTexts[item]));
        keypad->setItemStyle(item, WidgetKeypad::StateNormal, QStringLiteral("color: #f7ce86;"));
    }
    keypad->setItemStyle(WidgetKeypad::ItemSpace, WidgetKeypad::StateNormal, pictureSheet("key_space_nor"));
    keypad->setItemStyle(WidgetKeypad::ItemDelete, WidgetKeypad::StateNormal, pictureSheet("key_delete_nor"));
    keypad->setInitialLineText(QString(), false, true, false);
    return keypad;
}

WidgetSwitcher *newLibrarySwitcher(QWidget *parent)
{
    // As the header of the class numbers them.
    enum { SidePicture = 1, CentrePicture = 3, Name = 4, PageDots = 5, LitPageDot = 6 };

    WidgetSwitcher *switcher = new WidgetSwitcher(parent, sound());
    switcher->setAttribute(Qt::WA_StyledBackground);
    switcher->setBgGeometry(0, 0, ScreenWidth, ScreenHeight);
    for (int i = 0; i < EntryCount; ++i) {
        const QString picture = QString::fromLatin1(entryPictures[i]);
        switcher->setItemStyle(SidePicture, pictureSheet(picture + QLatin1String("_side")), QString(), i);
        switcher->setItemStyle(CentrePicture, pictureSheet(picture), QString(), i);
        switcher->setItemStyle(Name, QString::fromLatin1(entryNames[i]), QString(), i);
    }
    switcher->setFontStyle(Name, EntryPointSize, true, QStringLiteral("color: #F8F7F6;"));
    switcher->setItemStyle(PageDots, pictureSheet(QStringLiteral("page_off")), QString(), 0);
    switcher->setItemStyle(LitPageDot, pictureSheet(QStringLiteral("page_on")), QString(), 0);
    return switcher;
}

WidgetClock *newLibraryClock(QWidget *parent)
{
    WidgetClock *clock = new WidgetClock(parent, sound());
    clock->resize(ScreenWidth, 68);
    for (int digit = 0; digit <= 9; ++digit) {
        clock->setNumTextUrl(digit, pictureSheet(QStringLiteral("clock_%1").arg(digit)));
        clock->setNumTextXSUrl(digit, pictureSheet(QStringLiteral("clock_xs_%1").arg(digit)));
    }
    clock->setSeperatorUrl(pictureSheet(QStringLiteral("clock_separator")));
    clock->setAMPMUrl(pictureSheet(QStringLiteral("clock_am")), pictureSheet(QStringLiteral("clock_pm")));
    clock->setDisplaySec(true);
    return clock;
}

}

void setUpEnvironment()
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_FONT_DPI", "72");
    qputenv("QT_HASH_SEED", "0");
    qputenv("LC_ALL", "C.UTF-8");
    qunsetenv("QT_STYLE_OVERRIDE");
    // The event loop of the toolkit alone, as on a device.
    qputenv("QT_NO_GLIB", "1");
}

void setUpApplication()
{
    QApplication::setStyle(QStringLiteral("Fusion"));
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(0x1f, 0x16, 0x18));
    QApplication::setPalette(palette);
}

QWidget *newList(Make make, int rows, QWidget *parent)
{
    if (make == Make::Library)
        return newLibraryList(rows, parent);
    ListModel *model = new ListModel(rows, ListModel::UnseenValue::Black, nullptr);
    QWidget *list = new PlainList(model, parent);
    model->setParent(list);
    return list;
}

QWidget *newListView(Make make, int rows, QWidget *parent)
{
    ListModel *model = new ListModel(rows, ListModel::UnseenValue::Dark, nullptr);
    QWidget *list = newListView(make, model, parent);
    model->setParent(list);
    return list;
}

QWidget *newListView(Make make, ListModel *model, QWidget *parent)
{
    if (make == Make::Library)
        return newLibraryListView(model, parent);
    return new PlainList(model, parent);
}

QWidget *newKeypad(Make make, QWidget *parent)
{
    if (make == Make::Library)
        return newLibraryKeypad(parent);
    return new PlainKeypad(parent);
}

QWidget *newSwitcher(Make make, QWidget *parent)
{
    if (make == Make::Library)
        return newLibrarySwitcher(parent);
    return new PlainSwitcher(parent);
}

Clock newClock(Make make, QWidget *parent)
{
    if (make == Make::Library) {
        WidgetClock *clock = newLibraryClock(parent);
        return {clock, [clock](int hour, int minute, int second) { clock->updateHMS(hour, minute, second); }};
    }
    PlainClock *clock = new PlainClock(parent);
    return {clock, [clock](int hour, int minute, int second) { clock->showTime(hour, minute, second); }};
}

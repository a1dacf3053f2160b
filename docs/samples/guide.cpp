// What the chapters of the guide show beside the pictures of the classes.

#include "samples.h"

#include "platform/soundmanager.h"
#include "platform/stringrc.h"
#include "widgetclock.h"
#include "widgetkeypad.h"
#include "widgetlist.h"
#include "widgetlistitem.h"
#include "widgetlistview.h"
#include "widgetsimpletitle.h"

#include <QAbstractListModel>
#include <QCoreApplication>
#include <QLabel>
#include <QStringListModel>

// First screen: the lines of examples/firstscreen/main.cpp.

SAMPLE(guide_firstscreen, 220, 176, Paper)
{
    WidgetList &menu = *new WidgetList(3, screen, SoundManager::getInstance());
    //! [guide_firstscreen]
    menu.setTitle("Volume", true);
    menu.setTitleIcon("image: url(:/resource/images_l2/icon_sound.png);");
    const char *const titles[] = {"Music", "Phone", "Navigation"};
    for (int row = 0; row < 3; ++row) {
        WidgetListItem *item = new WidgetListItem(&menu, SoundManager::getInstance());
        item->resize(220, 46);  // the list takes the row's height from its item
        item->setTitle(titles[row], true);
        item->addValue("Low");
        item->addValue("High");
        menu.addListItem(item);
    }
    //! [guide_firstscreen]
    menu.resize(220, 176);
}

// Style sheets, pictures and points

SAMPLE(guide_pictures, 220, 92, Paper)
{
    //! [guide_pictures]
    const char *const properties[] = {"image", "background-image", "border-image"};
    const QString sheet("background-color: #474242; "
                        "%1: url(:/resource/images_l2/status_battery_full.png);");
    for (int i = 0; i < 3; ++i) {
        QLabel *place = new QLabel(screen);
        place->setGeometry(10, 4 + i * 29, 60, 26);
        place->setStyleSheet(sheet.arg(properties[i]));
        QLabel *name = new QLabel(properties[i], screen);
        name->setGeometry(80, 4 + i * 29, 130, 26);
    }
    //! [guide_pictures]
}

SAMPLE(guide_without_ground, 220, 38, 0xffa8a29f)
{
    //! [guide_without_ground]
    WidgetSimpleTitle *title = new WidgetSimpleTitle(screen, SoundManager::getInstance());
    title->setItemStyle(WidgetSimpleTitle::ItemBackground,
                        "WidgetSimpleTitle {background-color: #594B4F;} QLabel {color: #F8F7F6;}");
    title->setTitle("Messages");
    //! [guide_without_ground]
}

SAMPLE(guide_with_ground, 220, 38, 0xffa8a29f)
{
    //! [guide_with_ground]
    WidgetSimpleTitle *title = new WidgetSimpleTitle(screen, SoundManager::getInstance());
    title->setAttribute(Qt::WA_StyledBackground);
    title->setItemStyle(WidgetSimpleTitle::ItemBackground,
                        "WidgetSimpleTitle {background-color: #594B4F;} QLabel {color: #F8F7F6;}");
    title->setTitle("Messages");
    //! [guide_with_ground]
}

// Keys and focus

SAMPLE(guide_order, 220, 46, Paper)
{
    //! [guide_order]
    WidgetListItem *volume = new WidgetListItem(screen, SoundManager::getInstance());
    volume->resize(220, 46);
    volume->setTitle("Volume", true);
    for (int level = 0; level <= 10; ++level)
        volume->addValue(QString::number(level));
    screen->show();  // only now all of it is dressed, once

    volume->setDisplayValueIndex(7);  // a text: nothing is dressed again
    //! [guide_order]
}

SAMPLE(guide_function_keys, 220, 176, Paper)
{
    //! [guide_function_keys]
    WidgetList *menu = new WidgetList(3, screen, SoundManager::getInstance());
    menu->resize(220, 176);
    menu->setTitle("Sound", true);
    menu->m_useFunctionKeys = true;
    const char *const titles[] = {"Bass", "Treble", "Balance"};
    for (int i = 0; i < 3; ++i) {
        WidgetListItem *row = new WidgetListItem(menu, SoundManager::getInstance());
        row->resize(220, 46);
        row->m_useFunctionKeys = true;  // each row has left and right of its own
        row->setTitle(titles[i], true);
        row->addValue("Middle");
        row->addValue("More");
        menu->addListItem(row);
    }

    press(screen, Qt::Key_F2);  // down
    press(screen, Qt::Key_F4);  // right
    //! [guide_function_keys]
}

// Settings rows

SAMPLE(guide_saving, 220, 176, Paper)
{
    //! [guide_saving]
    WidgetList *menu = new WidgetList(2, screen, SoundManager::getInstance());
    menu->resize(220, 176);
    menu->setTitle("Not saved", true);
    const char *const titles[] = {"Key clicks", "Alarm"};
    for (int i = 0; i < 2; ++i) {
        WidgetListItem *row = new WidgetListItem(menu, SoundManager::getInstance());
        row->resize(220, 46);
        row->setTitle(titles[i], true);
        row->addValue("Off");
        row->addValue("On");
        menu->addListItem(row);
    }
    menu->refreshItems();
    menu->backup();  // what isModified() compares with

    QObject::connect(menu, &WidgetList::doSave, menu, [menu] {
        if (!menu->isModified())
            return;
        // Write the values where they are kept, and then:
        menu->backup();
        menu->setTitle("Saved", true);
    });

    press(screen, Qt::Key_6);     // on
    press(screen, Qt::Key_Menu);  // OK
    //! [guide_saving]
}

SAMPLE(guide_deeper, 220, 176, Paper)
{
    //! [guide_deeper]
    WidgetList *menu = new WidgetList(1, screen, SoundManager::getInstance());
    menu->resize(220, 176);
    menu->setTitle("Settings", true);
    WidgetListItem *sound = new WidgetListItem(menu, SoundManager::getInstance());
    sound->resize(220, 46);
    sound->setTitle("Sound", true);
    sound->setMoreDepth(true);
    menu->addListItem(sound);

    QObject::connect(sound, &WidgetListItem::doEnter, menu, [screen, sound] {
        WidgetList *deeper = new WidgetList(1, screen, SoundManager::getInstance());
        deeper->resize(220, 176);
        deeper->setAutoFillBackground(true);  // the menu stays below it
        deeper->setTitle("Sound", true);
        WidgetListItem *bass = new WidgetListItem(deeper, SoundManager::getInstance());
        bass->resize(220, 46);
        bass->setTitle("Bass", true);
        bass->addValue("Middle");
        bass->addValue("More");
        deeper->addListItem(bass);

        QObject::connect(deeper, &Widget::finished, sound, [deeper, sound] {
            deeper->deleteLater();
            sound->setFocus();
        });
        deeper->show();  // takes the focus
    });

    press(screen, Qt::Key_6);  // right
    //! [guide_deeper]
}

// Long lists

namespace {

//! [guide_model]
/// Keeps nothing: each row is made when it is asked for.
class Messages : public QAbstractListModel
{
public:
    explicit Messages(QObject *parent)
        : QAbstractListModel(parent)
    {
    }

    virtual int rowCount(const QModelIndex &parent) const
    {
        return parent.isValid() ? 0 : 100000;
    }

    virtual QVariant data(const QModelIndex &index, int role) const
    {
        switch (role) {
        case WidgetListView::TitleRole:
            return QString("Message %1").arg(index.row() + 1);
        case WidgetListView::ValueRole:
            return QString("From station %1").arg(index.row() % 7 + 1);
        default:
            return QVariant();
        }
    }
};
//! [guide_model]

}

SAMPLE(guide_hundred_thousand, 220, 176, Paper)
{
    //! [guide_hundred_thousand]
    WidgetListView *list = new WidgetListView(screen, SoundManager::getInstance());
    list->resize(220, 176);
    list->setTitle("Messages", true);
    list->setModel(new Messages(list));

    press(screen, Qt::Key_2);  // up from the first row: around the end
    //! [guide_hundred_thousand]
}

// Text entry

SAMPLE(guide_keypad, 220, 176, Paper)
{
    //! [guide_keypad]
    const char *const pages[2][12] = {
        {".,?!1", "abc2", "def3", "ghi4", "jkl5", "mno6",
         "pqrs7", "tuv8", "wxyz9", "*", "-'@0", "# 123"},
        {"1", "2", "3", "4", "5", "6", "7", "8", "9", "*", "0", "# abc"},
    };
    WidgetKeypad *keypad = new WidgetKeypad(screen, SoundManager::getInstance());
    for (int page = 0; page < 6; ++page) {
        keypad->enablePage(page, page < 2);
        for (int key = 0; page < 2 && key < 12; ++key)
            keypad->setKeyText(page, key / 3, key % 3, pages[page][key]);
    }
    for (int digit = 1; digit <= 9; ++digit)
        keypad->setKeyMap(Qt::Key_0 + digit, (digit - 1) / 3, (digit - 1) % 3);
    keypad->setKeyMap(Qt::Key_0, 3, 1);
    keypad->setLineTextHeight(38);
    keypad->setBgGeometry(0, 0, 220, 176);
    keypad->setFocus();
    //! [guide_keypad]

    //! [guide_keypad_pages]
    QObject::connect(keypad, &WidgetKeypad::keyPressed, keypad, [keypad](int key) {
        if (key == Qt::Key_NumberSign)
            keypad->changePage(true);
    });

    press(screen, Qt::Key_6, 3);        // o, until another key is pressed
    press(screen, Qt::Key_5, 2);        // k
    press(screen, Qt::Key_NumberSign);  // on to the digits
    //! [guide_keypad_pages]
}

SAMPLE(guide_ready, 220, 40, Paper)
{
    //! [guide_ready]
    QLabel *message = new QLabel(screen);
    message->setGeometry(10, 10, 200, 20);

    WidgetKeypad *keypad = new WidgetKeypad(screen, SoundManager::getInstance());
    keypad->setKeyText(0, 1, 0, "ghi4");
    keypad->setKeyMap(Qt::Key_4, 1, 0);
    keypad->setLineTextHeight(38);
    keypad->setBgGeometry(0, 0, 220, 176);
    keypad->setFocus();

    QObject::connect(keypad, &WidgetKeypad::ready, message, [message](const QString &text) {
        message->setText("Sent: " + text);
    });
    QObject::connect(keypad, &WidgetKeypad::ready, keypad, &QObject::deleteLater);
    QObject::connect(keypad, &WidgetKeypad::cancel, keypad, &QObject::deleteLater);

    press(screen, Qt::Key_4, 2);  // h
    press(screen, Qt::Key_Menu);  // OK
    //! [guide_ready]
}

// Clock and threads

SAMPLE(guide_clock, 220, 72, Night)
{
    //! [guide_clock]
    WidgetClock *clock = new WidgetClock(screen, SoundManager::getInstance());
    clock->resize(220, 72);
    const QString sheet("image: url(:/resource/images_l2/clock_%1.png);");
    for (int digit = 0; digit <= 9; ++digit) {
        clock->setNumTextUrl(digit, sheet.arg(digit));
        clock->setNumTextXSUrl(digit, sheet.arg(QString("xs_%1").arg(digit)));
    }
    clock->setSeperatorUrl(sheet.arg("separator"));
    clock->setFormat(WidgetClock::Hour24);
    clock->setDisplaySec(true);
    clock->start();
    //! [guide_clock]
    screen->show();
    while (!clock->isVisible())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    //! [guide_clock_end]
    clock->stop();  // before the clock goes
    //! [guide_clock_end]
}

// Right to left

SAMPLE(guide_right_to_left, 220, 176, Paper)
{
    //! [guide_right_to_left]
    StringRC::getInstance()->m_rightToLeft = true;  // the platform's: the language in use

    QStringList names;
    names << QString::fromUtf8("أحمد البحري");
    names << QString::fromUtf8("آمنة النجمي");
    names << QString::fromUtf8("باسم الوادي");
    WidgetListView *list = new WidgetListView(screen, SoundManager::getInstance());
    list->resize(220, 176);
    list->setTitle(QString::fromUtf8("جهات الاتصال"), true);
    list->setTitleIcon("image: url(:/resource/images_l2/icon_contacts.png);");
    list->m_mirrored = true;
    list->setModel(new QStringListModel(names, list));
    //! [guide_right_to_left]
}

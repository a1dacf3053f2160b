#include "samples.h"

#include "platform/soundmanager.h"
#include "widgetkeypad.h"

#include <QLabel>

//! [widgetkeypad_keypad]
static WidgetKeypad *addKeypad(QWidget *screen)
{
    WidgetKeypad *keypad = new WidgetKeypad(screen, SoundManager::getInstance());
    const char *const pages[2][12] = {
        {".,?!1", "abc2", "def3", "ghi4", "jkl5", "mno6", "pqrs7", "tuv8", "wxyz9", "*", "-'@0", "#"},
        {"1", "2", "3", "4", "5", "6", "7", "8", "9", "*", "0", "#"},
    };
    for (int page = 0; page < 6; ++page) {
        keypad->enablePage(page, page < 2);
        for (int key = 0; page < 2 && key < 12; ++key)
            keypad->setKeyText(page, key / 3, key % 3, pages[page][key]);
    }
    for (int digit = 1; digit <= 9; ++digit)
        keypad->setKeyMap(Qt::Key_0 + digit, (digit - 1) / 3, (digit - 1) % 3);
    keypad->setKeyMap(Qt::Key_0, 3, 1);

    const QString rest("background-color: #6e6464; color: #f8f7f6; border: 1px solid #3c3738; ");
    const QString lit("background-color: #f7ce86; color: #1f1618; border: 1px solid #3c3738; ");
    const QString picture("image: url(:/resource/images_l2/%1.png);");
    const char *const names[4][2] = {
        {"", ""},  // texts
        {"", ""},
        {"key_space_nor", "key_space_focus"},
        {"key_delete_nor", "key_delete_focus"},
    };
    for (int item = 0; item < 4; ++item) {
        const bool hasPicture = item >= WidgetKeypad::ItemSpace;
        keypad->setItemStyle(WidgetKeypad::Item(item), WidgetKeypad::StateNormal,
                             rest + (hasPicture ? picture.arg(names[item][0]) : QString()));
        keypad->setItemStyle(WidgetKeypad::Item(item), WidgetKeypad::StateSelected,
                             lit + (hasPicture ? picture.arg(names[item][1]) : QString()));
    }
    keypad->setItemText(WidgetKeypad::ItemButton1, "abc");
    keypad->setItemText(WidgetKeypad::ItemButton2, "123");

    keypad->setLineTextHeight(38);
    keypad->setBgGeometry(0, 0, 220, 176);
    keypad->setFocus();  // or no key reaches it
    return keypad;
}
//! [widgetkeypad_keypad]

SAMPLE(widgetkeypad_empty, 220, 176, Paper)
{
    //! [widgetkeypad_empty]
    WidgetKeypad *keypad = addKeypad(screen);
    keypad->setPlaceholderText("Your message");
    //! [widgetkeypad_empty]
}

SAMPLE(widgetkeypad_typing, 220, 176, Paper)
{
    //! [widgetkeypad_typing]
    addKeypad(screen);

    press(screen, Qt::Key_4, 2);  // h
    press(screen, Qt::Key_3, 2);  // e
    press(screen, Qt::Key_5, 2);  // k, until it is pressed again
    //! [widgetkeypad_typing]
}

SAMPLE(widgetkeypad_digits, 220, 176, Paper)
{
    //! [widgetkeypad_digits]
    WidgetKeypad *keypad = addKeypad(screen);
    keypad->setInitialLineText("0555 ", false, true, false);
    screen->show();      // each show starts on the lowest enabled page
    keypad->setPage(1);  // typically in a slot of keyPressed(), for * and #

    press(screen, Qt::Key_1);
    //! [widgetkeypad_digits]
}

SAMPLE(widgetkeypad_password, 220, 176, Paper)
{
    //! [widgetkeypad_password]
    WidgetKeypad *keypad = addKeypad(screen);
    keypad->hideText(true);
    keypad->setInitialLineText("", true, false, false);

    press(screen, Qt::Key_7, 2);
    press(screen, Qt::Key_2);
    //! [widgetkeypad_password]
}

#include "samples.h"

#include "platform/soundmanager.h"
#include "widgetswitcher.h"

//! [widgetswitcher_menu]
static WidgetSwitcher *addMenu(QWidget *screen)
{
    WidgetSwitcher *menu = new WidgetSwitcher(screen, SoundManager::getInstance());
    menu->setAttribute(Qt::WA_StyledBackground);
    menu->setBgGeometry(0, 0, 220, 152);
    const char *const names[] = {"Radio", "Clock", "Route", "Message", "Settings", "More"};
    const QString sheet("image: url(:/resource/images_l2/%1.png);");
    for (int entry = 0; entry < 6; ++entry) {
        const QString picture = "main_" + QString(names[entry]).toLower();
        menu->setItemStyle(1, sheet.arg(picture + "_side"), QString(), entry);
        menu->setItemStyle(3, sheet.arg(picture), QString(), entry);
        menu->setItemStyle(4, names[entry], QString(), entry);
    }
    menu->setItemStyle(5, sheet.arg("page_off"), QString(), 0);
    menu->setItemStyle(6, sheet.arg("page_on"), QString(), 0);
    menu->setFontStyle(4, 16, true, "color: #F8F7F6;");
    menu->selectItem(0);
    menu->setFocus();  // or no key reaches it
    return menu;
}
//! [widgetswitcher_menu]

SAMPLE(widgetswitcher_first_entry, 220, 152, Paper)
{
    //! [widgetswitcher_first_entry]
    addMenu(screen);
    //! [widgetswitcher_first_entry]
}

SAMPLE(widgetswitcher_turned, 220, 152, Paper)
{
    //! [widgetswitcher_turned]
    addMenu(screen);

    press(screen, Qt::Key_6, 4);
    //! [widgetswitcher_turned]
}

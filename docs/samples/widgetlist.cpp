#include "samples.h"

#include "platform/soundmanager.h"
#include "widgetlist.h"
#include "widgetlistitem.h"

//! [widgetlist_menu]
static WidgetListItem *addRow(WidgetList *menu, const QString &title, int shortcutKey = -1)
{
    WidgetListItem *row = new WidgetListItem(menu, SoundManager::getInstance());
    row->resize(220, 46);  // the list takes the row's height from its item
    row->setTitle(title, true);
    row->m_noShortcut = shortcutKey == -1;
    row->setSerialNum(shortcutKey != -1, shortcutKey - Qt::Key_0);
    menu->addListItem(row, shortcutKey);
    return row;
}

static WidgetList *addMenu(QWidget *screen)
{
    WidgetList *menu = new WidgetList(4, screen, SoundManager::getInstance());
    menu->resize(220, 176);
    menu->setTitle("Settings", true);
    menu->setTitleIcon("image: url(:/resource/images_l2/icon_settings.png);");

    addRow(menu, "Sound", Qt::Key_1)->setMoreDepth(true);
    WidgetListItem *language = addRow(menu, "Language");
    language->addValue("English");
    language->addValue("Deutsch");
    addRow(menu, "Clock", Qt::Key_3)->setMoreDepth(true);
    addRow(menu, "About")->setMoreDepth(true);
    return menu;
}
//! [widgetlist_menu]

SAMPLE(widgetlist_first_row, 220, 176, Paper)
{
    //! [widgetlist_first_row]
    addMenu(screen);  // takes the focus when it is shown
    //! [widgetlist_first_row]
}

SAMPLE(widgetlist_scrolled, 220, 176, Paper)
{
    //! [widgetlist_scrolled]
    addMenu(screen);

    press(screen, Qt::Key_2);  // up from the first row: around the end
    //! [widgetlist_scrolled]
}

SAMPLE(widgetlist_value_changed, 220, 176, Paper)
{
    //! [widgetlist_value_changed]
    addMenu(screen);

    press(screen, Qt::Key_8);
    press(screen, Qt::Key_6);
    //! [widgetlist_value_changed]
}

SAMPLE(widgetlist_hidden_row, 220, 176, Paper)
{
    //! [widgetlist_hidden_row]
    WidgetList *menu = addMenu(screen);
    menu->hideItem(1);
    //! [widgetlist_hidden_row]
}

SAMPLE(widgetlist_guide, 220, 176, Paper)
{
    //! [widgetlist_guide]
    WidgetList *menu = addMenu(screen);
    menu->addGuide("image: url(:/resource/images_l2/guide_save.png);", QRect(172, 11, 40, 16));
    //! [widgetlist_guide]
}

SAMPLE(widgetlist_no_focus, 220, 176, Paper)
{
    //! [widgetlist_no_focus]
    WidgetList *menu = addMenu(screen);
    menu->setNoFocusStyle(3);  // up and down turn pages of three rows
    //! [widgetlist_no_focus]
}

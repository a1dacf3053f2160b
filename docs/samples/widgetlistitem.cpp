#include "samples.h"

#include "platform/soundmanager.h"
#include "widgetlistitem.h"

#include <QLabel>

//! [widgetlistitem_row]
static WidgetListItem *newRow(QWidget *screen)
{
    WidgetListItem *row = new WidgetListItem(screen, SoundManager::getInstance());
    row->resize(220, 46);
    return row;
}
//! [widgetlistitem_row]

SAMPLE(widgetlistitem_title, 220, 46, Paper)
{
    //! [widgetlistitem_title]
    WidgetListItem *row = newRow(screen);
    row->setTitle("Reset", true);
    //! [widgetlistitem_title]
}

SAMPLE(widgetlistitem_leads_deeper, 220, 46, Paper)
{
    //! [widgetlistitem_leads_deeper]
    WidgetListItem *row = newRow(screen);
    row->setTitle("Sound", true);
    row->setMoreDepth(true);
    //! [widgetlistitem_leads_deeper]
}

SAMPLE(widgetlistitem_values, 220, 46, Paper)
{
    //! [widgetlistitem_values]
    WidgetListItem *row = newRow(screen);
    row->setTitle("Key clicks", true);
    row->addValue("On");
    row->addValue("Off");
    //! [widgetlistitem_values]
}

SAMPLE(widgetlistitem_focus, 220, 46, Paper)
{
    //! [widgetlistitem_focus]
    WidgetListItem *row = newRow(screen);
    row->setTitle("Key clicks", true);
    row->addValue("On");
    row->addValue("Off");
    row->setFocusPolicy(Qt::StrongFocus);  // a WidgetList sees to this itself
    row->setFocus();
    //! [widgetlistitem_focus]
}

SAMPLE(widgetlistitem_value_on_right_side, 220, 46, Paper)
{
    //! [widgetlistitem_value_on_right_side]
    WidgetListItem *row = newRow(screen);
    row->setValueOnRightSide(true);
    row->addValue("1.0.0");
    row->setTitle("Version", true);  // last: its font depends on what the row shows
    //! [widgetlistitem_value_on_right_side]
}

SAMPLE(widgetlistitem_badge, 220, 46, Paper)
{
    //! [widgetlistitem_badge]
    WidgetListItem *row = newRow(screen);
    row->setTitle("Clock", true);
    row->setMoreDepth(true);
    row->m_noShortcut = false;
    row->setSerialNum(true, 7);
    //! [widgetlistitem_badge]
}

SAMPLE(widgetlistitem_not_modifiable, 220, 46, Paper)
{
    //! [widgetlistitem_not_modifiable]
    WidgetListItem *row = newRow(screen);
    row->setTitle("Clock source", true);
    row->addValue("Radio");
    row->addValue("By hand");
    row->setModifiable(false);
    //! [widgetlistitem_not_modifiable]
}

SAMPLE(widgetlistitem_display_value, 220, 46, Paper)
{
    //! [widgetlistitem_display_value]
    WidgetListItem *row = newRow(screen);
    row->setTitle("Software update", true);
    row->setMoreDepth(true);
    row->setDisplayValue(0, "Checked at 10:42", false);
    //! [widgetlistitem_display_value]
}

SAMPLE(widgetlistitem_value_cut, 220, 46, Paper)
{
    //! [widgetlistitem_value_cut]
    WidgetListItem *row = newRow(screen);
    row->setTitle("Route", true);
    row->addValue("Without motorways, ferries and tolls");
    //! [widgetlistitem_value_cut]
}

SAMPLE(widgetlistitem_widget_value, 220, 46, Paper)
{
    //! [widgetlistitem_widget_value]
    WidgetListItem *row = newRow(screen);
    row->setTitle("Reception", true);
    const char *const pictures[] = {"status_reception_full", "status_reception_weak"};
    for (int i = 0; i < 2; ++i) {
        QLabel *value = new QLabel;
        value->setStyleSheet(QString("background-color: #474242; image: url(:/resource/images_l2/%1.png);")
                                 .arg(pictures[i]));
        row->addValue(value);  // the row owns it from now on
    }
    //! [widgetlistitem_widget_value]
}

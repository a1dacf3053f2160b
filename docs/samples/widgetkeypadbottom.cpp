#include "samples.h"

#include "widgetkeypadbottom.h"

//! [widgetkeypadbottom_bar]
static WidgetKeypadBottom *addBar(QWidget *screen)
{
    WidgetKeypadBottom *bar = new WidgetKeypadBottom(screen);
    bar->setBgGeometry(0, 0, 220, 23);
    const QString rest("background-color: #6e6464; color: #f8f7f6; border: 1px solid #3c3738; ");
    const QString lit("background-color: #f7ce86; color: #1f1618; border: 1px solid #3c3738; ");
    const QString picture("image: url(:/resource/images_l2/%1.png);");
    bar->setItemStyle(WidgetKeypadBottom::ItemButton1, WidgetKeypadBottom::StateNormal, rest);
    bar->setItemStyle(WidgetKeypadBottom::ItemButton1, WidgetKeypadBottom::StateSelected, lit);
    bar->setItemStyle(WidgetKeypadBottom::ItemButton2, WidgetKeypadBottom::StateNormal, rest);
    bar->setItemStyle(WidgetKeypadBottom::ItemButton2, WidgetKeypadBottom::StateSelected, lit);
    bar->setItemStyle(WidgetKeypadBottom::ItemSpace, WidgetKeypadBottom::StateNormal,
                      rest + picture.arg("key_dark_nor"));
    bar->setItemStyle(WidgetKeypadBottom::ItemDelete, WidgetKeypadBottom::StateNormal,
                      rest + picture.arg("key_bin_nor"));
    bar->setItemText(WidgetKeypadBottom::ItemButton1, "Next");
    bar->setItemText(WidgetKeypadBottom::ItemButton2, "Large");
    return bar;
}
//! [widgetkeypadbottom_bar]

SAMPLE(widgetkeypadbottom_at_rest, 220, 23, Paper)
{
    //! [widgetkeypadbottom_at_rest]
    addBar(screen);
    //! [widgetkeypadbottom_at_rest]
}

SAMPLE(widgetkeypadbottom_selected, 220, 23, Paper)
{
    //! [widgetkeypadbottom_selected]
    WidgetKeypadBottom *bar = addBar(screen);
    screen->show();  // each show puts all cells at rest
    bar->handleSelection(WidgetKeypadBottom::ItemButton2);
    //! [widgetkeypadbottom_selected]
}

#include "samples.h"

#include "widgetprogressbar.h"

SAMPLE(widgetprogressbar_used, 220, 46, Paper)
{
    //! [widgetprogressbar_used]
    WidgetProgressBar *bar = new WidgetProgressBar(screen);
    bar->resize(220, 46);
    bar->setItemTitle("Maps");
    bar->setItemUseMaxValue(81920, 131072);
    //! [widgetprogressbar_used]
}

SAMPLE(widgetprogressbar_full, 220, 46, Paper)
{
    //! [widgetprogressbar_full]
    WidgetProgressBar *bar = new WidgetProgressBar(screen);
    bar->resize(220, 46);
    bar->setItemTitle("Messages");
    bar->setItemUseMaxValue(1024, 1024);
    //! [widgetprogressbar_full]
}

SAMPLE(widgetprogressbar_empty, 220, 46, Paper)
{
    //! [widgetprogressbar_empty]
    WidgetProgressBar *bar = new WidgetProgressBar(screen);
    bar->resize(220, 46);
    bar->setItemTitle("Photos");
    bar->setItemUseMaxValue(0, 4096);
    //! [widgetprogressbar_empty]
}

SAMPLE(widgetprogressbar_colours, 220, 46, Paper)
{
    //! [widgetprogressbar_colours]
    WidgetProgressBar *bar = new WidgetProgressBar(screen);
    bar->setAttribute(Qt::WA_StyledBackground);
    bar->resize(220, 46);
    bar->setItemStyle(WidgetProgressBar::ItemBackground,
                      "WidgetProgressBar {background-color: #F7CE86;}");
    bar->setItemStyle(WidgetProgressBar::ItemBar,
                      "QProgressBar {border: 0px; background-color: #6E6464; color: #FFFFFF;}"
                      "QProgressBar::chunk {background-color: #1F1618;}");
    bar->setItemTitle("Memory card");
    bar->setItemUseMaxValue(1572864, 4194304);
    //! [widgetprogressbar_colours]
}

#include "samples.h"

#include "platform/soundmanager.h"
#include "widgetbottom.h"

//! [widgetbottom_bar]
static WidgetBottom *addBar(QWidget *screen)
{
    WidgetBottom *bar = new WidgetBottom(screen, SoundManager::getInstance());
    bar->setGeometry(0, 0, 220, 30);
    bar->setBgGeometry(0, 0, 220, 30);
    bar->setItemStyle(0, QString(), "background-color: #474242;", 0);
    bar->setItemStyle(1, QString(), "background-color: #594B4F;", 0);

    // Pictures 0 to 3 are items 2 to 5; each has up to six states.
    const char *const pictures[4][2] = {
        {"bottom_preset_1", "bottom_preset_2"},
        {"bottom_stereo", "bottom_mono"},
        {"bottom_ta_off", "bottom_ta_on"},
        {"bottom_volume_1", "bottom_volume_5"},
    };
    for (int picture = 0; picture < 4; ++picture) {
        for (int state = 0; state < 2; ++state) {
            const QString sheet("image: url(:/resource/images_l2/%1.png);");
            bar->setItemStyle(picture + 2, sheet.arg(pictures[picture][state]), QString(), state);
        }
    }
    return bar;
}
//! [widgetbottom_bar]

SAMPLE(widgetbottom_halves, 220, 30, Paper)
{
    //! [widgetbottom_halves]
    addBar(screen);  // no states yet
    //! [widgetbottom_halves]
}

SAMPLE(widgetbottom_first_states, 220, 30, Paper)
{
    //! [widgetbottom_first_states]
    addBar(screen)->statusBottomShow(0, 0, 0, 0);
    //! [widgetbottom_first_states]
}

SAMPLE(widgetbottom_other_states, 220, 30, Paper)
{
    //! [widgetbottom_other_states]
    addBar(screen)->statusBottomShow(1, 0, 1, 1);
    //! [widgetbottom_other_states]
}

#include "samples.h"

#include "platform/soundmanager.h"
#include "widgetstatusbar.h"

//! [widgetstatusbar_bar]
static WidgetStatusBar *addBar(QWidget *screen)
{
    WidgetStatusBar *bar = new WidgetStatusBar(screen, SoundManager::getInstance());
    bar->setBgGeometry(0, 0, 220, 24, 23);
    const char *const pictures[4][3] = {
        {"status_reception_full", "status_reception_weak", "status_reception_none"},
        {"status_phone_connected", "status_phone_call", "status_phone_none"},
        {"status_message_new", "status_message_full", "status_message_none"},
        {"status_battery_full", "status_battery_half", "status_battery_low"},
    };
    for (int item = 0; item < 4; ++item) {
        for (int status = 0; status < 3; ++status) {
            const QString sheet("image: url(:/resource/images_l2/%1.png);");
            bar->setStatusUrl(item, status, sheet.arg(pictures[item][status]));
        }
    }
    return bar;
}
//! [widgetstatusbar_bar]

SAMPLE(widgetstatusbar_first_states, 220, 24, Night)
{
    //! [widgetstatusbar_first_states]
    addBar(screen);
    //! [widgetstatusbar_first_states]
}

SAMPLE(widgetstatusbar_other_states, 220, 24, Night)
{
    //! [widgetstatusbar_other_states]
    WidgetStatusBar *bar = addBar(screen);
    bar->showItem0(1);  // these are slots
    bar->showItem1(1);
    bar->showItem3(2);
    //! [widgetstatusbar_other_states]
}

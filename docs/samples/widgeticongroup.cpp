#include "samples.h"

#include "platform/soundmanager.h"
#include "widgeticongroup.h"

SAMPLE(widgeticongroup_icons, 122, 22, 0xff474242)
{
    //! [widgeticongroup_icons]
    WidgetIconGroup *icons = new WidgetIconGroup(screen, SoundManager::getInstance());
    icons->resize(122, 22);
    const QString sheet("image: url(:/resource/images_l2/%1.png);");
    icons->setIcon(0, sheet.arg("radio_signal_strong"));
    icons->setIcon(1, sheet.arg("radio_text_on"));
    icons->setIcon(2, sheet.arg("radio_tp_on"));
    //! [widgeticongroup_icons]
}

SAMPLE(widgeticongroup_separators, 122, 22, 0xff474242)
{
    //! [widgeticongroup_separators]
    WidgetIconGroup *icons = new WidgetIconGroup(screen, SoundManager::getInstance());
    icons->resize(122, 22);
    const QString sheet("image: url(:/resource/images_l2/%1.png);");
    icons->setIcon(0, sheet.arg("radio_signal_weak"));
    icons->setSeperator(0, sheet.arg("radio_separator"));
    icons->setIcon(1, sheet.arg("radio_text_off"));
    icons->setSeperator(1, sheet.arg("radio_separator"));
    icons->setIcon(2, sheet.arg("radio_tp_off"));
    //! [widgeticongroup_separators]
}

SAMPLE(widgeticongroup_lower, 122, 30, 0xff474242)
{
    //! [widgeticongroup_lower]
    WidgetIconGroup *icons = new WidgetIconGroup(screen, SoundManager::getInstance());
    icons->resize(122, 30);
    const QString sheet("image: url(:/resource/images_l2/%1.png);");
    icons->setIcon(0, sheet.arg("radio_signal_strong"));
    icons->setIcon(1, sheet.arg("radio_text_off"));
    icons->setIcon(2, sheet.arg("radio_tp_on"));
    for (int pixels = 0; pixels < 8; pixels += 2)
        icons->setVerticalAlignment(WidgetIconGroup::Bottom);
    //! [widgeticongroup_lower]
}

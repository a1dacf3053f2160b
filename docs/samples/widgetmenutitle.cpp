#include "samples.h"

#include "platform/soundmanager.h"
#include "platform/stringrc.h"
#include "widgetmenutitle.h"

SAMPLE(widgetmenutitle_icon, 220, 38, Paper)
{
    //! [widgetmenutitle_icon]
    WidgetMenuTitle *title = new WidgetMenuTitle(screen, SoundManager::getInstance());
    title->setAttribute(Qt::WA_StyledBackground);
    title->setTitle("Settings");
    title->setItemStyle(WidgetMenuTitle::ItemIcon, "image: url(:/resource/images_l2/icon_settings.png);");
    //! [widgetmenutitle_icon]
}

SAMPLE(widgetmenutitle_info, 220, 38, Paper)
{
    //! [widgetmenutitle_info]
    WidgetMenuTitle *title = new WidgetMenuTitle(screen, SoundManager::getInstance());
    title->setAttribute(Qt::WA_StyledBackground);
    title->setTitle("Sound");
    title->setItemStyle(WidgetMenuTitle::ItemIcon, "image: url(:/resource/images_l2/icon_sound.png);");
    title->setItemGeometry(WidgetMenuTitle::ItemInfo, 172, 11, 40, 16);
    title->setItemStyle(WidgetMenuTitle::ItemInfo, "image: url(:/resource/images_l2/guide_save.png);");
    //! [widgetmenutitle_info]
}

SAMPLE(widgetmenutitle_right_to_left, 220, 38, Paper)
{
    //! [widgetmenutitle_right_to_left]
    StringRC::getInstance()->m_rightToLeft = true;
    WidgetMenuTitle *title = new WidgetMenuTitle(screen, SoundManager::getInstance());
    title->setAttribute(Qt::WA_StyledBackground);
    title->setTitle(QString::fromUtf8("الإعدادات"));
    title->setItemStyle(WidgetMenuTitle::ItemIcon,
                        "image: url(:/resource/images_l2/icon_settings.png);");
    //! [widgetmenutitle_right_to_left]
}

#include "samples.h"

#include "platform/soundmanager.h"
#include "widgetsoftbtn.h"

SAMPLE(widgetsoftbtn_plain, 110, 36, Paper)
{
    //! [widgetsoftbtn_plain]
    WidgetSoftBtn *button = new WidgetSoftBtn(false, screen, SoundManager::getInstance());
    button->setAttribute(Qt::WA_StyledBackground);
    button->setItemGeometry(WidgetSoftBtn::ItemBackground, 4, 4, 102, 28);
    button->setBtnName("Options");
    //! [widgetsoftbtn_plain]
}

SAMPLE(widgetsoftbtn_annotated, 110, 36, Paper)
{
    //! [widgetsoftbtn_annotated]
    WidgetSoftBtn *button = new WidgetSoftBtn(true, screen, SoundManager::getInstance());
    button->setAttribute(Qt::WA_StyledBackground);
    button->setItemGeometry(WidgetSoftBtn::ItemBackground, 4, 4, 102, 28);
    button->setItemStyle(WidgetSoftBtn::ItemBackground, "background-color: #594B4F;");
    button->setItemStyle(WidgetSoftBtn::ItemAnnotation,
                         "background: transparent; image: url(:/resource/images_l2/key_f1.png);");
    button->setBtnName("Back");
    //! [widgetsoftbtn_annotated]
}

SAMPLE(widgetsoftbtn_disabled, 110, 36, Paper)
{
    //! [widgetsoftbtn_disabled]
    WidgetSoftBtn *button = new WidgetSoftBtn(false, screen, SoundManager::getInstance());
    button->setAttribute(Qt::WA_StyledBackground);
    button->setItemGeometry(WidgetSoftBtn::ItemBackground, 4, 4, 102, 28);
    button->setFontStyle(WidgetSoftBtn::ItemName, 14, true, "background: transparent; color: #474242;");
    button->setBtnName("Next");
    //! [widgetsoftbtn_disabled]
}

#include "samples.h"

#include "platform/soundmanager.h"
#include "widgetbottomguide.h"

SAMPLE(widgetbottomguide_first_page, 220, 22, Night)
{
    //! [widgetbottomguide_first_page]
    WidgetBottomGuide *guide = new WidgetBottomGuide(screen, SoundManager::getInstance());
    guide->resize(220, 22);
    guide->setTotPageNo(9);
    guide->setCurPageNo(1);
    //! [widgetbottomguide_first_page]
}

SAMPLE(widgetbottomguide_many_pages, 220, 22, Night)
{
    //! [widgetbottomguide_many_pages]
    WidgetBottomGuide *guide = new WidgetBottomGuide(screen, SoundManager::getInstance());
    guide->setGeometry(-50, 0, 320, 22);  // each number has a tenth of it
    guide->setTotPageNo(120);
    guide->setCurPageNo(37);
    //! [widgetbottomguide_many_pages]
}

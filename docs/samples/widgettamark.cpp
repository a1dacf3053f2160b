#include "samples.h"

#include "platform/soundmanager.h"
#include "widgettamark.h"

SAMPLE(widgettamark_short, 220, 44, Paper)
{
    //! [widgettamark_short]
    WidgetTAMark *mark = new WidgetTAMark(screen, SoundManager::getInstance());
    mark->resize(220, 44);
    mark->updateTAText("Fog on the A8");
    //! [widgettamark_short]
}

SAMPLE(widgettamark_cut, 220, 44, Paper)
{
    //! [widgettamark_cut]
    WidgetTAMark *mark = new WidgetTAMark(screen, SoundManager::getInstance());
    mark->resize(220, 44);
    mark->updateTAText("A8 northbound: jam of 12 km");
    //! [widgettamark_cut]
}

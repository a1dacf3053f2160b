#include "samples.h"

#include "platform/soundmanager.h"
#include "widgetselecttile.h"

SAMPLE(widgetselecttile_one_line, 120, 60, 0xff594b4f)
{
    //! [widgetselecttile_one_line]
    QWidget *inside = new QWidget(screen);  // the tile is to stand in the corner of its parent
    inside->setGeometry(8, 0, 104, 60);
    WidgetSelectTile *tile = new WidgetSelectTile(inside, SoundManager::getInstance());
    tile->resize(104, 60);
    tile->setContent("Fast");
    //! [widgetselecttile_one_line]
}

SAMPLE(widgetselecttile_wrapped, 200, 70, 0xff594b4f)
{
    //! [widgetselecttile_wrapped]
    QWidget *inside = new QWidget(screen);
    inside->setGeometry(8, 0, 184, 70);
    WidgetSelectTile *tile = new WidgetSelectTile(inside, SoundManager::getInstance());
    tile->resize(184, 70);
    tile->setContent("Without motorways and ferries");
    //! [widgetselecttile_wrapped]
}

#include "target.h"
#include "widgetselecttile.h"

namespace {

class WidgetSelectTileTarget : public SetterTarget<WidgetSelectTile>
{
protected:
    virtual QWidget *create(QWidget *)
    {
        return make([this](QWidget *parent) { return new WidgetSelectTile(parent, sounds()); });
    }

    virtual void call()
    {
        const QString content = bytes().text();
        set("setContent", [=](WidgetSelectTile *it) { it->setContent(content); });
    }
};

FUZZ_TARGET("widgetselecttile", WidgetSelectTileTarget)

}

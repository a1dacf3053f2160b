#include "target.h"
#include "widgetbottom.h"

namespace {

class WidgetBottomTarget : public SetterTarget<WidgetBottom>
{
protected:
    virtual QWidget *create(QWidget *)
    {
        return make([this](QWidget *parent) { return new WidgetBottom(parent, sounds()); });
    }

    virtual void call()
    {
        switch (bytes().below(4)) {
        case 0:
        case 1: {
            const int item = bytes().index(6), state = bytes().index(6);
            const QString stateStyle = sheet(), areaStyle = sheet();
            return set("setItemStyle", [=](WidgetBottom *it) { it->setItemStyle(item, stateStyle, areaStyle, state); });
        }
        case 2: {
            const int x = bytes().length(), y = bytes().length(), w = bytes().length(), h = bytes().length();
            return set("setBgGeometry", [=](WidgetBottom *it) { it->setBgGeometry(x, y, w, h); });
        }
        default: {
            const int a = bytes().index(6), b = bytes().index(6), c = bytes().index(6), d = bytes().index(6);
            set("statusBottomShow", [=](WidgetBottom *it) { it->statusBottomShow(a, b, c, d); });
        }
        }
    }
};

FUZZ_TARGET("widgetbottom", WidgetBottomTarget)

}

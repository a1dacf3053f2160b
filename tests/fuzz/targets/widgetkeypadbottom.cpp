#include "target.h"
#include "widgetkeypadbottom.h"

namespace {

class WidgetKeypadBottomTarget : public SetterTarget<WidgetKeypadBottom>
{
protected:
    virtual QWidget *create(QWidget *)
    {
        return make([](QWidget *parent) { return new WidgetKeypadBottom(parent); });
    }

    virtual void call()
    {
        const WidgetKeypadBottom::Item item = WidgetKeypadBottom::Item(bytes().index(4));
        switch (bytes().below(8)) {
        case 0:
        case 1: {
            const WidgetKeypadBottom::State state = WidgetKeypadBottom::State(bytes().index(2));
            const QString style = sheet();
            return set("setItemStyle", [=](WidgetKeypadBottom *it) { it->setItemStyle(item, state, style); });
        }
        case 2: {
            const QString text = bytes().text();
            return set("setItemText", [=](WidgetKeypadBottom *it) { it->setItemText(item, text); });
        }
        case 3: {
            const bool visible = bytes().flag();
            return set("setItemVisible", [=](WidgetKeypadBottom *it) { it->setItemVisible(item, visible); });
        }
        case 4: return set("setItemFont", [=](WidgetKeypadBottom *it) { it->setItemFont(); });
        case 5: {
            const int x = bytes().length(), y = bytes().length(), w = bytes().length(), h = bytes().length();
            return set("setBgGeometry", [=](WidgetKeypadBottom *it) { it->setBgGeometry(x, y, w, h); });
        }
        // A show puts the cells back to rest.
        case 6: say("handleSelection"); return it()->handleSelection(item);
        default: say("clearSelection"); it()->clearSelection();
        }
    }
};

FUZZ_TARGET("widgetkeypadbottom", WidgetKeypadBottomTarget)

}

#include "target.h"
#include "widgetstatusbar.h"

namespace {

class WidgetStatusBarTarget : public SetterTarget<WidgetStatusBar>
{
protected:
    virtual QWidget *create(QWidget *)
    {
        return make([this](QWidget *parent) { return new WidgetStatusBar(parent, sounds()); });
    }

    virtual void call()
    {
        switch (bytes().below(4)) {
        case 0:
        case 1: {
            const int item = bytes().index(4), status = bytes().index(3);
            const QString style = sheet();
            return set("setStatusUrl", [=](WidgetStatusBar *it) { it->setStatusUrl(item, status, style); });
        }
        case 2: {
            const int x = bytes().length(), y = bytes().length(), w = bytes().length(), h = bytes().length();
            const int iconWidth = bytes().length();
            return set("setBgGeometry", [=](WidgetStatusBar *it) { it->setBgGeometry(x, y, w, h, iconWidth); });
        }
        default: {
            const int item = bytes().below(4), status = bytes().index(3);
            set("showItem", [=](WidgetStatusBar *it) {
                switch (item) {
                case 0: return it->showItem0(status);
                case 1: return it->showItem1(status);
                case 2: return it->showItem2(status);
                default: it->showItem3(status);
                }
            });
        }
        }
    }
};

FUZZ_TARGET("widgetstatusbar", WidgetStatusBarTarget)

}

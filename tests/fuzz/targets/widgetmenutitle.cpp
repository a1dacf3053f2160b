#include "target.h"
#include "widgetmenutitle.h"

namespace {

class WidgetMenuTitleTarget : public SetterTarget<WidgetMenuTitle>
{
protected:
    virtual QWidget *create(QWidget *)
    {
        return make([this](QWidget *parent) { return new WidgetMenuTitle(parent, sounds()); });
    }

    virtual void call()
    {
        const WidgetMenuTitle::Item item = WidgetMenuTitle::Item(bytes().index(4));
        switch (bytes().below(4)) {
        case 0: {
            const int x = bytes().length(), y = bytes().length(), w = bytes().length(), h = bytes().length();
            return set("setItemGeometry", [=](WidgetMenuTitle *it) { it->setItemGeometry(item, x, y, w, h); });
        }
        case 1: {
            const QString style = sheet();
            return set("setItemStyle", [=](WidgetMenuTitle *it) { it->setItemStyle(item, style); });
        }
        case 2: {
            const int size = bytes().index(30);
            const bool bold = bytes().flag();
            const QString style = sheet();
            return set("setFontStyle", [=](WidgetMenuTitle *it) { it->setFontStyle(item, size, bold, style); });
        }
        default: {
            const QString text = bytes().text();
            set("setTitle", [=](WidgetMenuTitle *it) { it->setTitle(text); });
        }
        }
    }
};

FUZZ_TARGET("widgetmenutitle", WidgetMenuTitleTarget)

}

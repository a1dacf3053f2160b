#include "target.h"
#include "widgetsimpletitle.h"

namespace {

class WidgetSimpleTitleTarget : public SetterTarget<WidgetSimpleTitle>
{
protected:
    virtual QWidget *create(QWidget *)
    {
        return make([this](QWidget *parent) { return new WidgetSimpleTitle(parent, sounds()); });
    }

    virtual void call()
    {
        const WidgetSimpleTitle::Item item = WidgetSimpleTitle::Item(bytes().index(2));
        switch (bytes().below(4)) {
        case 0: {
            const int x = bytes().length(), y = bytes().length(), w = bytes().length(), h = bytes().length();
            return set("setItemGeometry", [=](WidgetSimpleTitle *it) { it->setItemGeometry(item, x, y, w, h); });
        }
        case 1: {
            const QString style = sheet();
            return set("setItemStyle", [=](WidgetSimpleTitle *it) { it->setItemStyle(item, style); });
        }
        case 2: {
            const int size = bytes().index(30);
            const bool bold = bytes().flag();
            const QString style = sheet();
            return set("setFontStyle", [=](WidgetSimpleTitle *it) { it->setFontStyle(item, size, bold, style); });
        }
        default: {
            const QString text = bytes().text();
            set("setTitle", [=](WidgetSimpleTitle *it) { it->setTitle(text); });
        }
        }
    }
};

FUZZ_TARGET("widgetsimpletitle", WidgetSimpleTitleTarget)

}

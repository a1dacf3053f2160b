#include "target.h"
#include "widgetsoftbtn.h"

namespace {

class WidgetSoftBtnTarget : public SetterTarget<WidgetSoftBtn>
{
protected:
    virtual QWidget *create(QWidget *)
    {
        const bool annotated = bytes().flag();
        return make([=](QWidget *parent) { return new WidgetSoftBtn(annotated, parent, sounds()); });
    }

    virtual void call()
    {
        const WidgetSoftBtn::Item item = WidgetSoftBtn::Item(bytes().index(3));
        switch (bytes().below(4)) {
        case 0: {
            const int x = bytes().length(), y = bytes().length(), w = bytes().length(), h = bytes().length();
            return set("setItemGeometry", [=](WidgetSoftBtn *it) { it->setItemGeometry(item, x, y, w, h); });
        }
        case 1: {
            const QString style = sheet();
            return set("setItemStyle", [=](WidgetSoftBtn *it) { it->setItemStyle(item, style); });
        }
        case 2: {
            const int size = bytes().index(30);
            const bool bold = bytes().flag();
            const QString style = sheet();
            return set("setFontStyle", [=](WidgetSoftBtn *it) { it->setFontStyle(item, size, bold, style); });
        }
        default: {
            const QString text = bytes().text();
            set("setBtnName", [=](WidgetSoftBtn *it) { it->setBtnName(text); });
        }
        }
    }
};

FUZZ_TARGET("widgetsoftbtn", WidgetSoftBtnTarget)

}

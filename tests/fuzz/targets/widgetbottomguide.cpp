#include "target.h"
#include "widgetbottomguide.h"

namespace {

class WidgetBottomGuideTarget : public SetterTarget<WidgetBottomGuide>
{
protected:
    virtual QWidget *create(QWidget *)
    {
        return make([this](QWidget *parent) { return new WidgetBottomGuide(parent, sounds()); });
    }

    virtual void call()
    {
        const bool current = bytes().flag();
        const int number = bytes().number();
        if (current)
            set("setCurPageNo", [=](WidgetBottomGuide *it) { it->setCurPageNo(number); });
        else
            set("setTotPageNo", [=](WidgetBottomGuide *it) { it->setTotPageNo(number); });
    }
};

FUZZ_TARGET("widgetbottomguide", WidgetBottomGuideTarget)

}

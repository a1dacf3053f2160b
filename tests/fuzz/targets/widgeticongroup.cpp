#include "target.h"
#include "widgeticongroup.h"

namespace {

class WidgetIconGroupTarget : public SetterTarget<WidgetIconGroup>
{
protected:
    virtual QWidget *create(QWidget *)
    {
        return make([this](QWidget *parent) { return new WidgetIconGroup(parent, sounds()); });
    }

    virtual void call()
    {
        const int what = bytes().below(3);
        const int index = bytes().index(3);
        if (what == 2) {
            const WidgetIconGroup::VerticalAlignment alignment = WidgetIconGroup::VerticalAlignment(index);
            return set("setVerticalAlignment", [=](WidgetIconGroup *it) { it->setVerticalAlignment(alignment); });
        }
        const QString style = sheet();
        if (what == 0)
            set("setIcon", [=](WidgetIconGroup *it) { it->setIcon(index, style); });
        else
            set("setSeperator", [=](WidgetIconGroup *it) { it->setSeperator(index, style); });
    }
};

FUZZ_TARGET("widgeticongroup", WidgetIconGroupTarget)

}

#include "target.h"
#include "widgettamark.h"

namespace {

class WidgetTAMarkTarget : public SetterTarget<WidgetTAMark>
{
protected:
    virtual QWidget *create(QWidget *)
    {
        return make([this](QWidget *parent) { return new WidgetTAMark(parent, sounds()); });
    }

    virtual void call()
    {
        if (bytes().below(4) > 0) {
            const QString text = bytes().text();
            return set("updateTAText", [=](WidgetTAMark *it) { it->updateTAText(text); });
        }
        QFont font;
        font.setItalic(bytes().flag());
        font.setPixelSize(bytes().below(50) + 1);
        if (bytes().flag())
            font.setFamily(bytes().text());
        set("setTAFont", [=](WidgetTAMark *it) { it->setTAFont(font); });
    }
};

FUZZ_TARGET("widgettamark", WidgetTAMarkTarget)

}

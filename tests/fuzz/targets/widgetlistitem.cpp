#include "rowcalls.h"
#include "target.h"
#include "widgetlistitem.h"

namespace {

class WidgetListItemTarget : public SetterTarget<WidgetListItem>
{
protected:
    virtual QWidget *create(QWidget *)
    {
        return make([this](QWidget *parent) { return new WidgetListItem(parent, sounds()); });
    }

    virtual void call()
    {
        const RowCall call = takeRowCall(bytes(), isTame(), sheet());
        if (call.isSetting)
            return set(call.name, call.call);
        say(call.name);
        call.call(it());
    }

    virtual QWidget *fresh(QWidget *parent)
    {
        m_value = bytes().below(5);
        m_onOneLine = bytes().flag();
        m_focused = bytes().flag();
        return SetterTarget<WidgetListItem>::fresh(parent);
    }

    virtual void align(QWidget *widget)
    {
        WidgetListItem *row = static_cast<WidgetListItem *>(widget);
        row->resize(220, 46);
        layOutAnew(row, m_value, m_onOneLine);
        row->setFocus();
        row->clearFocus();
        if (m_focused)
            row->setFocus();
    }

private:
    int m_value;
    bool m_onOneLine;
    bool m_focused;
};

FUZZ_TARGET("widgetlistitem", WidgetListItemTarget)

}

#include "target.h"
#include "widgetmarqueelable.h"

namespace {

class WidgetMarqueeLableTarget : public Target
{
protected:
    virtual QWidget *create(QWidget *parent)
    {
        say("create");
        return new WidgetMarqueeLable(parent);
    }

    virtual void call()
    {
        WidgetMarqueeLable *it = static_cast<WidgetMarqueeLable *>(widget());
        switch (bytes().below(6)) {
        case 0:
            it->m_marqueeText = bytes().text();
            return say("m_marqueeText");
        case 1:
            it->m_offset = bytes().number();
            return say("m_offset");
        case 2:
        case 3:
            say("startTimer");
            if (it->m_timerId == 0)
                it->m_timerId = it->startTimer(200);
            return;
        case 4:
            say("killTimer");
            if (it->m_timerId != 0)
                it->killTimer(it->m_timerId);
            it->m_timerId = 0;
            return;
        default: {
            const QString style = sheet();
            say("setStyleSheet");
            it->setStyleSheet(style);
        }
        }
    }
};

FUZZ_TARGET("widgetmarqueelable", WidgetMarqueeLableTarget)

}

#include "quietplatform.h"
#include "target.h"
#include "widgetdate.h"

namespace {

class WidgetDateTarget : public SetterTarget<WidgetDate>
{
public:
    WidgetDateTarget() : m_running(false) { }
    virtual ~WidgetDateTarget() { stop(); }

protected:
    virtual QWidget *create(QWidget *)
    {
        return make([this](QWidget *parent) { return new WidgetDate(parent, sounds()); });
    }

    virtual void call()
    {
        switch (bytes().below(8)) {
        case 0:
        case 1: {
            const int day = bytes().index(7);
            const QString text = bytes().text();
            return set("setWDayText", [=](WidgetDate *it) { it->setWDayText(day, text); });
        }
        case 2: {
            const bool ofDate = bytes().flag();
            QFont font;
            font.setPixelSize(bytes().below(60) + 1);
            font.setBold(bytes().flag());
            if (ofDate)
                return set("setDateFont", [=](WidgetDate *it) { it->setDateFont(font); });
            return set("setWDayFont", [=](WidgetDate *it) { it->setWDayFont(font); });
        }
        case 3: {
            const WidgetDate::Format format = WidgetDate::Format(bytes().index(2));
            return set("setFormat", [=](WidgetDate *it) { it->setFormat(format); });
        }
        case 4: {
            const int month = bytes().index(12), day = bytes().index(31), wday = bytes().index(7);
            return set("updateDateMonth", [=](WidgetDate *it) { it->updateDateMonth(month, day, wday); });
        }
        case 5: {
            const int day = bytes().below(31) + 1, month = bytes().below(12), wday = bytes().below(7);
            say("the date");
            return QuietPlatform::setTime(0, 0, 0, day, month, wday);
        }
        case 6: say("start"); m_running = true; return it()->start();
        default: say("stop"); stop();
        }
    }

    virtual QWidget *fresh(QWidget *parent)
    {
        stop();
        m_month = bytes().number();
        m_day = bytes().number();
        m_wday = bytes().below(7);
        return SetterTarget<WidgetDate>::fresh(parent);
    }

    virtual void align(QWidget *widget)
    {
        static_cast<WidgetDate *>(widget)->updateDateMonth(m_month, m_day, m_wday);
    }

    virtual void forget() { stop(); }

private:
    void stop()
    {
        if (m_running && it())
            it()->stop();
        m_running = false;
    }

    bool m_running;
    int m_month;
    int m_day;
    int m_wday;
};

FUZZ_TARGET("widgetdate", WidgetDateTarget)

}

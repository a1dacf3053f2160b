#include "quietplatform.h"
#include "target.h"
#include "widgetclock.h"

namespace {

class WidgetClockTarget : public SetterTarget<WidgetClock>
{
public:
    WidgetClockTarget() : m_running(false) { }
    virtual ~WidgetClockTarget() { stop(); }

protected:
    virtual QWidget *create(QWidget *)
    {
        return make([this](QWidget *parent) { return new WidgetClock(parent, sounds()); });
    }

    virtual void call()
    {
        switch (bytes().below(12)) {
        case 0: {
            const WidgetClock::Item item = WidgetClock::Item(bytes().index(8));
            const int x = bytes().length(), y = bytes().length(), w = bytes().length(), h = bytes().length();
            return set("setItemGeometry", [=](WidgetClock *it) { it->setItemGeometry(item, x, y, w, h); });
        }
        case 1: {
            const int digit = bytes().index(10);
            const QString style = sheet();
            return set("setNumTextUrl", [=](WidgetClock *it) { it->setNumTextUrl(digit, style); });
        }
        case 2: {
            const int digit = bytes().index(10);
            const QString style = sheet();
            return set("setNumTextXSUrl", [=](WidgetClock *it) { it->setNumTextXSUrl(digit, style); });
        }
        case 3: {
            const QString style = sheet();
            return set("setSeperatorUrl", [=](WidgetClock *it) { it->setSeperatorUrl(style); });
        }
        case 4: {
            const QString am = sheet(), pm = sheet();
            return set("setAMPMUrl", [=](WidgetClock *it) { it->setAMPMUrl(am, pm); });
        }
        case 5: {
            const bool display = bytes().flag();
            return set("setDisplaySec", [=](WidgetClock *it) { it->setDisplaySec(display); });
        }
        case 6: {
            const WidgetClock::Format format = WidgetClock::Format(bytes().index(2));
            return set("setFormat", [=](WidgetClock *it) { it->setFormat(format); });
        }
        case 7: {
            const int hour = bytes().index(24), min = bytes().index(60), sec = bytes().index(60);
            return set("updateHMS", [=](WidgetClock *it) { it->updateHMS(hour, min, sec); });
        }
        case 8: {
            const int hour = bytes().below(24), min = bytes().below(60), sec = bytes().below(61);
            say("the time");
            return QuietPlatform::setTime(hour, min, sec, 1, 0, 0);
        }
        case 9: {
            const int tick = bytes().number();
            const bool works = bytes().flag();
            say("the clock chip");
            QuietPlatform::setTick(unsigned(tick));
            return QuietPlatform::setClockChipWorks(works);
        }
        case 10: {
            const bool again = bytes().flag();
            say("start");
            it()->start();
            m_running = true;
            if (again)
                it()->start();
            return;
        }
        default: say("stop"); stop();
        }
    }

    virtual QWidget *fresh(QWidget *parent)
    {
        stop();
        m_hour = bytes().index(24);
        m_min = bytes().index(60);
        m_sec = bytes().index(60);
        return SetterTarget<WidgetClock>::fresh(parent);
    }

    virtual void align(QWidget *widget)
    {
        static_cast<WidgetClock *>(widget)->updateHMS(m_hour, m_min, m_sec);
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
    int m_hour;
    int m_min;
    int m_sec;
};

FUZZ_TARGET("widgetclock", WidgetClockTarget)

}

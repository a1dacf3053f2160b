#include "quietplatform.h"
#include "target.h"
#include "widgetclock.h"
#include "widgetdate.h"

namespace {

/// A screen of the application's own, whose thread reports to it.
template <typename Thread>
class UpdateThreadTarget : public Target
{
public:
    virtual ~UpdateThreadTarget() { stop(); }

protected:
    virtual QWidget *create(QWidget *parent)
    {
        say("create");
        return new QWidget(parent);
    }

    virtual void call()
    {
        switch (bytes().below(6)) {
        case 0:
            say("start");
            if (!m_thread) {
                m_thread = new Thread;
                QObject::connect(m_thread, SIGNAL(update(int,int,int)), widget(), SLOT(update()));
            }
            m_thread->m_interval = 0;
            return m_thread->start();
        case 1: {
            const int interval = bytes().below(3);
            say("m_interval");
            if (m_thread)
                m_thread->m_interval = static_cast<unsigned long>(interval);
            return;
        }
        case 2: {
            const int hour = bytes().below(24), min = bytes().below(60), sec = bytes().below(61);
            const int day = bytes().below(31), month = bytes().below(12), wday = bytes().below(7);
            const int tick = bytes().number();
            const bool works = bytes().flag();
            say("the platform");
            QuietPlatform::setTime(hour, min, sec, day + 1, month, wday);
            QuietPlatform::setTick(unsigned(tick));
            return QuietPlatform::setClockChipWorks(works);
        }
        case 3: {
            const bool on = bytes().flag();
            say("an order");
            return order(m_thread.data(), on);
        }
        case 4: say("stop"); return stop();
        default:
            say("stop beforehand");
            stop();
            m_thread = new Thread;
            m_thread->m_stop = true;
            m_thread->start();
            expect(m_thread->wait(), "the thread does not end");
            expect(!m_thread->m_stop, "the thread has not cleared m_stop");
        }
    }

    virtual void forget() { stop(); }

private:
    void stop()
    {
        if (!m_thread)
            return;
        // A thread clears the mark as it ends, so that one which is not running would keep it.
        if (m_thread->isRunning())
            m_thread->m_stop = true;
        m_thread->wait();
        delete m_thread;
    }

    static void order(ClockUpdateThread *thread, bool on)
    {
        if (thread) {
            thread->measureSec(on);
            thread->timeFormat(on);
        }
    }

    static void order(DateUpdateThread *, bool) { }

    QPointer<Thread> m_thread;
};

typedef UpdateThreadTarget<ClockUpdateThread> ClockUpdateThreadTarget;
typedef UpdateThreadTarget<DateUpdateThread> DateUpdateThreadTarget;

static Target *makeClockTarget() { return new ClockUpdateThreadTarget; }
static Target *makeDateTarget() { return new DateUpdateThreadTarget; }
const bool s_clockRegistered = registerTarget("clockupdatethread", makeClockTarget);
const bool s_dateRegistered = registerTarget("dateupdatethread", makeDateTarget);

}

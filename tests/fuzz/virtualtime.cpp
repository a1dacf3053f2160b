#include "virtualtime.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QEventLoop>
#include <QTimerEvent>
#include <QWidget>

#include <algorithm>

namespace {

typedef QList<QAbstractEventDispatcher::TimerInfo> TimerInfos;

int idOf(const QAbstractEventDispatcher::TimerInfo &timer)
{
#if QT_VERSION < 0x050000
    return timer.first;
#else
    return timer.timerId;
#endif
}

int intervalOf(const QAbstractEventDispatcher::TimerInfo &timer)
{
#if QT_VERSION < 0x050000
    return timer.second;
#else
    return timer.interval;
#endif
}

/// Every object that may have a timer.
QList<QObject *> allObjects()
{
    QList<QObject *> objects;
    QList<QObject *> roots = QAbstractEventDispatcher::instance()->children();  // the timers of QTimer::singleShot()
    foreach (QWidget *window, QApplication::topLevelWidgets())
        roots << window;
    foreach (QObject *root, roots)
        objects << root << root->findChildren<QObject *>();
    return objects;
}

}

VirtualTime::VirtualTime() : m_now(0)
{
}

void VirtualTime::takeTimers()
{
    std::list<Timer> running;
    foreach (QObject *object, allObjects()) {
        const TimerInfos infos = QAbstractEventDispatcher::instance()->registeredTimers(object);
        for (int i = 0; i < infos.size(); ++i) {
            const int id = idOf(infos.at(i));
            const int interval = intervalOf(infos.at(i));
            const auto known = std::find_if(m_timers.begin(), m_timers.end(), [=](const Timer &timer) {
                return timer.object == object && timer.id == id;
            });
            if (known != m_timers.end())
                running.push_back(*known);
            else
                running.push_back({object, id, interval, m_now + interval});
        }
    }
    // In the order of their starts, in which timers of the same moment run out.
    running.sort([](const Timer &a, const Timer &b) { return a.due < b.due || (a.due == b.due && a.id < b.id); });
    m_timers = running;
}

void VirtualTime::pass(int ms)
{
    const qint64 end = m_now + ms;
    sendEvents();
    takeTimers();
    while (!m_timers.empty() && m_timers.front().due <= end) {
        Timer &next = m_timers.front();
        m_now = next.due;
        next.due += std::max(1, next.interval);
        QTimerEvent event(next.id);
        QCoreApplication::sendEvent(next.object, &event);
        sendEvents();
        takeTimers();
    }
    m_now = end;
}

void VirtualTime::sendEvents()
{
    QCoreApplication::processEvents(QEventLoop::X11ExcludeTimers);
    QCoreApplication::sendPostedEvents(0, QEvent::DeferredDelete);
    QCoreApplication::processEvents(QEventLoop::X11ExcludeTimers);
}

int VirtualTime::timerCount()
{
    int count = 0;
    foreach (QObject *object, allObjects())
        count += QAbstractEventDispatcher::instance()->registeredTimers(object).size();
    return count;
}

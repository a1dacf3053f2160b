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
    std::map<int, Timer> running;
    foreach (QObject *object, allObjects()) {
        const TimerInfos infos = QAbstractEventDispatcher::instance()->registeredTimers(object);
        for (int i = 0; i < infos.size(); ++i) {
            const int id = idOf(infos.at(i));
            const int interval = intervalOf(infos.at(i));
            const auto known = m_timers.find(id);
            if (known != m_timers.end() && known->second.object == object)
                running.insert(*known);
            else
                running.insert({id, {object, interval, m_now + interval}});
        }
    }
    m_timers.swap(running);
}

void VirtualTime::pass(int ms)
{
    const qint64 end = m_now + ms;
    sendEvents();
    for (;;) {
        takeTimers();
        // Of those that run out at the same moment the first that was started.
        const auto next = std::min_element(m_timers.begin(), m_timers.end(),
                                           [](const std::pair<const int, Timer> &a, const std::pair<const int, Timer> &b) {
                                               return a.second.due < b.second.due;
                                           });
        if (next == m_timers.end() || next->second.due > end)
            break;
        Timer &timer = next->second;
        m_now = timer.due;
        timer.due += std::max(1, timer.interval);
        QTimerEvent event(next->first);
        QCoreApplication::sendEvent(timer.object, &event);
        sendEvents();
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

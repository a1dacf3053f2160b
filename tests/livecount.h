#ifndef LIVECOUNT_H
#define LIVECOUNT_H

// Counts what a program has at a time: memory, objects, and what objects have among each other. Include it in one
// source only: it takes the place of two of the toolkit's functions.

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QObject>
#include <QString>

#include <dlfcn.h>
#include <malloc.h>

#include <cstring>
#include <mutex>
#include <set>
#include <utility>

// The toolkit calls what stands here for each object that comes and goes; debuggers use it.
extern quintptr Q_DECL_IMPORT qtHookData[];

struct LiveCount
{
    qint64 heap = 0;  ///< bytes
    int objects = 0;
    int timers = 0;  ///< those of the calling thread that run
    int eventFilters = 0;
    int connections = 0;
    int styledWidgets = 0;  ///< those for which the toolkit's engine of style sheets keeps something

    /// Whether all is the same but the heap.
    bool operator==(const LiveCount &other) const
    {
        return objects == other.objects && timers == other.timers && eventFilters == other.eventFilters
            && connections == other.connections && styledWidgets == other.styledWidgets;
    }

    QString toString() const
    {
        return QString("heap %1, objects %2, timers %3, event filters %4, connections %5, styled widgets %6")
            .arg(heap).arg(objects).arg(timers).arg(eventFilters).arg(connections).arg(styledWidgets);
    }
};

class LiveObjects
{
public:
    /// From now on every object is counted. To be called before there are any.
    static void watch()
    {
        qtHookData[3] = reinterpret_cast<quintptr>(&added);
        qtHookData[4] = reinterpret_cast<quintptr>(&removed);
    }

    static LiveCount count()
    {
        LiveCount count;
        std::set<QObject *> objects;
        {
            const std::lock_guard<std::mutex> lock(s_mutex);
            objects = s_objects;
            count.eventFilters = int(s_filters.size());
        }
        QAbstractEventDispatcher *dispatcher = QAbstractEventDispatcher::instance();
        s_lines = &count;
        const QtMessageHandler before = qInstallMessageHandler(countLine);
        for (QObject *object : objects) {
            if (isKeptByTheToolkit(*object))
                continue;
            ++count.objects;
            const char *name = object->metaObject()->className();
            // The toolkit's cache of fonts has no name of its own, and a timer now and then.
            if (object->thread() == dispatcher->thread() && std::strcmp(name, "QObject") != 0)
                count.timers += int(dispatcher->registeredTimers(object).size());
            s_isStyleEngine = std::strcmp(name, "QStyleSheetStyleCaches") == 0;
            object->dumpObjectInfo();
        }
        qInstallMessageHandler(before);
        objects.clear();
        const struct mallinfo2 used = mallinfo2();
        count.heap = qint64(used.uordblks + used.hblkhd);
        return count;
    }

    static void filterInstalled(QObject *object, QObject *filter)
    {
        const std::lock_guard<std::mutex> lock(s_mutex);
        s_filters.insert({object, filter});
    }

    static void filterRemoved(QObject *object, QObject *filter)
    {
        const std::lock_guard<std::mutex> lock(s_mutex);
        s_filters.erase({object, filter});
    }

private:
    static void added(QObject *object)
    {
        const std::lock_guard<std::mutex> lock(s_mutex);
        s_objects.insert(object);
    }

    static void removed(QObject *object)
    {
        const std::lock_guard<std::mutex> lock(s_mutex);
        s_objects.erase(object);
        for (auto filter = s_filters.begin(); filter != s_filters.end();)
            filter = filter->first == object || filter->second == object ? s_filters.erase(filter) : std::next(filter);
    }

    /// What the toolkit makes and deletes when it likes, by the clock: its cache of pictures, which has a timer now and
    /// then, its idle threads with what they run on, and gestures of widgets that are gone.
    static bool isKeptByTheToolkit(const QObject &object)
    {
        return object.inherits("QPMCache") || object.inherits("QThreadPoolThread")
            || object.inherits("QAbstractEventDispatcher") || object.inherits("QGesture");
    }

    /// Reads what QObject::dumpObjectInfo() says: a line for each connection from the object, and one for each to it.
    static void countLine(QtMsgType, const QMessageLogContext &, const QString &line)
    {
        const QString text = line.trimmed();
        if (text.startsWith("-->") || text.startsWith("<functor"))
            ++s_lines->connections;
        else if (s_isStyleEngine && text.startsWith("<--"))
            ++s_lines->styledWidgets;
    }

    // Never destroyed: the toolkit's plug-ins delete objects after all that is static here.
    static inline std::mutex &s_mutex = *new std::mutex;
    static inline std::set<QObject *> &s_objects = *new std::set<QObject *>;
    static inline std::set<std::pair<QObject *, QObject *>> &s_filters = *new std::set<std::pair<QObject *, QObject *>>;
    static inline LiveCount *s_lines = nullptr;
    static inline bool s_isStyleEngine = false;
};

template <typename Function>
Function nextFunction(Function, const char *name)
{
    void *symbol = dlsym(RTLD_NEXT, name);
    if (!symbol)
        qFatal("There is no %s.", name);
    Function function;
    std::memcpy(&function, &symbol, sizeof function);
    return function;
}

void QObject::installEventFilter(QObject *filter)
{
    typedef void (*Function)(QObject *, QObject *);
    static const Function function = nextFunction(Function(), "_ZN7QObject18installEventFilterEPS_");
    if (filter)
        LiveObjects::filterInstalled(this, filter);
    function(this, filter);
}

void QObject::removeEventFilter(QObject *filter)
{
    typedef void (*Function)(QObject *, QObject *);
    static const Function function = nextFunction(Function(), "_ZN7QObject17removeEventFilterEPS_");
    LiveObjects::filterRemoved(this, filter);
    function(this, filter);
}

#endif

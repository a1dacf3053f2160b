#include "platform/linux/boardkeys.h"

#include "platform/linux/boardconfig.h"
#include "platform/linux/keydevice.h"
#include "platform/linux/keytable.h"
#include "platform/logging.h"

#include <QApplication>
#include <QBasicTimer>
#include <QKeyEvent>
#include <QPointer>
#include <QSocketNotifier>
#include <QTimerEvent>
#include <QWidget>

#include <algorithm>
#include <deque>
#include <glob.h>
#include <set>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const char usualInput[] = "/dev/input/event*";

typedef std::vector<std::string> Paths;

// One device has the same identity under each of its paths.
struct Identity
{
    dev_t fileSystem;
    ino_t file;
    dev_t device;  // its number, or 0 for what has none
};

bool isSameNode(const Identity &one, const Identity &other)
{
    return one.fileSystem == other.fileSystem && one.file == other.file && one.device == other.device;
}

// A node may be removed and made again for a device that stays.
bool isSameDevice(const Identity &one, const Identity &other)
{
    return one.device ? one.device == other.device : isSameNode(one, other);
}

bool hasNode(const std::vector<Identity> &all, const Identity &identity)
{
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (isSameNode(all[i], identity))
            return true;
    }
    return false;
}

bool identify(const std::string &path, Identity *identity)
{
    struct stat status;
    if (stat(path.c_str(), &status) != 0)
        return false;
    identity->fileSystem = status.st_dev;
    identity->file = status.st_ino;
    identity->device = status.st_rdev;
    return true;
}

Paths matches(const Paths &patterns)
{
    Paths found;
    for (std::size_t i = 0; i < patterns.size(); ++i) {
        glob_t list;
        if (glob(patterns[i].c_str(), 0, 0, &list) == 0)
            found.insert(found.end(), list.gl_pathv, list.gl_pathv + list.gl_pathc);
        globfree(&list);
    }
    return found;
}

std::string joined(const Paths &paths)
{
    std::string text;
    for (std::size_t i = 0; i < paths.size(); ++i)
        text += (i == 0 ? "" : ", ") + paths[i];
    return text;
}

std::string directoryOf(const std::string &path)
{
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? "." : path.substr(0, slash + 1);
}

// As a pattern in \a directory finds \a name.
std::string pathIn(const std::string &directory, const std::string &name)
{
    return directory == "." ? name : directory + name;
}

struct Device
{
    std::string path;
    Identity identity;
    Board::KeyDevice reader;
    std::set<int> held;  // codes
    QSocketNotifier *notifier;
};

struct Problem
{
    std::string text;
    bool isReported;
};

// Why there is a look for devices.
enum Occasion { Change, Scan };

struct Stroke
{
    int key;
    bool isPress;
};

}

class Board::Keys::Reader
{
public:
    explicit Reader(Keys *keys);
    ~Reader();

    QStringList devices() const;

    /// Something can be read. Afterwards the object may be gone, as after timeOut().
    void ready();

    void timeOut(int timer);

private:
    void watchDirectories();
    void readDirectoryEvents();
    void noteNodeChange(const inotify_event &event);
    void lookForDevices(Occasion occasion);
    void openDevice(const std::string &path, const Identity &identity, Occasion occasion);
    bool isOpen(const Identity &identity) const;
    bool isIgnored(const Identity &identity) const;
    bool hasKeyOfTable(const KeyDevice &device) const;
    void report(const std::string &path, const std::string &text, Occasion occasion);

    void readDevices();
    void handle(Device *device, const KeyDevice::Event &event);
    void giveUp(Device *device);
    void press(int key);
    void release(int key);

    bool deliver();
    void repeat();

    Keys *const m_keys;
    const KeyTable m_table;
    Paths m_patterns;
    std::vector<Device *> m_devices;
    std::map<std::string, Identity> m_ignored;  // without a key of the table, by path
    std::map<std::string, Problem> m_problems;  // the last one of each path

    int m_inotify;
    std::map<std::string, int> m_watches;  // of each directory; -1: the kernel does not tell of it
    QSocketNotifier *m_directoryNotifier;
    QBasicTimer m_scanTimer;

    std::map<int, int> m_held;  // how often each key is held
    std::deque<Stroke> m_strokes;
    int m_repeatedKey;
    QBasicTimer m_repeatTimer;
};

namespace {

// Tells its parent by a call, so that nothing here needs a slot.
class Notifier : public QSocketNotifier
{
public:
    Notifier(int descriptor, QObject *parent)
        : QSocketNotifier(descriptor, Read, parent)
    {
    }

protected:
    bool event(QEvent *event)
    {
        if (event->type() != QEvent::SockAct)
            return QSocketNotifier::event(event);
        QCoreApplication::sendEvent(parent(), event);
        return true;  // and this may be gone
    }
};

QWidget *receiver()
{
    QWidget *grabber = QWidget::keyboardGrabber();
    if (grabber)
        return grabber;
    QWidget *popup = QApplication::activePopupWidget();
    if (popup)
        return popup->focusWidget() ? popup->focusWidget() : popup;
    return QApplication::focusWidget() ? QApplication::focusWidget() : QApplication::activeWindow();
}

void sendKey(QEvent::Type type, int key, bool isRepeat)
{
    QWidget *widget = receiver();
    if (!widget)
        return;
    const char character = Board::characterOf(key);
    const QString text = character ? QString(QLatin1Char(character)) : QString();
    QKeyEvent event(type, key, Qt::NoModifier, text, isRepeat);
    QApplication::sendEvent(widget, &event);
}

}

Board::Keys::Reader::Reader(Keys *keys)
    : m_keys(keys),
      m_table(configuredKeys()),
      m_patterns(config().inputs),
      m_inotify(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)),
      m_directoryNotifier(0),
      m_repeatedKey(0)
{
    if (m_patterns.empty())
        m_patterns.push_back(usualInput);
    for (std::size_t i = 0; i < m_patterns.size(); ++i)
        m_watches[directoryOf(m_patterns[i])] = -1;
    if (m_inotify >= 0)
        m_directoryNotifier = new Notifier(m_inotify, m_keys);
    lookForDevices(Change);
    if (m_devices.empty())
        Logging::log(Logging::LogError, "[keys] There is no device yet: %s", joined(m_patterns).c_str());
}

Board::Keys::Reader::~Reader()
{
    for (std::size_t i = 0; i < m_devices.size(); ++i) {
        m_devices[i]->notifier->setEnabled(false);
        delete m_devices[i];
    }
    if (m_inotify >= 0) {
        m_directoryNotifier->setEnabled(false);
        close(m_inotify);
    }
}

QStringList Board::Keys::Reader::devices() const
{
    QStringList paths;
    for (std::size_t i = 0; i < m_devices.size(); ++i)
        paths += QString::fromLocal8Bit(m_devices[i]->path.c_str());
    return paths;
}

void Board::Keys::Reader::ready()
{
    readDevices();  // first, so that what has gone is not taken for what has come under its number
    readDirectoryEvents();
    deliver();
}

void Board::Keys::Reader::timeOut(int timer)
{
    if (timer == m_scanTimer.timerId())
        lookForDevices(Scan);
    else if (timer == m_repeatTimer.timerId())
        repeat();
}

void Board::Keys::Reader::watchDirectories()
{
    // A node may be allowed to be opened only later than it is there.
    const uint32_t changes = IN_CREATE | IN_MOVED_TO | IN_ATTRIB | IN_DELETE | IN_MOVED_FROM | IN_ONLYDIR;
    std::map<std::string, int>::iterator it;
    for (it = m_watches.begin(); it != m_watches.end(); ++it) {
        if (it->second < 0 && m_inotify >= 0)
            it->second = inotify_add_watch(m_inotify, it->first.c_str(), changes);
    }
}

void Board::Keys::Reader::readDirectoryEvents()
{
    if (m_inotify < 0)
        return;
    bool changed = false;
    union
    {
        char bytes[4096];
        inotify_event first;
    } buffer;
    for (;;) {
        const ssize_t length = read(m_inotify, buffer.bytes, sizeof(buffer.bytes));
        if (length <= 0)
            break;
        changed = true;
        for (ssize_t at = 0; at < length;) {
            const void *const bytes = buffer.bytes + at;  // aligned, as names are filled up
            const inotify_event *event = static_cast<const inotify_event *>(bytes);
            noteNodeChange(*event);
            at += ssize_t(sizeof(inotify_event) + event->len);
        }
    }
    if (changed)
        lookForDevices(Change);
}

void Board::Keys::Reader::noteNodeChange(const inotify_event &event)
{
    // What was ignored at a path is not what is there now, even if it has the same number and is the same file.
    if (event.mask & IN_Q_OVERFLOW)
        m_ignored.clear();
    std::map<std::string, int>::iterator it;
    for (it = m_watches.begin(); it != m_watches.end(); ++it) {
        if (it->second != event.wd)
            continue;
        if (event.mask & IN_IGNORED)
            it->second = -1;
        else if (event.len > 0 && !(event.mask & IN_ATTRIB))
            m_ignored.erase(pathIn(it->first, event.name));
    }
}

void Board::Keys::Reader::lookForDevices(Occasion occasion)
{
    // First, so that what comes meanwhile is seen by the one or the other.
    watchDirectories();
    const Paths paths = matches(m_patterns);
    std::vector<Identity> seen;
    for (std::size_t i = 0; i < paths.size(); ++i) {
        Identity identity;
        if (!identify(paths[i], &identity))
            continue;
        seen.push_back(identity);
        if (!isOpen(identity) && !isIgnored(identity))
            openDevice(paths[i], identity, occasion);
    }

    std::map<std::string, Identity>::iterator ignored = m_ignored.begin();
    while (ignored != m_ignored.end()) {
        if (!hasNode(seen, ignored->second))
            m_ignored.erase(ignored++);
        else
            ++ignored;
    }
    std::map<std::string, Problem>::iterator it = m_problems.begin();
    while (it != m_problems.end()) {
        if (std::find(paths.begin(), paths.end(), it->first) == paths.end())
            m_problems.erase(it++);
        else
            ++it;
    }

    bool looksAgain = !m_problems.empty();
    std::map<std::string, int>::const_iterator watch;
    for (watch = m_watches.begin(); watch != m_watches.end(); ++watch)
        looksAgain = looksAgain || watch->second < 0;
    if (looksAgain)
        m_scanTimer.start(config().inputScanMs, m_keys);
    else
        m_scanTimer.stop();
}

void Board::Keys::Reader::openDevice(const std::string &path, const Identity &identity, Occasion occasion)
{
    Device *device = new Device;
    device->path = path;
    device->identity = identity;
    std::string problem;
    if (!device->reader.open(path, &problem)) {
        report(path, problem, occasion);
        delete device;
        return;
    }
    m_problems.erase(path);
    if (!hasKeyOfTable(device->reader)) {
        m_ignored[path] = identity;
        delete device;
        return;
    }
    if (config().inputGrab && !device->reader.grab(&problem))
        Logging::log(Logging::LogError, "[keys] %s: It cannot be grabbed: %s", path.c_str(), problem.c_str());
    device->notifier = new Notifier(device->reader.descriptor(), m_keys);
    m_devices.push_back(device);
    const std::string name = device->reader.name();
    Logging::log(Logging::LogTrace, "[keys] %s: %s is read", path.c_str(), name.empty() ? "It" : name.c_str());
}

bool Board::Keys::Reader::isOpen(const Identity &identity) const
{
    for (std::size_t i = 0; i < m_devices.size(); ++i) {
        if (isSameDevice(m_devices[i]->identity, identity))
            return true;
    }
    return false;
}

bool Board::Keys::Reader::isIgnored(const Identity &identity) const
{
    std::map<std::string, Identity>::const_iterator it;
    for (it = m_ignored.begin(); it != m_ignored.end(); ++it) {
        if (isSameNode(it->second, identity))
            return true;
    }
    return false;
}

bool Board::Keys::Reader::hasKeyOfTable(const KeyDevice &device) const
{
    for (KeyTable::const_iterator it = m_table.begin(); it != m_table.end(); ++it) {
        if (device.hasKey(it->first))
            return true;
    }
    return false;
}

// A node may not be ready yet when it is there: only what is the same at the next scan counts.
void Board::Keys::Reader::report(const std::string &path, const std::string &text, Occasion occasion)
{
    Problem &problem = m_problems[path];
    if (problem.text != text) {
        problem.text = text;
        problem.isReported = false;
    } else if (occasion == Scan && !problem.isReported) {
        Logging::log(Logging::LogError, "[keys] %s: %s", path.c_str(), text.c_str());
        problem.isReported = true;
    }
}

void Board::Keys::Reader::readDevices()
{
    std::vector<Device *> gone;
    for (std::size_t i = 0; i < m_devices.size(); ++i) {
        std::vector<KeyDevice::Event> events;
        if (!m_devices[i]->reader.read(&events))
            gone.push_back(m_devices[i]);
        for (std::size_t e = 0; e < events.size(); ++e)
            handle(m_devices[i], events[e]);
    }
    for (std::size_t i = 0; i < gone.size(); ++i)
        giveUp(gone[i]);
}

void Board::Keys::Reader::handle(Device *device, const KeyDevice::Event &event)
{
    const KeyTable::const_iterator entry = m_table.find(event.code);
    if (entry == m_table.end())
        return;
    if (event.isPress && device->held.insert(event.code).second)
        press(entry->second);
    else if (!event.isPress && device->held.erase(event.code) == 1)
        release(entry->second);
}

void Board::Keys::Reader::giveUp(Device *device)
{
    Logging::log(Logging::LogTrace, "[keys] %s: It is gone", device->path.c_str());
    for (std::set<int>::const_iterator it = device->held.begin(); it != device->held.end(); ++it)
        release(m_table.find(*it)->second);
    m_devices.erase(std::find(m_devices.begin(), m_devices.end(), device));
    device->notifier->setEnabled(false);
    device->notifier->deleteLater();  // it may be the one that has told of it
    delete device;
    // Not at once: the node may still be there for a moment.
    m_scanTimer.start(config().inputScanMs, m_keys);
}

void Board::Keys::Reader::press(int key)
{
    if (++m_held[key] > 1)
        return;
    const Stroke stroke = {key, true};
    m_strokes.push_back(stroke);
    m_repeatedKey = key;
    if (config().repeatPeriodMs > 0)
        m_repeatTimer.start(config().repeatDelayMs, m_keys);
}

void Board::Keys::Reader::release(int key)
{
    if (--m_held[key] > 0)
        return;
    const Stroke stroke = {key, false};
    m_strokes.push_back(stroke);
    if (m_repeatedKey == key)
        m_repeatTimer.stop();
}

// Returns false when a handler has deleted all this. A handler may also run an event loop of its own, which goes on with
// the strokes that are left.
bool Board::Keys::Reader::deliver()
{
    const QPointer<QObject> keys(m_keys);
    while (!m_strokes.empty()) {
        const Stroke stroke = m_strokes.front();
        m_strokes.pop_front();
        sendKey(stroke.isPress ? QEvent::KeyPress : QEvent::KeyRelease, stroke.key, false);
        if (!keys)
            return false;
    }
    return true;
}

void Board::Keys::Reader::repeat()
{
    readDevices();
    if (!deliver() || !m_repeatTimer.isActive())
        return;
    m_repeatTimer.start(config().repeatPeriodMs, m_keys);
    sendKey(QEvent::KeyPress, m_repeatedKey, true);
}

Board::Keys::Keys(QObject *parent)
    : QObject(parent),
      m_reader(0)
{
    if (KeyDevice::isBuilt())
        m_reader = new Reader(this);
    else
        Logging::log(Logging::LogError, "[keys] Built without libevdev, no keys are read");
}

Board::Keys::~Keys()
{
    delete m_reader;
}

QStringList Board::Keys::devices() const
{
    return m_reader ? m_reader->devices() : QStringList();
}

bool Board::Keys::event(QEvent *event)
{
    if (event->type() == QEvent::SockAct)
        m_reader->ready();
    else if (event->type() == QEvent::Timer)
        m_reader->timeOut(static_cast<QTimerEvent *>(event)->timerId());
    else
        return QObject::event(event);
    return true;  // and this may be gone
}

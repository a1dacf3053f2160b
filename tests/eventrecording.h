#ifndef EVENTRECORDING_H
#define EVENTRECORDING_H

#include <QApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QList>
#include <QPair>
#include <QStringList>
#include <QVariant>
#include <QWidget>

/// The text that the toolkit gives a press of \a key.
inline QString keyText(int key)
{
    if (key == Qt::Key_Escape)
        return QStringLiteral("\x1b");
    return key > 0x20 && key < 0x7f ? QString(QChar(key)) : QString();
}

/// One key event as the device delivers it, with its text. Returns whether somebody accepted it.
inline bool sendKey(QObject *receiver, QEvent::Type type, int key, bool repeated = false)
{
    QKeyEvent event(type, key, Qt::NoModifier, keyText(key), repeated);
    QCoreApplication::sendEvent(receiver, &event);
    return event.isAccepted();
}

inline bool pressKey(QObject *receiver, int key)
{
    return sendKey(receiver, QEvent::KeyPress, key);
}

inline void repeatKey(QObject *receiver, int key, int times = 1)
{
    for (int i = 0; i < times; ++i)
        sendKey(receiver, QEvent::KeyPress, key, true);
}

inline bool releaseKey(QObject *receiver, int key)
{
    return sendKey(receiver, QEvent::KeyRelease, key);
}

/// Deletes what was handed to deleteLater() and lets posted events come through.
inline void runEventLoop()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

/// A widget that notes the keys that reach it ("press 2", "release 2" ...), as the screen that holds other widgets.
class KeyRecorder : public QWidget
{
public:
    explicit KeyRecorder(QWidget *parent = nullptr)
        : QWidget(parent)
    {
    }

    QStringList takeKeys()
    {
        QStringList keys;
        keys.swap(m_keys);
        return keys;
    }

protected:
    void keyPressEvent(QKeyEvent *event) override
    {
        m_keys.append(QStringLiteral("press ") + name(event->key()));
    }

    void keyReleaseEvent(QKeyEvent *event) override
    {
        m_keys.append(QStringLiteral("release ") + name(event->key()));
    }

private:
    QStringList m_keys;

    static QString name(int key)
    {
        return QKeySequence(key).toString(QKeySequence::PortableText);
    }
};

/// Notes the events that a widget and everything in it receives from now on.
class EventRecorder : public QObject
{
public:
    explicit EventRecorder(QWidget *root)
    {
        watch(root);
        const QList<QWidget *> children = root->findChildren<QWidget *>();
        for (QWidget *child : children)
            watch(child);
    }

    /// How many events of \a type \a widget received; with no widget, all of the watched ones.
    int count(QEvent::Type type, const QObject *widget = nullptr) const
    {
        int result = 0;
        for (const auto &entry : m_events) {
            if (entry.second == type && (!widget || entry.first == widget))
                ++result;
        }
        return result;
    }

    /// Those that received an event of \a type, each once, in the order in which they first did.
    QList<QObject *> receivers(QEvent::Type type) const
    {
        QList<QObject *> result;
        for (const auto &entry : m_events) {
            if (entry.second == type && !result.contains(entry.first))
                result.append(entry.first);
        }
        return result;
    }

    /// The names of all events, in their order.
    QStringList types() const
    {
        QStringList result;
        for (const auto &entry : m_events)
            result.append(QVariant::fromValue(entry.second).toString());
        return result;
    }

    void clear()
    {
        m_events.clear();
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        m_events.append(qMakePair(watched, event->type()));
        return false;
    }

private:
    QList<QPair<QObject *, QEvent::Type>> m_events;

    void watch(QWidget *widget)
    {
        widget->installEventFilter(this);
    }
};

/// Why those whose events it filters got the focus.
struct FocusReasons : QObject
{
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::FocusIn)
            list.append(static_cast<QFocusEvent *>(event)->reason());
        return false;
    }

    QList<Qt::FocusReason> list;
};

/// Adds \a name to the recording platform's list of events each time \a signal of \a sender is emitted.
#define NOTE_SIGNAL(sender, signal, name) \
    QObject::connect(sender, signal, [] { RecordingPlatform::addEvent(QStringLiteral(name)); })

#endif

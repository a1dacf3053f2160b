#ifndef ANYTOOLKIT_H
#define ANYTOOLKIT_H

// What the tests for every toolkit share. What differs between the toolkits is in here; the tests do not ask for a version.

#include "anyplatform.h"

#include "platform/soundmanager.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QImage>
#include <QKeyEvent>
#include <QKeySequence>
#include <QPixmap>
#include <QWidget>

#include <QtTest/QtTest>

#if QT_VERSION >= 0x050000
#include <QScreen>
#endif

// As of Qt 4, where the tests are read as C++98: the toolkit's own has become newer.
#ifdef WIDGET_CXX98_GUARD
#undef QFETCH
#define QFETCH(Type, name) Type name = *static_cast<Type *>(QTest::qData(#name, ::qMetaTypeId<Type>()))
#endif

inline SoundManager *sound()
{
    return SoundManager::getInstance();
}

// --- Waiting

/// The milliseconds that a test waits for what comes by itself. A machine with other things to do is slow, not wrong.
const int LongestWait = 120000;

/// Lets time pass, up to the longest wait.
class Patience
{
public:
    Patience() { m_time.start(); }

    bool lasts()
    {
        if (m_time.elapsed() > LongestWait)
            return false;
        QTest::qWait(10);
        return true;
    }

private:
    QElapsedTimer m_time;
};

/// QVERIFY for what has to come at some time.
#define EVENTUALLY(condition) \
    do { \
        for (Patience patience; !(condition) && patience.lasts();) { \
        } \
        QVERIFY(condition); \
    } while (false)

/// Deletes what was handed to deleteLater() and lets posted events come through.
inline void runEventLoop()
{
    for (int i = 0; i < 2; ++i) {
        QCoreApplication::sendPostedEvents(0, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }
}

// --- Keys

/// One key event as the device delivers it. Returns whether somebody accepted it.
inline bool sendKey(QWidget *receiver, QEvent::Type type, int key, bool repeated = false)
{
    const QString text = key > 0x20 && key < 0x7f ? QString(QChar(key)) : QString();
    QKeyEvent event(type, key, Qt::NoModifier, text, repeated);
    QCoreApplication::sendEvent(receiver, &event);
    return event.isAccepted();
}

/// Presses \a key, has it repeat, and releases it, each for the widget that has the focus then, or for \a otherwise if
/// none has.
inline void strike(QWidget *otherwise, int key, int repeats = 0)
{
    for (int i = 0; i < repeats + 2; ++i) {
        QWidget *focus = QApplication::focusWidget();
        const bool last = i == repeats + 1;
        sendKey(focus ? focus : otherwise, last ? QEvent::KeyRelease : QEvent::KeyPress, key, i > 0 && !last);
    }
}

// --- Screens and their pictures

inline void bringToFront(QWidget *window)
{
    window->activateWindow();
#if QT_VERSION < 0x050000
    QApplication::setActiveWindow(window);
#endif
}

/// A screen of the device. It notes the releases of keys that are handed on to it.
class Screen : public QWidget
{
public:
    // Without a frame it has the whole display of 220 by 176 pixels.
    Screen() : QWidget(0, Qt::Window | Qt::FramelessWindowHint)
    {
        setGeometry(0, 0, 220, 176);
    }

    /// Shows it, and waits until keys go there.
    void showInFront()
    {
        show();
        for (Patience patience; !isActiveWindow() && patience.lasts();)
            bringToFront(this);
        QVERIFY(isActiveWindow());
        runEventLoop();
        AnyPlatform::takeEvents();
        AnyPlatform::takeLog();
    }

protected:
    virtual void keyPressEvent(QKeyEvent *)
    {
    }

    virtual void keyReleaseEvent(QKeyEvent *event)
    {
        AnyPlatform::addEvent(QLatin1String("handed on ") + QKeySequence(event->key()).toString());
    }
};

/// How \a screen, which is shown, is to look, before anything else happens.
inline QImage drawnAtOnce(QWidget *screen)
{
#if QT_VERSION >= 0x050000
    const QPixmap picture = screen->grab();
#else
    const QPixmap picture = QPixmap::grabWidget(screen);
#endif
    return picture.toImage().convertToFormat(QImage::Format_RGB32);
}

/// How it is to look when everything has been done that waits to be.
inline QImage drawn(QWidget *screen)
{
    runEventLoop();
    return drawnAtOnce(screen);
}

/// What is to be seen of \a screen on the display.
inline QImage seen(QWidget *screen)
{
#if QT_VERSION >= 0x050000
    runEventLoop();
    return QGuiApplication::primaryScreen()->grabWindow(screen->winId()).toImage().convertToFormat(QImage::Format_RGB32);
#else
    // What Qt 4 takes from the display has the pointer in it.
    return drawn(screen);
#endif
}

/// Whether \a screen comes to look as \a expected on the display. For that it takes events that are posted already, and
/// no time. Pictures of what looks otherwise go to the directory that WIDGET_PICTURES names.
inline bool looksAs(QWidget *screen, const QImage &expected)
{
    const int turns = 50;
    for (int i = 0; i < turns; ++i) {
        if (seen(screen) == expected)
            return true;
        QTest::qWait(10);
    }
    const QByteArray directory = qgetenv("WIDGET_PICTURES");
    if (!directory.isEmpty()) {
        const QString path = QString::fromLocal8Bit(directory) + QLatin1Char('/')
            + QString::fromLatin1(QTest::currentTestFunction()) + QString::fromLatin1(QTest::currentDataTag());
        seen(screen).save(path + QLatin1String("-seen.png"));
        expected.save(path + QLatin1String("-expected.png"));
    }
    return false;
}

/// How a freshly built \a screen looks that is shown in front, and is hidden again.
inline QImage shownOnce(Screen *screen)
{
    screen->showInFront();
    const QImage picture = drawn(screen);
    screen->hide();
    return picture;
}

// --- Parts of a widget

/// The children of \a widget that are \a Part, not those further down.
template <typename Part>
QList<Part *> partsOf(const QWidget *widget)
{
    QList<Part *> parts;
    for (int i = 0; i < int(widget->children().size()); ++i) {
        if (Part *part = qobject_cast<Part *>(widget->children().at(i)))
            parts.append(part);
    }
    return parts;
}

/// The main() of a test program. Texts are as wide on every machine.
#define ANYTOOLKIT_MAIN(Test) \
    int main(int argc, char **argv) \
    { \
        if (qgetenv("QT_FONT_DPI").isEmpty()) \
            qputenv("QT_FONT_DPI", "72"); \
        QApplication application(argc, argv); \
        Test test; \
        return QTest::qExec(&test, argc, argv); \
    }

#endif

#ifndef DISPLAYWORK_H
#define DISPLAYWORK_H

#include "eventrecording.h"
#include "waiting.h"

#include <QImage>
#include <QMetaEnum>
#include <QPixmap>
#include <QScreen>
#include <QTest>
#include <QWidget>
#include <QWindow>

/// The events in \a recorder that tell of work on the display: something was dressed, laid out, placed or painted anew.
inline QStringList displayWork(const EventRecorder &recorder)
{
    static const QEvent::Type types[] = {
        QEvent::StyleChange, QEvent::FontChange, QEvent::PaletteChange, QEvent::LayoutRequest, QEvent::Move,
        QEvent::Resize, QEvent::ShowToParent, QEvent::HideToParent, QEvent::UpdateRequest, QEvent::Paint,
    };
    QStringList work;
    for (QEvent::Type type : types) {
        if (const int count = recorder.count(type))
            work << QString("%1 x %2").arg(count).arg(QMetaEnum::fromType<QEvent::Type>().valueToKey(type));
    }
    return work;
}

/// Shows \a widget and waits until it has been painted.
inline bool showAndPaint(QWidget &widget)
{
    widget.show();
    const bool exposed = QTest::qWaitForWindowExposed(&widget, LongestWait);
    passTime(20);
    return exposed;
}

/// What \a action makes of work on the display of \a widget, once everything it has posted came through.
template <typename Action>
QStringList workOf(QWidget &widget, Action action)
{
    const EventRecorder recorder(&widget);
    action();
    for (int i = 0; i < 3; ++i)
        runEventLoop();
    return displayWork(recorder);
}

/// What is on the screen, which may be older than what the widgets would paint anew.
inline QImage onScreen(QWidget &window)
{
    runEventLoop();
    return window.windowHandle()->screen()->grabWindow(window.winId()).toImage().convertToFormat(QImage::Format_RGB32);
}

#endif

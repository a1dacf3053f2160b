#include "samples.h"

#include "look.h"

#include "platform/desktop/desktopclock.h"
#include "platform/desktop/desktopsound.h"
#include "platform/stringrc.h"

#include <QApplication>
#include <QKeyEvent>

#include <algorithm>
#include <cstring>

namespace {

std::vector<Sample> &samples()
{
    static std::vector<Sample> all;
    return all;
}

/// Lays out, dresses and deletes, but lets no time pass: on a busy machine a key would no longer be lit.
void settle()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void show(QWidget *screen)
{
    if (!screen->isVisible()) {
        screen->show();
        QApplication::setActiveWindow(screen);
    }
    settle();
}

}

bool addSample(const Sample &sample)
{
    const auto comesBefore = [](const Sample &a, const Sample &b) { return std::strcmp(a.name, b.name) < 0; };
    std::vector<Sample> &all = samples();
    all.insert(std::lower_bound(all.begin(), all.end(), sample, comesBefore), sample);
    return true;
}

const std::vector<Sample> &allSamples()
{
    return samples();
}

void press(QWidget *screen, int key, int times)
{
    show(screen);
    for (int i = 0; i < times; ++i) {
        for (QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, Qt::NoModifier);
            QApplication::sendEvent(screen->focusWidget() ? screen->focusWidget() : screen, &event);
        }
        settle();
    }
}

void prepareLook()
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    fixLook();
}

void startLook()
{
    applyLook();
    Desktop::setMuted(true);
    Desktop::setFixedLocalTime("2026-03-07 10:42:09");
}

std::unique_ptr<QWidget> shownScreen(const Sample &sample)
{
    StringRC::getInstance()->m_rightToLeft = false;
    auto screen = std::make_unique<QWidget>();
    screen->setFixedSize(sample.size);
    QPalette palette = screen->palette();
    palette.setColor(QPalette::Window, QColor(sample.ground));
    screen->setPalette(palette);
    sample.arrange(screen.get());
    show(screen.get());
    return screen;
}

QImage pictureOf(QWidget *screen)
{
    QImage picture(screen->size(), QImage::Format_RGB32);
    screen->render(&picture);
    return picture;
}

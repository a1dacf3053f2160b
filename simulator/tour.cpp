#include "tour.h"

#include "device.h"
#include "devicewindow.h"
#include "screens.h"

#include "platform/stringrc.h"

#include <QDir>
#include <QImage>

#include <cstdio>

namespace {

void complain(const QString &message)
{
    std::fprintf(stderr, "simulator: %s\n", qPrintable(message));
}

bool save(DeviceWindow &window, const Options &options, const QString &file)
{
    const QImage image = options.withKeys ? window.picture() : window.device().picture(window.zoom());
    if (image.save(file, "PNG"))
        return true;
    complain(QStringLiteral("cannot write \"%1\". Is the directory there, and may you write to it?").arg(file));
    return false;
}

void enter(Device &device, const QString &screen, const Script &keys)
{
    device.start(screen);
    runFor(0);
    play(keys, device, 0);
}

QString fileName(const Screen &screen, const ScreenState &state)
{
    QString name = QString::fromLatin1(screen.name);
    if (*state.name)
        name += QLatin1Char('-') + QString::fromLatin1(state.name);
    return name + QStringLiteral(".png");
}

bool takeState(DeviceWindow &window, const Options &options, const Screen &screen, const ScreenState &state)
{
    const QString file = QDir(options.tour).filePath(fileName(screen, state));
    QString error;
    const Script keys = parseScript(QString::fromLatin1(state.keys), &error);
    if (!error.isEmpty()) {
        complain(QStringLiteral("the keys to \"%1\" are wrong. %2").arg(file, error));
        return false;
    }
    StringRC::getInstance()->m_rightToLeft = options.rightToLeft || state.rightToLeft;
    enter(window.device(), QString::fromLatin1(screen.name), keys);
    return save(window, options, file);
}

}

bool takePicture(DeviceWindow &window, const Options &options)
{
    enter(window.device(), options.screen, options.keys);
    return save(window, options, options.picture);
}

bool takeTour(DeviceWindow &window, const Options &options)
{
    if (!QDir().mkpath(options.tour)) {
        complain(QStringLiteral("cannot make the directory \"%1\".").arg(options.tour));
        return false;
    }
    for (const Screen &screen : allScreens()) {
        for (const ScreenState &state : screen.states) {
            if (!takeState(window, options, screen, state))
                return false;
        }
    }
    return true;
}

#include "tour.h"

#include "device.h"
#include "devicewindow.h"
#include "picturefile.h"

#include "platform/stringrc.h"

#include <QDir>
#include <QFile>
#include <QImage>

#include <filesystem>
#include <system_error>

namespace {

const char TourWay[] = "--tour DIR";

/// Says that \a place cannot be written for the reason \a error, and the \a way to name another.
void complainOfPlace(const QString &place, const QString &error, const char *way)
{
    complain(QStringLiteral("cannot write \"%1\": %2. Name another place with %3.")
                 .arg(place, error, QLatin1String(way)));
}

bool save(DeviceWindow &window, const Options &options, const QString &file, const char *way)
{
    const QString error = writePicture(options.withKeys ? window.picture() : window.device().picture(window.zoom()),
                                       file);
    if (!error.isEmpty())
        complainOfPlace(file, error, way);
    return error.isEmpty();
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
    window.device().setKeyMode(state.functionKeys ? KeyMode::Functions : options.keyMode);
    enter(window.device(), QString::fromLatin1(screen.name), keys);
    return save(window, options, file, TourWay);
}

}

bool takePicture(DeviceWindow &window, const Options &options)
{
    enter(window.device(), options.screen, options.keys);
    return save(window, options, options.picture, "--picture FILE");
}

bool takeTour(DeviceWindow &window, const Options &options)
{
    std::error_code error;
    std::filesystem::create_directories(QFile::encodeName(options.tour).toStdString(), error);
    if (error) {
        complainOfPlace(options.tour, QString::fromLocal8Bit(error.message().c_str()), TourWay);
        return false;
    }
    for (const Screen &screen : window.device().screens()) {
        for (const ScreenState &state : screen.states) {
            if (!takeState(window, options, screen, state))
                return false;
        }
    }
    return true;
}

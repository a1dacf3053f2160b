#include "commandline.h"
#include "devicewindow.h"
#include "look.h"
#include "screens.h"
#include "script.h"
#include "tour.h"

#include "platform/desktop/desktopclock.h"
#include "platform/desktop/desktoplog.h"
#include "platform/desktop/desktopsound.h"
#include "platform/stringrc.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTimer>

#include <cstdio>

#include <unistd.h>

namespace {

enum ExitStatus { Done = 0, Failed = 1, WrongUse = 2 };

const char TourTime[] = "2026-03-07 13:05:09";
const char DefaultTour[] = "pictures";

/// A person wants to see what a script does.
const int PauseInWindow = 60;

bool hasDisplay()
{
    const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
    if (!platform.isEmpty())
        return !platform.startsWith("offscreen") && !platform.startsWith("minimal");
    return !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

/// The toolkit wants a directory of the session, and complains on standard error where the PC has none.
void provideRuntimeDirectory()
{
    if (!qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR"))
        return;
    const QString directory = QStringLiteral("%1/runtime-%2").arg(QDir::tempPath()).arg(geteuid());
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(directory));
}

QtMessageHandler s_printMessage = nullptr;

/// The bar of four cells provokes a warning of the toolkit on purpose, with each of its keys.
void printMessage(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (!message.contains(QLatin1String("No such slot WidgetKeypadBottom::clearSelection()")))
        s_printMessage(type, context, message);
}

void listScreens()
{
    for (const Screen &screen : allScreens())
        std::printf("%-12s %s\n", screen.name, screen.description);
}

/// Sets up what the device around the screens is like.
void setUpPlatform(const Options &options)
{
    StringRC::getInstance()->m_rightToLeft = options.rightToLeft;
    if (options.logLevel >= 0)
        Desktop::setLogLevel(options.logLevel);
    if (options.time.isEmpty() && !options.tour.isEmpty())
        Desktop::setFixedLocalTime(TourTime);
}

int takePictures(DeviceWindow &window, const Options &options)
{
    if (!options.picture.isEmpty())
        return takePicture(window, options) ? Done : Failed;
    if (!takeTour(window, options))
        return Failed;
    std::printf("The pictures are in %s\n", qPrintable(QDir(options.tour).absolutePath()));
    return Done;
}

}

int main(int argc, char *argv[])
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments += QString::fromLocal8Bit(argv[i]);
    QString error;
    Options options = parseCommandLine(arguments, &error);
    if (!error.isEmpty()) {
        std::fprintf(stderr, "simulator: %s\n", qPrintable(error));
        return WrongUse;
    }
    if (options.help) {
        std::printf("%s", qPrintable(helpText()));
        return Done;
    }
    if (options.listScreens) {
        listScreens();
        return Done;
    }

    bool picturesOnly = !options.picture.isEmpty() || !options.tour.isEmpty();
    if (!picturesOnly && !hasDisplay()) {
        std::printf("There is no display here, so the simulator takes pictures of all screens instead.\n");
        options.tour = QString::fromLatin1(DefaultTour);
        picturesOnly = true;
    }
    if (picturesOnly) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        Desktop::setMuted(true);
    }
    setUpPlatform(options);

    s_printMessage = qInstallMessageHandler(printMessage);
    provideRuntimeDirectory();
    fixLook();
    QApplication application(argc, argv);
    applyLook();

    DeviceWindow window(options.keyMode, options.zoom ? options.zoom : picturesOnly ? 1 : 2);
    window.showActive();

    // From within the event loop, in which screens live on the device as well.
    QTimer::singleShot(0, &window, [&] {
        if (picturesOnly) {
            QCoreApplication::exit(takePictures(window, options));
        } else {
            window.device().start(options.screen);
            play(options.keys, window.device(), PauseInWindow);
        }
    });
    return application.exec();
}

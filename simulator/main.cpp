#include "commandline.h"
#include "devicewindow.h"
#include "look.h"
#include "recorder.h"
#include "screens.h"
#include "script.h"
#include "toolkitstart.h"
#include "tour.h"
#include "workbench/workbench.h"

#include "platform/desktop/desktopclock.h"
#include "platform/desktop/desktoplog.h"
#include "platform/desktop/desktopsound.h"
#include "platform/stringrc.h"

#include <QApplication>
#include <QDir>
#include <QTimer>

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace {

enum ExitStatus { Done = 0, Failed = 1, WrongUse = 2 };

const char TourTime[] = "2026-03-07 13:05:09";
const char DefaultTour[] = "pictures";

/// A person wants to see what a script does.
const int PauseInWindow = 60;

void listScreens()
{
    for (const Screen &screen : allScreens())
        std::printf("%-12s %s\n", screen.name, screen.description);
}

/// Without a display there can be pictures still. Returns false if they would not be what was asked for.
bool takePicturesInstead(Options &options)
{
    if (options.startsElsewhere || !options.record.isEmpty()) {
        complain(QStringLiteral("there is no display here. Give --picture FILE for a picture of what --screen and --keys "
                                "lead to."));
        return false;
    }
    std::printf("There is no display here, so the simulator takes pictures of all screens instead.\n");
    options.tour = QString::fromLatin1(DefaultTour);
    return true;
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

/// \a status, unless what has been printed did not all arrive.
int afterPrinting(int status)
{
    if (std::fflush(stdout) == 0 && !std::ferror(stdout))
        return status;
    complain(QStringLiteral("cannot write to standard output: %1.").arg(QString::fromLocal8Bit(std::strerror(errno))));
    return status == Done ? Failed : status;
}

/// What the user wants of the tools.
Workbench::Wishes wishesOf(const Options &options)
{
    Workbench::Wishes wishes;
    wishes.afresh = options.fresh;
    wishes.fullScreen = options.fullScreen;
    if (options.hasKeyMode)
        wishes.keyMode = options.keyMode;
    if (options.rightToLeft)
        wishes.rightToLeft = true;
    if (!options.time.isEmpty())
        wishes.time = options.time;
    if (options.logLevel >= 0 || qEnvironmentVariableIsSet("WIDGET_LOG_LEVEL"))
        wishes.logLevel = Desktop::logLevel();
    return wishes;
}

bool complainOfRecord(const Options &options, const QString &error)
{
    if (!error.isEmpty())
        complain(QStringLiteral("cannot write \"%1\": %2. Name another place with --record FILE.")
                     .arg(options.record, error));
    return !error.isEmpty();
}

/// Shows the device until the user closes its window. Returns the exit status.
int workDevice(DeviceWindow &window, Recorder &recorder, const Options &options)
{
    window.showActive();
    if (!options.record.isEmpty()) {
        const QString title = titleOfRecord(options.record, options.screen, window.device().keyMode(),
                                            StringRC::getInstance()->m_rightToLeft);
        if (complainOfRecord(options, recorder.start(options.record, title)))
            return Failed;
    }
    // From within the event loop, in which screens live on the device as well.
    QTimer::singleShot(0, &window, [&] {
        window.device().start(options.screen);
        play(options.keys, window.device(), options.keysKeepTime ? 0 : PauseInWindow);
    });
    const int status = QCoreApplication::exec();
    const bool recordFailed = recorder.fileName() == options.record && complainOfRecord(options, recorder.stop());
    return afterPrinting(recordFailed ? int(Failed) : status);
}

}

int main(int argc, char *argv[])
{
    if (argc > 0)
        setCommandName(argv[0]);
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments += QString::fromLocal8Bit(argv[i]);
    QString error;
    Options options = parseCommandLine(arguments, &error);
    if (!error.isEmpty()) {
        complain(error);
        return WrongUse;
    }
    if (options.help) {
        std::printf("%s", qPrintable(helpText()));
        return afterPrinting(Done);
    }
    if (options.listScreens) {
        listScreens();
        return afterPrinting(Done);
    }

    if (!options.wantsPictures() && !hasDisplay() && !takePicturesInstead(options))
        return Failed;
    const bool picturesOnly = options.wantsPictures();
    Desktop::setMuted(picturesOnly);
    setUpPlatform(options);

    prepareToolkit(argv, !picturesOnly);
    fixLook();
    QApplication application(argc, argv);
    toolkitHasStarted();
    addPlugins();
    applyLook();

    if (picturesOnly) {
        DeviceWindow window(allScreens(), options.keyMode, options.zoom ? options.zoom : 1);
        window.showActive();
        // From within the event loop, in which screens live on the device as well.
        QTimer::singleShot(0, &window, [&] { QCoreApplication::exit(takePictures(window, options)); });
        return afterPrinting(application.exec());
    }
    const int zoom = options.zoom ? options.zoom : 2;
    if (options.deviceOnly) {
        DeviceWindow window(allScreens(), options.keyMode, zoom);
        Recorder recorder(window.device());
        return workDevice(window, recorder, options);
    }
    Workbench workbench(allScreens(), options.screen, zoom, wishesOf(options));
    return workDevice(workbench.deviceWindow(), workbench.recorder(), options);
}

#include "toolkitstart.h"

#include "commandline.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QStringList>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <utility>

#include <unistd.h>

namespace {

const char WithoutDisplay[] = "offscreen";
const char PluginDirectory[] = "/../plugins";  // as seen from the program's

char **s_argv = nullptr;
bool s_windows = false;
QString s_complaint;  // for the case that the toolkit does not start

std::mutex s_mutex;
QStringList s_toolkitSaid;

QString setting(const char *name)
{
    return QStringLiteral("%1=\"%2\"").arg(QLatin1String(name), QFile::decodeName(qgetenv(name)));
}

/// Has the toolkit try what the environment promises; by itself it would not look at WAYLAND_DISPLAY.
void choosePlatform()
{
    QStringList platforms;
    QStringList places;
    // X first: Wayland desktops bring it along, and it works alike on all of them.
    if (!qEnvironmentVariableIsEmpty("DISPLAY")) {
        platforms += QStringLiteral("xcb");
        places += setting("DISPLAY");
    }
    if (!qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")) {
        platforms += QStringLiteral("wayland");
        places += setting("WAYLAND_DISPLAY");
    }
    qputenv("QT_QPA_PLATFORM", platforms.join(QLatin1Char(';')).toLatin1());
    s_complaint = QStringLiteral("no display answers at %1.").arg(places.join(QStringLiteral(" or ")));
}

/// The toolkit wants a directory of the session, and complains on standard error where the PC has none.
void provideRuntimeDirectory()
{
    if (!qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR"))
        return;
    const QString directory = QStringLiteral("%1/runtime-%2").arg(QDir::tempPath()).arg(geteuid());
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(directory));
}

/// What of all that the toolkit has said helps a person.
QStringList reasons()
{
    QStringList lines = s_toolkitSaid.join(QLatin1Char('\n')).split(QLatin1Char('\n'));
    const bool isKnown = lines.filter(QStringLiteral("Could not find the Qt platform plugin")).isEmpty();
    const auto isOfNoUse = [isKnown](const QString &line) {
        return line.isEmpty() || line.startsWith(QLatin1String("This application failed to start"))
                || line.endsWith(QLatin1String("even though it was found."))
                || (isKnown && line.startsWith(QLatin1String("Available platform plugins")));
    };
    lines.erase(std::remove_if(lines.begin(), lines.end(), isOfNoUse), lines.end());
    return lines;
}

[[noreturn]] void startOver()
{
    complain(s_complaint);
    for (const QString &reason : reasons())
        std::fprintf(stderr, "    %s\n", qPrintable(reason));
    if (s_windows) {
        // In a new program: what the toolkit leaves behind here is not made for another try.
        qputenv("QT_QPA_PLATFORM", WithoutDisplay);
        execv("/proc/self/exe", s_argv);
    }
    _exit(EXIT_FAILURE);
}

void keepMessage(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    const std::lock_guard<std::mutex> lock(s_mutex);
    s_toolkitSaid += qFormatLogMessage(type, context, message);
    if (type == QtFatalMsg)
        startOver();
}

/// What the toolkit says of things that are meant, or that nobody can help.
const char *const unimportantMessages[] = {
    // The bar of four cells provokes it on purpose, with each of its keys.
    "No such slot WidgetKeypadBottom::clearSelection()",
    "Wayland does not support QWindow::requestActivate()",
};

QtMessageHandler s_printMessage = nullptr;

void printMessage(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    for (const char *unimportant : unimportantMessages) {
        if (message.contains(QLatin1String(unimportant)))
            return;
    }
    s_printMessage(type, context, message);
}

}

bool hasDisplay()
{
    const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
    if (!platform.isEmpty())
        return !platform.startsWith("offscreen") && !platform.startsWith("minimal");
    return !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

void prepareToolkit(char *argv[], bool windows)
{
    s_argv = argv;
    s_windows = windows;
    if (!windows)
        qputenv("QT_QPA_PLATFORM", WithoutDisplay);
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        choosePlatform();
    else
        s_complaint = QStringLiteral("the toolkit cannot start with %1.").arg(setting("QT_QPA_PLATFORM"));
    provideRuntimeDirectory();
    s_printMessage = qInstallMessageHandler(keepMessage);
}

void toolkitHasStarted()
{
    // Some platforms tell that they have no display only by having no screen.
    if (QGuiApplication::screens().isEmpty())
        startOver();
    qInstallMessageHandler(printMessage);
    for (const QString &message : std::as_const(s_toolkitSaid))
        std::fprintf(stderr, "%s\n", qPrintable(message));
}

void addPlugins()
{
    QCoreApplication::addLibraryPath(QCoreApplication::applicationDirPath() + QLatin1String(PluginDirectory));
}

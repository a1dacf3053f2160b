// Asks the platform for a PC what it has seen of the library.

#include "platform/desktop/desktopclock.h"
#include "platform/desktop/desktoplog.h"
#include "platform/desktop/desktopsound.h"
#include "platform/desktop/desktopwatchdog.h"
#include "platform/soundmanager.h"
#include "widgetlist.h"

#include <QApplication>

#include <cstdio>

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    Desktop::setMuted(true);
    WidgetList list(0, 0, SoundManager::getInstance());
    list.setFocusAtItem(5);
    list.playSound(901);
    std::printf("%d line, %d sound, %d threads, %u clock chip calls\n", int(Desktop::recentLogLines().size()),
                int(Desktop::soundCount()), int(Desktop::watchedThreads().size()), Desktop::clockChipCalls());
    return 0;
}

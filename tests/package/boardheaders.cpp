// Asks the platform for boards what it has to offer.

#include "platform/linux/boardclock.h"
#include "platform/linux/boardconfig.h"
#include "platform/linux/boardkeys.h"
#include "platform/linux/boardlog.h"
#include "platform/linux/boardsound.h"
#include "platform/linux/boardstringrc.h"
#include "platform/linux/boardwatchdog.h"
#include "platform/soundmanager.h"
#include "widgetlist.h"

#include <QApplication>

#include <cstdio>

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    Board::setLogLevel(0);
    Board::setMuted(true);
    Board::readDirection();
    Board::Keys keys;
    WidgetList list(0, 0, SoundManager::getInstance());
    time_t time = 0;
    if (Board::readClockChip(&time) || Board::isWatchdogFed() || !Board::config().watchdogDevice.empty())
        return 1;
    std::printf("%d devices\n", int(keys.devices().size()));
    return 0;
}

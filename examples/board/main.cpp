// A device with three screens, as it runs on a board: settings, a clock and the entry of a name, on the whole display.
//
// 8 and 2 move down and up, 6 and 4 change a value. 6 or OK opens the clock and the name; escape comes back. The board's
// devices are said in /etc/libwidget/board.conf. On a PC a VNC viewer shows it, and has its keys:
//
//     board -platform vnc:size=220x176

#include "screens.h"

#include "platform/linux/boardkeys.h"
#include "platform/linux/boardservice.h"
#include "platform/systemtime.h"

#include <QApplication>

int main(int argc, char **argv)
{
    if (qgetenv("QT_FONT_DPI").isEmpty())
        qputenv("QT_FONT_DPI", "72");  // a point is a pixel; Qt 4.8 has "-display" for that
    QApplication application(argc, argv);
    application.setOverrideCursor(Qt::BlankCursor);
    Board::quitOnTermination();
    Board::Keys keys;

    Screens screens;
    screens.showFullScreen();
    application.processEvents();  // paints it
    Board::tellStarted();
    screens.startWatch();
    set_time();  // the clock on the screen asks the chip only every few hours
    return application.exec();
}

// Does what the library reports in the log. The program itself calls no operation of the platform: it is the library
// that must find them.

#include "widgetlist.h"

#include <QApplication>

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    WidgetList list(0, 0, 0);
    list.setFocusAtItem(5);
    return 0;
}

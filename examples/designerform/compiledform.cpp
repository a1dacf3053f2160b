#include "ui_alarm.h"

int main(int argc, char **argv)
{
    qputenv("QT_FONT_DPI", "72");  // a point is a pixel, as on the device
    QApplication application(argc, argv);

    QWidget screen;
    Ui::Alarm form;
    form.setupUi(&screen);
    screen.show();
    return application.exec();
}

// What every program with the toolkit does before it comes to its own screen: an empty one.

#include <QApplication>
#include <QWidget>

int main(int argc, char **argv)
{
    qputenv("QT_FONT_DPI", "72");
    QApplication application(argc, argv);

    QWidget screen;
    screen.resize(220, 176);
    screen.show();
    return application.exec();
}

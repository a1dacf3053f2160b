// Loads a form of Qt Designer while the program runs. 4 and 6 set the alarm, escape ends the program.

#include "widgetlistitem.h"

#include <QApplication>
#include <QFile>
#include <QShortcut>
#include <QUiLoader>
#include <QWidget>

#include <cstdio>

int main(int argc, char **argv)
{
    qputenv("QT_FONT_DPI", "72");  // a point is a pixel, as on the device
    QApplication application(argc, argv);
    QCoreApplication::addLibraryPath(QString::fromLocal8Bit(PLUGINS));

    QFile form(argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString::fromLocal8Bit(FORM));
    if (!form.open(QFile::ReadOnly)) {
        std::fprintf(stderr, "%s: %s\n", qPrintable(form.fileName()), qPrintable(form.errorString()));
        return EXIT_FAILURE;
    }
    QUiLoader loader;
    if (!loader.availableWidgets().contains("FormListItem")) {
        std::fprintf(stderr, "The widgets' plug-in is not in %s/designer\n", PLUGINS);
        return EXIT_FAILURE;
    }
    QWidget *screen = loader.load(&form);
    if (!screen) {
        std::fprintf(stderr, "%s\n", qPrintable(loader.errorString()));
        return EXIT_FAILURE;
    }

    // The widgets of the form are found by the classes of the library.
    if (WidgetListItem *alarm = screen->findChild<WidgetListItem *>("alarm")) {
        QObject::connect(alarm, &WidgetListItem::doChange,
                         [alarm] { std::printf("Alarm: %s\n", qPrintable(alarm->getDisplayValue())); });
    }

    QObject::connect(new QShortcut(Qt::Key_Escape, screen), &QShortcut::activated, screen, &QWidget::close);
    screen->show();
    const int status = application.exec();
    delete screen;
    return status;
}

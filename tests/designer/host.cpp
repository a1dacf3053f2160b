// A program that knows nothing of the library, as Designer is one: makes every widget that the plug-ins offer.

#include <QApplication>
#include <QScopedPointer>
#include <QUiLoader>
#include <QWidget>

#include <cstdio>

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QUiLoader loader;
    int count = 0;
    for (const QString &name : loader.availableWidgets()) {
        if (!name.startsWith(QLatin1String("Form")))
            continue;
        const QScopedPointer<QWidget> widget(loader.createWidget(name));
        if (!widget)
            return EXIT_FAILURE;
        widget->show();
        QCoreApplication::processEvents();
        ++count;
    }
    std::printf("%d widgets\n", count);
    return EXIT_SUCCESS;
}

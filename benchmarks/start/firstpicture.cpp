// A plugin of the toolkit that ends any program as soon as its first picture is there, and prints how many bytes of the
// heap are in use then. Loaded with QT_QPA_GENERIC_PLUGINS=firstpicture.

#include <QCoreApplication>
#include <QEvent>
#include <QGenericPlugin>

#include <cstdio>
#include <cstdlib>

#include <malloc.h>

namespace {

class FirstPicture : public QObject
{
public:
    FirstPicture() { QCoreApplication::instance()->installEventFilter(this); }

private:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint) {
            QCoreApplication::instance()->removeEventFilter(this);
            // When the whole window is painted.
            QMetaObject::invokeMethod(this, [] { end(); }, Qt::QueuedConnection);
        }
        return false;
    }

    static void end()
    {
        const struct mallinfo2 heap = mallinfo2();
        std::printf("%zu\n", heap.uordblks + heap.hblkhd);
        std::fflush(stdout);
        std::_Exit(EXIT_SUCCESS);
    }
};

}

class FirstPicturePlugin : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "firstpicture.json")

public:
    QObject *create(const QString &, const QString &) override { return new FirstPicture; }
};

#include "firstpicture.moc"

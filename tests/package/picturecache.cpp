// Says where below its own directory the toolkit looks for plug-ins, and whether it keeps a picture.

#include <QApplication>
#include <QDir>
#include <QIcon>
#include <QLibraryInfo>

#include <cstdio>

static QString path(QLibraryInfo::LibraryLocation place)
{
#if QT_VERSION >= 0x060000
    return QLibraryInfo::path(place);
#else
    return QLibraryInfo::location(place);
#endif
}

static qint64 readPicture()
{
    return QIcon(":/resource/images_l2/icon_sound.png").pixmap(1000, 1000).cacheKey();
}

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const QDir toolkit(path(QLibraryInfo::PrefixPath));
    std::printf("%s: %s\n", qPrintable(toolkit.relativeFilePath(path(QLibraryInfo::PluginsPath))),
                readPicture() == readPicture() ? "kept" : "read again");
    return 0;
}

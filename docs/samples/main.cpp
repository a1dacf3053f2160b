// Writes the pictures of the documentation into a directory, twice as large as on the device.

#include "samples.h"

#include <QApplication>
#include <QDir>

#include <cstdio>

int main(int argc, char *argv[])
{
    prepareLook();
    QApplication application(argc, argv);
    startLook();
    if (argc != 2 || !QDir().mkpath(QString::fromLocal8Bit(argv[1]))) {
        std::fprintf(stderr, "Usage: docsamples DIRECTORY\n");
        return 2;
    }
    const QDir directory(QString::fromLocal8Bit(argv[1]));
    for (const Sample &sample : allSamples()) {
        const QString file = directory.filePath(QString::fromLatin1(sample.name) + QStringLiteral(".png"));
        const QImage picture = pictureOf(shownScreen(sample).get());
        if (!picture.scaled(2 * picture.size()).save(file)) {
            std::fprintf(stderr, "docsamples: cannot write \"%s\".\n", qPrintable(file));
            return 1;
        }
    }
    return 0;
}

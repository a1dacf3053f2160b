#include "picturefile.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImage>
#include <QSaveFile>

namespace {

/// Writes all of \a bytes. Returns false if that fails.
bool writeAll(QFileDevice &file, const QByteArray &bytes)
{
    qint64 done = 0;
    while (done < bytes.size()) {
        // The last that fits on a full disk is written without an error.
        const qint64 written = file.write(bytes.constData() + done, bytes.size() - done);
        if (written <= 0)
            return false;
        done += written;
    }
    return true;
}

/// Opens \a file, writes \a bytes and finishes with \a close. Returns what went wrong, or nothing.
template <typename File, typename Close>
QString writeFile(File &file, const QByteArray &bytes, Close close)
{
    // Unbuffered, so that each failure is told where it happens.
    if (file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && writeAll(file, bytes) && close(file))
        return QString();
    return file.errorString();
}

}

QString writePicture(const QImage &image, const QString &name)
{
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    if (!image.save(&buffer, "PNG"))
        return QStringLiteral("The toolkit makes no PNG of it");

    const QFileInfo info(name);
    if (info.exists() && !info.isFile() && !info.isDir()) {
        // A device or a pipe, which no file must replace.
        QFile file(name);
        return writeFile(file, png, [](QFile &file) {
            file.close();
            return file.error() == QFile::NoError;
        });
    }
    QSaveFile file(name);
    return writeFile(file, png, [](QSaveFile &file) { return file.commit(); });
}

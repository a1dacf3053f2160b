#include "picturecache.h"

#include "pictureengine.h"

#include <QResource>

namespace {

/// In bytes. The hundred pictures of a product with a screen of 220 by 176 take some 600,000 together with their files,
/// so they all fit, and one such screen full of colour, of 155,000, leaves most of them in place. A device that has
/// more loses speed, not memory.
const int LargestSize = 1024 * 1024;

const int BytesPerPixel = 4;

/// The size of the pictures in \a icon, 0 if there is none.
int pictureSize(const QIcon &icon)
{
    qint64 size = 0;
    const QList<QSize> sizes = icon.availableSizes();
    for (int i = 0; i < sizes.size(); ++i)
        size += qint64(sizes.at(i).width()) * sizes.at(i).height() * BytesPerPixel;
    return int(qMin(size, qint64(LargestSize)));
}

}

PictureCache::PictureCache()
    : m_pictures(LargestSize)
{
}

QIcon PictureCache::icon(const QString &path)
{
    const QResource resource(path);
    if (!resource.isValid() || !resource.data() || resource.size() > LargestSize)
        return QIcon();

    const QByteArray file(QByteArray::fromRawData(reinterpret_cast<const char *>(resource.data()), int(resource.size())));
    const Picture *kept = m_pictures.object(path);
    if (kept && kept->file == file)
        return kept->icon;

    QIcon icon;
    {
        const ToolkitIcons wish;
        icon.addFile(path);
    }
    // One that cannot be read changes when it is asked for its picture, which nobody else may notice.
    const int size = pictureSize(icon);
    if (size > 0) {
        const QByteArray copy(file.constData(), file.size());
        m_pictures.insert(path, new Picture(icon, copy), size + copy.size());
    }
    return icon;
}

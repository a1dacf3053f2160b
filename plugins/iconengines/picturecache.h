#ifndef PICTURECACHE_H
#define PICTURECACHE_H

#include <QByteArray>
#include <QCache>
#include <QIcon>
#include <QString>

/// Keeps the pictures of resources, decoded, by their paths.
///
/// Resources that are compiled in cannot change; those that are registered at run time can. So a picture is taken from
/// here only if the resource still holds the very bytes that it was made of. What is unused longest goes first.
class PictureCache
{
public:
    PictureCache();

    /// The icon that the toolkit makes of the resource \a path, with what it keeps of the pictures in it shared among
    /// all that ask. A null icon if there is no such resource.
    QIcon icon(const QString &path);

private:
    struct Picture
    {
        Picture(const QIcon &icon, const QByteArray &file) : icon(icon), file(file) {}

        QIcon icon;
        QByteArray file;
    };
    QCache<QString, Picture> m_pictures;
};

#endif

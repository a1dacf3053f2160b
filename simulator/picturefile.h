#ifndef PICTUREFILE_H
#define PICTUREFILE_H

#include <QString>

class QImage;

/// Writes \a image to \a name as a PNG, as a whole or not at all. Returns what went wrong, or nothing.
QString writePicture(const QImage &image, const QString &name);

#endif

#ifndef PICTURECOMPARISON_H
#define PICTURECOMPARISON_H

#include <QImage>
#include <QtGlobal>

/// How far a pixel may be from the reference in red, green and blue each, of 255. Another version of the toolkit or of
/// its font engine may round an edge of a letter differently; a colour that somebody chose differs by more.
const int PixelTolerance = 10;

inline int pixelDistance(QRgb a, QRgb b)
{
    return qMax(qAbs(qRed(a) - qRed(b)), qMax(qAbs(qGreen(a) - qGreen(b)), qAbs(qBlue(a) - qBlue(b))));
}

/// How many pixels of \a actual are not those of \a reference; all of them if the sizes differ.
inline int differingPixels(const QImage &actual, const QImage &reference)
{
    if (actual.size() != reference.size())
        return qMax(actual.width() * actual.height(), reference.width() * reference.height());
    int count = 0;
    for (int y = 0; y < actual.height(); ++y) {
        for (int x = 0; x < actual.width(); ++x) {
            if (pixelDistance(actual.pixel(x, y), reference.pixel(x, y)) > PixelTolerance)
                ++count;
        }
    }
    return count;
}

/// \a reference faintly, with the pixels of \a actual that differ in red.
inline QImage differencePicture(const QImage &actual, const QImage &reference)
{
    QImage picture(actual.size().expandedTo(reference.size()), QImage::Format_RGB32);
    picture.fill(Qt::red);
    for (int y = 0; y < qMin(actual.height(), reference.height()); ++y) {
        for (int x = 0; x < qMin(actual.width(), reference.width()); ++x) {
            const int faint = 191 + qGray(reference.pixel(x, y)) / 4;
            if (pixelDistance(actual.pixel(x, y), reference.pixel(x, y)) <= PixelTolerance)
                picture.setPixel(x, y, qRgb(faint, faint, faint));
        }
    }
    return picture;
}

#endif

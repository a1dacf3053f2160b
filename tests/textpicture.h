#ifndef TEXTPICTURE_H
#define TEXTPICTURE_H

#include <QHash>
#include <QImage>
#include <QLabel>
#include <QPainter>
#include <QStyle>

#include <cmath>
#include <cstdlib>

// What a text in a picture looks like: how far its letters reach, whether all of them are there, whether they stand out.

// Colours

inline double luminance(QRgb rgb)
{
    const QColor color(rgb);
    const auto linear = [](double c) { return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4); };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

/// The contrast ratio of the Web Content Accessibility Guidelines: 1 to 21.
inline double contrast(QRgb a, QRgb b)
{
    const double first = luminance(a) + 0.05;
    const double second = luminance(b) + 0.05;
    return first > second ? first / second : second / first;
}

/// What most of \a image is painted with in and around \a area.
inline QRgb groundOf(const QImage &image, const QRect &area)
{
    QHash<QRgb, int> counts;
    const QRect around = area.adjusted(-3, -2, 3, 2) & image.rect();
    for (int y = around.top(); y <= around.bottom(); ++y) {
        for (int x = around.left(); x <= around.right(); ++x)
            ++counts[image.pixel(x, y)];
    }
    QRgb ground = 0;
    int most = 0;
    for (auto color = counts.cbegin(); color != counts.cend(); ++color) {
        if (color.value() > most) {
            ground = color.key();
            most = color.value();
        }
    }
    return ground;
}

/// What stands out most from \a ground in \a area: the inside of a stroke.
inline QRgb strokeIn(const QImage &image, const QRect &area, QRgb ground)
{
    QRgb stroke = ground;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            const QRgb color = image.pixel(x, y);
            if (color != ground && contrast(color, ground) > contrast(stroke, ground))
                stroke = color;
        }
    }
    return stroke;
}

// Letters

/// The rectangle of \a label in which it draws its text: without margin, padding and indent.
inline QRect roomOf(const QLabel &label, Qt::Alignment alignment)
{
    const int margin = label.margin();
    QRect room = label.contentsRect().adjusted(margin, margin, -margin, -margin);
    int indent = label.indent();
    if (indent < 0 && label.frameWidth() > 0)
        indent = label.fontMetrics().horizontalAdvance(QLatin1Char('x')) / 2 - margin;
    indent = qMax(indent, 0);
    room.adjust(alignment & Qt::AlignLeft ? indent : 0, alignment & Qt::AlignTop ? indent : 0,
                alignment & Qt::AlignRight ? -indent : 0, alignment & Qt::AlignBottom ? -indent : 0);
    return room;
}

/// How much of each pixel the letters of a label cover, whether or not they have room in it.
class Ink
{
public:
    explicit Ink(const QLabel &label)
        : m_image(label.width() + 2 * Around, label.height() + 2 * Around, QImage::Format_Grayscale8)
    {
        const QString text = label.text();
        const Qt::LayoutDirection direction = text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight;
        const Qt::Alignment alignment = QStyle::visualAlignment(direction, label.alignment());
        const int flags = int(alignment) | Qt::TextDontClip | (label.wordWrap() ? Qt::TextWordWrap : 0);

        m_image.fill(Qt::white);
        QPainter painter(&m_image);
        painter.translate(Around, Around);
        painter.setPen(Qt::black);
        painter.setFont(label.font());
        painter.setLayoutDirection(direction);
        painter.drawText(roomOf(label, alignment), flags, text);
    }

    /// The smallest rectangle of the label around all letters, but for their faint rims.
    QRect bounds() const
    {
        QRect bounds;
        forAllAbove(85, [&bounds](const QPoint &pixel, int) { bounds |= QRect(pixel, QSize(1, 1)); });
        return bounds;
    }

    /// Whether \a image shows all of the letters. The label lies at \a corner of it.
    bool isWholeIn(const QImage &image, const QPoint &corner) const
    {
        const QRect area = bounds().translated(corner);
        if (!image.rect().contains(area))
            return false;
        const QRgb ground = groundOf(image, area);
        const QRgb stroke = strokeIn(image, area, ground);
        bool isWhole = true;
        forAllAbove(160, [&](const QPoint &pixel, int share) {
            const QRgb color = image.pixel(corner + pixel);
            isWhole &= isMixed(qRed(color), qRed(ground), qRed(stroke), share)
                && isMixed(qGreen(color), qGreen(ground), qGreen(stroke), share)
                && isMixed(qBlue(color), qBlue(ground), qBlue(stroke), share);
        });
        return isWhole;
    }

private:
    static const int Around = 60;

    template <typename Function>
    void forAllAbove(int least, Function function) const
    {
        for (int y = 0; y < m_image.height(); ++y) {
            for (int x = 0; x < m_image.width(); ++x) {
                const int share = 255 - qGray(m_image.pixel(x, y));
                if (share >= least)
                    function(QPoint(x - Around, y - Around), share);
            }
        }
    }

    static bool isMixed(int color, int ground, int stroke, int share)
    {
        const int tolerance = 80;
        return std::abs(color - (ground + (stroke - ground) * share / 255)) <= tolerance;
    }

    QImage m_image;  // black where letters cover a pixel wholly
};

#endif

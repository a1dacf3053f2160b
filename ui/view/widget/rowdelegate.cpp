#include "rowdelegate.h"

#include "modelrow.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionViewItem>

namespace {

// In the row of \a option, from the side where its texts begin.
QRect placed(const QRect &rect, const QStyleOptionViewItem &option)
{
    return QStyle::visualRect(option.direction, option.rect, rect.translated(option.rect.topLeft()));
}

}

RowDelegate::RowDelegate(QObject *parent)
    : QAbstractItemDelegate(parent)
{
    updateFonts();
}

void RowDelegate::updateFonts()
{
    RowLook look;
    m_titleFont = look.titleFont();
    look.hasValue = true;
    m_titleFontAboveValue = look.titleFont();
    m_badgeFont = RowLook::badgeFont();
    m_valueFont = RowLook::valueFont();
}

void RowDelegate::setScrolledTitle(const QString &text)
{
    m_scrolledTitle = text;
}

const QFont &RowDelegate::titleFont(const ModelRow &row) const
{
    return row.look.hasValue && !row.look.valueOnRightSide ? m_titleFontAboveValue : m_titleFont;
}

QRect RowDelegate::titleRect(const ModelRow &row, FittedText *fittedTitle) const
{
    if (row.look.valueOnRightSide)
        return RowLook::titleRectOnSharedLine(fittedTitle->textWidth(row.title, titleFont(row)));
    return RowLook::titleRectBesideArrows(row.look.titleRect(), row.look.seenArrows());
}

bool RowDelegate::isTitleCut(const QModelIndex &index) const
{
    const ModelRow row(index);
    FittedText &fittedTitle = m_fittedTitles[index.row() % FittedRows];
    const int width = titleRect(row, &fittedTitle).width();
    return !fittedTitle.fits(row.title, titleFont(row), width);
}

void RowDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    // In the order in which the parts of a row lie upon each other.
    const ModelRow row(index);
    const bool focused = option.state & QStyle::State_HasFocus;
    const RowDress &dress = rowDress(focused);
    Pictures &pictures = m_pictures[focused];
    const bool mirrored = option.direction == Qt::RightToLeft;
    const int height = option.rect.height();

    FittedText &fittedTitle = m_fittedTitles[index.row() % FittedRows];
    const QRect titlePlace = titleRect(row, &fittedTitle);
    QString title = m_scrolledTitle;
    if (!focused || title.isNull())
        title = fittedTitle.fit(row.title, titleFont(row), titlePlace.width());
    painter->setFont(titleFont(row));
    painter->setPen(row.titleDimmed ? dress.dimmedColour : dress.titleColour);
    paintText(painter, placed(titlePlace, option), row.titleAlignment(), title);

    if (row.look.hasBadge) {
        if (pictures.badge.isNull())
            pictures.badge = QPixmap(dress.badgePicture);
        const QRect place = placed(RowLook::badgeRect(), option);
        painter->drawTiledPixmap(place, pictures.badge);
        painter->setFont(m_badgeFont);
        painter->setPen(dress.badgeColour);
        paintText(painter, place, BadgeAlignment, row.badge);
    }

    if (row.look.hasValue) {
        const bool onSharedLine = row.look.valueOnRightSide;
        const QRect place = onSharedLine
            ? RowLook::valueRectOnSharedLine(fittedTitle.textWidth(row.title, titleFont(row)))
            : row.look.valueRect(row.look.moreDepth);
        FittedText &fittedValue = m_fittedValues[index.row() % FittedRows];
        painter->setFont(m_valueFont);
        painter->setPen(row.valueDimmed ? dress.dimmedColour : dress.valueColour);
        paintText(painter, placed(place, option),
                  onSharedLine ? ValueAlignmentOnSharedLine : ValueAlignment,
                  fittedValue.fit(row.value, m_valueFont, place.width()));
    }

    if (row.look.modifiable && row.look.hasPrevArrow())
        paintArrow(painter, placed(RowLook::prevArrowRect(height), option), !mirrored, focused);
    if (row.look.modifiable && row.look.hasNextArrow())
        paintArrow(painter, placed(RowLook::nextArrowRect(height), option), mirrored, focused);
}

void RowDelegate::paintArrow(QPainter *painter, const QRect &place, bool pointsLeft, bool focused) const
{
    const RowDress &dress = rowDress(focused);
    QPixmap &arrow = pointsLeft ? m_pictures[focused].prevArrow : m_pictures[focused].nextArrow;
    if (arrow.isNull())
        arrow = pictureFor(place.size(), pointsLeft ? dress.prevArrowPicture : dress.nextArrowPicture);
    paintPicture(painter, place, arrow);
}

QSize RowDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &) const
{
    return option.rect.size();
}

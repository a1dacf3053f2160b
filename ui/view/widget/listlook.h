#ifndef LISTLOOK_H
#define LISTLOOK_H

// How a settings list looks, written once for rows that are widgets and for rows that are painted. Not part of the
// interface.

#include <QColor>
#include <QFont>
#include <QRect>
#include <QString>

/// What is in a row, as far as its look depends on it, and what follows: which of its parts are seen, where they stand in
/// pixels of the row, and in which fonts.
struct RowLook
{
    RowLook();

    bool hasBadge;
    bool hasValue;
    bool hasSeveralValues;
    bool valueOnRightSide;
    bool moreDepth;
    bool deletable;
    bool modifiable;

    /// Which arrows the row has, and how many are seen: none where it is not modifiable.
    bool hasPrevArrow() const;
    bool hasNextArrow() const;
    int seenArrows() const;

    QFont titleFont() const;
    static QFont badgeFont();
    static QFont valueFont();

    /// Where a title stands that has its line for itself, with both arrows beside it, and with only so many of them.
    QRect titleRect() const;
    static QRect titleRectBesideArrows(QRect titleRect, int seenArrows);

    /// Where a value stands below its title.
    QRect valueRect(bool besideArrow) const;

    /// Where title and value stand that share a line. The title is \a titleWidth wide if there is room.
    static QRect titleRectOnSharedLine(int titleWidth);
    static QRect valueRectOnSharedLine(int titleWidth);

    static QRect badgeRect();
    static QRect prevArrowRect(int rowHeight);
    static QRect nextArrowRect(int rowHeight);
};

/// The two lines of a row with a value below its title.
const int UpperLineTop = 2;
const int LowerLineTop = 23;
const int LineHeight = 21;

const Qt::Alignment TitleAlignment = Qt::AlignLeft | Qt::AlignVCenter;
const Qt::Alignment BadgeAlignment = Qt::AlignHCenter | Qt::AlignVCenter;
const Qt::Alignment ValueAlignment = Qt::AlignLeft | Qt::AlignTop;
const Qt::Alignment ValueAlignmentOnSharedLine = Qt::AlignRight | Qt::AlignVCenter;

/// Of the title above a value that the application sets.
const Qt::Alignment TitleAlignmentAboveSetValue = Qt::AlignLeft | Qt::AlignBottom;

/// The colours and pictures of a row, and the same as sheets.
struct RowDress
{
    RowDress(const char *titleColour, const char *badgePicture, const char *prevArrow, const char *nextArrow);

    const QColor titleColour;
    const QColor badgeColour;
    const QColor valueColour;
    const QColor dimmedColour;
    const QString badgePicture;
    const QString prevArrowPicture;
    const QString nextArrowPicture;

    const QString titleSheet;
    const QString badgeSheet;
    const QString valueSheet;
    const QString prevArrowSheet;
    const QString nextArrowSheet;
};

const RowDress &rowDress(bool focused);

/// A title that is too long goes on by one character in so many milliseconds.
const int MarqueeInterval = 200;

/// What goes past for \a title.
QString marqueeText(const QString &title);

/// Where the rows stand in a list, and their colours.
const QRect RowsRect(0, 38, 220, 138);
QColor rowColour();
QColor selectedRowColour();

/// The scroll bar: what is not the handle is all of one colour.
const int ScrollBarWidth = 4;
const int ScrollHandleMinimum = 5;
QColor scrollGrooveColour();
QColor scrollHandleColour();

/// The same for a table, in a list with and without focus.
const QString &tableSheet();
const QString &noFocusTableSheet();

#endif

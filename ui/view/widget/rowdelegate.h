#ifndef ROWDELEGATE_H
#define ROWDELEGATE_H

#include "widgetdetails.h"

#include <QAbstractItemDelegate>
#include <QPixmap>

struct ModelRow;

/// Paints the rows of a WidgetListView as a WidgetListItem shows them, on a background that is there already. A row that
/// has the focus is told by QStyle::State_HasFocus, a mirrored one by its direction.
class RowDelegate : public QAbstractItemDelegate
{
public:
    explicit RowDelegate(QObject *parent);

    virtual void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const;
    virtual QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const;

    /// Whether the title of \a index is wider than its place.
    bool isTitleCut(const QModelIndex &index) const;

    /// Has the row with the focus show \a text in place of its title; null: its title again.
    void setScrolledTitle(const QString &text);

    /// Takes the default font of the application anew.
    void updateFonts();

private:
    // How many rows' texts need not be measured again when they are painted again: more than are in view at a time.
    enum { FittedRows = 8 };

    struct Pictures
    {
        QPixmap badge;
        QPixmap prevArrow;
        QPixmap nextArrow;
    };

    const QFont &titleFont(const ModelRow &row) const;
    QRect titleRect(const ModelRow &row, FittedText *fittedTitle) const;
    void paintArrow(QPainter *painter, const QRect &place, bool pointsLeft, bool focused) const;

    QFont m_titleFont;
    QFont m_titleFontAboveValue;
    QFont m_badgeFont;
    QFont m_valueFont;
    QString m_scrolledTitle;
    mutable FittedText m_fittedTitles[FittedRows];
    mutable FittedText m_fittedValues[FittedRows];
    mutable Pictures m_pictures[2];  // without and with the focus; each loaded when it is first seen
};

#endif

#ifndef ROWPARTS_H
#define ROWPARTS_H

#include "widgetlistitem.h"
#include "widgetmarqueelable.h"

#include <QCoreApplication>
#include <QFontMetrics>
#include <QLabel>
#include <QStackedWidget>
#include <QTimerEvent>

/// The children of a list row, which are its only ones, in the order in which it makes them.
struct RowParts
{
    explicit RowParts(const WidgetListItem &row)
    {
        const QList<QWidget *> children = row.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
        if (children.size() != 7)
            qFatal("a row has seven children");
        title = qobject_cast<WidgetMarqueeLable *>(children.at(0));
        titleStack = qobject_cast<QStackedWidget *>(children.at(1));
        badge = qobject_cast<QLabel *>(children.at(2));
        value = qobject_cast<QLabel *>(children.at(3));
        valueStack = qobject_cast<QStackedWidget *>(children.at(4));
        prevArrow = qobject_cast<QLabel *>(children.at(5));
        nextArrow = qobject_cast<QLabel *>(children.at(6));
        if (!title || !titleStack || !badge || !value || !valueStack || !prevArrow || !nextArrow)
            qFatal("a child of the row is of another class than it was");
    }

    WidgetMarqueeLable *title;
    QStackedWidget *titleStack;
    QLabel *badge;
    QLabel *value;
    QStackedWidget *valueStack;
    QLabel *prevArrow;
    QLabel *nextArrow;
};

/// A rectangle by its inclusive edges.
inline QRect edges(int left, int top, int right, int bottom)
{
    return QRect(QPoint(left, top), QPoint(right, bottom));
}

inline int measure(const QString &text, const QFont &font)
{
    return QFontMetrics(font).horizontalAdvance(text);
}

/// \a unit as often as it takes to be wider than \a width pixels in \a font.
inline QString textWiderThan(int width, const QFont &font, const QString &unit = QStringLiteral("Wide title "))
{
    QString text = unit;
    while (measure(text, font) <= width)
        text += unit;
    return text;
}

/// What fits of \a text.
inline QString fitted(const QString &text, const QFont &font, int width)
{
    return measure(text, font) <= width ? text : QFontMetrics(font).elidedText(text, Qt::ElideRight, width);
}

/// A step of the title that scrolls.
inline void tick(const RowParts &parts)
{
    QTimerEvent event(parts.title->m_timerId);
    QCoreApplication::sendEvent(parts.title, &event);
}

#endif

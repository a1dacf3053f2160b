#include "rowtable.h"

#include "widgetdetails.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>

RowTable::RowTable(int rows, QWidget *parent)
    : QTableWidget(rows, 1, parent)
{
}

void RowTable::setRowWidget(int row, QWidget *widget, int formerRow)
{
    // A table deletes a widget that is put again into its own cell (Qt 4) or leaves its old one.
    if (cellWidget(row, 0) == widget)
        return;
    if (cellWidget(formerRow, 0) == widget)
        removeCellWidget(formerRow, 0);
    if (widget->parentWidget() == viewport())
        QCoreApplication::removePostedEvents(widget, QEvent::DeferredDelete);

    // The table shows at once what it is given. A widget that seems to be shown already is spared that.
    widget->setParent(viewport());
    markShown(widget);
    setCellWidget(row, 0, widget);
    widget->hide();
    if (isVisible())
        updateEditorGeometries();
}

void RowTable::reveal(int row)
{
    QWidget *widget = cellWidget(row, 0);
    if (!widget || !widget->isHidden() || isRowHidden(row))
        return;
    park(widget);
    showWithParent(widget);
}

void RowTable::park(QWidget *widget)
{
    // Out of sight wherever the table is scrolled to.
    widget->move(0, -widget->height());
}

void RowTable::keyPressEvent(QKeyEvent *event)
{
    event->ignore();
}

void RowTable::keyReleaseEvent(QKeyEvent *event)
{
    event->ignore();
}

void RowTable::showEvent(QShowEvent *event)
{
    QTableWidget::showEvent(event);
    // Rows that came into view while the table was hidden.
    updateEditorGeometries();
}

void RowTable::scrollContentsBy(int, int)
{
    // As the toolkit does it, up to moving the rows: at the end the last row stands at the bottom of the view.
    if (verticalScrollBar()->value() == verticalScrollBar()->maximum())
        verticalHeader()->setOffsetToLastSection();
    else
        verticalHeader()->setOffsetToSectionPosition(verticalScrollBar()->value());
    viewport()->update();
    updateEditorGeometries();
}

void RowTable::updateEditorGeometries()
{
    QList<QPointer<QWidget> > leaving = m_inView;
    m_inView.clear();
    const int bottom = viewport()->height();
    for (int row = rowAt(0); row >= 0 && row < rowCount() && rowViewportPosition(row) < bottom; ++row) {
        QWidget *widget = cellWidget(row, 0);
        if (!widget || isRowHidden(row))
            continue;
        widget->setGeometry(columnViewportPosition(0), rowViewportPosition(row), columnWidth(0), rowHeight(row));
        if (isVisible())
            widget->show();
        m_inView.append(widget);
        leaving.removeAll(widget);
    }

    // Hiding a row that leaves would take the focus from it and have it laid out anew when it comes back.
    for (int i = 0; i < leaving.size(); ++i) {
        if (leaving.at(i))
            park(leaving.at(i));
    }
}

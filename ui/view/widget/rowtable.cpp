#include "rowtable.h"

#include "widgetdetails.h"
#include "widgetlistitem.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>

RowTable::RowTable(int rows, QWidget *list)
    : QTableWidget(list),
      m_rowHeightsChanged(false)
{
    // Before there are rows: a header that is seen measures its names for them.
    horizontalHeader()->setVisible(false);
    verticalHeader()->setVisible(false);
    setRowCount(rows);
    setColumnCount(1);
}

RowTable::~RowTable()
{
    // From the last to the first: for each widget that goes, the oldest toolkit searches among those that came after it.
    for (int row = rowCount() - 1; row >= 0; --row) {
        WidgetListItem *item = listItem(row);
        if (!item)
            continue;
        item->m_table = 0;
        if (item->parentWidget() == viewport())
            delete item;
    }
}

WidgetListItem *RowTable::listItem(int row) const
{
    return qobject_cast<WidgetListItem *>(cellWidget(row, 0));
}

void RowTable::setListItem(int row, WidgetListItem *item)
{
    // A table deletes a widget that is put again into its own cell (Qt 4) or leaves its old one.
    if (cellWidget(row, 0) == item)
        return;
    if (item->m_table)
        item->m_table->release(item);
    removeListItem(row);
    if (item->parentWidget() == viewport())
        QCoreApplication::removePostedEvents(item, QEvent::DeferredDelete);

    // The table shows at once what it is given. An item that seems to be shown already is spared that.
    if (!item->isHidden())
        item->hide();
    item->setParent(viewport());
    markShown(item);
    setCellWidget(row, 0, item);
    item->setAttribute(Qt::WA_WState_Hidden);
    item->installEventFilter(this);
    park(item);
    item->m_table = this;
    item->m_row = row;
    item->m_wasShown = false;
    if (isVisible())
        updateEditorGeometries();
}

void RowTable::removeListItem(int row)
{
    QWidget *widget = cellWidget(row, 0);
    if (!widget)
        return;
    takeFocusFrom(widget);
    if (WidgetListItem *item = listItem(row))
        item->m_table = 0;
    removeCellWidget(row, 0);
}

void RowTable::release(WidgetListItem *item)
{
    takeFocusFrom(item);
    item->m_table = 0;
    removeCellWidget(rowOf(item), 0);
    QCoreApplication::removePostedEvents(item, QEvent::DeferredDelete);
}

void RowTable::forget(WidgetListItem *item)
{
    // Without events: nobody may look at the item any more.
    const bool focused = holdsFocus(item);
    if (focused)
        item->window()->focusWidget()->clearFocus();
    release(item);
    if (focused && parentWidget()->isVisible())
        focusList();
}

int RowTable::rowOf(const WidgetListItem *item) const
{
    if (cellWidget(item->m_row, 0) == item)
        return item->m_row;
    for (int row = 0; row < rowCount(); ++row) {
        if (cellWidget(row, 0) == item)
            return row;
    }
    return -1;
}

void RowTable::takeFocusFrom(QWidget *widget)
{
    if (!holdsFocus(widget))
        return;
    // With the list hidden as well, the focus is anybody's.
    if (parentWidget()->isVisible())
        focusList();
    else if (!window()->isVisible() || !focusNextPrevChild(true))
        widget->window()->focusWidget()->clearFocus();
}

void RowTable::focusList()
{
    // A row without the focus must not look as if it had it. Where the whole table is hidden, it gets it back.
    if (isVisible())
        clearSelection();
    parentWidget()->setFocus(Qt::OtherFocusReason);
}

void RowTable::reveal(int row)
{
    WidgetListItem *item = listItem(row);
    if (!item || item->m_wasShown || isRowHidden(row))
        return;
    item->m_wasShown = true;
    showWithParent(item);
}

bool RowTable::isInView(int row) const
{
    return m_inView.contains(cellWidget(row, 0));
}

void RowTable::takeRowSize(int row)
{
    WidgetListItem *item = listItem(row);
    item->resize(columnWidth(0), rowHeight(row));
    if (!isInView(row))
        park(item);
}

void RowTable::setRowHeightsChanged()
{
    m_rowHeightsChanged = true;
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
    WidgetListItem *item = listItem(currentRow());
    if (item && !item->isHidden() && parentWidget()->hasFocus()) {
        selectRow(currentRow());
        item->setFocus(Qt::OtherFocusReason);
    }
}

bool RowTable::eventFilter(QObject *watched, QEvent *event)
{
    // The toolkit leaves the focus on what is hidden.
    if (event->type() == QEvent::Hide && !event->spontaneous() && watched->parent() == viewport())
        takeFocusFrom(static_cast<QWidget *>(watched));
    return QTableWidget::eventFilter(watched, event);
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
        if (!widget || widget->parentWidget() != viewport() || isRowHidden(row))
            continue;
        widget->setGeometry(columnViewportPosition(0), rowViewportPosition(row), columnWidth(0), rowHeight(row));
        reveal(row);
        m_inView.append(widget);
        leaving.removeAll(widget);
    }

    // Hiding a row that leaves would take the focus from it and have it laid out anew when it comes back.
    for (int i = 0; i < leaving.size(); ++i) {
        if (leaving.at(i) && leaving.at(i)->parentWidget() == viewport())
            park(leaving.at(i));
    }

    if (m_rowHeightsChanged) {
        m_rowHeightsChanged = false;
        for (int row = 0; row < rowCount(); ++row) {
            if (listItem(row) && !isRowHidden(row))
                takeRowSize(row);
        }
    }
}

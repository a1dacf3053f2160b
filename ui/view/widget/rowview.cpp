#include "rowview.h"

#include "listlook.h"
#include "rowdelegate.h"
#include "widgetdetails.h"
#include "widgetlistview.h"

#include <QPaintEvent>
#include <QPainter>
#include <QPointer>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionViewItem>
#include <QTimerEvent>

#include <algorithm>

namespace {

const int DefaultRowHeight = 46;

bool isAbove(const QPersistentModelIndex &index, int row)
{
    return index.row() < row;
}

bool isAboveOther(const QPersistentModelIndex &index, const QPersistentModelIndex &other)
{
    return index.row() < other.row();
}

// What the sheet of a table makes of its scroll bar, without the time that a sheet takes.
class ScrollBar : public QScrollBar
{
public:
    explicit ScrollBar(QWidget *parent)
        : QScrollBar(Qt::Vertical, parent)
    {
    }

    virtual QSize sizeHint() const { return QSize(ScrollBarWidth, ScrollBarWidth); }

protected:
    virtual void paintEvent(QPaintEvent *)
    {
        const qint64 range = maximum() - minimum();
        const int length = qMax(int(height() * qint64(pageStep()) / (range + pageStep())), ScrollHandleMinimum);
        const int top = QStyle::sliderPositionFromValue(minimum(), maximum(), value(), height() - length);
        QPainter painter(this);
        painter.fillRect(rect(), scrollGrooveColour());
        painter.fillRect(0, top, width(), length, scrollHandleColour());
    }
};

}

RowView::RowView(QWidget *list)
    : QAbstractItemView(list),
      m_delegate(new RowDelegate(this)),
      m_row(-1),
      m_rowsAbove(0),
      m_rowHeight(DefaultRowHeight),
      m_offset(0),
      m_noFocus(false),
      m_fetching(false),
      m_marqueeOffset(0)
{
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFrameShape(QFrame::NoFrame);
    setSelectionMode(NoSelection);
    setEditTriggers(NoEditTriggers);
    setAutoScroll(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBar(new ScrollBar(this));
    setItemDelegate(m_delegate);
    // So the toolkit can move the picture of rows that have only scrolled.
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
}

void RowView::setModel(QAbstractItemModel *model)
{
    QAbstractItemModel *oldModel = this->model();
    QItemSelectionModel *oldSelection = selectionModel();
    if (model == oldModel)
        return;
    if (oldModel) {
        disconnect(oldModel, 0, this, SLOT(takeRows()));
        disconnect(oldModel, 0, this, SLOT(takeData(QModelIndex,QModelIndex)));
    }
    m_hiddenRows.clear();
    m_index = QModelIndex();
    QAbstractItemView::setModel(model);
    if (oldSelection)
        oldSelection->deleteLater();
    if (model) {
        // After the toolkit's own connections: the rows are known by then.
        connect(model, SIGNAL(rowsInserted(QModelIndex,int,int)), this, SLOT(takeRows()));
        connect(model, SIGNAL(rowsRemoved(QModelIndex,int,int)), this, SLOT(takeRows()));
        connect(model, SIGNAL(rowsMoved(QModelIndex,int,int,QModelIndex,int)), this, SLOT(takeRows()));
        connect(model, SIGNAL(columnsInserted(QModelIndex,int,int)), this, SLOT(takeRows()));
        connect(model, SIGNAL(columnsRemoved(QModelIndex,int,int)), this, SLOT(takeRows()));
        connect(model, SIGNAL(columnsMoved(QModelIndex,int,int,QModelIndex,int)), this, SLOT(takeRows()));
        connect(model, SIGNAL(layoutChanged()), this, SLOT(takeRows()));
        connect(model, SIGNAL(modelReset()), this, SLOT(takeRows()));
        connect(model, SIGNAL(dataChanged(QModelIndex,QModelIndex)), this, SLOT(takeData(QModelIndex,QModelIndex)));
        connect(model, SIGNAL(destroyed()), this, SLOT(takeRows()));
    }
    settle();
    fetchRowsNear();
}

int RowView::count() const
{
    return model() && model()->columnCount() > 0 ? model()->rowCount() : 0;
}

int RowView::row() const
{
    return currentIndex().row();
}

void RowView::setRow(int row)
{
    if (row < 0)
        return;
    makeCurrent(row);
    fetchRowsNear();
}

void RowView::makeCurrent(int row)
{
    const QModelIndex index = model()->index(row, 0);
    if (index != currentIndex())
        stopMarquee();
    m_index = index;
    m_row = row;
    // Not by setCurrentIndex(), which refuses rows that are not enabled.
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    scrollTo(index);
    m_rowsAbove = placeOf(row) - verticalScrollBar()->value();
    updateMarquee();
}

void RowView::setFirstRow()
{
    forgetRow();
    m_row = 0;
    takeRows();
}

void RowView::forgetRow()
{
    stopMarquee();
    m_index = QModelIndex();
    m_row = -1;
    if (currentIndex().isValid())
        selectionModel()->setCurrentIndex(QModelIndex(), QItemSelectionModel::NoUpdate);
}

bool RowView::isRowHidden(int row) const
{
    const int place = placeOf(row);
    const int hiddenAbove = row - place;
    return hiddenAbove < m_hiddenRows.size() && m_hiddenRows.at(hiddenAbove).row() == row;
}

void RowView::setRowHidden(int row, bool hidden)
{
    if (isRowHidden(row) == hidden)
        return;
    const int hiddenAbove = row - placeOf(row);
    if (hidden)
        m_hiddenRows.insert(hiddenAbove, model()->index(row, 0));
    else
        m_hiddenRows.removeAt(hiddenAbove);
    if (!isRowHidden(currentIndex().row())) {
        settle();
        fetchRowsNear();
        return;
    }
    updateGeometries();
    updateMarquee();
    viewport()->update();
}

void RowView::setRowHeight(int height)
{
    m_rowHeight = height;
    settle();
    fetchRowsNear();
}

int RowView::rowsInView() const
{
    // The viewport has this height too, but not before the view is first shown.
    return qMax(height() / m_rowHeight, 1);
}

QModelIndex RowView::seenCurrentIndex() const
{
    const QModelIndex index = currentIndex();
    return isRowHidden(index.row()) ? QModelIndex() : index;
}

int RowView::rowInView(int number) const
{
    const int place = m_offset / m_rowHeight + number;
    return place < placeCount() && rectOfPlace(place).top() < height() ? rowAt(place) : -1;
}

int RowView::rowAwayFrom(int row, int rows) const
{
    int place = placeOf(row) + rows;
    // The first row below one that is hidden has its place already.
    if (rows > 0 && isRowHidden(row))
        --place;
    return placeCount() > 0 ? rowAt(qBound(0, place, placeCount() - 1)) : row;
}

void RowView::setNoFocusStyle()
{
    m_noFocus = true;
    updateMarquee();
    viewport()->update();
}

void RowView::updateFocus()
{
    update(currentIndex());
    updateMarquee();
}

int RowView::placeCount() const
{
    return count() - m_hiddenRows.size();
}

int RowView::placeOf(int row) const
{
    return row - int(std::lower_bound(m_hiddenRows.begin(), m_hiddenRows.end(), row, isAbove) - m_hiddenRows.begin());
}

int RowView::rowAt(int place) const
{
    // Between the first and the last row that it can be.
    int hiddenAbove = 0;
    int hiddenAtMost = int(m_hiddenRows.size());
    while (hiddenAbove < hiddenAtMost) {
        const int middle = (hiddenAbove + hiddenAtMost) / 2;
        if (m_hiddenRows.at(middle).row() - middle <= place)
            hiddenAbove = middle + 1;
        else
            hiddenAtMost = middle;
    }
    return place + hiddenAbove;
}

void RowView::takeRows()
{
    for (int i = int(m_hiddenRows.size()) - 1; i >= 0; --i) {
        if (!m_hiddenRows.at(i).isValid())
            m_hiddenRows.removeAt(i);
    }
    std::sort(m_hiddenRows.begin(), m_hiddenRows.end(), isAboveOther);
    // A model that sorts may take rows of one text for the same one.
    for (int i = int(m_hiddenRows.size()) - 1; i > 0; --i) {
        if (m_hiddenRows.at(i) == m_hiddenRows.at(i - 1))
            m_hiddenRows.removeAt(i);
    }
    settle();
    // Later, because the model is still telling others of its change, or the toolkit showing the list, which the model may
    // delete.
    if (!m_fetching && model() && model()->canFetchMore(QModelIndex()))
        QMetaObject::invokeMethod(this, "fetchRowsNear", Qt::QueuedConnection);
}

void RowView::settle()
{
    const int rowsAbove = m_rowsAbove;
    updateGeometries();
    if (m_row >= 0 && placeCount() > 0) {
        if (m_index.isValid())
            verticalScrollBar()->setValue(placeOf(m_index.row()) - rowsAbove);
        makeCurrent(rowAwayFrom(m_index.isValid() ? m_index.row() : m_row, 0));
    }
    updateMarquee();
    viewport()->update();
}

void RowView::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    // The toolkit would also have the model fetch rows here, in the middle of what it does, though that may end in the
    // deletion of the list.
    update(previous);
    update(current);
}

void RowView::rowsInserted(const QModelIndex &, int, int)
{
    // Nothing: takeRows() does it. The toolkit would have the model fetch rows for a list that nobody sees.
}

void RowView::rowsAboutToBeRemoved(const QModelIndex &parent, int start, int end)
{
    // What moves up into the place of the row is nearest, and not what the toolkit makes current.
    if (!parent.isValid() && m_row >= start && m_row <= end)
        m_row = start;
}

void RowView::takeData(const QModelIndex &topLeft, const QModelIndex &bottomRight)
{
    // A model may also take an item out of its row and call that a change of data.
    bool allValid = m_row < 0 || m_index.isValid();
    for (int i = 0; i < m_hiddenRows.size() && allValid; ++i)
        allValid = m_hiddenRows.at(i).isValid();
    if (!allValid) {
        takeRows();
        return;
    }
    const int row = currentIndex().row();
    if (row >= topLeft.row() && row <= bottomRight.row())
        updateMarquee();
}

void RowView::fetchRowsNear()
{
    if (m_fetching || !isVisible())
        return;
    // What a model does here may end in the deletion of the list.
    const QPointer<RowView> view(this);
    m_fetching = true;
    for (;;) {
        const int rows = count();
        // Hidden rows fill no view.
        const int wanted = placeOf(currentIndex().row()) + 2 * rowsInView();
        if (wanted < placeCount() || !model() || !model()->canFetchMore(QModelIndex()))
            break;
        model()->fetchMore(QModelIndex());
        if (!view)
            return;
        // They may also come later.
        if (count() <= rows)
            break;
    }
    m_fetching = false;
}

QRect RowView::visualRect(const QModelIndex &index) const
{
    if (!index.isValid() || isRowHidden(index.row()))
        return QRect();
    return rectOfPlace(placeOf(index.row()));
}

QRect RowView::rectOfPlace(int place) const
{
    // As a column of a table: the scroll bar covers the end of it.
    const int left = isRightToLeft() ? viewport()->width() - RowsRect.width() : 0;
    return QRect(left, place * m_rowHeight - m_offset, RowsRect.width(), m_rowHeight);
}

void RowView::scrollTo(const QModelIndex &index, ScrollHint)
{
    // Where the row is hidden, this is nowhere, and nothing scrolls.
    const QRect rect = visualRect(index);
    const int place = placeOf(index.row());
    if (rect.top() < 0)
        verticalScrollBar()->setValue(place);
    else if (rect.bottom() >= height())
        verticalScrollBar()->setValue(place - rowsInView() + 1);
}

QModelIndex RowView::indexAt(const QPoint &point) const
{
    const int place = (point.y() + m_offset) / m_rowHeight;
    if (!viewport()->rect().contains(point) || place >= placeCount())
        return QModelIndex();
    return model()->index(rowAt(place), 0);
}

void RowView::updateGeometries()
{
    verticalScrollBar()->setRange(0, qMax(placeCount() - rowsInView(), 0));
    verticalScrollBar()->setPageStep(rowsInView());
    updateOffset();
    // Nothing of what the toolkit does here: it would have the model fetch rows for a list that nobody sees.
}

void RowView::updateOffset()
{
    const int value = verticalScrollBar()->value();
    const bool atEnd = value == verticalScrollBar()->maximum();
    m_offset = atEnd ? qMax(placeCount() * m_rowHeight - height(), 0) : value * m_rowHeight;
}

void RowView::scrollContentsBy(int, int)
{
    const int offset = m_offset;
    updateOffset();
    viewport()->scroll(0, offset - m_offset);
}

void RowView::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::FontChange) {
        m_delegate->updateFonts();
        updateMarquee();
    }
    QAbstractItemView::changeEvent(event);
}

void RowView::paintEvent(QPaintEvent *event)
{
    const QColor colour = rowColour();
    const QColor evenColour = m_noFocus ? palette().color(QPalette::Base) : colour;
    const int currentRow = currentIndex().row();
    const int end = placeCount();
    QPainter painter(viewport());
    QStyleOptionViewItem option;
    option.direction = static_cast<WidgetListView *>(parentWidget())->m_mirrored ? Qt::RightToLeft : Qt::LeftToRight;
    int place = (event->rect().top() + m_offset) / m_rowHeight;
    option.rect = rectOfPlace(place);
    for (; place < end && option.rect.top() <= event->rect().bottom(); ++place) {
        if (event->region().intersects(option.rect)) {
            const int row = rowAt(place);
            const bool current = row == currentRow;
            const bool focused = current && parentWidget()->hasFocus();
            option.state = focused ? QStyle::State_Enabled | QStyle::State_HasFocus : QStyle::State_Enabled;
            painter.fillRect(option.rect, current && !m_noFocus ? selectedRowColour() : place % 2 == 0 ? evenColour : colour);
            m_delegate->paint(&painter, option, model()->index(row, 0));
        }
        option.rect.translate(0, m_rowHeight);
    }
    // What is below the rows.
    painter.fillRect(event->rect() & QRect(0, option.rect.top(), viewport()->width(), height()), evenColour);
}

void RowView::updateMarquee()
{
    const QModelIndex current = seenCurrentIndex();
    const bool scrolls = !m_noFocus && isVisible() && parentWidget()->hasFocus() && current.isValid()
        && m_delegate->isTitleCut(current);
    const QString text = scrolls ? marqueeText(current.data(WidgetListView::TitleRole).toString()) : QString();
    if (text == m_marqueeText)
        return;
    stopMarquee();
    if (!text.isNull()) {
        m_marqueeText = text;
        m_marqueeOffset = 0;
        m_marqueeTimer.start(MarqueeInterval, this);
    }
}

void RowView::stopMarquee()
{
    m_marqueeTimer.stop();
    m_marqueeText = QString();
    m_delegate->setScrolledTitle(QString());
}

void RowView::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_marqueeTimer.timerId()) {
        QAbstractItemView::timerEvent(event);
        return;
    }
    m_marqueeOffset = (m_marqueeOffset + 1) % int(m_marqueeText.length());
    m_delegate->setScrolledTitle(turnedText(m_marqueeText, m_marqueeOffset));
    update(currentIndex());
}

QModelIndex RowView::moveCursor(CursorAction, Qt::KeyboardModifiers)
{
    return currentIndex();
}

int RowView::horizontalOffset() const
{
    return 0;
}

int RowView::verticalOffset() const
{
    return m_offset;
}

bool RowView::isIndexHidden(const QModelIndex &index) const
{
    return isRowHidden(index.row());
}

void RowView::setSelection(const QRect &, QItemSelectionModel::SelectionFlags)
{
}

QRegion RowView::visualRegionForSelection(const QItemSelection &) const
{
    return QRegion();
}

#ifndef ROWVIEW_H
#define ROWVIEW_H

#include <QAbstractItemView>
#include <QBasicTimer>
#include <QList>
#include <QPersistentModelIndex>
#include <QString>

class RowDelegate;

/// The rows of a WidgetListView, which is its parent: column 0 of a model, in rows of one height, of which the current one
/// is highlighted.
///
/// The toolkit's own list, table and tree views note something for every row of their model. With one height for all of
/// them, where a row stands follows from its number. Like a table this view scrolls row by row, and at the end the last
/// row stands at the bottom.
///
/// When the model changes, the current row stays, and stays where it is on the screen, as long as it exists; after that
/// the nearest one is current.
class RowView : public QAbstractItemView
{
    Q_OBJECT

public:
    explicit RowView(QWidget *list);

    virtual void setModel(QAbstractItemModel *model);

    /// The number of rows; 0 without a model.
    int count() const;

    /// The current row; -1: none.
    int row() const;

    /// Makes \a row current and scrolls to it. -1 is ignored.
    void setRow(int row);

    /// Makes the first row current that is not hidden, or the first that comes where there is none yet.
    void setFirstRow();

    /// No row is current from now on, however the model changes.
    void forgetRow();

    /// The current row where it is not hidden; otherwise invalid.
    QModelIndex seenCurrentIndex() const;

    bool isRowHidden(int row) const;
    void setRowHidden(int row, bool hidden);

    /// At least 1, and at most the height of the view.
    void setRowHeight(int height);

    /// How many rows have room in the view, at least 1.
    int rowsInView() const;

    /// The row \a number of those in view, from the top; -1 if there are not so many.
    int rowInView(int number) const;

    /// The row that is \a rows away from \a row, which may be hidden itself or below the last one, hidden ones not counted,
    /// or the last one in this direction. \a row where all are hidden.
    int rowAwayFrom(int row, int rows) const;

    /// Has no row highlighted, every second one in another colour, and no title scroll.
    void setNoFocusStyle();

    /// To be called when the list has got or lost the focus.
    void updateFocus();

    virtual QRect visualRect(const QModelIndex &index) const;
    virtual void scrollTo(const QModelIndex &index, ScrollHint hint = EnsureVisible);
    virtual QModelIndex indexAt(const QPoint &point) const;

protected:
    virtual void changeEvent(QEvent *event);
    virtual void paintEvent(QPaintEvent *event);
    virtual void timerEvent(QTimerEvent *event);
    virtual void updateGeometries();
    virtual void scrollContentsBy(int dx, int dy);
    virtual QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers);
    virtual int horizontalOffset() const;
    virtual int verticalOffset() const;
    virtual bool isIndexHidden(const QModelIndex &index) const;
    virtual void setSelection(const QRect &rect, QItemSelectionModel::SelectionFlags flags);
    virtual QRegion visualRegionForSelection(const QItemSelection &selection) const;

public Q_SLOTS:
    /// Takes over what has become of the rows.
    void takeRows();

protected Q_SLOTS:
    virtual void currentChanged(const QModelIndex &current, const QModelIndex &previous);
    virtual void rowsInserted(const QModelIndex &parent, int start, int end);
    virtual void rowsAboutToBeRemoved(const QModelIndex &parent, int start, int end);

private Q_SLOTS:
    void takeData(const QModelIndex &topLeft, const QModelIndex &bottomRight);
    void fetchRowsNear();

private:
    // A place is the number of a row among those that are not hidden.
    int placeCount() const;
    int placeOf(int row) const;
    int rowAt(int place) const;
    QRect rectOfPlace(int place) const;

    void makeCurrent(int row);
    void settle();
    void updateOffset();
    void updateMarquee();
    void stopMarquee();

    RowDelegate *m_delegate;
    QList<QPersistentModelIndex> m_hiddenRows;  // in their order
    QPersistentModelIndex m_index;              // of the row that was made current
    int m_row;                                  // its number; -1: none is to be current
    int m_rowsAbove;                            // it in the view
    int m_rowHeight;
    int m_offset;  // of the rows in view, in pixels
    bool m_noFocus;
    bool m_fetching;
    QBasicTimer m_marqueeTimer;
    QString m_marqueeText;  // that scrolls past; null: none
    int m_marqueeOffset;
};

#endif

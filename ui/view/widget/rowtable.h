#ifndef ROWTABLE_H
#define ROWTABLE_H

#include <QList>
#include <QPointer>
#include <QTableWidget>

class WidgetListItem;

/// The table of a WidgetList, which is its parent: one column, without headers, whose cells are list items.
///
/// A plain table shows all of its cell widgets, seen or not, moves them all at every scroll, and goes on using one that
/// was deleted. This one shows an item when its row first comes into view, moves only items that come into view or leave
/// it, and forgets one that is deleted. Keys and focus go to the list where no item is there to take them: a plain table
/// would swallow digits for its search, and the toolkit leaves the focus on a widget that is hidden.
class RowTable : public QTableWidget
{
public:
    RowTable(int rows, QWidget *list);
    virtual ~RowTable();

    /// The item in \a row; 0 if there is none.
    WidgetListItem *listItem(int row) const;

    /// Puts \a item into \a row, from wherever it was, and keeps it hidden until the row is in view. The table owns it
    /// from now on; the widget that was in the row before is deleted later.
    void setListItem(int row, WidgetListItem *item);

    /// Empties \a row; the widget that was in it is deleted later.
    void removeListItem(int row);

    /// Forgets \a item, which is being destroyed.
    void forget(WidgetListItem *item);

    /// Hands on the focus that \a widget, a row that is going or hidden, or a part of it has: to the list, or to whom the
    /// toolkit gives it where the list is not seen.
    void takeFocusFrom(QWidget *widget);

    /// Has the item of \a row shown with the table, in view or not, unless the row is hidden. The toolkit hands the focus
    /// only to a widget that is not hidden itself, also while the table is.
    void reveal(int row);

    /// Whether the item of \a row was in view at the last layout.
    bool isInView(int row) const;

    /// Gives the item of \a row, which must have one, the size of its row before the next layout does, or where that does
    /// not because the row is out of view.
    void takeRowSize(int row);

    /// To be called when the rows have got other heights: the next layout passes them on to all items.
    void setRowHeightsChanged();

protected:
    virtual void keyPressEvent(QKeyEvent *event);
    virtual void keyReleaseEvent(QKeyEvent *event);
    virtual void showEvent(QShowEvent *event);
    virtual bool eventFilter(QObject *watched, QEvent *event);
    virtual void scrollContentsBy(int dx, int dy);
    virtual void updateEditorGeometries();

private:
    int rowOf(const WidgetListItem *item) const;
    void release(WidgetListItem *item);
    void focusList();
    static void park(QWidget *widget);

    QList<QPointer<QWidget> > m_inView;
    bool m_rowHeightsChanged;
};

#endif

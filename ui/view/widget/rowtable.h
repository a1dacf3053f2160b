#ifndef ROWTABLE_H
#define ROWTABLE_H

#include <QList>
#include <QPointer>
#include <QTableWidget>

/// The table of a WidgetList: one column whose cells are widgets.
///
/// A plain table shows all of its row widgets, seen or not, and moves them all at every scroll. This one shows a row
/// when it first comes into view and moves only rows that come into view or leave it. It also leaves all keys to the
/// list, where a plain table would swallow digits for its search.
class RowTable : public QTableWidget
{
public:
    RowTable(int rows, QWidget *parent);

    /// Puts \a widget into \a row and keeps it hidden until the row is in view. The table owns it from now on; the widget
    /// that was in the row before is deleted later. A widget of \a formerRow is moved from there.
    void setRowWidget(int row, QWidget *widget, int formerRow);

    /// Has the widget of \a row shown with the table, in view or not, unless the row is hidden. The toolkit hands the focus
    /// only to a widget that is not hidden itself, also while the table is.
    void reveal(int row);

protected:
    virtual void keyPressEvent(QKeyEvent *event);
    virtual void keyReleaseEvent(QKeyEvent *event);
    virtual void showEvent(QShowEvent *event);
    virtual void scrollContentsBy(int dx, int dy);
    virtual void updateEditorGeometries();

private:
    static void park(QWidget *widget);

    QList<QPointer<QWidget> > m_inView;
};

#endif

#ifndef WIDGETLIST_H
#define WIDGETLIST_H

#include "widget.h"

#include <QMap>
#include <QPointer>
#include <QRect>
#include <QString>

class QKeyEvent;
class QTableWidget;
class RowTable;
class WidgetListItem;
class WidgetMenuTitle;

/// A settings menu: a title bar above a column of rows, of which one has the focus.
///
/// Up and down move the focus, around the ends or up to them (m_stopAtEnds), past rows that are hidden. Left and right
/// belong to the row. OK asks for saving, escape ends the menu, a digit selects the row that it was given to. Every key
/// that does something clicks. Up and down held for longer are reported by signals instead of moving the focus. Keys act
/// when they are released.
///
/// In the no-focus style (setNoFocusStyle()) no row is highlighted and up and down turn pages instead.
///
/// The list is made for 220 by 176 pixels: the title bar takes the upper 38, the rows the lower 138. Each show starts on
/// row 0; hiding the list forgets the row.
///
/// The keys of a row that is hidden, removed or deleted while it has the focus reach the list instead, and up and down go
/// on from where it was. An item may be deleted at any time, also in a slot of its own; its row is empty then.
///
/// What is out of sight costs next to nothing: a row that never was in view is refreshed with the list, but hidden (its
/// isVisible() is false) until it first comes into view; setFocusAtItem() brings it there. A row that has left the view
/// stays shown and stands somewhere outside of it.
class WIDGET_EXPORT WidgetList : public Widget
{
    Q_OBJECT

private:
    int m_selectedRow;
    int m_rowCount;
    int m_itemCount;
    bool m_noFocus;
    WidgetMenuTitle *m_menuTitle;
    RowTable *m_table;
    QMap<int, QPointer<WidgetListItem> > m_shortcuts;

public:
    /// If set, up on the first row and down on the last stay there and emit reachedBegin() and reachedEnd(); otherwise
    /// they go on at the other end. Set by the application; false at first.
    bool m_stopAtEnds;

private:
    int m_noFocusRows;
    bool m_pageUpContinued;
    bool m_pageDownContinued;
    bool m_upLongPressed;
    int m_upRepeatCount;
    int m_longPressRepeats;
    bool m_downLongPressed;
    int m_downRepeatCount;

public:
    /// A list with room for \a rowCount rows (less than 0 counts as 0), all empty.
    WidgetList(int rowCount, QWidget *parent, SoundManager *soundManager);

    /// Makes room for \a n rows and starts filling them from row 0 again. Items in rows below \a n stay there, with their
    /// digit keys, until addListItem() replaces them; the others are deleted. A negative \a n is rejected with a log line.
    void setRowCount(int n);

    /// Makes every row \a h pixels high. The toolkit has a smallest height, of 25 pixels or so, for lower ones.
    void setRowHeight(int h);

    /// Shows \a text in the title bar. With \a defaultFont, setDefaultFont() comes first.
    void setTitle(QString text, bool defaultFont);

    /// Gives the title 14 points in normal weight, in white.
    void setDefaultFont();

    /// Adds \a style to the sheet of the title's icon (see WidgetMenuTitle::setItemStyle()).
    void setTitleIcon(QString style);

    /// Shows the information text of the title bar at \a rect, in pixels of the bar, and adds \a style to its sheet.
    void addGuide(QString style, QRect rect);

    /// Puts the list into the no-focus style: the selected row looks as the others do, titles do not scroll, and up and
    /// down turn pages of \a rowsPerPage rows. With 0 (or less) rows the looks change, but up and down go on as before.
    /// There is no way back.
    void setNoFocusStyle(int rowsPerPage);

    /// Puts \a item into the next free row, which takes the item's height; the list owns the item from now on. With a
    /// \a shortcutKey other than -1 (Qt::Key_0 to Qt::Key_9) that key selects the row, unless the item's m_noShortcut is
    /// set, which it is at first. 2 and 8 are never shortcuts while they are the keys for up and down.
    /// The item's finished() becomes the list's. Rejected with a log line if all rows are taken or \a item is null.
    void addListItem(WidgetListItem *item, int shortcutKey);
    void addListItem(WidgetListItem *item);

    /// Deletes the items, when control returns to the event loop, and starts filling from row 0 again. Their digit keys
    /// are dead at once.
    void removeAllItems();

    /// Hides or shows \a row. Up and down pass over hidden rows. A row that comes back has not the focus: where it had
    /// it before, the list has kept it. A row that does not exist is ignored with a log line.
    void hideItem(int row);
    void showItem(int row);

    /// WidgetListItem::refresh(), backup() and isModified() for all items; isModified() is true if one item's is.
    void refreshItems();
    void backup();
    bool isModified();

    /// Moves the focus to \a row, without a sound. A row without an item is rejected with a log line.
    void setFocusAtItem(int row);

    /// The row that up and down move to from \a row: the next one that is not hidden, around the ends, or \a row if all
    /// are hidden. In the no-focus style the row to be scrolled to; each call counts as one step there.
    int findPrevRow(int row);
    int findNextRow(int row);

Q_SIGNALS:
    void doSave();              ///< OK was released; the click follows
    void reachedBegin();        ///< up on the first row while m_stopAtEnds is set; the click follows
    void reachedEnd();          ///< down on the last row while m_stopAtEnds is set; the click follows
    void upKeyLongPressed();    ///< up is being held: its 11th repeat; the click came before
    void upKeyReleased();       ///< up was released after a long press; the focus has not moved
    void downKeyLongPressed();  ///< the same of down
    void downKeyReleased();     ///< the same of down

private Q_SLOTS:
    void setInitialFocus();
    void setLastFocus();

protected:
    virtual void showEvent(QShowEvent *event);
    virtual void hideEvent(QHideEvent *event);
    virtual void keyPressEvent(QKeyEvent *event);
    virtual void keyReleaseEvent(QKeyEvent *event);

private:
    void refreshUnseen(int row);
    void focusRow(int row);
    void moveTo(int row);
    void click();
    void removeItem(int row);
    void forgetShortcuts(WidgetListItem *item);

    void handleUpRelease(QKeyEvent *event);
    void handleDownRelease(QKeyEvent *event);
    void handleDigitRelease(QKeyEvent *event);
};

#endif

#ifndef WIDGETLISTVIEW_H
#define WIDGETLISTVIEW_H

#include "widget.h"

#include <QMap>
#include <QRect>
#include <QString>

class ListTitle;
class QAbstractItemModel;
class QFocusEvent;
class QHideEvent;
class QKeyEvent;
class QModelIndex;
class QShowEvent;
class RowView;
struct ModelRow;

/// A settings list over a model: it looks, sounds and works as a WidgetList of text rows does, but its rows are painted
/// from the application's model, and a row that is not seen costs nothing.
///
/// For a settings menu of some twenty rows take WidgetList: its rows are widgets, which an application can dress, watch
/// and fill with widgets of its own. For a telephone book, a station list or a log, of two hundred to a hundred thousand
/// rows, take this.
///
/// Each row of the model's first column is a row of the list. What is in it are the model's data in these roles; a row
/// may lack any of them. A QStringListModel works as it is: rows with a title.
///
/// | role                 | type        | what it is                                        | as if it were, if it is missing |
/// |----------------------|-------------|---------------------------------------------------|---------------------------------|
/// | TitleRole            | QString     | the title                                         | empty                           |
/// | ValueRole            | QString     | the value, where the application sets it          | the row has no value            |
/// | ValuesRole           | QStringList | the values that left and right step through       | empty: ValueRole counts         |
/// | ValueIndexRole       | int         | which of them is current; the list sets it        | 0                               |
/// | BadgeRole            | int         | the digit (0 to 9) that selects the row, shown in its corner | below 0: no badge    |
/// | MoreDepthRole        | bool        | the row leads deeper                              | false                           |
/// | ModifiableRole       | bool        | left and right change the value                   | true                            |
/// | DeletableRole        | bool        | the left arrow is shown also for a single value   | false                           |
/// | ValueOnRightSideRole | bool        | title and value share one line                    | false                           |
/// | TitleDimmedRole      | bool        | the title is pale, with and without the focus     | false                           |
/// | ValueDimmedRole      | bool        | so is the value                                   | false                           |
///
/// A row looks as a WidgetListItem does that was given the same, and has had the focus before: with ValuesRole as one
/// with addValue(), with ValueRole as one with setDisplayValue(). A current value outside the values is an empty text.
/// Texts are plain and are cut with an ellipsis where they are too wide; a title that is too long scrolls while its row
/// has the focus. Rows are painted and not widgets: style sheets do not reach them. The pictures are those that
/// WidgetListItem names. The flags of the model's items do not matter.
///
/// Left and right step through the values around the ends: the list sets ValueIndexRole in the model (setData()), emits
/// doChange() and clicks. Where the model refuses, and in a row that is not modifiable, it clicks only. In a row that has
/// fewer than two values left is handed on; right clicks and emits doEnter() if the row leads deeper, and is handed on.
/// All other keys are those of WidgetList, with the same clicks: up and down move the focus, around the ends or up to
/// them (m_stopAtEnds), past rows that are hidden; OK emits doSave(), or doEnter() (m_enterOnOK); escape emits
/// finished(); up and down that are held are reported by signals instead of moving the focus. Keys act when they are
/// released.
///
/// A digit key that is not up or down, nor used by the row in focus as left or right, selects the row with its badge, one
/// in view before all others, but none that is hidden: doEnter() is emitted if the row leads deeper, or else a log line
/// written; the click follows, and the focus stays. A digit without a row is handed on. To find that out, the list asks the
/// model for the badges of all its rows. With m_jumpToLetter a digit key jumps instead.
///
/// The model may change at any time, also in a slot of the list's signals and while a key is held. The row in focus
/// stays the same as long as its item exists, and where it can it stays in the same place of the screen. Where the item is
/// gone, or all of them are, as after a reset or with another model, the nearest row has the focus. Rows that a
/// model fetches (canFetchMore()) are fetched when the focus is within two views of the last row. A list that is
/// shown has them fetched in the next turn of the event loop, before it is painted.
///
/// The list takes the focus when it is shown, and itself has it; each show starts on row 0, and hiding the list forgets
/// the row. The row in focus is drawn darker, and scrolls, only while the list has the focus. The list is made for 220 by
/// 176 pixels: the title bar takes the upper 38, the rows the lower 138.
///
/// A slot may delete the list, and so may the model while it sets a value or fetches rows.
class WIDGET_EXPORT WidgetListView : public Widget
{
    Q_OBJECT

public:
    /// What a row has; the class says what each one is. Applications have the roles from Qt::UserRole to ValueRole - 1, and
    /// those above ValueDimmedRole, for themselves.
    enum Role {
        TitleRole = Qt::DisplayRole,
        ValueRole = Qt::UserRole + 900,
        ValuesRole,
        ValueIndexRole,
        BadgeRole,
        MoreDepthRole,
        ModifiableRole,
        DeletableRole,
        ValueOnRightSideRole,
        TitleDimmedRole,
        ValueDimmedRole
    };

    /// If set, up on the first row and down on the last stay there and emit reachedBegin() and reachedEnd(); otherwise
    /// they go on at the other end. Set by the application; false at first.
    bool m_stopAtEnds;

    /// If set, the OK key clicks and emits doEnter(); otherwise it emits doSave() and clicks. Set by the application;
    /// false at first.
    bool m_enterOnOK;

    /// If set, up and down that are held go on after upKeyLongPressed() and downKeyLongPressed(): with each repeat by a row,
    /// after ten of them by as many rows as have room in the list, up to the end and not around it, without a sound, until
    /// the key is released. Set by the application; false at first.
    bool m_scrollOnHold;

    /// If set, digit keys jump to titles while F1 to F4 are the directions (m_useFunctionKeys); see setKeyLetters(). Set
    /// by the application; false at first.
    bool m_jumpToLetter;

    /// If set, each row is its own mirror image, as texts written from right to left need it: the parts stand on the other
    /// side, the arrows point the other way, and the left and the right key change places with them. Set by the
    /// application before the list is shown; false at first.
    bool m_mirrored;

    /// A list without a model.
    WidgetListView(QWidget *parent, SoundManager *soundManager);

    /// Shows the rows of \a model, which the application owns and may delete at any time; null: no rows. It is forgotten
    /// which rows were hidden. The model that the list has already changes nothing.
    void setModel(QAbstractItemModel *model);
    QAbstractItemModel *model() const;

    /// Makes every row \a h pixels high, 46 at first; less than 1 counts as 1, and more than 138 as that.
    void setRowHeight(int h);

    /// Shows \a text in the title bar. With \a defaultFont, setDefaultFont() comes first.
    void setTitle(QString text, bool defaultFont);

    /// Gives the title 14 points in normal weight, in white.
    void setDefaultFont();

    /// Adds \a style to the sheet of the title's icon, unless it occurs there already as a piece of text.
    void setTitleIcon(QString style);

    /// Shows the information part of the title bar at \a rect, in pixels of the bar, and adds \a style to its sheet, unless
    /// it occurs there already.
    void addGuide(QString style, QRect rect);

    /// Puts the list into the no-focus style: the selected row is not highlighted, titles do not scroll, and up and down
    /// turn pages of \a rowsPerPage rows. With 0 (or less) rows the looks change, but up and down go on as before. There
    /// is no way back.
    void setNoFocusStyle(int rowsPerPage);

    /// Hides or shows \a row. The row in focus stays where it is on the screen, where it can. Hidden itself it keeps the
    /// focus unseen: up and down go on from it, other keys find no row, and if it is shown again it has the focus. When the
    /// model changes, the nearest row has it. A row that does not exist is ignored with a log line.
    void hideItem(int row);
    void showItem(int row);

    /// Moves the focus to \a row, without a sound. A row that does not exist is rejected with a log line.
    void setFocusAtItem(int row);

    /// The row that has the focus within the list, also while another widget has the keys; -1: none.
    int selectedRow() const;

    /// The row that up and down move to from \a row: the next one that is not hidden, around the ends, or \a row if all
    /// are hidden. In the no-focus style the row to be scrolled to; each call counts as one step there.
    int findPrevRow(int row);
    int findNextRow(int row);

    /// Has \a key (Qt::Key_0 to Qt::Key_9) jump to titles that begin with one of \a letters, such as "abc2", which may be
    /// the same text as of a key of a WidgetKeypad; with an empty text it no longer does. Case does not matter, nor do
    /// accents: "e" also finds titles with an acute e. The key moves the focus to the next such row below, around the
    /// end; pressed again, to one that begins with the next of the letters for which there is one. To find it, the
    /// list asks the model for one title after the other, at worst for all. A key that finds nothing is handed on. Another
    /// \a key is rejected with a log line.
    void setKeyLetters(int key, QString letters);

Q_SIGNALS:
    /// The user wants to go deeper: right key or digit key on a row that leads deeper, or OK key where m_enterOnOK is set.
    void doEnter(int row);

    /// The user has changed the value with the left or right key. The click follows.
    void doChange(int row);

    void doSave();              ///< OK was released; the click follows
    void reachedBegin();        ///< up on the first row while m_stopAtEnds is set; the click follows
    void reachedEnd();          ///< down on the last row while m_stopAtEnds is set; the click follows
    void upKeyLongPressed();    ///< up is being held: its 11th repeat; the click came before
    void upKeyReleased();       ///< up was released after a long press; the focus has not moved by it
    void downKeyLongPressed();  ///< the same of down
    void downKeyReleased();     ///< the same of down

private Q_SLOTS:
    void setInitialFocus();
    void setLastFocus();

protected:
    virtual void showEvent(QShowEvent *event);
    virtual void hideEvent(QHideEvent *event);
    virtual void focusInEvent(QFocusEvent *event);
    virtual void focusOutEvent(QFocusEvent *event);
    virtual void keyPressEvent(QKeyEvent *event);
    virtual void keyReleaseEvent(QKeyEvent *event);

private:
    // Of up or down.
    struct HeldKey
    {
        bool longPressed;
        int repeatCount;
        int scrollCount;     // since it was long pressed
        bool pageContinued;  // the last page was turned by this key
    };

    ListTitle *m_title;
    RowView *m_view;
    int m_noFocusRows;
    HeldKey m_upKey;
    HeldKey m_downKey;
    QMap<int, QString> m_keyLetters;
    int m_letterKey;  // that jumped last; 0 if there were other keys since

    int rowFrom(int row, int direction);
    void scrollOn(int direction);
    void releaseDirection(QKeyEvent *event, int direction);
    bool releaseOnRow(QKeyEvent *event);
    bool isPrevKey(int key);
    bool isNextKey(int key);
    void stepValue(const QModelIndex &index, const ModelRow &row, int direction);
    void releaseDigit(QKeyEvent *event);
    int rowWithBadge(int digit) const;
    int rowWithLetter(int key, bool pressedAgain) const;
    void click();
};

#endif

#ifndef WIDGETLISTITEM_H
#define WIDGETLISTITEM_H

#include "widget.h"

#include <QFont>
#include <QList>
#include <QString>

class FittedText;
class QKeyEvent;
class QLabel;
class QShowEvent;
class QStackedWidget;
class RowTable;
class WidgetMarqueeLable;
struct RowLook;

/// One row of a settings list: a title, and a value that the user changes with the left and right keys; or a row that
/// leads deeper.
///
/// A row has one of three looks, made for a width of 220 and a height of 46 pixels:
/// - a title alone, in the middle of the height;
/// - a title on the upper line and the value on the lower;
/// - title and value on one line, the value at the right end (setValueOnRightSide()).
/// Arrows at the right end tell that there are more values or a deeper level, a badge at the left end tells the digit
/// key of the row. A row that has the focus is drawn darker, with other arrows, and scrolls a title that is too long.
///
/// Title and values are texts or widgets, but not both in one row: a mix is reported in the log and goes on. Texts are
/// shown as they are, never as rich text, and cut with an ellipsis where they are too wide.
///
/// The row lays itself out whenever it is shown, and on refresh(). Most setters only store and show at the next layout.
/// An index outside the values is kept and shows an empty text.
///
/// Pictures the application must have in its resources, in :/resource/images_l2/: arrow_prev_nor.png,
/// arrow_prev_focus.png, arrow_next_nor.png, arrow_next_focus.png (6 by 10 pixels), number_bg.png and number_b_bg.png
/// (16 by 16 pixels).
class WIDGET_EXPORT WidgetListItem : public Widget
{
    Q_OBJECT

private:
    enum TitleType { TitleNone, TitleText, TitleWidget };
    enum ValueType { ValueNone, ValueDisplay, ValueText, ValueWidget };

    QString m_title;
    WidgetMarqueeLable *m_titleLabel;
    QStackedWidget *m_titleStack;
    bool m_showSerialNum;
    QString m_serialNum;
    QLabel *m_serialNumLabel;
    bool m_moreDepth;
    QLabel *m_nextArrow;
    QList<QString> m_values;
    QLabel *m_prevArrow;
    bool m_valueOnRightSide;
    QLabel *m_valueLabel;
    QStackedWidget *m_valueStack;
    int m_displayIndex;
    bool m_modifiable;
    int m_selectableFrom;
    int m_selectableTo;
    int m_titleType;
    int m_valueType;
    QFont m_titleFont;
    QFont m_valueFont;
    QString m_backupValue;
    int m_backupIndex;

public:
    /// If set, isModified() always answers false. Set by the application; false at first.
    bool m_ignoreModified;

    /// If set, the OK key clicks and emits doEnter(); otherwise the key is handed on. Set by the application; false at
    /// first.
    bool m_enterOnOK;

    /// If set, the row has no digit key in its list and shows no badge. Set by the application; true at first.
    bool m_noShortcut;

private:
    bool m_deletable;
    bool m_clearAfterRefresh;

public:
    /// If set, a title too long for its place scrolls while the row has the focus, by one character in 200 ms. Written by
    /// WidgetList when the row is added: true in a list with focus, false in one without. Switching it off stops a title
    /// that scrolls at its next step.
    bool m_marquee;

    /// An empty row in \a parent, laid out when it is shown.
    WidgetListItem(QWidget *parent, SoundManager *soundManager);
    virtual ~WidgetListItem();

    /// Makes \a title the title, seen at the next updateTitle() or refresh(). With \a defaultFont, setDefaultFont() comes
    /// first. In a row that is laid out on one line the second layout after a change is the right one, because the first
    /// measures the title with the font of before: call setTitle(text, true) after setValueOnRightSide(true).
    void setTitle(QString title, bool defaultFont);

    /// Adds \a title to the title widgets, of which the first is seen. The row owns it from now on. Null is ignored.
    void setTitle(QWidget *title);

    /// Adds a value at the end. The row owns a widget from now on; a null widget is ignored.
    void addValue(QString value);
    void addValue(QWidget *value);

    /// Puts \a value before the widget value \a index (0 to their number). The current index stays as it is. Rejected with
    /// a log line in a row without widget values, and for an \a index outside the range.
    void insertValue(int index, QWidget *value);

    /// Takes the widget value \a index out; the widget itself is not deleted. Rejected as insertValue() is.
    void removeValue(int index);

    /// Removes all text values. Widget values, the kind of the row and the current index stay.
    void removeAllValue();

    /// Replaces the text value \a index, seen at the next updateValue() or refresh(). An index past the last value is
    /// ignored, a negative one is ignored with a log line. With \a defaultFont, setDefaultFont() comes before it.
    void replaceValue(int index, QString value, bool defaultFont);

    /// Turns the row into one of two lines whose only value the application sets: \a value becomes the text value
    /// \a index, which becomes current and is shown at once; where there is no such value it is added at the end. With
    /// \a clearAfterRefresh the row forgets the text at its next refresh(), but goes on showing it until the value is
    /// updated after that. Ignored in a row with widget values.
    void setDisplayValue(int index, QString value, bool clearAfterRefresh);

    /// Makes \a index current and shows it: in a row of text values the text, in every other row the widget. Nothing is
    /// emitted and the index is not checked.
    void setDisplayValueIndex(int index);

    /// Makes the first text value current that is \a value or, with \a byPrefix, begins with it; value 0 if there is none.
    /// Case matters. Nothing is emitted. Ignored in a row without text values to step through.
    void selectByValue(QString value, bool byPrefix);

    /// The text value as it is displayed, that is with an ellipsis where it is too wide; empty for widget values.
    QString getDisplayValue() const;

    /// Lets left and right step through the values \a from to \a to only, from the next key on; -1 and -1 lift the limit.
    /// The limits are tested on one side each (left below \a from, right above \a to). A range also moves rows with one
    /// value or none, and rows that lead deeper.
    void setSelectableRange(int from, int to);

    /// Shows the badge, with \a number in it, or hides it; either at the next refresh(). Hiding keeps the number.
    void setSerialNum(bool show, int number);

    /// Whether the row leads deeper: it shows the right arrow, and the right key and its digit key emit doEnter().
    void setMoreDepth(bool moreDepth);

    /// Whether title and value share one line. Seen at the next refresh().
    void setValueOnRightSide(bool valueOnRightSide);

    /// Whether the left arrow is shown also for a single value. Seen at the next refresh().
    void setDeletable(bool deletable);

    /// Whether left and right change the value. If not, they click and do nothing, and no arrow is shown. Seen at once.
    void setModifiable(bool modifiable);

    /// Notes the value as displayed, for isModified().
    void backup();

    /// Whether the value differs from what backup() noted: of texts the displayed text, of widgets the index (0 if
    /// backup() was never called).
    bool isModified();

    /// What the digit key of the row does: emits doEnter() if the row leads deeper, writes a log line otherwise.
    void selectByShortcut();

    /// Lays out and dresses the whole row for its data, as without the focus.
    void refresh();

    /// Shows the title or the current text value, cut to the width of its label.
    void updateTitle();
    void updateValue();

    /// Shows, hides and places the two arrows, dressed as without the focus. Returns how many are to be seen: 0, 1 or 2.
    int updateArrows();

    /// Gives title, badge and value their default fonts: a bold title of 12 points above a value and of 15 points
    /// in every other row, a bold badge of 11 points, and a value of 14 points in normal weight.
    void setDefaultFont();

Q_SIGNALS:
    /// The user wants to go deeper: right key or digit key on a row that leads deeper, or OK key where m_enterOnOK is
    /// set. A slot may delete the row.
    void doEnter();

    /// The user has changed the value with the left or right key. The click follows. A slot may delete the row.
    void doChange();

protected:
    virtual void showEvent(QShowEvent *event);
    virtual bool event(QEvent *event);
    virtual bool eventFilter(QObject *watched, QEvent *event);
    virtual void keyReleaseEvent(QKeyEvent *event);

private:
    friend class RowTable;
    friend class WidgetList;

    FittedText *m_fittedTitle;
    FittedText *m_fittedValue;
    int m_marqueeTimer;      // 0: the title does not scroll
    bool m_refreshedUnseen;  // by its list, which shows the row when it comes into view
    RowTable *m_table;       // that holds the row; 0: none
    int m_row;               // of m_table that it was put into
    bool m_wasShown;         // since it was put there

    void setTitleType(TitleType type);
    bool hasValue() const;
    RowLook look() const;
    QString currentText() const;
    void showCurrentValue();

    void showTitleOfKind();
    void layOutValue();
    void layOutBadge();
    void layOutTitle();
    bool placeArrow(QLabel *arrow, bool wanted, const QString &sheet, const QRect &rect);

    void dressFocused();
    void dressUnfocused();
    void dress(bool focused);
    bool titleIsCut();
    void startMarquee();
    bool stopMarquee();

    void handleLeftKey(QKeyEvent *event);
    void handleRightKey(QKeyEvent *event);
    bool stepInRange(int direction);
    bool stepThroughValues(int direction);
    void reportChange();
};

#endif

#ifndef WIDGETKEYPAD_H
#define WIDGETKEYPAD_H

#include "widget.h"

#include <QMap>
#include <QString>
#include <QTimer>

class QKeyEvent;
class QLabel;
class QLineEdit;
class QShowEvent;

/// A telephone keypad for entering text with the digit keys.
///
///     +-----------------------+
///     |               Text_   |   the text line
///     | F1  | F2  | F3  | F4  |   the bar: two cells with texts, space, delete
///     |   1   | abc2  | def3  |
///     | ghi4  | jkl5  | mno6  |   the grid: what each digit key types
///     | pqrs7 | tuv8  | wxyz9 |
///     |   *   |   0   |   #   |
///     +-----------------------+
///
/// A key whose text has one character types it at once and is lit for 100 ms. A key with more goes through them, one
/// with each press within 1200 ms of the last, and starts over after the last one; it stays lit until the character
/// is final. A character becomes final (inputLetter()) after 1200 ms, by a digit key with another text or by F3.
/// Otherwise F3 types a space. F4 deletes the last character; held for six repeats it clears all (repeats of several
/// short presses add up). F1 and F2 mean what the application makes of them, as do all keys that the keypad does not
/// know: it hears of them through keyPressed(), where it typically changes the page for * and #. The menu key ends
/// with ready(), the escape key with cancel(). Keys act when they are released; only keys that the keypad does not
/// know are handed on to its parent.
///
/// Handled keys click with 901. A digit key that shows just its own digit on the page in use says that digit instead
/// (920 to 929). F1, F2, a digit key without a text and a key that finds the text full are silent.
///
/// The keypad knows no alphabet. The application fills up to six pages with key texts, tells which digit key belongs
/// to which place of the grid, and calls setLineTextHeight() and setInitialLineText() before the first show. Each
/// show lays everything out for the size that the keypad has then and starts on the lowest enabled page with the text
/// that stands in the line. A keypad that is resized while it is seen wants setupUi().
///
/// The keypad takes keys while it has the focus, which it never takes by itself: call setFocus() with each show().
///
/// Good to know:
/// - Key texts are counted in QChars: a character of two of them (an emoji, for instance) or a letter with a
///   combining mark counts as several characters, each typed and deleted on its own. Use characters of a single
///   QChar.
/// - Keys with the same text act as one: they go on with each other's characters.
/// - F4 does not end a character's 1200 ms. Its key then goes on with the next character in place of the one before.
/// - A flash of 100 ms is never called off: it also ends the light of a key that was pressed in between, and after F1
///   and F2 within 100 ms only the cell of F2 goes back to rest.
/// - Each show appends some declarations to the sheet of the text line. An application that shows a keypad again and
///   again should build a new one for each entry, or give the line, which is the keypad's only QLineEdit, its first
///   sheet again before each show: `findChild<QLineEdit *>()->setStyleSheet("background-color: #ffffff;")`.
/// - What was entered is overwritten in memory when it changes, when the keypad goes and when it gets another initial
///   text, unless somebody else has the same QString: a slot of ready(), for instance, that keeps it. Three things are
///   out of reach: a copy that the toolkit makes of a text that is seen, not masked, when it dresses the line at a show
///   or measures it for another font or style; what is done to the QLineEdit other than through this class, with its
///   history for undo(); and what the system keeps of the process in swap space or a core dump.
/// - While hideText() is on and the line is masked, nothing that the keypad plays, logs, shows or reads out tells which
///   characters there are: only how many, and which of the keys F1 to F4 was used. ready(), keyPressed(), inputLetter()
///   and the line's text() do tell them. So do the key codes in the log of a WidgetKeypadBottom that gets the keys too.
/// - A page, row, column or item outside its range is rejected with a log line, unless the function says otherwise.
/// - A slot may delete the keypad.
class WIDGET_EXPORT WidgetKeypad : public Widget
{
    Q_OBJECT

public:
    /// The cells of the bar.
    enum Item {
        ItemButton1 = 0,  ///< F1; carries a text
        ItemButton2 = 1,  ///< F2; carries a text
        ItemSpace = 2,    ///< F3, space; its sheet only
        ItemDelete = 3    ///< F4, delete; its sheet only
    };

    enum State {
        StateNormal = 0,   ///< at rest
        StateSelected = 1  ///< for 100 ms after its key
    };

private:
    enum { RowCount = 4, ColumnCount = 3, PageCount = 6 };

    QLineEdit *m_lineEdit;
    int m_lineTextHeight;
    QString m_keyText[RowCount][ColumnCount][PageCount];
    QLabel *m_keyLabel[RowCount][ColumnCount];
    QMap<int, int> m_keyMap;  // from key code to place: row * ColumnCount + column
    int m_selectedRow;        // of the key lit last; -1: none yet
    int m_selectedColumn;
    QString m_text;
    int m_page;  // PageCount while no page is enabled
    bool m_pageEnabled[PageCount];
    bool m_hideText;
    bool m_echoModeApplied;
    bool m_keepInitialText;
    bool m_textTouched;
    bool m_selectInitialKey;
    QString m_spaceString;
    bool m_maskInitialText;
    int m_deleteRepeatCount;
    bool m_clearedAll;
    QTimer m_multiTapTimer;
    QString m_lastKeyText;
    int m_tapIndex;  // of the character in m_lastKeyText that the next press types
    int m_multiTapInterval;
    QLabel *m_itemBar;
    QLabel *m_itemLabel[4];
    QMap<State, QString> m_itemStyle[4];
    Item m_currentItem;

public:
    WidgetKeypad(QWidget *parent, SoundManager *soundManager);

    /// Makes \a text what the key at \a row (0 to 3) and \a column (0 to 2) types on \a page (0 to 5). The key types
    /// it from now on, but shows it from the next show, setPage() or changePage() on. A key without a text types
    /// nothing.
    void setKeyText(int page, int row, int column, QString text);

    /// Lets \a key, normally Qt::Key_0 to Qt::Key_9, stand at \a row and \a column. Several keys may share a place. A
    /// digit key without a place of its own takes the first one for good when it is used.
    void setKeyMap(int key, int row, int column);

    /// Lets \a page take part in paging, or not; all do at first. The page in use stays. With no page enabled the
    /// next show leaves all keys empty.
    void enablePage(int page, bool enable);

    /// Shows \a page. A page that is not enabled is ignored.
    void setPage(int page);

    /// Shows the next enabled page, or the previous one, around the ends. Does nothing if no page is enabled. No key
    /// is bound to it. A character that can still change stays so, but its key is no longer lit.
    void changePage(bool next);

    /// Makes the lowest enabled page the one in use, but does not show it: the next show does both.
    void setInitialPage();

    /// Sets the height of the text line in pixels, from the next show on; 0 at first. The bar stands at 38 pixels
    /// from the top in any case, and the grid begins 23 pixels below the line.
    void setLineTextHeight(int height);

    /// Limits the text to \a length characters; 48 at first. A longer text in the line is cut at once, the text that
    /// ready() reports at the next show. A space string of more than one character may go beyond the limit, as may
    /// the key pressed last, by one; then only deleting helps. With 0 or less nothing can be typed.
    void setKeyMaxLength(int length);

    /// Shows \a text in an empty text line.
    void setPlaceholderText(QString text);

    /// Makes \a text what F3 types; one blank at first. An empty \a text types nothing.
    void setSpaceString(QString text);

    /// Starts a new entry with \a text in the line, plainly until the next show.
    ///
    /// With \a maskText it is masked from the next show on, as in a password line. Without \a keepText the first
    /// digit key, F3 or F4 after a show replaces the text; with it, it edits the text. (A digit key that types
    /// nothing also empties the text, but leaves the line as it is.) With \a keepText and \a selectKey, each show
    /// lights the key whose text is just the text in the line, and says its digit key. Where several keys on enabled
    /// pages match, all sound and the last stays lit; a key of several characters stays lit until the next key.
    void setInitialLineText(QString text, bool maskText, bool keepText, bool selectKey);

    /// Turns password entry on or off, off at first: the text is masked, no key of the grid is lit, and digit keys
    /// only click. The line changes its look with the next key that changes the text, and shows its text plainly from
    /// each show (and setupUi()) up to there: call setInitialLineText() with maskText as well where there is
    /// something to hide.
    void hideText(bool hide);

    /// Places the keypad in its parent. It is made for a width of 220 pixels. Spare pixels of the grid go to its
    /// upper rows and its left columns.
    void setBgGeometry(int x, int y, int width, int height);

    /// Keeps \a style as the sheet of \a item in \a state; at first all are empty. Seen when the cell next changes to
    /// that state. A value that is no item or no state is rejected with a log line.
    void setItemStyle(Item item, State state, QString style);

    /// Sets the text of ItemButton1 or ItemButton2, seen at once and never read as rich text. Other items are
    /// ignored.
    void setItemText(Item item, QString text);

    /// Shows or hides a cell; the others stay where they are. Values that are no item are ignored.
    void setItemVisible(Item item, bool visible);

    /// Gives ItemButton1 and ItemButton2 their first font again: 14 points, bold.
    void setItemFont();

    /// Lays out and dresses everything, as each show does, but goes on with the text entered so far.
    void setupUi();

Q_SIGNALS:
    /// The escape key: the user gives up. The click came before.
    void cancel();

    /// The menu key: the user is done with \a text. The click came before.
    void ready(QString text);

    /// \a key was handled, or is none that the keypad knows. Not emitted for the menu key, the escape key and a digit
    /// key that finds the text full.
    void keyPressed(int key);

    /// The character \a letter, entered with a key of several characters, is final. If F4 has deleted it in between,
    /// it is the last character of what is left; nothing is emitted for an empty text.
    void inputLetter(QChar letter);

private Q_SLOTS:
    void clearSelection();
    void selectNextChar();
    void clearItemSelection();

protected:
    virtual void showEvent(QShowEvent *event);
    virtual void keyPressEvent(QKeyEvent *event);
    virtual void keyReleaseEvent(QKeyEvent *event);

private:
    QString keyText(int row, int column) const;
    void relabelKey(int row, int column);
    void relabelKeys();
    void layOutKeys();
    void selectInitialKey();
    int digitKeySound(int row, int column) const;

    void handleDigitKey(int key);
    void handleSpaceKey();
    void handleDeleteKey();
    void applyFirstKeyRule();
    bool typeCharacter(const QString &text);
    bool finishCharacter();
    void dropCycle();
    void handleSelection(int row, int column);
    void handleItemSelection(Item item);
    void updateLineText();
};

#endif

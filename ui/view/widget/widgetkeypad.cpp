#include "widgetkeypad.h"

#include "keypadcells.h"
#include "keypadline.h"
#include "platform/logging.h"
#include "widgetdetails.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>

namespace {

const char SourcePath[] = "ui/view/widget/widgetkeypad.cpp";

const char KeySheet[] =
    "background-color: #474242; color: #f7ce86; border-radius: 0px; border: 1px solid  rgba(60,55,56,255);";
const char SideKeySheet[] =
    "background-color: #474242; color: #988e8b; border-radius: 0px; border: 1px solid  rgba(60,55,56,255);";
const char LitKeySheet[] = "background-color: #f7ce86; color: #1f1618; border-style: none;";
const char LitSideKeySheet[] = "background-color: #988e8b; color: #1f1618; border-style: none;";
const char LineSheet[] = "background-color: #ffffff;";
const char LineSheetSuffix[] = "color: #3c3738; border-radius: 0px; padding-right: 15px;";
const char ItemBarSheet[] = "background-color: #6e6464;";

const int DigitSound = 872;  // plus the code of the digit key

const int MultiTapInterval = 1200;  // milliseconds
const int FlashTime = 100;
const int ClearAllRepeats = 6;

const int DefaultMaxLength = 48;
const int TextPointSize = 16;
const QRect ItemBarRect(0, 38, 220, 23);

// The places of the star and hash keys.
bool isSideKey(int row, int column)
{
    return row == 3 && column != 1;
}

const char *restSheet(int row, int column)
{
    return isSideKey(row, column) ? SideKeySheet : KeySheet;
}

const char *litSheet(int row, int column)
{
    return isSideKey(row, column) ? LitSideKeySheet : LitKeySheet;
}

// The one that the constructor makes.
KeypadLine *keypadLine(QLineEdit *line)
{
    return static_cast<KeypadLine *>(line);
}

bool rejects(const char *function, int index, int count)
{
    return rejectsIndex(SourcePath, function, index, count);
}

}

WidgetKeypad::WidgetKeypad(QWidget *parent, SoundManager *soundManager)
    : Widget(parent, soundManager),
      m_lineTextHeight(0),
      m_selectedRow(-1),
      m_selectedColumn(-1),
      m_page(0),
      m_hideText(false),
      m_echoModeApplied(false),
      m_keepInitialText(false),
      m_textTouched(false),
      m_selectInitialKey(false),
      m_maskInitialText(false),
      m_deleteRepeatCount(0),
      m_clearedAll(false),
      m_tapIndex(0),
      m_multiTapInterval(MultiTapInterval),
      m_currentItem(ItemButton1)
{
    const QFont textFont = defaultFont(TextPointSize, true);

    m_lineEdit = new KeypadLine(this);
    m_lineEdit->setFont(textFont);
    m_lineEdit->setFocusPolicy(Qt::NoFocus);
    m_lineEdit->setFrame(false);
    m_lineEdit->setMaxLength(DefaultMaxLength);
    m_lineEdit->setStyleSheet(QLatin1String(LineSheet));

    for (int row = 0; row < RowCount; ++row) {
        for (int column = 0; column < ColumnCount; ++column) {
            QLabel *label = new QLabel(this);
            label->setTextFormat(Qt::PlainText);
            label->setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
            label->setFont(textFont);
            m_keyLabel[row][column] = label;
        }
    }

    for (int page = 0; page < PageCount; ++page)
        m_pageEnabled[page] = true;

    setSpaceString(QLatin1String(" "));

    m_multiTapTimer.setSingleShot(true);
    m_multiTapTimer.setInterval(m_multiTapInterval);
    connect(&m_multiTapTimer, SIGNAL(timeout()), this, SLOT(selectNextChar()));

    m_itemBar = new QLabel(this);
    m_itemBar->setGeometry(ItemBarRect);
    m_itemBar->setStyleSheet(QLatin1String(ItemBarSheet));
    createKeypadCells(m_itemLabel, m_itemBar);
}

void WidgetKeypad::setKeyText(int page, int row, int column, QString text)
{
    if (rejects("setKeyText", page, PageCount) || rejects("setKeyText", row, RowCount)
        || rejects("setKeyText", column, ColumnCount))
        return;
    m_keyText[row][column][page] = text;
}

void WidgetKeypad::setKeyMap(int key, int row, int column)
{
    if (rejects("setKeyMap", row, RowCount) || rejects("setKeyMap", column, ColumnCount))
        return;
    m_keyMap[key] = row * ColumnCount + column;
}

void WidgetKeypad::enablePage(int page, bool enable)
{
    if (!rejects("enablePage", page, PageCount))
        m_pageEnabled[page] = enable;
}

void WidgetKeypad::setPage(int page)
{
    if (rejects("setPage", page, PageCount) || !m_pageEnabled[page])
        return;
    m_page = page;
    relabelKeys();
}

void WidgetKeypad::changePage(bool next)
{
    int page = m_page;
    for (int step = 0; step < PageCount; ++step) {
        page += next ? 1 : -1;
        if (page < 0)
            page = PageCount - 1;
        else if (page >= PageCount)
            page = 0;
        if (m_pageEnabled[page]) {
            setPage(page);
            return;
        }
    }
}

void WidgetKeypad::setInitialPage()
{
    m_page = 0;
    while (m_page < PageCount && !m_pageEnabled[m_page])
        ++m_page;
}

void WidgetKeypad::setLineTextHeight(int height)
{
    m_lineTextHeight = qBound(-QWIDGETSIZE_MAX, height, QWIDGETSIZE_MAX);
}

void WidgetKeypad::setKeyMaxLength(int length)
{
    keypadLine(m_lineEdit)->limitText(length);
    keypadLine(m_lineEdit)->letGo(m_text);
}

void WidgetKeypad::setPlaceholderText(QString text)
{
    m_lineEdit->setPlaceholderText(text);
}

void WidgetKeypad::setSpaceString(QString text)
{
    m_spaceString = text;
}

void WidgetKeypad::setInitialLineText(QString text, bool maskText, bool keepText, bool selectKey)
{
    m_lineEdit->setFont(defaultFont(TextPointSize, true));
    // Before the line shows its text plainly: the old one may be a password.
    keypadLine(m_lineEdit)->clearText(m_maskInitialText);
    m_text.clear();
    m_echoModeApplied = false;
    m_lineEdit->setEchoMode(QLineEdit::Normal);
    keypadLine(m_lineEdit)->showText(text, maskText);
    keypadLine(m_lineEdit)->letGo(m_text);
    m_keepInitialText = keepText;
    m_selectInitialKey = selectKey;
    m_maskInitialText = maskText;
}

void WidgetKeypad::hideText(bool hide)
{
    m_hideText = hide;
    if (m_echoModeApplied) {
        m_echoModeApplied = false;
        clearSelection();
    }
}

void WidgetKeypad::setBgGeometry(int x, int y, int width, int height)
{
    placeWidget(this, x, y, width, height);
}

void WidgetKeypad::setItemStyle(Item item, State state, QString style)
{
    keepKeypadCellSheet(m_itemStyle, item, state, style, SourcePath);
}

void WidgetKeypad::setItemText(Item item, QString text)
{
    setKeypadCellText(m_itemLabel, item, text);
}

void WidgetKeypad::setItemVisible(Item item, bool visible)
{
    setKeypadCellVisible(m_itemLabel, item, visible);
}

void WidgetKeypad::setItemFont()
{
    setKeypadCellFont(m_itemLabel);
}

void WidgetKeypad::setupUi()
{
    // First of all: of a text that is not masked the line makes copies while it is dressed.
    m_lineEdit->setEchoMode(m_maskInitialText ? QLineEdit::Password : QLineEdit::Normal);
    keypadLine(m_lineEdit)->letGo(m_text);
    m_echoModeApplied = m_maskInitialText;
    m_lineEdit->setGeometry(0, 0, width(), m_lineTextHeight);
    m_lineEdit->setStyleSheet(m_lineEdit->styleSheet() + QLatin1String(LineSheetSuffix));
    m_lineEdit->setAlignment(Qt::AlignRight | Qt::AlignVCenter);

    setInitialPage();
    layOutKeys();
    if (m_keepInitialText && m_selectInitialKey)
        selectInitialKey();

    for (int item = 0; item < KeypadCellCount; ++item)
        dressKeypadCell(m_itemLabel, m_itemStyle, item, StateNormal);
}

void WidgetKeypad::layOutKeys()
{
    const int top = m_lineTextHeight + ItemBarRect.height();
    const int gridHeight = height() - top;
    int y = top;
    for (int row = 0; row < RowCount; ++row) {
        const int keyHeight = gridHeight / RowCount + (row < gridHeight % RowCount ? 1 : 0);
        int x = 0;
        for (int column = 0; column < ColumnCount; ++column) {
            const int keyWidth = width() / ColumnCount + (column < width() % ColumnCount ? 1 : 0);
            m_keyLabel[row][column]->setGeometry(x, y, keyWidth, keyHeight);
            relabelKey(row, column);
            x += keyWidth;
        }
        y += keyHeight;
    }
}

void WidgetKeypad::selectInitialKey()
{
    const QString text = m_lineEdit->text();
    for (int page = 0; page < PageCount; ++page) {
        if (!m_pageEnabled[page])
            continue;
        for (int row = 0; row < RowCount; ++row) {
            for (int column = 0; column < ColumnCount; ++column) {
                if (m_keyText[row][column][page] != text)
                    continue;
                handleSelection(row, column);
                playSound(m_hideText ? ClickSound : digitKeySound(row, column));
            }
        }
    }
}

int WidgetKeypad::digitKeySound(int row, int column) const
{
    // The first of the keys at this place; key 0 stands for none.
    return DigitSound + m_keyMap.key(row * ColumnCount + column, 0);
}

QString WidgetKeypad::keyText(int row, int column) const
{
    return m_page < PageCount ? m_keyText[row][column][m_page] : QString();
}

void WidgetKeypad::relabelKey(int row, int column)
{
    m_keyLabel[row][column]->setText(keyText(row, column));
    applyStyleSheet(m_keyLabel[row][column], restSheet(row, column));
}

void WidgetKeypad::relabelKeys()
{
    for (int row = 0; row < RowCount; ++row) {
        for (int column = 0; column < ColumnCount; ++column)
            relabelKey(row, column);
    }
}

void WidgetKeypad::showEvent(QShowEvent *)
{
    setupUi();
    m_text = m_lineEdit->text();
    m_lastKeyText.clear();
    m_deleteRepeatCount = 0;
    m_clearedAll = false;
    m_textTouched = false;
}

void WidgetKeypad::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_F4)
        return;
    event->accept();
    // A fresh press leaves the count alone: repeats of several short presses add up.
    if (!event->isAutoRepeat()) {
        m_clearedAll = false;
        return;
    }
    if (m_clearedAll || ++m_deleteRepeatCount < ClearAllRepeats)
        return;

    m_clearedAll = true;
    playSound(ClickSound);
    m_deleteRepeatCount = 0;
    Logging::log(Logging::LogTrace, "[%s, %d] clear all!!", "keyPressEvent", 157);
    m_text.clear();
    keypadLine(m_lineEdit)->clearText(false);
    keypadLine(m_lineEdit)->letGo(m_text);
    clearSelection();
}

void WidgetKeypad::keyReleaseEvent(QKeyEvent *event)
{
    Logging::log(Logging::LogTrace, "WidgetKeypad keyReleaseEvent");

    // A slot may delete the keypad: nothing may come after keyPressed(), ready() and cancel().
    const int key = event->key();
    switch (key) {
    case Qt::Key_F1:
        handleItemSelection(ItemButton1);
        emit keyPressed(key);
        break;
    case Qt::Key_F2:
        handleItemSelection(ItemButton2);
        emit keyPressed(key);
        break;
    case Qt::Key_F3:
        handleSpaceKey();
        break;
    case Qt::Key_F4:
        handleDeleteKey();
        break;
    case Qt::Key_Menu: {
        playSound(ClickSound);
        QString text = m_text;
        emit ready(text);
        wipe(&text);
        break;
    }
    case Qt::Key_Escape:
        playSound(ClickSound);
        emit cancel();
        break;
    default:
        if (key >= Qt::Key_0 && key <= Qt::Key_9) {
            handleDigitKey(key);
        } else {
            Widget::keyReleaseEvent(event);
            emit keyPressed(key);
        }
        break;
    }
}

void WidgetKeypad::handleSpaceKey()
{
    handleItemSelection(ItemSpace);
    applyFirstKeyRule();

    if (m_text.length() >= m_lineEdit->maxLength()) {
        dropCycle();
        emit keyPressed(Qt::Key_F3);
        return;
    }
    if (m_multiTapTimer.isActive()) {
        m_multiTapTimer.stop();
        clearSelection();
        if (!finishCharacter())
            return;
    } else {
        m_text.append(m_spaceString);
        updateLineText();
    }
    playSound(ClickSound);
    emit keyPressed(Qt::Key_F3);
}

void WidgetKeypad::handleDeleteKey()
{
    applyFirstKeyRule();
    if (!m_clearedAll) {
        handleItemSelection(ItemDelete);
        // A running cycle goes on: its key now replaces the character before.
        m_text.chop(1);
        updateLineText();
        playSound(ClickSound);
    }
    emit keyPressed(Qt::Key_F4);
}

void WidgetKeypad::handleDigitKey(int key)
{
    applyFirstKeyRule();
    const int place = m_keyMap[key];
    const int row = place / ColumnCount;
    const int column = place % ColumnCount;
    const QString text = keyText(row, column);
    if (text.isEmpty()) {
        emit keyPressed(key);
        return;
    }

    handleSelection(row, column);
    if (m_text.length() > m_lineEdit->maxLength()) {
        dropCycle();
        emit keyPressed(key);
        return;
    }
    if (m_text.length() == m_lineEdit->maxLength() && text != m_lastKeyText) {
        dropCycle();
        m_lastKeyText.clear();
        return;
    }
    if (!typeCharacter(text))
        return;
    updateLineText();

    // What is heard is what is seen: the label, which may lag behind the key text.
    const bool showsItsDigit = m_keyLabel[row][column]->text().toInt() == key - Qt::Key_0;
    playSound(showsItsDigit && !m_hideText ? DigitSound + key : ClickSound);
    emit keyPressed(key);
}

// The first key that changes the text replaces the initial one.
void WidgetKeypad::applyFirstKeyRule()
{
    if (m_textTouched || m_keepInitialText)
        return;
    m_text.clear();
    m_textTouched = true;
}

// Returns false if the keypad is gone: a slot may have deleted it.
bool WidgetKeypad::typeCharacter(const QString &text)
{
    if (text != m_lastKeyText) {
        if (m_multiTapTimer.isActive()) {
            m_multiTapTimer.stop();
            if (!finishCharacter())
                return false;
        }
        m_tapIndex = 0;
    }
    m_lastKeyText = text;

    if (m_multiTapTimer.isActive()) {
        m_multiTapTimer.start();
        // Not chop() and append(): a text that has to move leaves a copy behind.
        if (m_text.isEmpty())
            m_text.append(text.at(m_tapIndex));
        else
            m_text[m_text.length() - 1] = text.at(m_tapIndex);
        m_tapIndex = (m_tapIndex + 1) % text.length();
    } else {
        m_text.append(text.at(m_tapIndex));
        if (text.length() > 1) {
            m_multiTapTimer.start();
            ++m_tapIndex;
        }
    }
    return true;
}

// Returns false if the keypad is gone: a slot may have deleted it.
bool WidgetKeypad::finishCharacter()
{
    if (!m_text.isEmpty()) {
        const QPointer<WidgetKeypad> keypad(this);
        emit inputLetter(m_text.at(m_text.length() - 1));
        if (!keypad)
            return false;
    }
    m_tapIndex = 0;
    return true;
}

// Ends a cycle without a word, as a key does that finds the text full.
void WidgetKeypad::dropCycle()
{
    clearSelection();
    clearItemSelection();
    if (m_multiTapTimer.isActive()) {
        m_multiTapTimer.stop();
        m_tapIndex = 0;
    }
}

void WidgetKeypad::selectNextChar()
{
    clearSelection();
    m_lastKeyText.clear();
    finishCharacter();
}

void WidgetKeypad::handleSelection(int row, int column)
{
    // A key that is lit and stays so is not dressed twice.
    if (m_hideText || row != m_selectedRow || column != m_selectedColumn)
        clearSelection();
    if (m_hideText)
        return;

    applyStyleSheet(m_keyLabel[row][column], litSheet(row, column));
    m_selectedRow = row;
    m_selectedColumn = column;
    // Nothing takes this back: it also puts a key to rest that was lit in between.
    if (keyText(row, column).length() < 2)
        QTimer::singleShot(FlashTime, this, SLOT(clearSelection()));
}

void WidgetKeypad::clearSelection()
{
    if (m_selectedRow >= 0 && m_selectedColumn >= 0)
        applyStyleSheet(m_keyLabel[m_selectedRow][m_selectedColumn], restSheet(m_selectedRow, m_selectedColumn));
}

void WidgetKeypad::handleItemSelection(Item item)
{
    m_currentItem = item;
    dressKeypadCell(m_itemLabel, m_itemStyle, item, StateSelected);
    QTimer::singleShot(FlashTime, this, SLOT(clearItemSelection()));
}

void WidgetKeypad::clearItemSelection()
{
    dressKeypadCell(m_itemLabel, m_itemStyle, m_currentItem, StateNormal);
}

void WidgetKeypad::updateLineText()
{
    if (!m_echoModeApplied) {
        m_lineEdit->setEchoMode(m_hideText ? QLineEdit::Password : QLineEdit::Normal);
        m_echoModeApplied = true;
    }
    keypadLine(m_lineEdit)->showText(m_text, false);
    keypadLine(m_lineEdit)->letGo(m_text);
}

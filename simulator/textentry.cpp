#include "textentry.h"

#include "device.h"
#include "keycells.h"
#include "keypages.h"

#include "platform/soundmanager.h"

#include <QKeyEvent>
#include <QLineEdit>

namespace {

const int LineHeight = 38;
const int LineMargins = 20;  // the toolkit's own, and what the keypad leaves free at the end
const int FadeWidth = 28;
const char FadeSheet[] = "background: qlineargradient(x1: 0, y1: 0, x2: 1, y2: 0, "
                         "stop: 0.2 #ffffff, stop: 1 rgba(255, 255, 255, 0));";
const int KeypadPages = 6;
const int ClickSound = 901;

// Words written from right to left would otherwise not stand where the text will.
const QChar LeftToRightMark(0x200e);

bool isDigitKey(int key)
{
    return key >= Qt::Key_0 && key <= Qt::Key_9;
}

bool sentenceBeginsAfter(const QString &text)
{
    return text.isEmpty() || text.endsWith(QLatin1String(". ")) || text.endsWith(QLatin1String("! "))
            || text.endsWith(QLatin1String("? "));
}

}

TextEntry::TextEntry(Device &device, const QString &placeholder)
    : WidgetKeypad(&device, SoundManager::getInstance()),
      m_line(findChild<QLineEdit *>()),
      m_fade(new QWidget(this))
{
    setLineTextHeight(LineHeight);
    setPlaceholderText(LeftToRightMark + placeholder);
    for (int page = PageCount; page < KeypadPages; ++page)
        enablePage(page, false);
    mapKeys();
    dressKeyCells(this, QStringLiteral("key_space"), QStringLiteral("key_delete"));
    fillPages();
    m_fade->setGeometry(0, 0, FadeWidth, LineHeight);
    m_fade->setStyleSheet(QString::fromLatin1(FadeSheet));
    m_fade->hide();

    connect(m_line, &QLineEdit::textChanged, this, &TextEntry::showFade);
    connect(this, &WidgetKeypad::keyPressed, this, &TextEntry::actOnKey);
    connect(this, &WidgetKeypad::inputLetter, this, &TextEntry::endCapital);
    connect(this, &WidgetKeypad::ready, &device, &Device::back);
    connect(this, &WidgetKeypad::cancel, &device, &Device::back);
}

void TextEntry::mapKeys()
{
    setKeyMap(Qt::Key_0, 3, 1);
    for (int digit = 1; digit <= 9; ++digit)
        setKeyMap(Qt::Key_0 + digit, (digit - 1) / 3, (digit - 1) % 3);
}

void TextEntry::startText(const QString &text)
{
    setInitialLineText(text, false, true, false);
}

void TextEntry::startNumber(const QString &number)
{
    m_firstPage = DigitPage;
    startText(number);
}

void TextEntry::startPassword(const QString &password)
{
    m_isPassword = true;
    hideText(true);
    setInitialLineText(password, true, false, false);
}

void TextEntry::showEvent(QShowEvent *event)
{
    WidgetKeypad::showEvent(event);
    goToPage(m_firstPage);
    beginSentence();
    showFade();
}

void TextEntry::fillPages()
{
    const Alphabet &alphabet = alphabets[m_alphabet];
    const KeyPage *pages[PageCount] = {&alphabet.smallLetters, &digitPage, &symbolPage, &alphabet.capitals};
    for (int page = 0; page < PageCount; ++page) {
        for (int row = 0; row < 4; ++row) {
            for (int column = 0; column < 3; ++column)
                setKeyText(page, row, column, QString::fromUtf8(pages[page]->keys[row][column]));
        }
        const KeyPage *previous = pages[(page + PageCount - 1) % PageCount];
        const KeyPage *next = pages[(page + 1) % PageCount];
        setKeyText(page, 3, 0, QStringLiteral("* ") + QString::fromUtf8(previous->name));
        setKeyText(page, 3, 2, QStringLiteral("# ") + QString::fromUtf8(next->name));
    }
}

void TextEntry::labelCells()
{
    const Alphabet &alphabet = alphabets[m_alphabet];
    const Alphabet &nextAlphabet = alphabets[(m_alphabet + 1) % AlphabetCount];
    const char *nextCase = alphabet.smallLetters.name;
    if (m_page == SmallPage)
        nextCase = alphabet.oneCapital;
    else if (m_oneCapital)
        nextCase = alphabet.capitals.name;
    setItemText(ItemButton1, QString::fromUtf8(nextCase));
    const char *nextCharacters = nextAlphabet.smallLetters.name;
    if (m_isPassword)
        nextCharacters = m_page == DigitPage ? symbolPage.name : digitPage.name;
    setItemText(ItemButton2, QString::fromUtf8(nextCharacters));
}

void TextEntry::showFade()
{
    const int width = m_line->fontMetrics().horizontalAdvance(m_line->displayText());
    m_fade->setVisible(width > m_line->width() - LineMargins);
}

void TextEntry::keyReleaseEvent(QKeyEvent *event)
{
    // Before the keypad looks at the page: the key after the capital letter types a small one.
    if (isDigitKey(event->key()) && event->key() != m_capitalKey)
        endCapital();
    WidgetKeypad::keyReleaseEvent(event);
}

void TextEntry::actOnKey(int key)
{
    switch (key) {
    case Qt::Key_F1:
        goToNextCase();
        break;
    case Qt::Key_F2:
        if (m_isPassword)
            goToNextPasswordPage();
        else
            goToNextAlphabet();
        break;
    case Qt::Key_Asterisk:
        playSound(ClickSound);
        goToPage(Page((m_page + PageCount - 1) % PageCount));
        break;
    case Qt::Key_NumberSign:
        playSound(ClickSound);
        goToPage(Page((m_page + 1) % PageCount));
        break;
    case Qt::Key_F3:
        beginSentence();
        break;
    case Qt::Key_F4:
        m_capitalKey = 0;
        beginSentence();
        break;
    default:
        if (m_oneCapital && isDigitKey(key))
            m_capitalKey = key;
        break;
    }
}

void TextEntry::goToPage(Page page)
{
    m_page = page;
    m_oneCapital = false;
    m_capitalKey = 0;
    setPage(page);
    labelCells();
}

void TextEntry::goToLetters(Letters letters)
{
    goToPage(letters == SmallLetters ? SmallPage : CapitalPage);
    if (letters == OneCapital) {
        m_oneCapital = true;
        labelCells();
    }
}

void TextEntry::goToNextCase()
{
    playSound(ClickSound);
    if (m_page == SmallPage)
        goToLetters(OneCapital);
    else
        goToLetters(m_oneCapital ? Capitals : SmallLetters);
}

void TextEntry::goToNextAlphabet()
{
    playSound(ClickSound);
    m_alphabet = (m_alphabet + 1) % AlphabetCount;
    fillPages();
    if (m_oneCapital)
        goToLetters(OneCapital);
    else
        goToLetters(m_page == CapitalPage ? Capitals : SmallLetters);
}

void TextEntry::goToNextPasswordPage()
{
    playSound(ClickSound);
    goToPage(m_page == DigitPage ? SymbolPage : DigitPage);
}

void TextEntry::beginSentence()
{
    if (m_page == SmallPage && !m_isPassword && sentenceBeginsAfter(m_line->text()))
        goToLetters(OneCapital);
}

void TextEntry::endCapital()
{
    // A letter from before may become final only now.
    if (m_capitalKey)
        goToLetters(SmallLetters);
}

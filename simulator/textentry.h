#ifndef TEXTENTRY_H
#define TEXTENTRY_H

#include "widgetkeypad.h"

class Device;
class QLineEdit;

/// The keypad of the device: what a screen opens to have a text or a password entered.
///
/// The cells of F1 and F2 and the keys * and # show what they lead to: F1 from small letters to one capital letter, to
/// capitals and back, F2 to the next alphabet, * and # to the pages beside. For a password F2 leads to digits and
/// symbols instead. A sentence begins with a capital letter by itself. A text too long for its line fades out where it
/// begins. The screen closes itself after ready() and cancel().
///
///     TextEntry *entry = new TextEntry(device, text("Name"));
///     entry->startText(m_name);
///     connect(entry, &WidgetKeypad::ready, this, &SomeScreen::setName);
///     device.push(entry);
class TextEntry : public WidgetKeypad
{
    Q_OBJECT

public:
    /// The empty line shows \a placeholder.
    TextEntry(Device &device, const QString &placeholder);

    /// Has the user add to \a text, or delete from it.
    void startText(const QString &text);

    /// Has the user add digits to \a number, or delete some; letters are a key away.
    void startNumber(const QString &number);

    /// Has the user replace \a password, or confirm it. Only what a password may have in it can be typed: no letters
    /// but those of the first alphabet.
    void startPassword(const QString &password);

protected:
    void showEvent(QShowEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;

private:
    /// In the order of * and #: from the small letters, the digits and the capitals are one key away.
    enum Page { SmallPage, DigitPage, SymbolPage, CapitalPage, PageCount };

    /// What the letters typed next are.
    enum Letters { SmallLetters, OneCapital, Capitals };

    void mapKeys();
    void fillPages();
    void labelCells();
    void showFade();

    void actOnKey(int key);
    void goToPage(Page page);
    void goToLetters(Letters letters);
    void goToNextCase();
    void goToNextAlphabet();
    void goToNextPasswordPage();
    void beginSentence();
    void endCapital();

    QLineEdit *const m_line;
    QWidget *const m_fade;
    int m_alphabet = 0;
    Page m_page = SmallPage;
    Page m_firstPage = SmallPage;
    bool m_oneCapital = false;
    int m_capitalKey = 0;  // the key that has typed the one capital; 0 while it is to come
    bool m_isPassword = false;
};

#endif

#ifndef KEYPADLINE_H
#define KEYPADLINE_H

// The keypad's text line. Not part of the interface.

#include <QLineEdit>
#include <QString>

/// Overwrites \a text in memory, unless somebody else has it as well, and empties it.
void wipe(QString *text);

/// Shares texts with those who work with them, so that none is freed before it is overwritten.
struct HeldTexts
{
    ~HeldTexts();

    QString entered;
    QString shown;
    QString display;
};

/// The keypad's text line, which overwrites in memory what it shows no longer. Masked texts are also kept from programs
/// that read out what changes on the screen: they are told as many stars.
///
/// The texts are a base class, so that they outlive the copies that the toolkit's part has of them.
class KeypadLine : private HeldTexts, public QLineEdit
{
public:
    explicit KeypadLine(QWidget *parent);

    /// Shows \a text, which is \a secret also while it is not masked.
    void showText(const QString &text, bool secret);

    /// Shows no text, and cannot take that back.
    void clearText(bool secret);

    /// Shows at most \a length characters.
    void limitText(int length);

    /// Lets go of what the line showed, and the keypad had, until the last call. \a entered is what the keypad has now:
    /// it may be longer than what the line shows.
    void letGo(const QString &entered);

private:
    bool isMasked() const;
};

#endif

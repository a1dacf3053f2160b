#ifndef KEYPADTESTING_H
#define KEYPADTESTING_H

#include "recordingplatform.h"
#include "widgetkeypad.h"

#include "platform/soundmanager.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>

/// What the keypad's test programs share: its parts, its sheets, and keys for it.
namespace KeypadTesting {

const char *const KeySheet =
    "background-color: #474242; color: #f7ce86; border-radius: 0px; border: 1px solid  rgba(60,55,56,255);";
const char *const SideKeySheet =
    "background-color: #474242; color: #988e8b; border-radius: 0px; border: 1px solid  rgba(60,55,56,255);";
const char *const LitKeySheet = "background-color: #f7ce86; color: #1f1618; border-style: none;";
const char *const LitSideKeySheet = "background-color: #988e8b; color: #1f1618; border-style: none;";
const char *const LineSheet = "background-color: #ffffff;";
const char *const LineSheetSuffix = "color: #3c3738; border-radius: 0px; padding-right: 15px;";

inline QLineEdit *line(const QWidget &keypad)
{
    return keypad.findChild<QLineEdit *>();
}

inline QList<QLabel *> ownLabels(const QWidget &widget)
{
    return widget.findChildren<QLabel *>(QString(), Qt::FindDirectChildrenOnly);
}

inline QLabel *keyLabel(const QWidget &keypad, int row, int column)
{
    return ownLabels(keypad).at(row * 3 + column);
}

inline QLabel *itemBar(const QWidget &keypad)
{
    return ownLabels(keypad).at(12);
}

inline QLabel *cell(const QWidget &keypad, int item)
{
    return ownLabels(*itemBar(keypad)).at(item);
}

inline QString restSheet(int row, int column)
{
    return QLatin1String(row == 3 && column != 1 ? SideKeySheet : KeySheet);
}

inline QString litSheet(int row, int column)
{
    return QLatin1String(row == 3 && column != 1 ? LitSideKeySheet : LitKeySheet);
}

/// The lit keys as "row,column", row by row. A key that is neither lit nor at rest is told as "?".
inline QStringList litKeys(const QWidget &keypad)
{
    QStringList lit;
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 3; ++column) {
            const QString sheet = keyLabel(keypad, row, column)->styleSheet();
            if (sheet == litSheet(row, column))
                lit << QString("%1,%2").arg(row).arg(column);
            else if (sheet != restSheet(row, column))
                lit << "?";
        }
    }
    return lit;
}

/// The texts on the keys, row by row, with a blank between them.
inline QString labels(const QWidget &keypad)
{
    QStringList texts;
    for (QLabel *label : ownLabels(keypad).mid(0, 12))
        texts << label->text();
    return texts.join(' ');
}

/// The sheets of the cells: "n" for a cell at rest, "S" for one that is selected, as dressItems() makes them.
inline QString cellStates(const QList<QLabel *> &cells)
{
    QString states;
    for (int item = 0; item < cells.size(); ++item) {
        const QString sheet = cells.at(item)->styleSheet();
        if (sheet == QString("color: #00000%1").arg(item))
            states += 'n';
        else if (sheet == QString("color: #ff000%1").arg(item))
            states += 'S';
        else
            states += '?';
    }
    return states;
}

inline QString cellStates(const QWidget &keypad)
{
    return cellStates(ownLabels(*itemBar(keypad)));
}

template <typename Keypad>
void dressItems(Keypad &keypad)
{
    for (int item = 0; item < 4; ++item) {
        keypad.setItemStyle(typename Keypad::Item(item), Keypad::StateNormal, QString("color: #00000%1").arg(item));
        keypad.setItemStyle(typename Keypad::Item(item), Keypad::StateSelected, QString("color: #ff000%1").arg(item));
    }
}

inline void press(QWidget &widget, int key, bool autoRepeat = false)
{
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, QString(), autoRepeat);
    QApplication::sendEvent(&widget, &event);
}

inline void release(QWidget &widget, int key)
{
    QKeyEvent event(QEvent::KeyRelease, key, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
}

/// Page 0: letters, with a key for each digit; 1 and 0 type at once. The outer keys of the bottom row are * and #.
/// Page 1: the digits themselves. The pages 2 to 5 stay empty and are switched off.
inline void fill(WidgetKeypad &keypad)
{
    const char *const letters[] = {"1",     "abc2", "def3",  "ghi4", "jkl5", "mno6",
                                   "pqrs7", "tuv8", "wxyz9", "*",    "0",    "#"};
    const char *const digits[] = {"1", "2", "3", "4", "5", "6", "7", "8", "9", "*", "0", "#"};
    for (int place = 0; place < 12; ++place) {
        keypad.setKeyText(0, place / 3, place % 3, letters[place]);
        keypad.setKeyText(1, place / 3, place % 3, digits[place]);
    }
    for (int digit = 1; digit <= 9; ++digit)
        keypad.setKeyMap(Qt::Key_0 + digit, (digit - 1) / 3, (digit - 1) % 3);
    keypad.setKeyMap(Qt::Key_0, 3, 1);
    for (int page = 2; page < 6; ++page)
        keypad.enablePage(page, false);
    dressItems(keypad);
    keypad.setLineTextHeight(38);
    keypad.setBgGeometry(0, 0, 220, 263);
}

/// A filled keypad, not yet shown.
class FilledKeypad : public WidgetKeypad
{
public:
    explicit FilledKeypad(QWidget *parent = nullptr, SoundManager *soundManager = SoundManager::getInstance())
        : WidgetKeypad(parent, soundManager)
    {
        fill(*this);
    }
};

/// Adds every signal of \a keypad to RecordingPlatform::events().
inline void recordSignals(WidgetKeypad &keypad)
{
    using RecordingPlatform::addEvent;
    QObject::connect(&keypad, &WidgetKeypad::cancel, [] { addEvent("cancel"); });
    QObject::connect(&keypad, &WidgetKeypad::ready, [](const QString &text) { addEvent("ready:" + text); });
    QObject::connect(&keypad, &WidgetKeypad::keyPressed, [](int key) { addEvent(QString("keyPressed:%1").arg(key)); });
    QObject::connect(&keypad, &WidgetKeypad::inputLetter,
                     [](QChar letter) { addEvent(QString("inputLetter:") + letter); });
}

}

#endif

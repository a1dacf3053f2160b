// Text entry with digit keys, and the bar of F1 to F4 by itself.

#include "anytoolkit.h"
#include "widgetkeypad.h"
#include "widgetkeypadbottom.h"

#include <QLabel>
#include <QLineEdit>

class TestAnyKeypad : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void digitKeyTypesAtOnce();
    void keyGoesThroughItsCharacters();
    void characterIsFinalAfterAWhile();
    void otherKeyMakesTheCharacterFinal();
    void spaceKeyMakesTheCharacterFinalOrTypesASpace();
    void deleteKeyTakesOneCharacter();
    void deleteKeyHeldClearsAll();
    void menuAndEscapeEndTheEntry();
    void otherKeysAreTold();
    void fullTextTakesNoMore();
    void firstKeyReplacesTheInitialText_data();
    void firstKeyReplacesTheInitialText();
    void pagesChangeWhatTheKeysType();
    void hiddenTextIsMaskedAndNotTold();
    void typedTextLooksLikeAnInitialOne();
    void keyIsLitWhileItCanChange();
    void cellIsLitForAMoment();
    void pageLooksLikeThatOfANewKeypad();
    void rejectsAPlaceThatDoesNotExist();

    void barSelectsTheCellOfAKey();
    void barLooksLikeANewOne();
    void barRejectsAStateThatDoesNotExist();
};

/// Notes the signals of a keypad among the sounds.
class Notes : public QObject
{
    Q_OBJECT

public:
    explicit Notes(WidgetKeypad *keypad)
    {
        connect(keypad, SIGNAL(cancel()), this, SLOT(cancel()));
        connect(keypad, SIGNAL(ready(QString)), this, SLOT(ready(QString)));
        connect(keypad, SIGNAL(keyPressed(int)), this, SLOT(keyPressed(int)));
        connect(keypad, SIGNAL(inputLetter(QChar)), this, SLOT(inputLetter(QChar)));
    }

public slots:
    void cancel() { AnyPlatform::addEvent("cancel"); }
    void ready(const QString &text) { AnyPlatform::addEvent("ready " + text); }
    void keyPressed(int key) { AnyPlatform::addEvent("key " + QKeySequence(key).toString()); }
    void inputLetter(QChar letter) { AnyPlatform::addEvent(QString("letter ") + letter); }
};

/// A screen with a keypad: letters on page 0, the digits themselves on page 1, and no other page.
struct KeypadScreen : Screen
{
    KeypadScreen() : keypad(this, sound()), notes(&keypad)
    {
        static const char *const letters[] = {"1",     "abc2", "def3",  "ghi4", "jkl5", "mno6",
                                              "pqrs7", "tuv8", "wxyz9", "*",    "0",    "#"};
        static const char *const digits[] = {"1", "2", "3", "4", "5", "6", "7", "8", "9", "*", "0", "#"};
        for (int place = 0; place < 12; ++place) {
            keypad.setKeyText(0, place / 3, place % 3, letters[place]);
            keypad.setKeyText(1, place / 3, place % 3, digits[place]);
        }
        for (int digit = 1; digit < 10; ++digit)
            keypad.setKeyMap(Qt::Key_0 + digit, (digit - 1) / 3, (digit - 1) % 3);
        keypad.setKeyMap(Qt::Key_0, 3, 1);
        for (int page = 2; page < 6; ++page)
            keypad.enablePage(page, false);
        for (int item = 0; item < 4; ++item) {
            keypad.setItemStyle(WidgetKeypad::Item(item), WidgetKeypad::StateNormal, "background-color: #6e6464;");
            keypad.setItemStyle(WidgetKeypad::Item(item), WidgetKeypad::StateSelected, "background-color: #f7ce86;");
        }
        keypad.setItemText(WidgetKeypad::ItemButton1, "Abc");
        keypad.setLineTextHeight(38);
        keypad.setBgGeometry(0, 0, 220, 176);
    }

    void open()
    {
        showInFront();
        keypad.setFocus();
    }

    void type(int key) { strike(&keypad, key); }

    QLineEdit *line() const { return keypad.findChild<QLineEdit *>(); }
    QString text() const { return line()->text(); }
    QLabel *key(int row, int column) const { return partsOf<QLabel>(&keypad).at(row * 3 + column); }

    /// The texts of the keys that are lit.
    QString litKeys() const
    {
        QString lit;
        for (int place = 0; place < 12; ++place) {
            const QString sheet = key(place / 3, place % 3)->styleSheet();
            if (sheet.startsWith("background-color: #f7ce86") || sheet.startsWith("background-color: #988e8b"))
                lit += key(place / 3, place % 3)->text();
        }
        return lit;
    }

    WidgetKeypad keypad;
    Notes notes;
};

void TestAnyKeypad::init()
{
    AnyPlatform::reset();
}

void TestAnyKeypad::digitKeyTypesAtOnce()
{
    KeypadScreen screen;
    screen.open();
    screen.type(Qt::Key_1);
    screen.type(Qt::Key_0);
    QCOMPARE(screen.text(), QString("10"));
    QCOMPARE(AnyPlatform::takeEvents(), QStringList() << "sound 921" << "key 1" << "sound 920" << "key 0");
}

void TestAnyKeypad::keyGoesThroughItsCharacters()
{
    KeypadScreen screen;
    screen.open();
    QStringList texts;
    for (int i = 0; i < 5; ++i) {
        screen.type(Qt::Key_2);
        texts << screen.text();
    }
    QCOMPARE(texts, QStringList() << "a" << "b" << "c" << "2" << "a");
    QCOMPARE(QStringList(AnyPlatform::takeEvents().mid(0, 4)), QStringList()
        << "sound 901" << "key 2" << "sound 901" << "key 2");
}

void TestAnyKeypad::characterIsFinalAfterAWhile()
{
    KeypadScreen screen;
    screen.open();
    screen.type(Qt::Key_2);
    screen.type(Qt::Key_2);
    AnyPlatform::takeEvents();
    QStringList events;
    EVENTUALLY(!(events += AnyPlatform::takeEvents()).isEmpty());
    QCOMPARE(events, QStringList() << "letter b");
    screen.type(Qt::Key_2);
    QCOMPARE(screen.text(), QString("ba"));
}

void TestAnyKeypad::otherKeyMakesTheCharacterFinal()
{
    KeypadScreen screen;
    screen.open();
    screen.type(Qt::Key_3);
    screen.type(Qt::Key_4);
    QCOMPARE(screen.text(), QString("dg"));
    QCOMPARE(AnyPlatform::takeEvents(), QStringList() << "sound 901" << "key 3" << "letter d" << "sound 901" << "key 4");
}

void TestAnyKeypad::spaceKeyMakesTheCharacterFinalOrTypesASpace()
{
    KeypadScreen screen;
    screen.open();
    screen.type(Qt::Key_3);
    screen.type(Qt::Key_F3);
    QCOMPARE(screen.text(), QString("d"));
    screen.type(Qt::Key_F3);
    QCOMPARE(screen.text(), QString("d "));
    QCOMPARE(AnyPlatform::takeEvents(), QStringList()
        << "sound 901" << "key 3" << "letter d" << "sound 901" << "key F3" << "sound 901" << "key F3");
}

void TestAnyKeypad::deleteKeyTakesOneCharacter()
{
    KeypadScreen screen;
    screen.keypad.setInitialLineText("ab", false, true, false);
    screen.open();
    screen.type(Qt::Key_F4);
    QCOMPARE(screen.text(), QString("a"));
    QCOMPARE(AnyPlatform::takeEvents(), QStringList() << "sound 901" << "key F4");
}

void TestAnyKeypad::deleteKeyHeldClearsAll()
{
    KeypadScreen screen;
    screen.keypad.setInitialLineText("abcdef", false, true, false);
    screen.open();
    strike(&screen.keypad, Qt::Key_F4, 5);
    QCOMPARE(screen.text(), QString("abcde"));
    AnyPlatform::takeEvents();
    // The repeats of both add up.
    strike(&screen.keypad, Qt::Key_F4, 1);
    QCOMPARE(screen.text(), QString());
    QCOMPARE(AnyPlatform::takeEvents(), QStringList() << "sound 901" << "key F4");
    QVERIFY(AnyPlatform::takeLog().contains("16 [keyPressEvent, 157] clear all!!"));
}

void TestAnyKeypad::menuAndEscapeEndTheEntry()
{
    KeypadScreen screen;
    screen.open();
    screen.type(Qt::Key_1);
    AnyPlatform::takeEvents();
    screen.type(Qt::Key_Menu);
    screen.type(Qt::Key_Escape);
    QCOMPARE(AnyPlatform::takeEvents(), QStringList() << "sound 901" << "ready 1" << "sound 901" << "cancel");
}

void TestAnyKeypad::otherKeysAreTold()
{
    KeypadScreen screen;
    screen.open();
    screen.type(Qt::Key_F1);
    screen.type(Qt::Key_Asterisk);
    // Only the one that it does not know goes on to the screen.
    QCOMPARE(AnyPlatform::takeEvents(), QStringList() << "key F1" << "key *" << "handed on *");
}

void TestAnyKeypad::fullTextTakesNoMore()
{
    KeypadScreen screen;
    screen.keypad.setKeyMaxLength(2);
    screen.open();
    screen.type(Qt::Key_1);
    screen.type(Qt::Key_0);
    AnyPlatform::takeEvents();
    screen.type(Qt::Key_1);
    QCOMPARE(screen.text(), QString("10"));
    QCOMPARE(AnyPlatform::takeEvents(), QStringList());
}

void TestAnyKeypad::firstKeyReplacesTheInitialText_data()
{
    QTest::addColumn<bool>("keep");
    QTest::addColumn<QString>("text");
    QTest::newRow("replaced") << false << "1";
    QTest::newRow("kept") << true << "old1";
}

void TestAnyKeypad::firstKeyReplacesTheInitialText()
{
    QFETCH(bool, keep);
    QFETCH(QString, text);
    KeypadScreen screen;
    screen.keypad.setInitialLineText("old", false, keep, false);
    screen.open();
    QCOMPARE(screen.text(), QString("old"));
    screen.type(Qt::Key_1);
    QCOMPARE(screen.text(), text);
}

void TestAnyKeypad::pagesChangeWhatTheKeysType()
{
    KeypadScreen screen;
    screen.open();
    screen.keypad.changePage(true);
    QCOMPARE(screen.key(0, 1)->text(), QString("2"));
    screen.type(Qt::Key_2);
    QCOMPARE(screen.text(), QString("2"));
    // Around the pages that are not enabled.
    screen.keypad.changePage(true);
    QCOMPARE(screen.key(0, 1)->text(), QString("abc2"));
    screen.keypad.changePage(false);
    QCOMPARE(screen.key(0, 1)->text(), QString("2"));
}

void TestAnyKeypad::hiddenTextIsMaskedAndNotTold()
{
    KeypadScreen screen;
    screen.keypad.hideText(true);
    screen.keypad.setInitialLineText(QString(), true, false, false);
    screen.open();
    screen.type(Qt::Key_1);
    QStringList first = AnyPlatform::takeEvents();
    const QStringList firstLog = AnyPlatform::takeLog();
    screen.type(Qt::Key_0);
    QStringList second = AnyPlatform::takeEvents();
    QCOMPARE(first.takeLast(), QString("key 1"));
    QCOMPARE(second.takeLast(), QString("key 0"));
    QCOMPARE(first, second);
    QCOMPARE(AnyPlatform::takeLog(), firstLog);
    QCOMPARE(screen.litKeys(), QString());
    QCOMPARE(int(screen.line()->echoMode()), int(QLineEdit::Password));
    QVERIFY(!screen.line()->displayText().contains(QLatin1Char('1')));
    QCOMPARE(screen.text(), QString("10"));
}

void TestAnyKeypad::typedTextLooksLikeAnInitialOne()
{
    KeypadScreen fresh;
    fresh.keypad.setInitialLineText("dg 1", false, true, false);
    const QImage expected = shownOnce(&fresh);

    KeypadScreen screen;
    screen.open();
    const int keys[] = {Qt::Key_3, Qt::Key_4, Qt::Key_F3, Qt::Key_F3, Qt::Key_1};
    for (int i = 0; i < 5; ++i)
        screen.type(keys[i]);
    // The last key is lit for a moment, and so is the cell of the space.
    QVERIFY(drawnAtOnce(&screen) != expected);
    EVENTUALLY(seen(&screen) == expected);
}

void TestAnyKeypad::keyIsLitWhileItCanChange()
{
    KeypadScreen screen;
    screen.open();
    const QImage rest = seen(&screen);
    screen.type(Qt::Key_2);
    QCOMPARE(screen.litKeys(), QString("abc2"));
    screen.type(Qt::Key_5);
    QCOMPARE(screen.litKeys(), QString("jkl5"));
    const QRect key = screen.key(1, 1)->geometry();
    QVERIFY(drawnAtOnce(&screen).copy(key) != rest.copy(key));
    EVENTUALLY(screen.litKeys().isEmpty());
    EVENTUALLY(seen(&screen).copy(key) == rest.copy(key));
}

void TestAnyKeypad::cellIsLitForAMoment()
{
    KeypadScreen screen;
    screen.open();
    const QImage rest = seen(&screen);
    screen.type(Qt::Key_F1);
    // By its sheet: on a slow machine the moment is over before it is seen.
    const QLabel *cell = 0;
    const QList<QLabel *> labels = screen.keypad.findChildren<QLabel *>();
    for (int i = 0; i < int(labels.size()); ++i) {
        if (labels.at(i)->text() == "Abc")
            cell = labels.at(i);
    }
    QVERIFY(cell);
    QCOMPARE(cell->styleSheet(), QString("background-color: #f7ce86;"));
    EVENTUALLY(cell->styleSheet() == "background-color: #6e6464;");
    QVERIFY(looksAs(&screen, rest));
}

void TestAnyKeypad::pageLooksLikeThatOfANewKeypad()
{
    KeypadScreen fresh;
    fresh.keypad.enablePage(0, false);
    const QImage expected = shownOnce(&fresh);

    KeypadScreen screen;
    screen.open();
    QVERIFY(seen(&screen) != expected);
    screen.keypad.changePage(false);
    QVERIFY(looksAs(&screen, expected));
}

void TestAnyKeypad::rejectsAPlaceThatDoesNotExist()
{
    WidgetKeypad keypad(0, 0);
    keypad.setKeyText(6, 0, 0, QString());
    keypad.setKeyMap(Qt::Key_1, 0, 3);
    keypad.enablePage(-1, true);
    QCOMPARE(AnyPlatform::takeLog(), QStringList()
        << "2 [ui/view/widget/widgetkeypad.cpp, setKeyText] Invalid index 6"
        << "2 [ui/view/widget/widgetkeypad.cpp, setKeyMap] Invalid index 3"
        << "2 [ui/view/widget/widgetkeypad.cpp, enablePage] Invalid index -1");
}

// --- WidgetKeypadBottom

struct BarScreen : Screen
{
    BarScreen() : bar(this)
    {
        for (int item = 0; item < 4; ++item) {
            const WidgetKeypadBottom::Item cell = WidgetKeypadBottom::Item(item);
            bar.setItemStyle(cell, WidgetKeypadBottom::StateNormal, "background-color: #6e6464;");
            bar.setItemStyle(cell, WidgetKeypadBottom::StateSelected, "background-color: #f7ce86;");
        }
        bar.setItemText(WidgetKeypadBottom::ItemButton1, "Abc");
        bar.setBgGeometry(0, 153, 220, 23);
    }

    /// Whether each cell is at rest, or Selected.
    QString states() const
    {
        QString states;
        const QList<QLabel *> cells = partsOf<QLabel>(&bar);
        for (int i = 0; i < int(cells.size()); ++i)
            states += cells.at(i)->styleSheet() == "background-color: #f7ce86;" ? QLatin1Char('S') : QLatin1Char('-');
        return states;
    }

    WidgetKeypadBottom bar;
};

void TestAnyKeypad::barSelectsTheCellOfAKey()
{
    BarScreen screen;
    screen.showInFront();
    screen.bar.setFocus();
    strike(&screen, Qt::Key_F3);
    QCOMPARE(screen.states(), QString("--S-"));
    QCOMPARE(AnyPlatform::takeEvents(), QStringList() << "handed on F3");
    const QStringList log = AnyPlatform::takeLog();
    QVERIFY(log.contains("16 WidgetKeypad keyReleaseEvent"));
    QVERIFY(log.contains("128 [handleSelection, 161] item = 2, style = background-color: #f7ce86;"));
    strike(&screen, Qt::Key_F1);
    QCOMPARE(screen.states(), QString("S-S-"));
    screen.bar.clearSelection();
    QCOMPARE(screen.states(), QString("--S-"));
}

void TestAnyKeypad::barLooksLikeANewOne()
{
    BarScreen fresh;
    fresh.showInFront();
    fresh.bar.setItemText(WidgetKeypadBottom::ItemButton2, "123");
    fresh.bar.setItemVisible(WidgetKeypadBottom::ItemDelete, false);
    fresh.bar.handleSelection(WidgetKeypadBottom::ItemButton2);
    const QImage expected = drawn(&fresh);
    fresh.hide();

    BarScreen screen;
    screen.bar.setItemText(WidgetKeypadBottom::ItemButton2, "ABC");
    screen.showInFront();
    screen.bar.setFocus();
    QVERIFY(seen(&screen) != expected);
    strike(&screen, Qt::Key_F4);
    screen.bar.clearSelection();
    screen.bar.setItemVisible(WidgetKeypadBottom::ItemDelete, false);
    screen.bar.setItemText(WidgetKeypadBottom::ItemButton2, "123");
    strike(&screen, Qt::Key_F2);
    QVERIFY(looksAs(&screen, expected));
}

void TestAnyKeypad::barRejectsAStateThatDoesNotExist()
{
    WidgetKeypadBottom bar(0);
    bar.setItemStyle(WidgetKeypadBottom::ItemButton1, WidgetKeypadBottom::State(2), QString());
    QCOMPARE(AnyPlatform::takeLog(), QStringList()
        << "2 [ui/view/widget/widgetkeypadbottom.cpp, setItemStyle] Invalid index 2");
}

ANYTOOLKIT_MAIN(TestAnyKeypad)

#include "tst_anykeypad.moc"

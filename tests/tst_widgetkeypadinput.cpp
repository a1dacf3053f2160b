#include "keypadtesting.h"
#include "waiting.h"

#include <QAbstractEventDispatcher>
#include <QtTest>

#include <functional>
#include <memory>
#include <random>
#include <vector>

#if defined(__GLIBC__) && (__GLIBC__ > 2 || __GLIBC_MINOR__ >= 33)
#include <malloc.h>
#define HAS_MALLINFO2
#endif

using namespace KeypadTesting;
using RecordingPlatform::events;
using RecordingPlatform::sounds;

typedef std::function<void(WidgetKeypad &)> Call;
Q_DECLARE_METATYPE(Call)

// What keys do on a keypad. tst_widgetkeypad looks at how it is set up and laid out.
class TestWidgetKeypadInput : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void keysLogSoundAndReportInThisOrder_data();
    void keysLogSoundAndReportInThisOrder();
    void isSilentWithoutASoundManager();
    void onlyUnknownKeysTravelOn_data();
    void onlyUnknownKeysTravelOn();
    void unknownKeysAreHandedOnBeforeTheyAreReported();
    void pressedKeysDoNothing_data();
    void pressedKeysDoNothing();
    void pressedDeleteKeyIsAccepted();

    void keyOfSeveralCharactersGoesThroughThem_data();
    void keyOfSeveralCharactersGoesThroughThem();
    void keyOfOneCharacterTypesItAtOnceAndAgain();
    void anotherKeyMakesTheCharacterFinal();
    void keyOfOneCharacterMakesTheCharacterBeforeFinal();
    void keysWithTheSameTextActAsOne();
    void anotherPageInsideACycleMakesTheCharacterFinal();
    void samePageSetAgainInsideACycleLetsItGoOn();
    void anotherTextInsideACycleMakesTheCharacterFinal();
    void severalKeysMayShareACell();
    void unmappedDigitActsAsTheFirstCell();
    void unmappedDigitEntersTheMapAsCellZero();
    void typingReadsTheKeyTableAndTheVoiceReadsTheLabel();
    void digitIsSpokenOnlyWhereTheLabelIsThatNumber_data();
    void digitIsSpokenOnlyWhereTheLabelIsThatNumber();
    void showInsideACycleLeavesTheTimerRunning();
    void setupUiInsideACycleLetsItGoOn();

    void f3TypesTheSpaceString_data();
    void f3TypesTheSpaceString();
    void f3MakesTheCharacterFinalWithoutASpace();
    void f3TypesASpaceOnceTheCharacterIsFinal();
    void sameKeyAfterF3StartsOver();

    void f4DeletesTheLastCharacter();
    void f4OnAnEmptyTextFlashesAndClicks();
    void f4InsideACycleLetsTheSameKeyReplaceTheCharacterBefore();
    void f4ThatEmptiesTheTextInsideACycleLetsTheSameKeyTypeItsNextCharacter();
    void sixthRepeatOfAHeldDeleteKeyClearsAll();
    void fiveRepeatsOfAHeldDeleteKeyOnlyDeleteOne();
    void releaseAfterAClearOnlyReports();
    void freshPressAfterAClearDeletesAgain();
    void showAfterAClearLetsTheReleaseDeleteAgain();
    void repeatsOfSeveralShortPressesAddUpToAClear();
    void otherKeysThatAreHeldDoNothing();
    void deleteKeyThatIsHeldBeforeTheFirstShowCounts();
    void keyBeforeTheFirstShowTypesItsFirstCharacter();
    void showAndClearStartTheCountOfRepeatsAnew();
    void clearPutsTheLitKeyToRest();
    void clearInsideACycleLetsTheSameKeyGoOn();

    void firstKeyReplacesTheInitialText_data();
    void firstKeyReplacesTheInitialText();
    void firstKeyEditsAKeptInitialText_data();
    void firstKeyEditsAKeptInitialText();
    void secondKeyEditsTheText();
    void everyShowHasAFirstKey();
    void firstKeyRuleRunsBeforeTheTestForFullLength();

    void fullTextRefusesOtherKeysInSilence();
    void fullTextLetsTheRunningCycleGoOn();
    void refusalDropsTheCycleForGood();
    void keyOfOneCharacterPressedLastTypesOneBeyondFullLength();
    void sameKeyAfterF3DroppedItsCycleTypesOneBeyondFullLength();
    void textBeyondFullLengthOnlyReportsDigitKeys();
    void textBeyondFullLengthDropsTheCycleThatMadeIt();
    void f3AtFullLengthOnlyReports();
    void f3AtFullLengthDropsTheCycleWithoutALetter();
    void longSpaceStringGoesBeyondFullLengthAndDeletingHelps();
    void nothingCanBeTypedWithoutRoom_data();
    void nothingCanBeTypedWithoutRoom();
    void lengthOfOneHoldsOneCharacter();
    void longestTextCanBeFilled();
    void shorterLimitInsideACycleIsHarmless();

    void pressedKeyIsLit_data();
    void pressedKeyIsLit();
    void onlyOneKeyIsLit();
    void keyOfOneCharacterIsLitForAMoment();
    void keyOfTwoCharactersStaysLit();
    void earlierFlashPutsLaterKeyToRest();
    void functionKeysFlashTheirCells_data();
    void functionKeysFlashTheirCells();
    void flashesTakeATenthOfASecond();
    void characterIsFinalAfterTwelveTenthsOfASecond();
    void f1ThenF2Within100msLeavesF1Selected();

    void passwordModeTellsNothing_data();
    void passwordModeTellsNothing();
    void passwordModeMasksTheLineFromTheFirstUpdateOn();
    void hideTextPutsALitKeyToRestOnlyOnceAnEchoModeWasApplied();
    void plainModeCanComeBack();

    void intervalEnds_data();
    void intervalEnds();
    void everyPressStartsTheIntervalAnew();

    void firstCharacterAfterAnInitialTextHidesItAgain();
    void slotMayDeleteTheKeypad_data();
    void slotMayDeleteTheKeypad();
    void slotMayTypeOnAndChangeEverything();

    void charactersOfTwoUnitsAreTypedAndDeletedUnitByUnit();
    void combiningMarksAreCharactersOfTheirOwn();
    void keyTextOfAnyLengthIsGoneThrough();

    void digitKeyDressesAtMostTwoCellsAndLaysOutNothing();
    void keyThatStaysLitIsNotDressedAgain();
    void typingForALongTimeTakesNoMemory();
    void randomTypingIsHarmless();
};

namespace {

const QString ReleaseLog = "log:16:WidgetKeypad keyReleaseEvent";

// A filled keypad that is shown and whose signals are recorded.
class ShownKeypad : public FilledKeypad
{
public:
    explicit ShownKeypad(const QString &keptText = QString())
    {
        setInitialLineText(keptText, false, true, false);
        show();
        recordSignals(*this);
    }
};

void type(WidgetKeypad &keypad, const QString &digits)
{
    for (QChar digit : digits)
        release(keypad, digit.unicode());
}

void hold(WidgetKeypad &keypad, int repeats)
{
    press(keypad, Qt::Key_F4);
    for (int i = 0; i < repeats; ++i)
        press(keypad, Qt::Key_F4, true);
}

// What \a call adds to the events.
QStringList eventsOf(const std::function<void()> &call)
{
    const int before = events().size();
    call();
    return events().mid(before);
}

QStringList eventsOfRelease(WidgetKeypad &keypad, int key)
{
    return eventsOf([&] { release(keypad, key); });
}

// The text that ready() reports.
QString enteredText(WidgetKeypad &keypad)
{
    QString text;
    const auto connection =
        QObject::connect(&keypad, &WidgetKeypad::ready, [&text](const QString &ready) { text = ready; });
    release(keypad, Qt::Key_Menu);
    QObject::disconnect(connection);
    return text;
}

QString reported(int key)
{
    return "keyPressed:" + QString::number(key);
}

}

void TestWidgetKeypadInput::init()
{
    RecordingPlatform::reset();
}

void TestWidgetKeypadInput::keysLogSoundAndReportInThisOrder_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QStringList>("expected");
    const auto add = [](const char *name, int key, const QStringList &expected) {
        QTest::newRow(name) << key << expected;
    };
    add("digit key of several characters", Qt::Key_2, {ReleaseLog, "sound:901", "keyPressed:50"});
    add("digit key that shows its digit", Qt::Key_1, {ReleaseLog, "sound:921", "keyPressed:49"});
    add("digit key without a text", Qt::Key_9, {ReleaseLog, "keyPressed:57"});
    add("F1", Qt::Key_F1, {ReleaseLog, reported(Qt::Key_F1)});
    add("F2", Qt::Key_F2, {ReleaseLog, reported(Qt::Key_F2)});
    add("F3", Qt::Key_F3, {ReleaseLog, "sound:901", reported(Qt::Key_F3)});
    add("F4", Qt::Key_F4, {ReleaseLog, "sound:901", reported(Qt::Key_F4)});
    add("menu", Qt::Key_Menu, {ReleaseLog, "sound:901", "ready:text"});
    add("escape", Qt::Key_Escape, {ReleaseLog, "sound:901", "cancel"});
    add("star", Qt::Key_Asterisk, {ReleaseLog, reported(Qt::Key_Asterisk)});
    add("hash", Qt::Key_NumberSign, {ReleaseLog, reported(Qt::Key_NumberSign)});
    add("arrow", Qt::Key_Up, {ReleaseLog, reported(Qt::Key_Up)});
    add("F5", Qt::Key_F5, {ReleaseLog, reported(Qt::Key_F5)});
    add("letter", Qt::Key_A, {ReleaseLog, reported(Qt::Key_A)});
    add("before 0", Qt::Key_Slash, {ReleaseLog, reported(Qt::Key_Slash)});
    add("behind 9", Qt::Key_Colon, {ReleaseLog, reported(Qt::Key_Colon)});
    add("return", Qt::Key_Return, {ReleaseLog, reported(Qt::Key_Return)});
    add("no key", 0, {ReleaseLog, "keyPressed:0"});
}

void TestWidgetKeypadInput::keysLogSoundAndReportInThisOrder()
{
    QFETCH(int, key);
    FilledKeypad keypad;
    keypad.setKeyText(0, 2, 2, "");
    keypad.setInitialLineText("text", false, false, false);
    keypad.show();
    recordSignals(keypad);
    release(keypad, key);
    QTEST(events(), "expected");
}

void TestWidgetKeypadInput::isSilentWithoutASoundManager()
{
    FilledKeypad keypad(nullptr, nullptr);
    keypad.show();
    type(keypad, "12");
    release(keypad, Qt::Key_Menu);
    QCOMPARE(sounds(), QList<int>());
}

void TestWidgetKeypadInput::onlyUnknownKeysTravelOn_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("stays");
    QTest::newRow("digit key") << int(Qt::Key_2) << true;
    QTest::newRow("digit key without a text") << int(Qt::Key_9) << true;
    QTest::newRow("F1") << int(Qt::Key_F1) << true;
    QTest::newRow("F2") << int(Qt::Key_F2) << true;
    QTest::newRow("F3") << int(Qt::Key_F3) << true;
    QTest::newRow("F4") << int(Qt::Key_F4) << true;
    QTest::newRow("menu") << int(Qt::Key_Menu) << true;
    QTest::newRow("escape") << int(Qt::Key_Escape) << true;
    QTest::newRow("star") << int(Qt::Key_Asterisk) << false;
    QTest::newRow("hash") << int(Qt::Key_NumberSign) << false;
    QTest::newRow("arrow") << int(Qt::Key_Left) << false;
}

void TestWidgetKeypadInput::onlyUnknownKeysTravelOn()
{
    QFETCH(int, key);
    ShownKeypad keypad;
    keypad.setKeyText(0, 2, 2, "");
    QKeyEvent event(QEvent::KeyRelease, key, Qt::NoModifier);
    QApplication::sendEvent(&keypad, &event);
    QTEST(event.isAccepted(), "stays");
}

void TestWidgetKeypadInput::unknownKeysAreHandedOnBeforeTheyAreReported()
{
    ShownKeypad keypad;
    QKeyEvent event(QEvent::KeyRelease, Qt::Key_Asterisk, Qt::NoModifier);
    bool handedOn = false;
    connect(&keypad, &WidgetKeypad::keyPressed, [&] { handedOn = !event.isAccepted(); });
    QApplication::sendEvent(&keypad, &event);
    QVERIFY(handedOn);
}

void TestWidgetKeypadInput::pressedKeysDoNothing_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("digit key") << int(Qt::Key_2);
    QTest::newRow("F1") << int(Qt::Key_F1);
    QTest::newRow("F3") << int(Qt::Key_F3);
    QTest::newRow("menu") << int(Qt::Key_Menu);
    QTest::newRow("escape") << int(Qt::Key_Escape);
    QTest::newRow("unknown key") << int(Qt::Key_Asterisk);
}

void TestWidgetKeypadInput::pressedKeysDoNothing()
{
    QFETCH(int, key);
    ShownKeypad keypad;
    for (bool autoRepeat : {false, true}) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, QString(), autoRepeat);
        QApplication::sendEvent(&keypad, &event);
        QVERIFY(event.isAccepted());  // as it came: the base class would have handed it on
    }
    QCOMPARE(events(), QStringList());
    QCOMPARE(cellStates(keypad), QString("nnnn"));
}

void TestWidgetKeypadInput::pressedDeleteKeyIsAccepted()
{
    ShownKeypad keypad("text");
    for (int i = 0; i < 9; ++i) {
        QKeyEvent event(QEvent::KeyPress, Qt::Key_F4, Qt::NoModifier, QString(), i > 0);
        QApplication::sendEvent(&keypad, &event);
        QVERIFY(event.isAccepted());
    }
}

void TestWidgetKeypadInput::keyOfSeveralCharactersGoesThroughThem_data()
{
    QTest::addColumn<int>("presses");
    QTest::addColumn<QString>("text");
    QTest::newRow("once") << 1 << "a";
    QTest::newRow("twice") << 2 << "b";
    QTest::newRow("three times") << 3 << "c";
    QTest::newRow("up to the last") << 4 << "2";
    QTest::newRow("around the end") << 5 << "a";
    QTest::newRow("twice around") << 10 << "b";
}

void TestWidgetKeypadInput::keyOfSeveralCharactersGoesThroughThem()
{
    QFETCH(int, presses);
    ShownKeypad keypad;
    type(keypad, QString(presses, '2'));
    QTEST(line(keypad)->text(), "text");
    QTEST(enteredText(keypad), "text");
    QCOMPARE(events().filter("inputLetter"), QStringList());
    QCOMPARE(events().filter("keyPressed:50").size(), presses);
}

void TestWidgetKeypadInput::keyOfOneCharacterTypesItAtOnceAndAgain()
{
    ShownKeypad keypad;
    type(keypad, "1101");
    QCOMPARE(line(keypad)->text(), QString("1101"));
    QCOMPARE(sounds(), QList<int>() << 921 << 921 << 920 << 921);
    QCOMPARE(events().filter("inputLetter"), QStringList());
}

void TestWidgetKeypadInput::anotherKeyMakesTheCharacterFinal()
{
    ShownKeypad keypad;
    type(keypad, "22");
    QCOMPARE(eventsOfRelease(keypad, Qt::Key_3),
             QStringList() << ReleaseLog << "inputLetter:b" << "sound:901" << "keyPressed:51");
    QCOMPARE(line(keypad)->text(), QString("bd"));
    type(keypad, "3");
    QCOMPARE(line(keypad)->text(), QString("be"));
}

void TestWidgetKeypadInput::keyOfOneCharacterMakesTheCharacterBeforeFinal()
{
    ShownKeypad keypad;
    type(keypad, "2");
    QCOMPARE(eventsOfRelease(keypad, Qt::Key_0),
             QStringList() << ReleaseLog << "inputLetter:a" << "sound:920" << "keyPressed:48");
    QCOMPARE(eventsOfRelease(keypad, Qt::Key_2), QStringList() << ReleaseLog << "sound:901" << "keyPressed:50");
    QCOMPARE(line(keypad)->text(), QString("a0a"));
}

void TestWidgetKeypadInput::keysWithTheSameTextActAsOne()
{
    ShownKeypad keypad;
    keypad.setKeyText(0, 1, 1, "abc2");
    type(keypad, "252");
    QCOMPARE(line(keypad)->text(), QString("c"));
    QCOMPARE(events().filter("inputLetter"), QStringList());
}

void TestWidgetKeypadInput::anotherPageInsideACycleMakesTheCharacterFinal()
{
    ShownKeypad keypad;
    type(keypad, "2");
    keypad.setPage(1);
    QCOMPARE(eventsOfRelease(keypad, Qt::Key_2),
             QStringList() << ReleaseLog << "inputLetter:a" << "sound:922" << "keyPressed:50");
    QCOMPARE(line(keypad)->text(), QString("a2"));
}

void TestWidgetKeypadInput::samePageSetAgainInsideACycleLetsItGoOn()
{
    ShownKeypad keypad;
    type(keypad, "2");
    keypad.changePage(true);
    keypad.changePage(true);
    type(keypad, "2");
    QCOMPARE(line(keypad)->text(), QString("b"));
    QCOMPARE(litKeys(keypad), QStringList() << "0,1");
}

void TestWidgetKeypadInput::anotherTextInsideACycleMakesTheCharacterFinal()
{
    ShownKeypad keypad;
    type(keypad, "222");
    keypad.setKeyText(0, 0, 1, "xy");
    type(keypad, "22");
    QCOMPARE(line(keypad)->text(), QString("cy"));
    QCOMPARE(events().filter("inputLetter"), QStringList() << "inputLetter:c");
}

void TestWidgetKeypadInput::severalKeysMayShareACell()
{
    ShownKeypad keypad;
    keypad.setKeyMap(Qt::Key_7, 0, 1);
    type(keypad, "27");
    QCOMPARE(line(keypad)->text(), QString("b"));
    QCOMPARE(litKeys(keypad), QStringList() << "0,1");
}

void TestWidgetKeypadInput::unmappedDigitActsAsTheFirstCell()
{
    WidgetKeypad keypad(nullptr, nullptr);
    keypad.setKeyText(0, 0, 0, "xyz");
    keypad.show();
    type(keypad, "78");
    QCOMPARE(line(keypad)->text(), QString("y"));
    QCOMPARE(litKeys(keypad), QStringList() << "0,0");
}

void TestWidgetKeypadInput::unmappedDigitEntersTheMapAsCellZero()
{
    WidgetKeypad keypad(nullptr, SoundManager::getInstance());
    keypad.show();
    type(keypad, "7");
    QCOMPARE(sounds(), QList<int>());
    keypad.hide();
    keypad.setKeyText(0, 0, 0, "x");
    keypad.setInitialLineText("x", false, true, true);
    keypad.show();
    QCOMPARE(sounds(), QList<int>() << 927);
}

void TestWidgetKeypadInput::typingReadsTheKeyTableAndTheVoiceReadsTheLabel()
{
    ShownKeypad keypad;
    keypad.setPage(1);
    keypad.setKeyText(1, 0, 1, "x");
    keypad.setKeyText(1, 0, 2, "2");
    type(keypad, "23");
    QCOMPARE(line(keypad)->text(), QString("x2"));
    QCOMPARE(sounds(), QList<int>() << 922 << 923);
}

void TestWidgetKeypadInput::digitIsSpokenOnlyWhereTheLabelIsThatNumber_data()
{
    QTest::addColumn<QString>("label");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("sound");
    for (int digit = 0; digit <= 9; ++digit)
        QTest::addRow("%d on its digit", digit) << QString::number(digit) << Qt::Key_0 + digit << 920 + digit;
    QTest::newRow("on another digit") << "5" << int(Qt::Key_6) << 901;
    QTest::newRow("among letters") << "jkl5" << int(Qt::Key_5) << 901;
    QTest::newRow("a number of two digits") << "55" << int(Qt::Key_5) << 901;
    QTest::newRow("with a leading zero") << "05" << int(Qt::Key_5) << 925;
    QTest::newRow("another script's digit") << QString(QChar(0x0665)) << int(Qt::Key_5) << 901;
    QTest::newRow("no number counts as 0") << "jkl5" << int(Qt::Key_0) << 920;
    QTest::newRow("a symbol counts as 0") << "+" << int(Qt::Key_0) << 920;
}

void TestWidgetKeypadInput::digitIsSpokenOnlyWhereTheLabelIsThatNumber()
{
    QFETCH(QString, label);
    QFETCH(int, key);
    QFETCH(int, sound);
    ShownKeypad keypad;
    keypad.setKeyText(0, 1, 1, label);
    keypad.setKeyMap(key, 1, 1);
    keypad.setPage(0);
    release(keypad, key);
    QCOMPARE(sounds(), QList<int>() << sound);
}

void TestWidgetKeypadInput::showInsideACycleLeavesTheTimerRunning()
{
    ShownKeypad keypad("x");
    type(keypad, "22");
    keypad.hide();
    keypad.show();
    QCOMPARE(litKeys(keypad), QStringList());
    QCOMPARE(eventsOfRelease(keypad, Qt::Key_2),
             QStringList() << ReleaseLog << "inputLetter:b" << "sound:901" << "keyPressed:50");
    QCOMPARE(line(keypad)->text(), QString("xba"));
}

void TestWidgetKeypadInput::setupUiInsideACycleLetsItGoOn()
{
    ShownKeypad keypad("x");
    type(keypad, "22");
    keypad.setupUi();
    type(keypad, "2");
    QCOMPARE(line(keypad)->text(), QString("xc"));
}

void TestWidgetKeypadInput::f3TypesTheSpaceString_data()
{
    QTest::addColumn<QString>("space");
    QTest::newRow("one blank") << " ";
    QTest::newRow("nothing") << "";
    QTest::newRow("several characters") << ", ";
    QTest::newRow("an underscore") << "_";
}

void TestWidgetKeypadInput::f3TypesTheSpaceString()
{
    QFETCH(QString, space);
    ShownKeypad keypad("x");
    keypad.setSpaceString(space);
    QCOMPARE(eventsOfRelease(keypad, Qt::Key_F3), QStringList() << ReleaseLog << "sound:901" << reported(Qt::Key_F3));
    QCOMPARE(line(keypad)->text(), "x" + space);
    QCOMPARE(enteredText(keypad), "x" + space);
}

void TestWidgetKeypadInput::f3MakesTheCharacterFinalWithoutASpace()
{
    ShownKeypad keypad;
    type(keypad, "22");
    QCOMPARE(eventsOfRelease(keypad, Qt::Key_F3),
             QStringList() << ReleaseLog << "inputLetter:b" << "sound:901" << reported(Qt::Key_F3));
    QCOMPARE(line(keypad)->text(), QString("b"));
    QCOMPARE(litKeys(keypad), QStringList());
    QCOMPARE(cellStates(keypad), QString("nnSn"));
}

void TestWidgetKeypadInput::f3TypesASpaceOnceTheCharacterIsFinal()
{
    ShownKeypad keypad;
    type(keypad, "2");
    release(keypad, Qt::Key_F3);
    release(keypad, Qt::Key_F3);
    type(keypad, "1");
    release(keypad, Qt::Key_F3);
    QCOMPARE(line(keypad)->text(), QString("a 1 "));
    QCOMPARE(events().filter("inputLetter").size(), 1);
}

void TestWidgetKeypadInput::sameKeyAfterF3StartsOver()
{
    ShownKeypad keypad;
    type(keypad, "222");
    release(keypad, Qt::Key_F3);
    type(keypad, "22");
    QCOMPARE(line(keypad)->text(), QString("cb"));
}

void TestWidgetKeypadInput::f4DeletesTheLastCharacter()
{
    ShownKeypad keypad("Home");
    QCOMPARE(eventsOfRelease(keypad, Qt::Key_F4), QStringList() << ReleaseLog << "sound:901" << reported(Qt::Key_F4));
    QCOMPARE(line(keypad)->text(), QString("Hom"));
    QCOMPARE(enteredText(keypad), QString("Hom"));
    QCOMPARE(cellStates(keypad), QString("nnnS"));
}

void TestWidgetKeypadInput::f4OnAnEmptyTextFlashesAndClicks()
{
    ShownKeypad keypad;
    QCOMPARE(eventsOfRelease(keypad, Qt::Key_F4), QStringList() << ReleaseLog << "sound:901" << reported(Qt::Key_F4));
    QCOMPARE(cellStates(keypad), QString("nnnS"));
}

void TestWidgetKeypadInput::f4InsideACycleLetsTheSameKeyReplaceTheCharacterBefore()
{
    ShownKeypad keypad("xy");
    type(keypad, "2");
    release(keypad, Qt::Key_F4);
    QCOMPARE(line(keypad)->text(), QString("xy"));
    QCOMPARE(litKeys(keypad), QStringList() << "0,1");
    type(keypad, "2");
    QCOMPARE(line(keypad)->text(), QString("xb"));
}

void TestWidgetKeypadInput::f4ThatEmptiesTheTextInsideACycleLetsTheSameKeyTypeItsNextCharacter()
{
    ShownKeypad keypad;
    type(keypad, "2");
    release(keypad, Qt::Key_F4);
    type(keypad, "2");
    QCOMPARE(line(keypad)->text(), QString("b"));
    release(keypad, Qt::Key_F4);
    QCOMPARE(eventsOfRelease(keypad, Qt::Key_3), QStringList() << ReleaseLog << "sound:901" << "keyPressed:51");
    release(keypad, Qt::Key_F4);
    QCOMPARE(eventsOfRelease(keypad, Qt::Key_F3), QStringList() << ReleaseLog << "sound:901" << reported(Qt::Key_F3));
    QCOMPARE(line(keypad)->text(), QString());
}

void TestWidgetKeypadInput::sixthRepeatOfAHeldDeleteKeyClearsAll()
{
    ShownKeypad keypad("Home");
    hold(keypad, 5);
    QCOMPARE(events(), QStringList());
    QCOMPARE(line(keypad)->text(), QString("Home"));
    press(keypad, Qt::Key_F4, true);
    QCOMPARE(events(), QStringList() << "sound:901" << "log:16:[keyPressEvent, 157] clear all!!");
    QCOMPARE(line(keypad)->text(), QString());
    for (int i = 0; i < 20; ++i)
        press(keypad, Qt::Key_F4, true);
    QCOMPARE(events().size(), 2);
    QCOMPARE(cellStates(keypad), QString("nnnn"));
    QCOMPARE(enteredText(keypad), QString());
}

void TestWidgetKeypadInput::fiveRepeatsOfAHeldDeleteKeyOnlyDeleteOne()
{
    ShownKeypad keypad("Home");
    hold(keypad, 5);
    release(keypad, Qt::Key_F4);
    QCOMPARE(line(keypad)->text(), QString("Hom"));
}

void TestWidgetKeypadInput::releaseAfterAClearOnlyReports()
{
    ShownKeypad keypad("Home");
    hold(keypad, 6);
    QCOMPARE(eventsOfRelease(keypad, Qt::Key_F4), QStringList() << ReleaseLog << reported(Qt::Key_F4));
    QCOMPARE(cellStates(keypad), QString("nnnn"));
    type(keypad, "1");
    release(keypad, Qt::Key_F4);
    QCOMPARE(line(keypad)->text(), QString("1"));
}

void TestWidgetKeypadInput::freshPressAfterAClearDeletesAgain()
{
    ShownKeypad keypad("Home");
    hold(keypad, 6);
    release(keypad, Qt::Key_F4);
    type(keypad, "10");
    press(keypad, Qt::Key_F4);
    release(keypad, Qt::Key_F4);
    QCOMPARE(line(keypad)->text(), QString("1"));
}

void TestWidgetKeypadInput::showAfterAClearLetsTheReleaseDeleteAgain()
{
    ShownKeypad keypad("Home");
    hold(keypad, 6);
    keypad.hide();
    keypad.setInitialLineText("Home", false, true, false);
    keypad.show();
    release(keypad, Qt::Key_F4);
    QCOMPARE(line(keypad)->text(), QString("Hom"));
}

void TestWidgetKeypadInput::repeatsOfSeveralShortPressesAddUpToAClear()
{
    ShownKeypad keypad("Home");
    hold(keypad, 3);
    release(keypad, Qt::Key_F4);
    hold(keypad, 2);
    release(keypad, Qt::Key_F4);
    QCOMPARE(line(keypad)->text(), QString("Ho"));
    hold(keypad, 1);
    QCOMPARE(line(keypad)->text(), QString());
}

void TestWidgetKeypadInput::deleteKeyThatIsHeldBeforeTheFirstShowCounts()
{
    FilledKeypad keypad;
    RecordingPlatform::reset();
    release(keypad, Qt::Key_F4);
    QVERIFY(events().contains("sound:901"));
    RecordingPlatform::reset();
    hold(keypad, 5);
    QCOMPARE(events(), QStringList());
    press(keypad, Qt::Key_F4, true);
    QCOMPARE(events(), QStringList() << "sound:901" << "log:16:[keyPressEvent, 157] clear all!!");
}

void TestWidgetKeypadInput::keyBeforeTheFirstShowTypesItsFirstCharacter()
{
    FilledKeypad keypad;
    release(keypad, Qt::Key_2);
    QCOMPARE(line(keypad)->text(), QString("a"));
    release(keypad, Qt::Key_2);
    QCOMPARE(line(keypad)->text(), QString("b"));
}

void TestWidgetKeypadInput::otherKeysThatAreHeldDoNothing()
{
    ShownKeypad keypad("Home");
    for (int key : {int(Qt::Key_2), int(Qt::Key_F1), int(Qt::Key_F3), int(Qt::Key_Menu), int(Qt::Key_Escape)}) {
        press(keypad, key);
        for (int i = 0; i < 10; ++i)
            press(keypad, key, true);
    }
    QCOMPARE(events(), QStringList());
    QCOMPARE(line(keypad)->text(), QString("Home"));

    // Nor do they count for the delete key, or let it delete again after it has cleared.
    hold(keypad, 5);
    QCOMPARE(line(keypad)->text(), QString("Home"));
    hold(keypad, 1);
    type(keypad, "1");
    press(keypad, Qt::Key_2);
    release(keypad, Qt::Key_F4);
    QCOMPARE(line(keypad)->text(), QString("1"));
}

void TestWidgetKeypadInput::showAndClearStartTheCountOfRepeatsAnew()
{
    ShownKeypad keypad("Home");
    hold(keypad, 5);
    keypad.hide();
    keypad.show();
    hold(keypad, 5);
    QCOMPARE(line(keypad)->text(), QString("Home"));
    hold(keypad, 1);
    QCOMPARE(line(keypad)->text(), QString());
    type(keypad, "1");
    hold(keypad, 5);
    QCOMPARE(line(keypad)->text(), QString("1"));
    hold(keypad, 1);
    QCOMPARE(line(keypad)->text(), QString());
}

void TestWidgetKeypadInput::clearPutsTheLitKeyToRest()
{
    ShownKeypad keypad;
    type(keypad, "2");
    hold(keypad, 6);
    QCOMPARE(litKeys(keypad), QStringList());
}

void TestWidgetKeypadInput::clearInsideACycleLetsTheSameKeyGoOn()
{
    ShownKeypad keypad("Home");
    type(keypad, "2");
    hold(keypad, 6);
    type(keypad, "2");
    QCOMPARE(line(keypad)->text(), QString("b"));
}

void TestWidgetKeypadInput::firstKeyReplacesTheInitialText_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("entered");
    QTest::newRow("digit key") << int(Qt::Key_2) << "a" << "a";
    QTest::newRow("digit key of one character") << int(Qt::Key_1) << "1" << "1";
    QTest::newRow("F3") << int(Qt::Key_F3) << " " << " ";
    QTest::newRow("F4 empties the text") << int(Qt::Key_F4) << "" << "";
    QTest::newRow("digit key without a text leaves the line as it is") << int(Qt::Key_9) << "Home" << "";
    QTest::newRow("not F1") << int(Qt::Key_F1) << "Home" << "Home";
    QTest::newRow("not F2") << int(Qt::Key_F2) << "Home" << "Home";
    QTest::newRow("not the menu key") << int(Qt::Key_Menu) << "Home" << "Home";
    QTest::newRow("not the escape key") << int(Qt::Key_Escape) << "Home" << "Home";
    QTest::newRow("not an unknown key") << int(Qt::Key_Asterisk) << "Home" << "Home";
}

void TestWidgetKeypadInput::firstKeyReplacesTheInitialText()
{
    QFETCH(int, key);
    FilledKeypad keypad;
    keypad.setKeyText(0, 2, 2, "");
    keypad.setInitialLineText("Home", false, false, false);
    keypad.show();
    release(keypad, key);
    QTEST(line(keypad)->text(), "shown");
    QTEST(enteredText(keypad), "entered");
}

void TestWidgetKeypadInput::firstKeyEditsAKeptInitialText_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("text");
    QTest::newRow("digit key") << int(Qt::Key_2) << "Homea";
    QTest::newRow("F3") << int(Qt::Key_F3) << "Home ";
    QTest::newRow("F4") << int(Qt::Key_F4) << "Hom";
    QTest::newRow("digit key without a text") << int(Qt::Key_9) << "Home";
}

void TestWidgetKeypadInput::firstKeyEditsAKeptInitialText()
{
    QFETCH(int, key);
    ShownKeypad keypad("Home");
    keypad.setKeyText(0, 2, 2, "");
    release(keypad, key);
    QTEST(line(keypad)->text(), "text");
    QTEST(enteredText(keypad), "text");
}

void TestWidgetKeypadInput::secondKeyEditsTheText()
{
    FilledKeypad keypad;
    keypad.setInitialLineText("Home", false, false, false);
    keypad.show();
    type(keypad, "10");
    release(keypad, Qt::Key_F3);
    QCOMPARE(line(keypad)->text(), QString("10 "));
    release(keypad, Qt::Key_F4);
    QCOMPARE(line(keypad)->text(), QString("10"));
}

void TestWidgetKeypadInput::everyShowHasAFirstKey()
{
    FilledKeypad keypad;
    keypad.show();
    type(keypad, "10");
    keypad.hide();
    keypad.show();
    QCOMPARE(enteredText(keypad), QString("10"));
    type(keypad, "0");
    QCOMPARE(line(keypad)->text(), QString("0"));
}

void TestWidgetKeypadInput::firstKeyRuleRunsBeforeTheTestForFullLength()
{
    for (int key : {Qt::Key_1, Qt::Key_F3}) {
        FilledKeypad keypad;
        keypad.setKeyMaxLength(4);
        keypad.setInitialLineText("Home", false, false, false);
        keypad.show();
        release(keypad, key);
        QCOMPARE(line(keypad)->text().length(), 1);
    }
}

void TestWidgetKeypadInput::fullTextRefusesOtherKeysInSilence()
{
    ShownKeypad keypad("abc");
    keypad.setKeyMaxLength(3);
    for (int key : {Qt::Key_2, Qt::Key_1}) {
        QCOMPARE(eventsOfRelease(keypad, key), QStringList() << ReleaseLog);
        QCOMPARE(enteredText(keypad), QString("abc"));
        QCOMPARE(litKeys(keypad), QStringList());
    }
    QCOMPARE(line(keypad)->text(), QString("abc"));
}

void TestWidgetKeypadInput::fullTextLetsTheRunningCycleGoOn()
{
    ShownKeypad keypad("ab");
    keypad.setKeyMaxLength(3);
    type(keypad, "2");
    QCOMPARE(eventsOfRelease(keypad, Qt::Key_2), QStringList() << ReleaseLog << "sound:901" << "keyPressed:50");
    type(keypad, "2");
    QCOMPARE(enteredText(keypad), QString("abc"));
    type(keypad, "22");
    QCOMPARE(enteredText(keypad), QString("aba"));
    QCOMPARE(litKeys(keypad), QStringList() << "0,1");
}

void TestWidgetKeypadInput::refusalDropsTheCycleForGood()
{
    ShownKeypad keypad("ab");
    keypad.setKeyMaxLength(3);
    type(keypad, "2");
    release(keypad, Qt::Key_F1);
    QCOMPARE(eventsOfRelease(keypad, Qt::Key_3), QStringList() << ReleaseLog);
    QCOMPARE(litKeys(keypad), QStringList());
    QCOMPARE(cellStates(keypad), QString("nnnn"));
    QCOMPARE(eventsOfRelease(keypad, Qt::Key_2), QStringList() << ReleaseLog);
    QCOMPARE(enteredText(keypad), QString("aba"));
    release(keypad, Qt::Key_F4);
    type(keypad, "2");
    QCOMPARE(enteredText(keypad), QString("aba"));
}

void TestWidgetKeypadInput::keyOfOneCharacterPressedLastTypesOneBeyondFullLength()
{
    ShownKeypad keypad;
    keypad.setKeyMaxLength(2);
    type(keypad, "11");
    QCOMPARE(eventsOfRelease(keypad, Qt::Key_1), QStringList() << ReleaseLog << "sound:921" << "keyPressed:49");
    QCOMPARE(line(keypad)->text(), QString("11"));
    QCOMPARE(enteredText(keypad), QString("111"));
    QCOMPARE(eventsOfRelease(keypad, Qt::Key_1), QStringList() << ReleaseLog << "keyPressed:49");
    QCOMPARE(enteredText(keypad), QString("111"));
}

void TestWidgetKeypadInput::sameKeyAfterF3DroppedItsCycleTypesOneBeyondFullLength()
{
    ShownKeypad keypad;
    keypad.setKeyMaxLength(1);
    type(keypad, "22");
    release(keypad, Qt::Key_F3);
    type(keypad, "2");
    QCOMPARE(enteredText(keypad), QString("ba"));
    QCOMPARE(line(keypad)->text(), QString("b"));
}

void TestWidgetKeypadInput::textBeyondFullLengthOnlyReportsDigitKeys()
{
    ShownKeypad keypad("wardrobe");
    keypad.setKeyMaxLength(3);
    release(keypad, Qt::Key_F1);
    QCOMPARE(eventsOfRelease(keypad, Qt::Key_2), QStringList() << ReleaseLog << "keyPressed:50");
    QCOMPARE(litKeys(keypad), QStringList());
    QCOMPARE(cellStates(keypad), QString("nnnn"));
    QCOMPARE(enteredText(keypad), QString("wardrobe"));
}

void TestWidgetKeypadInput::textBeyondFullLengthDropsTheCycleThatMadeIt()
{
    ShownKeypad keypad("x");
    keypad.setKeyMaxLength(2);
    type(keypad, "2");
    keypad.setKeyMaxLength(1);
    QCOMPARE(eventsOfRelease(keypad, Qt::Key_2), QStringList() << ReleaseLog << "keyPressed:50");
    keypad.setKeyMaxLength(3);
    type(keypad, "2");
    QCOMPARE(enteredText(keypad), QString("xaa"));
    QCOMPARE(events().filter("inputLetter"), QStringList());
}

void TestWidgetKeypadInput::f3AtFullLengthOnlyReports()
{
    ShownKeypad keypad("abc");
    keypad.setKeyMaxLength(3);
    QCOMPARE(eventsOfRelease(keypad, Qt::Key_F3), QStringList() << ReleaseLog << reported(Qt::Key_F3));
    QCOMPARE(cellStates(keypad), QString("nnnn"));
    QCOMPARE(enteredText(keypad), QString("abc"));
}

void TestWidgetKeypadInput::f3AtFullLengthDropsTheCycleWithoutALetter()
{
    ShownKeypad keypad;
    keypad.setKeyMaxLength(1);
    type(keypad, "2");
    QCOMPARE(eventsOfRelease(keypad, Qt::Key_F3), QStringList() << ReleaseLog << reported(Qt::Key_F3));
    QCOMPARE(litKeys(keypad), QStringList());
    QCOMPARE(eventsOfRelease(keypad, Qt::Key_3), QStringList() << ReleaseLog);
    QCOMPARE(enteredText(keypad), QString("a"));
}

void TestWidgetKeypadInput::longSpaceStringGoesBeyondFullLengthAndDeletingHelps()
{
    ShownKeypad keypad("ab");
    keypad.setKeyMaxLength(3);
    keypad.setSpaceString("---");
    release(keypad, Qt::Key_F3);
    QCOMPARE(line(keypad)->text(), QString("ab-"));
    QCOMPARE(enteredText(keypad), QString("ab---"));
    QCOMPARE(eventsOfRelease(keypad, Qt::Key_2), QStringList() << ReleaseLog << "keyPressed:50");
    QCOMPARE(eventsOfRelease(keypad, Qt::Key_F3), QStringList() << ReleaseLog << reported(Qt::Key_F3));
    release(keypad, Qt::Key_F4);
    release(keypad, Qt::Key_F4);
    QCOMPARE(enteredText(keypad), QString("ab-"));
    QCOMPARE(eventsOfRelease(keypad, Qt::Key_2), QStringList() << ReleaseLog);
    release(keypad, Qt::Key_F4);
    type(keypad, "2");
    QCOMPARE(enteredText(keypad), QString("aba"));
}

void TestWidgetKeypadInput::nothingCanBeTypedWithoutRoom_data()
{
    QTest::addColumn<int>("maxLength");
    QTest::addColumn<QStringList>("eventsOfADigitKey");
    QTest::newRow("no room") << 0 << (QStringList() << ReleaseLog);
    QTest::newRow("negative") << -1 << (QStringList() << ReleaseLog << "keyPressed:50");
    QTest::newRow("the most negative number") << std::numeric_limits<int>::min()
                                              << (QStringList() << ReleaseLog << "keyPressed:50");
}

void TestWidgetKeypadInput::nothingCanBeTypedWithoutRoom()
{
    QFETCH(int, maxLength);
    ShownKeypad keypad;
    keypad.setKeyMaxLength(maxLength);
    QTEST(eventsOfRelease(keypad, Qt::Key_2), "eventsOfADigitKey");
    QCOMPARE(eventsOfRelease(keypad, Qt::Key_F3), QStringList() << ReleaseLog << reported(Qt::Key_F3));
    QCOMPARE(eventsOfRelease(keypad, Qt::Key_F4), QStringList() << ReleaseLog << "sound:901" << reported(Qt::Key_F4));
    hold(keypad, 6);
    QCOMPARE(enteredText(keypad), QString());
}

void TestWidgetKeypadInput::lengthOfOneHoldsOneCharacter()
{
    ShownKeypad keypad;
    keypad.setKeyMaxLength(1);
    type(keypad, "2223");
    QCOMPARE(enteredText(keypad), QString("c"));
    release(keypad, Qt::Key_F4);
    type(keypad, "0");
    QCOMPARE(enteredText(keypad), QString("0"));
}

void TestWidgetKeypadInput::longestTextCanBeFilled()
{
    ShownKeypad keypad;
    keypad.setKeyMaxLength(32767);
    keypad.hide();
    keypad.setInitialLineText(QString(32766, 'x'), false, true, false);
    keypad.show();
    type(keypad, "23");
    QCOMPARE(enteredText(keypad), QString(32766, 'x') + 'a');
    QCOMPARE(line(keypad)->text(), QString(32766, 'x') + 'a');
    hold(keypad, 6);
    QCOMPARE(enteredText(keypad), QString());
}

void TestWidgetKeypadInput::shorterLimitInsideACycleIsHarmless()
{
    ShownKeypad keypad("abc");
    type(keypad, "2");
    keypad.setKeyMaxLength(0);
    type(keypad, "22");
    release(keypad, Qt::Key_F3);
    release(keypad, Qt::Key_F4);
    QCOMPARE(line(keypad)->text(), QString());
    QCOMPARE(enteredText(keypad), QString("abc"));
}

void TestWidgetKeypadInput::pressedKeyIsLit_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    for (int place = 0; place < 12; ++place)
        QTest::addRow("row %d, column %d", place / 3, place % 3) << place / 3 << place % 3;
}

void TestWidgetKeypadInput::pressedKeyIsLit()
{
    QFETCH(int, row);
    QFETCH(int, column);
    ShownKeypad keypad;
    keypad.setKeyMap(Qt::Key_5, row, column);
    type(keypad, "5");
    QCOMPARE(litKeys(keypad), QStringList() << QString("%1,%2").arg(row).arg(column));
    const bool outerKeyOfTheBottomRow = row == 3 && column != 1;
    QCOMPARE(keyLabel(keypad, row, column)->styleSheet(),
             QString(outerKeyOfTheBottomRow ? LitSideKeySheet : LitKeySheet));
}

void TestWidgetKeypadInput::onlyOneKeyIsLit()
{
    ShownKeypad keypad;
    type(keypad, "2");
    type(keypad, "3");
    QCOMPARE(litKeys(keypad), QStringList() << "0,2");
    type(keypad, "0");
    QCOMPARE(litKeys(keypad), QStringList() << "3,1");
}

void TestWidgetKeypadInput::keyOfOneCharacterIsLitForAMoment()
{
    ShownKeypad keypad;
    Schedule schedule;
    QStringList lit{"not seen"};
    schedule.at(95, [&] { lit = litKeys(keypad); });
    type(keypad, "1");
    QCOMPARE(litKeys(keypad), QStringList() << "0,0");
    QStringList litLater{"not seen"};
    schedule.at(105, [&] { litLater = litKeys(keypad); });
    QVERIFY(schedule.run());
    QCOMPARE(lit, QStringList() << "0,0");
    QCOMPARE(litLater, QStringList());
}

void TestWidgetKeypadInput::keyOfTwoCharactersStaysLit()
{
    ShownKeypad keypad;
    keypad.setKeyText(0, 0, 1, "xy");
    Schedule schedule;
    type(keypad, "2");
    QStringList lit{"not seen"};
    schedule.at(105, [&] { lit = litKeys(keypad); });
    QVERIFY(schedule.run());
    QCOMPARE(lit, QStringList() << "0,1");
}

void TestWidgetKeypadInput::earlierFlashPutsLaterKeyToRest()
{
    ShownKeypad keypad;
    type(keypad, "12");
    QCOMPARE(litKeys(keypad), QStringList() << "0,1");
    Schedule schedule;
    schedule.at(105, [&] {
        QCOMPARE(litKeys(keypad), QStringList());
        type(keypad, "2");
        QCOMPARE(line(keypad)->text(), QString("1b"));
        QCOMPARE(litKeys(keypad), QStringList() << "0,1");
    });
    QVERIFY(schedule.run());
}

void TestWidgetKeypadInput::functionKeysFlashTheirCells_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("selected");
    QTest::newRow("F1") << int(Qt::Key_F1) << "Snnn";
    QTest::newRow("F2") << int(Qt::Key_F2) << "nSnn";
    QTest::newRow("F3") << int(Qt::Key_F3) << "nnSn";
    QTest::newRow("F4") << int(Qt::Key_F4) << "nnnS";
}

void TestWidgetKeypadInput::functionKeysFlashTheirCells()
{
    QFETCH(int, key);
    ShownKeypad keypad;
    Schedule schedule;
    QString states;
    schedule.at(95, [&] { states = cellStates(keypad); });
    release(keypad, key);
    QTEST(cellStates(keypad), "selected");
    QCOMPARE(litKeys(keypad), QStringList());
    QString statesLater;
    schedule.at(105, [&] { statesLater = cellStates(keypad); });
    QVERIFY(schedule.run());
    QTEST(states, "selected");
    QCOMPARE(statesLater, QString("nnnn"));
}

void TestWidgetKeypadInput::flashesTakeATenthOfASecond()
{
    const auto shots = [] {
        QList<int> intervals;
        const QObjectList timers = QAbstractEventDispatcher::instance()->children();
        for (QObject *timer : timers) {
            for (const auto &info : QAbstractEventDispatcher::instance()->registeredTimers(timer))
                intervals.append(info.interval);
        }
        return intervals;
    };
    ShownKeypad keypad;
    const QList<int> before = shots();
    type(keypad, "1");
    QCOMPARE(shots(), before + QList<int>{100});
    release(keypad, Qt::Key_F1);
    QCOMPARE(shots(), before + QList<int>({100, 100}));
}

void TestWidgetKeypadInput::characterIsFinalAfterTwelveTenthsOfASecond()
{
    struct TimerWatch : QObject
    {
        bool eventFilter(QObject *watched, QEvent *event) override
        {
            if (event->type() == QEvent::Timer && qobject_cast<QTimer *>(watched))
                intervals.append(static_cast<QTimer *>(watched)->interval());
            return false;
        }
        QList<int> intervals;
    } watch;
    ShownKeypad keypad;
    type(keypad, "2");
    QSignalSpy letters(&keypad, &WidgetKeypad::inputLetter);
    qApp->installEventFilter(&watch);
    EVENTUALLY_COMPARE(letters.count(), 1);
    QVERIFY(watch.intervals.contains(1200));
}

void TestWidgetKeypadInput::f1ThenF2Within100msLeavesF1Selected()
{
    ShownKeypad keypad;
    release(keypad, Qt::Key_F1);
    release(keypad, Qt::Key_F2);
    QCOMPARE(cellStates(keypad), QString("SSnn"));
    passTime(200);
    QCOMPARE(cellStates(keypad), QString("Snnn"));
    keypad.setupUi();
    QCOMPARE(cellStates(keypad), QString("nnnn"));
}

void TestWidgetKeypadInput::passwordModeTellsNothing_data()
{
    QTest::addColumn<int>("page");
    QTest::newRow("letters") << 0;
    QTest::newRow("digits") << 1;
}

void TestWidgetKeypadInput::passwordModeTellsNothing()
{
    QFETCH(int, page);
    FilledKeypad keypad;
    keypad.hideText(true);
    keypad.setInitialLineText("", true, false, false);
    keypad.show();
    keypad.setPage(page);
    for (char key : QByteArray("1234567890")) {
        type(keypad, QString(QLatin1Char(key)));
        QCOMPARE(litKeys(keypad), QStringList());
        QCOMPARE(line(keypad)->echoMode(), QLineEdit::Password);
        QVERIFY(!line(keypad)->displayText().contains(QRegularExpression("[0-9a-z]")));
    }
    release(keypad, Qt::Key_F3);
    release(keypad, Qt::Key_F4);
    release(keypad, Qt::Key_Menu);
    const QList<int> played = sounds();
    QCOMPARE(int(played.size()), 13);
    QCOMPARE(int(played.count(901)), 13);
    const QStringList log = RecordingPlatform::logTexts(16);
    QCOMPARE(log.size(), RecordingPlatform::logLines().size());
    QCOMPARE(QSet<QString>(log.begin(), log.end()), QSet<QString>{"WidgetKeypad keyReleaseEvent"});
}

void TestWidgetKeypadInput::passwordModeMasksTheLineFromTheFirstUpdateOn()
{
    ShownKeypad keypad("x");
    keypad.hideText(true);
    QCOMPARE(line(keypad)->echoMode(), QLineEdit::Normal);
    type(keypad, "2");
    QCOMPARE(line(keypad)->echoMode(), QLineEdit::Password);
    QCOMPARE(line(keypad)->text(), QString("xa"));
}

void TestWidgetKeypadInput::hideTextPutsALitKeyToRestOnlyOnceAnEchoModeWasApplied()
{
    ShownKeypad keypad;
    type(keypad, "2");
    keypad.hideText(true);
    QCOMPARE(litKeys(keypad), QStringList());

    FilledKeypad untouched;
    untouched.setInitialLineText("abc2", false, true, true);
    untouched.show();
    QCOMPARE(litKeys(untouched), QStringList() << "0,1");
    untouched.hideText(true);
    QCOMPARE(litKeys(untouched), QStringList() << "0,1");
    type(untouched, "2");
    QCOMPARE(litKeys(untouched), QStringList());
}

void TestWidgetKeypadInput::plainModeCanComeBack()
{
    ShownKeypad keypad;
    keypad.hideText(true);
    type(keypad, "1");
    keypad.hideText(false);
    QCOMPARE(line(keypad)->echoMode(), QLineEdit::Password);
    type(keypad, "1");
    QCOMPARE(line(keypad)->echoMode(), QLineEdit::Normal);
    QCOMPARE(litKeys(keypad), QStringList() << "0,0");
    QCOMPARE(sounds(), QList<int>() << 901 << 921);
}

// All rows wait for the end of the interval together: each has its own keypad and is compared after the wait.
namespace {

struct Expiry
{
    const char *name;
    Call prepare;
    QString letters;
    QString textOfTheSameKeyAgain;
};

const Expiry Expiries[] = {
    {"the character is final", [](WidgetKeypad &k) { type(k, "222"); }, "c", "ca"},
    {"once for each key", [](WidgetKeypad &k) { type(k, "23"); }, "ad", "ada"},
    {"after F4 what is left is reported", [](WidgetKeypad &k) { type(k, "12"); release(k, Qt::Key_F4); }, "1", "1a"},
    {"an empty text is not reported", [](WidgetKeypad &k) { type(k, "2"); release(k, Qt::Key_F4); }, "", "a"},
    {"a cleared text is not reported", [](WidgetKeypad &k) { type(k, "2"); hold(k, 6); }, "", "a"},
    {"not after F3", [](WidgetKeypad &k) { type(k, "2"); release(k, Qt::Key_F3); }, "a", "aa"},
    {"not after a refusal", [](WidgetKeypad &k) { k.setKeyMaxLength(1); type(k, "23"); }, "", "a"},
    {"not for a key of one character", [](WidgetKeypad &k) { type(k, "1"); }, "", "1a"},
    {"a full text now refuses the same key too", [](WidgetKeypad &k) { k.setKeyMaxLength(1); type(k, "2"); }, "a", "a"},
    {"in password mode too", [](WidgetKeypad &k) { k.hideText(true); type(k, "22"); }, "b", "ba"},
    {"the last of the shown text after a show", [](WidgetKeypad &k) {
         type(k, "12");
         k.hide();
         k.setInitialLineText("xyz", false, true, false);
         k.show();
     }, "z", "xyza"},
    {"nothing once a slot has deleted the keypad", [](WidgetKeypad &k) {
         QObject::connect(&k, &WidgetKeypad::inputLetter, &k, [&k] { delete &k; });
         type(k, "2");
     }, "a", "deleted"},
};

struct Expired
{
    QPointer<FilledKeypad> keypad;
    QString letters;
};

std::vector<Expired> s_expired;

}

void TestWidgetKeypadInput::intervalEnds_data()
{
    QTest::addColumn<int>("index");
    s_expired.clear();
    s_expired.resize(std::size(Expiries));
    for (int i = 0; i < int(std::size(Expiries)); ++i) {
        QTest::newRow(Expiries[i].name) << i;
        Expired &expired = s_expired[i];
        expired.keypad = new FilledKeypad;
        expired.keypad->show();
        connect(expired.keypad, &WidgetKeypad::inputLetter, [&expired](QChar letter) { expired.letters += letter; });
        Expiries[i].prepare(*expired.keypad);
    }
    // Past what would be the end of a second one.
    passTime(2700);
}

void TestWidgetKeypadInput::intervalEnds()
{
    QFETCH(int, index);
    const std::unique_ptr<FilledKeypad> keypad(s_expired[index].keypad);
    QCOMPARE(s_expired[index].letters, Expiries[index].letters);
    QString text = "deleted";
    if (keypad) {
        QCOMPARE(litKeys(*keypad), QStringList());
        type(*keypad, "2");
        text = enteredText(*keypad);
    }
    QCOMPARE(text, Expiries[index].textOfTheSameKeyAgain);
}

void TestWidgetKeypadInput::everyPressStartsTheIntervalAnew()
{
    // The interval is 1200 ms, give or take a twentieth: the toolkit's timers of this length are no better.
    ShownKeypad keypad;
    Schedule schedule;
    type(keypad, "2");
    QStringList eventsBefore{"not seen"};
    QStringList eventsAfter;
    schedule.at(400, [&] {
        QCOMPARE(litKeys(keypad), QStringList() << "0,1");
        schedule.at(1135, [&] { eventsBefore = events(); });
        type(keypad, "2");
        RecordingPlatform::reset();
        schedule.at(1265, [&] { eventsAfter = events(); });
    });
    QVERIFY(schedule.run());
    QCOMPARE(eventsBefore, QStringList());
    QCOMPARE(eventsAfter, QStringList() << "inputLetter:b");
    QCOMPARE(litKeys(keypad), QStringList());
}

void TestWidgetKeypadInput::firstCharacterAfterAnInitialTextHidesItAgain()
{
    ShownKeypad keypad;
    keypad.hideText(true);
    type(keypad, "1");
    QCOMPARE(line(keypad)->echoMode(), QLineEdit::Password);
    keypad.setInitialLineText("Home", false, true, false);
    QCOMPARE(line(keypad)->echoMode(), QLineEdit::Normal);
    type(keypad, "1");
    QCOMPARE(line(keypad)->echoMode(), QLineEdit::Password);
}

void TestWidgetKeypadInput::slotMayDeleteTheKeypad_data()
{
    QTest::addColumn<Call>("prepare");
    QTest::addColumn<int>("key");
    const Call nothing = [](WidgetKeypad &) {};
    const auto add = [](const char *name, const Call &prepare, int key) { QTest::newRow(name) << prepare << key; };
    add("digit key", nothing, Qt::Key_2);
    add("digit key of one character", nothing, Qt::Key_1);
    add("digit key without a text", [](WidgetKeypad &k) { k.setKeyText(0, 0, 1, ""); }, Qt::Key_2);
    add("digit key beyond full length", [](WidgetKeypad &k) { type(k, "10"); k.setKeyMaxLength(1); }, Qt::Key_2);
    add("F1", nothing, Qt::Key_F1);
    add("F2", nothing, Qt::Key_F2);
    add("F3", nothing, Qt::Key_F3);
    add("F3 at full length", [](WidgetKeypad &k) { k.setKeyMaxLength(0); }, Qt::Key_F3);
    add("F4", nothing, Qt::Key_F4);
    add("F4 after a clear", [](WidgetKeypad &k) { hold(k, 6); }, Qt::Key_F4);
    add("menu", nothing, Qt::Key_Menu);
    add("escape", nothing, Qt::Key_Escape);
    add("unknown key", nothing, Qt::Key_Asterisk);
    add("another digit key inside a cycle", [](WidgetKeypad &k) { type(k, "2"); }, Qt::Key_3);
    add("F3 inside a cycle", [](WidgetKeypad &k) { type(k, "2"); }, Qt::Key_F3);
}

void TestWidgetKeypadInput::slotMayDeleteTheKeypad()
{
    QFETCH(Call, prepare);
    QFETCH(int, key);
    FilledKeypad *keypad = new FilledKeypad;
    keypad->show();
    prepare(*keypad);
    int calls = 0;
    const auto kill = [keypad, &calls] {
        ++calls;
        delete keypad;
    };
    connect(keypad, &WidgetKeypad::cancel, keypad, kill);
    connect(keypad, &WidgetKeypad::ready, keypad, kill);
    connect(keypad, &WidgetKeypad::keyPressed, keypad, kill);
    connect(keypad, &WidgetKeypad::inputLetter, keypad, kill);
    release(*keypad, key);
    QCOMPARE(calls, 1);
}

void TestWidgetKeypadInput::slotMayTypeOnAndChangeEverything()
{
    ShownKeypad keypad;
    bool nested = false;
    connect(&keypad, &WidgetKeypad::inputLetter, [&] {
        if (nested)
            return;
        nested = true;
        keypad.setPage(1);
        type(keypad, "7");
        keypad.setPage(0);
        keypad.setKeyText(0, 0, 2, "");
        type(keypad, "44");
    });
    type(keypad, "23");
    QCOMPARE(line(keypad)->text(), QString("a7d"));
    type(keypad, "44");
    QCOMPARE(enteredText(keypad), QString("a7dh"));
}

// Characters are QChars: what the signal can carry.
void TestWidgetKeypadInput::charactersOfTwoUnitsAreTypedAndDeletedUnitByUnit()
{
    const QString emoji = QString::fromUtf8("\xf0\x9f\x98\x80");
    ShownKeypad keypad("x");
    keypad.setKeyText(0, 0, 1, emoji);
    keypad.setPage(0);
    QCOMPARE(keyLabel(keypad, 0, 1)->text(), emoji);
    type(keypad, "2");
    QCOMPARE(enteredText(keypad), "x" + emoji.left(1));
    type(keypad, "2");
    QCOMPARE(enteredText(keypad), "x" + emoji.mid(1));
    keypad.hide();
    keypad.setInitialLineText("x" + emoji + "y", false, true, false);
    keypad.show();
    QApplication::processEvents();
    release(keypad, Qt::Key_F4);
    QCOMPARE(enteredText(keypad), "x" + emoji);
    release(keypad, Qt::Key_F4);
    QCOMPARE(enteredText(keypad), "x" + emoji.left(1));
    keypad.grab();
    release(keypad, Qt::Key_F4);
    QCOMPARE(line(keypad)->text(), QString("x"));
}

void TestWidgetKeypadInput::combiningMarksAreCharactersOfTheirOwn()
{
    const QString mark = QString(QChar(0x0301));
    ShownKeypad keypad;
    keypad.setKeyText(0, 0, 1, "e" + mark);
    keypad.setKeyText(0, 0, 2, mark);
    keypad.setPage(0);
    type(keypad, "22");
    QCOMPARE(line(keypad)->text(), mark);
    keypad.grab();
    type(keypad, "3");
    QCOMPARE(line(keypad)->text(), mark + mark);
    release(keypad, Qt::Key_F4);
    QCOMPARE(line(keypad)->text(), mark);
}

void TestWidgetKeypadInput::keyTextOfAnyLengthIsGoneThrough()
{
    QString text;
    for (int i = 0; i < 2000; ++i)
        text += QChar(0x4e00 + i);
    ShownKeypad keypad;
    keypad.setKeyText(0, 0, 1, text);
    keypad.setPage(0);
    type(keypad, QString(2000, '2'));
    QCOMPARE(line(keypad)->text(), text.right(1));
    type(keypad, "2");
    QCOMPARE(line(keypad)->text(), text.left(1));
}

// Tells what happens to the parts of a keypad besides painting.
class PartsWatcher : public QObject
{
public:
    explicit PartsWatcher(const QWidget &keypad)
    {
        for (QWidget *part : keypad.findChildren<QWidget *>())
            part->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        switch (event->type()) {
        case QEvent::StyleChange:
            dressed.insert(watched);
            ++dressings;
            break;
        case QEvent::Paint:
            painted.insert(watched);
            break;
        case QEvent::Resize: {
            // A label whose border comes or goes is also told its old size again.
            const QResizeEvent *resize = static_cast<QResizeEvent *>(event);
            layouts += resize->size() != resize->oldSize();
            break;
        }
        case QEvent::Move:
        case QEvent::Show:
        case QEvent::Hide:
        case QEvent::FontChange:
        case QEvent::LayoutRequest:
            ++layouts;
            break;
        default:
            break;
        }
        return false;
    }

    QSet<QObject *> dressed;
    QSet<QObject *> painted;
    int dressings = 0;
    int layouts = 0;
};

void TestWidgetKeypadInput::digitKeyDressesAtMostTwoCellsAndLaysOutNothing()
{
    ShownKeypad keypad;
    QVERIFY(QTest::qWaitForWindowExposed(&keypad, LongestWait));
    type(keypad, "2");
    QApplication::sendPostedEvents();  // paints, and ends no cycle
    PartsWatcher watcher(keypad);
    type(keypad, "3");
    QApplication::sendPostedEvents();
    const QSet<QObject *> keys = {keyLabel(keypad, 0, 1), keyLabel(keypad, 0, 2)};
    QCOMPARE(watcher.dressed, keys);
    QCOMPARE(watcher.dressings, 2);
    QCOMPARE(watcher.layouts, 0);
    QCOMPARE(watcher.painted, keys + QSet<QObject *>{line(keypad)});
}

void TestWidgetKeypadInput::keyThatStaysLitIsNotDressedAgain()
{
    ShownKeypad keypad;
    QVERIFY(QTest::qWaitForWindowExposed(&keypad, LongestWait));
    type(keypad, "2");
    QApplication::sendPostedEvents();
    PartsWatcher watcher(keypad);
    type(keypad, "22");
    QApplication::sendPostedEvents();
    QCOMPARE(watcher.dressings, 0);
    QCOMPARE(watcher.layouts, 0);
    QCOMPARE(watcher.painted, QSet<QObject *>{line(keypad)});
}

void TestWidgetKeypadInput::typingForALongTimeTakesNoMemory()
{
#ifdef HAS_MALLINFO2
    ShownKeypad keypad;
    const auto typeAndDelete = [&](int times) {
        for (int i = 1; i <= times; ++i) {
            for (int character = 0; character < 48; ++character)
                release(keypad, Qt::Key_0 + character % 10);
            for (int character = 0; character < 48; ++character)
                release(keypad, Qt::Key_F4);
            RecordingPlatform::reset();
            if (i % 20 == 0)
                passTime(110);  // the flashes end
        }
        RecordingPlatform::reset();
        const struct mallinfo2 used = mallinfo2();
        return qint64(used.uordblks + used.hblkhd);
    };
    // The toolkit's own lists grow until they are long enough. With a single byte for each key, the memory would grow by
    // the number of keys for ever, however often that number is doubled.
    int times = 200;
    qint64 keys = 0;
    qint64 growth = 1;
    qint64 before = typeAndDelete(times);
    while (growth > keys / 2 && times <= 1600) {
        const qint64 after = typeAndDelete(times);
        keys = 96 * times;
        growth = after - before;
        before = after;
        times *= 2;
    }
    QCOMPARE(line(keypad)->text(), QString());
    QVERIFY2(growth <= keys / 2, qPrintable(QString("%1 bytes more with %2 keys more").arg(growth).arg(keys)));
#else
    QSKIP("The C library does not tell how much memory is in use.");
#endif
}

void TestWidgetKeypadInput::randomTypingIsHarmless()
{
    const int keys[] = {Qt::Key_0, Qt::Key_1, Qt::Key_2, Qt::Key_3, Qt::Key_4, Qt::Key_5, Qt::Key_6, Qt::Key_7,
                        Qt::Key_8, Qt::Key_9, Qt::Key_F1, Qt::Key_F2, Qt::Key_F3, Qt::Key_F4, Qt::Key_F4, Qt::Key_F4,
                        Qt::Key_Menu, Qt::Key_Escape, Qt::Key_Asterisk, Qt::Key_NumberSign, Qt::Key_Up};
    const QStringList texts = {"", "1", "abc2", "+", QString::fromUtf8("\xf0\x9f\x98\x80"),
                               QString::fromUtf8("e\xcc\x81"), QString(300, 'x'), "<b>x</b>"};
    const int lengths[] = {0, 1, 2, 3, 48, 48, 48, 200, 32767};
#ifdef IS_EMULATED
    const int keyCount = 10000;
#else
    const int keyCount = 200000;
#endif
    const uint seed = 20240229;
    std::mt19937 random(seed);
    const auto below = [&random](int count) { return int(random() % uint(count)); };

    QWidget window;
    std::unique_ptr<FilledKeypad> keypad;
    QString entered;
    const auto reopen = [&] {
        keypad.reset(new FilledKeypad(&window));
        connect(keypad.get(), &WidgetKeypad::ready, [&](const QString &text) { entered = text; });
        connect(keypad.get(), &WidgetKeypad::keyPressed, [&](int key) {
            if (key == Qt::Key_Asterisk)
                keypad->changePage(below(2) == 0);
        });
        keypad->show();
    };
    window.show();
    reopen();
    for (int i = 0; i < keyCount; ++i) {
        const int key = keys[below(int(std::size(keys)))];
        press(*keypad, key, below(3) == 0);
        release(*keypad, key);
        switch (below(400)) {
        case 0:
            keypad->setKeyMaxLength(lengths[below(int(std::size(lengths)))]);
            break;
        case 1:
            keypad->setKeyText(below(7), below(5), below(4), texts.at(below(int(texts.size()))));
            break;
        case 2:
            keypad->setKeyMap(Qt::Key_0 + below(10), below(5), below(4));
            break;
        case 3:
            keypad->enablePage(below(7), below(2) == 0);
            break;
        case 4:
            keypad->setPage(below(7));
            break;
        case 5:
            keypad->hideText(below(2) == 0);
            break;
        case 6:
            keypad->setSpaceString(texts.at(below(int(texts.size()))));
            break;
        case 7:
            keypad->setInitialLineText(texts.at(below(int(texts.size()))), below(2), below(2), below(2));
            break;
        case 8:
            keypad->hide();
            keypad->show();
            break;
        case 9:
            QApplication::processEvents();
            break;
        default:
            break;
        }
        if (i % 20000 == 19999)
            reopen();
        if (i % 20 == 0) {
            QVERIFY2(litKeys(*keypad).size() <= 1, qPrintable(QString("seed %1, key %2").arg(seed).arg(i)));
            release(*keypad, Qt::Key_Menu);
            QVERIFY(line(*keypad)->maxLength() > 0 || line(*keypad)->text().isEmpty());
            RecordingPlatform::reset();
        }
    }

    // What came out of it still works.
    keypad->setKeyMaxLength(48);
    fill(*keypad);
    keypad->enablePage(0, true);
    keypad->hide();
    keypad->setInitialLineText("", false, false, false);
    keypad->show();
    type(*keypad, "1230");
    QCOMPARE(enteredText(*keypad), QString("1ad0"));
}

QTEST_MAIN(TestWidgetKeypadInput)
#include "tst_widgetkeypadinput.moc"

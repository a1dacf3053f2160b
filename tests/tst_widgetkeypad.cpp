#include "keypadtesting.h"
#include "waiting.h"

#include <QtTest>

#include <functional>
#include <memory>

using namespace KeypadTesting;

// What a keypad shows and how it is set up. tst_widgetkeypadinput types on it.
class TestWidgetKeypad : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void hasItsSignalsAndPrivateSlotsInOrder();
    void enumerationsHaveTheirValues();
    void createsItsPartsInOrder();
    void textLineStartsEmptyAndPlain();
    void keysStartEmptyAndCentred();
    void barAndCellsStandInTheirPlaces();
    void onlyTheFirstTwoCellsGetAFont();
    void startsInSilence();

    void gridFillsTheSpaceBelowTheBar_data();
    void gridFillsTheSpaceBelowTheBar();
    void sparePixelsGoToTheUpperRowsAndTheLeftColumns();
    void textLineTakesTheWidthAndItsOwnHeight();
    void withoutALineHeightTheGridBeginsBelowTheBarsHeight();
    void barStaysWhereItIsBelowATallerLine();
    void linesHeightEndsWhereTheToolkitCanStillAddIt();
    void linesHeightIsUsedFromTheNextShowOn();
    void absurdSizesAreHarmless_data();
    void absurdSizesAreHarmless();
    void resizedKeypadIsLaidOutBySetupUi();
    void showTurnsTheTextToTheRight();
    void everyShowAppendsToTheSheetOfTheLine();
    void linesSheetCanBeMadeShortAgain();
    void showLeavesTheSheetsOfTheKeysAtRest();
    void showingAgainDressesNothingButTheLine();

    void keyTextsShowFromTheNextSetPageOn();
    void keyTextsArePlain();
    void keypadWithoutKeyTextsIsEmpty();
    void allPagesAreEnabledAtFirst();
    void textIsSeenAtFirst();
    void everyShowStartsOnTheLowestEnabledPage_data();
    void everyShowStartsOnTheLowestEnabledPage();
    void setInitialPageDoesNotShowThePage();
    void pagesCountFromTheFirstBeforeTheShow();
    void changePageGoesToTheNextEnabledPage_data();
    void changePageGoesToTheNextEnabledPage();
    void changePageWithNoPageEnabledChangesNothing();
    void changePageStaysOnTheOnlyEnabledPage();
    void changePageLeavesADisabledPage();
    void withNoPageEnabledShowLeavesAllKeysEmpty();
    void pagesEnabledAfterSuchAShowCanBeReached_data();
    void pagesEnabledAfterSuchAShowCanBeReached();
    void setPageShowsThePage();
    void setPageIgnoresADisabledPageInSilence();
    void changingThePagePutsALitKeyToRest();
    void changingThePageDressesOnlyWhatChanges();
    void pagesChangeWithoutSoundAndSignal();
    void argumentsOutOfRangeAreRejected_data();
    void argumentsOutOfRangeAreRejected();

    void initialTextShowsAtOnceAndPlainly();
    void initialTextBringsTheFirstFontBack();
    void initialTextIsTheEnteredTextOnlyFromTheNextShowOn();
    void initialTextEndsPasswordMasking();
    void maskedInitialTextIsMaskedFromTheShowOn();
    void unmaskedInitialTextShowsPlainlyAlsoInPasswordModeUntilTheFirstUpdate();
    void maxLengthCutsTheLineAtOnceAndTheEnteredTextAtTheNextShow();
    void maxLengthIsTheLines_data();
    void maxLengthIsTheLines();
    void placeholderIsTheLines();

    void initialKeyIsLitAndSpeaks_data();
    void initialKeyIsLitAndSpeaks();
    void initialKeySpeaksWithItsFirstDigitKey();
    void everyMatchOnEveryEnabledPageSoundsAndTheLastStaysLit();
    void disabledPagesAreNotSearchedForTheInitialKey();
    void everyShowSearchesTheInitialKeyAgain();
    void emptyLineMatchesEveryEmptyKey();
    void allPagesAreSearchedForTheInitialKey();
    void initialKeyIsComparedWithTheTextThatTheLineKept();
    void initialKeyOfOneCharacterGoesToRestAfterAMoment();
    void initialKeyOfSeveralCharactersStaysLit();
    void lengthOfTheInitialKeyIsMeasuredOnThePageInUse();

    void cellsTakeTheirRestStyleAtTheShow();
    void cellsWithoutStylesHaveEmptySheets();
    void onlyTheFirstTwoCellsTakeATextAndShowItPlainly();
    void hidesAndShowsSingleCells();
    void setItemFontBringsTheFirstFontBack();
};

// Counts how often the widgets that it watches are dressed.
class DressingCounter : public QObject
{
public:
    explicit DressingCounter(const QWidget &widget)
    {
        for (QWidget *child : widget.findChildren<QWidget *>())
            child->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::StyleChange)
            dressed << watched;
        return false;
    }

    QList<QObject *> dressed;
};

static QString enteredText(WidgetKeypad &keypad)
{
    QString text;
    const auto connection =
        QObject::connect(&keypad, &WidgetKeypad::ready, [&text](const QString &ready) { text = ready; });
    release(keypad, Qt::Key_Menu);
    QObject::disconnect(connection);
    return text;
}

// Six pages on which each key shows the number of the page; only those in \a enabled take part.
static void fillWithPageNumbers(WidgetKeypad &keypad, const QString &enabled)
{
    for (int page = 0; page < 6; ++page) {
        for (int place = 0; place < 12; ++place)
            keypad.setKeyText(page, place / 3, place % 3, QString::number(page));
        keypad.enablePage(page, enabled.contains(QString::number(page)));
    }
}

void TestWidgetKeypad::init()
{
    RecordingPlatform::reset();
}

void TestWidgetKeypad::hasItsSignalsAndPrivateSlotsInOrder()
{
    const QMetaObject &meta = WidgetKeypad::staticMetaObject;
    QCOMPARE(meta.className(), "WidgetKeypad");
    QCOMPARE(meta.superClass(), &Widget::staticMetaObject);
    QStringList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        const char *kind = method.methodType() == QMetaMethod::Signal ? "signal "
                           : method.access() == QMetaMethod::Private  ? "private slot "
                                                                      : "? ";
        methods << kind + QString::fromLatin1(method.methodSignature());
    }
    QCOMPARE(methods, QStringList() << "signal cancel()" << "signal ready(QString)" << "signal keyPressed(int)"
                                    << "signal inputLetter(QChar)" << "private slot clearSelection()"
                                    << "private slot selectNextChar()" << "private slot clearItemSelection()");
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
}

void TestWidgetKeypad::enumerationsHaveTheirValues()
{
    QCOMPARE(int(WidgetKeypad::ItemButton1), 0);
    QCOMPARE(int(WidgetKeypad::ItemButton2), 1);
    QCOMPARE(int(WidgetKeypad::ItemSpace), 2);
    QCOMPARE(int(WidgetKeypad::ItemDelete), 3);
    QCOMPARE(int(WidgetKeypad::StateNormal), 0);
    QCOMPARE(int(WidgetKeypad::StateSelected), 1);
}

void TestWidgetKeypad::createsItsPartsInOrder()
{
    WidgetKeypad keypad(nullptr, nullptr);
    const QList<QWidget *> parts = keypad.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    QCOMPARE(parts.size(), 14);
    QVERIFY(qobject_cast<QLineEdit *>(parts.at(0)));
    for (int i = 1; i < 14; ++i)
        QCOMPARE(parts.at(i)->metaObject()->className(), "QLabel");
    QCOMPARE(ownLabels(*parts.at(13)).size(), 4);
}

void TestWidgetKeypad::textLineStartsEmptyAndPlain()
{
    WidgetKeypad keypad(nullptr, nullptr);
    const QLineEdit *lineEdit = line(keypad);
    QCOMPARE(lineEdit->font().pointSize(), 16);
    QCOMPARE(int(lineEdit->font().weight()), int(QFont::Bold));
    QCOMPARE(lineEdit->focusPolicy(), Qt::NoFocus);
    QVERIFY(!lineEdit->hasFrame());
    QCOMPARE(lineEdit->maxLength(), 48);
    QCOMPARE(lineEdit->styleSheet(), QString(LineSheet));
    QCOMPARE(lineEdit->text(), QString());
    QCOMPARE(lineEdit->echoMode(), QLineEdit::Normal);
}

void TestWidgetKeypad::keysStartEmptyAndCentred()
{
    WidgetKeypad keypad(nullptr, nullptr);
    for (int place = 0; place < 12; ++place) {
        const QLabel *label = keyLabel(keypad, place / 3, place % 3);
        QCOMPARE(label->alignment(), Qt::AlignHCenter | Qt::AlignVCenter);
        QCOMPARE(label->font().pointSize(), 16);
        QCOMPARE(int(label->font().weight()), int(QFont::Bold));
        QCOMPARE(label->text(), QString());
    }
}

void TestWidgetKeypad::barAndCellsStandInTheirPlaces()
{
    WidgetKeypad keypad(nullptr, nullptr);
    QCOMPARE(itemBar(keypad)->geometry(), QRect(0, 38, 220, 23));
    QCOMPARE(itemBar(keypad)->styleSheet(), QString("background-color: #6e6464;"));
    for (int item = 0; item < 4; ++item) {
        QCOMPARE(cell(keypad, item)->geometry(), QRect(55 * item, 0, 55, 23));
        QCOMPARE(cell(keypad, item)->alignment(), Qt::AlignHCenter | Qt::AlignVCenter);
    }
}

void TestWidgetKeypad::onlyTheFirstTwoCellsGetAFont()
{
    WidgetKeypad keypad(nullptr, nullptr);
    for (int item = 0; item < 2; ++item) {
        QCOMPARE(cell(keypad, item)->font().pointSize(), 14);
        QCOMPARE(int(cell(keypad, item)->font().weight()), int(QFont::Bold));
    }
    for (int item = 2; item < 4; ++item)
        QVERIFY(!cell(keypad, item)->testAttribute(Qt::WA_SetFont));
}

void TestWidgetKeypad::startsInSilence()
{
    FilledKeypad keypad;
    recordSignals(keypad);
    keypad.show();
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetKeypad::gridFillsTheSpaceBelowTheBar_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("lineHeight");
    QTest::addColumn<QList<int>>("rowTops");
    QTest::addColumn<QList<int>>("rowHeights");
    QTest::addColumn<QList<int>>("columnLefts");
    QTest::addColumn<QList<int>>("columnWidths");
    QTest::newRow("2 pixels over in height, 1 in width") << QSize(220, 263) << 38
        << QList<int>{61, 112, 163, 213} << QList<int>{51, 51, 50, 50}
        << QList<int>{0, 74, 147} << QList<int>{74, 73, 73};
    QTest::newRow("nothing over") << QSize(219, 261) << 38
        << QList<int>{61, 111, 161, 211} << QList<int>{50, 50, 50, 50}
        << QList<int>{0, 73, 146} << QList<int>{73, 73, 73};
    QTest::newRow("1 over in height, 2 in width") << QSize(221, 262) << 38
        << QList<int>{61, 112, 162, 212} << QList<int>{51, 50, 50, 50}
        << QList<int>{0, 74, 148} << QList<int>{74, 74, 73};
    QTest::newRow("3 over in height") << QSize(219, 264) << 38
        << QList<int>{61, 112, 163, 214} << QList<int>{51, 51, 51, 50}
        << QList<int>{0, 73, 146} << QList<int>{73, 73, 73};
    QTest::newRow("a line of 40 pixels") << QSize(219, 263) << 40
        << QList<int>{63, 113, 163, 213} << QList<int>{50, 50, 50, 50}
        << QList<int>{0, 73, 146} << QList<int>{73, 73, 73};
    QTest::newRow("fewer pixels than keys") << QSize(2, 63) << 38
        << QList<int>{61, 62, 63, 63} << QList<int>{1, 1, 0, 0}
        << QList<int>{0, 1, 2} << QList<int>{1, 1, 0};
    QTest::newRow("less than no height") << QSize(219, 50) << 38
        << QList<int>{61, 59, 57, 55} << QList<int>{-2, -2, -2, -2}
        << QList<int>{0, 73, 146} << QList<int>{73, 73, 73};
}

void TestWidgetKeypad::gridFillsTheSpaceBelowTheBar()
{
    QFETCH(QSize, size);
    QFETCH(int, lineHeight);
    QFETCH(QList<int>, rowTops);
    QFETCH(QList<int>, rowHeights);
    QFETCH(QList<int>, columnLefts);
    QFETCH(QList<int>, columnWidths);
    QWidget parent;
    FilledKeypad keypad(&parent);
    keypad.setBgGeometry(0, 0, size.width(), size.height());
    keypad.setLineTextHeight(lineHeight);
    parent.show();
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 3; ++column)
            QCOMPARE(keyLabel(keypad, row, column)->geometry(),
                     QRect(columnLefts.at(column), rowTops.at(row), columnWidths.at(column), rowHeights.at(row)));
    }
}

void TestWidgetKeypad::sparePixelsGoToTheUpperRowsAndTheLeftColumns()
{
    QWidget parent;
    FilledKeypad keypad(&parent);
    keypad.setLineTextHeight(0);
    parent.show();
    for (int height = 23; height < 60; ++height) {
        keypad.setBgGeometry(0, 0, height, height);
        keypad.setupUi();
        const QRect last = keyLabel(keypad, 3, 2)->geometry();
        QCOMPARE(last.bottom() + 1, height);
        QCOMPARE(last.right() + 1, height);
        for (int row = 1; row < 4; ++row) {
            const int shrink = keyLabel(keypad, row - 1, 0)->height() - keyLabel(keypad, row, 0)->height();
            QVERIFY(shrink == 0 || shrink == 1);
        }
    }
}

void TestWidgetKeypad::textLineTakesTheWidthAndItsOwnHeight()
{
    QWidget parent;
    FilledKeypad keypad(&parent);
    keypad.setBgGeometry(5, 7, 200, 300);
    keypad.setLineTextHeight(44);
    parent.show();
    QCOMPARE(keypad.geometry(), QRect(5, 7, 200, 300));
    QCOMPARE(line(keypad)->geometry(), QRect(0, 0, 200, 44));
}

void TestWidgetKeypad::withoutALineHeightTheGridBeginsBelowTheBarsHeight()
{
    QWidget parent;
    WidgetKeypad keypad(&parent, nullptr);
    keypad.setBgGeometry(0, 0, 220, 263);
    parent.show();
    QCOMPARE(keyLabel(keypad, 0, 0)->geometry(), QRect(0, 23, 74, 60));
    QCOMPARE(line(keypad)->height(), 0);
}

void TestWidgetKeypad::barStaysWhereItIsBelowATallerLine()
{
    FilledKeypad keypad;
    keypad.setLineTextHeight(60);
    keypad.show();
    QCOMPARE(itemBar(keypad)->geometry(), QRect(0, 38, 220, 23));
    QCOMPARE(keyLabel(keypad, 0, 0)->y(), 83);
}

void TestWidgetKeypad::linesHeightEndsWhereTheToolkitCanStillAddIt()
{
    FilledKeypad keypad;
    keypad.setLineTextHeight(INT_MAX);
    keypad.setupUi();
    QCOMPARE(keyLabel(keypad, 0, 0)->y(), QWIDGETSIZE_MAX + 23);
    keypad.setLineTextHeight(INT_MIN);
    keypad.setupUi();
    QCOMPARE(keyLabel(keypad, 0, 0)->y(), -QWIDGETSIZE_MAX + 23);
}

void TestWidgetKeypad::linesHeightIsUsedFromTheNextShowOn()
{
    FilledKeypad keypad;
    keypad.show();
    keypad.setLineTextHeight(60);
    QCOMPARE(line(keypad)->height(), 38);
    QCOMPARE(keyLabel(keypad, 0, 0)->y(), 61);
    keypad.hide();
    keypad.show();
    QCOMPARE(line(keypad)->height(), 60);
    QCOMPARE(keyLabel(keypad, 0, 0)->y(), 83);
}

void TestWidgetKeypad::absurdSizesAreHarmless_data()
{
    QTest::addColumn<int>("lineHeight");
    QTest::newRow("negative") << -5;
    QTest::newRow("higher than the keypad") << 1000;
    QTest::newRow("the most negative number") << std::numeric_limits<int>::min();
    QTest::newRow("the greatest number") << std::numeric_limits<int>::max();
}

void TestWidgetKeypad::absurdSizesAreHarmless()
{
    QFETCH(int, lineHeight);
    QWidget parent;
    FilledKeypad keypad(&parent);
    keypad.setLineTextHeight(lineHeight);
    parent.show();
    release(keypad, Qt::Key_2);
    QCOMPARE(line(keypad)->text(), QString("a"));
    QCOMPARE(keyLabel(keypad, 0, 1)->width(), 73);
}

void TestWidgetKeypad::resizedKeypadIsLaidOutBySetupUi()
{
    QWidget parent;
    FilledKeypad keypad(&parent);
    parent.show();
    keypad.setBgGeometry(0, 0, 300, 361);
    QCOMPARE(keyLabel(keypad, 3, 2)->geometry(), QRect(147, 213, 73, 50));
    keypad.setupUi();
    QCOMPARE(keyLabel(keypad, 3, 2)->geometry(), QRect(200, 286, 100, 75));
    QCOMPARE(line(keypad)->width(), 300);
}

void TestWidgetKeypad::showTurnsTheTextToTheRight()
{
    FilledKeypad keypad;
    keypad.show();
    QCOMPARE(line(keypad)->alignment(), Qt::AlignRight | Qt::AlignVCenter);
}

void TestWidgetKeypad::everyShowAppendsToTheSheetOfTheLine()
{
    FilledKeypad keypad;
    QString sheet = LineSheet;
    for (int i = 0; i < 3; ++i) {
        keypad.show();
        sheet += LineSheetSuffix;
        QCOMPARE(line(keypad)->styleSheet(), sheet);
        keypad.hide();
    }
}

void TestWidgetKeypad::linesSheetCanBeMadeShortAgain()
{
    FilledKeypad keypad;
    for (int i = 0; i < 3; ++i) {
        keypad.findChild<QLineEdit *>()->setStyleSheet("background-color: #ffffff;");
        keypad.show();
        QCOMPARE(line(keypad)->styleSheet(), QString(LineSheet) + LineSheetSuffix);
        keypad.hide();
    }
}

void TestWidgetKeypad::showLeavesTheSheetsOfTheKeysAtRest()
{
    FilledKeypad keypad;
    keypad.show();
    for (int place = 0; place < 12; ++place) {
        const bool outerKeyOfTheBottomRow = place == 9 || place == 11;
        QCOMPARE(keyLabel(keypad, place / 3, place % 3)->styleSheet(),
                 QString(outerKeyOfTheBottomRow ? SideKeySheet : KeySheet));
    }
}

void TestWidgetKeypad::showingAgainDressesNothingButTheLine()
{
    FilledKeypad keypad;
    keypad.show();
    keypad.hide();
    const DressingCounter counter(keypad);
    keypad.show();
    QCOMPARE(counter.dressed, QList<QObject *>() << line(keypad));
}

void TestWidgetKeypad::keyTextsShowFromTheNextSetPageOn()
{
    FilledKeypad keypad;
    keypad.show();
    keypad.setKeyText(0, 0, 0, "new");
    QCOMPARE(keyLabel(keypad, 0, 0)->text(), QString("1"));
    keypad.setPage(0);
    QCOMPARE(keyLabel(keypad, 0, 0)->text(), QString("new"));
}

void TestWidgetKeypad::keyTextsArePlain()
{
    FilledKeypad keypad;
    keypad.setKeyText(0, 1, 1, "<b>&amp;</b>");
    keypad.show();
    QCOMPARE(keyLabel(keypad, 1, 1)->text(), QString("<b>&amp;</b>"));
    QCOMPARE(keyLabel(keypad, 1, 1)->textFormat(), Qt::PlainText);
}

void TestWidgetKeypad::keypadWithoutKeyTextsIsEmpty()
{
    WidgetKeypad keypad(nullptr, nullptr);
    keypad.show();
    QCOMPARE(labels(keypad), QString(11, ' '));
    keypad.changePage(true);
    QCOMPARE(labels(keypad), QString(11, ' '));
}

void TestWidgetKeypad::allPagesAreEnabledAtFirst()
{
    // Whatever there was in its memory.
    void *memory = ::operator new(sizeof(WidgetKeypad));
    memset(memory, 0, sizeof(WidgetKeypad));
    {
        const std::unique_ptr<WidgetKeypad, void (*)(WidgetKeypad *)> keypad(
            new (memory) WidgetKeypad(nullptr, nullptr), [](WidgetKeypad *gone) { gone->~WidgetKeypad(); });
        for (int page = 0; page < 6; ++page)
            keypad->setKeyText(page, 0, 0, QString::number(page));
        keypad->show();
        for (int page = 0; page < 6; ++page) {
            QCOMPARE(keyLabel(*keypad, 0, 0)->text(), QString::number(page));
            keypad->changePage(true);
        }
    }
    ::operator delete(memory);
}

void TestWidgetKeypad::textIsSeenAtFirst()
{
    WidgetKeypad keypad(nullptr, nullptr);
    keypad.show();
    QCOMPARE(line(keypad)->echoMode(), QLineEdit::Normal);
}

void TestWidgetKeypad::everyShowStartsOnTheLowestEnabledPage_data()
{
    QTest::addColumn<QString>("enabled");
    QTest::addColumn<QString>("initial");
    QTest::newRow("all") << "012345" << "0";
    QTest::newRow("not the first two") << "2345" << "2";
    QTest::newRow("the first alone") << "0" << "0";
    QTest::newRow("the last alone") << "5" << "5";
    QTest::newRow("with a gap") << "14" << "1";
}

void TestWidgetKeypad::everyShowStartsOnTheLowestEnabledPage()
{
    QFETCH(QString, enabled);
    FilledKeypad keypad;
    fillWithPageNumbers(keypad, enabled);
    for (int i = 0; i < 2; ++i) {
        keypad.show();
        QTEST(keyLabel(keypad, 0, 0)->text(), "initial");
        keypad.changePage(true);
        keypad.hide();
    }
}

void TestWidgetKeypad::setInitialPageDoesNotShowThePage()
{
    FilledKeypad keypad;
    fillWithPageNumbers(keypad, "1234");
    keypad.show();
    keypad.setPage(3);
    keypad.setInitialPage();
    QCOMPARE(keyLabel(keypad, 0, 0)->text(), QString("3"));
    release(keypad, Qt::Key_2);
    QCOMPARE(line(keypad)->text(), QString("1"));
}

void TestWidgetKeypad::pagesCountFromTheFirstBeforeTheShow()
{
    FilledKeypad keypad;
    fillWithPageNumbers(keypad, "012345");
    keypad.changePage(true);
    QCOMPARE(keyLabel(keypad, 0, 0)->text(), QString("1"));
    FilledKeypad another;
    fillWithPageNumbers(another, "012345");
    another.hideText(true);
    another.changePage(false);
    QCOMPARE(keyLabel(another, 0, 0)->text(), QString("5"));
}

void TestWidgetKeypad::changePageGoesToTheNextEnabledPage_data()
{
    QTest::addColumn<QString>("enabled");
    QTest::addColumn<int>("from");
    QTest::addColumn<bool>("next");
    QTest::addColumn<QString>("to");
    QTest::newRow("next") << "012345" << 0 << true << "1";
    QTest::newRow("previous") << "012345" << 3 << false << "2";
    QTest::newRow("next around the end") << "012345" << 5 << true << "0";
    QTest::newRow("previous around the end") << "012345" << 0 << false << "5";
    QTest::newRow("next over disabled pages") << "024" << 2 << true << "4";
    QTest::newRow("previous over disabled pages") << "035" << 3 << false << "0";
    QTest::newRow("next over disabled pages around the end") << "23" << 3 << true << "2";
    QTest::newRow("previous over disabled pages around the end") << "2345" << 2 << false << "5";
}

void TestWidgetKeypad::changePageGoesToTheNextEnabledPage()
{
    QFETCH(QString, enabled);
    QFETCH(int, from);
    QFETCH(bool, next);
    QFETCH(QString, to);
    FilledKeypad keypad;
    fillWithPageNumbers(keypad, enabled);
    keypad.show();
    keypad.setPage(from);
    keypad.changePage(next);
    QCOMPARE(labels(keypad), (to + ' ').repeated(12).chopped(1));
}

void TestWidgetKeypad::changePageWithNoPageEnabledChangesNothing()
{
    FilledKeypad keypad;
    keypad.show();
    release(keypad, Qt::Key_2);
    const QString before = labels(keypad);
    for (int page = 0; page < 6; ++page)
        keypad.enablePage(page, false);
    keypad.setKeyText(0, 0, 0, "new");
    keypad.changePage(true);
    keypad.changePage(false);
    QCOMPARE(labels(keypad), before);
    QCOMPARE(litKeys(keypad), QStringList() << "0,1");
}

void TestWidgetKeypad::changePageStaysOnTheOnlyEnabledPage()
{
    FilledKeypad keypad;
    fillWithPageNumbers(keypad, "0");
    keypad.show();
    keypad.setKeyText(0, 0, 0, "new");
    keypad.changePage(true);
    QCOMPARE(keyLabel(keypad, 0, 0)->text(), QString("new"));
    QCOMPARE(keyLabel(keypad, 0, 1)->text(), QString("0"));
    keypad.changePage(false);
    QCOMPARE(keyLabel(keypad, 0, 1)->text(), QString("0"));
}

void TestWidgetKeypad::changePageLeavesADisabledPage()
{
    FilledKeypad keypad;
    fillWithPageNumbers(keypad, "02");
    keypad.show();
    keypad.enablePage(0, false);
    keypad.changePage(true);
    QCOMPARE(keyLabel(keypad, 0, 0)->text(), QString("2"));
}

void TestWidgetKeypad::withNoPageEnabledShowLeavesAllKeysEmpty()
{
    FilledKeypad keypad;
    fillWithPageNumbers(keypad, "");
    recordSignals(keypad);
    keypad.setInitialLineText("0", false, true, true);
    keypad.show();
    QCOMPARE(labels(keypad), QString(11, ' '));
    keypad.setPage(0);
    keypad.changePage(true);
    QCOMPARE(labels(keypad), QString(11, ' '));
    release(keypad, Qt::Key_5);
    QCOMPARE(RecordingPlatform::events(), QStringList() << "log:16:WidgetKeypad keyReleaseEvent" << "keyPressed:53");
    QCOMPARE(litKeys(keypad), QStringList());
}

void TestWidgetKeypad::pagesEnabledAfterSuchAShowCanBeReached_data()
{
    QTest::addColumn<bool>("next");
    QTest::addColumn<QString>("reached");
    QTest::newRow("next finds the lowest") << true << "1";
    QTest::newRow("previous finds the highest") << false << "4";
}

void TestWidgetKeypad::pagesEnabledAfterSuchAShowCanBeReached()
{
    QFETCH(bool, next);
    FilledKeypad keypad;
    fillWithPageNumbers(keypad, "");
    keypad.show();
    keypad.enablePage(1, true);
    keypad.enablePage(4, true);
    keypad.changePage(next);
    QTEST(keyLabel(keypad, 0, 0)->text(), "reached");
}

void TestWidgetKeypad::setPageShowsThePage()
{
    FilledKeypad keypad;
    keypad.show();
    QCOMPARE(labels(keypad), QString("1 abc2 def3 ghi4 jkl5 mno6 pqrs7 tuv8 wxyz9 * 0 #"));
    keypad.setPage(1);
    QCOMPARE(labels(keypad), QString("1 2 3 4 5 6 7 8 9 * 0 #"));
}

void TestWidgetKeypad::setPageIgnoresADisabledPageInSilence()
{
    FilledKeypad keypad;
    keypad.show();
    release(keypad, Qt::Key_2);
    RecordingPlatform::reset();
    keypad.setKeyText(0, 0, 0, "new");
    keypad.setPage(2);
    QCOMPARE(labels(keypad), QString("1 abc2 def3 ghi4 jkl5 mno6 pqrs7 tuv8 wxyz9 * 0 #"));
    QCOMPARE(litKeys(keypad), QStringList() << "0,1");
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetKeypad::changingThePagePutsALitKeyToRest()
{
    FilledKeypad keypad;
    keypad.setKeyMap(Qt::Key_9, 3, 0);
    keypad.show();
    for (int key : {Qt::Key_2, Qt::Key_9}) {
        release(keypad, key);
        QCOMPARE(litKeys(keypad).size(), 1);
        keypad.setPage(0);
        QCOMPARE(litKeys(keypad), QStringList());
    }
}

void TestWidgetKeypad::changingThePageDressesOnlyWhatChanges()
{
    FilledKeypad keypad;
    keypad.show();
    release(keypad, Qt::Key_2);
    const DressingCounter counter(keypad);
    keypad.setPage(1);
    QCOMPARE(counter.dressed, QList<QObject *>() << keyLabel(keypad, 0, 1));
    keypad.changePage(true);
    QCOMPARE(counter.dressed.size(), 1);
}

void TestWidgetKeypad::pagesChangeWithoutSoundAndSignal()
{
    FilledKeypad keypad;
    recordSignals(keypad);
    keypad.show();
    keypad.setPage(1);
    keypad.changePage(true);
    keypad.changePage(false);
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

typedef std::function<void(WidgetKeypad &)> Call;
Q_DECLARE_METATYPE(Call)

void TestWidgetKeypad::argumentsOutOfRangeAreRejected_data()
{
    QTest::addColumn<Call>("call");
    QTest::addColumn<QString>("message");
    const auto add = [](const char *name, const Call &call, const char *message) {
        QTest::newRow(name) << call << message;
    };
    const int lowest = std::numeric_limits<int>::min();
    const int greatest = std::numeric_limits<int>::max();
    typedef WidgetKeypad K;
    add("key text, page 6", [](K &k) { k.setKeyText(6, 0, 0, "x"); }, "setKeyText] Invalid index 6");
    add("key text, page -1", [](K &k) { k.setKeyText(-1, 0, 0, "x"); }, "setKeyText] Invalid index -1");
    add("key text, row 4", [](K &k) { k.setKeyText(0, 4, 0, "x"); }, "setKeyText] Invalid index 4");
    add("key text, row -2", [](K &k) { k.setKeyText(0, -2, 0, "x"); }, "setKeyText] Invalid index -2");
    add("key text, column 3", [](K &k) { k.setKeyText(0, 0, 3, "x"); }, "setKeyText] Invalid index 3");
    add("key text, column -3", [](K &k) { k.setKeyText(0, 0, -3, "x"); }, "setKeyText] Invalid index -3");
    add("key text, nothing in range", [](K &k) { k.setKeyText(7, 8, 9, "x"); }, "setKeyText] Invalid index 7");
    add("key map, row 4", [](K &k) { k.setKeyMap(Qt::Key_2, 4, 0); }, "setKeyMap] Invalid index 4");
    add("key map, row -1", [](K &k) { k.setKeyMap(Qt::Key_2, -1, 2); }, "setKeyMap] Invalid index -1");
    add("key map, column 3", [](K &k) { k.setKeyMap(Qt::Key_2, 0, 3); }, "setKeyMap] Invalid index 3");
    add("key map, column -1", [](K &k) { k.setKeyMap(Qt::Key_2, 2, -1); }, "setKeyMap] Invalid index -1");
    add("enable page 6", [](K &k) { k.enablePage(6, false); }, "enablePage] Invalid index 6");
    add("enable page -1", [](K &k) { k.enablePage(-1, false); }, "enablePage] Invalid index -1");
    add("page 6", [](K &k) { k.setPage(6); }, "setPage] Invalid index 6");
    add("page -1", [](K &k) { k.setPage(-1); }, "setPage] Invalid index -1");
    add("the most negative page", [=](K &k) { k.setPage(lowest); }, "setPage] Invalid index -2147483648");
    add("the greatest page", [=](K &k) { k.setPage(greatest); }, "setPage] Invalid index 2147483647");
    add("style of item 4", [](K &k) { k.setItemStyle(K::Item(4), K::StateNormal, "color: #123456"); },
        "setItemStyle] Invalid index 4");
    add("style of item -1", [](K &k) { k.setItemStyle(K::Item(-1), K::StateNormal, "color: #123456"); },
        "setItemStyle] Invalid index -1");
    add("style of state 2", [](K &k) { k.setItemStyle(K::ItemSpace, K::State(2), "color: #123456"); },
        "setItemStyle] Invalid index 2");
    add("style of state -1", [](K &k) { k.setItemStyle(K::ItemSpace, K::State(-1), "color: #123456"); },
        "setItemStyle] Invalid index -1");
    add("style of no item in no state", [](K &k) { k.setItemStyle(K::Item(7), K::State(8), "color: #123456"); },
        "setItemStyle] Invalid index 7");
}

void TestWidgetKeypad::argumentsOutOfRangeAreRejected()
{
    QFETCH(Call, call);
    QFETCH(QString, message);
    FilledKeypad keypad;
    keypad.show();
    call(keypad);
    QCOMPARE(RecordingPlatform::events(),
             QStringList() << "log:2:[ui/view/widget/widgetkeypad.cpp, " + message);
    keypad.setupUi();
    QCOMPARE(labels(keypad), QString("1 abc2 def3 ghi4 jkl5 mno6 pqrs7 tuv8 wxyz9 * 0 #"));
    QCOMPARE(cellStates(keypad), QString("nnnn"));
    release(keypad, Qt::Key_2);
    QCOMPARE(line(keypad)->text(), QString("a"));
}

void TestWidgetKeypad::initialTextShowsAtOnceAndPlainly()
{
    FilledKeypad keypad;
    keypad.show();
    keypad.setInitialLineText("Home", true, false, false);
    QCOMPARE(line(keypad)->text(), QString("Home"));
    QCOMPARE(line(keypad)->echoMode(), QLineEdit::Normal);
}

void TestWidgetKeypad::initialTextBringsTheFirstFontBack()
{
    FilledKeypad keypad;
    QFont other;
    other.setPointSize(9);
    line(keypad)->setFont(other);
    keypad.setInitialLineText("Home", false, false, false);
    QCOMPARE(line(keypad)->font().pointSize(), 16);
    QCOMPARE(int(line(keypad)->font().weight()), int(QFont::Bold));
}

void TestWidgetKeypad::initialTextIsTheEnteredTextOnlyFromTheNextShowOn()
{
    FilledKeypad keypad;
    keypad.show();
    release(keypad, Qt::Key_2);
    keypad.setInitialLineText("Home", false, true, false);
    QCOMPARE(enteredText(keypad), QString());
    keypad.hide();
    keypad.show();
    QCOMPARE(enteredText(keypad), QString("Home"));
}

void TestWidgetKeypad::initialTextEndsPasswordMasking()
{
    FilledKeypad keypad;
    keypad.hideText(true);
    keypad.show();
    release(keypad, Qt::Key_2);
    QCOMPARE(line(keypad)->echoMode(), QLineEdit::Password);
    keypad.setInitialLineText("Home", false, false, false);
    QCOMPARE(line(keypad)->echoMode(), QLineEdit::Normal);
}

void TestWidgetKeypad::maskedInitialTextIsMaskedFromTheShowOn()
{
    FilledKeypad keypad;
    keypad.setInitialLineText("secret", true, false, false);
    QCOMPARE(line(keypad)->echoMode(), QLineEdit::Normal);
    keypad.show();
    QCOMPARE(line(keypad)->echoMode(), QLineEdit::Password);
    QVERIFY(!line(keypad)->displayText().contains("s"));
    release(keypad, Qt::Key_2);
    QCOMPARE(line(keypad)->echoMode(), QLineEdit::Password);
    keypad.setInitialLineText("plain", false, false, false);
    keypad.hide();
    keypad.show();
    QCOMPARE(line(keypad)->echoMode(), QLineEdit::Normal);
}

void TestWidgetKeypad::unmaskedInitialTextShowsPlainlyAlsoInPasswordModeUntilTheFirstUpdate()
{
    FilledKeypad keypad;
    keypad.hideText(true);
    keypad.setInitialLineText("secret", false, true, false);
    keypad.show();
    QCOMPARE(line(keypad)->echoMode(), QLineEdit::Normal);
    release(keypad, Qt::Key_F1);
    QCOMPARE(line(keypad)->echoMode(), QLineEdit::Normal);
    release(keypad, Qt::Key_F4);
    QCOMPARE(line(keypad)->echoMode(), QLineEdit::Password);
}

void TestWidgetKeypad::maxLengthCutsTheLineAtOnceAndTheEnteredTextAtTheNextShow()
{
    FilledKeypad keypad;
    keypad.setInitialLineText("wardrobe", false, true, false);
    keypad.show();
    keypad.setKeyMaxLength(3);
    QCOMPARE(line(keypad)->text(), QString("war"));
    QCOMPARE(enteredText(keypad), QString("wardrobe"));
    keypad.hide();
    keypad.show();
    QCOMPARE(enteredText(keypad), QString("war"));
}

void TestWidgetKeypad::maxLengthIsTheLines_data()
{
    QTest::addColumn<int>("length");
    QTest::newRow("nothing") << 0;
    QTest::newRow("one") << 1;
    QTest::newRow("the toolkit's own") << 32767;
    QTest::newRow("more than that") << 100000;
}

void TestWidgetKeypad::maxLengthIsTheLines()
{
    QFETCH(int, length);
    FilledKeypad keypad;
    keypad.setKeyMaxLength(length);
    QCOMPARE(line(keypad)->maxLength(), length);
}

void TestWidgetKeypad::placeholderIsTheLines()
{
    FilledKeypad keypad;
    keypad.setPlaceholderText("Name");
    QCOMPARE(line(keypad)->placeholderText(), QString("Name"));
}

void TestWidgetKeypad::initialKeyIsLitAndSpeaks_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("keep");
    QTest::addColumn<bool>("select");
    QTest::addColumn<bool>("hide");
    QTest::addColumn<QStringList>("lit");
    QTest::addColumn<QList<int>>("sounds");
    const QStringList none;
    const QList<int> silence;
    QTest::newRow("a key of one character") << "q" << true << true << false << (QStringList() << "2,1")
                                            << QList<int>{928};
    QTest::newRow("a key of several") << "ghi4" << true << true << false << (QStringList() << "1,0") << QList<int>{924};
    QTest::newRow("an outer key without a digit key") << "*" << true << true << false << (QStringList() << "3,0")
                                                      << QList<int>{872, 872};
    QTest::newRow("part of a key's text") << "ghi" << true << true << false << none << silence;
    QTest::newRow("another case") << "GHI4" << true << true << false << none << silence;
    QTest::newRow("not selected") << "q" << true << false << false << none << silence;
    QTest::newRow("not kept") << "q" << false << true << false << none << silence;
    QTest::newRow("in password mode") << "ghi4" << true << true << true << none << QList<int>{901};
}

void TestWidgetKeypad::initialKeyIsLitAndSpeaks()
{
    QFETCH(QString, text);
    QFETCH(bool, keep);
    QFETCH(bool, select);
    QFETCH(bool, hide);
    QFETCH(QList<int>, sounds);
    FilledKeypad keypad;
    recordSignals(keypad);
    keypad.setKeyText(0, 2, 1, "q");
    keypad.hideText(hide);
    keypad.setInitialLineText(text, false, keep, select);
    keypad.show();
    QTEST(litKeys(keypad), "lit");
    QCOMPARE(RecordingPlatform::sounds(), sounds);
    QCOMPARE(RecordingPlatform::events().size(), sounds.size());
}

void TestWidgetKeypad::initialKeySpeaksWithItsFirstDigitKey()
{
    FilledKeypad keypad;
    keypad.setKeyMap(Qt::Key_9, 1, 0);
    keypad.setKeyMap(Qt::Key_3, 1, 0);
    keypad.setInitialLineText("ghi4", false, true, true);
    keypad.show();
    QCOMPARE(RecordingPlatform::sounds(), QList<int>() << 923);
}

void TestWidgetKeypad::everyMatchOnEveryEnabledPageSoundsAndTheLastStaysLit()
{
    FilledKeypad keypad;
    keypad.setKeyText(0, 2, 2, "x");
    keypad.setKeyText(0, 1, 1, "x");
    keypad.setKeyText(1, 0, 2, "x");
    keypad.setInitialLineText("x", false, true, true);
    keypad.show();
    QCOMPARE(RecordingPlatform::sounds(), QList<int>() << 925 << 929 << 923);
    QCOMPARE(litKeys(keypad), QStringList() << "0,2");
}

void TestWidgetKeypad::disabledPagesAreNotSearchedForTheInitialKey()
{
    FilledKeypad keypad;
    keypad.setKeyText(2, 0, 0, "x");
    keypad.setInitialLineText("x", false, true, true);
    keypad.show();
    QCOMPARE(RecordingPlatform::sounds(), QList<int>());
    QCOMPARE(litKeys(keypad), QStringList());
}

void TestWidgetKeypad::allPagesAreSearchedForTheInitialKey()
{
    for (int page = 0; page < 6; ++page) {
        FilledKeypad keypad;
        keypad.enablePage(page, true);
        keypad.setKeyText(page, 0, 0, "zz");
        keypad.setInitialLineText("zz", false, true, true);
        keypad.show();
        QCOMPARE(litKeys(keypad), QStringList() << "0,0");
    }
}

void TestWidgetKeypad::everyShowSearchesTheInitialKeyAgain()
{
    FilledKeypad keypad;
    keypad.setInitialLineText("def3", false, true, true);
    for (int shows = 1; shows <= 3; ++shows) {
        keypad.show();
        QCOMPARE(RecordingPlatform::sounds().size(), shows);
        QCOMPARE(litKeys(keypad), QStringList() << "0,2");
        keypad.hide();
    }
}

void TestWidgetKeypad::emptyLineMatchesEveryEmptyKey()
{
    FilledKeypad keypad;
    keypad.setKeyText(0, 0, 0, "");
    keypad.setKeyText(0, 3, 0, "");
    keypad.setKeyText(1, 3, 1, "");
    keypad.setInitialLineText("", false, true, true);
    keypad.show();
    QCOMPARE(RecordingPlatform::sounds(), QList<int>() << 921 << 872 << 920);
    QCOMPARE(litKeys(keypad), QStringList() << "3,1");
}

void TestWidgetKeypad::initialKeyIsComparedWithTheTextThatTheLineKept()
{
    FilledKeypad keypad;
    keypad.setKeyMaxLength(4);
    keypad.setInitialLineText("def3 and more", false, true, true);
    keypad.show();
    QCOMPARE(litKeys(keypad), QStringList() << "0,2");
}

void TestWidgetKeypad::initialKeyOfOneCharacterGoesToRestAfterAMoment()
{
    FilledKeypad keypad;
    keypad.setKeyText(0, 2, 1, "q");
    keypad.setInitialLineText("q", false, true, true);
    keypad.show();
    QCOMPARE(litKeys(keypad), QStringList() << "2,1");
    EVENTUALLY_COMPARE(litKeys(keypad), QStringList());
}

void TestWidgetKeypad::initialKeyOfSeveralCharactersStaysLit()
{
    FilledKeypad keypad;
    keypad.setInitialLineText("def3", false, true, true);
    keypad.show();
    passTime(200);
    QCOMPARE(litKeys(keypad), QStringList() << "0,2");
}

void TestWidgetKeypad::lengthOfTheInitialKeyIsMeasuredOnThePageInUse()
{
    FilledKeypad keypad;
    keypad.setInitialLineText("2", false, true, true);
    keypad.show();
    passTime(200);
    QCOMPARE(litKeys(keypad), QStringList() << "0,1");
}

void TestWidgetKeypad::cellsTakeTheirRestStyleAtTheShow()
{
    FilledKeypad keypad;
    QCOMPARE(cellStates(keypad), QString("????"));
    keypad.show();
    QCOMPARE(cellStates(keypad), QString("nnnn"));
    keypad.setItemStyle(WidgetKeypad::ItemSpace, WidgetKeypad::StateNormal, "color: #123456");
    QCOMPARE(cellStates(keypad), QString("nnnn"));
    keypad.setupUi();
    QCOMPARE(cell(keypad, 2)->styleSheet(), QString("color: #123456"));
}

void TestWidgetKeypad::cellsWithoutStylesHaveEmptySheets()
{
    WidgetKeypad keypad(nullptr, nullptr);
    keypad.show();
    release(keypad, Qt::Key_F1);
    for (int item = 0; item < 4; ++item)
        QCOMPARE(cell(keypad, item)->styleSheet(), QString());
}

void TestWidgetKeypad::onlyTheFirstTwoCellsTakeATextAndShowItPlainly()
{
    FilledKeypad keypad;
    for (int item = -1; item <= 4; ++item)
        keypad.setItemText(WidgetKeypad::Item(item), QString("<b>%1</b>").arg(item));
    QCOMPARE(cell(keypad, 0)->text(), QString("<b>0</b>"));
    QCOMPARE(cell(keypad, 1)->text(), QString("<b>1</b>"));
    QCOMPARE(cell(keypad, 2)->text(), QString());
    QCOMPARE(cell(keypad, 3)->text(), QString());
    QCOMPARE(cell(keypad, 0)->textFormat(), Qt::PlainText);
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetKeypad::hidesAndShowsSingleCells()
{
    FilledKeypad keypad;
    keypad.setItemVisible(WidgetKeypad::ItemSpace, false);
    keypad.show();
    for (int item = 0; item < 4; ++item)
        QCOMPARE(cell(keypad, item)->isVisible(), item != 2);
    keypad.setItemVisible(WidgetKeypad::ItemSpace, true);
    keypad.setItemVisible(WidgetKeypad::Item(4), false);
    keypad.setItemVisible(WidgetKeypad::Item(-1), false);
    for (int item = 0; item < 4; ++item)
        QVERIFY(cell(keypad, item)->isVisible());
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetKeypad::setItemFontBringsTheFirstFontBack()
{
    FilledKeypad keypad;
    QFont other;
    other.setPointSize(9);
    for (int item = 0; item < 4; ++item)
        cell(keypad, item)->setFont(other);
    keypad.setItemFont();
    for (int item = 0; item < 4; ++item)
        QCOMPARE(cell(keypad, item)->font().pointSize(), item < 2 ? 14 : 9);
    QCOMPARE(int(cell(keypad, 1)->font().weight()), int(QFont::Bold));
}

QTEST_MAIN(TestWidgetKeypad)
#include "tst_widgetkeypad.moc"

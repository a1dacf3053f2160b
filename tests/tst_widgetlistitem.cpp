#include "allocationcount.h"
#include "eventrecording.h"
#include "recordingplatform.h"
#include "rowparts.h"
#include "waiting.h"

#include "platform/soundmanager.h"

#include <QAbstractEventDispatcher>
#include <QFontDatabase>
#include <QPointer>
#include <QtTest>

#include <climits>

namespace {

const QString s_focusedText = QStringLiteral("color: #1F1618");
const QString s_unfocusedTitle = QStringLiteral("color: #594B4F");
const QString s_unfocusedBadge =
    QStringLiteral("color: #FFFFFF; background-image: url(:/resource/images_l2/number_bg.png)");
const QString s_focusedBadge =
    QStringLiteral("color: #FFFFFF; background-image: url(:/resource/images_l2/number_b_bg.png)");
const QString s_unfocusedPrev = QStringLiteral("image: url(:/resource/images_l2/arrow_prev_nor.png)");
const QString s_focusedPrev = QStringLiteral("image: url(:/resource/images_l2/arrow_prev_focus.png)");
const QString s_unfocusedNext = QStringLiteral("image: url(:/resource/images_l2/arrow_next_nor.png)");
const QString s_focusedNext = QStringLiteral("image: url(:/resource/images_l2/arrow_next_focus.png)");

const QString s_releaseTrace = QStringLiteral("log:16:[ui/view/widget/widgetlistitem.cpp,keyReleaseEvent]");

SoundManager *sound()
{
    return SoundManager::getInstance();
}

/// \a kinds: t a text, w a widget, d a display value; in this order.
void addValues(WidgetListItem &row, const QString &kinds)
{
    int number = 0;
    for (const QChar kind : kinds) {
        if (kind == 't')
            row.addValue(QString("text %1").arg(number));
        else if (kind == 'w')
            row.addValue(new QLabel(QString("widget %1").arg(number)));
        else
            row.setDisplayValue(0, QString("display %1").arg(number), false);
        ++number;
    }
}

/// \a kind: "text", "widget" or "none".
void addTitle(WidgetListItem &row, const QString &kind)
{
    if (kind == "text")
        row.setTitle(QStringLiteral("Title"), true);
    else if (kind == "widget")
        row.setTitle(new QLabel(QStringLiteral("Title")));
}

/// Which of the parts with texts are seen: T the title label, S the title stack, V the value label, W the value stack.
QString seenTexts(const WidgetListItem &row)
{
    const RowParts parts(row);
    QString seen;
    seen += parts.title->isVisible() ? "T" : "";
    seen += parts.titleStack->isVisible() ? "S" : "";
    seen += parts.value->isVisible() ? "V" : "";
    seen += parts.valueStack->isVisible() ? "W" : "";
    return seen;
}

void sendFocus(QWidget *widget, QEvent::Type type)
{
    QFocusEvent event(type, Qt::OtherFocusReason);
    QCoreApplication::sendEvent(widget, &event);
}

void focusIn(QWidget *widget)
{
    sendFocus(widget, QEvent::FocusIn);
}

void focusOut(QWidget *widget)
{
    sendFocus(widget, QEvent::FocusOut);
}

QList<QAbstractEventDispatcher::TimerInfo> timersOf(QObject *object)
{
    return QAbstractEventDispatcher::instance()->registeredTimers(object);
}

/// A row of 220 by 46 pixels with a title that scrolls.
struct ScrollingRow : WidgetListItem
{
    explicit ScrollingRow(QWidget *parent = nullptr)
        : WidgetListItem(parent, sound()),
          parts(*this)
    {
        setGeometry(0, 0, 220, 46);
        QFont font;
        font.setPointSize(15);
        font.setWeight(QFont::Bold);
        text = textWiderThan(220, font);
        setTitle(text, true);
        refresh();
        cut = parts.title->text();
    }

    const RowParts parts;
    QString text;
    QString cut;
};

}

class TestWidgetListItem : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    // Layout
    void laysOutEachKindOfRow_data();
    void laysOutEachKindOfRow();
    void laysOutOnEveryShow();
    void doesNotLayOutBeforeItIsShownOrRefreshed();
    void showsWhatBelongsToItsKind_data();
    void showsWhatBelongsToItsKind();
    void showsWhatBelongsToItsKindFromThenOn_data();
    void showsWhatBelongsToItsKindFromThenOn();
    void alignsItsTexts_data();
    void alignsItsTexts();
    void emptiedTextRowHidesItsValue();
    void rowWithoutATitleWidensItsLabelAtEveryRefresh();
    void rowWithATitleWidgetWidensTheHiddenLabel();
    void badgeNeedsANumberAndAShortcut_data();
    void badgeNeedsANumberAndAShortcut();
    void badgeIsNotTouchedWithoutATitle();
    void badgeStaysWhenTheTitleIsReplaced();
    void titleStackIsNotTouchedWithoutATitle();
    void mixOfTextsAndWidgetsIsReportedAtEveryRefresh_data();
    void mixOfTextsAndWidgetsIsReportedAtEveryRefresh();
    void refreshDressesARowAsWithoutTheFocus();
    void refreshTakesTheDefaultFonts();
    void refreshTwiceOfARowThatWasNeverShownChangesNothing();
    void refreshTwiceChangesNothing_data();
    void refreshTwiceChangesNothing();
    void secondShowDressesNothing();
    void heightDoesNotMoveTheTexts_data();
    void heightDoesNotMoveTheTexts();

    // One line
    void oneLineSharesTheWidth_data();
    void oneLineSharesTheWidth();
    void oneLineMeasuresWithTheFontInForceBefore();
    void oneLineIsRightAtOnceWithTheDefaultFont();
    void oneLineKeepsItsBadge();
    void oneLineWithoutTextsShowsNoValue_data();
    void oneLineWithoutTextsShowsNoValue();
    void oneLineForgetsAtTheRefreshItself();
    void oneLineCutsTheValueToItsPlace();

    // Fonts and fitting
    void defaultFontsFollowTheLayout_data();
    void defaultFontsFollowTheLayout();
    void weightsDoNotFollowTheFontOfTheApplication_data();
    void weightsDoNotFollowTheFontOfTheApplication();
    void textsArePlain();
    void defaultFontIsThatOfTheApplicationByThen();
    void defaultFontDoesNotFollowTheFontOfTheRow_data();
    void defaultFontDoesNotFollowTheFontOfTheRow();
    void defaultFontIsNotLeftToTheApplication();
    void textIsCutOnlyWhenItsRoundedWidthIsGreater_data();
    void textIsCutOnlyWhenItsRoundedWidthIsGreater();
    void textThatWasNeverMeasuredIsCutAsAnyOther_data();
    void textThatWasNeverMeasuredIsCutAsAnyOther();
    void longTitleIsCutAtTheRight();
    void fitsInEveryFont_data();
    void fitsInEveryFont();
    void cutsWhatIsOnePixelTooWide_data();
    void cutsWhatIsOnePixelTooWide();
    void takesAnyTextWithoutHarm_data();
    void takesAnyTextWithoutHarm();

    // Arrows
    void countsAndPlacesItsArrows_data();
    void countsAndPlacesItsArrows();
    void arrowsStandInTheMiddleOfTheHeight_data();
    void arrowsStandInTheMiddleOfTheHeight();
    void arrowsAreCountedWhileTheRowIsHidden();
    void arrowsThatAreNotModifiableAreStillPlacedAndDressed();
    void arrowsThatAreNotWantedAreLeftAsTheyAre();
    void partsThatAreNotWantedAreNotDressedForTheShow();
    void updateArrowsTakesTheFocusedLookAway();

    // Focus
    void dressesByFocus_data();
    void dressesByFocus();
    void dressesWhenTheFocusReallyMoves();
    void valueKeepsTheDarkColourAfterFocusOut();
    void passesEveryEventToTheToolkit();
    void dressingTwiceDressesOnce();

    // Scrolling title
    void longTitleScrollsWithTheFocus();
    void titleThatFitsDoesNotScroll();
    void titleOfExactlyTheWidthDoesNotScroll();
    void titleDoesNotScrollWithoutMarquee();
    void titleWidgetDoesNotScroll();
    void scrollsByOneCharacterInRealTime();
    void focusOutPutsTheCutTitleBackAndKeepsTheTimerId();
    void focusOutWithoutMarqueeLeavesTheTitleAlone();
    void focusOutWithMarqueeUpdatesTheTitle();
    void focusOutOfARowWithATitleWidgetLeavesTheLabelAlone();
    void eachFocusStartsFromTheBeginning();
    void noTimerIsStackedOnARunningOne();
    void noForeignTimerIsKilled();
    void hiddenRowStopsScrolling_data();
    void hiddenRowStopsScrolling();
    void rowThatIsHiddenWhileItScrollsShowsItsBegin();
    void rowThatScrollsStopsOnce();
    void rowStopsWhenItsMarqueeIsSwitchedOff();
    void rowIsStillPaintedUntilItStops();
    void rowStopsAtFocusOutWhenItsMarqueeWasSwitchedOff();
    void titleReplacedWhileItScrollsTakesItsPlace();
    void titleReplacedByAShortOneStopsScrolling();
    void scrollingGoesOnThroughARefresh();
    void scrollingRowMayBeDeleted();

    // Keys
    void keysStepThroughValues_data();
    void keysStepThroughValues();
    void keysInFunctionKeyMode();
    void digitsInFunctionKeyModeAreHandedOn();
    void otherKeysAreHandedOn_data();
    void otherKeysAreHandedOn();
    void pressesAreHandedOn_data();
    void pressesAreHandedOn();
    void okEntersOnlyWhereItShould_data();
    void okEntersOnlyWhereItShould();
    void everyReleaseIsLoggedFirst();
    void keysAreSilentWithoutASoundManager();
    void keyStepRedrawsTheValueAndNothingElse_data();
    void keyStepRedrawsTheValueAndNothingElse();
    void keyStepCutsALongValue();
    void aSlotMayDeleteTheRow_data();
    void aSlotMayDeleteTheRow();
    void aSlotSeesTheNewValue();
    void deletedRowLeavesNoMemory();
};

void TestWidgetListItem::init()
{
    RecordingPlatform::reset();
}

void TestWidgetListItem::cleanup()
{
    QApplication::setFont(QFont());
}

// --- Layout

void TestWidgetListItem::laysOutEachKindOfRow_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("values");
    QTest::addColumn<QString>("flags");  // d: leads deeper, x: deletable, f: fixed, b: badge
    QTest::addColumn<QRect>("titleRect");
    QTest::addColumn<QRect>("valueRect");
    QTest::newRow("title only") << "text" << "" << "" << edges(9, 0, 196, 45) << edges(9, 23, 214, 22);
    QTest::newRow("title that leads deeper") << "text" << "" << "d" << edges(9, 0, 190, 45) << edges(9, 23, 172, 22);
    QTest::newRow("title that leads deeper, fixed") << "text" << "" << "df" << edges(9, 0, 196, 45)
                                                    << edges(9, 23, 172, 22);
    QTest::newRow("title with badge") << "text" << "" << "b" << edges(21, 0, 196, 45) << edges(9, 23, 214, 22);
    QTest::newRow("title, deletable") << "text" << "" << "x" << edges(9, 0, 190, 45) << edges(9, 23, 214, 22);
    QTest::newRow("title, deletable, deeper") << "text" << "" << "xd" << edges(9, 0, 184, 45) << edges(9, 23, 172, 22);

    QTest::newRow("one text") << "text" << "t" << "" << edges(9, 2, 196, 22) << edges(9, 23, 214, 43);
    QTest::newRow("one text, deletable") << "text" << "t" << "x" << edges(9, 2, 190, 22) << edges(9, 23, 214, 43);
    QTest::newRow("one text that leads deeper") << "text" << "t" << "d" << edges(9, 2, 190, 22)
                                                << edges(9, 23, 172, 43);
    QTest::newRow("two texts") << "text" << "tt" << "" << edges(9, 2, 184, 22) << edges(9, 23, 214, 43);
    QTest::newRow("two texts, deeper") << "text" << "tt" << "d" << edges(9, 2, 184, 22) << edges(9, 23, 172, 43);
    QTest::newRow("two texts, fixed") << "text" << "tt" << "f" << edges(9, 2, 196, 22) << edges(9, 23, 214, 43);
    QTest::newRow("two texts, badge") << "text" << "tt" << "b" << edges(21, 2, 184, 22) << edges(9, 23, 214, 43);
    QTest::newRow("display value") << "text" << "d" << "" << edges(9, 2, 196, 22) << edges(9, 23, 214, 43);
    QTest::newRow("display value, badge") << "text" << "d" << "b" << edges(21, 2, 196, 22) << edges(9, 23, 214, 43);
    QTest::newRow("one widget") << "text" << "w" << "" << edges(9, 2, 196, 22) << edges(9, 23, 172, 43);
    QTest::newRow("two widgets") << "text" << "ww" << "" << edges(9, 2, 184, 22) << edges(9, 23, 172, 43);
    QTest::newRow("one widget, deeper") << "text" << "w" << "d" << edges(9, 2, 190, 22) << edges(9, 23, 172, 43);
    QTest::newRow("two widgets then a text") << "text" << "wwt" << "" << edges(9, 2, 184, 22)
                                             << edges(9, 23, 172, 43);
    QTest::newRow("one widget then a text") << "text" << "wt" << "" << edges(9, 2, 196, 22) << edges(9, 23, 214, 43);
    QTest::newRow("text then a widget") << "text" << "tw" << "" << edges(9, 2, 196, 22) << edges(9, 23, 172, 43);

    QTest::newRow("title widget") << "widget" << "" << "" << edges(9, 0, 184, 45) << edges(9, 23, 214, 22);
    QTest::newRow("title widget, badge") << "widget" << "" << "b" << edges(21, 0, 184, 45) << edges(9, 23, 214, 22);
    QTest::newRow("title widget, two texts") << "widget" << "tt" << "" << edges(9, 2, 184, 22)
                                             << edges(9, 23, 214, 43);
    QTest::newRow("title widget, two widgets, badge") << "widget" << "ww" << "b" << edges(21, 2, 184, 22)
                                                      << edges(9, 23, 172, 43);
}

static void setFlags(WidgetListItem &row, const QString &flags)
{
    row.setMoreDepth(flags.contains('d'));
    row.setDeletable(flags.contains('x'));
    row.setModifiable(!flags.contains('f'));
    row.setSerialNum(flags.contains('b'), 3);
    row.m_noShortcut = !flags.contains('b');
    row.setValueOnRightSide(flags.contains('1'));
}

void TestWidgetListItem::laysOutEachKindOfRow()
{
    QFETCH(QString, title);
    QFETCH(QString, values);
    QFETCH(QString, flags);
    QFETCH(QRect, titleRect);
    QFETCH(QRect, valueRect);
    WidgetListItem row(nullptr, sound());
    row.setGeometry(0, 0, 220, 46);
    addTitle(row, title);
    addValues(row, values);
    setFlags(row, flags);
    row.show();
    const RowParts parts(row);
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(title == "text" ? parts.title->geometry() : parts.titleStack->geometry(), titleRect);
        QCOMPARE(values.endsWith('w') ? parts.valueStack->geometry() : parts.value->geometry(), valueRect);
        if (flags.contains('b'))
            QCOMPARE(parts.badge->geometry(), edges(0, 0, 15, 15));
        row.refresh();
    }
    QCOMPARE(row.size(), QSize(220, 46));
}

void TestWidgetListItem::laysOutOnEveryShow()
{
    WidgetListItem row(nullptr, sound());
    row.setGeometry(0, 0, 220, 46);
    row.setTitle(QStringLiteral("A"), true);
    row.show();
    const RowParts parts(row);
    QCOMPARE(parts.title->text(), QStringLiteral("A"));
    row.hide();
    row.setTitle(QStringLiteral("B"), false);
    row.addValue(QStringLiteral("value"));
    QCOMPARE(parts.title->text(), QStringLiteral("A"));
    row.show();
    QCOMPARE(parts.title->text(), QStringLiteral("B"));
    QCOMPARE(parts.title->geometry(), edges(9, 2, 196, 22));
    QCOMPARE(parts.value->text(), QStringLiteral("value"));
}

void TestWidgetListItem::doesNotLayOutBeforeItIsShownOrRefreshed()
{
    WidgetListItem row(nullptr, sound());
    row.setGeometry(0, 0, 220, 46);
    const RowParts parts(row);
    const QRect before = parts.title->geometry();
    row.setTitle(QStringLiteral("A"), true);
    row.addValue(QStringLiteral("value"));
    row.setMoreDepth(true);
    QCOMPARE(parts.title->geometry(), before);
    QCOMPARE(parts.title->styleSheet(), QString());
    QCOMPARE(parts.value->text(), QString());
    row.refresh();
    QCOMPARE(parts.title->geometry(), edges(9, 2, 190, 22));
    QCOMPARE(parts.value->text(), QStringLiteral("value"));
}

void TestWidgetListItem::showsWhatBelongsToItsKind_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("values");
    QTest::addColumn<QString>("shown");
    QTest::newRow("nothing: the title parts are left alone") << "none" << "" << "TS";
    QTest::newRow("title text") << "text" << "" << "T";
    QTest::newRow("title widget") << "widget" << "" << "S";
    QTest::newRow("title and text") << "text" << "t" << "TV";
    QTest::newRow("title and display value") << "text" << "d" << "TV";
    QTest::newRow("title and widgets") << "text" << "ww" << "TW";
    QTest::newRow("title widget and widgets") << "widget" << "ww" << "SW";
    QTest::newRow("widgets then text") << "text" << "wt" << "TV";
    QTest::newRow("text then widgets") << "text" << "tw" << "TW";
}

void TestWidgetListItem::showsWhatBelongsToItsKind()
{
    QFETCH(QString, title);
    QFETCH(QString, values);
    WidgetListItem row(nullptr, sound());
    row.setGeometry(0, 0, 220, 46);
    addTitle(row, title);
    addValues(row, values);
    row.show();
    QTEST(seenTexts(row), "shown");
}

void TestWidgetListItem::showsWhatBelongsToItsKindFromThenOn_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("values");
    QTest::addColumn<QString>("laterTitle");
    QTest::addColumn<QString>("laterValues");
    QTest::addColumn<QString>("shown");
    QTest::newRow("title widget for a text") << "text" << "" << "widget" << "" << "S";
    QTest::newRow("title text for a widget") << "widget" << "" << "text" << "" << "T";
    QTest::newRow("title widget for none") << "none" << "" << "widget" << "" << "S";
    QTest::newRow("title text for none") << "none" << "" << "text" << "" << "T";
    QTest::newRow("text for no value") << "text" << "" << "none" << "t" << "TV";
    QTest::newRow("widget for no value") << "text" << "" << "none" << "w" << "TW";
    QTest::newRow("widget for a text") << "text" << "t" << "none" << "w" << "TW";
    QTest::newRow("text for a widget") << "text" << "w" << "none" << "t" << "TV";
    QTest::newRow("display value for a text") << "text" << "t" << "none" << "d" << "TV";
}

void TestWidgetListItem::showsWhatBelongsToItsKindFromThenOn()
{
    QFETCH(QString, title);
    QFETCH(QString, values);
    QFETCH(QString, laterTitle);
    QFETCH(QString, laterValues);
    WidgetListItem row(nullptr, sound());
    row.setGeometry(0, 0, 220, 46);
    addTitle(row, title);
    addValues(row, values);
    row.show();
    addTitle(row, laterTitle);
    addValues(row, laterValues);
    row.refresh();
    QTEST(seenTexts(row), "shown");
}

void TestWidgetListItem::alignsItsTexts_data()
{
    QTest::addColumn<QString>("values");
    QTest::addColumn<bool>("oneLine");
    QTest::addColumn<int>("title");
    QTest::addColumn<int>("value");
    const int center = Qt::AlignLeft | Qt::AlignVCenter;
    const int top = Qt::AlignLeft | Qt::AlignTop;
    QTest::newRow("title only") << "" << false << center << top;
    QTest::newRow("text") << "t" << false << center << top;
    QTest::newRow("display value") << "d" << false << int(Qt::AlignLeft | Qt::AlignBottom) << top;
    QTest::newRow("display value on one line") << "d" << true << center << int(Qt::AlignRight | Qt::AlignVCenter);
    QTest::newRow("text on one line") << "tt" << true << center << int(Qt::AlignRight | Qt::AlignVCenter);
    QTest::newRow("title only on one line") << "" << true << center << int(Qt::AlignRight | Qt::AlignVCenter);
    QTest::newRow("widgets on one line") << "w" << true << center << int(Qt::AlignRight | Qt::AlignVCenter);
}

void TestWidgetListItem::alignsItsTexts()
{
    QFETCH(QString, values);
    QFETCH(bool, oneLine);
    WidgetListItem row(nullptr, sound());
    row.setGeometry(0, 0, 220, 46);
    addTitle(row, QStringLiteral("text"));
    addValues(row, values);
    row.setValueOnRightSide(oneLine);
    row.show();
    const RowParts parts(row);
    QTEST(int(parts.title->alignment()), "title");
    QTEST(int(parts.value->alignment()), "value");
    // Back to two lines.
    row.setValueOnRightSide(false);
    row.refresh();
    if (!values.contains('w'))
        QCOMPARE(int(parts.value->alignment()), int(Qt::AlignLeft | Qt::AlignTop));
}

void TestWidgetListItem::emptiedTextRowHidesItsValue()
{
    WidgetListItem row(nullptr, sound());
    row.setGeometry(0, 0, 220, 46);
    addTitle(row, QStringLiteral("text"));
    row.setDisplayValue(0, QStringLiteral("A"), false);
    row.show();
    const RowParts parts(row);
    QVERIFY(parts.value->isVisible());
    row.removeAllValue();
    row.refresh();
    QVERIFY(!parts.value->isVisible());
    QCOMPARE(parts.title->alignment(), Qt::AlignLeft | Qt::AlignVCenter);
    // It still has the kind of a row with a value.
    QCOMPARE(parts.title->geometry(), edges(9, 2, 196, 22));
    QCOMPARE(parts.value->geometry(), edges(9, 23, 214, 43));
    QCOMPARE(parts.title->font().pointSize(), 12);
}

void TestWidgetListItem::rowWithoutATitleWidensItsLabelAtEveryRefresh()
{
    WidgetListItem row(nullptr, sound());
    row.setGeometry(0, 0, 220, 46);
    row.addValue(QStringLiteral("A"));
    const RowParts parts(row);
    const QRect before = parts.title->geometry();
    row.refresh();
    QCOMPARE(parts.title->geometry(), before.adjusted(0, 0, 12, 0));
    row.setMoreDepth(true);
    row.refresh();
    QCOMPARE(parts.title->geometry(), before.adjusted(0, 0, 18, 0));
    QCOMPARE(parts.title->styleSheet(), QString());
}

void TestWidgetListItem::rowWithATitleWidgetWidensTheHiddenLabel()
{
    WidgetListItem row(nullptr, sound());
    row.setGeometry(0, 0, 220, 46);
    addTitle(row, QStringLiteral("widget"));
    const RowParts parts(row);
    const QRect before = parts.title->geometry();
    row.refresh();
    QCOMPARE(parts.title->geometry(), before.adjusted(0, 0, 12, 0));
    QCOMPARE(parts.titleStack->geometry(), edges(9, 0, 184, 45));
    QCOMPARE(parts.titleStack->styleSheet(), QString());
    QVERIFY(parts.title->isHidden());
}

void TestWidgetListItem::badgeNeedsANumberAndAShortcut_data()
{
    QTest::addColumn<bool>("number");
    QTest::addColumn<bool>("noShortcut");
    QTest::addColumn<bool>("shown");
    QTest::newRow("number and shortcut") << true << false << true;
    QTest::newRow("number without shortcut") << true << true << false;
    QTest::newRow("shortcut without number") << false << false << false;
    QTest::newRow("neither") << false << true << false;
}

void TestWidgetListItem::badgeNeedsANumberAndAShortcut()
{
    QFETCH(bool, number);
    QFETCH(bool, noShortcut);
    QFETCH(bool, shown);
    WidgetListItem row(nullptr, sound());
    addTitle(row, QStringLiteral("text"));
    // There is none at first.
    if (number)
        row.setSerialNum(true, 4);
    row.m_noShortcut = noShortcut;
    row.show();
    const RowParts parts(row);
    QCOMPARE(parts.badge->isVisible(), shown);
    QCOMPARE(parts.title->x(), shown ? 21 : 9);
    if (shown) {
        QCOMPARE(parts.badge->styleSheet(), s_unfocusedBadge);
        QCOMPARE(parts.badge->text(), QStringLiteral("4"));
        QCOMPARE(parts.badge->geometry(), QRect(0, 0, 16, 16));
        QCOMPARE(parts.badge->alignment(), Qt::AlignHCenter | Qt::AlignVCenter);
    }
}

void TestWidgetListItem::badgeIsNotTouchedWithoutATitle()
{
    WidgetListItem row(nullptr, sound());
    row.addValue(QStringLiteral("A"));
    row.setSerialNum(true, 4);
    row.m_noShortcut = false;
    row.refresh();
    const RowParts parts(row);
    QCOMPARE(parts.badge->text(), QString());
    QCOMPARE(parts.badge->styleSheet(), QString());
    QVERIFY(!parts.badge->isHidden());
    row.show();
    QVERIFY(parts.badge->isVisible());

    // A title decides at the next layout.
    row.setTitle(QStringLiteral("title"), true);
    QVERIFY(parts.badge->isVisible());
    row.setSerialNum(false, 0);
    row.refresh();
    QVERIFY(parts.badge->isHidden());
}

void TestWidgetListItem::badgeStaysWhenTheTitleIsReplaced()
{
    WidgetListItem row(nullptr, sound());
    addTitle(row, QStringLiteral("text"));
    row.setSerialNum(true, 4);
    row.m_noShortcut = false;
    row.refresh();
    const RowParts parts(row);
    QVERIFY(!parts.badge->isHidden());
    row.setTitle(QStringLiteral("another"), true);
    QVERIFY(!parts.badge->isHidden());
}

void TestWidgetListItem::titleStackIsNotTouchedWithoutATitle()
{
    WidgetListItem row(nullptr, sound());
    row.addValue(QStringLiteral("A"));
    const RowParts parts(row);
    const QRect before = parts.titleStack->geometry();
    row.refresh();
    QCOMPARE(parts.titleStack->geometry(), before);
}

void TestWidgetListItem::mixOfTextsAndWidgetsIsReportedAtEveryRefresh_data()
{
    QTest::addColumn<QString>("values");
    QTest::newRow("text then widget") << "tw";
    QTest::newRow("widget then text") << "wt";
}

void TestWidgetListItem::mixOfTextsAndWidgetsIsReportedAtEveryRefresh()
{
    QFETCH(QString, values);
    WidgetListItem row(nullptr, sound());
    addTitle(row, QStringLiteral("text"));
    addValues(row, values);
    const QString line = QStringLiteral("[refresh, 326] This is not supported!!!!");
    RecordingPlatform::clearLog();
    row.show();
    QCOMPARE(RecordingPlatform::logTexts(2), QStringList(line));
    row.refresh();
    QCOMPARE(RecordingPlatform::logTexts(2), QStringList({line, line}));
    row.removeAllValue();
    row.refresh();
    QCOMPARE(RecordingPlatform::logLines().size(), 2);
}

void TestWidgetListItem::refreshDressesARowAsWithoutTheFocus()
{
    WidgetListItem row(nullptr, sound());
    addTitle(row, QStringLiteral("text"));
    addValues(row, QStringLiteral("tt"));
    setFlags(row, QStringLiteral("b"));
    row.show();
    focusIn(&row);
    row.refresh();
    const RowParts parts(row);
    QCOMPARE(parts.title->styleSheet(), s_unfocusedTitle);
    QCOMPARE(parts.badge->styleSheet(), s_unfocusedBadge);
    QCOMPARE(parts.prevArrow->styleSheet(), s_unfocusedPrev);
    QCOMPARE(parts.nextArrow->styleSheet(), s_unfocusedNext);
    QCOMPARE(parts.value->styleSheet(), s_focusedText);
}

void TestWidgetListItem::refreshTakesTheDefaultFonts()
{
    WidgetListItem row(nullptr, sound());
    addTitle(row, QStringLiteral("text"));
    const RowParts parts(row);
    QFont odd;
    odd.setPointSize(8);
    odd.setItalic(true);
    parts.title->setFont(odd);
    parts.value->setFont(odd);
    parts.badge->setFont(odd);
    row.refresh();
    QCOMPARE(parts.title->font().pointSize(), 15);
    QCOMPARE(parts.badge->font().pointSize(), 11);
    QCOMPARE(parts.value->font().pointSize(), 14);
    QVERIFY(!parts.title->font().italic());
    QVERIFY(!parts.value->font().italic());
}

void TestWidgetListItem::refreshTwiceOfARowThatWasNeverShownChangesNothing()
{
    WidgetListItem row(nullptr, sound());
    row.setGeometry(0, 0, 220, 46);
    addTitle(row, QStringLiteral("text"));
    addValues(row, QStringLiteral("tt"));
    setFlags(row, QStringLiteral("b"));
    row.refresh();
    const EventRecorder recorder(&row);
    row.refresh();
    QCOMPARE(recorder.count(QEvent::ShowToParent) + recorder.count(QEvent::HideToParent), 0);
}

void TestWidgetListItem::refreshTwiceChangesNothing_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("values");
    QTest::addColumn<QString>("flags");
    for (const char *title : {"text", "widget"}) {
        for (const char *values : {"", "t", "tt", "w", "ww", "d"}) {
            for (const char *flags : {"", "d", "b", "x", "f", "1", "1b", "dbx"}) {
                const QString name = QString("title %1, values %2, flags %3").arg(title, values, flags);
                QTest::newRow(qPrintable(name)) << title << values << flags;
            }
        }
    }
}

void TestWidgetListItem::refreshTwiceChangesNothing()
{
    QFETCH(QString, title);
    QFETCH(QString, values);
    QFETCH(QString, flags);
    WidgetListItem row(nullptr, sound());
    row.setGeometry(0, 0, 220, 46);
    addTitle(row, title);
    addValues(row, values);
    setFlags(row, flags);
    row.show();
    // Only the second layout on one line measures with the fonts of one line.
    row.refresh();
    QVERIFY(QTest::qWaitForWindowExposed(&row, LongestWait));
    QCoreApplication::processEvents();
    EventRecorder recorder(&row);
    row.refresh();
    QCoreApplication::processEvents();
    for (QEvent::Type type : {QEvent::StyleChange, QEvent::FontChange, QEvent::Paint, QEvent::Move, QEvent::Resize,
                              QEvent::Show, QEvent::Hide, QEvent::UpdateRequest})
        QCOMPARE(recorder.receivers(type), QList<QObject *>());
}

void TestWidgetListItem::secondShowDressesNothing()
{
    WidgetListItem row(nullptr, sound());
    row.setGeometry(0, 0, 220, 46);
    addTitle(row, QStringLiteral("text"));
    addValues(row, QStringLiteral("tt"));
    setFlags(row, QStringLiteral("b"));
    row.show();
    QVERIFY(QTest::qWaitForWindowExposed(&row, LongestWait));
    row.hide();
    EventRecorder recorder(&row);
    row.show();
    QVERIFY(QTest::qWaitForWindowExposed(&row, LongestWait));
    QCOMPARE(recorder.count(QEvent::StyleChange), 0);
    QCOMPARE(recorder.count(QEvent::FontChange), 0);
    QCOMPARE(recorder.count(QEvent::Polish), 0);
}

void TestWidgetListItem::heightDoesNotMoveTheTexts_data()
{
    QTest::addColumn<int>("height");
    QTest::newRow("0") << 0;
    QTest::newRow("1") << 1;
    QTest::newRow("23") << 23;
    QTest::newRow("100") << 100;
}

void TestWidgetListItem::heightDoesNotMoveTheTexts()
{
    QFETCH(int, height);
    QWidget parent;
    parent.resize(220, 176);
    WidgetListItem *row = new WidgetListItem(&parent, sound());
    row->setGeometry(0, 0, 220, height);
    addTitle(*row, QStringLiteral("text"));
    addValues(*row, QStringLiteral("tt"));
    parent.show();
    row->show();
    focusIn(row);
    focusOut(row);
    const RowParts parts(*row);
    QCOMPARE(parts.title->geometry(), edges(9, 2, 184, 22));
    QCOMPARE(parts.value->geometry(), edges(9, 23, 214, 43));
    QCOMPARE(row->height(), height);
}

// --- One line

void TestWidgetListItem::oneLineSharesTheWidth_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("values");
    QTest::newRow("short") << "On" << "tt";
    QTest::newRow("empty") << "" << "tt";
    QTest::newRow("one letter") << "i" << "t";
    QTest::newRow("too long") << QString(40, 'W') << "tt";
    QTest::newRow("display value") << "Name" << "d";
    QTest::newRow("title alone") << "Name" << "";
    QTest::newRow("right to left") << QString::fromUtf8("עוצמה") << "tt";
    for (int letters = 8; letters < 16; ++letters)
        QTest::newRow(qPrintable(QString("%1 letters").arg(letters))) << QString(letters, 'n') << "tt";
}

void TestWidgetListItem::oneLineSharesTheWidth()
{
    QFETCH(QString, title);
    QFETCH(QString, values);
    WidgetListItem row(nullptr, sound());
    row.setGeometry(0, 0, 220, 46);
    row.setValueOnRightSide(true);
    row.setTitle(title, true);
    addValues(row, values);
    row.show();
    row.refresh();
    const RowParts parts(row);
    QCOMPARE(parts.title->font().pointSize(), 15);
    const int measured = measure(title, parts.title->font());
    const int width = qMin(measured, 96);
    QCOMPARE(parts.title->geometry(), edges(4, 0, width + 3, 45));
    QCOMPARE(parts.value->geometry(), edges(width + 6, 0, 211, 45));
    QCOMPARE(parts.title->text(), fitted(title, parts.title->font(), width));
    QCOMPARE(parts.title->text() == title, measured <= 96);
    if (measured > 96) {
        QCOMPARE(parts.title->geometry(), edges(4, 0, 99, 45));
        QCOMPARE(parts.value->geometry(), edges(102, 0, 211, 45));
    }
}

void TestWidgetListItem::oneLineMeasuresWithTheFontInForceBefore()
{
    WidgetListItem row(nullptr, sound());
    row.setGeometry(0, 0, 220, 46);
    const RowParts parts(row);
    const QFont before = parts.title->font();
    const QString title = QStringLiteral("Volume");
    row.setTitle(title, false);
    row.setValueOnRightSide(true);
    addValues(row, QStringLiteral("t"));
    row.refresh();
    QCOMPARE(before.pointSize(), 12);
    QCOMPARE(parts.title->font().pointSize(), 15);
    const int narrow = measure(title, before);
    QVERIFY(narrow < measure(title, parts.title->font()));
    QCOMPARE(parts.title->geometry(), edges(4, 0, narrow + 3, 45));
    QCOMPARE(parts.title->text(), fitted(title, parts.title->font(), narrow));
    row.refresh();
    QCOMPARE(parts.title->geometry(), edges(4, 0, measure(title, parts.title->font()) + 3, 45));
    QCOMPARE(parts.title->text(), title);
}

void TestWidgetListItem::oneLineIsRightAtOnceWithTheDefaultFont()
{
    WidgetListItem row(nullptr, sound());
    row.setGeometry(0, 0, 220, 46);
    row.setValueOnRightSide(true);
    row.setTitle(QStringLiteral("Volume"), true);
    addValues(row, QStringLiteral("t"));
    row.refresh();
    const RowParts parts(row);
    QCOMPARE(parts.title->geometry(), edges(4, 0, measure(QStringLiteral("Volume"), parts.title->font()) + 3, 45));
    QCOMPARE(parts.title->text(), QStringLiteral("Volume"));
}

void TestWidgetListItem::oneLineKeepsItsBadge()
{
    WidgetListItem row(nullptr, sound());
    addTitle(row, QStringLiteral("text"));
    addValues(row, QStringLiteral("tt"));
    setFlags(row, QStringLiteral("1b"));
    row.show();
    const RowParts parts(row);
    QVERIFY(parts.badge->isVisible());
    QCOMPARE(parts.badge->geometry(), QRect(0, 0, 16, 16));
    QCOMPARE(parts.title->x(), 4);
}

void TestWidgetListItem::oneLineWithoutTextsShowsNoValue_data()
{
    QTest::addColumn<QString>("values");
    QTest::newRow("no value") << "";
    QTest::newRow("widgets") << "ww";
}

void TestWidgetListItem::oneLineWithoutTextsShowsNoValue()
{
    QFETCH(QString, values);
    WidgetListItem row(nullptr, sound());
    row.setGeometry(0, 0, 220, 46);
    addTitle(row, QStringLiteral("text"));
    addValues(row, values);
    row.setValueOnRightSide(true);
    row.show();
    const RowParts parts(row);
    QVERIFY(!parts.value->isVisible());
    QCOMPARE(parts.value->text(), QString());
    QCOMPARE(parts.valueStack->isVisible(), !values.isEmpty());
    if (!values.isEmpty())
        QCOMPARE(parts.valueStack->geometry(), edges(9, 23, 172, 43));
}

void TestWidgetListItem::oneLineForgetsAtTheRefreshItself()
{
    WidgetListItem row(nullptr, sound());
    addTitle(row, QStringLiteral("text"));
    row.setDisplayValue(0, QStringLiteral("A"), true);
    row.setValueOnRightSide(true);
    QCOMPARE(row.getDisplayValue(), QStringLiteral("A"));
    row.refresh();
    QCOMPARE(row.getDisplayValue(), QString());
}

void TestWidgetListItem::oneLineCutsTheValueToItsPlace()
{
    WidgetListItem row(nullptr, sound());
    const RowParts parts(row);
    const QString value = textWiderThan(220, parts.value->font());
    row.setValueOnRightSide(true);
    row.setTitle(QStringLiteral("Name"), true);
    row.addValue(value);
    row.show();
    QCOMPARE(row.getDisplayValue(), fitted(value, parts.value->font(), parts.value->width()));
    QVERIFY(row.getDisplayValue() != value);
}

// --- Fonts and fitting

void TestWidgetListItem::defaultFontsFollowTheLayout_data()
{
    QTest::addColumn<QString>("values");
    QTest::addColumn<bool>("oneLine");
    QTest::addColumn<int>("title");
    QTest::newRow("title only") << "" << false << 15;
    QTest::newRow("text") << "t" << false << 12;
    QTest::newRow("widget") << "w" << false << 12;
    QTest::newRow("display value") << "d" << false << 12;
    QTest::newRow("title only on one line") << "" << true << 15;
    QTest::newRow("text on one line") << "t" << true << 15;
    QTest::newRow("widget on one line") << "w" << true << 15;
}

void TestWidgetListItem::defaultFontsFollowTheLayout()
{
    QFETCH(QString, values);
    QFETCH(bool, oneLine);
    WidgetListItem row(nullptr, sound());
    addValues(row, values);
    row.setValueOnRightSide(oneLine);
    row.setDefaultFont();
    const RowParts parts(row);
    QTEST(parts.title->font().pointSize(), "title");
    QCOMPARE(int(parts.title->font().weight()), int(QFont::Bold));
    QCOMPARE(parts.badge->font().pointSize(), 11);
    QCOMPARE(int(parts.badge->font().weight()), int(QFont::Bold));
    QCOMPARE(parts.value->font().pointSize(), 14);
    QCOMPARE(int(parts.value->font().weight()), int(QFont::Normal));
}

void TestWidgetListItem::weightsDoNotFollowTheFontOfTheApplication_data()
{
    QTest::addColumn<int>("weight");
    QTest::newRow("light") << int(QFont::Light);
    QTest::newRow("bold") << int(QFont::Bold);
    QTest::newRow("black") << int(QFont::Black);
}

void TestWidgetListItem::weightsDoNotFollowTheFontOfTheApplication()
{
    QFETCH(int, weight);
    QFont font;
    font.setWeight(QFont::Weight(weight));
    QApplication::setFont(font);
    WidgetListItem row(nullptr, sound());
    const RowParts parts(row);
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(int(parts.title->font().weight()), int(QFont::Bold));
        QCOMPARE(int(parts.badge->font().weight()), int(QFont::Bold));
        QCOMPARE(int(parts.value->font().weight()), int(QFont::Normal));
        row.setDefaultFont();
    }
}

void TestWidgetListItem::textIsCutOnlyWhenItsRoundedWidthIsGreater_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("a word") << "Volume";
    QTest::newRow("kerning") << "AVAVATo.Ty";
    QTest::newRow("a sentence") << "Play a sound when a message comes in";
    QTest::newRow("digits") << "2026-03-07 13:05:09";
    QTest::newRow("one letter") << "W";
    QTest::newRow("a wide letter and a narrow one") << "Wi";
    QTest::newRow("italic looking") << "ffffjjj";
    QTest::newRow("right to left") << QString::fromUtf8("הגדרות מערכת");
    QTest::newRow("combining marks") << QString::fromUtf8("A\u0308o\u0308u\u0308 e\u0301");
    QTest::newRow("blanks at the end") << "Volume    ";
    QTest::newRow("tabs") << "\t\t\t";
    QTest::newRow("characters beyond 16 bits") << QString::fromUtf8("𝟘𝟙𝟚𝟛");
}

void TestWidgetListItem::textIsCutOnlyWhenItsRoundedWidthIsGreater()
{
    QFETCH(QString, text);
    WidgetListItem row(nullptr, sound());
    row.setTitle(text, true);
    row.addValue(text);
    const RowParts parts(row);
    for (QLabel *label : {static_cast<QLabel *>(parts.title), parts.value}) {
        const int exact = measure(text, label->font());
        for (int width = qMax(0, exact - 3); width <= exact + 3; ++width) {
            label->resize(width, 21);
            row.updateTitle();
            row.updateValue();
            QCOMPARE(label->text(), fitted(text, label->font(), width));
            if (width >= exact)
                QCOMPARE(label->text(), text);
        }
        label->resize(0, 21);
        row.updateTitle();
        row.updateValue();
        QCOMPARE(label->text(), fitted(text, label->font(), 0));
    }
}

void TestWidgetListItem::textThatWasNeverMeasuredIsCutAsAnyOther_data()
{
    textIsCutOnlyWhenItsRoundedWidthIsGreater_data();
}

void TestWidgetListItem::textThatWasNeverMeasuredIsCutAsAnyOther()
{
    QFETCH(QString, text);
    const WidgetListItem any(nullptr, sound());
    const int exact = measure(text, RowParts(any).value->font());
    for (int width = 0; width <= 2 * exact; ++width) {
        WidgetListItem row(nullptr, sound());
        row.addValue(text);
        const RowParts parts(row);
        parts.value->resize(width, 21);
        row.updateValue();
        QCOMPARE(parts.value->text(), fitted(text, parts.value->font(), width));
    }
}

void TestWidgetListItem::longTitleIsCutAtTheRight()
{
    WidgetListItem row(nullptr, sound());
    row.setGeometry(0, 0, 220, 46);
    const RowParts parts(row);
    const QString text = textWiderThan(300, parts.title->font());
    row.setTitle(text, false);
    addValues(row, QStringLiteral("tt"));
    row.show();
    QCOMPARE(parts.title->width(), 176);
    QCOMPARE(parts.title->text(), QFontMetrics(parts.title->font()).elidedText(text, Qt::ElideRight, 176));
    QVERIFY(parts.title->text().endsWith(QChar(0x2026)));
    QVERIFY(text.startsWith(parts.title->text().chopped(1)));
}

void TestWidgetListItem::fitsInEveryFont_data()
{
    QTest::addColumn<QFont>("font");
    QTest::addColumn<QString>("values");
    QTest::addColumn<QString>("flags");
#if QT_VERSION >= 0x060000
    QStringList families = QFontDatabase::families();
#else
    QStringList families = QFontDatabase().families();
#endif
    families << QStringLiteral("no such family");
    for (const QString &family : families) {
        for (int style = 0; style < 4; ++style) {
            QFont font(family, 9);
            font.setBold(style == 1);
            font.setItalic(style == 2);
            if (style == 3)
                font.setPixelSize(31);
            const char *styles[] = {"plain", "bold", "italic", "in pixels"};
            const QString name = QString("%1, %2").arg(family, styles[style]);
            QTest::newRow(qPrintable(name + ", two lines")) << font << "tt" << "";
            QTest::newRow(qPrintable(name + ", title only")) << font << "" << "d";
            QTest::newRow(qPrintable(name + ", one line")) << font << "tt" << "1";
            QTest::newRow(qPrintable(name + ", display value with badge")) << font << "d" << "b";
        }
    }
}

void TestWidgetListItem::fitsInEveryFont()
{
    QFETCH(QFont, font);
    QFETCH(QString, values);
    QFETCH(QString, flags);
    QApplication::setFont(font);
    const QStringList texts{"Volume", "Keep messages when they are answered", "Language and writing direction",
                            "AVAVAVAVAVAVAVAVAVAVAVAVAV"};
    for (const QString &text : texts) {
        WidgetListItem row(nullptr, sound());
        row.setGeometry(0, 0, 220, 46);
        setFlags(row, flags);
        addValues(row, values);
        row.setTitle(text, true);
        if (!values.isEmpty())
            row.setDisplayValueIndex(0);
        row.replaceValue(0, text, false);
        row.show();
        const RowParts parts(row);
        QCOMPARE(parts.title->text(), fitted(text, parts.title->font(), parts.title->width()));
        if (!values.isEmpty())
            QCOMPARE(parts.value->text(), fitted(text, parts.value->font(), parts.value->width()));
        QCOMPARE(parts.title->font().family(), font.family());
        if (flags == "1") {
            const int width = qMin(96, measure(text, parts.title->font()));
            QCOMPARE(parts.title->geometry(), edges(4, 0, width + 3, 45));
            QCOMPARE(parts.value->geometry(), edges(width + 6, 0, 211, 45));
        }
        // Scrolls exactly when it was cut.
        focusIn(&row);
        QCOMPARE(timersOf(parts.title).size(), parts.title->text() == text ? 0 : 1);
    }
}

void TestWidgetListItem::textsArePlain()
{
    WidgetListItem row(nullptr, sound());
    const RowParts parts(row);
    row.setTitle(QStringLiteral("<b>&amp;</b>"), true);
    row.addValue(QStringLiteral("<i>x</i>"));
    row.refresh();
    QCOMPARE(parts.title->text(), QString("<b>&amp;</b>"));
    QCOMPARE(parts.title->textFormat(), Qt::PlainText);
    QCOMPARE(parts.value->text(), QString("<i>x</i>"));
    QCOMPARE(parts.value->textFormat(), Qt::PlainText);
}

void TestWidgetListItem::defaultFontIsThatOfTheApplicationByThen()
{
    WidgetListItem row(nullptr, sound());
    const RowParts parts(row);
    const QString text = textWiderThan(300, parts.value->font());
    row.setTitle(text, true);
    row.addValue(text);
    row.refresh();
    QApplication::setFont(QFont(QStringLiteral("DejaVu Sans Mono")));
    // The newer toolkit tells the widgets later.
    runEventLoop();
    row.setDefaultFont();
    row.updateTitle();
    row.updateValue();
    for (const QLabel *part : QList<QLabel *>{parts.title, parts.value}) {
        QCOMPARE(part->font().family(), QStringLiteral("DejaVu Sans Mono"));
        QCOMPARE(part->text(), fitted(text, part->font(), part->width()));
    }
    QCOMPARE(parts.badge->font().family(), QStringLiteral("DejaVu Sans Mono"));
}

void TestWidgetListItem::defaultFontDoesNotFollowTheFontOfTheRow_data()
{
    QTest::addColumn<bool>("refreshed");
    QTest::newRow("after a refresh") << true;
    QTest::newRow("before any refresh") << false;
}

void TestWidgetListItem::defaultFontDoesNotFollowTheFontOfTheRow()
{
    QFETCH(bool, refreshed);
    WidgetListItem row(nullptr, sound());
    addTitle(row, QStringLiteral("text"));
    if (refreshed)
        row.refresh();
    else
        row.setDefaultFont();
    const RowParts parts(row);
    const QFont title = parts.title->font();
    // The same from around it, which is not the same as its own.
    row.setFont(title);
    parts.title->setFont(QFont());
    QCOMPARE(parts.title->font(), title);
    row.setDefaultFont();
    QFont another = title;
    another.setPointSize(8);
    row.setFont(another);
    QCOMPARE(parts.title->font(), title);
}

void TestWidgetListItem::defaultFontIsNotLeftToTheApplication()
{
    WidgetListItem row(nullptr, sound());
    addTitle(row, QStringLiteral("text"));
    row.setDefaultFont();
    const RowParts parts(row);
    const QFont font = QApplication::font();
    const QFont title = parts.title->font();
    // Its weight only, and all the same.
    QFont bold;
    bold.setBold(true);
    QApplication::setFont(title);
    runEventLoop();
    parts.title->setFont(bold);
    const bool same = parts.title->font() == title;
    row.setDefaultFont();
    QApplication::setFont(font);
    runEventLoop();
    QVERIFY(same);
    QCOMPARE(parts.title->font(), title);
}

void TestWidgetListItem::cutsWhatIsOnePixelTooWide_data()
{
    QTest::addColumn<QFont>("font");
    const QFont plain;
    QTest::newRow("plain") << plain;
    QFont font = plain;
    font.setLetterSpacing(QFont::AbsoluteSpacing, 5);
    QTest::newRow("letters apart") << font;
    font.setLetterSpacing(QFont::PercentageSpacing, 160);
    QTest::newRow("letters apart in proportion") << font;
    font = plain;
    font.setWordSpacing(20);
    QTest::newRow("words apart") << font;
    font = plain;
    font.setCapitalization(QFont::AllUppercase);
    QTest::newRow("capitals") << font;
    font.setCapitalization(QFont::SmallCaps);
    QTest::newRow("small capitals") << font;
    font = plain;
    font.setStretch(QFont::UltraExpanded);
    QTest::newRow("stretched") << font;
    font = plain;
    font.setItalic(true);
    QTest::newRow("italic") << font;
}

void TestWidgetListItem::cutsWhatIsOnePixelTooWide()
{
    QFETCH(QFont, font);
    QApplication::setFont(font);
    WidgetListItem row(nullptr, sound());
    row.setGeometry(0, 0, 220, 46);
    addValues(row, QStringLiteral("tt"));
    row.setTitle(QStringLiteral("Title"), true);
    row.show();
    const RowParts parts(row);
    const QStringList units{"i", "W", "l ", "AV", "Tofi", "-.", "a bc d", QString::fromUtf8("é"), QString::fromUtf8("中"),
                            QString::fromUtf8("ب"), QString("o") + QChar(0x308)};
    for (const QString &unit : units) {
        // From texts that surely fit to texts that surely do not.
        QString text;
        do {
            text += unit;
            row.setTitle(text, false);
            row.refresh();
            QCOMPARE(parts.title->text(), fitted(text, parts.title->font(), parts.title->width()));
            row.replaceValue(0, text, false);
            row.refresh();
            QCOMPARE(parts.value->text(), fitted(text, parts.value->font(), parts.value->width()));
        } while (measure(text, parts.title->font()) < 2 * parts.title->width());
    }
}

void TestWidgetListItem::takesAnyTextWithoutHarm_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << "";
    QTest::newRow("null") << QString();
    QTest::newRow("10,000 letters") << QString(10000, 'W');
    QTest::newRow("10,000 words") << QStringLiteral("word ").repeated(2000);
    QTest::newRow("10,000 blanks") << QString(10000, ' ');
    QTest::newRow("right to left") << QString::fromUtf8("שלום עולם ").repeated(100);
    QTest::newRow("lines") << "one\ntwo\nthree";
    QTest::newRow("tags") << "<b>bold</b> & <img src='x'>";
    QTest::newRow("percent signs") << "%s%n%d %1";
    QTest::newRow("half a surrogate") << QString(QChar(0xd83d));
    QTest::newRow("null character") << QString(QChar(0));
}

void TestWidgetListItem::takesAnyTextWithoutHarm()
{
    QFETCH(QString, text);
    for (const char *flags : {"", "1", "b"}) {
        WidgetListItem row(nullptr, sound());
        row.setGeometry(0, 0, 220, 46);
        row.setTitle(text, true);
        row.addValue(text);
        row.addValue(text + text);
        setFlags(row, QString(flags));
        row.show();
        const RowParts parts(row);
        QCOMPARE(parts.title->text(), fitted(text, parts.title->font(), parts.title->width()));
        focusIn(&row);
        tick(parts);
        tick(parts);
        releaseKey(&row, Qt::Key_6);
        releaseKey(&row, Qt::Key_4);
        row.grab();
        focusOut(&row);
        QCOMPARE(parts.title->text(), fitted(text, parts.title->font(), parts.title->width()));
        QCOMPARE(row.getDisplayValue(), fitted(text, parts.value->font(), parts.value->width()));
    }
}

// --- Arrows

void TestWidgetListItem::countsAndPlacesItsArrows_data()
{
    QTest::addColumn<QString>("values");
    QTest::addColumn<QString>("flags");
    QTest::addColumn<bool>("prev");
    QTest::addColumn<bool>("next");
    QTest::newRow("no value") << "" << "" << false << false;
    QTest::newRow("no value, deeper") << "" << "d" << false << true;
    QTest::newRow("no value, deletable") << "" << "x" << true << false;
    QTest::newRow("one text") << "t" << "" << false << false;
    QTest::newRow("one text, deletable") << "t" << "x" << true << false;
    QTest::newRow("one text, deeper") << "t" << "d" << false << true;
    QTest::newRow("one text, deletable and deeper") << "t" << "xd" << true << true;
    QTest::newRow("two texts") << "tt" << "" << true << true;
    QTest::newRow("three texts") << "ttt" << "" << true << true;
    QTest::newRow("one widget") << "w" << "" << false << false;
    QTest::newRow("two widgets") << "ww" << "" << true << true;
    QTest::newRow("one text and one widget") << "tw" << "" << false << false;
    QTest::newRow("two texts and one widget") << "ttw" << "" << true << true;
    QTest::newRow("display value") << "d" << "" << false << false;
    QTest::newRow("two texts, fixed") << "tt" << "f" << false << false;
    QTest::newRow("deeper, fixed") << "" << "df" << false << false;
    QTest::newRow("deletable, fixed") << "t" << "xf" << false << false;
}

void TestWidgetListItem::countsAndPlacesItsArrows()
{
    QFETCH(QString, values);
    QFETCH(QString, flags);
    QFETCH(bool, prev);
    QFETCH(bool, next);
    WidgetListItem row(nullptr, sound());
    row.setGeometry(0, 0, 220, 46);
    addValues(row, values);
    setFlags(row, flags);
    row.show();
    const RowParts parts(row);
    QCOMPARE(row.updateArrows(), int(prev) + int(next));
    QCOMPARE(parts.prevArrow->isVisible(), prev);
    QCOMPARE(parts.nextArrow->isVisible(), next);
    if (prev) {
        QCOMPARE(parts.prevArrow->geometry(), edges(185, 18, 190, 27));
        QCOMPARE(parts.prevArrow->styleSheet(), s_unfocusedPrev);
    }
    if (next) {
        QCOMPARE(parts.nextArrow->geometry(), edges(201, 18, 206, 27));
        QCOMPARE(parts.nextArrow->styleSheet(), s_unfocusedNext);
    }
}

void TestWidgetListItem::arrowsStandInTheMiddleOfTheHeight_data()
{
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("y");
    QTest::newRow("46") << 46 << 18;
    QTest::newRow("45 rounds down") << 45 << 17;
    QTest::newRow("20") << 20 << 5;
    QTest::newRow("10") << 10 << 0;
    QTest::newRow("1") << 1 << -5;
    QTest::newRow("0") << 0 << -5;
}

void TestWidgetListItem::arrowsStandInTheMiddleOfTheHeight()
{
    QFETCH(int, height);
    QFETCH(int, y);
    WidgetListItem row(nullptr, sound());
    row.resize(220, height);
    addValues(row, QStringLiteral("tt"));
    row.updateArrows();
    const RowParts parts(row);
    QCOMPARE(parts.prevArrow->geometry(), QRect(185, y, 6, 10));
    QCOMPARE(parts.nextArrow->geometry(), QRect(201, y, 6, 10));
}

void TestWidgetListItem::arrowsAreCountedWhileTheRowIsHidden()
{
    WidgetListItem row(nullptr, sound());
    addValues(row, QStringLiteral("tt"));
    QCOMPARE(row.updateArrows(), 2);
    QVERIFY(!row.isVisible());
    row.setModifiable(false);
    QCOMPARE(row.updateArrows(), 0);
    row.setModifiable(true);
    row.show();
    row.hide();
    QCOMPARE(row.updateArrows(), 2);
}

void TestWidgetListItem::arrowsThatAreNotModifiableAreStillPlacedAndDressed()
{
    WidgetListItem row(nullptr, sound());
    row.resize(220, 46);
    addValues(row, QStringLiteral("tt"));
    row.setModifiable(false);
    const RowParts parts(row);
    QVERIFY(parts.prevArrow->isHidden());
    QVERIFY(parts.nextArrow->isHidden());
    QCOMPARE(parts.prevArrow->geometry(), QRect(185, 18, 6, 10));
    QCOMPARE(parts.nextArrow->geometry(), QRect(201, 18, 6, 10));
    QCOMPARE(parts.prevArrow->styleSheet(), s_unfocusedPrev);
    QCOMPARE(parts.nextArrow->styleSheet(), s_unfocusedNext);
}

void TestWidgetListItem::arrowsThatAreNotWantedAreLeftAsTheyAre()
{
    WidgetListItem row(nullptr, sound());
    row.resize(220, 46);
    const RowParts parts(row);
    const QRect before = parts.prevArrow->geometry();
    QCOMPARE(row.updateArrows(), 0);
    QCOMPARE(parts.prevArrow->geometry(), before);
    QCOMPARE(parts.nextArrow->geometry(), before);
    QCOMPARE(parts.prevArrow->styleSheet(), QString());
    QCOMPARE(parts.nextArrow->styleSheet(), QString());
    QVERIFY(parts.prevArrow->isHidden());
    QVERIFY(parts.nextArrow->isHidden());
}

void TestWidgetListItem::partsThatAreNotWantedAreNotDressedForTheShow()
{
    WidgetListItem row(nullptr, sound());
    addTitle(row, QStringLiteral("text"));
    const RowParts parts(row);
    const QList<QWidget *> unwanted{parts.prevArrow, parts.nextArrow, parts.badge, parts.valueStack};
    for (const QWidget *part : unwanted)
        QVERIFY(part->isHidden());
    row.show();
    QVERIFY(parts.title->testAttribute(Qt::WA_WState_Polished));
    for (const QWidget *part : unwanted)
        QVERIFY(!part->testAttribute(Qt::WA_WState_Polished));
}

void TestWidgetListItem::updateArrowsTakesTheFocusedLookAway()
{
    WidgetListItem row(nullptr, sound());
    addTitle(row, QStringLiteral("text"));
    addValues(row, QStringLiteral("tt"));
    row.show();
    focusIn(&row);
    row.setModifiable(true);
    const RowParts parts(row);
    QCOMPARE(parts.prevArrow->styleSheet(), s_unfocusedPrev);
    QCOMPARE(parts.nextArrow->styleSheet(), s_unfocusedNext);
    QCOMPARE(parts.title->styleSheet(), s_focusedText);
}

// --- Focus

void TestWidgetListItem::dressesByFocus_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("values");
    for (const char *title : {"none", "text", "widget"}) {
        for (const char *values : {"", "t", "tt", "d", "w", "ww", "tw", "wt"})
            QTest::newRow(qPrintable(QString("title %1, values %2").arg(title, values))) << title << values;
    }
}

void TestWidgetListItem::dressesByFocus()
{
    QFETCH(QString, title);
    QFETCH(QString, values);
    WidgetListItem row(nullptr, sound());
    addTitle(row, title);
    addValues(row, values);
    row.show();
    const RowParts parts(row);
    const bool widgets = values.endsWith('w');
    const bool texts = !values.isEmpty() && !widgets;

    for (int i = 0; i < 2; ++i) {
        focusIn(&row);
        QCOMPARE(parts.title->styleSheet(), title == "text" ? s_focusedText : QString());
        QCOMPARE(parts.titleStack->styleSheet(), title == "widget" ? s_focusedText : QString());
        QCOMPARE(parts.value->styleSheet(), texts ? s_focusedText : QString());
        QCOMPARE(parts.valueStack->styleSheet(), widgets ? s_focusedText : QString());
        QCOMPARE(parts.badge->styleSheet(), s_focusedBadge);
        QCOMPARE(parts.prevArrow->styleSheet(), s_focusedPrev);
        QCOMPARE(parts.nextArrow->styleSheet(), s_focusedNext);

        focusOut(&row);
        QCOMPARE(parts.title->styleSheet(), title == "text" ? s_unfocusedTitle : QString());
        QCOMPARE(parts.titleStack->styleSheet(), title == "widget" ? s_unfocusedTitle : QString());
        QCOMPARE(parts.value->styleSheet(), texts ? s_focusedText : QString());
        QCOMPARE(parts.valueStack->styleSheet(), widgets ? s_focusedText : QString());
        QCOMPARE(parts.badge->styleSheet(), s_unfocusedBadge);
        QCOMPARE(parts.prevArrow->styleSheet(), s_unfocusedPrev);
        QCOMPARE(parts.nextArrow->styleSheet(), s_unfocusedNext);
    }
    QCOMPARE(row.styleSheet(), QString());
}

void TestWidgetListItem::dressesWhenTheFocusReallyMoves()
{
    QWidget window;
    window.resize(220, 176);
    WidgetListItem first(&window, sound());
    WidgetListItem second(&window, sound());
    for (WidgetListItem *row : {&first, &second}) {
        row->setGeometry(0, row == &first ? 0 : 46, 220, 46);
        addTitle(*row, QStringLiteral("text"));
        addValues(*row, QStringLiteral("tt"));
    }
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window, LongestWait));
    first.setFocus(Qt::OtherFocusReason);
    QVERIFY(first.hasFocus());
    QCOMPARE(RowParts(first).title->styleSheet(), s_focusedText);
    second.setFocus(Qt::OtherFocusReason);
    QVERIFY(second.hasFocus());
    QCOMPARE(RowParts(first).title->styleSheet(), s_unfocusedTitle);
    QCOMPARE(RowParts(first).prevArrow->styleSheet(), s_unfocusedPrev);
    QCOMPARE(RowParts(second).title->styleSheet(), s_focusedText);
    QCOMPARE(RowParts(second).nextArrow->styleSheet(), s_focusedNext);
}

void TestWidgetListItem::valueKeepsTheDarkColourAfterFocusOut()
{
    WidgetListItem row(nullptr, sound());
    addTitle(row, QStringLiteral("text"));
    addValues(row, QStringLiteral("tt"));
    row.show();
    const RowParts parts(row);
    QCOMPARE(parts.value->styleSheet(), QString());
    focusOut(&row);
    QCOMPARE(parts.value->styleSheet(), s_focusedText);
}

void TestWidgetListItem::passesEveryEventToTheToolkit()
{
    WidgetListItem row(nullptr, sound());
    QFocusEvent in(QEvent::FocusIn);
    QVERIFY(QCoreApplication::sendEvent(&row, &in));
    QFocusEvent out(QEvent::FocusOut);
    QVERIFY(QCoreApplication::sendEvent(&row, &out));
    QWidget plain;
    for (QEvent::Type type : {QEvent::None, QEvent::User, QEvent::LocaleChange}) {
        QEvent event(type);
        QEvent again(type);
        QCOMPARE(QCoreApplication::sendEvent(&row, &event), QCoreApplication::sendEvent(&plain, &again));
    }
    row.setEnabled(false);
    QKeyEvent key(QEvent::KeyRelease, Qt::Key_6, Qt::NoModifier);
    QCoreApplication::sendEvent(&row, &key);
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetListItem::dressingTwiceDressesOnce()
{
    WidgetListItem row(nullptr, sound());
    addTitle(row, QStringLiteral("text"));
    addValues(row, QStringLiteral("tt"));
    row.show();
    focusIn(&row);
    EventRecorder recorder(&row);
    focusIn(&row);
    QCOMPARE(recorder.count(QEvent::StyleChange), 0);
    focusOut(&row);
    recorder.clear();
    focusOut(&row);
    QCOMPARE(recorder.count(QEvent::StyleChange), 0);
}

// --- Scrolling title

void TestWidgetListItem::longTitleScrollsWithTheFocus()
{
    ScrollingRow row;
    row.show();
    QVERIFY(row.cut != row.text);
    QCOMPARE(timersOf(row.parts.title).size(), 0);
    focusIn(&row);
    QCOMPARE(row.parts.title->m_marqueeText, row.text + "   ");
    QCOMPARE(row.parts.title->m_offset, 0);
    QVERIFY(row.parts.title->m_timerId > 0);
    const auto timers = timersOf(row.parts.title);
    QCOMPARE(timers.size(), 1);
    QCOMPARE(timers.at(0).timerId, row.parts.title->m_timerId);
    QCOMPARE(timers.at(0).interval, 200);
    // Nothing moves before the first step.
    QCOMPARE(row.parts.title->text(), row.cut);
    tick(row.parts);
    QCOMPARE(row.parts.title->text(), row.text.mid(1) + "   " + row.text.at(0));
}

void TestWidgetListItem::titleThatFitsDoesNotScroll()
{
    WidgetListItem row(nullptr, sound());
    addTitle(row, QStringLiteral("text"));
    row.show();
    focusIn(&row);
    const RowParts parts(row);
    QCOMPARE(timersOf(parts.title).size(), 0);
    QCOMPARE(parts.title->m_timerId, 0);
    QCOMPARE(parts.title->m_marqueeText, QString());
}

void TestWidgetListItem::titleOfExactlyTheWidthDoesNotScroll()
{
    WidgetListItem row(nullptr, sound());
    row.setTitle(QStringLiteral("Volume of the bell"), true);
    const RowParts parts(row);
    const int width = measure(QStringLiteral("Volume of the bell"), parts.title->font());
    parts.title->resize(width, 46);
    focusIn(&row);
    QCOMPARE(timersOf(parts.title).size(), 0);
    focusOut(&row);
    parts.title->resize(width - 1, 46);
    focusIn(&row);
    QCOMPARE(timersOf(parts.title).size(), 1);
}

void TestWidgetListItem::titleDoesNotScrollWithoutMarquee()
{
    ScrollingRow row;
    row.m_marquee = false;
    row.show();
    focusIn(&row);
    QCOMPARE(timersOf(row.parts.title).size(), 0);
    QCOMPARE(row.parts.title->m_timerId, 0);
    QCOMPARE(row.parts.title->text(), row.cut);
    QCOMPARE(row.parts.title->styleSheet(), s_focusedText);
}

void TestWidgetListItem::titleWidgetDoesNotScroll()
{
    ScrollingRow row;
    row.setTitle(new QLabel(row.text));
    row.show();
    focusIn(&row);
    QCOMPARE(timersOf(row.parts.title).size(), 0);
}

void TestWidgetListItem::scrollsByOneCharacterInRealTime()
{
    ScrollingRow row;
    row.show();
    // The steps are 200 ms, give or take a twentieth. On a busy machine steps after the first get lost.
    Schedule schedule;
    int before = -1;
    schedule.at(185, [&] { before = row.parts.title->m_offset; });
    focusIn(&row);
    int after = -1;
    schedule.at(215, [&] { after = row.parts.title->m_offset; });
    QVERIFY(schedule.run());
    QCOMPARE(before, 0);
    QCOMPARE(after, 1);
    QCOMPARE(timersOf(row.parts.title).at(0).interval, 200);
    EVENTUALLY(row.parts.title->m_offset >= 4);
    const int offset = row.parts.title->m_offset;
    QCOMPARE(row.parts.title->text(), row.text.mid(offset) + "   " + row.text.left(offset));
    focusOut(&row);
    passTime(450);
    QCOMPARE(row.parts.title->text(), row.cut);
    QCOMPARE(row.parts.title->m_offset, offset);
}

void TestWidgetListItem::focusOutPutsTheCutTitleBackAndKeepsTheTimerId()
{
    ScrollingRow row;
    row.show();
    focusIn(&row);
    const int id = row.parts.title->m_timerId;
    tick(row.parts);
    tick(row.parts);
    focusOut(&row);
    QCOMPARE(row.parts.title->text(), row.cut);
    QCOMPARE(timersOf(row.parts.title).size(), 0);
    QCOMPARE(row.parts.title->m_timerId, id);
}

void TestWidgetListItem::focusOutWithoutMarqueeLeavesTheTitleAlone()
{
    WidgetListItem row(nullptr, sound());
    row.m_marquee = false;
    row.setTitle(QStringLiteral("A"), true);
    row.show();
    row.setTitle(QStringLiteral("B"), true);
    focusIn(&row);
    focusOut(&row);
    QCOMPARE(RowParts(row).title->text(), QStringLiteral("A"));
}

void TestWidgetListItem::focusOutOfARowWithATitleWidgetLeavesTheLabelAlone()
{
    WidgetListItem row(nullptr, sound());
    addTitle(row, QStringLiteral("text"));
    addTitle(row, QStringLiteral("widget"));
    row.show();
    const RowParts parts(row);
    focusIn(&row);
    parts.title->setText(QStringLiteral("another"));
    focusOut(&row);
    QCOMPARE(parts.title->text(), QString("another"));
}

void TestWidgetListItem::focusOutWithMarqueeUpdatesTheTitle()
{
    WidgetListItem row(nullptr, sound());
    row.setTitle(QStringLiteral("A"), true);
    row.show();
    row.setTitle(QStringLiteral("B"), true);
    focusIn(&row);
    QCOMPARE(RowParts(row).title->text(), QStringLiteral("A"));
    focusOut(&row);
    QCOMPARE(RowParts(row).title->text(), QStringLiteral("B"));
}

void TestWidgetListItem::eachFocusStartsFromTheBeginning()
{
    ScrollingRow row;
    row.show();
    focusIn(&row);
    for (int i = 0; i < 5; ++i)
        tick(row.parts);
    QCOMPARE(row.parts.title->m_offset, 5);
    focusOut(&row);
    focusIn(&row);
    QCOMPARE(row.parts.title->m_offset, 0);
    tick(row.parts);
    QCOMPARE(row.parts.title->text(), row.text.mid(1) + "   " + row.text.at(0));
}

void TestWidgetListItem::noTimerIsStackedOnARunningOne()
{
    ScrollingRow row;
    row.show();
    for (int i = 0; i < 3; ++i) {
        focusIn(&row);
        focusIn(&row);
        QCOMPARE(timersOf(row.parts.title).size(), 1);
        QCOMPARE(timersOf(row.parts.title).at(0).timerId, row.parts.title->m_timerId);
    }
    focusOut(&row);
    QCOMPARE(timersOf(row.parts.title).size(), 0);
    focusOut(&row);
    QCOMPARE(timersOf(row.parts.title).size(), 0);
}

void TestWidgetListItem::noForeignTimerIsKilled()
{
    ScrollingRow row;
    row.show();
    focusIn(&row);
    focusOut(&row);
    // The toolkit gives numbers of dead timers away again; some of these may be the one that the label still notes.
    QList<int> foreign;
    bool reused = false;
    for (int i = 0; i < 5000 && !reused; ++i) {
        foreign.append(row.parts.title->startTimer(1000000));
        reused = foreign.last() == row.parts.title->m_timerId;
    }
    if (!reused)
        row.parts.title->m_timerId = foreign.last();
    focusOut(&row);
    QCOMPARE(int(timersOf(row.parts.title).size()), int(foreign.size()));
    row.hide();
    QCOMPARE(int(timersOf(row.parts.title).size()), int(foreign.size()));
    row.show();
    focusIn(&row);
    QCOMPARE(int(timersOf(row.parts.title).size()), int(foreign.size()) + 1);
    focusOut(&row);
    QCOMPARE(int(timersOf(row.parts.title).size()), int(foreign.size()));
}

void TestWidgetListItem::hiddenRowStopsScrolling_data()
{
    QTest::addColumn<bool>("withItsParent");
    QTest::newRow("itself") << false;
    QTest::newRow("with its parent") << true;
}

void TestWidgetListItem::hiddenRowStopsScrolling()
{
    QFETCH(bool, withItsParent);
    QWidget parent;
    parent.resize(220, 176);
    ScrollingRow *row = new ScrollingRow(&parent);
    parent.show();
    focusIn(row);
    tick(row->parts);
    QCOMPARE(timersOf(row->parts.title).size(), 1);
    QWidget *hidden = withItsParent ? &parent : row;
    hidden->hide();
    QCOMPARE(timersOf(row->parts.title).size(), 0);
    hidden->show();
    QCOMPARE(row->parts.title->text(), row->cut);
    QCOMPARE(timersOf(row->parts.title).size(), 0);
    focusIn(row);
    QCOMPARE(timersOf(row->parts.title).size(), 1);
}

void TestWidgetListItem::rowThatIsHiddenWhileItScrollsShowsItsBegin()
{
    ScrollingRow row;
    row.show();
    focusIn(&row);
    tick(row.parts);
    QVERIFY(row.parts.title->text() != row.cut);
    row.hide();
    QCOMPARE(timersOf(row.parts.title).size(), 0);
    QCOMPARE(row.parts.title->text(), row.cut);
}

void TestWidgetListItem::rowThatScrollsStopsOnce()
{
    static QStringList s_warnings;
    s_warnings.clear();
    ScrollingRow row;
    row.show();
    focusIn(&row);
    const QtMessageHandler before = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext &, const QString &message) { s_warnings.append(message); });
    focusOut(&row);
    focusOut(&row);
    row.hide();
    qInstallMessageHandler(before);
    QCOMPARE(s_warnings, QStringList());
}

void TestWidgetListItem::rowStopsWhenItsMarqueeIsSwitchedOff()
{
    ScrollingRow row;
    row.show();
    focusIn(&row);
    tick(row.parts);
    row.m_marquee = false;
    tick(row.parts);
    QCOMPARE(timersOf(row.parts.title).size(), 0);
    QCOMPARE(row.parts.title->text(), row.cut);
    focusOut(&row);
    QCOMPARE(row.parts.title->text(), row.cut);
    focusIn(&row);
    QCOMPARE(timersOf(row.parts.title).size(), 0);
}

void TestWidgetListItem::rowIsStillPaintedUntilItStops()
{
    ScrollingRow row;
    row.show();
    focusIn(&row);
    tick(row.parts);
    const QImage scrolled = row.grab().toImage();
    row.m_marquee = false;
    QCOMPARE(row.grab().toImage(), scrolled);
    tick(row.parts);
    QVERIFY(row.grab().toImage() != scrolled);
}

void TestWidgetListItem::rowStopsAtFocusOutWhenItsMarqueeWasSwitchedOff()
{
    ScrollingRow row;
    row.show();
    focusIn(&row);
    tick(row.parts);
    row.m_marquee = false;
    focusOut(&row);
    QCOMPARE(timersOf(row.parts.title).size(), 0);
    QCOMPARE(row.parts.title->text(), row.cut);
}

void TestWidgetListItem::titleReplacedWhileItScrollsTakesItsPlace()
{
    ScrollingRow row;
    row.show();
    focusIn(&row);
    tick(row.parts);
    tick(row.parts);
    const QString other = QStringLiteral("Other: ") + row.text;
    row.setTitle(other, false);
    row.updateTitle();
    // From its beginning, and as it is cut until the first step.
    QCOMPARE(timersOf(row.parts.title).size(), 1);
    QVERIFY(row.parts.title->text().startsWith("Other: "));
    tick(row.parts);
    QCOMPARE(row.parts.title->text(), other.mid(1) + "   " + other.at(0));
    focusOut(&row);
    QCOMPARE(timersOf(row.parts.title).size(), 0);
}

void TestWidgetListItem::titleReplacedByAShortOneStopsScrolling()
{
    ScrollingRow row;
    row.show();
    focusIn(&row);
    tick(row.parts);
    row.setTitle(QStringLiteral("short"), false);
    row.updateTitle();
    QCOMPARE(timersOf(row.parts.title).size(), 0);
    QCOMPARE(row.parts.title->text(), QString("short"));
}

void TestWidgetListItem::scrollingGoesOnThroughARefresh()
{
    ScrollingRow row;
    row.show();
    focusIn(&row);
    tick(row.parts);
    row.refresh();
    QCOMPARE(row.parts.title->text(), row.cut);
    QCOMPARE(timersOf(row.parts.title).size(), 1);
    tick(row.parts);
    QCOMPARE(row.parts.title->text(), row.text.mid(2) + "   " + row.text.left(2));
}

void TestWidgetListItem::scrollingRowMayBeDeleted()
{
    ScrollingRow *row = new ScrollingRow;
    row->show();
    focusIn(row);
    delete row;
    passTime(250);
}

// --- Keys

namespace {

const int noRange = -1;

struct KeyCase
{
    const char *name;
    const char *values;
    const char *flags;
    int from;
    int to;
    int start;
    int key;
    int index;          // afterwards
    const char *events; // c doChange, s click, e doEnter
    bool handedOn;
};

const int Left = Qt::Key_4;
const int Right = Qt::Key_6;

const KeyCase s_keyCases[] = {
    {"texts: left wraps", "ttt", "", noRange, noRange, 0, Left, 2, "cs", false},
    {"texts: left", "ttt", "", noRange, noRange, 2, Left, 1, "cs", false},
    {"texts: right", "ttt", "", noRange, noRange, 0, Right, 1, "cs", false},
    {"texts: right wraps", "ttt", "", noRange, noRange, 2, Right, 0, "cs", false},
    {"two texts: left", "tt", "", noRange, noRange, 1, Left, 0, "cs", false},
    {"texts that lead deeper: right steps", "tt", "d", noRange, noRange, 0, Right, 1, "cs", false},
    {"texts that lead deeper: left steps", "tt", "d", noRange, noRange, 0, Left, 1, "cs", false},
    {"widgets: left wraps", "www", "", noRange, noRange, 0, Left, 2, "cs", false},
    {"widgets: right", "www", "", noRange, noRange, 0, Right, 1, "cs", false},
    {"widgets: right wraps", "www", "", noRange, noRange, 2, Right, 0, "cs", false},
    {"widgets that lead deeper: right steps", "ww", "d", noRange, noRange, 0, Right, 1, "cs", false},

    {"one text: left", "t", "", noRange, noRange, 0, Left, 0, "", true},
    {"one text: right", "t", "", noRange, noRange, 0, Right, 0, "", true},
    {"one text, deletable: left", "t", "x", noRange, noRange, 0, Left, 0, "", true},
    {"one text that leads deeper: left", "t", "d", noRange, noRange, 0, Left, 0, "", true},
    {"one text that leads deeper: right enters and is handed on", "t", "d", noRange, noRange, 0, Right, 0, "se", true},
    {"one widget: left", "w", "", noRange, noRange, 0, Left, 0, "", true},
    {"one widget: right", "w", "", noRange, noRange, 0, Right, 0, "", true},
    {"one widget that leads deeper: right enters and is handed on", "w", "d", noRange, noRange, 0, Right, 0, "se",
     true},
    {"no value: left", "", "", noRange, noRange, 0, Left, 0, "", true},
    {"no value: right", "", "", noRange, noRange, 0, Right, 0, "", true},
    {"leads deeper: left", "", "d", noRange, noRange, 0, Left, 0, "", true},
    {"leads deeper: right enters and is handed on", "", "d", noRange, noRange, 0, Right, 0, "se", true},
    {"display value: left", "d", "", noRange, noRange, 0, Left, 0, "", true},
    {"display value: right", "d", "", noRange, noRange, 0, Right, 0, "", true},
    {"display value that leads deeper: right enters and is handed on", "d", "d", noRange, noRange, 0, Right, 0, "se",
     true},
    {"display value of many texts: right", "tttd", "", noRange, noRange, 0, Right, 0, "", true},
    {"display value beside widgets that leads deeper: right enters", "wwtd", "d", noRange, noRange, 0, Right, 0, "se",
     true},
    {"display value of many texts that leads deeper: right enters", "tttd", "d", noRange, noRange, 0, Right, 0, "se",
     true},

    {"fixed texts: left only clicks", "ttt", "f", noRange, noRange, 1, Left, 1, "s", false},
    {"fixed texts: right only clicks", "ttt", "f", noRange, noRange, 1, Right, 1, "s", false},
    {"fixed, no value: left only clicks", "", "f", noRange, noRange, 0, Left, 0, "s", false},
    {"fixed, leads deeper: right only clicks", "", "df", noRange, noRange, 0, Right, 0, "s", false},
    {"fixed with a range: right only clicks", "ttt", "f", 1, 2, 0, Right, 0, "s", false},

    {"range: left below from goes to to", "ttttt", "", 1, 3, 1, Left, 3, "cs", false},
    {"range: right above to goes to from", "ttttt", "", 1, 3, 3, Right, 1, "cs", false},
    {"range: left inside", "ttttt", "", 1, 3, 3, Left, 2, "cs", false},
    {"range: left to its begin", "ttttt", "", 1, 3, 2, Left, 1, "cs", false},
    {"range: right to its end", "ttttt", "", 1, 3, 2, Right, 3, "cs", false},
    {"range: right inside", "ttttt", "", 1, 3, 1, Right, 2, "cs", false},
    {"range: left from above the range is not tested above", "ttttt", "", 0, 1, 4, Left, 3, "cs", false},
    {"range: right from below the range is not tested below", "ttttt", "", 3, 4, 0, Right, 1, "cs", false},
    {"range: left from below goes to to", "ttttt", "", 2, 3, 0, Left, 3, "cs", false},
    {"range: right from above goes to from", "ttttt", "", 0, 1, 4, Right, 0, "cs", false},
    {"range from 0: left wraps inside", "ttttt", "", 0, 2, 0, Left, 2, "cs", false},
    {"range of one: left sets it", "ttttt", "", 2, 2, 4, Left, 2, "cs", false},
    {"range of one: right sets it", "ttttt", "", 2, 2, 0, Right, 2, "cs", false},
    {"range of one, there already: still a change", "ttttt", "", 2, 2, 2, Right, 2, "cs", false},
    {"reversed range is no range: right", "ttttt", "", 3, 1, 4, Right, 0, "cs", false},
    {"reversed range is no range: left", "ttttt", "", 3, 1, 0, Left, 4, "cs", false},
    {"range without a from is no range", "ttttt", "", -1, 2, 2, Right, 3, "cs", false},
    {"range without a to is no range", "ttttt", "", 2, -1, 2, Left, 1, "cs", false},
    {"range up to -1 is no range", "ttttt", "", -3, -1, 2, Right, 3, "cs", false},
    {"range beyond the list: right", "tt", "", 3, 5, 3, Right, 4, "cs", false},
    {"range beyond the list: left", "tt", "", 3, 5, 3, Left, 5, "cs", false},
    {"range moves a single text: right", "t", "", 0, 1, 0, Right, 1, "cs", false},
    {"range moves a single text: left", "t", "", 0, 1, 0, Left, 1, "cs", false},
    {"range of widgets: right wraps", "wwww", "", 1, 2, 2, Right, 1, "cs", false},
    {"range of widgets: left wraps", "wwww", "", 1, 2, 1, Left, 2, "cs", false},
    {"range of widgets of one", "wwww", "", 2, 2, 0, Left, 2, "cs", false},
    {"range moves a single widget", "w", "", 0, 0, 0, Right, 0, "cs", false},
    {"range moves a text that leads deeper instead of entering", "t", "d", 0, 0, 0, Right, 0, "cs", false},
    {"range moves a row that leads deeper instead of entering", "", "d", 0, 3, 0, Right, 1, "cs", false},
    {"range does not move a row without a value: right", "", "", 0, 3, 0, Right, 0, "", true},
    {"range does not move a row that leads deeper to the left", "", "d", 0, 3, 0, Left, 0, "", true},
    {"range moves a display value that leads deeper", "d", "d", 0, 3, 0, Right, 1, "cs", false},
    {"range does not move a display value: left", "d", "d", 0, 3, 0, Left, 0, "", true},
    {"range does not move a display value: right", "d", "", 0, 3, 0, Right, 0, "", true},

    {"index past the texts: left goes one back", "ttt", "", noRange, noRange, 7, Left, 6, "cs", false},
    {"index past the texts: right wraps", "ttt", "", noRange, noRange, 7, Right, 0, "cs", false},
    {"index below the texts: left wraps", "ttt", "", noRange, noRange, -4, Left, 2, "cs", false},
    {"index below the texts: right goes one on", "ttt", "", noRange, noRange, -4, Right, -3, "cs", false},
    {"index past the widgets: right wraps", "www", "", noRange, noRange, 7, Right, 0, "cs", false},
};

}

void TestWidgetListItem::keysStepThroughValues_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<bool>("shown");
    for (int i = 0; i < int(sizeof s_keyCases / sizeof s_keyCases[0]); ++i) {
        QTest::newRow(s_keyCases[i].name) << i << true;
        QTest::newRow(qPrintable(QString("hidden: ") + s_keyCases[i].name)) << i << false;
    }
}

void TestWidgetListItem::keysStepThroughValues()
{
    QFETCH(int, number);
    QFETCH(bool, shown);
    const KeyCase &c = s_keyCases[number];
    KeyRecorder screen;
    screen.resize(220, 176);
    WidgetListItem *row = new WidgetListItem(&screen, sound());
    row->setGeometry(0, 0, 220, 46);
    addTitle(*row, QStringLiteral("text"));
    addValues(*row, QString(c.values));
    setFlags(*row, QString(c.flags));
    row->setSelectableRange(c.from, c.to);
    row->setDisplayValueIndex(c.start);
    row->updateValue();
    if (shown)
        screen.show();
    const RowParts parts(*row);
    const int pageBefore = parts.valueStack->currentIndex();
    RecordingPlatform::reset();
    NOTE_SIGNAL(row, &WidgetListItem::doChange, "doChange");
    NOTE_SIGNAL(row, &WidgetListItem::doEnter, "doEnter");

    const bool accepted = releaseKey(row, c.key);

    QStringList expected(s_releaseTrace);
    for (const char *event = c.events; *event; ++event)
        expected << (*event == 'c' ? "doChange" : *event == 's' ? "sound:901" : "doEnter");
    QCOMPARE(RecordingPlatform::events(), expected);
    const QString name = c.key == Left ? QStringLiteral("release 4") : QStringLiteral("release 6");
    QCOMPARE(screen.takeKeys(), c.handedOn ? QStringList(name) : QStringList());
    // The screen takes what the row hands on.
    QVERIFY(accepted);

    const QString values(c.values);
    if (values.endsWith('w')) {
        const bool inside = c.index >= 0 && c.index < parts.valueStack->count();
        QCOMPARE(parts.valueStack->currentIndex(), inside ? c.index : pageBefore);
    } else if (values.endsWith('t')) {
        const bool inside = c.index >= 0 && c.index < values.size();
        QCOMPARE(parts.value->text(), inside ? QString("text %1").arg(c.index) : QString());
    }
    // The index itself, by what isModified() and further values make of it.
    row->updateValue();
    for (int i = values.size(); i < 10; ++i)
        row->replaceValue(i, QString("text %1").arg(i), false);
    if (values.endsWith('t')) {
        for (int i = values.size(); i < 10; ++i)
            row->addValue(QString("text %1").arg(i));
        row->updateValue();
        QCOMPARE(parts.value->text(), c.index >= 0 ? QString("text %1").arg(c.index) : QString());
    }
}

void TestWidgetListItem::keysInFunctionKeyMode()
{
    KeyRecorder screen;
    WidgetListItem *row = new WidgetListItem(&screen, sound());
    row->m_useFunctionKeys = true;
    addValues(*row, QStringLiteral("ttt"));
    releaseKey(row, Qt::Key_F3);
    QCOMPARE(row->getDisplayValue(), QStringLiteral("text 2"));
    releaseKey(row, Qt::Key_F4);
    QCOMPARE(row->getDisplayValue(), QStringLiteral("text 0"));
    QCOMPARE(screen.takeKeys(), QStringList());
    releaseKey(row, Qt::Key_F1);
    releaseKey(row, Qt::Key_F2);
    QCOMPARE(screen.takeKeys(), QStringList({"release F1", "release F2"}));
}

void TestWidgetListItem::digitsInFunctionKeyModeAreHandedOn()
{
    KeyRecorder screen;
    WidgetListItem *row = new WidgetListItem(&screen, sound());
    addValues(*row, QStringLiteral("ttt"));
    row->updateValue();
    releaseKey(row, Qt::Key_F3);
    releaseKey(row, Qt::Key_F4);
    row->m_useFunctionKeys = true;
    releaseKey(row, Qt::Key_4);
    releaseKey(row, Qt::Key_6);
    QCOMPARE(screen.takeKeys(), QStringList({"release F3", "release F4", "release 4", "release 6"}));
    QCOMPARE(row->getDisplayValue(), QStringLiteral("text 0"));
    QCOMPARE(RecordingPlatform::sounds(), QList<int>());
}

void TestWidgetListItem::otherKeysAreHandedOn_data()
{
    QTest::addColumn<int>("key");
    for (int key : {int(Qt::Key_0), int(Qt::Key_1), int(Qt::Key_2), int(Qt::Key_3), int(Qt::Key_5), int(Qt::Key_7),
                    int(Qt::Key_8), int(Qt::Key_9), int(Qt::Key_Asterisk), int(Qt::Key_NumberSign), int(Qt::Key_Escape),
                    int(Qt::Key_Return), int(Qt::Key_Left), int(Qt::Key_Right), int(Qt::Key_F1), int(Qt::Key_F4)})
        QTest::newRow(qPrintable(QKeySequence(key).toString())) << key;
}

void TestWidgetListItem::otherKeysAreHandedOn()
{
    QFETCH(int, key);
    KeyRecorder screen;
    WidgetListItem *row = new WidgetListItem(&screen, sound());
    row->m_enterOnOK = true;
    row->setMoreDepth(true);
    addValues(*row, QStringLiteral("ttt"));
    NOTE_SIGNAL(row, &WidgetListItem::doChange, "doChange");
    NOTE_SIGNAL(row, &WidgetListItem::doEnter, "doEnter");
    releaseKey(row, key);
    QCOMPARE(screen.takeKeys(), QStringList("release " + QKeySequence(key).toString(QKeySequence::PortableText)));
    QCOMPARE(RecordingPlatform::events(), QStringList(s_releaseTrace));
}

void TestWidgetListItem::pressesAreHandedOn_data()
{
    QTest::addColumn<int>("key");
    for (int key : {int(Qt::Key_2), int(Qt::Key_4), int(Qt::Key_6), int(Qt::Key_8), int(Qt::Key_Menu),
                    int(Qt::Key_Escape)})
        QTest::newRow(qPrintable(QKeySequence(key).toString())) << key;
}

void TestWidgetListItem::pressesAreHandedOn()
{
    QFETCH(int, key);
    KeyRecorder screen;
    WidgetListItem *row = new WidgetListItem(&screen, sound());
    row->m_enterOnOK = true;
    addValues(*row, QStringLiteral("ttt"));
    pressKey(row, key);
    QCOMPARE(screen.takeKeys(), QStringList("press " + QKeySequence(key).toString(QKeySequence::PortableText)));
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetListItem::okEntersOnlyWhereItShould_data()
{
    QTest::addColumn<bool>("enterOnOK");
    QTest::addColumn<QString>("flags");
    QTest::newRow("enters") << true << "";
    QTest::newRow("enters a fixed row") << true << "f";
    QTest::newRow("handed on") << false << "";
    QTest::newRow("handed on by a row that leads deeper") << false << "d";
}

void TestWidgetListItem::okEntersOnlyWhereItShould()
{
    QFETCH(bool, enterOnOK);
    QFETCH(QString, flags);
    KeyRecorder screen;
    WidgetListItem *row = new WidgetListItem(&screen, sound());
    setFlags(*row, flags);
    row->m_enterOnOK = enterOnOK;
    NOTE_SIGNAL(row, &WidgetListItem::doEnter, "doEnter");
    releaseKey(row, Qt::Key_Menu);
    QCOMPARE(RecordingPlatform::events(),
             enterOnOK ? QStringList({s_releaseTrace, "sound:901", "doEnter"}) : QStringList(s_releaseTrace));
    QCOMPARE(screen.takeKeys(), enterOnOK ? QStringList() : QStringList("release Menu"));
}

void TestWidgetListItem::everyReleaseIsLoggedFirst()
{
    WidgetListItem row(nullptr, sound());
    releaseKey(&row, Qt::Key_0);
    releaseKey(&row, Qt::Key_Escape);
    QCOMPARE(RecordingPlatform::events(), QStringList({s_releaseTrace, s_releaseTrace}));
}

void TestWidgetListItem::keysAreSilentWithoutASoundManager()
{
    WidgetListItem row(nullptr, nullptr);
    row.m_enterOnOK = true;
    addValues(row, QStringLiteral("tt"));
    releaseKey(&row, Qt::Key_6);
    releaseKey(&row, Qt::Key_Menu);
    row.setModifiable(false);
    releaseKey(&row, Qt::Key_6);
    QCOMPARE(row.getDisplayValue(), QStringLiteral("text 1"));
    QCOMPARE(RecordingPlatform::sounds(), QList<int>());
}

void TestWidgetListItem::keyStepRedrawsTheValueAndNothingElse_data()
{
    QTest::addColumn<QString>("values");
    QTest::newRow("texts") << "ttt";
    QTest::newRow("widgets") << "www";
}

void TestWidgetListItem::keyStepRedrawsTheValueAndNothingElse()
{
    QFETCH(QString, values);
    WidgetListItem row(nullptr, sound());
    row.setGeometry(0, 0, 220, 46);
    addTitle(row, QStringLiteral("text"));
    addValues(row, values);
    setFlags(row, QStringLiteral("b"));
    row.show();
    row.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&row, LongestWait));
    row.setFocus();
    // Some keys first: pages of a stack are dressed when they are first seen.
    for (int i = 0; i < 3; ++i)
        releaseKey(&row, Qt::Key_6);
    passTime(20);
    const RowParts parts(row);
    EventRecorder recorder(&row);
    releaseKey(&row, Qt::Key_6);
    passTime(20);
    QCOMPARE(recorder.receivers(QEvent::StyleChange), QList<QObject *>());
    QCOMPARE(recorder.receivers(QEvent::FontChange), QList<QObject *>());
    QCOMPARE(recorder.count(QEvent::Paint, parts.title), 0);
    QCOMPARE(recorder.count(QEvent::Paint, parts.badge), 0);
    const QWidget *value = values == "ttt" ? static_cast<QWidget *>(parts.value) : parts.valueStack;
    QVERIFY(recorder.count(QEvent::Paint, value) > 0);
    if (values == "ttt") {
        QCOMPARE(recorder.receivers(QEvent::Move), QList<QObject *>());
        QCOMPARE(recorder.receivers(QEvent::Resize), QList<QObject *>());
    }
    QCOMPARE(parts.prevArrow->styleSheet(), s_focusedPrev);
    QCOMPARE(parts.nextArrow->styleSheet(), s_focusedNext);
    QCOMPARE(parts.title->styleSheet(), s_focusedText);
}

void TestWidgetListItem::keyStepCutsALongValue()
{
    WidgetListItem row(nullptr, sound());
    row.setGeometry(0, 0, 220, 46);
    const RowParts parts(row);
    const QString value = textWiderThan(220, parts.value->font());
    row.addValue(QStringLiteral("short"));
    row.addValue(value);
    row.show();
    releaseKey(&row, Qt::Key_6);
    QCOMPARE(row.getDisplayValue(), fitted(value, parts.value->font(), parts.value->width()));
    QVERIFY(row.getDisplayValue() != value);
    releaseKey(&row, Qt::Key_6);
    QCOMPARE(row.getDisplayValue(), QStringLiteral("short"));
}

void TestWidgetListItem::aSlotMayDeleteTheRow_data()
{
    QTest::addColumn<QString>("values");
    QTest::addColumn<QString>("flags");
    QTest::addColumn<bool>("range");
    QTest::addColumn<int>("key");
    QTest::newRow("left through texts") << "tt" << "" << false << int(Qt::Key_4);
    QTest::newRow("right through texts") << "tt" << "" << false << int(Qt::Key_6);
    QTest::newRow("left through widgets") << "ww" << "" << false << int(Qt::Key_4);
    QTest::newRow("right through widgets") << "ww" << "" << false << int(Qt::Key_6);
    QTest::newRow("left through a range") << "ttt" << "" << true << int(Qt::Key_4);
    QTest::newRow("right through a range") << "www" << "" << true << int(Qt::Key_6);
    QTest::newRow("right into the depth") << "" << "d" << false << int(Qt::Key_6);
    QTest::newRow("OK") << "tt" << "" << false << int(Qt::Key_Menu);
}

void TestWidgetListItem::aSlotMayDeleteTheRow()
{
    QFETCH(QString, values);
    QFETCH(QString, flags);
    QFETCH(bool, range);
    QFETCH(int, key);
    KeyRecorder screen;
    screen.resize(220, 176);
    QPointer<WidgetListItem> row = new WidgetListItem(&screen, sound());
    row->setGeometry(0, 0, 220, 46);
    addTitle(*row, QStringLiteral("text"));
    addValues(*row, values);
    setFlags(*row, flags);
    row->m_enterOnOK = true;
    if (range)
        row->setSelectableRange(0, 1);
    screen.show();
    screen.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&screen, LongestWait));
    row->setFocus();
    connect(row.data(), &WidgetListItem::doChange, this, [&row] { delete row.data(); });
    connect(row.data(), &WidgetListItem::doEnter, this, [&row] { delete row.data(); });
    QVERIFY(row->hasFocus());
    const bool entersAfterTheClick = key == Qt::Key_Menu || flags.contains('d');
    releaseKey(QApplication::focusWidget(), key);
    QVERIFY(!row);
    // A row that is gone clicks no more.
    QCOMPARE(RecordingPlatform::sounds(), entersAfterTheClick ? QList<int>({901}) : QList<int>());
    passTime(10);
}

void TestWidgetListItem::aSlotSeesTheNewValue()
{
    WidgetListItem row(nullptr, sound());
    addValues(row, QStringLiteral("tt"));
    QString seen;
    connect(&row, &WidgetListItem::doChange, this, [&row, &seen] { seen = row.getDisplayValue(); });
    releaseKey(&row, Qt::Key_6);
    QCOMPARE(seen, QStringLiteral("text 1"));
}

void TestWidgetListItem::deletedRowLeavesNoMemory()
{
#ifdef COUNTS_ALLOCATIONS
    QWidget parent;
    parent.show();
    const auto useRow = [&parent] {
        ScrollingRow row(&parent);
        addValues(row, QStringLiteral("tt"));
        row.show();
        focusIn(&row);
        row.updateValue();
    };
    // What the toolkit keeps.
    for (int i = 0; i < 20; ++i)
        useRow();
    const long before = blockCount();
    for (int i = 0; i < 100; ++i)
        useRow();
    const long more = blockCount() - before;
    QVERIFY2(more < 50, qPrintable(QString::number(more)));
#else
    QSKIP("Something else looks after the memory.");
#endif
}

QTEST_MAIN(TestWidgetListItem)
#include "tst_widgetlistitem.moc"

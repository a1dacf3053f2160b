#include "eventrecording.h"
#include "recordingplatform.h"
#include "rowparts.h"

#include "platform/soundmanager.h"

#include <QPointer>
#include <QtTest>

#include <climits>

class TestWidgetListItemValues : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void hasTwoSignalsInOrderAndNothingElse();
    void startsWithItsFlags();
    void makesItsChildrenInOrder();
    void startsWithFontsAndWithoutTextsAndSheets();
    void logsAndPlaysNothingWhenBuilt();

    void titleTextIsShownByUpdateTitleOnly();
    void setTitleWithDefaultFontTakesItBeforeTheKindChanges_data();
    void setTitleWithDefaultFontTakesItBeforeTheKindChanges();
    void titleWidgetsBecomePages();
    void mixedTitlesAreReportedAndGoOn_data();
    void mixedTitlesAreReportedAndGoOn();
    void nullWidgetsAreIgnored();

    void textValuesAreNotShownWhenAdded();
    void widgetValuesBecomePagesOfTheRow();
    void mixedValuesAreReportedAndGoOn_data();
    void mixedValuesAreReportedAndGoOn();
    void textThenWidgetIsReportedAndLeavesARowOfWidgets();

    void insertValuePutsAPageBeforeAnother_data();
    void insertValuePutsAPageBeforeAnother();
    void insertValueKeepsTheIndex();
    void insertValueOutsideThePagesIsIgnored_data();
    void insertValueOutsideThePagesIsIgnored();
    void insertAndRemoveAreRejectedWithoutWidgetValues_data();
    void insertAndRemoveAreRejectedWithoutWidgetValues();
    void removeValueTakesThePageOutAndDeletesNothing();
    void removeValueKeepsTheIndex();
    void removeValueOutsideThePagesIsIgnored_data();
    void removeValueOutsideThePagesIsIgnored();

    void removeAllValueKeepsPagesKindAndIndex();
    void removeAllValueOfAWidgetRowKeepsItsPages();
    void removeAllValueDoesNotTouchTheLabel();
    void valueOfARowOfTwoLinesIsHiddenNotForgottenWithoutTexts();

    void replaceValueIsSeenAtTheNextUpdate_data();
    void replaceValueIsSeenAtTheNextUpdate();
    void replaceValueOutsideTheListChangesNothing_data();
    void replaceValueOutsideTheListChangesNothing();
    void replaceValueTakesTheDefaultFontOnDemand_data();
    void replaceValueTakesTheDefaultFontOnDemand();
    void replaceValueWorksInEveryKindOfRow();

    void setDisplayValueMakesTwoLines();
    void setDisplayValueKeepsTheEdgesOfTheLabels();
    void setDisplayValueStoresAtItsIndex_data();
    void setDisplayValueStoresAtItsIndex();
    void setDisplayValueOutsideTheListShowsNothingAndKeepsTheIndex_data();
    void setDisplayValueOutsideTheListShowsNothingAndKeepsTheIndex();
    void setDisplayValueDoesNothingInAWidgetRow();
    void setDisplayValueTakesTheFontsOfTwoLines();
    void setDisplayValueCutsToTheLabel();
    void clearAfterRefreshShowsTheTextOnceMoreAndForgetsIt();
    void clearAfterRefreshIsDoneOnce();
    void clearAfterRefreshIsTakenBackByTheNextDisplayValue();
    void clearAfterRefreshForgetsTheCurrentValueOnly();
    void clearAfterRefreshOutsideTheListForgetsNothing();
    void clearAfterRefreshWaitsForAValue();
    void clearAfterRefreshWaitsWhileThereAreWidgets();

    void setDisplayValueIndexShowsByKind_data();
    void setDisplayValueIndexShowsByKind();
    void setDisplayValueIndexOutsideTheValuesShowsNothing_data();
    void setDisplayValueIndexOutsideTheValuesShowsNothing();
    void setDisplayValueIndexMakesAPageCurrent();
    void setDisplayValueIndexEmitsAndPlaysNothing();

    void selectByValueFindsTheFirst_data();
    void selectByValueFindsTheFirst();
    void selectByValueDoesNothingInOtherKinds_data();
    void selectByValueDoesNothingInOtherKinds();
    void selectByValueOnAnEmptiedListLeavesIndexZero();
    void firstWidgetIsUnmodifiedWithoutABackup();

    void displayValueIsTheTextAsDisplayed();
    void displayValueOfAWidgetRowIsEmpty();
    void displayValueOfATitleRowIsEmpty();

    void rangeTakesEffectAtTheNextKey();

    void serialNumberKeepsItsTextWhenSwitchedOff();
    void serialNumberIsDecimal_data();
    void serialNumberIsDecimal();
    void flagsTakeEffectAtTheNextRefresh();
    void modifiableTakesEffectAtOnce();

    void backupComparesDisplayedTexts();
    void backupComparesIndexesOfWidgets();
    void ignoredRowIsNeverModified();
    void rowWithoutABackupComparesWithNothing();
    void isModifiedIsCaseSensitive();

    void shortcutEntersARowThatLeadsDeeper();
    void shortcutOnAnyOtherRowIsLogged();
    void aSlotMayDeleteTheRowThatItsShortcutEnters();
};

static SoundManager *sound()
{
    return SoundManager::getInstance();
}

void TestWidgetListItemValues::init()
{
    RecordingPlatform::reset();
}

void TestWidgetListItemValues::hasTwoSignalsInOrderAndNothingElse()
{
    const QMetaObject &meta = WidgetListItem::staticMetaObject;
    QCOMPARE(meta.className(), "WidgetListItem");
    QCOMPARE(meta.superClass(), &Widget::staticMetaObject);
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 2);
    QCOMPARE(meta.method(meta.methodOffset()).methodSignature(), QByteArray("doEnter()"));
    QCOMPARE(meta.method(meta.methodOffset() + 1).methodSignature(), QByteArray("doChange()"));
    QCOMPARE(meta.method(meta.methodOffset()).methodType(), QMetaMethod::Signal);
    QCOMPARE(meta.method(meta.methodOffset() + 1).methodType(), QMetaMethod::Signal);
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
    QCOMPARE(meta.enumeratorCount(), meta.enumeratorOffset());
}

void TestWidgetListItemValues::startsWithItsFlags()
{
    WidgetListItem row(nullptr, sound());
    QCOMPARE(row.m_ignoreModified, false);
    QCOMPARE(row.m_enterOnOK, false);
    QCOMPARE(row.m_noShortcut, true);
    QCOMPARE(row.m_marquee, true);
    QCOMPARE(row.m_useFunctionKeys, false);
}

void TestWidgetListItemValues::makesItsChildrenInOrder()
{
    QWidget parent;
    WidgetListItem *row = new WidgetListItem(&parent, sound());
    QCOMPARE(row->parentWidget(), &parent);
    QVERIFY(!row->isWindow());
    const RowParts parts(*row);
    QCOMPARE(parts.titleStack->count(), 0);
    QCOMPARE(parts.valueStack->count(), 0);
    const QList<QLabel *> labels = row->findChildren<QLabel *>();
    QCOMPARE(labels, QList<QLabel *>({parts.title, parts.badge, parts.value, parts.prevArrow, parts.nextArrow}));
}

void TestWidgetListItemValues::startsWithFontsAndWithoutTextsAndSheets()
{
    WidgetListItem row(nullptr, sound());
    const RowParts parts(row);
    QCOMPARE(parts.title->font().pointSize(), 12);
    QCOMPARE(int(parts.title->font().weight()), int(QFont::Bold));
    QCOMPARE(parts.title->font().family(), QFont().family());
    QCOMPARE(parts.title->alignment(), Qt::AlignLeft | Qt::AlignVCenter);
    QCOMPARE(parts.badge->font().pointSize(), 11);
    QCOMPARE(int(parts.badge->font().weight()), int(QFont::Bold));
    QCOMPARE(parts.value->font().pointSize(), 14);
    QCOMPARE(int(parts.value->font().weight()), int(QFont::Normal));
    QCOMPARE(parts.value->font().family(), QFont().family());
    const QList<QWidget *> children = row.findChildren<QWidget *>();
    for (QWidget *child : children)
        QCOMPARE(child->styleSheet(), QString());
    const QList<QLabel *> labels = row.findChildren<QLabel *>();
    for (QLabel *label : labels) {
        QCOMPARE(label->text(), QString());
        QCOMPARE(label->geometry(), QWidget(&row).geometry());
    }
}

void TestWidgetListItemValues::logsAndPlaysNothingWhenBuilt()
{
    WidgetListItem row(nullptr, sound());
    row.setTitle(QStringLiteral("Volume"), true);
    row.addValue(QStringLiteral("Low"));
    row.addValue(QStringLiteral("High"));
    row.setDisplayValueIndex(1);
    row.show();
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetListItemValues::titleTextIsShownByUpdateTitleOnly()
{
    WidgetListItem row(nullptr, sound());
    const RowParts parts(row);
    row.setTitle(QStringLiteral("A"), false);
    QCOMPARE(parts.title->text(), QString());
    row.updateTitle();
    QCOMPARE(parts.title->text(), QStringLiteral("A"));
    row.setTitle(QStringLiteral("B"), true);
    QCOMPARE(parts.title->text(), QStringLiteral("A"));
    row.updateTitle();
    QCOMPARE(parts.title->text(), QStringLiteral("B"));
}

void TestWidgetListItemValues::setTitleWithDefaultFontTakesItBeforeTheKindChanges_data()
{
    QTest::addColumn<bool>("defaultFont");
    QTest::addColumn<bool>("hasValue");
    QTest::addColumn<bool>("oneLine");
    QTest::addColumn<int>("pointSize");
    QTest::newRow("a title alone") << true << false << false << 15;
    QTest::newRow("above a value") << true << true << false << 12;
    QTest::newRow("beside a value") << true << true << true << 15;
    QTest::newRow("font kept") << false << false << false << 12;
}

void TestWidgetListItemValues::setTitleWithDefaultFontTakesItBeforeTheKindChanges()
{
    QFETCH(bool, defaultFont);
    QFETCH(bool, hasValue);
    QFETCH(bool, oneLine);
    WidgetListItem row(nullptr, sound());
    if (hasValue)
        row.addValue(QStringLiteral("On"));
    row.setValueOnRightSide(oneLine);
    row.setTitle(QStringLiteral("A"), defaultFont);
    QTEST(RowParts(row).title->font().pointSize(), "pointSize");
}

void TestWidgetListItemValues::titleWidgetsBecomePages()
{
    WidgetListItem row(nullptr, sound());
    const RowParts parts(row);
    QWidget *first = new QWidget;
    QWidget *second = new QWidget;
    row.setTitle(first);
    row.setTitle(second);
    QCOMPARE(parts.titleStack->count(), 2);
    QCOMPARE(parts.titleStack->widget(0), first);
    QCOMPARE(parts.titleStack->widget(1), second);
    QCOMPARE(parts.titleStack->currentIndex(), 0);
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetListItemValues::mixedTitlesAreReportedAndGoOn_data()
{
    QTest::addColumn<QString>("calls");  // t: text, w: widget
    QTest::addColumn<QStringList>("log");
    QTest::addColumn<bool>("showsText");
    const QString text = "log:2:[setTitle, 56] Don't mix up!!!!!!!!";
    const QString widget = "log:2:[setTitle, 66] Don't mix up!!!!!!!!";
    QTest::newRow("text") << "t" << QStringList() << true;
    QTest::newRow("text twice") << "tt" << QStringList() << true;
    QTest::newRow("widget") << "w" << QStringList() << false;
    QTest::newRow("widget twice") << "ww" << QStringList() << false;
    QTest::newRow("text then widget") << "tw" << QStringList(widget) << false;
    QTest::newRow("widget then text") << "wt" << QStringList(text) << true;
    QTest::newRow("to and fro") << "twtw" << QStringList({widget, text, widget}) << false;
}

void TestWidgetListItemValues::mixedTitlesAreReportedAndGoOn()
{
    QFETCH(QString, calls);
    QFETCH(bool, showsText);
    WidgetListItem row(nullptr, sound());
    for (const QChar call : calls) {
        if (call == 't')
            row.setTitle(QStringLiteral("A"), false);
        else
            row.setTitle(new QWidget);
    }
    QTEST(RecordingPlatform::events(), "log");
    const RowParts parts(row);
    QCOMPARE(parts.titleStack->count(), int(calls.count('w')));
    row.show();
    QCOMPARE(parts.title->isVisible(), showsText);
    QCOMPARE(parts.titleStack->isVisible(), !showsText);
}

void TestWidgetListItemValues::nullWidgetsAreIgnored()
{
    WidgetListItem row(nullptr, sound());
    row.setTitle(static_cast<QWidget *>(nullptr));
    row.addValue(static_cast<QWidget *>(nullptr));
    row.addValue(new QWidget);
    row.insertValue(0, nullptr);
    row.show();
    QCOMPARE(RowParts(row).titleStack->count(), 0);
    QCOMPARE(RowParts(row).valueStack->count(), 1);
}

void TestWidgetListItemValues::textValuesAreNotShownWhenAdded()
{
    WidgetListItem row(nullptr, sound());
    const RowParts parts(row);
    row.addValue(QStringLiteral("A"));
    row.addValue(QStringLiteral("B"));
    QCOMPARE(parts.value->text(), QString());
    row.updateValue();
    QCOMPARE(parts.value->text(), QStringLiteral("A"));
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetListItemValues::widgetValuesBecomePagesOfTheRow()
{
    QPointer<QWidget> first = new QWidget;
    QPointer<QWidget> second = new QWidget;
    {
        WidgetListItem row(nullptr, sound());
        row.addValue(first);
        row.addValue(second);
        const RowParts parts(row);
        QCOMPARE(parts.valueStack->count(), 2);
        QCOMPARE(parts.valueStack->widget(0), first.data());
        QCOMPARE(parts.valueStack->widget(1), second.data());
        QCOMPARE(parts.valueStack->currentIndex(), 0);
        QCOMPARE(RecordingPlatform::events(), QStringList());
    }
    QVERIFY(!first);
    QVERIFY(!second);
}

void TestWidgetListItemValues::mixedValuesAreReportedAndGoOn_data()
{
    QTest::addColumn<QString>("calls");  // t: text, w: widget, d: display value
    QTest::addColumn<QStringList>("log");
    QTest::addColumn<int>("texts");
    QTest::addColumn<int>("pages");
    const QString text = "log:2:[addValue, 96] Don't mix up!!!!!!!!";
    const QString widget = "log:2:[addValue, 106] Don't mix up!!!!!!!!";
    QTest::newRow("texts") << "tt" << QStringList() << 2 << 0;
    QTest::newRow("widgets") << "ww" << QStringList() << 0 << 2;
    QTest::newRow("text then widget") << "tw" << QStringList(widget) << 1 << 1;
    QTest::newRow("widget then text") << "wt" << QStringList(text) << 1 << 1;
    QTest::newRow("to and fro") << "twtw" << QStringList({widget, text, widget}) << 2 << 2;
    QTest::newRow("display value then widget is not reported") << "dw" << QStringList() << 1 << 1;
    QTest::newRow("display value then text is not reported") << "dt" << QStringList() << 2 << 0;
    QTest::newRow("display value after widgets has no effect") << "wdw" << QStringList() << 0 << 2;
}

void TestWidgetListItemValues::mixedValuesAreReportedAndGoOn()
{
    QFETCH(QString, calls);
    QFETCH(int, texts);
    WidgetListItem row(nullptr, sound());
    for (const QChar call : calls) {
        if (call == 't')
            row.addValue(QStringLiteral("text"));
        else if (call == 'w')
            row.addValue(new QWidget);
        else
            row.setDisplayValue(0, QStringLiteral("text"), false);
    }
    QTEST(RecordingPlatform::events(), "log");
    const RowParts parts(row);
    QTEST(parts.valueStack->count(), "pages");
    // The texts are counted by the label: the last one that is there shows.
    row.setDisplayValueIndex(texts - 1);
    row.updateValue();
    QCOMPARE(parts.value->text(), texts > 0 ? QStringLiteral("text") : QString());
    row.setDisplayValueIndex(texts);
    row.updateValue();
    QCOMPARE(parts.value->text(), QString());
}

void TestWidgetListItemValues::textThenWidgetIsReportedAndLeavesARowOfWidgets()
{
    WidgetListItem row(nullptr, sound());
    row.addValue(QStringLiteral("A"));
    row.addValue(new QWidget);
    QCOMPARE(RecordingPlatform::events(), QStringList("log:2:[addValue, 106] Don't mix up!!!!!!!!"));
    row.updateValue();
    const RowParts parts(row);
    QCOMPARE(parts.value->text(), QStringLiteral("A"));
    QCOMPARE(parts.valueStack->count(), 1);
    QCOMPARE(row.getDisplayValue(), QString());
    row.show();
    QVERIFY(parts.valueStack->isVisible());
    QVERIFY(!parts.value->isVisible());
}

void TestWidgetListItemValues::insertValuePutsAPageBeforeAnother_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("at the front") << 0;
    QTest::newRow("in the middle") << 1;
    QTest::newRow("at the end") << 2;
}

void TestWidgetListItemValues::insertValuePutsAPageBeforeAnother()
{
    QFETCH(int, index);
    WidgetListItem row(nullptr, sound());
    QList<QWidget *> pages{new QWidget, new QWidget};
    row.addValue(pages.at(0));
    row.addValue(pages.at(1));
    QWidget *inserted = new QWidget;
    row.insertValue(index, inserted);
    pages.insert(index, inserted);
    const RowParts parts(row);
    QCOMPARE(parts.valueStack->count(), 3);
    for (int i = 0; i < 3; ++i)
        QCOMPARE(parts.valueStack->widget(i), pages.at(i));
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetListItemValues::insertValueKeepsTheIndex()
{
    WidgetListItem row(nullptr, sound());
    for (int i = 0; i < 3; ++i)
        row.addValue(new QWidget);
    row.setDisplayValueIndex(1);
    row.backup();
    row.insertValue(0, new QWidget);
    QVERIFY(!row.isModified());
    releaseKey(&row, Qt::Key_6);
    QCOMPARE(RowParts(row).valueStack->currentIndex(), 2);
}

void TestWidgetListItemValues::insertValueOutsideThePagesIsIgnored_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("negative") << -1;
    QTest::newRow("past the end") << 3;
    QTest::newRow("largest") << INT_MAX;
    QTest::newRow("smallest") << INT_MIN;
}

void TestWidgetListItemValues::insertValueOutsideThePagesIsIgnored()
{
    QFETCH(int, index);
    WidgetListItem row(nullptr, sound());
    row.addValue(new QWidget);
    row.addValue(new QWidget);
    QWidget value;
    row.insertValue(index, &value);
    QCOMPARE(RowParts(row).valueStack->count(), 2);
    QVERIFY(!value.parentWidget());
    const QString line = QStringLiteral("log:2:[ui/view/widget/widgetlistitem.cpp, insertValue] Invalid index %1");
    QCOMPARE(RecordingPlatform::events(), QStringList(line.arg(index)));
}

void TestWidgetListItemValues::insertAndRemoveAreRejectedWithoutWidgetValues_data()
{
    QTest::addColumn<QString>("kind");
    QTest::newRow("no value") << "none";
    QTest::newRow("texts") << "text";
    QTest::newRow("display value") << "display";
    QTest::newRow("texts again after widgets") << "mixed";
}

static void giveValues(WidgetListItem &row, const QString &kind)
{
    if (kind == "mixed")
        row.addValue(new QWidget);
    if (kind == "text" || kind == "mixed") {
        row.addValue(QStringLiteral("A"));
        row.addValue(QStringLiteral("B"));
    }
    if (kind == "display")
        row.setDisplayValue(0, QStringLiteral("A"), false);
    if (kind == "widget") {
        row.addValue(new QWidget);
        row.addValue(new QWidget);
    }
    RecordingPlatform::clearLog();
}

static QStringList logged()
{
    QStringList result;
    const QList<RecordingPlatform::LogLine> lines = RecordingPlatform::logLines();
    for (const RecordingPlatform::LogLine &line : lines)
        result << QString("%1:%2").arg(line.level).arg(line.text);
    return result;
}

void TestWidgetListItemValues::insertAndRemoveAreRejectedWithoutWidgetValues()
{
    QFETCH(QString, kind);
    WidgetListItem row(nullptr, sound());
    giveValues(row, kind);
    const RowParts parts(row);
    const int pages = parts.valueStack->count();
    QWidget value;
    row.insertValue(0, &value);
    QCOMPARE(logged(), QStringList("2:[insertValue, 118] Don't mix up!!!!!!!!"));
    RecordingPlatform::clearLog();
    row.removeValue(0);
    QCOMPARE(logged(), QStringList("2:[removeValue, 129] Don't mix up!!!!!!!!"));
    RecordingPlatform::clearLog();
    row.insertValue(-5, nullptr);
    row.removeValue(-5);
    QCOMPARE(logged(), QStringList({"2:[insertValue, 118] Don't mix up!!!!!!!!",
                                    "2:[removeValue, 129] Don't mix up!!!!!!!!"}));
    QCOMPARE(parts.valueStack->count(), pages);
    QVERIFY(!value.parentWidget());
}

void TestWidgetListItemValues::removeValueTakesThePageOutAndDeletesNothing()
{
    WidgetListItem row(nullptr, sound());
    QPointer<QWidget> first = new QWidget;
    QPointer<QWidget> second = new QWidget;
    row.addValue(first);
    row.addValue(second);
    row.removeValue(0);
    runEventLoop();
    const RowParts parts(row);
    QVERIFY(first);
    QCOMPARE(parts.valueStack->count(), 1);
    QCOMPARE(parts.valueStack->widget(0), second.data());
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetListItemValues::removeValueKeepsTheIndex()
{
    WidgetListItem row(nullptr, sound());
    for (int i = 0; i < 4; ++i)
        row.addValue(new QWidget);
    row.setDisplayValueIndex(2);
    row.backup();
    row.removeValue(0);
    QVERIFY(!row.isModified());
    releaseKey(&row, Qt::Key_4);
    QCOMPARE(RowParts(row).valueStack->currentIndex(), 1);
}

void TestWidgetListItemValues::removeValueOutsideThePagesIsIgnored_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("negative") << -1;
    QTest::newRow("past the last") << 2;
    QTest::newRow("largest") << INT_MAX;
    QTest::newRow("smallest") << INT_MIN;
}

void TestWidgetListItemValues::removeValueOutsideThePagesIsIgnored()
{
    QFETCH(int, index);
    WidgetListItem row(nullptr, sound());
    row.addValue(new QWidget);
    row.addValue(new QWidget);
    row.removeValue(index);
    QCOMPARE(RowParts(row).valueStack->count(), 2);
    const QString line = QStringLiteral("log:2:[ui/view/widget/widgetlistitem.cpp, removeValue] Invalid index %1");
    QCOMPARE(RecordingPlatform::events(), QStringList(line.arg(index)));
}

void TestWidgetListItemValues::removeAllValueKeepsPagesKindAndIndex()
{
    WidgetListItem row(nullptr, sound());
    row.addValue(QStringLiteral("A"));
    row.addValue(QStringLiteral("B"));
    row.addValue(QStringLiteral("C"));
    row.setDisplayValueIndex(2);
    row.removeAllValue();
    // The kind is still text: insertValue is rejected, a text is not reported, the index is where it was.
    row.addValue(QStringLiteral("D"));
    row.addValue(QStringLiteral("E"));
    row.addValue(QStringLiteral("F"));
    row.updateValue();
    QCOMPARE(RowParts(row).value->text(), QStringLiteral("F"));
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetListItemValues::removeAllValueOfAWidgetRowKeepsItsPages()
{
    WidgetListItem row(nullptr, sound());
    giveValues(row, QStringLiteral("widget"));
    row.setDisplayValueIndex(1);
    row.removeAllValue();
    const RowParts parts(row);
    QCOMPARE(parts.valueStack->count(), 2);
    QCOMPARE(parts.valueStack->currentIndex(), 1);
    row.insertValue(0, new QWidget);
    QCOMPARE(parts.valueStack->count(), 3);
}

void TestWidgetListItemValues::removeAllValueDoesNotTouchTheLabel()
{
    WidgetListItem row(nullptr, sound());
    giveValues(row, QStringLiteral("text"));
    row.updateValue();
    row.removeAllValue();
    QCOMPARE(row.getDisplayValue(), QStringLiteral("A"));
    row.updateValue();
    QCOMPARE(row.getDisplayValue(), QString());
}

void TestWidgetListItemValues::valueOfARowOfTwoLinesIsHiddenNotForgottenWithoutTexts()
{
    for (bool onRightSide : {false, true}) {
        WidgetListItem row(nullptr, sound());
        row.setValueOnRightSide(onRightSide);
        giveValues(row, QStringLiteral("text"));
        row.refresh();
        row.backup();
        row.removeAllValue();
        row.refresh();
        QVERIFY(RowParts(row).value->isHidden());
        QCOMPARE(row.getDisplayValue(), onRightSide ? QString() : QStringLiteral("A"));
        QCOMPARE(row.isModified(), onRightSide);
    }
}

void TestWidgetListItemValues::replaceValueIsSeenAtTheNextUpdate_data()
{
    QTest::addColumn<QString>("update");
    QTest::newRow("updateValue") << "updateValue";
    QTest::newRow("setDisplayValueIndex") << "setDisplayValueIndex";
    QTest::newRow("refresh") << "refresh";
    QTest::newRow("a key there and back") << "keys";
}

void TestWidgetListItemValues::replaceValueIsSeenAtTheNextUpdate()
{
    QFETCH(QString, update);
    WidgetListItem row(nullptr, sound());
    row.addValue(QStringLiteral("A"));
    row.addValue(QStringLiteral("B"));
    row.addValue(QStringLiteral("C"));
    row.setDisplayValueIndex(1);
    row.replaceValue(1, QStringLiteral("X"), false);
    QCOMPARE(row.getDisplayValue(), QStringLiteral("B"));
    if (update == "updateValue") {
        row.updateValue();
    } else if (update == "setDisplayValueIndex") {
        row.setDisplayValueIndex(1);
    } else if (update == "refresh") {
        row.refresh();
    } else {
        releaseKey(&row, Qt::Key_4);
        QCOMPARE(row.getDisplayValue(), QStringLiteral("A"));
        releaseKey(&row, Qt::Key_6);
    }
    QCOMPARE(row.getDisplayValue(), QStringLiteral("X"));
    QCOMPARE(RecordingPlatform::logTexts(2), QStringList());
}

void TestWidgetListItemValues::replaceValueOutsideTheListChangesNothing_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QStringList>("log");
    const QString line = "2:[ui/view/widget/widgetlistitem.cpp, replaceValue] Invalid index %1";
    QTest::newRow("just past the last, silently") << 3 << QStringList();
    QTest::newRow("past the last, silently") << 5 << QStringList();
    QTest::newRow("largest, silently") << INT_MAX << QStringList();
    QTest::newRow("negative") << -1 << QStringList(line.arg(-1));
    QTest::newRow("smallest") << INT_MIN << QStringList(line.arg(INT_MIN));
}

void TestWidgetListItemValues::replaceValueOutsideTheListChangesNothing()
{
    QFETCH(int, index);
    WidgetListItem row(nullptr, sound());
    row.addValue(QStringLiteral("A"));
    row.addValue(QStringLiteral("B"));
    row.addValue(QStringLiteral("C"));
    row.setValueOnRightSide(true);
    row.replaceValue(index, QStringLiteral("X"), true);
    QTEST(logged(), "log");
    QCOMPARE(RowParts(row).title->font().pointSize(), 12);
    const QStringList texts{"A", "B", "C", ""};
    for (int i = 0; i < texts.size(); ++i) {
        row.setDisplayValueIndex(i);
        QCOMPARE(row.getDisplayValue(), texts.at(i));
    }
}

void TestWidgetListItemValues::replaceValueTakesTheDefaultFontOnDemand_data()
{
    QTest::addColumn<bool>("defaultFont");
    QTest::addColumn<int>("pointSize");
    QTest::newRow("default font") << true << 15;
    QTest::newRow("font kept") << false << 12;
}

void TestWidgetListItemValues::replaceValueTakesTheDefaultFontOnDemand()
{
    QFETCH(bool, defaultFont);
    WidgetListItem row(nullptr, sound());
    row.addValue(QStringLiteral("A"));
    row.setValueOnRightSide(true);
    row.replaceValue(0, QStringLiteral("X"), defaultFont);
    QTEST(RowParts(row).title->font().pointSize(), "pointSize");
}

void TestWidgetListItemValues::replaceValueWorksInEveryKindOfRow()
{
    WidgetListItem row(nullptr, sound());
    row.setDisplayValue(0, QStringLiteral("A"), false);
    row.replaceValue(0, QStringLiteral("X"), false);
    QCOMPARE(row.getDisplayValue(), QStringLiteral("A"));
    row.updateValue();
    QCOMPARE(row.getDisplayValue(), QStringLiteral("X"));
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetListItemValues::setDisplayValueMakesTwoLines()
{
    WidgetListItem row(nullptr, sound());
    row.setTitle(QStringLiteral("Title"), true);
    const RowParts parts(row);
    row.setDisplayValue(0, QStringLiteral("A"), false);
    QCOMPARE(parts.title->y(), 2);
    QCOMPARE(parts.title->height(), 21);
    QCOMPARE(parts.title->alignment(), Qt::AlignLeft | Qt::AlignBottom);
    QCOMPARE(parts.value->y(), 23);
    QCOMPARE(parts.value->height(), 21);
    QCOMPARE(parts.value->alignment(), Qt::AlignLeft | Qt::AlignTop);
    QCOMPARE(parts.value->text(), QStringLiteral("A"));
    QVERIFY(!parts.value->isHidden());
    QCOMPARE(row.getDisplayValue(), QStringLiteral("A"));
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetListItemValues::setDisplayValueKeepsTheEdgesOfTheLabels()
{
    WidgetListItem row(nullptr, sound());
    row.setGeometry(0, 0, 220, 46);
    row.setTitle(QStringLiteral("Title"), true);
    row.show();
    const RowParts parts(row);
    QCOMPARE(parts.title->geometry(), edges(9, 0, 196, 45));
    QVERIFY(!parts.value->isVisible());
    row.setDisplayValue(0, QStringLiteral("A"), false);
    QCOMPARE(parts.title->geometry(), edges(9, 2, 196, 22));
    QCOMPARE(parts.value->geometry(), edges(9, 23, 214, 43));
    QVERIFY(parts.value->isVisible());
    parts.title->setGeometry(50, 1, 30, 5);
    parts.value->setGeometry(60, 1, 40, 5);
    row.setDisplayValue(0, QStringLiteral("B"), false);
    QCOMPARE(parts.title->geometry(), edges(50, 2, 79, 22));
    QCOMPARE(parts.value->geometry(), edges(60, 23, 99, 43));
}

void TestWidgetListItemValues::setDisplayValueStoresAtItsIndex_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("first") << 0 << QStringList({"X", "B", "C", ""});
    QTest::newRow("second") << 1 << QStringList({"A", "X", "C", ""});
    QTest::newRow("last") << 2 << QStringList({"A", "B", "X", ""});
}

void TestWidgetListItemValues::setDisplayValueStoresAtItsIndex()
{
    QFETCH(int, index);
    QFETCH(QStringList, texts);
    WidgetListItem row(nullptr, sound());
    row.addValue(QStringLiteral("A"));
    row.addValue(QStringLiteral("B"));
    row.addValue(QStringLiteral("C"));
    row.setDisplayValue(index, QStringLiteral("X"), false);
    QCOMPARE(row.getDisplayValue(), QStringLiteral("X"));
    for (int i = 0; i < texts.size(); ++i) {
        row.setDisplayValueIndex(i);
        row.updateValue();
        QCOMPARE(row.getDisplayValue(), texts.at(i));
    }
}

void TestWidgetListItemValues::setDisplayValueOutsideTheListShowsNothingAndKeepsTheIndex_data()
{
    QTest::addColumn<int>("texts");
    QTest::addColumn<int>("index");
    QTest::newRow("5 on an empty list") << 0 << 5;
    QTest::newRow("-1 on an empty list") << 0 << -1;
    QTest::newRow("5 on two texts") << 2 << 5;
    QTest::newRow("-1 on two texts") << 2 << -1;
    QTest::newRow("largest on two texts") << 2 << INT_MAX;
    QTest::newRow("smallest on two texts") << 2 << INT_MIN;
}

void TestWidgetListItemValues::setDisplayValueOutsideTheListShowsNothingAndKeepsTheIndex()
{
    QFETCH(int, texts);
    QFETCH(int, index);
    WidgetListItem row(nullptr, sound());
    for (int i = 0; i < texts; ++i)
        row.addValue(QString::number(i));
    row.setDisplayValue(index, QStringLiteral("X"), true);
    QCOMPARE(row.getDisplayValue(), QString());
    row.refresh();
    row.show();
    QCOMPARE(row.getDisplayValue(), QString());
    row.setDisplayValueIndex(texts);
    row.updateValue();
    QCOMPARE(row.getDisplayValue(), QStringLiteral("X"));
    for (int i = 0; i < texts; ++i) {
        row.setDisplayValueIndex(i);
        row.updateValue();
        QCOMPARE(row.getDisplayValue(), QString::number(i));
    }
}

void TestWidgetListItemValues::setDisplayValueDoesNothingInAWidgetRow()
{
    WidgetListItem row(nullptr, sound());
    giveValues(row, QStringLiteral("widget"));
    const RowParts parts(row);
    const QRect title = parts.title->geometry();
    const QRect value = parts.value->geometry();
    row.setDisplayValue(0, QStringLiteral("X"), true);
    QCOMPARE(parts.title->geometry(), title);
    QCOMPARE(parts.value->geometry(), value);
    QCOMPARE(parts.value->text(), QString());
    row.updateValue();
    QCOMPARE(parts.value->text(), QString());
    row.insertValue(0, new QWidget);
    QCOMPARE(parts.valueStack->count(), 3);
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetListItemValues::setDisplayValueTakesTheFontsOfTwoLines()
{
    WidgetListItem row(nullptr, sound());
    row.setTitle(QStringLiteral("Title"), true);
    QCOMPARE(RowParts(row).title->font().pointSize(), 15);
    row.setDisplayValue(0, QStringLiteral("X"), false);
    QCOMPARE(RowParts(row).title->font().pointSize(), 12);
}

void TestWidgetListItemValues::setDisplayValueCutsToTheLabel()
{
    WidgetListItem row(nullptr, sound());
    const RowParts parts(row);
    const QString text = textWiderThan(parts.value->width(), parts.value->font());
    row.setDisplayValue(0, text, false);
    QCOMPARE(row.getDisplayValue(), fitted(text, parts.value->font(), parts.value->width()));
    QVERIFY(row.getDisplayValue() != text);
}

void TestWidgetListItemValues::clearAfterRefreshShowsTheTextOnceMoreAndForgetsIt()
{
    WidgetListItem row(nullptr, sound());
    row.setDisplayValue(0, QStringLiteral("X"), true);
    row.updateValue();
    QCOMPARE(row.getDisplayValue(), QStringLiteral("X"));
    row.refresh();
    QCOMPARE(row.getDisplayValue(), QStringLiteral("X"));
    row.updateValue();
    QCOMPARE(row.getDisplayValue(), QString());
}

void TestWidgetListItemValues::clearAfterRefreshIsDoneOnce()
{
    WidgetListItem row(nullptr, sound());
    row.setDisplayValue(0, QStringLiteral("X"), true);
    row.refresh();
    row.replaceValue(0, QStringLiteral("Y"), false);
    row.refresh();
    QCOMPARE(row.getDisplayValue(), QStringLiteral("Y"));
    row.refresh();
    QCOMPARE(row.getDisplayValue(), QStringLiteral("Y"));
}

void TestWidgetListItemValues::clearAfterRefreshIsTakenBackByTheNextDisplayValue()
{
    WidgetListItem row(nullptr, sound());
    row.setDisplayValue(0, QStringLiteral("X"), true);
    row.setDisplayValue(0, QStringLiteral("Y"), false);
    row.refresh();
    row.updateValue();
    QCOMPARE(row.getDisplayValue(), QStringLiteral("Y"));
}

void TestWidgetListItemValues::clearAfterRefreshForgetsTheCurrentValueOnly()
{
    WidgetListItem row(nullptr, sound());
    row.addValue(QStringLiteral("A"));
    row.addValue(QStringLiteral("B"));
    row.setDisplayValue(1, QStringLiteral("X"), true);
    row.refresh();
    row.setDisplayValueIndex(0);
    row.updateValue();
    QCOMPARE(row.getDisplayValue(), QStringLiteral("A"));
    row.setDisplayValueIndex(1);
    row.updateValue();
    QCOMPARE(row.getDisplayValue(), QString());
}

void TestWidgetListItemValues::clearAfterRefreshWaitsForAValue()
{
    WidgetListItem row(nullptr, sound());
    row.setDisplayValue(0, QStringLiteral("X"), true);
    row.removeAllValue();
    row.refresh();
    row.addValue(QStringLiteral("Y"));
    row.refresh();
    QCOMPARE(row.getDisplayValue(), QStringLiteral("Y"));
    row.refresh();
    QCOMPARE(row.getDisplayValue(), QString());
}

void TestWidgetListItemValues::clearAfterRefreshWaitsWhileThereAreWidgets()
{
    WidgetListItem row(nullptr, sound());
    row.setDisplayValue(0, QStringLiteral("X"), true);
    row.addValue(new QWidget);
    row.refresh();
    row.addValue(QStringLiteral("Y"));
    row.updateValue();
    QCOMPARE(row.getDisplayValue(), QStringLiteral("X"));
    row.refresh();
    row.updateValue();
    QCOMPARE(row.getDisplayValue(), QString());
}

void TestWidgetListItemValues::clearAfterRefreshOutsideTheListForgetsNothing()
{
    for (int index : {1, 3}) {
        WidgetListItem row(nullptr, sound());
        row.setDisplayValue(index, QStringLiteral("X"), true);
        row.refresh();
        row.setDisplayValueIndex(0);
        row.updateValue();
        QCOMPARE(row.getDisplayValue(), QStringLiteral("X"));
    }
}

void TestWidgetListItemValues::setDisplayValueIndexShowsByKind_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("shown");
    QTest::newRow("texts show at once") << "text" << "B";
    QTest::newRow("display value does not") << "display" << "A";
    QTest::newRow("no value shows nothing") << "none" << "";
}

void TestWidgetListItemValues::setDisplayValueIndexShowsByKind()
{
    QFETCH(QString, kind);
    WidgetListItem row(nullptr, sound());
    giveValues(row, kind);
    row.setDisplayValueIndex(1);
    QTEST(row.getDisplayValue(), "shown");
}

void TestWidgetListItemValues::setDisplayValueIndexOutsideTheValuesShowsNothing_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<int>("index");
    const QStringList kinds{"none", "text", "display", "widget", "mixed"};
    for (const QString &kind : kinds) {
        for (int index : {-1, 2, INT_MAX, INT_MIN})
            QTest::newRow(qPrintable(QString("%1, %2").arg(kind).arg(index))) << kind << index;
    }
}

void TestWidgetListItemValues::setDisplayValueIndexOutsideTheValuesShowsNothing()
{
    QFETCH(QString, kind);
    QFETCH(int, index);
    WidgetListItem row(nullptr, sound());
    giveValues(row, kind);
    row.setDisplayValueIndex(index);
    row.updateValue();
    QCOMPARE(RowParts(row).value->text(), QString());
    row.refresh();
    row.backup();
    QVERIFY(!row.isModified());
    row.setDisplayValueIndex(0);
    QCOMPARE(RowParts(row).valueStack->currentIndex(), RowParts(row).valueStack->count() > 0 ? 0 : -1);
    row.updateValue();
    QCOMPARE(RowParts(row).value->text(), kind == "none" || kind == "widget" ? QString() : QStringLiteral("A"));
}

void TestWidgetListItemValues::setDisplayValueIndexMakesAPageCurrent()
{
    WidgetListItem row(nullptr, sound());
    giveValues(row, QStringLiteral("widget"));
    row.setDisplayValueIndex(1);
    QCOMPARE(RowParts(row).valueStack->currentIndex(), 1);
    row.setDisplayValueIndex(0);
    QCOMPARE(RowParts(row).valueStack->currentIndex(), 0);
}

void TestWidgetListItemValues::setDisplayValueIndexEmitsAndPlaysNothing()
{
    WidgetListItem row(nullptr, sound());
    giveValues(row, QStringLiteral("text"));
    QSignalSpy changes(&row, &WidgetListItem::doChange);
    row.setDisplayValueIndex(1);
    row.selectByValue(QStringLiteral("A"), false);
    row.setDisplayValue(0, QStringLiteral("X"), false);
    row.replaceValue(0, QStringLiteral("Y"), true);
    row.removeAllValue();
    QCOMPARE(changes.count(), 0);
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetListItemValues::selectByValueFindsTheFirst_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<bool>("byPrefix");
    QTest::addColumn<QString>("shown");
    QTest::newRow("beginning with Fr") << "Fr" << true << "Fri";
    QTest::newRow("exactly Fr") << "Fr" << false << "Fr";
    QTest::newRow("exactly Sat, which is not there") << "Sat" << false << "Off";
    QTest::newRow("beginning with Sat, which is not there") << "Sat" << true << "Off";
    QTest::newRow("case matters at the beginning") << "fr" << true << "Off";
    QTest::newRow("case matters in all of it") << "FRI" << false << "Off";
    QTest::newRow("a piece inside is no beginning") << "ri" << true << "Off";
    QTest::newRow("longer than the value") << "Friday" << true << "Off";
    QTest::newRow("everything begins with nothing") << "" << true << "Off";
    QTest::newRow("nothing is nothing") << "" << false << "Off";
    QTest::newRow("the last one") << "Fr" << false << "Fr";
}

void TestWidgetListItemValues::selectByValueFindsTheFirst()
{
    QFETCH(QString, value);
    QFETCH(bool, byPrefix);
    WidgetListItem row(nullptr, sound());
    row.addValue(QStringLiteral("Off"));
    row.addValue(QStringLiteral("Fri"));
    row.addValue(QStringLiteral("Fr"));
    row.addValue(QStringLiteral("Fr"));
    row.setDisplayValueIndex(3);
    row.selectByValue(value, byPrefix);
    QTEST(row.getDisplayValue(), "shown");
    // Of the two "Fr" it is the first.
    releaseKey(&row, Qt::Key_4);
    QFETCH(QString, shown);
    QCOMPARE(row.getDisplayValue(), shown == "Fr" ? QStringLiteral("Fri") : shown == "Fri" ? QStringLiteral("Off")
                                                                                           : QStringLiteral("Fr"));
}

void TestWidgetListItemValues::selectByValueDoesNothingInOtherKinds_data()
{
    QTest::addColumn<QString>("kind");
    QTest::newRow("no value") << "none";
    QTest::newRow("display value") << "display";
    QTest::newRow("widgets") << "widget";
}

void TestWidgetListItemValues::selectByValueDoesNothingInOtherKinds()
{
    QFETCH(QString, kind);
    WidgetListItem row(nullptr, sound());
    giveValues(row, kind);
    row.setDisplayValueIndex(1);
    row.backup();
    row.selectByValue(QStringLiteral("A"), false);
    row.selectByValue(QStringLiteral("A"), true);
    const RowParts parts(row);
    QCOMPARE(parts.valueStack->currentIndex(), kind == "widget" ? 1 : -1);
    QVERIFY(!row.isModified());
    // The index is still 1, where there is no text.
    row.updateValue();
    QCOMPARE(parts.value->text(), QString());
}

void TestWidgetListItemValues::firstWidgetIsUnmodifiedWithoutABackup()
{
    WidgetListItem row(nullptr, sound());
    giveValues(row, QStringLiteral("widget"));
    QVERIFY(!row.isModified());
    row.setDisplayValueIndex(1);
    QVERIFY(row.isModified());
}

void TestWidgetListItemValues::selectByValueOnAnEmptiedListLeavesIndexZero()
{
    WidgetListItem row(nullptr, sound());
    giveValues(row, QStringLiteral("text"));
    row.setDisplayValueIndex(1);
    row.removeAllValue();
    row.selectByValue(QStringLiteral("B"), false);
    QCOMPARE(row.getDisplayValue(), QString());
    row.addValue(QStringLiteral("C"));
    row.addValue(QStringLiteral("D"));
    row.updateValue();
    QCOMPARE(row.getDisplayValue(), QStringLiteral("C"));
}

void TestWidgetListItemValues::displayValueIsTheTextAsDisplayed()
{
    WidgetListItem row(nullptr, sound());
    row.setGeometry(0, 0, 220, 46);
    const RowParts parts(row);
    const QString text = textWiderThan(206, parts.value->font());
    row.addValue(text);
    row.show();
    QCOMPARE(parts.value->width(), 206);
    QCOMPARE(row.getDisplayValue(), QFontMetrics(parts.value->font()).elidedText(text, Qt::ElideRight, 206));
    QVERIFY(row.getDisplayValue().endsWith(QChar(0x2026)));
}

void TestWidgetListItemValues::displayValueOfAWidgetRowIsEmpty()
{
    WidgetListItem row(nullptr, sound());
    row.addValue(QStringLiteral("A"));
    row.updateValue();
    QCOMPARE(row.getDisplayValue(), QStringLiteral("A"));
    row.addValue(new QLabel(QStringLiteral("B")));
    QCOMPARE(RowParts(row).value->text(), QStringLiteral("A"));
    QCOMPARE(row.getDisplayValue(), QString());
}

void TestWidgetListItemValues::displayValueOfATitleRowIsEmpty()
{
    WidgetListItem row(nullptr, sound());
    row.setTitle(QStringLiteral("Title"), true);
    row.show();
    QCOMPARE(row.getDisplayValue(), QString());
}

void TestWidgetListItemValues::rangeTakesEffectAtTheNextKey()
{
    WidgetListItem row(nullptr, sound());
    for (int i = 0; i < 5; ++i)
        row.addValue(QString::number(i));
    row.setDisplayValueIndex(4);
    row.setSelectableRange(1, 2);
    row.refresh();
    QCOMPARE(row.getDisplayValue(), QStringLiteral("4"));
    releaseKey(&row, Qt::Key_6);
    QCOMPARE(row.getDisplayValue(), QStringLiteral("1"));
}

void TestWidgetListItemValues::serialNumberKeepsItsTextWhenSwitchedOff()
{
    WidgetListItem row(nullptr, sound());
    row.setTitle(QStringLiteral("Title"), true);
    row.m_noShortcut = false;
    row.setSerialNum(true, 3);
    const RowParts parts(row);
    QCOMPARE(parts.badge->text(), QString());
    row.show();
    QCOMPARE(parts.badge->text(), QStringLiteral("3"));
    QVERIFY(parts.badge->isVisible());
    row.setSerialNum(false, 7);
    QCOMPARE(parts.badge->text(), QStringLiteral("3"));
    QVERIFY(parts.badge->isVisible());
    row.refresh();
    QCOMPARE(parts.badge->text(), QStringLiteral("3"));
    QVERIFY(!parts.badge->isVisible());
}

void TestWidgetListItemValues::serialNumberIsDecimal_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("text");
    QTest::newRow("0") << 0 << "0";
    QTest::newRow("12") << 12 << "12";
    QTest::newRow("-5") << -5 << "-5";
    QTest::newRow("largest") << INT_MAX << "2147483647";
}

void TestWidgetListItemValues::serialNumberIsDecimal()
{
    QFETCH(int, number);
    WidgetListItem row(nullptr, sound());
    row.setTitle(QStringLiteral("Title"), true);
    row.m_noShortcut = false;
    row.setSerialNum(true, number);
    row.refresh();
    QTEST(RowParts(row).badge->text(), "text");
}

void TestWidgetListItemValues::flagsTakeEffectAtTheNextRefresh()
{
    WidgetListItem row(nullptr, sound());
    row.setGeometry(0, 0, 220, 46);
    row.setTitle(QStringLiteral("Title"), true);
    row.addValue(QStringLiteral("A"));
    row.show();
    const RowParts parts(row);
    const QList<QWidget *> children = row.findChildren<QWidget *>();
    EventRecorder recorder(&row);
    row.setMoreDepth(true);
    row.setDeletable(true);
    row.setValueOnRightSide(true);
    row.setSerialNum(true, 1);
    row.setSelectableRange(0, 0);
    QCOMPARE(recorder.receivers(QEvent::Show), QList<QObject *>());
    QCOMPARE(recorder.receivers(QEvent::Move), QList<QObject *>());
    QCOMPARE(recorder.receivers(QEvent::Resize), QList<QObject *>());
    row.refresh();
    QVERIFY(parts.prevArrow->isVisible());
    QVERIFY(parts.nextArrow->isVisible());
    QCOMPARE(parts.value->geometry().right(), 211);
}

void TestWidgetListItemValues::modifiableTakesEffectAtOnce()
{
    WidgetListItem row(nullptr, sound());
    giveValues(row, QStringLiteral("text"));
    row.show();
    const RowParts parts(row);
    QVERIFY(parts.prevArrow->isVisible());
    QVERIFY(parts.nextArrow->isVisible());
    row.setModifiable(false);
    QVERIFY(!parts.prevArrow->isVisible());
    QVERIFY(!parts.nextArrow->isVisible());
    row.setModifiable(true);
    QVERIFY(parts.prevArrow->isVisible());
    QVERIFY(parts.nextArrow->isVisible());
}

void TestWidgetListItemValues::backupComparesDisplayedTexts()
{
    WidgetListItem row(nullptr, sound());
    giveValues(row, QStringLiteral("text"));
    row.updateValue();
    QVERIFY(row.isModified());
    row.backup();
    QVERIFY(!row.isModified());
    row.setDisplayValueIndex(1);
    QVERIFY(row.isModified());
    row.setDisplayValueIndex(0);
    QVERIFY(!row.isModified());
    releaseKey(&row, Qt::Key_6);
    QVERIFY(row.isModified());
    releaseKey(&row, Qt::Key_4);
    QVERIFY(!row.isModified());
    // What is stored but not displayed does not count, and the index does not either.
    row.replaceValue(0, QStringLiteral("X"), false);
    QVERIFY(!row.isModified());
    row.updateValue();
    QVERIFY(row.isModified());
    row.replaceValue(1, QStringLiteral("A"), false);
    row.setDisplayValueIndex(1);
    QVERIFY(!row.isModified());
}

void TestWidgetListItemValues::backupComparesIndexesOfWidgets()
{
    WidgetListItem row(nullptr, sound());
    giveValues(row, QStringLiteral("widget"));
    row.setDisplayValueIndex(1);
    row.backup();
    QVERIFY(!row.isModified());
    releaseKey(&row, Qt::Key_6);
    QVERIFY(row.isModified());
    releaseKey(&row, Qt::Key_6);
    QVERIFY(!row.isModified());
}

void TestWidgetListItemValues::ignoredRowIsNeverModified()
{
    WidgetListItem texts(nullptr, sound());
    giveValues(texts, QStringLiteral("text"));
    texts.updateValue();
    WidgetListItem widgets(nullptr, sound());
    giveValues(widgets, QStringLiteral("widget"));
    widgets.backup();
    widgets.setDisplayValueIndex(1);
    QVERIFY(texts.isModified());
    QVERIFY(widgets.isModified());
    texts.m_ignoreModified = true;
    widgets.m_ignoreModified = true;
    QVERIFY(!texts.isModified());
    QVERIFY(!widgets.isModified());
}

void TestWidgetListItemValues::rowWithoutABackupComparesWithNothing()
{
    WidgetListItem title(nullptr, sound());
    title.setTitle(QStringLiteral("Title"), true);
    title.show();
    QVERIFY(!title.isModified());
    WidgetListItem display(nullptr, sound());
    display.setDisplayValue(0, QStringLiteral("A"), false);
    QVERIFY(display.isModified());
    WidgetListItem empty(nullptr, sound());
    empty.setDisplayValue(0, QString(), false);
    QVERIFY(!empty.isModified());
}

void TestWidgetListItemValues::isModifiedIsCaseSensitive()
{
    WidgetListItem row(nullptr, sound());
    row.setDisplayValue(0, QStringLiteral("on"), false);
    row.backup();
    row.setDisplayValue(0, QStringLiteral("ON"), false);
    QVERIFY(row.isModified());
    row.setDisplayValue(0, QStringLiteral("on"), false);
    QVERIFY(!row.isModified());
}

void TestWidgetListItemValues::shortcutEntersARowThatLeadsDeeper()
{
    WidgetListItem row(nullptr, sound());
    row.setMoreDepth(true);
    NOTE_SIGNAL(&row, &WidgetListItem::doEnter, "doEnter");
    NOTE_SIGNAL(&row, &WidgetListItem::doChange, "doChange");
    row.selectByShortcut();
    QCOMPARE(RecordingPlatform::events(), QStringList({"log:16:[selectByShortcut, 259]", "doEnter"}));
}

void TestWidgetListItemValues::shortcutOnAnyOtherRowIsLogged()
{
    WidgetListItem row(nullptr, sound());
    giveValues(row, QStringLiteral("text"));
    row.m_enterOnOK = true;
    NOTE_SIGNAL(&row, &WidgetListItem::doEnter, "doEnter");
    NOTE_SIGNAL(&row, &WidgetListItem::doChange, "doChange");
    row.selectByShortcut();
    QCOMPARE(RecordingPlatform::events(), QStringList({"log:16:[selectByShortcut, 259]",
                                                       "log:2:[selectByShortcut, 264] Not selectable by shortcut"}));
}

void TestWidgetListItemValues::aSlotMayDeleteTheRowThatItsShortcutEnters()
{
    WidgetListItem *row = new WidgetListItem(nullptr, sound());
    row->setMoreDepth(true);
    QPointer<WidgetListItem> guard(row);
    connect(row, &WidgetListItem::doEnter, this, [row] { delete row; });
    row->selectByShortcut();
    QVERIFY(!guard);
}

QTEST_MAIN(TestWidgetListItemValues)
#include "tst_widgetlistitemvalues.moc"

#include "displaywork.h"
#include "recordingplatform.h"
#include "widgeticongroup.h"

#include <QLabel>
#include <QtTest>

#include <climits>

using Alignment = WidgetIconGroup::VerticalAlignment;

class TestWidgetIconGroup : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void hasNoSignalsSlotsOrPropertiesOfItsOwn();
    void numbersItsAlignments();
    void objectNameHasAnS();
    void makesItsElementsHiddenInTheirPlaces();
    void showsNothingUntilDressed();
    void logsAndPlaysNothing();

    void dressingAnElementShowsItAlone_data();
    void dressingAnElementShowsItAlone();
    void dressingAnElementOfAShownGroupShowsItAtOnce_data();
    void dressingAnElementOfAShownGroupShowsItAtOnce();
    void emptyStyleIsAStyleAndShowsTheIcon();
    void indexOutsideIsRejected_data();
    void indexOutsideIsRejected();

    void alignmentMovesEveryElementFromWhereItIs_data();
    void alignmentMovesEveryElementFromWhereItIs();
    void everyValueButTopAndBottomResets_data();
    void everyValueButTopAndBottomResets();
    void movesFromAPlaceThatTheApplicationGave();
    void alignmentShowsNothing();
    void whatIsSetAlreadyCostsNothing();
};

// Icons 0 to 2, then separators 0 and 1.
static QList<QLabel *> elements(const WidgetIconGroup &group)
{
    return group.findChildren<QLabel *>();
}

static const QList<QRect> s_places = {
    {0, 2, 20, 20}, {51, 2, 20, 20}, {102, 2, 20, 20}, {30, 6, 11, 11}, {81, 6, 11, 11},
};

static QList<QRect> places(const WidgetIconGroup &group)
{
    QList<QRect> result;
    for (const QLabel *element : elements(group))
        result << element->geometry();
    return result;
}

static QList<QRect> placesMovedDown(int dy)
{
    QList<QRect> result;
    for (const QRect &place : s_places)
        result << place.translated(0, dy);
    return result;
}

static void dress(WidgetIconGroup &group, int element, const QString &style)
{
    if (element < 3)
        group.setIcon(element, style);
    else
        group.setSeperator(element - 3, style);
}

static QList<int> shownElements(const WidgetIconGroup &group)
{
    QList<int> result;
    for (int i = 0; i < 5; ++i) {
        if (!elements(group).at(i)->isHidden())
            result << i;
    }
    return result;
}

void TestWidgetIconGroup::init()
{
    RecordingPlatform::reset();
}

void TestWidgetIconGroup::hasNoSignalsSlotsOrPropertiesOfItsOwn()
{
    WidgetIconGroup group(nullptr, nullptr);
    const QMetaObject *meta = group.metaObject();
    QCOMPARE(meta->className(), "WidgetIconGroup");
    QCOMPARE(meta->methodCount(), meta->methodOffset());
    QCOMPARE(meta->propertyCount(), meta->propertyOffset());
}

void TestWidgetIconGroup::numbersItsAlignments()
{
    QCOMPARE(int(WidgetIconGroup::Top), 0);
    QCOMPARE(int(WidgetIconGroup::Center), 1);
    QCOMPARE(int(WidgetIconGroup::Bottom), 2);
}

void TestWidgetIconGroup::objectNameHasAnS()
{
    QWidget parent;
    WidgetIconGroup *group = new WidgetIconGroup(&parent, nullptr);
    QCOMPARE(group->objectName(), QString("WidgetIconGroups"));
    QCOMPARE(parent.findChild<Widget *>("WidgetIconGroups"), group);
}

void TestWidgetIconGroup::makesItsElementsHiddenInTheirPlaces()
{
    WidgetIconGroup group(nullptr, nullptr);
    QCOMPARE(group.findChildren<QWidget *>().size(), 5);
    QCOMPARE(elements(group).size(), 5);
    QCOMPARE(places(group), s_places);
    QCOMPARE(shownElements(group), QList<int>());
    QCOMPARE(group.styleSheet(), QString());
}

void TestWidgetIconGroup::showsNothingUntilDressed()
{
    WidgetIconGroup group(nullptr, nullptr);
    group.show();
    for (const QLabel *element : elements(group))
        QVERIFY(!element->isVisible());
}

void TestWidgetIconGroup::logsAndPlaysNothing()
{
    WidgetIconGroup group(nullptr, nullptr);
    for (int i = 0; i < 5; ++i)
        dress(group, i, "color: red");
    for (int alignment = 0; alignment < 3; ++alignment)
        group.setVerticalAlignment(Alignment(alignment));
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetIconGroup::dressingAnElementShowsItAlone_data()
{
    QTest::addColumn<int>("element");
    QTest::newRow("icon 0") << 0;
    QTest::newRow("icon 1") << 1;
    QTest::newRow("icon 2") << 2;
    QTest::newRow("separator 0") << 3;
    QTest::newRow("separator 1") << 4;
}

void TestWidgetIconGroup::dressingAnElementShowsItAlone()
{
    QFETCH(int, element);
    WidgetIconGroup group(nullptr, nullptr);
    dress(group, element, "color: red");
    QCOMPARE(shownElements(group), QList<int>() << element);
    for (int i = 0; i < 5; ++i)
        QCOMPARE(elements(group).at(i)->styleSheet(), QString(i == element ? "color: red" : ""));
    group.show();
    for (int i = 0; i < 5; ++i)
        QCOMPARE(elements(group).at(i)->isVisible(), i == element);
    QCOMPARE(places(group), s_places);
}

void TestWidgetIconGroup::dressingAnElementOfAShownGroupShowsItAtOnce_data()
{
    dressingAnElementShowsItAlone_data();
}

void TestWidgetIconGroup::dressingAnElementOfAShownGroupShowsItAtOnce()
{
    QFETCH(int, element);
    WidgetIconGroup group(nullptr, nullptr);
    group.show();
    dress(group, element, "color: red");
    for (int i = 0; i < 5; ++i)
        QCOMPARE(elements(group).at(i)->isVisible(), i == element);
}

void TestWidgetIconGroup::emptyStyleIsAStyleAndShowsTheIcon()
{
    WidgetIconGroup group(nullptr, nullptr);
    group.show();
    for (int i = 0; i < 5; ++i) {
        dress(group, i, QString());
        QVERIFY(elements(group).at(i)->isVisible());
        dress(group, i, "color: red");
        dress(group, i, QString());
        QCOMPARE(elements(group).at(i)->styleSheet(), QString());
        QVERIFY(elements(group).at(i)->isVisible());
    }
}

void TestWidgetIconGroup::indexOutsideIsRejected_data()
{
    QTest::addColumn<int>("icon");
    QTest::addColumn<int>("separator");
    QTest::newRow("past the last") << 3 << 2;
    QTest::newRow("negative") << -1 << -1;
    QTest::newRow("greatest") << INT_MAX << INT_MAX;
    QTest::newRow("smallest") << INT_MIN << INT_MIN;
}

void TestWidgetIconGroup::indexOutsideIsRejected()
{
    QFETCH(int, icon);
    QFETCH(int, separator);
    WidgetIconGroup group(nullptr, nullptr);
    group.setIcon(icon, "color: red");
    group.setSeperator(separator, "color: red");
    const QString line = "log:2:[ui/view/widget/widgeticongroup.cpp, %1] Invalid index %2";
    QCOMPARE(RecordingPlatform::events(),
             QStringList() << line.arg("setIcon").arg(icon) << line.arg("setSeperator").arg(separator));
    QCOMPARE(shownElements(group), QList<int>());
}

void TestWidgetIconGroup::alignmentMovesEveryElementFromWhereItIs_data()
{
    QTest::addColumn<QList<int>>("alignments");
    QTest::addColumn<int>("dy");
    QTest::newRow("up") << QList<int>{0} << -2;
    QTest::newRow("up twice") << QList<int>{0, 0} << -4;
    QTest::newRow("down") << QList<int>{2} << 2;
    QTest::newRow("down three times") << QList<int>{2, 2, 2} << 6;
    QTest::newRow("up and down") << QList<int>{0, 2} << 0;
    QTest::newRow("up twice, then reset") << QList<int>{0, 0, 1} << 0;
    QTest::newRow("reset, then down") << QList<int>{0, 1, 2} << 2;
}

void TestWidgetIconGroup::alignmentMovesEveryElementFromWhereItIs()
{
    QFETCH(QList<int>, alignments);
    QFETCH(int, dy);
    WidgetIconGroup group(nullptr, nullptr);
    for (int alignment : alignments)
        group.setVerticalAlignment(Alignment(alignment));
    QCOMPARE(places(group), placesMovedDown(dy));
}

void TestWidgetIconGroup::everyValueButTopAndBottomResets_data()
{
    QTest::addColumn<int>("alignment");
    QTest::newRow("center") << 1;
    QTest::newRow("past the last") << 3;
    QTest::newRow("negative") << -1;
    QTest::newRow("greatest") << INT_MAX;
    QTest::newRow("smallest") << INT_MIN;
}

void TestWidgetIconGroup::everyValueButTopAndBottomResets()
{
    QFETCH(int, alignment);
    WidgetIconGroup group(nullptr, nullptr);
    group.setVerticalAlignment(WidgetIconGroup::Bottom);
    elements(group).at(1)->setGeometry(7, 8, 9, 10);
    group.setVerticalAlignment(Alignment(alignment));
    QCOMPARE(places(group), s_places);
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetIconGroup::movesFromAPlaceThatTheApplicationGave()
{
    WidgetIconGroup group(nullptr, nullptr);
    elements(group).at(3)->setGeometry(7, 8, 9, 10);
    group.setVerticalAlignment(WidgetIconGroup::Top);
    QCOMPARE(elements(group).at(3)->geometry(), QRect(7, 6, 9, 10));
}

void TestWidgetIconGroup::alignmentShowsNothing()
{
    WidgetIconGroup group(nullptr, nullptr);
    for (int alignment = 0; alignment < 3; ++alignment)
        group.setVerticalAlignment(Alignment(alignment));
    QCOMPARE(shownElements(group), QList<int>());
}

void TestWidgetIconGroup::whatIsSetAlreadyCostsNothing()
{
    WidgetIconGroup group(nullptr, nullptr);
    const auto configure = [&group] {
        for (int i = 0; i < 5; ++i)
            dress(group, i, "color: red");
        group.setVerticalAlignment(WidgetIconGroup::Center);
    };
    configure();
    QVERIFY(showAndPaint(group));
    QCOMPARE(workOf(group, configure), QStringList());
}

QTEST_MAIN(TestWidgetIconGroup)
#include "tst_widgeticongroup.moc"

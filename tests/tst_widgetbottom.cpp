#include "displaywork.h"
#include "recordingplatform.h"
#include "widgetbottom.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QtTest>

#include <climits>

class TestWidgetBottom : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void hasAMetaObjectWithNothingInIt();
    void takesNoFocus();
    void isMadeOfTwoHalvesWithTwoPicturesEach();
    void logsAndPlaysNothingWhenBuilt();

    void dressesAHalfAtOnce_data();
    void dressesAHalfAtOnce();
    void emptySheetClearsAHalf();
    void stateOfAHalfDoesNotMatter_data();
    void stateOfAHalfDoesNotMatter();

    void pictureShowsTheSheetOfItsState_data();
    void pictureShowsTheSheetOfItsState();
    void pictureSheetsAreOnlyStored();
    void areaStyleOfAPictureDoesNotMatter();
    void statesOfAllPicturesAreShownInOneCall();
    void stateWithoutASheetClearsThePicture();
    void statesAreNotRemembered();

    void otherItemsAreIgnoredSilently_data();
    void otherItemsAreIgnoredSilently();
    void sheetForAStateOutsideIsRejected_data();
    void sheetForAStateOutsideIsRejected();
    void showingAStateOutsideIsRejected_data();
    void showingAStateOutsideIsRejected();

    void halvesMeet_data();
    void halvesMeet();
    void rightHalfIgnoresX();
    void rightmostColumnOfAnOddWidthStaysUncovered();
    void placingTheHalvesNeverMovesTheBar();
    void placesAndSizesEndWhereTheToolkitCanStillAddThem();
    void picturesShareTheirHalf();

    void whatIsSetAlreadyCostsNothing();
    void newStateTouchesOnePictureOnly();
};

struct Parts
{
    explicit Parts(const WidgetBottom &bar)
    {
        const QList<QWidget *> halves = bar.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
        if (halves.size() != 2)
            qFatal("a bottom bar has two halves");
        left = halves.at(0);
        right = halves.at(1);
        pictures = left->findChildren<QLabel *>() + right->findChildren<QLabel *>();
    }

    QStringList sheets() const
    {
        QStringList result;
        for (const QLabel *picture : pictures)
            result << picture->styleSheet();
        return result;
    }

    QWidget *left;
    QWidget *right;
    QList<QLabel *> pictures;
};

static QString sheet(int picture, int state)
{
    return QStringLiteral("color: #00c%1d%2").arg(picture).arg(state);
}

static void registerAll(WidgetBottom &bar)
{
    for (int picture = 0; picture < 4; ++picture) {
        for (int state = 0; state < 6; ++state)
            bar.setItemStyle(picture + 2, sheet(picture, state), QString(), state);
    }
}

static QString invalidIndex(const char *function, int index)
{
    return QStringLiteral("log:2:[ui/view/widget/widgetbottom.cpp, %1] Invalid index %2")
        .arg(QLatin1String(function)).arg(index);
}

void TestWidgetBottom::init()
{
    RecordingPlatform::reset();
}

void TestWidgetBottom::hasAMetaObjectWithNothingInIt()
{
    const QMetaObject &meta = WidgetBottom::staticMetaObject;
    QCOMPARE(meta.className(), "WidgetBottom");
    QCOMPARE(meta.superClass(), &Widget::staticMetaObject);
    QCOMPARE(meta.methodCount(), meta.methodOffset());
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
    QCOMPARE(meta.enumeratorCount(), meta.enumeratorOffset());
}

void TestWidgetBottom::takesNoFocus()
{
    WidgetBottom bar(nullptr, nullptr);
    QCOMPARE(bar.focusPolicy(), Qt::NoFocus);
}

void TestWidgetBottom::isMadeOfTwoHalvesWithTwoPicturesEach()
{
    QWidget parent;
    WidgetBottom *bar = new WidgetBottom(&parent, nullptr);
    QCOMPARE(bar->parentWidget(), &parent);
    const Parts parts(*bar);
    QCOMPARE(bar->findChildren<QWidget *>().size(), 6);
    QCOMPARE(parts.pictures.size(), 4);
    QWidget *halves[] = {parts.left, parts.right};
    for (int half = 0; half < 2; ++half) {
        QHBoxLayout *layout = qobject_cast<QHBoxLayout *>(halves[half]->layout());
        QVERIFY(layout);
        QCOMPARE(layout->spacing(), 0);
        QCOMPARE(layout->contentsMargins(), QMargins(0, 0, 0, 0));
        QCOMPARE(layout->count(), 2);
        QCOMPARE(layout->itemAt(0)->widget(), parts.pictures.at(2 * half));
        QCOMPARE(layout->itemAt(1)->widget(), parts.pictures.at(2 * half + 1));
        QCOMPARE(parts.pictures.at(2 * half)->parentWidget(), halves[half]);
        QCOMPARE(parts.pictures.at(2 * half + 1)->parentWidget(), halves[half]);
    }
    QVERIFY(!bar->layout());
}

void TestWidgetBottom::logsAndPlaysNothingWhenBuilt()
{
    WidgetBottom bar(nullptr, nullptr);
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetBottom::dressesAHalfAtOnce_data()
{
    QTest::addColumn<int>("item");
    QTest::addColumn<QString>("left");
    QTest::addColumn<QString>("right");
    QTest::newRow("left half") << 0 << "color: red" << "";
    QTest::newRow("right half") << 1 << "" << "color: red";
}

void TestWidgetBottom::dressesAHalfAtOnce()
{
    QFETCH(int, item);
    WidgetBottom bar(nullptr, nullptr);
    const Parts parts(bar);
    bar.setItemStyle(item, "color: blue", "color: red", 0);
    QTEST(parts.left->styleSheet(), "left");
    QTEST(parts.right->styleSheet(), "right");
    bar.statusBottomShow(0, 0, 0, 0);
    QCOMPARE(parts.sheets(), QStringList() << "" << "" << "" << "");
    QCOMPARE(bar.styleSheet(), QString());
}

void TestWidgetBottom::emptySheetClearsAHalf()
{
    WidgetBottom bar(nullptr, nullptr);
    bar.setItemStyle(0, QString(), "color: red", 0);
    bar.setItemStyle(0, QString(), QString(), 0);
    QCOMPARE(Parts(bar).left->styleSheet(), QString());
}

void TestWidgetBottom::stateOfAHalfDoesNotMatter_data()
{
    QTest::addColumn<int>("state");
    QTest::newRow("first") << 0;
    QTest::newRow("last") << 5;
    QTest::newRow("past the last") << 6;
    QTest::newRow("negative") << -1;
    QTest::newRow("greatest") << INT_MAX;
    QTest::newRow("smallest") << INT_MIN;
}

void TestWidgetBottom::stateOfAHalfDoesNotMatter()
{
    QFETCH(int, state);
    WidgetBottom bar(nullptr, nullptr);
    bar.setItemStyle(0, "color: blue", "color: red", state);
    bar.setItemStyle(1, "color: blue", "color: lime", state);
    QCOMPARE(Parts(bar).left->styleSheet(), QString("color: red"));
    QCOMPARE(Parts(bar).right->styleSheet(), QString("color: lime"));
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetBottom::pictureShowsTheSheetOfItsState_data()
{
    QTest::addColumn<int>("picture");
    QTest::addColumn<int>("state");
    for (int picture = 0; picture < 4; ++picture) {
        for (int state = 0; state < 6; ++state)
            QTest::addRow("picture %d in state %d", picture, state) << picture << state;
    }
}

void TestWidgetBottom::pictureShowsTheSheetOfItsState()
{
    QFETCH(int, picture);
    QFETCH(int, state);
    WidgetBottom bar(nullptr, nullptr);
    registerAll(bar);
    int states[4] = {};
    states[picture] = state;
    bar.statusBottomShow(states[0], states[1], states[2], states[3]);
    QStringList expected;
    for (int i = 0; i < 4; ++i)
        expected << sheet(i, states[i]);
    QCOMPARE(Parts(bar).sheets(), expected);
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetBottom::pictureSheetsAreOnlyStored()
{
    WidgetBottom bar(nullptr, nullptr);
    bar.show();
    registerAll(bar);
    QCOMPARE(Parts(bar).sheets(), QStringList() << "" << "" << "" << "");
}

void TestWidgetBottom::areaStyleOfAPictureDoesNotMatter()
{
    WidgetBottom bar(nullptr, nullptr);
    bar.setItemStyle(2, "color: blue", "color: red", 3);
    bar.statusBottomShow(3, 0, 0, 0);
    const Parts parts(bar);
    QCOMPARE(parts.sheets(), QStringList() << "color: blue" << "" << "" << "");
    QCOMPARE(parts.left->styleSheet(), QString());
    QCOMPARE(parts.right->styleSheet(), QString());
}

void TestWidgetBottom::statesOfAllPicturesAreShownInOneCall()
{
    WidgetBottom bar(nullptr, nullptr);
    registerAll(bar);
    bar.statusBottomShow(5, 0, 3, 1);
    QCOMPARE(Parts(bar).sheets(), QStringList() << sheet(0, 5) << sheet(1, 0) << sheet(2, 3) << sheet(3, 1));
}

void TestWidgetBottom::stateWithoutASheetClearsThePicture()
{
    WidgetBottom bar(nullptr, nullptr);
    bar.setItemStyle(2, "color: blue", QString(), 0);
    bar.statusBottomShow(0, 0, 0, 0);
    bar.statusBottomShow(1, 0, 0, 0);
    QCOMPARE(Parts(bar).sheets(), QStringList() << "" << "" << "" << "");
}

void TestWidgetBottom::statesAreNotRemembered()
{
    WidgetBottom bar(nullptr, nullptr);
    registerAll(bar);
    bar.statusBottomShow(1, 1, 1, 1);
    bar.setItemStyle(2, "color: blue", QString(), 1);
    bar.show();
    QCOMPARE(Parts(bar).sheets().first(), sheet(0, 1));
}

void TestWidgetBottom::otherItemsAreIgnoredSilently_data()
{
    QTest::addColumn<int>("item");
    QTest::newRow("past the last") << 6;
    QTest::newRow("negative") << -1;
    QTest::newRow("greatest") << INT_MAX;
    QTest::newRow("smallest") << INT_MIN;
}

void TestWidgetBottom::otherItemsAreIgnoredSilently()
{
    QFETCH(int, item);
    WidgetBottom bar(nullptr, nullptr);
    registerAll(bar);
    bar.setItemStyle(item, "color: blue", "color: red", 0);
    bar.setItemStyle(item, "color: blue", "color: red", 9);
    bar.statusBottomShow(0, 0, 0, 0);
    const Parts parts(bar);
    QCOMPARE(parts.sheets(), QStringList() << sheet(0, 0) << sheet(1, 0) << sheet(2, 0) << sheet(3, 0));
    QCOMPARE(parts.left->styleSheet(), QString());
    QCOMPARE(parts.right->styleSheet(), QString());
    QCOMPARE(bar.styleSheet(), QString());
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetBottom::sheetForAStateOutsideIsRejected_data()
{
    QTest::addColumn<int>("state");
    QTest::newRow("past the last") << 6;
    QTest::newRow("negative") << -1;
    QTest::newRow("greatest") << INT_MAX;
    QTest::newRow("smallest") << INT_MIN;
}

void TestWidgetBottom::sheetForAStateOutsideIsRejected()
{
    QFETCH(int, state);
    WidgetBottom bar(nullptr, nullptr);
    registerAll(bar);
    bar.setItemStyle(3, "color: blue", "color: red", state);
    QCOMPARE(RecordingPlatform::events(), QStringList() << invalidIndex("setItemStyle", state));
    for (int known = 0; known < 6; ++known) {
        bar.statusBottomShow(known, known, known, known);
        QCOMPARE(Parts(bar).sheets(),
                 QStringList() << sheet(0, known) << sheet(1, known) << sheet(2, known) << sheet(3, known));
    }
}

void TestWidgetBottom::showingAStateOutsideIsRejected_data()
{
    QTest::addColumn<QList<int>>("states");
    QTest::addColumn<int>("reported");
    QTest::newRow("first picture") << QList<int>{6, 1, 1, 1} << 6;
    QTest::newRow("last picture") << QList<int>{1, 1, 1, -1} << -1;
    QTest::newRow("several pictures") << QList<int>{1, INT_MIN, INT_MAX, 1} << INT_MIN;
}

void TestWidgetBottom::showingAStateOutsideIsRejected()
{
    QFETCH(QList<int>, states);
    QFETCH(int, reported);
    WidgetBottom bar(nullptr, nullptr);
    registerAll(bar);
    bar.statusBottomShow(2, 2, 2, 2);
    bar.statusBottomShow(states.at(0), states.at(1), states.at(2), states.at(3));
    QCOMPARE(RecordingPlatform::events(), QStringList() << invalidIndex("statusBottomShow", reported));
    QCOMPARE(Parts(bar).sheets(), QStringList() << sheet(0, 2) << sheet(1, 2) << sheet(2, 2) << sheet(3, 2));
}

void TestWidgetBottom::halvesMeet_data()
{
    QTest::addColumn<QRect>("bar");
    QTest::addColumn<QRect>("left");
    QTest::addColumn<QRect>("right");
    QTest::newRow("at the left edge") << QRect(0, 0, 240, 30) << QRect(0, 0, 120, 30) << QRect(120, 0, 120, 30);
    QTest::newRow("lower") << QRect(0, 5, 240, 30) << QRect(0, 5, 120, 30) << QRect(120, 5, 120, 30);
    QTest::newRow("odd width") << QRect(0, 0, 241, 30) << QRect(0, 0, 120, 30) << QRect(120, 0, 120, 30);
}

void TestWidgetBottom::halvesMeet()
{
    QFETCH(QRect, bar);
    WidgetBottom widget(nullptr, nullptr);
    widget.setBgGeometry(bar.x(), bar.y(), bar.width(), bar.height());
    QTEST(Parts(widget).left->geometry(), "left");
    QTEST(Parts(widget).right->geometry(), "right");
}

void TestWidgetBottom::rightHalfIgnoresX()
{
    WidgetBottom bar(nullptr, nullptr);
    bar.setBgGeometry(10, 0, 240, 30);
    QCOMPARE(Parts(bar).left->geometry(), QRect(10, 0, 120, 30));
    QCOMPARE(Parts(bar).right->geometry(), QRect(120, 0, 120, 30));
    bar.setBgGeometry(-10, 3, 240, 30);
    QCOMPARE(Parts(bar).left->geometry(), QRect(-10, 3, 120, 30));
    QCOMPARE(Parts(bar).right->geometry(), QRect(120, 3, 120, 30));
}

void TestWidgetBottom::rightmostColumnOfAnOddWidthStaysUncovered()
{
    WidgetBottom bar(nullptr, nullptr);
    bar.setBgGeometry(0, 0, 221, 20);
    QCOMPARE(Parts(bar).right->geometry().right(), 219);
}

void TestWidgetBottom::placingTheHalvesNeverMovesTheBar()
{
    QWidget parent;
    WidgetBottom *bar = new WidgetBottom(&parent, nullptr);
    bar->setGeometry(3, 150, 220, 26);
    bar->setBgGeometry(10, 20, 240, 30);
    QCOMPARE(bar->geometry(), QRect(3, 150, 220, 26));
}

void TestWidgetBottom::placesAndSizesEndWhereTheToolkitCanStillAddThem()
{
    WidgetBottom bar(nullptr, nullptr);
    bar.setBgGeometry(INT_MIN, INT_MAX, -1000, INT_MIN);
    QCOMPARE(Parts(bar).left->geometry(), QRect(QWIDGETSIZE_MAX - INT_MAX, INT_MAX - QWIDGETSIZE_MAX, 0, 0));
    QCOMPARE(Parts(bar).right->geometry(), QRect(-500, INT_MAX - QWIDGETSIZE_MAX, 0, 0));
    bar.setBgGeometry(INT_MAX, 1, INT_MAX, INT_MAX);
    QCOMPARE(Parts(bar).left->size(), QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX));
    bar.setBgGeometry(0, 0, 240, 30);
    QCOMPARE(Parts(bar).left->geometry(), QRect(0, 0, 120, 30));
    QCOMPARE(Parts(bar).right->geometry(), QRect(120, 0, 120, 30));
}

void TestWidgetBottom::picturesShareTheirHalf()
{
    WidgetBottom bar(nullptr, nullptr);
    bar.setBgGeometry(0, 0, 240, 30);
    bar.show();
    const Parts parts(bar);
    QCOMPARE(parts.pictures.at(0)->geometry(), QRect(0, 0, 60, 30));
    QCOMPARE(parts.pictures.at(1)->geometry(), QRect(60, 0, 60, 30));
    QCOMPARE(parts.pictures.at(2)->geometry(), QRect(0, 0, 60, 30));
    QCOMPARE(parts.pictures.at(3)->geometry(), QRect(60, 0, 60, 30));
}

void TestWidgetBottom::whatIsSetAlreadyCostsNothing()
{
    WidgetBottom bar(nullptr, nullptr);
    registerAll(bar);
    bar.setItemStyle(0, QString(), "background: red", 0);
    bar.setBgGeometry(0, 0, 240, 30);
    bar.statusBottomShow(1, 2, 3, 4);
    QVERIFY(showAndPaint(bar));
    QCOMPARE(workOf(bar, [&bar] {
        bar.setItemStyle(0, QString(), "background: red", 0);
        bar.setItemStyle(1, QString(), QString(), 0);
        registerAll(bar);
        bar.setBgGeometry(0, 0, 240, 30);
        bar.statusBottomShow(1, 2, 3, 4);
    }), QStringList());
}

void TestWidgetBottom::newStateTouchesOnePictureOnly()
{
    WidgetBottom bar(nullptr, nullptr);
    registerAll(bar);
    bar.statusBottomShow(1, 2, 3, 4);
    QVERIFY(showAndPaint(bar));
    const EventRecorder recorder(&bar);
    bar.statusBottomShow(1, 2, 0, 4);
    QCOMPARE(recorder.receivers(QEvent::StyleChange), QList<QObject *>() << Parts(bar).pictures.at(2));
    QCOMPARE(recorder.count(QEvent::StyleChange), 1);
}

QTEST_MAIN(TestWidgetBottom)
#include "tst_widgetbottom.moc"

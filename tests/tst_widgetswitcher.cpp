#include "displaywork.h"
#include "recordingplatform.h"
#include "widgetswitcher.h"

#include "platform/soundmanager.h"

#include <QGridLayout>
#include <QLabel>
#include <QtTest>

#include <climits>

class TestWidgetSwitcher : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void hasOneSignalAndNothingElse();
    void isBuiltOnADarkGroundInTheCorner();
    void makesItsPartsInStackingOrder();
    void laysItsPartsOutInAGrid();
    void logsAndPlaysNothingWhenBuilt();

    void dotsAreLaidOutInTheMiddle_data();
    void dotsAreLaidOutInTheMiddle();
    void unlitDotsStandAtStepsOfTenWhateverTheirSize();
    void litDotStepsByItsOwnWidth();
    void placeOfTheFirstDotIsTwoTruncatedDivisions_data();
    void placeOfTheFirstDotIsTwoTruncatedDivisions();
    void missingPictureLeavesDotsOfNoSize();
    void pictureRegisteredAfterConstructionCounts();
    void anotherPictureCountsFromTheNextLayout();
    void layingOutPutsTheLitDotBackToTheFirstPlace();
    void itemZeroIsPlacedAsTheSwitcherIs();

    void stylesAreOnlyStored();
    void selectedEntryStandsBetweenItsNeighbours_data();
    void selectedEntryStandsBetweenItsNeighbours();
    void itemsOneAndTwoShareTheirSheets();
    void litDotReplacesTheUnlitOne_data();
    void litDotReplacesTheUnlitOne();
    void everyDotGetsItsSheet();
    void emptySheetsAreApplied();
    void styleOfOneItemLeavesTheOthers_data();
    void styleOfOneItemLeavesTheOthers();
    void everyShowBringsTheDisplayUpToDate();
    void selectItemIsSilentAndEmitsNothing();

    void styleOfTheSwitcherTakesTheAlternativeForAnEmptyOne_data();
    void styleOfTheSwitcherTakesTheAlternativeForAnEmptyOne();
    void fontOfTheNameIsBoldWhateverBoldSays_data();
    void fontOfTheNameIsBoldWhateverBoldSays();
    void fontOfAnythingButTheNameIsIgnoredSilently_data();
    void fontOfAnythingButTheNameIsIgnoredSilently();

    void placesOnePart_data();
    void placesOnePart();
    void labelsStayInTheirLayout();
    void itemFivePlacesTheUnlitDotsAndStoresThePlaceForTheLitOne();
    void itemSixPlacesTheLitDotAndStoresThePlaceButLeavesTheUnlitOnes();
    void placesAndSizesOfTheDotsEndWhereTheToolkitCanStillAddThem();
    void dotsPlacedByHandNoLongerFollowTheSwitcher_data();
    void dotsPlacedByHandNoLongerFollowTheSwitcher();
    void initDisplayGoesBackToTheBeginning();

    void unknownItemsAreIgnoredSilently_data();
    void unknownItemsAreIgnoredSilently();
    void indexOutsideIsRejected_data();
    void indexOutsideIsRejected();
    void indexDoesNotMatterToTheOtherItems_data();
    void indexDoesNotMatterToTheOtherItems();

    void keysTurnAroundTheEnds_data();
    void keysTurnAroundTheEnds();
    void turnsBeforeItClicks();
    void turningEmitsNothingAndVisitsEntriesThatAreNotSelectable();
    void okClicksThenReports();
    void okOnAnEntryThatIsNotSelectableOnlyClicks();
    void switcherMayBeDeletedWhenItReports();
    void keysActWhenReleasedOnly();
    void otherKeysAreHandedOn_data();
    void otherKeysAreHandedOn();
    void worksWithoutASoundManager();

    void whatIsSetAlreadyCostsNothing();
    void stepTouchesOnlyWhatItChanges();
    void stepBetweenEqualNeighboursDressesNothing();
};

// The pictures of the dots: 6 by 6 pixels, and wider ones of 9 by 7 in their place.
static void registerDots()
{
    Q_INIT_RESOURCE(resources);
}

static void unregisterDots()
{
    Q_CLEANUP_RESOURCE(resources);
}

static void registerWideDots()
{
    Q_INIT_RESOURCE(widedots);
}

static void unregisterWideDots()
{
    Q_CLEANUP_RESOURCE(widedots);
}

struct Parts
{
    explicit Parts(const WidgetSwitcher &switcher)
    {
        const QList<QWidget *> children =
            switcher.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
        if (children.size() != 5)
            qFatal("a switcher has five children");
        left = qobject_cast<QLabel *>(children.at(0));
        centre = qobject_cast<QLabel *>(children.at(1));
        right = qobject_cast<QLabel *>(children.at(2));
        name = qobject_cast<QLabel *>(children.at(3));
        pageArea = children.at(4);
        pagesOff = pageArea->findChildren<QLabel *>();
        if (!left || !centre || !right || !name || pagesOff.size() != 7)
            qFatal("a switcher has four labels and seven dots");
        pageOn = pagesOff.takeFirst();
    }

    QLabel *left;
    QLabel *centre;
    QLabel *right;
    QLabel *name;
    QWidget *pageArea;
    QLabel *pageOn;
    QList<QLabel *> pagesOff;
};

static QString side(int index)
{
    return QStringLiteral("color: #00c0d%1").arg(index);
}

static QString centre(int index)
{
    return QStringLiteral("color: #c000d%1").arg(index);
}

static QString name(int index)
{
    return QStringLiteral("Entry %1").arg(index);
}

static const QString s_pageOff = QStringLiteral("background: #808080");
static const QString s_pageOn = QStringLiteral("background: #ffffff");
static const QString s_ground = QStringLiteral("background-color: rgba(71, 66, 66, 255);");

static void fill(WidgetSwitcher &switcher)
{
    for (int index = 0; index < 6; ++index) {
        switcher.setItemStyle(1, side(index), QString(), index);
        switcher.setItemStyle(3, centre(index), QString(), index);
        switcher.setItemStyle(4, name(index), QString(), index);
    }
    switcher.setItemStyle(5, s_pageOff, QString(), 0);
    switcher.setItemStyle(6, s_pageOn, QString(), 0);
}

// The selected entry as the display tells it; -1 if the parts contradict each other.
static int shownEntry(const WidgetSwitcher &switcher)
{
    const Parts parts(switcher);
    for (int index = 0; index < 6; ++index) {
        if (parts.centre->styleSheet() == centre(index) && parts.name->text() == name(index)
            && parts.left->styleSheet() == side((index + 5) % 6)
            && parts.right->styleSheet() == side((index + 1) % 6) && parts.pagesOff.at(index)->isHidden())
            return index;
    }
    return -1;
}

static QString invalidIndex(const char *function, int index)
{
    return QStringLiteral("log:2:[ui/view/widget/widgetswitcher.cpp, %1] Invalid index %2")
        .arg(QLatin1String(function)).arg(index);
}

void TestWidgetSwitcher::init()
{
    RecordingPlatform::reset();
    // A program starts with all of its resources.
    unregisterWideDots();
    registerDots();
}

void TestWidgetSwitcher::cleanup()
{
    unregisterDots();
    unregisterWideDots();
}

void TestWidgetSwitcher::hasOneSignalAndNothingElse()
{
    const QMetaObject &meta = WidgetSwitcher::staticMetaObject;
    QCOMPARE(meta.className(), "WidgetSwitcher");
    QCOMPARE(meta.superClass(), &Widget::staticMetaObject);
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 1);
    const QMetaMethod method = meta.method(meta.methodOffset());
    QCOMPARE(method.methodSignature(), QByteArray("sendMainItem(int)"));
    QCOMPARE(method.parameterNames(), QList<QByteArray>() << "index");
    QCOMPARE(method.methodType(), QMetaMethod::Signal);
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
    QCOMPARE(meta.enumeratorCount(), meta.enumeratorOffset());
}

void TestWidgetSwitcher::isBuiltOnADarkGroundInTheCorner()
{
    QWidget parent;
    WidgetSwitcher *switcher = new WidgetSwitcher(&parent, nullptr);
    QCOMPARE(switcher->parentWidget(), &parent);
    QCOMPARE(switcher->styleSheet(), s_ground);
    QCOMPARE(switcher->pos(), QPoint(0, 0));
}

void TestWidgetSwitcher::makesItsPartsInStackingOrder()
{
    WidgetSwitcher switcher(nullptr, nullptr);
    const Parts parts(switcher);
    QCOMPARE(switcher.findChildren<QLabel *>().size(), 11);
    QVERIFY(parts.left->hasScaledContents());
    QVERIFY(parts.centre->hasScaledContents());
    QVERIFY(parts.right->hasScaledContents());
    QVERIFY(!parts.name->hasScaledContents());
    QCOMPARE(parts.pageArea->metaObject(), &QWidget::staticMetaObject);
    QVERIFY(!parts.pageArea->layout());
    const QObjectList stack = parts.pageArea->children();
    QCOMPARE(stack.indexOf(parts.pageOn), 0);
    for (int i = 0; i < 6; ++i)
        QCOMPARE(stack.indexOf(parts.pagesOff.at(i)), i + 1);
}

void TestWidgetSwitcher::laysItsPartsOutInAGrid()
{
    WidgetSwitcher switcher(nullptr, nullptr);
    const Parts parts(switcher);
    QGridLayout *layout = qobject_cast<QGridLayout *>(switcher.layout());
    QVERIFY(layout);
    QCOMPARE(layout->contentsMargins(), QMargins(3, 20, 3, 0));
    QCOMPARE(layout->count(), 5);

    const QList<QWidget *> widgets = {parts.left, parts.centre, parts.right, parts.name, parts.pageArea};
    const QList<QRect> cells = {{0, 0, 1, 1}, {1, 0, 1, 1}, {2, 0, 1, 1}, {0, 1, 3, 1}, {0, 2, 3, 1}};
    for (int i = 0; i < widgets.size(); ++i) {
        int row, column, rowSpan, columnSpan;
        layout->getItemPosition(layout->indexOf(widgets.at(i)), &row, &column, &rowSpan, &columnSpan);
        QCOMPARE(QRect(column, row, columnSpan, rowSpan), cells.at(i));
        const Qt::Alignment alignment = layout->itemAt(layout->indexOf(widgets.at(i)))->alignment();
        QCOMPARE(alignment, widgets.at(i) == parts.name ? Qt::AlignHCenter | Qt::AlignTop : Qt::Alignment());
    }
    QCOMPARE(parts.name->alignment(), Qt::AlignHCenter | Qt::AlignTop);

    const int rowStretches[] = {20, 4, 4};
    const int columnStretches[] = {2, 6, 2};
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(layout->rowStretch(i), rowStretches[i]);
        QCOMPARE(layout->columnStretch(i), columnStretches[i]);
    }
}

void TestWidgetSwitcher::logsAndPlaysNothingWhenBuilt()
{
    WidgetSwitcher switcher(nullptr, SoundManager::getInstance());
    switcher.show();
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetSwitcher::dotsAreLaidOutInTheMiddle_data()
{
    QTest::addColumn<QRect>("switcher");
    QTest::addColumn<int>("x");
    QTest::newRow("whole screen") << QRect(0, 0, 220, 176) << 82;
    QTest::newRow("moved") << QRect(20, 30, 100, 80) << 22;
    QTest::newRow("odd width") << QRect(0, 0, 101, 80) << 22;
    QTest::newRow("too narrow") << QRect(0, 0, 40, 80) << -8;
}

void TestWidgetSwitcher::dotsAreLaidOutInTheMiddle()
{
    QFETCH(QRect, switcher);
    QFETCH(int, x);
    QWidget parent;
    WidgetSwitcher *widget = new WidgetSwitcher(&parent, nullptr);
    widget->setBgGeometry(switcher.x(), switcher.y(), switcher.width(), switcher.height());
    QCOMPARE(widget->geometry(), switcher);
    const Parts parts(*widget);
    for (int i = 0; i < 6; ++i)
        QCOMPARE(parts.pagesOff.at(i)->geometry(), QRect(x + 10 * i, 0, 6, 6));
    QCOMPARE(parts.pageOn->geometry(), QRect(x, 0, 6, 6));
}

void TestWidgetSwitcher::unlitDotsStandAtStepsOfTenWhateverTheirSize()
{
    unregisterDots();
    registerWideDots();
    WidgetSwitcher switcher(nullptr, nullptr);
    switcher.setBgGeometry(0, 0, 220, 176);
    const Parts parts(switcher);
    for (int i = 0; i < 6; ++i)
        QCOMPARE(parts.pagesOff.at(i)->geometry(), QRect(110 - 37 + 10 * i, 0, 9, 7));
    QCOMPARE(parts.pageOn->geometry(), QRect(73, 0, 9, 7));
}

void TestWidgetSwitcher::litDotStepsByItsOwnWidth()
{
    unregisterDots();
    registerWideDots();
    WidgetSwitcher switcher(nullptr, nullptr);
    switcher.setBgGeometry(0, 0, 220, 176);
    for (int i = 0; i < 6; ++i) {
        switcher.selectItem(i);
        QCOMPARE(Parts(switcher).pageOn->geometry(), QRect(73 + 13 * i, 0, 9, 7));
        QCOMPARE(Parts(switcher).pagesOff.at(i)->geometry(), QRect(73 + 10 * i, 0, 9, 7));
    }
}

void TestWidgetSwitcher::placeOfTheFirstDotIsTwoTruncatedDivisions_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("x");
    // Six dots of 9 pixels and five gaps of 4 are 74 pixels; half of them is 37.
    QTest::newRow("even") << 100 << 13;
    QTest::newRow("odd") << 101 << 13;
    QTest::newRow("narrower than the dots") << 71 << -2;
    QTest::newRow("nothing") << 0 << -37;
}

void TestWidgetSwitcher::placeOfTheFirstDotIsTwoTruncatedDivisions()
{
    QFETCH(int, width);
    unregisterDots();
    registerWideDots();
    WidgetSwitcher switcher(nullptr, nullptr);
    switcher.layout()->setSizeConstraint(QLayout::SetNoConstraint);
    switcher.setBgGeometry(0, 0, width, 80);
    QCOMPARE(switcher.width(), width);
    QTEST(Parts(switcher).pageOn->x(), "x");
}

void TestWidgetSwitcher::missingPictureLeavesDotsOfNoSize()
{
    unregisterDots();
    WidgetSwitcher switcher(nullptr, nullptr);
    switcher.setBgGeometry(0, 0, 220, 176);
    const Parts parts(switcher);
    for (int i = 0; i < 6; ++i)
        QCOMPARE(parts.pagesOff.at(i)->geometry(), QRect(100 + 10 * i, 0, 0, 0));
    switcher.selectItem(5);
    QCOMPARE(parts.pageOn->geometry(), QRect(120, 0, 0, 0));
}

void TestWidgetSwitcher::pictureRegisteredAfterConstructionCounts()
{
    unregisterDots();
    WidgetSwitcher switcher(nullptr, nullptr);
    registerDots();
    switcher.setBgGeometry(0, 0, 220, 176);
    QCOMPARE(Parts(switcher).pageOn->geometry(), QRect(82, 0, 6, 6));
}

void TestWidgetSwitcher::anotherPictureCountsFromTheNextLayout()
{
    WidgetSwitcher switcher(nullptr, nullptr);
    switcher.setBgGeometry(0, 0, 220, 176);
    unregisterDots();
    registerWideDots();
    switcher.selectItem(0);
    QCOMPARE(Parts(switcher).pageOn->geometry(), QRect(82, 0, 6, 6));
    switcher.setAutoPageGeometry();
    QCOMPARE(Parts(switcher).pageOn->geometry(), QRect(73, 0, 9, 7));
}

void TestWidgetSwitcher::layingOutPutsTheLitDotBackToTheFirstPlace()
{
    WidgetSwitcher switcher(nullptr, nullptr);
    switcher.setBgGeometry(0, 0, 220, 176);
    switcher.selectItem(3);
    QCOMPARE(Parts(switcher).pageOn->geometry(), QRect(112, 0, 6, 6));
    switcher.setBgGeometry(0, 0, 220, 176);
    QCOMPARE(Parts(switcher).pageOn->geometry(), QRect(82, 0, 6, 6));
    QVERIFY(Parts(switcher).pagesOff.at(3)->isHidden());
    switcher.selectItem(3);
    QCOMPARE(Parts(switcher).pageOn->geometry(), QRect(112, 0, 6, 6));
}

void TestWidgetSwitcher::itemZeroIsPlacedAsTheSwitcherIs()
{
    QWidget parent;
    WidgetSwitcher *switcher = new WidgetSwitcher(&parent, nullptr);
    const QRect left = Parts(*switcher).left->geometry();
    switcher->setItemGeometry(0, 20, 30, 100, 80);
    QCOMPARE(switcher->geometry(), QRect(20, 30, 100, 80));
    QCOMPARE(Parts(*switcher).left->geometry(), left);
    QCOMPARE(Parts(*switcher).pageOn->geometry(), QRect(22, 0, 6, 6));
}

void TestWidgetSwitcher::stylesAreOnlyStored()
{
    WidgetSwitcher switcher(nullptr, nullptr);
    switcher.show();
    fill(switcher);
    const Parts parts(switcher);
    for (const QLabel *label : switcher.findChildren<QLabel *>())
        QCOMPARE(label->styleSheet(), QString());
    QCOMPARE(parts.name->text(), QString());
    switcher.selectItem(0);
    QCOMPARE(shownEntry(switcher), 0);
}

void TestWidgetSwitcher::selectedEntryStandsBetweenItsNeighbours_data()
{
    QTest::addColumn<int>("entry");
    QTest::addColumn<int>("previous");
    QTest::addColumn<int>("next");
    QTest::newRow("first") << 0 << 5 << 1;
    QTest::newRow("second") << 1 << 0 << 2;
    QTest::newRow("third") << 2 << 1 << 3;
    QTest::newRow("fourth") << 3 << 2 << 4;
    QTest::newRow("fifth") << 4 << 3 << 5;
    QTest::newRow("last") << 5 << 4 << 0;
}

void TestWidgetSwitcher::selectedEntryStandsBetweenItsNeighbours()
{
    QFETCH(int, entry);
    QFETCH(int, previous);
    QFETCH(int, next);
    WidgetSwitcher switcher(nullptr, nullptr);
    fill(switcher);
    switcher.selectItem(entry);
    const Parts parts(switcher);
    QCOMPARE(parts.centre->styleSheet(), centre(entry));
    QCOMPARE(parts.left->styleSheet(), side(previous));
    QCOMPARE(parts.right->styleSheet(), side(next));
    QCOMPARE(parts.name->text(), name(entry));
}

void TestWidgetSwitcher::itemsOneAndTwoShareTheirSheets()
{
    WidgetSwitcher switcher(nullptr, nullptr);
    fill(switcher);
    switcher.setItemStyle(2, "color: white", QString(), 1);
    switcher.selectItem(0);
    QCOMPARE(Parts(switcher).right->styleSheet(), QString("color: white"));
    switcher.selectItem(2);
    QCOMPARE(Parts(switcher).left->styleSheet(), QString("color: white"));
}

void TestWidgetSwitcher::litDotReplacesTheUnlitOne_data()
{
    QTest::addColumn<int>("entry");
    for (int entry = 0; entry < 6; ++entry)
        QTest::addRow("entry %d", entry) << entry;
}

void TestWidgetSwitcher::litDotReplacesTheUnlitOne()
{
    QFETCH(int, entry);
    WidgetSwitcher switcher(nullptr, nullptr);
    switcher.setBgGeometry(0, 0, 220, 176);
    fill(switcher);
    switcher.show();
    switcher.selectItem((entry + 2) % 6);
    switcher.selectItem(entry);
    const Parts parts(switcher);
    for (int i = 0; i < 6; ++i)
        QCOMPARE(parts.pagesOff.at(i)->isVisible(), i != entry);
    QVERIFY(parts.pageOn->isVisible());
    QCOMPARE(parts.pageOn->geometry(), QRect(82 + 10 * entry, 0, 6, 6));
    QCOMPARE(parts.pageOn->geometry(), parts.pagesOff.at(entry)->geometry());
}

void TestWidgetSwitcher::everyDotGetsItsSheet()
{
    WidgetSwitcher switcher(nullptr, nullptr);
    fill(switcher);
    switcher.selectItem(2);
    const Parts parts(switcher);
    for (const QLabel *dot : parts.pagesOff)
        QCOMPARE(dot->styleSheet(), s_pageOff);
    QCOMPARE(parts.pageOn->styleSheet(), s_pageOn);
    QCOMPARE(parts.pageArea->styleSheet(), QString());
}

void TestWidgetSwitcher::emptySheetsAreApplied()
{
    WidgetSwitcher switcher(nullptr, nullptr);
    fill(switcher);
    switcher.selectItem(2);
    for (int item = 1; item <= 6; ++item) {
        for (int index = 0; index < 6; ++index)
            switcher.setItemStyle(item, QString(), "color: red", index);
    }
    switcher.selectItem(2);
    const Parts parts(switcher);
    for (const QLabel *label : switcher.findChildren<QLabel *>())
        QCOMPARE(label->styleSheet(), QString());
    QCOMPARE(parts.name->text(), QString());
}

void TestWidgetSwitcher::styleOfOneItemLeavesTheOthers_data()
{
    QTest::addColumn<int>("item");
    QTest::addColumn<QString>("changed");
    QTest::newRow("the switcher itself") << 0 << "itself";
    QTest::newRow("left picture") << 1 << "sides";
    QTest::newRow("right picture") << 2 << "sides";
    QTest::newRow("centre picture") << 3 << "centre";
    QTest::newRow("name") << 4 << "name";
    QTest::newRow("unlit dots") << 5 << "pages off";
    QTest::newRow("lit dot") << 6 << "page on";
}

void TestWidgetSwitcher::styleOfOneItemLeavesTheOthers()
{
    QFETCH(int, item);
    QFETCH(QString, changed);
    WidgetSwitcher switcher(nullptr, nullptr);
    fill(switcher);
    const Parts parts(switcher);
    const auto seen = [&] {
        QMap<QString, QStringList> styles;
        for (int entry = 0; entry < 6; ++entry) {
            switcher.selectItem(entry);
            styles["itself"] << switcher.styleSheet();
            styles["sides"] << parts.left->styleSheet() << parts.right->styleSheet();
            styles["centre"] << parts.centre->styleSheet();
            styles["name"] << parts.name->text();
            styles["pages off"] << parts.pagesOff.at(entry)->styleSheet();
            styles["page on"] << parts.pageOn->styleSheet();
        }
        return styles;
    };
    QMap<QString, QStringList> before = seen();
    switcher.setItemStyle(item, QStringLiteral("color: #010203"), QString(), 2);
    QMap<QString, QStringList> after = seen();
    QVERIFY(after.take(changed) != before.take(changed));
    QCOMPARE(after, before);
}

void TestWidgetSwitcher::everyShowBringsTheDisplayUpToDate()
{
    WidgetSwitcher switcher(nullptr, nullptr);
    fill(switcher);
    switcher.show();
    QCOMPARE(shownEntry(switcher), 0);
    switcher.selectItem(4);
    switcher.setItemStyle(4, "New name", QString(), 4);
    switcher.hide();
    QCOMPARE(Parts(switcher).name->text(), name(4));
    switcher.show();
    QCOMPARE(Parts(switcher).name->text(), QString("New name"));
    QCOMPARE(Parts(switcher).centre->styleSheet(), centre(4));
}

void TestWidgetSwitcher::selectItemIsSilentAndEmitsNothing()
{
    WidgetSwitcher switcher(nullptr, SoundManager::getInstance());
    QSignalSpy reports(&switcher, &WidgetSwitcher::sendMainItem);
    switcher.selectItem(3);
    QCOMPARE(RecordingPlatform::events(), QStringList());
    QCOMPARE(reports.count(), 0);
}

void TestWidgetSwitcher::styleOfTheSwitcherTakesTheAlternativeForAnEmptyOne_data()
{
    QTest::addColumn<QString>("style");
    QTest::addColumn<QString>("alternative");
    QTest::addColumn<QString>("sheet");
    QTest::newRow("style alone") << "color: red" << "" << "color: red";
    QTest::newRow("style and alternative") << "color: red" << "color: blue" << "color: red";
    QTest::newRow("alternative alone") << "" << "color: blue" << "color: blue";
    QTest::newRow("neither") << "" << "" << s_ground;
}

void TestWidgetSwitcher::styleOfTheSwitcherTakesTheAlternativeForAnEmptyOne()
{
    QFETCH(QString, style);
    QFETCH(QString, alternative);
    WidgetSwitcher switcher(nullptr, nullptr);
    switcher.setItemStyle(0, style, alternative, 0);
    QTEST(switcher.styleSheet(), "sheet");
}

void TestWidgetSwitcher::fontOfTheNameIsBoldWhateverBoldSays_data()
{
    QTest::addColumn<bool>("bold");
    QTest::newRow("bold") << true;
    QTest::newRow("not bold") << false;
}

void TestWidgetSwitcher::fontOfTheNameIsBoldWhateverBoldSays()
{
    QFETCH(bool, bold);
    WidgetSwitcher switcher(nullptr, nullptr);
    switcher.setFontStyle(4, 12, bold, "color: red");
    const Parts parts(switcher);
    QCOMPARE(parts.name->font().pointSize(), 12);
    QCOMPARE(int(parts.name->font().weight()), int(QFont::Bold));
    QCOMPARE(parts.name->styleSheet(), QString("color: red"));
    switcher.setFontStyle(4, 12, bold, QString());
    QCOMPARE(parts.name->styleSheet(), QString());
}

void TestWidgetSwitcher::fontOfAnythingButTheNameIsIgnoredSilently_data()
{
    QTest::addColumn<int>("item");
    for (int item : {0, 1, 2, 3, 5, 6, 7, -1, INT_MAX, INT_MIN})
        QTest::addRow("item %d", item) << item;
}

void TestWidgetSwitcher::fontOfAnythingButTheNameIsIgnoredSilently()
{
    QFETCH(int, item);
    WidgetSwitcher switcher(nullptr, nullptr);
    switcher.setFontStyle(item, 31, true, "color: red");
    QCOMPARE(RecordingPlatform::events(), QStringList());
    QCOMPARE(switcher.styleSheet(), s_ground);
    for (const QLabel *label : switcher.findChildren<QLabel *>()) {
        QCOMPARE(label->styleSheet(), QString());
        QVERIFY(label->font().pointSize() != 31);
    }
}

void TestWidgetSwitcher::placesOnePart_data()
{
    QTest::addColumn<int>("item");
    QTest::newRow("left picture") << 1;
    QTest::newRow("right picture") << 2;
    QTest::newRow("middle picture") << 3;
    QTest::newRow("name") << 4;
}

void TestWidgetSwitcher::placesOnePart()
{
    QFETCH(int, item);
    WidgetSwitcher switcher(nullptr, nullptr);
    switcher.setBgGeometry(0, 0, 220, 176);
    const Parts parts(switcher);
    const QList<QWidget *> widgets = {&switcher, parts.left, parts.right, parts.centre, parts.name};
    QList<QRect> expected;
    for (const QWidget *widget : widgets)
        expected << widget->geometry();
    expected[item] = QRect(3, 4, 55, 66);
    switcher.setItemGeometry(item, 3, 4, 55, 66);
    for (int i = 0; i < widgets.size(); ++i)
        QCOMPARE(widgets.at(i)->geometry(), expected.at(i));
    // The dots are still automatic.
    switcher.setBgGeometry(0, 0, 100, 176);
    QCOMPARE(parts.pageOn->x(), 22);
}

void TestWidgetSwitcher::labelsStayInTheirLayout()
{
    WidgetSwitcher switcher(nullptr, nullptr);
    switcher.setBgGeometry(0, 0, 220, 176);
    switcher.show();
    const Parts parts(switcher);
    const QRect own = parts.centre->geometry();
    switcher.setItemGeometry(3, 3, 4, 55, 66);
    QCOMPARE(parts.centre->geometry(), QRect(3, 4, 55, 66));
    switcher.setBgGeometry(0, 0, 220, 177);
    switcher.setBgGeometry(0, 0, 220, 176);
    QCOMPARE(parts.centre->geometry(), own);
}

void TestWidgetSwitcher::itemFivePlacesTheUnlitDotsAndStoresThePlaceForTheLitOne()
{
    WidgetSwitcher switcher(nullptr, nullptr);
    switcher.setBgGeometry(0, 0, 220, 176);
    switcher.setItemGeometry(5, 30, 4, 8, 7);
    const Parts parts(switcher);
    for (int i = 0; i < 6; ++i)
        QCOMPARE(parts.pagesOff.at(i)->geometry(), QRect(30 + 10 * i, 4, 8, 7));
    QCOMPARE(parts.pageOn->geometry(), QRect(82, 0, 6, 6));
    switcher.selectItem(2);
    QCOMPARE(parts.pageOn->geometry(), QRect(30 + 2 * 12, 4, 8, 7));
}

void TestWidgetSwitcher::itemSixPlacesTheLitDotAndStoresThePlaceButLeavesTheUnlitOnes()
{
    WidgetSwitcher switcher(nullptr, nullptr);
    switcher.setBgGeometry(0, 0, 220, 176);
    switcher.selectItem(2);
    switcher.setItemGeometry(6, 30, 4, 8, 7);
    const Parts parts(switcher);
    QCOMPARE(parts.pageOn->geometry(), QRect(30, 4, 8, 7));
    for (int i = 0; i < 6; ++i)
        QCOMPARE(parts.pagesOff.at(i)->geometry(), QRect(82 + 10 * i, 0, 6, 6));
    switcher.selectItem(2);
    QCOMPARE(parts.pageOn->geometry(), QRect(30 + 2 * 12, 4, 8, 7));
}

void TestWidgetSwitcher::placesAndSizesOfTheDotsEndWhereTheToolkitCanStillAddThem()
{
    const int last = INT_MAX - QWIDGETSIZE_MAX;
    WidgetSwitcher switcher(nullptr, nullptr);
    switcher.setItemGeometry(5, INT_MAX, INT_MIN, INT_MAX, -1);
    const Parts parts(switcher);
    for (int i = 0; i < 6; ++i)
        QCOMPARE(parts.pagesOff.at(i)->geometry(), QRect(last, -last, QWIDGETSIZE_MAX, 0));
    switcher.selectItem(5);
    QCOMPARE(parts.pageOn->geometry(), QRect(last, -last, QWIDGETSIZE_MAX, 0));
    switcher.setItemGeometry(5, 30, 4, 8, 7);
    switcher.selectItem(5);
    QCOMPARE(parts.pageOn->geometry(), QRect(30 + 5 * 12, 4, 8, 7));
}

void TestWidgetSwitcher::dotsPlacedByHandNoLongerFollowTheSwitcher_data()
{
    QTest::addColumn<int>("item");
    QTest::newRow("unlit dots") << 5;
    QTest::newRow("lit dot") << 6;
}

void TestWidgetSwitcher::dotsPlacedByHandNoLongerFollowTheSwitcher()
{
    QFETCH(int, item);
    WidgetSwitcher switcher(nullptr, nullptr);
    switcher.setBgGeometry(0, 0, 220, 176);
    switcher.setItemGeometry(item, 30, 4, 8, 7);
    const Parts parts(switcher);
    const QRect lit = parts.pageOn->geometry();
    const QRect unlit = parts.pagesOff.at(3)->geometry();
    switcher.setBgGeometry(0, 0, 100, 80);
    switcher.setAutoPageGeometry();
    QCOMPARE(parts.pageOn->geometry(), lit);
    QCOMPARE(parts.pagesOff.at(3)->geometry(), unlit);
}

void TestWidgetSwitcher::initDisplayGoesBackToTheBeginning()
{
    QWidget parent;
    WidgetSwitcher *switcher = new WidgetSwitcher(&parent, nullptr);
    switcher->setBgGeometry(5, 6, 220, 176);
    switcher->setItemStyle(0, "color: red", QString(), 0);
    switcher->setItemGeometry(5, 30, 4, 8, 7);
    switcher->initDisplay();
    QCOMPARE(switcher->geometry(), QRect(0, 0, 220, 176));
    QCOMPARE(switcher->styleSheet(), s_ground);
    QCOMPARE(Parts(*switcher).pageOn->geometry(), QRect(82, 0, 6, 6));
    QCOMPARE(Parts(*switcher).pagesOff.at(5)->geometry(), QRect(132, 0, 6, 6));
    switcher->setBgGeometry(0, 0, 100, 176);
    QCOMPARE(Parts(*switcher).pageOn->geometry(), QRect(22, 0, 6, 6));
}

void TestWidgetSwitcher::unknownItemsAreIgnoredSilently_data()
{
    QTest::addColumn<int>("item");
    for (int item : {7, -1, INT_MAX, INT_MIN})
        QTest::addRow("item %d", item) << item;
}

void TestWidgetSwitcher::unknownItemsAreIgnoredSilently()
{
    QFETCH(int, item);
    WidgetSwitcher switcher(nullptr, nullptr);
    switcher.setBgGeometry(0, 0, 220, 176);
    fill(switcher);
    switcher.setItemStyle(item, "color: red", "color: red", 0);
    switcher.setItemStyle(item, "color: red", "color: red", 77);
    switcher.setItemGeometry(item, 1, 2, 3, 4);
    switcher.selectItem(0);
    QCOMPARE(shownEntry(switcher), 0);
    QCOMPARE(switcher.size(), QSize(220, 176));
    QCOMPARE(switcher.styleSheet(), s_ground);
    QCOMPARE(Parts(switcher).pageOn->geometry(), QRect(82, 0, 6, 6));
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetSwitcher::indexOutsideIsRejected_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("past the last") << 6;
    QTest::newRow("negative") << -1;
    QTest::newRow("greatest") << INT_MAX;
    QTest::newRow("smallest") << INT_MIN;
}

void TestWidgetSwitcher::indexOutsideIsRejected()
{
    QFETCH(int, index);
    WidgetSwitcher switcher(nullptr, nullptr);
    fill(switcher);
    switcher.selectItem(2);
    QStringList expected;
    for (int item = 1; item <= 4; ++item) {
        switcher.setItemStyle(item, "color: red", "color: red", index);
        expected << invalidIndex("setItemStyle", index);
    }
    switcher.selectItem(index);
    expected << invalidIndex("selectItem", index);
    switcher.makeSelectable(index, false);
    expected << invalidIndex("makeSelectable", index);
    QCOMPARE(RecordingPlatform::events(), expected);
    QCOMPARE(shownEntry(switcher), 2);

    QSignalSpy reports(&switcher, &WidgetSwitcher::sendMainItem);
    for (int entry = 0; entry < 6; ++entry) {
        switcher.selectItem(entry);
        QCOMPARE(shownEntry(switcher), entry);
        releaseKey(&switcher, Qt::Key_Menu);
        QCOMPARE(reports.count(), entry + 1);
    }
}

void TestWidgetSwitcher::indexDoesNotMatterToTheOtherItems_data()
{
    indexOutsideIsRejected_data();
}

void TestWidgetSwitcher::indexDoesNotMatterToTheOtherItems()
{
    QFETCH(int, index);
    WidgetSwitcher switcher(nullptr, nullptr);
    switcher.setItemStyle(0, "color: red", QString(), index);
    switcher.setItemStyle(5, "color: lime", QString(), index);
    switcher.setItemStyle(6, "color: blue", QString(), index);
    switcher.selectItem(0);
    QCOMPARE(switcher.styleSheet(), QString("color: red"));
    QCOMPARE(Parts(switcher).pagesOff.at(5)->styleSheet(), QString("color: lime"));
    QCOMPARE(Parts(switcher).pageOn->styleSheet(), QString("color: blue"));
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetSwitcher::keysTurnAroundTheEnds_data()
{
    QTest::addColumn<bool>("functionKeys");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::newRow("4 from the third") << false << int(Qt::Key_4) << 2 << 1;
    QTest::newRow("4 from the first") << false << int(Qt::Key_4) << 0 << 5;
    QTest::newRow("6 from the third") << false << int(Qt::Key_6) << 2 << 3;
    QTest::newRow("6 from the last") << false << int(Qt::Key_6) << 5 << 0;
    QTest::newRow("F3 from the third") << true << int(Qt::Key_F3) << 2 << 1;
    QTest::newRow("F3 from the first") << true << int(Qt::Key_F3) << 0 << 5;
    QTest::newRow("F4 from the third") << true << int(Qt::Key_F4) << 2 << 3;
    QTest::newRow("F4 from the last") << true << int(Qt::Key_F4) << 5 << 0;
}

void TestWidgetSwitcher::keysTurnAroundTheEnds()
{
    QFETCH(bool, functionKeys);
    QFETCH(int, key);
    QFETCH(int, from);
    WidgetSwitcher switcher(nullptr, SoundManager::getInstance());
    switcher.m_useFunctionKeys = functionKeys;
    fill(switcher);
    switcher.selectItem(from);
    QVERIFY(releaseKey(&switcher, key));
    QTEST(shownEntry(switcher), "to");
    QCOMPARE(RecordingPlatform::events(), QStringList() << "sound:901");
}

void TestWidgetSwitcher::turnsBeforeItClicks()
{
    class DressingNote : public QObject
    {
    protected:
        bool eventFilter(QObject *, QEvent *event) override
        {
            if (event->type() == QEvent::StyleChange)
                RecordingPlatform::addEvent("dressed");
            return false;
        }
    } note;
    WidgetSwitcher switcher(nullptr, SoundManager::getInstance());
    fill(switcher);
    switcher.show();
    Parts(switcher).centre->installEventFilter(&note);
    releaseKey(&switcher, Qt::Key_6);
    releaseKey(&switcher, Qt::Key_4);
    QCOMPARE(RecordingPlatform::events(), QStringList() << "dressed" << "sound:901" << "dressed" << "sound:901");
}

void TestWidgetSwitcher::turningEmitsNothingAndVisitsEntriesThatAreNotSelectable()
{
    WidgetSwitcher switcher(nullptr, nullptr);
    fill(switcher);
    QSignalSpy reports(&switcher, &WidgetSwitcher::sendMainItem);
    switcher.makeSelectable(1, false);
    switcher.makeSelectable(5, false);
    releaseKey(&switcher, Qt::Key_6);
    QCOMPARE(shownEntry(switcher), 1);
    releaseKey(&switcher, Qt::Key_4);
    releaseKey(&switcher, Qt::Key_4);
    QCOMPARE(shownEntry(switcher), 5);
    QCOMPARE(reports.count(), 0);
}

void TestWidgetSwitcher::okClicksThenReports()
{
    WidgetSwitcher switcher(nullptr, SoundManager::getInstance());
    connect(&switcher, &WidgetSwitcher::sendMainItem,
            [](int index) { RecordingPlatform::addEvent(QStringLiteral("sendMainItem:%1").arg(index)); });
    QVERIFY(releaseKey(&switcher, Qt::Key_Menu));
    switcher.selectItem(4);
    QVERIFY(releaseKey(&switcher, Qt::Key_Menu));
    QCOMPARE(RecordingPlatform::events(),
             QStringList() << "sound:901" << "sendMainItem:0" << "sound:901" << "sendMainItem:4");
}

void TestWidgetSwitcher::okOnAnEntryThatIsNotSelectableOnlyClicks()
{
    WidgetSwitcher switcher(nullptr, SoundManager::getInstance());
    QSignalSpy reports(&switcher, &WidgetSwitcher::sendMainItem);
    switcher.makeSelectable(2, false);
    switcher.selectItem(2);
    QVERIFY(releaseKey(&switcher, Qt::Key_Menu));
    QCOMPARE(RecordingPlatform::events(), QStringList() << "sound:901");
    QCOMPARE(reports.count(), 0);
    switcher.makeSelectable(2, true);
    releaseKey(&switcher, Qt::Key_Menu);
    QCOMPARE(reports.count(), 1);
}

void TestWidgetSwitcher::switcherMayBeDeletedWhenItReports()
{
    QPointer<WidgetSwitcher> switcher = new WidgetSwitcher(nullptr, SoundManager::getInstance());
    connect(switcher, &WidgetSwitcher::sendMainItem, [switcher] { delete switcher.data(); });
    QKeyEvent release(QEvent::KeyRelease, Qt::Key_Menu, Qt::NoModifier);
    QCoreApplication::sendEvent(switcher, &release);
    QVERIFY(!switcher);
    QCOMPARE(RecordingPlatform::sounds(), QList<int>() << 901);
}

void TestWidgetSwitcher::keysActWhenReleasedOnly()
{
    KeyRecorder screen;
    WidgetSwitcher *switcher = new WidgetSwitcher(&screen, SoundManager::getInstance());
    fill(*switcher);
    switcher->selectItem(0);
    for (int key : {int(Qt::Key_4), int(Qt::Key_6), int(Qt::Key_Menu)})
        pressKey(switcher, key);
    QCOMPARE(shownEntry(*switcher), 0);
    QCOMPARE(RecordingPlatform::events(), QStringList());
    QCOMPARE(screen.takeKeys(), QStringList() << "press 4" << "press 6" << "press Menu");
    releaseKey(switcher, Qt::Key_4);
    QCOMPARE(screen.takeKeys(), QStringList());
}

void TestWidgetSwitcher::otherKeysAreHandedOn_data()
{
    QTest::addColumn<bool>("functionKeys");
    QTest::addColumn<int>("key");
    QTest::newRow("2") << false << int(Qt::Key_2);
    QTest::newRow("8") << false << int(Qt::Key_8);
    QTest::newRow("5") << false << int(Qt::Key_5);
    QTest::newRow("F3 among digits") << false << int(Qt::Key_F3);
    QTest::newRow("4 among function keys") << true << int(Qt::Key_4);
    QTest::newRow("F1") << true << int(Qt::Key_F1);
    QTest::newRow("escape") << false << int(Qt::Key_Escape);
    QTest::newRow("return") << false << int(Qt::Key_Return);
}

void TestWidgetSwitcher::otherKeysAreHandedOn()
{
    QFETCH(bool, functionKeys);
    QFETCH(int, key);
    KeyRecorder screen;
    WidgetSwitcher *switcher = new WidgetSwitcher(&screen, SoundManager::getInstance());
    switcher->m_useFunctionKeys = functionKeys;
    fill(*switcher);
    switcher->selectItem(0);
    releaseKey(switcher, key);
    QCOMPARE(screen.takeKeys().size(), 1);
    QCOMPARE(shownEntry(*switcher), 0);
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetSwitcher::worksWithoutASoundManager()
{
    WidgetSwitcher switcher(nullptr, nullptr);
    QSignalSpy reports(&switcher, &WidgetSwitcher::sendMainItem);
    releaseKey(&switcher, Qt::Key_6);
    releaseKey(&switcher, Qt::Key_Menu);
    QCOMPARE(RecordingPlatform::sounds(), QList<int>());
    QCOMPARE(reports.count(), 1);
    QCOMPARE(reports.first().first().toInt(), 1);
}

void TestWidgetSwitcher::whatIsSetAlreadyCostsNothing()
{
    QWidget parent;
    WidgetSwitcher *switcher = new WidgetSwitcher(&parent, nullptr);
    const auto configure = [switcher] {
        fill(*switcher);
        switcher->setItemStyle(0, "background-color: #202020", QString(), 0);
        switcher->setBgGeometry(0, 0, 220, 176);
        switcher->setFontStyle(4, 12, true, "color: white");
        switcher->makeSelectable(0, true);
        switcher->selectItem(0);
    };
    configure();
    QVERIFY(showAndPaint(parent));
    QCOMPARE(workOf(parent, configure), QStringList());
}

void TestWidgetSwitcher::stepTouchesOnlyWhatItChanges()
{
    WidgetSwitcher switcher(nullptr, nullptr);
    fill(switcher);
    switcher.setBgGeometry(0, 0, 220, 176);
    QVERIFY(showAndPaint(switcher));
    switcher.selectItem(2);
    runEventLoop();

    const Parts parts(switcher);
    const EventRecorder recorder(&switcher);
    releaseKey(&switcher, Qt::Key_6);
    runEventLoop();
    QCOMPARE(recorder.count(QEvent::StyleChange), 3);
    QCOMPARE(recorder.receivers(QEvent::StyleChange), QList<QObject *>() << parts.centre << parts.left << parts.right);
    QCOMPARE(recorder.receivers(QEvent::ShowToParent), QList<QObject *>() << parts.pagesOff.at(2));
    QCOMPARE(recorder.receivers(QEvent::HideToParent), QList<QObject *>() << parts.pagesOff.at(3));
    QCOMPARE(recorder.receivers(QEvent::Move), QList<QObject *>() << parts.pageOn);
    QCOMPARE(recorder.count(QEvent::Resize), 0);
}

void TestWidgetSwitcher::stepBetweenEqualNeighboursDressesNothing()
{
    WidgetSwitcher switcher(nullptr, nullptr);
    for (int index = 0; index < 6; ++index) {
        switcher.setItemStyle(1, "color: white", QString(), index);
        switcher.setItemStyle(3, "color: lime", QString(), index);
    }
    QVERIFY(showAndPaint(switcher));
    const EventRecorder recorder(&switcher);
    releaseKey(&switcher, Qt::Key_6);
    QCOMPARE(recorder.count(QEvent::StyleChange), 0);
}

QTEST_MAIN(TestWidgetSwitcher)
#include "tst_widgetswitcher.moc"

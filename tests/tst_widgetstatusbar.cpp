#include "displaywork.h"
#include "recordingplatform.h"
#include "widgetstatusbar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QSlider>
#include <QStyle>
#include <QtTest>

#include <climits>

class TestWidgetStatusBar : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void hasFourSlotsInOrderAndNothingElse();
    void isBuiltTransparentAndWithoutMargins();
    void makesFourIconsFromLeftToRight();
    void logsAndPlaysNothingWhenBuilt();

    void firstShowShowsEveryIconInStateZero();
    void setStatusUrlRedrawsNothing();
    void showItemDressesItsIconAtOnce_data();
    void showItemDressesItsIconAtOnce();
    void sheetRegisteredLaterIsSeenAtTheNextShow();
    void everyShowDressesTheIconsForTheirStates();
    void emptySheetClearsWhatWasThere();

    void firstSlotLogsInAnotherFormThanTheOthers_data();
    void firstSlotLogsInAnotherFormThanTheOthers();
    void slotsCanBeConnectedByName();

    void sheetForAnItemOutsideIsIgnoredSilently_data();
    void sheetForAnItemOutsideIsIgnoredSilently();
    void sheetForAStatusOutsideIsIgnored_data();
    void sheetForAStatusOutsideIsIgnored();
    void statusOutsideLooksLikeOneWithoutASheet_data();
    void statusOutsideLooksLikeOneWithoutASheet();

    void placesTheBarAndItsMargins_data();
    void placesTheBarAndItsMargins();
    void pushesTheIconsToTheRightEnd();
    void marginMayBeNegative();
    void placesSizesAndMarginEndWhereTheToolkitCanStillAddThem();
    void whatIsSetAlreadyCostsNothing();
    void newStateTouchesOneIconOnly();
};

using Labels = QList<QLabel *>;

static Labels icons(const WidgetStatusBar &bar)
{
    return bar.findChildren<QLabel *>();
}

static QString sheet(int item, int status)
{
    return QStringLiteral("color: #00c%1d%2").arg(item).arg(status);
}

static void registerAll(WidgetStatusBar &bar)
{
    for (int item = 0; item < 4; ++item) {
        for (int status = 0; status < 3; ++status)
            bar.setStatusUrl(item, status, sheet(item, status));
    }
}

static QStringList sheets(const WidgetStatusBar &bar)
{
    QStringList result;
    for (const QLabel *icon : icons(bar))
        result << icon->styleSheet();
    return result;
}

static void showItem(WidgetStatusBar &bar, int item, int status)
{
    switch (item) {
    case 0: bar.showItem0(status); break;
    case 1: bar.showItem1(status); break;
    case 2: bar.showItem2(status); break;
    case 3: bar.showItem3(status); break;
    }
}

void TestWidgetStatusBar::init()
{
    RecordingPlatform::reset();
}

void TestWidgetStatusBar::hasFourSlotsInOrderAndNothingElse()
{
    const QMetaObject &meta = WidgetStatusBar::staticMetaObject;
    QCOMPARE(meta.className(), "WidgetStatusBar");
    QCOMPARE(meta.superClass(), &Widget::staticMetaObject);
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 4);
    for (int i = 0; i < 4; ++i) {
        const QMetaMethod method = meta.method(meta.methodOffset() + i);
        QCOMPARE(method.methodSignature(), "showItem" + QByteArray::number(i) + "(int)");
        QCOMPARE(method.parameterNames(), QList<QByteArray>() << "status");
        QCOMPARE(method.methodType(), QMetaMethod::Slot);
        QCOMPARE(method.access(), QMetaMethod::Public);
    }
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
    QCOMPARE(meta.enumeratorCount(), meta.enumeratorOffset());
}

void TestWidgetStatusBar::isBuiltTransparentAndWithoutMargins()
{
    QWidget parent;
    WidgetStatusBar *bar = new WidgetStatusBar(&parent, nullptr);
    QCOMPARE(bar->parentWidget(), &parent);
    QCOMPARE(bar->styleSheet(), QString("background: transparent;"));
    QHBoxLayout *layout = qobject_cast<QHBoxLayout *>(bar->layout());
    QVERIFY(layout);
    QCOMPARE(layout->spacing(), 0);
    QCOMPARE(layout->sizeConstraint(), QLayout::SetDefaultConstraint);
    QCOMPARE(layout->contentsMargins(), QMargins(0, 0, 0, 0));
}

void TestWidgetStatusBar::makesFourIconsFromLeftToRight()
{
    WidgetStatusBar bar(nullptr, nullptr);
    const Labels labels = icons(bar);
    QCOMPARE(bar.findChildren<QWidget *>().size(), 4);
    QCOMPARE(labels.size(), 4);
    QHBoxLayout *layout = qobject_cast<QHBoxLayout *>(bar.layout());
    QCOMPARE(layout->count(), 4);
    for (int i = 0; i < 4; ++i) {
        QCOMPARE(layout->itemAt(i)->widget(), labels.at(i));
        QCOMPARE(layout->itemAt(i)->alignment(), Qt::Alignment());
        QCOMPARE(layout->stretch(i), 0);
    }
}

void TestWidgetStatusBar::logsAndPlaysNothingWhenBuilt()
{
    WidgetStatusBar bar(nullptr, nullptr);
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetStatusBar::firstShowShowsEveryIconInStateZero()
{
    WidgetStatusBar bar(nullptr, nullptr);
    registerAll(bar);
    bar.show();
    QCOMPARE(sheets(bar), QStringList() << sheet(0, 0) << sheet(1, 0) << sheet(2, 0) << sheet(3, 0));
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetStatusBar::setStatusUrlRedrawsNothing()
{
    WidgetStatusBar bar(nullptr, nullptr);
    bar.show();
    registerAll(bar);
    QCOMPARE(sheets(bar), QStringList() << "" << "" << "" << "");
}

void TestWidgetStatusBar::showItemDressesItsIconAtOnce_data()
{
    QTest::addColumn<int>("item");
    QTest::addColumn<int>("status");
    for (int item = 0; item < 4; ++item) {
        for (int status = 0; status < 3; ++status)
            QTest::addRow("icon %d in state %d", item, status) << item << status;
    }
}

void TestWidgetStatusBar::showItemDressesItsIconAtOnce()
{
    QFETCH(int, item);
    QFETCH(int, status);
    WidgetStatusBar bar(nullptr, nullptr);
    registerAll(bar);
    QStringList expected = sheets(bar);
    expected[item] = sheet(item, status);
    showItem(bar, item, status);
    QCOMPARE(sheets(bar), expected);
}

void TestWidgetStatusBar::sheetRegisteredLaterIsSeenAtTheNextShow()
{
    WidgetStatusBar bar(nullptr, nullptr);
    registerAll(bar);
    bar.show();
    bar.showItem1(2);
    bar.setStatusUrl(1, 2, "color: white");
    QCOMPARE(icons(bar).at(1)->styleSheet(), sheet(1, 2));
    bar.hide();
    bar.show();
    QCOMPARE(icons(bar).at(1)->styleSheet(), QString("color: white"));
}

void TestWidgetStatusBar::everyShowDressesTheIconsForTheirStates()
{
    WidgetStatusBar bar(nullptr, nullptr);
    registerAll(bar);
    for (int item = 0; item < 4; ++item)
        showItem(bar, item, (item + 1) % 3);
    for (QLabel *icon : icons(bar))
        icon->setStyleSheet("color: blue");
    bar.show();
    QCOMPARE(sheets(bar), QStringList() << sheet(0, 1) << sheet(1, 2) << sheet(2, 0) << sheet(3, 1));
}

void TestWidgetStatusBar::emptySheetClearsWhatWasThere()
{
    WidgetStatusBar bar(nullptr, nullptr);
    bar.setStatusUrl(0, 0, "color: white");
    bar.show();
    QCOMPARE(icons(bar).at(0)->styleSheet(), QString("color: white"));
    bar.showItem0(1);
    QCOMPARE(icons(bar).at(0)->styleSheet(), QString());
}

void TestWidgetStatusBar::firstSlotLogsInAnotherFormThanTheOthers_data()
{
    QTest::addColumn<int>("item");
    QTest::addColumn<QString>("line");
    QTest::newRow("first") << 0 << "[showItem0, 71] status = 1";
    QTest::newRow("second") << 1 << "[ui/view/widget/widgetstatusbar.cpp : showItem1] status =1";
    QTest::newRow("third") << 2 << "[ui/view/widget/widgetstatusbar.cpp : showItem2] status =1";
    QTest::newRow("fourth") << 3 << "[ui/view/widget/widgetstatusbar.cpp : showItem3] status =1";
}

void TestWidgetStatusBar::firstSlotLogsInAnotherFormThanTheOthers()
{
    QFETCH(int, item);
    QFETCH(QString, line);
    WidgetStatusBar bar(nullptr, nullptr);
    showItem(bar, item, 1);
    QCOMPARE(RecordingPlatform::events(), QStringList() << "log:16:" + line);
}

void TestWidgetStatusBar::slotsCanBeConnectedByName()
{
    WidgetStatusBar bar(nullptr, nullptr);
    registerAll(bar);
    QSlider source;
    QVERIFY(connect(&source, SIGNAL(valueChanged(int)), &bar, SLOT(showItem3(int))));
    source.setValue(2);
    QCOMPARE(icons(bar).at(3)->styleSheet(), sheet(3, 2));
}

void TestWidgetStatusBar::sheetForAnItemOutsideIsIgnoredSilently_data()
{
    QTest::addColumn<int>("item");
    QTest::newRow("past the last") << 4;
    QTest::newRow("negative") << -1;
    QTest::newRow("greatest") << INT_MAX;
    QTest::newRow("smallest") << INT_MIN;
}

void TestWidgetStatusBar::sheetForAnItemOutsideIsIgnoredSilently()
{
    QFETCH(int, item);
    WidgetStatusBar bar(nullptr, nullptr);
    registerAll(bar);
    bar.setStatusUrl(item, 0, "color: white");
    bar.setStatusUrl(item, 9, "color: white");
    QCOMPARE(RecordingPlatform::events(), QStringList());
    bar.show();
    QCOMPARE(sheets(bar), QStringList() << sheet(0, 0) << sheet(1, 0) << sheet(2, 0) << sheet(3, 0));
}

void TestWidgetStatusBar::sheetForAStatusOutsideIsIgnored_data()
{
    QTest::addColumn<int>("status");
    QTest::newRow("past the last") << 3;
    QTest::newRow("negative") << -1;
    QTest::newRow("greatest") << INT_MAX;
    QTest::newRow("smallest") << INT_MIN;
}

void TestWidgetStatusBar::sheetForAStatusOutsideIsIgnored()
{
    QFETCH(int, status);
    WidgetStatusBar bar(nullptr, nullptr);
    registerAll(bar);
    bar.setStatusUrl(1, status, "color: white");
    QCOMPARE(RecordingPlatform::events(), QStringList());
    for (int item = 0; item < 4; ++item) {
        for (int known = 0; known < 3; ++known) {
            showItem(bar, item, known);
            QCOMPARE(icons(bar).at(item)->styleSheet(), sheet(item, known));
        }
    }
}

void TestWidgetStatusBar::statusOutsideLooksLikeOneWithoutASheet_data()
{
    sheetForAStatusOutsideIsIgnored_data();
}

void TestWidgetStatusBar::statusOutsideLooksLikeOneWithoutASheet()
{
    QFETCH(int, status);
    WidgetStatusBar bar(nullptr, nullptr);
    registerAll(bar);
    bar.show();
    bar.showItem1(status);
    QCOMPARE(icons(bar).at(1)->styleSheet(), QString());
    QCOMPARE(RecordingPlatform::logTexts(2), QStringList());
    bar.hide();
    bar.show();
    QCOMPARE(sheets(bar), QStringList() << sheet(0, 0) << "" << sheet(2, 0) << sheet(3, 0));
    bar.showItem1(1);
    QCOMPARE(icons(bar).at(1)->styleSheet(), sheet(1, 1));
}

void TestWidgetStatusBar::placesTheBarAndItsMargins_data()
{
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<int>("iconWidth");
    QTest::addColumn<int>("leftMargin");
    QTest::newRow("24 pixels of 200") << QRect(0, 0, 200, 20) << 24 << 94;
    QTest::newRow("moved") << QRect(7, 9, 220, 16) << 20 << 130;
    QTest::newRow("no margin left") << QRect(0, 0, 106, 20) << 24 << 0;
    QTest::newRow("icons of no width") << QRect(0, 0, 200, 20) << 0 << 190;
}

void TestWidgetStatusBar::placesTheBarAndItsMargins()
{
    QFETCH(QRect, rect);
    QFETCH(int, iconWidth);
    QFETCH(int, leftMargin);
    QWidget parent;
    WidgetStatusBar *bar = new WidgetStatusBar(&parent, nullptr);
    bar->setBgGeometry(rect.x(), rect.y(), rect.width(), rect.height(), iconWidth);
    QCOMPARE(bar->geometry(), rect);
    QCOMPARE(bar->layout()->contentsMargins(), QMargins(leftMargin, 0, 6, 0));
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetStatusBar::pushesTheIconsToTheRightEnd()
{
    QWidget parent;
    WidgetStatusBar *bar = new WidgetStatusBar(&parent, nullptr);
    bar->setBgGeometry(0, 0, 200, 20, 24);
    parent.show();
    const Labels labels = icons(*bar);
    for (int i = 0; i < 4; ++i)
        QCOMPARE(labels.at(i)->geometry(), QRect(94 + 25 * i, 0, 25, 20));
}

void TestWidgetStatusBar::marginMayBeNegative()
{
    WidgetStatusBar bar(nullptr, nullptr);
    bar.setBgGeometry(0, 0, 90, 20, 24);
    const int toolkitMargin = bar.style()->pixelMetric(QStyle::PM_LayoutLeftMargin, nullptr, &bar);
    QCOMPARE(bar.layout()->contentsMargins(), QMargins(toolkitMargin, 0, 6, 0));
    bar.setBgGeometry(0, 0, 200, 20, 24);
    QCOMPARE(bar.layout()->contentsMargins(), QMargins(94, 0, 6, 0));
}

void TestWidgetStatusBar::placesSizesAndMarginEndWhereTheToolkitCanStillAddThem()
{
    QWidget parent;
    WidgetStatusBar *bar = new WidgetStatusBar(&parent, nullptr);
    bar->setBgGeometry(INT_MIN, INT_MAX, INT_MAX, INT_MIN, INT_MIN);
    QCOMPARE(bar->geometry(), QRect(QWIDGETSIZE_MAX - INT_MAX, INT_MAX - QWIDGETSIZE_MAX, QWIDGETSIZE_MAX, 0));
    QCOMPARE(bar->layout()->contentsMargins(), QMargins(QWIDGETSIZE_MAX, 0, 6, 0));
    bar->setBgGeometry(0, 0, 200, 20, 24);
    QCOMPARE(bar->geometry(), QRect(0, 0, 200, 20));
    QCOMPARE(bar->layout()->contentsMargins(), QMargins(94, 0, 6, 0));
}

void TestWidgetStatusBar::whatIsSetAlreadyCostsNothing()
{
    QWidget parent;
    WidgetStatusBar *bar = new WidgetStatusBar(&parent, nullptr);
    registerAll(*bar);
    bar->setBgGeometry(0, 0, 200, 20, 24);
    QVERIFY(showAndPaint(parent));
    bar->showItem2(1);
    runEventLoop();
    QCOMPARE(workOf(parent, [bar] {
        bar->setStatusUrl(2, 1, sheet(2, 1));
        bar->setBgGeometry(0, 0, 200, 20, 24);
        bar->showItem0(0);
        bar->showItem1(0);
        bar->showItem2(1);
        bar->showItem3(0);
    }), QStringList());
}

void TestWidgetStatusBar::newStateTouchesOneIconOnly()
{
    QWidget parent;
    WidgetStatusBar *bar = new WidgetStatusBar(&parent, nullptr);
    registerAll(*bar);
    QVERIFY(showAndPaint(parent));
    const EventRecorder recorder(&parent);
    bar->showItem2(1);
    runEventLoop();
    QCOMPARE(recorder.receivers(QEvent::StyleChange), QList<QObject *>() << icons(*bar).at(2));
    QCOMPARE(recorder.count(QEvent::StyleChange), 1);
}

QTEST_MAIN(TestWidgetStatusBar)
#include "tst_widgetstatusbar.moc"

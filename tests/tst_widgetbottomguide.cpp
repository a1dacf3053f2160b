#include "displaywork.h"
#include "recordingplatform.h"
#include "widgetbottomguide.h"

#include <QLabel>
#include <QLocale>
#include <QtTest>

#include <climits>

class TestWidgetBottomGuide : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void hasNoSignalsSlotsOrPropertiesOfItsOwn();
    void makesTwoBoldLabelsThatFaceEachOther();
    void logsAndPlaysNothing();
    void isEmptyBeforeAnythingIsSet();
    void showsPlainNumbers_data();
    void showsPlainNumbers();
    void numbersAreNeverTheLocales();
    void nothingIsPlacedOrColouredBeforeTheFirstShow();
    void numbersMeetInTheMiddleWhenShown_data();
    void numbersMeetInTheMiddleWhenShown();
    void newSizeCountsFromTheNextShow();
    void coloursAreAppliedAtEveryShow();
    void whatIsSetAlreadyCostsNothing();
};

static QLabel *currentPage(const WidgetBottomGuide &guide)
{
    return guide.findChildren<QLabel *>().at(0);
}

static QLabel *totalPages(const WidgetBottomGuide &guide)
{
    return guide.findChildren<QLabel *>().at(1);
}

void TestWidgetBottomGuide::init()
{
    RecordingPlatform::reset();
}

void TestWidgetBottomGuide::hasNoSignalsSlotsOrPropertiesOfItsOwn()
{
    WidgetBottomGuide guide(nullptr, nullptr);
    const QMetaObject *meta = guide.metaObject();
    QCOMPARE(meta->className(), "WidgetBottomGuide");
    QCOMPARE(meta->methodCount(), meta->methodOffset());
    QCOMPARE(meta->propertyCount(), meta->propertyOffset());
}

void TestWidgetBottomGuide::makesTwoBoldLabelsThatFaceEachOther()
{
    QWidget parent;
    WidgetBottomGuide *guide = new WidgetBottomGuide(&parent, nullptr);
    QCOMPARE(guide->parentWidget(), &parent);
    QCOMPARE(guide->styleSheet(), QString("background: transparent"));
    QCOMPARE(guide->findChildren<QWidget *>().size(), 2);
    QCOMPARE(currentPage(*guide)->alignment(), Qt::AlignRight | Qt::AlignVCenter);
    QCOMPARE(totalPages(*guide)->alignment(), Qt::AlignLeft | Qt::AlignVCenter);
    for (const QLabel *label : {currentPage(*guide), totalPages(*guide)}) {
        QCOMPARE(label->font().pointSize(), 14);
        QCOMPARE(int(label->font().weight()), int(QFont::Bold));
        QCOMPARE(label->font().family(), QFont().family());
    }
}

void TestWidgetBottomGuide::logsAndPlaysNothing()
{
    WidgetBottomGuide guide(nullptr, nullptr);
    guide.setCurPageNo(1);
    guide.setTotPageNo(2);
    guide.show();
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetBottomGuide::isEmptyBeforeAnythingIsSet()
{
    WidgetBottomGuide guide(nullptr, nullptr);
    guide.show();
    QCOMPARE(currentPage(guide)->text(), QString());
    QCOMPARE(totalPages(guide)->text(), QString());
}

void TestWidgetBottomGuide::showsPlainNumbers_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("current");
    QTest::addColumn<QString>("total");
    QTest::newRow("3") << 3 << "3" << "/3";
    QTest::newRow("0") << 0 << "0" << "/0";
    QTest::newRow("-1") << -1 << "-1" << "/-1";
    QTest::newRow("1000") << 1000 << "1000" << "/1000";
    QTest::newRow("greatest") << INT_MAX << "2147483647" << "/2147483647";
    QTest::newRow("smallest") << INT_MIN << "-2147483648" << "/-2147483648";
}

void TestWidgetBottomGuide::showsPlainNumbers()
{
    QFETCH(int, number);
    WidgetBottomGuide guide(nullptr, nullptr);
    guide.setCurPageNo(number);
    QTEST(currentPage(guide)->text(), "current");
    QCOMPARE(totalPages(guide)->text(), QString());
    guide.setTotPageNo(number);
    QTEST(totalPages(guide)->text(), "total");
    QTEST(currentPage(guide)->text(), "current");
}

void TestWidgetBottomGuide::numbersAreNeverTheLocales()
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::Arabic, QLocale::Egypt));
    WidgetBottomGuide guide(nullptr, nullptr);
    guide.setCurPageNo(12345);
    guide.setTotPageNo(-67890);
    QLocale::setDefault(before);
    QCOMPARE(currentPage(guide)->text(), QString("12345"));
    QCOMPARE(totalPages(guide)->text(), QString("/-67890"));
}

void TestWidgetBottomGuide::nothingIsPlacedOrColouredBeforeTheFirstShow()
{
    QWidget parent;
    WidgetBottomGuide *guide = new WidgetBottomGuide(&parent, nullptr);
    const QWidget plain(&parent);
    guide->setGeometry(0, 0, 200, 30);
    for (const QLabel *label : {currentPage(*guide), totalPages(*guide)}) {
        QCOMPARE(label->geometry(), plain.geometry());
        QCOMPARE(label->styleSheet(), QString());
    }
}

void TestWidgetBottomGuide::numbersMeetInTheMiddleWhenShown_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QRect>("current");
    QTest::addColumn<QRect>("total");
    QTest::newRow("200 by 30") << QSize(200, 30) << QRect(80, 0, 20, 30) << QRect(100, 0, 20, 30);
    QTest::newRow("the whole width") << QSize(220, 22) << QRect(88, 0, 22, 22) << QRect(110, 0, 22, 22);
    QTest::newRow("multiplied before divided") << QSize(219, 30) << QRect(87, 0, 21, 30) << QRect(109, 0, 21, 30);
    QTest::newRow("narrow") << QSize(9, 30) << QRect(3, 0, 0, 30) << QRect(4, 0, 0, 30);
    QTest::newRow("nothing") << QSize(0, 0) << QRect(0, 0, 0, 0) << QRect(0, 0, 0, 0);
}

void TestWidgetBottomGuide::numbersMeetInTheMiddleWhenShown()
{
    QFETCH(QSize, size);
    QWidget parent;
    WidgetBottomGuide *guide = new WidgetBottomGuide(&parent, nullptr);
    guide->setGeometry(QRect(QPoint(5, 6), size));
    parent.show();
    QTEST(currentPage(*guide)->geometry(), "current");
    QTEST(totalPages(*guide)->geometry(), "total");
    QCOMPARE(currentPage(*guide)->styleSheet(), QString("color: #ffffff"));
    QCOMPARE(totalPages(*guide)->styleSheet(), QString("color: #8c8282"));
}

void TestWidgetBottomGuide::newSizeCountsFromTheNextShow()
{
    QWidget parent;
    WidgetBottomGuide *guide = new WidgetBottomGuide(&parent, nullptr);
    guide->resize(200, 30);
    parent.show();
    guide->resize(100, 20);
    QCOMPARE(currentPage(*guide)->geometry(), QRect(80, 0, 20, 30));
    guide->hide();
    guide->show();
    QCOMPARE(currentPage(*guide)->geometry(), QRect(40, 0, 10, 20));
    QCOMPARE(totalPages(*guide)->geometry(), QRect(50, 0, 10, 20));
}

void TestWidgetBottomGuide::coloursAreAppliedAtEveryShow()
{
    WidgetBottomGuide guide(nullptr, nullptr);
    guide.show();
    currentPage(guide)->setStyleSheet("color: red");
    totalPages(guide)->setStyleSheet(QString());
    guide.hide();
    guide.show();
    QCOMPARE(currentPage(guide)->styleSheet(), QString("color: #ffffff"));
    QCOMPARE(totalPages(guide)->styleSheet(), QString("color: #8c8282"));
}

void TestWidgetBottomGuide::whatIsSetAlreadyCostsNothing()
{
    QWidget parent;
    WidgetBottomGuide *guide = new WidgetBottomGuide(&parent, nullptr);
    guide->resize(200, 30);
    guide->setCurPageNo(3);
    guide->setTotPageNo(10);
    QVERIFY(showAndPaint(parent));
    QCOMPARE(workOf(parent, [guide] {
        guide->setCurPageNo(3);
        guide->setTotPageNo(10);
    }), QStringList());

    const EventRecorder recorder(guide);
    guide->hide();
    guide->show();
    QCOMPARE(recorder.count(QEvent::StyleChange), 0);
    QCOMPARE(recorder.count(QEvent::Move), 0);
    QCOMPARE(recorder.count(QEvent::Resize), 0);
}

QTEST_MAIN(TestWidgetBottomGuide)
#include "tst_widgetbottomguide.moc"

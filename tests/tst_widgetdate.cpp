#include "allocationcount.h"
#include "eventrecording.h"
#include "recordingplatform.h"
#include "threadruns.h"
#include "waiting.h"
#include "widgetdate.h"

#include <QLabel>
#include <QSignalSpy>
#include <QtTest>

#include <atomic>
#include <chrono>
#include <memory>
#include <thread>

namespace {

const QStringList WeekDays {
    QStringLiteral("Sunday"), QStringLiteral("Monday"), QStringLiteral("Tuesday"), QStringLiteral("Wednesday"),
    QStringLiteral("Thursday"), QStringLiteral("Friday"), QStringLiteral("Saturday")
};

/// A date on a screen, with the names of the week days.
struct DateScreen
{
    QWidget screen;
    WidgetDate date;
    QLabel *const dateLabel;
    QLabel *const wdayLabel;

    DateScreen()
        : date(&screen, nullptr),
          dateLabel(date.findChildren<QLabel *>().value(0)),
          wdayLabel(date.findChildren<QLabel *>().value(1))
    {
        screen.resize(240, 60);
        date.setGeometry(20, 20, 200, 22);
        for (int wday = 0; wday < WeekDays.size(); ++wday)
            date.setWDayText(wday, WeekDays[wday]);
    }

    void bringUp()
    {
        screen.show();
        QVERIFY(QTest::qWaitForWindowExposed(&screen, LongestWait));
        runEventLoop();
    }

    /// Where the week day has to stand for its text and font.
    QRect wdayPlace() const
    {
        const int width = QFontMetrics(wdayLabel->font()).horizontalAdvance(wdayLabel->text());
        return QRect(180 - width, 0, width, 22);
    }
};

}

class TestWidgetDate : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void isMadeHiddenWithItsPartsDressed();
    void hasSignalSlotAndPropertyInOrder();
    void formatCanBeSetByName();
    void setFormatEmitsOnlyChangesAndRedrawsNothing();

    void showsTheDate_data();
    void showsTheDate();
    void anyFormatButMonthDayIsDayFirst();
    void weekDayEndsAt179_data();
    void weekDayEndsAt179();
    void weekDayWithoutANameHasNoWidth();
    void weekDayTextShowsWithTheNextDate();
    void fontsShowAtOnceAndThePlaceWithTheNextDate();
    void ignoresAWeekDayOutsideTheRange_data();
    void ignoresAWeekDayOutsideTheRange();
    void showsItselfWithADate();

    void theSameDateTouchesNothing();
    void theSameDatePutsReplacedTextsAndPlacesBack();
    void theSameDateFollowsAReplacedFont();
    void theSameDateMeasuresNoText();

    void keepsItselfCurrent();
    void drawsInTheGuiThread();
    void passesEvery300Milliseconds();
    void stopReturnsWhenTheThreadHasEnded();
    void stopRightAfterStartReturns();
    void stopOfAWidgetThatNeverRanDoesNotReturn();
    void startsAndStopsAThousandTimes();
    void mayBeDestroyedRightAfterStop();
    void deletedDateLeavesNoMemory();
};

void TestWidgetDate::init()
{
    RecordingPlatform::reset();
}

void TestWidgetDate::isMadeHiddenWithItsPartsDressed()
{
    QWidget parent;
    WidgetDate date(&parent, nullptr);
    QCOMPARE(date.parentWidget(), &parent);
    QVERIFY(date.isHidden());
    QCOMPARE(date.format(), WidgetDate::MonthDay);

    const QList<QLabel *> labels = date.findChildren<QLabel *>();
    QCOMPARE(labels.size(), 2);
    for (const QLabel *label : labels) {
        QCOMPARE(label->parentWidget(), &date);
        QCOMPARE(label->styleSheet(), QString("color: #FFFFFF"));
        QCOMPARE(label->text(), QString());
    }
    QCOMPARE(labels[0]->alignment(), Qt::AlignLeft | Qt::AlignVCenter);
    QCOMPARE(labels[1]->alignment(), Qt::AlignRight | Qt::AlignVCenter);
    QCOMPARE(labels[0]->geometry(), QRect(40, 0, 60, 22));
}

void TestWidgetDate::hasSignalSlotAndPropertyInOrder()
{
    const QMetaObject &meta = WidgetDate::staticMetaObject;
    QCOMPARE(meta.className(), "WidgetDate");
    QCOMPARE(meta.superClass(), &Widget::staticMetaObject);
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 2);
    const QMetaMethod formatChanged = meta.method(meta.methodOffset());
    const QMetaMethod updateDateMonth = meta.method(meta.methodOffset() + 1);
    QCOMPARE(formatChanged.methodSignature(), QByteArray("formatChanged(Format)"));
    QCOMPARE(formatChanged.methodType(), QMetaMethod::Signal);
    QCOMPARE(updateDateMonth.methodSignature(), QByteArray("updateDateMonth(int,int,int)"));
    QCOMPARE(updateDateMonth.methodType(), QMetaMethod::Slot);
    QCOMPARE(updateDateMonth.access(), QMetaMethod::Public);

    QCOMPARE(meta.propertyCount() - meta.propertyOffset(), 1);
    const QMetaProperty format = meta.property(meta.propertyOffset());
    QCOMPARE(format.name(), "format");
    QVERIFY(format.isEnumType());
    QVERIFY(format.isReadable());
    QVERIFY(format.isWritable());
    QVERIFY(format.isDesignable());
    QVERIFY(format.isScriptable());
    QVERIFY(format.isStored());
    QCOMPARE(format.notifySignal().methodSignature(), QByteArray("formatChanged(Format)"));
    QCOMPARE(format.enumerator().keyCount(), 2);
    QCOMPARE(format.enumerator().keyToValue("MonthDay"), 0);
    QCOMPARE(format.enumerator().keyToValue("DayMonth"), 1);
}

void TestWidgetDate::formatCanBeSetByName()
{
    WidgetDate date(nullptr, nullptr);
    QVERIFY(date.setProperty("format", QStringLiteral("DayMonth")));
    QCOMPARE(date.format(), WidgetDate::DayMonth);
    QCOMPARE(date.property("format").toInt(), 1);
}

void TestWidgetDate::setFormatEmitsOnlyChangesAndRedrawsNothing()
{
    DateScreen screen;
    screen.date.updateDateMonth(3, 7, 0);
    QList<int> formats;
    connect(&screen.date, &WidgetDate::formatChanged, this, [&](WidgetDate::Format format) { formats << format; });
    screen.date.setFormat(WidgetDate::MonthDay);
    QCOMPARE(formats, QList<int>());
    screen.date.setFormat(WidgetDate::DayMonth);
    screen.date.setFormat(WidgetDate::DayMonth);
    screen.date.setFormat(WidgetDate::MonthDay);
    QCOMPARE(formats, QList<int>() << 1 << 0);

    screen.date.setFormat(WidgetDate::DayMonth);
    QCOMPARE(screen.dateLabel->text(), QString("03/07"));
}

void TestWidgetDate::showsTheDate_data()
{
    QTest::addColumn<int>("month");
    QTest::addColumn<int>("day");
    QTest::addColumn<QString>("monthFirst");
    QTest::addColumn<QString>("dayFirst");
    QTest::newRow("one digit each") << 3 << 7 << "03/07" << "07/03";
    QTest::newRow("two digits each") << 12 << 31 << "12/31" << "31/12";
    QTest::newRow("before the tens") << 9 << 9 << "09/09" << "09/09";
    QTest::newRow("the tens") << 10 << 10 << "10/10" << "10/10";
    QTest::newRow("day 19") << 11 << 19 << "11/19" << "19/11";
    QTest::newRow("day 20") << 1 << 20 << "01/20" << "20/01";
    QTest::newRow("day 29") << 2 << 29 << "02/29" << "29/02";
    QTest::newRow("day 30") << 4 << 30 << "04/30" << "30/04";
    QTest::newRow("numbers that no date has") << 25 << 45 << "115/315" << "315/115";
    QTest::newRow("negative numbers") << -1 << -12 << "0-1/0-12" << "0-12/0-1";
}

void TestWidgetDate::showsTheDate()
{
    QFETCH(int, month);
    QFETCH(int, day);
    DateScreen screen;
    screen.date.updateDateMonth(month, day, 0);
    QTEST(screen.dateLabel->text(), "monthFirst");
    screen.date.setFormat(WidgetDate::DayMonth);
    screen.date.updateDateMonth(month, day, 0);
    QTEST(screen.dateLabel->text(), "dayFirst");
}

void TestWidgetDate::anyFormatButMonthDayIsDayFirst()
{
    DateScreen screen;
    for (int format : {2, 7, -1}) {
        screen.date.setFormat(WidgetDate::Format(format));
        screen.date.updateDateMonth(3, 7, 0);
        QCOMPARE(screen.dateLabel->text(), QString("07/03"));
    }
}

void TestWidgetDate::weekDayEndsAt179_data()
{
    QTest::addColumn<int>("wday");
    QTest::addColumn<QString>("name");
    for (int wday = 0; wday < WeekDays.size(); ++wday)
        QTest::newRow(qPrintable(WeekDays[wday])) << wday << WeekDays[wday];
    QTest::newRow("one letter") << 3 << "W";
    QTest::newRow("wider than the widget") << 3 << QString(60, 'W');
    QTest::newRow("Arabic") << 3 << QString::fromUtf8("الأربعاء");
}

void TestWidgetDate::weekDayEndsAt179()
{
    QFETCH(int, wday);
    QFETCH(QString, name);
    DateScreen screen;
    screen.date.setWDayText(wday, name);
    screen.bringUp();
    screen.date.updateDateMonth(3, 7, wday);
    QCOMPARE(screen.wdayLabel->text(), name);
    QVERIFY(screen.wdayLabel->width() > 0);
    QCOMPARE(screen.wdayLabel->geometry().right(), 179);
    QCOMPARE(screen.wdayLabel->geometry(), screen.wdayPlace());
}

void TestWidgetDate::weekDayWithoutANameHasNoWidth()
{
    WidgetDate date(nullptr, nullptr);
    date.updateDateMonth(3, 7, 6);
    const QLabel *wdayLabel = date.findChildren<QLabel *>().value(1);
    QCOMPARE(wdayLabel->text(), QString());
    QCOMPARE(wdayLabel->geometry(), QRect(180, 0, 0, 22));
}

void TestWidgetDate::weekDayTextShowsWithTheNextDate()
{
    DateScreen screen;
    screen.date.updateDateMonth(3, 7, 4);
    screen.date.setWDayText(4, QStringLiteral("Donnerstag"));
    QCOMPARE(screen.wdayLabel->text(), QString("Thursday"));
    screen.date.updateDateMonth(3, 7, 4);
    QCOMPARE(screen.wdayLabel->text(), QString("Donnerstag"));
    QCOMPARE(screen.wdayLabel->geometry(), screen.wdayPlace());
}

void TestWidgetDate::fontsShowAtOnceAndThePlaceWithTheNextDate()
{
    DateScreen screen;
    screen.date.updateDateMonth(3, 7, 4);
    const QRect place = screen.wdayLabel->geometry();
    QFont dateFont;
    dateFont.setPointSize(20);
    QFont wdayFont;
    wdayFont.setPointSize(30);
    screen.date.setDateFont(dateFont);
    screen.date.setWDayFont(wdayFont);
    QCOMPARE(screen.dateLabel->font().pointSize(), 20);
    QCOMPARE(screen.wdayLabel->font().pointSize(), 30);
    QCOMPARE(screen.wdayLabel->geometry(), place);

    screen.date.updateDateMonth(3, 7, 4);
    QVERIFY(screen.wdayLabel->width() > place.width());
    QCOMPARE(screen.wdayLabel->geometry(), screen.wdayPlace());
}

void TestWidgetDate::ignoresAWeekDayOutsideTheRange_data()
{
    QTest::addColumn<int>("wday");
    QTest::newRow("7") << 7;
    QTest::newRow("-1") << -1;
    QTest::newRow("the largest number") << INT_MAX;
    QTest::newRow("the smallest number") << INT_MIN;
}

void TestWidgetDate::ignoresAWeekDayOutsideTheRange()
{
    QFETCH(int, wday);
    DateScreen screen;
    screen.date.updateDateMonth(3, 7, 4);
    screen.date.setWDayText(wday, QStringLiteral("Someday"));
    screen.date.updateDateMonth(4, 8, wday);
    QCOMPARE(RecordingPlatform::logTexts(2), QStringList()
             << QStringLiteral("[ui/view/widget/widgetdate.cpp, setWDayText] Invalid index %1").arg(wday)
             << QStringLiteral("[ui/view/widget/widgetdate.cpp, updateDateMonth] Invalid index %1").arg(wday));
    QCOMPARE(screen.dateLabel->text(), QString("03/07"));
    QCOMPARE(screen.wdayLabel->text(), QString("Thursday"));
}

void TestWidgetDate::showsItselfWithADate()
{
    DateScreen screen;
    screen.bringUp();
    QVERIFY(!screen.date.isVisible());
    screen.date.updateDateMonth(3, 7, 4);
    QVERIFY(screen.date.isVisible());
    QVERIFY(screen.dateLabel->isVisible());
    QVERIFY(screen.wdayLabel->isVisible());
    screen.date.hide();
    screen.date.updateDateMonth(3, 7, 4);
    QVERIFY(screen.date.isVisible());
}

void TestWidgetDate::theSameDateTouchesNothing()
{
    DateScreen screen;
    screen.date.updateDateMonth(3, 7, 4);
    screen.bringUp();
    screen.date.updateDateMonth(3, 7, 4);
    runEventLoop();

    const EventRecorder recorder(&screen.screen);
    for (int i = 0; i < 3; ++i) {
        screen.date.updateDateMonth(3, 7, 4);
        runEventLoop();
    }
    QCOMPARE(recorder.types(), QStringList());
}

void TestWidgetDate::theSameDatePutsReplacedTextsAndPlacesBack()
{
    DateScreen screen;
    screen.bringUp();
    screen.date.updateDateMonth(3, 7, 4);
    const QRect place = screen.wdayLabel->geometry();
    screen.dateLabel->setText(QStringLiteral("today"));
    screen.wdayLabel->setText(QStringLiteral("someday"));
    screen.wdayLabel->setGeometry(1, 2, 3, 4);
    screen.date.updateDateMonth(3, 7, 4);
    QCOMPARE(screen.dateLabel->text(), QString("03/07"));
    QCOMPARE(screen.wdayLabel->text(), QString("Thursday"));
    QCOMPARE(screen.wdayLabel->geometry(), place);
}

void TestWidgetDate::theSameDateFollowsAReplacedFont()
{
    DateScreen screen;
    screen.bringUp();
    screen.date.updateDateMonth(3, 7, 4);
    const int width = screen.wdayLabel->width();
    QFont font = screen.wdayLabel->font();
    font.setPointSize(font.pointSize() + 10);
    screen.wdayLabel->setFont(font);
    screen.date.updateDateMonth(3, 7, 4);
    QVERIFY(screen.wdayLabel->width() > width);
    QCOMPARE(screen.wdayLabel->geometry(), screen.wdayPlace());

    screen.wdayLabel->setStyleSheet(QStringLiteral("font-size: 6pt"));
    screen.date.updateDateMonth(3, 7, 4);
    QVERIFY(screen.wdayLabel->width() < width);
    QCOMPARE(screen.wdayLabel->geometry(), screen.wdayPlace());
}

// Measuring a text takes memory for a while, all the more where letters are joined.
void TestWidgetDate::theSameDateMeasuresNoText()
{
#ifdef COUNTS_ALLOCATIONS
    const QString name = QString::fromUtf8("الخميس");
    const auto allocationsOfAPass = [](const QString &name) {
        DateScreen screen;
        screen.date.setWDayText(4, name);
        screen.date.updateDateMonth(3, 7, 4);
        screen.bringUp();
        screen.date.updateDateMonth(3, 7, 4);
        const long before = allocationCount();
        screen.date.updateDateMonth(3, 7, 4);
        return allocationCount() - before;
    };
    const long before = allocationCount();
    QFontMetrics(QFont()).horizontalAdvance(name);
    QVERIFY(allocationCount() > before);
    QCOMPARE(allocationsOfAPass(name), allocationsOfAPass(QString()));
#else
    QSKIP("Something else looks after the memory.");
#endif
}

void TestWidgetDate::keepsItselfCurrent()
{
    DateScreen screen;
    screen.bringUp();
    RecordingPlatform::setLocalTime(2024, 12, 31, 23, 59, 59);
    const Run<WidgetDate> run(screen.date);
    EVENTUALLY_COMPARE(screen.dateLabel->text(), QString("12/31"));
    QCOMPARE(screen.wdayLabel->text(), QString("Tuesday"));
    QVERIFY(screen.date.isVisible());
    RecordingPlatform::setLocalTime(2025, 1, 1, 0, 0, 0);
    EVENTUALLY_COMPARE(screen.dateLabel->text(), QString("01/01"));
    QCOMPARE(screen.wdayLabel->text(), QString("Wednesday"));
    RecordingPlatform::setLocalTime(2025, 1, 2, 0, 0, 0);
    screen.date.setFormat(WidgetDate::DayMonth);
    EVENTUALLY_COMPARE(screen.dateLabel->text(), QString("02/01"));
}

void TestWidgetDate::drawsInTheGuiThread()
{
    class ThreadOfEvents : public QObject
    {
    public:
        QList<QThread *> threads;

    protected:
        bool eventFilter(QObject *, QEvent *event) override
        {
            if (event->type() == QEvent::Show)
                threads << QThread::currentThread();
            return false;
        }
    };

    ThreadOfEvents recorder;
    DateScreen screen;
    screen.bringUp();
    screen.date.installEventFilter(&recorder);
    const Run<WidgetDate> run(screen.date);
    EVENTUALLY_COMPARE(recorder.threads, QList<QThread *>() << qApp->thread());
}

void TestWidgetDate::passesEvery300Milliseconds()
{
    WidgetDate date(nullptr, nullptr);
    holdThirdPass();
    date.start();
    EVENTUALLY(RecordingPlatform::delays().size() >= 3);
    QCOMPARE(RecordingPlatform::delays(), QList<unsigned long>() << 300 << 300 << 300);
    date.stop();
    QCOMPARE(RecordingPlatform::delays().value(3), 10ul);
}

void TestWidgetDate::stopReturnsWhenTheThreadHasEnded()
{
    WidgetDate date(nullptr, nullptr);
    std::atomic<bool> ended(false);
    RecordingPlatform::setWatchdogHook([&](const QString &operation) {
        if (operation == QLatin1String("stop")) {
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
            ended = true;
        }
    });
    date.start();
    date.stop();
    QVERIFY(ended);
}

void TestWidgetDate::stopRightAfterStartReturns()
{
    WidgetDate date(nullptr, nullptr);
    date.start();
    date.stop();
    QStringList operations;
    for (const RecordingPlatform::WatchdogCall &call : RecordingPlatform::watchdogCalls())
        operations << call.operation;
    operations.removeAll(QStringLiteral("kick"));
    QCOMPARE(operations, QStringList() << "start" << "stop");
}

void TestWidgetDate::stopOfAWidgetThatNeverRanDoesNotReturn()
{
    WidgetDate date(nullptr, nullptr);
    RecordingPlatform::setSleeping(false);
    // Only a start in the middle of it, after 50 times 10 ms, lets it end.
    int waits = 0;
    RecordingPlatform::setDelayHook([&](unsigned long) {
        if (++waits == 50)
            date.start();
    });
    date.stop();
    QVERIFY(waits >= 50);
    for (unsigned long delay : RecordingPlatform::delays())
        QCOMPARE(delay, 10ul);
    QCOMPARE(RecordingPlatform::watchdogCalls().size(), 2);
}

void TestWidgetDate::startsAndStopsAThousandTimes()
{
    const int times = 1000;
    DateScreen screen;
    RecordingPlatform::setSleeping(false);
    for (int i = 0; i < times; ++i) {
        screen.date.start();
        screen.date.stop();
        QCOMPARE(RecordingPlatform::watchdogCalls().last().operation, QString("stop"));
    }
    runEventLoop();
    int starts = 0;
    int stops = 0;
    for (const RecordingPlatform::WatchdogCall &call : RecordingPlatform::watchdogCalls()) {
        starts += call.operation == QLatin1String("start");
        stops += call.operation == QLatin1String("stop");
        QVERIFY(starts - stops == 0 || starts - stops == 1);
    }
    QCOMPARE(starts, times);
    QCOMPARE(stops, times);
}

void TestWidgetDate::mayBeDestroyedRightAfterStop()
{
    RecordingPlatform::setSleeping(false);
    QWidget parent;
    for (int i = 0; i < 200; ++i) {
        std::unique_ptr<WidgetDate> date(new WidgetDate(&parent, nullptr));
        date->start();
        date->stop();
    }
    runEventLoop();
    QVERIFY(parent.children().isEmpty());
}

void TestWidgetDate::deletedDateLeavesNoMemory()
{
#ifdef COUNTS_ALLOCATIONS
    QWidget parent;
    const auto useDate = [&parent] {
        WidgetDate date(&parent, nullptr);
        date.updateDateMonth(11, 23, 1);
    };
    // What the toolkit keeps.
    for (int i = 0; i < 20; ++i)
        useDate();
    const long before = blockCount();
    for (int i = 0; i < 100; ++i)
        useDate();
    const long more = blockCount() - before;
    QVERIFY2(more < 50, qPrintable(QString::number(more)));
#else
    QSKIP("Something else looks after the memory.");
#endif
}

QTEST_MAIN(TestWidgetDate)
#include "tst_widgetdate.moc"

#include "displaywork.h"
#include "recordingplatform.h"
#include "widgetprogressbar.h"

#include <QLabel>
#include <QPointer>
#include <QProgressBar>
#include <QtTest>

#include <climits>

using Item = WidgetProgressBar::Item;

class TestWidgetProgressBar : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void hasOneSignalAndNothingElse();
    void numbersItsParts();
    void isBuiltWithoutFocusAndSound();
    void dressesItsParts();
    void chunkSheetStaysOnTheWidgetItselfAsItIs();
    void logsNothingWhenBuilt();

    void writesNumbersWithCommas_data();
    void writesNumbersWithCommas();
    void writingANumberIsLogged();

    void showsTheUsedAmountOfTheCapacity_data();
    void showsTheUsedAmountOfTheCapacity();
    void amountOutsideTheRangeLeavesTheQuotient_data();
    void amountOutsideTheRangeLeavesTheQuotient();
    void capacityOfZeroTakesAnyValue_data();
    void capacityOfZeroTakesAnyValue();
    void capacityOfZeroIsPaintedInAnyWidth_data();
    void capacityOfZeroIsPaintedInAnyWidth();
    void capacityOfZeroIsPaintedAsByTheToolkitWhereItCan();
    void narrowBarIsPaintedAsByTheToolkit();
    void smallestIntegerDividedByMinusOneIsNoCrash();
    void barGetsTheQuotientThenTheAmount();
    void logsAndEmitsInOrder();
    void valueLabelIsSetAfterTheSignal();
    void valueChangedMovesTheBarAlone();
    void slotMayDeleteTheWidget();

    void placesOnePart_data();
    void placesOnePart();
    void stylesOnePart_data();
    void stylesOnePart();
    void ownSheetOfTheBarStaysEmpty();
    void unknownItemIsRejected_data();
    void unknownItemIsRejected();

    void fontIsBoldWhateverBoldSays_data();
    void fontIsBoldWhateverBoldSays();
    void fontOfTheOtherItemsIsInvalid_data();
    void fontOfTheOtherItemsIsInvalid();
    void setItemTitleSetsTheTitle();

    void whatIsSetAlreadyCostsNothing_data();
    void whatIsSetAlreadyCostsNothing();
    void newAmountPaintsTheBarOnce_data();
    void newAmountPaintsTheBarOnce();
    void switchedOffUpdatesStaySwitchedOff();
};

static QLabel *titleLabel(const WidgetProgressBar &widget)
{
    return widget.findChildren<QLabel *>().at(0);
}

static QLabel *valueLabel(const WidgetProgressBar &widget)
{
    return widget.findChildren<QLabel *>().at(1);
}

static QProgressBar *bar(const WidgetProgressBar &widget)
{
    return widget.findChild<QProgressBar *>();
}

static const QString s_sheet =
    "QProgressBar {border: 0px;background-color: #9F9898;color: rgb(255,255,255);}"
    "QProgressBar:chunk {background-color: #594B4F;}";

static QString trace(const char *function)
{
    return QStringLiteral("log:16:[ui/view/widget/widgetprogressbar.cpp, %1]").arg(QLatin1String(function));
}

void TestWidgetProgressBar::init()
{
    RecordingPlatform::reset();
}

void TestWidgetProgressBar::hasOneSignalAndNothingElse()
{
    const QMetaObject &meta = WidgetProgressBar::staticMetaObject;
    QCOMPARE(meta.className(), "WidgetProgressBar");
    QCOMPARE(meta.superClass(), &Widget::staticMetaObject);
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 1);
    QCOMPARE(meta.method(meta.methodOffset()).methodSignature(), QByteArray("valueChanged(int)"));
    QCOMPARE(meta.method(meta.methodOffset()).methodType(), QMetaMethod::Signal);
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
    QCOMPARE(meta.enumeratorCount(), meta.enumeratorOffset());
}

void TestWidgetProgressBar::numbersItsParts()
{
    QCOMPARE(int(WidgetProgressBar::ItemBackground), 0);
    QCOMPARE(int(WidgetProgressBar::ItemTitle), 1);
    QCOMPARE(int(WidgetProgressBar::ItemValue), 2);
    QCOMPARE(int(WidgetProgressBar::ItemBar), 3);
}

void TestWidgetProgressBar::isBuiltWithoutFocusAndSound()
{
    QWidget parent;
    WidgetProgressBar *widget = new WidgetProgressBar(&parent);
    QCOMPARE(widget->parentWidget(), &parent);
    QCOMPARE(widget->focusPolicy(), Qt::NoFocus);
    widget->playSound(901);
    QCOMPARE(RecordingPlatform::sounds(), QList<int>());
}

void TestWidgetProgressBar::dressesItsParts()
{
    WidgetProgressBar widget(nullptr);
    QCOMPARE(widget.findChildren<QWidget *>().size(), 3);

    QCOMPARE(titleLabel(widget)->geometry(), QRect(6, 6, 120, 14));
    QCOMPARE(titleLabel(widget)->styleSheet(), QString("color: rgb(31,22,24)"));
    QCOMPARE(titleLabel(widget)->alignment(), Qt::AlignLeft | Qt::AlignVCenter);

    QCOMPARE(valueLabel(widget)->geometry(), QRect(132, 6, 82, 14));
    QCOMPARE(valueLabel(widget)->styleSheet(), QString("color: rgb(89, 75, 79)"));
    QCOMPARE(valueLabel(widget)->alignment(), Qt::AlignRight | Qt::AlignVCenter);

    for (const QLabel *label : {titleLabel(widget), valueLabel(widget)}) {
        QCOMPARE(label->font().pointSize(), 12);
        QCOMPARE(int(label->font().weight()), int(QFont::Bold));
        QCOMPARE(label->text(), QString());
    }

    QCOMPARE(bar(widget)->geometry(), QRect(6, 23, 208, 17));
    QCOMPARE(bar(widget)->alignment(), Qt::Alignment(Qt::AlignRight));
    QVERIFY(!bar(widget)->testAttribute(Qt::WA_SetFont));
}

void TestWidgetProgressBar::chunkSheetStaysOnTheWidgetItselfAsItIs()
{
    WidgetProgressBar widget(nullptr);
    QCOMPARE(widget.styleSheet(), s_sheet);
    QCOMPARE(bar(widget)->styleSheet(), QString());
}

void TestWidgetProgressBar::logsNothingWhenBuilt()
{
    WidgetProgressBar widget(nullptr);
    widget.show();
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetProgressBar::writesNumbersWithCommas_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("0") << 0 << "0";
    QTest::newRow("two digits") << 12 << "12";
    QTest::newRow("three digits") << 999 << "999";
    QTest::newRow("four digits") << 1000 << "1,000";
    QTest::newRow("six digits") << 123456 << "123,456";
    QTest::newRow("seven digits") << 1234567 << "1,234,567";
    QTest::newRow("greatest") << INT_MAX << "2,147,483,647";
    QTest::newRow("sign and two digits") << -12 << "-12";
    QTest::newRow("sign counts as a digit") << -123 << "-,123";
    QTest::newRow("sign and four digits") << -1234 << "-1,234";
    QTest::newRow("sign and six digits") << -123456 << "-,123,456";
    QTest::newRow("smallest") << INT_MIN << "-2,147,483,648";
}

void TestWidgetProgressBar::writesNumbersWithCommas()
{
    QFETCH(int, value);
    QFETCH(QString, text);
    WidgetProgressBar widget(nullptr);
    QCOMPARE(widget.calcIntToString(value, false), text);
    QCOMPARE(widget.calcIntToString(value, true), text + ' ');
}

void TestWidgetProgressBar::writingANumberIsLogged()
{
    WidgetProgressBar widget(nullptr);
    widget.calcIntToString(5, true);
    QCOMPARE(RecordingPlatform::events(), QStringList() << trace("calcIntToString"));
}

void TestWidgetProgressBar::showsTheUsedAmountOfTheCapacity_data()
{
    QTest::addColumn<int>("use");
    QTest::addColumn<int>("max");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("text");
    QTest::newRow("part") << 750 << 1000 << "1,000 " << "750";
    QTest::newRow("nothing") << 0 << 1000 << "1,000 " << "0";
    QTest::newRow("all") << 1000 << 1000 << "1,000 " << "1,000";
    QTest::newRow("one of one") << 1 << 1 << "1 " << "1";
    QTest::newRow("millions") << 1234567 << 7654321 << "7,654,321 " << "1,234,567";
    QTest::newRow("greatest") << INT_MAX << INT_MAX << "2,147,483,647 " << "2,147,483,647";
}

void TestWidgetProgressBar::showsTheUsedAmountOfTheCapacity()
{
    QFETCH(int, use);
    QFETCH(int, max);
    WidgetProgressBar widget(nullptr);
    widget.setItemUseMaxValue(use, max);
    QCOMPARE(bar(widget)->minimum(), 0);
    QCOMPARE(bar(widget)->maximum(), max);
    QCOMPARE(bar(widget)->value(), use);
    QTEST(bar(widget)->format(), "format");
    QTEST(bar(widget)->text(), "format");
    QTEST(valueLabel(widget)->text(), "text");
}

void TestWidgetProgressBar::amountOutsideTheRangeLeavesTheQuotient_data()
{
    QTest::addColumn<int>("use");
    QTest::addColumn<int>("max");
    QTest::addColumn<int>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("half as much again") << 1500 << 1000 << 1 << "1,500";
    QTest::newRow("seven times") << 7999 << 1000 << 7 << "7,999";
    QTest::newRow("a little less than nothing") << -5 << 1000 << 0 << "-5";
    QTest::newRow("quotient outside as well") << 5000 << 10 << -1 << "5,000";
    QTest::newRow("far less than nothing") << -5000 << 10 << -1 << "-5,000";
}

void TestWidgetProgressBar::amountOutsideTheRangeLeavesTheQuotient()
{
    QFETCH(int, use);
    QFETCH(int, max);
    WidgetProgressBar widget(nullptr);
    widget.setItemUseMaxValue(use, max);
    QCOMPARE(bar(widget)->maximum(), max);
    QTEST(bar(widget)->value(), "value");
    QTEST(valueLabel(widget)->text(), "text");
}

void TestWidgetProgressBar::capacityOfZeroTakesAnyValue_data()
{
    QTest::addColumn<int>("use");
    QTest::addColumn<QString>("text");
    QTest::newRow("5") << 5 << "5";
    QTest::newRow("0") << 0 << "0";
    QTest::newRow("-5") << -5 << "-5";
    QTest::newRow("greatest") << INT_MAX << "2,147,483,647";
    QTest::newRow("smallest") << INT_MIN << "-2,147,483,648";
}

void TestWidgetProgressBar::capacityOfZeroTakesAnyValue()
{
    QFETCH(int, use);
    WidgetProgressBar widget(nullptr);
    widget.setItemUseMaxValue(use, 0);
    QCOMPARE(bar(widget)->minimum(), 0);
    QCOMPARE(bar(widget)->maximum(), 0);
    QCOMPARE(bar(widget)->format(), QString("0 "));
    QCOMPARE(bar(widget)->value(), use);
    QTEST(valueLabel(widget)->text(), "text");
}

void TestWidgetProgressBar::capacityOfZeroIsPaintedInAnyWidth_data()
{
    QTest::addColumn<QString>("sheet");
    QTest::newRow("without a sheet") << QString();
    QTest::newRow("with a border") << "border: 2px solid red;";
    QTest::newRow("with a padding") << "padding: 3px;";
    QTest::newRow("with a margin") << "margin-left: 4px;";
}

void TestWidgetProgressBar::capacityOfZeroIsPaintedInAnyWidth()
{
    QFETCH(QString, sheet);
    WidgetProgressBar widget(nullptr);
    widget.setItemStyle(WidgetProgressBar::ItemBar, sheet);
    widget.setItemUseMaxValue(0, 0);
    QVERIFY(showAndPaint(widget));
    for (int width = 0; width < 12; ++width) {
        widget.setItemGeometry(WidgetProgressBar::ItemBar, 6, 23, width, 17);
        // The second time it moves already.
        for (int i = 0; i < 2; ++i) {
            widget.repaint();
            runEventLoop();
        }
        QCOMPARE(bar(widget)->width(), width);
    }
    widget.setItemStyle(WidgetProgressBar::ItemBar, QString());
    widget.setItemGeometry(WidgetProgressBar::ItemBar, 6, 23, 1, 17);
    QCOMPARE(widget.grab().toImage().pixelColor(6, 30), QColor("#9F9898"));
}

void TestWidgetProgressBar::capacityOfZeroIsPaintedAsByTheToolkitWhereItCan()
{
    for (int width = 2; width < 12; ++width) {
        // Each one once: from its second picture on it moves.
        QWidget window;
        window.setStyleSheet(s_sheet);
        QProgressBar toolkits(&window);
        toolkits.setGeometry(0, 0, width, 17);
        toolkits.setRange(0, 0);
        WidgetProgressBar widget(&window);
        widget.setItemUseMaxValue(0, 0);
        widget.setItemGeometry(WidgetProgressBar::ItemBar, 6, 23, width, 17);
        toolkits.setFormat(bar(widget)->format());
        toolkits.setFont(bar(widget)->font());
        toolkits.setAlignment(bar(widget)->alignment());
        QCOMPARE(bar(widget)->grab().toImage(), toolkits.grab().toImage());
    }
}

void TestWidgetProgressBar::narrowBarIsPaintedAsByTheToolkit()
{
    for (int width = 1; width < 5; ++width) {
        QWidget window;
        window.setStyleSheet(s_sheet);
        QProgressBar toolkits(&window);
        toolkits.setGeometry(0, 0, width, 17);
        toolkits.setRange(0, 10);
        toolkits.setValue(10);
        toolkits.setTextVisible(false);
        WidgetProgressBar widget(&window);
        widget.setItemUseMaxValue(10, 10);
        widget.setItemGeometry(WidgetProgressBar::ItemBar, 6, 23, width, 17);
        bar(widget)->setTextVisible(false);
        QCOMPARE(bar(widget)->value(), 10);
        QCOMPARE(bar(widget)->grab().toImage(), toolkits.grab().toImage());
    }
}

void TestWidgetProgressBar::smallestIntegerDividedByMinusOneIsNoCrash()
{
    WidgetProgressBar widget(nullptr);
    widget.setItemUseMaxValue(INT_MIN, -1);
    QCOMPARE(bar(widget)->maximum(), 0);
    QCOMPARE(bar(widget)->format(), QString("-1 "));
    QCOMPARE(bar(widget)->value(), INT_MIN);
    QCOMPARE(valueLabel(widget)->text(), QString("-2,147,483,648"));
}

void TestWidgetProgressBar::barGetsTheQuotientThenTheAmount()
{
    WidgetProgressBar widget(nullptr);
    widget.setItemUseMaxValue(500, 1000);
    QSignalSpy values(bar(widget), &QProgressBar::valueChanged);
    widget.setItemUseMaxValue(1000, 1000);
    QCOMPARE(values, QList<QVariantList>() << QVariantList{1} << QVariantList{1000});
}

void TestWidgetProgressBar::logsAndEmitsInOrder()
{
    WidgetProgressBar widget(nullptr);
    connect(&widget, &WidgetProgressBar::valueChanged,
            [](int value) { RecordingPlatform::addEvent(QStringLiteral("valueChanged:%1").arg(value)); });
    widget.setItemUseMaxValue(750, 1000);
    QCOMPARE(RecordingPlatform::events(), QStringList() << trace("setItemUseMaxValue") << trace("calcIntToString")
                                                        << "valueChanged:750" << trace("calcIntToString"));
}

void TestWidgetProgressBar::valueLabelIsSetAfterTheSignal()
{
    WidgetProgressBar widget(nullptr);
    widget.setItemUseMaxValue(1, 1000);
    QString textInSlot;
    int valueInSlot = 0;
    connect(&widget, &WidgetProgressBar::valueChanged, [&](int) {
        textInSlot = valueLabel(widget)->text();
        valueInSlot = bar(widget)->value();
    });
    widget.setItemUseMaxValue(750, 1000);
    QCOMPARE(textInSlot, QString("1"));
    QCOMPARE(valueInSlot, 750);
}

void TestWidgetProgressBar::slotMayDeleteTheWidget()
{
    // Nothing of it is touched afterwards, which the address sanitizer watches.
    QPointer<WidgetProgressBar> widget(new WidgetProgressBar(nullptr));
    connect(widget.data(), &WidgetProgressBar::valueChanged, [&widget](int) { delete widget.data(); });
    widget->setItemUseMaxValue(750, 1000);
    QVERIFY(widget.isNull());
}

void TestWidgetProgressBar::valueChangedMovesTheBarAlone()
{
    WidgetProgressBar widget(nullptr);
    widget.setItemUseMaxValue(1, 1000);
    emit widget.valueChanged(333);
    QCOMPARE(bar(widget)->value(), 333);
    QCOMPARE(valueLabel(widget)->text(), QString("1"));
}

void TestWidgetProgressBar::placesOnePart_data()
{
    QTest::addColumn<int>("item");
    QTest::newRow("widget") << 0;
    QTest::newRow("title") << 1;
    QTest::newRow("amount") << 2;
    QTest::newRow("bar") << 3;
}

void TestWidgetProgressBar::placesOnePart()
{
    QFETCH(int, item);
    QWidget parent;
    WidgetProgressBar *widget = new WidgetProgressBar(&parent);
    const QList<QWidget *> parts = {widget, titleLabel(*widget), valueLabel(*widget), bar(*widget)};
    QList<QRect> expected;
    for (const QWidget *part : parts)
        expected << part->geometry();
    expected[item] = QRect(3, 4, 55, 66);
    widget->setItemGeometry(Item(item), 3, 4, 55, 66);
    for (int i = 0; i < parts.size(); ++i)
        QCOMPARE(parts.at(i)->geometry(), expected.at(i));
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetProgressBar::stylesOnePart_data()
{
    placesOnePart_data();
}

void TestWidgetProgressBar::stylesOnePart()
{
    QFETCH(int, item);
    WidgetProgressBar widget(nullptr);
    const QList<QWidget *> parts = {&widget, titleLabel(widget), valueLabel(widget), bar(widget)};
    QStringList expected;
    for (const QWidget *part : parts)
        expected << part->styleSheet();
    for (const char *sheet : {"color: red", ""}) {
        RecordingPlatform::reset();
        expected[item] = sheet;
        widget.setItemStyle(Item(item), QString::fromLatin1(sheet));
        for (int i = 0; i < parts.size(); ++i)
            QCOMPARE(parts.at(i)->styleSheet(), expected.at(i));
        QCOMPARE(RecordingPlatform::events(), QStringList() << trace("setItemStyle"));
    }
}

void TestWidgetProgressBar::ownSheetOfTheBarStaysEmpty()
{
    WidgetProgressBar widget(nullptr);
    widget.show();
    widget.setItemUseMaxValue(1, 2);
    widget.setItemFont(WidgetProgressBar::ItemValue, 10, true);
    QCOMPARE(bar(widget)->styleSheet(), QString());
}

void TestWidgetProgressBar::unknownItemIsRejected_data()
{
    QTest::addColumn<int>("item");
    QTest::newRow("past the last") << 4;
    QTest::newRow("negative") << -1;
    QTest::newRow("greatest") << INT_MAX;
    QTest::newRow("smallest") << INT_MIN;
}

void TestWidgetProgressBar::unknownItemIsRejected()
{
    QFETCH(int, item);
    WidgetProgressBar widget(nullptr);
    const QRect place = widget.geometry();
    widget.setItemGeometry(Item(item), 1, 2, 3, 4);
    QCOMPARE(RecordingPlatform::events(), QStringList() << "log:2:[setItemGeometry, 73] Unknown item!!");
    RecordingPlatform::reset();
    widget.setItemStyle(Item(item), "color: red");
    QCOMPARE(RecordingPlatform::events(),
             QStringList() << trace("setItemStyle") << "log:2:[setItemStyle, 124] Unknown item!!");
    QCOMPARE(widget.geometry(), place);
    QCOMPARE(widget.styleSheet(), s_sheet);
}

void TestWidgetProgressBar::fontIsBoldWhateverBoldSays_data()
{
    QTest::addColumn<int>("item");
    QTest::addColumn<bool>("bold");
    QTest::newRow("title, bold") << 1 << true;
    QTest::newRow("title, not bold") << 1 << false;
    QTest::newRow("amount and bar, bold") << 2 << true;
    QTest::newRow("amount and bar, not bold") << 2 << false;
}

void TestWidgetProgressBar::fontIsBoldWhateverBoldSays()
{
    QFETCH(int, item);
    QFETCH(bool, bold);
    WidgetProgressBar widget(nullptr);
    const QList<QWidget *> parts = {titleLabel(widget), valueLabel(widget), bar(widget)};
    const int barSize = bar(widget)->font().pointSize();
    const QList<int> sizes = item == 1 ? QList<int>{17, 12, barSize} : QList<int>{12, 17, 17};
    widget.setItemFont(Item(item), 17, bold);
    for (int i = 0; i < parts.size(); ++i) {
        QCOMPARE(parts.at(i)->font().pointSize(), sizes.at(i));
        if (sizes.at(i) == 17)
            QCOMPARE(int(parts.at(i)->font().weight()), int(QFont::Bold));
    }
    QCOMPARE(RecordingPlatform::events(), QStringList() << trace("setItemFont"));
}

void TestWidgetProgressBar::fontOfTheOtherItemsIsInvalid_data()
{
    QTest::addColumn<int>("item");
    for (int item : {0, 3, 4, -1, INT_MAX, INT_MIN})
        QTest::addRow("item %d", item) << item;
}

void TestWidgetProgressBar::fontOfTheOtherItemsIsInvalid()
{
    QFETCH(int, item);
    WidgetProgressBar widget(nullptr);
    widget.setItemFont(Item(item), 17, true);
    QCOMPARE(RecordingPlatform::events(), QStringList() << trace("setItemFont") << "log:2:Invalid item!!");
    for (const QWidget *part : widget.findChildren<QWidget *>())
        QVERIFY(part->font().pointSize() != 17);
}

void TestWidgetProgressBar::setItemTitleSetsTheTitle()
{
    WidgetProgressBar widget(nullptr);
    widget.setItemTitle("Memory");
    QCOMPARE(titleLabel(widget)->text(), QString("Memory"));
    QCOMPARE(valueLabel(widget)->text(), QString());
    QCOMPARE(RecordingPlatform::events(), QStringList() << trace("setItemTitle"));
}

void TestWidgetProgressBar::whatIsSetAlreadyCostsNothing_data()
{
    QTest::addColumn<int>("use");
    QTest::addColumn<int>("max");
    QTest::newRow("part") << 750 << 1000;
    QTest::newRow("all") << 1000 << 1000;
    QTest::newRow("nothing") << 0 << 1000;
    QTest::newRow("too much") << 1500 << 1000;
}

void TestWidgetProgressBar::whatIsSetAlreadyCostsNothing()
{
    QFETCH(int, use);
    QFETCH(int, max);
    QWidget parent;
    WidgetProgressBar *widget = new WidgetProgressBar(&parent);
    const auto configure = [widget, use, max] {
        widget->setItemGeometry(WidgetProgressBar::ItemBackground, 1, 2, 220, 46);
        widget->setItemGeometry(WidgetProgressBar::ItemBar, 6, 23, 200, 17);
        widget->setItemStyle(WidgetProgressBar::ItemTitle, "color: #594B4F");
        widget->setItemStyle(WidgetProgressBar::ItemBar, "background-color: #9F9898");
        widget->setItemFont(WidgetProgressBar::ItemTitle, 11, true);
        widget->setItemFont(WidgetProgressBar::ItemValue, 10, true);
        widget->setItemTitle("Memory");
        widget->setItemUseMaxValue(use, max);
    };
    configure();
    QVERIFY(showAndPaint(parent));
    QCOMPARE(workOf(parent, configure), QStringList());
}

void TestWidgetProgressBar::newAmountPaintsTheBarOnce_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<int>("max");
    QTest::newRow("more") << 200 << 750 << 1000;
    QTest::newRow("less") << 750 << 200 << 1000;
    QTest::newRow("amount and quotient are equal") << 0 << 1 << 1;
    QTest::newRow("the quotient stays") << 2 << 12 << 4;
}

void TestWidgetProgressBar::newAmountPaintsTheBarOnce()
{
    QFETCH(int, from);
    QFETCH(int, to);
    QFETCH(int, max);
    WidgetProgressBar widget(nullptr);
    widget.setItemUseMaxValue(from, max);
    QVERIFY(showAndPaint(widget));
    const EventRecorder recorder(&widget);
    widget.setItemUseMaxValue(to, max);
    runEventLoop();
    QCOMPARE(recorder.count(QEvent::Paint, bar(widget)), 1);
}

void TestWidgetProgressBar::switchedOffUpdatesStaySwitchedOff()
{
    WidgetProgressBar widget(nullptr);
    widget.show();
    widget.setUpdatesEnabled(false);
    widget.setItemUseMaxValue(750, 1000);
    QVERIFY(!bar(widget)->updatesEnabled());
    widget.setUpdatesEnabled(true);
    widget.setItemUseMaxValue(250, 1000);
    QVERIFY(bar(widget)->updatesEnabled());
}

QTEST_MAIN(TestWidgetProgressBar)
#include "tst_widgetprogressbar.moc"

#include "displaywork.h"
#include "recordingplatform.h"
#include "widgetsimpletitle.h"

#include <QLabel>
#include <QtTest>

#include <climits>

using Item = WidgetSimpleTitle::Item;

class TestWidgetSimpleTitle : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void hasAMetaObjectWithNothingInIt();
    void numbersItsParts();
    void isBuiltAsABarWithoutFocus();
    void titleCoversTheBarAtTheLeft();
    void logsAndPlaysNothingWhenBuilt();

    void placesOnePart_data();
    void placesOnePart();
    void stylesOnePart_data();
    void stylesOnePart();
    void unknownItemIsRejected_data();
    void unknownItemIsRejected();

    void fontIsBoldWhateverBoldSays_data();
    void fontIsBoldWhateverBoldSays();
    void sheetOfTheCallerIsOverwritten_data();
    void sheetOfTheCallerIsOverwritten();
    void bothSheetsAreReallySetEachTime();
    void setFontStyleResetsTheAlignment();
    void fontOfAnythingButTheTitleIsInvalid_data();
    void fontOfAnythingButTheTitleIsInvalid();

    void titleIsPlainText();
    void titleIsCutWhereItDoesNotFit_data();
    void titleIsCutWhereItDoesNotFit();
    void titleIsMeasuredInTheFontInForce();
    void titleIsMeasuredInTheFontOfItsSheet();
    void titleIsNotCutAgainByItself();
    void titleCutIsTakenForTheNewOne();
    void widthZeroAndBelowIsNoCrash();

    void whatIsSetAlreadyCostsNothing();
};

static QLabel *titleLabel(const WidgetSimpleTitle &bar)
{
    return bar.findChild<QLabel *>();
}

static int measure(const QString &text, const QLabel *label)
{
    return label->fontMetrics().horizontalAdvance(text);
}

static const QString s_barSheet = QStringLiteral("color: #FFFFFF;background-color: #474242;");
static const QString s_fixedSheet = QStringLiteral("background-color: #474242; color: #ffffff");

void TestWidgetSimpleTitle::init()
{
    RecordingPlatform::reset();
}

void TestWidgetSimpleTitle::hasAMetaObjectWithNothingInIt()
{
    const QMetaObject &meta = WidgetSimpleTitle::staticMetaObject;
    QCOMPARE(meta.className(), "WidgetSimpleTitle");
    QCOMPARE(meta.superClass(), &Widget::staticMetaObject);
    QCOMPARE(meta.methodCount(), meta.methodOffset());
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
    QCOMPARE(meta.enumeratorCount(), meta.enumeratorOffset());
}

void TestWidgetSimpleTitle::numbersItsParts()
{
    QCOMPARE(int(WidgetSimpleTitle::ItemBackground), 0);
    QCOMPARE(int(WidgetSimpleTitle::ItemTitle), 1);
}

void TestWidgetSimpleTitle::isBuiltAsABarWithoutFocus()
{
    QWidget parent;
    WidgetSimpleTitle *bar = new WidgetSimpleTitle(&parent, nullptr);
    QCOMPARE(bar->parentWidget(), &parent);
    QCOMPARE(bar->geometry(), QRect(0, 0, 220, 38));
    QCOMPARE(bar->focusPolicy(), Qt::NoFocus);
    QCOMPARE(bar->styleSheet(), s_barSheet);
}

void TestWidgetSimpleTitle::titleCoversTheBarAtTheLeft()
{
    WidgetSimpleTitle bar(nullptr, nullptr);
    QCOMPARE(bar.findChildren<QWidget *>().size(), 1);
    const QLabel *title = titleLabel(bar);
    QVERIFY(title);
    QCOMPARE(title->geometry(), QRect(0, 0, 220, 38));
    QCOMPARE(title->font().pointSize(), 13);
    QCOMPARE(int(title->font().weight()), int(QFont::Bold));
    QCOMPARE(title->font().family(), QFont().family());
    QCOMPARE(title->alignment(), Qt::AlignLeft | Qt::AlignVCenter);
    QCOMPARE(title->styleSheet(), QString());
    QCOMPARE(title->text(), QString());
}

void TestWidgetSimpleTitle::logsAndPlaysNothingWhenBuilt()
{
    WidgetSimpleTitle bar(nullptr, nullptr);
    bar.setTitle("Settings");
    bar.show();
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetSimpleTitle::placesOnePart_data()
{
    QTest::addColumn<int>("item");
    QTest::addColumn<QRect>("bar");
    QTest::addColumn<QRect>("title");
    QTest::newRow("bar") << 0 << QRect(3, 4, 55, 66) << QRect(0, 0, 220, 38);
    QTest::newRow("title") << 1 << QRect(0, 0, 220, 38) << QRect(3, 4, 55, 66);
}

void TestWidgetSimpleTitle::placesOnePart()
{
    QFETCH(int, item);
    QWidget parent;
    WidgetSimpleTitle *bar = new WidgetSimpleTitle(&parent, nullptr);
    bar->setItemGeometry(Item(item), 3, 4, 55, 66);
    QTEST(bar->geometry(), "bar");
    QTEST(titleLabel(*bar)->geometry(), "title");
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetSimpleTitle::stylesOnePart_data()
{
    QTest::addColumn<int>("item");
    QTest::addColumn<QString>("sheet");
    QTest::addColumn<QString>("bar");
    QTest::addColumn<QString>("title");
    QTest::newRow("bar") << 0 << "color: red" << "color: red" << "color: lime";
    QTest::newRow("title") << 1 << "color: red" << s_barSheet << "color: red";
    QTest::newRow("bar, empty") << 0 << "" << "" << "color: lime";
    QTest::newRow("title, empty") << 1 << "" << s_barSheet << "";
}

void TestWidgetSimpleTitle::stylesOnePart()
{
    QFETCH(int, item);
    QFETCH(QString, sheet);
    WidgetSimpleTitle bar(nullptr, nullptr);
    bar.setItemStyle(WidgetSimpleTitle::ItemTitle, "color: lime");
    bar.setItemStyle(Item(item), sheet);
    QTEST(bar.styleSheet(), "bar");
    QTEST(titleLabel(bar)->styleSheet(), "title");
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetSimpleTitle::unknownItemIsRejected_data()
{
    QTest::addColumn<int>("item");
    QTest::newRow("past the last") << 2;
    QTest::newRow("negative") << -1;
    QTest::newRow("greatest") << INT_MAX;
    QTest::newRow("smallest") << INT_MIN;
}

void TestWidgetSimpleTitle::unknownItemIsRejected()
{
    QFETCH(int, item);
    WidgetSimpleTitle bar(nullptr, nullptr);
    bar.setItemGeometry(Item(item), 1, 2, 3, 4);
    bar.setItemStyle(Item(item), "color: red");
    QCOMPARE(RecordingPlatform::events(), QStringList() << "log:2:[setItemGeometry, 31] Unknown item!!"
                                                        << "log:2:[setItemStyle, 50] Unknown item!!");
    QCOMPARE(bar.size(), QSize(220, 38));
    QCOMPARE(bar.styleSheet(), s_barSheet);
    QCOMPARE(titleLabel(bar)->geometry(), QRect(0, 0, 220, 38));
    QCOMPARE(titleLabel(bar)->styleSheet(), QString());
}

void TestWidgetSimpleTitle::fontIsBoldWhateverBoldSays_data()
{
    QTest::addColumn<bool>("bold");
    QTest::newRow("bold") << true;
    QTest::newRow("not bold") << false;
}

void TestWidgetSimpleTitle::fontIsBoldWhateverBoldSays()
{
    QFETCH(bool, bold);
    WidgetSimpleTitle bar(nullptr, nullptr);
    bar.setFontStyle(WidgetSimpleTitle::ItemTitle, 16, bold, QString());
    QCOMPARE(titleLabel(bar)->font().pointSize(), 16);
    QCOMPARE(int(titleLabel(bar)->font().weight()), int(QFont::Bold));
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetSimpleTitle::sheetOfTheCallerIsOverwritten_data()
{
    QTest::addColumn<QString>("sheet");
    QTest::newRow("colour") << "color: red";
    QTest::newRow("font") << "font-size: 40px";
    QTest::newRow("empty") << "";
    QTest::newRow("the fixed one") << s_fixedSheet;
}

void TestWidgetSimpleTitle::sheetOfTheCallerIsOverwritten()
{
    QFETCH(QString, sheet);
    WidgetSimpleTitle bar(nullptr, nullptr);
    bar.show();
    bar.setFontStyle(WidgetSimpleTitle::ItemTitle, 16, false, sheet);
    QCOMPARE(titleLabel(bar)->styleSheet(), s_fixedSheet);
    QCOMPARE(titleLabel(bar)->palette().color(QPalette::WindowText), QColor(Qt::white));
    QCOMPARE(titleLabel(bar)->font().pointSize(), 16);
    QCOMPARE(int(titleLabel(bar)->font().weight()), int(QFont::Bold));
}

void TestWidgetSimpleTitle::bothSheetsAreReallySetEachTime()
{
    WidgetSimpleTitle bar(nullptr, nullptr);
    QVERIFY(showAndPaint(bar));
    for (const char *sheet : {"color: red", "color: red", "", "background-color: #474242; color: #ffffff"}) {
        const EventRecorder recorder(&bar);
        bar.setFontStyle(WidgetSimpleTitle::ItemTitle, 16, true, QString::fromLatin1(sheet));
        QCOMPARE(recorder.count(QEvent::StyleChange, titleLabel(bar)), 2);
    }
}

void TestWidgetSimpleTitle::setFontStyleResetsTheAlignment()
{
    WidgetSimpleTitle bar(nullptr, nullptr);
    titleLabel(bar)->setAlignment(Qt::AlignRight | Qt::AlignTop);
    bar.setFontStyle(WidgetSimpleTitle::ItemTitle, 13, true, QString());
    QCOMPARE(titleLabel(bar)->alignment(), Qt::AlignLeft | Qt::AlignVCenter);
}

void TestWidgetSimpleTitle::fontOfAnythingButTheTitleIsInvalid_data()
{
    QTest::addColumn<int>("item");
    QTest::newRow("bar") << 0;
    QTest::newRow("past the last") << 2;
    QTest::newRow("negative") << -1;
    QTest::newRow("greatest") << INT_MAX;
    QTest::newRow("smallest") << INT_MIN;
}

void TestWidgetSimpleTitle::fontOfAnythingButTheTitleIsInvalid()
{
    QFETCH(int, item);
    WidgetSimpleTitle bar(nullptr, nullptr);
    titleLabel(bar)->setAlignment(Qt::AlignCenter);
    bar.setFontStyle(Item(item), 16, true, "color: red");
    QCOMPARE(RecordingPlatform::events(), QStringList() << "log:2:Invalid item!!");
    QCOMPARE(bar.styleSheet(), s_barSheet);
    QCOMPARE(titleLabel(bar)->styleSheet(), QString());
    QCOMPARE(titleLabel(bar)->font().pointSize(), 13);
    QCOMPARE(titleLabel(bar)->alignment(), Qt::AlignCenter);
}

void TestWidgetSimpleTitle::titleIsPlainText()
{
    WidgetSimpleTitle bar(nullptr, nullptr);
    bar.setTitle("<b>&amp;</b>");
    QCOMPARE(titleLabel(bar)->text(), QString("<b>&amp;</b>"));
    QCOMPARE(titleLabel(bar)->textFormat(), Qt::PlainText);
}

void TestWidgetSimpleTitle::titleIsCutWhereItDoesNotFit_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<int>("missing");
    QTest::addColumn<bool>("whole");
    QTest::newRow("room left") << "A title of some length" << -30 << true;
    QTest::newRow("exactly as wide") << "A title of some length" << 0 << true;
    QTest::newRow("one pixel wider") << "A title of some length" << 1 << false;
    QTest::newRow("much wider") << "A title of some length" << 60 << false;
    QTest::newRow("empty") << "" << 0 << true;
}

void TestWidgetSimpleTitle::titleIsCutWhereItDoesNotFit()
{
    QFETCH(QString, title);
    QFETCH(int, missing);
    QFETCH(bool, whole);
    WidgetSimpleTitle bar(nullptr, nullptr);
    const QLabel *label = titleLabel(bar);
    const int width = measure(title, label) - missing;
    bar.setItemGeometry(WidgetSimpleTitle::ItemTitle, 0, 0, width, 38);
    bar.setTitle(title);
    if (whole) {
        QCOMPARE(label->text(), title);
    } else {
        QCOMPARE(label->text(), label->fontMetrics().elidedText(title, Qt::ElideRight, width));
        QVERIFY(label->text().endsWith(QChar(0x2026)));
        QVERIFY(measure(label->text(), label) <= width);
    }
}

void TestWidgetSimpleTitle::titleIsMeasuredInTheFontInForce()
{
    WidgetSimpleTitle bar(nullptr, nullptr);
    const QString title = "A title of some length";
    bar.setItemGeometry(WidgetSimpleTitle::ItemTitle, 0, 0, measure(title, titleLabel(bar)), 38);
    bar.setFontStyle(WidgetSimpleTitle::ItemTitle, 26, true, QString());
    bar.setTitle(title);
    QVERIFY(titleLabel(bar)->text().endsWith(QChar(0x2026)));
}

void TestWidgetSimpleTitle::titleIsMeasuredInTheFontOfItsSheet()
{
    WidgetSimpleTitle bar(nullptr, nullptr);
    const QString title = "A title of some length";
    bar.setItemGeometry(WidgetSimpleTitle::ItemTitle, 0, 0, measure(title, titleLabel(bar)), 38);
    bar.show();
    bar.setItemStyle(WidgetSimpleTitle::ItemTitle, "font-size: 40px");
    bar.setTitle(title);
    QVERIFY(titleLabel(bar)->text().endsWith(QChar(0x2026)));
}

void TestWidgetSimpleTitle::titleIsNotCutAgainByItself()
{
    WidgetSimpleTitle bar(nullptr, nullptr);
    const QString title = "A title of some length";
    bar.setTitle(title);
    QCOMPARE(titleLabel(bar)->text(), title);
    bar.setItemGeometry(WidgetSimpleTitle::ItemTitle, 0, 0, 40, 38);
    bar.setFontStyle(WidgetSimpleTitle::ItemTitle, 40, true, QString());
    bar.show();
    QCOMPARE(titleLabel(bar)->text(), title);
    bar.setTitle(title);
    QVERIFY(titleLabel(bar)->text() != title);
}

void TestWidgetSimpleTitle::titleCutIsTakenForTheNewOne()
{
    WidgetSimpleTitle bar(nullptr, nullptr);
    bar.setItemGeometry(WidgetSimpleTitle::ItemTitle, 0, 0, 60, 38);
    bar.setTitle("A title of some length");
    bar.setTitle("B");
    QCOMPARE(titleLabel(bar)->text(), QString("B"));
}

void TestWidgetSimpleTitle::widthZeroAndBelowIsNoCrash()
{
    WidgetSimpleTitle bar(nullptr, nullptr);
    for (int width : {0, -1, -1000}) {
        bar.setItemGeometry(WidgetSimpleTitle::ItemTitle, 0, 0, width, 38);
        bar.setTitle(QString(10000, 'W'));
        QVERIFY(titleLabel(bar)->text().size() < 10000);
    }
    bar.setItemGeometry(WidgetSimpleTitle::ItemTitle, 0, 0, 0, 38);
    bar.setTitle("abc");
    QCOMPARE(titleLabel(bar)->text(), titleLabel(bar)->fontMetrics().elidedText("abc", Qt::ElideRight, 0));
}

void TestWidgetSimpleTitle::whatIsSetAlreadyCostsNothing()
{
    QWidget parent;
    WidgetSimpleTitle *bar = new WidgetSimpleTitle(&parent, nullptr);
    const auto configure = [bar] {
        bar->setItemGeometry(WidgetSimpleTitle::ItemBackground, 2, 3, 200, 30);
        bar->setItemGeometry(WidgetSimpleTitle::ItemTitle, 4, 0, 90, 30);
        bar->setItemStyle(WidgetSimpleTitle::ItemBackground, "background-color: #202020");
        bar->setItemStyle(WidgetSimpleTitle::ItemTitle, "color: white");
        bar->setTitle("A title that is too long for its place");
    };
    configure();
    QVERIFY(showAndPaint(parent));
    QCOMPARE(workOf(parent, configure), QStringList());
}

QTEST_MAIN(TestWidgetSimpleTitle)
#include "tst_widgetsimpletitle.moc"

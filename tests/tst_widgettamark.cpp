#include "displaywork.h"
#include "recordingplatform.h"
#include "widgettamark.h"

#include <QLabel>
#include <QtTest>

class TestWidgetTAMark : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void hasNoSignalsSlotsOrPropertiesOfItsOwn();
    void isBuiltWithALargeBoldLabel();
    void logsAndPlaysNothing();
    void hasNoPictureBeforeTheFirstShow();
    void everyShowPlacesAndDressesTheBanner();
    void heightCountsFromTheNextShow();
    void widthIsAlwaysTheSame();

    void textIsCutWhereItDoesNotFit_data();
    void textIsCutWhereItDoesNotFit();
    void textIsMeasuredInItsOwnFontWhateverASheetSays();
    void fontIsTwentyPointsBoldWhateverItCarried_data();
    void fontIsTwentyPointsBoldWhateverItCarried();
    void familyAndOtherAttributesOfTheFontSurvive();
    void fontThatLooksInheritedStaysWhenTheParentsChanges();
    void textIsMeasuredInTheNewFont();
    void textIsNotCutAgainByItself();
    void longTextIsNoTrouble();
    void textInAngleBracketsIsSeen();
    void textIsPlain();
    void whatIsSetAlreadyCostsNothing();
};

static QLabel *banner(const WidgetTAMark &mark)
{
    return mark.findChild<QLabel *>();
}

static QFont bannerFont()
{
    QFont font;
    font.setPointSize(20);
    font.setWeight(QFont::Bold);
    return font;
}

static int measure(const QString &text, const QFont &font)
{
    return QFontMetrics(font).horizontalAdvance(text);
}

void TestWidgetTAMark::init()
{
    RecordingPlatform::reset();
}

void TestWidgetTAMark::hasNoSignalsSlotsOrPropertiesOfItsOwn()
{
    WidgetTAMark mark(nullptr, nullptr);
    const QMetaObject *meta = mark.metaObject();
    QCOMPARE(meta->className(), "WidgetTAMark");
    QCOMPARE(meta->methodCount(), meta->methodOffset());
    QCOMPARE(meta->propertyCount(), meta->propertyOffset());
}

void TestWidgetTAMark::isBuiltWithALargeBoldLabel()
{
    QWidget parent;
    WidgetTAMark *mark = new WidgetTAMark(&parent, nullptr);
    QCOMPARE(mark->parentWidget(), &parent);
    QCOMPARE(mark->focusPolicy(), Qt::NoFocus);
    QCOMPARE(mark->styleSheet(), QString());
    QCOMPARE(mark->findChildren<QWidget *>().size(), 1);
    QCOMPARE(banner(*mark)->geometry(), QRect(0, 0, 220, mark->height()));
    QCOMPARE(banner(*mark)->font().pointSize(), 20);
    QCOMPARE(int(banner(*mark)->font().weight()), int(QFont::Bold));
    QCOMPARE(banner(*mark)->font().family(), QFont().family());
}

void TestWidgetTAMark::logsAndPlaysNothing()
{
    WidgetTAMark mark(nullptr, nullptr);
    mark.setTAFont(QFont());
    mark.updateTAText("Traffic");
    mark.show();
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetTAMark::hasNoPictureBeforeTheFirstShow()
{
    WidgetTAMark mark(nullptr, nullptr);
    mark.updateTAText("Traffic");
    QCOMPARE(banner(mark)->styleSheet(), QString());
    QCOMPARE(banner(mark)->alignment(), QLabel().alignment());
}

void TestWidgetTAMark::everyShowPlacesAndDressesTheBanner()
{
    const QString sheet = "color: #FFFFFF; background-image: url(:/resource/images_l2/tna_bg.png);";
    QWidget parent;
    WidgetTAMark *mark = new WidgetTAMark(&parent, nullptr);
    mark->setGeometry(5, 6, 220, 40);
    parent.show();
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(banner(*mark)->geometry(), QRect(0, 0, 220, 40));
        QCOMPARE(banner(*mark)->styleSheet(), sheet);
        QCOMPARE(banner(*mark)->alignment(), Qt::AlignHCenter | Qt::AlignVCenter);
        mark->hide();
        banner(*mark)->setGeometry(1, 2, 3, 4);
        banner(*mark)->setStyleSheet("color: red");
        banner(*mark)->setAlignment(Qt::AlignLeft);
        mark->show();
    }
}

void TestWidgetTAMark::heightCountsFromTheNextShow()
{
    QWidget parent;
    WidgetTAMark *mark = new WidgetTAMark(&parent, nullptr);
    mark->resize(220, 40);
    parent.show();
    mark->resize(220, 60);
    QCOMPARE(banner(*mark)->height(), 40);
    mark->hide();
    mark->show();
    QCOMPARE(banner(*mark)->height(), 60);
}

void TestWidgetTAMark::widthIsAlwaysTheSame()
{
    QWidget parent;
    WidgetTAMark *mark = new WidgetTAMark(&parent, nullptr);
    mark->resize(100, 40);
    parent.show();
    QCOMPARE(banner(*mark)->width(), 220);
}

void TestWidgetTAMark::textIsCutWhereItDoesNotFit_data()
{
    QTest::addColumn<int>("missing");
    QTest::addColumn<bool>("whole");
    QTest::newRow("room left") << -20 << true;
    QTest::newRow("exactly as wide") << 0 << true;
    QTest::newRow("one pixel wider") << 1 << false;
    QTest::newRow("much wider") << 60 << false;
}

void TestWidgetTAMark::textIsCutWhereItDoesNotFit()
{
    QFETCH(int, missing);
    QFETCH(bool, whole);
    const QString text = "Traffic news";
    WidgetTAMark mark(nullptr, nullptr);
    const int width = measure(text, bannerFont()) - missing;
    banner(mark)->resize(width, 40);
    mark.updateTAText(text);
    if (whole) {
        QCOMPARE(banner(mark)->text(), text);
    } else {
        QCOMPARE(banner(mark)->text(), QFontMetrics(bannerFont()).elidedText(text, Qt::ElideRight, width));
        QVERIFY(banner(mark)->text().endsWith(QChar(0x2026)));
        QVERIFY(measure(banner(mark)->text(), bannerFont()) <= width);
    }
}

void TestWidgetTAMark::textIsMeasuredInItsOwnFontWhateverASheetSays()
{
    WidgetTAMark mark(nullptr, nullptr);
    mark.show();
    banner(mark)->setStyleSheet("font-size: 200px");
    QVERIFY(measure("Traffic", banner(mark)->font()) > 220);
    mark.updateTAText("Traffic");
    QCOMPARE(banner(mark)->text(), QString("Traffic"));

    const QString text = "Traffic news from everywhere";
    banner(mark)->setStyleSheet("font-size: 2px");
    QVERIFY(measure(text, banner(mark)->font()) < 220);
    mark.updateTAText(text);
    QVERIFY(banner(mark)->text().endsWith(QChar(0x2026)));
}

void TestWidgetTAMark::fontIsTwentyPointsBoldWhateverItCarried_data()
{
    QTest::addColumn<QFont>("font");
    QFont light;
    light.setPointSize(12);
    light.setWeight(QFont::Light);
    QTest::newRow("12 points, light") << light;
    QFont pixels;
    pixels.setPixelSize(50);
    QTest::newRow("in pixels") << pixels;
    QFont black;
    black.setPointSize(40);
    black.setWeight(QFont::Black);
    QTest::newRow("40 points, black") << black;
}

void TestWidgetTAMark::fontIsTwentyPointsBoldWhateverItCarried()
{
    QFETCH(QFont, font);
    WidgetTAMark mark(nullptr, nullptr);
    mark.setTAFont(font);
    QCOMPARE(banner(mark)->font().pointSize(), 20);
    QCOMPARE(int(banner(mark)->font().weight()), int(QFont::Bold));
}

void TestWidgetTAMark::familyAndOtherAttributesOfTheFontSurvive()
{
    QFont font("DejaVu Serif", 12);
    font.setItalic(true);
    font.setUnderline(true);
    WidgetTAMark mark(nullptr, nullptr);
    mark.setTAFont(font);
    QCOMPARE(banner(mark)->font().family(), QString("DejaVu Serif"));
    QVERIFY(banner(mark)->font().italic());
    QVERIFY(banner(mark)->font().underline());
    QCOMPARE(font.pointSize(), 12);
}

void TestWidgetTAMark::fontThatLooksInheritedStaysWhenTheParentsChanges()
{
    QWidget parent;
    WidgetTAMark *mark = new WidgetTAMark(&parent, nullptr);
    const QString family = QApplication::font().family();
    mark->setTAFont(QFont(family));
    parent.setFont(QFont(QStringLiteral("another family")));
    QCOMPARE(banner(*mark)->font().family(), family);
}

void TestWidgetTAMark::textIsMeasuredInTheNewFont()
{
    const QString text = "Traffic news";
    QFont wide = bannerFont();
    wide.setStretch(200);
    wide.setLetterSpacing(QFont::AbsoluteSpacing, 12);
    WidgetTAMark mark(nullptr, nullptr);
    banner(mark)->resize(measure(text, bannerFont()), 40);
    mark.setTAFont(wide);
    mark.updateTAText(text);
    QVERIFY(banner(mark)->text().endsWith(QChar(0x2026)));
    mark.setTAFont(QFont());
    mark.updateTAText(text);
    QCOMPARE(banner(mark)->text(), text);
}

void TestWidgetTAMark::textIsNotCutAgainByItself()
{
    const QString text = "Traffic news";
    WidgetTAMark mark(nullptr, nullptr);
    mark.updateTAText(text);
    QCOMPARE(banner(mark)->text(), text);
    QFont wide;
    wide.setLetterSpacing(QFont::AbsoluteSpacing, 30);
    mark.setTAFont(wide);
    banner(mark)->resize(30, 40);
    mark.show();
    QCOMPARE(banner(mark)->text(), text);
    mark.updateTAText(text);
    QVERIFY(banner(mark)->text() != text);
}

void TestWidgetTAMark::textInAngleBracketsIsSeen()
{
    WidgetTAMark mark(nullptr, nullptr);
    mark.resize(220, 30);
    mark.updateTAText(QString());
    mark.show();
    const QImage empty = mark.grab().toImage();
    mark.updateTAText(QStringLiteral("<Unknown>"));
    QVERIFY(mark.grab().toImage() != empty);
}

void TestWidgetTAMark::longTextIsNoTrouble()
{
    WidgetTAMark mark(nullptr, nullptr);
    mark.updateTAText(QString(10000, 'W'));
    QVERIFY(measure(banner(mark)->text(), bannerFont()) <= 220);
    mark.updateTAText(QString());
    QCOMPARE(banner(mark)->text(), QString());
}

void TestWidgetTAMark::textIsPlain()
{
    WidgetTAMark mark(nullptr, nullptr);
    mark.updateTAText("<b>x</b>");
    QCOMPARE(banner(mark)->text(), QString("<b>x</b>"));
    QCOMPARE(banner(mark)->textFormat(), Qt::PlainText);
}

void TestWidgetTAMark::whatIsSetAlreadyCostsNothing()
{
    QWidget parent;
    WidgetTAMark *mark = new WidgetTAMark(&parent, nullptr);
    mark->updateTAText(QString(100, 'W'));
    QVERIFY(showAndPaint(parent));
    QCOMPARE(workOf(parent, [mark] {
        mark->setTAFont(QFont());
        mark->updateTAText(QString(100, 'W'));
    }), QStringList());

    const EventRecorder recorder(mark);
    mark->hide();
    mark->show();
    QCOMPARE(recorder.count(QEvent::StyleChange), 0);
    QCOMPARE(recorder.count(QEvent::Resize), 0);
}

QTEST_MAIN(TestWidgetTAMark)
#include "tst_widgettamark.moc"

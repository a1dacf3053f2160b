#include "displaywork.h"
#include "recordingplatform.h"
#include "widgetselecttile.h"

#include <QLabel>
#include <QtTest>

class TestWidgetSelectTile : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void hasNoSignalsSlotsOrPropertiesOfItsOwn();
    void isBuiltTransparentWithAWrappingLabel();
    void logsAndPlaysNothing();

    void contentThatFitsIsCentredElseWrappedFromTheTop_data();
    void contentThatFitsIsCentredElseWrappedFromTheTop();
    void contentIsNeverCut();
    void contentIsMeasuredInTheFontOfItsLabel();
    void beforeTheFirstShowTheInitialWidthCounts();
    void everyShowMeasuresAgain();
    void newSizeAloneMeasuresNothing();
    void labelTakesThePlaceOfTheTileInItsParent_data();
    void labelTakesThePlaceOfTheTileInItsParent();
    void emptyContentIsCentred();
    void longContentIsNoTrouble();
    void contentIsPlainText();
    void whatIsSetAlreadyCostsNothing();
};

static const QString s_oneLineSheet =
    "background: transparent;color: #fafafa;padding-left: 0px;padding-right: 0px; padding-top: 0px; "
    "padding-bottom: 0px;";
static const QString s_wrappedSheet =
    "background: transparent;color: #fafafa;padding-left: 0px;padding-right: 0px; padding-top: 10px; "
    "padding-bottom: 0px;";

static const Qt::Alignment s_centred = Qt::AlignHCenter | Qt::AlignVCenter;
static const Qt::Alignment s_fromTheTop = Qt::AlignLeft | Qt::AlignTop;

static QLabel *content(const WidgetSelectTile &tile)
{
    return tile.findChild<QLabel *>();
}

static int measure(const QString &text, const QLabel *label)
{
    return QFontMetrics(label->font()).horizontalAdvance(text);
}

static bool isOneLine(const WidgetSelectTile &tile)
{
    return content(tile)->styleSheet() == s_oneLineSheet && content(tile)->alignment() == s_centred;
}

static bool isWrapped(const WidgetSelectTile &tile)
{
    return content(tile)->styleSheet() == s_wrappedSheet && content(tile)->alignment() == s_fromTheTop;
}

// A tile with a parent, in which it is at first hidden.
struct PlacedTile
{
    explicit PlacedTile(const QRect &place = QRect(0, 0, 200, 80))
        : tile(new WidgetSelectTile(&parent, nullptr))
    {
        tile->setGeometry(place);
    }

    QWidget parent;
    WidgetSelectTile *tile;
};

void TestWidgetSelectTile::init()
{
    RecordingPlatform::reset();
}

void TestWidgetSelectTile::hasNoSignalsSlotsOrPropertiesOfItsOwn()
{
    WidgetSelectTile tile(nullptr, nullptr);
    const QMetaObject *meta = tile.metaObject();
    QCOMPARE(meta->className(), "WidgetSelectTile");
    QCOMPARE(meta->methodCount(), meta->methodOffset());
    QCOMPARE(meta->propertyCount(), meta->propertyOffset());
}

void TestWidgetSelectTile::isBuiltTransparentWithAWrappingLabel()
{
    const PlacedTile placed;
    const WidgetSelectTile &tile = *placed.tile;
    QCOMPARE(tile.parentWidget(), &placed.parent);
    QCOMPARE(tile.styleSheet(), QString("background: transparent;"));
    QCOMPARE(tile.findChildren<QWidget *>().size(), 1);
    QVERIFY(content(tile)->wordWrap());
    QCOMPARE(content(tile)->font().pointSize(), 16);
    QCOMPARE(int(content(tile)->font().weight()), int(QFont::Bold));
    QCOMPARE(content(tile)->font().family(), QFont().family());
    QCOMPARE(content(tile)->text(), QString());
    QCOMPARE(content(tile)->styleSheet(), QString());
}

void TestWidgetSelectTile::logsAndPlaysNothing()
{
    PlacedTile placed;
    placed.tile->setContent("Radio");
    placed.parent.show();
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetSelectTile::contentThatFitsIsCentredElseWrappedFromTheTop_data()
{
    QTest::addColumn<int>("missing");
    QTest::addColumn<QString>("sheet");
    QTest::addColumn<int>("alignment");
    QTest::newRow("room left") << -30 << s_oneLineSheet << int(s_centred);
    QTest::newRow("exactly as wide") << 0 << s_oneLineSheet << int(s_centred);
    QTest::newRow("one pixel wider") << 1 << s_wrappedSheet << int(s_fromTheTop);
    QTest::newRow("much wider") << 100 << s_wrappedSheet << int(s_fromTheTop);
}

void TestWidgetSelectTile::contentThatFitsIsCentredElseWrappedFromTheTop()
{
    QFETCH(int, missing);
    const QString text = "Radio and television";
    PlacedTile placed;
    placed.tile->resize(measure(text, content(*placed.tile)) - missing, 80);
    placed.parent.show();
    placed.tile->setContent(text);
    QCOMPARE(content(*placed.tile)->text(), text);
    QTEST(content(*placed.tile)->styleSheet(), "sheet");
    QTEST(int(content(*placed.tile)->alignment()), "alignment");
}

void TestWidgetSelectTile::contentIsNeverCut()
{
    PlacedTile placed(QRect(0, 0, 30, 10));
    placed.parent.show();
    const QString text = "A content of many words that has no room";
    placed.tile->setContent(text);
    QCOMPARE(content(*placed.tile)->text(), text);
}

void TestWidgetSelectTile::contentIsMeasuredInTheFontOfItsLabel()
{
    const QString text = "Radio";
    PlacedTile placed;
    placed.tile->resize(measure(text, content(*placed.tile)), 80);
    placed.parent.show();
    placed.tile->setContent(text);
    QVERIFY(isOneLine(*placed.tile));
    QFont larger = content(*placed.tile)->font();
    larger.setPointSize(30);
    content(*placed.tile)->setFont(larger);
    placed.tile->setContent(text);
    QVERIFY(isWrapped(*placed.tile));
}

void TestWidgetSelectTile::beforeTheFirstShowTheInitialWidthCounts()
{
    PlacedTile placed(QRect(0, 0, 1000, 80));
    const int initialWidth = content(*placed.tile)->width();
    QVERIFY(initialWidth < 1000);
    QString text;
    while (measure(text, content(*placed.tile)) <= initialWidth)
        text += "w ";
    placed.tile->setContent(text);
    QVERIFY(isWrapped(*placed.tile));
    placed.parent.show();
    QVERIFY(isOneLine(*placed.tile));
}

void TestWidgetSelectTile::everyShowMeasuresAgain()
{
    const QString text = "Radio and television";
    PlacedTile placed(QRect(0, 0, 1000, 80));
    placed.tile->setContent(text);
    placed.parent.show();
    QVERIFY(isOneLine(*placed.tile));
    placed.tile->hide();
    placed.tile->resize(60, 80);
    placed.tile->show();
    QVERIFY(isWrapped(*placed.tile));
    QCOMPARE(content(*placed.tile)->text(), text);
}

void TestWidgetSelectTile::newSizeAloneMeasuresNothing()
{
    PlacedTile placed(QRect(0, 0, 1000, 80));
    placed.tile->setContent("Radio and television");
    placed.parent.show();
    placed.tile->resize(60, 80);
    QVERIFY(isOneLine(*placed.tile));
    QCOMPARE(content(*placed.tile)->geometry(), QRect(0, 0, 1000, 80));
}

void TestWidgetSelectTile::labelTakesThePlaceOfTheTileInItsParent_data()
{
    QTest::addColumn<QRect>("place");
    QTest::newRow("in the corner") << QRect(0, 0, 200, 80);
    QTest::newRow("shifted") << QRect(30, 40, 200, 80);
    QTest::newRow("beyond the corner") << QRect(-5, -6, 200, 80);
}

void TestWidgetSelectTile::labelTakesThePlaceOfTheTileInItsParent()
{
    QFETCH(QRect, place);
    PlacedTile placed(place);
    placed.parent.show();
    QCOMPARE(content(*placed.tile)->geometry(), place);
}

void TestWidgetSelectTile::emptyContentIsCentred()
{
    PlacedTile placed;
    placed.parent.show();
    QVERIFY(isOneLine(*placed.tile));
    placed.tile->setContent("Radio");
    placed.tile->setContent(QString());
    QVERIFY(isOneLine(*placed.tile));
    QCOMPARE(content(*placed.tile)->text(), QString());
}

void TestWidgetSelectTile::longContentIsNoTrouble()
{
    PlacedTile placed;
    placed.parent.show();
    const QString text(10000, 'W');
    placed.tile->setContent(text);
    QVERIFY(isWrapped(*placed.tile));
    QCOMPARE(content(*placed.tile)->text(), text);
}

void TestWidgetSelectTile::contentIsPlainText()
{
    WidgetSelectTile tile(nullptr, nullptr);
    tile.setContent("<b>&amp;</b>");
    QCOMPARE(content(tile)->text(), QString("<b>&amp;</b>"));
    QCOMPARE(content(tile)->textFormat(), Qt::PlainText);
}

void TestWidgetSelectTile::whatIsSetAlreadyCostsNothing()
{
    PlacedTile placed;
    placed.tile->setContent("Radio and television and more");
    QVERIFY(showAndPaint(placed.parent));
    QCOMPARE(workOf(placed.parent, [&placed] {
        placed.tile->setContent("Radio and television and more");
    }), QStringList());

    const EventRecorder recorder(placed.tile);
    placed.tile->hide();
    placed.tile->show();
    QCOMPARE(recorder.count(QEvent::StyleChange), 0);
    QCOMPARE(recorder.count(QEvent::Resize), 0);
}

QTEST_MAIN(TestWidgetSelectTile)
#include "tst_widgetselecttile.moc"

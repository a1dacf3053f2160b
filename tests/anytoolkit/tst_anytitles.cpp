// What shows one text: simple title, menu title, traffic announcement, tile of a choice, and the text that circulates.

#include "anytoolkit.h"
#include "qtcompat.h"
#include "widgetmarqueelable.h"
#include "widgetmenutitle.h"
#include "widgetselecttile.h"
#include "widgetsimpletitle.h"
#include "widgettamark.h"

#include <QLabel>
#include <QTimerEvent>

class TestAnyTitles : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void longTitleIsCut();
    void titleIsNeverRichText();
    void titleShowsTheNewLook();
    void titleRejectsAnUnknownItem();

    void menuTitleShowsTheNewLook();
    void menuTitleAddsASheetOnce();
    void menuTitleIsMirroredFromRightToLeft();

    void longAnnouncementIsCut();
    void announcementShowsTheNewText();

    void contentOfATileIsInTheMiddleOrWrapped();
    void tileShowsTheNewContent();

    void marqueeTurnsItsText();
    void marqueeShowsTheTurnedText();
};

static const char LongText[] = "A title that is far too long for a display of this width, whatever the font";

template <typename Owner>
static QLabel *labelOf(const Owner &widget, int index = 0)
{
    return partsOf<QLabel>(&widget).at(index);
}

static bool isCutTo(const QLabel *label, const QString &text)
{
    return label->text() != text && label->text().startsWith(text.left(3))
        && textWidth(label->fontMetrics(), label->text()) <= label->width();
}

void TestAnyTitles::init()
{
    AnyPlatform::reset();
}

// --- WidgetSimpleTitle

void TestAnyTitles::longTitleIsCut()
{
    WidgetSimpleTitle title(0, 0);
    title.setTitle("Music");
    QCOMPARE(labelOf(title)->text(), QString("Music"));
    title.setTitle(LongText);
    QVERIFY(isCutTo(labelOf(title), LongText));
}

void TestAnyTitles::titleIsNeverRichText()
{
    WidgetSimpleTitle title(0, 0);
    title.setTitle("<b>B</b>");
    QCOMPARE(labelOf(title)->text(), QString("<b>B</b>"));
    QCOMPARE(int(labelOf(title)->textFormat()), int(Qt::PlainText));
}

void TestAnyTitles::titleShowsTheNewLook()
{
    Screen fresh;
    WidgetSimpleTitle freshTitle(&fresh, 0);
    freshTitle.setAttribute(Qt::WA_StyledBackground);
    freshTitle.setItemGeometry(WidgetSimpleTitle::ItemTitle, 10, 0, 200, 38);
    freshTitle.setFontStyle(WidgetSimpleTitle::ItemTitle, 16, true, QString());
    freshTitle.setTitle(LongText);
    const QImage expected = shownOnce(&fresh);

    Screen screen;
    WidgetSimpleTitle title(&screen, 0);
    title.setAttribute(Qt::WA_StyledBackground);
    title.setTitle("Music");
    screen.showInFront();
    QVERIFY(seen(&screen) != expected);
    title.setItemGeometry(WidgetSimpleTitle::ItemTitle, 10, 0, 200, 38);
    title.setFontStyle(WidgetSimpleTitle::ItemTitle, 16, true, "color: #ff0000;");
    title.setTitle(LongText);
    QVERIFY(looksAs(&screen, expected));
}

void TestAnyTitles::titleRejectsAnUnknownItem()
{
    WidgetSimpleTitle title(0, 0);
    title.setItemGeometry(WidgetSimpleTitle::Item(2), 0, 0, 1, 1);
    title.setItemStyle(WidgetSimpleTitle::Item(-1), QString());
    title.setFontStyle(WidgetSimpleTitle::ItemBackground, 10, true, QString());
    QCOMPARE(AnyPlatform::takeLog(), QStringList()
        << "2 [setItemGeometry, 31] Unknown item!!" << "2 [setItemStyle, 50] Unknown item!!" << "2 Invalid item!!");
}

// --- WidgetMenuTitle

static const char IconSheet[] = "image: url(:/resource/images_l2/icon_sound.png);";

void TestAnyTitles::menuTitleShowsTheNewLook()
{
    Screen fresh;
    WidgetMenuTitle freshTitle(&fresh, 0);
    freshTitle.setAttribute(Qt::WA_StyledBackground);
    freshTitle.setItemStyle(WidgetMenuTitle::ItemIcon, IconSheet);
    freshTitle.setItemGeometry(WidgetMenuTitle::ItemInfo, 170, 2, 48, 14);
    freshTitle.setItemStyle(WidgetMenuTitle::ItemInfo, "background-color: #f7ce86;");
    freshTitle.setFontStyle(WidgetMenuTitle::ItemTitle, 14, false, "color: #ffffff;");
    freshTitle.setTitle("Volume");
    const QImage expected = shownOnce(&fresh);

    Screen screen;
    WidgetMenuTitle title(&screen, 0);
    title.setAttribute(Qt::WA_StyledBackground);
    title.setTitle("Menu");
    screen.showInFront();
    QVERIFY(seen(&screen) != expected);
    title.setTitle("Volume");
    title.setItemStyle(WidgetMenuTitle::ItemIcon, IconSheet);
    title.setItemGeometry(WidgetMenuTitle::ItemTitle, 0, 0, 10, 10);
    title.setFontStyle(WidgetMenuTitle::ItemTitle, 14, false, "color: #ffffff;");
    title.setItemStyle(WidgetMenuTitle::ItemInfo, "background-color: #f7ce86;");
    title.setItemGeometry(WidgetMenuTitle::ItemInfo, 170, 2, 48, 14);
    QVERIFY(looksAs(&screen, expected));
}

void TestAnyTitles::menuTitleAddsASheetOnce()
{
    WidgetMenuTitle title(0, 0);
    title.setItemStyle(WidgetMenuTitle::ItemTitle, "color: #ff0000;");
    const QString sheet = labelOf(title, 1)->styleSheet();
    QVERIFY(sheet.endsWith("color: #ff0000;"));
    AnyPlatform::takeLog();
    title.setItemStyle(WidgetMenuTitle::ItemTitle, "COLOR: #FF0000;");
    QCOMPARE(labelOf(title, 1)->styleSheet(), sheet);
    QCOMPARE(AnyPlatform::takeLog(), QStringList() << "16 [setItemStyle, 93] concatStyle = " + sheet);
}

void TestAnyTitles::menuTitleIsMirroredFromRightToLeft()
{
    WidgetMenuTitle title(0, 0);
    AnyPlatform::setRightToLeft(true);
    WidgetMenuTitle mirrored(0, 0);
    const QRect icon = labelOf(title)->geometry();
    const QRect mirroredIcon = labelOf(mirrored)->geometry();
    QVERIFY(icon.right() < 110);
    QCOMPARE(mirroredIcon.width(), icon.width());
    QVERIFY(mirroredIcon.left() > 110);
    QVERIFY(labelOf(mirrored, 1)->geometry().right() < mirroredIcon.left() + mirroredIcon.width());

    // A title that is there goes to the other side with its next font.
    title.setFontStyle(WidgetMenuTitle::ItemTitle, 14, true, QString());
    QCOMPARE(labelOf(title)->geometry(), mirroredIcon);
}

// --- WidgetTAMark

void TestAnyTitles::longAnnouncementIsCut()
{
    WidgetTAMark mark(0, 0);
    mark.updateTAText(LongText);
    QVERIFY(isCutTo(labelOf(mark), LongText));
}

void TestAnyTitles::announcementShowsTheNewText()
{
    Screen fresh;
    WidgetTAMark freshMark(&fresh, 0);
    freshMark.setGeometry(0, 50, 220, 40);
    freshMark.updateTAText("Traffic");
    const QImage expected = shownOnce(&fresh);

    Screen screen;
    WidgetTAMark mark(&screen, 0);
    mark.setGeometry(0, 50, 220, 40);
    mark.updateTAText(LongText);
    screen.showInFront();
    QVERIFY(seen(&screen) != expected);
    mark.updateTAText("Traffic");
    QVERIFY(looksAs(&screen, expected));
}

// --- WidgetSelectTile

void TestAnyTitles::contentOfATileIsInTheMiddleOrWrapped()
{
    Screen screen;
    WidgetSelectTile tile(&screen, 0);
    tile.setGeometry(0, 0, 220, 100);
    tile.setContent("Music");
    screen.showInFront();
    QCOMPARE(int(labelOf(tile)->alignment()), int(Qt::AlignCenter));
    tile.setContent(LongText);
    QCOMPARE(int(labelOf(tile)->alignment()), int(Qt::AlignLeft | Qt::AlignTop));
    QCOMPARE(labelOf(tile)->text(), QString(LongText));
}

void TestAnyTitles::tileShowsTheNewContent()
{
    Screen fresh;
    fresh.setStyleSheet("background-color: #474242;");
    WidgetSelectTile freshTile(&fresh, 0);
    freshTile.setGeometry(0, 0, 220, 176);
    freshTile.setContent(LongText);
    const QImage expected = shownOnce(&fresh);

    Screen screen;
    screen.setStyleSheet("background-color: #474242;");
    WidgetSelectTile tile(&screen, 0);
    tile.setGeometry(0, 0, 220, 176);
    tile.setContent("Music");
    screen.showInFront();
    QVERIFY(seen(&screen) != expected);
    tile.setContent(LongText);
    QVERIFY(looksAs(&screen, expected));
}

// --- WidgetMarqueeLable

static void passTimer(QObject *object)
{
    QTimerEvent event(1);
    QCoreApplication::sendEvent(object, &event);
}

void TestAnyTitles::marqueeTurnsItsText()
{
    WidgetMarqueeLable label(0);
    label.m_marqueeText = "ABC";
    QStringList texts;
    for (int i = 0; i < 4; ++i) {
        passTimer(&label);
        texts << label.text();
    }
    QCOMPARE(texts, QStringList() << "BCA" << "CAB" << "ABC" << "BCA");
    QCOMPARE(label.m_offset, 1);
}

void TestAnyTitles::marqueeShowsTheTurnedText()
{
    Screen fresh;
    WidgetMarqueeLable freshLabel(&fresh);
    freshLabel.setGeometry(10, 10, 100, 20);
    freshLabel.setText("CDEAB");
    const QImage expected = shownOnce(&fresh);

    Screen screen;
    WidgetMarqueeLable label(&screen);
    label.setGeometry(10, 10, 100, 20);
    label.setText("ABCDE");
    label.m_marqueeText = "ABCDE";
    screen.showInFront();
    QVERIFY(seen(&screen) != expected);
    passTimer(&label);
    passTimer(&label);
    QVERIFY(looksAs(&screen, expected));
}

ANYTOOLKIT_MAIN(TestAnyTitles)

#include "tst_anytitles.moc"

#include "eventrecording.h"
#include "recordingplatform.h"
#include "waiting.h"
#include "widgetmenutitle.h"

#include "platform/soundmanager.h"

#include <QLabel>
#include <QtTest>

#include <climits>

using Item = WidgetMenuTitle::Item;

class TestWidgetMenuTitle : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void numbersItsParts();
    void hasNoMetaObjectOfItsOwn();
    void isBuiltAsABarWithoutFocus();
    void makesIconTitleAndInfoInThisOrder();
    void placesItsPartsByWritingDirection_data();
    void placesItsPartsByWritingDirection();
    void dressesItsParts();
    void keepsTheInfoAlignmentRightToLeft();
    void keepsItsInfoHiddenUntilItIsConfigured();
    void logsAndPlaysNothingWhenBuilt();

    void setTitleSetsTheTextAndNothingElse_data();
    void setTitleSetsTheTextAndNothingElse();

    void placesOnePart_data();
    void placesOnePart();
    void placingTheInfoShowsIt();
    void placingAnUnknownItemIsRejected_data();
    void placingAnUnknownItemIsRejected();

    void backgroundStyleIsReplaced();
    void backgroundStyleIsNotLogged();
    void labelStylesAreAddedAtTheEnd_data();
    void labelStylesAreAddedAtTheEnd();
    void aStyleThatOccursIsNotAddedAgain_data();
    void aStyleThatOccursIsNotAddedAgain();
    void mergedSheetIsLoggedOnEveryCall();
    void mergedSheetIsLoggedInLatin1();
    void mergedSheetIsSetEvenWhenNothingChanged();
    void stylingTheInfoShowsIt_data();
    void stylingTheInfoShowsIt();
    void stylingAnUnknownItemIsRejected_data();
    void stylingAnUnknownItemIsRejected();

    void setFontStyleTakesSizeAndWeight_data();
    void setFontStyleTakesSizeAndWeight();
    void boldFalseStartsFromAFreshFont();
    void setFontStyleReplacesTheTitleSheet();
    void setFontStyleRestoresThePlacesOfIconAndTitle_data();
    void setFontStyleRestoresThePlacesOfIconAndTitle();
    void setFontStyleLeavesTheInfoAlone();
    void setFontStyleRejectsEveryOtherItem_data();
    void setFontStyleRejectsEveryOtherItem();
    void setFontStyleWithWhatIsInPlaceDressesNothing();

    void handsOnEveryKey();
};

struct Parts
{
    explicit Parts(const WidgetMenuTitle &title)
    {
        const QList<QLabel *> labels = title.findChildren<QLabel *>();
        if (labels.size() != 3)
            qFatal("a menu title has three labels");
        icon = labels.at(0);
        text = labels.at(1);
        info = labels.at(2);
    }

    QLabel *icon;
    QLabel *text;
    QLabel *info;
};

static const QString s_titleSheet = QStringLiteral("padding-left: 1px;");
static const QString s_iconSheet = QStringLiteral("padding: 3px;");
static const QString s_barSheet = QStringLiteral("color: #FFFFFF;background-color: #474242;");

void TestWidgetMenuTitle::init()
{
    RecordingPlatform::reset();
}

void TestWidgetMenuTitle::numbersItsParts()
{
    QCOMPARE(int(WidgetMenuTitle::ItemBackground), 0);
    QCOMPARE(int(WidgetMenuTitle::ItemTitle), 1);
    QCOMPARE(int(WidgetMenuTitle::ItemIcon), 2);
    QCOMPARE(int(WidgetMenuTitle::ItemInfo), 3);
}

void TestWidgetMenuTitle::hasNoMetaObjectOfItsOwn()
{
    WidgetMenuTitle title(nullptr, nullptr);
    QCOMPARE(title.metaObject(), &Widget::staticMetaObject);
}

void TestWidgetMenuTitle::isBuiltAsABarWithoutFocus()
{
    QWidget parent;
    WidgetMenuTitle *title = new WidgetMenuTitle(&parent, nullptr);
    QCOMPARE(title->parentWidget(), &parent);
    QCOMPARE(title->geometry(), QRect(0, 0, 220, 38));
    QCOMPARE(title->focusPolicy(), Qt::NoFocus);
    QCOMPARE(title->styleSheet(), s_barSheet);
}

void TestWidgetMenuTitle::makesIconTitleAndInfoInThisOrder()
{
    WidgetMenuTitle title(nullptr, nullptr);
    const Parts parts(title);
    QCOMPARE(title.findChildren<QWidget *>().size(), 3);
    QCOMPARE(parts.icon->styleSheet(), s_iconSheet);
    QCOMPARE(parts.text->styleSheet(), s_titleSheet);
    QCOMPARE(parts.info->styleSheet(), QString());
}

void TestWidgetMenuTitle::placesItsPartsByWritingDirection_data()
{
    QTest::addColumn<bool>("rightToLeft");
    QTest::addColumn<QRect>("icon");
    QTest::addColumn<QRect>("text");
    QTest::addColumn<QRect>("info");
    QTest::newRow("left to right") << false << QRect(0, 0, 38, 38) << QRect(38, 0, 182, 38) << QRect(152, 0, 68, 13);
    QTest::newRow("right to left") << true << QRect(182, 0, 38, 38) << QRect(0, 0, 182, 38) << QRect(0, 0, 68, 13);
}

void TestWidgetMenuTitle::placesItsPartsByWritingDirection()
{
    QFETCH(bool, rightToLeft);
    RecordingPlatform::setRightToLeft(rightToLeft);
    WidgetMenuTitle title(nullptr, nullptr);
    const Parts parts(title);
    QTEST(parts.icon->geometry(), "icon");
    QTEST(parts.text->geometry(), "text");
    QTEST(parts.info->geometry(), "info");
}

void TestWidgetMenuTitle::dressesItsParts()
{
    WidgetMenuTitle title(nullptr, nullptr);
    const Parts parts(title);
    QCOMPARE(parts.text->font().pointSize(), 14);
    QCOMPARE(int(parts.text->font().weight()), int(QFont::Bold));
    QCOMPARE(parts.text->font().family(), QFont().family());
    QCOMPARE(parts.text->alignment(), Qt::AlignLeft | Qt::AlignVCenter);
    QCOMPARE(parts.info->alignment(), Qt::AlignRight | Qt::AlignTop);
    QCOMPARE(parts.icon->font(), QFont());
    QCOMPARE(parts.info->font(), QFont());
    QCOMPARE(parts.icon->alignment(), QLabel().alignment());
}

void TestWidgetMenuTitle::keepsTheInfoAlignmentRightToLeft()
{
    RecordingPlatform::setRightToLeft(true);
    WidgetMenuTitle title(nullptr, nullptr);
    QCOMPARE(Parts(title).info->alignment(), Qt::AlignRight | Qt::AlignTop);
    QCOMPARE(Parts(title).text->alignment(), Qt::AlignLeft | Qt::AlignVCenter);
}

void TestWidgetMenuTitle::keepsItsInfoHiddenUntilItIsConfigured()
{
    WidgetMenuTitle title(nullptr, nullptr);
    const Parts parts(title);
    title.show();
    QVERIFY(parts.icon->isVisible());
    QVERIFY(parts.text->isVisible());
    QVERIFY(!parts.info->isVisible());
    title.setItemStyle(WidgetMenuTitle::ItemTitle, QStringLiteral("color: red;"));
    title.setItemGeometry(WidgetMenuTitle::ItemIcon, 1, 2, 3, 4);
    title.setTitle(QStringLiteral("Settings"));
    title.setFontStyle(WidgetMenuTitle::ItemTitle, 12, true, QString());
    title.hide();
    title.show();
    QVERIFY(!parts.info->isVisible());
}

void TestWidgetMenuTitle::logsAndPlaysNothingWhenBuilt()
{
    WidgetMenuTitle title(nullptr, SoundManager::getInstance());
    title.show();
    title.setTitle(QStringLiteral("Settings"));
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetMenuTitle::setTitleSetsTheTextAndNothingElse_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("a word") << "Settings";
    QTest::newRow("empty") << "";
    QTest::newRow("right to left") << QString::fromUtf8("הגדרות");
    QTest::newRow("too long is not cut") << QString(10000, QChar('W'));
}

void TestWidgetMenuTitle::setTitleSetsTheTextAndNothingElse()
{
    QFETCH(QString, text);
    WidgetMenuTitle title(nullptr, nullptr);
    const Parts parts(title);
    title.setTitle(QStringLiteral("before"));
    title.show();
    const QFont font = parts.text->font();
    title.setTitle(text);
    QCOMPARE(parts.text->text(), text);
    QCOMPARE(parts.text->geometry(), QRect(38, 0, 182, 38));
    QCOMPARE(parts.text->font(), font);
    QCOMPARE(parts.text->styleSheet(), s_titleSheet);
    QCOMPARE(parts.icon->text(), QString());
    QCOMPARE(parts.info->text(), QString());
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetMenuTitle::placesOnePart_data()
{
    QTest::addColumn<int>("item");
    QTest::addColumn<QRect>("rect");
    QTest::newRow("background") << 0 << QRect(3, 5, 100, 20);
    QTest::newRow("title") << 1 << QRect(40, 1, 80, 30);
    QTest::newRow("icon") << 2 << QRect(7, 8, 9, 10);
    QTest::newRow("info") << 3 << QRect(100, 2, 50, 12);
    QTest::newRow("negative position") << 1 << QRect(-4, -5, 60, 30);
    QTest::newRow("no size") << 2 << QRect(4, 5, 0, 0);
}

void TestWidgetMenuTitle::placesOnePart()
{
    QFETCH(int, item);
    QFETCH(QRect, rect);
    QWidget parent;
    WidgetMenuTitle *title = new WidgetMenuTitle(&parent, nullptr);
    const Parts parts(*title);
    QList<QWidget *> widgets;
    widgets << title << parts.text << parts.icon << parts.info;
    QList<QRect> expected;
    for (QWidget *widget : widgets)
        expected << widget->geometry();
    expected[item] = rect;

    title->setItemGeometry(Item(item), rect.x(), rect.y(), rect.width(), rect.height());
    for (int i = 0; i < widgets.size(); ++i)
        QCOMPARE(widgets.at(i)->geometry(), expected.at(i));
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetMenuTitle::placingTheInfoShowsIt()
{
    WidgetMenuTitle title(nullptr, nullptr);
    const Parts parts(title);
    title.setItemGeometry(WidgetMenuTitle::ItemInfo, 100, 0, 50, 12);
    QVERIFY(!parts.info->isHidden());
    title.show();
    QVERIFY(parts.info->isVisible());
}

void TestWidgetMenuTitle::placingAnUnknownItemIsRejected_data()
{
    QTest::addColumn<int>("item");
    QTest::newRow("4") << 4;
    QTest::newRow("-1") << -1;
    QTest::newRow("largest") << INT_MAX;
    QTest::newRow("smallest") << INT_MIN;
}

void TestWidgetMenuTitle::placingAnUnknownItemIsRejected()
{
    QFETCH(int, item);
    WidgetMenuTitle title(nullptr, nullptr);
    const Parts parts(title);
    title.setItemGeometry(Item(item), 1, 2, 3, 4);
    QCOMPARE(RecordingPlatform::events(), QStringList("log:2:[setItemGeometry, 56] Unknown item!!"));
    QCOMPARE(title.geometry(), QRect(0, 0, 220, 38));
    QCOMPARE(parts.icon->geometry(), QRect(0, 0, 38, 38));
    QCOMPARE(parts.text->geometry(), QRect(38, 0, 182, 38));
    QCOMPARE(parts.info->geometry(), QRect(152, 0, 68, 13));
    QVERIFY(parts.info->isHidden());
}

void TestWidgetMenuTitle::backgroundStyleIsReplaced()
{
    WidgetMenuTitle title(nullptr, nullptr);
    title.setItemStyle(WidgetMenuTitle::ItemBackground, QStringLiteral("background-color: red;"));
    QCOMPARE(title.styleSheet(), QStringLiteral("background-color: red;"));
    title.setItemStyle(WidgetMenuTitle::ItemBackground, QStringLiteral("red"));
    QCOMPARE(title.styleSheet(), QStringLiteral("red"));
    title.setItemStyle(WidgetMenuTitle::ItemBackground, QString());
    QCOMPARE(title.styleSheet(), QString());
}

void TestWidgetMenuTitle::backgroundStyleIsNotLogged()
{
    WidgetMenuTitle title(nullptr, nullptr);
    title.setItemStyle(WidgetMenuTitle::ItemBackground, QStringLiteral("background-color: red;"));
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetMenuTitle::labelStylesAreAddedAtTheEnd_data()
{
    QTest::addColumn<int>("item");
    QTest::addColumn<QString>("before");
    QTest::newRow("title") << 1 << s_titleSheet;
    QTest::newRow("icon") << 2 << s_iconSheet;
    QTest::newRow("info") << 3 << QString();
}

void TestWidgetMenuTitle::labelStylesAreAddedAtTheEnd()
{
    QFETCH(int, item);
    QFETCH(QString, before);
    WidgetMenuTitle title(nullptr, nullptr);
    const Parts parts(title);
    QLabel *label = QList<QLabel *>({parts.text, parts.icon, parts.info}).at(item - 1);
    title.setItemStyle(Item(item), QStringLiteral("color: red;"));
    QCOMPARE(label->styleSheet(), before + "color: red;");
    title.setItemStyle(Item(item), QStringLiteral("margin: 1px"));
    QCOMPARE(label->styleSheet(), before + "color: red;margin: 1px");
    title.setItemStyle(Item(item), QStringLiteral("border: 0px"));
    QCOMPARE(label->styleSheet(), before + "color: red;margin: 1pxborder: 0px");
}

void TestWidgetMenuTitle::aStyleThatOccursIsNotAddedAgain_data()
{
    QTest::addColumn<QString>("style");
    QTest::newRow("the same") << "color: red;";
    QTest::newRow("in capitals") << "COLOR: RED;";
    QTest::newRow("a piece of a word") << "padding";
    QTest::newRow("a piece across two") << "px;color";
    QTest::newRow("all of it") << "padding-left: 1px;color: red;";
    QTest::newRow("empty") << "";
    QTest::newRow("null") << QString();
}

void TestWidgetMenuTitle::aStyleThatOccursIsNotAddedAgain()
{
    QFETCH(QString, style);
    WidgetMenuTitle title(nullptr, nullptr);
    title.setItemStyle(WidgetMenuTitle::ItemTitle, QStringLiteral("color: red;"));
    title.setItemStyle(WidgetMenuTitle::ItemTitle, style);
    QCOMPARE(Parts(title).text->styleSheet(), QStringLiteral("padding-left: 1px;color: red;"));
}

void TestWidgetMenuTitle::mergedSheetIsLoggedOnEveryCall()
{
    WidgetMenuTitle title(nullptr, nullptr);
    title.setItemStyle(WidgetMenuTitle::ItemTitle, QStringLiteral("color: red;"));
    title.setItemStyle(WidgetMenuTitle::ItemTitle, QStringLiteral("color: red;"));
    title.setItemStyle(WidgetMenuTitle::ItemIcon, QStringLiteral("padding"));
    title.setItemStyle(WidgetMenuTitle::ItemInfo, QString());
    QCOMPARE(RecordingPlatform::events(),
             QStringList({"log:16:[setItemStyle, 93] concatStyle = padding-left: 1px;color: red;",
                          "log:16:[setItemStyle, 93] concatStyle = padding-left: 1px;color: red;",
                          "log:16:[setItemStyle, 93] concatStyle = padding: 3px;",
                          "log:16:[setItemStyle, 93] concatStyle = "}));
}

void TestWidgetMenuTitle::mergedSheetIsLoggedInLatin1()
{
    WidgetMenuTitle title(nullptr, nullptr);
    // The recording platform reads lines as Latin-1.
    title.setItemStyle(WidgetMenuTitle::ItemInfo, QString::fromLatin1("image: url(:/gr\xfc\xdf%s%n.png)"));
    QCOMPARE(RecordingPlatform::logTexts(16),
             QStringList(QString::fromLatin1("[setItemStyle, 93] concatStyle = image: url(:/gr\xfc\xdf%s%n.png)")));
}

void TestWidgetMenuTitle::mergedSheetIsSetEvenWhenNothingChanged()
{
    WidgetMenuTitle title(nullptr, nullptr);
    title.show();
    title.setItemStyle(WidgetMenuTitle::ItemTitle, QStringLiteral("color: red;"));
    EventRecorder recorder(&title);
    title.setItemStyle(WidgetMenuTitle::ItemTitle, QStringLiteral("color: red;"));
    QVERIFY(recorder.count(QEvent::StyleChange, Parts(title).text) > 0);
}

void TestWidgetMenuTitle::stylingTheInfoShowsIt_data()
{
    QTest::addColumn<QString>("style");
    QTest::newRow("a colour") << "color: red;";
    QTest::newRow("nothing") << "";
}

void TestWidgetMenuTitle::stylingTheInfoShowsIt()
{
    QFETCH(QString, style);
    WidgetMenuTitle title(nullptr, nullptr);
    title.show();
    title.setItemStyle(WidgetMenuTitle::ItemInfo, style);
    QVERIFY(Parts(title).info->isVisible());
    QCOMPARE(Parts(title).info->geometry(), QRect(152, 0, 68, 13));
}

void TestWidgetMenuTitle::stylingAnUnknownItemIsRejected_data()
{
    placingAnUnknownItemIsRejected_data();
}

void TestWidgetMenuTitle::stylingAnUnknownItemIsRejected()
{
    QFETCH(int, item);
    WidgetMenuTitle title(nullptr, nullptr);
    const Parts parts(title);
    title.setItemStyle(Item(item), QStringLiteral("color: red;"));
    QCOMPARE(RecordingPlatform::events(), QStringList("log:2:[setItemStyle, 82] Unknown item!!"));
    QCOMPARE(title.styleSheet(), s_barSheet);
    QCOMPARE(parts.icon->styleSheet(), s_iconSheet);
    QCOMPARE(parts.text->styleSheet(), s_titleSheet);
    QCOMPARE(parts.info->styleSheet(), QString());
    QVERIFY(parts.info->isHidden());
}

void TestWidgetMenuTitle::setFontStyleTakesSizeAndWeight_data()
{
    QTest::addColumn<int>("pointSize");
    QTest::addColumn<bool>("bold");
    QTest::newRow("bold") << 18 << true;
    QTest::newRow("not bold") << 10 << false;
    QTest::newRow("the size it has, not bold") << 14 << false;
    QTest::newRow("what it has") << 14 << true;
}

void TestWidgetMenuTitle::setFontStyleTakesSizeAndWeight()
{
    QFETCH(int, pointSize);
    QFETCH(bool, bold);
    WidgetMenuTitle title(nullptr, nullptr);
    title.setFontStyle(WidgetMenuTitle::ItemTitle, pointSize, bold, QString());
    const QFont font = Parts(title).text->font();
    QCOMPARE(font.pointSize(), pointSize);
    QCOMPARE(int(font.weight()), bold ? int(QFont::Bold) : int(QFont().weight()));
    QCOMPARE(font.family(), QFont().family());
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetMenuTitle::boldFalseStartsFromAFreshFont()
{
    WidgetMenuTitle title(nullptr, nullptr);
    QLabel *text = Parts(title).text;
    QFont odd = text->font();
    odd.setItalic(true);
    odd.setUnderline(true);
    text->setFont(odd);
    title.setFontStyle(WidgetMenuTitle::ItemTitle, 14, false, QString());
    QFont fresh;
    fresh.setPointSize(14);
    QCOMPARE(text->font(), fresh);
}

void TestWidgetMenuTitle::setFontStyleReplacesTheTitleSheet()
{
    WidgetMenuTitle title(nullptr, nullptr);
    const Parts parts(title);
    title.setItemStyle(WidgetMenuTitle::ItemTitle, QStringLiteral("color: red;"));
    title.setFontStyle(WidgetMenuTitle::ItemTitle, 14, true, QStringLiteral("color"));
    QCOMPARE(parts.text->styleSheet(), QStringLiteral("color"));
    title.setFontStyle(WidgetMenuTitle::ItemTitle, 14, true, QString());
    QCOMPARE(parts.text->styleSheet(), QString());
    QCOMPARE(parts.icon->styleSheet(), s_iconSheet);
}

void TestWidgetMenuTitle::setFontStyleRestoresThePlacesOfIconAndTitle_data()
{
    QTest::addColumn<bool>("builtRightToLeft");
    QTest::addColumn<bool>("rightToLeft");
    QTest::newRow("left to right") << false << false;
    QTest::newRow("right to left") << true << true;
    QTest::newRow("turned right to left since") << false << true;
    QTest::newRow("turned left to right since") << true << false;
}

void TestWidgetMenuTitle::setFontStyleRestoresThePlacesOfIconAndTitle()
{
    QFETCH(bool, builtRightToLeft);
    QFETCH(bool, rightToLeft);
    RecordingPlatform::setRightToLeft(builtRightToLeft);
    WidgetMenuTitle title(nullptr, nullptr);
    const Parts parts(title);
    title.setItemGeometry(WidgetMenuTitle::ItemTitle, 1, 2, 3, 4);
    title.setItemGeometry(WidgetMenuTitle::ItemIcon, 5, 6, 7, 8);
    RecordingPlatform::setRightToLeft(rightToLeft);
    title.setFontStyle(WidgetMenuTitle::ItemTitle, 14, true, QString());
    QCOMPARE(parts.icon->geometry(), QRect(rightToLeft ? 182 : 0, 0, 38, 38));
    QCOMPARE(parts.text->geometry(), QRect(rightToLeft ? 0 : 38, 0, 182, 38));
}

void TestWidgetMenuTitle::setFontStyleLeavesTheInfoAlone()
{
    WidgetMenuTitle title(nullptr, nullptr);
    QLabel *info = Parts(title).info;
    RecordingPlatform::setRightToLeft(true);
    title.setFontStyle(WidgetMenuTitle::ItemTitle, 14, true, QString());
    QCOMPARE(info->geometry(), QRect(152, 0, 68, 13));
    QVERIFY(info->isHidden());
    title.setItemGeometry(WidgetMenuTitle::ItemInfo, 1, 2, 3, 4);
    title.setFontStyle(WidgetMenuTitle::ItemTitle, 14, true, QString());
    QCOMPARE(info->geometry(), QRect(1, 2, 3, 4));
}

void TestWidgetMenuTitle::setFontStyleRejectsEveryOtherItem_data()
{
    QTest::addColumn<int>("item");
    QTest::newRow("background") << 0;
    QTest::newRow("icon") << 2;
    QTest::newRow("info") << 3;
    QTest::newRow("4") << 4;
    QTest::newRow("-1") << -1;
}

void TestWidgetMenuTitle::setFontStyleRejectsEveryOtherItem()
{
    QFETCH(int, item);
    WidgetMenuTitle title(nullptr, nullptr);
    const Parts parts(title);
    title.setItemGeometry(WidgetMenuTitle::ItemIcon, 5, 6, 7, 8);
    const QFont font = parts.text->font();
    title.setFontStyle(Item(item), 20, false, QStringLiteral("color: red;"));
    QCOMPARE(RecordingPlatform::events(), QStringList("log:2:Invalid item!!"));
    QCOMPARE(parts.text->font(), font);
    QCOMPARE(parts.text->styleSheet(), s_titleSheet);
    QCOMPARE(parts.icon->styleSheet(), s_iconSheet);
    QCOMPARE(parts.icon->geometry(), QRect(5, 6, 7, 8));
    QVERIFY(parts.info->isHidden());
}

void TestWidgetMenuTitle::setFontStyleWithWhatIsInPlaceDressesNothing()
{
    WidgetMenuTitle title(nullptr, nullptr);
    title.setFontStyle(WidgetMenuTitle::ItemTitle, 14, false, QStringLiteral("color: rgba(255,255,255,255);"));
    title.show();
    QVERIFY(QTest::qWaitForWindowExposed(&title, LongestWait));
    passTime(20);
    EventRecorder recorder(&title);
    title.setFontStyle(WidgetMenuTitle::ItemTitle, 14, false, QStringLiteral("color: rgba(255,255,255,255);"));
    passTime(20);
    QCOMPARE(recorder.count(QEvent::StyleChange), 0);
    QCOMPARE(recorder.count(QEvent::FontChange), 0);
    QCOMPARE(recorder.count(QEvent::Paint), 0);
}

void TestWidgetMenuTitle::handsOnEveryKey()
{
    KeyRecorder screen;
    WidgetMenuTitle *title = new WidgetMenuTitle(&screen, SoundManager::getInstance());
    pressKey(title, Qt::Key_2);
    releaseKey(title, Qt::Key_Menu);
    QCOMPARE(screen.takeKeys(), QStringList({"press 2", "release Menu"}));
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

QTEST_MAIN(TestWidgetMenuTitle)
#include "tst_widgetmenutitle.moc"

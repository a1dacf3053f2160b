// Compares pictures of the widgets, in the states that a user can see, with the reference pictures in images/.
//
// A picture that does not match is written to pictures/ in the build directory, together with one that shows where it
// differs. References are renewed on purpose only, by running this program with WIDGET_RENEW_PICTURES=1 in the
// environment, first built with Qt 5 and then with Qt 6: it then writes those that do not match. Look at them before
// you keep them.
//
// A new picture is one more line in pictures(), with a function that puts the widget on the screen.

#include "eventrecording.h"
#include "picturecomparison.h"
#include "recordingplatform.h"
#include "waiting.h"

#include "widgetbottom.h"
#include "widgetbottomguide.h"
#include "widgetclock.h"
#include "widgetdate.h"
#include "widgeticongroup.h"
#include "widgetkeypad.h"
#include "widgetkeypadbottom.h"
#include "widgetlist.h"
#include "widgetlistitem.h"
#include "widgetmarqueelable.h"
#include "widgetmenutitle.h"
#include "widgetprogressbar.h"
#include "widgetselecttile.h"
#include "widgetsimpletitle.h"
#include "widgetsoftbtn.h"
#include "widgetstatusbar.h"
#include "widgetswitcher.h"
#include "widgettamark.h"

#include <QFontInfo>
#include <QLabel>
#include <QStyle>
#include <QStyleFactory>
#include <QtTest>

#include <functional>

using Change = std::function<void(QLabel &)>;
Q_DECLARE_METATYPE(Change)

namespace {

// The screen that a picture shows.
class Screen : public QWidget
{
public:
    explicit Screen(const QSize &size, const char *ground = "#343232")
    {
        setFixedSize(size);
        QPalette palette;
        palette.setColor(QPalette::Window, QColor(QLatin1String(ground)));
        setPalette(palette);
    }

    template <typename Class, typename... Arguments>
    Class &add(Arguments... arguments)
    {
        Class *widget = new Class(arguments...);
        // As an application does that wants the widget's own background painted.
        widget->setAttribute(Qt::WA_StyledBackground);
        return *widget;
    }
};

using Scene = std::function<void(Screen &)>;

struct Picture
{
    const char *name;
    QSize size;
    Scene arrange;         // puts the widgets on the screen
    Scene use = nullptr;   // what happens once they are shown
};

QString image(const char *name)
{
    return QStringLiteral("image: url(:/resource/images_l2/%1.png)").arg(QLatin1String(name));
}

QString background(const char *color)
{
    return QStringLiteral("background-color: %1").arg(QLatin1String(color));
}

template <typename Class>
Class &only(Screen &screen)
{
    return *screen.findChild<Class *>();
}

// Status bar

WidgetStatusBar &addStatusBar(Screen &screen)
{
    WidgetStatusBar &bar = screen.add<WidgetStatusBar>(&screen, nullptr);
    bar.setBgGeometry(0, 0, 220, 20, 24);
    const char *const icons[] = {"icon_bars", "icon_disc", "icon_triangle", "icon_battery"};
    for (int item = 0; item < 4; ++item) {
        bar.setStatusUrl(item, 0, image(icons[item]));
        bar.setStatusUrl(item, 1, image(icons[item]) + ";background-color: #a03020");
    }
    return bar;
}

void setStates(Screen &screen)
{
    WidgetStatusBar &bar = only<WidgetStatusBar>(screen);
    bar.showItem0(1);
    bar.showItem2(2);
    bar.showItem3(1);
}

// Bottom bar

WidgetBottom &addBottom(Screen &screen)
{
    WidgetBottom &bar = screen.add<WidgetBottom>(&screen, nullptr);
    bar.setGeometry(0, 0, 220, 26);
    bar.setItemStyle(0, QString(), background("#594B4F"), 0);
    bar.setItemStyle(1, QString(), background("#474242"), 0);
    const char *const pictures[] = {"icon_disc", "icon_square", "icon_triangle", "icon_bars"};
    for (int picture = 0; picture < 4; ++picture)
        bar.setItemStyle(picture + 2, image(pictures[picture]), QString(), 1);
    return bar;
}

// Soft button

void addSoftBtn(Screen &screen, bool annotated)
{
    WidgetSoftBtn &button = screen.add<WidgetSoftBtn>(annotated, &screen, nullptr);
    button.setItemGeometry(WidgetSoftBtn::ItemBackground, 4, 4, 102, 29);
    button.setBtnName("Options");
    if (annotated) {
        button.setItemStyle(WidgetSoftBtn::ItemAnnotation, "color: white; font-size: 8px");
        button.findChildren<QLabel *>().at(1)->setText("F1");
    }
}

// Simple title

WidgetSimpleTitle &addSimpleTitle(Screen &screen, const char *title)
{
    WidgetSimpleTitle &bar = screen.add<WidgetSimpleTitle>(&screen, nullptr);
    bar.setTitle(QString::fromUtf8(title));
    return bar;
}

// Menu title

WidgetMenuTitle &addMenuTitle(Screen &screen, bool rightToLeft = false)
{
    RecordingPlatform::setRightToLeft(rightToLeft);
    WidgetMenuTitle &title = screen.add<WidgetMenuTitle>(&screen, nullptr);
    title.setTitle("Settings");
    title.setItemStyle(WidgetMenuTitle::ItemIcon, image("icon_square"));
    return title;
}

// Lists and their rows

WidgetListItem *newRow(const char *title, const QStringList &values = QStringList())
{
    WidgetListItem *row = new WidgetListItem(nullptr, nullptr);
    row->setGeometry(0, 0, 220, 46);
    row->setTitle(QString::fromUtf8(title), true);
    for (const QString &value : values)
        row->addValue(value);
    return row;
}

WidgetListItem &addRow(Screen &screen, WidgetListItem *row)
{
    row->setParent(&screen);
    return *row;
}

void focusRow(Screen &screen)
{
    only<WidgetListItem>(screen).setFocusPolicy(Qt::StrongFocus);
    only<WidgetListItem>(screen).setFocus();
}

WidgetList &addList(Screen &screen, bool rightToLeft = false)
{
    RecordingPlatform::setRightToLeft(rightToLeft);
    WidgetList &list = screen.add<WidgetList>(5, &screen, nullptr);
    list.setGeometry(0, 0, 220, 176);
    list.setTitle("Settings", true);
    list.setTitleIcon(image("icon_disc"));
    WidgetListItem *display = newRow("Display");
    display->setMoreDepth(true);
    WidgetListItem *sound = newRow("Key sound", {"Loud", "Soft"});
    WidgetListItem *language = newRow("Language", {"English", "Deutsch"});
    language->setSerialNum(true, 3);
    language->m_noShortcut = false;
    for (WidgetListItem *row : {display, sound, language, newRow("Version", {"1.0"}), newRow("Reset")})
        list.addListItem(row);
    return list;
}

// Switcher

WidgetSwitcher &addSwitcher(Screen &screen)
{
    WidgetSwitcher &switcher = screen.add<WidgetSwitcher>(&screen, nullptr);
    const char *const colors[] = {"#c05040", "#c0a040", "#60a050", "#4090a0", "#5060b0", "#a050a0"};
    const char *const names[] = {"Radio", "Media", "Phone", "Maps", "Memory", "Settings"};
    for (int index = 0; index < 6; ++index) {
        switcher.setItemStyle(1, background(colors[index]) + ";margin: 28px 6px", QString(), index);
        switcher.setItemStyle(3, background(colors[index]) + ";margin: 4px 10px", QString(), index);
        switcher.setItemStyle(4, QString::fromLatin1(names[index]), QString(), index);
    }
    switcher.setItemStyle(5, image("page_off"), QString(), 0);
    switcher.setItemStyle(6, image("page_on"), QString(), 0);
    switcher.setFontStyle(4, 14, true, "color: white");
    switcher.setBgGeometry(0, 0, 220, 176);
    return switcher;
}

// Page guide

void addGuide(Screen &screen)
{
    WidgetBottomGuide &guide = screen.add<WidgetBottomGuide>(&screen, nullptr);
    guide.setGeometry(0, 0, 220, 26);
    guide.setCurPageNo(3);
    guide.setTotPageNo(10);
}

// Icon group

WidgetIconGroup &addIconGroup(Screen &screen)
{
    WidgetIconGroup &group = screen.add<WidgetIconGroup>(&screen, nullptr);
    group.setGeometry(4, 4, 130, 30);
    group.setIcon(0, image("icon_disc"));
    group.setSeperator(0, image("icon_separator"));
    group.setIcon(1, image("icon_square"));
    group.setSeperator(1, image("icon_separator"));
    group.setIcon(2, image("icon_triangle"));
    return group;
}

// Progress bar

void addProgressBar(Screen &screen, int use)
{
    WidgetProgressBar &bar = screen.add<WidgetProgressBar>(&screen);
    bar.setGeometry(0, 0, 220, 46);
    bar.setItemTitle("Memory");
    bar.setItemUseMaxValue(use, 65536);
}

// Traffic announcement

void addTAMark(Screen &screen, const char *text)
{
    WidgetTAMark &mark = screen.add<WidgetTAMark>(&screen, nullptr);
    mark.setGeometry(0, 0, 220, 40);
    mark.updateTAText(QString::fromUtf8(text));
}

// Tile

void addTile(Screen &screen, const QPoint &place, const char *content)
{
    WidgetSelectTile &tile = screen.add<WidgetSelectTile>(&screen, nullptr);
    tile.setGeometry(QRect(place, QSize(200, 80)));
    tile.setContent(QString::fromUtf8(content));
}

// Clock and date. Digits are bars of their height, so that each is told from the others.

WidgetClock &addClock(Screen &screen)
{
    WidgetClock &clock = screen.add<WidgetClock>(&screen, nullptr);
    clock.setGeometry(0, 0, 220, 60);
    for (int digit = 0; digit < 10; ++digit) {
        const QString sheet = QStringLiteral("background-color: #f%1c0%2f; margin-top: %3px");
        clock.setNumTextUrl(digit, sheet.arg(digit).arg(digit).arg(2 * digit));
        clock.setNumTextXSUrl(digit, sheet.arg(digit).arg(digit).arg(digit));
    }
    clock.setSeperatorUrl(image("icon_separator"));
    clock.setAMPMUrl(background("#4090a0"), background("#c05040"));
    return clock;
}

WidgetDate &addDate(Screen &screen)
{
    WidgetDate &date = screen.add<WidgetDate>(&screen, nullptr);
    date.setGeometry(0, 0, 220, 30);
    date.setStyleSheet("color: white");
    const char *const days[] = {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};
    for (int day = 0; day < 7; ++day)
        date.setWDayText(day, QString::fromLatin1(days[day]));
    return date;
}

// Keypad and its bar

template <typename Keypad>
void dressCells(Keypad &keypad)
{
    keypad.setItemText(Keypad::ItemButton1, "Abc");
    keypad.setItemText(Keypad::ItemButton2, "12#");
    for (int item = 0; item < 4; ++item) {
        keypad.setItemStyle(typename Keypad::Item(item), Keypad::StateNormal,
                            background("#594B4F") + ";color: #f8f7f6");
        keypad.setItemStyle(typename Keypad::Item(item), Keypad::StateSelected,
                            background("#F7CE86") + ";color: #1f1618");
    }
}

WidgetKeypad &addKeypad(Screen &screen)
{
    WidgetKeypad &keypad = screen.add<WidgetKeypad>(&screen, nullptr);
    const char *const keys[] = {"1", "abc2", "def3", "ghi4", "jkl5", "mno6", "pqrs7", "tuv8", "wxyz9", "*", "0", "#"};
    for (int place = 0; place < 12; ++place)
        keypad.setKeyText(0, place / 3, place % 3, QString::fromLatin1(keys[place]));
    for (int digit = 1; digit <= 9; ++digit)
        keypad.setKeyMap(Qt::Key_0 + digit, (digit - 1) / 3, (digit - 1) % 3);
    keypad.setKeyMap(Qt::Key_0, 3, 1);
    dressCells(keypad);
    keypad.setLineTextHeight(38);
    keypad.setBgGeometry(0, 0, 220, 176);
    return keypad;
}

// Bars and icons on a strip, rows on a row, the others on the device's whole screen.
const QSize Strip(220, 40);
const QSize Row(220, 46);
const QSize WholeScreen(220, 176);

QList<Picture> pictures()
{
    return {
        {"statusbar-first-states", Strip, [](Screen &s) { addStatusBar(s); }},
        {"statusbar-other-states", Strip, [](Screen &s) { addStatusBar(s); }, setStates},

        {"bottom-empty", Strip, [](Screen &s) { addBottom(s).setBgGeometry(0, 0, 220, 26); }},
        {"bottom-pictures", Strip, [](Screen &s) {
             addBottom(s).setBgGeometry(0, 0, 220, 26);
             only<WidgetBottom>(s).statusBottomShow(1, 1, 1, 1);
         }},
        {"bottom-left-half-moved", Strip, [](Screen &s) {
             addBottom(s).setBgGeometry(10, 2, 200, 20);
             only<WidgetBottom>(s).statusBottomShow(1, 0, 0, 1);
         }},

        {"softbtn-plain", Strip, [](Screen &s) { addSoftBtn(s, false); }},
        {"softbtn-annotated", Strip, [](Screen &s) { addSoftBtn(s, true); }},
        {"softbtn-restyled", Strip, [](Screen &s) {
             addSoftBtn(s, false);
             only<WidgetSoftBtn>(s).setItemStyle(WidgetSoftBtn::ItemBackground, background("#F7CE86"));
             only<WidgetSoftBtn>(s).setFontStyle(WidgetSoftBtn::ItemName, 10, false, "color: #1F1618");
         }},

        {"simpletitle-short", Strip, [](Screen &s) { addSimpleTitle(s, "Messages"); }},
        {"simpletitle-cut", Strip, [](Screen &s) { addSimpleTitle(s, "Messages that are too long for a title"); }},
        {"simpletitle-larger", Strip, [](Screen &s) {
             addSimpleTitle(s, "Messages").setFontStyle(WidgetSimpleTitle::ItemTitle, 18, false, "color: red");
         }},

        {"menutitle", Strip, [](Screen &s) { addMenuTitle(s); }},
        {"menutitle-right-to-left", Strip, [](Screen &s) { addMenuTitle(s, true); }},
        {"menutitle-information", Strip, [](Screen &s) {
             addMenuTitle(s).setItemStyle(WidgetMenuTitle::ItemInfo, background("#F7CE86"));
         }},

        {"listitem-title-alone", Row, [](Screen &s) { addRow(s, newRow("Reset")); }},
        {"listitem-leads-deeper", Row, [](Screen &s) { addRow(s, newRow("Display")).setMoreDepth(true); }},
        {"listitem-value-below", Row, [](Screen &s) { addRow(s, newRow("Sound", {"Loud", "Soft"})); }},
        {"listitem-value-below-focused", Row, [](Screen &s) { addRow(s, newRow("Sound", {"Loud", "Soft"})); },
         focusRow},
        {"listitem-value-cut", Row, [](Screen &s) {
             addRow(s, newRow("Sound", {"A value that is too long for its place", "Soft"}));
         }},
        {"listitem-value-at-the-right", Row, [](Screen &s) {
             WidgetListItem &row = addRow(s, newRow("Sound", {"Loud"}));
             row.setValueOnRightSide(true);
             row.setTitle("Sound", true);
         }},
        {"listitem-badge", Row, [](Screen &s) {
             WidgetListItem &row = addRow(s, newRow("Sound", {"Loud", "Soft"}));
             row.setSerialNum(true, 4);
             row.m_noShortcut = false;
         }},
        {"listitem-badge-focused", Row, [](Screen &s) {
             WidgetListItem &row = addRow(s, newRow("Sound", {"Loud", "Soft"}));
             row.setSerialNum(true, 4);
             row.m_noShortcut = false;
         }, focusRow},
        {"listitem-not-modifiable", Row, [](Screen &s) {
             addRow(s, newRow("Sound", {"Loud", "Soft"})).setModifiable(false);
         }},

        {"list-first-row", WholeScreen, [](Screen &s) { addList(s); }},
        {"list-second-row", WholeScreen, [](Screen &s) { addList(s); },
         [](Screen &s) { releaseKey(&only<WidgetList>(s), Qt::Key_8); }},
        {"list-last-row", WholeScreen, [](Screen &s) { addList(s); },
         [](Screen &s) { releaseKey(&only<WidgetList>(s), Qt::Key_2); }},
        {"list-without-focus", WholeScreen, [](Screen &s) { addList(s).setNoFocusStyle(3); }},
        {"list-right-to-left", WholeScreen, [](Screen &s) { addList(s, true); }},

        {"switcher-first-entry", WholeScreen, [](Screen &s) { addSwitcher(s); }},
        {"switcher-next-entry", WholeScreen, [](Screen &s) { addSwitcher(s); },
         [](Screen &s) { releaseKey(&only<WidgetSwitcher>(s), Qt::Key_6); }},
        {"switcher-last-entry", WholeScreen, [](Screen &s) { addSwitcher(s); },
         [](Screen &s) { releaseKey(&only<WidgetSwitcher>(s), Qt::Key_4); }},

        {"bottomguide", Strip, addGuide},
        {"bottomguide-empty", Strip, [](Screen &s) { s.add<WidgetBottomGuide>(&s, nullptr); }},

        {"icongroup-all", Strip, [](Screen &s) { addIconGroup(s); }},
        {"icongroup-top", Strip, [](Screen &s) { addIconGroup(s).setVerticalAlignment(WidgetIconGroup::Top); }},
        {"icongroup-bottom", Strip, [](Screen &s) { addIconGroup(s).setVerticalAlignment(WidgetIconGroup::Bottom); }},
        {"icongroup-one", Strip, [](Screen &s) {
             s.add<WidgetIconGroup>(&s, nullptr).setIcon(1, image("icon_square"));
         }},

        {"progressbar-unset", Row, [](Screen &s) { s.add<WidgetProgressBar>(&s).setGeometry(0, 0, 220, 46); }},
        {"progressbar-empty", Row, [](Screen &s) { addProgressBar(s, 0); }},
        {"progressbar-part", Row, [](Screen &s) { addProgressBar(s, 40000); }},
        {"progressbar-full", Row, [](Screen &s) { addProgressBar(s, 65536); }},
        {"progressbar-more-than-full", Row, [](Screen &s) { addProgressBar(s, 1000000); }},

        {"tamark-short", Strip, [](Screen &s) { addTAMark(s, "Traffic"); }},
        {"tamark-cut", Strip, [](Screen &s) { addTAMark(s, "Traffic news from everywhere"); }},

        {"selecttile-one-line", WholeScreen, [](Screen &s) { addTile(s, QPoint(0, 0), "Radio"); }},
        {"selecttile-wrapped", WholeScreen, [](Screen &s) {
             addTile(s, QPoint(0, 0), "Radio, television and all the rest");
         }},
        {"selecttile-shifted", WholeScreen, [](Screen &s) { addTile(s, QPoint(10, 40), "Radio"); }},

        {"clock-morning", Row, [](Screen &s) { addClock(s); },
         [](Screen &s) { only<WidgetClock>(s).updateHMS(9, 41, 0); }},
        {"clock-evening-with-seconds", Row, [](Screen &s) { addClock(s).setDisplaySec(true); },
         [](Screen &s) { only<WidgetClock>(s).updateHMS(21, 5, 38); }},
        {"clock-24-hours", Row, [](Screen &s) { addClock(s).setFormat(WidgetClock::Hour24); },
         [](Screen &s) { only<WidgetClock>(s).updateHMS(21, 5, 38); }},

        {"date-month-first", Strip, [](Screen &s) { addDate(s); },
         [](Screen &s) { only<WidgetDate>(s).updateDateMonth(3, 7, 6); }},
        {"date-day-first", Strip, [](Screen &s) { addDate(s).setFormat(WidgetDate::DayMonth); },
         [](Screen &s) { only<WidgetDate>(s).updateDateMonth(3, 7, 3); }},

        {"keypad-empty", WholeScreen, [](Screen &s) { addKeypad(s); }},
        {"keypad-typing", WholeScreen, [](Screen &s) { addKeypad(s); }, [](Screen &s) {
             for (int key : {int(Qt::Key_4), int(Qt::Key_4), int(Qt::Key_3)})
                 releaseKey(&only<WidgetKeypad>(s), key);
         }},
        {"keypad-password", WholeScreen, [](Screen &s) {
             addKeypad(s).hideText(true);
             only<WidgetKeypad>(s).setInitialLineText("secret", true, true, false);
         }},

        {"keypadbottom", Strip, [](Screen &s) {
             WidgetKeypadBottom &bar = s.add<WidgetKeypadBottom>(&s);
             dressCells(bar);
             bar.setBgGeometry(0, 0, 220, 23);
         }},
        {"keypadbottom-selected", Strip, [](Screen &s) {
             WidgetKeypadBottom &bar = s.add<WidgetKeypadBottom>(&s);
             dressCells(bar);
             bar.setBgGeometry(0, 0, 220, 23);
         }, [](Screen &s) {
             QTest::ignoreMessage(QtWarningMsg, QRegularExpression("No such slot WidgetKeypadBottom::clearSelection"));
             only<WidgetKeypadBottom>(s).handleSelection(WidgetKeypadBottom::ItemButton2);
         }},
    };
}

const Picture &pictureNamed(const QString &name)
{
    static const QList<Picture> all = pictures();
    for (const Picture &picture : all) {
        if (name == QLatin1String(picture.name))
            return picture;
    }
    qFatal("there is no picture %s", qPrintable(name));
}

const char *groundOf(const QString &name)
{
    // Dark text stands on a light ground.
    const bool light = name.startsWith("listitem") || name.startsWith("progressbar");
    return light ? "#F8F7F6" : "#343232";
}

// Draws a picture; \a prepare is called before the widgets come, \a spoil makes it another one before it is taken.
QImage draw(const QString &name, const Scene &spoil = nullptr, const Scene &prepare = nullptr)
{
    const Picture &picture = pictureNamed(name);
    Screen screen(picture.size, groundOf(name));
    if (prepare)
        prepare(screen);
    picture.arrange(screen);
    screen.show();
    screen.activateWindow();
    if (!QTest::qWaitForWindowActive(&screen, LongestWait))
        qFatal("the screen did not become active");
    if (picture.use)
        picture.use(screen);
    if (spoil)
        spoil(screen);
    runEventLoop();
    return screen.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

// Qt 6 places some letters elsewhere than Qt 5 does. A picture that looks different there has a reference of its own.
const char CommonReferences[] = REFERENCE_DIRECTORY "/";
const char OwnReferences[] = REFERENCE_DIRECTORY "/qt6/";
const bool HasOwnReferences = QT_VERSION >= QT_VERSION_CHECK(6, 0, 0);

QString referencePath(const char *directory, const QString &name)
{
    return QLatin1String(directory) + name + QLatin1String(".png");
}

QImage reference(const QString &name)
{
    QString path = referencePath(OwnReferences, name);
    if (!HasOwnReferences || !QFile::exists(path))
        path = referencePath(CommonReferences, name);
    return QImage(path).convertToFormat(QImage::Format_RGB32);
}

void renewReference(const QString &name, const QImage &picture)
{
    if (HasOwnReferences) {
        // Where the common reference fits, it is enough.
        QFile::remove(referencePath(OwnReferences, name));
        if (differingPixels(picture, reference(name)) == 0)
            return;
    }
    const char *directory = HasOwnReferences ? OwnReferences : CommonReferences;
    const QString path = referencePath(directory, name);
    if (!QDir().mkpath(QLatin1String(directory)) || !picture.save(path))
        qFatal("cannot write %s", qPrintable(path));
    qInfo("renewed %s", qPrintable(path));
}

QStringList referenceNames(const char *directory)
{
    return QDir(QLatin1String(directory)).entryList({"*.png"}, QDir::Files, QDir::Name);
}

}

class TestPictures : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void looksLikeItsReference_data();
    void looksLikeItsReference();
    void looksTheSameOnAScreenWithASheet_data();
    void looksTheSameOnAScreenWithASheet();
    void everyReferenceIsInUse();

    void smallestChangeIsFound_data();
    void smallestChangeIsFound();
};

void TestPictures::initTestCase()
{
    QVERIFY2(QFontInfo(QApplication::font()).family() == "DejaVu Sans",
             "The pictures are made with the font DejaVu Sans, which is not installed (Debian: fonts-dejavu-core).");
}

void TestPictures::init()
{
    RecordingPlatform::reset();
}

void TestPictures::looksLikeItsReference_data()
{
    QTest::addColumn<QString>("name");
    for (const Picture &picture : pictures())
        QTest::newRow(picture.name) << QString::fromLatin1(picture.name);
}

void TestPictures::looksLikeItsReference()
{
    QFETCH(QString, name);
    const QImage actual = draw(name);
    const QImage expected = reference(name);
    const int differing = differingPixels(actual, expected);
    if (differing == 0)
        return;

    if (qEnvironmentVariableIntValue("WIDGET_RENEW_PICTURES") == 1) {
        renewReference(name, actual);
        return;
    }

    QVERIFY(QDir().mkpath(OUTPUT_DIRECTORY));
    const QString path = QStringLiteral(OUTPUT_DIRECTORY "/%1").arg(name);
    QVERIFY(actual.save(path + ".png"));
    QVERIFY(differencePicture(actual, expected).save(path + "-difference.png"));
    const QString message = expected.isNull()
        ? QStringLiteral("There is no reference. The picture is %1.png.").arg(path)
        : QStringLiteral("%1 pixels differ from the reference. The picture is %2.png, where it differs is in "
                         "%2-difference.png.").arg(differing).arg(path);
    QFAIL(qPrintable(message + " If the picture is right, renew the reference with WIDGET_RENEW_PICTURES=1."));
}

void TestPictures::looksTheSameOnAScreenWithASheet_data()
{
    looksLikeItsReference_data();
}

void TestPictures::looksTheSameOnAScreenWithASheet()
{
    // The sheet concerns none of the widgets, but has the toolkit dress them by other ways.
    QFETCH(QString, name);
    const Scene setSheet = [](Screen &screen) { screen.setStyleSheet("QRadioButton { color: #0000ff }"); };
    QCOMPARE(differingPixels(draw(name, nullptr, setSheet), reference(name)), 0);
    QCOMPARE(differingPixels(draw(name, setSheet), reference(name)), 0);
}

void TestPictures::everyReferenceIsInUse()
{
    QStringList names;
    for (const Picture &picture : pictures())
        names << QString::fromLatin1(picture.name) + ".png";
    names.sort();
    QCOMPARE(referenceNames(CommonReferences), names);
    for (const QString &name : referenceNames(OwnReferences))
        QVERIFY2(names.contains(name), qPrintable(name));
}

void TestPictures::smallestChangeIsFound_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("label");
    QTest::addColumn<Change>("change");

    const Change right = [](QLabel &label) { label.move(label.x() + 1, label.y()); };
    const Change down = [](QLabel &label) { label.move(label.x(), label.y() + 1); };
    const Change hidden = [](QLabel &label) { label.hide(); };
    const Change colour = [](QLabel &label) { label.setStyleSheet(label.styleSheet() + "; color: #e8e8e8"); };
    const Change letter = [](QLabel &label) { label.setText(label.text().replace('s', 'e')); };

    QTest::newRow("text one pixel to the right") << "simpletitle-short" << 0 << right;
    QTest::newRow("text one pixel down") << "simpletitle-short" << 0 << down;
    QTest::newRow("text in another colour") << "simpletitle-short" << 0 << colour;
    QTest::newRow("another letter") << "simpletitle-short" << 0 << letter;
    QTest::newRow("icon one pixel to the right") << "statusbar-first-states" << 3 << right;
    QTest::newRow("icon missing") << "icongroup-all" << 1 << hidden;
    QTest::newRow("separator one pixel down") << "icongroup-all" << 4 << down;
    QTest::newRow("centre picture one pixel to the right") << "switcher-first-entry" << 1 << right;
    QTest::newRow("lit dot one pixel down") << "switcher-first-entry" << 4 << down;
    QTest::newRow("page number one pixel to the right") << "bottomguide" << 0 << right;
    QTest::newRow("page number in another colour") << "bottomguide" << 0 << colour;
    QTest::newRow("banner one pixel down") << "tamark-short" << 0 << down;
    QTest::newRow("clock digit missing") << "clock-morning" << 1 << hidden;
}

void TestPictures::smallestChangeIsFound()
{
    QFETCH(QString, name);
    QFETCH(int, label);
    QFETCH(Change, change);
    const QImage unchanged = draw(name);
    QCOMPARE(differingPixels(draw(name), unchanged), 0);
    QVERIFY(differingPixels(draw(name, [&](Screen &s) { change(*s.findChildren<QLabel *>().at(label)); }), unchanged)
            > 0);
}

int main(int argc, char **argv)
{
    // Whatever the machine looks like, the pictures have the device's resolution, one font and one style.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_FONT_DPI", "72");
    qputenv("QT_SCALE_FACTOR", "1");
    QApplication application(argc, argv);
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    QApplication::setPalette(QApplication::style()->standardPalette());
    QApplication::setFont(QFont("DejaVu Sans", 12));
    TestPictures test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_pictures.moc"

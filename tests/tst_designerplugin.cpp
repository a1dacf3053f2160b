#include "eventrecording.h"
#include "recordingplatform.h"
#include "ui_alarm.h"
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
#include "widgetlistview.h"
#include "widgetmarqueelable.h"
#include "widgetmenutitle.h"
#include "widgetprogressbar.h"
#include "widgetselecttile.h"
#include "widgetsimpletitle.h"
#include "widgetsoftbtn.h"
#include "widgetstatusbar.h"
#include "widgetswitcher.h"
#include "widgettamark.h"

#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

#include <QBuffer>
#include <QDomDocument>
#include <QLineEdit>
#include <QPluginLoader>
#include <QSignalSpy>
#include <QUiLoader>
#include <QtTest>

#include <functional>
#include <memory>

namespace {

const char Plugin[] = PLUGIN_DIRECTORY "/designer/libwidgetdesigner.so";
const char DarkGround[] = "background-color: #474242;";
const char SoundIcon[] = "image: url(:/resource/images_l2/icon_sound.png);";
const QSize ScreenSize(240, 180);

QList<QDesignerCustomWidgetInterface *> classes()
{
    QPluginLoader loader(QString::fromLatin1(Plugin));
    const auto *collection = qobject_cast<QDesignerCustomWidgetCollectionInterface *>(loader.instance());
    if (!collection)
        qFatal("%s", qPrintable(loader.errorString()));
    return collection->customWidgets();
}

QDesignerCustomWidgetInterface *classNamed(const QString &name)
{
    for (QDesignerCustomWidgetInterface *candidate : classes()) {
        if (candidate->name() == name)
            return candidate;
    }
    qFatal("there is no class %s", qPrintable(name));
}

QDomElement domOf(const QDesignerCustomWidgetInterface *formClass)
{
    QDomDocument document;
    if (!document.setContent(formClass->domXml()))
        qFatal("what %s tells of itself is no XML", qPrintable(formClass->name()));
    return document.documentElement();
}

QString libraryClassOf(const QDesignerCustomWidgetInterface *formClass)
{
    return formClass->toolTip().section(QLatin1Char(':'), 0, 0);
}

/// The public headers of the library, or that of one class.
QString headerText(const QString &pattern)
{
    const QDir directory(QStringLiteral(HEADER_DIRECTORY));
    QString text;
    for (const QString &name : directory.entryList({pattern}, QDir::Files)) {
        QFile file(directory.filePath(name));
        if (!file.open(QFile::ReadOnly))
            qFatal("cannot read %s", qPrintable(name));
        text += QString::fromUtf8(file.readAll());
    }
    return text;
}

QString textOf(const QDomElement &element)
{
    QString text;
    QTextStream stream(&text);
    element.save(stream, 0);
    return text;
}

/// A plain widget of a form, in \a place, with \a content.
QString frame(const QString &name, const QRect &place, const QString &content)
{
    return QStringLiteral("<widget class=\"QWidget\" name=\"%1\"><property name=\"geometry\"><rect><x>%2</x><y>%3</y>"
                          "<width>%4</width><height>%5</height></rect></property>%6</widget>")
        .arg(name, QString::number(place.x()), QString::number(place.y()), QString::number(place.width()),
             QString::number(place.height()), content);
}

/// A form with what comes out of the widget box for \a formClass.
QByteArray formWith(const QDesignerCustomWidgetInterface *formClass, const QString &connections = QString())
{
    const QDomElement dom = domOf(formClass);
    return QStringLiteral("<ui version=\"4.0\"><class>Screen</class>%1%2%3</ui>")
        .arg(frame(QStringLiteral("Screen"), QRect(QPoint(), ScreenSize),
                   textOf(dom.firstChildElement(QStringLiteral("widget")))),
             textOf(dom.firstChildElement(QStringLiteral("customwidgets"))), connections)
        .toUtf8();
}

std::unique_ptr<QWidget> load(QByteArray form)
{
    QBuffer buffer(&form);
    buffer.open(QBuffer::ReadOnly);
    QUiLoader loader;
    std::unique_ptr<QWidget> screen(loader.load(&buffer));
    if (!screen)
        qFatal("%s", qPrintable(loader.errorString()));
    return screen;
}

std::unique_ptr<QWidget> loadFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QFile::ReadOnly))
        qFatal("cannot read %s", qPrintable(path));
    return load(file.readAll());
}

void showActive(QWidget &screen)
{
    screen.show();
    screen.activateWindow();
    if (!QTest::qWaitForWindowActive(&screen, LongestWait))
        qFatal("the screen did not become active");
    QCoreApplication::processEvents();
}

QImage pictureOf(QWidget &screen)
{
    showActive(screen);
    return screen.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

bool isOfOneColor(const QImage &picture)
{
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixel(x, y) != picture.pixel(0, 0))
                return false;
        }
    }
    return true;
}

QString defaultPicture(const QString &name)
{
    return QStringLiteral("image: url(:/resource/images_l2/%1.png);").arg(name);
}

// The widgets of the library as they come out of the widget box, built without forms.

template <typename Class>
Class *placed(Class *widget, int width, int height, const char *sheet = nullptr)
{
    widget->setAttribute(Qt::WA_StyledBackground);
    widget->resize(width, height);
    if (sheet) {
        widget->ensurePolished();
        widget->setStyleSheet(QString::fromLatin1(sheet));
    }
    return widget;
}

template <typename Class>
void dressCells(Class *bar)
{
    const char *const sheets[] = {"background-color: #6e6464; color: #f8f7f6; border: 1px solid #3c3738; ",
                                  "background-color: #f7ce86; color: #1f1618; border: 1px solid #3c3738; "};
    const char *const pictures[] = {"key_%1_nor", "key_%1_focus"};
    for (int state = 0; state < 2; ++state) {
        const QString sheet = QString::fromLatin1(sheets[state]);
        const QString picture = defaultPicture(QString::fromLatin1(pictures[state]));
        bar->setItemStyle(Class::ItemButton1, typename Class::State(state), sheet);
        bar->setItemStyle(Class::ItemButton2, typename Class::State(state), sheet);
        bar->setItemStyle(Class::ItemSpace, typename Class::State(state), sheet + picture.arg("space"));
        bar->setItemStyle(Class::ItemDelete, typename Class::State(state), sheet + picture.arg("delete"));
    }
}

void buildList(QWidget *screen)
{
    auto *list = placed(new WidgetList(4, screen, nullptr), 220, 176);
    list->setTitle("Sound", true);
    list->setTitleIcon(SoundIcon);
    for (const char *title : {"Music", "Phone", "Navigation", "More"}) {
        auto *item = new WidgetListItem(list, nullptr);
        item->resize(220, 46);
        item->setTitle(title, true);
        if (qstrcmp(title, "More") == 0) {
            item->setMoreDepth(true);
        } else {
            item->addValue("Low");
            item->addValue("High");
        }
        list->addListItem(item);
    }
}

void buildListView(QWidget *screen)
{
    auto *list = placed(new WidgetListView(screen, nullptr), 220, 176);
    list->setTitle("Contacts", true);
    list->setTitleIcon(SoundIcon);
    list->setModel(new QStringListModel(list));
}

void buildListItem(QWidget *screen)
{
    auto *item = placed(new WidgetListItem(screen, nullptr), 220, 46);
    item->setFocusPolicy(Qt::StrongFocus);
    item->setTitle("Volume", true);
    item->addValue("Low");
    item->addValue("High");
}

void buildKeypad(QWidget *screen)
{
    auto *keypad = placed(new WidgetKeypad(screen, nullptr), 220, 176);
    keypad->setFocusPolicy(Qt::StrongFocus);
    keypad->setLineTextHeight(38);
    const char *const keys[] = {".,?!1", "abc2", "def3", "ghi4", "jkl5", "mno6", "pqrs7", "tuv8", "wxyz9", "*", "-'@0", "#"};
    for (int key = 0; key < 12; ++key)
        keypad->setKeyText(0, key / 3, key % 3, keys[key]);
    dressCells(keypad);
    keypad->setPlaceholderText("Name");
    keypad->setItemText(WidgetKeypad::ItemButton1, "Abc");
    keypad->setItemText(WidgetKeypad::ItemButton2, "123");
}

void buildKeypadBottom(QWidget *screen)
{
    auto *bar = placed(new WidgetKeypadBottom(screen), 220, 23);
    dressCells(bar);
    bar->setItemText(WidgetKeypadBottom::ItemButton1, "Back");
    bar->setItemText(WidgetKeypadBottom::ItemButton2, "Menu");
}

void buildSwitcher(QWidget *screen)
{
    auto *switcher = placed(new WidgetSwitcher(screen, nullptr), 220, 152);
    switcher->setFocusPolicy(Qt::StrongFocus);
    const char *const names[] = {"Radio", "Clock", "Route", "Message", "Settings", "More"};
    for (int entry = 0; entry < 6; ++entry)
        switcher->setItemStyle(4, names[entry], QString(), entry);
    switcher->setItemStyle(5, defaultPicture("page_off"), QString(), 0);
    switcher->setItemStyle(6, defaultPicture("page_on"), QString(), 0);
    switcher->setFontStyle(4, 16, true, "color: #F8F7F6;");
    switcher->setAutoPageGeometry();
}

void buildMenuTitle(QWidget *screen)
{
    auto *title = placed(new WidgetMenuTitle(screen, nullptr), 220, 38);
    title->setTitle("Menu");
    title->setItemStyle(WidgetMenuTitle::ItemIcon, SoundIcon);
}

void buildSimpleTitle(QWidget *screen)
{
    auto *title = placed(new WidgetSimpleTitle(screen, nullptr), 220, 38);
    title->setItemGeometry(WidgetSimpleTitle::ItemTitle, 8, 0, 204, 38);
    title->setTitle("Title");
}

void buildStatusBar(QWidget *screen)
{
    placed(new WidgetStatusBar(screen, nullptr), 220, 24, DarkGround)->setBgGeometry(0, 0, 220, 24, 23);
}

void buildBottom(QWidget *screen)
{
    auto *bar = placed(new WidgetBottom(screen, nullptr), 220, 30);
    bar->setBgGeometry(0, 0, 220, 30);
    bar->setItemStyle(0, QString(), "background-color: #474242;", 0);
    bar->setItemStyle(1, QString(), "background-color: #594B4F;", 0);
}

void buildBottomGuide(QWidget *screen)
{
    auto *guide = placed(new WidgetBottomGuide(screen, nullptr), 220, 24, DarkGround);
    guide->setCurPageNo(1);
    guide->setTotPageNo(5);
}

void buildIconGroup(QWidget *screen)
{
    placed(new WidgetIconGroup(screen, nullptr), 122, 24, DarkGround);
}

void buildSoftBtn(QWidget *screen)
{
    placed(new WidgetSoftBtn(false, screen, nullptr), 110, 29)->setBtnName("Options");
}

void buildSelectTile(QWidget *screen)
{
    auto *place = placed(new QWidget(screen), 110, 69, DarkGround);
    auto *tile = new WidgetSelectTile(place, nullptr);
    tile->resize(110, 69);
    tile->setContent("Radio");
}

void buildProgressBar(QWidget *screen)
{
    auto *bar = placed(new WidgetProgressBar(screen), 220, 46);
    bar->setItemTitle("Memory");
    bar->setItemUseMaxValue(40000, 65536);
}

void buildClock(QWidget *screen)
{
    auto *clock = placed(new WidgetClock(screen, nullptr), 186, 68, DarkGround);
    for (int digit = 0; digit <= 9; ++digit)
        clock->setNumTextUrl(digit, defaultPicture(QStringLiteral("clock_%1").arg(digit)));
    clock->setSeperatorUrl(defaultPicture("clock_separator"));
    clock->setAMPMUrl(defaultPicture("clock_am"), defaultPicture("clock_pm"));
    clock->updateHMS(21, 5, 38);
}

void buildDate(QWidget *screen)
{
    auto *date = placed(new WidgetDate(screen, nullptr), 180, 22, DarkGround);
    QFont font;
    font.setPointSize(16);
    date->setDateFont(font);
    date->setWDayFont(font);
    date->setWDayText(6, "Saturday");
    date->updateDateMonth(3, 7, 6);
}

void buildTAMark(QWidget *screen)
{
    placed(new WidgetTAMark(screen, nullptr), 220, 44)->updateTAText("Fog on the A8");
}

void buildMarqueeLable(QWidget *screen)
{
    auto *label = new WidgetMarqueeLable(screen);
    label->setText("A text that circulates, ");
    label->resize(160, 20);
}

const struct
{
    const char *name;
    void (*build)(QWidget *screen);
} builds[] = {
    {"FormList", buildList},
    {"FormListView", buildListView},
    {"FormListItem", buildListItem},
    {"FormKeypad", buildKeypad},
    {"FormKeypadBottom", buildKeypadBottom},
    {"FormSwitcher", buildSwitcher},
    {"FormMenuTitle", buildMenuTitle},
    {"FormSimpleTitle", buildSimpleTitle},
    {"FormStatusBar", buildStatusBar},
    {"FormBottom", buildBottom},
    {"FormBottomGuide", buildBottomGuide},
    {"FormIconGroup", buildIconGroup},
    {"FormSoftBtn", buildSoftBtn},
    {"FormSelectTile", buildSelectTile},
    {"FormProgressBar", buildProgressBar},
    {"FormClock", buildClock},
    {"FormDate", buildDate},
    {"FormTAMark", buildTAMark},
    {"FormMarqueeLable", buildMarqueeLable},
};

QString inWords(const QMetaProperty &property, const QVariant &value)
{
    if (property.isEnumType())
        return QString::number(value.toInt());
    if (value.userType() == QMetaType::QStringList)
        return value.toStringList().join(QLatin1Char('|'));
    if (value.userType() != QMetaType::QRect)
        return value.toString();
    const QRect rect = value.toRect();
    return QStringLiteral("%1 %2 %3 %4").arg(rect.x()).arg(rect.y()).arg(rect.width()).arg(rect.height());
}

QVariant otherThan(const QMetaProperty &property, const QVariant &value)
{
    switch (int(value.userType())) {
    case QMetaType::Bool:
        return !value.toBool();
    case QMetaType::QString:
        return QStringLiteral("color: #123456;");
    case QMetaType::QStringList:
        return QStringList({"color: #123456;", "color: #654321;"});
    case QMetaType::QRect:
        return QRect(1, 2, 30, 20);
    default:
        break;
    }
    if (property.isEnumType()) {
        const QMetaEnum values = property.enumerator();
        return values.value(value.toInt() == values.value(0) ? 1 : 0);
    }
    return value.toInt() + 1;
}

}

class TestDesignerPlugin : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void everyWidgetOfTheLibraryIsThere();
    void isDescribedInTheWordsOfItsHeader_data();
    void isDescribedInTheWordsOfItsHeader();
    void hasAnIconOfItsOwn();
    void standsInTheGroupOfTheLibrary();
    void comesFromAHeaderThatApplicationsHave_data();
    void comesFromAHeaderThatApplicationsHave();
    void comesInASizeToSee_data();
    void comesInASizeToSee();

    void keepsEveryProperty_data();
    void keepsEveryProperty();
    void textPropertiesHaveTheRightEditor();
    void signalsCanBeConnected_data();
    void signalsCanBeConnected();

    void looksAsBuiltByHand_data();
    void looksAsBuiltByHand();
    void formWithAllWidgetsLooksAsBuiltByHand();
    void takesASheetOfItsOwn_data();
    void takesASheetOfItsOwn();
    void showsASampleInDesigner_data();
    void showsASampleInDesigner();
    void listsLeaveTheFocusAloneInDesigner();
    void clocksStandStillInDesigner();

    void compiledFormLooksAsTheLoadedOne();
    void keysWorkInALoadedForm();
    void connectionsOfTheFormWork();
    void runningClockMayBeDestroyed();
    void rowsOfAListTellValuesAndDepth();
    void keypadTurnsItsPages();
    void marqueeTakesTheTextThatComesLater();
    void programWithoutAPlatformMakesAllWidgets();

private:
    void rowForEachClass();
};

void TestDesignerPlugin::initTestCase()
{
    QCoreApplication::addLibraryPath(QStringLiteral(PLUGIN_DIRECTORY));
    classes();
}

void TestDesignerPlugin::init()
{
    RecordingPlatform::reset();
    RecordingPlatform::setLocalTime(2026, 3, 7, 21, 5, 38);
}

void TestDesignerPlugin::cleanup()
{
    for (QDesignerCustomWidgetInterface *formClass : classes())
        formClass->initialize(nullptr);
}

void TestDesignerPlugin::rowForEachClass()
{
    QTest::addColumn<QString>("name");
    for (const QDesignerCustomWidgetInterface *formClass : classes())
        QTest::newRow(qPrintable(formClass->name())) << formClass->name();
}

void TestDesignerPlugin::everyWidgetOfTheLibraryIsThere()
{
    QStringList expected;
    const QRegularExpression declaration(QStringLiteral("class WIDGET_EXPORT (Widget\\w+) : public (Widget|QLabel)\\b"));
    QRegularExpressionMatchIterator matches = declaration.globalMatch(headerText(QStringLiteral("widget*.h")));
    while (matches.hasNext())
        expected += matches.next().captured(1);
    expected.sort();

    QStringList actual;
    for (const QDesignerCustomWidgetInterface *formClass : classes()) {
        const QString libraryClass = libraryClassOf(formClass);
        actual += libraryClass;
        QCOMPARE(formClass->name(), QString(libraryClass).replace(QLatin1String("Widget"), QLatin1String("Form")));
    }
    actual.sort();
    QCOMPARE(actual, expected);
    QCOMPARE(int(sizeof builds / sizeof builds[0]), int(expected.size()));
}

void TestDesignerPlugin::isDescribedInTheWordsOfItsHeader_data()
{
    rowForEachClass();
}

void TestDesignerPlugin::isDescribedInTheWordsOfItsHeader()
{
    QFETCH(QString, name);
    const QDesignerCustomWidgetInterface *formClass = classNamed(name);
    const QString libraryClass = libraryClassOf(formClass);
    const QString words = headerText(libraryClass.toLower() + QStringLiteral(".h")).remove(QStringLiteral("///")).simplified();
    const QString toolTip = formClass->toolTip().mid(libraryClass.size() + 2);
    QVERIFY(toolTip.size() > 20);
    QVERIFY2(words.contains(toolTip), qPrintable(toolTip));
    QVERIFY(formClass->whatsThis().size() > 40);
    QVERIFY2(words.contains(formClass->whatsThis()), qPrintable(formClass->whatsThis()));
}

void TestDesignerPlugin::hasAnIconOfItsOwn()
{
    QList<QImage> icons;
    for (const QDesignerCustomWidgetInterface *formClass : classes()) {
        const QImage icon = formClass->icon().pixmap(24, 24).toImage();
        QCOMPARE(icon.size(), QSize(24, 24));
        QVERIFY2(!isOfOneColor(icon), qPrintable(formClass->name()));
        QVERIFY2(!icons.contains(icon), qPrintable(formClass->name()));
        icons += icon;
    }
}

void TestDesignerPlugin::standsInTheGroupOfTheLibrary()
{
    QStringList displayNames;
    for (const QDesignerCustomWidgetInterface *formClass : classes()) {
        QCOMPARE(formClass->group(), QStringLiteral("libwidget"));
        QVERIFY(!formClass->isContainer());
        displayNames += domOf(formClass).attribute(QStringLiteral("displayname"));
    }
    QVERIFY(!displayNames.contains(QString()));
    QCOMPARE(displayNames.removeDuplicates(), 0);
}

void TestDesignerPlugin::comesFromAHeaderThatApplicationsHave_data()
{
    rowForEachClass();
}

void TestDesignerPlugin::comesFromAHeaderThatApplicationsHave()
{
    QFETCH(QString, name);
    const QDesignerCustomWidgetInterface *formClass = classNamed(name);
    QFile header(QStringLiteral(FORM_DIRECTORY "/") + formClass->includeFile());
    QVERIFY2(header.open(QFile::ReadOnly), qPrintable(header.fileName()));
    QVERIFY(header.readAll().contains("class " + name.toLatin1() + " : public"));
    const QDomElement custom = domOf(formClass).firstChildElement("customwidgets").firstChildElement("customwidget");
    QCOMPARE(custom.firstChildElement("class").text(), name);
    QCOMPARE(custom.firstChildElement("header").text(), formClass->includeFile());
}

void TestDesignerPlugin::comesInASizeToSee_data()
{
    rowForEachClass();
}

void TestDesignerPlugin::comesInASizeToSee()
{
    QFETCH(QString, name);
    const std::unique_ptr<QWidget> screen = load(formWith(classNamed(name)));
    const QWidget *widget = screen->findChild<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    QCOMPARE(QString::fromLatin1(widget->metaObject()->className()), name);
    QVERIFY(widget->width() >= 100 && widget->width() <= 220);
    QVERIFY(widget->height() >= 20 && widget->height() <= 176);
    if (name != QLatin1String("FormMarqueeLable"))
        QCOMPARE(widget->size(), widget->sizeHint());
}

void TestDesignerPlugin::keepsEveryProperty_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("property");
    for (QDesignerCustomWidgetInterface *formClass : classes()) {
        const std::unique_ptr<QWidget> widget(formClass->createWidget(nullptr));
        const QMetaObject *metaObject = widget->metaObject();
        const int first = metaObject->indexOfProperty("inputMethodHints") + 1;
        for (int i = first; i < metaObject->propertyCount(); ++i) {
            const QByteArray property = metaObject->property(i).name();
            if (!metaObject->inherits(&QLabel::staticMetaObject) || i >= metaObject->propertyOffset())
                QTest::newRow(formClass->name().toLatin1() + ' ' + property) << formClass->name() << property;
        }
    }
}

void TestDesignerPlugin::keepsEveryProperty()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, property);
    QWidget parent;
    QWidget *widget = classNamed(name)->createWidget(&parent);
    const QMetaProperty metaProperty = widget->metaObject()->property(widget->metaObject()->indexOfProperty(property));
    QVERIFY(metaProperty.isWritable());
    QVERIFY(metaProperty.isDesignable());
    const QVariant first = widget->property(property);
    const QVariant other = otherThan(metaProperty, first);
    QVERIFY(widget->setProperty(property, other));
    QVERIFY(inWords(metaProperty, other) != inWords(metaProperty, first));
    QCOMPARE(inWords(metaProperty, widget->property(property)), inWords(metaProperty, other));
    QVERIFY(widget->setProperty(property, first));
    QCOMPARE(inWords(metaProperty, widget->property(property)), inWords(metaProperty, first));
}

void TestDesignerPlugin::textPropertiesHaveTheRightEditor()
{
    const QString clock = classNamed(QStringLiteral("FormClock"))->domXml();
    QVERIFY(clock.contains("<stringpropertyspecification name=\"digitSheet\" type=\"stylesheet\" notr=\"true\"/>"));
    const QString title = classNamed(QStringLiteral("FormMenuTitle"))->domXml();
    QVERIFY(title.contains("<stringpropertyspecification name=\"iconSheet\" type=\"stylesheet\" notr=\"true\"/>"));
    QVERIFY(title.contains("<stringpropertyspecification name=\"title\" type=\"singleline\"/>"));
}

void TestDesignerPlugin::signalsCanBeConnected_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArrayList>("signalNames");
    const QByteArrayList list = {"doSave()", "reachedBegin()", "reachedEnd()", "upKeyLongPressed()", "upKeyReleased()",
                                 "downKeyLongPressed()", "downKeyReleased()", "finished()", "visible()"};
    QTest::newRow("list") << "FormList" << list;
    QTest::newRow("long list") << "FormListView" << list + QByteArrayList({"doEnter(int)", "doChange(int)"});
    QTest::newRow("row") << "FormListItem" << QByteArrayList({"doEnter()", "doChange()"});
    QTest::newRow("keypad") << "FormKeypad"
                            << QByteArrayList({"cancel()", "ready(QString)", "keyPressed(int)", "inputLetter(QChar)"});
    QTest::newRow("switcher") << "FormSwitcher" << QByteArrayList({"sendMainItem(int)"});
    QTest::newRow("progress bar") << "FormProgressBar" << QByteArrayList({"valueChanged(int)"});
    QTest::newRow("clock") << "FormClock" << QByteArrayList({"displaySecChanged(bool)", "formatChanged(bool)"});
    QTest::newRow("date") << "FormDate" << QByteArrayList({"formatChanged(Format)"});
}

void TestDesignerPlugin::signalsCanBeConnected()
{
    QFETCH(QString, name);
    QFETCH(QByteArrayList, signalNames);
    const std::unique_ptr<QWidget> widget(classNamed(name)->createWidget(nullptr));
    for (const QByteArray &signal : signalNames)
        QVERIFY2(widget->metaObject()->indexOfSignal(signal) >= 0, signal);
}

void TestDesignerPlugin::looksAsBuiltByHand_data()
{
    rowForEachClass();
}

void TestDesignerPlugin::looksAsBuiltByHand()
{
    QFETCH(QString, name);
    for (const auto &[builtName, build] : builds) {
        if (name != QLatin1String(builtName))
            continue;
        QWidget screen;
        screen.resize(ScreenSize);
        build(&screen);
        const QImage expected = pictureOf(screen);
        screen.hide();
        QVERIFY(!isOfOneColor(expected));

        const std::unique_ptr<QWidget> loaded = load(formWith(classNamed(name)));
        const QImage actual = pictureOf(*loaded);
        QVERIFY2(actual == expected, "the picture of the form is another one");
        return;
    }
    QFAIL("nothing is built for this class");
}

void TestDesignerPlugin::formWithAllWidgetsLooksAsBuiltByHand()
{
    const int columns = 5;
    const int count = int(sizeof builds / sizeof builds[0]);
    const QSize size(columns * ScreenSize.width(), (count + columns - 1) / columns * ScreenSize.height());
    QWidget screen;
    screen.resize(size);
    QString widgets;
    QString custom;
    for (int i = 0; i < count; ++i) {
        const QRect place(QPoint(i % columns * ScreenSize.width(), i / columns * ScreenSize.height()), ScreenSize);
        auto *cell = new QWidget(&screen);
        cell->setGeometry(place);
        builds[i].build(cell);

        const QDomElement dom = domOf(classNamed(QString::fromLatin1(builds[i].name)));
        widgets += frame(QStringLiteral("cell%1").arg(i), place, textOf(dom.firstChildElement(QStringLiteral("widget"))));
        custom += textOf(dom.firstChildElement("customwidgets").firstChildElement("customwidget"));
    }
    const QImage expected = pictureOf(screen);
    screen.hide();

    const std::unique_ptr<QWidget> loaded =
        load(QStringLiteral("<ui version=\"4.0\"><class>Screen</class>%1<customwidgets>%2</customwidgets></ui>")
                 .arg(frame(QStringLiteral("Screen"), QRect(QPoint(), size), widgets), custom)
                 .toUtf8());
    const QImage actual = pictureOf(*loaded);
    QCOMPARE(actual.size(), expected.size());
    for (int i = 0; i < count; ++i) {
        const QRect place(QPoint(i % columns * ScreenSize.width(), i / columns * ScreenSize.height()), ScreenSize);
        QVERIFY2(!isOfOneColor(expected.copy(place)), builds[i].name);
        QVERIFY2(actual.copy(place) == expected.copy(place), builds[i].name);
    }
}

void TestDesignerPlugin::takesASheetOfItsOwn_data()
{
    rowForEachClass();
}

void TestDesignerPlugin::takesASheetOfItsOwn()
{
    QFETCH(QString, name);
    const QColor ground(0x12, 0x34, 0x56);
    QWidget screen;
    screen.resize(ScreenSize);
    QWidget *widget = classNamed(name)->createWidget(&screen);
    widget->resize(ScreenSize);
    widget->setStyleSheet(QStringLiteral("background-color: %1;").arg(ground.name()));
    widget->setProperty("leftSheet", QString());  // the halves of a bottom bar cover it
    widget->show();
    const QImage picture = pictureOf(screen);
    int painted = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            painted += picture.pixelColor(x, y) == ground;
    }
    QVERIFY(painted > 0);
}

void TestDesignerPlugin::showsASampleInDesigner_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"FormStatusBar", "FormBottom", "FormIconGroup", "FormSwitcher", "FormListView"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestDesignerPlugin::showsASampleInDesigner()
{
    QFETCH(QString, name);
    QDesignerCustomWidgetInterface *formClass = classNamed(name);
    const QImage withoutSample = pictureOf(*load(formWith(formClass)));
    char core = 0;  // only whether there is one counts
    formClass->initialize(reinterpret_cast<QDesignerFormEditorInterface *>(&core));
    QVERIFY(formClass->isInitialized());

    QWidget screen;
    screen.resize(ScreenSize);
    QWidget *widget = formClass->createWidget(&screen);
    widget->resize(widget->sizeHint());
    if (domOf(formClass).text().contains(QLatin1String(DarkGround)))
        widget->setStyleSheet(QLatin1String(DarkGround));
    widget->show();
    QVERIFY(pictureOf(screen) != withoutSample);
    QVERIFY(RecordingPlatform::logTexts(2).isEmpty());
}

void TestDesignerPlugin::listsLeaveTheFocusAloneInDesigner()
{
    char core = 0;
    for (const char *name : {"FormList", "FormListView"}) {
        QDesignerCustomWidgetInterface *formClass = classNamed(QString::fromLatin1(name));
        formClass->initialize(reinterpret_cast<QDesignerFormEditorInterface *>(&core));
        QWidget screen;
        screen.setFocusPolicy(Qt::StrongFocus);
        QWidget *list = formClass->createWidget(&screen);
        list->resize(220, 176);
        list->setProperty("rows", QStringList({"One: Low, High", "Two"}));
        screen.setFocus();
        showActive(screen);
        QVERIFY(screen.hasFocus());
        list->setProperty("rows", QStringList({"Three", "Four"}));
        QVERIFY(screen.hasFocus());
        formClass->initialize(nullptr);

        QWidget *outside = formClass->createWidget(&screen);
        outside->setProperty("rows", QStringList({"One"}));
        outside->show();
        QVERIFY(!screen.hasFocus());
    }
}

void TestDesignerPlugin::clocksStandStillInDesigner()
{
    char core = 0;
    for (const char *name : {"FormClock", "FormDate"}) {
        QDesignerCustomWidgetInterface *formClass = classNamed(QString::fromLatin1(name));
        formClass->initialize(reinterpret_cast<QDesignerFormEditorInterface *>(&core));
        QWidget screen;
        QWidget *clock = formClass->createWidget(&screen);
        QVERIFY(!clock->isHidden());
        QVERIFY(clock->setProperty("running", true));
        QVERIFY(clock->property("running").toBool());
        delete clock;
        QVERIFY(RecordingPlatform::watchdogCalls().isEmpty());
        formClass->initialize(nullptr);

        clock = formClass->createWidget(&screen);
        QVERIFY(clock->isHidden());
        QVERIFY(clock->setProperty("running", true));
        QVERIFY(!clock->isHidden());
        EVENTUALLY(!RecordingPlatform::watchdogCalls().isEmpty());
        delete clock;
        RecordingPlatform::reset();
    }
}

void TestDesignerPlugin::compiledFormLooksAsTheLoadedOne()
{
    QWidget compiled;
    Ui::Alarm form;
    form.setupUi(&compiled);
    const QImage expected = pictureOf(compiled);
    compiled.hide();
    const std::unique_ptr<QWidget> loaded = loadFile(QStringLiteral(FORM_FILE));
    QVERIFY(pictureOf(*loaded) == expected);
    QCOMPARE(expected.size(), QSize(220, 176));
    QCOMPARE(form.clock->format(), WidgetClock::Hour24);
    QVERIFY(form.clock->isRunning());
}

void TestDesignerPlugin::keysWorkInALoadedForm()
{
    const std::unique_ptr<QWidget> loaded = loadFile(QStringLiteral(FORM_FILE));
    showActive(*loaded);
    auto *row = loaded->findChild<WidgetListItem *>(QStringLiteral("alarm"));
    QVERIFY(row->hasFocus());
    QSignalSpy changes(row, SIGNAL(doChange()));
    QCOMPARE(row->getDisplayValue(), QStringLiteral("Off"));
    releaseKey(QApplication::focusWidget(), Qt::Key_6);
    QCOMPARE(row->getDisplayValue(), QStringLiteral("06:30"));
    QCOMPARE(changes.count(), 1);
    QCOMPARE(RecordingPlatform::sounds(), QList<int>({901}));
}

void TestDesignerPlugin::connectionsOfTheFormWork()
{
    const QString connection = QStringLiteral(
        "<connections><connection><sender>list</sender><signal>finished()</signal><receiver>Screen</receiver>"
        "<slot>close()</slot></connection></connections>");
    const std::unique_ptr<QWidget> loaded = load(formWith(classNamed(QStringLiteral("FormList")), connection));
    showActive(*loaded);
    releaseKey(QApplication::focusWidget(), Qt::Key_8);
    QVERIFY(loaded->isVisible());
    releaseKey(QApplication::focusWidget(), Qt::Key_Escape);
    QVERIFY(!loaded->isVisible());
}

void TestDesignerPlugin::runningClockMayBeDestroyed()
{
    const std::unique_ptr<QWidget> loaded = loadFile(QStringLiteral(FORM_FILE));
    EVENTUALLY(RecordingPlatform::watchdogCalls().size() >= 2);
    QVERIFY(loaded->findChild<WidgetClock *>()->setProperty("running", false));
    QVERIFY(loaded->findChild<WidgetClock *>()->setProperty("running", true));
}

void TestDesignerPlugin::rowsOfAListTellValuesAndDepth()
{
    QWidget screen;
    QWidget *list = classNamed(QStringLiteral("FormList"))->createWidget(&screen);
    list->resize(220, 176);
    list->setProperty("rows", QStringList({"Music: Low, High", "12:30", "More >"}));
    showActive(screen);
    const QList<WidgetListItem *> rows = list->findChildren<WidgetListItem *>();
    QCOMPARE(rows.size(), 3);
    QCOMPARE(rows.at(0)->getDisplayValue(), QStringLiteral("Low"));
    releaseKey(rows.at(0), Qt::Key_6);
    QCOMPARE(rows.at(0)->getDisplayValue(), QStringLiteral("High"));
    QCOMPARE(rows.at(1)->getDisplayValue(), QString());
    QCOMPARE(rows.at(1)->findChild<WidgetMarqueeLable *>()->text(), QStringLiteral("12:30"));
    QSignalSpy deeper(rows.at(2), SIGNAL(doEnter()));
    releaseKey(rows.at(2), Qt::Key_6);
    QCOMPARE(deeper.count(), 1);
}

void TestDesignerPlugin::keypadTurnsItsPages()
{
    QWidget screen;
    QWidget *keypad = classNamed(QStringLiteral("FormKeypad"))->createWidget(&screen);
    keypad->setProperty("pages", QStringList({"a b c d e f g h i * 0 #", "1 2 3 4 5 6 7 8 9 * 0 #"}));
    keypad->resize(220, 176);
    showActive(screen);
    const auto *line = keypad->findChild<QLineEdit *>();
    releaseKey(keypad, Qt::Key_1);
    releaseKey(keypad, Qt::Key_NumberSign);
    releaseKey(keypad, Qt::Key_1);
    releaseKey(keypad, Qt::Key_NumberSign);
    releaseKey(keypad, Qt::Key_2);
    releaseKey(keypad, Qt::Key_Asterisk);
    releaseKey(keypad, Qt::Key_2);
    QCOMPARE(line->text(), QStringLiteral("a1b2"));
}

void TestDesignerPlugin::marqueeTakesTheTextThatComesLater()
{
    QWidget screen;
    auto *label = qobject_cast<QLabel *>(classNamed(QStringLiteral("FormMarqueeLable"))->createWidget(&screen));
    label->setProperty("interval", 1);
    label->setText(QStringLiteral("ABC"));
    EVENTUALLY_COMPARE(label->text(), QStringLiteral("BCA"));
}

void TestDesignerPlugin::programWithoutAPlatformMakesAllWidgets()
{
    QProcess host;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_PLUGIN_PATH"), QStringLiteral(PLUGIN_DIRECTORY));
    host.setProcessEnvironment(environment);
    host.start(QStringLiteral(HOST), QStringList());
    QVERIFY(host.waitForFinished(LongestWait));
    QCOMPARE(host.readAllStandardOutput(), QByteArray("19 widgets\n"));
    QCOMPARE(host.exitCode(), 0);
}

QTEST_MAIN(TestDesignerPlugin)
#include "tst_designerplugin.moc"

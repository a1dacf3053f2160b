// Looks at the pictures of the simulator's tour as a person would: is every text whole, clear of the others, readable
// and in its place? And do the keys do what the arrows on the display promise?

#include "contactsmodel.h"
#include "devicewindow.h"
#include "look.h"
#include "rowparts.h"
#include "screens.h"
#include "script.h"
#include "textpicture.h"
#include "texts.h"
#include "widgetkeypad.h"
#include "widgetlist.h"
#include "widgetlistview.h"
#include "widgetsoftbtn.h"

#include "platform/desktop/desktopclock.h"
#include "platform/desktop/desktopsound.h"
#include "platform/stringrc.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QLineEdit>
#include <QScrollBar>
#include <QtTest>

#include <algorithm>

Q_DECLARE_METATYPE(KeyMode)

namespace {

// What is on the display; all places are in its pixels.

struct Text
{
    QString text;
    QRect place;  // of its label
    QRect ink;    // what its letters cover
    bool isShown;  // at least in part: not all of it is behind something else
    bool isWhole;
    bool scrolls;
    double contrast;
    double leastContrast;
    std::vector<int> lineEnds;  // the last pixel of each line on the right, if there are several lines
};

struct Row
{
    QString title;
    QRect titleInk;
    // Empty if hidden.
    QRect badge;
    QRect value;
    QRect prevArrow;
    QRect nextArrow;
};

struct Line
{
    QString text;
    bool isCut = false;
    bool fadesOut = false;
};

struct Picture
{
    std::vector<Text> texts;
    std::vector<Row> rows;
    QRect scrollBar;
    Line line;
};

QRect placeOf(const QWidget &widget, const Device &device)
{
    return QRect(widget.mapTo(const_cast<Device *>(&device), QPoint(0, 0)), widget.size());
}

bool isOnTop(const QWidget &widget, const QRect &area, const Device &device)
{
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            if (device.childAt(x, y) == &widget)
                return true;
        }
    }
    return false;
}

std::vector<int> lineEndsIn(const QImage &image, const QRect &lines, int lineHeight)
{
    std::vector<int> ends;
    const QRgb ground = groundOf(image, lines);
    for (int top = lines.top(); top <= lines.bottom() - lineHeight / 2; top += lineHeight) {
        const QRect line = QRect(lines.left(), top, lines.width(), lineHeight) & lines;
        const auto isGround = [&](int x) {
            return strokeIn(image, QRect(x, line.top(), 1, line.height()), ground) == ground;
        };
        int end = line.right();
        while (end >= line.left() && isGround(end))
            --end;
        ends.push_back(end);
    }
    return ends;
}

/// 4.5 for text that a user is meant to read, 3 for what only tells that it is not to be had now.
double leastContrastOf(const QLabel &label)
{
    const bool isMuted = qobject_cast<const WidgetSoftBtn *>(label.parentWidget())
            && !label.styleSheet().contains(QLatin1String("#FFFFFF"));
    // The keypad's own grey.
    const bool isSideKey = qobject_cast<const WidgetKeypad *>(label.parentWidget()) && label.text().size() > 1
            && (label.text().startsWith(QLatin1String("* ")) || label.text().startsWith(QLatin1String("# ")));
    return isMuted || isSideKey ? 3 : 4.5;
}

Text textOf(const QLabel &label, const Device &device, const QImage &image)
{
    const Ink ink(label);
    const auto *marquee = qobject_cast<const WidgetMarqueeLable *>(&label);

    Text text;
    text.text = label.text();
    text.place = placeOf(label, device);
    text.ink = ink.bounds().translated(text.place.topLeft());
    text.isShown = isOnTop(label, text.ink & text.place, device);
    text.isWhole = ink.isWholeIn(image, text.place.topLeft());
    text.scrolls = marquee && marquee->m_offset > 0;
    const QRect inPicture = text.ink & image.rect();
    const QRgb ground = groundOf(image, inPicture);
    text.contrast = contrast(strokeIn(image, inPicture, ground), ground);
    text.leastContrast = leastContrastOf(label);
    const int lineHeight = label.fontMetrics().lineSpacing();
    if (text.ink.height() > lineHeight * 3 / 2)
        text.lineEnds = lineEndsIn(image, inPicture, lineHeight);
    return text;
}

Row rowOf(const WidgetListItem &item, const Device &device)
{
    const RowParts parts(item);
    const auto placeIfShown = [&device](const QWidget *part) {
        return part->isVisible() ? placeOf(*part, device) : QRect();
    };
    Row row;
    row.title = parts.title->text();
    row.titleInk = Ink(*parts.title).bounds().translated(placeOf(*parts.title, device).topLeft());
    row.badge = placeIfShown(parts.badge);
    row.value = placeIfShown(parts.value) | placeIfShown(parts.valueStack);
    row.prevArrow = placeIfShown(parts.prevArrow);
    row.nextArrow = placeIfShown(parts.nextArrow);
    return row;
}

Line lineOf(const QLineEdit &edit, const Device &device)
{
    const int margins = 20;
    const QRect place = placeOf(edit, device);
    Line line;
    line.text = edit.displayText();
    if (device.childAt(place.center()) != &edit)
        return line;
    line.isCut = edit.fontMetrics().horizontalAdvance(line.text) > edit.width() - margins;
    line.fadesOut = device.childAt(place.left() + 2, place.center().y()) != &edit;
    return line;
}

QWidget *screenOnTop(const Device &device)
{
    QWidget *widget = device.childAt(device.rect().center());
    while (widget && widget->parentWidget() != &device)
        widget = widget->parentWidget();
    return widget;
}

Picture pictureOf(Device &device)
{
    Picture picture;
    const QImage image = device.picture(1);
    const QList<QLabel *> labels = device.findChildren<QLabel *>();
    for (const QLabel *label : labels) {
        if (label->isVisible() && !label->text().isEmpty())
            picture.texts.push_back(textOf(*label, device, image));
    }

    const QWidget *screen = screenOnTop(device);
    const QList<WidgetListItem *> items = screen->findChildren<WidgetListItem *>();
    for (const WidgetListItem *item : items) {
        if (item->isVisible() && device.rect().contains(placeOf(*item, device).center()))
            picture.rows.push_back(rowOf(*item, device));
    }
    const QList<QScrollBar *> bars = screen->findChildren<QScrollBar *>();
    for (const QScrollBar *bar : bars) {
        if (bar->isVisible())
            picture.scrollBar = placeOf(*bar, device);
    }
    if (const QLineEdit *edit = screen->findChild<QLineEdit *>())
        picture.line = lineOf(*edit, device);
    return picture;
}

Picture take(const char *screen, const char *keys, bool rightToLeft, KeyMode keyMode = KeyMode::Digits)
{
    StringRC::getInstance()->m_rightToLeft = rightToLeft;
    DeviceWindow window(allScreens(), keyMode, 1);
    window.showActive();
    window.device().start(QString::fromLatin1(screen));
    runFor(0);
    QString error;
    play(parseScript(QString::fromLatin1(keys), &error), window.device(), 0);
    if (!error.isEmpty())
        qFatal("%s", qPrintable(error));
    return pictureOf(window.device());
}

/// \a text without what only says in which direction it is written.
QString withoutMarks(QString text)
{
    return text.remove(QChar(0x200f)).remove(QChar(0x202a)).remove(QChar(0x202c));
}

/// The contacts while someone works the keys: \a keys from \a screen on.
struct ContactsAtWork
{
    ContactsAtWork(const char *screen, const char *keys, KeyMode keyMode = KeyMode::Digits, bool rightToLeft = false)
        : window(allScreens(), keyMode, 1)
    {
        StringRC::getInstance()->m_rightToLeft = rightToLeft;
        window.showActive();
        window.device().start(QString::fromLatin1(screen));
        type(keys);
    }

    void type(const QByteArray &keys)
    {
        QString error;
        play(parseScript(QString::fromLatin1(keys), &error), window.device(), 0);
        if (!error.isEmpty())
            qFatal("%s", qPrintable(error));
        runFor(0);
        list = window.device().findChild<WidgetListView *>();
    }

    QModelIndex current() const { return list->model()->index(list->selectedRow(), 0); }
    QString title() const { return current().data(WidgetListView::TitleRole).toString(); }
    QString value() const
    {
        return current().data(WidgetListView::ValuesRole).toStringList().value(
                current().data(WidgetListView::ValueIndexRole).toInt());
    }

    /// Whether a label on the display says \a text.
    bool shows(const QString &text)
    {
        const Picture picture = pictureOf(window.device());
        return std::any_of(picture.texts.begin(), picture.texts.end(), [&text](const Text &shown) {
            return shown.isShown && withoutMarks(shown.text) == text;
        });
    }

    DeviceWindow window;
    QPointer<WidgetListView> list;
};

void addWritings()
{
    QTest::addColumn<bool>("rightToLeft");
    QTest::newRow("left to right") << false;
    QTest::newRow("right to left") << true;
}

void addKeyModes()
{
    QTest::addColumn<KeyMode>("keyMode");
    QTest::newRow("digits") << KeyMode::Digits;
    QTest::newRow("functions") << KeyMode::Functions;
}

// The tour

void addTour(bool rightToLeftOnly)
{
    QTest::addColumn<QByteArray>("screen");
    QTest::addColumn<QByteArray>("keys");
    QTest::addColumn<bool>("rightToLeft");
    QTest::addColumn<KeyMode>("keyMode");
    for (const Screen &screen : allScreens()) {
        for (const ScreenState &state : screen.states) {
            if (state.rightToLeft || !rightToLeftOnly)
                QTest::addRow("%s %s", screen.name, state.name)
                    << QByteArray(screen.name) << QByteArray(state.keys) << state.rightToLeft
                    << (state.functionKeys ? KeyMode::Functions : KeyMode::Digits);
        }
    }
}

/// The picture of the tour that the test is to look at. It is taken once only: to some the way is long.
const Picture &pictureOfTour()
{
    static QHash<QByteArray, Picture> pictures;
    const QByteArray name = QTest::currentDataTag();
    if (!pictures.contains(name)) {
        QFETCH(QByteArray, screen);
        QFETCH(QByteArray, keys);
        QFETCH(bool, rightToLeft);
        QFETCH(KeyMode, keyMode);
        pictures.insert(name, take(screen.constData(), keys.constData(), rightToLeft, keyMode));
    }
    return *pictures.constFind(name);
}

QByteArray description(const Text &text)
{
    const auto spelled = [](const QRect &rect) {
        return QStringLiteral("(%1, %2) to (%3, %4)").arg(rect.left()).arg(rect.top()).arg(rect.right()).arg(rect.bottom());
    };
    return QStringLiteral("\"%1\" covers %2, its label %3").arg(text.text, spelled(text.ink), spelled(text.place)).toUtf8();
}

}

class TestSimulatorScreens : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textsHaveRoom_data() { addTour(false); }
    void textsHaveRoom();
    void textsAreWhole_data() { addTour(false); }
    void textsAreWhole();
    void textsKeepClearOfEachOther_data() { addTour(false); }
    void textsKeepClearOfEachOther();
    void textsStandOut_data() { addTour(false); }
    void textsStandOut();
    void badgesStandOnRowsOfOneLine_data() { addTour(false); }
    void badgesStandOnRowsOfOneLine();
    void lineThatIsTooLongFadesOut_data() { addTour(false); }
    void lineThatIsTooLongFadesOut();
    void passwordShowsNothingBeforeTheFirstKey();
    void unlitMarksStandOut_data();
    void unlitMarksStandOut();

    void rightToLeftRowsAreMirrored_data() { addTour(true); }
    void rightToLeftRowsAreMirrored();
    void rightToLeftLinesBeginFlush_data() { addTour(true); }
    void rightToLeftLinesBeginFlush();
    void keysFollowTheWriting_data();
    void keysFollowTheWriting();

    void contactsKeepToTheRulesOfModels_data() { addWritings(); }
    void contactsKeepToTheRulesOfModels();
    void contactsAreSortedAndDiffer_data() { addWritings(); }
    void contactsAreSortedAndDiffer();
    void keysLeadFromHomeToTheContactsAndBack_data() { addKeyModes(); }
    void keysLeadFromHomeToTheContactsAndBack();
    void digitsJumpToNames_data();
    void digitsJumpToNames();
    void digitsAreDirectionsWhereTheyLeadThere();
    void heldKeyGoesThroughTheContacts_data() { addKeyModes(); }
    void heldKeyGoesThroughTheContacts();
    void positionFollowsTheKeys();
    void groupStaysChanged();
    void contactOnTheSimCardStays();
    void contactWithoutNumberIsGivenOne();
    void contactsBeginAnewWithTheDevice();
};

void TestSimulatorScreens::textsHaveRoom()
{
    for (const Text &text : pictureOfTour().texts) {
        // Some letters reach out of their place by a pixel, which is cut unnoticed.
        if (text.isShown && !text.scrolls)
            QVERIFY2(text.place.adjusted(-1, 0, 1, 0).contains(text.ink), description(text).constData());
    }
}

void TestSimulatorScreens::textsAreWhole()
{
    for (const Text &text : pictureOfTour().texts) {
        if (text.isShown && !text.scrolls)
            QVERIFY2(text.isWhole, description(text).constData());
    }
}

void TestSimulatorScreens::textsKeepClearOfEachOther()
{
    std::vector<Text> shown;
    for (const Text &text : pictureOfTour().texts) {
        if (!text.isShown)
            continue;
        for (const Text &other : shown)
            QVERIFY2(!text.ink.intersects(other.ink), (description(text) + "; " + description(other)).constData());
        shown.push_back(text);
    }
}

void TestSimulatorScreens::textsStandOut()
{
    for (const Text &text : pictureOfTour().texts) {
        if (text.isShown)
            QVERIFY2(text.contrast >= text.leastContrast,
                     (description(text) + ", contrast " + QByteArray::number(text.contrast)).constData());
    }
}

void TestSimulatorScreens::badgesStandOnRowsOfOneLine()
{
    for (const Row &row : pictureOfTour().rows)
        QVERIFY2(row.badge.isEmpty() || row.value.isEmpty(), row.title.toUtf8().constData());
}

void TestSimulatorScreens::lineThatIsTooLongFadesOut()
{
    const Line &line = pictureOfTour().line;
    QCOMPARE(line.fadesOut, line.isCut);
}

void TestSimulatorScreens::passwordShowsNothingBeforeTheFirstKey()
{
    QCOMPARE(take("password", "", false).line.text, QString());
    QCOMPARE(take("password", "2", false).line.text.size(), 1);
}

void TestSimulatorScreens::unlitMarksStandOut_data()
{
    QTest::addColumn<QString>("picture");
    QTest::addColumn<QColor>("ground");
    const QColor statusBar(0x1f, 0x16, 0x18);
    const QColor bar(0x47, 0x42, 0x42);
    const QColor brownBar(0x59, 0x4b, 0x4f);
    QTest::newRow("no reception") << "status_reception_none" << statusBar;
    QTest::newRow("no phone") << "status_phone_none" << statusBar;
    QTest::newRow("no message") << "status_message_none" << statusBar;
    QTest::newRow("no radio text") << "radio_text_off" << bar;
    QTest::newRow("no traffic programme") << "radio_tp_off" << bar;
    QTest::newRow("mono") << "bottom_mono" << bar;
    QTest::newRow("announcements off") << "bottom_ta_off" << brownBar;
    QTest::newRow("page") << "page_off" << bar;
    QTest::newRow("mark of F1") << "key_f1" << brownBar;
}

void TestSimulatorScreens::unlitMarksStandOut()
{
    QFETCH(QString, picture);
    QFETCH(QColor, ground);
    const QImage mark(QStringLiteral(":/resource/images_l2/%1.png").arg(picture));
    QVERIFY(!mark.isNull());
    QImage image(mark.size(), QImage::Format_RGB32);
    image.fill(ground);
    QPainter(&image).drawImage(0, 0, mark);
    const double standsOut = contrast(strokeIn(image, image.rect(), ground.rgb()), ground.rgb());
    QVERIFY2(standsOut >= 3, QByteArray::number(standsOut).constData());
}

void TestSimulatorScreens::rightToLeftRowsAreMirrored()
{
    const Picture &picture = pictureOfTour();
    const int middle = Device::Width / 2;
    for (const Row &row : picture.rows) {
        const QByteArray title = row.title.toUtf8();
        QVERIFY2(row.titleInk.right() > Device::Width - 25, title.constData());
        QVERIFY2(row.badge.isEmpty() || row.badge.left() > middle, title.constData());
        QVERIFY2(row.prevArrow.isEmpty() || row.prevArrow.right() < middle, title.constData());
        QVERIFY2(row.nextArrow.isEmpty() || row.nextArrow.right() < middle, title.constData());
    }
    QVERIFY(picture.scrollBar.isEmpty() || picture.scrollBar.left() == 0);
}

void TestSimulatorScreens::rightToLeftLinesBeginFlush()
{
    for (const Text &text : pictureOfTour().texts) {
        if (!text.isShown || text.lineEnds.empty())
            continue;
        // As far as the shapes of the letters allow.
        const auto [least, most] = std::minmax_element(text.lineEnds.begin(), text.lineEnds.end());
        QVERIFY2(*most - *least <= 2, description(text).constData());
    }
}

void TestSimulatorScreens::keysFollowTheWriting_data()
{
    QTest::addColumn<QByteArray>("screen");
    QTest::addColumn<QByteArray>("keys");
    QTest::addColumn<bool>("rightToLeft");
    QTest::addColumn<KeyMode>("keyMode");
    QTest::addColumn<QString>("text");  // what comes to the display

    const struct
    {
        const char *name;
        const char *screen;
        const char *keysFromLeft;
        const char *keysFromRight;
        const char *text;
    } ways[] = {
        {"value", "sound", "down right", "down left", "+1"},
        {"value before", "sound", "down left", "down right", "-1"},
        {"deeper", "settings", "right", "left", "Key clicks"},
        {"delete", "settings", "up up up left", "up up up right", "Favourite deleted"},
        {"main menu", "home", "right", "left", "Clock"},
        {"page", "reader", "right", "left", "2"},
        {"memory", "memory", "right", "left", "512"},
        {"group", "contacts", "right OK", "left OK", "Family"},
        {"number", "contacts", "down down down down down right 5", "down down down down down left 5", "5"},
    };
    for (const auto &way : ways) {
        for (const KeyMode mode : {KeyMode::Digits, KeyMode::Functions}) {
            const char *modeName = mode == KeyMode::Digits ? "digits" : "functions";
            for (const bool rightToLeft : {false, true}) {
                StringRC::getInstance()->m_rightToLeft = rightToLeft;
                QTest::addRow("%s, %s, %s", way.name, modeName, rightToLeft ? "right to left" : "left to right")
                    << QByteArray(way.screen) << QByteArray(rightToLeft ? way.keysFromRight : way.keysFromLeft)
                    << rightToLeft << mode << text(way.text);
            }
        }
    }
}

void TestSimulatorScreens::keysFollowTheWriting()
{
    QFETCH(QByteArray, screen);
    QFETCH(QByteArray, keys);
    QFETCH(bool, rightToLeft);
    QFETCH(KeyMode, keyMode);
    QFETCH(QString, text);
    const Picture picture = take(screen.constData(), keys.constData(), rightToLeft, keyMode);
    QVERIFY(std::any_of(picture.texts.begin(), picture.texts.end(), [&text](const Text &shown) {
        return shown.isShown && withoutMarks(shown.text) == text;
    }));
}

// Contacts

void TestSimulatorScreens::contactsKeepToTheRulesOfModels()
{
    QFETCH(bool, rightToLeft);
    StringRC::getInstance()->m_rightToLeft = rightToLeft;
    ContactsModel contacts(nullptr);
    QAbstractItemModelTester tester(&contacts, QAbstractItemModelTester::FailureReportingMode::QtTest);
    QSignalSpy changes(&contacts, &QAbstractItemModel::dataChanged);

    const QModelIndex contact = contacts.index(0);
    QVERIFY(contacts.setData(contact, 3, WidgetListView::ValueIndexRole));
    QCOMPARE(contact.data(WidgetListView::ValueIndexRole).toInt(), 3);
    QCOMPARE(changes.size(), 1);
    for (int group : {-1, 4})
        QVERIFY(!contacts.setData(contact, group, WidgetListView::ValueIndexRole));
    QVERIFY(!contacts.setData(contact, "Nobody", WidgetListView::TitleRole));
    QVERIFY(!contacts.setData(QModelIndex(), 0, WidgetListView::ValueIndexRole));
    QCOMPARE(contact.data(WidgetListView::ValueIndexRole).toInt(), 3);
    QCOMPARE(changes.size(), 1);
}

void TestSimulatorScreens::contactsAreSortedAndDiffer()
{
    QFETCH(bool, rightToLeft);
    StringRC::getInstance()->m_rightToLeft = rightToLeft;
    const ContactsModel contacts(nullptr);
    QSet<QString> names;
    QString before;
    for (int row = 0; row < contacts.rowCount(); ++row) {
        const QString name = contacts.index(row).data(WidgetListView::TitleRole).toString();
        names.insert(name);
        const QString letter = name.normalized(QString::NormalizationForm_KD).left(1);
        QVERIFY2(before <= letter, qPrintable(name));
        before = letter;
    }
    QCOMPARE(names.size(), 1000);
}

void TestSimulatorScreens::keysLeadFromHomeToTheContactsAndBack()
{
    QFETCH(KeyMode, keyMode);
    for (const char *way : {"left OK 5", "left OK down down OK", "left OK down down right"}) {
        ContactsAtWork contacts("home", way, keyMode);
        QVERIFY(contacts.list);
        QCOMPARE(contacts.list->model()->rowCount(), 1000);
        QCOMPARE(contacts.list->selectedRow(), 0);
        contacts.type("ESC");
        QVERIFY(!contacts.list);
        QVERIFY(qobject_cast<WidgetList *>(screenOnTop(contacts.window.device())));
        contacts.type("left ESC");
        QVERIFY(!contacts.window.device().findChild<WidgetList *>());
    }
}

void TestSimulatorScreens::digitsJumpToNames_data()
{
    QTest::addColumn<QByteArray>("keys");
    QTest::addColumn<bool>("rightToLeft");
    QTest::addColumn<QString>("beginning");
    QTest::newRow("first letter of the key") << QByteArray("6") << false << "M";
    QTest::newRow("second letter") << QByteArray("6 6") << false << "N";
    QTest::newRow("around the letters") << QByteArray("6 6 6 6") << false << "M";
    QTest::newRow("accent") << QByteArray("8 8") << false << QString::fromUtf8("Ü");
    QTest::newRow("accent below the first of its letter") << QByteArray("3 3 up") << false << "Dario";
    QTest::newRow("four letters") << QByteArray("9 9 9 9") << false << "Z";
    QTest::newRow("no letter") << QByteArray("9 1") << false << "W";
    QTest::newRow("right to left") << QByteArray("8") << true << QString::fromUtf8("ف");
    QTest::newRow("right to left, hamza") << QByteArray("8 3") << true << QString::fromUtf8("أ");
}

void TestSimulatorScreens::digitsJumpToNames()
{
    QFETCH(QByteArray, keys);
    QFETCH(bool, rightToLeft);
    QFETCH(QString, beginning);
    ContactsAtWork contacts("contacts", keys.constData(), KeyMode::Functions, rightToLeft);
    QVERIFY2(contacts.title().startsWith(beginning), qPrintable(contacts.title()));
}

void TestSimulatorScreens::digitsAreDirectionsWhereTheyLeadThere()
{
    ContactsAtWork contacts("contacts", "8 8 2");
    QCOMPARE(contacts.list->selectedRow(), 1);
    contacts.type("9 5");
    QCOMPARE(contacts.list->selectedRow(), 1);
}

void TestSimulatorScreens::heldKeyGoesThroughTheContacts()
{
    QFETCH(KeyMode, keyMode);
    ContactsAtWork contacts("contacts", "", keyMode);
    Device &device = contacts.window.device();
    const int down = deviceKey(Qt::Key_Down, keyMode);
    device.press(down);
    for (int i = 0; i < 61; ++i)
        device.repeat(down);
    // It counts as held with the eleventh repeat, goes on by ten rows, and then by three at a time.
    QCOMPARE(contacts.list->selectedRow(), 10 + 40 * 3);
    device.release(down);
    QCOMPARE(contacts.list->selectedRow(), 130);
    QVERIFY(contacts.shows("131/1000"));

    device.press(down);
    for (int i = 0; i < 1000; ++i)
        device.repeat(down);
    device.release(down);
    QCOMPARE(contacts.list->selectedRow(), 999);
}

void TestSimulatorScreens::positionFollowsTheKeys()
{
    ContactsAtWork contacts("contacts", "");
    QVERIFY(contacts.shows("1/1000"));
    contacts.type("down");
    QVERIFY(contacts.shows("2/1000"));
    contacts.type("up up");
    QVERIFY(contacts.shows("1000/1000"));
    contacts.type("OK ESC");
    QVERIFY(contacts.shows("1000/1000"));
}

void TestSimulatorScreens::groupStaysChanged()
{
    ContactsAtWork contacts("more", "5 down");
    const QString name = contacts.title();
    const QString before = contacts.value();
    contacts.type("right");
    const QString changed = contacts.value();
    QVERIFY(changed != before);

    contacts.type("OK");
    QVERIFY(contacts.shows(changed));
    contacts.type("ESC");
    QCOMPARE(contacts.title(), name);
    QCOMPARE(contacts.value(), changed);

    contacts.type("ESC");
    QVERIFY(!contacts.list);
    contacts.type("5 down");
    QCOMPARE(contacts.title(), name);
    QCOMPARE(contacts.value(), changed);
    contacts.type("left");
    QCOMPARE(contacts.value(), before);
}

void TestSimulatorScreens::contactOnTheSimCardStays()
{
    ContactsAtWork contacts("contacts", "down down");
    QCOMPARE(contacts.value(), QString("SIM card"));
    contacts.type("right left right");
    QCOMPARE(contacts.value(), QString("SIM card"));
    QVERIFY(contacts.shows("3/1000"));
    contacts.type("OK");
    QVERIFY(contacts.shows("SIM card"));
    QVERIFY(contacts.shows("No group"));
}

void TestSimulatorScreens::contactWithoutNumberIsGivenOne()
{
    for (const char *key : {"OK ", "right "}) {
        ContactsAtWork contacts("contacts", "down down down down down");
        QCOMPARE(contacts.value(), QString("No number"));
        contacts.type(key + QByteArray("0 5 5 5 wait:0 ESC"));
        QCOMPARE(contacts.value(), QString("No number"));
        contacts.type(key + QByteArray("0 5 5 5 OK"));
        QVERIFY(contacts.value() != QString("No number"));
        QVERIFY(!contacts.current().data(WidgetListView::TitleDimmedRole).toBool());
        QCOMPARE(contacts.list->selectedRow(), 5);
        contacts.type("OK");
        QVERIFY(contacts.shows("0555"));
    }
}

void TestSimulatorScreens::contactsBeginAnewWithTheDevice()
{
    ContactsAtWork contacts("contacts", "");
    const QString before = contacts.value();
    contacts.type("right");
    QVERIFY(contacts.value() != before);
    contacts.window.device().start("contacts");
    contacts.type("");
    QCOMPARE(contacts.value(), before);
}

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    fixLook();
    QApplication application(argc, argv);
    applyLook();
    Desktop::setMuted(true);
    Desktop::setFixedLocalTime("2026-03-07 13:05:09");
    TestSimulatorScreens test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_simulatorscreens.moc"

// A row that is painted looks as a row that is a widget: the same rows, keys and times in a WidgetList and in a
// WidgetListView give the same picture to the last pixel.

#include "listviewtesting.h"
#include "picturecomparison.h"
#include "widgetlist.h"
#include "widgetmarqueelable.h"

#include "platform/soundmanager.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QPainter>
#include <QScreen>
#include <QStyle>
#include <QStyleFactory>
#include <QTest>

#include <functional>
#include <memory>

namespace {

const char IconSheet[] = "image: url(:/resource/images_l2/icon_disc.png);";

template <typename List>
void setUp(List *list)
{
    list->resize(220, 176);
    list->setTitle(QStringLiteral("Settings"), true);
    list->setTitleIcon(QLatin1String(IconSheet));
    list->addGuide(QStringLiteral("color: white;"), QRect(120, 0, 90, 13));
}

/// A list of either make, in a window of its own. Its titles turn only when they are told to.
class Screen : public QObject
{
public:
    Screen() { qApp->installEventFilter(this); }

    bool eventFilter(QObject *receiver, QEvent *event) override
    {
        return event->type() == QEvent::Timer && !m_turning
            && scrollTimers(receiver).contains(static_cast<QTimerEvent *>(event)->timerId());
    }

    void show()
    {
        m_window.resize(220, 176);
        m_window.show();
        m_window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&m_window, LongestWait));
        runEventLoop();
        seeAllRows();
    }

    void type(const QByteArray &keys)
    {
        for (char key : keys) {
            QWidget *receiver = QApplication::focusWidget();
            QVERIFY(receiver && m_window.isAncestorOf(receiver));
            pressKey(receiver, key);
            releaseKey(receiver, key);
        }
    }

    QImage picture()
    {
        runEventLoop();
        return m_window.grab().toImage().convertToFormat(QImage::Format_RGB32);
    }

    QWidget &window() { return m_window; }

    virtual void setNoFocusStyle(int rows) = 0;
    virtual void hideRow(int row) = 0;

    /// As its timer would.
    void turnTitle()
    {
        QObject *title = scrollingTitle();
        m_turning = true;
        for (int timer : scrollTimers(title)) {
            QTimerEvent turn(timer);
            QCoreApplication::sendEvent(title, &turn);
        }
        m_turning = false;
    }

protected:
    virtual void seeAllRows() {}
    virtual QObject *scrollingTitle() const = 0;

    QWidget m_window;

private:
    bool m_turning = false;
};

class ListScreen : public Screen
{
public:
    explicit ListScreen(const QList<Row> &rows)
        : m_list(int(rows.size()), &m_window, SoundManager::getInstance()),
          m_rows(int(rows.size()))
    {
        setUp(&m_list);
        for (const Row &row : rows)
            m_list.addListItem(newItem(row, SoundManager::getInstance()));
    }

    void setNoFocusStyle(int rows) override { m_list.setNoFocusStyle(rows); }
    void hideRow(int row) override { m_list.hideItem(row); }

private:
    QObject *scrollingTitle() const override { return QApplication::focusWidget()->findChild<WidgetMarqueeLable *>(); }

    // A value of a WidgetListItem takes its colour when its row first has the focus.
    void seeAllRows() override
    {
        for (int row = 0; row < m_rows; ++row)
            m_list.setFocusAtItem(row);
        if (m_rows > 0)
            m_list.setFocusAtItem(0);
        runEventLoop();
    }

    WidgetList m_list;
    int m_rows;
};

class ViewScreen : public Screen
{
public:
    explicit ViewScreen(const QList<Row> &rows)
        : m_model(rows),
          m_list(&m_window, SoundManager::getInstance())
    {
        setUp(&m_list);
        m_list.setModel(&m_model);
    }

    void setNoFocusStyle(int rows) override { m_list.setNoFocusStyle(rows); }
    void hideRow(int row) override { m_list.hideItem(row); }

private:
    QObject *scrollingTitle() const override { return m_list.findChild<QAbstractItemView *>(); }

    RowsModel m_model;
    WidgetListView m_list;
};

}

using Situation = std::function<void(Screen &)>;

struct NamedSituation
{
    const char *name;
    Situation bringAbout;
};

struct NamedRow
{
    const char *name;
    Row row;
};

const char LongTitle[] = "A title that is wider than its row has room for, whatever stands beside it";

QList<NamedRow> kindsOfRow()
{
    QList<NamedRow> kinds;
    const auto add = [&kinds](const char *name, const std::function<void(Row &)> &describe) {
        Row row;
        row.title = QStringLiteral("Title %1").arg(kinds.size());
        describe(row);
        kinds.append({name, row});
    };
    const QStringList values{QStringLiteral("one"), QStringLiteral("two"),
                             QStringLiteral("a third value that is much too wide for any row")};
    add("no title", [](Row &row) { row.title.clear(); });
    add("a title", [](Row &) {});
    add("a long title", [](Row &row) { row.title = QLatin1String(LongTitle); });
    add("a title of two lines", [](Row &row) { row.title = QStringLiteral("one line\nand one more"); });
    add("a title with a mark-up", [](Row &row) { row.title = QStringLiteral("<b>bold</b> & more"); });
    add("a title in Arabic", [](Row &row) { row.title = QStringLiteral("\u0627\u0644\u0644\u063a\u0629 and more"); });
    add("leads deeper", [](Row &row) { row.moreDepth = true; });
    add("a long title that leads deeper", [](Row &row) {
        row.title = QLatin1String(LongTitle);
        row.moreDepth = true;
    });
    add("deletable", [](Row &row) { row.deletable = true; });
    add("deletable and leads deeper", [](Row &row) { row.deletable = row.moreDepth = true; });
    add("a set value", [](Row &row) { row.setValue = QStringLiteral("what it is"); });
    add("a set value that is empty", [](Row &row) { row.setValue = QString(""); });
    add("a set value that leads deeper", [](Row &row) {
        row.setValue = QStringLiteral("a value that is much too wide for any row");
        row.moreDepth = true;
    });
    add("one value", [&](Row &row) { row.values = values.mid(0, 1); });
    add("one value, deletable", [&](Row &row) {
        row.values = values.mid(0, 1);
        row.deletable = true;
    });
    add("values", [&](Row &row) { row.values = values; });
    add("a value that is cut", [&](Row &row) {
        row.values = values;
        row.valueIndex = 2;
    });
    add("a value outside", [&](Row &row) {
        row.values = values;
        row.valueIndex = 7;
    });
    add("values under a long title", [&](Row &row) {
        row.title = QLatin1String(LongTitle);
        row.values = values;
    });
    add("values that lead deeper", [&](Row &row) {
        row.values = values;
        row.moreDepth = true;
    });
    add("values that are not modifiable", [&](Row &row) {
        row.title = QLatin1String(LongTitle);
        row.values = values;
        row.modifiable = false;
    });
    add("a badge", [](Row &row) { row.badge = 3; });
    add("a badge and values", [&](Row &row) {
        row.badge = 9;
        row.values = values;
    });
    add("a badge and a long title", [](Row &row) {
        row.badge = 0;
        row.title = QLatin1String(LongTitle);
    });
    add("a value on the right", [&](Row &row) {
        row.values = values;
        row.valueOnRightSide = true;
    });
    add("a set value on the right", [&](Row &row) {
        row.setValue = QStringLiteral("set");
        row.valueOnRightSide = true;
    });
    add("a long value on the right of a long title", [&](Row &row) {
        row.title = QLatin1String(LongTitle);
        row.values = values;
        row.valueIndex = 2;
        row.valueOnRightSide = true;
        row.badge = 4;
    });
    add("on the right there is nothing", [](Row &row) { row.valueOnRightSide = true; });
    return kinds;
}

Q_DECLARE_METATYPE(Situation)

class TestWidgetListViewPictures : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void eachKindOfRowLooksTheSame_data();
    void eachKindOfRowLooksTheSame();
    void listsLookTheSameAfterKeys_data();
    void listsLookTheSameAfterKeys();
    void scrollingTitlesLookTheSameAtEachStep_data();
    void scrollingTitlesLookTheSameAtEachStep();
    void scrollBarsLookTheSame_data();
    void scrollBarsLookTheSame();
    void titleBarsLookTheSame_data();
    void titleBarsLookTheSame();
    void whatIsPaintedInPartsLooksAsPaintedAtOnce();
    void aSheetOfTheApplicationDoesNotReachTheRows();
    void dimmedTextsArePaleWithAndWithoutTheFocus();
    void aMirroredListHasItsPartsOnTheOtherSide();

private:
    void compare(const QImage &widgets, const QImage &view);
    void compareIn(const QList<Row> &rows, const Situation &situation);
};

void TestWidgetListViewPictures::init()
{
    RecordingPlatform::reset();
}

void TestWidgetListViewPictures::cleanup()
{
    QApplication::setLayoutDirection(Qt::LeftToRight);
    qApp->setStyleSheet(QString());
}

void TestWidgetListViewPictures::compare(const QImage &widgets, const QImage &view)
{
    QVERIFY(!widgets.isNull());
    if (widgets == view)
        return;
    const QString name = QString::fromLatin1("%1-%2").arg(QTest::currentTestFunction(), QTest::currentDataTag());
    widgets.save(name + QLatin1String("-widgets.png"));
    view.save(name + QLatin1String("-view.png"));
    differencePicture(view, widgets).save(name + QLatin1String("-difference.png"));
    QFAIL(qPrintable(QStringLiteral("The pictures differ; see %1-*.png here").arg(name)));
}

void TestWidgetListViewPictures::compareIn(const QList<Row> &rows, const Situation &situation)
{
    QImage pictures[2];
    for (int i = 0; i < 2; ++i) {
        std::unique_ptr<Screen> screen;
        if (i == 0)
            screen = std::make_unique<ListScreen>(rows);
        else
            screen = std::make_unique<ViewScreen>(rows);
        screen->show();
        situation(*screen);
        pictures[i] = screen->picture();
    }
    compare(pictures[0], pictures[1]);
}

void TestWidgetListViewPictures::eachKindOfRowLooksTheSame_data()
{
    const NamedSituation situations[] = {
        {"in focus", [](Screen &) {}},
        {"beside the focus", [](Screen &screen) { screen.type("8"); }},
        {"without the focus",
         [](Screen &screen) {
             QWidget *other = new QWidget(&screen.window());
             other->setFocus();
         }},
        {"in the no-focus style", [](Screen &screen) { screen.setNoFocusStyle(3); }},
        {"as the second in the no-focus style",
         [](Screen &screen) {
             screen.setNoFocusStyle(0);
             screen.hideRow(0);
             screen.type("8");
         }},
        {"with other pictures",
         [](Screen &screen) {
             screen.type("6");
         }},
    };
    QTest::addColumn<int>("kind");
    QTest::addColumn<Situation>("situation");
    QTest::addColumn<bool>("mirrored");
    const QList<NamedRow> kinds = kindsOfRow();
    for (int kind = 0; kind < kinds.size(); ++kind) {
        for (const NamedSituation &situation : situations) {
            for (bool mirrored : {false, true}) {
                QTest::addRow("%s, %s%s", kinds.at(kind).name, situation.name, mirrored ? ", right to left" : "")
                    << kind << situation.bringAbout << mirrored;
            }
        }
    }
}

void TestWidgetListViewPictures::eachKindOfRowLooksTheSame()
{
    QFETCH(int, kind);
    QFETCH(Situation, situation);
    QFETCH(bool, mirrored);
    RecordingPlatform::setRightToLeft(mirrored);
    QApplication::setLayoutDirection(mirrored ? Qt::RightToLeft : Qt::LeftToRight);
    QList<Row> rows = RowsModel::titled(4);
    rows.insert(0, kindsOfRow().at(kind).row);
    compareIn(rows, situation);
}

void TestWidgetListViewPictures::listsLookTheSameAfterKeys_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<QByteArray>("keys");
    QTest::newRow("no rows") << 0 << QByteArray();
    QTest::newRow("one row") << 1 << QByteArray("8");
    QTest::newRow("three rows, as many as are in view") << 3 << QByteArray("88");
    for (int rows : {4, 12, 200}) {
        for (const char *keys : {"", "8", "88", "888", "8888", "88822", "888222", "2", "28", "2222", "22228", "888888886"})
            QTest::addRow("%d rows, %s", rows, *keys ? keys : "at rest") << rows << QByteArray(keys);
    }
}

void TestWidgetListViewPictures::listsLookTheSameAfterKeys()
{
    QFETCH(int, rows);
    QFETCH(QByteArray, keys);
    QList<Row> content = RowsModel::titled(rows);
    for (int i = 0; i < rows; ++i) {
        content[i].values = QStringList{QStringLiteral("first of %1").arg(i), QStringLiteral("second")};
        content[i].badge = i < 9 ? i + 1 : -1;
    }
    compareIn(content, [&](Screen &screen) { screen.type(keys); });
}

void TestWidgetListViewPictures::scrollingTitlesLookTheSameAtEachStep_data()
{
    QTest::addColumn<int>("turns");
    QTest::addColumn<bool>("onOneLine");
    for (int turns : {0, 1, 2, 3, 30, 73, 74, 75, 76, 77, 78, 79, 80}) {
        QTest::addRow("%d turns", turns) << turns << false;
        QTest::addRow("%d turns beside a value", turns) << turns << true;
    }
}

void TestWidgetListViewPictures::scrollingTitlesLookTheSameAtEachStep()
{
    QFETCH(int, turns);
    QFETCH(bool, onOneLine);
    QList<Row> rows = RowsModel::titled(5);
    rows[1].title = QLatin1String(LongTitle);
    rows[1].values = QStringList{QStringLiteral("one"), QStringLiteral("two")};
    rows[1].valueOnRightSide = onOneLine;
    compareIn(rows, [&](Screen &screen) {
        screen.type("8");
        for (int i = 0; i < turns; ++i)
            screen.turnTitle();
    });
    compareIn(rows, [&](Screen &screen) {
        screen.type("8");
        for (int i = 0; i < turns; ++i)
            screen.turnTitle();
        screen.type("2");
    });
}

void TestWidgetListViewPictures::scrollBarsLookTheSame_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("downs");
    for (int rows : {3, 4, 5, 7, 30, 100, 300}) {
        for (int downs : {0, rows / 3, rows / 2, rows - 2, rows - 1})
            QTest::addRow("%d rows, %d down", rows, downs) << rows << downs;
    }
}

void TestWidgetListViewPictures::scrollBarsLookTheSame()
{
    QFETCH(int, rows);
    QFETCH(int, downs);
    compareIn(RowsModel::titled(rows), [&](Screen &screen) { screen.type(QByteArray(downs, '8')); });
}
void TestWidgetListViewPictures::titleBarsLookTheSame_data()
{
    QTest::addColumn<QStringList>("iconStyles");
    QTest::addColumn<bool>("defaultFont");
    QTest::addColumn<bool>("mirrored");
    const QString picture = QLatin1String(IconSheet);
    const struct
    {
        const char *name;
        QStringList styles;
    } icons[] = {
        {"no icon", {}},
        {"an icon", {picture}},
        {"the same icon twice", {picture, picture}},
        {"another icon", {picture, QStringLiteral("image: url(:/resource/images_l2/icon_square.png);")}},
        {"an icon that is too large", {QStringLiteral("image: url(:/resource/images_l2/tna_bg.png);")}},
        {"an icon that is too wide", {QStringLiteral("image: url(:/resource/images_l2/icon_strip.png);")}},
        {"an icon that is too high", {QStringLiteral("image: url(:/resource/images_l2/icon_pole.png);")}},
        {"an icon that does not exist", {QStringLiteral("image: url(:/none.png);")}},
        {"an icon on a colour", {QStringLiteral("background-color: #800000; ") + picture}},
        {"a colour after the icon", {picture, QStringLiteral("background-color: #800000;")}},
        {"an icon in a corner", {QStringLiteral("image: url(:/resource/images_l2/icon_disc.png); image-position: top left;")}},
        {"a picture where a colour belongs", {QStringLiteral("color: url(:/resource/images_l2/icon_disc.png);")}},
        {"an icon whose sheet breaks off", {QStringLiteral("image: url(:/resource/images_l2/icon_disc.png  ")}},
        {"an icon in two halves",
         {QStringLiteral("image: url("), QStringLiteral(":/resource/images_l2/icon_disc.png);")}},
        {"a background", {QStringLiteral("background-image: url(:/resource/images_l2/icon_disc.png);")}},
    };
    for (const auto &icon : icons) {
        for (bool defaultFont : {false, true}) {
            for (bool mirrored : {false, true}) {
                QTest::addRow("%s%s%s", icon.name, defaultFont ? ", in the default font" : "",
                              mirrored ? ", right to left" : "")
                    << icon.styles << defaultFont << mirrored;
            }
        }
    }
}

void TestWidgetListViewPictures::titleBarsLookTheSame()
{
    QFETCH(QStringList, iconStyles);
    QFETCH(bool, defaultFont);
    QFETCH(bool, mirrored);
    const auto pictureOf = [&](auto *list) {
        QWidget window;
        window.resize(220, 176);
        list->setParent(&window);
        list->resize(220, 176);
        list->setTitle(QStringLiteral("Settings that are wider than the bar"), defaultFont);
        for (const QString &style : iconStyles)
            list->setTitleIcon(style);
        window.show();
        const QImage atFirst = window.grab().toImage();
        // And what changes while it is seen, also the writing direction.
        list->setTitle(QStringLiteral("Other"), defaultFont);
        list->addGuide(QStringLiteral("background-color: #004000;"), QRect(10, 0, 60, 13));
        list->setTitleIcon(QStringLiteral("border: 2px solid #808000;"));
        RecordingPlatform::setRightToLeft(!mirrored);
        list->setDefaultFont();
        QImage both(220, 352, QImage::Format_RGB32);
        QPainter painter(&both);
        painter.drawImage(0, 0, atFirst);
        painter.drawImage(0, 176, window.grab().toImage());
        return both;
    };
    RecordingPlatform::setRightToLeft(mirrored);
    const QImage widgets = pictureOf(new WidgetList(0, nullptr, nullptr));
    RecordingPlatform::setRightToLeft(mirrored);
    const QImage view = pictureOf(new WidgetListView(nullptr, nullptr));
    compare(widgets, view);
}

void TestWidgetListViewPictures::whatIsPaintedInPartsLooksAsPaintedAtOnce()
{
    QList<Row> rows = RowsModel::titled(40);
    for (Row &row : rows)
        row.values = QStringList{QStringLiteral("one"), QStringLiteral("two")};
    ViewScreen screen(rows);
    screen.show();
    for (char key : QByteArray("888888688822222222288486")) {
        screen.type(QByteArray(1, key));
        runEventLoop();
        // What the toolkit has painted and moved on the screen so far, and everything anew.
        QWidget &window = screen.window();
        const QImage inParts = window.screen()->grabWindow(window.winId()).toImage();
        compare(screen.picture(), inParts.convertToFormat(QImage::Format_RGB32));
    }
}

void TestWidgetListViewPictures::aSheetOfTheApplicationDoesNotReachTheRows()
{
    QList<Row> rows = RowsModel::titled(5);
    rows[0].setValue = QStringLiteral("a value");
    QImage pictures[2];
    for (int i = 0; i < 2; ++i) {
        if (i == 1)
            qApp->setStyleSheet(QStringLiteral("QWidget { color: red; background-color: blue; font-size: 30pt }"
                                               "QAbstractItemView::item { background-color: green }"));
        ViewScreen screen(rows);
        screen.show();
        pictures[i] = screen.picture().copy(0, 38, 216, 138);
    }
    QCOMPARE(pictures[1], pictures[0]);
}

void TestWidgetListViewPictures::dimmedTextsArePaleWithAndWithoutTheFocus()
{
    const auto darkest = [](const QImage &picture) {
        int grey = 255;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x)
                grey = qMin(grey, qGray(picture.pixel(x, y)));
        }
        return grey;
    };
    QList<Row> rows = RowsModel::titled(2);
    for (Row &row : rows)
        row.setValue = QStringLiteral("a value");
    rows[0].titleDimmed = true;
    rows[1].valueDimmed = true;
    ViewScreen screen(rows);
    screen.show();
    for (const char *key : {"", "8"}) {
        screen.type(key);
        const QImage picture = screen.picture();
        const int dimmedTitle = darkest(picture.copy(9, 40, 100, 21));
        const int value = darkest(picture.copy(9, 61, 100, 21));
        const int title = darkest(picture.copy(9, 86, 100, 21));
        const int dimmedValue = darkest(picture.copy(9, 107, 100, 21));
        QVERIFY2(dimmedTitle > title + 40, key);
        QVERIFY2(dimmedValue > value + 40, key);
        QCOMPARE(dimmedTitle, dimmedValue);
        QCOMPARE(dimmedTitle, qGray(0x8C, 0x82, 0x82));
    }
}

void TestWidgetListViewPictures::aMirroredListHasItsPartsOnTheOtherSide()
{
    // Two rows, which have the whole width, with arrows and nothing that could be read.
    QList<Row> rows = RowsModel::titled(QStringList{QString(), QString()});
    rows[0].moreDepth = true;
    rows[1].deletable = true;
    QImage pictures[2];
    for (bool mirrored : {false, true}) {
        RowsModel model(rows);
        WidgetListView list(nullptr, nullptr);
        list.resize(220, 176);
        list.setModel(&model);
        list.m_mirrored = mirrored;
        list.show();
        pictures[mirrored] = list.grab().toImage();
    }
    QVERIFY(pictures[1] != pictures[0]);
    QCOMPARE(pictures[1], pictures[0].mirrored(true, false));
}

int main(int argc, char **argv)
{
    // Whatever the machine looks like, the pictures have the device's resolution, one font and one style.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_FONT_DPI", "72");
    if (qEnvironmentVariableIsEmpty("QT_SCALE_FACTOR"))
        qputenv("QT_SCALE_FACTOR", "1");
    QApplication application(argc, argv);
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    QApplication::setPalette(QApplication::style()->standardPalette());
    QApplication::setFont(QFont("DejaVu Sans", 12));
    TestWidgetListViewPictures test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_widgetlistviewpictures.moc"

// The carousel of a main menu.

#include "anytoolkit.h"
#include "widgetswitcher.h"

#include <QLabel>

class TestAnySwitcher : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void keysTurnAroundTheEnds();
    void functionKeysTurnWhereTheyAreTheDirections();
    void dotOfTheEntryIsLit();
    void okReportsTheEntry();
    void okClicksOnlyWhereTheEntryIsNotSelectable();
    void otherKeysAreHandedOn();
    void turnedSwitcherLooksLikeOneThatWasSelected_data();
    void turnedSwitcherLooksLikeOneThatWasSelected();
    void restyledSwitcherLooksLikeANewOne();
    void rejectsAnIndexThatDoesNotExist();
};

struct SwitcherScreen : Screen
{
    SwitcherScreen() : switcher(this, sound())
    {
        static const char *const names[] = {"Music", "Phone", "Radio", "Clock", "Memory", "Setup"};
        for (int i = 0; i < 6; ++i) {
            switcher.setItemStyle(1, QString::fromLatin1("background-color: #%1;").arg(200000 + 100000 * i), QString(), i);
            switcher.setItemStyle(3, QString::fromLatin1("background-color: #00%1;").arg(2000 + 1000 * i), QString(), i);
            switcher.setItemStyle(4, QString::fromLatin1(names[i]), QString(), i);
        }
        switcher.setItemStyle(5, "image: url(:/resource/images_l2/page_off.png);", QString(), 0);
        switcher.setItemStyle(6, "image: url(:/resource/images_l2/page_on.png);", QString(), 0);
        switcher.setFontStyle(4, 14, true, "color: #ffffff;");
        switcher.setBgGeometry(0, 0, 220, 176);
    }

    void open()
    {
        showInFront();
        switcher.setFocus();
    }

    QString name() const
    {
        const QList<QLabel *> labels = partsOf<QLabel>(&switcher);
        for (int i = 0; i < int(labels.size()); ++i) {
            if (!labels.at(i)->text().isEmpty())
                return labels.at(i)->text();
        }
        return QString();
    }

    WidgetSwitcher switcher;
};

void TestAnySwitcher::init()
{
    AnyPlatform::reset();
}

void TestAnySwitcher::keysTurnAroundTheEnds()
{
    SwitcherScreen screen;
    screen.open();
    const int keys[] = {Qt::Key_6, Qt::Key_4, Qt::Key_4, Qt::Key_6};
    QStringList names;
    for (int i = 0; i < 4; ++i) {
        strike(&screen, keys[i]);
        names << screen.name();
    }
    QCOMPARE(names, QStringList() << "Phone" << "Music" << "Setup" << "Music");
    QCOMPARE(AnyPlatform::takeEvents(), QStringList() << "sound 901" << "sound 901" << "sound 901" << "sound 901");
}

void TestAnySwitcher::functionKeysTurnWhereTheyAreTheDirections()
{
    SwitcherScreen screen;
    screen.switcher.m_useFunctionKeys = true;
    screen.open();
    strike(&screen, Qt::Key_F4);
    QCOMPARE(screen.name(), QString("Phone"));
    strike(&screen, Qt::Key_F3);
    QCOMPARE(screen.name(), QString("Music"));
    strike(&screen, Qt::Key_6);
    QCOMPARE(screen.name(), QString("Music"));
}

void TestAnySwitcher::dotOfTheEntryIsLit()
{
    SwitcherScreen screen;
    screen.open();
    for (int entry = 0; entry < 6; ++entry) {
        // The lit dot stands where the unlit one of the entry is hidden.
        QList<QLabel *> unlit;
        QLabel *lit = 0;
        const QList<QLabel *> labels = screen.switcher.findChildren<QLabel *>();
        for (int i = 0; i < int(labels.size()); ++i) {
            if (labels.at(i)->styleSheet().contains("page_off"))
                unlit.append(labels.at(i));
            else if (labels.at(i)->styleSheet().contains("page_on"))
                lit = labels.at(i);
        }
        QVERIFY(lit && lit->isVisible());
        QCOMPARE(int(unlit.size()), 6);
        for (int i = 0; i < 6; ++i)
            QCOMPARE(unlit.at(i)->isVisible(), i != entry);
        QCOMPARE(lit->pos(), unlit.at(entry)->pos());
        strike(&screen, Qt::Key_6);
    }
}

void TestAnySwitcher::okReportsTheEntry()
{
    SwitcherScreen screen;
    screen.open();
    QSignalSpy reports(&screen.switcher, SIGNAL(sendMainItem(int)));
    screen.switcher.selectItem(4);
    strike(&screen, Qt::Key_Menu);
    QCOMPARE(int(reports.size()), 1);
    QCOMPARE(reports.at(0).at(0).toInt(), 4);
    QCOMPARE(AnyPlatform::takeEvents(), QStringList() << "sound 901");
}

void TestAnySwitcher::okClicksOnlyWhereTheEntryIsNotSelectable()
{
    SwitcherScreen screen;
    screen.open();
    QSignalSpy reports(&screen.switcher, SIGNAL(sendMainItem(int)));
    screen.switcher.makeSelectable(0, false);
    strike(&screen, Qt::Key_Menu);
    QCOMPARE(int(reports.size()), 0);
    QCOMPARE(AnyPlatform::takeEvents(), QStringList() << "sound 901");
}

void TestAnySwitcher::otherKeysAreHandedOn()
{
    SwitcherScreen screen;
    screen.open();
    strike(&screen, Qt::Key_2);
    strike(&screen, Qt::Key_Escape);
    QCOMPARE(AnyPlatform::takeEvents(), QStringList() << "handed on 2" << "handed on Esc");
}

void TestAnySwitcher::turnedSwitcherLooksLikeOneThatWasSelected_data()
{
    QTest::addColumn<int>("turns");
    QTest::addColumn<int>("entry");
    QTest::newRow("one to the right") << 1 << 1;
    QTest::newRow("three to the right") << 3 << 3;
    QTest::newRow("one to the left") << -1 << 5;
    QTest::newRow("around the end") << 6 << 0;
}

void TestAnySwitcher::turnedSwitcherLooksLikeOneThatWasSelected()
{
    QFETCH(int, turns);
    QFETCH(int, entry);
    SwitcherScreen fresh;
    fresh.switcher.selectItem(entry);
    const QImage expected = shownOnce(&fresh);

    SwitcherScreen screen;
    screen.open();
    for (int i = 0; i < qAbs(turns); ++i) {
        strike(&screen, turns < 0 ? Qt::Key_4 : Qt::Key_6);
        QCOMPARE(seen(&screen) == expected, i + 1 == qAbs(turns));
    }
    QVERIFY(looksAs(&screen, expected));
}

void TestAnySwitcher::restyledSwitcherLooksLikeANewOne()
{
    SwitcherScreen fresh;
    fresh.switcher.setItemStyle(0, "background-color: #594b4f;", QString(), 0);
    fresh.switcher.setAttribute(Qt::WA_StyledBackground);
    fresh.switcher.setItemStyle(4, "Tuner", QString(), 2);
    fresh.switcher.setItemGeometry(5, 20, 2, 6, 6);
    fresh.switcher.selectItem(2);
    const QImage expected = shownOnce(&fresh);

    SwitcherScreen screen;
    screen.open();
    screen.switcher.selectItem(5);
    screen.switcher.setAttribute(Qt::WA_StyledBackground);
    screen.switcher.setItemStyle(0, QString(), "background-color: #594b4f;", 0);
    screen.switcher.setItemStyle(4, "Tuner", QString(), 2);
    screen.switcher.setItemGeometry(5, 20, 2, 6, 6);
    screen.switcher.selectItem(2);
    QVERIFY(looksAs(&screen, expected));
}

void TestAnySwitcher::rejectsAnIndexThatDoesNotExist()
{
    SwitcherScreen screen;
    screen.open();
    screen.switcher.selectItem(6);
    screen.switcher.setItemStyle(3, QString(), QString(), -1);
    QCOMPARE(screen.name(), QString("Music"));
    QCOMPARE(AnyPlatform::takeLog(), QStringList()
        << "2 [ui/view/widget/widgetswitcher.cpp, selectItem] Invalid index 6"
        << "2 [ui/view/widget/widgetswitcher.cpp, setItemStyle] Invalid index -1");
}

ANYTOOLKIT_MAIN(TestAnySwitcher)

#include "tst_anyswitcher.moc"

// The first screen of README.md: the whole program, with its main() under another name (CMakeLists.txt), worked by its keys.

#include "anytoolkit.h"
#include "widgetlist.h"
#include "widgetlistitem.h"

#include <QEvent>
#include <QTimer>

#include <cstdio>

int firstScreen(int argc, char **argv);

class TestAnyFirstScreen : public QObject
{
    Q_OBJECT

private slots:
    void isWorkedByItsKeys();
};

static WidgetList *findMenu()
{
    const QList<QWidget *> windows = QApplication::topLevelWidgets();
    for (int i = 0; i < int(windows.size()); ++i) {
        if (WidgetList *menu = qobject_cast<WidgetList *>(windows.at(i)))
            return menu;
    }
    return 0;
}

static void type(QWidget *menu, const char *keys)
{
    for (; *keys; ++keys)
        strike(menu, *keys);
}

void TestAnyFirstScreen::isWorkedByItsKeys()
{
    WidgetList *menu = findMenu();
    QVERIFY(menu && menu->isVisible());
    for (Patience patience; !menu->isActiveWindow() && patience.lasts();)
        bringToFront(menu);
    QVERIFY(menu->isActiveWindow());

    const QList<WidgetListItem *> rows = menu->findChildren<WidgetListItem *>();
    QCOMPARE(int(rows.size()), 3);
    for (int i = 0; i < 3; ++i)
        QCOMPARE(rows.at(i)->getDisplayValue(), QString("Low"));
    // A value takes its colour with the first focus of its row.
    type(menu, "82");
    const QImage first = drawn(menu);

    AnyPlatform::takeEvents();
    type(menu, "86");
    QVERIFY(rows.at(1)->hasFocus());
    QCOMPARE(rows.at(1)->getDisplayValue(), QString("High"));
    QCOMPARE(AnyPlatform::takeEvents(), QStringList() << "sound 901" << "sound 901");
    QVERIFY(seen(menu) != first);
    type(menu, "42");
    QVERIFY(rows.at(0)->hasFocus());
    QVERIFY(looksAs(menu, first));

    QSignalSpy saved(menu, SIGNAL(doSave()));
    strike(menu, Qt::Key_Menu);
    QCOMPARE(int(saved.size()), 1);
}

/// Works the screen as soon as it takes events, and then ends it as a person does.
class User : public QObject
{
    Q_OBJECT

public:
    User() : m_failures(1) {}

    int m_failures;

protected:
    virtual void customEvent(QEvent *)
    {
        TestAnyFirstScreen test;
        m_failures = QTest::qExec(&test, QCoreApplication::arguments());
        // The example ends with it; otherwise it would run on.
        QTimer::singleShot(5000, this, SLOT(tellThatItRunsOn()));
        if (WidgetList *menu = findMenu())
            strike(menu, Qt::Key_Escape);
    }

private slots:
    void tellThatItRunsOn()
    {
        std::printf("FAIL!  : escape does not end the first screen\n");
        QCoreApplication::exit(1);
    }
};

int main(int argc, char **argv)
{
    User user;
    QCoreApplication::postEvent(&user, new QEvent(QEvent::User));
    const int status = firstScreen(argc, argv);
    return user.m_failures + status;
}

#include "tst_anyfirstscreen.moc"

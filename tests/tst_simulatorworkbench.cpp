// The tools around the device, with the mouse and the keyboard of a virtual display.

#include "virtualdisplay.h"
#include "waiting.h"

#include "device.h"
#include "look.h"
#include "screens.h"
#include "script.h"
#include "widgetlistitem.h"
#include "workbench/inspectorpanel.h"
#include "workbench/logpanel.h"
#include "workbench/workbench.h"

#include "platform/desktop/desktopclock.h"
#include "platform/desktop/desktoplog.h"
#include "platform/desktop/desktopsound.h"
#include "platform/desktop/desktopwatchdog.h"
#include "platform/logging.h"
#include "platform/soundmanager.h"
#include "platform/stringrc.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDateTimeEdit>
#include <QDockWidget>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>
#include <QtTest>

#include <algorithm>
#include <memory>
#include <thread>
#include <vector>

using namespace std::chrono_literals;

namespace {

const char Settings[] = "settings";  // a screen with rows

/// A workbench on the display, with its device started.
class Bench : public Workbench
{
public:
    explicit Bench(const QString &screen = QString::fromLatin1(Settings), const Wishes &wishes = {})
        : Workbench(allScreens(), screen, 2, wishes)
    {
        deviceWindow().showActive();
        move(0, 0);
        device().start(screen);
        runFor(0);
    }

    QToolButton *tool(const QString &name)
    {
        QToolBar *bar = findChild<QToolBar *>("Tools");
        for (QAction *action : bar->actions()) {
            if (action->text() == name)
                return qobject_cast<QToolButton *>(bar->widgetForAction(action));
        }
        qFatal("There is no tool \"%s\".", qPrintable(name));
    }

    QDockWidget *dock(const QString &name) { return findChild<QDockWidget *>(name); }

    bool open(const QString &panel)
    {
        return VirtualDisplay::click(tool(panel))
                && QTest::qWaitFor([&] { return dock(panel)->isVisible(); }, LongestWait)
                && QTest::qWaitFor([&] { return isLaidOut(dock(panel)); }, LongestWait);
    }

    bool close(const QString &panel)
    {
        return VirtualDisplay::click(tool(panel))
                && QTest::qWaitFor([&] { return !dock(panel)->isVisible(); }, LongestWait)
                && QTest::qWaitFor([&] { return hasPanels() || size() == minimumSizeHint(); }, LongestWait);
    }

    QAbstractButton *button(const QString &panel, const QString &text)
    {
        const QList<QAbstractButton *> buttons = dock(panel)->findChildren<QAbstractButton *>();
        for (QAbstractButton *button : buttons) {
            if (button->text() == text)
                return button;
        }
        qFatal("The panel \"%s\" has no button \"%s\".", qPrintable(panel), qPrintable(text));
    }

    bool click(const QString &panel, const QString &text)
    {
        // Of buttons with a mark only the mark and the text can be clicked.
        QAbstractButton *found = button(panel, text);
        return found->inherits("QPushButton") ? VirtualDisplay::click(found)
                                              : VirtualDisplay::click(found, QPoint(8, found->height() / 2));
    }

    QImage display() { return device().picture(deviceWindow().zoom()); }

    /// Where a pixel of the display is in the device's window.
    QPoint onDisplay(const QPoint &pixel) { return deviceWindow().display().topLeft() + pixel * deviceWindow().zoom(); }

    int currentRow()
    {
        WidgetListItem *row = qobject_cast<WidgetListItem *>(QApplication::focusWidget());
        return row ? row->y() / qMax(1, row->height()) + 1 : 0;
    }

    using Workbench::close;

private:
    bool hasPanels() const
    {
        const QList<QDockWidget *> docks = findChildren<QDockWidget *>();
        return std::any_of(docks.begin(), docks.end(), [](QDockWidget *dock) { return dock->isVisible(); });
    }

    /// Panels slide to their places.
    bool isLaidOut(const QDockWidget *dock) const
    {
        const QRect place(dock->mapTo(this, QPoint(0, 0)), dock->size());
        return place.right() <= width() && dock->width() >= dock->minimumSizeHint().width()
                && dock->height() > 60;
    }
};

/// Counts what tells the widgets on the display that the focus goes and comes.
class FocusWatch : public QObject
{
public:
    explicit FocusWatch(Device &device)
        : m_device(device)
    {
        qApp->installEventFilter(this);
    }

    int events = 0;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const bool isFocus = event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut
                || event->type() == QEvent::WindowDeactivate;
        if (isFocus && watched->isWidgetType() && m_device.isAncestorOf(static_cast<QWidget *>(watched)))
            ++events;
        return false;
    }

private:
    Device &m_device;
};

QStringList itemsOf(const QAbstractItemView *view)
{
    QStringList texts;
    for (int row = 0; row < view->model()->rowCount(); ++row)
        texts += view->model()->index(row, 0).data().toString();
    return texts;
}

/// What the lines of the log say, without time and thread.
QStringList logged(Bench &bench)
{
    QStringList lines = itemsOf(bench.dock("Log")->findChild<QListView *>());
    for (QString &line : lines)
        line.remove(QRegularExpression("^.*#\\d+  "));
    return lines;
}

QString read(const QString &name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// What the display of a device shows that has just been started with \a screen.
QImage freshDisplay(const QString &screen)
{
    DeviceWindow window(allScreens(), KeyMode::Digits, 2);
    window.showActive();
    window.device().start(screen);
    passTime(50);
    return window.device().picture(window.zoom());
}

/// Types \a name into the dialog that asks for a file.
void enterFile(const QString &name)
{
    EVENTUALLY(QApplication::activeModalWidget() && QApplication::activeModalWidget()->isActiveWindow());
    QWidget *dialog = QApplication::activeModalWidget();
    QLineEdit *line = dialog->findChild<QLineEdit *>("fileNameEdit");
    QVERIFY(line);
    EVENTUALLY(line->hasFocus());
    line->selectAll();
    QVERIFY(VirtualDisplay::type(name));
    EVENTUALLY_COMPARE(line->text(), name);
    QVERIFY(VirtualDisplay::strike("Return"));
}

/// Clicks \a tool, and enters \a name into the dialog that opens within the click.
void clickAndEnter(QToolButton *tool, const QString &name)
{
    bool entered = false;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        if (!QApplication::activeModalWidget())
            return;
        timer.stop();
        enterFile(name);
        entered = true;
    });
    timer.start(10);
    QVERIFY(VirtualDisplay::click(tool));
    EVENTUALLY(entered && !QApplication::activeModalWidget());
}

}

class TestSimulatorWorkbench : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void buttonOpensAndClosesItsPanel_data();
    void buttonOpensAndClosesItsPanel();
    void clicksLeaveTheFocusOnTheDevice();
    void keysReachTheDeviceAfterClicks();
    void windowGivesTheRoomOfPanelsBack();

    void logShowsLinesAsTheyCome();
    void logLevelIsSwitched();
    void logIsFilteredByText();
    void typingLeavesTheDeviceAlone();
    void logIsCopied();
    void selectedLogLinesAreCopied();
    void logIsCleared();
    void logLinesOfThreadsArrive();

    void soundsAreListed();
    void loudspeakerIsMuted();

    void watchdogShowsThreads();
    void heldThreadHangs();
    void screenWithAHeldThreadCloses();

    void clockChipIsSwitched();
    void clockPanelSeesWhatScreensDoToTheChip();
    void localTimeIsStoppedAndRuns();

    void functionKeysBecomeDirections();
    void textsBecomeArabic();
    void otherScreenIsStarted();
    void deviceStartsAnew();

    void inspectorShowsTheWidgetUnderTheMouse();
    void inspectorStaysWithTheWidgetThatWasClicked();
    void inspectorShowsTheWidgetChosenInItsTree();
    void inspectorSeesChanges();
    void inspectorForgetsWidgetsThatAreGone();
    void inspectorTellsNoHiddenText();
    void callsOfTheInspectorAreThoseThatMakeItSo();
    void frameIsInNoPicture();

    void keysAreRecordedAndPlayed();
    void fileWithWrongKeysIsNotPlayed();
    void playingIsStopped();

    void pictureIsCopied();
    void pictureWithKeysIsCopied();
    void pictureIsSaved();

    void stateIsKept();
    void wishesGoFirstAndAreNotKept();
    void nothingIsTakenOverWhenStartedAfresh();
    void settingsThatCannotBeReadAreIgnored();
    void fullScreenIsNotKept();

private:
    std::unique_ptr<QTemporaryDir> m_home;
};

void TestSimulatorWorkbench::init()
{
    m_home = std::make_unique<QTemporaryDir>();
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_home->path());
    Desktop::setLogLevel(Logging::LogError);
    Desktop::setMuted(true);
    Desktop::setClockChipWorking(true);
    Desktop::setWatchTimeout(24h);
    Desktop::clearFixedLocalTime();
    StringRC::getInstance()->m_rightToLeft = false;
    QGuiApplication::clipboard()->clear();
}

void TestSimulatorWorkbench::cleanup()
{
    Desktop::releaseThreads();
}

void TestSimulatorWorkbench::buttonOpensAndClosesItsPanel_data()
{
    QTest::addColumn<QString>("panel");
    for (const char *panel : {"Device", "Log", "Sounds", "Watchdog", "Clock", "Inspector"})
        QTest::newRow(panel) << panel;
}

void TestSimulatorWorkbench::buttonOpensAndClosesItsPanel()
{
    QFETCH(QString, panel);
    Bench bench;
    QVERIFY(!bench.dock(panel)->isVisible());
    QVERIFY(!bench.tool(panel)->isChecked());
    QVERIFY(bench.open(panel));
    QVERIFY(bench.tool(panel)->isChecked());
    QVERIFY(bench.close(panel));
    QVERIFY(!bench.tool(panel)->isChecked());

    // It has a shortcut too.
    const QString key = bench.tool(panel)->defaultAction()->shortcut().toString().toLower();
    QVERIFY(VirtualDisplay::strike(key));
    EVENTUALLY(bench.dock(panel)->isVisible());
}

void TestSimulatorWorkbench::clicksLeaveTheFocusOnTheDevice()
{
    Bench bench;
    QWidget *focused = QApplication::focusWidget();
    QVERIFY(bench.device().isAncestorOf(focused));
    FocusWatch watch(bench.device());
    for (const QString panel : {"Log", "Sounds", "Watchdog", "Clock", "Inspector", "Device"}) {
        QVERIFY2(bench.open(panel), qPrintable(panel));
        const QList<QWidget *> widgets = bench.dock(panel)->findChildren<QWidget *>();
        for (QWidget *widget : widgets) {
            // Not what starts the device anew, which is meant to move the focus, or closes the panel.
            if (!widget->isVisible() || widget->visibleRegion().isEmpty()
                || widget->inherits("QDockWidgetTitleButton") || panel == "Device")
                continue;
            QVERIFY(VirtualDisplay::click(widget));
        }
        passTime(20);
        QCOMPARE(QApplication::focusWidget(), focused);
        QVERIFY(bench.close(panel));
    }
    QVERIFY(VirtualDisplay::click(bench.tool("Copy picture")));
    QVERIFY(VirtualDisplay::click(bench.tool("With keys")));
    passTime(20);
    QCOMPARE(QApplication::focusWidget(), focused);
    QCOMPARE(watch.events, 0);
}

void TestSimulatorWorkbench::keysReachTheDeviceAfterClicks()
{
    Bench bench;
    QVERIFY(bench.open("Log"));
    QVERIFY(bench.click("Log", "All"));
    const QImage before = bench.display();
    QVERIFY(VirtualDisplay::strike("8"));
    EVENTUALLY(bench.display() != before);
    QVERIFY(VirtualDisplay::strike("2"));
    EVENTUALLY(bench.display() == before);
}

void TestSimulatorWorkbench::windowGivesTheRoomOfPanelsBack()
{
    Bench bench;
    const QSize alone = bench.size();
    QVERIFY(bench.open("Sounds"));
    EVENTUALLY(bench.width() > alone.width() + 300);
    QVERIFY(VirtualDisplay::click(bench.tool("Sounds")));
    EVENTUALLY_COMPARE(bench.size(), alone);
}

void TestSimulatorWorkbench::logShowsLinesAsTheyCome()
{
    Bench bench;
    QVERIFY(bench.open("Log"));
    Logging::log(Logging::LogError, "first");
    EVENTUALLY_COMPARE(logged(bench), QStringList({"first"}));
    for (int i = 0; i < 200; ++i)
        Logging::log(Logging::LogError, "line %d", i);
    EVENTUALLY_COMPARE(logged(bench).size(), 201);
    QListView *view = bench.dock("Log")->findChild<QListView *>();
    const QModelIndex last = view->model()->index(200, 0);
    EVENTUALLY(view->viewport()->rect().intersects(view->visualRect(last)));
}

void TestSimulatorWorkbench::logLevelIsSwitched()
{
    Bench bench;
    QVERIFY(bench.open("Log"));
    QVERIFY(bench.click("Log", "All"));
    EVENTUALLY_COMPARE(Desktop::logLevel(), 128);
    Logging::log(Logging::LogError, "error");
    Logging::log(Logging::LogTrace, "trace");
    Logging::log(Logging::LogNotice, "notice");
    EVENTUALLY_COMPARE(logged(bench), QStringList({"error", "trace", "notice"}));
    QVERIFY(bench.click("Log", "Traces"));
    EVENTUALLY_COMPARE(logged(bench), QStringList({"error", "trace"}));
    QCOMPARE(Desktop::logLevel(), 16);
    QVERIFY(bench.click("Log", "Errors"));
    EVENTUALLY_COMPARE(logged(bench), QStringList({"error"}));
    QVERIFY(bench.click("Log", "Nothing"));
    EVENTUALLY_COMPARE(logged(bench), QStringList());
    QCOMPARE(Desktop::logLevel(), 0);
    QVERIFY(bench.click("Log", "All"));
    EVENTUALLY_COMPARE(logged(bench), QStringList({"error", "trace", "notice"}));
}

void TestSimulatorWorkbench::logIsFilteredByText()
{
    Bench bench;
    QVERIFY(bench.open("Log"));
    for (const char *line : {"red apple", "green apple", "red brick"})
        Logging::log(Logging::LogError, "%s", line);
    EVENTUALLY_COMPARE(logged(bench).size(), 3);
    QVERIFY(VirtualDisplay::click(bench.dock("Log")->findChild<QLineEdit *>()));
    QVERIFY(VirtualDisplay::type("Apple"));
    EVENTUALLY_COMPARE(logged(bench), QStringList({"red apple", "green apple"}));
    QVERIFY(VirtualDisplay::strike("BackSpace"));
    QVERIFY(VirtualDisplay::strike("Escape"));
    EVENTUALLY_COMPARE(logged(bench).size(), 3);
}

void TestSimulatorWorkbench::typingLeavesTheDeviceAlone()
{
    Bench bench;
    QVERIFY(bench.open("Log"));
    FocusWatch watch(bench.device());
    QList<int> keys;
    connect(&bench.device(), &Device::keyMoved, &bench, [&keys](int key) { keys += key; });
    QLineEdit *line = bench.dock("Log")->findChild<QLineEdit *>();
    QVERIFY(VirtualDisplay::click(line));
    QVERIFY(VirtualDisplay::type("8 2"));
    EVENTUALLY_COMPARE(line->text(), QString("8 2"));
    QVERIFY(VirtualDisplay::strike("Return"));
    passTime(50);
    QCOMPARE(keys, QList<int>());

    // From here on they are the device's again.
    QVERIFY(VirtualDisplay::strike("8"));
    EVENTUALLY_COMPARE(keys, (QList<int>{Qt::Key_8, Qt::Key_8}));
    QCOMPARE(line->text(), QString("8 2"));

    // So they are after a click elsewhere.
    QVERIFY(VirtualDisplay::click(line));
    QVERIFY(VirtualDisplay::click(bench.dock("Log")->findChild<QListView *>()));
    QVERIFY(VirtualDisplay::strike("2"));
    EVENTUALLY_COMPARE(keys.size(), 4);
    QCOMPARE(line->text(), QString("8 2"));
    QCOMPARE(watch.events, 4);  // from one row to the next, and back
}

void TestSimulatorWorkbench::logIsCopied()
{
    Bench bench;
    QVERIFY(bench.open("Log"));
    Logging::log(Logging::LogError, "red");
    Logging::log(Logging::LogError, "green");
    EVENTUALLY_COMPARE(logged(bench).size(), 2);
    QVERIFY(VirtualDisplay::click(bench.dock("Log")->findChild<QLineEdit *>()));
    QVERIFY(VirtualDisplay::type("e"));
    QVERIFY(bench.click("Log", "Copy"));
    EVENTUALLY_COMPARE(QGuiApplication::clipboard()->text(),
                       itemsOf(bench.dock("Log")->findChild<QListView *>()).join("\n"));
    QVERIFY(QGuiApplication::clipboard()->text().endsWith("  green"));
}

void TestSimulatorWorkbench::selectedLogLinesAreCopied()
{
    Bench bench;
    QVERIFY(bench.open("Log"));
    for (const char *line : {"one", "two", "three"})
        Logging::log(Logging::LogError, "%s", line);
    EVENTUALLY_COMPARE(logged(bench).size(), 3);
    QListView *view = bench.dock("Log")->findChild<QListView *>();
    QVERIFY(VirtualDisplay::click(view->viewport(), view->visualRect(view->model()->index(1, 0)).center()));
    EVENTUALLY(view->selectionModel()->hasSelection());
    QVERIFY(bench.click("Log", "Copy"));
    EVENTUALLY_COMPARE(QGuiApplication::clipboard()->text(), view->model()->index(1, 0).data().toString());
}

void TestSimulatorWorkbench::logIsCleared()
{
    Bench bench;
    QVERIFY(bench.open("Log"));
    Logging::log(Logging::LogError, "old");
    EVENTUALLY_COMPARE(logged(bench).size(), 1);
    QVERIFY(bench.click("Log", "Clear"));
    EVENTUALLY_COMPARE(logged(bench).size(), 0);
    Logging::log(Logging::LogError, "new");
    EVENTUALLY_COMPARE(logged(bench), QStringList({"new"}));
}

void TestSimulatorWorkbench::logLinesOfThreadsArrive()
{
    Bench bench;
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([] {
            for (int line = 0; line < 50; ++line)
                Logging::log(Logging::LogError, "busy");
        });
    }
    for (std::thread &thread : threads)
        thread.join();
    EVENTUALLY_COMPARE(logged(bench).filter("busy").size(), 200);
}

void TestSimulatorWorkbench::soundsAreListed()
{
    Bench bench;
    QVERIFY(bench.open("Sounds"));
    QListWidget *sounds = bench.dock("Sounds")->findChild<QListWidget *>();
    const int before = int(Desktop::soundCount());
    QVERIFY(VirtualDisplay::strike("8"));
    EVENTUALLY(int(Desktop::soundCount()) > before);
    EVENTUALLY_COMPARE(sounds->count(), int(Desktop::soundCount()) - before);
    QVERIFY(sounds->item(0)->text().endsWith(QString("  %1  key click").arg(Desktop::recentSounds().back())));

    for (int id : {872, 925, 7})
        SoundManager::getInstance()->sndPlay(id);
    EVENTUALLY(sounds->item(0)->text().endsWith("  7  unknown"));
    QVERIFY(sounds->item(1)->text().endsWith("  925  digit 5"));
    QVERIFY(sounds->item(2)->text().endsWith("  872  low click"));
}

void TestSimulatorWorkbench::loudspeakerIsMuted()
{
    Bench bench;
    QVERIFY(bench.open("Sounds"));
    QVERIFY(!Desktop::isMuted());
    QVERIFY(bench.click("Sounds", "Mute"));
    EVENTUALLY(Desktop::isMuted());
}

namespace {

/// The row of a thread in the panel; null if it has none.
QTreeWidgetItem *rowOf(QTreeWidget *threads, const QString &name)
{
    const QList<QTreeWidgetItem *> found = threads->findItems(name, Qt::MatchExactly);
    return found.isEmpty() ? nullptr : found.last();
}

/// What the watchdog knows of the thread last registered under a name that has \a part; the id is 0 if there is none.
Desktop::WatchedThread watched(const std::string &part)
{
    Desktop::WatchedThread last = {0, "", 0, false, false};
    for (const Desktop::WatchedThread &thread : Desktop::watchedThreads()) {
        if (thread.name.find(part) != std::string::npos)
            last = thread;
    }
    return last;
}

}

void TestSimulatorWorkbench::watchdogShowsThreads()
{
    Bench bench("clock");
    QVERIFY(bench.open("Watchdog"));
    QTreeWidget *threads = bench.dock("Watchdog")->findChild<QTreeWidget *>();
    EVENTUALLY(rowOf(threads, "ClockUpdateThread") && rowOf(threads, "DateUpdateThread"));
    // It kicks ten times in a second.
    EVENTUALLY(QStringList({"0.0 s", "0.1 s"}).contains(rowOf(threads, "ClockUpdateThread")->text(1)));
    bench.device().start(Settings);
    EVENTUALLY(!rowOf(threads, "DateUpdateThread"));
}

void TestSimulatorWorkbench::heldThreadHangs()
{
    Bench bench("clock");
    QVERIFY(bench.open("Watchdog"));
    QVERIFY(bench.open("Log"));
    QTreeWidget *threads = bench.dock("Watchdog")->findChild<QTreeWidget *>();
    EVENTUALLY(rowOf(threads, "DateUpdateThread"));
    QLabel *verdict = bench.dock("Watchdog")->findChild<QLabel *>();
    EVENTUALLY(verdict->text().startsWith("All have answered"));

    QWidget *hold = threads->itemWidget(rowOf(threads, "DateUpdateThread"), 2);
    QVERIFY(VirtualDisplay::click(hold));
    EVENTUALLY(watched("DateUpdateThread").held);
    Desktop::setWatchTimeout(300ms);
    EVENTUALLY(watched("DateUpdateThread").hanging);
    Desktop::setWatchTimeout(24h);
    EVENTUALLY(verdict->text().contains("DateUpdateThread has not answered"));
    EVENTUALLY(rowOf(threads, "DateUpdateThread")->text(1).startsWith("1."));
    EVENTUALLY_COMPARE(logged(bench).filter("DateUpdateThread::run()\" has not answered").size(), 1);

    QVERIFY(VirtualDisplay::click(hold));
    EVENTUALLY(!watched("DateUpdateThread").hanging);
    EVENTUALLY(verdict->text().startsWith("All have answered"));
    EVENTUALLY_COMPARE(logged(bench).filter("DateUpdateThread::run()\" answers again").size(), 1);
}

void TestSimulatorWorkbench::screenWithAHeldThreadCloses()
{
    Bench bench(Settings);
    bench.device().open("clock");
    QVERIFY(bench.open("Watchdog"));
    QTreeWidget *threads = bench.dock("Watchdog")->findChild<QTreeWidget *>();
    for (const QString name : {"ClockUpdateThread", "DateUpdateThread"}) {
        EVENTUALLY(rowOf(threads, name));
        QVERIFY(VirtualDisplay::click(threads->itemWidget(rowOf(threads, name), 2)));
        EVENTUALLY(watched(name.toStdString()).held);
    }
    QVERIFY(VirtualDisplay::strike("Escape"));
    EVENTUALLY(Desktop::watchedThreads().empty());
}

void TestSimulatorWorkbench::clockChipIsSwitched()
{
    Bench bench;
    QVERIFY(bench.open("Clock"));
    QVERIFY(bench.click("Clock", "Fails"));
    EVENTUALLY(!Desktop::isClockChipWorking());
    QVERIFY(bench.click("Clock", "Works"));
    EVENTUALLY(Desktop::isClockChipWorking());
}

void TestSimulatorWorkbench::clockPanelSeesWhatScreensDoToTheChip()
{
    Bench bench;
    QVERIFY(bench.open("Clock"));
    Desktop::setClockChipWorking(false);
    EVENTUALLY(bench.button("Clock", "Fails")->isChecked());
    QVERIFY(!bench.button("Clock", "Works")->isChecked());
}

void TestSimulatorWorkbench::localTimeIsStoppedAndRuns()
{
    Bench bench;
    QVERIFY(bench.open("Clock"));
    QDateTimeEdit *time = bench.dock("Clock")->findChild<QDateTimeEdit *>();
    QVERIFY(bench.click("Clock", "Stands at"));
    EVENTUALLY_COMPARE(QString::fromStdString(Desktop::fixedLocalTime()),
                       time->dateTime().toString("yyyy-MM-dd HH:mm:ss"));

    // The upper arrow: a year later.
    const QString before = QString::fromStdString(Desktop::fixedLocalTime());
    QVERIFY(VirtualDisplay::click(time, QPoint(time->width() - 6, 5)));
    EVENTUALLY(QString::fromStdString(Desktop::fixedLocalTime()) != before);
    QCOMPARE(QString::fromStdString(Desktop::fixedLocalTime()).left(4).toInt(), before.left(4).toInt() + 1);

    QVERIFY(bench.click("Clock", "Runs with this PC's"));
    EVENTUALLY_COMPARE(Desktop::fixedLocalTime(), std::string());
}

void TestSimulatorWorkbench::functionKeysBecomeDirections()
{
    Bench bench;
    QVERIFY(bench.open("Device"));
    const QImage first = bench.display();
    QVERIFY(bench.click("Device", "F1, F2, F3 and F4"));
    EVENTUALLY_COMPARE(bench.device().keyMode(), KeyMode::Functions);
    QVERIFY(VirtualDisplay::strike("F2"));
    EVENTUALLY(bench.display() != first);
    QVERIFY(bench.click("Device", "2, 8, 4 and 6"));
    EVENTUALLY_COMPARE(bench.device().keyMode(), KeyMode::Digits);
    QVERIFY(VirtualDisplay::strike("2"));
    EVENTUALLY(bench.display() == first);
}

void TestSimulatorWorkbench::textsBecomeArabic()
{
    Bench bench;
    const QImage english = bench.display();
    QVERIFY(bench.open("Device"));
    QVERIFY(bench.click("Device", "from right to left, in Arabic"));
    EVENTUALLY(bench.display() != english);
    QVERIFY(StringRC::getInstance()->m_rightToLeft);
    const QImage arabic = bench.display();
    QCOMPARE(arabic, freshDisplay(Settings));
    bench.deviceWindow().showActive();
    QVERIFY(bench.click("Device", "from left to right, in English"));
    EVENTUALLY(bench.display() == english);
}

void TestSimulatorWorkbench::otherScreenIsStarted()
{
    QVERIFY(Desktop::setFixedLocalTime("2026-03-07 13:05:09"));
    Workbench::Wishes wishes;
    wishes.time = QString::fromStdString(Desktop::fixedLocalTime());
    Bench bench(Settings, wishes);
    const QImage settings = bench.display();
    QVERIFY(bench.open("Device"));
    QListWidget *screens = bench.dock("Device")->findChild<QListWidget *>();
    QCOMPARE(screens->count(), int(allScreens().size()));
    QListWidgetItem *first = screens->item(0);
    screens->scrollToItem(first);
    QVERIFY(VirtualDisplay::click(screens->viewport(), screens->visualItemRect(first).center()));
    EVENTUALLY(bench.display() != settings);
    passTime(50);
    const QImage started = bench.display();
    QCOMPARE(started, freshDisplay(allScreens().front().name));
}

void TestSimulatorWorkbench::deviceStartsAnew()
{
    Bench bench;
    const QImage before = bench.display();
    QVERIFY(VirtualDisplay::strike("8"));
    EVENTUALLY(bench.display() != before);
    QVERIFY(VirtualDisplay::click(bench.tool("Restart")));
    EVENTUALLY(bench.display() == before);
}

void TestSimulatorWorkbench::inspectorShowsTheWidgetUnderTheMouse()
{
    Bench bench;
    QVERIFY(bench.open("Inspector"));
    InspectorPanel *inspector = bench.findChild<InspectorPanel *>();
    QWidget *row = QApplication::focusWidget();
    const QPoint corner = row->mapTo(&bench.device(), QPoint(1, 1));
    QVERIFY(VirtualDisplay::point(&bench.deviceWindow(), bench.onDisplay(corner)));
    EVENTUALLY(inspector->widget());
    QVERIFY(inspector->widget() == row || row->isAncestorOf(inspector->widget()));

    // Up the tree to the row itself.
    QTreeWidget *tree = inspector->findChild<QTreeWidget *>("widgets");
    QStringList classes;
    for (QTreeWidgetItem *item = tree->currentItem(); item; item = item->parent())
        classes += item->text(0).section(' ', 0, 0);
    QVERIFY2(classes.contains("WidgetListItem") && classes.contains("WidgetList"), qPrintable(classes.join(", ")));
}

void TestSimulatorWorkbench::inspectorStaysWithTheWidgetThatWasClicked()
{
    Bench bench;
    QVERIFY(bench.open("Inspector"));
    InspectorPanel *inspector = bench.findChild<InspectorPanel *>();
    QVERIFY(VirtualDisplay::click(&bench.deviceWindow(), bench.onDisplay(QPoint(60, 20))));
    EVENTUALLY(inspector->widget());
    QWidget *clicked = inspector->widget();
    QVERIFY(VirtualDisplay::point(&bench.deviceWindow(), bench.onDisplay(QPoint(60, 120))));
    passTime(50);
    QCOMPARE(inspector->widget(), clicked);
    QVERIFY(VirtualDisplay::click(&bench.deviceWindow(), bench.onDisplay(QPoint(60, 120))));
    EVENTUALLY(inspector->widget() != clicked);
}

void TestSimulatorWorkbench::inspectorShowsTheWidgetChosenInItsTree()
{
    Bench bench;
    QVERIFY(bench.open("Inspector"));
    InspectorPanel *inspector = bench.findChild<InspectorPanel *>();
    QTreeWidget *tree = inspector->findChild<QTreeWidget *>("widgets");
    EVENTUALLY(tree->topLevelItemCount() > 0);
    // What is hidden is there too, such as the device's message.
    QTreeWidgetItem *item = tree->topLevelItem(1);
    tree->scrollToItem(item);
    QVERIFY(VirtualDisplay::click(tree->viewport(), tree->visualItemRect(item).center()));
    EVENTUALLY(inspector->widget());
    QCOMPARE(QString(inspector->widget()->metaObject()->className()), item->text(0).section(' ', 0, 0));
    QVERIFY(inspector->widget()->parentWidget() == &bench.device());
    QVERIFY(!inspector->widget()->isVisible());
    QVERIFY(inspector->text().contains("Visible: setVisible(false)"));
}

void TestSimulatorWorkbench::inspectorSeesChanges()
{
    Bench bench;
    QVERIFY(bench.open("Inspector"));
    InspectorPanel *inspector = bench.findChild<InspectorPanel *>();
    QWidget *row = QApplication::focusWidget();
    inspector->setWidget(row);
    QVERIFY(inspector->text().contains("Focus: setFocus()"));
    QVERIFY(VirtualDisplay::strike("8"));
    EVENTUALLY(inspector->text().contains("Focus: clearFocus()"));
    const QPoint moved(7, 9);
    row->move(moved);
    EVENTUALLY(inspector->text().contains("setGeometry(7, 9, "));
}

void TestSimulatorWorkbench::inspectorForgetsWidgetsThatAreGone()
{
    Bench bench("home");
    bench.device().open(Settings);
    QVERIFY(bench.open("Inspector"));
    InspectorPanel *inspector = bench.findChild<InspectorPanel *>();
    inspector->setWidget(QApplication::focusWidget());
    QVERIFY(!inspector->text().isEmpty());
    QVERIFY(VirtualDisplay::strike("Escape"));
    EVENTUALLY(!inspector->widget());
    EVENTUALLY_COMPARE(inspector->text(), QString());
}

void TestSimulatorWorkbench::inspectorTellsNoHiddenText()
{
    Bench bench("password");
    QVERIFY(bench.open("Inspector"));
    InspectorPanel *inspector = bench.findChild<InspectorPanel *>();
    for (const char *key : {"8", "8", "6"})
        QVERIFY(VirtualDisplay::strike(key));
    const QList<QLineEdit *> lines = bench.device().findChildren<QLineEdit *>();
    QVERIFY(!lines.isEmpty());
    EVENTUALLY(!lines.last()->text().isEmpty());
    for (QLineEdit *line : lines) {
        inspector->setWidget(line);
        QVERIFY2(!inspector->text().contains('"' + line->text() + '"') || line->text() == line->displayText(),
                 qPrintable(inspector->text()));
    }
}

void TestSimulatorWorkbench::callsOfTheInspectorAreThoseThatMakeItSo()
{
    Bench bench;
    InspectorPanel *inspector = bench.findChild<InspectorPanel *>();
    QLabel *label = new QLabel("Quote \" and\nline", &bench.device());
    label->setObjectName("sample");
    label->setGeometry(1, 2, 30, 40);
    label->setFont(QFont("DejaVu Sans", 17, QFont::Bold));
    label->setAlignment(Qt::AlignRight | Qt::AlignTop);
    label->setEnabled(false);
    label->setLayoutDirection(Qt::RightToLeft);
    label->show();
    inspector->setWidget(label);
    const QStringList facts = inspector->text().split('\n');
    QCOMPARE(facts.value(0), QString("Class: QLabel : QFrame : QWidget"));
    for (const char *fact : {"Name: setObjectName(\"sample\")", "Geometry: setGeometry(1, 2, 30, 40)",
                             "Font: setFont(QFont(\"DejaVu Sans\", 17, QFont::Bold))", "Style sheet: setStyleSheet(\"\")",
                             "Text: setText(\"Quote \\\" and\\nline\")",
                             "Alignment: setAlignment(Qt::AlignRight | Qt::AlignTop)", "Visible: setVisible(true)",
                             "Enabled: setEnabled(false)", "Focus: clearFocus()",
                             "Takes the focus: setFocusPolicy(Qt::NoFocus)",
                             "Direction: setLayoutDirection(Qt::RightToLeft)"})
        QVERIFY2(facts.contains(fact), qPrintable(QString("%1 is not in\n%2").arg(fact, inspector->text())));

    label->setStyleSheet("font: 9pt 'DejaVu Sans'; color: red");
    inspector->setWidget(nullptr);
    inspector->setWidget(label);
    QVERIFY2(inspector->text().contains("Font: setStyleSheet(\"font: 9pt 'DejaVu Sans'\")"),
             qPrintable(inspector->text()));
    QVERIFY(inspector->text().contains("Style sheet: setStyleSheet(\"font: 9pt 'DejaVu Sans'; color: red\")"));
}

void TestSimulatorWorkbench::frameIsInNoPicture()
{
    Bench bench;
    const QImage before = bench.deviceWindow().picture();
    const QImage displayBefore = bench.grab(QRect(QPoint(0, 0), bench.size())).toImage();
    QVERIFY(bench.open("Inspector"));
    QVERIFY(VirtualDisplay::click(&bench.deviceWindow(), bench.onDisplay(QPoint(60, 20))));
    InspectorPanel *inspector = bench.findChild<InspectorPanel *>();
    EVENTUALLY(inspector->widget());
    QCOMPARE(bench.deviceWindow().picture(), before);

    // But a person sees it.
    QWidget *desk = bench.centralWidget();
    const QImage framed = desk->grab().toImage();
    inspector->setWidget(nullptr);
    EVENTUALLY(desk->grab().toImage() != framed);
}

void TestSimulatorWorkbench::keysAreRecordedAndPlayed()
{
    Bench bench;
    const QString file = m_home->filePath("keys.txt");
    QVERIFY(VirtualDisplay::strike("8"));
    clickAndEnter(bench.tool("Record"), file);
    EVENTUALLY(bench.tool("Record")->isChecked());
    const QImage start = bench.display();
    for (const char *key : {"8", "8", "Return"})
        QVERIFY(VirtualDisplay::strike(key));
    passTime(100);
    QVERIFY(VirtualDisplay::click(bench.tool("Record")));
    EVENTUALLY(!bench.tool("Record")->isChecked());
    const QString record = read(file);
    QVERIFY2(record.startsWith("// "), qPrintable(record));
    QVERIFY2(record.contains(" --screen settings --keys @" + file), qPrintable(record));
    const QImage end = bench.display();
    QVERIFY(end != start);

    clickAndEnter(bench.tool("Play"), file);
    EVENTUALLY(!bench.tool("Play")->isChecked());
    EVENTUALLY(bench.display() == end);

    // A recording is over with its button: keys that follow are not in it.
    QVERIFY(VirtualDisplay::strike("8"));
    passTime(50);
    QCOMPARE(read(file), record);
}

void TestSimulatorWorkbench::fileWithWrongKeysIsNotPlayed()
{
    Bench bench;
    const QString name = m_home->filePath("wrong.txt");
    QFile file(name);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("8 8\nF9\n");
    file.close();
    const QImage before = bench.display();
    clickAndEnter(bench.tool("Play"), name);
    EVENTUALLY(!bench.tool("Play")->isChecked());
    QCOMPARE(bench.display(), before);
    const QString said = bench.findChild<QStatusBar *>()->currentMessage();
    QVERIFY2(said.startsWith("Line 2 of ") && said.contains("F9"), qPrintable(said));
}

void TestSimulatorWorkbench::playingIsStopped()
{
    Bench bench;
    const QString name = m_home->filePath("long.txt");
    QFile file(name);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("8 wait:60000 8\n");
    file.close();
    const QImage before = bench.display();
    clickAndEnter(bench.tool("Play"), name);
    EVENTUALLY(bench.display() != before);
    const QImage playing = bench.display();
    QVERIFY(bench.tool("Play")->isChecked());
    QVERIFY(VirtualDisplay::click(bench.tool("Play")));
    EVENTUALLY(!bench.tool("Play")->isChecked());
    passTime(50);
    QCOMPARE(bench.display(), playing);
}

void TestSimulatorWorkbench::pictureIsCopied()
{
    Bench bench;
    QVERIFY(VirtualDisplay::click(bench.tool("Copy picture")));
    EVENTUALLY(!QGuiApplication::clipboard()->image().isNull());
    QCOMPARE(QGuiApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32), bench.display());
}

void TestSimulatorWorkbench::pictureWithKeysIsCopied()
{
    Bench bench;
    QVERIFY(VirtualDisplay::click(bench.tool("With keys")));
    EVENTUALLY(bench.tool("With keys")->isChecked());
    QVERIFY(VirtualDisplay::click(bench.tool("Copy picture")));
    EVENTUALLY(!QGuiApplication::clipboard()->image().isNull());
    QCOMPARE(QGuiApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32),
             bench.deviceWindow().picture());
}

void TestSimulatorWorkbench::pictureIsSaved()
{
    Bench bench;
    const QImage display = bench.display();
    clickAndEnter(bench.tool("Save picture"), m_home->filePath("shot"));
    EVENTUALLY(QFile::exists(m_home->filePath("shot.png")));
    QCOMPARE(QImage(m_home->filePath("shot.png")).convertToFormat(QImage::Format_RGB32), display);

    clickAndEnter(bench.tool("Save picture"), m_home->filePath("missing/shot.png"));
    EVENTUALLY(bench.findChild<QStatusBar *>()->currentMessage().contains("cannot be written"));
}

void TestSimulatorWorkbench::stateIsKept()
{
    QSize size;
    {
        Bench bench;
        QVERIFY(bench.open("Device"));
        QVERIFY(bench.click("Device", "F1, F2, F3 and F4"));
        QVERIFY(bench.click("Device", "from right to left, in Arabic"));
        QVERIFY(bench.close("Device"));
        QVERIFY(bench.open("Log"));
        QVERIFY(bench.click("Log", "Traces"));
        QVERIFY(VirtualDisplay::click(bench.dock("Log")->findChild<QLineEdit *>()));
        QVERIFY(VirtualDisplay::type("sync"));
        EVENTUALLY_COMPARE(bench.dock("Log")->findChild<QLineEdit *>()->text(), QString("sync"));
        QVERIFY(VirtualDisplay::strike("Return"));
        QVERIFY(bench.open("Sounds"));
        QVERIFY(bench.click("Sounds", "Mute"));
        EVENTUALLY(Desktop::isMuted());
        QVERIFY(bench.close("Sounds"));
        QVERIFY(bench.open("Clock"));
        QVERIFY(bench.click("Clock", "Fails"));
        QVERIFY(bench.click("Clock", "Stands at"));
        EVENTUALLY(!Desktop::fixedLocalTime().empty());
        QVERIFY(VirtualDisplay::click(bench.tool("With keys")));
        EVENTUALLY(bench.tool("With keys")->isChecked());
        size = bench.size();
        bench.close();
    }
    const std::string time = Desktop::fixedLocalTime();
    Desktop::setLogLevel(2);
    Desktop::setMuted(false);
    Desktop::setClockChipWorking(true);
    Desktop::clearFixedLocalTime();
    StringRC::getInstance()->m_rightToLeft = false;

    Bench bench;
    EVENTUALLY(bench.dock("Log")->isVisible() && bench.dock("Clock")->isVisible());
    QVERIFY(!bench.dock("Device")->isVisible());
    QVERIFY(!bench.dock("Sounds")->isVisible());
    EVENTUALLY_COMPARE(bench.size(), size);
    QCOMPARE(bench.device().keyMode(), KeyMode::Functions);
    QVERIFY(StringRC::getInstance()->m_rightToLeft);
    QCOMPARE(Desktop::logLevel(), 16);
    QCOMPARE(bench.dock("Log")->findChild<QLineEdit *>()->text(), QString("sync"));
    QVERIFY(Desktop::isMuted());
    QVERIFY(!Desktop::isClockChipWorking());
    QCOMPARE(Desktop::fixedLocalTime(), time);

    // The panels show it too.
    QVERIFY(bench.button("Device", "F1, F2, F3 and F4")->isChecked());
    QVERIFY(bench.button("Device", "from right to left, in Arabic")->isChecked());
    QVERIFY(bench.button("Log", "Traces")->isChecked());
    QVERIFY(bench.button("Sounds", "Mute")->isChecked());
    QVERIFY(bench.button("Clock", "Fails")->isChecked());
    QVERIFY(bench.button("Clock", "Stands at")->isChecked());
    QVERIFY(bench.tool("With keys")->isChecked());
}

void TestSimulatorWorkbench::wishesGoFirstAndAreNotKept()
{
    Workbench::Wishes wishes;
    wishes.keyMode = KeyMode::Functions;
    wishes.rightToLeft = true;
    wishes.logLevel = 128;
    wishes.time = "2026-03-07 13:05:09";
    {
        Bench bench(Settings, wishes);
        QCOMPARE(bench.device().keyMode(), KeyMode::Functions);
        QVERIFY(StringRC::getInstance()->m_rightToLeft);
        QCOMPARE(Desktop::logLevel(), 128);
        QCOMPARE(Desktop::fixedLocalTime(), std::string("2026-03-07 13:05:09"));
        bench.close();
    }
    Desktop::setLogLevel(2);
    Bench bench;
    QCOMPARE(bench.device().keyMode(), KeyMode::Digits);
    QVERIFY(!StringRC::getInstance()->m_rightToLeft);
    QCOMPARE(Desktop::logLevel(), 2);
    QCOMPARE(Desktop::fixedLocalTime(), std::string());
}

void TestSimulatorWorkbench::nothingIsTakenOverWhenStartedAfresh()
{
    {
        Bench bench;
        QVERIFY(bench.open("Device"));
        QVERIFY(bench.click("Device", "F1, F2, F3 and F4"));
        EVENTUALLY_COMPARE(bench.device().keyMode(), KeyMode::Functions);
        bench.close();
    }
    Workbench::Wishes wishes;
    wishes.afresh = true;
    {
        Bench bench(Settings, wishes);
        QCOMPARE(bench.device().keyMode(), KeyMode::Digits);
        QVERIFY(!bench.dock("Device")->isVisible());
        bench.close();
    }
    Bench bench;
    QCOMPARE(bench.device().keyMode(), KeyMode::Digits);
}

void TestSimulatorWorkbench::fullScreenIsNotKept()
{
    QSize size;
    {
        Bench bench;
        QVERIFY(bench.open("Log"));
        size = bench.size();
        bench.close();
    }
    {
        Workbench::Wishes wishes;
        wishes.fullScreen = true;
        Bench bench(Settings, wishes);
        EVENTUALLY_COMPARE(bench.geometry(), bench.screen()->geometry());
        QVERIFY(VirtualDisplay::click(bench.tool("Log")));
        EVENTUALLY(!bench.dock("Log")->isVisible());
        runFor(0);
        QCOMPARE(bench.geometry(), bench.screen()->geometry());
        QVERIFY(bench.open("Log"));
        bench.close();
    }
    Bench bench;
    EVENTUALLY_COMPARE(bench.size(), size);
}

void TestSimulatorWorkbench::settingsThatCannotBeReadAreIgnored()
{
    QVERIFY(QDir(m_home->path()).mkpath("libwidget"));
    QFile file(m_home->filePath("libwidget/simulator.conf"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[window]\ngeometry=@ByteArray(x)\npanels=7\n[clock]\ntime=yesterday\n[log]\nlevel=all\n[\0\xff");
    file.close();
    Bench bench;
    QCOMPARE(Desktop::fixedLocalTime(), std::string());
    QVERIFY(bench.open("Log"));
    QVERIFY(VirtualDisplay::strike("8"));
}

int main(int argc, char *argv[])
{
    VirtualDisplay display;
    fixLook();
    QApplication application(argc, argv);
    applyLook();
    TestSimulatorWorkbench test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_simulatorworkbench.moc"

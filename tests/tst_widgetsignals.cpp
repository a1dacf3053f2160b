#include "eventrecording.h"
#include "keypadtesting.h"
#include "listtesting.h"
#include "recordingplatform.h"
#include "rowsmodel.h"
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
#include "widgetprogressbar.h"
#include "widgetselecttile.h"
#include "widgetsimpletitle.h"
#include "widgetsoftbtn.h"
#include "widgetstatusbar.h"
#include "widgetswitcher.h"
#include "widgettamark.h"

#include <QDir>
#include <QPointer>
#include <QRegularExpression>
#include <QtTest>

#include <functional>
#include <memory>

// What a slot does to the widget whose signal it is connected to. Where something is used that is gone, it is the
// address sanitizer that tells.

using Action = std::function<void()>;

/// A receiver whose slot is any function.
class Receiver : public QObject
{
    Q_OBJECT

public:
    explicit Receiver(Action action)
        : m_action(std::move(action))
    {
    }

public slots:
    void call()
    {
        // The receiver may go in it.
        const Action action = m_action;
        action();
    }

private:
    const Action m_action;
};

namespace {

/// A screen with a sender on it.
struct Scene
{
    QPointer<QWidget> screen;
    QPointer<QObject> sender;

    // What else there is.
    QPointer<WidgetList> list;
    QPointer<WidgetListView> view;
    QPointer<WidgetListItem> row;
    QPointer<RowsModel> model;

    /// Has the sender emit, as often as it is called.
    Action cause;
    /// Calls of the sender and its owner that a slot may make; after them the next cause still causes.
    Action callBack;
    /// What has to come before the sender goes.
    Action end;

    Scene()
        : screen(new KeyRecorder)
    {
        screen->resize(220, 300);
    }

    ~Scene()
    {
        if (sender && end)
            end();
        delete screen;
        delete model;
    }

    void show()
    {
        if (sender && sender->isWidgetType())
            static_cast<QWidget *>(sender.data())->show();
        screen->show();
        screen->activateWindow();
        runEventLoop();
        if (!screen->isActiveWindow())
            QVERIFY(QTest::qWaitForWindowActive(screen, LongestWait));
        if (sender && sender->isWidgetType() && !list && !view)
            static_cast<QWidget *>(sender.data())->setFocus();
        if (list && list->isVisible())
            list->setFocusAtItem(0);
        if (view)
            view->setFocus();
        runEventLoop();
    }
};

using Build = std::function<void(Scene &)>;

/// One of the ways in which a class comes to emit a signal.
struct Way
{
    const QMetaObject *emitter;
    const char *signal;
    const char *name;
    Build build;
    bool usual = true;  ///< not only another way for the key to come
    bool byTime = false;
};

// --- Keys

enum class Route { ToTheFocus, ToTheSender, FromTheWindowSystem };

void sendKeyBy(Route route, Scene &scene, bool press, int key, bool repeated = false)
{
    if (!scene.screen || !scene.sender)
        return;
    if (route == Route::FromTheWindowSystem) {
        QTest::simulateEvent(scene.screen->windowHandle(), press, key, Qt::NoModifier, keyText(key), repeated, -1);
        QCoreApplication::processEvents();
        return;
    }
    QObject *receiver = QApplication::focusWidget();
    if (route == Route::ToTheSender || !receiver)
        receiver = scene.sender;
    sendKey(receiver, press ? QEvent::KeyPress : QEvent::KeyRelease, key, repeated);
}

void strikeBy(Route route, Scene &scene, int key, int repeats = 0)
{
    sendKeyBy(route, scene, true, key);
    for (int i = 0; i < repeats; ++i)
        sendKeyBy(route, scene, true, key, true);
    sendKeyBy(route, scene, false, key);
}

const QList<QPair<Route, const char *>> &routes()
{
    static const QList<QPair<Route, const char *>> all{
        {Route::ToTheFocus, "to the focus"},
        {Route::ToTheSender, "to the sender"},
        {Route::FromTheWindowSystem, "from the window system"}};
    return all;
}

const int LongPress = 11;

// --- The ways

class Ways
{
public:
    Ways()
    {
        addWidget();
        addClockAndDate();
        addKeypad();
        addList();
        addListItem();
        addListView();
        addProgressBar();
        addSwitcher();
    }

    const QList<Way> &all() const { return m_ways; }

private:
    QList<Way> m_ways;

    template <typename Emitter>
    void add(const char *signal, const char *name, const Build &build, bool usual = true, bool byTime = false)
    {
        m_ways.append({&Emitter::staticMetaObject, signal, name, build, usual, byTime});
    }

    /// \a build without its cause, which is a stroke of \a key.
    template <typename Emitter>
    void addKey(const char *signal, const char *name, const Build &build, int key, int repeats = 0,
                const std::function<void(Scene &)> &before = nullptr)
    {
        for (const auto &route : routes()) {
            const Route by = route.first;
            // Kept as long as the program runs, as the table is.
            const QByteArray *text = new QByteArray(QByteArray(name) + ", " + route.second);
            add<Emitter>(signal, text->constData(), [build, by, key, repeats, before](Scene &scene) {
                build(scene);
                scene.cause = [&scene, by, key, repeats, before] {
                    if (before)
                        before(scene);
                    strikeBy(by, scene, key, repeats);
                };
            }, by == Route::FromTheWindowSystem);
        }
    }

    void addWidget()
    {
        class Emitter : public Widget
        {
        public:
            using Widget::Widget;
            void emitVisible() { emit visible(); }
            void emitFinished() { emit finished(); }
        };
        const auto build = [](Scene &scene, void (Emitter::*emission)()) {
            Emitter *widget = new Emitter(scene.screen, sound());
            scene.sender = widget;
            scene.cause = [widget, emission] { (widget->*emission)(); };
            scene.callBack = [widget] {
                widget->playSound(901);
                widget->m_useFunctionKeys = !widget->m_useFunctionKeys;
            };
        };
        add<Widget>("visible()", "by a subclass", [build](Scene &scene) { build(scene, &Emitter::emitVisible); });
        add<Widget>("finished()", "by a subclass", [build](Scene &scene) { build(scene, &Emitter::emitFinished); });
    }

    template <typename Thread>
    static void buildThread(Scene &scene)
    {
        Thread *thread = new Thread;
        thread->setParent(scene.screen);
        thread->m_interval = 1;
        scene.sender = thread;
        scene.end = [thread] {
            if (thread->isRunning()) {
                thread->m_stop = true;
                QVERIFY(thread->wait(LongestWait));
            }
        };
        scene.cause = [thread] {
            if (ClockUpdateThread *clock = qobject_cast<ClockUpdateThread *>(thread))
                clock->timeFormat(true);
            thread->start();
        };
        scene.callBack = [thread] { thread->m_interval = 2; };
    }

    template <typename Updated>
    static Updated *buildUpdated(Scene &scene, bool running)
    {
        Updated *updated = new Updated(scene.screen, nullptr);
        scene.sender = updated;
        if (running) {
            updated->start();
            scene.end = [&scene, updated] {
                updated->stop();
                scene.end = nullptr;
            };
        }
        return updated;
    }

    void addClockAndDate()
    {
        add<ClockUpdateThread>("update(int,int,int)", "in its passes", buildThread<ClockUpdateThread>);
        add<DateUpdateThread>("update(int,int,int)", "in its passes", buildThread<DateUpdateThread>);
        for (bool running : {false, true}) {
            const char *const name = running ? "while it runs" : "while it does not run";
            add<WidgetClock>("displaySecChanged(bool)", name, [running](Scene &scene) {
                WidgetClock *clock = buildUpdated<WidgetClock>(scene, running);
                scene.cause = [clock] { clock->setDisplaySec(!clock->displaySec()); };
                scene.callBack = [clock] { clock->updateHMS(1, 2, 3); };
            });
            add<WidgetClock>("formatChanged(bool)", name, [running](Scene &scene) {
                WidgetClock *clock = buildUpdated<WidgetClock>(scene, running);
                scene.cause = [clock] {
                    clock->setFormat(clock->format() == WidgetClock::Hour12 ? WidgetClock::Hour24
                                                                            : WidgetClock::Hour12);
                };
                scene.callBack = [clock] {
                    clock->setDisplaySec(!clock->displaySec());
                    clock->updateHMS(1, 2, 3);
                };
            });
            add<WidgetDate>("formatChanged(Format)", name, [running](Scene &scene) {
                WidgetDate *date = buildUpdated<WidgetDate>(scene, running);
                scene.cause = [date] {
                    date->setFormat(date->format() == WidgetDate::MonthDay ? WidgetDate::DayMonth
                                                                           : WidgetDate::MonthDay);
                };
                scene.callBack = [date] { date->updateDateMonth(1, 2, 3); };
            });
        }
    }

    static WidgetKeypad *buildKeypad(Scene &scene)
    {
        WidgetKeypad *keypad = new KeypadTesting::FilledKeypad(scene.screen);
        scene.sender = keypad;
        scene.callBack = [keypad] {
            keypad->setPage(1);
            keypad->setPage(0);
            keypad->setKeyText(0, 0, 0, "1");
            keypad->setInitialLineText("new", false, true, true);
            keypad->setupUi();
            keypad->hideText(true);
            keypad->hideText(false);
        };
        return keypad;
    }

    void addKeypad()
    {
        const auto full = [](Scene &scene) {
            WidgetKeypad *keypad = buildKeypad(scene);
            keypad->setInitialLineText("12", false, true, false);
            keypad->setKeyMaxLength(1);
        };
        const auto withoutText = [](Scene &scene) { buildKeypad(scene)->setKeyText(0, 0, 1, QString()); };
        const auto hiding = [](Scene &scene) { buildKeypad(scene)->hideText(true); };
        const auto inCycle = [](Scene &scene) {
            if (scene.sender) {
                strikeBy(Route::ToTheSender, scene, Qt::Key_1);
                strikeBy(Route::ToTheSender, scene, Qt::Key_2);
            }
        };
        const auto cleared = [](Scene &scene) {
            pressKey(scene.sender, Qt::Key_F4);
            repeatKey(scene.sender, Qt::Key_F4, 6);
            sendKey(scene.sender, QEvent::KeyPress, Qt::Key_F4, true);
        };

        addKey<WidgetKeypad>("cancel()", "escape", buildKeypad, Qt::Key_Escape);
        addKey<WidgetKeypad>("ready(QString)", "menu", buildKeypad, Qt::Key_Menu);
        const char *const keyPressed = "keyPressed(int)";
        addKey<WidgetKeypad>(keyPressed, "a digit", buildKeypad, Qt::Key_2);
        addKey<WidgetKeypad>(keyPressed, "a digit of one character", buildKeypad, Qt::Key_1);
        addKey<WidgetKeypad>(keyPressed, "a digit in a password", hiding, Qt::Key_3);
        addKey<WidgetKeypad>(keyPressed, "a digit without a text", withoutText, Qt::Key_2);
        addKey<WidgetKeypad>(keyPressed, "a digit at the end of a cycle", buildKeypad, Qt::Key_3, 0, inCycle);
        addKey<WidgetKeypad>(keyPressed, "F1", buildKeypad, Qt::Key_F1);
        addKey<WidgetKeypad>(keyPressed, "F2", buildKeypad, Qt::Key_F2);
        addKey<WidgetKeypad>(keyPressed, "F3", buildKeypad, Qt::Key_F3);
        addKey<WidgetKeypad>(keyPressed, "F3 in a full text", full, Qt::Key_F3);
        addKey<WidgetKeypad>(keyPressed, "F3 at the end of a cycle", buildKeypad, Qt::Key_F3, 0, inCycle);
        addKey<WidgetKeypad>(keyPressed, "F4", buildKeypad, Qt::Key_F4);
        addKey<WidgetKeypad>(keyPressed, "F4 after it has cleared all", buildKeypad, Qt::Key_F4, 6, cleared);
        addKey<WidgetKeypad>(keyPressed, "a key that it does not know", buildKeypad, Qt::Key_Asterisk);
        addKey<WidgetKeypad>("inputLetter(QChar)", "by another digit", buildKeypad, Qt::Key_3, 0, inCycle);
        addKey<WidgetKeypad>("inputLetter(QChar)", "by F3", buildKeypad, Qt::Key_F3, 0, inCycle);
        add<WidgetKeypad>("inputLetter(QChar)", "by time", [inCycle](Scene &scene) {
            buildKeypad(scene);
            scene.cause = [&scene, inCycle] { inCycle(scene); };
        }, true, true);
    }

    /// Four rows: text values; a shortcut; one that leads deeper; widget values. Stops at its ends.
    static WidgetList *buildList(Scene &scene)
    {
        WidgetList *list = new WidgetList(4, scene.screen, sound());
        scene.list = list;
        scene.sender = list;
        list->setGeometry(0, 0, 220, 176);
        list->m_stopAtEnds = true;
        list->setTitle(QStringLiteral("title"), true);
        list->addListItem(newRow(QStringLiteral("values")));
        for (const char *title : {"shortcut", "deep"}) {
            WidgetListItem *row = newRow(QLatin1String(title), 0);
            row->setMoreDepth(true);
            row->m_noShortcut = false;
            list->addListItem(row, QLatin1String(title) == QLatin1String("shortcut") ? int(Qt::Key_3) : -1);
        }
        WidgetListItem *widgets = newRow(QStringLiteral("widgets"), 0);
        for (int i = 0; i < 3; ++i)
            widgets->addValue(new WidgetProgressBar(nullptr));
        list->addListItem(widgets);
        scene.callBack = [list] {
            list->setTitle(QStringLiteral("other"), true);
            list->refreshItems();
            list->backup();
            list->isModified();
            list->hideItem(1);
            list->showItem(1);
        };
        return list;
    }

    void addList()
    {
        const auto toTheFirst = [](Scene &scene) {
            if (scene.list)
                scene.list->setFocusAtItem(0);
        };
        const auto toTheLast = [](Scene &scene) {
            if (scene.list)
                scene.list->setFocusAtItem(3);
        };
        addKey<WidgetList>("doSave()", "OK", buildList, Qt::Key_Menu);
        addKey<WidgetList>("finished()", "escape", buildList, Qt::Key_Escape);
        addKey<WidgetList>("reachedBegin()", "up on the first row", buildList, Qt::Key_2, 0, toTheFirst);
        addKey<WidgetList>("reachedEnd()", "down on the last row", buildList, Qt::Key_8, 0, toTheLast);
        addKey<WidgetList>("upKeyLongPressed()", "up is held", buildList, Qt::Key_2, LongPress);
        addKey<WidgetList>("upKeyReleased()", "up is let go", buildList, Qt::Key_2, LongPress);
        addKey<WidgetList>("downKeyLongPressed()", "down is held", buildList, Qt::Key_8, LongPress);
        addKey<WidgetList>("downKeyReleased()", "down is let go", buildList, Qt::Key_8, LongPress);
        add<WidgetList>("finished()", "by a row", [](Scene &scene) {
            WidgetListItem *row = itemOf(*buildList(scene), 0);
            scene.row = row;
            scene.cause = [row] { QMetaObject::invokeMethod(row, "finished"); };
        });
        add<WidgetList>("visible()", "by the application", [](Scene &scene) {
            WidgetList *list = buildList(scene);
            scene.cause = [list] { QMetaObject::invokeMethod(list, "visible"); };
        });
    }

    /// A list of which \a row is the sender and has the focus.
    static Build rowOfAList(int row, const std::function<void(WidgetListItem &)> &change = nullptr)
    {
        return [row, change](Scene &scene) {
            buildList(scene);
            WidgetListItem *item = itemOf(*scene.list, row);
            if (change)
                change(*item);
            scene.sender = item;
            scene.row = item;
            const Action callBackOfList = scene.callBack;
            scene.callBack = [item, callBackOfList] {
                item->setTitle(QStringLiteral("other"), true);
                item->refresh();
                item->setSerialNum(true, 7);
                callBackOfList();
            };
        };
    }

    static void alone(Scene &scene)
    {
        WidgetListItem *row = newRow(QStringLiteral("alone"), 3);
        row->setParent(scene.screen);
        row->m_enterOnOK = true;
        scene.sender = row;
        scene.row = row;
        scene.callBack = [row] {
            row->setDisplayValueIndex(0);
            row->replaceValue(1, QStringLiteral("other"), true);
            row->refresh();
        };
    }

    void addListItem()
    {
        const auto focus = [](int row) {
            return [row](Scene &scene) {
                if (scene.list && itemOf(*scene.list, row))
                    scene.list->setFocusAtItem(row);
            };
        };
        const auto enterOnOK = [](WidgetListItem &row) { row.m_enterOnOK = true; };
        const auto ranged = [](WidgetListItem &row) { row.setSelectableRange(0, 1); };
        const char *const doEnter = "doEnter()";
        const char *const doChange = "doChange()";
        addKey<WidgetListItem>(doEnter, "right", rowOfAList(2), Qt::Key_6, 0, focus(2));
        addKey<WidgetListItem>(doEnter, "OK", rowOfAList(2, enterOnOK), Qt::Key_Menu, 0, focus(2));
        addKey<WidgetListItem>(doEnter, "OK, alone", alone, Qt::Key_Menu);
        addKey<WidgetListItem>(doChange, "left", rowOfAList(0), Qt::Key_4, 0, focus(0));
        addKey<WidgetListItem>(doChange, "right", rowOfAList(0), Qt::Key_6, 0, focus(0));
        addKey<WidgetListItem>(doChange, "left, alone", alone, Qt::Key_4);
        addKey<WidgetListItem>(doChange, "right, alone", alone, Qt::Key_6);
        addKey<WidgetListItem>(doChange, "left through widgets", rowOfAList(3), Qt::Key_4, 0, focus(3));
        addKey<WidgetListItem>(doChange, "right through widgets", rowOfAList(3), Qt::Key_6, 0, focus(3));
        addKey<WidgetListItem>(doChange, "right in a range", rowOfAList(3, ranged), Qt::Key_6, 0, focus(3));
        add<WidgetListItem>(doEnter, "digit key of the list", [](Scene &scene) {
            rowOfAList(1)(scene);
            scene.cause = [&scene] {
                if (scene.list)
                    strikeBy(Route::ToTheFocus, scene, Qt::Key_3);
            };
        });
        add<WidgetListItem>(doEnter, "selectByShortcut()", [](Scene &scene) {
            rowOfAList(1)(scene);
            scene.cause = [&scene] { scene.row->selectByShortcut(); };
        });
        add<WidgetListItem>("finished()", "by the application", [](Scene &scene) {
            rowOfAList(0)(scene);
            scene.cause = [&scene] { QMetaObject::invokeMethod(scene.row, "finished"); };
        });
    }

    /// Four rows: values; one with a badge that leads deeper; values; values. Stops at its ends.
    static WidgetListView *buildView(Scene &scene)
    {
        QList<Row> rows = RowsModel::titled(4);
        for (int row : {0, 2, 3})
            rows[row].values = QStringList{"a", "b", "c"};
        rows[1].moreDepth = true;
        rows[1].badge = 3;
        RowsModel *model = new RowsModel(rows);
        scene.model = model;
        WidgetListView *view = new WidgetListView(scene.screen, sound());
        view->setGeometry(0, 0, 220, 176);
        view->setModel(model);
        view->m_stopAtEnds = true;
        scene.view = view;
        scene.sender = view;
        scene.callBack = [view] {
            const int row = view->selectedRow();
            view->setTitle(QStringLiteral("other"), true);
            view->hideItem(2);
            view->setRowHeight(30);
            view->setFocusAtItem(0);
            view->showItem(2);
            if (row != -1)
                view->setFocusAtItem(row);
        };
        return view;
    }

    void addListView()
    {
        const auto focus = [](int row) {
            return [row](Scene &scene) {
                if (scene.view && scene.view->model() && scene.view->model()->rowCount() > row)
                    scene.view->setFocusAtItem(row);
            };
        };
        const auto enterOnOK = [](Scene &scene) { buildView(scene)->m_enterOnOK = true; };
        const auto scrolling = [](Scene &scene) { buildView(scene)->m_scrollOnHold = true; };
        const char *const doEnter = "doEnter(int)";
        const char *const doChange = "doChange(int)";
        addKey<WidgetListView>(doEnter, "right", buildView, Qt::Key_6, 0, focus(1));
        addKey<WidgetListView>(doEnter, "OK", enterOnOK, Qt::Key_Menu, 0, focus(1));
        addKey<WidgetListView>(doEnter, "digit key", buildView, Qt::Key_3, 0, focus(0));
        addKey<WidgetListView>(doChange, "left", buildView, Qt::Key_4, 0, focus(0));
        addKey<WidgetListView>(doChange, "right", buildView, Qt::Key_6, 0, focus(0));
        addKey<WidgetListView>("doSave()", "OK", buildView, Qt::Key_Menu);
        addKey<WidgetListView>("finished()", "escape", buildView, Qt::Key_Escape);
        addKey<WidgetListView>("reachedBegin()", "up on the first row", buildView, Qt::Key_2, 0, focus(0));
        addKey<WidgetListView>("reachedEnd()", "down on the last row", buildView, Qt::Key_8, 0, focus(3));
        addKey<WidgetListView>("upKeyLongPressed()", "up is held", buildView, Qt::Key_2, LongPress);
        addKey<WidgetListView>("upKeyReleased()", "up is let go", buildView, Qt::Key_2, LongPress);
        addKey<WidgetListView>("downKeyLongPressed()", "down is held", buildView, Qt::Key_8, LongPress);
        addKey<WidgetListView>("downKeyReleased()", "down is let go", buildView, Qt::Key_8, LongPress);
        addKey<WidgetListView>("downKeyLongPressed()", "down is held and scrolls", scrolling, Qt::Key_8, LongPress + 2);
    }

    void addProgressBar()
    {
        const auto setAmounts = [](Scene &scene, int use, int max) {
            WidgetProgressBar *bar = static_cast<WidgetProgressBar *>(scene.sender.data());
            scene.cause = [bar, use, max] { bar->setItemUseMaxValue(use, max); };
            const Action callBackOfOwner = scene.callBack;
            scene.callBack = [bar, callBackOfOwner] {
                bar->setItemTitle(QStringLiteral("other"));
                bar->setItemFont(WidgetProgressBar::ItemValue, 9, true);
                bar->setItemUseMaxValue(7, 9);
                if (callBackOfOwner)
                    callBackOfOwner();
            };
        };
        const auto bar = [setAmounts](int use, int max) {
            return [setAmounts, use, max](Scene &scene) {
                scene.sender = new WidgetProgressBar(scene.screen);
                setAmounts(scene, use, max);
            };
        };
        const char *const valueChanged = "valueChanged(int)";
        add<WidgetProgressBar>(valueChanged, "a part", bar(3, 10));
        add<WidgetProgressBar>(valueChanged, "more than all", bar(30, 10));
        add<WidgetProgressBar>(valueChanged, "of nothing", bar(0, 0));
        add<WidgetProgressBar>(valueChanged, "as a value of a row", [setAmounts](Scene &scene) {
            rowOfAList(3)(scene);
            scene.sender = scene.row->findChild<WidgetProgressBar *>();
            setAmounts(scene, 3, 10);
        });
        add<WidgetProgressBar>(valueChanged, "as the title of a row", [setAmounts](Scene &scene) {
            WidgetProgressBar *title = new WidgetProgressBar(nullptr);
            rowOfAList(2, [title](WidgetListItem &row) {
                row.setTitle(title);
            })(scene);
            scene.sender = title;
            setAmounts(scene, 3, 10);
            // A row has a text or widgets for a title.
            scene.callBack = [title] { title->setItemUseMaxValue(7, 9); };
        });
        add<WidgetProgressBar>(valueChanged, "in a slot of the row", [setAmounts](Scene &scene) {
            rowOfAList(3)(scene);
            WidgetProgressBar *bar = scene.row->findChild<WidgetProgressBar *>();
            scene.sender = bar;
            setAmounts(scene, 3, 10);
            QObject::connect(scene.row, &WidgetListItem::doChange, bar, [bar] { bar->setItemUseMaxValue(4, 10); });
            scene.cause = [&scene] {
                if (scene.list && scene.row) {
                    scene.list->setFocusAtItem(3);
                    strikeBy(Route::ToTheFocus, scene, Qt::Key_6);
                }
            };
        });
    }

    static void buildSwitcher(Scene &scene)
    {
        WidgetSwitcher *switcher = new WidgetSwitcher(scene.screen, sound());
        switcher->setBgGeometry(0, 0, 220, 150);
        scene.sender = switcher;
        scene.callBack = [switcher] {
            switcher->selectItem(3);
            switcher->initDisplay();
            switcher->makeSelectable(2, false);
        };
    }

    void addSwitcher()
    {
        addKey<WidgetSwitcher>("sendMainItem(int)", "OK", buildSwitcher, Qt::Key_Menu);
    }
};

const QList<Way> &ways()
{
    static const Ways instance;
    return instance.all();
}

// --- What slots do

struct Deed
{
    const char *name;
    /// Whether it can be done to a scene.
    std::function<bool(const Scene &)> fits;
    std::function<void(Scene &, QPointer<Receiver> &)> act;
    /// What is gone then.
    std::function<bool(const Scene &)> done;
    /// Whether the sender emits on afterwards.
    bool goesOn;
};

bool always(const Scene &)
{
    return true;
}

bool isWidget(const Scene &scene)
{
    return scene.sender->isWidgetType();
}

QWidget *senderOf(const Scene &scene)
{
    return static_cast<QWidget *>(scene.sender.data());
}

void end(Scene &scene)
{
    if (scene.end) {
        const Action action = scene.end;
        action();
    }
}

void replaceRows(Scene &scene)
{
    if (scene.list) {
        scene.list->removeAllItems();
        addRows(*scene.list, 3);
    } else {
        scene.model->reset(RowsModel::titled(6));
    }
}

const QList<Deed> &deeds()
{
    const auto senderGone = [](const Scene &scene) { return scene.sender.isNull(); };
    static const QList<Deed> all{
        {"deletes the receiver", always, [](Scene &, QPointer<Receiver> &receiver) { delete receiver; }, always, true},
        {"deletes the sender", always,
         [](Scene &scene, QPointer<Receiver> &) {
             end(scene);
             delete scene.sender;
         },
         senderGone, false},
        {"deletes the sender and the receiver", always,
         [](Scene &scene, QPointer<Receiver> &receiver) {
             end(scene);
             delete receiver;
             delete scene.sender;
         },
         senderGone, false},
        {"deletes the sender later", always,
         [](Scene &scene, QPointer<Receiver> &) {
             end(scene);
             scene.sender->deleteLater();
         },
         always, false},
        {"deletes the parent", always,
         [](Scene &scene, QPointer<Receiver> &) {
             end(scene);
             delete scene.screen;
         },
         senderGone, false},
        {"deletes the list around it", [](const Scene &scene) { return scene.list && scene.list != scene.sender; },
         [](Scene &scene, QPointer<Receiver> &) { delete scene.list; }, senderGone, false},
        {"deletes the row", [](const Scene &scene) { return scene.row && scene.row != scene.sender; },
         [](Scene &scene, QPointer<Receiver> &) { delete scene.row; },
         [](const Scene &scene) { return scene.row.isNull(); }, false},
        {"deletes all rows", [](const Scene &scene) { return !scene.list.isNull(); },
         [](Scene &scene, QPointer<Receiver> &) {
             for (int row = 0; row < 4; ++row)
                 delete itemOf(*scene.list, row);
         },
         always, false},
        {"replaces the rows", [](const Scene &scene) { return scene.list || scene.model; },
         [](Scene &scene, QPointer<Receiver> &) { replaceRows(scene); }, always, false},
        {"removes the rows", [](const Scene &scene) { return scene.list || scene.model; },
         [](Scene &scene, QPointer<Receiver> &) {
             if (scene.list)
                 scene.list->removeAllItems();
             else
                 scene.model->remove(0, scene.model->rowCount());
         },
         always, false},
        {"makes room for fewer rows", [](const Scene &scene) { return !scene.list.isNull(); },
         [](Scene &scene, QPointer<Receiver> &) { scene.list->setRowCount(0); }, always, false},
        {"deletes the model", [](const Scene &scene) { return !scene.model.isNull(); },
         [](Scene &scene, QPointer<Receiver> &) { delete scene.model; }, always, false},
        {"takes the model away", [](const Scene &scene) { return !scene.model.isNull(); },
         [](Scene &scene, QPointer<Receiver> &) { scene.view->setModel(nullptr); }, always, false},
        {"hides the sender", isWidget, [](Scene &scene, QPointer<Receiver> &) { senderOf(scene)->hide(); }, always, true},
        {"hides the sender and shows it", isWidget,
         [](Scene &scene, QPointer<Receiver> &) {
             senderOf(scene)->hide();
             senderOf(scene)->show();
         },
         always, true},
        {"hides the parent", always, [](Scene &scene, QPointer<Receiver> &) { scene.screen->hide(); }, always, true},
        {"moves the sender to another parent", isWidget,
         [](Scene &scene, QPointer<Receiver> &) {
             // As one does with a page that stays when its window goes.
             QWidget *other = new QWidget;
             senderOf(scene)->setParent(other);
             QObject::connect(senderOf(scene), &QObject::destroyed, other, &QObject::deleteLater);
             end(scene);
             delete scene.screen;
             delete other;
         },
         senderGone, false},
        {"disables the sender", isWidget,
         [](Scene &scene, QPointer<Receiver> &) { senderOf(scene)->setEnabled(false); }, always, true},
        {"gives the focus away", isWidget,
         [](Scene &scene, QPointer<Receiver> &) { scene.screen->setFocus(); }, always, true},
        {"calls back", always, [](Scene &scene, QPointer<Receiver> &) { scene.callBack(); }, always, true},
        {"causes the signal again", always, [](Scene &scene, QPointer<Receiver> &) { scene.cause(); }, always, true},
        {"causes it again, and deletes the sender", always,
         [](Scene &scene, QPointer<Receiver> &) {
             scene.cause();
             end(scene);
             delete scene.sender;
         },
         senderGone, false},
        {"lets events come through, and deletes the sender", always,
         [](Scene &scene, QPointer<Receiver> &) {
             QCoreApplication::processEvents();
             end(scene);
             delete scene.sender;
         },
         senderGone, false},
    };
    return all;
}

/// What one slot does in one scene.
struct Trial
{
    Trial(const Way &way, const Deed &deed)
        : way(way),
          deed(deed)
    {
        way.build(scene);
    }

    ~Trial()
    {
        // The slot is in it.
        if (receiver)
            receiver->disconnect();
        delete receiver;
    }

    void begin()
    {
        scene.show();
        receiver = new Receiver([this] {
            if (++calls == 1)
                deed.act(scene, receiver);
        });
        const QByteArray signal = QByteArray("2") + way.signal;
        QVERIFY(QObject::connect(scene.sender, signal.constData(), receiver, SLOT(call())));
        scene.cause();
    }

    /// To be called when the signal has come.
    void check()
    {
        QVERIFY(deed.done(scene));
        runEventLoop();
    }

    const Way way;
    const Deed deed;
    Scene scene;
    QPointer<Receiver> receiver;
    int calls = 0;
};

}

class TestWidgetSignals : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void aSlotMayDoAnything_data();
    void aSlotMayDoAnything();
    void aSlotCalledByATimerMayDoAnything();
    void everySignalIsInTheTable();
    void everyClassIsInTheTable();
};

void TestWidgetSignals::init()
{
    RecordingPlatform::reset();
}

void TestWidgetSignals::aSlotMayDoAnything_data()
{
    QTest::addColumn<int>("way");
    QTest::addColumn<int>("deed");
    for (int way = 0; way < ways().size(); ++way) {
        if (ways().at(way).byTime)
            continue;
        Scene scene;
        ways().at(way).build(scene);
        for (int deed = 0; deed < deeds().size(); ++deed) {
            // However a key comes, what is gone must not be used. The rest is tried in the way of the device.
            const bool takesAway = deeds().at(deed).done(scene) == false;
            if (!deeds().at(deed).fits(scene) || !(ways().at(way).usual || takesAway))
                continue;
            QTest::addRow("%s::%s, %s: %s", ways().at(way).emitter->className(), ways().at(way).signal,
                          ways().at(way).name, deeds().at(deed).name)
                << way << deed;
        }
    }
}

void TestWidgetSignals::aSlotMayDoAnything()
{
    QFETCH(int, way);
    QFETCH(int, deed);
    Trial trial(ways().at(way), deeds().at(deed));
    trial.begin();
    EVENTUALLY(trial.calls > 0);
    trial.check();

    if (deeds().at(deed).goesOn) {
        if (trial.scene.sender->isWidgetType())
            senderOf(trial.scene)->setEnabled(true);
        end(trial.scene);
        trial.scene.show();
        int calls = 0;
        Receiver receiver([&calls] { ++calls; });
        const QByteArray signal = QByteArray("2") + ways().at(way).signal;
        connect(trial.scene.sender, signal.constData(), &receiver, SLOT(call()));
        trial.scene.cause();
        EVENTUALLY(calls > 0);
        end(trial.scene);
    }
}

// All at once, because each of them takes its time.
void TestWidgetSignals::aSlotCalledByATimerMayDoAnything()
{
    std::vector<std::unique_ptr<Trial>> trials;
    for (const Way &way : ways()) {
        for (const Deed &deed : deeds()) {
            if (!way.byTime)
                break;
            Scene scene;
            way.build(scene);
            if (deed.fits(scene))
                trials.emplace_back(new Trial(way, deed));
        }
    }
    QVERIFY(!trials.empty());
    for (const auto &trial : trials)
        trial->begin();
    for (const auto &trial : trials) {
        EVENTUALLY(trial->calls > 0);
        QVERIFY2(trial->deed.done(trial->scene), trial->deed.name);
    }
    runEventLoop();
}

static const QList<const QMetaObject *> &classes()
{
    static const QList<const QMetaObject *> all{
        &ClockUpdateThread::staticMetaObject, &DateUpdateThread::staticMetaObject,
        &Widget::staticMetaObject,            &WidgetBottom::staticMetaObject,
        &WidgetBottomGuide::staticMetaObject, &WidgetClock::staticMetaObject,
        &WidgetDate::staticMetaObject,        &WidgetIconGroup::staticMetaObject,
        &WidgetKeypad::staticMetaObject,      &WidgetKeypadBottom::staticMetaObject,
        &WidgetList::staticMetaObject,        &WidgetListItem::staticMetaObject,
        &WidgetListView::staticMetaObject,    &WidgetMarqueeLable::staticMetaObject,
        &WidgetProgressBar::staticMetaObject, &WidgetSelectTile::staticMetaObject,
        &WidgetSimpleTitle::staticMetaObject, &WidgetSoftBtn::staticMetaObject,
        &WidgetStatusBar::staticMetaObject,   &WidgetSwitcher::staticMetaObject,
        &WidgetTAMark::staticMetaObject};
    return all;
}

void TestWidgetSignals::everySignalIsInTheTable()
{
    QSet<QByteArray> known;
    for (const Way &way : ways())
        known.insert(QByteArray(way.emitter->className()) + "::" + way.signal);
    QStringList missing;
    int found = 0;
    for (const QMetaObject *meta : classes()) {
        for (int i = meta->methodOffset(); i < meta->methodCount(); ++i) {
            if (meta->method(i).methodType() != QMetaMethod::Signal)
                continue;
            const QByteArray signal = QByteArray(meta->className()) + "::" + meta->method(i).methodSignature();
            ++found;
            if (!known.contains(signal))
                missing << QString::fromLatin1(signal);
        }
    }
    QCOMPARE(missing, QStringList());
    QVERIFY(found >= 30);
}

// A class without Q_OBJECT has no signals.
void TestWidgetSignals::everyClassIsInTheTable()
{
    QStringList known;
    for (const QMetaObject *meta : classes())
        known << QString::fromLatin1(meta->className());
    QStringList found;
    const QDir headers(QStringLiteral(HEADER_DIRECTORY));
    for (const QString &name : headers.entryList(QStringList("*.h"))) {
        QFile file(headers.filePath(name));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QRegularExpressionMatchIterator matches =
            QRegularExpression(QStringLiteral("\\bWIDGET_EXPORT\\s+(\\w+)[^;{]*\\{\\s*Q_OBJECT"))
                .globalMatch(QString::fromUtf8(file.readAll()));
        while (matches.hasNext())
            found << matches.next().captured(1);
    }
    known.sort();
    found.sort();
    QCOMPARE(known, found);
}

QTEST_MAIN(TestWidgetSignals)
#include "tst_widgetsignals.moc"

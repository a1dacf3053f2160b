// Someone works the keys of the simulator for a long time, on all of its screens, and nothing is left behind.
//
// A short time at first. Variables of the environment for another one:
//   WIDGET_KEYS=100000   the number of keys
//   WIDGET_SEED=number   another choice of keys

#include "devicewindow.h"
#include "livecount.h"
#include "look.h"
#include "screens.h"
#include "script.h"
#include "toolkitstart.h"

#include "platform/desktop/desktopclock.h"
#include "platform/desktop/desktopsound.h"
#include "platform/stringrc.h"

#include <QApplication>
#include <QLabel>
#include <QMap>
#include <QtTest>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <random>
#include <set>
#include <vector>

/// Takes the place of the C library's, as the threads of the clock and the date would otherwise take most of the time to
/// come to an end.
extern "C" int nanosleep(const timespec *wanted, timespec *left)
{
    const long longest = 2000000;
    timespec time = *wanted;
    if (time.tv_sec > 0 || time.tv_nsec > longest)
        time = {0, longest};
    return clock_nanosleep(CLOCK_MONOTONIC, 0, &time, left) == 0 ? 0 : -1;
}

namespace {

const int FirstKeys = 100;
const int DefaultKeys = 2000;
const int LookEvery = 10000;
const unsigned DefaultSeed = 20260307;

/// Until messages, flashes and what else goes by itself are gone; in milliseconds.
const int Idle = 2200;

// The toolkit's caches fill up as more is seen, quickly at first. With the same keys over and over again the heap is level
// then. Other keys still lead to something new now and then: most of it are letters of texts that nobody has typed yet,
// which the cache of fonts has once for each fraction of a pixel.
const qint64 CacheSize = 3 * 1024 * 1024;
const int LevelFrom = 20000;
const qint64 Breath = 512 * 1024;

typedef std::function<void(QObject *)> Leave;
typedef int LiveCount::*Number;

unsigned numberFrom(const char *variable, unsigned fallback)
{
    bool isNumber = false;
    const unsigned number = qEnvironmentVariable(variable).toUInt(&isNumber);
    return isNumber ? number : fallback;
}

/// After how many keys there is a count of what there is.
std::vector<int> whenToLook(int keys)
{
    std::vector<int> looks = {FirstKeys};
    for (int look = LookEvery; look < keys; look += LookEvery)
        looks.push_back(look);
    looks.push_back(keys);
    return looks;
}

/// Keeps quiet about what the bar of four cells provokes on purpose, with each of its keys.
class WithoutOneWarning
{
public:
    WithoutOneWarning() { s_before = qInstallMessageHandler(print); }
    ~WithoutOneWarning() { qInstallMessageHandler(s_before); }

private:
    static void print(QtMsgType type, const QMessageLogContext &context, const QString &message)
    {
        if (!message.contains("No such slot WidgetKeypadBottom::clearSelection()"))
            s_before(type, context, message);
    }

    static inline QtMessageHandler s_before = nullptr;
};

/// A person with a device in hand.
class User
{
public:
    explicit User(unsigned seed)
        : m_random(seed),
          m_window(allScreens(), KeyMode::Digits, 1)
    {
        m_window.showActive();
        goHome();
    }

    Device &device() { return m_window.device(); }
    int keys() const { return m_keys; }
    int visits(const Screen &screen) const { return m_visits.value(screen.name); }
    int statesSeen() const { return int(m_states.size()); }

    /// Opens the next screen, in its next state, uses some keys there and comes back to the first screen, unless
    /// \a until keys have been used before.
    void visitScreen(int until)
    {
        if (m_deck.empty())
            shuffleDeck();
        const Screen *screen = m_deck.back();
        m_deck.pop_back();
        const ScreenState &state = screen->states[size_t(visits(*screen)) % screen->states.size()];

        StringRC::getInstance()->m_rightToLeft = state.rightToLeft;
        device().setKeyMode(state.functionKeys ? KeyMode::Functions : KeyMode::Digits);
        const int open = screensOpen();
        device().open(screen->name);
        runFor(0);
        if (screensOpen() != open + 1)
            qFatal("The screen \"%s\" does not open.", screen->name);
        ++m_visits[screen->name];
        m_states.insert({screen->name, state.name});

        QString error;
        Script script = parseScript(state.keys, &error);
        if (!error.isEmpty())
            qFatal("%s", qPrintable(error));
        const int someKeys = below(60);
        for (int i = 0; i < someKeys; ++i)
            script.push_back(anyKey());
        for (ScriptStep &step : script) {
            step.milliseconds = 0;
            if (m_keys < until)
                use(step);
        }
        while (screensOpen() > 1 && m_keys < until)
            use({Qt::Key_Escape, {}, 0, 0});
    }

    /// What there is while the first screen is shown and nothing happens.
    LiveCount countAtHome()
    {
        goHome();
        runFor(Idle);
        return LiveObjects::count();
    }

private:
    void goHome()
    {
        StringRC::getInstance()->m_rightToLeft = false;
        device().setKeyMode(KeyMode::Digits);
        device().start("home");
        runFor(0);
    }

    void shuffleDeck()
    {
        for (const Screen &screen : allScreens())
            m_deck.push_back(&screen);
        for (size_t i = m_deck.size() - 1; i > 0; --i)
            std::swap(m_deck[i], m_deck[size_t(below(int(i) + 1))]);
    }

    int screensOpen()
    {
        const QList<QWidget *> children = device().findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
        // All but the message.
        return int(children.size()) - 1;
    }

    void use(const ScriptStep &step)
    {
        play({step}, device(), 0);
        if (step.key != 0)
            ++m_keys;
    }

    ScriptStep anyKey()
    {
        static const int often[] = {Qt::Key_Up, Qt::Key_Down, Qt::Key_Left, Qt::Key_Right, Qt::Key_Down, Qt::Key_Right,
                                    Qt::Key_Menu};
        static const int others[] = {Qt::Key_0, Qt::Key_1, Qt::Key_2, Qt::Key_3, Qt::Key_4, Qt::Key_5, Qt::Key_6,
                                     Qt::Key_7, Qt::Key_8, Qt::Key_9, Qt::Key_F1, Qt::Key_F2, Qt::Key_F3, Qt::Key_F4,
                                     Qt::Key_Asterisk, Qt::Key_NumberSign, Qt::Key_Menu, Qt::Key_Escape};
        ScriptStep step;
        step.key = below(2) == 0 ? often[below(int(std::size(often)))] : others[below(int(std::size(others)))];
        step.repeats = below(20) == 0 ? 12 : 0;
        return step;
    }

    int below(int count) { return int(m_random() % unsigned(count)); }

    std::mt19937 m_random;
    DeviceWindow m_window;
    std::vector<const Screen *> m_deck;
    QMap<QString, int> m_visits;
    std::set<std::pair<QString, QString>> m_states;
    int m_keys = 0;
};

}

Q_DECLARE_METATYPE(Leave)
Q_DECLARE_METATYPE(Number)

class TestSimulatorLongUse : public QObject
{
    Q_OBJECT

private slots:
    void leavesEverythingWhereItWas();
    void countSeesWhatIsLeft_data();
    void countSeesWhatIsLeft();
    void countSeesMemoryThatIsLeft();
};

void TestSimulatorLongUse::leavesEverythingWhereItWas()
{
    const int keys = int(numberFrom("WIDGET_KEYS", DefaultKeys));
    const WithoutOneWarning withoutOneWarning;
    User user(numberFrom("WIDGET_SEED", DefaultSeed));
    LiveCount first;
    LiveCount level;
    for (int until : whenToLook(keys)) {
        while (user.keys() < until)
            user.visitScreen(until);
        const LiveCount now = user.countAtHome();
        std::printf("after %6d keys: %s\n", until, qPrintable(now.toString()));
        std::fflush(stdout);
        if (until == FirstKeys)
            first = now;
        if (until <= LevelFrom)
            level = now;
        QVERIFY2(now == first, qPrintable("At first there were: " + first.toString()));
        QVERIFY(now.heap - first.heap <= CacheSize);
        QVERIFY(now.heap - level.heap <= Breath);
    }
    for (const Screen &screen : allScreens()) {
        std::printf("%s %d, ", screen.name, user.visits(screen));
        QVERIFY2(user.visits(screen) > 0, screen.name);
    }
    std::printf("%d of their states\n", user.statesSeen());
}

void TestSimulatorLongUse::countSeesWhatIsLeft_data()
{
    QTest::addColumn<Leave>("leave");
    QTest::addColumn<Number>("number");
    QTest::newRow("object") << Leave([](QObject *owner) { new QObject(owner); }) << Number(&LiveCount::objects);
    QTest::newRow("timer") << Leave([](QObject *owner) { owner->startTimer(100000); }) << Number(&LiveCount::timers);
    QTest::newRow("event filter") << Leave([](QObject *owner) { owner->installEventFilter(owner); })
                                  << Number(&LiveCount::eventFilters);
    QTest::newRow("connection") << Leave([](QObject *owner) {
        QObject::connect(owner, SIGNAL(destroyed()), owner, SLOT(deleteLater()));
    }) << Number(&LiveCount::connections);
    QTest::newRow("connection to a function") << Leave([](QObject *owner) {
        QObject::connect(owner, &QObject::destroyed, [] {});
    }) << Number(&LiveCount::connections);
    QTest::newRow("styled widget") << Leave([](QObject *owner) {
        QLabel *label = new QLabel(static_cast<QWidget *>(owner));
        label->setStyleSheet("color: red;");
        label->ensurePolished();
    }) << Number(&LiveCount::styledWidgets);
}

void TestSimulatorLongUse::countSeesWhatIsLeft()
{
    QFETCH(Leave, leave);
    QFETCH(Number, number);
    QWidget owner;
    owner.setStyleSheet("color: blue;");
    owner.ensurePolished();
    const LiveCount before = LiveObjects::count();
    leave(&owner);
    QCOMPARE(LiveObjects::count().*number, before.*number + 1);
}

void TestSimulatorLongUse::countSeesMemoryThatIsLeft()
{
    const int size = 1000000;
    const qint64 before = LiveObjects::count().heap;
    const std::vector<char> memory(size);
    QVERIFY(LiveObjects::count().heap >= before + size);
    QCOMPARE(memory.back(), char(0));
}

int main(int argc, char *argv[])
{
    LiveObjects::watch();
    qputenv("QT_QPA_PLATFORM", "offscreen");
    fixLook();
    QApplication application(argc, argv);
    addPlugins();
    applyLook();
    Desktop::setMuted(true);
    Desktop::setFixedLocalTime("2026-03-07 13:05:09");
    TestSimulatorLongUse test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_simulatorlonguse.moc"

#include "linuxdevices.h"

#include "platform/linux/boardkeys.h"
#include "platform/soundmanager.h"
#include "widgetlist.h"
#include "widgetlistitem.h"

#include <QtTest>
#include <QtWidgets>

#include <iostream>

namespace {

const char usualKeys[] = "keys 2 3 4 5 6 28 59 103 352\n";  // 1 to 5, ENTER, F1, UP, OK
const int DelayMs = 400;
const int PeriodMs = 50;

/// Writes down the keys that it gets.
class KeyWidget : public QWidget
{
public:
    explicit KeyWidget(QWidget *parent = nullptr)
        : QWidget(parent)
    {
        setFocusPolicy(Qt::StrongFocus);
    }

    QStringList keys;
    std::function<void(const QString &)> onKey;

protected:
    void keyPressEvent(QKeyEvent *event) override { note(event->isAutoRepeat() ? "repeat" : "press", event); }
    void keyReleaseEvent(QKeyEvent *event) override { note(event->isAutoRepeat() ? "rerelease" : "release", event); }

private:
    void note(const QString &what, QKeyEvent *event)
    {
        const QString name = QKeySequence(event->key()).toString(QKeySequence::PortableText);
        const QString line = what + ' ' + name;
        keys += line;
        texts += event->text();
        modifiers |= event->modifiers();
        if (onKey)
            onKey(line);
    }

public:
    QStringList texts;
    Qt::KeyboardModifiers modifiers = Qt::NoModifier;
};

void makeActive(QWidget *window)
{
    window->show();
    window->activateWindow();
    if (!QTest::qWaitForWindowActive(window, LongestWait))
        qFatal("A window does not become active");
}

/// The directory of the devices that this process reads, with its configuration.
DeviceDirectory *devices = nullptr;

// Whether FIFOs can be given the numbers of devices here.
bool hasNumber(const QString &name)
{
    struct stat status;
    return stat(devices->path(name).toLocal8Bit().constData(), &status) == 0 && status.st_rdev != 0;
}

/// A window with the focus, and the keys of all devices.
class Screen
{
public:
    Screen()
    {
        makeActive(&window);
        window.setFocus();
    }

    KeyWidget window;
    Board::Keys keys;
};

// In a process of its own, with the configuration of a test: each key is a line, until Escape is let go.
int printKeys(int argc, char **argv)
{
    QApplication application(argc, argv);
    KeyWidget window;
    makeActive(&window);
    window.setFocus();
    Board::Keys keys;
    window.onKey = [](const QString &line) {
        std::cout << line.toStdString() << std::endl;
        if (line == "release Esc")
            QCoreApplication::quit();
    };
    std::cout << keys.devices().size() << " devices" << std::endl;
    return application.exec();
}

/// The same from the side of the test.
class KeyChild : public DeviceDirectory
{
public:
    KeyChild() : log(path("log")) { }

    void start(const QByteArray &lines, bool asNobody = false)
    {
        const QByteArray place = path("x").chopped(1).toLocal8Bit();
        QByteArray text = "log_device = @log\nlog_level = 16\n" + lines;
        write("board.conf", text.replace('@', place));
        m_child.reset(new Child(*this, asNobody ? QStringList("nobody") : QStringList("keys")));
        if (!QTest::qWaitFor([this] { return m_child->output().contains(" devices\n"); }, LongestWait))
            qFatal("The child does not start");
    }

    /// The lines by now, without the first one.
    QStringList keys()
    {
        QStringList lines = m_child->output().split('\n');
        lines.removeLast();
        return lines.mid(1);
    }

    bool ends() { return m_child->ends(); }
    QString path(const QString &name) const { return DeviceDirectory::path(name); }

    MessageSocket log;

private:
    QScopedPointer<Child> m_child;
};

}

class TestLinuxKeys : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void keyIsPressAndRelease_data();
    void keyIsPressAndRelease();
    void keyGoesToTheFocusWidget();
    void releaseGoesToWhoHasTheFocusThen();
    void keyGoesToWhoHasGrabbedTheKeyboard();
    void keyGoesToTheOpenPopup();
    void keyIgnoredByAWidgetGoesToItsParent();
    void listIsWorkedByTheKeysOfABoard();

    void heldKeyRepeatsAndIsReleasedOnce();
    void firstRepeatComesAfterTheDelayOfTheFile();
    void kernelsRepeatsDoNotCount();
    void onlyTheLastKeyRepeats();
    void keyLetGoMeanwhileDoesNotRepeat();

    void keysOfSeveralDevicesAreRead();
    void sameKeyOfTwoDevicesIsOneKey();
    void twoKeysOfATableThatAreTheSameAreOneKey();
    void keyHeldBeforeItsDeviceIsReadWaitsForItsNextPress();
    void deviceWithoutAKeyOfTheTableIsLeftAlone();
    void keypadThatTakesTheNumberOfAnotherDeviceIsRead_data();
    void keypadThatTakesTheNumberOfAnotherDeviceIsRead();

    void unpluggedDeviceLetsGoOfItsKeys();
    void deviceWhoseNodeStaysLetsGoOfItsKeysToo();
    void devicePluggedAgainIsRead();
    void devicePluggedAgainBeforeItWasMissedIsRead();
    void onlyOneOfTwoDevicesIsUnplugged();

    void keyReleasedInAnOverrunIsReleased();
    void keyPressedInAnOverrunIsPressed();
    void keyStillHeldAfterAnOverrunStaysHeld();
    void keysAfterAnOverrunAreRead();

    void handlerMayDeleteTheKeys_data();
    void handlerMayDeleteTheKeys();
    void eventLoopInAHandlerKeepsTheOrder();

    void tableIsThatOfTheFile();
    void badKeyLinesAreReportedWithTheirNumber();
    void repeatsCanBeSwitchedOff();
    void devicesAreGrabbedIfWanted_data();
    void devicesAreGrabbedIfWanted();
    void deviceThatMayNotBeReadIsReported();
    void deviceThatGetsItsRightsLaterIsReadWithoutAWord();
    void directoryMayComeLater();
    void deviceThatIsFoundTwiceIsReadOnce();
    void whatIsNoDeviceIsReported();
    void devicesThatComeAndGoAreLogged();

private:
    QScopedPointer<InputDevice> m_keypad;
};

void TestLinuxKeys::init()
{
    m_keypad.reset(new InputDevice(*devices, "event0", usualKeys));
}

void TestLinuxKeys::cleanup()
{
    m_keypad.reset();
}

void TestLinuxKeys::keyIsPressAndRelease_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("text");
    QTest::newRow("digit") << int(KEY_1) << "1" << "1";
    QTest::newRow("OK") << int(KEY_OK) << "Menu" << QString();
    QTest::newRow("enter") << int(KEY_ENTER) << "Menu" << QString();
    QTest::newRow("up") << int(KEY_UP) << "2" << "2";
    QTest::newRow("down") << int(KEY_DOWN) << "8" << "8";
    QTest::newRow("left") << int(KEY_LEFT) << "4" << "4";
    QTest::newRow("right") << int(KEY_RIGHT) << "6" << "6";
    QTest::newRow("F1") << int(KEY_F1) << "F1" << QString();
    QTest::newRow("F4") << int(KEY_F4) << "F4" << QString();
    QTest::newRow("F12") << int(KEY_F12) << "F12" << QString();
    QTest::newRow("escape") << int(KEY_ESC) << "Esc" << "\x1b";
    QTest::newRow("back") << int(KEY_BACK) << "Esc" << "\x1b";
    QTest::newRow("digit of a telephone") << int(KEY_NUMERIC_0) << "0" << "0";
    QTest::newRow("digit of the keypad") << int(KEY_KP9) << "9" << "9";
    QTest::newRow("hash") << int(KEY_NUMERIC_POUND) << "#" << "#";
    QTest::newRow("star") << int(KEY_NUMERIC_STAR) << "*" << "*";
    QTest::newRow("volume") << int(KEY_VOLUMEUP) << "Volume Up" << QString();
}

void TestLinuxKeys::keyIsPressAndRelease()
{
    QFETCH(int, code);
    QFETCH(QString, key);
    QFETCH(QString, text);
    InputDevice device(*devices, "event5", "keys " + QByteArray::number(code) + '\n');
    Screen screen;
    QCOMPARE(screen.keys.devices(), (QStringList{devices->path("event0"), devices->path("event5")}));
    device.press(code);
    EVENTUALLY_COMPARE(screen.window.keys, QStringList("press " + key));
    device.release(code);
    EVENTUALLY_COMPARE(screen.window.keys, (QStringList{"press " + key, "release " + key}));
    QCOMPARE(screen.window.texts, (QStringList{text, text}));
    QCOMPARE(screen.window.modifiers, Qt::KeyboardModifiers(Qt::NoModifier));
}

void TestLinuxKeys::keyGoesToTheFocusWidget()
{
    Screen screen;
    KeyWidget one(&screen.window);
    KeyWidget other(&screen.window);
    one.show();
    other.show();
    other.setFocus();
    m_keypad->press(KEY_1);
    m_keypad->release(KEY_1);
    EVENTUALLY_COMPARE(other.keys, (QStringList{"press 1", "release 1"}));
    QCOMPARE(one.keys, QStringList());
}

void TestLinuxKeys::releaseGoesToWhoHasTheFocusThen()
{
    Screen screen;
    KeyWidget other(&screen.window);
    other.show();
    screen.window.onKey = [&other](const QString &) { other.setFocus(); };
    // In one go, so that both are there when the focus changes.
    m_keypad->press(KEY_1);
    m_keypad->release(KEY_1);
    EVENTUALLY_COMPARE(other.keys, QStringList("release 1"));
    QCOMPARE(screen.window.keys, QStringList("press 1"));
}

void TestLinuxKeys::keyGoesToWhoHasGrabbedTheKeyboard()
{
    Screen screen;
    KeyWidget other(&screen.window);
    other.show();
    other.grabKeyboard();
    m_keypad->press(KEY_1);
    EVENTUALLY_COMPARE(other.keys, QStringList("press 1"));
    other.releaseKeyboard();
    m_keypad->release(KEY_1);
    EVENTUALLY_COMPARE(screen.window.keys, QStringList("release 1"));
}

void TestLinuxKeys::keyGoesToTheOpenPopup()
{
    Screen screen;
    KeyWidget popup;
    popup.setWindowFlags(Qt::Popup);
    popup.show();
    EVENTUALLY_COMPARE(QApplication::activePopupWidget(), static_cast<QWidget *>(&popup));
    m_keypad->press(KEY_1);
    EVENTUALLY_COMPARE(popup.keys, QStringList("press 1"));
    QCOMPARE(screen.window.keys, QStringList());
}

void TestLinuxKeys::keyIgnoredByAWidgetGoesToItsParent()
{
    Screen screen;
    QWidget child(&screen.window);
    child.setFocusPolicy(Qt::StrongFocus);
    child.show();
    child.setFocus();
    m_keypad->press(KEY_1);
    EVENTUALLY_COMPARE(screen.window.keys, QStringList("press 1"));
}

void TestLinuxKeys::listIsWorkedByTheKeysOfABoard()
{
    InputDevice arrows(*devices, "event5", "keys 1 103 105 106 108 352\n");
    Board::Keys keys;
    WidgetList list(3, nullptr, SoundManager::getInstance());
    QList<WidgetListItem *> rows;
    for (int i = 0; i < 3; ++i) {
        rows += new WidgetListItem(&list, SoundManager::getInstance());
        rows.last()->addValue("low");
        rows.last()->addValue("high");
        list.addListItem(rows.last());
    }
    QSignalSpy saved(&list, SIGNAL(doSave()));
    QSignalSpy finished(&list, SIGNAL(finished()));
    QSignalSpy changed(rows[1], SIGNAL(doChange()));
    makeActive(&list);
    list.setFocusAtItem(0);
    for (int code : {KEY_DOWN, KEY_RIGHT, KEY_OK, KEY_ESC}) {
        arrows.press(code);
        arrows.release(code);
    }
    EVENTUALLY_COMPARE(int(finished.count()), 1);
    QCOMPARE(int(changed.count()), 1);
    QCOMPARE(int(saved.count()), 1);
}

void TestLinuxKeys::heldKeyRepeatsAndIsReleasedOnce()
{
    Screen screen;
    m_keypad->press(KEY_1);
    EVENTUALLY(screen.window.keys.count("repeat 1") >= 3);
    m_keypad->release(KEY_1);
    EVENTUALLY(screen.window.keys.contains("release 1"));
    const QStringList keys = screen.window.keys;
    passTime(DelayMs + 2 * PeriodMs);
    QCOMPARE(screen.window.keys, keys);
    QCOMPARE(keys.first(), QString("press 1"));
    QCOMPARE(keys.last(), QString("release 1"));
    QCOMPARE(int(keys.count("repeat 1")), int(keys.size()) - 2);
}

void TestLinuxKeys::firstRepeatComesAfterTheDelayOfTheFile()
{
    // Timers of one thread go off in their order, also where the machine is busy.
    Screen screen;
    QStringList order;
    screen.window.onKey = [&order](const QString &key) { order += key; };
    QTimer::singleShot(DelayMs / 2, Qt::PreciseTimer, &screen.window, [&order] { order += "half"; });
    m_keypad->press(KEY_1);
    EVENTUALLY(!order.isEmpty() && order.contains("press 1"));
    QTimer::singleShot(DelayMs * 3 / 2, Qt::PreciseTimer, &screen.window, [&order] { order += "late"; });
    EVENTUALLY(order.contains("late"));
    QVERIFY(order.indexOf("half") < order.indexOf("repeat 1"));
    QVERIFY(order.indexOf("repeat 1") < order.indexOf("late"));
}

void TestLinuxKeys::kernelsRepeatsDoNotCount()
{
    Screen screen;
    m_keypad->press(KEY_1);
    for (int i = 0; i < 20; ++i)
        m_keypad->key(KEY_1, 2);
    m_keypad->release(KEY_1);
    EVENTUALLY_COMPARE(screen.window.keys, (QStringList{"press 1", "release 1"}));
}

void TestLinuxKeys::onlyTheLastKeyRepeats()
{
    Screen screen;
    m_keypad->press(KEY_1);
    m_keypad->press(KEY_2);
    EVENTUALLY(screen.window.keys.contains("repeat 2"));
    m_keypad->release(KEY_2);
    EVENTUALLY(screen.window.keys.contains("release 2"));
    passTime(DelayMs + 2 * PeriodMs);
    m_keypad->release(KEY_1);
    EVENTUALLY(screen.window.keys.contains("release 1"));
    QVERIFY(!screen.window.keys.contains("repeat 1"));
}

void TestLinuxKeys::keyLetGoMeanwhileDoesNotRepeat()
{
    InputDevice remote(*devices, "event1", "keys 3\n");
    Screen screen;
    screen.window.onKey = [this](const QString &key) {
        if (key != "release 2")
            return;
        // A screen that takes longer than the delay for another key, while this one is let go.
        m_keypad->release(KEY_1);
        QThread::msleep(2 * DelayMs);
    };
    remote.press(KEY_2);
    EVENTUALLY(screen.window.keys.contains("press 2"));
    m_keypad->press(KEY_1);
    EVENTUALLY(screen.window.keys.contains("press 1"));
    screen.window.keys.clear();
    remote.release(KEY_2);
    EVENTUALLY(screen.window.keys.contains("release 1"));
    const QStringList keys = screen.window.keys;
    QCOMPARE(keys.mid(keys.indexOf("release 2")), (QStringList{"release 2", "release 1"}));
}

void TestLinuxKeys::keysOfSeveralDevicesAreRead()
{
    InputDevice remote(*devices, "event1", "keys 3\n");
    Screen screen;
    m_keypad->press(KEY_1);
    EVENTUALLY(screen.window.keys.contains("press 1"));
    remote.press(KEY_2);
    EVENTUALLY(screen.window.keys.contains("press 2"));
    m_keypad->release(KEY_1);
    EVENTUALLY(screen.window.keys.contains("release 1"));
    remote.release(KEY_2);
    EVENTUALLY(screen.window.keys.contains("release 2"));
}

void TestLinuxKeys::sameKeyOfTwoDevicesIsOneKey()
{
    InputDevice remote(*devices, "event1", "keys 2 3\n");
    Screen screen;
    m_keypad->press(KEY_1);
    EVENTUALLY(screen.window.keys.contains("press 1"));
    remote.press(KEY_1);
    remote.press(KEY_2);
    EVENTUALLY(screen.window.keys.contains("press 2"));
    m_keypad->release(KEY_1);
    m_keypad->press(KEY_3);
    EVENTUALLY(screen.window.keys.contains("press 3"));
    QVERIFY(!screen.window.keys.contains("release 1"));
    remote.release(KEY_1);
    EVENTUALLY(screen.window.keys.contains("release 1"));
    QCOMPARE(int(screen.window.keys.count("press 1")), 1);
    QCOMPARE(int(screen.window.keys.count("release 1")), 1);
}

void TestLinuxKeys::twoKeysOfATableThatAreTheSameAreOneKey()
{
    Screen screen;
    m_keypad->press(KEY_OK);
    m_keypad->press(KEY_ENTER);
    m_keypad->release(KEY_OK);
    m_keypad->press(KEY_1);
    m_keypad->release(KEY_ENTER);
    EVENTUALLY(screen.window.keys.contains("release Menu"));
    QCOMPARE(screen.window.keys, (QStringList{"press Menu", "press 1", "release Menu"}));
}

void TestLinuxKeys::keyHeldBeforeItsDeviceIsReadWaitsForItsNextPress()
{
    InputDevice device(*devices, "event1", "keys 2 3\nheld 2\n");
    Screen screen;
    device.key(KEY_1, 2);
    device.release(KEY_1);
    device.press(KEY_2);
    EVENTUALLY_COMPARE(screen.window.keys, QStringList("press 2"));
    device.press(KEY_1);
    EVENTUALLY_COMPARE(screen.window.keys, (QStringList{"press 2", "press 1"}));
}

void TestLinuxKeys::deviceWithoutAKeyOfTheTableIsLeftAlone()
{
    InputDevice mouse(*devices, "event1", "keys 272 273\n");  // BTN_LEFT, BTN_RIGHT
    Screen screen;
    QCOMPARE(screen.keys.devices(), QStringList(devices->path("event0")));
}

void TestLinuxKeys::keypadThatTakesTheNumberOfAnotherDeviceIsRead_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::newRow("with a node that is another file") << QByteArray("inode 7\n") << QByteArray("inode 8\n");
    QTest::newRow("with a node that is the same file") << QByteArray("inode 7\n") << QByteArray("inode 7\n");
}

void TestLinuxKeys::keypadThatTakesTheNumberOfAnotherDeviceIsRead()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    QScopedPointer<InputDevice> device(new InputDevice(*devices, "event1", "number 65\nkeys 272 273\n" + before));
    if (!hasNumber("event1"))
        QSKIP("This system's library does not let a test give a FIFO a number");
    Screen screen;
    QCOMPARE(screen.keys.devices(), QStringList(devices->path("event0")));
    device.reset();
    device.reset(new InputDevice(*devices, "event1", "number 65\nkeys 3\n" + after));
    EVENTUALLY_COMPARE(screen.keys.devices(), (QStringList{devices->path("event0"), devices->path("event1")}));
    device->press(KEY_2);
    EVENTUALLY_COMPARE(screen.window.keys, QStringList("press 2"));
}

void TestLinuxKeys::unpluggedDeviceLetsGoOfItsKeys()
{
    Screen screen;
    m_keypad->press(KEY_1);
    m_keypad->press(KEY_OK);
    EVENTUALLY(screen.window.keys.contains("press Menu"));
    m_keypad->unplug();
    EVENTUALLY(screen.window.keys.contains("release Menu"));
    EVENTUALLY(screen.window.keys.contains("release 1"));
    const QStringList keys = screen.window.keys;
    passTime(DelayMs + 2 * PeriodMs);
    QCOMPARE(screen.window.keys, keys);
    QCOMPARE(screen.keys.devices(), QStringList());
}

void TestLinuxKeys::deviceWhoseNodeStaysLetsGoOfItsKeysToo()
{
    Screen screen;
    m_keypad->press(KEY_1);
    EVENTUALLY(screen.window.keys.contains("press 1"));
    m_keypad->fail();
    EVENTUALLY(screen.window.keys.contains("release 1"));
}

void TestLinuxKeys::devicePluggedAgainIsRead()
{
    Screen screen;
    for (int i = 1; i <= 3; ++i) {
        m_keypad->press(KEY_1);
        m_keypad->release(KEY_1);
        EVENTUALLY_COMPARE(int(screen.window.keys.count("release 1")), i);
        m_keypad.reset();
        EVENTUALLY_COMPARE(screen.keys.devices(), QStringList());
        init();
        EVENTUALLY_COMPARE(screen.keys.devices(), QStringList(devices->path("event0")));
    }
}

void TestLinuxKeys::devicePluggedAgainBeforeItWasMissedIsRead()
{
    const QByteArray state = "number 65\nkeys 3\n";
    QScopedPointer<InputDevice> device(new InputDevice(*devices, "event1", state));
    if (!hasNumber("event1"))
        QSKIP("This system's library does not let a test give a FIFO a number");
    Screen screen;
    device->press(KEY_2);
    EVENTUALLY(screen.window.keys.contains("press 2"));
    device.reset();
    device.reset(new InputDevice(*devices, "event1", state));
    EVENTUALLY(screen.window.keys.contains("release 2"));
    device->press(KEY_2);
    EVENTUALLY_COMPARE(int(screen.window.keys.count("press 2")), 2);
}

void TestLinuxKeys::onlyOneOfTwoDevicesIsUnplugged()
{
    InputDevice remote(*devices, "event1", "keys 3\n");
    Screen screen;
    m_keypad->press(KEY_1);
    remote.press(KEY_2);
    EVENTUALLY(screen.window.keys.contains("press 1") && screen.window.keys.contains("press 2"));
    remote.unplug();
    EVENTUALLY(screen.window.keys.contains("release 2"));
    QVERIFY(!screen.window.keys.contains("release 1"));
    m_keypad->release(KEY_1);
    EVENTUALLY(screen.window.keys.contains("release 1"));
}

void TestLinuxKeys::keyReleasedInAnOverrunIsReleased()
{
    Screen screen;
    m_keypad->press(KEY_1);
    m_keypad->press(KEY_OK);
    EVENTUALLY(screen.window.keys.contains("press Menu"));
    m_keypad->drop(usualKeys);
    EVENTUALLY(screen.window.keys.contains("release 1"));
    EVENTUALLY(screen.window.keys.contains("release Menu"));
    const QStringList keys = screen.window.keys;
    passTime(DelayMs + 2 * PeriodMs);
    QCOMPARE(screen.window.keys, keys);
}

void TestLinuxKeys::keyPressedInAnOverrunIsPressed()
{
    Screen screen;
    m_keypad->drop(usualKeys + QByteArray("held 2\n"));
    EVENTUALLY_COMPARE(screen.window.keys, QStringList("press 1"));
    m_keypad->release(KEY_1);
    EVENTUALLY_COMPARE(screen.window.keys.last(), QString("release 1"));
}

void TestLinuxKeys::keyStillHeldAfterAnOverrunStaysHeld()
{
    Screen screen;
    m_keypad->press(KEY_1);
    m_keypad->press(KEY_OK);
    EVENTUALLY(screen.window.keys.contains("press Menu"));
    m_keypad->drop(usualKeys + QByteArray("held 2\n"));
    EVENTUALLY(screen.window.keys.contains("release Menu"));
    QVERIFY(!screen.window.keys.contains("release 1"));
    m_keypad->release(KEY_1);
    EVENTUALLY_COMPARE(screen.window.keys.last(), QString("release 1"));
    QCOMPARE(int(screen.window.keys.count("press 1")), 1);
}

void TestLinuxKeys::keysAfterAnOverrunAreRead()
{
    Screen screen;
    m_keypad->press(KEY_1);
    m_keypad->drop(usualKeys);
    EVENTUALLY(screen.window.keys.contains("release 1"));
    m_keypad->press(KEY_2);
    m_keypad->release(KEY_2);
    EVENTUALLY_COMPARE(screen.window.keys, (QStringList{"press 1", "release 1", "press 2", "release 2"}));
}

void TestLinuxKeys::handlerMayDeleteTheKeys_data()
{
    QTest::addColumn<QString>("when");
    QTest::newRow("press") << "press 1";
    QTest::newRow("repeat") << "repeat 1";
    QTest::newRow("release") << "release 1";
}

void TestLinuxKeys::handlerMayDeleteTheKeys()
{
    QFETCH(QString, when);
    KeyWidget window;
    makeActive(&window);
    window.setFocus();
    Board::Keys *keys = new Board::Keys;
    window.onKey = [&keys, when](const QString &key) {
        if (key != when)
            return;
        delete keys;
        keys = nullptr;
    };
    m_keypad->press(KEY_1);
    EVENTUALLY(window.keys.contains(when == "repeat 1" ? when : "press 1"));
    m_keypad->release(KEY_1);
    m_keypad->press(KEY_2);
    m_keypad->release(KEY_2);
    EVENTUALLY(!keys);
    passTime(DelayMs + PeriodMs);
    QCOMPARE(window.keys.last(), when);
}

void TestLinuxKeys::eventLoopInAHandlerKeepsTheOrder()
{
    Screen screen;
    QEventLoop loop;
    screen.window.onKey = [this, &loop](const QString &key) {
        if (key == "press 1") {
            m_keypad->press(KEY_3);
            m_keypad->release(KEY_3);
            loop.exec();
        } else if (key == "release 3") {
            loop.quit();
        }
    };
    m_keypad->press(KEY_1);
    m_keypad->release(KEY_1);
    m_keypad->press(KEY_2);
    m_keypad->release(KEY_2);
    EVENTUALLY_COMPARE(screen.window.keys, (QStringList{"press 1", "release 1", "press 2", "release 2", "press 3",
                                                        "release 3"}));
}

// ---- With a configuration of their own ----

void TestLinuxKeys::tableIsThatOfTheFile()
{
    KeyChild child;
    InputDevice device(child, "event0", "keys 1 2 3 30 103 116 200\n");
    child.start("input = @event*\nkey.KEY_UP = F1\nkey.KEY_POWER = Hangup\nkey.0x1e = Menu\nkey.200 = 0x01000010\n"
                "key.KEY_1 = none\n");
    for (int code : {KEY_UP, KEY_POWER, KEY_A, 200, KEY_1, KEY_2, KEY_ESC}) {
        device.press(code);
        device.release(code);
    }
    QVERIFY(child.ends());
    QCOMPARE(child.keys().filter("press"),
             (QStringList{"press F1", "press Hangup", "press Menu", "press Home", "press 2", "press Esc"}));
}

void TestLinuxKeys::badKeyLinesAreReportedWithTheirNumber()
{
    KeyChild child;
    InputDevice device(child, "event0", "keys 1 2 3\n");
    child.start("input = @event*\nkey.KEY_OKAY = Menu\nkey.KEY_1 = F36\nkey.99999 = 1\nkey.2 = m\nkey.KEY_2 = 7\n");
    device.press(KEY_1);
    device.press(KEY_2);
    device.press(KEY_ESC);
    device.release(KEY_ESC);
    QVERIFY(child.ends());
    QCOMPARE(child.keys().mid(0, 3), (QStringList{"press 1", "press 7", "press Esc"}));
    const QString file = "[board] " + child.path("board.conf");
    QCOMPARE(child.log.texts().filter("ignored"),
             (QStringList{file + ":4: the kernel has no key \"KEY_OKAY\", line ignored",
                          file + ":5: there is no key \"F36\", line ignored",
                          file + ":6: the kernel has no key \"99999\", line ignored",
                          file + ":7: there is no key \"m\", line ignored"}));
}

void TestLinuxKeys::repeatsCanBeSwitchedOff()
{
    KeyChild child;
    InputDevice device(child, "event0", "keys 1 2\n");
    child.start("input = @event*\nkey_repeat_delay_ms = 10\nkey_repeat_period_ms = 0\n");
    device.press(KEY_1);
    EVENTUALLY(child.keys().contains("press 1"));
    passTime(300);
    device.press(KEY_ESC);
    device.release(KEY_ESC);
    QVERIFY(child.ends());
    QCOMPARE(child.keys(), (QStringList{"press 1", "press Esc", "release Esc"}));
}

void TestLinuxKeys::devicesAreGrabbedIfWanted_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QByteArray>("state");
    QTest::addColumn<QStringList>("requests");
    QTest::addColumn<bool>("reported");
    const QStringList grabbed("event0 EVIOCGRAB 1");
    QTest::newRow("not said") << QByteArray() << QByteArray() << QStringList() << false;
    QTest::newRow("no") << QByteArray("input_grab = no\n") << QByteArray() << QStringList() << false;
    QTest::newRow("yes") << QByteArray("input_grab = yes\n") << QByteArray() << grabbed << false;
    QTest::newRow("taken") << QByteArray("input_grab = yes\n") << QByteArray("refuse\n") << grabbed << true;
}

void TestLinuxKeys::devicesAreGrabbedIfWanted()
{
    QFETCH(QByteArray, line);
    QFETCH(QByteArray, state);
    QFETCH(QStringList, requests);
    QFETCH(bool, reported);
    KeyChild child;
    InputDevice device(child, "event0", "keys 1\n" + state);
    child.start("input = @event*\n" + line);
    QCOMPARE(child.requests(), requests);
    device.press(KEY_ESC);
    device.release(KEY_ESC);
    QVERIFY(child.ends());
    QCOMPARE(child.log.has("[keys] " + child.path("event0") + ": It cannot be grabbed: Device or resource busy"),
             reported);
    QCOMPARE(child.keys(), (QStringList{"press Esc", "release Esc"}));
}

void TestLinuxKeys::deviceThatMayNotBeReadIsReported()
{
    KeyChild child;
    InputDevice device(child, "event0", "keys 1\n", 0);
    child.start("input = @event*\ninput_scan_ms = 10\n", true);
    const QString problem = "[keys] " + child.path("event0") + ": Permission denied";
    EVENTUALLY(child.log.has(problem));
    passTime(300);
    chmod(child.path("event0").toLocal8Bit().constData(), 0666);
    EVENTUALLY(!child.log.texts().filter(" is read").isEmpty());
    device.press(KEY_ESC);
    device.release(KEY_ESC);
    QVERIFY(child.ends());
    QCOMPARE(int(child.log.texts().filter(problem).size()), 1);
    QCOMPARE(child.keys(), (QStringList{"press Esc", "release Esc"}));
}

void TestLinuxKeys::deviceThatGetsItsRightsLaterIsReadWithoutAWord()
{
    KeyChild child;
    child.start("input = @event*\ninput_scan_ms = 3600000\n", true);
    InputDevice device(child, "event0", "keys 1\n", 0);
    InputDevice other(child, "event1", "keys 2\n", 0666);
    // Both were looked at.
    EVENTUALLY(child.log.has("[keys] " + child.path("event1") + ": It is read"));
    chmod(child.path("event0").toLocal8Bit().constData(), 0666);
    EVENTUALLY(child.log.has("[keys] " + child.path("event0") + ": It is read"));
    device.press(KEY_ESC);
    device.release(KEY_ESC);
    QVERIFY(child.ends());
    QCOMPARE(child.log.texts().filter("Permission denied"), QStringList());
    QCOMPARE(child.keys(), (QStringList{"press Esc", "release Esc"}));
}

void TestLinuxKeys::directoryMayComeLater()
{
    KeyChild child;
    child.start("input = @input/event*\ninput_scan_ms = 50\n");
    QVERIFY(child.log.has("[keys] There is no device yet: " + child.path("input/event*")));
    QDir().mkdir(child.path("input"));
    InputDevice device(child, "event0", "keys 1\n");
    QVERIFY(QFile::link(child.path("event0"), child.path("input/event0")));
    EVENTUALLY(!child.log.texts().filter(" is read").isEmpty());
    device.press(KEY_ESC);
    device.release(KEY_ESC);
    QVERIFY(child.ends());
    QCOMPARE(child.keys(), (QStringList{"press Esc", "release Esc"}));
}

void TestLinuxKeys::deviceThatIsFoundTwiceIsReadOnce()
{
    KeyChild child;
    InputDevice device(child, "event0", "keys 1\n");
    QVERIFY(QFile::link(child.path("event0"), child.path("by-path")));
    child.start("input = @by-*\ninput = @event*\ninput = @event0\ninput_scan_ms = 10\n");
    passTime(200);
    QCOMPARE(child.log.texts().filter("is read"), QStringList("[keys] " + child.path("by-path") + ": It is read"));
}

void TestLinuxKeys::whatIsNoDeviceIsReported()
{
    KeyChild child;
    InputDevice device(child, "event0", "keys 1\n");
    child.write("thing", "no device");
    QDir().mkdir(child.path("things"));
    child.start("input = @thing*\ninput = @event*\ninput_scan_ms = 10\n");
    passTime(300);
    device.press(KEY_ESC);
    device.release(KEY_ESC);
    QVERIFY(child.ends());
    QCOMPARE(child.keys(), (QStringList{"press Esc", "release Esc"}));
    const QString problem = ": Inappropriate ioctl for device";
    QCOMPARE(child.log.texts().filter(problem),
             (QStringList{"[keys] " + child.path("thing") + problem, "[keys] " + child.path("things") + problem}));
}

void TestLinuxKeys::devicesThatComeAndGoAreLogged()
{
    KeyChild child;
    QScopedPointer<InputDevice> device(new InputDevice(child, "event0", "keys 1\nname gpio-keys\n"));
    child.start("input = @event*\n");
    const QString path = "[keys] " + child.path("event0") + ": ";
    QCOMPARE(child.log.texts().filter("[keys]"), QStringList(path + "gpio-keys is read"));
    device.reset();
    EVENTUALLY_COMPARE(child.log.texts().filter("[keys]").mid(1), QStringList(path + "It is gone"));
}

int main(int argc, char **argv)
{
    if (argc > 2 && qstrcmp(argv[1], "--child") == 0) {
        const uid_t nobody = 65534;
        if (qstrcmp(argv[2], "nobody") == 0 && getuid() == 0 && setuid(nobody) != 0)
            return 1;
        return printKeys(argc, argv);
    }
    DeviceDirectory directory;
    MessageSocket log(directory.path("log"));
    devices = &directory;
    const QByteArray place = directory.path("x").chopped(1).toLocal8Bit();
    directory.write("board.conf",
                    "log_device = " + place + "log\ninput = " + place + "event*\nkey_repeat_delay_ms = "
                        + QByteArray::number(DelayMs) + "\nkey_repeat_period_ms = " + QByteArray::number(PeriodMs)
                        + "\nsound_device = none\ninput_scan_ms = 3600000\n");
    qputenv("WIDGET_BOARD_CONF", directory.path("board.conf").toLocal8Bit());
    qputenv("WIDGET_TEST_DEVICES", place);
    qputenv("QT_NO_GLIB", "1");  // the toolkit's own event loop, as on a board
    QApplication application(argc, argv);
    TestLinuxKeys test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_linuxkeys.moc"

// The program of examples/board in a process of its own, on a board whose devices are FIFOs (linuxdevices.h). Keys come
// from its input device; what it shows is seen by VNC, or by what works the other examples (screenprobe/).
//
//     tst_board --pictures DIRECTORY
//         writes board-menu.png, board-clock.png and board-name.png, of 440 by 352 pixels; no test is run. With these
//         docs/board.png is made anew by
//         montage <pictures> -filter point -resize 50% -tile 3x1 -geometry 220x176+5+5 -background '#C9C2BE' -strip
//             docs/board.png

#include "linuxdevices.h"
#include "picturecomparison.h"
#include "vncscreen.h"

#include <csignal>
#include <sys/resource.h>

namespace {

/// Saturday, 7 March 2026, 13:05:09 in the time zone that the program has.
const char Time[] = "1772888709";

/// For those who read what systemd is told meanwhile: where nobody does, it soon cannot be told any more.
const QMap<QString, QString> isToldOften = {{"WATCHDOG_USEC", "600000"}};

const QSize ScreenSize(220, 176);
const QRect FirstRow(0, 38, 220, 46);
const QRect SecondRow(0, 84, 220, 46);

/// The colours of a row's background: at its left end there is nothing else.
QRgb backgroundOf(const QImage &screen, const QRect &row)
{
    return screen.pixel(row.left() + 2, row.top() + 3);
}

/// A board with one keypad. That a thread hangs is said where a test has it hang, not where the machine is slow.
class TestBoard : public DeviceDirectory
{
public:
    explicit TestBoard(const QByteArray &lines = QByteArray())
        : log(path("log")),
          systemd(path("notify"))
    {
        QDir(path("")).mkdir("kept");
        QByteArray text = "log_device = @log\ninput = @event*\ninput_scan_ms = 20\nsound_device = none\n"
                          "clock_device = @rtc0\nthread_timeout_ms = 3600000\n" + lines;
        write("board.conf", text.replace('@', path("x").chopped(1).toLocal8Bit()));
        write("rtc0", QByteArray());
        setState("rtc0", "now");
        plugIn();
    }

    void plugIn()
    {
        const int codes[] = {KEY_1, KEY_2, KEY_3, KEY_4, KEY_5, KEY_6, KEY_7, KEY_8, KEY_9, KEY_0, KEY_OK, KEY_ESC, KEY_F4};
        QByteArray state = "keys";
        for (int code : codes)
            state += ' ' + QByteArray::number(code);
        keys.reset(new InputDevice(*this, "event0", state));
    }

    void unplug() { keys.reset(); }

    QByteArray read(const QString &name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    void strike(int code)
    {
        keys->press(code);
        keys->release(code);
    }

    MessageSocket log;
    MessageSocket systemd;
    QScopedPointer<InputDevice> keys;
};

/// The program of the example, as systemd starts it there.
class Program
{
public:
    /// With \a steps they are taken beside the keys (screenprobe/).
    Program(const TestBoard &board, const QString &platform, const QStringList &steps = QStringList(),
            const QMap<QString, QString> &environment = {})
    {
        QProcessEnvironment all = QProcessEnvironment::systemEnvironment();
        for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "WIDGET_LOG_LEVEL", "QT_FONT_DPI", "QT_QPA_GENERIC_PLUGINS"})
            all.remove(name);
        all.insert("LC_ALL", "C.UTF-8");
        all.insert("LD_PRELOAD", LINUX_DEVICES);
        all.insert("NOTIFY_SOCKET", board.path("notify"));
        all.insert("QT_QPA_PLATFORM", platform);
        all.insert("STATE_DIRECTORY", board.path("kept"));
        all.insert("TZ", "UTC");
        all.insert("WATCHDOG_USEC", "3600000000");
        all.insert("WIDGET_BOARD_CONF", board.path("board.conf"));
        all.insert("WIDGET_TEST_DEVICES", board.path("x").chopped(1));
        if (!steps.isEmpty()) {
            board.write("steps", steps.join('\n').toUtf8());
            all.insert("QT_PLUGIN_PATH", PLUGIN_DIRECTORY);
            all.insert("QT_QPA_GENERIC_PLUGINS", "screenprobe");
            all.insert("SCREENPROBE_STEPS", board.path("steps"));
        }
        for (auto it = environment.begin(); it != environment.end(); ++it)
            all.insert(it.key(), it.value());
        m_process.setProcessEnvironment(all);
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(PROGRAM, QStringList());
        if (!m_process.waitForStarted(LongestWait))
            qFatal("The example cannot be started");
    }

    ~Program()
    {
        if (m_process.state() == QProcess::NotRunning)
            return;
        m_process.kill();
        m_process.waitForFinished(LongestWait);
    }

    void signal(int number) { ::kill(pid_t(m_process.processId()), number); }

    /// Whether it ends, and in order.
    bool ends()
    {
        const bool finished = m_process.state() == QProcess::NotRunning || m_process.waitForFinished(LongestWait);
        return finished && m_process.exitStatus() == QProcess::NormalExit && m_process.exitCode() == 0;
    }

private:
    QProcess m_process;
};

/// While it lives, programs are started to which the disk is full as soon as a file has 1000 bytes.
class FullDisk
{
public:
    FullDisk()
    {
        ::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_limit);
        const rlimit small = {1000, m_limit.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
    }

    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_limit);
        ::signal(SIGXFSZ, SIG_DFL);
    }

private:
    rlimit m_limit;
};

QString vnc(int port)
{
    return QStringLiteral("vnc:size=220x176:port=%1").arg(port);
}

struct Picture
{
    const char *name;
    QStringList steps;
};

/// Those of docs/board.png, from left to right.
const Picture pictures[] = {
    {"menu", {"row Clock", "key 8", "row Time 24 hours"}},
    {"clock", {"row Clock", "key Menu", "text Saturday"}},
    {"name", {"row Clock", "key 2", "row Name", "key 6", "text abc2", "key 2", "key 3"}},
};
const int PictureGap = 5;

QString pictureFile(const QString &directory, const Picture &picture)
{
    return QDir(directory).filePath(QStringLiteral("board-%1.png").arg(picture.name));
}

/// Writes a picture of each screen, four pixels for each, into \a directory.
bool writePictures(const QString &directory)
{
    for (const Picture &picture : pictures) {
        const TestBoard board;
        const QString file = pictureFile(directory, picture);
        Program program(board, "offscreen", picture.steps + QStringList{"picture-2x " + file, "leave"},
                        {{"FIXEDTIME", Time}, {"LD_PRELOAD", LINUX_DEVICES ":" FIXED_TIME}});
        if (!program.ends())
            return false;
        const QImage whole(file);
        QRect part(QPoint(), 2 * ScreenSize);
        part.moveCenter(whole.rect().center());
        if (!whole.copy(part).save(file))
            return false;
    }
    return true;
}

}

class TestBoardExample : public QObject
{
    Q_OBJECT

private slots:
    void keyMovesTheFocusInThePicture();
    void largerDisplayHasTheScreenInItsMiddle();
    void pointOfAnotherSizeChangesTheLetters();
    void clockOpensAndCloses_data();
    void clockOpensAndCloses();
    void nameIsTypedAndKept();
    void settingIsKept();
    void startLeavesTheFileAsItIs();
    void escapeLeavesTheNameAsItWas();
    void settingsThatCannotBeKeptAreNamed();
    void fullDiskLeavesTheFileAsItWas();
    void settingOfAnotherVersionIsKept();
    void startSetsTheTimeOfTheChip();
    void chipThatCannotBeReadIsSaidOnce();
    void isNotWatchedBeforeItHasStarted();
    void systemdHearsOfItsStartAndThatItAnswers();
    void hangIsNoticed();
    void terminationStopsTheWatchdog_data();
    void terminationStopsTheWatchdog();
    void unpluggedKeypadWorksWhenItIsBack();
    void systemdUnderstandsTheUnit();
    void guideShowsItAsItIs();
};

void TestBoardExample::keyMovesTheFocusInThePicture()
{
    TestBoard board;
    const int port = VncScreen::freePort();
    const Program program(board, vnc(port));
    VncScreen screen;
    QVERIFY(screen.connectTo(port));
    QImage before;
    EVENTUALLY((before = screen.picture()).size() == ScreenSize
               && backgroundOf(before, FirstRow) != backgroundOf(before, SecondRow));

    board.strike(KEY_8);
    QImage after;
    EVENTUALLY(backgroundOf(after = screen.picture(), FirstRow) == backgroundOf(before, SecondRow));
    QCOMPARE(backgroundOf(after, SecondRow), backgroundOf(before, FirstRow));
    board.strike(KEY_2);
    EVENTUALLY(backgroundOf(screen.picture(), FirstRow) == backgroundOf(before, FirstRow));
}

void TestBoardExample::largerDisplayHasTheScreenInItsMiddle()
{
    TestBoard board;
    Program program(board, "offscreen", {"row Clock", "picture " + board.path("all.png"), "leave"});
    QVERIFY(program.ends());
    const QImage all(board.path("all.png"));
    QVERIFY(all.width() > ScreenSize.width() && all.height() > ScreenSize.height());
    QRect middle(QPoint(), ScreenSize);
    middle.moveCenter(all.rect().center());
    for (int y = 0; y < all.height(); ++y) {
        for (int x = 0; x < all.width(); ++x)
            QVERIFY(middle.contains(x, y) || all.pixel(x, y) == qRgb(0, 0, 0));
    }
    QVERIFY(backgroundOf(all.copy(middle), FirstRow) != qRgb(0, 0, 0));
}

void TestBoardExample::pointOfAnotherSizeChangesTheLetters()
{
    TestBoard board;
    QList<QImage> rows;
    for (const char *dpi : {"", "72", "36"}) {
        const int port = VncScreen::freePort();
        const Program program(board, vnc(port), {}, {{"QT_FONT_DPI", dpi}});
        VncScreen screen;
        QVERIFY(screen.connectTo(port));
        QImage whole;
        EVENTUALLY((whole = screen.picture()).size() == ScreenSize
                   && backgroundOf(whole, FirstRow) != backgroundOf(whole, SecondRow));
        rows += whole.copy(SecondRow);
    }
    QCOMPARE(rows.at(0), rows.at(1));
    QVERIFY(rows.at(2) != rows.at(1));
}

void TestBoardExample::clockOpensAndCloses_data()
{
    QTest::addColumn<int>("opening");
    QTest::newRow("by OK") << KEY_OK;
    QTest::newRow("by right") << KEY_6;
}

void TestBoardExample::clockOpensAndCloses()
{
    QFETCH(int, opening);
    TestBoard board;
    Program program(board, "offscreen", {"row Clock", "picture " + board.path("menu.png"),
                                         "image clock_separator", "picture " + board.path("clock.png"), "row Clock",
                                         "same " + board.path("menu.png"), "leave"});
    EVENTUALLY(QFile::exists(board.path("menu.png")));
    board.strike(opening);
    EVENTUALLY(QFile::exists(board.path("clock.png")));
    board.strike(KEY_ESC);
    QVERIFY(program.ends());
    QCOMPARE(board.log.texts(), QStringList());
}

void TestBoardExample::nameIsTypedAndKept()
{
    TestBoard board;
    {
        Program program(board, "offscreen", {"row Clock", "picture " + board.path("a.png"), "row Name",
                                             "picture " + board.path("b.png"), "text b", "picture " + board.path("c.png"),
                                             "row Name: b", "leave"});
        EVENTUALLY(QFile::exists(board.path("a.png")));
        board.strike(KEY_2);  // up, around the end
        EVENTUALLY(QFile::exists(board.path("b.png")));
        board.strike(KEY_OK);
        board.strike(KEY_2);
        board.strike(KEY_2);
        EVENTUALLY(QFile::exists(board.path("c.png")));
        board.strike(KEY_OK);
        QVERIFY(program.ends());
    }
    Program again(board, "offscreen", {"row Clock", "key 2", "row Name: b", "leave"});
    QVERIFY(again.ends());
}

void TestBoardExample::settingIsKept()
{
    TestBoard board;
    for (const char *hours : {"24 hours", "12 hours"}) {
        Program program(board, "offscreen", {"row Clock", "key 8", QStringLiteral("row Time ") + hours, "key 6", "leave"});
        QVERIFY(program.ends());
    }
}

void TestBoardExample::startLeavesTheFileAsItIs()
{
    TestBoard board;
    const QByteArray kept = "[General]\nclicks=loud\nname=Ann\n; what another version keeps\ncolour=red\n";
    board.write("kept/board.ini", kept);
    Program program(board, "offscreen", {"row Clock", "key 2", "row Name: Ann", "key 6", "text Ann", "key Menu", "row Name: Ann",
                                         "leave"});
    QVERIFY(program.ends());
    QCOMPARE(board.read("kept/board.ini"), kept);
}

void TestBoardExample::escapeLeavesTheNameAsItWas()
{
    TestBoard board;
    Program program(board, "offscreen", {"row Clock", "key 2", "row Name", "key Menu", "text abc2", "key 2", "text a",
                                         "key Escape", "row Name", "leave"});
    QVERIFY(program.ends());
}

void TestBoardExample::settingsThatCannotBeKeptAreNamed()
{
    TestBoard board;
    QDir(board.path("kept")).removeRecursively();
    board.write("kept", "a file where the directory should be");
    Program program(board, "offscreen", {"row Clock", "text Settings", "key 8", "key 6", "row Time 12 hours",
                                         "text Settings (not kept)", "leave"});
    QVERIFY(program.ends());
}

void TestBoardExample::fullDiskLeavesTheFileAsItWas()
{
    TestBoard board;
    const QByteArray kept = "[General]\nclicks=On\ncolour=" + QByteArray(2000, 'r') + "\nhours=12 hours\nname=Ann\n";
    board.write("kept/board.ini", kept);
    QScopedPointer<Program> program;
    {
        const FullDisk disk;
        program.reset(new Program(board, "offscreen", {"row Clock", "text Settings", "key 8", "row Time 12 hours", "key 6",
                                                       "row Time 24 hours", "text Settings (not kept)", "leave"}));
    }
    QVERIFY(program->ends());
    QCOMPARE(board.read("kept/board.ini"), kept);
}

void TestBoardExample::settingOfAnotherVersionIsKept()
{
    TestBoard board;
    board.write("kept/board.ini", "[General]\ncolour=red\nhours=12 hours\n\n[Radio]\nstation=7\n");
    Program program(board, "offscreen", {"row Clock", "key 8", "row Time 12 hours", "key 6", "row Time 24 hours", "leave"});
    QVERIFY(program.ends());
    const QSettings kept(board.path("kept/board.ini"), QSettings::IniFormat);
    QCOMPARE(kept.value("colour").toString(), QString("red"));
    QCOMPARE(kept.value("hours").toString(), QString("24 hours"));
    QCOMPARE(kept.value("Radio/station").toString(), QString("7"));
}

void TestBoardExample::startSetsTheTimeOfTheChip()
{
    TestBoard board;
    board.setState("rtc0", "2031-05-06 07:08:09");
    Program program(board, "offscreen", {"row Clock", "leave"});
    QVERIFY(program.ends());
    QCOMPARE(board.requests(), QStringList("clock_settime 1935817689"));
    QCOMPARE(board.log.texts(), QStringList());
}

void TestBoardExample::chipThatCannotBeReadIsSaidOnce()
{
    TestBoard board;
    QFile::remove(board.path("state/rtc0"));
    Program program(board, "offscreen", {"row Clock", "leave"});
    QVERIFY(program.ends());
    QCOMPARE(board.log.texts(), QStringList("[clock] " + board.path("rtc0") + ": Input/output error"));
    QCOMPARE(board.requests(), QStringList());
}

void TestBoardExample::isNotWatchedBeforeItHasStarted()
{
    TestBoard board;
    const Program program(board, "offscreen");
    EVENTUALLY(board.systemd.messages().contains("WATCHDOG=1"));
    QCOMPARE(board.systemd.messages().first(), QString("READY=1"));
}

void TestBoardExample::systemdHearsOfItsStartAndThatItAnswers()
{
    TestBoard board;
    Program program(board, "offscreen", {}, isToldOften);
    EVENTUALLY(board.systemd.messages().contains("READY=1"));
    EVENTUALLY(board.systemd.messages().count("WATCHDOG=1") >= 4);
    program.signal(SIGTERM);
    EVENTUALLY_COMPARE(board.systemd.messages().last(), QString("STOPPING=1"));
    QVERIFY(program.ends());
    QCOMPARE(board.log.texts(), QStringList());
}

// The screens wait for a clock chip that does not answer.
void TestBoardExample::hangIsNoticed()
{
    TestBoard board("thread_timeout_ms = 3000\n");
    QFile::remove(board.path("state/rtc0"));
    Fifo chip(board.path("state/rtc0"));
    Program program(board, "offscreen", {}, isToldOften);
    const QRegularExpression hangs("^\\[watchdog\\] \"screens\" has not answered for \\S+ s, systemd is not told$");
    EVENTUALLY(board.systemd.messages().contains("WATCHDOG=1") && !board.log.texts().filter(hangs).isEmpty());
    const QStringList told = board.systemd.messages();
    passTime(1000);  // five times what is otherwise between two messages
    QCOMPARE(board.systemd.messages(), told);

    const char answer[] = "2031-05-06 07:08:09\n";
    chip.write(answer, sizeof(answer) - 1);
    EVENTUALLY(board.systemd.messages().size() > told.size());
    QVERIFY(!board.log.texts().filter("\"screens\" answers again after ").isEmpty());
    program.signal(SIGTERM);
    EVENTUALLY_COMPARE(board.systemd.messages().last(), QString("STOPPING=1"));
    QVERIFY(program.ends());
    QCOMPARE(board.requests(), QStringList("clock_settime 1935817689"));
}

void TestBoardExample::terminationStopsTheWatchdog_data()
{
    QTest::addColumn<int>("number");
    QTest::newRow("SIGTERM") << SIGTERM;
    QTest::newRow("SIGINT") << SIGINT;
    QTest::newRow("SIGHUP") << SIGHUP;
}

void TestBoardExample::terminationStopsTheWatchdog()
{
    QFETCH(int, number);
    ::signal(number, SIG_DFL);  // nohup has the program start otherwise
    TestBoard board("watchdog_device = @watchdog\nwatchdog_s = 1\n");
    Fifo watchdog(board.path("watchdog"));
    Program program(board, "offscreen");
    QByteArray fed;
    EVENTUALLY((fed += watchdog.readAll()).size() >= 3);
    EVENTUALLY(board.systemd.messages().contains("READY=1"));
    program.signal(number);
    QVERIFY(program.ends());
    QVERIFY((fed += watchdog.readAll()).endsWith('V'));
}

void TestBoardExample::unpluggedKeypadWorksWhenItIsBack()
{
    TestBoard board("log_level = 16\n");
    Program program(board, "offscreen", {"row Clock", "picture " + board.path("a.png"), "row Time 24 hours",
                                         "picture " + board.path("b.png"), "row Key clicks On", "leave"});
    EVENTUALLY(QFile::exists(board.path("a.png")));
    board.keys->press(KEY_8);
    board.unplug();  // lets go of the key
    EVENTUALLY(QFile::exists(board.path("b.png")));
    EVENTUALLY(board.log.has("[keys] " + board.path("event0") + ": It is gone"));
    board.plugIn();
    EVENTUALLY(board.log.texts().filter("is read").size() == 2);
    board.strike(KEY_8);
    QVERIFY(program.ends());
}

void TestBoardExample::systemdUnderstandsTheUnit()
{
    if (!STARTS_PROGRAMS_OF_THIS_MACHINE || !QFile::exists("/usr/bin/systemd-analyze"))
        QSKIP("There is no systemd-analyze that can be run");
    QFile unit(UNIT);
    QVERIFY(unit.open(QIODevice::ReadOnly));
    QByteArray text = unit.readAll();
    const QByteArray installed = "ExecStart=" INSTALLED_PROGRAM "\n";
    QVERIFY(text.contains(installed));
    const DeviceDirectory directory;
    directory.write("board.service", text.replace(installed, "ExecStart=" PROGRAM "\n"));
    QProcess systemd;
    systemd.setProcessChannelMode(QProcess::MergedChannels);
    systemd.start("/usr/bin/systemd-analyze", {"verify", "--man=no", directory.path("board.service")});
    QVERIFY(systemd.waitForFinished(LongestWait));
    // It reads those of this machine, too.
    QCOMPARE(QString(systemd.readAll()).split('\n').filter("board.service"), QStringList());
    QCOMPARE(systemd.exitCode(), 0);
}

void TestBoardExample::guideShowsItAsItIs()
{
    const QTemporaryDir directory;
    QVERIFY(writePictures(directory.path()));
    const QImage all(GUIDE_PICTURE);
    QRect place(QPoint(PictureGap, PictureGap), ScreenSize);
    for (const Picture &picture : pictures) {
        const QImage now = QImage(pictureFile(directory.path(), picture)).scaled(ScreenSize);
        const int differing = differingPixels(now, all.copy(place));
        QVERIFY2(differing < now.width() * now.height() / 50, picture.name);
        place.translate(ScreenSize.width() + 2 * PictureGap, 0);
    }
}

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.value(1) == "--pictures")
        return writePictures(arguments.value(2)) ? 0 : 1;
    TestBoardExample test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_board.moc"

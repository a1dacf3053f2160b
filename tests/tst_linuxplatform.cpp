#include "linuxdevices.h"

#include "platform/linux/boardclock.h"
#include "platform/linux/boardconfig.h"
#include "platform/linux/boardlog.h"
#include "platform/linux/boardservice.h"
#include "platform/linux/boardsound.h"
#include "platform/linux/boardstringrc.h"
#include "platform/linux/boardwatchdog.h"
#include "platform/logging.h"
#include "platform/soundmanager.h"
#include "platform/stringrc.h"
#include "platform/systemtime.h"
#include "platform/util.h"

#include <QtTest>

#include <atomic>
#include <cerrno>
#include <cmath>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <sys/file.h>
#include <sys/resource.h>
#include <thread>

namespace {

const QString LogName = "log";

// ---- What children do ----

/// Waits for the next line of the parent. Returns nothing at the end.
std::string nextLine()
{
    std::string line;
    return std::getline(std::cin, line) ? line : std::string();
}

void print(const std::string &line)
{
    std::cout << line << std::endl;
}

void giveUpRights()
{
    const uid_t nobody = 65534;
    if (getuid() == 0 && setuid(nobody) != 0)
        std::abort();
}

void logLines(const QStringList &arguments)
{
    const int level = arguments[0].toInt();
    const int count = arguments[1].toInt();
    const std::string text = arguments[2].toStdString();
    for (int i = 0; i < count; ++i)
        Logging::log(Logging::LogLevel(level), "%s", text.c_str());
}

void logSteps()
{
    for (std::string line = nextLine(); !line.empty(); line = nextLine()) {
        Logging::log(Logging::LogError, "%s", line.c_str());
        print("logged");
    }
}

void logFromThreads()
{
    std::vector<std::thread> threads;
    for (char letter = 'a'; letter < 'i'; ++letter) {
        threads.emplace_back([letter] {
            const std::string text(3000, letter);
            for (int i = 0; i < 50; ++i)
                Logging::log(Logging::LogError, "%s", text.c_str());
        });
    }
    for (std::thread &thread : threads)
        thread.join();
}

// Standard error is a pipe that takes nothing, and later everything.
void logToFullErrors()
{
    int ends[2];
    if (pipe(ends) != 0)
        std::abort();
    dup2(ends[1], STDERR_FILENO);
    fcntl(ends[0], F_SETFL, O_NONBLOCK);
    fcntl(ends[1], F_SETFL, O_NONBLOCK);
    char bytes[4096] = {};
    while (write(ends[1], bytes, 1) == 1) {
    }
    fcntl(ends[1], F_SETFL, 0);
    for (int i = 0; i < 3; ++i)
        Logging::log(Logging::LogError, "unheard");
    while (read(ends[0], bytes, sizeof(bytes)) > 0) {
    }
    Logging::log(Logging::LogError, "heard");
    const ssize_t length = read(ends[0], bytes, sizeof(bytes));
    print(std::string(bytes, std::size_t(qMax<ssize_t>(length, 0))));
}

// Nobody reads standard error, and who writes to it gets a signal.
void logToClosedErrors()
{
    int ends[2];
    if (pipe(ends) != 0)
        std::abort();
    dup2(ends[1], STDERR_FILENO);
    close(ends[0]);
    close(ends[1]);
    Logging::log(Logging::LogError, "unheard");
    print("alive");
}

// Standard error is a file on a disk that is full for a while.
void logToFullDisk(const QStringList &arguments)
{
    const std::string path = arguments[0].toStdString();
    const int file = open(path.c_str(), O_RDWR | O_CREAT | O_APPEND, 0600);
    dup2(file, STDERR_FILENO);
    signal(SIGXFSZ, SIG_IGN);
    rlimit limit;
    getrlimit(RLIMIT_FSIZE, &limit);
    const rlimit full = {10, limit.rlim_max};
    setrlimit(RLIMIT_FSIZE, &full);
    for (int i = 0; i < 3; ++i)
        Logging::log(Logging::LogError, "cut");
    setrlimit(RLIMIT_FSIZE, &limit);
    Logging::log(Logging::LogError, "whole");
    Logging::log(Logging::LogError, "too");
}

void logAndKeepErrno()
{
    errno = ENOTDIR;
    Logging::log(Logging::LogError, "x");
    print(errno == ENOTDIR ? "kept" : "changed");
}

void printConfig()
{
    const Board::Config &c = Board::config();
    std::cout << c.logDevice << '|' << c.logName << '|' << c.logFacility << '|' << c.logLevel << '|' << c.watchdogDevice
              << '|' << c.watchdogSeconds << '|' << c.watchdogStopsAtExit << '|' << c.threadTimeoutMs << '|'
              << c.clockDevice << '|' << c.clockIsLocal << '|' << c.clockEarliestYear << '|' << c.soundDevice << '|'
              << c.soundVolume << '|' << c.languageFile << '|' << c.inputGrab << '|' << c.inputScanMs << '|'
              << c.repeatDelayMs << '|' << c.repeatPeriodMs;
    for (const std::string &input : c.inputs)
        std::cout << "|input " << input;
    for (const Board::Config::KeyLine &key : c.keys)
        std::cout << '|' << key.line << ' ' << key.name << ' ' << key.value;
    std::cout << std::endl;
}

// One word each line: "start x", "kick x", "stop x" as the thread of main(), "hanging", "fed", "watch", "die"; "own" makes
// systemd mean this process, and "started" tells it so.
void watchSteps()
{
    for (std::string line = nextLine(); !line.empty(); line = nextLine()) {
        const std::string name = line.substr(line.find(' ') + 1);
        std::string answer = "done";
        if (line.find("start ") == 0) {
            Util::startWatchThread(name);
        } else if (line.find("kick") == 0) {
            Util::kickDog(name);
        } else if (line.find("stop") == 0) {
            Util::stopWatchThread(name);
        } else if (line == "watch") {
            Board::startWatchdog();
        } else if (line == "own") {
            setenv("WATCHDOG_PID", std::to_string(getpid()).c_str(), 1);
        } else if (line == "started") {
            answer = Board::tellStarted() ? "told" : "untold";
        } else if (line == "die") {
            raise(SIGKILL);
        } else if (line == "hanging") {
            answer = "hanging:";
            for (const std::string &thread : Board::hangingThreads())
                answer += ' ' + thread;
        } else if (line == "fed") {
            answer = Board::isWatchdogFed() ? "fed" : "unfed";
        }
        print(answer);
    }
}

// A thread that answers, as long as the parent wants.
void watchAnswering()
{
    std::atomic<bool> ending(false);
    std::thread thread([&ending] {
        Util::startWatchThread("lively");
        while (!ending) {
            Util::kickDog("lively");
            Util::delayMs(5);
        }
        Util::stopWatchThread("lively");
    });
    watchSteps();
    ending = true;
    thread.join();
}

void setTimes()
{
    for (std::string line = nextLine(); !line.empty(); line = nextLine())
        print(set_time() ? "set" : "not set");
}

void setTimesFromThreads()
{
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([] {
            for (int time = 0; time < 25; ++time)
                set_time();
        });
    }
    for (std::thread &thread : threads)
        thread.join();
}

void printLocalTimes()
{
    for (std::string line = nextLine(); !line.empty(); line = nextLine()) {
        setenv("TZ", line.c_str(), 1);
        const tm *local = Util::localtime(86400);
        print(std::to_string(local->tm_mday) + ' ' + std::to_string(local->tm_hour));
    }
}

// One id each line.
void playSteps()
{
    for (std::string line = nextLine(); !line.empty(); line = nextLine()) {
        if (line == "mute")
            Board::setMuted(true);
        else
            SoundManager::getInstance()->sndPlay(std::stoi(line));
        print("returned");
    }
}

void printDirections()
{
    print(StringRC::getInstance()->m_rightToLeft ? "rtl" : "ltr");
    for (std::string line = nextLine(); !line.empty(); line = nextLine())
        print(Board::readDirection() ? "rtl" : "ltr");
}

void doJob(QStringList arguments)
{
    QString job = arguments.takeFirst();
    if (job == "nobody") {
        giveUpRights();
        job = arguments.takeFirst();
    }
    if (job == "log")
        logLines(arguments);
    else if (job == "logSteps")
        logSteps();
    else if (job == "logFromThreads")
        logFromThreads();
    else if (job == "logToFullErrors")
        logToFullErrors();
    else if (job == "logToClosedErrors")
        logToClosedErrors();
    else if (job == "logToFullDisk")
        logToFullDisk(arguments);
    else if (job == "logAndKeepErrno")
        logAndKeepErrno();
    else if (job == "printConfig")
        printConfig();
    else if (job == "watchSteps")
        watchSteps();
    else if (job == "watchAnswering")
        watchAnswering();
    else if (job == "setTimes")
        setTimes();
    else if (job == "setTimesFromThreads")
        setTimesFromThreads();
    else if (job == "printLocalTimes")
        printLocalTimes();
    else if (job == "playSteps")
        playSteps();
    else if (job == "printDirections")
        printDirections();
    else if (job == "setLevelAndLog") {
        Board::setLogLevel(arguments.takeFirst().toInt());
        logLines(arguments);
    }
}

// ---- What the tests share ----

/// A board with its log; "board.conf" names that and what else a test says.
class TestBoard : public DeviceDirectory
{
public:
    explicit TestBoard(const QByteArray &lines = QByteArray())
        : log(path(LogName))
    {
        configure(lines);
    }

    void configure(const QByteArray &lines)
    {
        QByteArray text = "log_device = @log\n" + lines;
        write("board.conf", text.replace('@', path("x").chopped(1).toLocal8Bit()));
    }

    MessageSocket log;
};

double strengthAt(double hz, const QByteArray &raw)
{
    std::vector<short> samples(std::size_t(raw.size() / 2));
    std::memcpy(samples.data(), raw.constData(), samples.size() * sizeof(short));
    const int count = int(samples.size());
    double re = 0;
    double im = 0;
    for (int i = 0; i < count; ++i) {
        const double angle = 2 * std::acos(-1.0) * hz * i / 44100;
        re += samples[i] * std::cos(angle);
        im += samples[i] * std::sin(angle);
    }
    return count == 0 ? 0 : 2 * std::hypot(re, im) / (32767.0 * count);
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// A card of ALSA's that writes what it is to play into the file "sound" of the board, without a word about time.
const char soundCard[] = "sound_device = file:FILE=@sound,FORMAT=raw\n";

bool hasSound()
{
    return WIDGET_HAS_ALSA;
}

}

class TestLinuxPlatform : public QObject
{
    Q_OBJECT

private slots:
    void lineSaysLevelThreadAndMessage();
    void priorityAndNameAreThoseOfTheFile_data();
    void priorityAndNameAreThoseOfTheFile();
    void logShowsLevelsUpTo_data();
    void logShowsLevelsUpTo();
    void controlCharactersBecomeBlanks();
    void longLineIsCut();
    void linesOfThreadsNeverMix();
    void linesThatNobodyTakesInTimeAreCounted();
    void withoutSyslogLinesGoToStandardError();
    void syslogThatIsStartedAnewIsFoundAgain();
    void fullStandardErrorDoesNotBlock();
    void lineCutByAFullDiskIsEndedAndCounted();
    void closedStandardErrorDoesNoHarm();
    void logKeepsErrno();

    void sampleFileIsWhatCountsWithoutIt();
    void badLineIsReportedWithItsNumberAndIgnored_data();
    void badLineIsReportedWithItsNumberAndIgnored();
    void goodLinesAroundBadOnesCount();
    void manyBadLinesAreCounted();
    void fileThatCannotBeReadIsReported_data();
    void fileThatCannotBeReadIsReported();
    void fileIsReadAsFarAsALimit_data();
    void fileIsReadAsFarAsALimit();
    void fileThatFailsWhileItIsReadIsReported();

    void hardwareWatchdogIsFedAndStoppedAtExit();
    void hardwareWatchdogMayGoOnAfterExit();
    void hardwareWatchdogGoesOnAfterACrash();
    void hangingThreadIsNamedAndEndsFeeding();
    void oneHangingThreadIsEnough();
    void failedWatchdogIsNotOpenedAgainWhileAThreadHangs();
    void threadThatStopsIsNotWatched();
    void unknownThreadIsReported();
    void timeOfTheWatchdogIsItsOwn_data();
    void timeOfTheWatchdogIsItsOwn();
    void watchdogThatCannotBeOpenedIsReported_data();
    void watchdogThatCannotBeOpenedIsReported();
    void watchdogThatTakesNothingIsReportedAndFedLater();
    void watchdogOfThisMachineIsFedAndStopped();

    void systemdIsToldOfTheStart_data();
    void systemdIsToldOfTheStart();
    void withoutSystemdNobodyIsTold_data();
    void withoutSystemdNobodyIsTold();
    void systemdThatIsGoneIsReportedOnce();
    void systemdIsToldAsLongAsNoThreadHangs();
    void systemdThatWatchesSomethingElseIsNotTold_data();
    void systemdThatWatchesSomethingElseIsNotTold();

    void chipSetsTheSystemTime_data();
    void chipSetsTheSystemTime();
    void sameSecondIsLeftAlone();
    void chipThatCannotHelpChangesNothing_data();
    void chipThatCannotHelpChangesNothing();
    void systemTimeThatMayNotBeSetIsReported();
    void reasonIsLoggedOnce();
    void threadsDoNotTakeTheChipFromEachOther();
    void chipThatIsTakenIsTriedAgain();
    void chipThatStaysTakenIsReported();
    void signalDoesNotEndTheReadingOfTheChip();
    void chipOfThisMachineIsRead();
    void tickCountsSeconds();
    void localTimeFollowsTheZone();

    void clickAndDigitsAreHeard_data();
    void clickAndDigitsAreHeard();
    void volumeIsThatOfTheFile();
    void boardIsSilentWithoutACard();
    void cardThatHangsHoldsNobodyUp();
    void cardThatIsBackPlaysTheLastSounds();
    void silentBoardOpensNoCard_data();
    void silentBoardOpensNoCard();
    void cardOfThisMachinePlays();

    void directionIsThatOfTheLocale_data();
    void directionIsThatOfTheLocale();
    void directionIsThatOfTheFile();
    void fileOfTheLanguageThatCannotBeReadIsReported();
};

// ---- The log ----

void TestLinuxPlatform::lineSaysLevelThreadAndMessage()
{
    TestBoard board;
    Child child(board, {"log", "2", "1", "Volume is 7"});
    QVERIFY(child.ends());
    QCOMPARE(board.log.messages().size(), 1);
    const QRegularExpression form(
        "^<11>[A-Z][a-z]{2} [ 123]\\d \\d\\d:\\d\\d:\\d\\d tst_linuxplatform\\[\\d+\\]: error tst_linuxplatfo#\\d+  Volume is 7$");
    QVERIFY2(form.match(board.log.messages()[0]).hasMatch(), qPrintable(board.log.messages()[0]));
}

void TestLinuxPlatform::priorityAndNameAreThoseOfTheFile_data()
{
    QTest::addColumn<QByteArray>("lines");
    QTest::addColumn<QString>("level");
    QTest::addColumn<QString>("start");
    QTest::newRow("error") << QByteArray() << "2" << "<11>";
    QTest::newRow("trace") << QByteArray() << "16" << "<15>";
    QTest::newRow("notice") << QByteArray() << "128" << "<13>";
    QTest::newRow("daemon") << QByteArray("log_facility = daemon\n") << "2" << "<27>";
    QTest::newRow("local7") << QByteArray("log_facility = local7\n") << "128" << "<189>";
}

void TestLinuxPlatform::priorityAndNameAreThoseOfTheFile()
{
    QFETCH(QByteArray, lines);
    QFETCH(QString, level);
    QFETCH(QString, start);
    TestBoard board(lines + "log_level = 128\nlog_name = radio\n");
    Child child(board, {"log", level, "1", "x"});
    QVERIFY(child.ends());
    QCOMPARE(board.log.messages().size(), 1);
    QVERIFY2(board.log.messages()[0].startsWith(start), qPrintable(board.log.messages()[0]));
    QVERIFY2(board.log.messages()[0].contains(" radio["), qPrintable(board.log.messages()[0]));
}

void TestLinuxPlatform::logShowsLevelsUpTo_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("environment");
    QTest::addColumn<QString>("call");
    QTest::addColumn<QString>("level");
    QTest::addColumn<bool>("shown");
    const QByteArray file16 = "log_level = 16\n";
    QTest::newRow("error, nothing said") << QByteArray() << QString() << QString() << "2" << true;
    QTest::newRow("trace, nothing said") << QByteArray() << QString() << QString() << "16" << false;
    QTest::newRow("trace, file") << file16 << QString() << QString() << "16" << true;
    QTest::newRow("notice, file") << file16 << QString() << QString() << "128" << false;
    QTest::newRow("notice, environment over file") << file16 << "128" << QString() << "128" << true;
    QTest::newRow("error, environment says nothing at all") << file16 << "0" << QString() << "2" << false;
    QTest::newRow("trace, environment is no number") << file16 << "all" << QString() << "16" << true;
    QTest::newRow("trace, environment out of range") << file16 << "1001" << QString() << "16" << true;
    QTest::newRow("trace, call over environment") << file16 << "128" << "2" << "16" << false;
}

void TestLinuxPlatform::logShowsLevelsUpTo()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, environment);
    QFETCH(QString, call);
    QFETCH(QString, level);
    QFETCH(bool, shown);
    TestBoard board(line);
    QMap<QString, QString> variables;
    if (!environment.isNull())
        variables["WIDGET_LOG_LEVEL"] = environment;
    const QStringList set = call.isNull() ? QStringList("log") : QStringList{"setLevelAndLog", call};
    Child child(board, set + QStringList{level, "1", "x"}, variables);
    QVERIFY(child.ends());
    QCOMPARE(board.log.has("x"), shown);
}

void TestLinuxPlatform::controlCharactersBecomeBlanks()
{
    TestBoard board;
    Child child(board, {"log", "2", "1", "one\ntwo\x1b[31m\tthree\n\n"});
    QVERIFY(child.ends());
    QCOMPARE(board.log.texts(), QStringList("one two [31m three"));
}

void TestLinuxPlatform::longLineIsCut()
{
    TestBoard board;
    Child child(board, {"log", "2", "1", QString(20000, 'x')});
    QVERIFY(child.ends());
    QCOMPARE(board.log.texts(), QStringList(QString(7997, 'x') + "..."));
}

void TestLinuxPlatform::linesOfThreadsNeverMix()
{
    TestBoard board;
    Child child(board, {"logFromThreads"});
    int lines = 0;
    const auto look = [&board, &lines] {
        const QStringList texts = board.log.texts();
        for (const QString &text : texts) {
            if (text.startsWith("[log] "))
                continue;
            if (text != QString(3000, text[0]))
                return false;
        }
        lines = int(texts.size());
        return true;
    };
    EVENTUALLY(look() && lines > 0);
    QVERIFY(child.ends());
    QVERIFY(look());
}

void TestLinuxPlatform::linesThatNobodyTakesInTimeAreCounted()
{
    TestBoard board;
    Child child(board, {"logSteps"});
    const int count = 2000;
    for (int i = 0; i < count; ++i)
        child.tell("x");
    EVENTUALLY_COMPARE(int(child.output().count("logged")), count);
    const int received = int(board.log.messages().size());
    QVERIFY(received > 0);
    QVERIFY(received < count);
    child.tell("after");
    QVERIFY(child.ends());
    const QStringList after = board.log.texts().mid(received);
    QCOMPARE(after, (QStringList{QString("[log] %1 lines were lost").arg(count - received), "after"}));
}

void TestLinuxPlatform::withoutSyslogLinesGoToStandardError()
{
    DeviceDirectory board;
    board.write("board.conf", "log_device = " + board.path("none").toLocal8Bit() + "\nlog_name = radio\n");
    Child child(board, {"log", "2", "2", "x"});
    QVERIFY(child.ends());
    const QRegularExpression form("^(\\w{3} [ 123]\\d [\\d:]{8} radio\\[\\d+\\]: error tst_linuxplatfo#\\d+  x\n){2}$");
    QVERIFY2(form.match(child.errors()).hasMatch(), qPrintable(child.errors()));
}

void TestLinuxPlatform::syslogThatIsStartedAnewIsFoundAgain()
{
    DeviceDirectory board;
    board.write("board.conf", "log_device = " + board.path(LogName).toLocal8Bit() + '\n');
    QScopedPointer<MessageSocket> log(new MessageSocket(board.path(LogName)));
    Child child(board, {"logSteps"});
    child.tell("one");
    EVENTUALLY(log->has("one"));
    log.reset();
    child.tell("two");
    EVENTUALLY(child.errors().endsWith("  two\n"));
    log.reset(new MessageSocket(board.path(LogName)));
    child.tell("three");
    EVENTUALLY(log->has("three"));
    QVERIFY(child.ends());
    QCOMPARE(log->texts(), QStringList("three"));
}

void TestLinuxPlatform::fullStandardErrorDoesNotBlock()
{
    DeviceDirectory board;
    board.write("board.conf", "log_device = " + board.path("none").toLocal8Bit() + '\n');
    Child child(board, {"logToFullErrors"});
    QVERIFY(child.ends());
    const QStringList lines = child.output().split('\n');
    QVERIFY2(lines[0].endsWith("  [log] 3 lines were lost"), qPrintable(lines[0]));
    QVERIFY2(lines.value(1).endsWith("  heard"), qPrintable(lines.value(1)));
}

void TestLinuxPlatform::lineCutByAFullDiskIsEndedAndCounted()
{
    DeviceDirectory board;
    board.write("board.conf", "log_device = " + board.path("none").toLocal8Bit() + '\n');
    Child child(board, {"logToFullDisk", board.path("errors")});
    QVERIFY(child.ends());
    const QList<QByteArray> lines = contentOf(board.path("errors")).split('\n');
    QCOMPARE(int(lines.size()), 5);
    QCOMPARE(int(lines[0].size()), 10);
    QVERIFY2(lines[1].endsWith("  [log] 3 lines were lost"), lines[1].constData());
    QVERIFY2(lines[2].endsWith("  whole"), lines[2].constData());
    QVERIFY2(lines[3].endsWith("  too"), lines[3].constData());
    QCOMPARE(lines[4], QByteArray());
}

void TestLinuxPlatform::closedStandardErrorDoesNoHarm()
{
    DeviceDirectory board;
    board.write("board.conf", "log_device = " + board.path("none").toLocal8Bit() + '\n');
    Child child(board, {"logToClosedErrors"});
    QVERIFY(child.ends());
    QCOMPARE(child.output(), QString("alive\n"));
}

void TestLinuxPlatform::logKeepsErrno()
{
    DeviceDirectory board;
    board.write("board.conf", "log_device = " + board.path("none").toLocal8Bit() + '\n');
    Child child(board, {"logAndKeepErrno"});
    QVERIFY(child.ends());
    QCOMPARE(child.output(), QString("kept\n"));
}

// ---- The configuration ----

void TestLinuxPlatform::sampleFileIsWhatCountsWithoutIt()
{
    DeviceDirectory board;
    board.write("board.conf", contentOf(SAMPLE_FILE));
    board.write("empty.conf", QByteArray());
    Child sample(board, {"printConfig"});
    Child empty(board, {"printConfig"}, {{"WIDGET_BOARD_CONF", board.path("empty.conf")}});
    QVERIFY(sample.ends());
    QVERIFY(empty.ends());
    QCOMPARE(sample.errors(), QString());
    QCOMPARE(empty.errors(), QString());
    const QString usual = empty.output().trimmed();
    QVERIFY(usual.startsWith("/dev/log||8|2||30|1|5000|/dev/rtc0|0|2020|default|50||0|2000|500|100"));
    // Whoever copies the sample has not asked for a watchdog that may restart the machine.
    QCOMPARE(sample.output().trimmed(), usual + "|input /dev/input/event*");
}

void TestLinuxPlatform::badLineIsReportedWithItsNumberAndIgnored_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("problem");
    QTest::newRow("unknown name") << QByteArray("watchdog_devcie = x") << "there is no \"watchdog_devcie\"";
    QTest::newRow("no value at all") << QByteArray("watchdog_s") << "\"watchdog_s\" is no \"name = value\"";
    QTest::newRow("empty value") << QByteArray("clock_device =  # none") << "\"clock_device\" has no value";
    QTest::newRow("none where there has to be one") << QByteArray("log_device = none") << "\"log_device\" has no value";
    QTest::newRow("long socket") << QByteArray("log_device = ") + QByteArray(108, '/')
                                 << "\"" + QString(60, '/') + "...\" is too long for a socket";
    QTest::newRow("no number") << QByteArray("watchdog_s = 3O") << "\"3O\" is no number from 1 to 3600";
    QTest::newRow("no number, empty") << QByteArray("watchdog_s =") << "\"\" is no number from 1 to 3600";
    QTest::newRow("too small") << QByteArray("thread_timeout_ms = 9") << "\"9\" is no number from 10 to 3600000";
    QTest::newRow("too large") << QByteArray("sound_volume = 101") << "\"101\" is no number from 0 to 100";
    QTest::newRow("far too large")
        << QByteArray("log_level = 99999999999999999999") << "\"99999999999999999999\" is no number from 0 to 1000";
    QTest::newRow("another word") << QByteArray("clock_zone = UTC") << "\"UTC\" is none of utc, local";
    QTest::newRow("input without a pattern") << QByteArray("input = ") << "\"input\" has no value";
    QTest::newRow("key without a key") << QByteArray("key.KEY_OK = ") << "\"key.KEY_OK\" has no value";
    QTest::newRow("bytes") << QByteArray("a\x01\x7f z") << "\"a?? z\" is no \"name = value\"";
    QTest::newRow("long") << QByteArray(1001, 'x') << "more than 1000 bytes";
    QTest::newRow("long value") << QByteArray("watchdog_s = ") + QByteArray(70, '1')
                                << "\"" + QString(60, '1') + "...\" is no number from 1 to 3600";
}

void TestLinuxPlatform::badLineIsReportedWithItsNumberAndIgnored()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, problem);
    TestBoard good;
    Child usual(good, {"printConfig"});
    QVERIFY(usual.ends());

    TestBoard board("# a remark\n\n" + line + "\n");
    Child child(board, {"printConfig"});
    QVERIFY(child.ends());
    QCOMPARE(board.log.texts(),
             QStringList(QString("[board] %1:4: %2, line ignored").arg(board.path("board.conf"), problem)));
    QCOMPARE(child.output().section('|', 1), usual.output().section('|', 1));
}

void TestLinuxPlatform::goodLinesAroundBadOnesCount()
{
    TestBoard board("watchdog_s = 7\r\nnonsense\n  watchdog_s=8 # seconds\nkey.KEY_OK = F1\nkey.28=#x\n"
                    "input = /dev/a#b\ninput = /dev/c\nclock_device = none");
    Child child(board, {"printConfig"});
    QVERIFY(child.ends());
    QCOMPARE(board.log.texts().size(), 1);
    const QStringList values = child.output().trimmed().split('|');
    QCOMPARE(values[5], QString("8"));
    QCOMPARE(values[8], QString());
    QCOMPARE(values.mid(18), (QStringList{"input /dev/a#b", "input /dev/c", "5 KEY_OK F1", "6 28 #x"}));
}

void TestLinuxPlatform::manyBadLinesAreCounted()
{
    // To standard error, which takes as much as comes.
    DeviceDirectory board;
    board.write("board.conf",
                "log_device = " + board.path("none").toLocal8Bit() + '\n' + QByteArray("bad\n").repeated(50));
    Child child(board, {"printConfig"});
    QVERIFY(child.ends());
    const QStringList lines = child.errors().trimmed().split('\n');
    QCOMPARE(lines.size(), 21);
    QVERIFY(lines[19].contains(":21: "));
    QVERIFY(lines[20].endsWith(board.path("board.conf") + ": 30 more lines ignored"));
}

void TestLinuxPlatform::fileThatCannotBeReadIsReported_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("problem");
    QTest::newRow("missing") << "missing" << "No such file or directory";
    QTest::newRow("directory") << "directory" << "Is a directory";
    QTest::newRow("pipe") << "pipe" << "Invalid argument";
    QTest::newRow("no rights") << "secret" << "Permission denied";
}

void TestLinuxPlatform::fileThatCannotBeReadIsReported()
{
    QFETCH(QString, kind);
    QFETCH(QString, problem);
    DeviceDirectory board;
    const QString path = board.path(kind);
    if (kind == "directory")
        QDir().mkdir(path);
    else if (kind == "pipe")
        mkfifo(path.toLocal8Bit().constData(), 0666);
    else if (kind == "secret") {
        board.write(kind, "watchdog_s = 5\n");
        chmod(path.toLocal8Bit().constData(), 0);
    }
    Child child(board, {"nobody", "printConfig"}, {{"WIDGET_BOARD_CONF", path}});
    QVERIFY(child.ends());
    QVERIFY2(child.errors().contains(QString("  [board] %1: %2, the default values count\n").arg(path, problem)),
             qPrintable(child.errors()));
    QCOMPARE(child.output().section('|', 5, 5), QString("30"));
}

void TestLinuxPlatform::fileIsReadAsFarAsALimit_data()
{
    const qint64 more = 1000000000;  // a file with holes, so that this takes no place on the disk
    QTest::addColumn<QByteArray>("start");
    QTest::addColumn<qint64>("size");
    QTest::addColumn<bool>("isRead");
    QTest::newRow("as much as may be") << QByteArray("watchdog_s = 7\n#") << qint64(65536) << true;
    QTest::newRow("a byte more") << QByteArray("watchdog_s = 7\n#") << qint64(65537) << false;
    QTest::newRow("one line without an end") << QByteArray("watchdog_s = 7\n") << more << false;
}

void TestLinuxPlatform::fileIsReadAsFarAsALimit()
{
    QFETCH(QByteArray, start);
    QFETCH(qint64, size);
    QFETCH(bool, isRead);
    DeviceDirectory board;
    board.write("board.conf", start);
    QVERIFY(QFile::resize(board.path("board.conf"), size));
    Child child(board, {"printConfig"});
    QVERIFY(child.ends());
    const QString problem = "  [board] " + board.path("board.conf")
            + (isRead ? ":2: more than 1000 bytes, line ignored\n" : ": more than 65536 bytes, the default values count\n");
    QVERIFY2(child.errors().endsWith(problem), qPrintable(child.errors()));
    QCOMPARE(int(child.errors().count('\n')), 1);
    QCOMPARE(child.output().section('|', 5, 5), QString(isRead ? "7" : "30"));
}

void TestLinuxPlatform::fileThatFailsWhileItIsReadIsReported()
{
    // A process has nothing at the start of its memory.
    const QString path = "/proc/self/mem";
    DeviceDirectory board;
    Child child(board, {"printConfig"}, {{"WIDGET_BOARD_CONF", path}});
    QVERIFY(child.ends());
    const QString problem = "  [board] " + path + ": Input/output error, the default values count\n";
    QVERIFY2(child.errors().endsWith(problem), qPrintable(child.errors()));
}

// ---- The watchdog ----

void TestLinuxPlatform::hardwareWatchdogIsFedAndStoppedAtExit()
{
    TestBoard board("watchdog_device = @watchdog\nwatchdog_s = 1\nthread_timeout_ms = 3600000\n");
    Fifo device(board.path("watchdog"));
    Child child(board, {"watchAnswering"});
    QByteArray fed;
    EVENTUALLY((fed += device.readAll()).size() >= 4);
    child.tell("fed");
    EVENTUALLY_COMPARE(child.output(), QString("fed\n"));
    QVERIFY(child.ends());
    fed += device.readAll();
    QVERIFY(fed.endsWith('V'));
    QCOMPARE(fed.chopped(1), QByteArray(fed.size() - 1, '\0'));
    QCOMPARE(board.requests(), QStringList("watchdog WDIOC_SETTIMEOUT 1"));
    QCOMPARE(board.log.texts(), QStringList());
}

void TestLinuxPlatform::hardwareWatchdogMayGoOnAfterExit()
{
    TestBoard board("watchdog_device = @watchdog\nwatchdog_s = 1\nwatchdog_at_exit = keep\n");
    Fifo device(board.path("watchdog"));
    Child child(board, {"watchAnswering"});
    QByteArray fed;
    EVENTUALLY(!(fed += device.readAll()).isEmpty());
    QVERIFY(child.ends());
    QVERIFY(!(fed + device.readAll()).contains('V'));
}

void TestLinuxPlatform::hardwareWatchdogGoesOnAfterACrash()
{
    TestBoard board("watchdog_device = @watchdog\nwatchdog_s = 1\n");
    Fifo device(board.path("watchdog"));
    Child child(board, {"watchSteps"});
    child.tell("watch");
    QByteArray fed;
    EVENTUALLY(!(fed += device.readAll()).isEmpty());
    child.tell("die");
    QVERIFY(!child.ends());
    QVERIFY(!(fed + device.readAll()).contains('V'));
}

void TestLinuxPlatform::hangingThreadIsNamedAndEndsFeeding()
{
    TestBoard board("watchdog_device = @watchdog\nwatchdog_s = 1\nthread_timeout_ms = 700\n");
    Fifo device(board.path("watchdog"));
    Child child(board, {"watchSteps"});
    child.tell("watch");
    QByteArray fed;
    EVENTUALLY((fed += device.readAll()).contains('\0'));
    child.tell("start the screens");
    const QRegularExpression hangs("^\\[watchdog\\] \"the screens\" has not answered for \\d+\\.\\d s, "
                                   + board.path("watchdog") + " is not fed$");
    EVENTUALLY_COMPARE(int(board.log.texts().filter(hangs).size()), 1);
    child.tell("hanging");
    EVENTUALLY(child.output().endsWith("hanging: the screens\n"));
    child.tell("fed");
    EVENTUALLY(child.output().endsWith("unfed\n"));
    device.readAll();
    passTime(1500);
    QCOMPARE(device.readAll(), QByteArray());

    // As a thread does: once may be too long ago when a busy machine looks.
    fed.clear();
    EVENTUALLY((child.tell("kick the screens"), fed += device.readAll()).contains('\0'));
    EVENTUALLY(!board.log.texts().filter(QRegularExpression("^\\[watchdog\\] \"the screens\" answers again after ")).isEmpty());
    QVERIFY(child.ends());
}

void TestLinuxPlatform::oneHangingThreadIsEnough()
{
    TestBoard board("watchdog_device = @watchdog\nwatchdog_s = 1\nthread_timeout_ms = 2000\n");
    Fifo device(board.path("watchdog"));
    Child child(board, {"watchAnswering"});
    child.tell("start dead");
    EVENTUALLY_COMPARE(int(board.log.texts().filter("\"dead\" has not answered").size()), 1);
    child.tell("fed");
    EVENTUALLY(child.output().endsWith("unfed\n"));
    device.readAll();
    passTime(1000);
    QCOMPARE(device.readAll(), QByteArray());
}

void TestLinuxPlatform::failedWatchdogIsNotOpenedAgainWhileAThreadHangs()
{
    // Each time it is opened it cannot be set, and takes nothing then.
    TestBoard board("watchdog_device = /dev/full\nwatchdog_s = 1\nthread_timeout_ms = 700\n");
    const auto openings = [&board] { return int(board.log.texts().filter("Its time cannot be set").size()); };
    Child child(board, {"watchSteps"});
    child.tell("watch");
    EVENTUALLY(openings() >= 2);
    child.tell("start x");
    EVENTUALLY(!board.log.texts().filter("\"x\" has not answered").isEmpty());
    const int before = openings();
    passTime(1500);
    QCOMPARE(openings(), before);
    EVENTUALLY((child.tell("kick x"), openings()) > before);
    QVERIFY(child.ends());
}

void TestLinuxPlatform::threadThatStopsIsNotWatched()
{
    TestBoard board("thread_timeout_ms = 100\n");
    Child child(board, {"watchSteps"});
    child.tell("start a");
    child.tell("stop a");
    child.tell("start b");
    EVENTUALLY(!board.log.texts().filter("\"b\" has not answered").isEmpty());
    child.tell("hanging");
    EVENTUALLY(child.output().endsWith("hanging: b\n"));
    QVERIFY(child.ends());
}

void TestLinuxPlatform::unknownThreadIsReported()
{
    TestBoard board;
    Child child(board, {"watchSteps"});
    child.tell("kick x");
    child.tell("stop y");
    QVERIFY(child.ends());
    QCOMPARE(board.log.texts(), (QStringList{"[watchdog] kickDog: no thread is registered as \"x\"",
                                             "[watchdog] stopWatchThread: no thread is registered as \"y\""}));
}

void TestLinuxPlatform::timeOfTheWatchdogIsItsOwn_data()
{
    QTest::addColumn<QByteArray>("state");
    QTest::addColumn<QString>("says");
    QTest::newRow("another one") << QByteArray("seconds 2\n") << "It has 2 s";
    QTest::newRow("none to be set") << QByteArray("refuse\nseconds 2\n")
                                    << "Its time cannot be set: Operation not supported. It is taken for 2 s";
    QTest::newRow("unknown") << QByteArray("refuse\n")
                             << "Its time cannot be set: Operation not supported. It is taken for 60 s";
}

void TestLinuxPlatform::timeOfTheWatchdogIsItsOwn()
{
    QFETCH(QByteArray, state);
    QFETCH(QString, says);
    TestBoard board("watchdog_device = @watchdog\nwatchdog_s = 60\nlog_level = 16\n");
    board.setState("watchdog", state);
    Fifo device(board.path("watchdog"));
    Child child(board, {"watchSteps"});
    child.tell("watch");
    EVENTUALLY_COMPARE(board.log.texts(), QStringList("[watchdog] " + board.path("watchdog") + ": " + says));
    if (says.contains("2 s")) {
        QByteArray fed;
        EVENTUALLY((fed += device.readAll()).size() >= 2);  // not within a third of a minute
    }
    QVERIFY(child.ends());
}

void TestLinuxPlatform::watchdogThatCannotBeOpenedIsReported_data()
{
    QTest::addColumn<bool>("isThere");
    QTest::addColumn<QString>("problem");
    QTest::newRow("missing") << false << "No such file or directory";
    QTest::newRow("no rights") << true << "Permission denied";
}

void TestLinuxPlatform::watchdogThatCannotBeOpenedIsReported()
{
    QFETCH(bool, isThere);
    QFETCH(QString, problem);
    TestBoard board("watchdog_device = @watchdog\nthread_timeout_ms = 100\n");
    QScopedPointer<Fifo> device(isThere ? new Fifo(board.path("watchdog"), 0) : nullptr);
    Child child(board, {"nobody", "watchSteps"});
    child.tell("start x");
    // Threads are watched all the same.
    EVENTUALLY(!board.log.texts().filter("\"x\" has not answered").isEmpty());
    EVENTUALLY(board.log.texts().contains("[watchdog] " + board.path("watchdog") + ": " + problem));
    QVERIFY(child.ends());
    QCOMPARE(int(board.log.texts().filter(problem).size()), 1);
}

void TestLinuxPlatform::watchdogThatTakesNothingIsReportedAndFedLater()
{
    TestBoard board("watchdog_device = @watchdog\nwatchdog_s = 1\n");
    Fifo device(board.path("watchdog"));
    device.fill();
    Child child(board, {"watchSteps"});
    child.tell("watch");
    const QString problem = "[watchdog] " + board.path("watchdog") + ": It cannot be fed: Resource temporarily unavailable";
    EVENTUALLY(board.log.has(problem));
    passTime(700);
    QCOMPARE(board.log.texts(), QStringList(problem));
    QByteArray fed;
    EVENTUALLY((fed += device.readAll()).endsWith('\0'));
    QVERIFY(child.ends());
}

void TestLinuxPlatform::watchdogOfThisMachineIsFedAndStopped()
{
    const QString device = qEnvironmentVariable("WIDGET_KERNEL_WATCHDOG");
    if (device.isEmpty())
        QSKIP("WIDGET_KERNEL_WATCHDOG names no watchdog that may restart this machine (softdog's will do)");
    TestBoard board("watchdog_device = " + device.toLocal8Bit() + "\nwatchdog_s = 30\n");
    Child child(board, {"watchSteps"});
    child.tell("watch");
    EVENTUALLY((child.tell("fed"), child.output()).endsWith("\nfed\n"));
    QVERIFY(child.hasOpen(device));
    // The kernel's own word for it, where it tells.
    const QString kernels = "/sys/class/watchdog/" + QFileInfo(device).fileName() + '/';
    const bool tells = QFile::exists(kernels + "state");
    const bool stops = contentOf(kernels + "nowayout") != "1\n";
    if (tells)
        QCOMPARE(contentOf(kernels + "state"), QByteArray("active\n"));
    QVERIFY(child.ends());
    if (tells && stops)
        QCOMPARE(contentOf(kernels + "state"), QByteArray("inactive\n"));
    QCOMPARE(board.log.texts(), QStringList());
}

// ---- systemd ----

void TestLinuxPlatform::systemdIsToldOfTheStart_data()
{
    QTest::addColumn<bool>("isFile");
    QTest::newRow("by a file") << true;
    QTest::newRow("by a name that is no file") << false;
}

void TestLinuxPlatform::systemdIsToldOfTheStart()
{
    QFETCH(bool, isFile);
    TestBoard board;
    const QString name = (isFile ? QString() : QString("@")) + board.path("notify");
    MessageSocket systemd(name);
    Child child(board, {"watchSteps"}, {{"NOTIFY_SOCKET", name}});
    child.tell("started");
    EVENTUALLY_COMPARE(child.output(), QString("told\n"));
    QCOMPARE(systemd.messages(), QStringList("READY=1"));
    QVERIFY(child.ends());
    QCOMPARE(systemd.messages(), QStringList("READY=1"));
    QCOMPARE(board.log.texts(), QStringList());
}

void TestLinuxPlatform::withoutSystemdNobodyIsTold_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("not named") << QString();
    QTest::newRow("another way to reach it") << QString("vsock:2:1234");
}

void TestLinuxPlatform::withoutSystemdNobodyIsTold()
{
    QFETCH(QString, name);
    TestBoard board;
    Child child(board, {"watchSteps"}, {{"NOTIFY_SOCKET", name}, {"WATCHDOG_USEC", "1000"}});
    child.tell("started");
    child.tell("watch");
    EVENTUALLY_COMPARE(child.output(), QString("untold\ndone\n"));
    QVERIFY(child.ends());
    QCOMPARE(board.log.texts(), QStringList());
}

void TestLinuxPlatform::systemdThatIsGoneIsReportedOnce()
{
    TestBoard board;
    Child child(board, {"watchSteps"}, {{"NOTIFY_SOCKET", board.path("gone")}});
    child.tell("started");
    child.tell("started");
    EVENTUALLY_COMPARE(child.output(), QString("untold\nuntold\n"));
    QVERIFY(child.ends());
    QCOMPARE(board.log.texts(),
             QStringList("[service] systemd cannot be told \"READY=1\": No such file or directory"));
}

void TestLinuxPlatform::systemdIsToldAsLongAsNoThreadHangs()
{
    TestBoard board("thread_timeout_ms = 700\n");
    MessageSocket systemd(board.path("notify"));
    Child child(board, {"watchSteps"}, {{"NOTIFY_SOCKET", board.path("notify")}, {"WATCHDOG_USEC", "300000"}});
    child.tell("own");
    child.tell("watch");
    EVENTUALLY(systemd.messages().size() >= 4);
    QCOMPARE(systemd.messages().count("WATCHDOG=1"), systemd.messages().size());

    child.tell("start the screens");
    const QRegularExpression hangs("^\\[watchdog\\] \"the screens\" has not answered for .* s, systemd is not told$");
    EVENTUALLY_COMPARE(int(board.log.texts().filter(hangs).size()), 1);
    passTime(100);
    const auto before = systemd.messages().size();
    passTime(1000);
    QCOMPARE(systemd.messages().size(), before);

    EVENTUALLY((child.tell("kick the screens"), systemd.messages().size()) > before);
    QVERIFY(child.ends());
    QCOMPARE(systemd.messages().last(), QString("STOPPING=1"));
}

void TestLinuxPlatform::systemdThatWatchesSomethingElseIsNotTold_data()
{
    QTest::addColumn<QString>("time");
    QTest::addColumn<QString>("process");
    QTest::newRow("another process") << "3000" << "1";
    QTest::newRow("nothing") << "" << "";
    QTest::newRow("no time") << "0" << "";
}

void TestLinuxPlatform::systemdThatWatchesSomethingElseIsNotTold()
{
    QFETCH(QString, time);
    QFETCH(QString, process);
    TestBoard board;
    MessageSocket systemd(board.path("notify"));
    QMap<QString, QString> environment = {{"NOTIFY_SOCKET", board.path("notify")}, {"WATCHDOG_USEC", time}};
    if (!process.isEmpty())
        environment["WATCHDOG_PID"] = process;
    Child child(board, {"watchSteps"}, environment);
    child.tell("watch");
    EVENTUALLY_COMPARE(child.output(), QString("done\n"));
    passTime(100);
    QVERIFY(child.ends());
    QCOMPARE(systemd.messages(), QStringList("STOPPING=1"));
}

// ---- The clock ----

void TestLinuxPlatform::chipSetsTheSystemTime_data()
{
    QTest::addColumn<QByteArray>("chip");
    QTest::addColumn<QByteArray>("zone");
    QTest::addColumn<QString>("request");
    QTest::newRow("UTC") << QByteArray("2031-05-06 07:08:09") << QByteArray("utc") << "clock_settime 1935817689";
    QTest::newRow("local") << QByteArray("2031-05-06 07:08:09") << QByteArray("local") << "clock_settime 1935810489";
    QTest::newRow("leap day") << QByteArray("2028-02-29 23:59:59") << QByteArray("utc") << "clock_settime 1835481599";
    if (sizeof(time_t) > 4)
        QTest::newRow("after 2038") << QByteArray("2041-05-06 07:08:09") << QByteArray("utc") << "clock_settime 2251436889";
}

void TestLinuxPlatform::chipSetsTheSystemTime()
{
    QFETCH(QByteArray, chip);
    QFETCH(QByteArray, zone);
    QFETCH(QString, request);
    TestBoard board("clock_device = @rtc\nclock_zone = " + zone + '\n');
    board.setState("rtc", chip);
    board.write("rtc", QByteArray());
    Child child(board, {"setTimes"}, {{"TZ", "EET-2"}});
    child.tell("set");
    QVERIFY(child.ends());
    QCOMPARE(child.output(), QString("set\n"));
    QCOMPARE(board.requests(), QStringList(request));
    QCOMPARE(board.log.texts(), QStringList());
}

void TestLinuxPlatform::sameSecondIsLeftAlone()
{
    TestBoard board("clock_device = @rtc\n");
    board.setState("rtc", "now");
    board.write("rtc", QByteArray());
    Child child(board, {"setTimes"});
    for (int i = 0; i < 5; ++i)
        child.tell("set");
    QVERIFY(child.ends());
    QCOMPARE(child.output(), QString("set\n").repeated(5));
    // The second may change between a look at the chip and one at the system's time, but not each time.
    QVERIFY(board.requests().size() < 5);
}

void TestLinuxPlatform::chipThatCannotHelpChangesNothing_data()
{
    QTest::addColumn<QByteArray>("device");
    QTest::addColumn<QByteArray>("state");
    QTest::addColumn<QString>("problem");
    QTest::newRow("no chip") << QByteArray("@rtcnone") << QByteArray() << "@rtcnone: No such file or directory";
    QTest::newRow("not named") << QByteArray("none") << QByteArray() << "The configuration names no clock_device";
    QTest::newRow("no rights") << QByteArray("@rtcsecret") << QByteArray() << "@rtcsecret: Permission denied";
    QTest::newRow("no chip behind it") << QByteArray("@plain") << QByteArray()
                                       << "@plain: Inappropriate ioctl for device";
    QTest::newRow("cannot be read") << QByteArray("@rtc") << QByteArray() << "@rtc: Input/output error";
    QTest::newRow("lost its power") << QByteArray("@rtc") << QByteArray("2000-01-01 00:00:01")
                                    << "@rtc: The chip has a time before clock_earliest_year";
    QTest::newRow("no such day") << QByteArray("@rtc") << QByteArray("2027-02-29 12:00:00")
                                 << "@rtc: The chip has no possible time";
    QTest::newRow("no such hour") << QByteArray("@rtc") << QByteArray("2027-02-28 45:00:00")
                                  << "@rtc: The chip has no possible time";
    if (sizeof(time_t) == 4)
        QTest::newRow("too late") << QByteArray("@rtc") << QByteArray("2041-05-06 07:08:09")
                                  << "@rtc: The chip has a time that is too late for this system";
}

void TestLinuxPlatform::chipThatCannotHelpChangesNothing()
{
    QFETCH(QByteArray, device);
    QFETCH(QByteArray, state);
    QFETCH(QString, problem);
    TestBoard board("clock_device = " + device + '\n');
    for (const char *name : {"rtc", "rtcsecret", "plain"})
        board.write(name, QByteArray());
    chmod(board.path("rtcsecret").toLocal8Bit().constData(), 0);
    if (!state.isEmpty())
        board.setState("rtc", state);
    Child child(board, {"nobody", "setTimes"});
    child.tell("set");
    QVERIFY(child.ends());
    QCOMPARE(child.output(), QString("not set\n"));
    QCOMPARE(board.requests(), QStringList());
    QCOMPARE(board.log.texts(), QStringList("[clock] " + problem.replace('@', board.path("x").chopped(1))));
}

void TestLinuxPlatform::systemTimeThatMayNotBeSetIsReported()
{
    TestBoard board("clock_device = @rtc\n");
    board.setState("rtc", "2031-05-06 07:08:09");
    board.setState("clock", "refuse");
    board.write("rtc", QByteArray());
    Child child(board, {"setTimes"});
    child.tell("set");
    QVERIFY(child.ends());
    QCOMPARE(child.output(), QString("not set\n"));
    QCOMPARE(board.log.texts(), QStringList("[clock] The system time cannot be set: Operation not permitted"));
}

void TestLinuxPlatform::reasonIsLoggedOnce()
{
    TestBoard board("clock_device = @rtc\n");
    board.write("rtc", QByteArray());
    Child child(board, {"setTimes"});
    const QString unreadable = "[clock] " + board.path("rtc") + ": Input/output error";
    const QString early = "[clock] " + board.path("rtc") + ": The chip has a time before clock_earliest_year";
    QString answers;
    const auto sets = [&](const QString &answer) {
        child.tell("set");
        answers += answer + '\n';
        return QTest::qWaitFor([&] { return child.output() == answers; }, LongestWait);
    };
    QVERIFY(sets("not set"));
    QVERIFY(sets("not set"));
    QCOMPARE(board.log.texts(), QStringList(unreadable));
    board.setState("rtc", "2001-01-01 00:00:00");
    QVERIFY(sets("not set"));
    QCOMPARE(board.log.texts(), (QStringList{unreadable, early}));
    board.setState("rtc", "2031-05-06 07:08:09");
    QVERIFY(sets("set"));
    board.setState("rtc", "2001-01-01 00:00:00");
    QVERIFY(sets("not set"));
    QCOMPARE(board.log.texts(), (QStringList{unreadable, early, early}));
}

void TestLinuxPlatform::threadsDoNotTakeTheChipFromEachOther()
{
    TestBoard board("clock_device = @rtc\n");
    board.setState("rtc", "2031-05-06 07:08:09");
    board.write("rtc", QByteArray());
    Child child(board, {"setTimesFromThreads"});
    QVERIFY(child.ends());
    QCOMPARE(int(board.requests().size()), 100);
    QCOMPARE(int(board.requests().count("clock_settime 1935817689")), 100);
    QCOMPARE(board.log.texts(), QStringList());
}

void TestLinuxPlatform::chipThatIsTakenIsTriedAgain()
{
    TestBoard board("clock_device = @rtc\n");
    board.setState("rtc", "2031-05-06 07:08:09");
    board.write("rtc", QByteArray());
    board.setState("taken", "3");
    Child child(board, {"setTimes"});
    child.tell("set");
    QVERIFY(child.ends());
    QCOMPARE(child.output(), QString("set\n"));
    QCOMPARE(board.requests(), (QStringList{"rtc taken", "rtc taken", "rtc taken", "clock_settime 1935817689"}));
    QCOMPARE(board.log.texts(), QStringList());
}

void TestLinuxPlatform::chipThatStaysTakenIsReported()
{
    TestBoard board("clock_device = @rtc\n");
    board.setState("rtc", "2031-05-06 07:08:09");
    board.write("rtc", QByteArray());
    const int other = open(board.path("rtc").toLocal8Bit().constData(), O_RDONLY | O_CLOEXEC);
    QCOMPARE(flock(other, LOCK_EX), 0);
    Child child(board, {"setTimes"});
    child.tell("set");
    QVERIFY(child.ends());
    close(other);
    QCOMPARE(child.output(), QString("not set\n"));
    QCOMPARE(board.requests(), QStringList() << "rtc taken" << "rtc taken" << "rtc taken" << "rtc taken" << "rtc taken"
                                             << "rtc taken");
    QCOMPARE(board.log.texts(), QStringList("[clock] " + board.path("rtc") + ": Device or resource busy"));
}

void TestLinuxPlatform::signalDoesNotEndTheReadingOfTheChip()
{
    TestBoard board("clock_device = @rtc\n");
    board.setState("rtc", "2031-05-06 07:08:09");
    board.setState("interrupt", "");
    board.write("rtc", QByteArray());
    Child child(board, {"setTimes"});
    child.tell("set");
    QVERIFY(child.ends());
    QCOMPARE(child.output(), QString("set\n"));
    QCOMPARE(board.log.texts(), QStringList());
}

void TestLinuxPlatform::chipOfThisMachineIsRead()
{
    if (access("/dev/rtc0", R_OK) != 0)
        QSKIP("This machine has no clock chip that may be read (/dev/rtc0)");
    TestBoard board("clock_device = /dev/rtc0\nclock_earliest_year = 1970\n");
    Child child(board, {"setTimes"});
    child.tell("set");
    QVERIFY(child.ends());
    QCOMPARE(child.output(), QString("set\n"));
}

void TestLinuxPlatform::tickCountsSeconds()
{
    timespec before;
    timespec after;
    clock_gettime(CLOCK_MONOTONIC, &before);
    const unsigned int tick = get_system_tick();
    clock_gettime(CLOCK_MONOTONIC, &after);
    QVERIFY(tick >= unsigned(before.tv_sec));
    QVERIFY(tick <= unsigned(after.tv_sec));
}

void TestLinuxPlatform::localTimeFollowsTheZone()
{
    TestBoard board;
    Child child(board, {"printLocalTimes"});
    for (const char *zone : {"UTC0", "EET-2", "EST5"})
        child.tell(zone);
    QVERIFY(child.ends());
    QCOMPARE(child.output(), QString("2 0\n2 2\n1 19\n"));
}

// ---- Sounds ----

void TestLinuxPlatform::clickAndDigitsAreHeard_data()
{
    QTest::addColumn<QByteArray>("id");
    QTest::addColumn<int>("samples");
    QTest::addColumn<double>("hz");
    QTest::addColumn<double>("secondHz");
    QTest::newRow("key click") << QByteArray("901") << 661 << 2000.0 << 2000.0;
    QTest::newRow("low click") << QByteArray("872") << 661 << 1200.0 << 1200.0;
    QTest::newRow("digit 0") << QByteArray("920") << 5292 << 941.0 << 1336.0;
    QTest::newRow("digit 1") << QByteArray("921") << 5292 << 697.0 << 1209.0;
    QTest::newRow("digit 9") << QByteArray("929") << 5292 << 852.0 << 1477.0;
    QTest::newRow("another one") << QByteArray("5") << 2646 << 220.0 << 220.0;
}

void TestLinuxPlatform::clickAndDigitsAreHeard()
{
    if (!hasSound())
        QSKIP("Built without ALSA");
    QFETCH(QByteArray, id);
    QFETCH(int, samples);
    QFETCH(double, hz);
    QFETCH(double, secondHz);
    TestBoard board(soundCard);
    Child child(board, {"playSteps"});
    child.tell(id);
    EVENTUALLY_COMPARE(int(contentOf(board.path("sound")).size()), 2 * samples);
    const QByteArray sound = contentOf(board.path("sound"));
    QVERIFY(strengthAt(hz, sound) > 0.05);
    QVERIFY(strengthAt(secondHz, sound) > 0.05);
    QVERIFY(strengthAt(3300, sound) < 0.01);
    QVERIFY(child.ends());
    QCOMPARE(board.log.texts(), QStringList());
    QCOMPARE(child.errors(), QString());
}

void TestLinuxPlatform::volumeIsThatOfTheFile()
{
    if (!hasSound())
        QSKIP("Built without ALSA");
    double strengths[2];
    for (int i = 0; i < 2; ++i) {
        TestBoard board(soundCard + QByteArray(i == 0 ? "sound_volume = 20\n" : "sound_volume = 80\n"));
        Child child(board, {"playSteps"});
        child.tell("920");
        EVENTUALLY_COMPARE(int(contentOf(board.path("sound")).size()), 2 * 5292);
        strengths[i] = strengthAt(941, contentOf(board.path("sound")));
        QVERIFY(child.ends());
    }
    QVERIFY(qAbs(strengths[1] / strengths[0] - 4) < 0.05);
}

void TestLinuxPlatform::boardIsSilentWithoutACard()
{
    if (!hasSound())
        QSKIP("Built without ALSA");
    TestBoard board("sound_device = hw:CARD=none_of_ours\n");
    Child child(board, {"playSteps"});
    child.tell("901");
    EVENTUALLY(!board.log.texts().isEmpty());
    child.tell("901");
    EVENTUALLY_COMPARE(child.output(), QString("returned\nreturned\n"));
    QVERIFY(child.ends());
    QCOMPARE(board.log.texts().size(), 1);
    QVERIFY2(board.log.texts()[0].startsWith("[sound] hw:CARD=none_of_ours: "), qPrintable(board.log.texts()[0]));
    QCOMPARE(child.errors(), QString());
}

void TestLinuxPlatform::cardThatHangsHoldsNobodyUp()
{
    if (!hasSound())
        QSKIP("Built without ALSA");
    TestBoard board(soundCard);
    // Opened to be written, it waits for a reader that does not come.
    QCOMPARE(mkfifo(board.path("sound").toLocal8Bit().constData(), 0666), 0);
    Child child(board, {"playSteps"});
    for (int i = 0; i < 100; ++i)
        child.tell("901");
    EVENTUALLY_COMPARE(int(child.output().count("returned")), 100);
    QVERIFY(child.ends());
}

void TestLinuxPlatform::cardThatIsBackPlaysTheLastSounds()
{
    if (!hasSound())
        QSKIP("Built without ALSA");
    TestBoard board(soundCard);
    const QByteArray path = board.path("sound").toLocal8Bit();
    QCOMPARE(mkfifo(path.constData(), 0666), 0);
    Child child(board, {"playSteps"});
    for (int i = 0; i < 100; ++i)
        child.tell("901");
    EVENTUALLY_COMPARE(int(child.output().count("returned")), 100);

    const int card = open(path.constData(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
    int bytes = 0;
    const auto heard = [card, &bytes] {
        char room[4096];
        ssize_t length;
        while ((length = read(card, room, sizeof(room))) > 0)
            bytes += int(length);
        return bytes / (2 * 661);
    };
    EVENTUALLY(heard() >= 8);
    passTime(500);
    QVERIFY(heard() <= 9);  // one may have been on its way already
    close(card);
    QVERIFY(child.ends());
}

void TestLinuxPlatform::silentBoardOpensNoCard_data()
{
    QTest::addColumn<QByteArray>("lines");
    QTest::addColumn<bool>("muted");
    QTest::newRow("muted") << QByteArray(soundCard) << true;
    QTest::newRow("volume 0") << QByteArray(soundCard) + "sound_volume = 0\n" << false;
    QTest::newRow("no card named") << QByteArray("sound_device = none\n") << false;
}

void TestLinuxPlatform::silentBoardOpensNoCard()
{
    QFETCH(QByteArray, lines);
    QFETCH(bool, muted);
    TestBoard board(lines);
    Child child(board, {"playSteps"});
    if (muted)
        child.tell("mute");
    child.tell("901");
    QVERIFY(child.ends());
    QVERIFY(!QFile::exists(board.path("sound")));
    QCOMPARE(board.log.texts(), QStringList());
}

void TestLinuxPlatform::cardOfThisMachinePlays()
{
    if (!hasSound())
        QSKIP("Built without ALSA");
    if (!contentOf("/proc/asound/cards").contains(']'))
        QSKIP("This machine has no sound card (/proc/asound/cards)");
    const QStringList nodes = QDir("/dev/snd").entryList({"pcmC*D*p"}, QDir::System | QDir::Writable);
    if (nodes.isEmpty())
        QSKIP("This machine has no sound card that may be played on (/dev/snd/pcmC*D*p)");
    const QRegularExpressionMatch numbers = QRegularExpression("^pcmC(\\d+)D(\\d+)p$").match(nodes[0]);
    TestBoard board("sound_device = plughw:" + numbers.captured(1).toLatin1() + ',' + numbers.captured(2).toLatin1() + '\n');
    Child child(board, {"playSteps"});
    child.tell("901");
    const QString node = "/dev/snd/" + nodes[0];
    EVENTUALLY(child.hasOpen(node) || !board.log.messages().isEmpty());
    if (!board.log.texts().filter("Device or resource busy").isEmpty())
        QSKIP("Another program has the sound card of this machine");
    for (const char *id : {"872", "920", "929"})
        child.tell(id);
    EVENTUALLY_COMPARE(int(child.output().count("returned")), 4);
    QVERIFY(child.ends());
    QCOMPARE(board.log.texts(), QStringList());
    QCOMPARE(child.errors(), QString());
}

// ---- The writing direction ----

void TestLinuxPlatform::directionIsThatOfTheLocale_data()
{
    QTest::addColumn<QString>("all");
    QTest::addColumn<QString>("messages");
    QTest::addColumn<QString>("lang");
    QTest::addColumn<QString>("direction");
    const QString unset;
    QTest::newRow("none") << unset << unset << unset << "ltr";
    QTest::newRow("C") << unset << unset << "C" << "ltr";
    QTest::newRow("English") << unset << unset << "en_GB.UTF-8" << "ltr";
    QTest::newRow("Arabic") << unset << unset << "ar_EG.UTF-8" << "rtl";
    QTest::newRow("Hebrew, bare") << unset << unset << "he" << "rtl";
    QTest::newRow("Persian in capitals") << unset << unset << "FA_IR" << "rtl";
    QTest::newRow("Aragonese is not Arabic") << unset << unset << "an_ES" << "ltr";
    QTest::newRow("Armenian is not Arabic") << unset << unset << "hy_AM" << "ltr";
    QTest::newRow("Uzbek in Arabic script") << unset << unset << "uz_UZ@arabic" << "rtl";
    QTest::newRow("Kashmiri in Arabic script") << unset << unset << "ks-Arab-IN" << "rtl";
    QTest::newRow("messages over LANG") << unset << "ur_PK" << "en_GB" << "rtl";
    QTest::newRow("all over the rest") << "en_GB" << "ur_PK" << "ur_PK" << "ltr";
    QTest::newRow("empty counts as unset") << "" << "" << "yi" << "rtl";
}

void TestLinuxPlatform::directionIsThatOfTheLocale()
{
    QFETCH(QString, all);
    QFETCH(QString, messages);
    QFETCH(QString, lang);
    QFETCH(QString, direction);
    TestBoard board;
    Child child(board, {"printDirections"}, {{"LC_ALL", all}, {"LC_MESSAGES", messages}, {"LANG", lang}});
    QVERIFY(child.ends());
    QCOMPARE(child.output(), direction + '\n');
}

void TestLinuxPlatform::directionIsThatOfTheFile()
{
    TestBoard board("language_file = @language\n");
    board.write("language", "  he_IL.UTF-8  and more\n");
    Child child(board, {"printDirections"}, {{"LC_ALL", "en_GB"}});
    EVENTUALLY_COMPARE(child.output(), QString("rtl\n"));
    board.write("language", "de\n");
    child.tell("read");
    EVENTUALLY_COMPARE(child.output(), QString("rtl\nltr\n"));
    QVERIFY(child.ends());
    QCOMPARE(board.log.texts(), QStringList());
}

void TestLinuxPlatform::fileOfTheLanguageThatCannotBeReadIsReported()
{
    TestBoard board("language_file = @language\n");
    Child child(board, {"printDirections"}, {{"LC_ALL", "ar"}});
    QVERIFY(child.ends());
    QCOMPARE(child.output(), QString("rtl\n"));
    QCOMPARE(board.log.texts(), QStringList("[language] " + board.path("language")
                                            + ": No such file or directory, the locale counts"));
}

int main(int argc, char **argv)
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments += QString::fromLocal8Bit(argv[i]);
    if (arguments.value(0) == "--child") {
        doJob(arguments.mid(1));
        return 0;
    }
    QCoreApplication application(argc, argv);
    TestLinuxPlatform test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_linuxplatform.moc"

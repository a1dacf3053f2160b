#include "waiting.h"

#include "platform/common/tones.h"
#include "platform/desktop/desktopclock.h"
#include "platform/desktop/desktoplog.h"
#include "platform/desktop/desktopsound.h"
#include "platform/desktop/desktopwatchdog.h"
#include "platform/logging.h"
#include "platform/soundmanager.h"
#include "platform/stringrc.h"
#include "platform/systemtime.h"
#include "platform/util.h"

#include <QtTest>

#include <atomic>
#include <cerrno>
#include <climits>
#include <cmath>
#include <cstring>
#include <functional>
#include <future>
#include <memory>
#include <pthread.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

using namespace std::chrono_literals;

namespace {

/// What standard error gets while it lives.
class CapturedErrors
{
public:
    CapturedErrors()
    {
        if (!m_file.open())
            qFatal("No room for a temporary file");
        m_saved = dup(STDERR_FILENO);
        dup2(m_file.handle(), STDERR_FILENO);
    }

    ~CapturedErrors()
    {
        dup2(m_saved, STDERR_FILENO);
        close(m_saved);
    }

    QStringList lines() const
    {
        QFile file(m_file.fileName());
        if (!file.open(QIODevice::ReadOnly))
            return QStringList("unreadable");
        QStringList lines = QString::fromLocal8Bit(file.readAll()).split('\n');
        lines.removeLast();
        return lines;
    }

private:
    QTemporaryFile m_file;
    int m_saved;
};

struct ChildResult
{
    bool exitedWell;
    QString output;
    QString errors;
};

/// Runs a job of main() in a process of its own, with \a environment on top of the usual one.
ChildResult runChild(const QStringList &job, const QMap<QString, QString> &environment = {})
{
    QProcessEnvironment all = QProcessEnvironment::systemEnvironment();
    all.remove("WIDGET_LOG_LEVEL");
    for (auto it = environment.begin(); it != environment.end(); ++it)
        all.insert(it.key(), it.value());
    QProcess child;
    child.setProcessEnvironment(all);
    child.start(QCoreApplication::applicationFilePath(), QStringList("--child") + job);
    const bool finished = child.waitForFinished(LongestWait);
    if (!finished)
        child.kill();
    return {finished && child.exitStatus() == QProcess::NormalExit && child.exitCode() == 0,
            QString::fromLocal8Bit(child.readAllStandardOutput()), QString::fromLocal8Bit(child.readAllStandardError())};
}

/// The samples of the sound \a id, as a PC plays them.
std::vector<std::int16_t> samplesOf(int id)
{
    return Tones::samples(id, 50);
}

/// How strongly \a samples sound at \a hz, 1 being a full sine wave.
double strengthAt(double hz, const std::vector<std::int16_t> &samples)
{
    double re = 0;
    double im = 0;
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double angle = 2 * std::acos(-1.0) * hz * double(i) / Tones::sampleRate;
        re += samples[i] * std::cos(angle);
        im += samples[i] * std::sin(angle);
    }
    return 2 * std::hypot(re, im) / (32767.0 * double(samples.size()));
}

int loudest(const std::vector<std::int16_t> &samples)
{
    int loudest = 0;
    for (std::int16_t sample : samples)
        loudest = qMax(loudest, std::abs(int(sample)));
    return loudest;
}

void inThread(const std::function<void()> &work)
{
    std::thread(work).join();
}

}

class TestDesktopPlatform : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void logLineHasTimeLevelThreadAndMessage();
    void logShowsLevelsUpTo_data();
    void logShowsLevelsUpTo();
    void logLevelComesFromEnvironment_data();
    void logLevelComesFromEnvironment();
    void setLogLevelWinsOverEnvironment();
    void longLogLineIsWhole();
    void logLineIsOneWrite();
    void logLinesOfThreadsNeverMix();
    void logThreadsAreToldApart();
    void logKeepsErrno();
    void filteredLogLineIsNotFormatted();
    void recentLogLinesAreBounded();
    void logListenerHearsEachLineThatIsShown();
    void logListenerIsLeftInPeace();

    void soundIdsAreReadable();
    void recentSoundsAreBounded();
    void soundListenerHearsEachSound();
    void playingNeverBlocks();
    void mutedSoundIsCounted();
    void noAudioIsSilentAndKeepsNobodyFromExiting_data();
    void noAudioIsSilentAndKeepsNobodyFromExiting();
    void soundReachesTheAudioDevice();
    void mutedSoundLeavesAudioClosed();
    void digitsAreDiallingTones_data();
    void digitsAreDiallingTones();
    void clicksAreShortAndDiffer();
    void unknownSoundIsSoftAndLow();
    void soundsStartAndEndWithoutJump_data();
    void soundsStartAndEndWithoutJump();

    void writingDirectionIsLeftToRightAtStart();

    void watchTimeoutIsFiveSecondsAtStart();
    void watchTimeoutIsKeptWithinBounds_data();
    void watchTimeoutIsKeptWithinBounds();
    void hangingThreadIsReportedOnce();
    void returningThreadIsReportedOnce();
    void kickedThreadIsNotReported();
    void threadHangsAgainAfterReturn();
    void stoppedThreadIsNotWatched();
    void watchedThreadsTellSecondsSinceKick();
    void threadsOfOneNameAreWatchedApart();
    void registeringAgainStartsAfresh();
    void kickFromAnotherThreadCounts();
    void unknownWatchNameIsLogged_data();
    void unknownWatchNameIsLogged();
    void watcherSleeps_data();
    void watcherSleeps();
    void processExitsWithThreadsStillWatched();
    void heldThreadHangsUntilItIsReleased();
    void heldThreadIsReleasedWhenItsHolderWaits();
    void heldThreadStaysWhereOthersWait();
    void threadsOfOneNameAreHeldApart();
    void threadThatIsNotThereIsNotHeld();
    void processExitsWithThreadsStillHeld();

    void delaySleepsForTheTimeGiven();
    void delayIsNotCutShortBySignals();
    void localTimeIsTheSystems();
    void localTimeRecordBelongsToTheThread();
    void localTimeBeyondTheCalendarIsNotNull();
    void fixedLocalTimeHoldsForAnyTime();
    void fixedLocalTimeHoldsInEveryThread();
    void fixedLocalTimeIsTold();
    void fixedLocalTimeTakesValidTextsOnly_data();
    void fixedLocalTimeTakesValidTextsOnly();
    void tickCountsSecondsSinceStart();
    void clockChipFailsWhenTold();
    void everythingMayBeCalledFromManyThreads();
};

void TestDesktopPlatform::init()
{
    Desktop::setLogLevel(Logging::LogError);
    Desktop::setMuted(true);
    Desktop::setWatchTimeout(24h);
    Desktop::clearFixedLocalTime();
}

void TestDesktopPlatform::logLineHasTimeLevelThreadAndMessage()
{
    Desktop::setLogLevel(128);
    CapturedErrors errors;
    Logging::log(Logging::LogError, "[%s, %d] Unknown item!!", "setItemStyle", 120);
    Logging::log(Logging::LogTrace, "Sync RTC, failed ");
    Logging::log(Logging::LogNotice, "100 %%");
    const QStringList lines = errors.lines();
    QCOMPARE(lines.size(), 3);
    const QString start = "^\\d\\d:\\d\\d:\\d\\d\\.\\d{3} ";
    QVERIFY(QRegularExpression(start + "error  \\S+#\\d+  \\[setItemStyle, 120\\] Unknown item!!$")
                .match(lines[0]).hasMatch());
    QVERIFY(QRegularExpression(start + "trace  \\S+#\\d+  Sync RTC, failed $").match(lines[1]).hasMatch());
    QVERIFY(QRegularExpression(start + "notice \\S+#\\d+  100 %$").match(lines[2]).hasMatch());
}

void TestDesktopPlatform::logShowsLevelsUpTo_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<QString>("shown");
    QTest::newRow("nothing") << 0 << "";
    QTest::newRow("rejected calls") << 2 << "e";
    QTest::newRow("just below traces") << 15 << "e";
    QTest::newRow("traces too") << 16 << "et";
    QTest::newRow("everything") << 128 << "etn";
}

void TestDesktopPlatform::logShowsLevelsUpTo()
{
    QFETCH(int, level);
    QFETCH(QString, shown);
    Desktop::setLogLevel(level);
    QCOMPARE(Desktop::logLevel(), level);
    CapturedErrors errors;
    Logging::log(Logging::LogError, "e");
    Logging::log(Logging::LogTrace, "t");
    Logging::log(Logging::LogNotice, "n");
    QString seen;
    for (const QString &line : errors.lines())
        seen += line.right(1);
    QCOMPARE(seen, shown);
}

void TestDesktopPlatform::logLevelComesFromEnvironment_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("level");
    QTest::newRow("not set") << QString() << 2;
    QTest::newRow("empty") << "" << 2;
    QTest::newRow("traces") << "16" << 16;
    QTest::newRow("nothing") << "0" << 0;
    QTest::newRow("not a number") << "loud" << 2;
    QTest::newRow("number with a tail") << "16x" << 2;
    QTest::newRow("negative") << "-1" << 2;
    QTest::newRow("too large") << "99999999999" << 2;
}

void TestDesktopPlatform::logLevelComesFromEnvironment()
{
    QFETCH(QString, text);
    QFETCH(int, level);
    QMap<QString, QString> environment;
    if (!text.isNull())
        environment["WIDGET_LOG_LEVEL"] = text;
    QCOMPARE(runChild({"level"}, environment).output, QString::number(level));
}

void TestDesktopPlatform::setLogLevelWinsOverEnvironment()
{
    QCOMPARE(runChild({"level", "128"}, {{"WIDGET_LOG_LEVEL", "16"}}).output, QString("128"));
}

void TestDesktopPlatform::longLogLineIsWhole()
{
    const QByteArray text(100000, 'x');
    CapturedErrors errors;
    Logging::log(Logging::LogError, "<%s>", text.constData());
    QCOMPARE(errors.lines().size(), 1);
    QVERIFY(errors.lines()[0].endsWith('<' + text + '>'));
}

void TestDesktopPlatform::logLineIsOneWrite()
{
    CapturedErrors errors;
    int ends[2];  // of a socket that delivers what each write wrote by itself
    QCOMPARE(socketpair(AF_UNIX, SOCK_SEQPACKET, 0, ends), 0);
    dup2(ends[1], STDERR_FILENO);
    Logging::log(Logging::LogError, "first");
    Logging::log(Logging::LogError, "second");
    char received[200];
    const ssize_t length = read(ends[0], received, sizeof(received));
    close(ends[0]);
    close(ends[1]);
    QVERIFY(length > 0);
    QVERIFY(QByteArray(received, int(length)).endsWith("  first\n"));
}

void TestDesktopPlatform::logLinesOfThreadsNeverMix()
{
    CapturedErrors errors;
    std::vector<std::thread> threads;
    for (char c : {'a', 'b', 'c', 'd'}) {
        threads.emplace_back([c] {
            const std::string text(6000, c);  // more than a pipe takes in one piece
            for (int i = 0; i < 100; ++i)
                Logging::log(Logging::LogError, "<%s>", text.c_str());
        });
    }
    for (std::thread &thread : threads)
        thread.join();
    const QStringList lines = errors.lines();
    QCOMPARE(lines.size(), 400);
    const QRegularExpression whole("^\\d\\d:\\S+ error  \\S+  <(a{6000}|b{6000}|c{6000}|d{6000})>$");
    for (const QString &line : lines)
        QVERIFY(whole.match(line).hasMatch());
}

void TestDesktopPlatform::logThreadsAreToldApart()
{
    CapturedErrors errors;
    const auto log = [] { Logging::log(Logging::LogError, "x"); };
    inThread(log);
    inThread(log);
    QCOMPARE(errors.lines().size(), 2);
    QVERIFY(errors.lines()[0].section(' ', 1) != errors.lines()[1].section(' ', 1));
}

void TestDesktopPlatform::logKeepsErrno()
{
    CapturedErrors errors;
    close(STDERR_FILENO);
    errno = ENOENT;
    Logging::log(Logging::LogError, "to a closed standard error");
    QCOMPARE(errno, ENOENT);
}

void TestDesktopPlatform::filteredLogLineIsNotFormatted()
{
    CapturedErrors errors;
    // Whoever formats the text tells how long it has become.
    int length = -1;
    Logging::log(Logging::LogError, "%s%n", "text", &length);
    QCOMPARE(length, 4);
    length = -1;
    Logging::log(Logging::LogTrace, "%s%n", "text", &length);
    QCOMPARE(length, -1);
    QCOMPARE(errors.lines().size(), 1);
}

void TestDesktopPlatform::recentLogLinesAreBounded()
{
    CapturedErrors errors;
    for (int i = 0; i < 150; ++i) {
        Logging::log(Logging::LogError, "line %d", i);
        Logging::log(Logging::LogTrace, "filtered");
    }
    const std::vector<std::string> recent = Desktop::recentLogLines();
    QCOMPARE(recent.size(), std::size_t(100));
    QVERIFY(QString::fromStdString(recent.front()).endsWith("line 50"));
    QCOMPARE(QString::fromStdString(recent.back()), errors.lines().last());
}

void TestDesktopPlatform::logListenerHearsEachLineThatIsShown()
{
    CapturedErrors errors;
    QStringList heard;
    QList<int> levels;
    Desktop::setLogLevel(16);
    Desktop::setLogListener([&](int level, const std::string &line) {
        levels += level;
        heard += QString::fromStdString(line);
    });
    Logging::log(Logging::LogError, "first");
    Logging::log(Logging::LogNotice, "filtered");
    inThread([] { Logging::log(Logging::LogTrace, "second"); });
    Desktop::setLogListener({});
    Logging::log(Logging::LogError, "unheard");
    QCOMPARE(levels, (QList<int>{2, 16}));
    QCOMPARE(heard, errors.lines().mid(0, 2));
    QCOMPARE(errors.lines().size(), 3);
}

void TestDesktopPlatform::logListenerIsLeftInPeace()
{
    // What a listener uses may go as soon as it is none any more, also while others log.
    CapturedErrors errors;
    std::atomic<bool> done(false);
    std::thread other([&] {
        while (!done)
            Logging::log(Logging::LogError, "busy");
    });
    for (int i = 0; i < 200; ++i) {
        const auto heard = std::make_unique<QStringList>();
        Desktop::setLogListener([&heard](int, const std::string &line) { *heard += QString::fromStdString(line); });
        std::this_thread::yield();
        Desktop::setLogListener({});
        for (const QString &line : *heard)
            QVERIFY2(line.endsWith("busy"), qPrintable(line));
    }
    done = true;
    other.join();
}

void TestDesktopPlatform::soundIdsAreReadable()
{
    SoundManager *manager = SoundManager::getInstance();
    QVERIFY(manager);
    QCOMPARE(SoundManager::getInstance(), manager);
    const std::size_t before = Desktop::soundCount();
    for (int id : {901, 872, 929, -1})
        manager->sndPlay(id);
    QCOMPARE(Desktop::soundCount(), before + 4);
    const std::vector<int> recent = Desktop::recentSounds();
    QCOMPARE(std::vector<int>(recent.end() - 4, recent.end()), (std::vector<int>{901, 872, 929, -1}));
}

void TestDesktopPlatform::recentSoundsAreBounded()
{
    for (int id = 0; id < 40; ++id)
        SoundManager::getInstance()->sndPlay(id);
    const std::vector<int> recent = Desktop::recentSounds();
    QCOMPARE(recent.size(), std::size_t(32));
    QCOMPARE(recent.front(), 8);
    QCOMPARE(recent.back(), 39);
}

void TestDesktopPlatform::soundListenerHearsEachSound()
{
    std::vector<int> heard;
    Desktop::setSoundListener([&heard](int id) { heard.push_back(id); });
    SoundManager::getInstance()->sndPlay(901);
    inThread([] { SoundManager::getInstance()->sndPlay(925); });
    Desktop::setSoundListener({});
    SoundManager::getInstance()->sndPlay(872);
    QCOMPARE(heard, (std::vector<int>{901, 925}));
}

void TestDesktopPlatform::playingNeverBlocks()
{
    // The first sound of a process opens the audio. This device takes an hour for twelve milliseconds of sound,
    // and does not keep the process from exiting either.
    QTemporaryDir dir;
    const ChildResult child = runChild({"play", "1000", "901", "200"},
                                       {{"SDL_AUDIODRIVER", "disk"}, {"SDL_DISKAUDIOFILE", dir.filePath("played.raw")},
                                        {"SDL_DISKAUDIODELAY", "3600000"}});
    QVERIFY(child.exitedWell);
    QCOMPARE(child.output, QString("1000 played"));
}

void TestDesktopPlatform::mutedSoundIsCounted()
{
    QVERIFY(Desktop::isMuted());
    const std::size_t before = Desktop::soundCount();
    SoundManager::getInstance()->sndPlay(901);
    QCOMPARE(Desktop::soundCount(), before + 1);
    Desktop::setMuted(false);
    QVERIFY(!Desktop::isMuted());
}

void TestDesktopPlatform::noAudioIsSilentAndKeepsNobodyFromExiting_data()
{
    QTest::addColumn<QString>("driver");
    QTest::addColumn<int>("wait");
    for (int wait : {0, 5, 300}) {
        QTest::addRow("no sound card, %d ms before exit", wait) << "alsa" << wait;
        QTest::addRow("no sound service, %d ms before exit", wait) << "pulseaudio" << wait;
        QTest::addRow("no such driver, %d ms before exit", wait) << "gramophone" << wait;
        QTest::addRow("dummy driver, %d ms before exit", wait) << "dummy" << wait;
    }
}

void TestDesktopPlatform::noAudioIsSilentAndKeepsNobodyFromExiting()
{
    QFETCH(QString, driver);
    QFETCH(int, wait);
    // Names no machine has, for those where there is audio.
    const ChildResult child = runChild({"play", "1", "901", QString::number(wait)},
                                       {{"SDL_AUDIODRIVER", driver}, {"AUDIODEV", "nowhere"},
                                        {"PULSE_SERVER", "unix:/nowhere"}});
    QVERIFY(child.exitedWell);
    QCOMPARE(child.errors, QString());
}

void TestDesktopPlatform::soundReachesTheAudioDevice()
{
    const std::vector<std::int16_t> tone = samplesOf(925);
    bool isPlayed = false;
    // A busy machine opens the audio late.
    for (int wait = 400; wait < LongestWait && !isPlayed; wait *= 2) {
        QTemporaryDir dir;
        const QString path = dir.filePath("played.raw");
        const ChildResult child = runChild({"play", "1", "925", QString::number(wait)},
                                           {{"SDL_AUDIODRIVER", "disk"}, {"SDL_DISKAUDIOFILE", path}});
        QVERIFY(child.exitedWell);
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const QByteArray bytes = file.readAll();
        std::vector<std::int16_t> played(std::size_t(bytes.size()) / 2);
        std::memcpy(played.data(), bytes.constData(), played.size() * 2);
        isPlayed = std::search(played.begin(), played.end(), tone.begin(), tone.end()) != played.end();
    }
    QVERIFY(isPlayed);
}

void TestDesktopPlatform::mutedSoundLeavesAudioClosed()
{
    QTemporaryDir dir;
    const QString path = dir.filePath("played.raw");
    const ChildResult child = runChild({"play-muted", "1", "901", "200"},
                                       {{"SDL_AUDIODRIVER", "disk"}, {"SDL_DISKAUDIOFILE", path}});
    QVERIFY(child.exitedWell);
    QVERIFY(!QFile::exists(path));
}

void TestDesktopPlatform::digitsAreDiallingTones_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<int>("low");
    QTest::addColumn<int>("high");
    const int lows[] = {697, 770, 852};
    const int highs[] = {1209, 1336, 1477};
    QTest::newRow("0") << 920 << 941 << 1336;
    for (int digit = 1; digit <= 9; ++digit)
        QTest::addRow("%d", digit) << 920 + digit << lows[(digit - 1) / 3] << highs[(digit - 1) % 3];
}

void TestDesktopPlatform::digitsAreDiallingTones()
{
    QFETCH(int, id);
    QFETCH(int, low);
    QFETCH(int, high);
    const std::vector<std::int16_t> samples = samplesOf(id);
    for (int hz : {697, 770, 852, 941, 1209, 1336, 1477}) {
        const double strength = strengthAt(hz, samples);
        QVERIFY2(hz == low || hz == high ? strength > 0.1 : strength < 0.02,
                 qPrintable(QString("%1 at %2 Hz").arg(strength).arg(hz)));
    }
    QVERIFY(loudest(samples) < loudest(samplesOf(901)) * 1.2);
}

void TestDesktopPlatform::clicksAreShortAndDiffer()
{
    const std::vector<std::int16_t> click = samplesOf(901);
    const std::vector<std::int16_t> lowClick = samplesOf(872);
    const std::size_t shortest = Tones::sampleRate / 200;
    const std::size_t longest = Tones::sampleRate / 40;
    QVERIFY(click.size() > shortest && click.size() < longest);
    QVERIFY(lowClick.size() > shortest && lowClick.size() < longest);
    QVERIFY(loudest(click) > 3000);
    QVERIFY(loudest(lowClick) > 3000);
    QVERIFY(strengthAt(2000, click) > 2 * strengthAt(1200, click));
    QVERIFY(strengthAt(1200, lowClick) > 2 * strengthAt(2000, lowClick));
}

void TestDesktopPlatform::unknownSoundIsSoftAndLow()
{
    const std::vector<std::int16_t> blip = samplesOf(12345);
    QCOMPARE(samplesOf(919), blip);
    QCOMPARE(samplesOf(930), blip);
    QVERIFY(loudest(blip) > 1000);
    QVERIFY(loudest(blip) < loudest(samplesOf(901)));
    QVERIFY(strengthAt(220, blip) > 2 * strengthAt(600, blip));
}

void TestDesktopPlatform::soundsStartAndEndWithoutJump_data()
{
    QTest::addColumn<int>("id");
    QTest::newRow("click") << 901;
    QTest::newRow("low click") << 872;
    QTest::newRow("digit") << 925;
    QTest::newRow("unknown") << 1;
}

void TestDesktopPlatform::soundsStartAndEndWithoutJump()
{
    QFETCH(int, id);
    const std::vector<std::int16_t> samples = samplesOf(id);
    QVERIFY(std::abs(samples.front()) < 100);
    QVERIFY(std::abs(samples.back()) < 100);
}

void TestDesktopPlatform::writingDirectionIsLeftToRightAtStart()
{
    QVERIFY(!StringRC::getInstance()->m_rightToLeft);
    StringRC::getInstance()->m_rightToLeft = true;
    QVERIFY(StringRC::getInstance()->m_rightToLeft);
    StringRC::getInstance()->m_rightToLeft = false;
}

void TestDesktopPlatform::watchTimeoutIsFiveSecondsAtStart()
{
    QCOMPARE(runChild({"watch-timeout"}).output, QString("5000"));
}

void TestDesktopPlatform::watchTimeoutIsKeptWithinBounds_data()
{
    QTest::addColumn<qint64>("asked");
    QTest::addColumn<qint64>("kept");
    QTest::newRow("usual") << qint64(700) << qint64(700);
    QTest::newRow("nothing") << qint64(0) << qint64(1);
    QTest::newRow("negative") << qint64(-5) << qint64(1);
    QTest::newRow("endless") << std::numeric_limits<qint64>::max() << qint64(24 * 3600 * 1000);
}

void TestDesktopPlatform::watchTimeoutIsKeptWithinBounds()
{
    QFETCH(qint64, asked);
    QFETCH(qint64, kept);
    Desktop::setWatchTimeout(std::chrono::milliseconds(asked));
    QCOMPARE(qint64(Desktop::watchTimeout().count()), kept);
}

void TestDesktopPlatform::hangingThreadIsReportedOnce()
{
    Desktop::setWatchTimeout(50ms);
    CapturedErrors errors;
    Util::startWatchThread("worker");
    EVENTUALLY_COMPARE(errors.lines().size(), 1);
    const QRegularExpression report("\"worker\" has not answered for \\d+\\.\\d s$");
    QVERIFY2(report.match(errors.lines()[0]).hasMatch(), qPrintable(errors.lines()[0]));
    QVERIFY(Desktop::watchedThreads()[0].hanging);
    Desktop::setWatchTimeout(40ms);
    passTime(150);
    QCOMPARE(errors.lines().size(), 1);
    Util::stopWatchThread("worker");
}

void TestDesktopPlatform::returningThreadIsReportedOnce()
{
    Desktop::setWatchTimeout(50ms);
    CapturedErrors errors;
    Util::startWatchThread("worker");
    EVENTUALLY_COMPARE(errors.lines().size(), 1);
    Desktop::setWatchTimeout(24h);
    Util::kickDog("worker");
    QCOMPARE(errors.lines().size(), 2);
    const QRegularExpression report("\"worker\" answers again after \\d+\\.\\d s$");
    QVERIFY2(report.match(errors.lines()[1]).hasMatch(), qPrintable(errors.lines()[1]));
    QVERIFY(!Desktop::watchedThreads()[0].hanging);
    Util::kickDog("worker");
    Util::stopWatchThread("worker");
    QCOMPARE(errors.lines().size(), 2);
}

void TestDesktopPlatform::kickedThreadIsNotReported()
{
    // Once more with more time where the machine was too busy to kick in time.
    bool inTime = false;
    for (std::chrono::milliseconds timeout = 400ms; timeout < 1h && !inTime; timeout *= 2) {
        CapturedErrors errors;
        Desktop::setWatchTimeout(timeout);
        QElapsedTimer sinceKick;
        qint64 longest = 0;
        const auto note = [&] { longest = qMax(longest, sinceKick.elapsed()); };
        sinceKick.start();
        Util::startWatchThread("worker");
        for (int i = 0; i < 20; ++i) {
            passTime(int(timeout.count()) / 10);
            QElapsedTimer kick;
            kick.start();
            Util::kickDog("worker");
            note();
            sinceKick = kick;
        }
        Util::stopWatchThread("worker");
        note();
        inTime = longest < timeout.count();
        if (inTime)
            QCOMPARE(errors.lines(), QStringList());
    }
    QVERIFY(inTime);
}

void TestDesktopPlatform::threadHangsAgainAfterReturn()
{
    Desktop::setWatchTimeout(50ms);
    CapturedErrors errors;
    Util::startWatchThread("worker");
    EVENTUALLY_COMPARE(errors.lines().size(), 1);
    Util::kickDog("worker");
    EVENTUALLY_COMPARE(errors.lines().size(), 3);
    QVERIFY(errors.lines()[2].contains("has not answered"));
    Util::stopWatchThread("worker");
}

void TestDesktopPlatform::stoppedThreadIsNotWatched()
{
    Desktop::setWatchTimeout(24h);
    CapturedErrors errors;
    Util::startWatchThread("worker");
    Util::stopWatchThread("worker");
    QVERIFY(Desktop::watchedThreads().empty());
    Desktop::setWatchTimeout(50ms);
    passTime(150);
    QCOMPARE(errors.lines(), QStringList());
}

namespace {

/// Calls something and knows the seconds that must and that may have passed since then.
class Moment
{
public:
    explicit Moment(const std::function<void()> &call)
    {
        m_before.start();
        call();
        m_after.start();
    }

    double atLeast() const { return double(m_after.nsecsElapsed()) / 1e9; }
    double atMost() const { return double(m_before.nsecsElapsed()) / 1e9; }

private:
    QElapsedTimer m_before;
    QElapsedTimer m_after;
};

}

void TestDesktopPlatform::watchedThreadsTellSecondsSinceKick()
{
    const Moment first([] { Util::startWatchThread("first"); });
    passTime(120);
    const Moment second([] { Util::startWatchThread("second"); });
    const double atLeast[] = {first.atLeast(), second.atLeast()};
    const std::vector<Desktop::WatchedThread> threads = Desktop::watchedThreads();
    const double atMost[] = {first.atMost(), second.atMost()};
    QCOMPARE(threads.size(), std::size_t(2));
    QCOMPARE(threads[0].name, std::string("first"));
    QCOMPARE(threads[1].name, std::string("second"));
    QVERIFY(threads[0].secondsSinceKick >= 0.12);
    for (int i : {0, 1}) {
        QVERIFY(threads[i].secondsSinceKick >= atLeast[i]);
        QVERIFY(threads[i].secondsSinceKick <= atMost[i]);
    }
    QVERIFY(!threads[0].hanging);
    const Moment kick([] { Util::kickDog("first"); });
    const double sinceKick = Desktop::watchedThreads()[0].secondsSinceKick;
    QVERIFY(sinceKick <= kick.atMost());
    Util::stopWatchThread("first");
    Util::stopWatchThread("second");
}

void TestDesktopPlatform::threadsOfOneNameAreWatchedApart()
{
    CapturedErrors errors;
    std::promise<void> mayEnd;
    Util::startWatchThread("clock");
    std::promise<void> isRegistered;
    std::thread other([&] {
        Util::startWatchThread("clock");
        isRegistered.set_value();
        mayEnd.get_future().wait();
        Util::stopWatchThread("clock");
    });
    isRegistered.get_future().wait();
    passTime(60);
    Util::kickDog("clock");
    Desktop::setWatchTimeout(50ms);
    EVENTUALLY(Desktop::watchedThreads()[1].hanging);
    Desktop::setWatchTimeout(24h);
    Util::kickDog("clock");
    const std::vector<Desktop::WatchedThread> threads = Desktop::watchedThreads();
    QCOMPARE(threads.size(), std::size_t(2));
    QVERIFY(!threads[0].hanging);
    QVERIFY(threads[1].hanging);
    mayEnd.set_value();
    other.join();
    QCOMPARE(Desktop::watchedThreads().size(), std::size_t(1));
    Util::stopWatchThread("clock");
    QVERIFY(Desktop::watchedThreads().empty());
}

void TestDesktopPlatform::registeringAgainStartsAfresh()
{
    Util::startWatchThread("worker");
    Util::startWatchThread("worker");
    QCOMPARE(Desktop::watchedThreads().size(), std::size_t(1));
    Util::stopWatchThread("worker");
    QVERIFY(Desktop::watchedThreads().empty());
}

void TestDesktopPlatform::kickFromAnotherThreadCounts()
{
    CapturedErrors errors;
    Util::startWatchThread("worker");
    passTime(60);
    const Moment kick([] { inThread([] { Util::kickDog("worker"); }); });
    const double sinceKick = Desktop::watchedThreads()[0].secondsSinceKick;
    QVERIFY(sinceKick <= kick.atMost());
    inThread([] { Util::stopWatchThread("worker"); });
    QVERIFY(Desktop::watchedThreads().empty());
    QCOMPARE(errors.lines(), QStringList());
}

void TestDesktopPlatform::unknownWatchNameIsLogged_data()
{
    QTest::addColumn<bool>("stops");
    QTest::newRow("kickDog") << false;
    QTest::newRow("stopWatchThread") << true;
}

void TestDesktopPlatform::unknownWatchNameIsLogged()
{
    QFETCH(bool, stops);
    CapturedErrors errors;
    if (stops)
        Util::stopWatchThread("nobody");
    else
        Util::kickDog("nobody");
    QCOMPARE(errors.lines().size(), 1);
    QVERIFY(errors.lines()[0].endsWith(QString("%1: no thread is registered as \"nobody\"")
                                           .arg(QTest::currentDataTag())));
}

void TestDesktopPlatform::watcherSleeps_data()
{
    QTest::addColumn<int>("timeoutMs");
    QTest::newRow("until a thread is due") << 24 * 3600 * 1000;
    QTest::newRow("while all threads hang") << 10;
}

void TestDesktopPlatform::watcherSleeps()
{
    QFETCH(int, timeoutMs);
    CapturedErrors errors;
    Desktop::setWatchTimeout(std::chrono::milliseconds(timeoutMs));
    Util::startWatchThread("one");
    Util::startWatchThread("two");
    std::this_thread::sleep_for(100ms);
    if (timeoutMs == 10)
        EVENTUALLY(Desktop::watchedThreads()[0].hanging && Desktop::watchedThreads()[1].hanging);
    rusage before;
    rusage after;
    getrusage(RUSAGE_SELF, &before);
    const clock_t cpuBefore = clock();
    std::this_thread::sleep_for(300ms);
    const double cpuMs = 1000.0 * double(clock() - cpuBefore) / CLOCKS_PER_SEC;
    getrusage(RUSAGE_SELF, &after);
    Util::stopWatchThread("one");
    Util::stopWatchThread("two");
    QVERIFY2(cpuMs < 50, qPrintable(QString("%1 ms of processor time in 300 ms").arg(cpuMs)));
    const long wakeUps = after.ru_nvcsw - before.ru_nvcsw;
    QVERIFY2(wakeUps < 20, qPrintable(QString("%1 wake-ups in 300 ms").arg(wakeUps)));
}

void TestDesktopPlatform::processExitsWithThreadsStillWatched()
{
    const ChildResult child = runChild({"watch-and-exit"});
    QVERIFY(child.exitedWell);
    QCOMPARE(child.errors, QString());
}

namespace {

/// A thread that kicks the watchdog until it is told to end.
class Kicker
{
public:
    explicit Kicker(const std::string &name)
        : m_thread([this, name] {
              Util::startWatchThread(name);
              while (!m_end) {
                  Util::kickDog(name);
                  ++m_kicks;
                  Util::delayMs(1);
              }
              Util::stopWatchThread(name);
          })
    {
    }

    ~Kicker()
    {
        m_end = true;
        m_thread.join();
    }

    int kicks() const { return m_kicks; }

private:
    std::atomic<bool> m_end = false;
    std::atomic<int> m_kicks = 0;
    std::thread m_thread;
};

/// Returns when the kicker hangs, which it does at a kick.
bool hangs(const Kicker &kicker, std::size_t index = 0)
{
    Desktop::setWatchTimeout(20ms);
    if (!QTest::qWaitFor([index] { return Desktop::watchedThreads()[index].hanging; }, LongestWait))
        return false;
    Desktop::setWatchTimeout(24h);
    const int kicks = kicker.kicks();
    passTime(50);
    return kicker.kicks() == kicks;
}

}

void TestDesktopPlatform::heldThreadHangsUntilItIsReleased()
{
    CapturedErrors errors;
    Kicker kicker("worker");
    EVENTUALLY(kicker.kicks() > 0);
    const Desktop::WatchedThread before = Desktop::watchedThreads()[0];
    QVERIFY(!before.held);

    Desktop::holdThread(before.id);
    QVERIFY(Desktop::watchedThreads()[0].held);
    QVERIFY(hangs(kicker));
    QCOMPARE(errors.lines().filter("\"worker\" has not answered for").size(), 1);

    const int kicks = kicker.kicks();
    Desktop::releaseThread(before.id);
    EVENTUALLY(kicker.kicks() > kicks);
    QVERIFY(!Desktop::watchedThreads()[0].held);
    QVERIFY(!Desktop::watchedThreads()[0].hanging);
    QCOMPARE(errors.lines().filter("\"worker\" answers again after").size(), 1);
}

void TestDesktopPlatform::heldThreadIsReleasedWhenItsHolderWaits()
{
    CapturedErrors errors;
    Kicker kicker("worker");
    EVENTUALLY(kicker.kicks() > 0);
    Desktop::holdThread(Desktop::watchedThreads()[0].id);
    QVERIFY(hangs(kicker));
    const int kicks = kicker.kicks();
    Util::delayMs(0);
    QVERIFY(!Desktop::watchedThreads()[0].held);
    EVENTUALLY(kicker.kicks() > kicks);
}

void TestDesktopPlatform::heldThreadStaysWhereOthersWait()
{
    CapturedErrors errors;
    Kicker kicker("worker");
    EVENTUALLY(kicker.kicks() > 0);
    Desktop::holdThread(Desktop::watchedThreads()[0].id);
    QVERIFY(hangs(kicker));
    inThread([] { Util::delayMs(0); });
    inThread([] { Desktop::releaseThreads(); });
    QVERIFY(Desktop::watchedThreads()[0].held);
    Desktop::releaseThreads();
    QVERIFY(!Desktop::watchedThreads()[0].held);
}

void TestDesktopPlatform::threadsOfOneNameAreHeldApart()
{
    CapturedErrors errors;
    Kicker first("worker");
    EVENTUALLY(first.kicks() > 0);
    Kicker second("worker");
    EVENTUALLY(second.kicks() > 0);
    Desktop::holdThread(Desktop::watchedThreads()[1].id);
    QVERIFY(hangs(second, 1));
    const int kicks = first.kicks();
    EVENTUALLY(first.kicks() > kicks + 5);
    QVERIFY(!Desktop::watchedThreads()[0].held);
    Desktop::releaseThreads();
}

void TestDesktopPlatform::threadThatIsNotThereIsNotHeld()
{
    Util::startWatchThread("gone");
    const unsigned int gone = Desktop::watchedThreads()[0].id;
    Util::stopWatchThread("gone");
    Desktop::holdThread(gone);
    Desktop::releaseThread(gone);
    Util::startWatchThread("gone");
    QVERIFY(Desktop::watchedThreads()[0].id != gone);
    QVERIFY(!Desktop::watchedThreads()[0].held);
    Util::kickDog("gone");
    Util::stopWatchThread("gone");
}

void TestDesktopPlatform::processExitsWithThreadsStillHeld()
{
    const ChildResult child = runChild({"hold-and-exit"});
    QVERIFY(child.exitedWell);
    QCOMPARE(child.output, QString("went on"));
}

void TestDesktopPlatform::delaySleepsForTheTimeGiven()
{
    QElapsedTimer timer;
    timer.start();
    Util::delayMs(120);
    QVERIFY(timer.elapsed() >= 120);
    // Long waits are those of a busy machine, but not all of them.
    qint64 shortest = LLONG_MAX;
    for (int i = 0; i < 100 && shortest >= 50; ++i) {
        timer.start();
        Util::delayMs(0);
        shortest = qMin(shortest, timer.elapsed());
    }
    QVERIFY2(shortest < 50, qPrintable(QString("%1 ms").arg(shortest)));
    shortest = LLONG_MAX;
    for (int i = 0; i < 100 && shortest >= 240; ++i) {
        timer.start();
        Util::delayMs(120);
        shortest = qMin(shortest, timer.elapsed());
    }
    QVERIFY2(shortest < 240, qPrintable(QString("%1 ms").arg(shortest)));
}

void TestDesktopPlatform::delayIsNotCutShortBySignals()
{
    struct sigaction action = {};
    struct sigaction old;
    action.sa_handler = [](int) {};
    sigaction(SIGUSR1, &action, &old);
    qint64 slept = 0;
    std::thread sleeper([&slept] {
        QElapsedTimer timer;
        timer.start();
        Util::delayMs(300);
        slept = timer.elapsed();
    });
    for (int i = 0; i < 5; ++i) {
        std::this_thread::sleep_for(20ms);
        pthread_kill(sleeper.native_handle(), SIGUSR1);
    }
    sleeper.join();
    sigaction(SIGUSR1, &old, nullptr);
    QVERIFY2(slept >= 300, qPrintable(QString("%1 ms").arg(slept)));
}

void TestDesktopPlatform::localTimeIsTheSystems()
{
    const time_t now = time(nullptr);
    const tm expected = *localtime(&now);
    const tm record = *Util::localtime(now);
    QCOMPARE(record.tm_sec, expected.tm_sec);
    QCOMPARE(record.tm_min, expected.tm_min);
    QCOMPARE(record.tm_hour, expected.tm_hour);
    QCOMPARE(record.tm_yday, expected.tm_yday);
    QCOMPARE(record.tm_year, expected.tm_year);
    QCOMPARE(record.tm_gmtoff, expected.tm_gmtoff);
}

void TestDesktopPlatform::localTimeRecordBelongsToTheThread()
{
    const tm *mine = Util::localtime(100000);
    const tm before = *mine;
    const tm *others = nullptr;
    inThread([&others] { others = Util::localtime(7); });
    QVERIFY(others != mine);
    QCOMPARE(mine->tm_sec, before.tm_sec);
    QCOMPARE(mine->tm_mday, before.tm_mday);
}

void TestDesktopPlatform::localTimeBeyondTheCalendarIsNotNull()
{
    Util::localtime(time(nullptr));
    QVERIFY(Util::localtime(std::numeric_limits<long>::max()));
    QCOMPARE(Util::localtime(std::numeric_limits<long>::max())->tm_year, 0);
}

void TestDesktopPlatform::fixedLocalTimeHoldsForAnyTime()
{
    QVERIFY(Desktop::setFixedLocalTime("2026-03-07 13:05:09"));
    for (long t : {0L, 1234567890L, -1L}) {
        const tm record = *Util::localtime(t);
        QCOMPARE(record.tm_year, 126);
        QCOMPARE(record.tm_mon, 2);
        QCOMPARE(record.tm_mday, 7);
        QCOMPARE(record.tm_hour, 13);
        QCOMPARE(record.tm_min, 5);
        QCOMPARE(record.tm_sec, 9);
        QCOMPARE(record.tm_wday, 6);
        QCOMPARE(record.tm_yday, 65);
    }
    Desktop::clearFixedLocalTime();
    QCOMPARE(Util::localtime(1234567890)->tm_year, 109);
}

void TestDesktopPlatform::fixedLocalTimeHoldsInEveryThread()
{
    QVERIFY(Desktop::setFixedLocalTime("2024-12-31 23:59:58"));
    tm record = {};
    inThread([&record] { record = *Util::localtime(0); });
    QCOMPARE(record.tm_sec, 58);
    QCOMPARE(record.tm_yday, 365);
}

void TestDesktopPlatform::fixedLocalTimeIsTold()
{
    QCOMPARE(Desktop::fixedLocalTime(), std::string());
    QVERIFY(Desktop::setFixedLocalTime("2026-03-07 13:05:09"));
    QCOMPARE(Desktop::fixedLocalTime(), std::string("2026-03-07 13:05:09"));
    QVERIFY(!Desktop::setFixedLocalTime("2026-03-32 13:05:09"));
    QCOMPARE(Desktop::fixedLocalTime(), std::string("2026-03-07 13:05:09"));
    Desktop::clearFixedLocalTime();
    QCOMPARE(Desktop::fixedLocalTime(), std::string());
}

void TestDesktopPlatform::fixedLocalTimeTakesValidTextsOnly_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("valid");
    QTest::newRow("plain") << "2026-03-07 13:05:09" << true;
    QTest::newRow("leap day") << "2024-02-29 00:00:00" << true;
    QTest::newRow("first second") << "1000-01-01 00:00:00" << true;
    QTest::newRow("before the year 1000") << "0999-01-01 00:00:00" << false;
    QTest::newRow("last second") << "9999-12-31 23:59:59" << true;
    QTest::newRow("empty") << "" << false;
    QTest::newRow("date alone") << "2026-03-07" << false;
    QTest::newRow("no leap year") << "2026-02-29 00:00:00" << false;
    QTest::newRow("month 0") << "2026-00-07 13:05:09" << false;
    QTest::newRow("month 13") << "2026-13-07 13:05:09" << false;
    QTest::newRow("day 0") << "2026-03-00 13:05:09" << false;
    QTest::newRow("day 31 of a short month") << "2026-04-31 13:05:09" << false;
    QTest::newRow("hour 24") << "2026-03-07 24:00:00" << false;
    QTest::newRow("minute 60") << "2026-03-07 13:60:09" << false;
    QTest::newRow("second 60") << "2026-03-07 13:05:60" << false;
    QTest::newRow("tail") << "2026-03-07 13:05:09 " << false;
    QTest::newRow("blank for a digit") << "2026- 3-07 13:05:09" << false;
    QTest::newRow("sign for a digit") << "2026-+3-07 13:05:09" << false;
    QTest::newRow("number too large") << "99999999999-03-07 13:05:09" << false;
    QTest::newRow("wrong separator") << "2026-03-07T13:05:09" << false;
}

void TestDesktopPlatform::fixedLocalTimeTakesValidTextsOnly()
{
    QFETCH(QString, text);
    QFETCH(bool, valid);
    QVERIFY(Desktop::setFixedLocalTime("2001-01-01 11:11:11"));
    QCOMPARE(Desktop::setFixedLocalTime(text.toStdString()), valid);
    if (valid)
        QCOMPARE(Util::localtime(0)->tm_year + 1900, text.left(4).toInt());
    else
        QCOMPARE(Util::localtime(0)->tm_min, 11);
}

void TestDesktopPlatform::tickCountsSecondsSinceStart()
{
    QElapsedTimer life;
    life.start();
    bool isNumber = false;
    const uint first = runChild({"tick"}).output.toUInt(&isNumber);
    QVERIFY(isNumber);
    QVERIFY2(first <= life.elapsed() / 1000, qPrintable(QString("%1 after %2 ms").arg(first).arg(life.elapsed())));

    QElapsedTimer longer;
    longer.start();
    const uint before = get_system_tick();
    QElapsedTimer shorter;
    shorter.start();
    std::this_thread::sleep_for(1100ms);
    const qint64 atLeast = shorter.elapsed() / 1000;
    const uint counted = get_system_tick() - before;
    const qint64 atMost = longer.elapsed() / 1000 + 1;
    QVERIFY2(counted >= atLeast && counted <= atMost, qPrintable(QString::number(counted)));
}

void TestDesktopPlatform::clockChipFailsWhenTold()
{
    const unsigned int before = Desktop::clockChipCalls();
    QVERIFY(Desktop::isClockChipWorking());
    QVERIFY(set_time() != 0);
    Desktop::setClockChipWorking(false);
    QVERIFY(!Desktop::isClockChipWorking());
    QCOMPARE(set_time(), 0);
    Desktop::setClockChipWorking(true);
    QVERIFY(set_time() != 0);
    QCOMPARE(Desktop::clockChipCalls(), before + 3);
}

void TestDesktopPlatform::everythingMayBeCalledFromManyThreads()
{
    CapturedErrors errors;
    const std::size_t soundsBefore = Desktop::soundCount();
    const unsigned int callsBefore = Desktop::clockChipCalls();
    Desktop::setWatchTimeout(1ms);
    std::vector<std::thread> threads;
    for (int n = 0; n < 4; ++n) {
        threads.emplace_back([] {
            Util::startWatchThread("busy");
            for (int i = 0; i < 200; ++i) {
                Util::kickDog("busy");
                SoundManager::getInstance()->sndPlay(901);
                Logging::log(Logging::LogError, "%s", "busy");
                Desktop::setFixedLocalTime("2026-03-07 13:05:09");
                Util::localtime(long(time(nullptr)));
                Desktop::clearFixedLocalTime();
                Desktop::setLogLevel(2);
                Desktop::setMuted(true);
                Desktop::setClockChipWorking(true);
                Desktop::recentSounds();
                Desktop::recentLogLines();
                for (const Desktop::WatchedThread &thread : Desktop::watchedThreads())
                    Desktop::holdThread(thread.id);
                Desktop::releaseThreads();
                get_system_tick();
                set_time();
                Util::delayMs(i % 3);
            }
            Util::stopWatchThread("busy");
        });
    }
    for (std::thread &thread : threads)
        thread.join();
    QCOMPARE(Desktop::soundCount(), soundsBefore + 800);
    QCOMPARE(Desktop::clockChipCalls(), callsBefore + 800);
    QVERIFY(Desktop::watchedThreads().empty());
    QCOMPARE(errors.lines().filter(QRegularExpression("  busy$")).size(), 800);
}

namespace {

int play(const QStringList &job, bool muted)
{
    Desktop::setMuted(muted);
    for (int i = 0; i < job[1].toInt(); ++i)
        SoundManager::getInstance()->sndPlay(job[2].toInt());
    printf("%d played", int(Desktop::soundCount()));
    if (job.size() > 3)
        Util::delayMs(job[3].toULong());
    return 0;
}

/// What runChild() asks for.
int runJob(const QStringList &job)
{
    if (job[0] == "play" || job[0] == "play-muted")
        return play(job, job[0] == "play-muted");
    if (job[0] == "level") {
        if (job.size() > 1)
            Desktop::setLogLevel(job[1].toInt());
        printf("%d", Desktop::logLevel());
        return 0;
    }
    if (job[0] == "tick") {
        printf("%u", get_system_tick());
        return 0;
    }
    if (job[0] == "watch-timeout") {
        printf("%d", int(Desktop::watchTimeout().count()));
        return 0;
    }
    if (job[0] == "watch-and-exit") {
        Desktop::setWatchTimeout(24h);
        Util::startWatchThread("main");
        inThread([] { Util::startWatchThread("gone"); });
        return 0;
    }
    if (job[0] == "hold-and-exit") {
        // Where the platform leaves first, as it has come last.
        static Kicker *kicker = nullptr;
        std::atexit([] {
            delete kicker;
            printf("went on");
        });
        kicker = new Kicker("worker");
        while (kicker->kicks() == 0)
            std::this_thread::yield();
        Desktop::holdThread(Desktop::watchedThreads()[0].id);
        return 0;
    }
    return 1;
}

}

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() > 2 && arguments[1] == "--child")
        return runJob(arguments.mid(2));
    TestDesktopPlatform test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_desktopplatform.moc"

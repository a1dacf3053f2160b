#include "devicewindow.h"
#include "look.h"
#include "recorder.h"
#include "screens.h"
#include "script.h"

#include "platform/desktop/desktopclock.h"
#include "platform/desktop/desktopsound.h"

#include <QApplication>
#include <QTemporaryDir>
#include <QtTest>

#include <random>

namespace {

/// A device, and a directory for the records of its keys.
class Workplace
{
public:
    DeviceWindow window{allScreens(), KeyMode::Digits, 1};
    Recorder recorder{window.device()};

    Workplace()
    {
        window.showActive();
        window.device().start(QStringLiteral("settings"));
        runFor(0);
    }

    QString file() const { return m_directory.filePath(QStringLiteral("keys")); }

    /// The steps that have been recorded, without the waits.
    QStringList steps() const
    {
        QStringList steps;
        const QStringList words = text().section(QLatin1Char('\n'), 1).simplified().split(QLatin1Char(' '));
        for (const QString &word : words) {
            if (!word.startsWith(QLatin1String("wait:")))
                steps += word;
        }
        return steps;
    }

    QString text() const
    {
        QFile file(this->file());
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

    void write(const QByteArray &text) const
    {
        QFile file(this->file());
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(text);
    }

private:
    QTemporaryDir m_directory;
};

Script withoutWaits(Script script)
{
    script.erase(std::remove_if(script.begin(), script.end(), [](const ScriptStep &step) { return step.key == 0; }),
                 script.end());
    return script;
}

int waitsIn(const Script &script)
{
    int milliseconds = 0;
    for (const ScriptStep &step : script)
        milliseconds += step.milliseconds;
    return milliseconds;
}

}

class TestSimulatorScripts : public QObject
{
    Q_OBJECT

private slots:
    void partsOfAKeyAreSteps();
    void whatIsForPeopleIsNotRead();
    void fileIsReadToItsEnd();
    void fileThatCannotBeReadIsNamed();
    void wrongWordIsNamedWithItsLine();

    void tapIsOneWord();
    void heldKeyIsRecordedPartByPart();
    void overlappingKeysAreRecordedPartByPart();
    void keyThatIsForgottenStaysForgotten();
    void everyKeyHasAName();
    void timeBetweenKeysIsRecorded();
    void longTimeIsSeveralWaits();
    void keyThatIsDownAtTheEndIsRecorded();
    void keysBeforeAndAfterAreNotRecorded();
    void newRecordTakesThePlaceOfTheOld();
    void titleIsForPeople();
    void recordThatCannotBeOpenedSaysWhy();
    void recordOnAFullDiskSaysWhy();
    void replayLeadsToTheSamePicture_data();
    void replayLeadsToTheSamePicture();
};

void TestSimulatorScripts::partsOfAKeyAreSteps()
{
    QString error;
    const Script script = parseScript(QStringLiteral("8:press 8:repeat 8:release 8:press 8:forget"), &error);
    QCOMPARE(error, QString());
    QCOMPARE(script.size(), size_t(5));
    Workplace place;
    QList<int> moves;
    connect(&place.window.device(), &Device::keyMoved, &place.window, [&moves](int key, KeyMove move) {
        QCOMPARE(key, int(Qt::Key_8));
        moves += int(move);
    });
    play(script, place.window.device(), 0);
    QCOMPARE(moves, QList<int>({int(KeyMove::Press), int(KeyMove::Repeat), int(KeyMove::Release), int(KeyMove::Press),
                                int(KeyMove::Forget)}));
}

void TestSimulatorScripts::whatIsForPeopleIsNotRead()
{
    QString error;
    const Script script = parseScript(QStringLiteral("8 // no key at all\n// F9\nOK # *"), &error);
    QCOMPARE(error, QString());
    QCOMPARE(script.size(), size_t(4));
    QCOMPARE(script[2].key, int(Qt::Key_NumberSign));
}

void TestSimulatorScripts::fileIsReadToItsEnd()
{
    const Workplace place;
    place.write("8\n\nwait:7 OK\r\nESC");
    QString error;
    const Script script = readScript(place.file(), &error);
    QCOMPARE(error, QString());
    QCOMPARE(script.size(), size_t(4));
    QCOMPARE(script[1].milliseconds, 7);
    QCOMPARE(script[3].key, int(Qt::Key_Escape));
}

void TestSimulatorScripts::fileThatCannotBeReadIsNamed()
{
    const Workplace place;
    QString error;
    QVERIFY(readScript(place.file(), &error).empty());
    QVERIFY2(error.contains(place.file()), qPrintable(error));
}

void TestSimulatorScripts::wrongWordIsNamedWithItsLine()
{
    const Workplace place;
    place.write("8\n8 OK\n8 F7 F8\nF9");
    QString error;
    readScript(place.file(), &error);
    QVERIFY2(error.contains("Line 3 ") && error.contains("\"F7\"") && !error.contains("F8"), qPrintable(error));
}

void TestSimulatorScripts::tapIsOneWord()
{
    Workplace place;
    QCOMPARE(place.recorder.start(place.file(), QString()), QString());
    Device &device = place.window.device();
    device.press(Qt::Key_8);
    device.release(Qt::Key_8);
    device.press(Qt::Key_NumberSign);
    device.release(Qt::Key_NumberSign);
    QCOMPARE(place.steps(), QStringList({"8", "#"}));
}

void TestSimulatorScripts::heldKeyIsRecordedPartByPart()
{
    Workplace place;
    QCOMPARE(place.recorder.start(place.file(), QString()), QString());
    Device &device = place.window.device();
    device.press(Qt::Key_8);
    device.repeat(Qt::Key_8);
    device.repeat(Qt::Key_8);
    device.release(Qt::Key_8);
    QCOMPARE(place.steps(), QStringList({"8:press", "8:repeat", "8:repeat", "8:release"}));
}

void TestSimulatorScripts::overlappingKeysAreRecordedPartByPart()
{
    Workplace place;
    QCOMPARE(place.recorder.start(place.file(), QString()), QString());
    Device &device = place.window.device();
    device.press(Qt::Key_8);
    device.press(Qt::Key_6);
    device.release(Qt::Key_8);
    device.release(Qt::Key_6);
    QCOMPARE(place.steps(), QStringList({"8:press", "6:press", "8:release", "6:release"}));
}

void TestSimulatorScripts::keyThatIsForgottenStaysForgotten()
{
    Workplace place;
    QCOMPARE(place.recorder.start(place.file(), QString()), QString());
    place.window.device().press(Qt::Key_8);
    place.window.device().repeat(Qt::Key_8);
    place.window.device().forgetKeys();
    QCOMPARE(place.steps().last(), QString("8:forget"));
}

void TestSimulatorScripts::everyKeyHasAName()
{
    Workplace place;
    QString error;
    const QString keys = QStringLiteral("0 1 2 3 4 5 6 7 8 9 * # F1 F2 F3 F4 OK ESC");
    const Script script = parseScript(keys, &error);
    QCOMPARE(place.recorder.start(place.file(), QString()), QString());
    play(script, place.window.device(), 0);
    QCOMPARE(place.steps().join(QLatin1Char(' ')), keys);
}

void TestSimulatorScripts::timeBetweenKeysIsRecorded()
{
    Workplace place;
    QCOMPARE(place.recorder.start(place.file(), QString()), QString());
    runFor(30);
    place.window.device().press(Qt::Key_8);
    runFor(20);
    place.window.device().release(Qt::Key_8);
    place.window.device().press(Qt::Key_8);
    QCOMPARE(place.recorder.stop(), QString());
    QString error;
    const Script script = readScript(place.file(), &error);
    QCOMPARE(error, QString());
    QCOMPARE(script.size(), size_t(4));
    QVERIFY(script[0].milliseconds >= 30);
    QVERIFY(script[2].milliseconds >= 20);
}

void TestSimulatorScripts::longTimeIsSeveralWaits()
{
    QString error;
    parseScript(QStringLiteral("wait:%1").arg(LongestScriptWait), &error);
    QCOMPARE(error, QString());
    parseScript(QStringLiteral("wait:%1").arg(LongestScriptWait + 1), &error);
    QVERIFY(!error.isEmpty());
}

void TestSimulatorScripts::keyThatIsDownAtTheEndIsRecorded()
{
    Workplace place;
    QCOMPARE(place.recorder.start(place.file(), QString()), QString());
    place.window.device().press(Qt::Key_8);
    QCOMPARE(place.recorder.stop(), QString());
    QCOMPARE(place.steps(), QStringList("8:press"));
}

void TestSimulatorScripts::keysBeforeAndAfterAreNotRecorded()
{
    Workplace place;
    Device &device = place.window.device();
    device.press(Qt::Key_2);
    device.release(Qt::Key_2);
    QCOMPARE(place.recorder.start(place.file(), QString()), QString());
    device.press(Qt::Key_8);
    device.release(Qt::Key_8);
    QCOMPARE(place.recorder.stop(), QString());
    device.press(Qt::Key_6);
    device.repeat(Qt::Key_6);
    device.release(Qt::Key_6);
    QCOMPARE(place.steps(), QStringList("8"));
}

void TestSimulatorScripts::newRecordTakesThePlaceOfTheOld()
{
    Workplace place;
    place.write("2 2 2 2 2 2 2 2 2 2 2 2 2 2 2 2 2 2 2 2 2 2 2 2");
    QCOMPARE(place.recorder.start(place.file(), QString()), QString());
    place.window.device().press(Qt::Key_8);
    place.window.device().release(Qt::Key_8);
    QCOMPARE(place.steps(), QStringList("8"));
}

void TestSimulatorScripts::titleIsForPeople()
{
    Workplace place;
    QCOMPARE(place.recorder.start(place.file(), QStringLiteral("F9 is no key")), QString());
    QCOMPARE(place.recorder.stop(), QString());
    QVERIFY(place.text().contains("F9 is no key"));
    QString error;
    QVERIFY(readScript(place.file(), &error).empty());
    QCOMPARE(error, QString());
}

void TestSimulatorScripts::recordThatCannotBeOpenedSaysWhy()
{
    Workplace place;
    QVERIFY(!place.recorder.start(place.file() + QStringLiteral("/keys"), QString()).isEmpty());
    QVERIFY(!place.recorder.isRecording());
    place.window.device().press(Qt::Key_8);
    place.window.device().release(Qt::Key_8);
}

void TestSimulatorScripts::recordOnAFullDiskSaysWhy()
{
    Workplace place;
    QCOMPARE(place.recorder.start(QStringLiteral("/dev/full"), QString()), QString());
    place.window.device().press(Qt::Key_8);
    place.window.device().release(Qt::Key_8);
    QVERIFY(!place.recorder.stop().isEmpty());
}

void TestSimulatorScripts::replayLeadsToTheSamePicture_data()
{
    QTest::addColumn<unsigned>("seed");
    for (unsigned seed = 1; seed <= 8; ++seed)
        QTest::newRow(qPrintable(QString::number(seed))) << seed;
}

void TestSimulatorScripts::replayLeadsToTheSamePicture()
{
    QFETCH(unsigned, seed);
    QTemporaryDir directory;
    const QString file = directory.filePath(QStringLiteral("keys"));
    const int keys[] = {Qt::Key_2, Qt::Key_4, Qt::Key_6, Qt::Key_8, Qt::Key_Menu, Qt::Key_F1, Qt::Key_F4, Qt::Key_5};
    QImage recorded;
    {
        Workplace place;
        Device &device = place.window.device();
        QCOMPARE(place.recorder.start(file, QString()), QString());
        std::mt19937 random(seed);
        for (int i = 0; i < 40; ++i) {
            const int key = keys[random() % 8];
            switch (random() % 8) {
            case 0: device.forgetKeys(); break;
            case 1:
            case 2: device.release(key); break;
            case 3: device.repeat(key); break;
            default: device.press(key);
            }
            runFor(0);
        }
        recorded = device.picture(1);
    }
    Workplace place;
    QString error;
    const Script script = readScript(file, &error);
    QCOMPARE(error, QString());
    QVERIFY(waitsIn(withoutWaits(script)) == 0);
    play(withoutWaits(script), place.window.device(), 0);
    QCOMPARE(place.window.device().picture(1), recorded);
}

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    fixLook();
    QApplication application(argc, argv);
    applyLook();
    Desktop::setMuted(true);
    Desktop::setFixedLocalTime("2026-03-07 13:05:09");
    TestSimulatorScripts test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_simulatorscripts.moc"

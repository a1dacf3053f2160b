// The command line of the simulator, as a program that others start.

#include "picturecomparison.h"

#include <QImage>
#include <QtTest>

namespace {

const QString Simulator = QStringLiteral(SIMULATOR);
const int LongestRun = 120000;

struct Result
{
    int status = -1;  // -1 if it did not exit by itself
    QString output;
    QString errors;
};

/// An environment without a display.
QProcessEnvironment plainEnvironment()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "XDG_SESSION_TYPE", "WIDGET_LOG_LEVEL"})
        environment.remove(QString::fromLatin1(name));
    return environment;
}

/// Starts programs in an empty directory, which goes with it.
class Runner
{
public:
    QProcessEnvironment environment = plainEnvironment();

    QString path(const QString &name) const { return m_directory.filePath(name); }
    QStringList files(const QString &directory = QString()) const
    {
        return QDir(path(directory)).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    Result run(const QString &program, const QStringList &arguments) const
    {
        QProcess process;
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(m_directory.path());
        process.start(program, arguments);
        Result result;
        if (!process.waitForFinished(LongestRun))
            process.kill();
        else if (process.exitStatus() == QProcess::NormalExit)
            result.status = process.exitCode();
        result.output = QString::fromLocal8Bit(process.readAllStandardOutput());
        result.errors = QString::fromLocal8Bit(process.readAllStandardError());
        return result;
    }

    Result simulate(const QStringList &arguments) const { return run(Simulator, arguments); }

    /// Runs the shell's \a script, in which "$@" is the simulator with its \a arguments.
    Result simulateIn(const QString &script, const QStringList &arguments) const
    {
        return run("sh", QStringList{"-c", script, "sh", Simulator} + arguments);
    }

private:
    QTemporaryDir m_directory;
};

/// A script for the shell that limits files to so little that no picture fits in.
const char SmallFiles[] = "trap '' XFSZ; ulimit -f 1; exec \"$@\"";

}

class TestSimulator : public QObject
{
    Q_OBJECT

private slots:
    void helpSaysWhatWasTyped();
    void everyScreenIsListed();
    void wrongUseIsAnError_data();
    void wrongUseIsAnError();
    void nearNameIsSuggested_data();
    void nearNameIsSuggested();
    void farNameIsNotSuggested_data();
    void farNameIsNotSuggested();
    void pictureIsWritten_data();
    void pictureIsWritten();
    void readmeShowsWhatItLooksLike();
    void pictureGoesThroughPipe();
    void tourMakesItsDirectory();
    void pictureThatCannotBeWrittenIsAnError_data();
    void pictureThatCannotBeWrittenIsAnError();
    void unfinishedPictureIsRemoved_data();
    void unfinishedPictureIsRemoved();
    void unfinishedPictureLeavesTheOldOne();
    void fullDiskIsAnError();
    void killedWhileWritingLeavesNoPicture();
    void deviceIsNotReplaced();
    void outputThatCannotBeWrittenIsAnError_data();
    void outputThatCannotBeWrittenIsAnError();
    void tourTakesTheWindowsPlace_data();
    void tourTakesTheWindowsPlace();
    void screenWithoutDisplayIsAnError_data();
    void screenWithoutDisplayIsAnError();
    void recordWithoutDisplayIsAnError();
    void keysComeFromAFile();
    void pictureNeedsNoDisplay_data();
    void pictureNeedsNoDisplay();
    void tourThatTakesTheWindowsPlaceMayFail();
    void pluginsAreInUse();
    void picturesAreTheSameWithoutPlugins();
};

void TestSimulator::helpSaysWhatWasTyped()
{
    const Runner runner;
    const Result result = runner.run("bash", {"-c", "exec -a ./typed \"$@\"", "bash", Simulator, "--help"});
    QCOMPARE(result.status, 0);
    QVERIFY2(result.output.contains("Usage: ./typed [OPTION]"), qPrintable(result.output));
    const Result error = runner.run("bash", {"-c", "exec -a ./typed \"$@\"", "bash", Simulator, "--nonsense"});
    QCOMPARE(error.status, 2);
    QVERIFY2(error.errors.startsWith("./typed: "), qPrintable(error.errors));
    QVERIFY2(error.errors.contains("./typed --help"), qPrintable(error.errors));
}

void TestSimulator::everyScreenIsListed()
{
    const Runner runner;
    const Result result = runner.simulate({"--list-screens"});
    QCOMPARE(result.status, 0);
    QVERIFY(result.output.startsWith("home "));
    QVERIFY(result.output.count('\n') > 5);
}

void TestSimulator::wrongUseIsAnError_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QStringList>("parts");  // of what is said
    QTest::newRow("tour and picture") << QStringList{"--tour", "a", "--picture", "a.png"}
                                      << QStringList{"--tour", "--picture"};
    QTest::newRow("tour and screen") << QStringList{"--tour", "a", "--screen", "home"}
                                     << QStringList{"--tour", "--screen"};
    QTest::newRow("keys and tour") << QStringList{"--keys", "8", "--tour=a"} << QStringList{"--tour", "--keys"};
    QTest::newRow("list and picture") << QStringList{"--list-screens", "--picture", "a.png"}
                                      << QStringList{"--list-screens", "--picture"};
    QTest::newRow("tour and list") << QStringList{"--tour", "a", "--list-screens"}
                                   << QStringList{"--list-screens", "--tour"};
    QTest::newRow("list and screen") << QStringList{"--list-screens", "--screen", "home"}
                                     << QStringList{"--list-screens", "--screen"};
    QTest::newRow("another kind of picture") << QStringList{"--picture", "a.jpg"} << QStringList{"a.jpg", ".png"};
    QTest::newRow("no value") << QStringList{"--picture"} << QStringList{"--picture FILE"};
    QTest::newRow("option in place of a value") << QStringList{"--picture", "--with-keys"}
                                                << QStringList{"--picture FILE"};
    QTest::newRow("value too many") << QStringList{"--with-keys=1"} << QStringList{"--with-keys"};
    QTest::newRow("empty name") << QStringList{"--tour", ""} << QStringList{"--tour", "empty"};
    QTest::newRow("no such screen") << QStringList{"--screen", "none"} << QStringList{"none", "home, radio"};
    QTest::newRow("no such key") << QStringList{"--keys", "8 F5"} << QStringList{"F5", "F1 to F4"};
    QTest::newRow("no file of keys") << QStringList{"--keys", "@none"} << QStringList{"--keys", "\"none\""};
    QTest::newRow("record and picture") << QStringList{"--record", "a", "--picture", "a.png"}
                                        << QStringList{"--record", "--picture"};
    QTest::newRow("full screen and device only") << QStringList{"--full-screen", "--device-only"}
                                                 << QStringList{"--full-screen", "--device-only"};
    QTest::newRow("tour and record") << QStringList{"--tour", "a", "--record", "a"}
                                     << QStringList{"--record", "--tour"};
    QTest::newRow("no such zoom") << QStringList{"--zoom", "5"} << QStringList{"5", "1 to 4"};
    QTest::newRow("no such time") << QStringList{"--time", "noon"} << QStringList{"noon", "2026-03-07 13:05:09"};
}

void TestSimulator::wrongUseIsAnError()
{
    QFETCH(QStringList, arguments);
    QFETCH(QStringList, parts);
    const Runner runner;
    const Result result = runner.simulate(arguments);
    QCOMPARE(result.status, 2);
    QCOMPARE(result.output, QString());
    for (const QString &part : parts)
        QVERIFY2(result.errors.contains(part), qPrintable(result.errors));
    QCOMPARE(runner.files(), QStringList());
}

void TestSimulator::nearNameIsSuggested_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("meant");
    QTest::newRow("letter missing") << "--scren" << "--screen";
    QTest::newRow("letters swapped") << "--tuor" << "--tour";
    QTest::newRow("other letter") << "--zoon" << "--zoom";
    QTest::newRow("letter too many") << "--pictures" << "--picture";
    QTest::newRow("beginning") << "--list" << "--list-screens";
    QTest::newRow("capital") << "--Keys" << "--keys";
    QTest::newRow("one dash") << "-zoom" << "--zoom";
    QTest::newRow("no dash") << "help" << "--help";
    QTest::newRow("screen") << "radio" << "--screen radio";
}

void TestSimulator::nearNameIsSuggested()
{
    QFETCH(QString, name);
    QFETCH(QString, meant);
    const Runner runner;
    const Result result = runner.simulate({name});
    QCOMPARE(result.status, 2);
    QVERIFY2(result.errors.contains(QString("Do you mean %1?").arg(meant)), qPrintable(result.errors));
}

void TestSimulator::farNameIsNotSuggested_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"--foo", "--verbose", "--version", "--colour", "--lang", "-z", "--", ""})
        QTest::newRow(name) << QString(name);
}

void TestSimulator::farNameIsNotSuggested()
{
    QFETCH(QString, name);
    const Runner runner;
    const Result result = runner.simulate({name});
    QCOMPARE(result.status, 2);
    QVERIFY2(!result.errors.contains("Do you mean"), qPrintable(result.errors));
    QVERIFY2(result.errors.contains("--help shows all options"), qPrintable(result.errors));
}

void TestSimulator::pictureIsWritten_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("png") << "a.png";
    QTest::newRow("capitals") << "A.PNG";
    QTest::newRow("no suffix") << "picture";
}

void TestSimulator::pictureIsWritten()
{
    QFETCH(QString, name);
    const Runner runner;
    const Result result = runner.simulate({"--picture", name});
    QCOMPARE(result.status, 0);
    QCOMPARE(result.output, QString());
    QCOMPARE(QImage(runner.path(name), "PNG").size(), QSize(220, 176));
    QCOMPARE(runner.files(), QStringList(name));
}

void TestSimulator::readmeShowsWhatItLooksLike()
{
    const Runner runner;
    const Result result = runner.simulate({"--screen", "settings", "--keys", "8", "--zoom", "2", "--with-keys", "--picture",
                                           "device.png"});
    QCOMPARE(result.status, 0);
    const QImage shown(QStringLiteral(README_PICTURES "/device.png"));
    const int differing = differingPixels(QImage(runner.path("device.png")), shown);
    QVERIFY2(differing < shown.width() * shown.height() / 50, qPrintable(QString::number(differing)));
}

void TestSimulator::pictureGoesThroughPipe()
{
    const Runner runner;
    QCOMPARE(runner.simulateIn("\"$@\" | cat > got", {"--picture", "/dev/stdout"}).status, 0);
    QCOMPARE(QImage(runner.path("got"), "PNG").size(), QSize(220, 176));
}

void TestSimulator::tourMakesItsDirectory()
{
    const Runner runner;
    const Result result = runner.simulate({"--tour", "made/here"});
    QCOMPARE(result.status, 0);
    QVERIFY2(result.output.contains(QDir(runner.path("made/here")).canonicalPath()), qPrintable(result.output));
    const QStringList files = runner.files("made/here");
    QVERIFY(files.size() > 100);
    for (const QString &file : files)
        QCOMPARE(QImage(runner.path("made/here/" + file), "PNG").size(), QSize(220, 176));
}

void TestSimulator::pictureThatCannotBeWrittenIsAnError_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("reason");
    QTest::addColumn<QString>("way");
    QTest::newRow("full device") << QStringList{"--picture", "/dev/full"} << "No space left on device" << "--picture FILE";
    QTest::newRow("no directory") << QStringList{"--picture", "none/a.png"} << "No such file" << "--picture FILE";
    QTest::newRow("directory") << QStringList{"--picture", "."} << "directory" << "--picture FILE";
    QTest::newRow("tour to a file") << QStringList{"--tour", "/dev/null"} << "Not a directory" << "--tour DIR";
    QTest::newRow("tour below a file") << QStringList{"--tour", "/dev/null/a"} << "Not a directory" << "--tour DIR";
}

void TestSimulator::pictureThatCannotBeWrittenIsAnError()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, reason);
    QFETCH(QString, way);
    const Runner runner;
    const Result result = runner.simulate(arguments);
    QCOMPARE(result.status, 1);
    QCOMPARE(result.output, QString());
    for (const QString &part : {arguments.last(), reason, way})
        QVERIFY2(result.errors.contains(part), qPrintable(result.errors));
    QCOMPARE(runner.files(), QStringList());
}

void TestSimulator::unfinishedPictureIsRemoved_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("picture") << QStringList{"--picture", "a.png"};
    QTest::newRow("tour") << QStringList{"--tour", "."};
}

void TestSimulator::unfinishedPictureIsRemoved()
{
    QFETCH(QStringList, arguments);
    const Runner runner;
    const Result result = runner.simulateIn(SmallFiles, arguments);
    QCOMPARE(result.status, 1);
    QVERIFY2(result.errors.contains("File too large"), qPrintable(result.errors));
    QCOMPARE(runner.files(), QStringList());
}

void TestSimulator::unfinishedPictureLeavesTheOldOne()
{
    const Runner runner;
    QCOMPARE(runner.simulate({"--picture", "a.png"}).status, 0);
    QCOMPARE(runner.simulateIn(SmallFiles, {"--picture", "a.png", "--screen", "radio"}).status, 1);
    QCOMPARE(runner.files(), QStringList("a.png"));
    QCOMPARE(QImage(runner.path("a.png"), "PNG").size(), QSize(220, 176));
}

void TestSimulator::fullDiskIsAnError()
{
    const Runner runner;
    QDir(runner.path(QString())).mkdir("disk");
    // The mount is the shell's own and goes with it.
    const QString mount = "mount -t tmpfs -o size=64k tmpfs disk";
    if (runner.run("unshare", {"-m", "sh", "-c", mount}).status != 0)
        QSKIP("A small disk cannot be mounted here.");
    const Result result = runner.run("unshare", {"-m", "sh", "-c", mount + " && \"$@\"; code=$?; "
                                                 "find disk -name '*.png' -size 0; exit $code",
                                                 "sh", Simulator, "--tour", "disk"});
    QCOMPARE(result.status, 1);
    QCOMPARE(result.output, QString());
    QVERIFY2(result.errors.contains("No space left on device"), qPrintable(result.errors));
}

void TestSimulator::killedWhileWritingLeavesNoPicture()
{
    const Runner runner;
    // Without the trap, the first byte that is too many ends the process.
    const Result result = runner.simulateIn("ulimit -f 1; ulimit -c 0; exec \"$@\"", {"--picture", "a.png"});
    QCOMPARE(result.status, -1);
    QVERIFY(!runner.files().contains("a.png"));
}

void TestSimulator::deviceIsNotReplaced()
{
    const Runner runner;
    if (runner.run("mkfifo", {"pipe"}).status != 0)
        QSKIP("A pipe cannot be made here.");
    QCOMPARE(runner.simulateIn("cat pipe > got & \"$@\" && wait", {"--picture", "pipe"}).status, 0);
    QCOMPARE(QImage(runner.path("got"), "PNG").size(), QSize(220, 176));
    QVERIFY(!QFileInfo(runner.path("pipe")).isFile());
}

void TestSimulator::outputThatCannotBeWrittenIsAnError_data()
{
    QTest::addColumn<QString>("option");
    QTest::newRow("help") << "--help";
    QTest::newRow("screens") << "--list-screens";
}

void TestSimulator::outputThatCannotBeWrittenIsAnError()
{
    QFETCH(QString, option);
    const Runner runner;
    const Result result = runner.simulateIn("exec \"$@\" > /dev/full", {option});
    QCOMPARE(result.status, 1);
    QVERIFY2(result.errors.contains("No space left on device"), qPrintable(result.errors));
}

void addDisplaysThatDoNotAnswer()
{
    QTest::addColumn<QString>("variable");
    QTest::addColumn<QString>("value");
    QTest::newRow("X") << "DISPLAY" << ":9999";
    QTest::newRow("X, no number") << "DISPLAY" << "none";
    QTest::newRow("Wayland") << "WAYLAND_DISPLAY" << "none";
    QTest::newRow("Wayland, any file") << "WAYLAND_DISPLAY" << "/dev/null";
    QTest::newRow("no such platform") << "QT_QPA_PLATFORM" << "none";
    QTest::newRow("platform without display") << "QT_QPA_PLATFORM" << "xcb";
    QTest::newRow("platform without screen") << "QT_QPA_PLATFORM" << "linuxfb:fb=/dev/null";
    QTest::newRow("several platforms") << "QT_QPA_PLATFORM" << "none;xcb";
}

void TestSimulator::tourTakesTheWindowsPlace_data()
{
    addDisplaysThatDoNotAnswer();
    QTest::newRow("no display") << "DISPLAY" << "";
}

void TestSimulator::tourTakesTheWindowsPlace()
{
    QFETCH(QString, variable);
    QFETCH(QString, value);
    Runner runner;
    runner.environment.insert(variable, value);
    // The tour ends at its first picture, which is quick.
    const Result result = runner.simulateIn(SmallFiles, {});
    QVERIFY2(result.output.contains("There is no display"), qPrintable(result.output));
    QVERIFY2(result.errors.contains("pictures/home.png"), qPrintable(result.errors));
    QCOMPARE(result.errors.contains(QString("%1=\"%2\"").arg(variable, value)), !value.isEmpty());
    QCOMPARE(runner.files(), QStringList("pictures"));
}

void TestSimulator::screenWithoutDisplayIsAnError_data()
{
    addDisplaysThatDoNotAnswer();
}

void TestSimulator::screenWithoutDisplayIsAnError()
{
    QFETCH(QString, variable);
    QFETCH(QString, value);
    Runner runner;
    runner.environment.insert(variable, value);
    const Result result = runner.simulate({"--screen", "radio"});
    QCOMPARE(result.status, 1);
    for (const QString &part : {QString("%1=\"%2\"").arg(variable, value), QString("--picture FILE")})
        QVERIFY2(result.errors.contains(part), qPrintable(result.errors));
    QCOMPARE(runner.files(), QStringList());
}

void TestSimulator::recordWithoutDisplayIsAnError()
{
    const Runner runner;
    const Result result = runner.simulate({"--record", "keys"});
    QCOMPARE(result.status, 1);
    QVERIFY2(result.errors.contains("there is no display here"), qPrintable(result.errors));
    QCOMPARE(runner.files(), QStringList());
}

void TestSimulator::keysComeFromAFile()
{
    const Runner runner;
    QFile file(runner.path("keys"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("// To the second row\nwait:1 8:press\n8:release\n");
    file.close();
    QCOMPARE(runner.simulate({"--screen", "settings", "--keys", "@keys", "--picture", "a.png"}).status, 0);
    QCOMPARE(runner.simulate({"--screen", "settings", "--keys", "8", "--picture", "b.png"}).status, 0);
    QCOMPARE(runner.simulate({"--screen", "settings", "--picture", "c.png"}).status, 0);
    QCOMPARE(QImage(runner.path("a.png")), QImage(runner.path("b.png")));
    QVERIFY(QImage(runner.path("a.png")) != QImage(runner.path("c.png")));
}

void TestSimulator::pictureNeedsNoDisplay_data()
{
    addDisplaysThatDoNotAnswer();
}

void TestSimulator::pictureNeedsNoDisplay()
{
    QFETCH(QString, variable);
    QFETCH(QString, value);
    Runner runner;
    runner.environment.insert(variable, value);
    const Result result = runner.simulate({"--screen", "radio", "--picture", "a.png"});
    QCOMPARE(result.status, 0);
    QCOMPARE(result.errors, QString());
    QCOMPARE(QImage(runner.path("a.png"), "PNG").size(), QSize(220, 176));
}

void TestSimulator::tourThatTakesTheWindowsPlaceMayFail()
{
    const Runner runner;
    const Result result = runner.simulateIn(": > pictures; exec \"$@\"", {});
    QCOMPARE(result.status, 1);
    for (const char *part : {"pictures", "Not a directory", "--tour DIR"})
        QVERIFY2(result.errors.contains(part), qPrintable(result.errors));
}

void TestSimulator::pluginsAreInUse()
{
    if (!HAS_PLUGINS)
        QSKIP("There are no plug-ins in this build.");
    Runner runner;
    runner.environment.insert("QT_DEBUG_PLUGINS", "1");
    const Result result = runner.simulate({"--picture", "a.png"});
    QCOMPARE(result.status, 0);
    const QStringList lines = result.errors.split('\n').filter("loaded library").filter("libwidgetpicturecache.so");
    QVERIFY2(!lines.isEmpty(), qPrintable(result.errors));
}

void TestSimulator::picturesAreTheSameWithoutPlugins()
{
    const Runner runner;
    // It finds its plug-ins from where it is itself.
    const QString elsewhere = runner.path("elsewhere");
    QVERIFY(QFile::copy(Simulator, elsewhere));
    QCOMPARE(runner.run("sh", {"-c", "\"$1\" --tour with & \"$2\" --tour without && wait $!", "sh", Simulator, elsewhere})
             .status, 0);
    const QStringList names = runner.files("with");
    QVERIFY(names.size() > 10);
    QCOMPARE(runner.files("without"), names);
    for (const QString &name : names) {
        const QImage with(runner.path("with/" + name));
        QVERIFY2(!with.isNull() && with == QImage(runner.path("without/" + name)), qPrintable(name));
    }
}

QTEST_GUILESS_MAIN(TestSimulator)
#include "tst_simulator.moc"

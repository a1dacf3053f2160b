// The programs in examples/, each worked by its keys in a process of its own (screenprobe/). They are those of the
// build or, where WIDGET_EXAMPLES names a directory, the programs clock/clock and so on in there.
//
//     tst_examples --pictures DIRECTORY
//         writes a picture of each, example-clock.png and so on, of 440 by 352 pixels; no test is run
//     tst_examples --pictures DIRECTORY clock 1 2 "image clock_3"
//         of the one, after keys, named as in Qt::Key_1, or any steps that the probe takes; without any, as it starts

#include "picturecomparison.h"

#include <QImage>
#include <QSettings>
#include <QtTest>

#include <algorithm>
#include <cstdio>

namespace {

const int LongestRun = 240000;
const QStringList examples = {"clock", "functionkeys", "homescreen", "longlist", "settingsmenu", "textentry"};

/// Examples that other tests work: for a board, with a form, and the one of README.md.
const QStringList otherExamples = {"board", "designerform", "firstscreen"};

const int LineLimit = 100;
const QSize PictureSize(440, 352);

/// Their places in docs/examples.png, in rows of three. With the pictures of --pictures, which stand in docs/ too, it is
/// made anew by
///     montage <pictures> -filter point -resize 50% -tile 3x2 -geometry 220x176+5+5 -background '#C9C2BE' -strip
///         docs/examples.png
const QStringList pictureOrder = {"settingsmenu", "textentry", "clock", "homescreen", "longlist", "functionkeys"};
const int PictureGap = 5;

/// Saturday, 7 March 2026, 13:05:09 in the time zone that the programs have.
const char Time[] = "1772888709";

/// What the toolkit has to say whenever there is no display.
bool isOfTheToolkit(const QString &line)
{
    return line.contains(QLatin1String("does not support propagateSizeHints"));
}

struct Result
{
    bool isGood = false;  // the steps came about, the program ended by itself, and there was nothing to complain about
    QByteArray errors;
};

/// Runs examples with a home directory of their own, which goes with it.
class Runner
{
public:
    QString path(const QString &name) const { return m_directory.filePath(name); }

    Result run(const QString &example, const QStringList &steps) const
    {
        QFile file(path(QStringLiteral("steps")));
        file.open(QFile::WriteOnly);
        file.write(steps.join('\n').toUtf8());
        file.close();

        QProcess process;
        process.setProcessEnvironment(environment(file.fileName()));
        process.setWorkingDirectory(m_directory.path());
        process.start(program(example), QStringList());
        Result result;
        const bool hasEnded = process.waitForFinished(LongestRun);
        if (!hasEnded)
            process.kill();
        QStringList errors = QString::fromLocal8Bit(process.readAllStandardError()).split('\n', Qt::SkipEmptyParts);
        errors.erase(std::remove_if(errors.begin(), errors.end(), isOfTheToolkit), errors.end());
        result.isGood = hasEnded && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0
                && errors.isEmpty();
        if (process.error() == QProcess::FailedToStart)
            errors += process.errorString();
        result.errors = QStringLiteral("%1, status %2: %3")
                            .arg(example, QString::number(process.exitCode()), errors.join('\n')).toLocal8Bit();
        return result;
    }

private:
    static QString program(const QString &example)
    {
        const QString directory = qEnvironmentVariable("WIDGET_EXAMPLES");
        return directory.isEmpty() ? QStringLiteral(PROGRAM_DIRECTORY "/") + example
                                   : QStringLiteral("%1/%2/%2").arg(directory, example);
    }

    QProcessEnvironment environment(const QString &steps) const
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "XDG_SESSION_TYPE", "WIDGET_LOG_LEVEL", "QT_FONT_DPI"})
            environment.remove(QString::fromLatin1(name));
        for (const char *name : {"HOME", "XDG_CONFIG_HOME", "XDG_RUNTIME_DIR"})
            environment.insert(QString::fromLatin1(name), m_directory.path());
        environment.insert("FIXEDTIME", Time);
        environment.insert("LC_ALL", "C.UTF-8");
        environment.insert("LD_PRELOAD", FIXED_TIME);
        environment.insert("QT_PLUGIN_PATH", PLUGIN_DIRECTORY);
        environment.insert("QT_QPA_GENERIC_PLUGINS", "screenprobe");
        environment.insert("QT_QPA_PLATFORM", "offscreen");
        environment.insert("SCREENPROBE_STEPS", steps);
        environment.insert("SDL_AUDIODRIVER", "dummy");
        environment.insert("TZ", "UTC");
        return environment;
    }

    QTemporaryDir m_directory;
};

/// What leads to where each example shows most.
const QHash<QString, QStringList> bestSteps = {
    {"clock", {"text Saturday", "image clock_pm"}},
    {"functionkeys", {"row Radio 1", "F2"}},
    {"homescreen", {"text Radio"}},
    {"longlist", {"row 1. Blue Morning 2:00", "8"}},
    {"settingsmenu", {"row Key clicks Off", "8", "6"}},
    {"textentry", {"text Your name", "2", "3"}},
};

Result writePicture(const QString &example, const QStringList &steps, const QString &directory)
{
    QStringList all;
    for (const QString &step : steps)
        all += step.contains(' ') ? step : QStringLiteral("key ") + step;
    all += QStringLiteral("picture-2x %1/example-%2.png").arg(QDir(directory).absolutePath(), example);
    all += QStringLiteral("leave");
    return Runner().run(example, all);
}

/// Does what --pictures with \a arguments is for.
bool writePictures(const QStringList &arguments)
{
    const QString chosen = arguments.value(1);
    bool isGood = QDir().mkpath(arguments.value(0));
    for (const QString &example : chosen.isEmpty() ? examples : QStringList(chosen)) {
        const QStringList steps = chosen.isEmpty() ? bestSteps.value(example) : QStringList(arguments.mid(2));
        const Result result = writePicture(example, steps, arguments.value(0));
        if (!result.isGood)
            std::fprintf(stderr, "%s\n", result.errors.constData());
        isGood = isGood && result.isGood;
    }
    return isGood;
}

}

class TestExamples : public QObject
{
    Q_OBJECT

private slots:
    void eachIsTried();
    void isShort_data();
    void isShort();
    void pictureIsWritten_data();
    void pictureIsWritten();

    void settingsAreKept();
    void settingsNotSavedAreTakenBack();
    void settingsGoAroundTheirValues();
    void textIsTypedInThreeAlphabets();
    void pagesTurnAround();
    void textGreetsWhomItNames();
    void clockShowsTimeAndDate();
    void clockChangesBetween12And24Hours();
    void dateChangesItsOrder();
    void homeScreenTurnsAroundItsEnds();
    void homeScreenOpensItsEntries();
    void messageIsReadOnceOpened();
    void longListIsLong();
    void longListRunsWhileAKeyIsHeld();
    void longListPlaysARow();
    void functionKeysMoveAndChange();
    void digitsOpenRows();
    void digitsDoNotMove();
};

#define WORK(example, ...) \
    do { \
        const Result result = runner.run(QStringLiteral(example), QStringList{__VA_ARGS__}); \
        QVERIFY2(result.isGood, result.errors.constData()); \
    } while (false)

void TestExamples::eachIsTried()
{
    QStringList directories = QDir(EXAMPLE_DIRECTORY).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
    for (const QString &other : otherExamples)
        directories.removeAll(other);
    QCOMPARE(directories, examples);
}

void TestExamples::isShort_data()
{
    QTest::addColumn<QString>("example");
    for (const QString &example : examples)
        QTest::newRow(qPrintable(example)) << example;
}

void TestExamples::isShort()
{
    QFETCH(QString, example);
    QDirIterator files(QStringLiteral(EXAMPLE_DIRECTORY "/") + example, {"*.cpp", "*.h"}, QDir::Files,
                       QDirIterator::Subdirectories);
    int lines = 0;
    while (files.hasNext()) {
        QFile file(files.next());
        QVERIFY(file.open(QFile::ReadOnly));
        lines += int(file.readAll().count('\n'));
    }
    QVERIFY(lines > 0);
    QVERIFY2(lines < LineLimit, qPrintable(QStringLiteral("%1 lines").arg(lines)));
}

void TestExamples::pictureIsWritten_data()
{
    isShort_data();
}

void TestExamples::pictureIsWritten()
{
    QFETCH(QString, example);
    const QTemporaryDir directory;
    const Result result = writePicture(example, bestSteps.value(example), directory.path());
    QVERIFY2(result.isGood, result.errors.constData());
    const QImage picture(directory.filePath(QStringLiteral("example-%1.png").arg(example)));
    QCOMPARE(picture.size(), PictureSize);

    // The guide and README.md show what people see before they build anything.
    const QImage alone(QStringLiteral(EXAMPLE_DIRECTORY "/../docs/example-%1.png").arg(example));
    const int differingAlone = differingPixels(picture, alone);
    QVERIFY2(differingAlone < picture.width() * picture.height() / 50, qPrintable(QString::number(differingAlone)));
    const QSize size = PictureSize / 2;
    const int index = int(pictureOrder.indexOf(example));
    const QPoint place(PictureGap + index % 3 * (size.width() + 2 * PictureGap),
                       PictureGap + index / 3 * (size.height() + 2 * PictureGap));
    const QImage all(EXAMPLE_DIRECTORY "/../docs/examples.png");
    const int differing = differingPixels(picture.scaled(size), all.copy(QRect(place, size)));
    QVERIFY2(differing < size.width() * size.height() / 50, qPrintable(QString::number(differing)));
}

void TestExamples::settingsAreKept()
{
    const Runner runner;
    WORK("settingsmenu", "row Key clicks Off", "text Sound", "key 6", "row Key clicks Quiet", "text Sound (not saved)",
         "key 8", "row Bass Low", "key 4", "row Bass High", "key 8", "key 8", "key 4",
         "row At high speed A great deal louder", "key Menu", "text Sound", "key Escape");
    const QSettings file(runner.path("libwidget-examples/settingsmenu.conf"), QSettings::IniFormat);
    QCOMPARE(file.value("clicks").toString(), QStringLiteral("Quiet"));
    QCOMPARE(file.value("bass").toString(), QStringLiteral("High"));
    QCOMPARE(file.value("treble").toString(), QStringLiteral("Low"));
    QCOMPARE(file.value("speed").toString(), QStringLiteral("A great deal louder"));
    WORK("settingsmenu", "row Key clicks Quiet", "key 8", "row Bass High", "key 8", "row Treble Low", "text Sound",
         "key Escape");
}

void TestExamples::settingsNotSavedAreTakenBack()
{
    const Runner runner;
    WORK("settingsmenu", "row Key clicks Off", "picture before.png", "key 6", "row Key clicks Quiet", "other before.png",
         "key Escape", "row Key clicks Off", "text Sound", "same before.png", "key Escape");
    QVERIFY(!QFile::exists(runner.path("libwidget-examples/settingsmenu.conf")));

    WORK("settingsmenu", "row Key clicks Off", "key 6", "key Menu", "text Sound", "key 6", "row Key clicks Loud",
         "key Escape", "row Key clicks Quiet", "key Escape");
}

void TestExamples::settingsGoAroundTheirValues()
{
    const Runner runner;
    WORK("settingsmenu", "row Key clicks Off", "key 2", "row At high speed No louder", "key 6",
         "row At high speed A little louder", "key 6", "row At high speed A great deal louder", "key 6",
         "row At high speed No louder", "text Sound", "key Escape");
}

void TestExamples::textIsTypedInThreeAlphabets()
{
    const Runner runner;
    WORK("textentry", "text Your name", "text abc2", "text #ABC", "key 2", "text a", "key 3", "text ad",
         "key F1", "no-text abc2", "text αβγ2", "key 4", "text adη", "key F2", "text абвг2", "key 5", "text adηм",
         "key F4", "text adη", "key 0", "text adη0", "key F3", "text adη0 ", "key Escape");
}

void TestExamples::pagesTurnAround()
{
    const Runner runner;
    WORK("textentry", "text abc2", "key NumberSign", "text ABC2", "key NumberSign", "text αβγ2", "key NumberSign",
         "text ΑΒΓ2", "key NumberSign", "text абвг2", "key NumberSign", "text АБВГ", "key NumberSign", "text abc2",
         "key Asterisk", "text АБВГ", "key Asterisk", "text абвг2", "key Escape");
}

void TestExamples::textGreetsWhomItNames()
{
    const Runner runner;
    WORK("textentry", "text Your name", "key NumberSign", "key 2", "key 3", "text AD", "key Menu", "text Hello AD",
         "no-text AD", "key 4", "text G", "no-text Hello AD", "key Escape");
}

void TestExamples::clockShowsTimeAndDate()
{
    const Runner runner;
    WORK("clock", "image clock_pm", "image clock_separator", "image clock_0", "image clock_1", "image clock_5",
         "no-image clock_3", "image clock_xs_0", "image clock_xs_9", "text 03/07", "text Saturday", "key Escape");
}

void TestExamples::clockChangesBetween12And24Hours()
{
    const Runner runner;
    WORK("clock", "image clock_pm", "text Saturday", "picture 12.png", "key 1", "no-image clock_pm", "image clock_3",
         "other 12.png", "picture 24.png", "key 1", "image clock_pm", "no-image clock_3", "same 12.png", "key 1",
         "same 24.png", "key Escape");
}

void TestExamples::dateChangesItsOrder()
{
    const Runner runner;
    WORK("clock", "text 03/07", "key 2", "text 07/03", "no-text 03/07", "key 2", "text 03/07", "key Escape");
}

void TestExamples::homeScreenTurnsAroundItsEnds()
{
    const Runner runner;
    WORK("homescreen", "text Radio", "image radio", "image clock_side", "image more_side", "image status_battery",
         "picture start.png", "key 6", "text Clock", "image clock", "image radio_side", "other start.png", "key 4",
         "same start.png", "key 4", "text More", "image more", "key 6", "same start.png", "key Escape");
}

void TestExamples::homeScreenOpensItsEntries()
{
    const Runner runner;
    WORK("homescreen", "text Radio", "picture start.png", "key Menu", "row Stations", "other start.png", "key 8",
         "row Search", "key 6", "key Escape", "same start.png", "key 6", "text Clock", "key Menu", "row Alarm",
         "key Escape", "text Clock", "key 6", "text Route", "key Escape");
}

void TestExamples::messageIsReadOnceOpened()
{
    const Runner runner;
    WORK("homescreen", "image status_message", "key Menu", "row Stations", "key Escape", "image status_message",
         "key 6", "key 6", "key 6", "text Message", "key Menu", "row Read", "image status_message_read",
         "no-image status_message", "key Escape", "text Message", "image status_message_read", "key Escape");
}

void TestExamples::longListIsLong()
{
    const Runner runner;
    WORK("longlist", "row 1. Blue Morning 2:00", "key 8", "row 2. Slow River 3:37", "key 2", "key 2",
         "row 10000. Distant Morning 6:03", "key 8", "row 1. Blue Morning 2:00", "key Escape");
}

void TestExamples::longListRunsWhileAKeyIsHeld()
{
    const Runner runner;
    WORK("longlist", "row 1. Blue Morning 2:00", "hold 8 31", "row 41. Early Summer 2:40", "key 8",
         "row 42. Quiet Moon 3:17", "key Escape");
}

void TestExamples::longListPlaysARow()
{
    const Runner runner;
    WORK("longlist", "row 1. Blue Morning 2:00", "picture start.png", "key Menu", "other start.png", "picture first.png",
         "key 8", "key Menu", "picture second.png", "key 2", "row 1. Blue Morning 2:00", "other first.png", "key Menu",
         "same first.png", "key Escape");
}

void TestExamples::functionKeysMoveAndChange()
{
    const Runner runner;
    WORK("functionkeys", "row Radio 1", "key F2", "row Music 2", "key F1", "key F1", "row Messages 5", "key F2",
         "row Radio 1", "key F4", "row Volume Low", "key F4", "row Volume Medium", "key F2", "row Sound Speech", "key F3",
         "row Sound Rock", "key Escape", "row Radio 1", "key F2", "row Music 2", "key Escape");
}

void TestExamples::digitsOpenRows()
{
    const Runner runner;
    WORK("functionkeys", "row Radio 1", "picture start.png", "key F2", "row Music 2", "key F4", "row Volume Low",
         "picture music.png", "key Escape", "row Music 2", "key F1", "row Radio 1", "key 2", "row Volume Low",
         "same music.png", "key Escape", "row Radio 1", "same start.png", "key 5", "row Volume Low", "other music.png",
         "key Escape", "same start.png", "key Escape");
}

void TestExamples::digitsDoNotMove()
{
    const Runner runner;
    WORK("functionkeys", "row Radio 1", "picture start.png", "key 8", "key 6", "key 4", "row Volume Low", "key Escape",
         "row Radio 1", "same start.png", "key Escape");
}

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments().mid(1);
    if (arguments.value(0) == QLatin1String("--pictures"))
        return writePictures(arguments.mid(1)) ? EXIT_SUCCESS : EXIT_FAILURE;
    TestExamples test;
    QTEST_SET_MAIN_SOURCE_PATH
    return QTest::qExec(&test, argc, argv);
}

#include "tst_examples.moc"

// Measures the library beside plain widgets of the toolkit that paint the same pictures.

#include "measuring.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

const char Description[] =
    "Measures the library and plain widgets that paint the same pictures, in turns, and prints the medians in "
    "microseconds of CPU time for a step and its painted frame. Where the build has the plug-in that caches pictures, a "
    "second run with it gives the last two columns.";

struct Options
{
    int rounds;
    int soakKeys;
    bool count;
    QString countedWork;
    QString jsonFile;
    QString plugins;
};

// The number that \a option was given, or 0. Ends the program if it is none.
int numberOf(const QCommandLineParser &parser, const QString &option)
{
    const QString value = parser.value(option);
    bool isNumber = false;
    const int number = value.toInt(&isNumber);
    if (value.isEmpty() || (isNumber && number > 0))
        return number;
    std::fprintf(stderr, "bench: --%s needs a number from 1 on, not \"%s\"\n", qPrintable(option), qPrintable(value));
    std::exit(EXIT_FAILURE);
}

// Ends the program if it is asked for help, or for what there is not.
Options readOptions(const QCoreApplication &application)
{
    const QString rounds = QStringLiteral("rounds");
    const QString json = QStringLiteral("json");
    const QString plugins = QStringLiteral("plugins");
    const QString soak = QStringLiteral("soak");
    const QString count = QStringLiteral("count");
    QCommandLineParser parser;
    parser.setApplicationDescription(QString::fromLatin1(Description));
    parser.addHelpOption();
    parser.addOptions({
        {rounds, QStringLiteral("Measure <N> rounds of each."), QStringLiteral("N"), QStringLiteral("60")},
        {json, QStringLiteral("Write the table to <file> as well."), QStringLiteral("file")},
        {plugins, QStringLiteral("Have the toolkit load plug-ins from <directory>; no second run."),
         QStringLiteral("directory")},
        {soak, QStringLiteral("Send <keys> keys to the library's screens; fails if the heap goes on growing. Without the "
                              "plug-in it seems to: the toolkit notes each picture that it reads, and looks through "
                              "these notes every half minute only."), QStringLiteral("keys")},
        {count, QStringLiteral("Under callgrind, count the instructions of all work, or of one; costs.sh does that.")},
    });
    parser.addPositionalArgument(QStringLiteral("work"), QStringLiteral("The work to count."), QStringLiteral("[work]"));
    parser.process(application);
    return {numberOf(parser, rounds), numberOf(parser, soak), parser.isSet(count),
            parser.positionalArguments().value(0), parser.value(json), parser.value(plugins)};
}

QJsonObject toJson(const std::vector<Measured> &table, const std::vector<double> &withPlugIn)
{
    QJsonArray rows;
    for (std::size_t i = 0; i < table.size(); ++i) {
        const Measured &row = table[i];
        QJsonObject object{
            {"name", row.name},       {"title", row.title}, {"unit", row.unit},
            {"library", row.library}, {"plain", row.plain}, {"ratio", row.ratio()},
            {"reached", row.reached()},
        };
        if (row.ratioLimit > 0)
            object.insert(QStringLiteral("ratioLimit"), row.ratioLimit);
        if (row.limit > 0)
            object.insert(QStringLiteral("limit"), row.limit);
        if (!withPlugIn.empty())
            object.insert(QStringLiteral("withPlugIn"), withPlugIn[i]);
        rows.append(object);
    }
    return {{"toolkit", QString::fromLatin1(qVersion())}, {"rows", rows}};
}

bool writeJson(const QString &path, const QJsonObject &object)
{
    QFile file(path);
    const QByteArray text = QJsonDocument(object).toJson();
    if (file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.flush())
        return true;
    std::fprintf(stderr, "bench: %s cannot be written: %s\n", qPrintable(path), qPrintable(file.errorString()));
    return false;
}

QString plugInDirectory()
{
    const QDir plugins(QCoreApplication::applicationDirPath() + QLatin1String("/../plugins"));
    const QDir engines(plugins.filePath(QStringLiteral("iconengines")));
    if (engines.entryList({QStringLiteral("*.so")}, QDir::Files).isEmpty())
        return QString();
    return plugins.canonicalPath();
}

// The library's column of another run, with the plug-ins of the build; empty where it has none.
bool measureWithPlugIn(int rounds, std::vector<double> *column)
{
    const QString plugins = plugInDirectory();
    if (plugins.isEmpty())
        return true;
    QTemporaryDir directory;
    const QString path = directory.filePath(QStringLiteral("table.json"));
    QProcess run;
    run.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    run.start(QCoreApplication::applicationFilePath(),
              {QStringLiteral("--plugins"), plugins, QStringLiteral("--json"), path, QStringLiteral("--rounds"),
               QString::number(rounds)});
    QFile file(path);
    if (!run.waitForFinished(-1) || run.exitStatus() != QProcess::NormalExit || run.exitCode() != 0
        || !file.open(QIODevice::ReadOnly)) {
        std::fputs("bench: the run with the plug-in failed\n", stderr);
        return false;
    }
    const QJsonObject table = QJsonDocument::fromJson(file.readAll()).object();
    for (const QJsonValue &row : table.value(QLatin1String("rows")).toArray())
        column->push_back(row.toObject().value(QLatin1String("library")).toDouble());
    return true;
}

QString reach(const Measured &row)
{
    const QString limit = row.ratioLimit > 0 ? QStringLiteral("%1 times").arg(row.ratioLimit)
                                             : QStringLiteral("%1 %2").arg(row.limit).arg(row.unit);
    return limit + (row.reached() ? QLatin1String("") : QLatin1String(" (missed)"));
}

bool print(const std::vector<Measured> &table, const std::vector<double> &withPlugIn)
{
    std::printf("Qt %s, medians of CPU time%s\n\n", qVersion(), withPlugIn.empty() ? "" : "; plug-in: with it");
    std::printf("%-30s %10s %10s %8s   %-20s", "", "library", "plain", "ratio", "reach");
    if (!withPlugIn.empty())
        std::printf(" %10s %8s", "plug-in", "ratio");
    std::printf("\n");
    for (std::size_t i = 0; i < table.size(); ++i) {
        const Measured &row = table[i];
        std::printf("%-30s %7.2f %s %7.2f %s %8.2f   %-20s", qPrintable(row.title), row.library, qPrintable(row.unit),
                    row.plain, qPrintable(row.unit), row.ratio(), qPrintable(reach(row)));
        if (!withPlugIn.empty())
            std::printf(" %7.2f %s %8.2f", withPlugIn[i], qPrintable(row.unit), withPlugIn[i] / row.plain);
        std::printf("\n");
    }
    if (std::fflush(stdout) == 0 && !std::ferror(stdout))
        return true;
    std::fprintf(stderr, "bench: the table cannot be written: %s\n", std::strerror(errno));
    return false;
}

}

int main(int argc, char **argv)
{
    setUpEnvironment();
    // Only the second run has the plug-in, wherever it is installed.
    qunsetenv("QT_PLUGIN_PATH");
    QApplication application(argc, argv);
    const Options options = readOptions(application);
    if (!options.plugins.isEmpty())
        QCoreApplication::addLibraryPath(options.plugins);
    setUpApplication();

    if (options.count)
        return countInstructions(options.countedWork) ? 0 : 1;
    if (options.soakKeys > 0)
        return soak(options.soakKeys) ? 0 : 1;

    const std::vector<Measured> table = measureTable(options.rounds);
    if (table.empty())
        return 1;
    std::vector<double> withPlugIn;
    if (options.plugins.isEmpty() && !measureWithPlugIn(options.rounds, &withPlugIn))
        return 1;
    if (!print(table, withPlugIn))
        return 1;
    return options.jsonFile.isEmpty() || writeJson(options.jsonFile, toJson(table, withPlugIn)) ? 0 : 1;
}

// Measures the library beside plain widgets of the toolkit that paint the same pictures.

#include "measuring.h"

#include <QApplication>
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
#include <cstring>

namespace {

const char Usage[] =
    "Usage: bench [--rounds N] [--json FILE] [--plugins DIRECTORY]\n"
    "       bench --soak KEYS [--plugins DIRECTORY]\n"
    "       bench --count [WORK]\n"
    "\n"
    "Measures the library and plain widgets that paint the same pictures, in turns, and prints the medians in\n"
    "microseconds of CPU time for a step and its painted frame. Where the build has the plug-in that caches pictures, a\n"
    "second run with it gives the last two columns.\n"
    "\n"
    "  --rounds N           measure N rounds of each, 60 at first\n"
    "  --json FILE          write the table to FILE as well\n"
    "  --plugins DIRECTORY  have the toolkit load plug-ins from DIRECTORY; no second run\n"
    "  --soak KEYS          send KEYS keys to the library's screens; fails if the heap goes on growing. Without the\n"
    "                       plug-in it seems to: the toolkit notes each picture that it reads, and looks through these\n"
    "                       notes every half minute only\n"
    "  --count [WORK]       under callgrind, count the instructions of all work or of one; costs.sh does that\n";

struct Options
{
    int rounds = 60;
    int soakKeys = 0;
    bool count = false;
    QString countedWork;
    QString jsonFile;
    QString plugins;
};

int refuse(const QString &what)
{
    std::fprintf(stderr, "bench: %s; see bench --help\n", qPrintable(what));
    return 2;
}

// Returns an empty text, or what is wrong.
QString readOptions(const QStringList &arguments, Options *options)
{
    for (int i = 1; i < arguments.size(); ++i) {
        const QString option = arguments.at(i);
        const bool hasValue = i + 1 < arguments.size() && !arguments.at(i + 1).startsWith(QLatin1String("--"));
        if (option == QLatin1String("--count")) {
            options->count = true;
            if (hasValue)
                options->countedWork = arguments.at(++i);
            continue;
        }
        const bool isNumber = option == QLatin1String("--rounds") || option == QLatin1String("--soak");
        const bool isText = option == QLatin1String("--json") || option == QLatin1String("--plugins");
        if (!isNumber && !isText)
            return QStringLiteral("there is no option \"%1\"").arg(option);
        if (!hasValue)
            return QStringLiteral("%1 needs a value").arg(option);
        const QString value = arguments.at(++i);
        if (isText) {
            (option == QLatin1String("--json") ? options->jsonFile : options->plugins) = value;
            continue;
        }
        bool ok;
        const int number = value.toInt(&ok);
        if (!ok || number < 1)
            return QStringLiteral("%1 needs a number from 1 on, not \"%2\"").arg(option, value);
        (option == QLatin1String("--rounds") ? options->rounds : options->soakKeys) = number;
    }
    return QString();
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
    Options options;
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    if (arguments.contains(QLatin1String("--help"))) {
        std::fputs(Usage, stdout);
        return std::fflush(stdout) == 0 ? 0 : 1;
    }
    const QString problem = readOptions(arguments, &options);
    if (!problem.isEmpty())
        return refuse(problem);

    // Only the second run has the plug-in, wherever it is installed.
    qputenv("QT_PLUGIN_PATH", QFile::encodeName(options.plugins));
    QApplication application(argc, argv);
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

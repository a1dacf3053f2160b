// Does to the widgets what inputs say, without a fuzzer: those in files, or those that follow from a seed.

#include "fuzzing.h"
#include "target.h"

#include "../sanitizers.h"

#include <QDir>
#include <QFile>

#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>
#include <string>
#include <vector>

namespace {

const int MostBytes = 3000;  // as of the fuzzer's inputs

const char Usage[] =
    "usage: drive [--verbose] [--target NAME]... [--seed N] [--inputs N | --seconds N] [FILE | DIRECTORY]...\n"
    "       drive --list\n"
    "\n"
    "Does what the files say to the class NAME, or to each class: a file, those in DIRECTORY/NAME, and new ones that follow\n"
    "from the seed: N for each class, or as many as can be done in N seconds. --verbose prints the steps, --list the names.\n";

struct Options
{
    bool verbose = false;
    QStringList targets;
    unsigned seed = 1;
    long inputs = 0;
    double seconds = 0;
    QStringList files;
};

[[noreturn]] void explain()
{
    fputs(Usage, stderr);
    exit(2);
}

long numberIn(const char *text)
{
    char *end = nullptr;
    const long number = text ? strtol(text, &end, 10) : -1;
    if (!text || *end || number < 0)
        explain();
    return number;
}

Options optionsIn(int count, char **arguments)
{
    Options options;
    for (int i = 1; i < count; ++i) {
        const std::string argument = arguments[i];
        const char *next = arguments[i + 1];
        if (argument == "--verbose") {
            options.verbose = true;
            continue;
        }
        if (argument == "--list") {
            puts(qPrintable(targetNames().join(QLatin1String("\n"))));
            exit(0);
        }
        if (argument.compare(0, 2, "--") != 0) {
            options.files << QString::fromLocal8Bit(arguments[i]);
            continue;
        }
        ++i;
        if (argument == "--target" && next && targetNames().contains(QString::fromLatin1(next)))
            options.targets << QString::fromLatin1(next);
        else if (argument == "--seed")
            options.seed = unsigned(numberIn(next));
        else if (argument == "--inputs")
            options.inputs = numberIn(next);
        else if (argument == "--seconds")
            options.seconds = double(numberIn(next));
        else
            explain();
    }
    if (options.targets.isEmpty())
        options.targets = targetNames();
    options.seconds /= double(options.targets.size());
    return options;
}

// For whoever wants to see the steps of a run that came to a bad end.
char s_howToRepeat[200] = "";

double secondsSince(std::chrono::steady_clock::time_point start)
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

bool runFile(const QString &target, const QString &name, bool verbose)
{
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly)) {
        fprintf(stderr, "There is no file %s.\n", qPrintable(name));
        return false;
    }
    const QByteArray bytes = file.readAll();
    if (verbose)
        printf("--- %s: %s\n", qPrintable(target), qPrintable(name));
    snprintf(s_howToRepeat, sizeof s_howToRepeat, "Its steps: drive --verbose --target %s %s\n", qPrintable(target),
             qPrintable(name));
    Fuzzing::runInput(target, reinterpret_cast<const unsigned char *>(bytes.constData()), size_t(bytes.size()), verbose);
    return true;
}

/// Runs a file, or those in the directory that belong to \a target.
bool runFiles(const QString &target, const QString &name, bool verbose, long *count)
{
    if (!QFileInfo(name).isDir()) {
        ++*count;
        return runFile(target, name, verbose);
    }
    const QDir directory(name + QLatin1Char('/') + target);
    const QStringList files = directory.entryList(QDir::Files, QDir::Name);
    foreach (const QString &file, files) {
        ++*count;
        if (!runFile(target, directory.filePath(file), verbose))
            return false;
    }
    return true;
}

std::vector<unsigned char> newInput(std::mt19937 &random)
{
    std::vector<unsigned char> bytes(random() % MostBytes);
    for (size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<unsigned char>(random());
    return bytes;
}

void tellHowToRepeat()
{
    if (write(STDERR_FILENO, s_howToRepeat, strlen(s_howToRepeat)) < 0)
        s_howToRepeat[0] = 0;
}

void tellAndDie(int signal)
{
    tellHowToRepeat();
    std::signal(signal, SIG_DFL);
    raise(signal);
}

}

int main(int count, char **arguments)
{
    const Options options = optionsIn(count, arguments);
    Fuzzing::setUp();
    std::signal(SIGABRT, tellAndDie);
#ifdef HAS_SANITIZER
    __sanitizer_set_death_callback(tellHowToRepeat);
#else
    std::signal(SIGSEGV, tellAndDie);
#endif
    foreach (const QString &target, options.targets) {
        const std::chrono::steady_clock::time_point start = std::chrono::steady_clock::now();
        const long steps = Target::s_stepCount;
        const long comparisons = Target::s_comparisonCount;
        long inputs = 0;
        foreach (const QString &file, options.files) {
            if (!runFiles(target, file, options.verbose, &inputs))
                return 1;
        }
        for (long i = 0; i < options.inputs || secondsSince(start) < options.seconds; ++i) {
            // Each input has a seed of its own, so that it can be had alone.
            std::mt19937 random(options.seed + unsigned(i));
            const std::vector<unsigned char> bytes = newInput(random);
            snprintf(s_howToRepeat, sizeof s_howToRepeat, "Its steps: drive --verbose --target %s --seed %u --inputs 1\n",
                     qPrintable(target), options.seed + unsigned(i));
            Fuzzing::runInput(target, bytes.data(), bytes.size(), options.verbose);
            ++inputs;
        }
        printf("%-20s %6ld inputs, %8ld steps, %6ld pictures compared\n", qPrintable(target), inputs,
               Target::s_stepCount - steps, Target::s_comparisonCount - comparisons);
        fflush(stdout);
    }
    return 0;
}

#include "measuring.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>

#if __has_include(<valgrind/callgrind.h>)
#include <valgrind/callgrind.h>
#else
#define RUNNING_ON_VALGRIND 0
#define CALLGRIND_START_INSTRUMENTATION
#define CALLGRIND_STOP_INSTRUMENTATION
#define CALLGRIND_TOGGLE_COLLECT
#define CALLGRIND_DUMP_STATS_AT(reason) Q_UNUSED(reason)
#endif

namespace {

const int WarmUpRounds = 3;
const int CountedRounds = 3;
const int HeapRows = 200;
const double HeapLimit = 12;
const char UnitName[] = "unit";
const int UnitSteps = 1000;

// Until every row, value and letter has been seen, and every cache of the toolkit is full.
const int SoakLevelling = 4000;
const double SoakGrowth = 256 * 1024;  // what the caches breathe

const std::array<Make, 2> Makes = {Make::Library, Make::Plain};

double microseconds()
{
    timespec now;
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return double(now.tv_sec) * 1e6 + double(now.tv_nsec) / 1e3;
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    const std::size_t middle = values.size() / 2;
    return values.size() % 2 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

bool paintsAsItShould(const Work &work, Stage &stage, Make make)
{
    stage.prepare();
    if (stage.paintsAsItShould())
        return true;
    std::fprintf(stderr, "bench: %s: %s %s\n", work.title, make == Make::Library ? "the library" : "the plain make",
                 stage.paints ? "does not paint after each step" : "paints though nothing changes");
    return false;
}

bool measure(const Work &work, int rounds, Measured *measured)
{
    std::array<std::unique_ptr<Stage>, 2> stages;
    std::array<std::vector<double>, 2> times;
    for (Make make : Makes) {
        stages[int(make)] = work.newStage(make);
        if (!paintsAsItShould(work, *stages[int(make)], make))
            return false;
    }
    for (int round = -WarmUpRounds; round < rounds; ++round) {
        for (Make make : Makes) {
            Stage &stage = *stages[int(make)];
            stage.prepare();
            const double start = microseconds();
            stage.run();
            const double time = (microseconds() - start) / stage.steps;
            if (round >= 0)
                times[int(make)].push_back(time);
        }
    }
    *measured = {QString::fromLatin1(work.name), QString::fromLatin1(work.title), QStringLiteral("us"),
                 median(times[int(Make::Library)]), median(times[int(Make::Plain)]), work.ratioLimit, work.timeLimit};
    return true;
}

Measured measureHeap()
{
    std::array<std::vector<double>, 2> heaps;
    for (int round = 0; round < 5; ++round) {
        for (Make make : Makes)
            heaps[int(make)].push_back(heapOfList(make, HeapRows) / HeapRows / 1024);
    }
    return {QStringLiteral("heap"), QStringLiteral("heap of a row, 200 rows"), QStringLiteral("kB"),
            median(heaps[int(Make::Library)]), median(heaps[int(Make::Plain)]), 0, HeapLimit};
}

void countRounds(Stage &stage, int rounds, const QByteArray &name)
{
    stage.prepare();
    stage.run();
    const QByteArray reason = name + ' ' + QByteArray::number(stage.steps);
    for (int round = 0; round < rounds; ++round) {
        stage.prepare();
        CALLGRIND_START_INSTRUMENTATION;
        CALLGRIND_TOGGLE_COLLECT;
        stage.run();
        CALLGRIND_TOGGLE_COLLECT;
        CALLGRIND_DUMP_STATS_AT(reason.constData());
    }
    CALLGRIND_STOP_INSTRUMENTATION;
}

// What work without a peer is compared with.
void countUnit()
{
    int length = 0;
    CALLGRIND_START_INSTRUMENTATION;
    CALLGRIND_TOGGLE_COLLECT;
    for (int i = 0; i < UnitSteps; ++i)
        length += int(QString::number(i).size());
    CALLGRIND_TOGGLE_COLLECT;
    CALLGRIND_STOP_INSTRUMENTATION;
    const QByteArray reason = QByteArray(UnitName) + " plain " + QByteArray::number(UnitSteps);
    CALLGRIND_DUMP_STATS_AT(reason.constData());
    Q_UNUSED(length);
}

}

std::vector<Measured> measureTable(int rounds)
{
    std::vector<Measured> table;
    for (const Work &work : tableWork()) {
        Measured measured;
        if (!measure(work, std::max(1, int(rounds * work.share)), &measured))
            return {};
        table.push_back(measured);
    }
    table.push_back(measureHeap());
    return table;
}

bool countInstructions(const QString &name)
{
    if (!RUNNING_ON_VALGRIND) {
        std::fputs("bench: --count needs callgrind, and a build that found its header: see costs.sh\n", stderr);
        return false;
    }
    bool found = false;
    for (bool growth : {false, true}) {
        for (const Work &work : growth ? growthWork() : tableWork()) {
            if (!name.isEmpty() && name != QLatin1String(work.name))
                continue;
            found = true;
            for (Make make : Makes) {
                // In longer lists it is the library alone that has to prove something.
                if (growth && make == Make::Plain)
                    continue;
                const std::unique_ptr<Stage> stage = work.newStage(make);
                countRounds(*stage, work.share < 1 ? 1 : CountedRounds,
                            QByteArray(work.name) + (make == Make::Library ? " library" : " plain"));
            }
        }
    }
    countUnit();
    if (!found)
        std::fprintf(stderr, "bench: there is no work called \"%s\"\n", qPrintable(name));
    return found;
}

bool soak(int keys)
{
    std::vector<std::unique_ptr<Stage>> stages;
    for (const Work &work : tableWork()) {
        if (!QByteArray(work.name).contains("build"))
            stages.push_back(work.newStage(Make::Library));
    }
    int sent = 0;
    const auto goRound = [&stages, &sent](int until) {
        while (sent < until) {
            for (const std::unique_ptr<Stage> &stage : stages) {
                stage->prepare();
                stage->run();
                sent += stage->paints ? stage->steps : 1;
            }
        }
    };
    goRound(SoakLevelling);
    const double before = heapInUse();
    const int levelled = sent;
    goRound(levelled + keys);
    const double grown = heapInUse() - before;
    const bool level = grown <= SoakGrowth;
    std::printf("heap %+.0f bytes in %d keys after the first %d: %s\n", grown, sent - levelled, levelled,
                level ? "it stays where it was" : "it grows");
    return std::fflush(stdout) == 0 && level;
}

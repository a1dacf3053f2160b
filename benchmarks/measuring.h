#ifndef BENCHMARKS_MEASURING_H
#define BENCHMARKS_MEASURING_H

#include "work.h"

#include <QString>

#include <vector>

/// A row of the table as measured. Times are in microseconds of CPU for one step, heap in kilobytes for one row.
struct Measured
{
    QString name;
    QString title;
    QString unit;
    double library = 0;
    double plain = 0;
    double ratioLimit = 0;
    double limit = 0;

    double ratio() const { return plain > 0 ? library / plain : 0; }
    bool reached() const
    {
        return (ratioLimit <= 0 || ratio() <= ratioLimit) && (limit <= 0 || library <= limit);
    }
};

/// Measures the whole table, in \a rounds rounds of each make, taken in turns. Returns an empty table, with a line on
/// stderr, if some work is not painted as it should be.
std::vector<Measured> measureTable(int rounds);

/// Does the work called \a name, or all work for an empty name, in a few rounds that callgrind counts: one dump for each
/// round of either make, with the name of the work, its make and its steps for a reason. Returns false,
/// with a line on stderr, if nothing counts or there is no such work.
bool countInstructions(const QString &name);

/// Sends \a keys keys and ticks to all screens of the library and says how far the heap has grown since they first came
/// round. Returns false if it has.
bool soak(int keys);

#endif

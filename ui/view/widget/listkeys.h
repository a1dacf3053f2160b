#ifndef LISTKEYS_H
#define LISTKEYS_H

// What the keys do in a settings list, written once for rows that are widgets and for rows that are painted. Not part of
// the interface.

#include <QtGlobal>

class QKeyEvent;

/// Counts the repeats of a key, and clicks and returns true once it is held for longer than \a longPressRepeats of them.
/// \a longPressed says so until the key is pressed anew. Repeats of several short presses add up.
bool holdsLongEnough(const QKeyEvent *event, bool *longPressed, int *repeatCount, int longPressRepeats);

/// The row that up (\a direction -1) or down (+1) leads to among \a count rows: the next one that is not hidden, around
/// the ends; \a row if all are hidden.
template <typename Rows>
int rowBeside(const Rows *rows, int row, int direction, int count)
{
    int candidate = qBound(-1, row, count);
    for (int step = 0; step < count; ++step) {
        candidate += direction;
        if (candidate < 0 || candidate >= count)
            candidate = direction < 0 ? count - 1 : 0;
        if (!rows->isRowHidden(candidate))
            return candidate;
    }
    return row;
}

/// The row to scroll to where up and down turn pages: the first row of its page on the way up, the last on the way down.
/// \a continued and \a otherContinued say whether the step before went that way and the other.
int rowOfPageBeside(int row, int direction, int rowsPerPage, int count, bool *continued, bool *otherContinued);

/// The value that left (\a direction -1) or right (+1) leads to from value \a index of \a count, around the ends.
int valueBeside(int index, int direction, int count);

#endif

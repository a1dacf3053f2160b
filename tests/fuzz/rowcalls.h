#ifndef FUZZ_ROWCALLS_H
#define FUZZ_ROWCALLS_H

#include "bytes.h"

#include <functional>

class WidgetListItem;

/// One call of a row.
struct RowCall
{
    const char *name;
    std::function<void(WidgetListItem *)> call;

    /// Whether the row looks the same for it at once as one that gets it before it is shown. Otherwise it matters what was
    /// called and laid out before.
    bool isSetting;
};

/// The next call that \a bytes say; with \a tame only texts, as rows have them. \a sheet is for widgets in the row.
RowCall takeRowCall(Bytes &bytes, bool tame, const QString &sheet);

/// Has \a row show its value \a value on one line with the title or on two, and forget what only depends on the order in
/// which it was set up and laid out: how the title stands in its place, and the font in which a shared line is measured.
void layOutAnew(WidgetListItem *row, int value, bool onOneLine);

#endif

#include "fuzzing.h"

#include "target.h"

#include "../sanitizers.h"

#include <QApplication>
#include <QPixmapCache>

#include <cstdio>
#include <cstdlib>

#ifndef HAS_SANITIZER
#include <malloc.h>
#endif

namespace {

/// The inputs after which the toolkit's caches of fonts, sheets and pictures have what they will have, more or less.
const int InputsToWarmUp = 200;
const size_t MostGrowth = 64 * 1024 * 1024;

size_t heapInUse()
{
#ifdef HAS_SANITIZER
    return __sanitizer_get_current_allocated_bytes();
#else
    return mallinfo2().uordblks;
#endif
}

void checkHeap()
{
    static int inputs = 0;
    static size_t first = 0;
    if (++inputs < InputsToWarmUp)
        return;
    if (first == 0)
        first = heapInUse();
    if (heapInUse() > first + MostGrowth) {
        fprintf(stderr, "FAILED: the heap has grown from %zu to %zu bytes in %d inputs\n", first, heapInUse(), inputs);
        abort();
    }
}

void keepQuiet(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    if (type == QtFatalMsg) {
        fprintf(stderr, "%s\n", qPrintable(text));
        abort();
    }
}

}

void Fuzzing::setUp()
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_FONT_DPI", "72");
    qInstallMessageHandler(keepQuiet);
    static int count = 1;
    static char name[] = "fuzz";
    static char *arguments[] = {name, 0};
    new QApplication(count, arguments);
    QApplication::setCursorFlashTime(0);
    QApplication::setQuitOnLastWindowClosed(false);
}

void Fuzzing::runInput(const QString &name, const unsigned char *data, size_t size, bool verbose)
{
    // The toolkit measures a text otherwise once it has looked for fonts that have its characters. So where pictures
    // differ, all is done again with what it has found then.
    bool looksAlike = false;
    for (int attempt = 0; attempt < 2 && !looksAlike; ++attempt) {
        Bytes bytes(data, size);
        Target *target = newTarget(name);
        looksAlike = target->run(bytes, verbose, attempt == 1);
        delete target;
    }
    QPixmapCache::clear();
    checkHeap();
}

// What libFuzzer calls. --target=NAME, which it leaves to us, says which class it is about.

#include "fuzzing.h"
#include "target.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

static QString s_target;

extern "C" int LLVMFuzzerInitialize(int *count, char ***arguments)
{
    const char option[] = "--target=";
    for (int i = 1; i < *count; ++i) {
        if (strncmp((*arguments)[i], option, sizeof option - 1) == 0)
            s_target = QString::fromLatin1((*arguments)[i] + sizeof option - 1);
    }
    if (!targetNames().contains(s_target)) {
        fprintf(stderr, "--target=NAME wants one of: %s\n", qPrintable(targetNames().join(QLatin1String(" "))));
        exit(2);
    }
    Fuzzing::setUp();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, size_t size)
{
    Fuzzing::runInput(s_target, data, size, false);
    return 0;
}

#ifndef FUZZ_FUZZING_H
#define FUZZ_FUZZING_H

#include <QString>

#include <cstddef>

namespace Fuzzing {

/// To be called before the application is made: everything is drawn the same on all machines.
void setUp();

/// Does to the class \a target what the \a size bytes at \a data say.
void runInput(const QString &target, const unsigned char *data, size_t size, bool verbose);

}

#endif

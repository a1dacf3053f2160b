#ifndef PLATFORM_LOGGING_H
#define PLATFORM_LOGGING_H

#include "platform/api.h"

/// The device's log.
class PLATFORM_API Logging
{
public:
    enum LogLevel {
        LogError = 2,    ///< a call that a widget rejects or cannot honour
        LogTrace = 16,   ///< a normal event: a key, a change of focus, a style sheet that was built
        LogNotice = 128  ///< a trace that is to stand out
    };

    /// Writes one line at \a level. \a format and the arguments after it follow printf.
    /// May be called from any thread.
    static void log(LogLevel level, const char *format, ...) __attribute__((format(printf, 2, 3)));
};

#endif

#ifndef PLATFORM_UTIL_H
#define PLATFORM_UTIL_H

#include "platform/api.h"

#include <ctime>
#include <string>

/// The device's watchdog, its sleep and its local time. May be called from any thread.
class PLATFORM_API Util
{
public:
    /// Registers the calling thread with the software watchdog under \a name.
    static void startWatchThread(const std::string &name);

    /// Tells the watchdog that the thread registered under \a name is alive.
    static void kickDog(const std::string &name);

    /// Removes the registration made under \a name.
    static void stopWatchThread(const std::string &name);

    /// Puts the calling thread to sleep for \a ms milliseconds.
    static void delayMs(unsigned long ms);

    /// The local time of \a t, given in seconds since 1970. The record may be shared by all callers: copy it at once.
    static struct tm *localtime(long t);
};

#endif

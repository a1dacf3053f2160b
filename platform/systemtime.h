#ifndef PLATFORM_SYSTEMTIME_H
#define PLATFORM_SYSTEMTIME_H

#include "platform/api.h"

/// The system tick: a count that only grows. May be called from any thread.
PLATFORM_API unsigned int get_system_tick();

/// Sets the system time from the real-time clock. Non-zero on success, zero on failure. May be called from any thread.
PLATFORM_API int set_time();

#endif

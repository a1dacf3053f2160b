#ifndef BOARDCLOCK_H
#define BOARDCLOCK_H

#include <ctime>

/// What a board makes of the times of the platform (platform/util.h, platform/systemtime.h). Callable from any thread.
///
/// get_system_tick() counts the seconds since the board started, by the clock that nobody sets, so that the clocks on
/// the screen ask for the chip every four hours (14400 ticks), and again ten seconds after that has failed.
///
/// set_time() reads the clock chip ("clock_device" of the configuration, in UTC unless "clock_zone" is local) and sets
/// the system time to it. A system time that is in the same second is left alone: setting it would only lose the
/// fraction. It returns 0 and changes nothing where there is no chip, where the chip's time is impossible, before the
/// year "clock_earliest_year" (a chip that has lost its power), or from 2038 on while time_t has 32 bits, and where the
/// process may not set the time (it needs CAP_SYS_TIME). Why is logged at level 2, once until it succeeds or the reason
/// is another one:
/// "[clock] /dev/rtc0: No such file or directory". A chip that another program has open is tried again for 100 ms.
///
/// Every thread has its own record behind Util::localtime. The time zone is that of TZ, else /etc/localtime, also after
/// that was changed. A signal does not shorten Util::delayMs.
namespace Board {

/// Reads the clock chip into \a time. Returns false, and leaves \a time as it is, where set_time() would for its sake;
/// that is logged in the same way.
bool readClockChip(time_t *time);

}

#endif

// Preloaded (LD_PRELOAD), it stops the time of a program at FIXEDTIME, in seconds since 1970.

#include <cstdlib>
#include <ctime>

extern "C" time_t time(time_t *result)
{
    const time_t now = std::atoll(std::getenv("FIXEDTIME"));
    if (result)
        *result = now;
    return now;
}

#ifndef BOARDWATCHDOG_H
#define BOARDWATCHDOG_H

#include <string>
#include <vector>

/// What a board adds to the watchdog (platform/util.h). Callable from any thread.
///
/// A registered thread that does not kick for "thread_timeout_ms" of the configuration hangs. That is logged at level 2,
/// and once more when it kicks again. A time shorter than the pause between two kicks has every thread hang: those of
/// WidgetClock and WidgetDate kick once each m_interval, 100 and 300 ms at first, and later where the clock chip has to be
/// waited for; examples/board kicks once a second. Threads may share a name: each is watched by itself. A thread that
/// registers again under its name starts afresh. A kick or stop from a thread that is not registered under the name counts
/// for the longest registered one that is; where none is, that is logged at level 2.
///
/// The hardware watchdog "watchdog_device" is opened by the first registration, or by startWatchdog(), and set to
/// "watchdog_s" seconds. A thread of its own feeds it three times in that time as long as no thread hangs, also while none
/// is registered. When one hangs it gets no more, so the board starts anew unless all answer again before. The log then
/// says: `[watchdog] "main" has not answered for 5.0 s, /dev/watchdog is not fed`. Where systemd watches the program, it
/// gets its messages, and none, by the same rule (platform/linux/boardservice.h).
///
/// A device that is missing, taken or not allowed is logged at level 2 and tried again every ten seconds; so is one that
/// fails later on, but not while a thread hangs, as opening it feeds it. A device without a time to be set keeps its own,
/// which is logged at level 2 too.
///
/// When the process ends by exit() or by return from main(), the device is told to stop (the magic close), unless
/// "watchdog_at_exit" is keep; some drivers never stop. A process that ends otherwise, as by a signal, leaves it running:
/// the board starts anew unless another process opens it in time.
namespace Board {

/// Watches, and feeds the hardware watchdog, from now on, without waiting for a thread to register. For programs that
/// show neither clock nor date at first.
void startWatchdog();

/// The names of the registered threads that hang, in the order of their registration.
std::vector<std::string> hangingThreads();

/// Whether the hardware watchdog has got what it was last due.
bool isWatchdogFed();

}

#endif

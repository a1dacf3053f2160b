#ifndef BOARDCONFIG_H
#define BOARDCONFIG_H

#include <string>
#include <vector>

/// The one file that says where a board's devices are: /etc/libwidget/board.conf, or what the environment variable
/// WIDGET_BOARD_CONF names. It is read once, by the first operation of the platform that is used.
///
/// Each line is "name = value"; blanks around both do not count. A line that starts with # is a remark, as is the rest
/// of a line from a # that follows a blank; an empty line is nothing. platform/linux/board.conf has every name with its
/// unit, its range and the value that counts where the file does not say otherwise. A name that comes twice counts as
/// the last line says; only lines with "input" and "key." add up.
///
/// A line with an unknown name, a value that is no number or out of range, none of the words that are allowed, or too long
/// for a socket, is ignored and logged at level 2: `[board] <file>:12: "3O" is no number from 1 to 3600, line ignored`.
/// After twenty of these the rest is only counted. Without the file all values are the default ones, which is logged at
/// level 16, and at level 2 where WIDGET_BOARD_CONF names it. So are they, at level 2, where the file cannot be read to its
/// end or has more than 65536 bytes: nothing of it counts then. No default value names a hardware watchdog: a program that
/// is tried out on a PC must not be able to restart it.
namespace Board {

struct Config
{
    Config();

    std::string logDevice;  ///< "log_device": the socket of syslog, at most 107 bytes
    std::string logName;    ///< "log_name": what stands before each line; empty: the name of the program
    int logFacility;        ///< "log_facility": user, daemon, local0 to local7, as in <syslog.h>
    int logLevel;           ///< "log_level"

    std::string watchdogDevice;  ///< "watchdog_device"; empty: the file says none
    int watchdogSeconds;         ///< "watchdog_s"
    int watchdogStopsAtExit;     ///< "watchdog_at_exit": 1 stop, 0 keep
    int threadTimeoutMs;         ///< "thread_timeout_ms"; how small it may be says platform/linux/boardwatchdog.h

    std::string clockDevice;  ///< "clock_device"; empty: the file says none
    int clockIsLocal;         ///< "clock_zone": 1 local, 0 utc
    int clockEarliestYear;    ///< "clock_earliest_year"

    std::string soundDevice;  ///< "sound_device"; empty: the file says none
    int soundVolume;          ///< "sound_volume", percent

    std::string languageFile;  ///< "language_file"; empty: the locale counts

    std::vector<std::string> inputs;  ///< "input", patterns as of a shell; empty: no line has named one
    int inputGrab;                    ///< "input_grab": 1 yes, 0 no
    int inputScanMs;                  ///< "input_scan_ms"
    int repeatDelayMs;                ///< "key_repeat_delay_ms"
    int repeatPeriodMs;               ///< "key_repeat_period_ms"; 0: no repeats

    struct KeyLine
    {
        int line;
        std::string name;   ///< what stands behind "key."
        std::string value;
    };
    std::vector<KeyLine> keys;  ///< "key.<name>", not looked into: the keys do that (platform/linux/boardkeys.h)
};

/// What the file says. Callable from any thread; never changes.
const Config &config();

/// The file that was read, or would have been.
std::string configFile();

/// Logs that the line \a line of the file is ignored, with the reason \a problem, in the form above.
void reportConfigLine(int line, const std::string &problem);

}

#endif

#include "platform/linux/boardconfig.h"

#include "platform/linux/boardinternal.h"
#include "platform/logging.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <pthread.h>
#include <sstream>
#include <sys/stat.h>
#include <sys/un.h>
#include <syslog.h>
#include <unistd.h>

namespace {

const char defaultFile[] = "/etc/libwidget/board.conf";
const std::size_t longestFile = 65536;
const std::size_t longestLine = 1000;
const std::size_t longestSocket = sizeof(static_cast<sockaddr_un *>(0)->sun_path) - 1;
const std::size_t mostProblems = 20;

typedef Board::Config Config;

struct Text
{
    const char *name;
    std::string Config::*field;
    bool mayBeNone;
    std::size_t longest;
};

struct Number
{
    const char *name;
    int Config::*field;
    int minimum;
    int maximum;
};

struct Choice
{
    const char *name;
    int Config::*field;
    const char *word;
    int value;
};

const Text texts[] = {
    {"log_device", &Config::logDevice, false, longestSocket},
    {"log_name", &Config::logName, false, longestLine},
    {"watchdog_device", &Config::watchdogDevice, true, longestLine},
    {"clock_device", &Config::clockDevice, true, longestLine},
    {"sound_device", &Config::soundDevice, true, longestLine},
    {"language_file", &Config::languageFile, true, longestLine},
};

const Number numbers[] = {
    {"log_level", &Config::logLevel, 0, 1000},
    {"watchdog_s", &Config::watchdogSeconds, 1, 3600},
    {"thread_timeout_ms", &Config::threadTimeoutMs, 10, 3600000},
    {"clock_earliest_year", &Config::clockEarliestYear, 1970, 2037},
    {"sound_volume", &Config::soundVolume, 0, 100},
    {"input_scan_ms", &Config::inputScanMs, 10, 3600000},
    {"key_repeat_delay_ms", &Config::repeatDelayMs, 10, 60000},
    {"key_repeat_period_ms", &Config::repeatPeriodMs, 0, 60000},
};

const Choice choices[] = {
    {"log_facility", &Config::logFacility, "user", LOG_USER},
    {"log_facility", &Config::logFacility, "daemon", LOG_DAEMON},
    {"log_facility", &Config::logFacility, "local0", LOG_LOCAL0},
    {"log_facility", &Config::logFacility, "local1", LOG_LOCAL1},
    {"log_facility", &Config::logFacility, "local2", LOG_LOCAL2},
    {"log_facility", &Config::logFacility, "local3", LOG_LOCAL3},
    {"log_facility", &Config::logFacility, "local4", LOG_LOCAL4},
    {"log_facility", &Config::logFacility, "local5", LOG_LOCAL5},
    {"log_facility", &Config::logFacility, "local6", LOG_LOCAL6},
    {"log_facility", &Config::logFacility, "local7", LOG_LOCAL7},
    {"watchdog_at_exit", &Config::watchdogStopsAtExit, "stop", 1},
    {"watchdog_at_exit", &Config::watchdogStopsAtExit, "keep", 0},
    {"clock_zone", &Config::clockIsLocal, "utc", 0},
    {"clock_zone", &Config::clockIsLocal, "local", 1},
    {"input_grab", &Config::inputGrab, "no", 0},
    {"input_grab", &Config::inputGrab, "yes", 1},
};

template<typename T, std::size_t n>
std::size_t lengthOf(T (&)[n])
{
    return n;
}

struct Problem
{
    int line;  // 0: the whole file
    int level;
    std::string text;
};

struct Loaded
{
    Loaded() : moreProblems(0) {}

    Config config;
    std::string file;
    std::vector<Problem> problems;
    unsigned long moreProblems;
};

Loaded *loaded = 0;  // never destroyed: other threads may still ask while the process exits
pthread_once_t loadOnce = PTHREAD_ONCE_INIT;
pthread_mutex_t problemMutex = PTHREAD_MUTEX_INITIALIZER;

std::string trimmed(const std::string &text)
{
    const char blanks[] = " \t\r";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string::npos)
        return std::string();
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::string withoutRemark(const std::string &text)
{
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '#' && (i == 0 || text[i - 1] == ' ' || text[i - 1] == '\t'))
            return text.substr(0, i);
    }
    return text;
}

std::string quoted(const std::string &text)
{
    std::string shown = text.substr(0, 60);
    for (std::size_t i = 0; i < shown.size(); ++i) {
        if (static_cast<unsigned char>(shown[i]) < ' ' || shown[i] == 0x7f)
            shown[i] = '?';
    }
    return '"' + shown + (text.size() > shown.size() ? "...\"" : "\"");
}

void addProblem(int line, const std::string &text, int level = Logging::LogError)
{
    const Problem problem = {line, level, text};
    if (loaded->problems.size() < mostProblems)
        loaded->problems.push_back(problem);
    else
        ++loaded->moreProblems;
}

bool parseNumber(const std::string &text, const Number &number, int *value)
{
    errno = 0;
    char *end = 0;
    const long parsed = std::strtol(text.c_str(), &end, 10);
    if (text.empty() || *end != '\0' || errno != 0 || parsed < number.minimum || parsed > number.maximum)
        return false;
    *value = int(parsed);
    return true;
}

bool setText(int line, const std::string &name, const std::string &value)
{
    for (std::size_t i = 0; i < lengthOf(texts); ++i) {
        if (name != texts[i].name)
            continue;
        const bool isNone = value == "none";
        if (value.empty() || (isNone && !texts[i].mayBeNone))
            addProblem(line, quoted(name) + " has no value");
        else if (value.size() > texts[i].longest)
            addProblem(line, quoted(value) + " is too long for a socket");
        else
            loaded->config.*texts[i].field = isNone ? std::string() : value;
        return true;
    }
    return false;
}

bool setNumber(int line, const std::string &name, const std::string &value)
{
    for (std::size_t i = 0; i < lengthOf(numbers); ++i) {
        if (name != numbers[i].name)
            continue;
        if (!parseNumber(value, numbers[i], &(loaded->config.*numbers[i].field))) {
            std::ostringstream text;
            text << quoted(value) << " is no number from " << numbers[i].minimum << " to " << numbers[i].maximum;
            addProblem(line, text.str());
        }
        return true;
    }
    return false;
}

bool setChoice(int line, const std::string &name, const std::string &value)
{
    std::string words;
    for (std::size_t i = 0; i < lengthOf(choices); ++i) {
        if (name != choices[i].name)
            continue;
        if (value == choices[i].word) {
            loaded->config.*choices[i].field = choices[i].value;
            return true;
        }
        words += (words.empty() ? "" : ", ") + std::string(choices[i].word);
    }
    if (!words.empty())
        addProblem(line, quoted(value) + " is none of " + words);
    return !words.empty();
}

bool addToList(int line, const std::string &name, const std::string &value)
{
    const std::string keyPrefix = "key.";
    const bool isKey = name.compare(0, keyPrefix.size(), keyPrefix) == 0;
    if (!isKey && name != "input")
        return false;
    if (value.empty()) {
        addProblem(line, quoted(name) + " has no value");
    } else if (isKey) {
        Config::KeyLine key;
        key.line = line;
        key.name = name.substr(keyPrefix.size());
        key.value = value;
        loaded->config.keys.push_back(key);
    } else {
        loaded->config.inputs.push_back(value);
    }
    return true;
}

void parseLine(int line, const std::string &whole)
{
    if (whole.size() > longestLine) {
        addProblem(line, "more than 1000 bytes");
        return;
    }
    const std::string text = trimmed(withoutRemark(whole));
    if (text.empty())
        return;
    const std::size_t equals = text.find('=');
    if (equals == std::string::npos) {
        addProblem(line, quoted(text) + " is no \"name = value\"");
        return;
    }
    const std::string name = trimmed(text.substr(0, equals));
    const std::string value = trimmed(text.substr(equals + 1));
    if (!setText(line, name, value) && !setNumber(line, name, value) && !setChoice(line, name, value)
            && !addToList(line, name, value))
        addProblem(line, "there is no " + quoted(name));
}

// A directory can be opened, too, and a FIFO would keep the program waiting.
int openingError(const std::string &file)
{
    struct stat status;
    if (stat(file.c_str(), &status) != 0)
        return errno;
    if (S_ISDIR(status.st_mode))
        return EISDIR;
    return S_ISREG(status.st_mode) ? 0 : EINVAL;
}

// Appends at most one byte more than longestFile to \a text. Returns 0, or an error number.
int readFile(const std::string &file, std::string *text)
{
    int error = openingError(file);
    if (error != 0)
        return error;
    const int descriptor = open(file.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0)
        return errno;
    char bytes[4096];
    while (text->size() <= longestFile) {
        const std::size_t room = std::min(sizeof(bytes), longestFile + 1 - text->size());
        const ssize_t length = read(descriptor, bytes, room);
        if (length < 0 && errno == EINTR)
            continue;
        if (length < 0)
            error = errno;
        if (length <= 0)
            break;
        text->append(bytes, std::size_t(length));
    }
    close(descriptor);
    return error;
}

void load()
{
    loaded = new Loaded;
    const char *named = std::getenv("WIDGET_BOARD_CONF");
    const bool isNamed = named && *named;
    loaded->file = isNamed ? named : defaultFile;

    std::string text;
    const int error = readFile(loaded->file, &text);
    if (error != 0 || text.size() > longestFile) {
        const std::string reason = error != 0 ? std::strerror(error) : "more than 65536 bytes";
        const bool isMeant = !isNamed && error == ENOENT;
        addProblem(0, reason + ", the default values count", isMeant ? Logging::LogTrace : Logging::LogError);
        return;
    }
    std::istringstream stream(text);
    std::string whole;
    for (int line = 1; std::getline(stream, whole); ++line)
        parseLine(line, whole);
}

void logProblem(const Problem &problem)
{
    const Logging::LogLevel level = Logging::LogLevel(problem.level);
    if (problem.line == 0)
        Logging::log(level, "[board] %s: %s", loaded->file.c_str(), problem.text.c_str());
    else
        Logging::log(level, "[board] %s:%d: %s, line ignored", loaded->file.c_str(), problem.line,
                     problem.text.c_str());
}

// Not while loading: the log asks for the configuration itself.
void logProblems()
{
    std::vector<Problem> problems;
    unsigned long more = 0;
    {
        Board::Locker lock(&problemMutex);
        problems.swap(loaded->problems);
        std::swap(more, loaded->moreProblems);
    }
    for (std::size_t i = 0; i < problems.size(); ++i)
        logProblem(problems[i]);
    if (more > 0)
        Logging::log(Logging::LogError, "[board] %s: %lu more lines ignored", loaded->file.c_str(), more);
}

}

Board::Config::Config()
    : logDevice("/dev/log"),
      logFacility(LOG_USER),
      logLevel(Logging::LogError),
      watchdogSeconds(30),
      watchdogStopsAtExit(1),
      threadTimeoutMs(5000),
      clockDevice("/dev/rtc0"),
      clockIsLocal(0),
      clockEarliestYear(2020),
      soundDevice("default"),
      soundVolume(50),
      inputGrab(0),
      inputScanMs(2000),
      repeatDelayMs(500),
      repeatPeriodMs(100)
{
}

const Board::Config &Board::silentConfig()
{
    pthread_once(&loadOnce, load);
    return loaded->config;
}

const Board::Config &Board::config()
{
    silentConfig();
    logProblems();
    return loaded->config;
}

std::string Board::configFile()
{
    config();
    return loaded->file;
}

void Board::reportConfigLine(int line, const std::string &problem)
{
    config();
    const Problem reported = {line, Logging::LogError, problem};
    logProblem(reported);
}

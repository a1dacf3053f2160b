#include "platform/linux/boardstringrc.h"

#include "platform/linux/boardconfig.h"
#include "platform/logging.h"
#include "platform/stringrc.h"

#include <cctype>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace {

StringRC resources = {false};
bool isRead = false;

const char *const fromRightToLeft[] = {
    "ar", "ckb", "dv", "fa", "he", "iw", "ji", "nqo", "ps", "sd", "syr", "ug", "ur", "yi",
};

const char *const scripts[] = {"@arabic", "_arab", "-arab", "_hebr", "-hebr"};

std::string inLowerCase(std::string text)
{
    for (std::size_t i = 0; i < text.size(); ++i)
        text[i] = char(std::tolower(static_cast<unsigned char>(text[i])));
    return text;
}

bool isFromRightToLeft(const std::string &locale)
{
    const std::string text = inLowerCase(locale);
    for (std::size_t i = 0; i < sizeof(scripts) / sizeof(scripts[0]); ++i) {
        if (text.find(scripts[i]) != std::string::npos)
            return true;
    }
    const std::string language = text.substr(0, text.find_first_of("_-.@"));
    for (std::size_t i = 0; i < sizeof(fromRightToLeft) / sizeof(fromRightToLeft[0]); ++i) {
        if (language == fromRightToLeft[i])
            return true;
    }
    return false;
}

std::string localeLanguage()
{
    const char *const variables[] = {"LC_ALL", "LC_MESSAGES", "LANG"};
    for (std::size_t i = 0; i < sizeof(variables) / sizeof(variables[0]); ++i) {
        const char *value = std::getenv(variables[i]);
        if (value && *value)
            return value;
    }
    return std::string();
}

std::string firstWord(const std::string &text)
{
    const char blanks[] = " \t\r\n";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string::npos)
        return std::string();
    return text.substr(first, text.find_first_of(blanks, first) - first);
}

// Does not wait, whatever the file is.
std::string languageOfFile(const std::string &path)
{
    char text[256];
    const int file = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    const ssize_t length = file < 0 ? -1 : read(file, text, sizeof(text));
    if (length < 0)
        Logging::log(Logging::LogError, "[language] %s: %s, the locale counts", path.c_str(), std::strerror(errno));
    if (file >= 0)
        close(file);
    return length < 0 ? std::string() : firstWord(std::string(text, std::size_t(length)));
}

}

StringRC *StringRC::getInstance()
{
    if (!isRead)
        Board::readDirection();
    return &resources;
}

bool Board::readDirection()
{
    isRead = true;
    const std::string &path = config().languageFile;
    std::string language;
    if (!path.empty())
        language = languageOfFile(path);
    if (language.empty())
        language = localeLanguage();
    resources.m_rightToLeft = isFromRightToLeft(language);
    return resources.m_rightToLeft;
}

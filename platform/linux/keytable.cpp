#include "platform/linux/keytable.h"

#include "platform/linux/boardconfig.h"
#include "platform/linux/keydevice.h"

#include <Qt>
#include <cctype>
#include <cstdlib>
#include <linux/input.h>

namespace {

struct Pair
{
    int code;
    int key;
};

const Pair usualKeys[] = {
    {KEY_0, Qt::Key_0}, {KEY_1, Qt::Key_1}, {KEY_2, Qt::Key_2}, {KEY_3, Qt::Key_3}, {KEY_4, Qt::Key_4},
    {KEY_5, Qt::Key_5}, {KEY_6, Qt::Key_6}, {KEY_7, Qt::Key_7}, {KEY_8, Qt::Key_8}, {KEY_9, Qt::Key_9},
    {KEY_KP0, Qt::Key_0}, {KEY_KP1, Qt::Key_1}, {KEY_KP2, Qt::Key_2}, {KEY_KP3, Qt::Key_3}, {KEY_KP4, Qt::Key_4},
    {KEY_KP5, Qt::Key_5}, {KEY_KP6, Qt::Key_6}, {KEY_KP7, Qt::Key_7}, {KEY_KP8, Qt::Key_8}, {KEY_KP9, Qt::Key_9},
    {KEY_NUMERIC_0, Qt::Key_0}, {KEY_NUMERIC_1, Qt::Key_1}, {KEY_NUMERIC_2, Qt::Key_2},
    {KEY_NUMERIC_3, Qt::Key_3}, {KEY_NUMERIC_4, Qt::Key_4}, {KEY_NUMERIC_5, Qt::Key_5},
    {KEY_NUMERIC_6, Qt::Key_6}, {KEY_NUMERIC_7, Qt::Key_7}, {KEY_NUMERIC_8, Qt::Key_8},
    {KEY_NUMERIC_9, Qt::Key_9},
    {KEY_NUMERIC_STAR, Qt::Key_Asterisk}, {KEY_KPASTERISK, Qt::Key_Asterisk},
    {KEY_NUMERIC_POUND, Qt::Key_NumberSign},
    {KEY_F1, Qt::Key_F1}, {KEY_F2, Qt::Key_F2}, {KEY_F3, Qt::Key_F3}, {KEY_F4, Qt::Key_F4},
    {KEY_F5, Qt::Key_F5}, {KEY_F6, Qt::Key_F6}, {KEY_F7, Qt::Key_F7}, {KEY_F8, Qt::Key_F8},
    {KEY_F9, Qt::Key_F9}, {KEY_F10, Qt::Key_F10}, {KEY_F11, Qt::Key_F11}, {KEY_F12, Qt::Key_F12},
    {KEY_UP, Qt::Key_2}, {KEY_DOWN, Qt::Key_8}, {KEY_LEFT, Qt::Key_4}, {KEY_RIGHT, Qt::Key_6},
    {KEY_OK, Qt::Key_Menu}, {KEY_SELECT, Qt::Key_Menu}, {KEY_ENTER, Qt::Key_Menu}, {KEY_KPENTER, Qt::Key_Menu},
    {KEY_MENU, Qt::Key_Menu}, {KEY_COMPOSE, Qt::Key_Menu},
    {KEY_ESC, Qt::Key_Escape}, {KEY_EXIT, Qt::Key_Escape}, {KEY_BACK, Qt::Key_Escape}, {KEY_CANCEL, Qt::Key_Escape},
    {KEY_BACKSPACE, Qt::Key_Backspace},
    {KEY_VOLUMEUP, Qt::Key_VolumeUp}, {KEY_VOLUMEDOWN, Qt::Key_VolumeDown}, {KEY_MUTE, Qt::Key_VolumeMute},
};

struct Name
{
    const char *name;
    int key;
};

const Name names[] = {
    {"Menu", Qt::Key_Menu},
    {"Escape", Qt::Key_Escape},
    {"Up", Qt::Key_Up},
    {"Down", Qt::Key_Down},
    {"Left", Qt::Key_Left},
    {"Right", Qt::Key_Right},
    {"Return", Qt::Key_Return},
    {"Enter", Qt::Key_Enter},
    {"Space", Qt::Key_Space},
    {"Tab", Qt::Key_Tab},
    {"Backspace", Qt::Key_Backspace},
    {"Delete", Qt::Key_Delete},
    {"Insert", Qt::Key_Insert},
    {"Home", Qt::Key_Home},
    {"End", Qt::Key_End},
    {"PageUp", Qt::Key_PageUp},
    {"PageDown", Qt::Key_PageDown},
    {"Asterisk", Qt::Key_Asterisk},
    {"NumberSign", Qt::Key_NumberSign},
    {"Plus", Qt::Key_Plus},
    {"Minus", Qt::Key_Minus},
    {"Back", Qt::Key_Back},
    {"Call", Qt::Key_Call},
    {"Hangup", Qt::Key_Hangup},
    {"VolumeUp", Qt::Key_VolumeUp},
    {"VolumeDown", Qt::Key_VolumeDown},
    {"VolumeMute", Qt::Key_VolumeMute},
};

const int unknown = -1;
const int none = 0;
const int largestKey = 0x01ffffff;
const int functionKeys = 35;

// Returns a number that is not negative, or -1.
int numberOf(const std::string &text, int largest)
{
    if (text.empty() || !std::isdigit(static_cast<unsigned char>(text[0])))
        return unknown;
    char *end = 0;
    const long number = std::strtol(text.c_str(), &end, 0);
    return *end == '\0' && number <= largest ? int(number) : unknown;
}

int functionKeyOf(const std::string &name)
{
    const int number = name.size() >= 2 && name[0] == 'F' && name[1] != '0' ? std::atoi(name.c_str() + 1) : 0;
    const bool isWhole = name.find_first_not_of("0123456789", 1) == std::string::npos;
    return number >= 1 && number <= functionKeys && isWhole ? Qt::Key_F1 + number - 1 : unknown;
}

// Returns a key, or none, or unknown.
int keyOf(const std::string &name)
{
    if (name == "none")
        return none;
    if (name.size() == 1) {
        const char c = name[0];
        return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') ? c : unknown;  // as Qt::Key has them
    }
    for (std::size_t i = 0; i < sizeof(names) / sizeof(names[0]); ++i) {
        if (name == names[i].name)
            return names[i].key;
    }
    const int functionKey = functionKeyOf(name);
    if (functionKey != unknown)
        return functionKey;
    const int number = numberOf(name, largestKey);
    return number == 0 ? unknown : number;
}

int codeOf(const std::string &name)
{
    const int number = numberOf(name, KEY_MAX);
    return number != unknown ? number : Board::KeyDevice::codeOf(name);
}

void change(Board::KeyTable *table, const Board::Config::KeyLine &line)
{
    const int code = codeOf(line.name);
    const int key = keyOf(line.value);
    if (code == unknown)
        Board::reportConfigLine(line.line, "the kernel has no key \"" + line.name + '"');
    else if (key == unknown)
        Board::reportConfigLine(line.line, "there is no key \"" + line.value + '"');
    else if (key == none)
        table->erase(code);
    else
        (*table)[code] = key;
}

}

Board::KeyTable Board::configuredKeys()
{
    KeyTable table;
    for (std::size_t i = 0; i < sizeof(usualKeys) / sizeof(usualKeys[0]); ++i)
        table[usualKeys[i].code] = usualKeys[i].key;
    const std::vector<Config::KeyLine> &lines = config().keys;
    for (std::size_t i = 0; i < lines.size(); ++i)
        change(&table, lines[i]);
    return table;
}

char Board::characterOf(int key)
{
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return '\r';
    case Qt::Key_Escape:
        return '\x1b';
    case Qt::Key_Tab:
        return '\t';
    case Qt::Key_Backspace:
        return '\b';
    case Qt::Key_Delete:
        return '\x7f';
    }
    if (key >= Qt::Key_A && key <= Qt::Key_Z)
        return char(key - Qt::Key_A + 'a');
    return key >= ' ' && key < 0x7f ? char(key) : '\0';
}

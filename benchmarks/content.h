#ifndef BENCHMARKS_CONTENT_H
#define BENCHMARKS_CONTENT_H

// What the screens show, in either make.

#include <QString>

inline QString picturePath(const QString &name)
{
    return QStringLiteral(":/resource/images_l2/%1.png").arg(name);
}

inline QString pictureSheet(const QString &name)
{
    return QStringLiteral("image: url(%1);").arg(picturePath(name));
}

const int RowHeight = 46;

inline QString rowTitle(int row)
{
    return QStringLiteral("Row number %1").arg(row);
}

inline QString rowValue(int row, int value)
{
    return value == 0 ? QStringLiteral("First value of %1").arg(row) : QStringLiteral("Value %1").arg(value + 1);
}

const int KeypadLineHeight = 38;
const int KeypadMaxLength = 12;

const char *const keypadKeys[4][3] = {
    {".,?!1", "abc2", "def3"},
    {"ghi4", "jkl5", "mno6"},
    {"pqrs7", "tuv8", "wxyz9"},
    {"* abc", "-'@0", "# 123"},
};
const char *const keypadCellTexts[] = {"Abc", "abc"};

const int EntryCount = 6;
const char *const entryNames[EntryCount] = {"Radio", "Clock", "Route", "Message", "Settings", "More"};
const char *const entryPictures[EntryCount] = {"main_radio",   "main_clock",    "main_route",
                                               "main_message", "main_settings", "main_more"};
const int EntryPointSize = 16;

#endif

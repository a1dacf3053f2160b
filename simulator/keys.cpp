#include "keys.h"

namespace {

struct NamedKey
{
    const char *name;
    int key;
};

const NamedKey namedKeys[] = {
    {"0", Qt::Key_0},
    {"1", Qt::Key_1},
    {"2", Qt::Key_2},
    {"3", Qt::Key_3},
    {"4", Qt::Key_4},
    {"5", Qt::Key_5},
    {"6", Qt::Key_6},
    {"7", Qt::Key_7},
    {"8", Qt::Key_8},
    {"9", Qt::Key_9},
    {"*", Qt::Key_Asterisk},
    {"#", Qt::Key_NumberSign},
    {"F1", Qt::Key_F1},
    {"F2", Qt::Key_F2},
    {"F3", Qt::Key_F3},
    {"F4", Qt::Key_F4},
    {"OK", Qt::Key_Menu},
    {"ESC", Qt::Key_Escape},
    {"up", Qt::Key_Up},
    {"down", Qt::Key_Down},
    {"left", Qt::Key_Left},
    {"right", Qt::Key_Right},
};

struct DirectionKey
{
    int pcKey;
    int digit;
    int functionKey;
};

const DirectionKey directionKeys[] = {
    {Qt::Key_Up, Qt::Key_2, Qt::Key_F1},
    {Qt::Key_Down, Qt::Key_8, Qt::Key_F2},
    {Qt::Key_Left, Qt::Key_4, Qt::Key_F3},
    {Qt::Key_Right, Qt::Key_6, Qt::Key_F4},
};

}

int keyNamed(const QString &name)
{
    for (const NamedKey &named : namedKeys) {
        if (name.compare(QLatin1String(named.name), Qt::CaseInsensitive) == 0)
            return named.key;
    }
    return Qt::Key_unknown;
}

QString keyName(int key)
{
    for (const NamedKey &named : namedKeys) {
        if (key == named.key)
            return QString::fromLatin1(named.name);
    }
    return QString();
}

QString keyNames()
{
    return QStringLiteral("0 to 9, *, #, F1 to F4, OK, ESC, up, down, left, right");
}

int deviceKey(int key, KeyMode mode)
{
    if (key == Qt::Key_Return || key == Qt::Key_Enter)
        return Qt::Key_Menu;
    for (const DirectionKey &direction : directionKeys) {
        if (key == direction.pcKey)
            return mode == KeyMode::Digits ? direction.digit : direction.functionKey;
    }
    for (const NamedKey &named : namedKeys) {
        if (key == named.key)
            return key;
    }
    return Qt::Key_unknown;
}

QString keyText(int key)
{
    if (key == Qt::Key_Escape)
        return QStringLiteral("\x1b");
    // The codes of the keys that print are those of their characters.
    return key < 0x80 ? QString(QChar(key)) : QString();
}

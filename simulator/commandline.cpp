#include "commandline.h"

#include "screens.h"

#include "platform/desktop/desktopclock.h"

#include <QFileInfo>

#include <algorithm>
#include <cstdio>

namespace {

const int LargestZoom = 4;
const int HelpIndent = 18;

QString s_commandName = QStringLiteral("simulator");

/// How an option is taken over: from \a value into the options. Returns what is wrong with it, or nothing.
using Take = QString (*)(Options &options, const QString &value);

/// Options of which one would have no effect beside the other.
struct Clash
{
    const char *option;
    const char *other;  // null for any
    const char *advice;
};

struct Option
{
    const char *name;
    const char *value;  // what to call its value; null for none
    const char *help;
    Take take;
};

QString takeScreen(Options &options, const QString &value)
{
    options.screen = value;
    if (findScreen(allScreens(), value))
        return QString();
    QStringList names;
    for (const Screen &screen : allScreens())
        names += QString::fromLatin1(screen.name);
    return QStringLiteral("There is no screen \"%1\". Screens are %2.").arg(value, names.join(QStringLiteral(", ")));
}

QString takeKeys(Options &options, const QString &value)
{
    QString error;
    options.keysKeepTime = value.startsWith(QLatin1Char('@'));
    options.keys = options.keysKeepTime ? readScript(value.mid(1), &error) : parseScript(value, &error);
    return error;
}

QString takeZoom(Options &options, const QString &value)
{
    options.zoom = value.toInt();
    if (options.zoom >= 1 && options.zoom <= LargestZoom)
        return QString();
    return QStringLiteral("There is no zoom \"%1\". It goes from 1 to %2.").arg(value).arg(LargestZoom);
}

QString takeKeyMode(Options &options, const QString &value)
{
    options.hasKeyMode = true;
    if (value == QLatin1String("digits"))
        options.keyMode = KeyMode::Digits;
    else if (value == QLatin1String("functions"))
        options.keyMode = KeyMode::Functions;
    else
        return QStringLiteral("There is no key mode \"%1\". Key modes are digits and functions.").arg(value);
    return QString();
}

QString takeTime(Options &options, const QString &value)
{
    options.time = value;
    // Only the platform knows what it takes for a time.
    if (Desktop::setFixedLocalTime(value.toStdString()))
        return QString();
    return QStringLiteral("\"%1\" is no time. Write it as \"2026-03-07 13:05:09\".").arg(value);
}

QString takeLogLevel(Options &options, const QString &value)
{
    bool isNumber = false;
    options.logLevel = value.toInt(&isNumber);
    if (isNumber && options.logLevel >= 0)
        return QString();
    return QStringLiteral("There is no log level \"%1\". It is 2 for errors, 16 for traces too, 128 for everything, "
                          "0 for nothing.").arg(value);
}

QString takeName(QString &name, const QString &value)
{
    name = value;
    return value.isEmpty() ? QStringLiteral("The name is empty.") : QString();
}

QString takePictureName(Options &options, const QString &value)
{
    const QString suffix = QFileInfo(value).suffix();
    if (!suffix.isEmpty() && suffix.compare(QLatin1String("png"), Qt::CaseInsensitive) != 0)
        return QStringLiteral("Pictures are PNG files, and \"%1\" says otherwise. End the name with .png.").arg(value);
    return takeName(options.picture, value);
}

const Option optionTable[] = {
    {"--list-screens", nullptr, "Print the names of the screens and what they show.",
     [](Options &options, const QString &) { options.listScreens = true; return QString(); }},
    {"--screen", "NAME", "Start with this screen instead of the first one.", takeScreen},
    {"--keys", "KEYS", "Work these keys at the start, for instance \"8 8 6 OK\": 0 to 9, *, #,\n"
                       "F1 to F4, OK, ESC; up, down, left and right in the key mode in force.\n"
                       "8:long holds a key for 12 repeats, wait:250 waits for 250 milliseconds.\n"
                       "@FILE works the keys in the file, such as --record writes.", takeKeys},
    {"--record", "FILE", "Record the keys that are worked, and when, to this file.",
     [](Options &options, const QString &value) { return takeName(options.record, value); }},
    {"--picture", "FILE", "Write a picture of the display to this PNG file, after the keys, and end.",
     takePictureName},
    {"--tour", "DIR", "Write pictures of all screens and their main states to this directory,\n"
                      "and end. The time is 2026-03-07 13:05:09 unless --time is given.",
     [](Options &options, const QString &value) { return takeName(options.tour, value); }},
    {"--with-keys", nullptr, "Have the whole device in the pictures, not the display only.",
     [](Options &options, const QString &) { options.withKeys = true; return QString(); }},
    {"--zoom", "N", "Magnify 1 to 4 times: 2 in a window and 1 in pictures if not given.", takeZoom},
    {"--key-mode", "MODE", "digits: 2, 8, 4 and 6 are up, down, left and right (as if not given).\n"
                           "functions: F1, F2, F3 and F4 are.", takeKeyMode},
    {"--right-to-left", nullptr, "Show the texts in Arabic.",
     [](Options &options, const QString &) { options.rightToLeft = true; return QString(); }},
    {"--time", "TIME", "Stop the local time at \"2026-03-07 13:05:09\".", takeTime},
    {"--log-level", "N", "Show log lines up to this level: 2 errors, 16 traces too, 128 all,\n0 none.", takeLogLevel},
    {"--device-only", nullptr, "Show the device without the tools around it.",
     [](Options &options, const QString &) { options.deviceOnly = true; return QString(); }},
    {"--full-screen", nullptr, "Cover the whole screen with the tools.",
     [](Options &options, const QString &) { options.fullScreen = true; return QString(); }},
    {"--fresh", nullptr, "Forget which panels were open, and what was switched in them, the last time.",
     [](Options &options, const QString &) { options.fresh = true; return QString(); }},
    {"--help", nullptr, "Print this.",
     [](Options &options, const QString &) { options.help = true; return QString(); }},
};

const Option *findOption(const QString &name)
{
    for (const Option &option : optionTable) {
        if (name == QLatin1String(option.name))
            return &option;
    }
    return nullptr;
}

const Clash clashes[] = {
    {"--list-screens", nullptr, "It prints the names of the screens and ends. Give it alone."},
    {"--tour", "--picture", "Give one of them."},
    {"--tour", "--screen", "The tour goes to all screens. For a picture of one, give --picture FILE."},
    {"--record", "--picture", "Recording takes a person at the keys."},
    {"--record", "--tour", "Recording takes a person at the keys."},
    {"--full-screen", "--device-only", "It is the tools that need the room."},
    {"--tour", "--keys", "The tour has keys of its own. For a picture after yours, give --picture FILE."},
};

QString clashAmong(const QStringList &given)
{
    for (const Clash &clash : clashes) {
        const QString option = QString::fromLatin1(clash.option);
        if (!given.contains(option))
            continue;
        for (const QString &other : given) {
            if (clash.other ? other == QLatin1String(clash.other) : other != option)
                return QStringLiteral("%1 and %2 do not go together. %3")
                    .arg(option, other, QLatin1String(clash.advice));
        }
    }
    return QString();
}

/// How many letters have to be added, taken away, changed or swapped with the next to make \a of \a b.
int distance(const QString &a, const QString &b)
{
    std::vector<std::vector<int>> rows(a.size() + 1, std::vector<int>(b.size() + 1));
    for (int i = 0; i <= int(a.size()); ++i) {
        for (int j = 0; j <= int(b.size()); ++j) {
            int &here = rows[i][j];
            here = i + j;
            if (i == 0 || j == 0)
                continue;
            here = std::min({rows[i - 1][j] + 1, rows[i][j - 1] + 1, rows[i - 1][j - 1] + (a[i - 1] != b[j - 1])});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                here = std::min(here, rows[i - 2][j - 2] + 1);
        }
    }
    return rows[a.size()][b.size()];
}

/// Whether someone who means \a known may well have written \a name.
bool isNear(const QString &name, const QString &known)
{
    const bool isBeginning = name.size() >= 3 && known.startsWith(name);
    return isBeginning || distance(name, known) <= std::max(1, int(known.size()) / 4);
}

QString withoutDashes(const QString &name)
{
    QString word = name.toLower();
    while (word.startsWith(QLatin1Char('-')))
        word.remove(0, 1);
    return word;
}

QString unknownOption(const QString &name)
{
    const QString unknown = QStringLiteral("There is no option \"%1\". ").arg(name);
    if (findScreen(allScreens(), name))
        return unknown + QStringLiteral("Do you mean --screen %1?").arg(name);
    for (const Option &option : optionTable) {
        const QString known = QString::fromLatin1(option.name);
        if (isNear(withoutDashes(name), withoutDashes(known)))
            return unknown + QStringLiteral("Do you mean %1?").arg(known);
    }
    return unknown + QStringLiteral("%1 --help shows all options.").arg(commandName());
}

/// Takes over \a argument, and of the \a rest its value. Notes its name in \a given.
QString takeArgument(Options &options, const QString &argument, QStringList &rest, QStringList &given)
{
    const QString name = argument == QLatin1String("-h") ? QStringLiteral("--help")
                                                         : argument.section(QLatin1Char('='), 0, 0);
    const Option *option = findOption(name);
    if (!option)
        return unknownOption(name);
    given += name;

    const bool hasValue = argument.contains(QLatin1Char('='));
    if (!option->value) {
        return hasValue ? QStringLiteral("%1 takes no value. Write %1 alone.").arg(name)
                        : option->take(options, QString());
    }
    if (!hasValue && (rest.isEmpty() || rest.first().startsWith(QLatin1String("--"))))
        return QStringLiteral("%1 needs a value. Write %1 %2.").arg(name, QLatin1String(option->value));
    const QString value = hasValue ? argument.section(QLatin1Char('='), 1) : rest.takeFirst();
    const QString error = option->take(options, value);
    return error.isEmpty() ? QString() : name + QStringLiteral(": ") + error;
}

}

Options parseCommandLine(const QStringList &arguments, QString *error)
{
    error->clear();
    Options options;
    options.screen = QString::fromLatin1(allScreens().front().name);
    QStringList rest = arguments;
    QStringList given;
    while (!rest.isEmpty() && error->isEmpty())
        *error = takeArgument(options, rest.takeFirst(), rest, given);
    options.startsElsewhere = given.contains(QStringLiteral("--screen")) || given.contains(QStringLiteral("--keys"));
    if (error->isEmpty() && !options.help)
        *error = clashAmong(given);
    return options;
}

QString helpText()
{
    QString help = QStringLiteral("The device on a PC: its display, and its keys to click or to type.\n\n"
                                  "Usage: %1 [OPTION]...\n\n").arg(commandName());
    const QString newLine = QLatin1Char('\n') + QString(HelpIndent + 3, QLatin1Char(' '));
    for (const Option &option : optionTable) {
        QString name = QString::fromLatin1(option.name);
        if (option.value)
            name += QLatin1Char(' ') + QString::fromLatin1(option.value);
        const QStringList lines = QString::fromLatin1(option.help).split(QLatin1Char('\n'));
        help += QStringLiteral("  %1 %2\n").arg(name, -HelpIndent).arg(lines.join(newLine));
    }
    help += QStringLiteral(
        "\nOn the PC's keyboard: digits, *, #, F1 to F4, Return for OK, Esc, and the arrows for up,\n"
        "down, left and right. The buttons above the device open panels that show what goes on in it.\n"
        "What is switched there is kept for the next time, unless an option says otherwise.\n"
        "Pictures need no display. Where none answers, a tour to the directory \"pictures\" takes the\n"
        "place of the window.\n"
        "The exit status is 0, 1 if something could not be written or shown, or 2 if an option was\n"
        "wrong.\n");
    return help;
}

void setCommandName(const char *name)
{
    s_commandName = QString::fromLocal8Bit(name);
}

QString commandName()
{
    return s_commandName;
}

void complain(const QString &message)
{
    std::fprintf(stderr, "%s: %s\n", qPrintable(commandName()), qPrintable(message));
}

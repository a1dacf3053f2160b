#ifndef SCRIPT_H
#define SCRIPT_H

#include "keys.h"

#include <QString>

#include <optional>
#include <vector>

class Device;

/// One step of a key script: a key, a part of what a finger does to one, or a wait.
struct ScriptStep
{
    int key = 0;           ///< see keyNamed(); 0 for a wait
    std::optional<KeyMove> part;  ///< of what a finger does to the key; all if not set
    int repeats = 0;       ///< how many auto-repeats come between press and release
    int milliseconds = 0;  ///< how long a wait is
};

using Script = std::vector<ScriptStep>;

/// The longest wait that one step can be, in milliseconds.
const int LongestScriptWait = 60000;

/// Reads a script such as "8 8 6 OK 8:long wait:250": names of keys (see keyNamed()), each of which may be held for
/// 12 auto-repeats by ":long", and waits in milliseconds. "8:press", "8:repeat" and "8:release" are the parts of it;
/// "8:forget" ends it without a release. From "//" to the end of a line is for people only. What is wrong and what would
/// be right goes into \a error, which stays empty if all is well.
Script parseScript(const QString &text, QString *error);

/// Reads the script in the file \a name. An \a error says in which line.
Script readScript(const QString &name, QString *error);

/// Works the keys of \a device as \a script says, with \a pause milliseconds after each press, repeat and release.
void play(const Script &script, Device &device, int pause);

/// Lets the event loop run for \a milliseconds; with 0 until nothing is pending.
void runFor(int milliseconds);

#endif

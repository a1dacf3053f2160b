#ifndef KEYS_H
#define KEYS_H

#include <QString>

/// Which keys of the device mean up, down, left and right.
enum class KeyMode {
    Digits,    ///< 2, 8, 4 and 6
    Functions  ///< F1, F2, F3 and F4
};

/// What happens to a key.
enum class KeyMove {
    Press,
    Repeat,
    Release,
    Forget  ///< it is no longer down, and its release goes elsewhere
};

/// The key called \a name, in whatever case: 0 to 9, *, #, F1 to F4, OK (Qt::Key_Menu) and ESC, or up, down, left and
/// right (Qt::Key_Up and so on, see deviceKey()). Qt::Key_unknown if there is no such key.
int keyNamed(const QString &name);

/// What keyNamed() calls \a key; empty if it has no name.
QString keyName(int key);

/// All names that keyNamed() knows, for people to read.
QString keyNames();

/// The key of the device for \a key of a PC's keyboard: Return is OK, and arrows become the device's direction keys in
/// \a mode. Qt::Key_unknown for a key that the device does not have.
int deviceKey(int key, KeyMode mode);

/// The text that events of \a key carry.
QString keyText(int key);

#endif

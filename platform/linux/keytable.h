#ifndef KEYTABLE_H
#define KEYTABLE_H

#include <map>

namespace Board {

/// The library's keys (Qt::Key) by the kernel's codes.
typedef std::map<int, int> KeyTable;

/// The table of the board: the usual one with the changes that the configuration makes. Bad lines are reported.
KeyTable configuredKeys();

/// The character of a text that the toolkit has with \a key (Qt::Key), or 0.
char characterOf(int key);

}

#endif

#ifndef BOARDSTRINGRC_H
#define BOARDSTRINGRC_H

/// What a board adds to the string resources (platform/stringrc.h). To be used by one thread, that of the screens.
///
/// The writing direction is that of a language: the first word in "language_file" of the configuration, such as "ar",
/// "he_IL" or "en_GB.UTF-8"; where the configuration names no file, or the file cannot be read or is empty, the locale,
/// which is the first of the environment variables LC_ALL, LC_MESSAGES and LANG that is set. Arabic, Persian, Hebrew,
/// Urdu, Yiddish, Pashto, Sindhi, Central Kurdish, Uighur, Dhivehi, Syriac and N'Ko are written from right to left, and so
/// is every language with "@arabic" or "_Arab" or "_Hebr" in it. A file that is named but cannot be read is logged at
/// level 2.
namespace Board {

/// Finds out the direction anew, as after the user has chosen another language, and returns whether it is from right to
/// left. The first StringRC::getInstance() does so too. Widgets follow when they are shown next.
bool readDirection();

}

#endif

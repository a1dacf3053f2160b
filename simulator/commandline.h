#ifndef COMMANDLINE_H
#define COMMANDLINE_H

#include "keys.h"
#include "script.h"

#include <QString>
#include <QStringList>

/// What the user asked for.
struct Options
{
    bool help = false;
    bool listScreens = false;
    QString screen;  ///< a name in allScreens()
    Script keys;
    bool keysKeepTime = false;  ///< whether the keys come from a file, which has its own pauses
    QString record;  ///< a file to record the keys to; empty for none
    bool startsElsewhere = false;  ///< whether a screen or keys were given
    QString picture;  ///< a file to write the picture to; empty for none
    QString tour;     ///< a directory to write the pictures of all screens to; empty for none
    bool withKeys = false;
    int zoom = 0;  ///< 1 to 4; 0 if not given
    KeyMode keyMode = KeyMode::Digits;
    bool hasKeyMode = false;  ///< whether the key mode was given
    bool rightToLeft = false;
    QString time;       ///< what the local time has been stopped at; empty if it runs
    int logLevel = -1;  ///< -1 if not given

    bool deviceOnly = false;  ///< no tools around the device
    bool fullScreen = false;
    bool fresh = false;       ///< nothing is taken over from the last time

    bool wantsPictures() const { return !picture.isEmpty() || !tour.isEmpty(); }
};

/// Reads \a arguments, without the program's name. What is wrong and what would be right goes into \a error, which
/// stays empty if all is well.
Options parseCommandLine(const QStringList &arguments, QString *error);

/// What --help shows.
QString helpText();

/// What the user types to start the simulator: how main() was called. "simulator" until it is set.
void setCommandName(const char *name);
QString commandName();

/// Says what is wrong on standard error.
void complain(const QString &message);

#endif

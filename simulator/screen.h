#ifndef SCREEN_H
#define SCREEN_H

#include <QString>

#include <vector>

class Device;
class QWidget;

/// A state of a screen that is worth a picture.
struct ScreenState
{
    const char *name;          ///< part of the picture's file name; empty for the screen as it opens
    const char *keys;          ///< the key script (see script.h) that leads to the state
    bool rightToLeft = false;  ///< whether the state is one of a language written from right to left
    bool functionKeys = false;  ///< whether it is one of a device on which F1 to F4 are the directions
};

/// What is known of a screen before it is there.
struct Screen
{
    static constexpr int TitleBarHeight = 38;  // the library's

    const char *name;
    const char *description;             ///< on one line
    QWidget *(*create)(Device &device);  ///< builds the screen as a child of the device, which places and deletes it
    std::vector<ScreenState> states;
    int barHeight = TitleBarHeight;  ///< of the bar at the top, in whose place messages show
};

using Screens = std::vector<Screen>;

/// Null if there is no screen \a name among \a screens.
const Screen *findScreen(const Screens &screens, const QString &name);

#endif

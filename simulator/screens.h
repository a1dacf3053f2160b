#ifndef SCREENS_H
#define SCREENS_H

#include "device.h"

#include <vector>

// To add a screen:
// 1. Copy simulator/screens/soundscreen.cpp, which is a short one, to simulator/screens/<name>screen.cpp. It ends with
//    the function that describes the screen.
// 2. Name the file in simulator/CMakeLists.txt, and the function in the table of simulator/screens.cpp.
// 3. Look at it: ./simulate --screen <name>. The test tst_simulatorscreens looks at all of its states.

/// A state of a screen that is worth a picture.
struct ScreenState
{
    const char *name;          ///< part of the picture's file name; empty for the screen as it opens
    const char *keys;          ///< the key script (see script.h) that leads to the state
    bool rightToLeft = false;  ///< whether the state is one of a language written from right to left
    bool functionKeys = false;  ///< whether it is one of a device on which F1 to F4 are the directions
};

/// What the simulator knows of a screen.
struct Screen
{
    const char *name;
    const char *description;             ///< on one line
    QWidget *(*create)(Device &device);  ///< builds the screen as a child of the device, which places and deletes it
    std::vector<ScreenState> states;
    int barHeight = Device::TitleBarHeight;  ///< of the bar at the top, in whose place messages show
};

/// All screens, the one to start with first.
const std::vector<Screen> &allScreens();

/// Null if there is no screen \a name.
const Screen *findScreen(const QString &name);

#endif

#ifndef SCREENS_H
#define SCREENS_H

#include "screen.h"

// To add a screen:
// 1. Copy simulator/screens/soundscreen.cpp, which is a short one, to simulator/screens/<name>screen.cpp. It ends with
//    the function that describes the screen.
// 2. Name the file in simulator/CMakeLists.txt, and the function in the table of simulator/screens.cpp.
// 3. Look at it: ./simulate --screen <name>. The test tst_simulatorscreens looks at all of its states.

/// All screens, the one to start with first.
const Screens &allScreens();

#endif

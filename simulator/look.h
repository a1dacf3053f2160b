#ifndef LOOK_H
#define LOOK_H

/// Sees to it that the picture is the same on every PC. Call fixLook() before the application is made and applyLook()
/// after it.
void fixLook();
void applyLook();

#endif

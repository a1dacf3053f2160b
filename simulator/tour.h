#ifndef TOUR_H
#define TOUR_H

#include "commandline.h"

class DeviceWindow;

/// Writes a picture of \a window to \a options.picture. Returns false, with a line on standard error, if that fails.
bool takePicture(DeviceWindow &window, const Options &options);

/// Writes a picture of every screen and its main states to the directory \a options.tour, which is made if need be.
/// Returns false, with a line on standard error, if that fails.
bool takeTour(DeviceWindow &window, const Options &options);

#endif

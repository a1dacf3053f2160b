#ifndef PLATFORM_API_H
#define PLATFORM_API_H

/// Marks what an application supplies to the widget library.
///
/// The library resolves these symbols when it is loaded, so they must stay visible also in an application that is
/// built with hidden visibility.
#define PLATFORM_API __attribute__((visibility("default")))

#endif

#ifndef PLATFORM_STRINGRC_H
#define PLATFORM_STRINGRC_H

#include "platform/api.h"

/// The device's string resources, of which the widgets read the writing direction only.
class PLATFORM_API StringRC
{
public:
    /// The string resources of the process; never null.
    static StringRC *getInstance();

    bool m_rightToLeft;  ///< true while the language in use is written from right to left
};

#endif

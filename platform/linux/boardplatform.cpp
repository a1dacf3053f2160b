// The name that platform/linux/CMakeLists.txt has every linker look for. It refers to an operation of each file here
// that the library calls, so that none is left out of the program.

#include "platform/logging.h"
#include "platform/soundmanager.h"
#include "platform/stringrc.h"
#include "platform/util.h"

typedef void (*Operation)();

extern "C" const Operation widgetLinuxPlatform[5];

const Operation widgetLinuxPlatform[5] = {
    reinterpret_cast<Operation>(Logging::log),
    reinterpret_cast<Operation>(SoundManager::getInstance),
    reinterpret_cast<Operation>(StringRC::getInstance),
    reinterpret_cast<Operation>(Util::kickDog),
    reinterpret_cast<Operation>(Util::localtime),
};

# Boards with a 32-bit ARM processor from ARMv7 on with floating point, as Debian's armhf.

set(CMAKE_SYSTEM_PROCESSOR armv7l)
set(widget_processor armhf)
set(widget_triplet arm-linux-gnueabihf)
set(widget_emulator qemu-arm)
# Remarks on what compilers before GCC 7 made of some parameters.
set(CMAKE_CXX_FLAGS_INIT -Wno-psabi)
include(${CMAKE_CURRENT_LIST_DIR}/debian.cmake)

# Boards with a 32-bit ARM processor from ARMv7 on with floating point, as Debian's armhf.

set(CMAKE_SYSTEM_PROCESSOR armv7l)
set(widget_processor armhf)
set(widget_triplet arm-linux-gnueabihf)
set(widget_emulator qemu-arm)
include(${CMAKE_CURRENT_LIST_DIR}/debian.cmake)

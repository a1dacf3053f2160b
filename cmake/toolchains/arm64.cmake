# Boards with a 64-bit ARM processor, as Debian's arm64.

set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(widget_processor arm64)
set(widget_triplet aarch64-linux-gnu)
set(widget_emulator qemu-aarch64)
include(${CMAKE_CURRENT_LIST_DIR}/debian.cmake)

# What the toolchain files have in common: Debian's cross compilers, a sysroot that cmake/sysroot.sh has filled or another
# one in WIDGET_SYSROOT, and QEMU to run the tests.

set(CMAKE_SYSTEM_NAME Linux)
set(WIDGET_SYSROOT ${CMAKE_CURRENT_LIST_DIR}/../../build/sysroot/${widget_processor} CACHE PATH
    "The board's system: the toolkit and whatever else the library is built with")
get_filename_component(CMAKE_SYSROOT ${WIDGET_SYSROOT} ABSOLUTE)
if(NOT IS_DIRECTORY ${CMAKE_SYSROOT}/usr)
    message(FATAL_ERROR
        "There is no system in ${CMAKE_SYSROOT}. To fill it: cmake/sysroot.sh ${widget_processor} ${CMAKE_SYSROOT}")
endif()
# What CMake tries to compile is to have the same one.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES WIDGET_SYSROOT)

set(CMAKE_CXX_COMPILER ${widget_triplet}-g++)
find_program(WIDGET_EMULATOR ${widget_emulator})
mark_as_advanced(WIDGET_EMULATOR)
if(WIDGET_EMULATOR)
    # QEMU 7.2 looks for the toolkit's directory of plug-ins on this machine.
    set(CMAKE_CROSSCOMPILING_EMULATOR ${WIDGET_EMULATOR} -L ${CMAKE_SYSROOT}
        -E QT_QPA_PLATFORM_PLUGIN_PATH=${CMAKE_SYSROOT}/usr/lib/${widget_triplet}/qt5/plugins/platforms)
endif()

# Programs that are run while building are those of this machine, everything else is the board's.
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

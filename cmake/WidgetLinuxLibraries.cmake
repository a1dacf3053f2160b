# Finds what the platform for embedded Linux boards can use, ALSA for sounds and libevdev for keys, and puts the names of
# their targets into WIDGET_ALSA_TARGET and WIDGET_EVDEV_TARGET, which stay empty where there is none.
# Used to build that platform, and installed with it for those who link it.

set(WIDGET_ALSA_TARGET "")
find_package(ALSA QUIET)
if(TARGET ALSA::ALSA)
    set(WIDGET_ALSA_TARGET ALSA::ALSA)
endif()

set(WIDGET_EVDEV_TARGET "")
find_path(WIDGET_EVDEV_INCLUDE_DIR libevdev/libevdev.h PATH_SUFFIXES libevdev-1.0)
find_library(WIDGET_EVDEV_LIBRARY evdev)
mark_as_advanced(WIDGET_EVDEV_INCLUDE_DIR WIDGET_EVDEV_LIBRARY)
if(WIDGET_EVDEV_INCLUDE_DIR AND WIDGET_EVDEV_LIBRARY)
    set(WIDGET_EVDEV_TARGET widget-evdev)
    if(NOT TARGET widget-evdev)
        add_library(widget-evdev UNKNOWN IMPORTED GLOBAL)
        set_target_properties(widget-evdev PROPERTIES
            IMPORTED_LOCATION ${WIDGET_EVDEV_LIBRARY}
            INTERFACE_INCLUDE_DIRECTORIES ${WIDGET_EVDEV_INCLUDE_DIR})
    endif()
endif()

# Finds SDL2 and puts the name of its target into WIDGET_SDL_TARGET, which stays empty where there is none.
# Used to build the platform for a PC, and installed with it for those who link it.

set(WIDGET_SDL_TARGET "")
find_package(SDL2 QUIET CONFIG)
if(TARGET SDL2::SDL2)
    set(WIDGET_SDL_TARGET SDL2::SDL2)
else()
    find_package(PkgConfig QUIET)
    if(PkgConfig_FOUND)
        pkg_check_modules(SDL2 QUIET IMPORTED_TARGET sdl2)
    endif()
    if(TARGET PkgConfig::SDL2)
        set(WIDGET_SDL_TARGET PkgConfig::SDL2)
    endif()
endif()

# Installs what applications use. For find_package(libwidget):
#   libwidget::widget                   the library
#   libwidget::widget-desktop-platform  the platform for a PC, as component desktop-platform
#   libwidget::widget-linux-platform    the platform for embedded Linux boards, as component linux-platform
#   libwidget_add_default_pictures()    the pictures that the widgets need
#   libwidget_add_forms()               the widgets with what forms of Qt Designer need
#   libwidget_PLUGIN_DIR                where the plug-ins of the toolkit are
# For pkg-config libwidget, libwidget-desktop-platform and libwidget-linux-platform, with variables of the same meaning:
# pictures, plugindir.
# For qmake CONFIG += libwidget, libwidget_desktop_platform, libwidget_linux_platform, libwidget_default_pictures,
# libwidget_forms.
#
# Whatever is installed belongs to one of the components runtime, plugins, development, simulator and documentation,
# each of which is a package (WidgetPackages.cmake).

include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(widget_name libwidget${WIDGET_NAME_SUFFIX})
set(widget_header_dir ${CMAKE_INSTALL_INCLUDEDIR}/${widget_name})
set(widget_package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/${widget_name})
set(widget_pkgconfig_dir ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
set(widget_qmake_dir ${CMAKE_INSTALL_LIBDIR}/${widget_name})
set(widget_picture_dir ${CMAKE_INSTALL_DATADIR}/${widget_name}/pictures)
set(widget_form_dir ${CMAKE_INSTALL_DATADIR}/${widget_name}/forms)
if(NOT widget_documentation_dir)
    set(widget_documentation_dir ${CMAKE_INSTALL_DATADIR}/doc/libwidget)
endif()

# With the toolkit's own prefix, the toolkit finds them.
widget_qt_directories(qt_plugin_dir qt_feature_dir)
set(WIDGET_PLUGIN_DIR ${qt_plugin_dir} CACHE STRING "Where the toolkit's plug-ins are installed, relative to the prefix")
set(WIDGET_FEATURE_DIR ${qt_feature_dir} CACHE STRING "Where qmake's features are installed, relative to the prefix")

function(widget_install)
    install(TARGETS widget widget-qt EXPORT libwidget-targets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development
        INCLUDES DESTINATION ${widget_header_dir})
    install(FILES ${ARGN} DESTINATION ${widget_header_dir} COMPONENT development)
    install(DIRECTORY ${PROJECT_SOURCE_DIR}/platform DESTINATION ${widget_header_dir} COMPONENT development
        FILES_MATCHING PATTERN "*.h" PATTERN desktop EXCLUDE PATTERN linux EXCLUDE)

    install(EXPORT libwidget-targets NAMESPACE libwidget:: DESTINATION ${widget_package_dir} COMPONENT development)
    configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/libwidget-config.cmake.in
        ${PROJECT_BINARY_DIR}/${widget_name}-config.cmake
        INSTALL_DESTINATION ${widget_package_dir}
        PATH_VARS widget_picture_dir widget_form_dir WIDGET_PLUGIN_DIR)
    write_basic_package_version_file(${PROJECT_BINARY_DIR}/${widget_name}-config-version.cmake
        COMPATIBILITY SameMajorVersion)
    install(FILES ${PROJECT_BINARY_DIR}/${widget_name}-config.cmake
        ${PROJECT_BINARY_DIR}/${widget_name}-config-version.cmake
        DESTINATION ${widget_package_dir} COMPONENT development)

    widget_install_for_pkgconfig(libwidget)
    widget_install_for_qmake()
endfunction()

function(widget_install_desktop_platform)
    install(TARGETS widget-desktop-platform EXPORT libwidget-desktop-platform-targets
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development
        INCLUDES DESTINATION ${widget_header_dir})
    install(FILES ${ARGN} DESTINATION ${widget_header_dir}/platform/desktop COMPONENT development)

    install(EXPORT libwidget-desktop-platform-targets NAMESPACE libwidget:: DESTINATION ${widget_package_dir}
        COMPONENT development)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/libwidget-desktop-platform.cmake.in
        ${PROJECT_BINARY_DIR}/libwidget-desktop-platform.cmake @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/libwidget-desktop-platform.cmake ${PROJECT_SOURCE_DIR}/cmake/WidgetSdl.cmake
        DESTINATION ${widget_package_dir} COMPONENT development)

    set(sdl_module)
    set(sdl_library)
    if(WIDGET_SDL_TARGET)
        set(sdl_module sdl2)
        set(sdl_library -lSDL2)
    endif()
    widget_install_for_pkgconfig(libwidget-desktop-platform)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/libwidget-desktop-platform.pri.in
        ${PROJECT_BINARY_DIR}/libwidget-desktop-platform.pri @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/libwidget-desktop-platform.pri
        DESTINATION ${widget_qmake_dir} COMPONENT development)
endfunction()

# Installs the platform for Linux boards, unless only other targets were built.
function(widget_install_linux_platform)
    install(TARGETS widget-linux-platform EXPORT libwidget-linux-platform-targets
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development OPTIONAL
        INCLUDES DESTINATION ${widget_header_dir})
    install(FILES ${ARGN} DESTINATION ${widget_header_dir}/platform/linux COMPONENT development)
    install(FILES board.conf DESTINATION ${CMAKE_INSTALL_DATADIR}/${widget_name} COMPONENT development)

    install(EXPORT libwidget-linux-platform-targets NAMESPACE libwidget:: DESTINATION ${widget_package_dir}
        COMPONENT development)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/libwidget-linux-platform.cmake.in
        ${PROJECT_BINARY_DIR}/libwidget-linux-platform.cmake @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/libwidget-linux-platform.cmake
        ${PROJECT_SOURCE_DIR}/cmake/WidgetLinuxLibraries.cmake
        DESTINATION ${widget_package_dir} COMPONENT development)

    set(linux_modules)
    set(linux_libraries)
    if(WIDGET_ALSA_TARGET)
        string(APPEND linux_modules " alsa")
        string(APPEND linux_libraries " -lasound")
    endif()
    if(WIDGET_EVDEV_TARGET)
        string(APPEND linux_modules " libevdev")
        string(APPEND linux_libraries " -levdev")
    endif()
    widget_install_for_pkgconfig(libwidget-linux-platform)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/libwidget-linux-platform.pri.in
        ${PROJECT_BINARY_DIR}/libwidget-linux-platform.pri @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/libwidget-linux-platform.pri
        DESTINATION ${widget_qmake_dir} COMPONENT development)
endfunction()

# Installs \a module for pkg-config. It finds the prefix by its own place, unless that is the system's, which every
# compiler knows.
function(widget_install_for_pkgconfig module)
    set(qt_module_4 QtGui)
    set(qt_module_5 Qt5Widgets)
    set(qt_module_6 Qt6Widgets)
    set(qt_module ${qt_module_${WIDGET_QT}})
    set(prefix /usr)
    if(NOT WIDGET_PACKAGES)
        file(RELATIVE_PATH up /${widget_pkgconfig_dir} /)
        string(REGEX REPLACE "/$" "" prefix "\${pcfiledir}/${up}")
    endif()
    set(file ${PROJECT_BINARY_DIR}/${module}${WIDGET_NAME_SUFFIX}.pc)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/${module}.pc.in ${file} @ONLY)
    install(FILES ${file} DESTINATION ${widget_pkgconfig_dir} COMPONENT development)
endfunction()

# Installs libwidget.pri, and the feature of qmake's that includes it: with another prefix than the toolkit's, projects
# do that themselves.
function(widget_install_for_qmake)
    foreach(place header picture form)
        file(RELATIVE_PATH ${place}s /${widget_qmake_dir} /${widget_${place}_dir})
    endforeach()
    file(RELATIVE_PATH libraries /${widget_qmake_dir} /${CMAKE_INSTALL_LIBDIR})
    file(RELATIVE_PATH pri /${WIDGET_FEATURE_DIR} /${widget_qmake_dir}/libwidget.pri)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/libwidget.pri.in ${PROJECT_BINARY_DIR}/libwidget.pri @ONLY)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/libwidget.prf.in ${PROJECT_BINARY_DIR}/libwidget.prf @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/libwidget.pri DESTINATION ${widget_qmake_dir} COMPONENT development)
    install(FILES ${PROJECT_BINARY_DIR}/libwidget.prf DESTINATION ${WIDGET_FEATURE_DIR} COMPONENT development)
endfunction()

# Installs the resource file \a qrc with the pictures that it lists, which stand beside it.
function(widget_install_pictures qrc)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${qrc})
    get_filename_component(directory ${qrc} ABSOLUTE)
    get_filename_component(directory ${directory} DIRECTORY)
    file(STRINGS ${qrc} lines REGEX "<file>")
    set(pictures)
    foreach(line IN LISTS lines)
        string(REGEX REPLACE "^ *<file>(.*)</file>$" "${directory}/\\1" picture "${line}")
        list(APPEND pictures ${picture})
    endforeach()
    install(FILES ${qrc} ${pictures} DESTINATION ${widget_picture_dir} COMPONENT development)
endfunction()

# Installs the sources of the classes of forms, which follow, for applications to compile.
function(widget_install_forms)
    install(FILES ${ARGN} DESTINATION ${widget_form_dir} COMPONENT development)
endfunction()

# Installs the plug-in \a target of \a kind, unless only other targets were built.
function(widget_install_plugin target kind)
    set(component plugins)
    if(kind STREQUAL "designer")
        set(component development)
    endif()
    install(TARGETS ${target} LIBRARY DESTINATION ${WIDGET_PLUGIN_DIR}/${kind} COMPONENT ${component} OPTIONAL)
endfunction()

# Installs the simulator with a page for man, unless only other targets were built. Among the programs of a system it
# has a name that tells whose simulator it is.
function(widget_install_simulator)
    set(name ${widget_name}-simulator)
    file(RELATIVE_PATH libraries /${CMAKE_INSTALL_BINDIR} /${CMAKE_INSTALL_LIBDIR})
    set_target_properties(simulator PROPERTIES INSTALL_RPATH "\$ORIGIN/${libraries}")
    install(TARGETS simulator RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT simulator OPTIONAL)
    install(CODE "
        set(programs \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}\")
        if(EXISTS \"\${programs}/simulator\")
            file(RENAME \"\${programs}/simulator\" \"\${programs}/${name}\")
            list(TRANSFORM CMAKE_INSTALL_MANIFEST_FILES REPLACE \"/simulator\\$\" \"/${name}\")
        endif()"
        COMPONENT simulator)

    find_program(WIDGET_HELP2MAN help2man)
    if(NOT WIDGET_HELP2MAN)
        if(WIDGET_PACKAGES)
            message(FATAL_ERROR "WIDGET_PACKAGES needs help2man, for the simulator's page for man.")
        endif()
        message(STATUS "help2man not found: the simulator will have no page for man")
        return()
    endif()
    # Run by the name that it will have.
    set(program ${PROJECT_BINARY_DIR}/${name})
    set(page ${PROJECT_BINARY_DIR}/${name}.1.gz)
    add_custom_command(OUTPUT ${page}
        COMMAND ${CMAKE_COMMAND} -E create_symlink $<TARGET_FILE:simulator> ${program}
        COMMAND ${WIDGET_HELP2MAN} --no-info --version-string=${PROJECT_VERSION} "--name=the device on a PC"
            --output=${name}.1 ${program}
        COMMAND gzip -9nf ${name}.1
        WORKING_DIRECTORY ${PROJECT_BINARY_DIR}
        DEPENDS simulator
        VERBATIM
        COMMENT "Writing the page of ${name} for man")
    add_custom_target(widget-simulator-page ALL DEPENDS ${page})
    install(FILES ${page} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT simulator OPTIONAL)
endfunction()

# Installs what there is to read, and the pages of docs/ as HTML, if they were built.
function(widget_install_documentation)
    install(FILES README.md DESTINATION ${widget_documentation_dir} COMPONENT documentation)
    # Debian's packages have it by another name.
    if(NOT WIDGET_PACKAGES)
        install(FILES CHANGELOG.md DESTINATION ${widget_documentation_dir} COMPONENT documentation)
    endif()
    # Not what builds the examples with the library of this tree.
    install(DIRECTORY examples DESTINATION ${widget_documentation_dir} COMPONENT documentation
        PATTERN examples/CMakeLists.txt EXCLUDE)
    # Not what makes the pages.
    install(DIRECTORY docs DESTINATION ${widget_documentation_dir} COMPONENT documentation
        FILES_MATCHING PATTERN "*.png" PATTERN byhand.md PATTERN performance.md PATTERN reliability.md
        PATTERN sizes.md
        PATTERN guide EXCLUDE PATTERN classes EXCLUDE PATTERN samples EXCLUDE PATTERN doxygen EXCLUDE)
    install(DIRECTORY ${PROJECT_BINARY_DIR}/docs/html DESTINATION ${widget_documentation_dir} COMPONENT documentation
        OPTIONAL)
endfunction()

# Installs what applications use, for find_package(libwidget):
#   libwidget::widget                   the library
#   libwidget::widget-desktop-platform  the platform for a PC, as component desktop-platform
#   libwidget_add_default_pictures()    the pictures that the widgets need
#   libwidget_add_forms()               the widgets with what forms of Qt Designer need
#   libwidget_PLUGIN_DIR                where the plug-ins of the toolkit are

include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(widget_header_dir ${CMAKE_INSTALL_INCLUDEDIR}/libwidget)
set(widget_package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/libwidget)
set(widget_picture_dir ${CMAKE_INSTALL_DATADIR}/libwidget/pictures)
set(widget_form_dir ${CMAKE_INSTALL_DATADIR}/libwidget/forms)

# With the toolkit's own prefix, the toolkit finds them.
widget_qt_plugin_dir(qt_plugin_dir)
set(WIDGET_PLUGIN_DIR ${qt_plugin_dir} CACHE STRING "Where the toolkit's plug-ins are installed, relative to the prefix")

function(widget_install)
    install(TARGETS widget widget-qt EXPORT libwidget-targets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        INCLUDES DESTINATION ${widget_header_dir})
    install(FILES ${ARGN} DESTINATION ${widget_header_dir})
    install(DIRECTORY ${PROJECT_SOURCE_DIR}/platform DESTINATION ${widget_header_dir}
        FILES_MATCHING PATTERN "*.h" PATTERN desktop EXCLUDE)

    install(EXPORT libwidget-targets NAMESPACE libwidget:: DESTINATION ${widget_package_dir})
    configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/libwidget-config.cmake.in
        ${PROJECT_BINARY_DIR}/libwidget-config.cmake
        INSTALL_DESTINATION ${widget_package_dir}
        PATH_VARS widget_picture_dir widget_form_dir WIDGET_PLUGIN_DIR)
    write_basic_package_version_file(${PROJECT_BINARY_DIR}/libwidget-config-version.cmake
        COMPATIBILITY SameMajorVersion)
    install(FILES ${PROJECT_BINARY_DIR}/libwidget-config.cmake ${PROJECT_BINARY_DIR}/libwidget-config-version.cmake
        DESTINATION ${widget_package_dir})
endfunction()

function(widget_install_desktop_platform)
    install(TARGETS widget-desktop-platform EXPORT libwidget-desktop-platform-targets
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
        INCLUDES DESTINATION ${widget_header_dir})
    install(FILES ${ARGN} DESTINATION ${widget_header_dir}/platform/desktop)

    install(EXPORT libwidget-desktop-platform-targets NAMESPACE libwidget:: DESTINATION ${widget_package_dir})
    configure_file(${PROJECT_SOURCE_DIR}/cmake/libwidget-desktop-platform.cmake.in
        ${PROJECT_BINARY_DIR}/libwidget-desktop-platform.cmake @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/libwidget-desktop-platform.cmake ${PROJECT_SOURCE_DIR}/cmake/WidgetSdl.cmake
        DESTINATION ${widget_package_dir})
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
    install(FILES ${qrc} ${pictures} DESTINATION ${widget_picture_dir})
endfunction()

# Installs the sources of the classes of forms, which follow, for applications to compile.
function(widget_install_forms)
    install(FILES ${ARGN} DESTINATION ${widget_form_dir})
endfunction()

# Installs the plug-in \a target of \a kind, unless only other targets were built.
function(widget_install_plugin target kind)
    install(TARGETS ${target} LIBRARY DESTINATION ${WIDGET_PLUGIN_DIR}/${kind} OPTIONAL)
endfunction()

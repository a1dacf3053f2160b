# With WIDGET_PACKAGES the target package makes Debian packages, one of each component of the installation:
#
#   libwidget1                 libwidget-qt6-1                  the library
#   libwidget-picture-cache    libwidget-qt6-picture-cache      the plug-in that every program with the toolkit loads
#   libwidget-dev              libwidget-qt6-dev                headers, CMake, pkg-config, qmake, pictures, Designer
#   libwidget-simulator        libwidget-qt6-simulator          the simulator
#   libwidget-doc                                               what there is to read
#
# Those for Qt 6 are there beside those for Qt 5: who moves from one toolkit to the other needs both for a while. Two
# libraries cannot share a file name, and Debian does not want libraries that everyone links in a directory of their
# own, so all that stands beside each other has "-qt6" in its name there: the library (libwidget-qt6.so.1), the packages
# of CMake and pkg-config, the headers' directory and the simulator. In C++, in CMake's targets and in qmake's CONFIG
# names are the same. The picture cache is a package of its own, since libwidget2 has to fit beside libwidget1. What there
# is to read is the same for both, and only the build for Qt 5 packs it: Qt 6 draws some letters a pixel aside, so that
# the pictures would not be the same.

if(CMAKE_INSTALL_PREFIX_INITIALIZED_TO_DEFAULT)
    set(CMAKE_INSTALL_PREFIX /usr CACHE PATH "Where it is installed" FORCE)
endif()
set(CMAKE_SKIP_INSTALL_RPATH ON)
set(widget_documentation_dir share/doc/libwidget-doc)
if(WIDGET_QT EQUAL 6)
    set(WIDGET_NAME_SUFFIX -qt6)
endif()

# The compiler's flags are those of Debian.
function(widget_debian_flags result name)
    execute_process(
        COMMAND env DEB_BUILD_MAINT_OPTIONS=hardening=+bindnow DEB_CXXFLAGS_MAINT_STRIP=-g
            dpkg-buildflags --get ${name}
        WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
        RESULT_VARIABLE status OUTPUT_VARIABLE flags ERROR_QUIET OUTPUT_STRIP_TRAILING_WHITESPACE)
    if(NOT status STREQUAL 0)
        message(FATAL_ERROR "WIDGET_PACKAGES needs the tools that make packages (Debian: dpkg-dev).")
    endif()
    separate_arguments(flags UNIX_COMMAND "${flags}")
    set(${result} "${flags}" PARENT_SCOPE)
endfunction()
widget_debian_flags(flags CPPFLAGS)
add_compile_options(${flags})
widget_debian_flags(flags CXXFLAGS)
add_compile_options(${flags})
widget_debian_flags(flags LDFLAGS)
add_link_options(${flags})

# Version, maintainer and date are those of the newest entry of Debian's changelog.
function(widget_read_changelog)
    set(changelog ${PROJECT_SOURCE_DIR}/cmake/debian/changelog)
    set_property(DIRECTORY ${PROJECT_SOURCE_DIR} APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${changelog})
    foreach(field Version Maintainer Timestamp)
        execute_process(COMMAND dpkg-parsechangelog -l${changelog} -S ${field}
            OUTPUT_VARIABLE value OUTPUT_STRIP_TRAILING_WHITESPACE)
        set(widget_debian_${field} "${value}" PARENT_SCOPE)
        set(${field} "${value}")
    endforeach()
    if(NOT Version MATCHES "^${PROJECT_VERSION}-[^-]+$")
        message(FATAL_ERROR "${changelog} begins with version ${Version}, but the library is ${PROJECT_VERSION}.")
    endif()
endfunction()

# Describes the \a package of a \a component, in the words of cmake/debian/<component>.
macro(widget_package component package section)
    string(TOUPPER ${component} upper)
    list(APPEND CPACK_COMPONENTS_ALL ${component})
    set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${package})
    set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION ${section})
    file(READ ${PROJECT_SOURCE_DIR}/cmake/debian/${component}.description text)
    string(REPLACE "@TOOLKIT@" "Qt ${WIDGET_QT}" text "${text}")
    string(STRIP "${text}" CPACK_DEBIAN_${upper}_DESCRIPTION)
    widget_install_for_debian(${component} ${package})
endmacro()

# Installs what each package says of itself.
function(widget_install_for_debian component package)
    set(directory ${CMAKE_INSTALL_DATADIR}/doc/${package})
    set(work ${PROJECT_BINARY_DIR}/debian/${package})
    file(MAKE_DIRECTORY ${work})
    foreach(changelog "cmake/debian/changelog;changelog.Debian" "CHANGELOG.md;changelog")
        list(GET changelog 0 source)
        list(GET changelog 1 name)
        set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${source})
        configure_file(${PROJECT_SOURCE_DIR}/${source} ${work}/${name} COPYONLY)
        execute_process(COMMAND gzip -9nf ${work}/${name})
        install(FILES ${work}/${name}.gz DESTINATION ${directory} COMPONENT ${component})
    endforeach()
    install(FILES cmake/debian/copyright DESTINATION ${directory} COMPONENT ${component})
endfunction()

macro(widget_make_packages)
    widget_read_changelog()
    if(WIDGET_QT EQUAL 5)
        set(library_package libwidget1)
        set(toolkit_package qtbase5-dev)
    else()
        set(library_package libwidget-qt6-1)
        set(toolkit_package qt6-base-dev)
    endif()
    set(CPACK_COMPONENTS_ALL)
    widget_package(runtime ${library_package} libs)
    widget_package(plugins ${widget_name}-picture-cache libs)
    widget_package(development ${widget_name}-dev libdevel)
    widget_package(simulator ${widget_name}-simulator devel)
    if(WIDGET_QT EQUAL 5)
        widget_package(documentation libwidget-doc doc)
    endif()

    set(exactly "(= ${widget_debian_Version})")
    set(CPACK_DEBIAN_RUNTIME_PACKAGE_RECOMMENDS ${widget_name}-picture-cache)
    set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
        "${library_package} ${exactly}, ${toolkit_package}, libsdl2-dev")
    # The platform for Linux boards asks those who link it for what it was built with.
    if(TARGET widget-linux-platform)
        foreach(library "ALSA libasound2-dev" "EVDEV libevdev-dev")
            string(REGEX REPLACE " .*" "" name "${library}")
            string(REGEX REPLACE ".* " "" package "${library}")
            get_directory_property(found DIRECTORY ${PROJECT_SOURCE_DIR}/platform/linux DEFINITION WIDGET_${name}_TARGET)
            if(found)
                string(APPEND CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS ", ${package}")
            endif()
        endforeach()
    endif()
    set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_RECOMMENDS "pkgconf | pkg-config")
    set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS "libwidget-doc, ${widget_name}-simulator")
    set(CPACK_DEBIAN_SIMULATOR_PACKAGE_DEPENDS "${library_package} ${exactly}, fonts-dejavu-extra")
    set(CPACK_DEBIAN_SIMULATOR_PACKAGE_RECOMMENDS ${widget_name}-picture-cache)

    set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_ARCHITECTURE all)
    set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_SHLIBDEPS OFF)
    set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
    set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})

    set(CPACK_GENERATOR DEB)
    set(CPACK_DEB_COMPONENT_INSTALL ON)
    set(CPACK_PACKAGE_NAME libwidget)
    set(CPACK_DEBIAN_PACKAGE_SOURCE libwidget)
    set(CPACK_DEBIAN_PACKAGE_VERSION ${widget_debian_Version})
    set(CPACK_DEBIAN_PACKAGE_MAINTAINER "${widget_debian_Maintainer}")
    set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
    set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
    set(CPACK_STRIP_FILES ON)
    set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
    set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
        OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
    set(shlibs "${widget_name} ${PROJECT_VERSION_MAJOR} ${library_package} (>= ${PROJECT_VERSION})")
    configure_file(${PROJECT_SOURCE_DIR}/cmake/FinishDebianPackages.cmake.in
        ${PROJECT_BINARY_DIR}/FinishDebianPackages.cmake @ONLY)
    set(CPACK_POST_BUILD_SCRIPTS ${PROJECT_BINARY_DIR}/FinishDebianPackages.cmake)
    include(CPack)
endmacro()

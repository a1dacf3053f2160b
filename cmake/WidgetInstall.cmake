# Installs the library for applications: find_package(libwidget), target libwidget::widget.

include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

function(widget_install)
    set(headers ${CMAKE_INSTALL_INCLUDEDIR}/libwidget)
    set(package ${CMAKE_INSTALL_LIBDIR}/cmake/libwidget)

    install(TARGETS widget widget-qt EXPORT libwidget-targets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        INCLUDES DESTINATION ${headers})
    install(FILES ${ARGN} DESTINATION ${headers})
    install(DIRECTORY ${PROJECT_SOURCE_DIR}/platform DESTINATION ${headers}
        FILES_MATCHING PATTERN "*.h" PATTERN desktop EXCLUDE)

    install(EXPORT libwidget-targets NAMESPACE libwidget:: DESTINATION ${package})
    configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/libwidget-config.cmake.in
        ${PROJECT_BINARY_DIR}/libwidget-config.cmake INSTALL_DESTINATION ${package})
    write_basic_package_version_file(${PROJECT_BINARY_DIR}/libwidget-config-version.cmake
        COMPATIBILITY SameMajorVersion)
    install(FILES ${PROJECT_BINARY_DIR}/libwidget-config.cmake ${PROJECT_BINARY_DIR}/libwidget-config-version.cmake
        DESTINATION ${package})
endfunction()

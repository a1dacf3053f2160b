# Finds the toolkit in the version that WIDGET_QT names and offers it as
#   widget-qt       what the library needs (core and widgets)
#   widget-qt-test  the toolkit's test framework, where tests are built
# so that nothing else has to know which version is in use.

add_library(widget-qt INTERFACE)
if(WIDGET_QT EQUAL 4)
    # QT_QMAKE_EXECUTABLE names the qmake of the device's toolkit.
    set(components QtCore QtGui)
    if(WIDGET_BUILD_ANYTOOLKIT)
        list(APPEND components QtTest)
    endif()
    find_package(Qt4 4.8 REQUIRED ${components})
    target_link_libraries(widget-qt INTERFACE Qt4::QtGui Qt4::QtCore)
    if(WIDGET_BUILD_ANYTOOLKIT)
        add_library(widget-qt-test INTERFACE)
        target_link_libraries(widget-qt-test INTERFACE Qt4::QtTest)
    endif()
else()
    find_package(Qt${WIDGET_QT} REQUIRED COMPONENTS Widgets)
    target_link_libraries(widget-qt INTERFACE Qt${WIDGET_QT}::Widgets)
    if(WIDGET_BUILD_TESTS OR WIDGET_BUILD_ANYTOOLKIT)
        find_package(Qt${WIDGET_QT} REQUIRED COMPONENTS Test)
        add_library(widget-qt-test INTERFACE)
        target_link_libraries(widget-qt-test INTERFACE Qt${WIDGET_QT}::Test)
    endif()
endif()
message(STATUS "Building with Qt ${WIDGET_QT}")

# Compiles \a target, which runs on the device, in the language that the toolkit asks for.
function(widget_language_standard target)
    set(standard_of_qt4 98)
    set(standard_of_qt5 11)
    set(standard_of_qt6 17)
    set_target_properties(${target} PROPERTIES
        CXX_STANDARD ${standard_of_qt${WIDGET_QT}}
        CXX_EXTENSIONS OFF)
endfunction()

# Has the toolkit read once for all sources of \a target, which takes longer than compiling most of them.
# CMAKE_DISABLE_PRECOMPILE_HEADERS finds an #include that is missing.
function(widget_read_toolkit_once target)
    if(NOT WIDGET_QT EQUAL 4)
        target_precompile_headers(${target} PRIVATE <QtWidgets> ${ARGN})
    endif()
endfunction()

# Has moc read <name>.cpp for the program \a name, with Qt 5 and 6. AUTOMOC takes a second more, compiling what moc makes
# of headers, and is for where there is something for moc in them.
function(widget_moc name)
    set(directory ${CMAKE_CURRENT_BINARY_DIR}/moc)
    file(MAKE_DIRECTORY ${directory})
    qt_generate_moc(${name}.cpp ${directory}/${name}.moc TARGET ${name})
    target_sources(${name} PRIVATE ${directory}/${name}.moc)
    target_include_directories(${name} BEFORE PRIVATE ${directory})
endfunction()

# Puts the directories where the toolkit looks for its plug-ins and where its qmake looks for features, relative to where
# the toolkit is installed, into \a plugins and \a features.
function(widget_qt_directories plugins features)
    if(WIDGET_QT EQUAL 4)
        set(qmake ${QT_QMAKE_EXECUTABLE})
        set(mkspecs QT_INSTALL_DATA)
    else()
        get_target_property(qmake Qt${WIDGET_QT}::qmake IMPORTED_LOCATION)
        set(mkspecs QT_HOST_DATA)
    endif()
    foreach(place QT_INSTALL_PREFIX QT_INSTALL_PLUGINS ${mkspecs})
        execute_process(COMMAND ${qmake} -query ${place}
            OUTPUT_VARIABLE ${place} OUTPUT_STRIP_TRAILING_WHITESPACE)
    endforeach()
    file(RELATIVE_PATH directory "${QT_INSTALL_PREFIX}" "${QT_INSTALL_PLUGINS}")
    set(${plugins} "${directory}" PARENT_SCOPE)
    file(RELATIVE_PATH directory "${QT_INSTALL_PREFIX}" "${${mkspecs}}/mkspecs/features")
    set(${features} "${directory}" PARENT_SCOPE)
endfunction()

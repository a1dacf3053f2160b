# Finds the toolkit in the version that WIDGET_QT names and offers it as
#   widget-qt       what the library needs (core and widgets)
#   widget-qt-test  the toolkit's test framework (not with Qt 4)
# so that nothing else has to know which version is in use.

add_library(widget-qt INTERFACE)
if(WIDGET_QT EQUAL 4)
    # QT_QMAKE_EXECUTABLE names the qmake of the device's toolkit.
    find_package(Qt4 4.8 REQUIRED QtCore QtGui)
    target_link_libraries(widget-qt INTERFACE Qt4::QtGui Qt4::QtCore)
else()
    find_package(Qt${WIDGET_QT} REQUIRED COMPONENTS Widgets)
    target_link_libraries(widget-qt INTERFACE Qt${WIDGET_QT}::Widgets)
    if(WIDGET_BUILD_TESTS)
        find_package(Qt${WIDGET_QT} REQUIRED COMPONENTS Test)
        add_library(widget-qt-test INTERFACE)
        target_link_libraries(widget-qt-test INTERFACE Qt${WIDGET_QT}::Test)
    endif()
endif()
message(STATUS "Building with Qt ${WIDGET_QT}")

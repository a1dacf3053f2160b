# The package libwidget for projects that are built as a part of this tree: what is built here takes the place of what is
# installed.

foreach(platform desktop-platform linux-platform)
    if(TARGET widget-${platform})
        set(libwidget_${platform}_FOUND TRUE)
    endif()
endforeach()
foreach(target widget widget-desktop-platform widget-linux-platform)
    if(TARGET ${target} AND NOT TARGET libwidget::${target})
        add_library(libwidget::${target} ALIAS ${target})
    endif()
endforeach()
set_property(GLOBAL PROPERTY libwidget_default_pictures
    ${CMAKE_CURRENT_LIST_DIR}/../../simulator/resources/default-pictures.qrc)

function(libwidget_add_default_pictures target)
    get_property(pictures GLOBAL PROPERTY libwidget_default_pictures)
    target_sources(${target} PRIVATE ${pictures})
    set_target_properties(${target} PROPERTIES AUTORCC ON)
endfunction()

# The target cxx98-guard: reads every source of what runs on the device as C++98, which the device's compiler speaks.
# The toolkit's own headers are newer than that and are left out of it.

find_program(WIDGET_CLANGXX NAMES clang++ clang++-14)

# Has cxx98-guard read the sources of \a part, which follow.
function(widget_cxx98_guard part)
    if(NOT WIDGET_CLANGXX OR NOT WIDGET_QT EQUAL 5)
        return()
    endif()
    # Q_OBJECT declares its translation functions with nullptr.
    set(flags -std=c++11 -Wc++98-compat -Werror -fPIC -DQT_NO_TRANSLATION -DWIDGET_CXX98_GUARD)
    foreach(directory IN LISTS Qt5Widgets_INCLUDE_DIRS)
        list(APPEND flags -isystem ${directory})
    endforeach()
    set(toolkit ${CMAKE_BINARY_DIR}/cxx98-guard/toolkit)
    if(NOT TARGET cxx98-guard)
        add_custom_target(cxx98-guard)
        file(WRITE ${toolkit}.h "#include <QtWidgets>\n")
        add_custom_target(cxx98-guard-toolkit
            COMMAND ${WIDGET_CLANGXX} ${flags} -x c++-header ${toolkit}.h -o ${toolkit}.pch
            VERBATIM COMMENT "Reading the toolkit once for all")
    endif()
    list(APPEND flags -fsyntax-only -include-pch ${toolkit}.pch -I${PROJECT_SOURCE_DIR}
        -I${PROJECT_SOURCE_DIR}/ui/view/widget -I${CMAKE_CURRENT_SOURCE_DIR} -I${CMAKE_CURRENT_BINARY_DIR})
    set(commands)
    foreach(source IN LISTS ARGN)
        list(APPEND commands COMMAND ${WIDGET_CLANGXX} ${flags} ${CMAKE_CURRENT_SOURCE_DIR}/${source})
    endforeach()
    add_custom_target(cxx98-guard-${part} ${commands} VERBATIM COMMENT "Reading the ${part} as C++98")
    add_dependencies(cxx98-guard-${part} cxx98-guard-toolkit)
    add_dependencies(cxx98-guard cxx98-guard-${part})
endfunction()

# The warnings that every target of the project is built with, as widget_warnings(<target>).

option(WIDGET_WERROR "Treat warnings as errors" OFF)

function(widget_warnings target)
    # Casts that lead to unaligned accesses are seen on processors that may not make them.
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wcast-align -Wno-long-long)
    if(CMAKE_CXX_COMPILER_ID MATCHES Clang)
        # The toolkit's own QSKIP() and the like.
        target_compile_options(${target} PRIVATE -Wno-gnu-zero-variadic-macro-arguments)
    endif()
    if(WIDGET_WERROR)
        target_compile_options(${target} PRIVATE -Werror)
    endif()
endfunction()

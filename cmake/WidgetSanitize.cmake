# WIDGET_SANITIZE builds every target of the project with a sanitizer of the compiler. The toolkit stays as it is.

set(WIDGET_SANITIZE "" CACHE STRING "Sanitizer: thread, address,undefined or empty for none")
set_property(CACHE WIDGET_SANITIZE PROPERTY STRINGS "" thread address,undefined)

if(WIDGET_SANITIZE)
    if(NOT WIDGET_SANITIZE MATCHES "^(thread|address,undefined)$")
        message(FATAL_ERROR "WIDGET_SANITIZE is '${WIDGET_SANITIZE}', but must be thread, address,undefined or empty.")
    endif()
    # Items and formats outside their enumerations are taken on purpose, and rejected or given a meaning.
    set(sanitize -fsanitize=${WIDGET_SANITIZE} -fno-sanitize=enum -fno-sanitize-recover=all)
    add_compile_options(${sanitize} -g -fno-omit-frame-pointer)
    add_link_options(${sanitize})
    message(STATUS "Building with -fsanitize=${WIDGET_SANITIZE}")
endif()

# WIDGET_SANITIZE builds every target of the project with a sanitizer of the compiler; with "address,undefined" the tests
# are only linked with it. The toolkit stays as it is.

# With "fuzzer" the compiler, which must be clang, also counts for libFuzzer what is reached.

set(WIDGET_SANITIZE "" CACHE STRING "Sanitizer: thread, address,undefined, fuzzer or empty for none")
set_property(CACHE WIDGET_SANITIZE PROPERTY STRINGS "" thread address,undefined fuzzer)

if(WIDGET_SANITIZE)
    if(NOT WIDGET_SANITIZE MATCHES "^(thread|address,undefined|fuzzer)$")
        message(FATAL_ERROR
            "WIDGET_SANITIZE is '${WIDGET_SANITIZE}', but must be thread, address,undefined, fuzzer or empty.")
    endif()
    string(REPLACE fuzzer address,undefined,fuzzer-no-link sanitizers ${WIDGET_SANITIZE})
    # Items and formats outside their enumerations are taken on purpose, and rejected or given a meaning.
    set(sanitize -fsanitize=${sanitizers} -fno-sanitize=enum -fno-sanitize-recover=all)
    add_compile_options(${sanitize} -g -fno-omit-frame-pointer)
    add_link_options(${sanitize})
    add_compile_definitions(HAS_SANITIZER)
    message(STATUS "Building with -fsanitize=${WIDGET_SANITIZE}")
endif()

# Sanitizers, as an interface target: TOLVAN_SANITIZE is empty, "address" (with undefined) or
# "thread".
set(TOLVAN_SANITIZE "" CACHE STRING "Sanitizers to build with: empty, address or thread")
set_property(CACHE TOLVAN_SANITIZE PROPERTY STRINGS "" address thread)

add_library(tolvan_sanitizers INTERFACE)
if(TOLVAN_SANITIZE STREQUAL "address")
    # Undefined behaviour ends the program too, so that no test passes over it.
    set(sanitizer_flags -fsanitize=address,undefined -fno-sanitize-recover=undefined
                        -fno-omit-frame-pointer)
elseif(TOLVAN_SANITIZE STREQUAL "thread")
    # Fences, which the compiler warns of, are used by Asio beside real locks only.
    set(sanitizer_flags -fsanitize=thread -fno-omit-frame-pointer)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        list(APPEND sanitizer_flags -Wno-tsan)
    endif()
elseif(TOLVAN_SANITIZE)
    message(FATAL_ERROR "TOLVAN_SANITIZE is '${TOLVAN_SANITIZE}'; known are address and thread")
endif()
if(sanitizer_flags)
    target_compile_options(tolvan_sanitizers INTERFACE ${sanitizer_flags})
    target_link_options(tolvan_sanitizers INTERFACE ${sanitizer_flags})
endif()

# What a sanitized program needs in its environment, as a list of NAME=VALUE for
# tolvan_add_tests(); the suppressions are about the toolkit's libraries only.
set(TOLVAN_SANITIZER_ENVIRONMENT "")
set(suppressions ${CMAKE_SOURCE_DIR}/tests/support)
if(TOLVAN_SANITIZE STREQUAL "address")
    set(TOLVAN_SANITIZER_ENVIRONMENT
        "ASAN_OPTIONS=detect_leaks=1:halt_on_error=1:strict_string_checks=1"
        "LSAN_OPTIONS=suppressions=${suppressions}/lsan.supp:print_suppressions=0"
        "UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1")
elseif(TOLVAN_SANITIZE STREQUAL "thread")
    set(TOLVAN_SANITIZER_ENVIRONMENT
        "TSAN_OPTIONS=suppressions=${suppressions}/tsan.supp:second_deadlock_stack=1")
endif()

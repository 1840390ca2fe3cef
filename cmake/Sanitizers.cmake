# Sanitizers, as an interface target: TOLVAN_SANITIZE is empty, "address" (with undefined) or
# "thread".
set(TOLVAN_SANITIZE "" CACHE STRING "Sanitizers to build with: empty, address or thread")
set_property(CACHE TOLVAN_SANITIZE PROPERTY STRINGS "" address thread)

add_library(tolvan_sanitizers INTERFACE)
if(TOLVAN_SANITIZE STREQUAL "address")
    set(sanitizer_flags -fsanitize=address,undefined -fno-omit-frame-pointer)
elseif(TOLVAN_SANITIZE STREQUAL "thread")
    set(sanitizer_flags -fsanitize=thread -fno-omit-frame-pointer)
elseif(TOLVAN_SANITIZE)
    message(FATAL_ERROR "TOLVAN_SANITIZE is '${TOLVAN_SANITIZE}'; known are address and thread")
endif()
if(sanitizer_flags)
    target_compile_options(tolvan_sanitizers INTERFACE ${sanitizer_flags})
    target_link_options(tolvan_sanitizers INTERFACE ${sanitizer_flags})
endif()

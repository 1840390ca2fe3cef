# Warnings of our own code, as an interface target; errors where TOLVAN_WARNINGS_AS_ERRORS says so.
option(TOLVAN_WARNINGS_AS_ERRORS "Treat warnings as errors" OFF)

add_library(tolvan_warnings INTERFACE)
target_compile_options(tolvan_warnings INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
                       -Wno-sign-conversion)
if(TOLVAN_WARNINGS_AS_ERRORS)
    target_compile_options(tolvan_warnings INTERFACE -Werror)
endif()

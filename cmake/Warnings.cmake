# Warnings of our own code, as an interface target; errors where TOLVAN_WARNINGS_AS_ERRORS says so.
option(TOLVAN_WARNINGS_AS_ERRORS "Treat warnings as errors" OFF)

add_library(tolvan_warnings INTERFACE)
target_compile_options(tolvan_warnings INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
                       -Wno-sign-conversion)
if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    # The toolkit's own way to say where a control stands: wxEXPAND | wxALL.
    target_compile_options(tolvan_warnings INTERFACE -Wno-enum-enum-conversion)
endif()
if(TOLVAN_WARNINGS_AS_ERRORS)
    target_compile_options(tolvan_warnings INTERFACE -Werror)
endif()

# What many source files include, compiled once. No header of the project's own is among them: every
# change of it would compile everything anew. Not to be relied on: each file includes what it needs.
set(TOLVAN_STANDARD_HEADERS
    <algorithm> <chrono> <functional> <map> <memory> <mutex> <optional> <set> <string> <thread>
    <utility> <vector>)

# For what does not know the toolkit. A target that reuses them may have more definitions than this
# one, but none less, or the compiler would not take them.
add_library(tolvan_standard_headers OBJECT ${CMAKE_CURRENT_LIST_DIR}/Precompiled.cpp)
target_link_libraries(tolvan_standard_headers
    PRIVATE Threads::Threads tolvan_warnings tolvan_sanitizers)
target_precompile_headers(tolvan_standard_headers PRIVATE ${TOLVAN_STANDARD_HEADERS})

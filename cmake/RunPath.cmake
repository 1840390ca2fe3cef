# Where programs and libraries look for libraries once they are installed, wherever that is. A
# wxWidgets of one's own is in none of the system's folders; the build tree's programs have to be
# told too.
set(CMAKE_INSTALL_RPATH "$ORIGIN" "$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")
if(TOLVAN_WX_CONFIG)
    list(APPEND CMAKE_BUILD_RPATH ${wxWidgets_LIBRARY_DIRS})
    list(APPEND CMAKE_INSTALL_RPATH ${wxWidgets_LIBRARY_DIRS})
endif()

# Where programs and libraries look for libraries once they are installed, wherever that is.
set(CMAKE_INSTALL_RPATH "$ORIGIN" "$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")

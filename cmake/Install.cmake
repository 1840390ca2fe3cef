# cmake --install: the libraries, their public headers, a CMake package and a pkg-config file.
include(CMakePackageConfigHelpers)

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/wxTolvan)
set(header_folder ${CMAKE_INSTALL_INCLUDEDIR}/wxTolvan)
set(installed_targets wxTolvan)
set(link_flags "-lwxTolvan")

# Headers keep their folders, as they are included. What lies in rooms of a folder is private.
function(tolvan_install_headers)
    foreach(folder ${ARGN})
        file(GLOB headers CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/${folder}/*.h)
        get_filename_component(name ${folder} NAME)
        install(FILES ${headers} DESTINATION ${header_folder}/${name})
    endforeach()
endfunction()

tolvan_install_headers(shell appearance listviews textviews dialogs jobwidgets)
if(NOT TOLVAN_PLATFORM)
    tolvan_install_headers(platform/vesta platform/tolvan)
    list(APPEND installed_targets vesta tolvan)
    set_target_properties(tolvan PROPERTIES EXPORT_NAME platform)
    string(APPEND link_flags " -ltolvan -lVesta")
endif()

install(TARGETS ${installed_targets} EXPORT wxTolvanTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(EXPORT wxTolvanTargets NAMESPACE tolvan:: DESTINATION ${package_folder})

configure_package_config_file(${CMAKE_SOURCE_DIR}/cmake/wxTolvanConfig.cmake.in
                              ${CMAKE_BINARY_DIR}/wxTolvanConfig.cmake
                              INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file(${CMAKE_BINARY_DIR}/wxTolvanConfigVersion.cmake
                                 COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_BINARY_DIR}/wxTolvanConfig.cmake
              ${CMAKE_BINARY_DIR}/wxTolvanConfigVersion.cmake
              ${CMAKE_SOURCE_DIR}/cmake/WxTarget.cmake
        DESTINATION ${package_folder})

# wxWidgets has no pkg-config file of its own; its flags are those of the wx-config built with.
foreach(flags cxxflags libs)
    execute_process(COMMAND ${wxWidgets_CONFIG_EXECUTABLE} --${flags} aui,core,base
                    OUTPUT_VARIABLE wx_${flags} OUTPUT_STRIP_TRAILING_WHITESPACE
                    COMMAND_ERROR_IS_FATAL ANY)
endforeach()
if(TOLVAN_WX_CONFIG)
    foreach(folder ${wxWidgets_LIBRARY_DIRS})
        string(PREPEND wx_libs "-Wl,-rpath,${folder} ")
    endforeach()
endif()
# The file finds its prefix from where it is.
file(RELATIVE_PATH prefix_from_package /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(${CMAKE_SOURCE_DIR}/cmake/wxTolvan.pc.in ${CMAKE_BINARY_DIR}/wxTolvan.pc @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/wxTolvan.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

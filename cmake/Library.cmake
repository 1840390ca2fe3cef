# The product: libwxTolvan, made of one folder a subsystem and of what they share (internal/). Tests
# of private parts, which the library does not export, link the objects in the library's place.
# Text is laid out and drawn with what the toolkit itself draws it with. It stays inside: no public
# header shows it.
find_package(PkgConfig REQUIRED)
pkg_check_modules(PANGOCAIRO REQUIRED IMPORTED_TARGET pangocairo)
# Regular expressions in the search of text views, in linear time. Inside, too.
pkg_check_modules(RE2 REQUIRED IMPORTED_TARGET re2)

# The port's own library, of the version that the toolkit was built for. Its headers are for
# internal/port only.
execute_process(COMMAND ${wxWidgets_CONFIG_EXECUTABLE} --selected-config
                OUTPUT_VARIABLE toolkit COMMAND_ERROR_IS_FATAL ANY)
if(NOT toolkit MATCHES "^gtk([23])-")
    message(FATAL_ERROR "wxWidgets is needed in its GTK 3 or GTK 2 port; this is ${toolkit}")
endif()
pkg_check_modules(GTK REQUIRED gtk+-${CMAKE_MATCH_1}.0)

add_library(wxTolvan_objects OBJECT)
target_include_directories(wxTolvan_objects PUBLIC ${CMAKE_SOURCE_DIR})
target_link_libraries(wxTolvan_objects
    PUBLIC tolvan::vesta tolvan::platform tolvan::wx PkgConfig::PANGOCAIRO PkgConfig::RE2
           ${GTK_LINK_LIBRARIES}
    PRIVATE tolvan_warnings tolvan_sanitizers)
target_precompile_headers(wxTolvan_objects PRIVATE <wx/wx.h> ${TOLVAN_STANDARD_HEADERS})
# Programs reuse the library's precompiled header; the compiler takes it only for the same kind of
# position-independent code.
set(CMAKE_CXX_COMPILE_OPTIONS_PIE -fPIC)

foreach(folder internal appearance listviews textviews shell dialogs jobwidgets)
    add_subdirectory(${CMAKE_SOURCE_DIR}/${folder})
endforeach()

add_library(wxTolvan SHARED $<TARGET_OBJECTS:wxTolvan_objects>)
add_library(tolvan::wxTolvan ALIAS wxTolvan)
set_target_properties(wxTolvan PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION 0)
target_include_directories(wxTolvan PUBLIC
    $<BUILD_INTERFACE:${CMAKE_SOURCE_DIR}> $<INSTALL_INTERFACE:include/wxTolvan>)
target_link_libraries(wxTolvan
    PUBLIC tolvan::vesta tolvan::platform tolvan::wx
    PRIVATE $<BUILD_INTERFACE:PkgConfig::PANGOCAIRO> $<BUILD_INTERFACE:PkgConfig::RE2>
            "$<BUILD_INTERFACE:${GTK_LINK_LIBRARIES}>"
            $<BUILD_INTERFACE:tolvan_sanitizers>)

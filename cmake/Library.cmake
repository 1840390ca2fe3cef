# The product: libwxTolvan, made of one folder a subsystem.
add_library(wxTolvan SHARED)
add_library(tolvan::wxTolvan ALIAS wxTolvan)
set_target_properties(wxTolvan PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION 0)

target_include_directories(wxTolvan PUBLIC
    $<BUILD_INTERFACE:${CMAKE_SOURCE_DIR}> $<INSTALL_INTERFACE:include/wxTolvan>)
target_link_libraries(wxTolvan
    PUBLIC tolvan::vesta tolvan::platform tolvan::wx
    PRIVATE $<BUILD_INTERFACE:tolvan_warnings> $<BUILD_INTERFACE:tolvan_sanitizers>)
target_precompile_headers(wxTolvan PRIVATE <wx/wx.h>)
# Programs reuse the library's precompiled header; the compiler takes it only with the same macros
# and for the same kind of position-independent code.
set_target_properties(wxTolvan PROPERTIES DEFINE_SYMBOL "")
set(CMAKE_CXX_COMPILE_OPTIONS_PIE -fPIC)

foreach(folder shell appearance listviews textviews dialogs jobwidgets)
    add_subdirectory(${CMAKE_SOURCE_DIR}/${folder})
endforeach()

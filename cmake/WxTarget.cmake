# tolvan::wx: wxWidgets as one target. It is also part of the installed package, so that programs
# find the toolkit of their own machine. Set wxWidgets_CONFIG_EXECUTABLE for another than the first
# wx-config in the path. Include directories of an imported target raise no warnings.
find_package(wxWidgets 3.1 REQUIRED COMPONENTS aui core base)

if(NOT TARGET tolvan::wx)
    add_library(tolvan::wx INTERFACE IMPORTED)
    target_include_directories(tolvan::wx INTERFACE ${wxWidgets_INCLUDE_DIRS})
    target_compile_definitions(tolvan::wx INTERFACE ${wxWidgets_DEFINITIONS}
                               $<$<CONFIG:Debug>:${wxWidgets_DEFINITIONS_DEBUG}>)
    target_compile_options(tolvan::wx INTERFACE ${wxWidgets_CXX_FLAGS})
    target_link_libraries(tolvan::wx INTERFACE ${wxWidgets_LIBRARIES})
endif()

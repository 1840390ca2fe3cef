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
    # Programs have to be told of a toolkit that is in none of the system's folders.
    foreach(folder ${wxWidgets_LIBRARY_DIRS})
        if(NOT folder IN_LIST CMAKE_CXX_IMPLICIT_LINK_DIRECTORIES)
            target_link_options(tolvan::wx INTERFACE "LINKER:-rpath,${folder}")
        endif()
    endforeach()
endif()

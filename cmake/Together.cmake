# Compiles the files of each folder as one, which takes half of the time: most of it goes into
# headers and what they inline. For builds that are made anew as a whole. Each file has to compile
# alone all the same, as it does in all other builds.
option(TOLVAN_TOGETHER "Compile the files of each folder as one" OFF)

# What clashes there with another file of its folder, mostly by names that are its own, is compiled
# alone: files, and folders where most do.
set(TOLVAN_ALONE
    appearance/tabs/TabStripInput.cpp
    appearance/wxtButton.cpp
    appearance/wxtCheckListBox.cpp
    appearance/wxtComboBox.cpp
    appearance/wxtDockArt.cpp
    appearance/wxtSearchField.cpp
    appearance/wxtTextCtrl.cpp
    dialogs/wxQuestion.cpp
    dialogs/wxTextFromUserDlg.cpp
    dialogs/wxtAboutDlg.cpp
    examples/common/KeptRules.cpp
    examples/common/PreferencesDlg.cpp
    examples/gallery
    examples/logview/MemoryText.cpp
    examples/logview/MergedFollower.cpp
    examples/logview/MergedInput.cpp
    examples/monitor
    internal/text/TextPainter.cpp
    listviews/TreeListArranging.cpp
    listviews/tree/TreeRemains.cpp
    master/farm/FarmStart.cpp
    platform/vesta/files/PrivateFolder.cpp
    shell/wxTolvanFrame.cpp
    tests/appearance/TextPainterTest.cpp
    tests/examples/MergedFollowerTest.cpp
    tests/listviews/PartialPaintTest.cpp
    tests/textviews/LineStoreTest.cpp
    tests/textviews/MatchingLinesTest.cpp
    tests/textviews/RuleSetTest.cpp
    tests/textviews/RulesTest.cpp
    tests/textviews/StoredLinesTest.cpp
    textviews/rules/RuleSet.cpp
    textviews/search/LineSearch.cpp
    textviews/wxTextLineCtrl.cpp
    textviews/wxTextLinePanes.cpp)

function(tolvan_compile_together target)
    get_target_property(sources ${target} SOURCES)
    get_target_property(folder ${target} SOURCE_DIR)
    set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
    foreach(source ${sources})
        cmake_path(ABSOLUTE_PATH source BASE_DIRECTORY ${folder} NORMALIZE OUTPUT_VARIABLE path)
        cmake_path(RELATIVE_PATH path BASE_DIRECTORY ${CMAKE_SOURCE_DIR} OUTPUT_VARIABLE name)
        cmake_path(GET name PARENT_PATH group)
        if(name MATCHES "\\.cpp$" AND NOT name IN_LIST TOLVAN_ALONE
           AND NOT group IN_LIST TOLVAN_ALONE)
            string(MAKE_C_IDENTIFIER "${group}" group)
            set_source_files_properties(${path} TARGET_DIRECTORY ${target}
                                        PROPERTIES UNITY_GROUP ${group})
        endif()
    endforeach()
endfunction()

# With the folders in it.
function(tolvan_compile_folder_together folder)
    get_property(targets DIRECTORY ${folder} PROPERTY BUILDSYSTEM_TARGETS)
    foreach(target ${targets})
        get_target_property(type ${target} TYPE)
        if(type MATCHES "EXECUTABLE|LIBRARY" AND NOT type STREQUAL "INTERFACE_LIBRARY")
            tolvan_compile_together(${target})
        endif()
    endforeach()
    get_property(folders DIRECTORY ${folder} PROPERTY SUBDIRECTORIES)
    foreach(inner ${folders})
        tolvan_compile_folder_together(${inner})
    endforeach()
endfunction()

if(TOLVAN_TOGETHER)
    cmake_language(DEFER DIRECTORY ${CMAKE_SOURCE_DIR}
                   CALL tolvan_compile_folder_together ${CMAKE_SOURCE_DIR})
endif()

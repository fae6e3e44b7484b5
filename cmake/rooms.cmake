# SPDX-License-Identifier: GPL-3.0-or-later
# tarvokol_read_together(TARGET FILE...): where a build reads several sources as one, these, the files of one folder, are.
function(tarvokol_read_together target)
    list(GET ARGN 0 first)
    cmake_path(GET first PARENT_PATH folder)
    cmake_path(RELATIVE_PATH folder BASE_DIRECTORY ${CMAKE_SOURCE_DIR})
    string(MAKE_C_IDENTIFIER ${folder} group)
    set_target_properties(${target} PROPERTIES UNITY_BUILD_MODE GROUP)
    set_property(SOURCE ${ARGN} TARGET_DIRECTORY ${target} PROPERTY UNITY_GROUP ${group})
endfunction()

# tarvokol_room(TARGET FILE...): adds files of the calling folder to TARGET. A header is listed where it holds a Q_OBJECT class.
function(tarvokol_room target)
    list(TRANSFORM ARGN PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/ OUTPUT_VARIABLE files)
    target_sources(${target} PRIVATE ${files})
    tarvokol_read_together(${target} ${files})
endfunction()

# tarvokol_precompile(TARGET HEADER...): the standard headers that TARGET reads in most files, precompiled. GCC 12 loses with them what it
# knows of the strings' sizes and warns of copies beyond their ends; it does without.
function(tarvokol_precompile target)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        target_precompile_headers(${target} PRIVATE ${ARGN})
    endif()
endfunction()

# tarvokol_forms(NAME...): adds the forms of the calling folder, three files each, to tarvokol_gui.
function(tarvokol_forms)
    foreach(form IN LISTS ARGN)
        tarvokol_room(tarvokol_gui ${form}.cpp ${form}.h ${form}.ui)
    endforeach()
endfunction()

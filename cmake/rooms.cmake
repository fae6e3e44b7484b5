# SPDX-License-Identifier: GPL-3.0-or-later
# tarvokol_room(TARGET FILE...): adds files of the calling folder to TARGET. A header is listed where it holds a Q_OBJECT class.
function(tarvokol_room target)
    foreach(file IN LISTS ARGN)
        target_sources(${target} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/${file})
    endforeach()
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
        target_sources(tarvokol_gui PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/${form}.cpp
                       ${CMAKE_CURRENT_SOURCE_DIR}/${form}.h ${CMAKE_CURRENT_SOURCE_DIR}/${form}.ui)
    endforeach()
endfunction()

# The generator behind moc and uic looks for new work only when a file that it knows changes. The list of files that
# brings a new form is such a file.
function(tarvokol_regenerate_with target)
    set_property(TARGET ${target} APPEND PROPERTY AUTOGEN_TARGET_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/CMakeLists.txt)
endfunction()

# tarvokol_room(TARGET FILE...): adds files of the calling folder to TARGET.
function(tarvokol_room target)
    foreach(file IN LISTS ARGN)
        target_sources(${target} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/${file})
    endforeach()
    tarvokol_regenerate_with(${target})
endfunction()

# tarvokol_forms(NAME...): adds the forms of the calling folder, three files each, to tarvokol_gui.
function(tarvokol_forms)
    foreach(form IN LISTS ARGN)
        target_sources(tarvokol_gui PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/${form}.cpp
                       ${CMAKE_CURRENT_SOURCE_DIR}/${form}.h ${CMAKE_CURRENT_SOURCE_DIR}/${form}.ui)
    endforeach()
    tarvokol_regenerate_with(tarvokol_gui)
endfunction()

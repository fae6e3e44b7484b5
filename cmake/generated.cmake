# SPDX-License-Identifier: GPL-3.0-or-later
# tarvokol_generate(TARGET): the toolkit's compilers over what TARGET lists: uic over forms (.ui), moc over headers (.h),
# rcc over collections of resources (.qrc). To be called after the last file was added, in the folder that made TARGET.
#
# Each file has a command of its own whose output is declared. The generators that CMake brings along run them all in one
# step without declared outputs: there a change of a form reached the program with the second build only.
function(tarvokol_generate target)
    get_target_property(sources ${target} SOURCES)
    set(folder ${CMAKE_BINARY_DIR}/generated/${target})
    file(MAKE_DIRECTORY ${folder})
    set(classes "")
    foreach(source IN LISTS sources)
        cmake_path(GET source STEM name)
        cmake_path(GET source EXTENSION LAST_ONLY kind)
        if(kind STREQUAL ".ui")
            tarvokol_generated_file(${target} ${folder}/ui_${name}.h ${source} COMMAND Qt6::uic)
        elseif(kind STREQUAL ".h")
            cmake_path(RELATIVE_PATH source BASE_DIRECTORY ${CMAKE_SOURCE_DIR} OUTPUT_VARIABLE included_as)
            tarvokol_generated_file(${target} ${folder}/moc_${name}.cpp ${source} COMMAND Qt6::moc -f${included_as})
            set_source_files_properties(${folder}/moc_${name}.cpp PROPERTIES HEADER_FILE_ONLY ON)
            string(APPEND classes "#include \"moc_${name}.cpp\"\n")
        elseif(kind STREQUAL ".qrc")
            # Which files the collection names, rcc tells in a list. Its first format carries no dates of files.
            tarvokol_generated_file(${target} ${folder}/qrc_${name}.cpp ${source}
                                    COMMAND Qt6::rcc --format-version 1 --name ${name} -d ${folder}/qrc_${name}.d
                                    DEPFILE ${folder}/qrc_${name}.d)
        endif()
    endforeach()
    target_include_directories(${target} PRIVATE ${folder})

    # What moc writes is compiled as one file.
    file(CONFIGURE OUTPUT ${folder}/classes.cpp CONTENT "${classes}")
    target_sources(${target} PRIVATE ${folder}/classes.cpp)
endfunction()

# tarvokol_generated_file(TARGET OUTPUT INPUT COMMAND COMPILER OPTION... [DEPFILE FILE]): OUTPUT, made from INPUT, is a
# source of TARGET.
function(tarvokol_generated_file target output input)
    cmake_parse_arguments(generated "" "DEPFILE" "COMMAND" ${ARGN})
    if(generated_DEPFILE)
        set(depfile DEPFILE ${generated_DEPFILE})
    endif()
    add_custom_command(OUTPUT ${output} COMMAND ${generated_COMMAND} -o ${output} ${input}
                       DEPENDS ${input} ${depfile} VERBATIM)
    target_sources(${target} PRIVATE ${output})
endfunction()

# SPDX-License-Identifier: GPL-3.0-or-later
# The compiled help and the documents: adds to `documents` and `help_file` what is made.

# The date that the documents carry is that of the sources. Where it is given another one, all are made again.
if(DEFINED ENV{SOURCE_DATE_EPOCH})
    set(source_date SOURCE_DATE_EPOCH=$ENV{SOURCE_DATE_EPOCH})
else()
    set(source_date --unset=SOURCE_DATE_EPOCH)
endif()
set(source_date_file ${CMAKE_CURRENT_BINARY_DIR}/source_date)
file(CONFIGURE OUTPUT ${source_date_file} CONTENT "${source_date}\n")

# Compiled help.
file(GLOB help_sources CONFIGURE_DEPENDS help/*.htm help/*.css help/images/*)
set(help_file ${documents_dir}/TARVOKOL.qch)
add_custom_command(OUTPUT ${help_file}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${documents_dir}
    COMMAND ${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen QT_HASH_SEED=0 ${source_date}
            $<TARGET_FILE:Qt6::qhelpgenerator> --silent
            ${CMAKE_CURRENT_SOURCE_DIR}/help/TARVOKOL.qhp -o ${help_file}
    DEPENDS help/TARVOKOL.qhp ${help_sources} ${source_date_file}
    COMMENT "Compiling the help" VERBATIM)

# Documents: a small tool sets HTML sources as PDF pages.
add_executable(html_to_pdf tools/html_to_pdf.cpp tools/page_setter.cpp tools/page_setter.h tools/figures.cpp
               tools/figures.h tools/drawing.cpp tools/drawing.h tools/pdf_outline.cpp tools/pdf_outline.h tools/pdf_file.cpp tools/pdf_file.h
               tools/pdf_pictures.cpp tools/pdf_pictures.h)
set_target_properties(html_to_pdf PROPERTIES AUTOMOC ON)
target_link_libraries(html_to_pdf PRIVATE tarvokol_options Qt6::Gui Qt6::Svg)

# tarvokol_document(PDF DEPENDS... ARGUMENTS...): one PDF of the program folder.
function(tarvokol_document pdf)
    cmake_parse_arguments(document "" "" "DEPENDS;ARGUMENTS" ${ARGN})
    add_custom_command(OUTPUT ${documents_dir}/${pdf}
        COMMAND ${CMAKE_COMMAND} -E make_directory ${documents_dir}
        COMMAND ${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen QT_HASH_SEED=0 ${source_date}
                $<TARGET_FILE:html_to_pdf> ${document_ARGUMENTS} -o ${documents_dir}/${pdf}
        DEPENDS html_to_pdf ${source_date_file} ${document_DEPENDS}
        COMMENT "Setting ${pdf}" VERBATIM)
    set(documents ${documents} ${documents_dir}/${pdf} PARENT_SCOPE)
endfunction()

file(GLOB figures CONFIGURE_DEPENDS notes/figures/*.svg)
foreach(note IN ITEMS PillarStrength AbutmentLoad SizingEquations UnitsConversions WorkedDesign)
    tarvokol_document(${note}.pdf
        DEPENDS notes/${note}.htm notes/notes.css ${figures}
        ARGUMENTS --running-title "TARVO-KOL ${TARVOKOL_VERSION_TEXT}" --css ${CMAKE_CURRENT_SOURCE_DIR}/notes/notes.css
                  ${CMAKE_CURRENT_SOURCE_DIR}/notes/${note}.htm)
endforeach()
tarvokol_document(TARVOKOL.PDF
    DEPENDS manual/manual.txt manual/title.htm notes/notes.css ${help_sources}
    ARGUMENTS --running-title "TARVO-KOL ${TARVOKOL_VERSION_TEXT}" --css ${CMAKE_CURRENT_SOURCE_DIR}/notes/notes.css
              --book ${CMAKE_CURRENT_SOURCE_DIR}/manual/manual.txt)

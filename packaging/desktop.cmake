# SPDX-License-Identifier: GPL-3.0-or-later
# The desktop programs, and what a desktop reads of them: their entries, the type of their files, icons; the manual for those
# who list manuals.
install(FILES tarvokol.doc-base DESTINATION ${share}/doc-base RENAME tarvokol.manual COMPONENT doc)
set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME desktop)
install(TARGETS tarvokol tarvokol-studies RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES ${made}/man/tarvokol.1.gz ${made}/man/tarvokol-studies.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES tarvokol.desktop tarvokol_studies.desktop DESTINATION ${share}/applications)
install(FILES tarvokol-mime.xml DESTINATION ${share}/mime/packages RENAME tarvokol.xml)
install(FILES example.oltek.tarvokol.metainfo.xml DESTINATION ${share}/metainfo)

# Icons: the drawings, and pictures of them for desktops that draw none.
add_executable(svg_to_png svg_to_png.cpp)
target_link_libraries(svg_to_png PRIVATE tarvokol_options Qt6::Gui Qt6::Svg)
function(tarvokol_icon kind name drawing)
    set(hicolor ${share}/icons/hicolor)
    install(FILES ${drawing} DESTINATION ${hicolor}/scalable/${kind} RENAME ${name}.svg)
    foreach(size IN ITEMS 16 22 24 32 48 64 128 256)
        set(picture ${made}/icons/${size}x${size}/${name}.png)
        add_custom_command(OUTPUT ${picture}
            COMMAND ${CMAKE_COMMAND} -E make_directory ${made}/icons/${size}x${size}
            COMMAND ${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen
                    $<TARGET_FILE:svg_to_png> ${drawing} ${size} ${picture}
            DEPENDS svg_to_png ${drawing} VERBATIM)
        install(FILES ${picture} DESTINATION ${hicolor}/${size}x${size}/${kind})
        list(APPEND icons ${picture})
    endforeach()
    set(icons ${icons} PARENT_SCOPE)
endfunction()
tarvokol_icon(apps tarvokol ${CMAKE_SOURCE_DIR}/resources/artwork/tarvokol.svg)
tarvokol_icon(mimetypes application-x-tarvokol ${CMAKE_CURRENT_SOURCE_DIR}/icons/tarvokol-project.svg)

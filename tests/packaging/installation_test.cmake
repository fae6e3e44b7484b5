# SPDX-License-Identifier: GPL-3.0-or-later
file(REMOVE_RECURSE ${PREFIX})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${PREFIX}
                OUTPUT_QUIET RESULT_VARIABLE failed)
if(failed)
    message(FATAL_ERROR "the installation failed")
endif()

foreach(file IN ITEMS
        bin/tarvokol
        bin/tarvokol-cli
        bin/tarvokol-studies
        libexec/tarvokol/tarvokol-cli-drawing
        share/applications/tarvokol.desktop
        share/applications/tarvokol_studies.desktop
        share/doc/tarvokol/LICENSE
        share/icons/hicolor/scalable/apps/tarvokol.svg
        share/metainfo/example.oltek.tarvokol.metainfo.xml
        share/mime/packages/tarvokol.xml
        share/tarvokol/TARVOKOL.PDF
        share/tarvokol/TARVOKOL.qch
        share/tarvokol/PillarStrength.pdf
        share/tarvokol/AbutmentLoad.pdf
        share/tarvokol/SizingEquations.pdf
        share/tarvokol/UnitsConversions.pdf
        share/tarvokol/WorkedDesign.pdf)
    if(NOT EXISTS ${PREFIX}/${file})
        message(SEND_ERROR "not installed: ${file}")
    endif()
endforeach()

file(GLOB sources RELATIVE ${SOURCE}/examples ${SOURCE}/examples/*.TKL ${SOURCE}/examples/*.csv)
file(GLOB installed RELATIVE ${PREFIX}/share/tarvokol ${PREFIX}/share/tarvokol/*.TKL ${PREFIX}/share/tarvokol/*.csv)
if(NOT installed STREQUAL sources)
    message(SEND_ERROR "examples installed: ${installed}; in the sources: ${sources}")
endif()
file(REMOVE_RECURSE ${PREFIX})

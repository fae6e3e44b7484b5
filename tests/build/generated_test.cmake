# SPDX-License-Identifier: GPL-3.0-or-later
# Builds the desktop of one form in room/, changes its form, its resource and its class, and builds once after each: the
# program says the new word.
file(REMOVE_RECURSE ${SCRATCH})
file(COPY ${CMAKE_CURRENT_LIST_DIR}/room DESTINATION ${SCRATCH})

function(run)
    execute_process(COMMAND ${ARGN} OUTPUT_VARIABLE output ERROR_VARIABLE errors RESULT_VARIABLE failed)
    if(failed)
        message(FATAL_ERROR "${ARGN}\n${output}${errors}")
    endif()
    set(output "${output}" PARENT_SCOPE)
endfunction()

function(expect_words when words)
    run(${CMAKE_COMMAND} --build ${SCRATCH}/build)
    run(${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen ${SCRATCH}/build/room)
    string(STRIP "${output}" output)
    if(NOT output STREQUAL words)
        message(FATAL_ERROR "${when} the program says\n${output}\nand not\n${words}")
    endif()
endfunction()

run(${CMAKE_COMMAND} -S ${SCRATCH}/room -B ${SCRATCH}/build -G ${GENERATOR} -DRULES=${SOURCE}/cmake
    -DCMAKE_BUILD_TYPE=None)
expect_words("after the first build" "old form\nold class\nold file")

function(change file)
    file(READ ${SCRATCH}/room/${file} text)
    string(REPLACE "old" "new" text "${text}")
    file(WRITE ${SCRATCH}/room/${file} "${text}")
endfunction()

# One at a time: what follows from one change may hide that nothing follows from another.
change(desktop/frmRoom.ui)
expect_words("after a change of the form" "new form\nold class\nold file")
change(word.txt)
expect_words("after a change of the resource" "new form\nold class\nnew file")
change(desktop/frmRoom.h)
expect_words("after a change of the class" "new form\nnew class\nnew file")
file(REMOVE_RECURSE ${SCRATCH})

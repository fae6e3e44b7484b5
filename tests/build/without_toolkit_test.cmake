# SPDX-License-Identifier: GPL-3.0-or-later
# Configures the program as on a system that has no Qt, builds the calculation, the core, the command line and their tests, and
# runs those that are not long.
function(run)
    execute_process(COMMAND ${ARGN} OUTPUT_VARIABLE output ERROR_VARIABLE errors RESULT_VARIABLE failed)
    if(failed)
        message(FATAL_ERROR "${ARGN}\n${output}${errors}")
    endif()
endfunction()

file(REMOVE_RECURSE ${SCRATCH})
run(${CMAKE_COMMAND} -S ${SOURCE} -B ${SCRATCH} -G ${GENERATOR} -DCMAKE_BUILD_TYPE=Release -DTARVOKOL_GUI=OFF
    -DTARVOKOL_LIBRARY=OFF -DTARVOKOL_PREFER_CLANG=ON -DTARVOKOL_WERROR=ON -DTARVOKOL_UNITY=ON
    -DCMAKE_DISABLE_FIND_PACKAGE_Qt6=ON
    -DCMAKE_DISABLE_FIND_PACKAGE_QCustomPlotQt6=ON)
run(${CMAKE_COMMAND} --build ${SCRATCH})
run(${CMAKE_CTEST_COMMAND} --test-dir ${SCRATCH} -LE "^long$" --output-on-failure)
run(${CMAKE_COMMAND} --install ${SCRATCH} --prefix ${SCRATCH}/installed)
foreach(file IN ITEMS bin/tarvokol-cli share/man/man1/tarvokol-cli.1.gz share/tarvokol/Metric_Deep_Panel.TKL)
    if(NOT EXISTS ${SCRATCH}/installed/${file})
        message(FATAL_ERROR "${file} is not installed")
    endif()
endforeach()
file(REMOVE_RECURSE ${SCRATCH})

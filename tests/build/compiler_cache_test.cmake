# SPDX-License-Identifier: GPL-3.0-or-later
# A precompiled header of Clang holds the path of its own build folder. Builds a program with one, removes the checkout, and
# builds sources with a change elsewhere, and in a second build folder, with what the compiler cache has kept: neither may be
# given the header of a folder that is gone.
function(run)
    execute_process(COMMAND ${CMAKE_COMMAND} -E env --unset=CCACHE_DISABLE CCACHE_DIR=${SCRATCH}/cache ${ARGN}
                    OUTPUT_VARIABLE output ERROR_VARIABLE errors RESULT_VARIABLE failed)
    if(failed)
        message(FATAL_ERROR "${ARGN}\n${output}${errors}")
    endif()
endfunction()

# build_in CHECKOUT FOLDER ITEMS: the change is the number of the items.
function(build_in checkout folder items)
    file(WRITE ${SCRATCH}/${checkout}/main.cpp "int main() { return std::vector<int>(${items}).empty() ? 1 : 0; }\n")
    run(${CMAKE_COMMAND} -S ${SCRATCH}/${checkout} -B ${SCRATCH}/${checkout}/${folder} -G ${GENERATOR}
        -DCMAKE_BUILD_TYPE=Release -DCMAKE_CXX_COMPILER=${COMPILER})
    run(${CMAKE_COMMAND} --build ${SCRATCH}/${checkout}/${folder})
endfunction()

file(REMOVE_RECURSE ${SCRATCH})
foreach(checkout IN ITEMS first second)
    file(COPY ${SOURCE}/cmake DESTINATION ${SCRATCH}/${checkout})
    file(WRITE ${SCRATCH}/${checkout}/CMakeLists.txt
         "cmake_minimum_required(VERSION 3.23)\nproject(Cached CXX)\ninclude(cmake/compiler.cmake)\n"
         "add_executable(cached main.cpp)\ntarget_precompile_headers(cached PRIVATE <vector>)\n")
endforeach()
build_in(first build/first 1)
file(REMOVE_RECURSE ${SCRATCH}/first)
build_in(second build/first 2)
file(REMOVE_RECURSE ${SCRATCH}/second/build/first)
build_in(second build/second 3)
file(REMOVE_RECURSE ${SCRATCH})

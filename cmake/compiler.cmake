# SPDX-License-Identifier: GPL-3.0-or-later
# Compiler settings shared by every target. Contraction of products and sums is off, so that every machine
# gives the same last bit.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)

set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    # A precompiled header carries time stamps; ccache is told to look at its content instead. Relative paths
    # let two checkouts of the same commit share results. Not those of Clang, one build folder of which shares nothing with
    # another: its precompiled headers name the folder in which they were made, and are of no use once that is gone.
    set(compiler_cache_space "")
    if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        set(compiler_cache_space CCACHE_NAMESPACE=${CMAKE_BINARY_DIR})
    endif()
    set(CMAKE_CXX_COMPILER_LAUNCHER
        ${CMAKE_COMMAND} -E env
        CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
        CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} CCACHE_NOHASHDIR=1 ${compiler_cache_space} ${CCACHE_PROGRAM})
endif()

# Most of a compilation goes into the headers that the sources of a target share. Whole builds read the
# sources of a folder as one and take a third of the time; whoever changes a line and builds again is quicker without.
option(TARVOKOL_UNITY "Compile the sources of a folder as one" OFF)
set(CMAKE_UNITY_BUILD ${TARVOKOL_UNITY})
set(CMAKE_UNITY_BUILD_BATCH_SIZE 0)

if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    # The time of a precompiled header is no part of what it says, so that ccache finds it again.
    add_compile_options("$<$<COMPILE_LANGUAGE:CXX>:SHELL:-Xclang -fno-pch-timestamp>")
    find_program(TARVOKOL_LLD ld.lld)
    if(TARVOKOL_LLD)
        add_link_options(-fuse-ld=lld)
    endif()
endif()

# A crash of an installed program names functions and lines to those who have its symbols, and no values: that is all that
# a report of a crash needs, at a tenth of the size. The places of source and build are no part of it, whether a compiler
# cache hands over paths from the root or from the folder of the build: what is made there is named from there.
option(TARVOKOL_SYMBOLS "Compile with the lines of the source, for packages of symbols" OFF)
if(TARVOKOL_SYMBOLS)
    set(place /usr/src/tarvokol)
    file(RELATIVE_PATH source_from_build ${CMAKE_BINARY_DIR} ${CMAKE_SOURCE_DIR})
    add_compile_options(-g1 -ffile-prefix-map=${source_from_build}=${place}/
                        -ffile-prefix-map=${CMAKE_SOURCE_DIR}=${place} -ffile-prefix-map=${CMAKE_BINARY_DIR}=${place}/build
                        -ffile-prefix-map=${CMAKE_BINARY_DIR}/=)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        add_compile_options(-gno-record-gcc-switches)  # among which are those that a compiler cache adds
    endif()
endif()

add_library(tarvokol_options INTERFACE)
target_include_directories(tarvokol_options INTERFACE ${CMAKE_SOURCE_DIR})
target_compile_options(tarvokol_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -ffp-contract=off)
include(cmake/known_compilers.cmake)
tarvokol_knows_compiler(known_compiler ${CMAKE_CXX_COMPILER_ID} ${CMAKE_CXX_COMPILER_VERSION})
if(TARVOKOL_WERROR AND known_compiler)
    target_compile_options(tarvokol_options INTERFACE -Werror)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # GCC 12 sees an overlap in every `"text" + string`; its own bug 105651.
    target_compile_options(tarvokol_options INTERFACE -Wno-restrict)
endif()

if(TARVOKOL_SANITIZE)
    add_compile_options(-O1 -g1 -fsanitize=${TARVOKOL_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_compile_definitions(TARVOKOL_SANITIZED)
    add_link_options(-fsanitize=${TARVOKOL_SANITIZE})
endif()
if(TARVOKOL_COVERAGE)
    add_compile_options(-fprofile-instr-generate -fcoverage-mapping)
    add_link_options(-fprofile-instr-generate)
endif()
if(TARVOKOL_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all)
    add_compile_definitions(TARVOKOL_SANITIZED)
    add_link_options(-fsanitize=address,undefined)
endif()

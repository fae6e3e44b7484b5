# SPDX-License-Identifier: GPL-3.0-or-later
# Clang compiles the program and its tests in about half of the time that GCC takes, mostly because it reads a
# precompiled header in no time, so the presets for whole builds prefer it where it is installed. The package and a plain
# cmake take the system's compiler; the figures of both are the same (tests/portability).
if(TARVOKOL_PREFER_CLANG AND NOT DEFINED CMAKE_CXX_COMPILER AND NOT DEFINED ENV{CXX})
    find_program(TARVOKOL_CLANG clang++)
    if(TARVOKOL_CLANG)
        set(CMAKE_CXX_COMPILER ${TARVOKOL_CLANG})
    endif()
endif()

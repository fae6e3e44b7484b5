# SPDX-License-Identifier: GPL-3.0-or-later
# tarvokol_knows_compiler(RESULT ID VERSION): whether the sources give no warning with the compiler, which are those of the
# supported releases of Debian. Others may warn of what is no fault.
function(tarvokol_knows_compiler result id version)
    set(known GNU-12 GNU-14 Clang-14 Clang-19)
    string(REGEX MATCH "^[0-9]+" major "${version}")
    if("${id}-${major}" IN_LIST known)
        set(${result} TRUE PARENT_SCOPE)
    else()
        set(${result} FALSE PARENT_SCOPE)
    endif()
endfunction()

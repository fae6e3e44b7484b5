# SPDX-License-Identifier: GPL-3.0-or-later
# What Debian asks of every program: a guarded stack, checked library calls, and tables of addresses that nobody can write
# once the program runs, for which every address is looked up at the start: nothing of the command line's 3 milliseconds, 5 of
# the window's 32. Jumps lead to places that are meant for them, where the processor watches that. A random place in memory is
# the compiler's own default; a test looks for it.
option(TARVOKOL_HARDENING "Build with the compiler's and the linker's protections" ON)
if(TARVOKOL_HARDENING AND NOT TARVOKOL_SANITIZE AND NOT TARVOKOL_FUZZ)
    add_compile_options(-fstack-protector-strong -Wformat -Wformat-security)
    add_compile_options($<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-D_FORTIFY_SOURCE=2>)
    add_link_options(-Wl,-z,relro,-z,now)
    if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|AMD64|i.86)$")
        add_compile_options(-fcf-protection=full)
    elseif(CMAKE_SYSTEM_PROCESSOR MATCHES "^(aarch64|arm64)$")
        add_compile_options(-mbranch-protection=standard)
    endif()
endif()

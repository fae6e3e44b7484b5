# SPDX-License-Identifier: GPL-3.0-or-later
# What Debian asks of every program: a guarded stack, checked library calls, and tables of addresses that nobody can write
# once the program runs. A random place in memory is the compiler's own default; a test looks for it. Not every address is
# looked up at the start: that would cost the command line a good part of its start-up time.
option(TARVOKOL_HARDENING "Build with the compiler's and the linker's protections" ON)
if(TARVOKOL_HARDENING AND NOT TARVOKOL_SANITIZE AND NOT TARVOKOL_FUZZ)
    add_compile_options(-fstack-protector-strong -Wformat -Wformat-security)
    add_compile_options($<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-D_FORTIFY_SOURCE=2>)
    add_link_options(-Wl,-z,relro)
endif()

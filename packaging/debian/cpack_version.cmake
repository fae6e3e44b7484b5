# SPDX-License-Identifier: GPL-3.0-or-later
# Read by CPack before it makes a package: the date that everything in the package carries, and its version. A tree with
# changes that belong to no release yet is later than that release: 1.3.02+20260131.1530 of the commit's date.
if(NOT DEFINED ENV{SOURCE_DATE_EPOCH})
    execute_process(COMMAND git log -1 --format=%ct WORKING_DIRECTORY ${CPACK_TARVOKOL_SOURCE}
                    OUTPUT_VARIABLE date OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET RESULT_VARIABLE failed)
    if(failed)
        file(TIMESTAMP ${CPACK_TARVOKOL_SOURCE}/CHANGELOG.md date "%s" UTC)
    endif()
    set(ENV{SOURCE_DATE_EPOCH} ${date})
endif()

set(version ${CPACK_TARVOKOL_VERSION})
file(READ ${CPACK_TARVOKOL_SOURCE}/CHANGELOG.md changelog)
string(REGEX REPLACE ".*\n## \\[Unreleased\\]" "" unreleased "${changelog}")
string(REGEX REPLACE "\n## \\[.*" "" unreleased "${unreleased}")
if(unreleased MATCHES "\n- ")
    string(TIMESTAMP commit_date "%Y%m%d.%H%M" UTC)
    string(APPEND version "+${commit_date}")
endif()
set(CPACK_DEBIAN_PACKAGE_VERSION ${version})
set(ENV{TARVOKOL_PACKAGE_VERSION} ${version})

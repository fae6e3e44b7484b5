# SPDX-License-Identifier: GPL-3.0-or-later
# The toolkit and its companions, and the targets that use them:
#   tarvokol_bindings  drawing, printing, charts and workbooks (no form)
#   tarvokol_windows   the window bindings, of whatever windows
#   tarvokol_gui       the forms
find_package(Qt6 6.4 REQUIRED COMPONENTS Core Gui Widgets PrintSupport Help Svg SvgWidgets Test ToolsTools)
find_package(QCustomPlotQt6 REQUIRED)
find_package(ZLIB REQUIRED)

# The workbook library is opened by the name that programs ask the system for. Its pkg-config file is not asked: it names
# what the library itself was built with, whose headers nobody needs here.
find_path(XLSX_INCLUDE_DIR xlsxwriter.h REQUIRED)
find_library(XLSX_LIBRARY xlsxwriter REQUIRED)
execute_process(COMMAND ${CMAKE_OBJDUMP} -p ${XLSX_LIBRARY} OUTPUT_VARIABLE xlsx_headers COMMAND_ERROR_IS_FATAL ANY)
if(NOT xlsx_headers MATCHES "SONAME +([^ \n]+)")
    message(FATAL_ERROR "${XLSX_LIBRARY} has no name to be opened by")
endif()
set(TARVOKOL_XLSX_LIBRARY ${CMAKE_MATCH_1})

add_library(tarvokol_bindings STATIC)
target_precompile_headers(tarvokol_bindings PRIVATE <QtWidgets> <QtPrintSupport>)
target_link_libraries(tarvokol_bindings PUBLIC tarvokol_core Qt6::Widgets Qt6::PrintSupport Qt6::Svg
                      PRIVATE QCustomPlotQt6::QCustomPlotQt6 ZLIB::ZLIB ${CMAKE_DL_LIBS})
target_include_directories(tarvokol_bindings SYSTEM PRIVATE ${XLSX_INCLUDE_DIR})
target_compile_definitions(tarvokol_bindings PRIVATE TARVOKOL_XLSX_LIBRARY="${TARVOKOL_XLSX_LIBRARY}")

add_library(tarvokol_windows STATIC)
target_precompile_headers(tarvokol_windows PRIVATE <QtWidgets>)
target_link_libraries(tarvokol_windows PUBLIC tarvokol_bindings Qt6::Widgets Qt6::PrintSupport Qt6::Svg Qt6::SvgWidgets
                      Qt6::Help)

add_library(tarvokol_gui STATIC)
target_precompile_headers(tarvokol_gui REUSE_FROM tarvokol_windows)
target_link_libraries(tarvokol_gui PUBLIC tarvokol_windows)

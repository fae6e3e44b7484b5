# SPDX-License-Identifier: GPL-3.0-or-later
# The toolkit and its companions, and the targets that use them:
#   tarvokol_bindings  drawing, printing, charts and workbooks (no form)
#   tarvokol_gui       the forms and the window bindings
find_package(Qt6 6.4 REQUIRED COMPONENTS Core Gui Widgets PrintSupport Help Svg SvgWidgets Test ToolsTools)
find_package(QCustomPlotQt6 REQUIRED)
find_package(PkgConfig REQUIRED)
pkg_check_modules(XLSX REQUIRED IMPORTED_TARGET xlsxwriter)
find_package(ZLIB REQUIRED)

add_library(tarvokol_bindings STATIC)
target_precompile_headers(tarvokol_bindings PRIVATE <QtWidgets> <QtPrintSupport>)
target_link_libraries(tarvokol_bindings PUBLIC tarvokol_core Qt6::Widgets Qt6::PrintSupport Qt6::Svg
                      PRIVATE QCustomPlotQt6::QCustomPlotQt6 PkgConfig::XLSX ZLIB::ZLIB)

add_library(tarvokol_gui STATIC)
target_precompile_headers(tarvokol_gui PRIVATE <QtWidgets>)
target_link_libraries(tarvokol_gui PUBLIC tarvokol_bindings Qt6::Widgets Qt6::PrintSupport Qt6::Svg Qt6::SvgWidgets
                      Qt6::Help)

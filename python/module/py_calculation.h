// SPDX-License-Identifier: GPL-3.0-or-later
// One panel at a time: check, analysis, suggested sizes and curves.
#pragma once

#include <pybind11/pybind11.h>

namespace tarvokol::python {

void BindCalculation(pybind11::module_& module);

}  // namespace tarvokol::python

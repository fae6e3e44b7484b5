// SPDX-License-Identifier: GPL-3.0-or-later
// Many panels at a time, figures in arrays.
#pragma once

#include <pybind11/pybind11.h>

namespace tarvokol::python {

void BindArrays(pybind11::module_& module);

}  // namespace tarvokol::python

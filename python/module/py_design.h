// SPDX-License-Identifier: GPL-3.0-or-later
// The value of a field at which a factor is unlikely enough to lie below its target.
#pragma once

#include <pybind11/pybind11.h>

namespace tarvokol::python {

void BindDesign(pybind11::module_& module);

}  // namespace tarvokol::python

// SPDX-License-Identifier: GPL-3.0-or-later
// The probability of factors below their targets.
#pragma once

#include <pybind11/pybind11.h>

namespace tarvokol::python {

void BindRisk(pybind11::module_& module);

}  // namespace tarvokol::python

// SPDX-License-Identifier: GPL-3.0-or-later
// A panel as Python holds it: the figures with the title and the description of their project.
#pragma once

#include <stdexcept>
#include <string>

#include <pybind11/pybind11.h>

#include "core/engine/panel.h"
#include "core/engine/panel_fields.h"

namespace tarvokol::python {

struct PyPanel : Panel {
    PyPanel() {
        CrosscutSpacing = 1000000;  // pillars without end
        CrosscutAngle = 90;
    }

    std::string title;
    std::string description;  // lines joined by CR LF
};

// The program's words for a panel or a file that it refuses; in Python the exception Refusal.
class PanelRefusal : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// What is wrong with a figure for a field; empty if nothing. What is not finite fits no field.
std::string FaultOfFigure(PanelField field, double value);

// Gives a field of the panel a value. Raises ValueError for one that it cannot hold.
void SetField(Panel& panel, PanelField field, double value);

void BindPanel(pybind11::module_& module);

}  // namespace tarvokol::python

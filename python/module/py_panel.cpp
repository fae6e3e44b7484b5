// SPDX-License-Identifier: GPL-3.0-or-later
#include "python/module/py_panel.h"

#include <cmath>
#include <cstddef>
#include <utility>

#include <pybind11/operators.h>

#include "core/files/file_replacement.h"
#include "core/files/whole_file.h"
#include "core/project/project_document.h"

namespace py = pybind11;

namespace tarvokol::python {
namespace {

constexpr std::size_t kLongestProject = std::size_t{64} * 1024 * 1024;

constexpr const char* kPanelWords =
    "A panel: the figures of a project, in its own units.\n\n"
    "units is \"english\" (ft, psi, pcf) or \"metric\" (m, MPa, kN/m3); angles are degrees. Figures are "
    "given by\n"
    "name, here or later, and are stored as the program stores them: SFWeb and SFBarrier as singles,\n"
    "NumberHoles as a whole number. Those that are not given are 0, but for CrosscutSpacing (1000000) and\n"
    "CrosscutAngle (90), which stand for pillars without end. title and description are those of the "
    "project\n"
    "file. A figure that a field cannot hold raises ValueError; whether the panel makes sense, check() "
    "tells.";

py::object UnitsOf(const PyPanel& panel) {
    if (panel.units == Units::English) return py::str("english");
    if (panel.units == Units::Metric) return py::str("metric");
    return py::int_(static_cast<int>(panel.units));  // as a file may hold it
}

void SetUnits(PyPanel& panel, const std::string& name) {
    if (name != "english" && name != "metric")
        throw py::value_error("units are \"english\" or \"metric\", not \"" + name + '"');
    panel.units = name == "english" ? Units::English : Units::Metric;
}

PyPanel MadePanel(const std::string& units, const py::kwargs& figures) {
    PyPanel panel;
    SetUnits(panel, units);
    const py::object made = py::cast(&panel, py::return_value_policy::reference);
    for (const auto& [name, value] : figures) {
        if (!py::hasattr(made, name) || !py::isinstance<py::str>(name))
            throw py::type_error("Panel has no figure \"" + py::str(name).cast<std::string>() + '"');
        py::setattr(made, name, value);
    }
    return panel;
}

py::tuple StateOf(const PyPanel& panel) {
    py::list figures;
    for (const PanelFieldFacts& facts : kPanelFields) figures.append(ValueOfField(panel, facts.field));
    return py::make_tuple(static_cast<int>(panel.units), figures, panel.CrosscutSpacing, panel.CrosscutAngle,
                          panel.SpareSingle, panel.title, panel.description);
}

PyPanel OfState(const py::tuple& state) {
    if (state.size() != 7) throw py::value_error("no panel");
    PyPanel panel;
    panel.units = static_cast<Units>(state[0].cast<int>());
    const auto figures = state[1].cast<py::list>();
    for (std::size_t i = 0; i < kPanelFields.size(); ++i) {
        const auto value = figures[i].cast<double>();
        // A number of holes of 0 is one that nobody has given yet, which StoreInField does not keep.
        if (IsWholeField(kPanelFields[i].field))
            panel.NumberHoles = static_cast<std::int16_t>(value);
        else
            StoreInField(panel, kPanelFields[i].field, value);
    }
    panel.CrosscutSpacing = state[2].cast<double>();
    panel.CrosscutAngle = state[3].cast<double>();
    panel.SpareSingle = state[4].cast<float>();
    panel.title = state[5].cast<std::string>();
    panel.description = state[6].cast<std::string>();
    return panel;
}

std::string TextOf(const PyPanel& panel) {
    std::string text = "Panel(units=" + py::repr(UnitsOf(panel)).cast<std::string>();
    for (const PanelFieldFacts& facts : kPanelFields)
        text += std::string(", ") + facts.name + '=' +
                py::repr(py::float_(ValueOfField(panel, facts.field))).cast<std::string>();
    return text + ')';
}

PyPanel ReadPanel(const std::string& path) {
    const auto document = DocumentOfBytes(ReadWholeFile(path, kLongestProject));
    if (!document) throw PanelRefusal("Invalid file format");
    PyPanel panel;
    static_cast<PanelInputs&>(panel) = document->inputs;
    panel.units = static_cast<Units>(document->unit_system);
    panel.title = document->title;
    panel.description = document->description;
    return panel;
}

void WritePanel(const std::string& path, const PyPanel& panel, bool force) {
    ProjectDocument document;
    document.unit_system = static_cast<std::int16_t>(panel.units);
    document.title = panel.title;
    document.description = panel.description;
    document.inputs = panel;
    using Existing = ReplacementRules::Existing;
    ReplaceWholeFile(path, BytesOfDocument(document),
                     {.existing = force ? Existing::Replace : Existing::Refuse, .copy_of = ""});
}

}  // namespace

std::string FaultOfFigure(PanelField field, double value) {
    if (!std::isfinite(value)) return std::string(NameOfField(field)) + ": is no number";
    return FitsField(field, value) ? ""
                                   : std::string(NameOfField(field)) + ": cannot be stored in this field";
}

void SetField(Panel& panel, PanelField field, double value) {
    if (const std::string fault = FaultOfFigure(field, value); !fault.empty()) throw py::value_error(fault);
    StoreInField(panel, field, value);
}

void BindPanel(py::module_& module) {
    py::class_<PyPanel> panel(module, "Panel", kPanelWords);
    panel.def(py::init(&MadePanel), py::arg("units") = "english");
    panel.def_property("units", &UnitsOf, &SetUnits);
    for (const PanelFieldFacts& facts : kPanelFields) {
        const PanelField field = facts.field;
        const auto set = [field](PyPanel& one, double value) { SetField(one, field, value); };
        if (IsWholeField(field))
            panel.def_property(
                facts.name, [](const PyPanel& one) { return one.NumberHoles; }, set);
        else
            panel.def_property(
                facts.name, [field](const PyPanel& one) { return ValueOfField(one, field); }, set);
    }
    panel.def_readwrite("CrosscutSpacing", &PyPanel::CrosscutSpacing);
    panel.def_readwrite("CrosscutAngle", &PyPanel::CrosscutAngle);
    panel.def_readwrite("SpareSingle", &PyPanel::SpareSingle);
    panel.def_readwrite("title", &PyPanel::title);
    panel.def_readwrite("description", &PyPanel::description);
    panel.def("__repr__", &TextOf);
    panel.def(
        "__eq__", [](const PyPanel& one, const PyPanel& other) { return StateOf(one).equal(StateOf(other)); },
        py::is_operator());
    panel.def("__copy__", [](const PyPanel& one) { return one; });
    panel.def("__deepcopy__", [](const PyPanel& one, const py::dict&) { return one; });
    panel.def(py::pickle(&StateOf, &OfState));
    panel.attr("__hash__") = py::none();
    module.def("read", &ReadPanel);
    module.def("write", &WritePanel);
}

}  // namespace tarvokol::python

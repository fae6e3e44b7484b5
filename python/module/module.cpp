// SPDX-License-Identifier: GPL-3.0-or-later
// The engine as an extension of Python; python/tarvokol is what users import.
#include <exception>

#include <pybind11/pybind11.h>

#include "core/runtime/run_time_error.h"
#include "core/statistics/study_refusal.h"
#include "python/module/py_arrays.h"
#include "python/module/py_calculation.h"
#include "python/module/py_design.h"
#include "python/module/py_panel.h"
#include "python/module/py_risk.h"

namespace py = pybind11;

namespace tarvokol::python {
namespace {

// A class of exceptions, which lives as long as the interpreter: no destructor of this library outlives that.
template <typename Raised>
PyObject* MadeException(py::module_& module, const char* name, PyObject* base, const char* words) {
    py::exception<Raised> made(module, name, base);
    made.attr("__doc__") = words;
    return made.release().ptr();
}

// Exceptions carry the program's texts.
void BindExceptions(py::module_& module) {
    static PyObject* const refusal = MadeException<PanelRefusal>(module, "Refusal", PyExc_ValueError,
                                                                 "What the program refuses, in its words.");
    static PyObject* const failure = MadeException<RunTimeError>(
        module, "EngineError", PyExc_RuntimeError, "What cannot be calculated, read or written.");
    static PyObject* const shortage = MadeException<StudyShortage>(
        module, "Shortage", PyExc_MemoryError, "Not enough memory or threads for a study.");
    py::register_exception_translator([](std::exception_ptr raised) {
        try {
            if (raised) std::rethrow_exception(raised);
        } catch (const PanelRefusal& error) {
            ::PyErr_SetString(refusal, error.what());
        } catch (const StudyShortage& error) {
            ::PyErr_SetString(shortage, error.what());
        } catch (const StudyRefusal& error) {
            ::PyErr_SetString(refusal, error.what());
        } catch (const RunTimeError& error) {
            ::PyErr_SetString(failure, error.what());
        }
    });
}

}  // namespace
}  // namespace tarvokol::python

PYBIND11_MODULE(_engine, module) {
    module.doc() = "The calculation of TARVO-KOL; import tarvokol instead.";
    tarvokol::python::BindExceptions(module);
    tarvokol::python::BindPanel(module);
    tarvokol::python::BindCalculation(module);
    tarvokol::python::BindArrays(module);
    tarvokol::python::BindRisk(module);
    tarvokol::python::BindDesign(module);
}

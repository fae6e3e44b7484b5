// SPDX-License-Identifier: GPL-3.0-or-later
#include "python/module/py_arrays.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <map>
#include <stdexcept>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include <pybind11/numpy.h>
#include <pybind11/stl.h>

#include "core/engine/engine.h"
#include "core/runtime/run_time_error.h"
#include "core/studies/panel_figures.h"
#include "core/studies/task_run.h"
#include "python/module/py_panel.h"

namespace py = pybind11;

namespace tarvokol::python {
namespace {

// A row of the result. Whoever stores or compares its bytes finds the same ones each time: what rounds the row up to whole
// doubles is no field of the array, and 0.
struct FactorRow {
    double Overall;
    double WebsOnly;
    double BarrierPillar;
    double ExtractionRatio;
    std::int32_t Message;
    std::int32_t Rest = 0;
};

FactorRow RefusedRow(std::int32_t message) {
    constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
    return {kNone, kNone, kNone, kNone, message, 0};
}

// Whatever a panel can be refused with, in one list, so that a number means the same in every result.
class Messages {
  public:
    static const Messages& All() {
        static const Messages all;
        return all;
    }

    const std::vector<std::string>& Texts() const { return texts_; }

    std::int32_t NumberOf(const std::string& text) const {
        const auto found = numbers_.find(text);
        if (found == numbers_.end()) throw std::logic_error("a message without a number: " + text);
        return found->second;
    }

  private:
    Messages() {
        Add("");
        for (const PanelTest test :
             {PanelTest::Height, PanelTest::DepthCover, PanelTest::CrosscutAngle, PanelTest::HoleWidth,
              PanelTest::CrosscutSpacing, PanelTest::WebThickness, PanelTest::BarrierPillarWidth,
              PanelTest::CoalStrength, PanelTest::UnitWeight, PanelTest::AbutmentAngle})
            Add(Refusal{test, 0}.Message());
        for (int pillar = 1; pillar <= MaxHoles; ++pillar)
            Add(Refusal{PanelTest::CenterDistance, pillar}.Message());
        for (const int number : {error_number::InvalidCall, error_number::Overflow,
                                 error_number::SubscriptOutOfRange, error_number::DivisionByZero})
            Add(ErrorText(number));
        constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();
        constexpr double kTooLarge = std::numeric_limits<double>::max();
        for (const PanelFieldFacts& facts : kPanelFields) {
            Add(FaultOfFigure(facts.field, kNoNumber));
            if (const std::string fault = FaultOfFigure(facts.field, kTooLarge); !fault.empty()) Add(fault);
        }
    }

    void Add(const std::string& text) {
        numbers_.emplace(text, static_cast<std::int32_t>(texts_.size()));
        texts_.push_back(text);
    }

    std::vector<std::string> texts_;
    std::map<std::string, std::int32_t> numbers_;
};

using Column = py::array_t<double, py::array::c_style>;

// One field's values, one for each panel.
struct FieldValues {
    PanelField field;
    const double* values;
    bool takes_every_double;
};

// Calculates panels that differ in these fields, in one thread.
class RowMaker {
  public:
    RowMaker(const Panel& panel, const std::vector<FieldValues>& fields)
        : panel_(panel, false), fields_(fields) {}

    // Rows `first` to `end`.
    void Fill(FactorRow* rows, std::size_t first, std::size_t end) {
        set_ = false;
        for (std::size_t i = first; i < end; ++i) {
            const std::int32_t message = SetAll(i);
            set_ = message == 0;
            rows[i] = set_ ? Row() : RefusedRow(message);
        }
    }

  private:
    FactorRow Row() {
        const PanelFigures& figures = panel_.Evaluate();
        if (figures.refused) return RefusedRow(Messages::All().NumberOf(figures.message));
        return {figures.Overall, figures.WebsOnly, figures.BarrierPillar, figures.ExtractionRatio, 0, 0};
    }

    // The number of the message about a value that does not fit. What the row before has set is not set again: most of a
    // grid's values change with every hundredth panel.
    std::int32_t SetAll(std::size_t i) {
        for (const FieldValues& one : fields_) {
            const double value = one.values[i];
            if (set_ && value == one.values[i - 1]) continue;
            if (!std::isfinite(value) || (!one.takes_every_double && !FitsField(one.field, value)))
                return Messages::All().NumberOf(FaultOfFigure(one.field, value));
            panel_.Set(one.field, value);
        }
        return 0;
    }

    PanelEvaluator panel_;
    const std::vector<FieldValues>& fields_;
    bool set_ = false;  // all values of the row before
};

// Asked in the calling thread, which holds no lock of the interpreter: Ctrl+C ends the work.
bool GoesOn(std::size_t) {
    const py::gil_scoped_acquire lock;
    return ::PyErr_CheckSignals() == 0;
}

void Calculate(const Panel& panel, const std::vector<FieldValues>& fields, FactorRow* rows, std::size_t count,
               unsigned threads) {
    constexpr std::size_t kPiece = 16384;
    bool done = false;
    {
        const py::gil_scoped_release release;
        const TaskRun::Worker worker = [&]() -> TaskRun::Task {
            return [&, maker = RowMaker(panel, fields)](std::size_t piece) mutable {
                const std::size_t end = std::min(count, (piece + 1) * kPiece);
                maker.Fill(rows, piece * kPiece, end);
            };
        };
        done = TaskRun::Do((count + kPiece - 1) / kPiece, threads, worker, GoesOn);
    }
    if (!done) throw py::error_already_set();
}

// The figures of `shape` panels; every column holds as many values, or one for all.
py::array FactorsOfArrays(const PyPanel& panel, const std::map<std::string, Column>& columns,
                          const std::vector<py::ssize_t>& shape, unsigned threads) {
    py::array_t<FactorRow> rows(shape);
    FactorRow* const first = rows.mutable_data();
    const auto count = static_cast<std::size_t>(rows.size());
    Panel common = panel;
    std::vector<FieldValues> fields;
    for (const auto& [name, column] : columns) {
        const auto field = FieldNamed(name);
        const auto size = static_cast<std::size_t>(column.size());
        if (!field || (size != count && size != 1))
            throw py::value_error(name + ": no column of these panels");
        if (size == count) {
            fields.push_back({*field, column.data(),
                              std::holds_alternative<double PanelInputs::*>(FactsOf(*field).place)});
            continue;
        }
        const std::string fault = FaultOfFigure(*field, *column.data());
        if (!fault.empty()) {
            std::fill(first, first + count, RefusedRow(Messages::All().NumberOf(fault)));
            return rows;
        }
        StoreInField(common, *field, *column.data());
    }
    // The depth last: a panel of which nothing else changes is cheap.
    std::sort(fields.begin(), fields.end(), [](const FieldValues& one, const FieldValues& other) {
        const auto rank = [](PanelField field) { return std::pair(field == PanelField::DepthCover, field); };
        return rank(one.field) < rank(other.field);
    });
    Calculate(common, fields, first, count, threads);
    return rows;
}

}  // namespace

void BindArrays(py::module_& module) {
    PYBIND11_NUMPY_DTYPE(FactorRow, Overall, WebsOnly, BarrierPillar, ExtractionRatio, Message);
    module.def("factors", &FactorsOfArrays);
    module.attr("MESSAGES") = py::tuple(py::cast(Messages::All().Texts()));
}

}  // namespace tarvokol::python

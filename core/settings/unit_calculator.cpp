// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/settings/unit_calculator.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <span>

#include "core/runtime/checked.h"
#include "core/runtime/numbers.h"
#include "core/runtime/run_time_error.h"

namespace tarvokol {
namespace {

// One cell of a table: the value V of the row's unit in the unit of the column.
using Cell = double (*)(double V);

template <std::size_t N>
using Table = std::array<std::array<Cell, N>, N>;

constexpr double kKilonewtonsPerPound = 0.004448220489393218;
constexpr double kKilonewtonsPerTon = 8.896440978786435;
constexpr double kKilonewtonsPerKip = 4.448220489393218;
constexpr double kPsiPerPsf = 0.006944444444444444;
constexpr double kPascalsPerPsi = 6894.757293;
constexpr double kFeetPerInch = 0.08333333333333333;
constexpr double kKilonewtonsPerMetrePerPoundPerFoot = 0.01459389924341607;
constexpr double kPascalsPerMetrePerPsiPerInch = 271447.137519685;

// in, ft, cm, m
const Table<4> kLength{{
    {[](double V) { return V; }, [](double V) { return V / 12; }, [](double V) { return V * 2.54; },
     [](double V) { return V * 2.54 / 100; }},
    {[](double V) { return V * 12; }, [](double V) { return V; }, [](double V) { return V * 12 * 2.54; },
     [](double V) { return V * 12 * 2.54 / 100; }},
    {[](double V) { return V / 2.54; }, [](double V) { return V / 2.54 / 12; }, [](double V) { return V; },
     [](double V) { return V / 100; }},
    {[](double V) { return V * 100 / 2.54; }, [](double V) { return V * 100 / 2.54 / 12; },
     [](double V) { return V * 100; }, [](double V) { return V; }},
}};

// lbsF, tonsF, kN, MN, kips
constexpr double k = kKilonewtonsPerPound;
const Table<5> kLoad{{
    {[](double V) { return V; }, [](double V) { return V / 2000; }, [](double V) { return V * k; },
     [](double V) { return V * k / 1000; }, [](double V) { return V / 1000; }},
    {[](double V) { return V * 2000; }, [](double V) { return V; }, [](double V) { return V * 2000 * k; },
     [](double V) { return V * 2000 * k / 1000; }, [](double V) { return V * 2000 / 1000; }},
    {[](double V) { return V / k; }, [](double V) { return V / kKilonewtonsPerTon; },
     [](double V) { return V; }, [](double V) { return V / 1000; },
     [](double V) { return V / kKilonewtonsPerKip; }},
    {[](double V) { return V * 1000 / k; }, [](double V) { return V * 1000 / k / 2000; },
     [](double V) { return V * 1000; }, [](double V) { return V; },
     [](double V) { return V * 1000 / kKilonewtonsPerKip; }},
    {[](double V) { return V * 1000; }, [](double V) { return V / 2000 * 1000; },
     [](double V) { return V * k * 1000; }, [](double V) { return V * k / 1000 * 1000; },
     [](double V) { return V; }},
}};

// lbsF/in, lbsF/ft, kN/m, MN/m
constexpr double f = kFeetPerInch;
constexpr double g = kKilonewtonsPerMetrePerPoundPerFoot;
const Table<4> kLoadGrad{{
    {[](double V) { return V; }, [](double V) { return V / f; }, [](double V) { return V / f * g; },
     [](double V) { return V / f * g / 1000; }},
    {[](double V) { return V * f; }, [](double V) { return V; }, [](double V) { return V * g; },
     [](double V) { return V * g / 1000; }},
    {[](double V) { return V / g * f; }, [](double V) { return V / g; }, [](double V) { return V; },
     [](double V) { return V / 1000; }},
    {[](double V) { return V * 1000 / g * f; }, [](double V) { return V * 1000 / g; },
     [](double V) { return V * 1000; }, [](double V) { return V; }},
}};

// psi, ksi, psf, Pa, MPa. The first two cells of the psf row are exchanged and stay so.
constexpr double a = kPsiPerPsf;
constexpr double p = kPascalsPerPsi;
const Table<5> kStress{{
    {[](double V) { return V; }, [](double V) { return V / 1000; }, [](double V) { return V / a; },
     [](double V) { return V * p; }, [](double V) { return V * p / 1000000; }},
    {[](double V) { return V * 1000; }, [](double V) { return V; }, [](double V) { return V / a * 1000; },
     [](double V) { return V * p * 1000; }, [](double V) { return V * p / 1000000 * 1000; }},
    {[](double V) { return V * a / 1000; }, [](double V) { return V * a; }, [](double V) { return V; },
     [](double V) { return V * a * p; }, [](double V) { return V * a * p / 1000000; }},
    {[](double V) { return V / p; }, [](double V) { return V / p / 1000; },
     [](double V) { return V / p / a; }, [](double V) { return V; }, [](double V) { return V / 1000000; }},
    {[](double V) { return V * 1000000 / p; }, [](double V) { return V * 1000000 / p / 1000; },
     [](double V) { return V * 1000000 / p / a; }, [](double V) { return V * 1000000; },
     [](double V) { return V; }},
}};

// psi/in, psi/ft, Pa/m, MPa/m
constexpr double q = kPascalsPerMetrePerPsiPerInch;
const Table<4> kStressGrad{{
    {[](double V) { return V; }, [](double V) { return V / f; }, [](double V) { return V * q; },
     [](double V) { return V * q / 1000000; }},
    {[](double V) { return V * f; }, [](double V) { return V; }, [](double V) { return V * f * q; },
     [](double V) { return V * f * q / 1000000; }},
    {[](double V) { return V / q; }, [](double V) { return V / q / f; }, [](double V) { return V; },
     [](double V) { return V / 1000000; }},
    {[](double V) { return V * 1000000 / q; }, [](double V) { return V * 1000000 / q / f; },
     [](double V) { return V * 1000000; }, [](double V) { return V; }},
}};

template <std::size_t N>
std::span<const Cell> RowOf(const Table<N>& table, int unit) {
    if (unit < 0 || static_cast<std::size_t>(unit) >= N) Raise(error_number::SubscriptOutOfRange);
    return table[static_cast<std::size_t>(unit)];
}

std::span<const Cell> RowOf(Quantity quantity, int unit) {
    switch (quantity) {
        case Quantity::Length:
            return RowOf(kLength, unit);
        case Quantity::Load:
            return RowOf(kLoad, unit);
        case Quantity::LoadGrad:
            return RowOf(kLoadGrad, unit);
        case Quantity::Stress:
            return RowOf(kStress, unit);
        default:
            return RowOf(kStressGrad, unit);
    }
}

}  // namespace

const std::vector<std::string>& UnitCaptions(Quantity quantity) {
    static const std::vector<std::string> load{"lbsF", "tonsF (short)", "kN", "MN", "kips"};
    return quantity == Quantity::Load ? load : UnitBoxCaptions(quantity);
}

const std::vector<std::string>& UnitBoxCaptions(Quantity quantity) {
    static const std::vector<std::string> captions[] = {
        {"in", "ft", "cm", "m"},
        {"lbsF", "tonsF", "kN", "MN", "kips"},
        {"lbsF/in", "lbsF/ft", "kN/m", "MN/m"},
        {"psi", "ksi", "psf", "Pa", "MPa"},
        {"psi/in", "psi/ft", "Pa/m", "MPa/m"},
    };
    return captions[static_cast<std::size_t>(quantity)];
}

std::vector<double> ConvertUnits(Quantity quantity, int unit, double value) {
    std::vector<double> values;
    for (const Cell cell : RowOf(quantity, unit)) values.push_back(Checked(cell(value)));
    return values;
}

std::vector<std::string> UnitBoxTexts(Quantity quantity, int unit, const std::string& typed) {
    const double typed_value = UnboundedParse(typed);
    std::vector<std::string> texts;
    for (const Cell cell : RowOf(quantity, unit)) {
        const double value = cell(typed_value);
        texts.push_back(std::isfinite(value) ? GeneralText(value) : "");
    }
    return texts;
}

}  // namespace tarvokol

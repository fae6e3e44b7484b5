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

constexpr double kInchesPerFoot = 12;
constexpr double kCentimetresPerInch = 2.54;
constexpr double kCentimetresPerMetre = 100;

constexpr double kPoundsPerTon = 2000;
constexpr double kPoundsPerKip = 1000;
constexpr double kKilonewtonsPerPound = 0.004448220489393218;
constexpr double kKilonewtonsPerTon = 8.896440978786435;
constexpr double kKilonewtonsPerKip = 4.448220489393218;
constexpr double kKilonewtonsPerMeganewton = 1000;

constexpr double kFeetPerInch = 0.08333333333333333;
constexpr double kKilonewtonsPerMetrePerPoundPerFoot = 0.01459389924341607;

constexpr double kPsiPerKsi = 1000;
constexpr double kPsiPerPsf = 0.006944444444444444;
constexpr double kPascalsPerPsi = 6894.757293;
constexpr double kPascalsPerMegapascal = 1000000;

constexpr double kPascalsPerMetrePerPsiPerInch = 271447.137519685;

// in, ft, cm, m
const Table<4> kLength{{
    {[](double V) { return V; }, [](double V) { return V / kInchesPerFoot; },
     [](double V) { return V * kCentimetresPerInch; },
     [](double V) { return V * kCentimetresPerInch / kCentimetresPerMetre; }},
    {[](double V) { return V * kInchesPerFoot; }, [](double V) { return V; },
     [](double V) { return V * kInchesPerFoot * kCentimetresPerInch; },
     [](double V) { return V * kInchesPerFoot * kCentimetresPerInch / kCentimetresPerMetre; }},
    {[](double V) { return V / kCentimetresPerInch; },
     [](double V) { return V / kCentimetresPerInch / kInchesPerFoot; }, [](double V) { return V; },
     [](double V) { return V / kCentimetresPerMetre; }},
    {[](double V) { return V * kCentimetresPerMetre / kCentimetresPerInch; },
     [](double V) { return V * kCentimetresPerMetre / kCentimetresPerInch / kInchesPerFoot; },
     [](double V) { return V * kCentimetresPerMetre; }, [](double V) { return V; }},
}};

// lbsF, tonsF, kN, MN, kips
const Table<5> kLoad{{
    {[](double V) { return V; }, [](double V) { return V / kPoundsPerTon; },
     [](double V) { return V * kKilonewtonsPerPound; },
     [](double V) { return V * kKilonewtonsPerPound / kKilonewtonsPerMeganewton; },
     [](double V) { return V / kPoundsPerKip; }},
    {[](double V) { return V * kPoundsPerTon; }, [](double V) { return V; },
     [](double V) { return V * kPoundsPerTon * kKilonewtonsPerPound; },
     [](double V) { return V * kPoundsPerTon * kKilonewtonsPerPound / kKilonewtonsPerMeganewton; },
     [](double V) { return V * kPoundsPerTon / kPoundsPerKip; }},
    {[](double V) { return V / kKilonewtonsPerPound; }, [](double V) { return V / kKilonewtonsPerTon; },
     [](double V) { return V; }, [](double V) { return V / kKilonewtonsPerMeganewton; },
     [](double V) { return V / kKilonewtonsPerKip; }},
    {[](double V) { return V * kKilonewtonsPerMeganewton / kKilonewtonsPerPound; },
     [](double V) { return V * kKilonewtonsPerMeganewton / kKilonewtonsPerPound / kPoundsPerTon; },
     [](double V) { return V * kKilonewtonsPerMeganewton; }, [](double V) { return V; },
     [](double V) { return V * kKilonewtonsPerMeganewton / kKilonewtonsPerKip; }},
    {[](double V) { return V * kPoundsPerKip; }, [](double V) { return V / kPoundsPerTon * kPoundsPerKip; },
     [](double V) { return V * kKilonewtonsPerPound * kPoundsPerKip; },
     [](double V) { return V * kKilonewtonsPerPound / kKilonewtonsPerMeganewton * kPoundsPerKip; },
     [](double V) { return V; }},
}};

// lbsF/in, lbsF/ft, kN/m, MN/m
const Table<4> kLoadGrad{{
    {[](double V) { return V; }, [](double V) { return V / kFeetPerInch; },
     [](double V) { return V / kFeetPerInch * kKilonewtonsPerMetrePerPoundPerFoot; },
     [](double V) {
         return V / kFeetPerInch * kKilonewtonsPerMetrePerPoundPerFoot / kKilonewtonsPerMeganewton;
     }},
    {[](double V) { return V * kFeetPerInch; }, [](double V) { return V; },
     [](double V) { return V * kKilonewtonsPerMetrePerPoundPerFoot; },
     [](double V) { return V * kKilonewtonsPerMetrePerPoundPerFoot / kKilonewtonsPerMeganewton; }},
    {[](double V) { return V / kKilonewtonsPerMetrePerPoundPerFoot * kFeetPerInch; },
     [](double V) { return V / kKilonewtonsPerMetrePerPoundPerFoot; }, [](double V) { return V; },
     [](double V) { return V / kKilonewtonsPerMeganewton; }},
    {[](double V) {
         return V * kKilonewtonsPerMeganewton / kKilonewtonsPerMetrePerPoundPerFoot * kFeetPerInch;
     },
     [](double V) { return V * kKilonewtonsPerMeganewton / kKilonewtonsPerMetrePerPoundPerFoot; },
     [](double V) { return V * kKilonewtonsPerMeganewton; }, [](double V) { return V; }},
}};

// psi, ksi, psf, Pa, MPa. The first two cells of the psf row are exchanged and stay so.
const Table<5> kStress{{
    {[](double V) { return V; }, [](double V) { return V / kPsiPerKsi; },
     [](double V) { return V / kPsiPerPsf; }, [](double V) { return V * kPascalsPerPsi; },
     [](double V) { return V * kPascalsPerPsi / kPascalsPerMegapascal; }},
    {[](double V) { return V * kPsiPerKsi; }, [](double V) { return V; },
     [](double V) { return V / kPsiPerPsf * kPsiPerKsi; },
     [](double V) { return V * kPascalsPerPsi * kPsiPerKsi; },
     [](double V) { return V * kPascalsPerPsi / kPascalsPerMegapascal * kPsiPerKsi; }},
    {[](double V) { return V * kPsiPerPsf / kPsiPerKsi; }, [](double V) { return V * kPsiPerPsf; },
     [](double V) { return V; }, [](double V) { return V * kPsiPerPsf * kPascalsPerPsi; },
     [](double V) { return V * kPsiPerPsf * kPascalsPerPsi / kPascalsPerMegapascal; }},
    {[](double V) { return V / kPascalsPerPsi; }, [](double V) { return V / kPascalsPerPsi / kPsiPerKsi; },
     [](double V) { return V / kPascalsPerPsi / kPsiPerPsf; }, [](double V) { return V; },
     [](double V) { return V / kPascalsPerMegapascal; }},
    {[](double V) { return V * kPascalsPerMegapascal / kPascalsPerPsi; },
     [](double V) { return V * kPascalsPerMegapascal / kPascalsPerPsi / kPsiPerKsi; },
     [](double V) { return V * kPascalsPerMegapascal / kPascalsPerPsi / kPsiPerPsf; },
     [](double V) { return V * kPascalsPerMegapascal; }, [](double V) { return V; }},
}};

// psi/in, psi/ft, Pa/m, MPa/m
const Table<4> kStressGrad{{
    {[](double V) { return V; }, [](double V) { return V / kFeetPerInch; },
     [](double V) { return V * kPascalsPerMetrePerPsiPerInch; },
     [](double V) { return V * kPascalsPerMetrePerPsiPerInch / kPascalsPerMegapascal; }},
    {[](double V) { return V * kFeetPerInch; }, [](double V) { return V; },
     [](double V) { return V * kFeetPerInch * kPascalsPerMetrePerPsiPerInch; },
     [](double V) { return V * kFeetPerInch * kPascalsPerMetrePerPsiPerInch / kPascalsPerMegapascal; }},
    {[](double V) { return V / kPascalsPerMetrePerPsiPerInch; },
     [](double V) { return V / kPascalsPerMetrePerPsiPerInch / kFeetPerInch; }, [](double V) { return V; },
     [](double V) { return V / kPascalsPerMegapascal; }},
    {[](double V) { return V * kPascalsPerMegapascal / kPascalsPerMetrePerPsiPerInch; },
     [](double V) { return V * kPascalsPerMegapascal / kPascalsPerMetrePerPsiPerInch / kFeetPerInch; },
     [](double V) { return V * kPascalsPerMegapascal; }, [](double V) { return V; }},
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

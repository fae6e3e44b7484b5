// SPDX-License-Identifier: GPL-3.0-or-later
// Curves and graph settings as a start of the program leaves them, and a small curve table to draw.
#pragma once

#include <initializer_list>

#include "core/messages/titles.h"
#include "core/project/curves.h"
#include "core/project/project_record.h"
#include "core/settings/graph_settings.h"
#include "core/settings/option_settings.h"
#include "tests/support/core_fixture.h"

namespace tarvokol {

template <typename Base>
class CurvesOn : public Base {
  protected:
    CurvesOn() {
        UnitSystem = 0;
        CurveNames[1] = "Overall";
        CurveNames[2] = "Webs ONLY";
        CurveNames[3] = "Barrier Pillar";
        SizingCurveNames[1] = "Web Thickness";
        SizingCurveNames[2] = "Barrier Width";
        StabilityCurveKind = SizingCurveKind = 0;
        GraphSetParams = 0;
        GraphUnits = 0;
        AskOfficeInstall = 1;
        InitGraphDefaults();
        InitGraphFactoryValues();
        ErrorTitle = MessageTitle = "Message";
    }

    // `count` curves over x = 50, 53, 56 ... : curve i has the values i + 0.1, i + 0.2 ... as singles.
    static void FillCurves(int count, int points) {
        CurveCount = static_cast<int16_t>(count);
        CurvePoints = points;
        CurveData.Allocate(points > 0 ? points : 1, count + 1);
        for (int row = 1; row <= points; ++row) {
            CurveData(0, row) = static_cast<float>(47 + 3 * row);
            for (int curve = 1; curve <= count; ++curve)
                CurveData(curve, row) = static_cast<float>(curve + row / 10.0);
        }
    }
};

using CurveTest = CurvesOn<CoreTest>;

}  // namespace tarvokol

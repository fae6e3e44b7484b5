// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/study_names.h"

#include <string>

#include "core/statistics/study_refusal.h"

namespace tarvokol {

PanelField RequiredField(std::string_view name) {
    if (const auto field = FieldNamed(name)) return *field;
    throw StudyRefusal("unknown field \"" + std::string(name) + "\"; " + KnownFields());
}

const StudyFigure& RequiredFigure(std::string_view name) {
    if (const StudyFigure* figure = FigureNamed(name)) return *figure;
    throw StudyRefusal("unknown figure \"" + std::string(name) + "\"; " + KnownFigures());
}

}  // namespace tarvokol

// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/map_places.h"

#include <algorithm>
#include <cmath>

namespace tarvokol {

MapPlaces::MapPlaces(const ValueAxis& axis) : field_(axis.Field()) {
    values_.resize(axis.Count());
    for (std::uint64_t i = 0; i < axis.Count(); ++i) values_[i] = axis[i];
    std::sort(values_.begin(), values_.end());
    values_.erase(std::unique(values_.begin(), values_.end()), values_.end());
    given_.assign(values_.size(), true);
}

void MapPlaces::Divide(std::size_t intervals) {
    constexpr double kSlack = 1e-9;  // of a step that should come out whole
    const double finest = (values_.back() - values_.front()) / static_cast<double>(intervals);
    std::vector<double> values;
    std::vector<bool> given;
    for (std::size_t i = 0; i + 1 < values_.size(); ++i) {
        const double step = values_[i + 1] - values_[i];
        double parts = std::max(std::ceil(step / finest - kSlack), 1.0);
        if (IsWhole()) parts = step <= static_cast<double>(intervals) ? step : 1.0;
        for (double part = 0; part < parts; ++part) {
            values.push_back(values_[i] + step * part / parts);
            given.push_back(part == 0);
        }
    }
    values.push_back(values_.back());
    given.push_back(true);
    values_ = std::move(values);
    given_ = std::move(given);
}

void MapPlaces::Insert(double value) {
    const auto place = std::lower_bound(values_.begin(), values_.end(), value);
    if (place != values_.end() && *place == value) return;
    given_.insert(given_.begin() + (place - values_.begin()), false);
    values_.insert(place, value);
}

}  // namespace tarvokol

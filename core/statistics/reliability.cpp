// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/statistics/reliability.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace tarvokol {
namespace {

using Place = std::vector<double>;

double Product(const Place& a, const Place& b) {
    double sum = 0;
    for (std::size_t i = 0; i < a.size(); ++i) sum += a[i] * b[i];
    return sum;
}

double DistanceOf(const Place& a, const Place& b) {
    double sum = 0;
    for (std::size_t i = 0; i < a.size(); ++i) sum += (a[i] - b[i]) * (a[i] - b[i]);
    return std::sqrt(sum);
}

Place Moved(const Place& from, const Place& direction, double times) {
    Place place = from;
    for (std::size_t i = 0; i < place.size(); ++i) place[i] += times * direction[i];
    return place;
}

class Search {
  public:
    Search(const LimitState& limit, double scale) : limit_(limit), scale_(scale) {}

    std::optional<NearestFailure> From(Place place) const {
        constexpr int kMostSteps = 200;
        double value = limit_(place);
        for (int step = 0; step < kMostSteps; ++step) {
            if (!std::isfinite(value)) return std::nullopt;
            const Place slope = SlopeAt(place);
            const double steepness = Product(slope, slope);
            if (!(steepness > 0.0) || !std::isfinite(steepness)) return std::nullopt;
            // To the nearest place of the tangent's limit.
            const double times = (Product(slope, place) - value) / steepness;
            Place direction(place.size());
            for (std::size_t i = 0; i < place.size(); ++i) direction[i] = times * slope[i] - place[i];
            if (IsReached(value, direction)) return At(place, slope, steepness);
            if (!Step(place, value, direction, std::sqrt(steepness))) return std::nullopt;
        }
        return std::nullopt;
    }

  private:
    // Central differences.
    Place SlopeAt(const Place& place) const {
        constexpr double kBy = 1e-4;
        Place slope(place.size());
        Place aside = place;
        for (std::size_t i = 0; i < place.size(); ++i) {
            aside[i] = place[i] + kBy;
            const double above = limit_(aside);
            aside[i] = place[i] - kBy;
            slope[i] = (above - limit_(aside)) / (2.0 * kBy);
            aside[i] = place[i];
        }
        return slope;
    }

    bool IsReached(double value, const Place& direction) const {
        constexpr double kOnLimit = 1e-7;
        constexpr double kAside = 1e-4;
        return std::fabs(value) <= kOnLimit * scale_ && std::sqrt(Product(direction, direction)) <= kAside;
    }

    // As far along the direction as half the squared distance, and the limit's value times a penalty, become less.
    bool Step(Place& place, double& value, const Place& direction, double steepness) const {
        constexpr double kEnough = 0.1;
        constexpr int kMostHalvings = 30;
        const double length = std::sqrt(Product(place, place));
        const double goal = std::sqrt(Product(Moved(place, direction, 1.0), Moved(place, direction, 1.0)));
        double penalty = 2.0 * std::max(length, goal) / steepness;
        if (std::fabs(value) > 1e-9 * scale_) penalty = std::max(penalty, goal * goal / std::fabs(value));
        const auto merit = [&](const Place& at, double limit) {
            return 0.5 * Product(at, at) + penalty * std::fabs(limit);
        };
        const double before = merit(place, value);
        const double falls = Product(place, direction) - penalty * std::fabs(value);
        double times = 1.0;
        for (int halving = 0; halving < kMostHalvings; ++halving, times /= 2.0) {
            const Place next = Moved(place, direction, times);
            const double limit = limit_(next);
            if (!std::isfinite(limit)) continue;
            if (merit(next, limit) > before + kEnough * times * std::min(falls, 0.0) &&
                halving + 1 < kMostHalvings)
                continue;
            place = next;
            value = limit;
            return true;
        }
        return false;
    }

    NearestFailure At(const Place& place, const Place& slope, double steepness) const {
        NearestFailure found;
        found.place = place;
        // The slope points to where all is well; the failing side lies against it.
        found.index = -Product(slope, place) / std::sqrt(steepness);
        for (const double one : slope) found.importance.push_back(one * one / steepness);
        return found;
    }

    const LimitState& limit_;
    double scale_;
};

}  // namespace

std::vector<NearestFailure> NearestFailures(const LimitState& limit, std::size_t dimensions) {
    constexpr double kStart = 3.0;
    constexpr double kSame = 0.05;
    constexpr double kFarthest = 37.0;  // beyond it a double has no probability left
    const Place middle(dimensions, 0.0);
    const double scale = std::fabs(limit(middle));
    if (!std::isfinite(scale)) return {};
    const Search search(limit, std::max(scale, 1e-6));
    std::vector<Place> starts{middle};
    for (std::size_t i = 0; i < dimensions; ++i)
        for (const double start : {kStart, -kStart}) {
            starts.push_back(middle);
            starts.back()[i] = start;
        }
    std::vector<NearestFailure> found;
    for (const Place& start : starts) {
        const std::optional<NearestFailure> one = search.From(start);
        if (!one || std::fabs(one->index) > kFarthest) continue;
        const bool known = std::any_of(found.begin(), found.end(), [&](const NearestFailure& other) {
            return DistanceOf(one->place, other.place) < kSame;
        });
        if (!known) found.push_back(*one);
    }
    std::stable_sort(found.begin(), found.end(), [](const NearestFailure& a, const NearestFailure& b) {
        return std::fabs(a.index) < std::fabs(b.index);
    });
    return found;
}

}  // namespace tarvokol

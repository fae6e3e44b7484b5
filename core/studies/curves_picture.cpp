// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/curves_picture.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "core/studies/map_places.h"
#include "core/studies/row_risk.h"

namespace tarvokol {
namespace {

// Rows as the picture needs them, with whoever looks on.
class CurveRows : public RowsInOrder {
  public:
    CurveRows(StudyObserver& observer, std::function<bool(const StudyRow&)> take)
        : RowsInOrder(std::move(take)), observer_(observer) {}
    bool Progress(std::uint64_t done, std::optional<std::uint64_t> total) override {
        return observer_.Progress(done, total);
    }

  private:
    StudyObserver& observer_;
};

const ValueAxis& OnlyAxis(const SweepRequest& request) {
    if (request.axes.size() != 1)
        throw StudyRefusal("curves are drawn over one field, not " + std::to_string(request.axes.size()));
    if (request.axes[0].Count() > kMostCurvePlaces)
        throw StudyRefusal("curves of more than " + std::to_string(kMostCurvePlaces) +
                           " panels; give larger steps");
    return request.axes[0];
}

GridLine LineOfTarget(const StudyFigure& figure, const CurvesPicture& picture, Panel panel,
                      PanelField field) {
    if (figure.target != field) {
        const double target = TargetOfFigure(figure, panel);
        return {{picture.x.low, target}, {picture.x.high, target}};
    }
    GridLine line;
    for (const double place : picture.places) {
        StoreInField(panel, field, place);
        line.push_back({place, TargetOfFigure(figure, panel)});
    }
    return line;
}

void AddTarget(CurvesPicture& picture, const StudyFigure& figure, const Panel& panel, PanelField field) {
    const bool varies = figure.target == field;
    const std::string name =
        varies ? std::string("Target ") + NameOfField(field) : TargetInWords(figure, panel);
    GridLine line = LineOfTarget(figure, picture, panel, field);
    const auto same =
        std::find_if(picture.targets.begin(), picture.targets.end(), [&](const TargetLine& other) {
            return !varies && other.line.size() == 2 && other.line.front().y == line.front().y &&
                   other.line.back().y == line.back().y;
        });
    if (same == picture.targets.end())
        picture.targets.push_back({name, std::move(line)});
    else
        same->name += ", " + name;
}

// Round all that is to be seen, but not below zero for the room alone.
PictureAxis AxisRound(const CurvesPicture& picture, const std::string& title) {
    double low = HUGE_VAL;
    double high = -HUGE_VAL;
    const auto take = [&](double value) {
        if (!std::isfinite(value)) return;
        low = std::min(low, value);
        high = std::max(high, value);
    };
    for (const StudyCurve& curve : picture.curves) std::for_each(curve.y.begin(), curve.y.end(), take);
    for (const TargetLine& target : picture.targets)
        for (const GridPoint& point : target.line) take(point.y);
    PictureAxis axis{title, low, high, false};
    Widen(axis.low, axis.high);
    if (low >= 0.0) axis.low = std::max(axis.low, 0.0);
    return axis;
}

bool HasFigure(const CurvesPicture& picture) {
    return std::any_of(picture.curves.begin(), picture.curves.end(), [](const StudyCurve& curve) {
        return std::any_of(curve.y.begin(), curve.y.end(), [](double y) { return std::isfinite(y); });
    });
}

}  // namespace

std::optional<CurvesPicture> CurvesOf(const SweepRequest& request, std::span<const StudyFigure> figures,
                                      const std::string& title, StudyObserver& observer) {
    const MapPlaces places(OnlyAxis(request));
    CurvesPicture picture;
    picture.title = title;
    picture.places = places.Values();
    picture.x = {TitleWithUnit(places.Field(), request.panel.units), picture.places.front(),
                 picture.places.back(), places.IsWhole()};
    if (places.Count() == 1) Widen(picture.x.low, picture.x.high);
    for (const StudyFigure& figure : figures) picture.curves.push_back({figure.legend, {}});
    SweepRequest in_order = request;
    in_order.axes = {ValueAxis::List(places.Field(), picture.places)};
    std::string message;
    CurveRows rows(observer, [&](const StudyRow& row) {
        for (std::size_t i = 0; i < figures.size(); ++i)
            picture.curves[i].y.push_back(ShownFigure(figures[i], row.figures));
        picture.refused += row.figures.refused ? 1 : 0;
        if (message.empty()) message = row.figures.message;
        return true;
    });
    if (!RunSweep(in_order, rows)) return std::nullopt;
    if (!HasFigure(picture)) throw NothingToShow(message);
    for (const StudyFigure& figure : figures)
        if (figure.IsFactor()) AddTarget(picture, figure, request.panel, places.Field());
    const bool probabilities = figures[0].IsProbability();
    if (probabilities) picture.note = InWords(request.risk, request.panel, {places.Field()});
    if (picture.refused > 0)
        picture.note += (picture.note.empty() ? "" : "; ") + std::to_string(picture.refused) + " of " +
                        std::to_string(places.Count()) + " panels refused: no curve there";
    const std::string together = probabilities ? "Probability below target" : "Stability factor";
    picture.y = AxisRound(picture, figures.size() > 1 ? together : TitleWithUnit(figures[0]));
    return picture;
}

}  // namespace tarvokol

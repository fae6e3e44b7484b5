// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/graphics/chart_model.h"

#include <algorithm>
#include <cmath>

#include "core/runtime/run_time_error.h"

namespace tarvokol {
namespace {

// Series beyond this are a slip of the caller, not a chart.
constexpr int kMostSeries = 1000;

std::size_t SeriesOffset(int series) {
    if (series < 1 || series > kMostSeries) Raise(error_number::SubscriptOutOfRange);
    return static_cast<std::size_t>(series - 1);
}

}  // namespace

void ChartModel::SetAxisTitle(ChartAxis axis, const std::string& title) {
    Axis(axis).title = title;
    Changed(false);
}

void ChartModel::SetAxisTitleSize(ChartAxis axis, int points) {
    Axis(axis).title_size = points;
    Changed(false);
}

void ChartModel::SetAxisStyle(ChartAxis axis, int line_width, int tick_length) {
    Axis(axis).line_width = line_width;
    Axis(axis).tick_length = tick_length;
    Changed(false);
}

void ChartModel::SetYTitleRotation(int setting) {
    if (setting != chart_style::UpwardTitle) Raise(error_number::InvalidPropertyValue);
}

void ChartModel::SetMajorGridAutomatic(ChartAxis axis) {
    Axis(axis).grid_spacing.reset();
    Changed(false);
}

void ChartModel::SetMajorGridSpacing(ChartAxis axis, double spacing) {
    if (!std::isfinite(spacing) || spacing < 0) Raise(error_number::InvalidPropertyValue);
    Axis(axis).grid_spacing = spacing;
    Changed(false);
}

void ChartModel::SetHeaderText(const std::string& text) {
    header_text_ = text;
    Changed(false);
}

void ChartModel::SetNote(const std::string& text) {
    note_ = text;
    Changed(false);
}

void ChartModel::SetHeaderSize(int points) {
    header_size_ = points;
    Changed(false);
}

void ChartModel::SetDataLayout(int layout) {
    if (layout != chart_style::GeneralLayout) Raise(error_number::InvalidPropertyValue);
}

void ChartModel::SetNumSeries(int count) {
    if (count < 0 || count > kMostSeries) Raise(error_number::InvalidPropertyValue);
    series_.resize(static_cast<std::size_t>(count));
    Changed(true);
}

void ChartModel::SetNumPoints(int series, long count) {
    if (count < 0) Raise(error_number::InvalidPropertyValue);
    const std::size_t size = static_cast<std::size_t>(count);
    static_cast<void>(Series(series));
    Points& points = series_[SeriesOffset(series)];
    points.x.resize(size);
    points.y.resize(size);
    Changed(true);
}

long ChartModel::NumPoints(int series) const {
    return static_cast<long>(Series(series).x.size());
}

void ChartModel::SetX(int series, long point, double value) {
    const std::size_t offset = PointOffset(series, point);
    series_[SeriesOffset(series)].x[offset] = value;
    Changed(true);
}

void ChartModel::SetY(int series, long point, double value) {
    const std::size_t offset = PointOffset(series, point);
    series_[SeriesOffset(series)].y[offset] = value;
    Changed(true);
}

double ChartModel::X(int series, long point) const {
    return Series(series).x[PointOffset(series, point)];
}

double ChartModel::Y(int series, long point) const {
    return Series(series).y[PointOffset(series, point)];
}

void ChartModel::SetLinePattern(int series, int pattern) {
    StyleToChange(series).line_pattern = pattern;
    Changed(false);
}

void ChartModel::SetLineColour(int series, int32_t colour) {
    StyleToChange(series).line_colour = colour;
    Changed(false);
}

void ChartModel::SetLineWidth(int series, int pixels) {
    StyleToChange(series).line_width = pixels;
    Changed(false);
}

void ChartModel::SetSymbolShape(int series, int shape) {
    StyleToChange(series).symbol_shape = shape;
    Changed(false);
}

void ChartModel::SetSymbolSize(int series, int points) {
    StyleToChange(series).symbol_size = points;
    Changed(false);
}

void ChartModel::SetSymbolColour(int series, int32_t colour) {
    StyleToChange(series).symbol_colour = colour;
    Changed(false);
}

const SeriesStyle& ChartModel::Style(int series) const {
    static const SeriesStyle untouched;
    const std::size_t offset = SeriesOffset(series);
    return offset < styles_.size() ? styles_[offset] : untouched;
}

void ChartModel::AddSeriesLabel(int series, const std::string& label) {
    const std::size_t offset = SeriesOffset(series);
    if (offset >= labels_.size()) labels_.resize(offset + 1);
    labels_[offset] = label;
    Changed(false);
}

void ChartModel::RemoveAllSeriesLabels() {
    labels_.clear();
    Changed(false);
}

int ChartModel::SeriesLabelCount() const {
    return static_cast<int>(
        std::count_if(labels_.begin(), labels_.end(), [](const auto& label) { return label.has_value(); }));
}

std::string ChartModel::SeriesLabel(int series) const {
    const std::size_t offset = SeriesOffset(series);
    return offset < labels_.size() ? labels_[offset].value_or("") : "";
}

const ChartModel::Points& ChartModel::Series(int series) const {
    if (series < 1 || series > NumSeries()) Raise(error_number::SubscriptOutOfRange);
    return series_[SeriesOffset(series)];
}

std::size_t ChartModel::PointOffset(int series, long point) const {
    if (point < 1 || point > NumPoints(series)) Raise(error_number::SubscriptOutOfRange);
    return static_cast<std::size_t>(point - 1);
}

SeriesStyle& ChartModel::StyleToChange(int series) {
    const std::size_t offset = SeriesOffset(series);
    if (offset >= styles_.size()) styles_.resize(offset + 1);
    return styles_[offset];
}

}  // namespace tarvokol

// SPDX-License-Identifier: GPL-3.0-or-later
// A chart as its roles: axes, header, series, styles and legend. The window control draws it; without a
// window it stands for itself. Series and points are numbered from 1.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tarvokol {

enum class ChartAxis { X, Y };

// Numbers of the chart's styles.
namespace chart_style {
constexpr int NoLine = 1;
constexpr int SolidLine = 2;
constexpr int NoSymbol = 1;
constexpr int DotSymbol = 2;
constexpr int SeriesSymbol = 5;   // each series has a sign of its own
constexpr int UpwardTitle = 2;    // an axis title that runs up the axis
constexpr int GeneralLayout = 2;  // each series has X and Y values of its own
}  // namespace chart_style

// Code of the plot region, and the code of everything else on the chart.
constexpr int PlotRegionCode = -100;
constexpr int OtherRegionCode = 0;

// Marks a point without data.
constexpr double HoleValue = 1E+308;

// How a series is drawn; colours in the byte order blue, green, red.
struct SeriesStyle {
    int line_pattern = chart_style::SolidLine;
    int32_t line_colour = 0;
    int line_width = 1;  // pixels
    int symbol_shape = chart_style::NoSymbol;
    int symbol_size = 5;  // points
    int32_t symbol_colour = 0;
};

class ChartModel {
  public:
    virtual ~ChartModel() = default;

    // Axes. Sizes in points, widths and tick lengths in pixels.
    void SetAxisTitle(ChartAxis axis, const std::string& title);
    const std::string& AxisTitle(ChartAxis axis) const { return Axis(axis).title; }
    void SetAxisTitleSize(ChartAxis axis, int points);
    int AxisTitleSize(ChartAxis axis) const { return Axis(axis).title_size; }
    void SetAxisStyle(ChartAxis axis, int line_width, int tick_length);
    int AxisLineWidth(ChartAxis axis) const { return Axis(axis).line_width; }
    int AxisTickLength(ChartAxis axis) const { return Axis(axis).tick_length; }

    // The title of the Y axis runs up the axis; any other setting raises "Invalid property value".
    void SetYTitleRotation(int setting);

    // The grid at the axis' major ticks: spaced automatically, or by a number, where 0 means no grid. A
    // negative or infinite number raises "Invalid property value".
    void SetMajorGridAutomatic(ChartAxis axis);
    void SetMajorGridSpacing(ChartAxis axis, double spacing);
    bool MajorGridIsAutomatic(ChartAxis axis) const { return !Axis(axis).grid_spacing.has_value(); }
    double MajorGridSpacing(ChartAxis axis) const { return Axis(axis).grid_spacing.value_or(0.0); }

    void SetHeaderText(const std::string& text);
    const std::string& HeaderText() const { return header_text_; }
    void SetHeaderSize(int points);
    int HeaderSize() const { return header_size_; }

    // A line under the chart; empty for none.
    void SetNote(const std::string& text);
    const std::string& Note() const { return note_; }

    // Data. Only the general layout exists; another raises "Invalid property value". New points lie at (0,
    // 0). A series or point that does not exist raises "Subscript out of range".
    void SetDataLayout(int layout);
    void SetNumSeries(int count);
    int NumSeries() const { return static_cast<int>(series_.size()); }
    void SetNumPoints(int series, long count);
    long NumPoints(int series) const;
    void SetX(int series, long point, double value);
    void SetY(int series, long point, double value);
    double X(int series, long point) const;
    double Y(int series, long point) const;

    // Styles stand by themselves: a style may be set and read before its series exists and outlives it.
    void SetLinePattern(int series, int pattern);
    void SetLineColour(int series, int32_t colour);
    void SetLineWidth(int series, int pixels);
    void SetSymbolShape(int series, int shape);
    void SetSymbolSize(int series, int points);
    void SetSymbolColour(int series, int32_t colour);
    const SeriesStyle& Style(int series) const;

    // Legend: the label of a series; adding one again replaces it. A label whose series does not exist is
    // kept and not shown.
    void AddSeriesLabel(int series, const std::string& label);
    void RemoveAllSeriesLabels();
    int SeriesLabelCount() const;
    std::string SeriesLabel(int series) const;  // empty for none

  protected:
    // Called after every change, with true if points have changed or come or gone.
    virtual void Changed(bool points) { static_cast<void>(points); }

  private:
    struct AxisState {
        std::string title;
        int title_size = 10;
        int line_width = 1;
        int tick_length = 4;
        std::optional<double> grid_spacing = 0.0;  // none: automatic
    };
    struct Points {
        std::vector<double> x, y;
    };

    AxisState& Axis(ChartAxis axis) { return axes_[axis == ChartAxis::X ? 0 : 1]; }
    const AxisState& Axis(ChartAxis axis) const { return axes_[axis == ChartAxis::X ? 0 : 1]; }
    const Points& Series(int series) const;
    std::size_t PointOffset(int series, long point) const;
    SeriesStyle& StyleToChange(int series);

    AxisState axes_[2];
    std::string header_text_;
    int header_size_ = 12;
    std::string note_;
    std::vector<Points> series_;
    std::vector<SeriesStyle> styles_;
    std::vector<std::optional<std::string>> labels_;
};

}  // namespace tarvokol

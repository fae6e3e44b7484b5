// SPDX-License-Identifier: GPL-3.0-or-later
// A drawing surface that lists what is drawn. Its text metrics are fixed, so that a drawing gives the same
// list on every machine.
#pragma once

#include <string>
#include <vector>

#include "core/platform/drawing_surface.h"

namespace tarvokol {

class RecordingSurface : public DrawingSurface {
  public:
    struct RecordedLine {
        double x1 = 0;
        double y1 = 0;
        double x2 = 0;
        double y2 = 0;
        bool operator==(const RecordedLine&) const = default;
    };

    struct RecordedText {
        std::string text;
        double x = 0;  // current point at which it was printed
        double y = 0;
        bool rotated = false;
        bool operator==(const RecordedText&) const = default;
    };

    void SetScale(double width, double height) override;
    void Cls() override;
    void SetDrawMode(int mode) override { DrawModes.push_back(mode); }
    void Line(double x1, double y1, double x2, double y2) override;
    void LineTo(double x, double y) override { Line(x_, y_, x, y); }
    double CurrentX() const override { return x_; }
    double CurrentY() const override { return y_; }
    void SetCurrentPoint(double x, double y) override;

    // 0.6 and 1.2 hundredths of the world's height, a character and a line.
    double TextWidth(const std::string& text) override;
    double TextHeight(const std::string& text) override;
    void Print(const std::string& text) override;
    void PrintTurned(const TurnedFont& font, const std::string& text) override;

    // The plot window's size before the user changes it.
    double FontSize() const override { return 8.25; }

    double ScaleWidth = 0;
    double ScaleHeight = 0;
    int Clearings = 0;

    // What was drawn since the last Cls, in drawing order.
    std::vector<RecordedLine> Lines;
    std::vector<RecordedText> Texts;
    std::vector<TurnedFont> TurnedFonts;  // one a rotated text
    std::vector<int> DrawModes;

  private:
    double x_ = 0;
    double y_ = 0;
};

}  // namespace tarvokol

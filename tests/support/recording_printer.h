// SPDX-License-Identifier: GPL-3.0-or-later
// A printer with fixed metrics that records what is printed where.
#pragma once

#include <string>
#include <vector>

#include "core/platform/printer_device.h"
#include "core/runtime/run_time_error.h"
#include "core/runtime/text.h"

namespace tarvokol {

// Every character is CharacterWidth wide and every line LineHeight high, whatever the font. Calls holds every
// operation in order, Lines every text with the pen position at which it was printed.
class RecordingPrinter : public PrinterDevice {
  public:
    struct Line {
        int page;  // from 1
        double x;  // twips
        double y;
        std::string text;
        bool bold;

        bool operator==(const Line&) const = default;
    };

    double CurrentX() const override { return x_; }
    double CurrentY() const override { return y_; }
    void SetCurrentX(double twips) override { x_ = twips; }
    void SetCurrentY(double twips) override { y_ = twips; }
    double PageWidth() const override { return Width; }
    double PageHeight() const override { return Height; }

    void Print(const std::string& text) override {
        if (FailingPrints > 0) {
            --FailingPrints;
            Raise(error_number::PrinterError);
        }
        Lines.push_back({Page, x_, y_, text, bold_});
        Calls.push_back("print " + text);
        x_ = 0;
        y_ += LineHeight;
    }

    double TextWidth(const std::string& text) override {
        return CharacterWidth * static_cast<double>(Length(text));
    }

    void NewPage() override {
        Calls.push_back("new page");
        ++Page;
        x_ = y_ = 0;
    }

    void EndDoc() override { Calls.push_back("end"); }

    std::vector<std::string> FontNames() override { return Fonts; }
    void SetFontName(const std::string& name) override { Calls.push_back("font " + name); }
    void SetFontSize(double points) override { Calls.push_back("size " + std::to_string(points)); }
    void SetFontItalic(bool on) override { Calls.push_back(on ? "italic" : "no italic"); }
    void SetFontStrikeThrough(bool on) override { Calls.push_back(on ? "strike" : "no strike"); }
    void SetFontUnderline(bool on) override { Calls.push_back(on ? "underline" : "no underline"); }
    void SetFontBold(bool on) override {
        bold_ = on;
        Calls.push_back(on ? "bold" : "no bold");
    }

    // Texts of one page in the order of printing.
    std::vector<std::string> TextsOfPage(int page) const {
        std::vector<std::string> texts;
        for (const Line& line : Lines)
            if (line.page == page) texts.push_back(line.text);
        return texts;
    }

    double Width = 12240;  // twips
    double Height = 15840;
    double LineHeight = 200;
    double CharacterWidth = 100;
    std::vector<std::string> Fonts{"Arial", "Courier New"};
    int FailingPrints = 0;  // so many prints raise "Printer error"

    int Page = 1;
    std::vector<Line> Lines;
    std::vector<std::string> Calls;

  private:
    double x_ = 0;
    double y_ = 0;
    bool bold_ = false;
};

}  // namespace tarvokol

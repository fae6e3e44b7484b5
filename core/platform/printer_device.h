// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "core/runtime/run_time_error.h"

namespace tarvokol {

// What a job holds, as the name of its PDF file says.
enum class PrintedMatter { Anything, Inputs, Report, Plan, Graph };

// What pictures are painted with: defined by the binding, and known to it and to those who draw pictures.
class PageDevice;
class PagePainter;

// A printer that measures in twips (1440 to the inch), the pen at (CurrentX, CurrentY). Failures raise "Printer
// error" (482) or its kind.
class PrinterDevice {
  public:
    virtual ~PrinterDevice() = default;

    // Before a printer dialog or a job: what will be printed.
    virtual void Announce(PrintedMatter) {}

    // After a printer dialog: what was chosen there holds for the job announced, or for all jobs of the run.
    virtual void TakeChoice(bool /*for_the_run*/) {}

    // Before a job: chooses what it goes to, where the user is to be asked for that. False if he gives it up.
    virtual bool StartDoc() { return true; }

    // After a job: drops what is left of one that did not come to its end.
    virtual void CloseDoc() {}

    virtual double CurrentX() const = 0;
    virtual double CurrentY() const = 0;
    virtual void SetCurrentX(double twips) = 0;
    virtual void SetCurrentY(double twips) = 0;
    virtual double PageWidth() const = 0;
    virtual double PageHeight() const = 0;

    // Prints a line at the pen and leaves the pen at the start of the next line.
    virtual void Print(const std::string& text) = 0;
    virtual double TextWidth(const std::string& text) = 0;

    virtual void NewPage() = 0;
    virtual void EndDoc() = 0;

    // True if pictures can be printed: there is a printer, or a file to print to.
    virtual bool HasTarget() const { return false; }

    // Prints a drawing as a job of its own. It measures `width` x `height` pixels, 96 to the inch, which are the
    // units of the painter given, and stands at the top left of the printable area; a drawing that is larger is
    // reduced to it.
    virtual void PrintDrawing(double width, double height, const std::function<void(PagePainter&)>& draw);

    // Prints a job of its own that paints on the device itself.
    virtual void PrintWith(const std::function<void(PageDevice&)>& print);

    // Fonts of the printer, in the printer's order.
    virtual std::vector<std::string> FontNames() = 0;
    virtual void SetFontName(const std::string& name) = 0;
    virtual void SetFontSize(double points) = 0;
    virtual void SetFontBold(bool on) = 0;
    virtual void SetFontItalic(bool on) = 0;
    virtual void SetFontStrikeThrough(bool on) = 0;
    virtual void SetFontUnderline(bool on) = 0;
};

inline void PrinterDevice::PrintDrawing(double, double, const std::function<void(PagePainter&)>&) {
    Raise(error_number::PrinterError);
}

inline void PrinterDevice::PrintWith(const std::function<void(PageDevice&)>&) {
    Raise(error_number::PrinterError);
}

}  // namespace tarvokol

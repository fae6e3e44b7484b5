// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/report/print_engine.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "core/platform/clock.h"
#include "core/platform/common_dialogs.h"
#include "core/platform/platform.h"
#include "core/platform/printer_device.h"
#include "core/platform/screen_fonts.h"
#include "core/runtime/numbers.h"
#include "core/runtime/one_based.h"
#include "core/runtime/text.h"
#include "core/settings/program_name.h"

namespace tarvokol {
namespace {

// Twips.
constexpr double kLeftMargin = 1152;
constexpr double kHeaderTop = kLeftMargin / 2;
constexpr double kBodyTop = 1152;
constexpr double kBottomReserve = 1872;

// Multiplies the measured width of the page number, so that it stays clear of the margin.
constexpr double kWidthFactor = 1.2;

constexpr double kFontSize = 9;  // points

PrinterDevice& Printer() {
    return *Platform.Printer;
}

// The fonts for print, best first.
OneBased<std::string, 3> WantedFonts() {
    OneBased<std::string, 3> fonts;
    fonts[1] = "Courier New";
    fonts[2] = "Courier";
    fonts[3] = "Arial";
    return fonts;
}

// The printer's fonts, read as far as the screen's font count reaches.
std::vector<std::string> FontsInReach() {
    std::vector<std::string> fonts = Printer().FontNames();
    fonts.resize(std::min(fonts.size(), Platform.Fonts->Names().size()));
    return fonts;
}

// The first wanted font that is in reach, compared without regard to case. The walk over the wanted fonts is
// not bounded by their number: with none in reach the fourth pass raises "Subscript out of range".
std::string ChooseFont() {
    const OneBased<std::string, 3> wanted = WantedFonts();
    const std::vector<std::string> fonts = FontsInReach();
    for (int pass = 1;; ++pass) {
        const std::string& name = wanted[pass];
        const auto is_wanted = [&name](const std::string& font) { return EqualIgnoringCase(font, name); };
        if (std::any_of(fonts.begin(), fonts.end(), is_wanted)) return name;
    }
}

void SetUpFont() {
    PrinterDevice& printer = Printer();
    printer.SetFontBold(false);
    printer.SetFontItalic(false);
    printer.SetFontName(ChooseFont());
    printer.SetFontStrikeThrough(false);
    printer.SetFontUnderline(false);
    printer.SetFontSize(kFontSize);
}

// "m/d/yyyy"
std::string DateText(const CalendarDate& date) {
    return GeneralText(date.month) + "/" + GeneralText(date.day) + "/" + GeneralText(date.year);
}

// Program, date and time at the left margin, the page number at the right one.
void PrintPageHeader() {
    PrinterDevice& printer = Printer();
    printer.SetCurrentY(kHeaderTop);
    printer.SetCurrentX(kLeftMargin);
    printer.SetFontBold(true);
    const double header_y = printer.CurrentY();
    printer.Print(ProgramNameUpper() + ", " + PrintJob.JobDate + ", " + PrintJob.JobTime);
    printer.SetCurrentY(header_y);
    const std::string page = "Page: " + GeneralText(PrintJob.PageNumber);
    printer.SetCurrentX(printer.PageWidth() - kLeftMargin - kWidthFactor * printer.TextWidth(page));
    printer.Print(page);
    printer.SetCurrentX(kLeftMargin);
    printer.SetCurrentY(kBodyTop);
    printer.SetFontBold(false);
}

void BeginJob() {
    SetUpFont();
    PrintJob.JobDate = DateText(Platform.TheClock->Today());
    PrintJob.JobTime = Platform.TheClock->TimeText();
    PrintJob.PageNumber = 1;
    PrintPageHeader();
}

void NewPage() {
    Printer().NewPage();
    ++PrintJob.PageNumber;
}

void NewPageWithHeader() {
    NewPage();
    PrintPageHeader();
}

void PrintOneLine(const std::string& text) {
    PrinterDevice& printer = Printer();
    printer.SetCurrentX(kLeftMargin);
    printer.Print(text);
    if (printer.CurrentY() > printer.PageHeight() - kBottomReserve) NewPageWithHeader();
}

// Each line that a CR LF ends; what stands after the last one is not printed.
void PrintBlock(std::string_view text) {
    std::size_t start = 0;
    for (std::size_t end = text.find(CrLf); end != std::string_view::npos; end = text.find(CrLf, start)) {
        PrintOneLine(std::string(text.substr(start, end - start)));
        start = end + CrLf.size();
    }
}

}  // namespace

void ChoosePrinter(PrintedMatter matter, int flags) {
    if (Platform.Printer != nullptr) Printer().Announce(matter);
    Platform.Dialogs->ShowPrinter(flags);
    if (Platform.Printer != nullptr) Printer().TakeChoice(false);
}

void SetUpPrinter() {
    if (Platform.Printer != nullptr) Printer().Announce(PrintedMatter::Anything);
    Platform.Dialogs->ShowPrinterSetup();
    if (Platform.Printer != nullptr) Printer().TakeChoice(true);
}

void RunPrintJob(CommandGuard& guard, const std::string& text, PrintedMatter matter) {
    bool wanted = false;
    guard([&] {
        Printer().Announce(matter);
        wanted = Printer().StartDoc();
    });
    if (!wanted) return;
    guard([] { PrintCommand(print_command::BeginJob, ""); });
    guard([&] { PrintCommand(print_command::Block, text); });
    guard([] { PrintCommand(print_command::EndJob, ""); });
    Printer().CloseDoc();
}

void PrintCommand(const int& command, const std::string& text) {
    switch (command) {
        case print_command::Line:
            PrintOneLine(text);
            break;
        case print_command::BeginJob:
            BeginJob();
            break;
        case print_command::NewPageWithHeader:
            NewPageWithHeader();
            break;
        case print_command::Block:
            PrintBlock(text);
            break;
        case print_command::EndJob:
            Printer().EndDoc();
            break;
        case print_command::NewPage:
            NewPage();
            break;
        default:
            break;
    }
}

}  // namespace tarvokol

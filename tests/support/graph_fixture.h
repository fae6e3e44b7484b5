// SPDX-License-Identifier: GPL-3.0-or-later
// Graph windows over a small curve table, with a recorded workbook and a printer that prints into a file.
#pragma once

#include <QAction>
#include <QGroupBox>
#include <QLabel>

#include "core/platform/platform.h"
#include "core/platform/spreadsheet_writer.h"
#include "core/settings/configuration.h"
#include "desktop/base/form_services.h"
#include "desktop/graphs/frmGraph.h"
#include "desktop/graphs/frmGraphOpt.h"
#include "desktop/graphs/frmGraphOptS.h"
#include "desktop/graphs/frmGraphS.h"
#include "qt/print/qt_printer.h"
#include "tests/support/curve_fixture.h"
#include "tests/support/gui_fixture.h"

namespace tarvokol {

// Keeps the cells of an export, or refuses to be created.
class RecordedWorkbook : public SpreadsheetWriter {
  public:
    void BeginWorkbook() override {
        if (Refuses) Raise(error_number::CannotCreateObject);
        PointerAtBegin = FormOnShow != nullptr ? FormOnShow->cursor().shape() : Qt::ArrowCursor;
    }
    void SetCell(const std::string& address, double value) override { Numbers[address] = value; }
    void SetCell(const std::string& address, const std::string& text) override { Texts[address] = text; }
    void SetNote(const std::string& text) override { Note = text; }
    void ShowWorkbook() override { Shown = true; }
    std::string WorkbookLeftAt() const override { return LeftAt; }

    bool Refuses = false;
    bool Shown = false;
    std::string LeftAt;
    QWidget* FormOnShow = nullptr;
    Qt::CursorShape PointerAtBegin = Qt::ArrowCursor;
    std::map<std::string, double> Numbers;
    std::map<std::string, std::string> Texts;
    std::string Note;
};

class GraphTest : public CurvesOn<GuiTest> {
  protected:
    GraphTest() {
        Platform.Spreadsheet = &Workbook;
        Platform.Printer = &Printer;
        IniPath = PathTo("TARVOKOL.INI");
        GraphClosed = false;
    }
    ~GraphTest() override {
        Platform.Spreadsheet = nullptr;
        Platform.Printer = nullptr;
        IniPath.clear();
    }

    // The form with its graph drawn and shown modeless.
    static frmGraph& ShowStability(int index, int points = 51) {
        FillCurves(3, points);
        StabilityCurveKind = static_cast<int16_t>(index);
        return Drawn<frmGraph>(index);
    }
    static frmGraphS& ShowSizing(int index, int points = 51) {
        FillCurves(1, points);
        SizingCurveKind = static_cast<int16_t>(index);
        return Drawn<frmGraphS>(index);
    }

    template <typename Form>
    static Form& Drawn(int index) {
        Form& form = Form::Instance();
        form.GraphInit(index);
        form.DrawCurve();
        ShowAndActivate(form);
        return form;
    }

    // Brings another form to the front; a form above its opener counts as active before it is.
    static void SwitchTo(FormBase& form) {
        ShowAndActivate(form);
        EXPECT_TRUE(WaitUntil([&] { return QApplication::activeWindow() == &form; }));
    }

    // Moves the mouse over the chart without a button.
    static void MoveMouse(GraphFormBase& form, QPoint at) {
        QMouseEvent move(QEvent::MouseMove, QPointF(at), form.Graph1().mapToGlobal(QPointF(at)), Qt::NoButton,
                         Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(&form.Graph1(), &move);
    }

    RecordedWorkbook Workbook;
    QtPrinter Printer;
};

}  // namespace tarvokol

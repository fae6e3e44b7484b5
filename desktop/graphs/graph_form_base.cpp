// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/graphs/graph_form_base.h"

#include <QAccessible>
#include <QAction>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QScopedValueRollback>
#include <algorithm>

#include "core/graphics/curve_export.h"
#include "core/messages/command_guard.h"
#include "core/messages/history_log.h"
#include "core/messages/notify.h"
#include "core/platform/common_dialogs.h"
#include "core/platform/message_box.h"
#include "core/platform/platform.h"
#include "core/platform/printer_device.h"
#include "core/platform/spreadsheet_writer.h"
#include "core/report/print_engine.h"
#include "core/runtime/checked.h"
#include "core/runtime/numbers.h"
#include "core/runtime/text.h"
#include "core/settings/option_settings.h"
#include "qt/print/page_painter.h"
#include "qt/session/qt_text.h"

namespace tarvokol {
namespace {

// Twips.
constexpr int kLeastExtent = 4000;
constexpr int kRoomBelow = 700;
constexpr int kRoomBeside = 300;
constexpr int kTooLittle = 800;
constexpr int kLeastChartHeight = 100;
constexpr int kLeastChartWidth = 500;

// Pixels; a curve point nearer than this to the mouse is read out.
constexpr double kReach = 4;

// Of the frame with the point's values: pixels, and columns of its grid in a wide window.
constexpr int kReadOutWidth = 449;
constexpr int kReadOutHeight = 50;
constexpr int kReadOutColumns = 6;

constexpr int kPointId = 0;
constexpr int kBasicOptions = 1;

// The printer's own format, the chart fitted into a box of the paper in 1/600 inch: left, top, width, height.
void PrintInItsBox(ChartControl& chart, QPrinter& printer) {
    chart.Print(printer, 4, 2, 100, 100, 4000, 5000);
}

int LeastPixels() {
    return (kLeastExtent + TwipsPerPixel - 1) / TwipsPerPixel;
}

}  // namespace

void GraphFormBase::BindControls() {
    graph_ = findChild<ChartControl*>("Graph1");
    frame_ = findChild<QGroupBox*>("Frame1");
    x_label_ = findChild<QLabel*>("lblX");
    value_label_ = findChild<QLabel*>("lblSF");
    curve_label_ = findChild<QLabel*>("lblCurve");
    options_items_ = ControlArray<QAction>(*this, "GraphOptionsItem");
    findChild<QAction*>("GraphFileItem_1")->setSeparator(true);
    findChild<QAction*>("GraphFileItem_3")->setSeparator(true);
    setMinimumSize(LeastPixels(), LeastPixels());
    ConnectMenu("GraphFileItem", &GraphFormBase::GraphFileItem_Click);
    ConnectMenu("GraphEditItem", &GraphFormBase::GraphEditItem_Click);
    ConnectMenu("GraphOptionsItem", &GraphFormBase::GraphOptionsItem_Click);
    connect(graph_, &ChartControl::MouseMove, this, &GraphFormBase::Graph1_MouseMove);
    connect(graph_, &ChartControl::PointReached, this, &GraphFormBase::Graph1_PointReached);
    read_out_title_ = frame_->title();
}

void GraphFormBase::ConnectMenu(const QString& name, void (GraphFormBase::*handler)(int)) {
    for (const auto& [index, item] : ControlArray<QAction>(*this, name))
        connect(item, &QAction::triggered, this,
                [this, handler, element = index] { (this->*handler)(element); });
}

void GraphFormBase::GraphInit(int Index) {
    SetScreenPointer(MousePointer::Hourglass);
    InitGraph(*graph_, Family(), Index);
}

void GraphFormBase::DrawCurve() {
    DrawCurves(*graph_, Family());
    SetScreenPointer(MousePointer::Default);
}

void GraphFormBase::ClearGraph() {
    ClearGraphCurves(*graph_);
}

// The frame above the chart is as high as its font needs, and the chart begins below it.
void GraphFormBase::Form_FontChange() {
    FitReadOut();
    const int height = std::max(kReadOutHeight, frame_->sizeHint().height());
    graph_->move(graph_->x(), graph_->y() + height - frame_->height());
    frame_->resize(frame_->width(), height);
    Form_Resize();
}

void GraphFormBase::Form_Load() {
    Form_FontChange();
    options_items_[kPointId].setChecked(true);
    graph_->setFocus();
}

// Another form came to the front; a message, a common dialog, the help or another program leaves the graph as it
// is. The options were opened with a read-back of their own; one more after their load would undo it.
void GraphFormBase::Form_Deactivate() {
    if (!options_open_) ReadGraphBack(*graph_, Family());
}

void GraphFormBase::Form_Resize() {
    const int form_height = TwipsOf(std::max(height(), LeastPixels()));
    const int form_width = TwipsOf(std::max(width(), LeastPixels()));
    const int below = form_height - TwipsOf(graph_->y());
    const int beside = form_width - TwipsOf(graph_->x());
    const int chart_height = below < kTooLittle ? kLeastChartHeight : below - kRoomBelow;
    const int chart_width = beside < kTooLittle ? kLeastChartWidth : beside - kRoomBeside;
    graph_->resize(PixelsOf(chart_width), PixelsOf(chart_height));
    FitReadOut();
}

void GraphFormBase::FitReadOut() {
    const int room = std::max(width(), LeastPixels()) - 2 * frame_->x();
    LayOutReadOut(false);
    const int wanted = frame_->sizeHint().width();
    if (room < wanted) LayOutReadOut(true);
    frame_->resize(std::min(room, std::max(wanted, kReadOutWidth)), frame_->height());
}

// In a narrow window the captions stand above their values, and take the room of the frame's title.
void GraphFormBase::LayOutReadOut(bool narrow) {
    auto* grid = static_cast<QGridLayout*>(frame_->layout());
    const std::pair<const char*, QLabel*> read_outs[] = {
        {"Label1", x_label_}, {"Label3", value_label_}, {"Label5", curve_label_}};
    int column = 0;
    for (const auto& [name, value] : read_outs) {
        auto* caption = findChild<QLabel*>(name);
        grid->addWidget(caption, 0, narrow ? column : 2 * column);
        grid->addWidget(value, narrow ? 1 : 0, narrow ? column : 2 * column + 1);
        ++column;
    }
    frame_->setTitle(narrow ? QString() : read_out_title_);
    grid->setVerticalSpacing(narrow ? 0 : -1);
    for (int i = 0; i < kReadOutColumns; ++i) grid->setColumnStretch(i, narrow ? 0 : i == 5 ? 2 : i % 2);
}

void GraphFormBase::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        Unload();
    else
        FormBase::keyPressEvent(event);
}

void GraphFormBase::Form_Unload() {
    GraphClosed = true;
}

void GraphFormBase::GraphFileItem_Click(int Index) {
    switch (Index) {
        case 0:
            PrintGraph();
            break;
        case 2:
            ExportGraph();
            break;
        case 4:
            Unload();
            break;
        default:
            break;
    }
}

// "Copy " has no action.
void GraphFormBase::GraphEditItem_Click(int) {}

void GraphFormBase::GraphOptionsItem_Click(int Index) {
    if (Index == kPointId) {
        frame_->setVisible(options_items_[kPointId].isChecked());
    } else if (Index == kBasicOptions) {
        ReadGraphBack(*graph_, Family());
        const QScopedValueRollback open(options_open_, true);
        ShowOptions();
    }
}

// A cancel leaves no line in the history, as no print was begun.
bool GraphFormBase::PrinterIsChosen() {
    CommandGuard Guard(DialogCancelled_);
    DialogCancelled_ = false;
    Guard([this] {
        try {
            ChoosePrinter(PrintedMatter::Graph, dialog_flag::NoPrinterPagesNoSelection);
        } catch (const RunTimeError& error) {
            if (error.number != error_number::Cancelled) throw;
            DialogCancelled_ = true;
        }
    });
    return !Guard.Left() && !DialogCancelled_;
}

void GraphFormBase::PrintGraph() {
    if (!PrinterIsChosen()) return;
    LogMessage("Printing Graph");
    PrinterDevice* const printer = Platform.Printer;
    if (printer == nullptr) return;
    try {
        if (printer->StartDoc() && printer->HasTarget())
            printer->PrintWith([this](PageDevice& page) { PrintInItsBox(*graph_, page.Device); });
    } catch (const RunTimeError&) {
        // Whatever the printer says now is passed over.
    }
}

void GraphFormBase::ExportGraph() {
    constexpr const char* question =
        "This option will only work if Microsoft Excel is installed on this computer. Proceed?";
    if (AskOfficeInstall == 0 && Notify(question, box_style::YesNoQuestion) != box_result::Yes) return;
    CommandGuard Guard(DialogCancelled_);
    Guard([this] { ExportToWorkbook(); });
}

// Deals with no error itself: that is the menu's affair. A failure leaves the busy pointer.
void GraphFormBase::ExportToWorkbook() {
    setCursor(Qt::WaitCursor);
    if (Platform.Spreadsheet == nullptr) Raise(error_number::CannotCreateObject);
    ExportCurves(*graph_, Family(), *Platform.Spreadsheet);
    Notify("Exported " + GeneralText(graph_->NumSeries()) + " Curves", box_style::Plain);
    const std::string left_at = Platform.Spreadsheet->WorkbookLeftAt();
    if (!left_at.empty())
        Notify("No program for workbooks was found. The workbook is:" + std::string(CrLf) + left_at,
               box_style::Information);
    unsetCursor();
}

void GraphFormBase::Graph1_MouseMove(double X, double Y) {
    const int x = ToLong(X / TwipsPerPixel);
    const int y = ToLong(Y / TwipsPerPixel);
    if (graph_->RegionAt(x, y) != PlotRegionCode) {
        unsetCursor();
        return;
    }
    const ChartControl::Nearest nearest = graph_->NearestPoint(x, y);
    if (nearest.series != -1 && nearest.distance < kReach &&
        graph_->Y(nearest.series, nearest.point) != HoleValue)
        ShowReadOut(nearest.series, nearest.point);
    else
        unsetCursor();
}

void GraphFormBase::Graph1_PointReached(int series, long point) {
    ShowValues(series, point);
    graph_->setAccessibleDescription(curve_label_->text().trimmed() + ", X " + x_label_->text() + ", Y " +
                                     value_label_->text());
    QAccessibleEvent said(graph_, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&said);
}

void GraphFormBase::ShowReadOut(int series, long point) {
    ShowValues(series, point);
    setCursor(Qt::CrossCursor);
}

void GraphFormBase::ShowValues(int series, long point) {
    value_label_->setText(ToQt(PictureText(graph_->Y(series, point), "##0.00")));
    x_label_->setText(ToQt(PictureText(graph_->X(series, point), "##0.00")));
    curve_label_->setText(ToQt(ReadOutName(Family(), series)));
}

}  // namespace tarvokol

// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/plan/frmPicture.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QProxyStyle>
#include <QScreen>
#include <algorithm>
#include <utility>

#include "core/graphics/TarvoGraf.h"
#include "core/messages/command_guard.h"
#include "core/platform/platform.h"
#include "core/platform/printer_device.h"
#include "core/project/figure_range.h"
#include "core/project/preview_record.h"
#include "core/report/results_state.h"
#include "desktop/base/form_services.h"
#include "desktop/base/modCapture.h"
#include "qt/print/page_painter.h"
#include "ui_frmPicture.h"

namespace tarvokol {

namespace {

// Twips by which the form is higher than wide, so that its client area is square.
constexpr int kFrameHeight = 510;
constexpr double kMaximizedShare = 0.9;

// Entries of the menu bar as high as the bar, which makes up the difference between the form's height and
// width.
class TallMenuBarStyle : public QProxyStyle {
  public:
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override {
        QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
        if (type == CT_MenuBarItem) size.setHeight(std::max(size.height(), PixelsOf(kFrameHeight)));
        return size;
    }
};

}  // namespace

frmPicture::frmPicture() : ui_(std::make_unique<Ui::frmPicture>()) {
    ui_->setupUi(this);
    ui_->client->SetSquare(true);
    ui_->client->setFocusPolicy(Qt::StrongFocus);
    auto* tall = new TallMenuBarStyle;
    tall->setParent(ui_->menubar);
    ui_->menubar->setStyle(tall);
    ui_->menubar->setFixedHeight(PixelsOf(kFrameHeight));
    QAction* separator = ui_->mnuPlotFile->insertSeparator(ui_->mnuPlotFileItem_2);
    separator->setObjectName("mnuPlotFileItem_1");
    mnuPlotSetItem_ = {ui_->mnuPlotSetItem_0, ui_->mnuPlotSetItem_1, ui_->mnuPlotSetItem_2};
    ConnectMenu(std::array{ui_->mnuPlotFileItem_0, separator, ui_->mnuPlotFileItem_2},
                &frmPicture::mnuPlotFileItem_Click);
    ConnectMenu(std::array{ui_->mnuEditItem_0, ui_->mnuEditItem_1, ui_->mnuEditItem_2},
                &frmPicture::mnuEditItem_Click);
    ConnectMenu(mnuPlotSetItem_, &frmPicture::mnuPlotSetItem_Click);
    resized_.setSingleShot(true);
    connect(&resized_, &QTimer::timeout, this, &frmPicture::FollowResize);
    connect(&drag_, &GrabWatch::Released, this, &frmPicture::Drag_Ended);
}

frmPicture::~frmPicture() = default;

template <std::size_t Count>
void frmPicture::ConnectMenu(const std::array<QAction*, Count>& items, void (frmPicture::*handler)(int)) {
    for (int index = 0; index < static_cast<int>(Count); ++index)
        connect(items[index], &QAction::triggered, this, [this, handler, index] { (this->*handler)(index); });
}

void frmPicture::Form_Load() {
    PlotMode = plot_mode::Dimensions;
    const bool results_exist = ResultsReturn == results_return::FromViewer;
    for (QAction* item : mnuPlotSetItem_) item->setEnabled(results_exist);
    if (results_exist) ui_->mnuPlotSetItem_0->setChecked(true);
    ui_->client->setFocus();
}

void frmPicture::Form_Unload() {
    resized_.stop();
    EnableAndFocus(ResultsReturn != results_return::Normal ? "frmResTxtPlt" : "frmTARVOParm");
}

// While an edge is dragged, the window manager holds on to its own idea of the size and would fight every answer; the
// last size of a drag is squared when it lets the edge go. Any other size is squared as soon as control is back in the
// event loop.
void frmPicture::Form_Resize() {
    if (drag_.IsHeld())
        resized_in_drag_ = true;
    else
        resized_.start(0);
}

void frmPicture::Drag_Ended() {
    if (std::exchange(resized_in_drag_, false)) resized_.start(0);
}

void frmPicture::FollowResize() {
    if (IsUnloaded()) return;
    if (isMaximized())
        TakeMaximizedSize();
    else
        MakeSquare();
    ui_->picTMPCopy->move(0, PixelsOf(TwipsOf(height()) - kFrameHeight / 2));
}

// Dragged outward the larger side wins, dragged inward the smaller one.
void frmPicture::MakeSquare() {
    const int H = TwipsOf(height());
    const int W = TwipsOf(width());
    const bool grown = H > LastHeight_ || W > LastWidth_;
    const bool width_wins = grown ? H <= W : H >= W;
    if (width_wins)
        resize(width(), PixelsOf(W + kFrameHeight));
    else
        resize(PixelsOf(H - kFrameHeight), height());
    LastHeight_ = TwipsOf(height());
    LastWidth_ = TwipsOf(width());
    DrawPanelPlot();
}

// A window that opens stays on its screen. It has its size before the window manager sees it: what comes later, the two may
// each answer with a size of their own.
void frmPicture::showEvent(QShowEvent* event) {
    const QSize room = RoomFor(*this);
    const int side = std::min(room.width(), room.height() - PixelsOf(kFrameHeight));
    if (LastHeight_ == 0 && std::max(width(), height() - PixelsOf(kFrameHeight)) > side) {
        resize(side, side + PixelsOf(kFrameHeight));
        CenterForm(*this);
    }
    FormBase::showEvent(event);
}

void frmPicture::TakeMaximizedSize() {
    restoring_ = true;
    showNormal();
    if (!isMaximized()) ApplyMaximizedSize();
}

// A large square window instead of a full screen.
void frmPicture::ApplyMaximizedSize() {
    const int new_height = qRound(kMaximizedShare * screen()->geometry().height());
    resize(new_height - PixelsOf(kFrameHeight), new_height);
    CenterForm(*this);
}

// A window manager may put the earlier size back when it takes a window out of the maximised state.
void frmPicture::changeEvent(QEvent* event) {
    FormBase::changeEvent(event);
    if (event->type() != QEvent::WindowStateChange || IsUnloaded()) return;
    if (restoring_ && !isMaximized()) {
        restoring_ = false;
        ApplyMaximizedSize();
    }
    resized_.start(0);
}

void frmPicture::DrawPanelPlot() {
    const auto draw = [](DrawingSurface& surface) { tarvokol::DrawPanelPlot(surface); };
    DoneWithinRange(PreviewRecord, [&] { ui_->client->Draw(draw); });
}

double frmPicture::FontSize() const {
    return ui_->client->FontSize();
}

// The size snaps to what the font has, so a step may leave it where it was: then a longer one is tried.
void frmPicture::IncreaseFontSize() {
    const double F = FontSize();
    for (int k = 1; FontSize() == F; ++k) ui_->client->ChooseFontSize(FontSize() + k);
}

void frmPicture::DecreaseFontSize() {
    const double F = FontSize();
    try {
        for (int k = 1; FontSize() == F; ++k) ui_->client->ChooseFontSize(FontSize() - k);
    } catch (const RunTimeError&) {
        // The smallest size is reached.
    }
}

void frmPicture::mousePressEvent(QMouseEvent* event) {
    if (ui_->client->geometry().contains(event->position().toPoint())) Form_MouseDown(event->button());
}

void frmPicture::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        Unload();
    else
        FormBase::keyPressEvent(event);
}

void frmPicture::Form_MouseDown(Qt::MouseButton button) {
    if (button == Qt::LeftButton) IncreaseFontSize();
    if (button == Qt::RightButton) DecreaseFontSize();
    DrawPanelPlot();
}

void frmPicture::mnuPlotFileItem_Click(int Index) {
    CommandGuard guard;
    if (Index == 0) guard([this] { PrintForm(); });
    if (Index == 2) Unload();
}

void frmPicture::mnuEditItem_Click(int Index) {
    if (Index == 0) {
        CopyPicture();
        return;
    }
    if (Index == 1) IncreaseFontSize();
    if (Index == 2) DecreaseFontSize();
    DrawPanelPlot();
}

void frmPicture::mnuPlotSetItem_Click(int Index) {
    PlotMode = static_cast<int16_t>(Index + 1);
    for (QAction* item : mnuPlotSetItem_) item->setChecked(false);
    mnuPlotSetItem_.at(static_cast<std::size_t>(Index))->setChecked(true);
    DoneWithinRange(PreviewRecord, [this] { ui_->client->Draw(DrawPillars); });
}

// What stands on the sheet is drawn anew for the printer, which has more and finer dots than the screen.
void frmPicture::PrintForm() {
    PrinterDevice* const printer = Platform.Printer;
    if (printer == nullptr) Raise(error_number::PrinterError);
    printer->Announce(PrintedMatter::Plan);
    if (!printer->StartDoc()) return;
    const QSizeF size = ui_->client->PaperSize();
    printer->PrintDrawing(size.width(), size.height(), [&](PagePainter& page) {
        if (!ui_->client->HasDrawing()) return;
        PainterSurface surface(page.Painter, size);
        surface.SetFontSize(FontSize());
        surface.SetFitsLabels(ui_->client->SizeOfLabels());
        surface.SetScale(PlotWidth, PlotHeight);
        DrawPillars(surface);
    });
}

void frmPicture::CopyPicture() {
    ui_->client->LeavePillars();
    ui_->picTMPCopy->setPixmap(CaptureForm(*this));
    QClipboard* clipboard = QGuiApplication::clipboard();
    clipboard->clear();
    clipboard->setImage(ui_->picTMPCopy->pixmap().toImage());
}

}  // namespace tarvokol

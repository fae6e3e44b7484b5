// SPDX-License-Identifier: GPL-3.0-or-later
// The plan as a picture file.
#include "qt/plan/plan_export.h"

#include <QProcess>
#include <QSvgRenderer>

#include "tests/gui/qt/plan_fixture.h"
#include "tests/support/waiting.h"

namespace tarvokol {
namespace {

class PlanExport : public PlanSurface {};

TEST_F(PlanExport, WritesAPngAtTwiceTheSheet) {
    ASSERT_TRUE(ExportPlan(PathTo("plan.png"), PlanView::Window));
    const QImage image(QString::fromStdString(PathTo("plan.png")));
    EXPECT_EQ(image.size(), QSize(1400, 1400));
    EXPECT_EQ(image.pixelColor(2, 1390), QColor(Qt::white));
    EXPECT_FALSE(InkOf(image).isEmpty());
}

// Twelve digits need more room above the plan than the smallest sheet has below its title.
TEST_F(PlanExport, LongFiguresGetALargerSheetInsteadOfBeingCut) {
    PlotMode = plot_mode::Capacity;
    PlotFromResults = true;
    WorkingParameters.PillarCapacity.Fill(446410495412.0);
    ASSERT_TRUE(ExportPlan(PathTo("plan.png"), PlanView::Window));
    const QImage image(QString::fromStdString(PathTo("plan.png")));
    EXPECT_GT(image.width(), 1400);
    EXPECT_EQ(image.height(), image.width());
    const QSizeF sheet(image.width() / 2.0, image.height() / 2.0);
    QImage wide = Sheet(sheet.toSize());
    PainterSurface surface(wide, sheet);
    DrawPanelPlot(surface);
    EXPECT_EQ(surface.TextClashes(), 0);
    QImage narrow = Sheet({700, 700});
    PainterSurface crowded(narrow, {700, 700});
    DrawPanelPlot(crowded);
    EXPECT_GT(crowded.TextClashes(), 0);
}

// No sheet holds hundreds of digits. From 160 % on a larger one would make no label more legible.
TEST_F(PlanExport, WhatFitsNoSheetGetsTheSmallestOfTheBest) {
    PlotMode = plot_mode::Capacity;
    PlotFromResults = true;
    WorkingParameters.PillarCapacity.Fill(1e300);
    ASSERT_TRUE(ExportPlan(PathTo("plan.png"), PlanView::Window));
    EXPECT_EQ(QImage(QString::fromStdString(PathTo("plan.png"))).size(), QSize(2240, 2240));
}

TEST_F(PlanExport, WritesThePreviewsShape) {
    ViewChildWindow = 0;
    ASSERT_TRUE(ExportPlan(PathTo("plan.PNG"), PlanView::Preview));
    const QImage image(QString::fromStdString(PathTo("plan.PNG")));
    EXPECT_EQ(image.size(), QSize(1202, 242));
    // Pillars at y 78.4..268.4 of 316.8, x 135.4..191.4.
    EXPECT_NEAR(InkOf(image).top(), 242 - 268.4 / 316.8 * 242, 2);
    EXPECT_NEAR(InkOf(image).bottom(), 242 - 78.4 / 316.8 * 242, 2);
    EXPECT_NEAR(InkOf(image).left(), 135.4 / 316.8 * 1202, 2);
    EXPECT_NEAR(InkOf(image).right(), 191.4 / 316.8 * 1202, 2);
}

// The frame is low: its labels would run through the title and beyond the edge.
TEST_F(PlanExport, APreviewWithTextsKeepsItsShapeOnALargerSheet) {
    ViewChildWindow = 1;
    ASSERT_TRUE(ExportPlan(PathTo("plan.png"), PlanView::Preview));
    const QImage image(QString::fromStdString(PathTo("plan.png")));
    EXPECT_GT(image.width(), 1202);
    EXPECT_NEAR(static_cast<double>(image.width()) / image.height(), 601.0 / 121.0, 0.05);
    const QSize sheet = image.size() / 2;
    QImage again = Sheet(sheet);
    PainterSurface surface(again, sheet);
    DrawPanelPreview(surface);
    EXPECT_EQ(surface.TextClashes(), 0);
}

TEST_F(PlanExport, ARefusedPreviewLeavesNoFileAndIsToldOnce) {
    PreviewRecord.CrosscutAngle = 60;
    EXPECT_FALSE(ExportPlan(PathTo("plan.svg"), PlanView::Preview));
    EXPECT_FALSE(std::filesystem::exists(PathTo("plan.svg")));
    EXPECT_THAT(Messages(), testing::ElementsAre("Invalid Pillar Dimensions"));
}

TEST_F(PlanExport, WritesAnSvgWithItsTextsOnce) {
    ASSERT_TRUE(ExportPlan(PathTo("plan.svg"), PlanView::Window));
    const std::string svg = ReadBytes(PathTo("plan.svg"));
    const std::string title =
        ">TARVO-KOL: Actual Pillar Dimensions (width*length, ft).  Entries shown from left to right.<";
    const std::size_t found = svg.find(title);
    ASSERT_NE(found, std::string::npos);
    EXPECT_EQ(svg.find(title, found + 1), std::string::npos);
    EXPECT_NE(svg.find(">20x oo<"), std::string::npos);
    EXPECT_NE(svg.find(">30<"), std::string::npos);
    EXPECT_TRUE(QSvgRenderer(QByteArray::fromStdString(svg)).isValid());
    EXPECT_NE(svg.find("viewBox=\"0 0 700 700\""), std::string::npos);
}

TEST_F(PlanExport, WritesAPdf) {
    ASSERT_TRUE(ExportPlan(PathTo("plan.pdf"), PlanView::Window));
    EXPECT_EQ(ReadBytes(PathTo("plan.pdf")).substr(0, 5), "%PDF-");
    // At 192 dots to the inch it is the picture of the PNG.
    ASSERT_TRUE(ExportPlan(PathTo("plan.png"), PlanView::Window));
    const QString page = QString::fromStdString(PathTo("page"));
    ASSERT_EQ(QProcess::execute("pdftoppm", {"-r", "192", "-png", "-singlefile",
                                             QString::fromStdString(PathTo("plan.pdf")), page}),
              0);
    const QImage paper(page + ".png");
    const QImage picture(QString::fromStdString(PathTo("plan.png")));
    EXPECT_EQ(paper.size(), picture.size());
    const QRect on_paper = InkOf(paper);
    const QRect in_picture = InkOf(picture);
    EXPECT_NEAR(on_paper.left(), in_picture.left(), 3);
    EXPECT_NEAR(on_paper.top(), in_picture.top(), 3);
    EXPECT_NEAR(on_paper.right(), in_picture.right(), 3);
    EXPECT_NEAR(on_paper.bottom(), in_picture.bottom(), 3);
    QProcess info;
    info.start("pdfinfo", {QString::fromStdString(PathTo("plan.pdf"))});
    ASSERT_TRUE(info.waitForFinished(kPatienceMilliseconds));
    EXPECT_TRUE(info.readAll().contains("Title:           Panel plan"));
}

TEST_F(PlanExport, ThePlanInAnSvgIsTitledAndFallsBackOnASansSerifFace) {
    ASSERT_TRUE(ExportPlan(PathTo("plan.SVG"), PlanView::Window));
    const std::string svg = ReadBytes(PathTo("plan.SVG"));
    EXPECT_NE(svg.find("<title>Panel plan</title>"), std::string::npos);
    EXPECT_NE(svg.find("font-family=\"Arial, sans-serif\""), std::string::npos);
    EXPECT_NE(svg.find("width=\"185.208mm\" height=\"185.208mm\""),
              std::string::npos);  // 700 of 96 to the inch
}

TEST_F(PlanExport, ARefusedPlanLeavesNoFile) {
    PreviewRecord.CrosscutAngle = 60;
    EXPECT_FALSE(ExportPlan(PathTo("plan.png"), PlanView::Window));
    EXPECT_FALSE(std::filesystem::exists(PathTo("plan.png")));
    EXPECT_THAT(Messages(), testing::ElementsAre("Invalid Pillar Dimensions"));
}

TEST_F(PlanExport, FailuresAreRunTimeErrors) {
    EXPECT_EQ(RaisedError([&] { ExportPlan(PathTo("missing/plan.svg"), PlanView::Window); }), 76);
    std::filesystem::create_directory(PathTo("folder.png"));
    EXPECT_EQ(RaisedError([&] { ExportPlan(PathTo("folder.png"), PlanView::Window); }), 75);
    std::filesystem::create_symlink("/dev/full", PathTo("full.svg"));
    EXPECT_EQ(RaisedError([&] { ExportPlan(PathTo("full.svg"), PlanView::Window); }), 75);
    EXPECT_EQ(RaisedError([&] { ExportPlan(PathTo("plan.gif"), PlanView::Window); }), 5);
    EXPECT_EQ(RaisedError([&] { ExportPlan(PathTo("plan"), PlanView::Window); }), 5);
}

}  // namespace
}  // namespace tarvokol

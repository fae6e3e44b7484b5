// SPDX-License-Identifier: GPL-3.0-or-later
// The curve table as picture files.
#include "qt/charts/chart_export.h"

#include <QProcess>
#include <filesystem>

#include "qt/session/picture_file.h"
#include "tests/support/curve_fixture.h"
#include "tests/support/ink.h"
#include "tests/support/waiting.h"

namespace tarvokol {
namespace {

class ChartExport : public CurveTest {
  protected:
    ChartExport() { FillCurves(3, 51); }
};

TEST_F(ChartExport, WritesPngWithTheCurvesInTheirColours) {
    ExportChart(GraphFamily::Stability, 1, PathTo("curves.png"));
    const QImage image(QString::fromStdString(PathTo("curves.png")));
    ASSERT_EQ(image.size(), QSize(1800, 1260));
    EXPECT_EQ(image.pixelColor(2, 2), QColor(Qt::white));
    long blue = 0;
    long red = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            blue += image.pixelColor(x, y) == QColor(0, 0, 255) ? 1 : 0;
            red += image.pixelColor(x, y) == QColor(205, 92, 92) ? 1 : 0;
        }
    EXPECT_GT(blue, 4000);
    EXPECT_GT(red, 4000);
}

TEST_F(ChartExport, WritesSvgWithTheTextsAsTexts) {
    ExportChart(GraphFamily::Stability, 1, PathTo("curves.SVG"));
    const std::string svg = ReadBytes(PathTo("curves.SVG"));
    EXPECT_NE(svg.find("<svg"), std::string::npos);
    for (const char* text : {"Tarvo Panel Stability Evaluation - KOL", "Depth of Cover (ft)",
                             "Stability Factor", "Overall", "Webs ONLY", "Barrier Pillar"})
        EXPECT_NE(svg.find(text), std::string::npos) << text;
}

TEST_F(ChartExport, SizingPicturesCarryTheSizingTitles) {
    FillCurves(1, 51);
    SizingCurveKind = 1;
    ExportChart(GraphFamily::Sizing, 1, PathTo("barrier.svg"));
    const std::string svg = ReadBytes(PathTo("barrier.svg"));
    EXPECT_NE(svg.find("Barrier Width (ft)"), std::string::npos);
    EXPECT_NE(svg.find(">Barrier Width<"), std::string::npos);
    EXPECT_EQ(svg.find("Overall"), std::string::npos);
}

TEST_F(ChartExport, WritesPdfOfOnePage) {
    ExportChart(GraphFamily::Stability, 0, PathTo("curves.pdf"));
    const std::string pdf = ReadBytes(PathTo("curves.pdf"));
    EXPECT_EQ(pdf.substr(0, 5), "%PDF-");
    EXPECT_NE(pdf.find("/Count 1"), std::string::npos);
    EXPECT_NE(pdf.find("/MediaBox [0 0 540.000000 378.000000]"), std::string::npos);
}

// 7.5 by 5.25 inches, titled, with a face that every viewer has.
TEST_F(ChartExport, AnSvgTellsItsSizeAndTitle) {
    ExportChart(GraphFamily::Stability, 1, PathTo("curves.svg"));
    const std::string svg = ReadBytes(PathTo("curves.svg"));
    EXPECT_NE(svg.find("width=\"190.5mm\" height=\"133.35mm\""), std::string::npos);
    EXPECT_NE(svg.find("viewBox=\"0 0 720 504\""), std::string::npos);
    EXPECT_NE(svg.find("<title>Tarvo Panel Stability Evaluation - KOL</title>"), std::string::npos);
    EXPECT_NE(svg.find("font-family=\"Arial, sans-serif\""), std::string::npos);
    EXPECT_EQ(svg.find("font-family=\"Arial\""), std::string::npos);
}

TEST_F(ChartExport, ThePdfShowsWhatThePngShowsUnderItsTitle) {
    ExportChart(GraphFamily::Stability, 1, PathTo("curves.pdf"));
    ExportChart(GraphFamily::Stability, 1, PathTo("curves.png"));
    const QString pdf = QString::fromStdString(PathTo("curves.pdf"));
    const QString page = QString::fromStdString(PathTo("page"));
    ASSERT_EQ(QProcess::execute("pdftoppm", {"-r", "240", "-png", "-singlefile", pdf, page}), 0);
    EXPECT_EQ(QImage(page + ".png").size(), QSize(1800, 1260));
    const QRect paper = InkOf(QImage(page + ".png"));
    const QRect picture = InkOf(QImage(QString::fromStdString(PathTo("curves.png"))));
    EXPECT_NEAR(paper.left(), picture.left(), 6);
    EXPECT_NEAR(paper.top(), picture.top(), 6);
    EXPECT_NEAR(paper.right(), picture.right(), 6);
    EXPECT_NEAR(paper.bottom(), picture.bottom(), 6);
    QProcess info;
    info.start("pdfinfo", {pdf});
    ASSERT_TRUE(info.waitForFinished(kPatienceMilliseconds));
    EXPECT_TRUE(info.readAll().contains("Title:           Tarvo Panel Stability Evaluation - KOL\n"));
}

TEST_F(ChartExport, RefusesOtherFormats) {
    EXPECT_TRUE(IsPicture("a.Png"));
    EXPECT_FALSE(IsPicture("a.bmp"));
    EXPECT_EQ(RaisedError([this] { ExportChart(GraphFamily::Stability, 0, PathTo("curves.bmp")); }), 5);
    EXPECT_FALSE(std::filesystem::exists(PathTo("curves.bmp")));
}

TEST_F(ChartExport, WriteFailuresAreErrorsOfTheFileSystem) {
    EXPECT_EQ(RaisedError([this] { ExportChart(GraphFamily::Stability, 0, PathTo("gone/curves.png")); }), 76);
    std::filesystem::create_symlink("/dev/full", Folder / "full.svg");
    EXPECT_EQ(RaisedError([this] { ExportChart(GraphFamily::Stability, 0, PathTo("full.svg")); }), 75);
}

}  // namespace
}  // namespace tarvokol

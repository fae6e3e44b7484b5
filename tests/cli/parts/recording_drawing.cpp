// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/cli/parts/recording_drawing.h"

#include <filesystem>
#include <fstream>

#include "cli/commands/commands.h"
#include "cli/line/command_line.h"

namespace tarvokol::cli {
namespace {

class RecordingSheet : public RowSheet {
  public:
    explicit RecordingSheet(RecordingDrawing& recording, std::string path)
        : recording_(recording), path_(std::move(path)) {}

    void AddTitles(const std::vector<std::string>& titles) override { recording_.Titles = titles; }
    void AddNumber(double value) override { row_.emplace_back(value); }
    void AddText(const std::string& text) override { row_.emplace_back(text); }
    void EndRow() override {
        ++recording_.RowCount;
        if (recording_.KeepRows) recording_.Rows.push_back(row_);
        row_.clear();
    }
    void Finish() override {
        recording_.Finished = true;
        std::ofstream(path_) << "workbook";
    }

  private:
    RecordingDrawing& recording_;
    std::string path_;
    SheetRow row_;
};

class RecordingWorkbook : public SpreadsheetWriter {
  public:
    explicit RecordingWorkbook(RecordingDrawing& recording) : recording_(recording) {}

    void BeginWorkbook() override { recording_.Calls.emplace_back("begin"); }
    void SetCell(const std::string& address, double value) override {
        recording_.Calls.push_back(address + " number " + std::to_string(value));
    }
    void SetCell(const std::string& address, const std::string& text) override {
        recording_.Calls.push_back(address + " " + text);
    }
    void SetNote(const std::string& text) override { recording_.Calls.push_back("note " + text); }
    void ShowWorkbook() override { recording_.Calls.emplace_back("show"); }

  private:
    RecordingDrawing& recording_;
};

// What is drawn grows beside its place, under a name of which the extension alone says something.
std::string KindOf(const std::string& path) {
    return std::filesystem::path(path).extension().string();
}

}  // namespace

void RecordingDrawing::PrintToPdf(const std::string& path, const std::string& text) {
    Calls.push_back("print " + KindOf(path) + ": " + text);
}

void RecordingDrawing::DrawCurves(const std::string& path, GraphFamily family, int index) {
    Calls.push_back("curves " + KindOf(path) +
                    (family == GraphFamily::Stability ? " stability " : " sizing ") + std::to_string(index));
}

std::unique_ptr<SpreadsheetWriter> RecordingDrawing::CurveWorkbook(const std::string& path) {
    Calls.push_back("workbook " + KindOf(path));
    return std::make_unique<RecordingWorkbook>(*this);
}

void RecordingDrawing::DrawPlan(const std::string& path, bool preview) {
    Calls.push_back("plan " + KindOf(path) + (preview ? " preview" : " window"));
}

void RecordingDrawing::DrawStudy(const std::string& path, const CurvesPicture& picture) {
    Kinds.push_back(KindOf(path));
    Curves.push_back(picture);
}

void RecordingDrawing::DrawStudy(const std::string& path, const MapPicture& picture) {
    Kinds.push_back(KindOf(path));
    Maps.push_back(picture);
}

void RecordingDrawing::DrawStudy(const std::string& path, const SpreadPicture& picture) {
    Kinds.push_back(KindOf(path));
    Spreads.push_back(picture);
}

void RecordingDrawing::DrawStudy(const std::string& path, const FitPicture& picture) {
    Kinds.push_back(KindOf(path));
    Fits.push_back(picture);
}

void RecordingDrawing::DrawStudy(const std::string& path, const TornadoPicture& picture) {
    Kinds.push_back(KindOf(path));
    Tornados.push_back(picture);
}

std::unique_ptr<RowSheet> RecordingDrawing::RowWorkbook(const std::string& path) {
    Kinds.push_back(KindOf(path));
    return std::make_unique<RecordingSheet>(*this, path);
}

RecordingDrawing& TheRecording() {
    static RecordingDrawing recording;
    return recording;
}

Drawing& TheDrawing() {
    return TheRecording();
}

DrawnTest::DrawnTest() {
    TheRecording() = RecordingDrawing();
    WriteProject("p.TKL",
                 "10\r\n100\r\n10\r\n10\r\n20\r\n 5 \r\n90\r\n1000000\r\n900\r\n162\r\n21\r\n1.6\r\n2\r\n0");
}

std::string DrawnTest::WriteProject(const std::string& name, const std::string& figures, int units,
                                    const std::string& title) const {
    WriteBytes(PathTo(name), "TARVOKOL_101\r\n " + std::to_string(units) + " \r\n" + title +
                                 "\r\n##StartDesc##\r\n##EndDesc##\r\n" + figures + "\r\n");
    return PathTo(name);
}

DrawnTest::Words DrawnTest::Into(const std::string& output, Words command, const Words& more) const {
    command.insert(command.end(), {PathTo("p.TKL"), "--quiet", "--force", "-o", PathTo(output)});
    command.insert(command.end(), more.begin(), more.end());
    return command;
}

int DrawnTest::Run(const Words& words) {
    return RunWords(AllCommands(), words, Host);
}

std::string DrawnTest::RefusalOf(const Words& words, int status) {
    testing::internal::CaptureStderr();
    EXPECT_EQ(Run(words), status);
    std::string told = testing::internal::GetCapturedStderr();
    EXPECT_TRUE(told.ends_with('\n'));
    if (!told.empty()) told.pop_back();
    return told;
}

}  // namespace tarvokol::cli

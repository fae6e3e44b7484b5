// SPDX-License-Identifier: GPL-3.0-or-later
// The studies that the window keeps in files of their own, and opens again.
#include <QFileInfo>
#include <QStatusBar>
#include <QTabWidget>

#include "core/files/file_replacement.h"
#include "core/files/whole_file.h"
#include "core/runtime/run_time_error.h"
#include "core/statistics/study_refusal.h"
#include "qt/session/qt_text.h"
#include "studies/pages/risk_page.h"
#include "studies/pages/sheet_model.h"
#include "studies/pages/table_page.h"
#include "studies/pages/width_line.h"
#include "studies/window/notice_bar.h"
#include "studies/window/studies_window.h"
#include "studies/window/window_memory.h"

namespace tarvokol {

KeptStudy StudiesWindow::StudyNow(const std::string& path) const {
    KeptStudy study;
    study.project = ProjectSeenFrom(path, model_.Path());
    study.title = model_.Document().title;
    study.panel = model_.ProjectPanel();
    study.page = static_cast<StudyPages>(pages_->currentIndex());
    study.ranges = model_.Requests().ranges;
    study.map = MapRequestOf(model_.Requests().map, study.ranges);
    study.risk = risk_->Plan();
    study.width = risk_->Width().Question();
    study.columns = table_->Sheet().Sheet().Titles();
    study.rows = table_->Sheet().Sheet().OwnRows();
    for (const AskedDesign& design : model_.Requests().designs)
        study.designs.push_back({design.name, *design.panel});
    return study;
}

// What would not be read again is not kept: a figure of a page that is none.
void StudiesWindow::KeepStudyIn(const std::string& path) {
    const std::string text = TextOfStudy(StudyNow(path));
    try {
        StudyOfBytes(text, FromQt(QFileInfo(ToQt(path)).fileName()));
        ReplaceWholeFile(path, text);
    } catch (const KeptStudyFault& fault) {
        return TellFault("the study is not kept", fault.what());
    } catch (const RunTimeError& error) {
        return TellFault(path, error.text);
    }
    RememberProject(ToQt(path));
    statusBar()->showMessage("Kept: " + ToQt(path), 5000);
}

// Why its project cannot be read, empty where it is open. A study without one stands for a project of no file.
std::string StudiesWindow::OpenProjectOf(const KeptStudy& study, const std::string& project) {
    std::string fault;
    try {
        if (!project.empty()) {
            model_.Open(project);
            return "";
        }
    } catch (const RunTimeError& error) {
        fault = error.text;
    } catch (const StudyRefusal& refusal) {
        fault = refusal.what();
    }
    model_.New(static_cast<std::int16_t>(study.panel.units));
    return fault;
}

void StudiesWindow::ShowStudy(const KeptStudy& study) {
    PageRequests requests{study.ranges, ChoiceOf(study.map), study.risk, study.width, {}};
    for (const NamedPanel& design : study.designs)
        requests.designs.push_back({design.name, std::make_shared<const Panel>(design.panel)});
    model_.BeginStudy(requests, study.panel, study.title);
    if (!study.columns.empty()) table_->Begin(CsvOfTable(study), "the study's table");
    const bool is_width = study.page == StudyPages::Width;
    pages_->setCurrentIndex(static_cast<int>(is_width ? StudyPages::Risk : study.page));
}

// `held` is the project as it was opened.
void StudiesWindow::TellOfStudysProject(const std::string& project, const std::string& fault,
                                        const KeptStudy& study, const NamedPanel& held) {
    const std::string changes = ChangesSince(study.panel, held.panel);
    const QString kept = " The figures are those that the study keeps.";
    if (!fault.empty())
        notice_->Show("The study's project " + ToQt(project) + ": " + ToQt(fault) + "." + kept);
    else if (!project.empty() && !changes.empty())
        notice_->Show("The study's project has changed since: " + ToQt(changes) + "." + kept,
                      {{"Take Those of the File",
                        [this, held] { model_.TakePanel(held.panel, held.name, "Figures of the file"); }}});
}

void StudiesWindow::OpenStudyFile(const std::string& path) {
    KeptStudy study;
    try {
        study = StudyOfBytes(ReadWholeFile(path, kLargestStudy), path);
    } catch (const KeptStudyFault& fault) {
        return TellFault("", fault.what());
    } catch (const RunTimeError& error) {
        return TellFault(path, error.text);
    }
    notice_->Dismiss();
    const std::string project = ProjectPathOf(study, path);
    const std::string fault = OpenProjectOf(study, project);
    const NamedPanel held{model_.Document().title, model_.ProjectPanel()};
    ShowStudy(study);
    WatchFile();
    RememberProject(ToQt(path));
    TellOfStudysProject(project, fault, study, held);
}

}  // namespace tarvokol

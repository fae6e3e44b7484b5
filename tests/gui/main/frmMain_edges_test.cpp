// SPDX-License-Identifier: GPL-3.0-or-later
// The main window at the edges of its rules: the first and the last recent file, drops that it must refuse, an empty
// project's preview, and its binding while no window is there.
#include <QDropEvent>
#include <QLabel>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QSvgWidget>
#include <QToolBar>

#include "core/report/report_builder.h"
#include "core/settings/recent_file_settings.h"
#include "desktop/base/form_registry.h"
#include "tests/support/main_window_fixture.h"
#include "tests/support/raised_error.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class MainWindowEdges : public MainWindowTest {
  protected:
    // A file is dragged over the window, then the data dropped there; true if the window took the drop.
    static bool Drop(QMimeData& data, bool enabled = true) {
        frmMain& form = frmMain::Instance();
        QMimeData file;
        QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &FileData(file, "/a.TKL"), Qt::LeftButton,
                              Qt::NoModifier);
        QCoreApplication::sendEvent(&form, &enter);
        EXPECT_TRUE(enter.isAccepted());
        form.setEnabled(enabled);
        QDropEvent drop(QPointF(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&form, &drop);
        return drop.isAccepted();
    }
    static QMimeData& FileData(QMimeData& data, const std::string& path) {
        data.setUrls({QUrl::fromLocalFile(ToQt(path))});
        return data;
    }
};

TEST_F(MainWindowEdges, ThereAreFourRecentFilesAndNoOther) {
    Start();
    for (int index = 1; index <= 4; ++index) {
        Platform.MainWindow->SetRecentCaption(index, "/p/" + std::to_string(index) + ".TKL");
        EXPECT_EQ(Platform.MainWindow->RecentCaption(index), "/p/" + std::to_string(index) + ".TKL");
    }
    for (const int index : {0, 5})
        EXPECT_EQ(RaisedError([&] { Platform.MainWindow->SetRecentCaption(index, "x"); }), 340) << index;
}

TEST_F(MainWindowEdges, OneRecentFileIsEnoughForTheLineAboveThem) {
    for (const int only : {1, 4}) {
        MaxLastFiles = static_cast<int16_t>(only);
        for (int index = 1; index <= 4; ++index) {
            LastFile[static_cast<size_t>(index)] = index == only ? "a.TKL" : "";
            LastFileLong[static_cast<size_t>(index)] = index == only ? "/p/a.TKL" : "";
        }
        Start();
        EXPECT_TRUE(Item("mnuFileArray_0").isVisible()) << only;
        UnloadAllForms();
        RunEvents();
    }
}

TEST_F(MainWindowEdges, APathIsShownWholeHoweverLong) {
    Start();
    for (const int letters : {45, 46, 200}) {
        const std::string path = "/home/engineer/" + std::string(static_cast<std::size_t>(letters), 'p');
        Platform.MainWindow->SetRecentCaption(1, path);
        EXPECT_EQ(FromQt(Item("mnuFileArray_1").text()), path);
    }
}

TEST_F(MainWindowEdges, TheCaptionShowsEveryCharacterOfAFilesName) {
    frmMain& window = Start();
    Platform.MainWindow->SetCaption("TARVO-KOL: /panels/a[*]b.TKL*");
    EXPECT_EQ(window.windowHandle()->title().section(" - ", 0, 0), "TARVO-KOL: /panels/a[*]b.TKL*");
}

TEST_F(MainWindowEdges, ADroppedFileIsTakenAtOnceAndOpenedAfterTheDrop) {
    Start();
    const std::string path = WriteProject("dropped.TKL");
    ProjectSaved = 255;
    FileNew(true, true);
    QMimeData data;
    EXPECT_TRUE(Drop(FileData(data, path)));
    EXPECT_EQ(ProjectFileName, "Untitled");
    RunEvents();
    EXPECT_EQ(ProjectFileName, path);
}

TEST_F(MainWindowEdges, ADropOfAnythingButOneFileIsLeftAlone) {
    Start();
    QMimeData nothing;
    QMimeData address;
    address.setUrls({QUrl("https://example.org/a.TKL")});
    QMimeData two;
    two.setUrls({QUrl::fromLocalFile("/a.TKL"), QUrl::fromLocalFile("/b.TKL")});
    for (QMimeData* data : {&nothing, &address, &two}) EXPECT_FALSE(Drop(*data));
    RunEvents();
    EXPECT_EQ(ProjectFileName, "Untitled");
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(MainWindowEdges, AWindowThatWaitsForADialogTakesNoDrop) {
    Start();
    const std::string path = WriteProject("dropped.TKL");
    FileNew(true, true);
    QMimeData data;
    EXPECT_FALSE(Drop(FileData(data, path), false));
    RunEvents();
    EXPECT_EQ(ProjectFileName, "Untitled");
}

TEST_F(MainWindowEdges, ThePreviewOfAnEmptyProjectIsAskedFor) {
    frmMain& form = Start();
    Host.Messages.Answers = {7};
    Choose(form, "mnuFileItem_7");
    EXPECT_THAT(Messages(), ElementsAre("Current file is empty. Continue?"));
    EXPECT_EQ(FindForm("frmPreview"), nullptr);
    bool shown = false;
    WhenShown("frmPreview", [&](FormBase& preview) {
        shown = true;
        preview.Unload();
    });
    Host.Messages.Answers = {6};
    Choose(form, "mnuFileItem_7");
    EXPECT_TRUE(shown);
}

TEST_F(MainWindowEdges, ThePreviewShowsTheInputsOfTheProject) {
    frmMain& form = Start();
    EnterProject();
    ProjectTitle = "North ridge";
    OutputBuffers[0].clear();
    WhenShown("frmPreview", [](FormBase& preview) { preview.Unload(); });
    Choose(form, "mnuFileItem_7");
    EXPECT_THAT(OutputBuffers[0], HasSubstr("North ridge"));
    OutputBuffers[0].clear();
    Choose(form, "mnuCalcItem_0");
    EXPECT_THAT(OutputBuffers[0], HasSubstr("North ridge"));
    FindForm("frmResTxtPlt")->Unload();
}

// The parameters take a moment to come up.
TEST_F(MainWindowEdges, ThePointerWaitsWhileTheParametersLoad) {
    frmMain& form = Start();
    bool waited = false;
    QObject::connect(&form.History(), &QPlainTextEdit::textChanged, [&] {
        const QCursor* pointer = QApplication::overrideCursor();
        waited = pointer != nullptr && pointer->shape() == Qt::WaitCursor;
    });
    Choose(form, "mnuEditItem_1");
    EXPECT_THAT(TextOf(form, "txtMain"), HasSubstr("Editing Project Parameters"));
    EXPECT_TRUE(waited);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    FindForm("frmTARVOParm")->Unload();
}

TEST_F(MainWindowEdges, TheHistoryShowsItsLastLine) {
    frmMain& form = Start();
    for (int line = 0; line < 30; ++line) LogMessage("line");
    const QScrollBar& bar = *form.History().verticalScrollBar();
    ASSERT_GT(bar.maximum(), 20);
    EXPECT_TRUE(form.History().textCursor().atEnd());
    EXPECT_TRUE(form.History().viewport()->rect().contains(form.History().cursorRect().center()));
}

TEST_F(MainWindowEdges, WithoutAWindowTheBindingMakesNone) {
    Platform.MainWindow->ApplySettings();
    Platform.MainWindow->ApplyHistoryFont();
    EXPECT_FALSE(frmMain::IsLoaded());
}

TEST_F(MainWindowEdges, TheFontOfTheHistoryComesFromTheSettingsByTheBindingAndAtTheStart) {
    frmMain& form = Start();
    DisplayFontName = "DejaVu Sans";
    DisplayFontSize = 15;
    DisplayFontBold = DisplayFontItalic = 0;
    Platform.MainWindow->ApplyHistoryFont();
    EXPECT_EQ(form.History().font().family(), "DejaVu Sans");
    EXPECT_EQ(form.History().font().pointSizeF(), 15);
    EXPECT_FALSE(form.History().font().bold());
    EXPECT_FALSE(form.History().font().italic());
    DisplayFontSize = 16;
    StepsOfMainWindow().ApplyHistoryFont();
    EXPECT_EQ(form.History().font().pointSizeF(), 16);
}

TEST_F(MainWindowEdges, TheVersionTakesItsPlaceBeforeItsText) {
    frmMain& form = Start();
    auto& label = Find<QLabel>(form, "lblVer");
    label.setText("a text that is longer than the version");
    label.resize(100, label.height());
    PlaceVersionLabel(form, form.Toolbar());
    EXPECT_EQ(label.x(), form.centralWidget()->width() - 100);
    EXPECT_EQ(label.text(), "1.3.02 ");
    EXPECT_EQ(label.width(), label.sizeHint().width());
    EXPECT_LT(label.width(), 100);
}

TEST_F(MainWindowEdges, ThePictureIsShownInItsOwnSize) {
    frmMain& form = Start();
    form.Logo().resize(10, 10);
    CenterLogo(form);
    EXPECT_EQ(form.Logo().size(), QSize(460, 280));
}

TEST_F(MainWindowEdges, TheHistoryIsBlackOnGreyOnADarkDesktopToo) {
    frmMain& form = Start();
    QPalette dark = form.palette();
    dark.setColor(QPalette::Base, Qt::black);
    dark.setColor(QPalette::Text, Qt::white);
    form.History().setPalette(dark);
    LayoutMainWindow(form);
    EXPECT_EQ(form.History().palette().color(QPalette::Base), QColor(192, 192, 192));
    EXPECT_EQ(form.History().palette().color(QPalette::Text), QColor(0, 0, 0));
}

TEST_F(MainWindowEdges, AFontWithoutASizeKeepsTheWindowsOne) {
    frmMain& form = Start();
    DisplayFontName = "DejaVu Sans";
    DisplayFontSize = 0;
    ApplyHistoryFont();
    EXPECT_EQ(form.History().font().pointSizeF(), QApplication::font().pointSizeF());
}

TEST_F(MainWindowEdges, TheToolbarSpansTheWindow) {
    frmMain& form = Start();
    form.resize(650, 500);
    const QToolBar& toolbar = form.Toolbar();
    EXPECT_EQ(toolbar.geometry(), QRect(0, 0, form.centralWidget()->width(), toolbar.sizeHint().height()));
}

}  // namespace
}  // namespace tarvokol

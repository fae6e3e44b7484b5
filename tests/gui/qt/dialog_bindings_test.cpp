// SPDX-License-Identifier: GPL-3.0-or-later
// Message boxes and common dialogs in all their styles, and the window that they stand above.
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFontDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QTreeView>
#include <algorithm>

#include "qt/session/message_box_style.h"
#include "qt/session/owner_window.h"
#include "qt/session/qt_common_dialogs.h"
#include "qt/session/qt_message_box.h"
#include "tests/support/gui_fixture.h"

namespace tarvokol {
namespace {

class DialogBindings : public GuiTest {
  protected:
    // Looks at the dialog of a request and cancels it.
    void AtOpen(const FileDialogRequest& request, std::function<void(QFileDialog&)> look) {
        QtCommonDialogs dialogs(nullptr);
        WhenDialogShows<QFileDialog>([look](QFileDialog& dialog) {
            look(dialog);
            dialog.reject();
        });
        EXPECT_EQ(RaisedError([&] { dialogs.ShowOpen(request); }), 32755);
    }
    void AtSave(const FileDialogRequest& request, std::function<void(QFileDialog&)> look) {
        QtCommonDialogs dialogs(nullptr);
        WhenDialogShows<QFileDialog>([look](QFileDialog& dialog) {
            look(dialog);
            dialog.reject();
        });
        EXPECT_EQ(RaisedError([&] { dialogs.ShowSave(request); }), 32755);
    }
};

TEST_F(DialogBindings, StylesNameButtonsIconAndDefault) {
    using Box = QMessageBox;
    struct Style {
        int style;
        Box::StandardButtons buttons;
        Box::Icon icon;
        Box::StandardButton pressed_by_enter;
    };
    const Style styles[] = {{0, Box::Ok, Box::NoIcon, Box::Ok},
                            {3, Box::Yes | Box::No | Box::Cancel, Box::NoIcon, Box::Yes},
                            {4, Box::Yes | Box::No, Box::NoIcon, Box::Yes},
                            {5, Box::Retry | Box::Cancel, Box::NoIcon, Box::Retry},
                            {16, Box::Ok, Box::Critical, Box::Ok},
                            {21, Box::Retry | Box::Cancel, Box::Critical, Box::Retry},
                            {35, Box::Yes | Box::No | Box::Cancel, Box::Question, Box::Yes},
                            {36, Box::Yes | Box::No, Box::Question, Box::Yes},
                            {48, Box::Ok, Box::Warning, Box::Ok},
                            {64, Box::Ok, Box::Information, Box::Ok},
                            {256, Box::Ok, Box::NoIcon, Box::Ok},
                            {259, Box::Yes | Box::No | Box::Cancel, Box::NoIcon, Box::No},
                            {261, Box::Retry | Box::Cancel, Box::NoIcon, Box::Cancel},
                            {292, Box::Yes | Box::No, Box::Question, Box::No}};
    for (const Style& style : styles) {
        EXPECT_EQ(ButtonsOfStyle(style.style), style.buttons) << style.style;
        EXPECT_EQ(IconOfStyle(style.style), style.icon) << style.style;
        EXPECT_EQ(DefaultButtonOfStyle(style.style), style.pressed_by_enter) << style.style;
    }
}

TEST_F(DialogBindings, EveryButtonHasItsNumber) {
    EXPECT_EQ(ResultOfButton(QMessageBox::Ok), 1);
    EXPECT_EQ(ResultOfButton(QMessageBox::Cancel), 2);
    EXPECT_EQ(ResultOfButton(QMessageBox::Retry), 4);
    EXPECT_EQ(ResultOfButton(QMessageBox::Yes), 6);
    EXPECT_EQ(ResultOfButton(QMessageBox::No), 7);
    EXPECT_EQ(ResultOfButton(QMessageBox::NoButton), 2);
}

TEST_F(DialogBindings, AMessageIsPlainTextThatCanBeCopied) {
    WhenDialogShows<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.textInteractionFlags(), Qt::TextSelectableByMouse);
        EXPECT_EQ(box.text(), "a <b>\nc");
        box.button(QMessageBox::Ok)->click();
    });
    EXPECT_EQ(QtMessageBox().Show({"a <b>\r\nc", 0, "Title", "", 0}), 1);
}

// 140 pixels are the buttons and the icon of the title bar.
TEST_F(DialogBindings, ABoxIsAsWideAsItsTitle) {
    const QString title(28, 'W');
    WhenDialogShows<QMessageBox>([&](QMessageBox& box) {
        QFont bold = box.font();
        bold.setBold(true);
        const int wanted = QFontMetrics(bold).horizontalAdvance(title) + 140;
        const QMargins margins = box.layout()->contentsMargins();
        EXPECT_EQ(box.width(), wanted + margins.left() + margins.right());
        box.button(QMessageBox::Ok)->click();
    });
    QtMessageBox().Show({"No", 0, FromQt(title), "", 0});
}

TEST_F(DialogBindings, F1NeedsBothAHelpFileAndAContext) {
    for (const BoxRequest& request :
         {BoxRequest{"Text", 0, "Title", "/opt/TARVOKOL.CHM", 0}, BoxRequest{"Text", 0, "Title", "", 3100}}) {
        WhenDialogShows<QMessageBox>([](QMessageBox& box) {
            QTest::keyClick(&box, Qt::Key_F1);
            box.button(QMessageBox::Ok)->click();
        });
        QtMessageBox().Show(request);
        EXPECT_TRUE(Host.Help.Calls.empty());
    }
}

// Names, sizes, kinds and times are shown whole, in a dialog of its first size and in a larger one.
TEST_F(DialogBindings, TheColumnsOfAFileDialogShowAllThatStandsInThem) {
    WriteBytes(PathTo("Ridge_panel.TKL"), std::string(123456, 'x'));
    WriteBytes(PathTo("b.TKL"), "x");
    FileDialogRequest request;
    request.start_folder = Folder.string();
    AtOpen(request, [](QFileDialog& dialog) {
        auto& view = *dialog.findChild<QTreeView*>("treeView");
        ASSERT_TRUE(view.isVisible());
        EXPECT_TRUE(WaitUntil([&] { return view.model()->rowCount(view.rootIndex()) == 2; }));
        const auto whole = [&] {
            for (int column = 0; column < view.header()->count(); ++column) {
                const int needed = std::max(static_cast<QAbstractItemView&>(view).sizeHintForColumn(column),
                                            view.header()->sectionSizeHint(column));
                if (view.columnWidth(column) < needed) return false;
            }
            return view.header()->length() <= view.viewport()->width();
        };
        EXPECT_TRUE(WaitUntil(whole));
        dialog.resize(780, 600);
        EXPECT_TRUE(
            WaitUntil([&] { return whole() && view.header()->length() == view.viewport()->width(); }));
    });
}

TEST_F(DialogBindings, OpenAndSaveDifferInWhatTheyTake) {
    FileDialogRequest request;
    request.start_folder = Folder.string();
    request.title = "Open a Project";
    AtOpen(request, [](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Open a Project");
        EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptOpen);
        EXPECT_EQ(dialog.fileMode(), QFileDialog::AnyFile);
        EXPECT_EQ(dialog.defaultSuffix(), "");
        EXPECT_TRUE(dialog.testOption(QFileDialog::DontConfirmOverwrite));
    });
    request.title = "";
    request.default_extension = "TKL";
    request.flags = dialog_flag::OverwritePrompt + dialog_flag::PathAndFileMustExist;
    AtSave(request, [](QFileDialog& dialog) {
        EXPECT_NE(dialog.windowTitle(), "");
        EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
        EXPECT_EQ(dialog.fileMode(), QFileDialog::ExistingFile);
        EXPECT_EQ(dialog.defaultSuffix(), "TKL");
        EXPECT_FALSE(dialog.testOption(QFileDialog::DontConfirmOverwrite));
    });
}

TEST_F(DialogBindings, AStartThatIsAFileStandsForItsFolder) {
    std::filesystem::create_directory(Folder / "projects");
    FileDialogRequest request;
    request.start_folder = PathTo("projects");
    AtOpen(request, [&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.directory().absolutePath(), ToQt(PathTo("projects")));
    });
    request.start_folder = PathTo("projects/ridge.TKL");
    AtOpen(request, [&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.directory().absolutePath(), ToQt(PathTo("projects")));
    });
}

TEST_F(DialogBindings, TheFilterOfANumberBeyondTheListIsTheNearest) {
    FileDialogRequest request;
    request.start_folder = Folder.string();
    request.filter = "All Files (*.*)|*.*|Text (*.txt;*.csv)|*.txt;*.csv|PDF Files (*.pdf)|*.pdf";
    const std::pair<int, QString> expected[] = {{-1, "All Files (*)"},    {0, "All Files (*)"},
                                                {1, "All Files (*)"},     {2, "Text (*.txt *.csv)"},
                                                {3, "PDF Files (*.pdf)"}, {4, "PDF Files (*.pdf)"}};
    for (const auto& pair : expected) {
        request.filter_index = pair.first;
        AtOpen(request, [&](QFileDialog& dialog) { EXPECT_EQ(dialog.selectedNameFilter(), pair.second); });
    }
}

TEST_F(DialogBindings, FiltersComeInPairs) {
    EXPECT_EQ(NameFilters("All Files (*.*)|*.*|Text|*.txt;*.log"),
              QStringList({"All Files (*)", "Text (*.txt *.log)"}));
    EXPECT_EQ(NameFilters("Text|*.txt|Rest"), QStringList({"Text (*.txt)"}));
    EXPECT_EQ(NameFilters("Text"), QStringList());
    EXPECT_EQ(NameFilters(""), QStringList());
}

TEST_F(DialogBindings, FontsKeepTheirStylesBothWays) {
    for (const bool bold : {false, true})
        for (const bool italic : {false, true}) {
            const QFont font = FontOfChoice({"DejaVu Serif", 12.5F, bold, italic});
            EXPECT_EQ(font.family(), "DejaVu Serif");
            EXPECT_EQ(font.pointSizeF(), 12.5);
            EXPECT_EQ(font.bold(), bold);
            EXPECT_EQ(font.italic(), italic);
            const FontChoice choice = ChoiceOfFont(font);
            EXPECT_EQ(choice.name, "DejaVu Serif");
            EXPECT_EQ(choice.size, 12.5F);
            EXPECT_EQ(choice.bold, bold);
            EXPECT_EQ(choice.italic, italic);
        }
    EXPECT_EQ(FontOfChoice({"DejaVu Serif", 0, false, false}).pointSizeF(),
              QFont("DejaVu Serif").pointSizeF());
    EXPECT_EQ(FontOfChoice({"DejaVu Serif", 0.5F, false, false}).pointSizeF(), 0.5);
}

TEST_F(DialogBindings, APrinterIsChosenOrPrintedWithOnTheDeviceGiven) {
    QPrinter printer;
    QtCommonDialogs dialogs([&]() -> QPrinter& { return printer; });
    WhenDialogShows<QPrintDialog>([&](QPrintDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Print");
        EXPECT_EQ(dialog.printer(), &printer);
        EXPECT_EQ(dialog.options(),
                  QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintShowPageSize);
        dialog.QDialog::done(QDialog::Accepted);
    });
    EXPECT_EQ(RaisedError([&] { dialogs.ShowPrinter(0); }), 0);
}

QLineEdit& FileBoxOf(QPrintDialog& dialog) {
    return *dialog.findChild<QLineEdit*>("filename");
}

TEST_F(DialogBindings, APrinterDialogSuggestsAPdfFileAndCompletesItsName) {
    const std::pair<std::string, std::string> names[] = {{"report", PathTo("report.pdf")},
                                                         {"a.b/x.pdf", PathTo("a.b/x.pdf")},
                                                         {PathTo("full.PDF"), PathTo("full.PDF")}};
    std::filesystem::create_directory(PathTo("a.b"));
    for (const auto& [typed, chosen] : names) {
        QPrinter printer;
        printer.setOutputFormat(QPrinter::PdfFormat);
        QtCommonDialogs dialogs([&]() -> QPrinter& { return printer; },
                                [&] { return PathTo("ridge_plan.pdf"); });
        WhenDialogShows<QPrintDialog>([&, name = QString::fromStdString(typed)](QPrintDialog& dialog) {
            EXPECT_EQ(FileBoxOf(dialog).text().toStdString(), PathTo("ridge_plan.pdf"));
            FileBoxOf(dialog).setText(name);
            dialog.accept();
        });
        EXPECT_EQ(RaisedError([&] { dialogs.ShowPrinter(0); }), 0);
        EXPECT_EQ(printer.outputFileName().toStdString(), chosen);
    }
}

TEST_F(DialogBindings, DialogsStandAboveTheWindowThatIsInUse) {
    EXPECT_EQ(OwnerWindow(), nullptr);
    QWidget window;
    window.show();
    window.activateWindow();
    ASSERT_TRUE(WaitUntilActive(window));
    EXPECT_EQ(OwnerWindow(), &window);
    QPrinter printer;
    QtCommonDialogs dialogs([&]() -> QPrinter& { return printer; });
    WhenDialogShows<QPrintDialog>([&](QPrintDialog& dialog) {
        EXPECT_EQ(dialog.parentWidget(), &window);
        EXPECT_EQ(OwnerWindow(), &dialog);
        dialog.reject();
    });
    EXPECT_EQ(RaisedError([&] { dialogs.ShowPrinter(0); }), 32755);
    AtOpen({}, [&](QFileDialog& dialog) { EXPECT_EQ(dialog.parentWidget(), &window); });
    WhenDialogShows<QFontDialog>([&](QFontDialog& dialog) {
        EXPECT_EQ(dialog.parentWidget(), &window);
        dialog.reject();
    });
    EXPECT_EQ(RaisedError([&] { dialogs.ShowFont({}, 1); }), 32755);
    WhenDialogShows<QMessageBox>([&](QMessageBox& box) {
        EXPECT_EQ(box.parentWidget(), &window);
        box.button(QMessageBox::Ok)->click();
    });
    QtMessageBox().Show({"Text", 0, "Title", "", 0});
}

// Between two boxes, or while another program is in front, no window is active.
TEST_F(DialogBindings, WithoutAnActiveWindowTheLastOneServesWhileItShows) {
    QWidget window;
    QWidget inner(&window);
    QDialog dialog;
    window.show();
    RememberActiveWindow(window);
    RememberActiveWindow(inner);
    RememberActiveWindow(dialog);
    LeaveNoWindowActive();
    ASSERT_EQ(QApplication::activeWindow(), nullptr);
    EXPECT_EQ(OwnerWindow(), &window);
    window.hide();
    LeaveNoWindowActive();
    EXPECT_EQ(OwnerWindow(), nullptr);
}

}  // namespace
}  // namespace tarvokol

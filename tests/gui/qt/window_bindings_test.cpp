// SPDX-License-Identifier: GPL-3.0-or-later
#include <QClipboard>
#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFontDialog>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QTextBrowser>

#include "qt/session/desktop_clock.h"
#include "qt/session/desktop_document_types.h"
#include "qt/session/desktop_shell.h"
#include "qt/session/message_box_style.h"
#include "qt/session/qt_clipboard.h"
#include "qt/session/qt_common_dialogs.h"
#include "qt/session/qt_message_box.h"
#include "tests/support/gui_fixture.h"

namespace tarvokol {
namespace {

class WindowBindings : public GuiTest {
  protected:
    int Answer(int style, std::function<void(QMessageBox&)> action) {
        WhenDialogShows<QMessageBox>(action);
        return QtMessageBox().Show({"Line 1\r\nLine 2", style, "Title", "", 0});
    }
};

TEST_F(WindowBindings, AMessageBoxShowsTextTitleIconAndButtonsOfItsStyle) {
    const int result = Answer(35, [](QMessageBox& box) {
        EXPECT_EQ(box.text(), "Line 1\nLine 2");
        EXPECT_EQ(box.windowTitle(), "Title");
        EXPECT_EQ(box.icon(), QMessageBox::Question);
        EXPECT_EQ(box.standardButtons(), QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
        EXPECT_EQ(box.defaultButton(), box.button(QMessageBox::Yes));
        box.button(QMessageBox::No)->click();
    });
    EXPECT_EQ(result, 7);
}

TEST_F(WindowBindings, AShortMessageLeavesRoomForItsTitle) {
    const QString title = "Project Description: Invalid Character";
    WhenDialogShows<QMessageBox>([&](QMessageBox& box) {
        QFont bold = box.font();
        bold.setBold(true);
        EXPECT_GE(box.width(), QFontMetrics(bold).horizontalAdvance(title) + 120);
        box.button(QMessageBox::Ok)->click();
    });
    QtMessageBox().Show({"No", 16, FromQt(title), "", 0});
}

TEST_F(WindowBindings, EnterTakesTheDefaultButtonOfTheStyle) {
    const auto enter = [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); };
    EXPECT_EQ(Answer(292, enter), 7);
    EXPECT_EQ(Answer(35, enter), 6);
    EXPECT_EQ(Answer(5, enter), 4);
    EXPECT_EQ(Answer(256, enter), 1);
    EXPECT_EQ(Answer(0, enter), 1);
}

TEST_F(WindowBindings, EscapeCancels) {
    const auto escape = [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); };
    EXPECT_EQ(Answer(35, escape), 2);
    EXPECT_EQ(Answer(5, escape), 2);
    EXPECT_EQ(Answer(16, escape), 1);
}

TEST_F(WindowBindings, IconsFollowTheStyle) {
    EXPECT_EQ(IconOfStyle(0), QMessageBox::NoIcon);
    EXPECT_EQ(IconOfStyle(5), QMessageBox::NoIcon);
    EXPECT_EQ(IconOfStyle(16), QMessageBox::Critical);
    EXPECT_EQ(IconOfStyle(48), QMessageBox::Warning);
    EXPECT_EQ(IconOfStyle(64), QMessageBox::Information);
    EXPECT_EQ(IconOfStyle(256), QMessageBox::NoIcon);
    EXPECT_EQ(IconOfStyle(292), QMessageBox::Question);
}

TEST_F(WindowBindings, TheOpenDialogStartsInItsFolderWithItsFilters) {
    WriteBytes(PathTo("a.TKL"), "x");
    QtCommonDialogs dialogs(nullptr);
    FileDialogRequest request;
    request.start_folder = Folder.string();
    request.filter = "All Files (*.*)|*.*|TARVOKOL Files (*.TKL)|*.TKL";
    request.filter_index = 2;
    request.default_extension = "TKL";
    request.flags = dialog_flag::PathAndFileMustExist;
    WhenDialogShows<QFileDialog>([&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.directory().absolutePath(), ToQt(Folder.string()));
        EXPECT_EQ(dialog.nameFilters(), QStringList({"All Files (*)", "TARVOKOL Files (*.TKL)"}));
        EXPECT_EQ(dialog.selectedNameFilter(), "TARVOKOL Files (*.TKL)");
        EXPECT_EQ(dialog.fileMode(), QFileDialog::ExistingFile);
        dialog.findChild<QLineEdit*>("fileNameEdit")->setText("a.TKL");
        QMetaObject::invokeMethod(&dialog, "accept");
    });
    EXPECT_EQ(dialogs.ShowOpen(request), PathTo("a.TKL"));
}

TEST_F(WindowBindings, TheSaveDialogStartsBesideTheLastFileAndAddsTheExtension) {
    QtCommonDialogs dialogs(nullptr);
    FileDialogRequest request;
    request.start_folder = PathTo("last.TKL");
    request.file_name = "Untitled";
    request.default_extension = "TKL";
    request.flags = dialog_flag::OverwritePrompt;
    WhenDialogShows<QFileDialog>([&](QFileDialog& dialog) {
        auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
        EXPECT_EQ(name->text(), "Untitled");
        EXPECT_FALSE(dialog.testOption(QFileDialog::DontConfirmOverwrite));
        name->setText("panel");
        QMetaObject::invokeMethod(&dialog, "accept");
    });
    EXPECT_EQ(dialogs.ShowSave(request), PathTo("panel.TKL"));
}

TEST_F(WindowBindings, ACancelledDialogRaisesCancelWasSelected) {
    QPrinter printer;
    QtCommonDialogs dialogs([&]() -> QPrinter& { return printer; });
    WhenDialogShows<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
    EXPECT_EQ(RaisedError([&] { dialogs.ShowOpen({}); }), 32755);
    WhenDialogShows<QPrintDialog>([](QPrintDialog& dialog) { dialog.reject(); });
    EXPECT_EQ(RaisedError([&] { dialogs.ShowPrinter(264); }), 32755);
    WhenDialogShows<QPrintDialog>([](QPrintDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Printer Setup");
        dialog.reject();
    });
    EXPECT_EQ(RaisedError([&] { dialogs.ShowPrinterSetup(); }), 32755);
    WhenDialogShows<QFontDialog>([](QFontDialog& dialog) { dialog.reject(); });
    EXPECT_EQ(RaisedError([&] { dialogs.ShowFont({"Arial", 10, false, false}, 1); }), 32755);
}

TEST_F(WindowBindings, TheFontDialogStartsFromTheChoiceAndGivesOneBack) {
    QtCommonDialogs dialogs(nullptr);
    WhenDialogShows<QFontDialog>([](QFontDialog& dialog) {
        EXPECT_TRUE(dialog.currentFont().bold());
        EXPECT_EQ(dialog.currentFont().pointSizeF(), 12);
        dialog.accept();
    });
    const FontChoice choice = dialogs.ShowFont({"DejaVu Sans", 12, true, false}, 1);
    EXPECT_EQ(choice.name, "DejaVu Sans");
    EXPECT_EQ(choice.size, 12.0f);
    EXPECT_TRUE(choice.bold);
    EXPECT_FALSE(choice.italic);
}

TEST_F(WindowBindings, ClipboardTakesText) {
    QtClipboard clipboard;
    QGuiApplication::clipboard()->setText("before");
    clipboard.Clear();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "");
    clipboard.SetText("Seam A\r\n\xC2\xB0");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QString::fromUtf8("Seam A\r\n\xC2\xB0"));
}

TEST_F(WindowBindings, AViewerIsStartedWithItsArgumentsAndTheFile) {
    const std::string script = PathTo("show it.sh");
    WriteBytes(script, "#!/bin/sh\nprintf '%s|%s' \"$1\" \"$2\" > \"$2.seen\"\n");
    std::filesystem::permissions(script, std::filesystem::perms::owner_all);
    DesktopShell().StartViewer("\"" + script + "\" -r", PathTo("a file.txt"));
    EXPECT_TRUE(
        WaitUntil([&] { return ReadBytes(PathTo("a file.txt.seen")) == "-r|" + PathTo("a file.txt"); }));
}

// A desktop of the test's own: its opener notes what it is given, its associations know plain text only.
class DesktopTest : public WindowBindings {
  protected:
    DesktopTest() : path_(qgetenv("PATH")) {
        Script("xdg-open", "printf '%s' \"$1\" > " + PathTo("opened"));
        Script("xdg-mime", "[ \"$*\" = 'query default text/plain' ] && echo viewer.desktop; true");
        qputenv("PATH", QByteArray::fromStdString(Folder.string()) + ":" + path_);
        qputenv("XDG_DATA_HOME", QByteArray::fromStdString(PathTo("data home")));
        qputenv("XDG_DATA_DIRS", QByteArray::fromStdString(PathTo("system data")));
        qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString(PathTo("config home")));
    }
    ~DesktopTest() override {
        qputenv("PATH", path_);
        for (const char* name : {"XDG_DATA_HOME", "XDG_DATA_DIRS", "XDG_CONFIG_HOME"}) qunsetenv(name);
    }
    void Script(const std::string& name, const std::string& body) {
        WriteBytes(PathTo(name), "#!/bin/sh\n" + body + "\n");
        std::filesystem::permissions(PathTo(name), std::filesystem::perms::owner_all);
    }

  private:
    QByteArray path_;
};

TEST_F(DesktopTest, ADocumentOpensWithTheDesktopsProgram) {
    WriteBytes(PathTo("notes.txt"), "text\n");
    EXPECT_EQ(DesktopShell().OpenDocument(PathTo("notes.txt"), Folder.string()), 33);
    EXPECT_TRUE(WaitUntil([&] { return ReadBytes(PathTo("opened")) == PathTo("notes.txt"); }));
}

TEST_F(DesktopTest, ADocumentWithoutAProgramIsAFailure) {
    WriteBytes(PathTo("manual.pdf"), "%PDF-1.4\n");
    EXPECT_EQ(DesktopShell().OpenDocument(PathTo("manual.pdf"), ""), 31);
    EXPECT_FALSE(std::filesystem::exists(PathTo("opened")));
}

TEST_F(DesktopTest, TheProgramIsStartedInTheFolderGiven) {
    Script("xdg-open", "pwd > " + PathTo("opened-in"));
    WriteBytes(PathTo("notes.txt"), "text\n");
    std::filesystem::create_directory(Folder / "work");
    EXPECT_EQ(DesktopShell().OpenDocument(PathTo("notes.txt"), PathTo("work")), 33);
    EXPECT_TRUE(WaitUntil([&] { return ReadBytes(PathTo("opened-in")) == PathTo("work") + "\n"; }));
}

// A desktop without the means to ask is trusted.
TEST_F(DesktopTest, WithoutAnAnswerTheOpenerIsTried) {
    qputenv("PATH", QByteArray::fromStdString(Folder.string()) + ":/bin:/usr/bin");
    std::filesystem::remove(PathTo("xdg-mime"));
    if (!QStandardPaths::findExecutable("xdg-mime").isEmpty()) GTEST_SKIP() << "this desktop can be asked";
    WriteBytes(PathTo("manual.pdf"), "%PDF-1.4\n");
    EXPECT_EQ(DesktopShell().OpenDocument(PathTo("manual.pdf"), ""), 33);
    EXPECT_TRUE(WaitUntil([&] { return ReadBytes(PathTo("opened")) == PathTo("manual.pdf"); }));
}

// Keeps the addresses that the desktop is asked for.
class Addresses : public QTextBrowser {
  public:
    Addresses() { QDesktopServices::setUrlHandler("https", this, "setSource"); }
    ~Addresses() override { QDesktopServices::unsetUrlHandler("https"); }
    QStringList opened;

  protected:
    void doSetSource(const QUrl& address, QTextDocument::ResourceType) override {
        opened.append(address.toString());
    }
};

TEST_F(DesktopTest, AnAddressGoesToTheDesktopAsItIs) {
    Addresses addresses;
    EXPECT_EQ(DesktopShell().OpenDocument("https://www.oltek.example/tarvokol/", ""), 33);
    EXPECT_EQ(addresses.opened, QStringList("https://www.oltek.example/tarvokol/"));
    EXPECT_FALSE(std::filesystem::exists(PathTo("opened")));
}

TEST_F(DesktopTest, WithoutAViewerTheDesktopsOneShowsTheText) {
    WriteBytes(PathTo("report.txt"), "text\n");
    DesktopShell().StartViewer("", PathTo("report.txt"));
    EXPECT_TRUE(WaitUntil([&] { return ReadBytes(PathTo("opened")) == PathTo("report.txt"); }));
}

TEST_F(DesktopTest, AViewerThatIsNotThereIsReplacedByTheDesktopsTextViewer) {
    WriteBytes(PathTo("report.txt"), "text\n");
    DesktopShell().StartViewer("Notepad.exe", PathTo("report.txt"));
    EXPECT_TRUE(WaitUntil([&] { return ReadBytes(PathTo("opened")) == PathTo("report.txt"); }));
    WriteBytes(PathTo("manual.pdf"), "%PDF-1.4\n");
    EXPECT_EQ(RaisedError([&] { DesktopShell().StartViewer("Notepad.exe", PathTo("manual.pdf")); }), 53);
}

TEST_F(DesktopTest, ATypeIsRegisteredWithPatternCommandAndDefault) {
    Script("update-mime-database", "printf '%s' \"$1\" > " + PathTo("mime-updated"));
    Script("update-desktop-database", "true");
    DesktopDocumentTypes().Register({"TKL", "tarvokol.Document", "tarvokol Document",
                                     "/opt/x y/tarvokol.EXE \"%1\"", "/opt/x y/tarvokol"});
    const std::string data = PathTo("data home") + "/";
    EXPECT_EQ(ReadBytes(data + "mime/packages/tarvokol-document-tkl.xml"),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
              "<mime-info xmlns=\"http://www.freedesktop.org/standards/shared-mime-info\">\n"
              "  <mime-type type=\"application/x-tarvokol\">\n"
              "    <comment>tarvokol Document</comment>\n"
              "    <glob weight=\"80\" pattern=\"*.TKL\"/>\n"
              "    <glob weight=\"80\" pattern=\"*.tkl\"/>\n"
              "  </mime-type>\n"
              "</mime-info>\n");
    EXPECT_EQ(ReadBytes(data + "applications/tarvokol.desktop"),
              "[Desktop Entry]\nType=Application\nName=TARVO-KOL\nComment=tarvokol Document\n"
              "Exec=\"/opt/x y/tarvokol\" %f\nIcon=tarvokol\nTerminal=false\n"
              "MimeType=application/x-tarvokol;\nCategories=Science;Engineering;\n");
    EXPECT_EQ(ReadBytes(PathTo("config home/mimeapps.list")),
              "[Default Applications]\napplication/x-tarvokol=tarvokol.desktop\n");
    EXPECT_FALSE(std::filesystem::exists(data + "applications/mimeapps.list"));
    EXPECT_EQ(ReadBytes(PathTo("mime-updated")), data + "mime");
}

// "*." would take every name that ends in a point.
TEST_F(DesktopTest, ATypeWithoutAnExtensionHasNoPattern) {
    Script("update-mime-database", "true");
    Script("update-desktop-database", "true");
    DesktopDocumentTypes().Register({"", "tarvokol.Document", "tarvokol Document", "", "/opt/tarvokol"});
    const std::string types = ReadBytes(PathTo("data home") + "/mime/packages/tarvokol-document-.xml");
    EXPECT_NE(types.find("<comment>tarvokol Document</comment>"), std::string::npos);
    EXPECT_EQ(types.find("glob"), std::string::npos);
}

TEST_F(DesktopTest, AnAssociationOfAnotherExtensionStays) {
    Script("update-mime-database", "true");
    Script("update-desktop-database", "true");
    DesktopDocumentTypes types;
    for (const char* extension : {"TKL", "../X Y", "TKL"})
        types.Register({extension, "tarvokol.Document", "tarvokol Document", "", "/opt/tarvokol"});
    const std::string packages = PathTo("data home/mime/packages/");
    EXPECT_THAT(ReadBytes(packages + "tarvokol-document-tkl.xml"), ::testing::HasSubstr("pattern=\"*.tkl\""));
    EXPECT_THAT(ReadBytes(packages + "tarvokol-document-xy.xml"),
                ::testing::HasSubstr("pattern=\"*.../x y\""));
    EXPECT_EQ(ReadBytes(PathTo("config home/mimeapps.list")),
              "[Default Applications]\napplication/x-tarvokol=tarvokol.desktop\n");
}

TEST_F(DesktopTest, TheEntryOfAPackageThatStartsThisProgramIsNotShadowed) {
    Script("update-mime-database", "true");
    Script("update-desktop-database", "true");
    Script("tarvokol", "true");
    const std::string installed = PathTo("system data/applications/tarvokol.desktop");
    std::filesystem::create_directories(PathTo("system data/applications"));
    WriteBytes(installed, "[Desktop Entry]\nType=Application\nName=TARVO-KOL\nExec=tarvokol %f\n");
    const std::string own = PathTo("data home/applications/tarvokol.desktop");
    std::filesystem::create_directories(PathTo("data home/applications"));
    WriteBytes(own, "[Desktop Entry]\nExec=\"/home/old build/tarvokol\" %f\n");
    DesktopDocumentTypes().Register({"TKL", "tarvokol.Document", "tarvokol Document", "",
                                     FromQt(QStandardPaths::findExecutable("tarvokol"))});
    EXPECT_FALSE(std::filesystem::exists(own));
    EXPECT_EQ(ReadBytes(PathTo("config home/mimeapps.list")),
              "[Default Applications]\napplication/x-tarvokol=tarvokol.desktop\n");
    DesktopDocumentTypes().Register({"TKL", "tarvokol.Document", "tarvokol Document", "", "/opt/x/tarvokol"});
    EXPECT_THAT(ReadBytes(own), ::testing::HasSubstr("Exec=\"/opt/x/tarvokol\" %f\n"));
}

// Another copy of the program is another program.
TEST_F(DesktopTest, TheEntryOfAPackageThatStartsAnotherProgramIsShadowed) {
    Script("update-mime-database", "true");
    Script("update-desktop-database", "true");
    Script("tarvokol", "true");
    Script("other", "true");
    std::filesystem::create_directories(PathTo("system data/applications"));
    WriteBytes(PathTo("system data/applications/tarvokol.desktop"), "[Desktop Entry]\nExec=other %f\n");
    const std::string program = FromQt(QStandardPaths::findExecutable("tarvokol"));
    for (int run = 0; run < 2; ++run) {
        DesktopDocumentTypes().Register({"TKL", "tarvokol.Document", "tarvokol Document", "", program});
        EXPECT_THAT(ReadBytes(PathTo("data home/applications/tarvokol.desktop")),
                    ::testing::HasSubstr("Exec=\"" + program + "\" %f\n"));
    }
}

TEST_F(DesktopTest, SignsThatMeanSomethingInAnEntryAreEscapedInTheProgramsPath) {
    Script("update-mime-database", "true");
    Script("update-desktop-database", "true");
    DesktopDocumentTypes().Register(
        {"TKL", "tarvokol.Document", "tarvokol Document", "", R"(/opt/a\b $c "d" 100%/tarvokol)"});
    EXPECT_THAT(ReadBytes(PathTo("data home/applications/tarvokol.desktop")),
                ::testing::HasSubstr(R"(Exec="/opt/a\\\\b \\$c \\"d\\" 100%%/tarvokol" %f)"
                                     "\n"));
}

TEST_F(DesktopTest, TheFormerTypeAndItsListAreDropped) {
    Script("update-mime-database", "true");
    Script("update-desktop-database", "true");
    const std::string list = PathTo("data home/applications/mimeapps.list");
    std::filesystem::create_directories(PathTo("data home/applications"));
    WriteBytes(list, "[Default Applications]\napplication/x-tarvokol.document=tarvokol.desktop\n");
    DesktopDocumentTypes().Register({"TKL", "tarvokol.Document", "tarvokol Document", "", "/opt/tarvokol"});
    EXPECT_FALSE(std::filesystem::exists(list));
    WriteBytes(
        list,
        "[Default Applications]\napplication/x-tarvokol.document=tarvokol.desktop\ntext/plain=ed.desktop\n");
    DesktopDocumentTypes().Register({"TKL", "tarvokol.Document", "tarvokol Document", "", "/opt/tarvokol"});
    EXPECT_EQ(ReadBytes(list), "[Default Applications]\ntext/plain=ed.desktop\n");
}

TEST_F(WindowBindings, F1OpensTheTopicOfABoxThatHasOne) {
    WhenDialogShows<QMessageBox>([](QMessageBox& box) {
        QTest::keyClick(&box, Qt::Key_F1);
        box.button(QMessageBox::Ok)->click();
    });
    QtMessageBox().Show({"Text", 0, "Title", "/opt/tarvokol/TARVOKOL.CHM", 3100});
    EXPECT_THAT(Host.Help.Calls, ::testing::ElementsAre("topic /opt/tarvokol/TARVOKOL.CHM menu_output.htm"));
    WhenDialogShows<QMessageBox>([](QMessageBox& box) {
        QTest::keyClick(&box, Qt::Key_F1);
        box.button(QMessageBox::Ok)->click();
    });
    QtMessageBox().Show({"Text", 0, "Title", "", 0});
    EXPECT_EQ(Host.Help.Calls.size(), 1u);
}

TEST_F(WindowBindings, PrinterSetupIsConfirmedWithOkAndPrintingWithPrint) {
    QPrinter printer;
    QtCommonDialogs dialogs([&]() -> QPrinter& { return printer; });
    const auto expect_confirmation = [this](const QString& caption) {
        WhenDialogShows<QPrintDialog>([caption](QPrintDialog& dialog) {
            const auto* buttons = dialog.findChild<QDialogButtonBox*>();
            EXPECT_EQ(buttons->button(QDialogButtonBox::Ok)->text(), caption);
            dialog.reject();
        });
    };
    expect_confirmation("OK");
    EXPECT_EQ(RaisedError([&] { dialogs.ShowPrinterSetup(); }), 32755);
    expect_confirmation("&Print");
    EXPECT_EQ(RaisedError([&] { dialogs.ShowPrinter(0); }), 32755);
}

TEST_F(WindowBindings, MonthsAreNamedInTheUsersLanguage) {
    EXPECT_EQ(DesktopClock(QLocale::c()).ShortMonthName(8), "Aug");
    EXPECT_EQ(DesktopClock(QLocale(QLocale::French, QLocale::France)).ShortMonthName(8), "ao\xC3\xBBt");
    EXPECT_EQ(DesktopClock(QLocale(QLocale::Spanish, QLocale::Spain)).ShortMonthName(1), "ene");
}

TEST_F(WindowBindings, TimesAreWrittenAsTheDesktopWritesThem) {
    const QTime time(15, 7, 9);
    const auto text = [&](const QLocale& locale) { return DesktopClock(locale).TimeTextOf(time); };
    EXPECT_EQ(text(QLocale(QLocale::English, QLocale::UnitedStates)), "3:07:09 PM");
    EXPECT_EQ(text(QLocale(QLocale::German, QLocale::Germany)), "15:07:09");
    EXPECT_EQ(text(QLocale(QLocale::Spanish, QLocale::Spain)), "15:07:09");
    EXPECT_EQ(text(QLocale(QLocale::French, QLocale::France)), "15:07:09");
    EXPECT_EQ(text(QLocale(QLocale::English, QLocale::UnitedKingdom)), "15:07:09");
    EXPECT_EQ(text(QLocale::c()), "15:07:09");
}

TEST_F(WindowBindings, OtherDefaultsOfTheUserStay) {
    EXPECT_EQ(
        WithDefaultProgram(
            "[Added Associations]\nb/c=d\n\n[Default Applications]\na/b=x.desktop\nm/n=old\n[Z]\nq=1\n",
            "m/n", "new.desktop"),
        "[Added Associations]\nb/c=d\n\n[Default Applications]\na/b=x.desktop\nm/n=new.desktop\n[Z]\nq=1\n");
    EXPECT_EQ(WithDefaultProgram("[Added Associations]\nm/n=other\n", "m/n", "new.desktop"),
              "[Added Associations]\nm/n=other\n[Default Applications]\nm/n=new.desktop\n");
}

TEST_F(WindowBindings, AProgramThatTheUserTookOffATypeComesBack) {
    EXPECT_EQ(WithDefaultProgram("[Removed Associations]\nm/n=new.desktop;\na/b=new.desktop\n", "m/n",
                                 "new.desktop"),
              "[Removed Associations]\na/b=new.desktop\n[Default Applications]\nm/n=new.desktop\n");
    EXPECT_EQ(
        WithDefaultProgram("[Removed Associations]\nm/n=x.desktop;new.desktop;\n", "m/n", "new.desktop"),
        "[Removed Associations]\nm/n=x.desktop;\n[Default Applications]\nm/n=new.desktop\n");
}

}  // namespace
}  // namespace tarvokol

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>
#include <QPainter>
#include <QPrinter>
#include <functional>
#include <memory>

#include "core/files/file_replacement.h"
#include "core/platform/printer_device.h"

namespace tarvokol {

// The toolkit's printer: a real one, or a PDF file. The pen is measured from the corner of the paper. A job
// begins with what it prints first and ends with EndDoc.
//
// Errors: "Printer error" (482) while there is neither a printer nor a file to print to, and where the
// printer refuses a page; for a file that cannot be written the error of the operating system. The file is put in place
// by EndDoc when it is whole: a job that fails leaves what stood there.
class QtPrinter : public PrinterDevice {
  public:
    // What the printer dialogs choose from and set; the user's default printer to begin with. The choice is
    // kept.
    QPrinter& Device() const;

    // Prints what follows to a PDF file, on A4 paper. A job that is still open is given up.
    void PrintToFile(const std::string& path);

    // The full name that a PDF file of what is announced may have: the project's with what the file holds, in the
    // project's folder; the one that was chosen for the run, if there is one.
    std::string ProposedFile() const;

    void Announce(PrintedMatter matter) override;
    void TakeChoice(bool for_the_run) override;

    // A job that goes to a PDF file for which none was chosen asks for its name: the proposed one is suggested, and
    // what exists is replaced only if the user says so. The file stands there once the job has come to its end.
    bool StartDoc() override;
    void CloseDoc() override;

    double CurrentX() const override { return x_; }
    double CurrentY() const override { return y_; }
    void SetCurrentX(double twips) override { x_ = twips; }
    void SetCurrentY(double twips) override { y_ = twips; }
    double PageWidth() const override;
    double PageHeight() const override;

    void Print(const std::string& text) override;
    double TextWidth(const std::string& text) override;

    void NewPage() override;
    void EndDoc() override;

    bool HasTarget() const override;
    void PrintDrawing(double width, double height, const std::function<void(PagePainter&)>& draw) override;
    void PrintWith(const std::function<void(PageDevice&)>& print) override;

    std::vector<std::string> FontNames() override;
    void SetFontName(const std::string& name) override;
    void SetFontSize(double points) override;
    void SetFontBold(bool on) override;
    void SetFontItalic(bool on) override;
    void SetFontStrikeThrough(bool on) override;
    void SetFontUnderline(bool on) override;

  private:
    static QFont PlainFont();
    QPrinter& Target() const;
    QFont& FontOfTarget();
    void EnsureJob();
    void BeginJob();
    void RepeatJob();
    void Do(std::function<void()> step);
    void AbandonJob();
    void BeginFile();
    void EndFile();
    void DropFile();

    mutable std::unique_ptr<QPrinter> device_;  // created on first use: looking for printers takes its time
    QPainter painter_;                          // after the device, which it must not outlive
    QFont font_ = PlainFont();
    PrintedMatter matter_ = PrintedMatter::Anything;
    std::string job_file_;                      // chosen in a dialog for the job announced
    std::string run_file_;                      // for every job, by Printer Setup
    bool file_is_named_ = false;                // by PrintToFile, for every job
    std::unique_ptr<FileReplacement> file_;     // of the job that goes to a PDF file
    QString file_name_;                         // the name that the device has between the jobs
    std::vector<std::function<void()>> steps_;  // what the job has printed, for another try
    bool file_is_whole_ = false;                // the toolkit has finished it and nothing got lost
    double x_ = 0;                              // twips
    double y_ = 0;
};

}  // namespace tarvokol

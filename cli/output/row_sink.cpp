// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/output/row_sink.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>

#include <fcntl.h>
#include <unistd.h>

#include "cli/line/standard_input.h"
#include "cli/output/output_target.h"
#include "core/files/descriptor.h"
#include "core/files/file_replacement.h"
#include "core/files/os_errors.h"
#include "core/runtime/run_time_error.h"
#include "core/runtime/text.h"

namespace tarvokol::cli {
namespace {

// Bytes that a system call has not taken yet are given once more; false for a pipe that nobody reads.
bool WriteAll(int file, std::string_view text) {
    while (!text.empty()) {
        const ssize_t written = ::write(file, text.data(), text.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return false;
        text.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

class StandardOutputSink : public RowSink {
  public:
    bool Write(std::string_view text) override {
        if (WriteAll(STDOUT_FILENO, text)) return true;
        if (errno == EPIPE) return false;
        const int number = ErrorNumberOfErrno(errno);
        throw OutputError{number, "standard output: " + RunTimeError(number).text};
    }
    void Finish() override {}
};

// Beside its place until it is whole.
class FileSink : public RowSink {
  public:
    FileSink(const std::string& path, bool force)
        : path_(path), place_(path, RulesOf(force)), file_(place_.BuildPath(), O_WRONLY) {}

    bool Write(std::string_view text) override {
        WriteTowards(path_, [&] { file_.Write(text); });
        unsynced_ += text.size();
        if (unsynced_ >= kSyncedPiece) {
            file_.BeginSync();
            unsynced_ = 0;
        }
        return true;
    }
    void Finish() override {
        WriteTowards(path_, [this] {
            file_.Close();
            place_.Commit();
        });
    }

  private:
    // So much is on its way to the disk while the rows after it are calculated.
    static constexpr std::size_t kSyncedPiece = std::size_t{8} << 20;

    std::string path_;
    FileReplacement place_;
    Descriptor file_;
    std::size_t unsynced_ = 0;
};

RowTarget::KindOfRows KindOf(const std::string& extension) {
    const auto is = [&extension](const char* name) { return EqualIgnoringCase(extension, name); };
    if (is(".csv")) return RowTarget::Csv;
    if (is(".json") || is(".jsonl")) return RowTarget::JsonLines;
    if (is(".xlsx")) return RowTarget::Workbook;
    if (is(".png") || is(".svg") || is(".pdf")) return RowTarget::Picture;
    throw UsageError{"-o: the extension must be one of .csv, .json, .jsonl, .xlsx, .png, .svg, .pdf"};
}

}  // namespace

void RefuseExisting(const std::string& path, bool force) {
    Options options;
    options.output = path;
    options.force = force;
    options.files = {path};
    OutputTarget(options, {}).Prepare(path);
}

std::unique_ptr<RowSink> OpenFileSink(const std::string& path, bool force) {
    RefuseExisting(path, force);
    std::unique_ptr<RowSink> sink;
    WriteTowards(path, [&] { sink = std::make_unique<FileSink>(path, force); });
    return sink;
}

std::unique_ptr<RowSink> OpenStandardOutputSink() {
    return std::make_unique<StandardOutputSink>();
}

RowTarget::RowTarget(const Options& options, const std::vector<std::string>& also_read)
    : path_(options.output), force_(options.force) {
    if (!path_.empty() && path_ != kStandardStream) {
        kind_ = KindOf(std::filesystem::path(path_).extension().string());
        RefuseExisting(path_, options.force);
        RefuseInput(path_, options.files);
        RefuseInput(path_, also_read);
        return;
    }
    path_.clear();
    if (!options.format.empty()) extension_ = '.' + options.format;
    kind_ = options.json ? JsonLines : extension_.empty() ? Csv : KindOf(extension_);
    if (IsDrawn() && ::isatty(STDOUT_FILENO) != 0)
        throw UsageError{"-o -: a terminal shows no " + options.format + "; send it into a file or a pipe"};
}

void RowTarget::WriteDrawn(const std::function<void(const std::string&)>& write) const {
    if (path_.empty())
        WriteToStandardOutput(extension_, write);
    else
        WriteTowards(path_, [&] {
            FileReplacement place(path_, RulesOf(force_));
            write(place.BuildPath());
            place.Commit();
        });
}

std::unique_ptr<RowSink> RowTarget::Open() const {
    if (path_.empty()) return OpenStandardOutputSink();
    return OpenFileSink(path_, force_);
}

}  // namespace tarvokol::cli

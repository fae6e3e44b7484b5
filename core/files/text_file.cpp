// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/files/text_file.h"

#include <cerrno>
#include <map>
#include <memory>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

#include "core/files/descriptor.h"
#include "core/files/os_errors.h"
#include "core/runtime/charset.h"
#include "core/runtime/numbers.h"
#include "core/runtime/run_time_error.h"
#include "core/runtime/text.h"

namespace tarvokol {
namespace {

constexpr std::size_t kLongestPiece = std::size_t{16} * 1024;  // of a copy that is on its way
constexpr int kHighestNumber = 511;

class TextOutput {
  public:
    TextOutput(const std::string& path, FileContent content)
        : file_(std::make_unique<Descriptor>(path, O_WRONLY | O_CREAT)), content_(content) {
        file_->Empty();
    }

    explicit TextOutput(std::unique_ptr<Descriptor> file)
        : file_(std::move(file)), content_(FileContent::Text) {}

    void Append(std::string_view text) {
        pending_.append(text);
        if (content_ == FileContent::Raw && pending_.size() >= kLongestPiece) Flush();
    }

    // What a failed write leaves is written over when the same is printed again.
    void Flush() {
        const std::string bytes =
            content_ == FileContent::Text ? EncodeFileText(pending_) : std::move(pending_);
        pending_.clear();
        file_->Write(bytes);
    }

    void Sync() { file_->Sync(); }

    void Close() {
        if (!pending_.empty()) Flush();
        file_->Close();
    }

    // The file itself, at its beginning; nothing more can be printed to it.
    std::unique_ptr<Descriptor> Take() {
        file_->Rewind();
        return std::move(file_);
    }

  private:
    std::unique_ptr<Descriptor> file_;
    FileContent content_;
    std::string pending_;
};

// One of the two is there.
struct OpenFile {
    std::unique_ptr<TextInput> input;
    std::unique_ptr<TextOutput> output;
};

std::map<int, OpenFile>& OpenFiles() {
    static std::map<int, OpenFile> files;
    return files;
}

void RequireFree(int number) {
    if (number < 1 || number > kHighestNumber) Raise(error_number::BadFileNumber);
    if (OpenFiles().count(number) != 0) Raise(error_number::FileAlreadyOpen);
}

const OpenFile& FileOf(int number) {
    const auto found = OpenFiles().find(number);
    if (found == OpenFiles().end()) Raise(error_number::BadFileNumber);
    return found->second;
}

TextOutput& OutputOf(int number) {
    const OpenFile& file = FileOf(number);
    if (!file.output) Raise(error_number::BadFileMode);
    return *file.output;
}

// A new file under the name, which no other has then. Where others take the name at the same time, they are left behind soon.
std::unique_ptr<Descriptor> NewScratch(const std::string& path) {
    constexpr int kMostTries = 1000;
    for (int i = 1;; ++i) {
        if (::unlink(path.c_str()) != 0 && errno != ENOENT && errno != ENOTDIR) {
            const bool is_folder = errno == EISDIR;
            Raise(is_folder ? error_number::PathFileAccess : ErrorNumberOfErrno(errno, path));
        }
        try {
            return std::make_unique<Descriptor>(path, O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW,
                                                Descriptor::kOwnersRights);
        } catch (const RunTimeError& error) {
            if (error.number != error_number::FileAlreadyExists || i == kMostTries) throw;
        }
    }
}

}  // namespace

int FreeFile() {
    for (int number = 1; number <= kHighestNumber; ++number)
        if (OpenFiles().count(number) == 0) return number;
    Raise(error_number::TooManyFiles);
}

void OpenForInput(int number, const std::string& path, FileContent content) {
    RequireFree(number);
    auto input = std::make_unique<TextInput>(path, content);
    OpenFiles()[number].input = std::move(input);
}

void OpenForOutput(int number, const std::string& path, FileContent content) {
    RequireFree(number);
    auto output = std::make_unique<TextOutput>(path, content);
    OpenFiles()[number].output = std::move(output);
}

void OpenScratch(int number, const std::string& path) {
    RequireFree(number);
    auto output = std::make_unique<TextOutput>(NewScratch(path));
    OpenFiles()[number].output = std::move(output);
}

void ReadScratch(int number) {
    TextOutput& output = OutputOf(number);
    output.Flush();
    OpenFile& file = OpenFiles()[number];
    file.input = std::make_unique<TextInput>(TextInput::OfFile(output.Take()));
    file.output.reset();
}

void FlushFile(int number) {
    OutputOf(number).Flush();
}

void SyncFile(int number) {
    OutputOf(number).Sync();
}

void CloseFile(int number) {
    const auto found = OpenFiles().find(number);
    if (found == OpenFiles().end()) return;
    const OpenFile file = std::move(found->second);
    OpenFiles().erase(found);
    if (file.input) file.input->Close();
    if (file.output) file.output->Close();
}

void AbandonAllFiles() {
    OpenFiles().clear();
}

void PrintText(int number, std::string_view text) {
    OutputOf(number).Append(text);
}

void PrintLine(int number, std::string_view text) {
    PrintText(number, text);
    PrintText(number, CrLf);
}

void PrintNumber(int number, long value) {
    PrintLine(number, SignedText(value) + " ");
}

TextInput& InputOf(int number) {
    const OpenFile& file = FileOf(number);
    if (!file.input) Raise(error_number::BadFileMode);
    return *file.input;
}

std::string LineInput(int number) {
    return InputOf(number).Line();
}

std::string TokenText(int number) {
    return InputOf(number).Token();
}

double TokenNumber(int number) {
    return InputOf(number).Number();
}

bool EndOfFile(int number) {
    return InputOf(number).AtEnd();
}

}  // namespace tarvokol

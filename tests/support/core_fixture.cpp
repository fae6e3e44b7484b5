// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/core_fixture.h"

#include <algorithm>
#include <fstream>
#include <sstream>

#include <unistd.h>

#include "core/messages/history_log.h"
#include "core/messages/titles.h"

namespace tarvokol {

::testing::AssertionResult SameBytes(const std::string& actual, const std::string& expected) {
    if (actual == expected) return ::testing::AssertionSuccess();
    const auto [at, unused] = std::mismatch(actual.begin(), actual.end(), expected.begin(), expected.end());
    const auto place = static_cast<std::size_t>(at - actual.begin());
    constexpr std::size_t kBefore = 20, kShown = 80;
    const auto part = [place](const std::string& text) {
        return ::testing::PrintToString(text.substr(place < kBefore ? 0 : place - kBefore, kShown));
    };
    return ::testing::AssertionFailure()
           << actual.size() << " bytes, wanted " << expected.size() << "; from byte " << place
           << " on they differ: " << part(actual) << ", wanted " << part(expected);
}

CoreTest::CoreTest() {
    Host.Install();
    DisplayHistoryWin = 1;
    MaxDisplaySize = 4096;
    HistorySequence = 0;
    AppLongTitle = "Tarvo Panel Stability Evaluation - KOL";
    DialogPrefix.Fill("");
    DialogPrefix[1] = "Project Description: ";
    DialogPrefix[2] = "Project Parameters: ";
    DialogPrefix[7] = "Program Options: ";
    DialogPrefix[8] = "Settings: ";
    MessageTitle = "Message";
    RangeErrorTitle = RangeWarningTitle = InvalidCharTitle = ErrorTitle = LogicErrorTitle = "";
    std::string pattern = (std::filesystem::temp_directory_path() / "tarvokol-test-XXXXXX").string();
    Folder = ::mkdtemp(pattern.data());
}

CoreTest::~CoreTest() {
    std::error_code ignored;
    std::filesystem::remove_all(Folder, ignored);
}

std::string CoreTest::PathTo(const std::string& name) const {
    return (Folder / name).string();
}

void CoreTest::WriteBytes(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

std::string CoreTest::ReadBytes(const std::string& path) {
    std::ostringstream bytes;
    bytes << std::ifstream(path, std::ios::binary).rdbuf();
    return bytes.str();
}

std::vector<std::string> CoreTest::Messages() const {
    std::vector<std::string> texts;
    for (const BoxRequest& box : Host.Messages.Shown) texts.push_back(box.message);
    return texts;
}

}  // namespace tarvokol

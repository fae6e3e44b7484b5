// SPDX-License-Identifier: GPL-3.0-or-later
// What every core test starts from: headless bindings, message services as after start-up, a folder of its
// own.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "core/headless/headless_platform.h"
#include "tests/support/raised_error.h"

namespace tarvokol {

// For whole outputs, of which a failed test would otherwise show every byte: sizes first, then the first difference.
::testing::AssertionResult SameBytes(const std::string& actual, const std::string& expected);

class CoreTest : public ::testing::Test {
  protected:
    CoreTest();
    ~CoreTest() override;

    // A path inside the test's own folder, which is removed afterwards.
    std::string PathTo(const std::string& name) const;

    // Writes or reads a file's bytes.
    static void WriteBytes(const std::string& path, const std::string& bytes);
    static std::string ReadBytes(const std::string& path);

    // Texts of all message boxes shown so far.
    std::vector<std::string> Messages() const;

    HeadlessPlatform Host;
    std::filesystem::path Folder;
};

}  // namespace tarvokol

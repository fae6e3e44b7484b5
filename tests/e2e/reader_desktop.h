// SPDX-License-Identifier: GPL-3.0-or-later
// A desktop on which a screen reader could run: what it finds of the program, and where that stands.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "tests/e2e/desktop.h"

namespace tarvokol {

class ReaderBus;

class ReaderTest : public DesktopTest {
  protected:
    ReaderTest();
    ~ReaderTest() override;
    void SetUp() override;

    // The name of the program that is read.
    static inline std::string Reading = "tarvokol";

    // A line for each object that shows, with tabs between: role, name, description, value, text.
    static std::vector<std::string> Lines();

    // Waits until these lines are among them.
    static void ExpectRead(const std::vector<std::string>& wanted);

    // Waits for the object of that role and name, in the newest window that has one; its place on the screen.
    static Place PlaceOf(const std::string& role, const std::string& name);

    // A click of the left button in the middle of the object.
    static void ClickOn(const std::string& role, const std::string& name);

  private:
    std::unique_ptr<ReaderBus> bus_;
};

}  // namespace tarvokol

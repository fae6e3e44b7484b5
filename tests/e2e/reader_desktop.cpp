// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/e2e/reader_desktop.h"

#include <sstream>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <unistd.h>

namespace tarvokol {
namespace {

using ::testing::IsSupersetOf;

// What the script for screen readers prints of the program.
std::vector<std::string> ToldOf(const std::string& program, const std::string& option) {
    std::istringstream output(OutputOf("/usr/bin/python3 '" + std::string(TARVOKOL_ACCESSIBLE_TREE) + "' " +
                                       program + " " + option + " 2>&1"));
    std::vector<std::string> lines;
    for (std::string line; std::getline(output, line);) lines.push_back(line);
    return lines;
}

}  // namespace

// A bus of the test's own, and the one for screen readers on it.
class ReaderBus {
  public:
    // Why there is none; empty if it runs.
    static std::string Missing() {
        if (OutputOf("command -v dbus-daemon").empty()) return "dbus-daemon";
        if (access(kLauncher, X_OK) != 0) return "at-spi2-core";
        if (!OutputOf("/usr/bin/python3 -c 'import gi; gi.require_version(\"Atspi\", \"2.0\")' 2>&1").empty())
            return "python3-pyatspi";
        return "";
    }

    explicit ReaderBus(const std::string& folder) {
        const std::string address = "unix:path=" + folder + "/bus";
        setenv("DBUS_SESSION_BUS_ADDRESS", address.c_str(), 1);
        setenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1", 1);
        setenv("XDG_RUNTIME_DIR", folder.c_str(), 1);
        bus_.Start({"dbus-daemon", "--session", "--nofork", "--address=" + address});
        EXPECT_TRUE(Eventually([&] { return access((folder + "/bus").c_str(), F_OK) == 0; }));
        launcher_.Start({kLauncher, "--launch-immediately"});
    }
    ReaderBus(const ReaderBus&) = delete;
    ReaderBus& operator=(const ReaderBus&) = delete;
    ~ReaderBus() {
        unsetenv("DBUS_SESSION_BUS_ADDRESS");
        unsetenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON");
    }

  private:
    static constexpr const char* kLauncher = "/usr/libexec/at-spi-bus-launcher";

    Servant bus_;
    Servant launcher_;
};

ReaderTest::ReaderTest() = default;
ReaderTest::~ReaderTest() = default;

void ReaderTest::SetUp() {
    DesktopTest::SetUp();
    if (IsSkipped()) return;
    if (const std::string missing = ReaderBus::Missing(); !missing.empty())
        GTEST_SKIP() << "not installed: " << missing;
    bus_ = std::make_unique<ReaderBus>(Folder.string());
}

std::vector<std::string> ReaderTest::Lines() {
    return ToldOf(Reading, "");
}

void ReaderTest::ExpectRead(const std::vector<std::string>& wanted) {
    std::vector<std::string> lines;
    Eventually([&] {
        lines = Lines();
        return testing::Matches(IsSupersetOf(wanted))(lines);
    });
    EXPECT_THAT(lines, IsSupersetOf(wanted));
}

DesktopTest::Place ReaderTest::PlaceOf(const std::string& role, const std::string& name) {
    const std::string head = role + "\t" + name + "\t";
    Place place;
    EXPECT_TRUE(Eventually([&] {
        for (const std::string& line : ToldOf(Reading, "--places"))
            if (line.starts_with(head))
                std::istringstream(line.substr(head.size())) >> place.x >> place.y >> place.width >>
                    place.height;
        return place.width > 0;
    })) << head;
    return place;
}

void ReaderTest::ClickOn(const std::string& role, const std::string& name) {
    const Place place = PlaceOf(role, name);
    OutputOf("xdotool mousemove " + std::to_string(place.x + place.width / 2) + " " +
             std::to_string(place.y + place.height / 2) + " sleep 0.1 click 1");
}

}  // namespace tarvokol

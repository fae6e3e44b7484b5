// SPDX-License-Identifier: GPL-3.0-or-later
// Project files with a figure that no panel has, through every command that reads one: each file has its
// answer, and none ends the run.
#include "tests/cli/cli_runner.h"

namespace tarvokol {
namespace {

constexpr std::string ProjectText::*kFigures[] = {
    &ProjectText::units,   &ProjectText::height,     &ProjectText::depth,  &ProjectText::hole,
    &ProjectText::web,     &ProjectText::barrier,    &ProjectText::holes,  &ProjectText::angle,
    &ProjectText::spacing, &ProjectText::strength,   &ProjectText::weight, &ProjectText::abutment,
    &ProjectText::sf_web,  &ProjectText::sf_barrier, &ProjectText::spare};

using nlohmann::json;

class HostileProjects : public CliTest {
  protected:
    std::vector<std::string> Projects() {
        const std::vector<std::string> texts{
            "1E39", "-1E39", "3.4E38", "1E400", "-1E400", std::string(400, '9'), "1E308", "5E-324", "1E-300",
            "NaN",  "inf",   "",       "0",     "-1"};
        std::vector<std::string> names;
        for (const auto figure : kFigures)
            for (const std::string& text : texts) {
                ProjectText project;
                project.*figure = text;
                names.push_back(Project(std::to_string(names.size()) + ".TKL", project));
            }
        return names;
    }

    // Says why it did nothing with a file, wherever it did nothing.
    static bool IsAnswer(const json& object) {
        return object["ok"] == true || !object["messages"].empty() || object.contains("error");
    }
};

TEST_F(HostileProjects, AreAllAnsweredByEveryCommand) {
    const std::vector<std::string> names = Projects();
    std::filesystem::create_directory(Folder / "out");
    const std::vector<std::vector<std::string>> commands{
        {"results"},
        {"size"},
        {"curve", "sf-height"},
        {"curve", "sf-depth"},
        {"curve", "sf-hole"},
        {"curve", "web"},
        {"curve", "barrier"},
        {"plan"},
        {"plan", "--mode", "capacity", "--view", "preview"},
        {"convert", "--to", "metric", "--force", "-o", "out"},
        {"save", "--force", "-o", "out"}};
    for (std::vector<std::string> arguments : commands) {
        SCOPED_TRACE(arguments.front() + " " + arguments.back());
        arguments.emplace_back("--json");
        arguments.insert(arguments.end(), names.begin(), names.end());
        const CliAnswer answer = Run(arguments);
        EXPECT_EQ(answer.status, 1);
        const std::vector<json> objects = answer.Objects();
        ASSERT_EQ(objects.size(), names.size());
        for (const json& object : objects) EXPECT_TRUE(IsAnswer(object)) << object.dump();
    }
}

}  // namespace
}  // namespace tarvokol

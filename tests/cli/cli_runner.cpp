// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/cli/cli_runner.h"

#include <csignal>
#include <fstream>
#include <sstream>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace tarvokol {
namespace {

std::string Slurp(const std::filesystem::path& path) {
    std::ostringstream bytes;
    bytes << std::ifstream(path, std::ios::binary).rdbuf();
    return bytes.str();
}

}  // namespace

std::vector<std::string> With(std::vector<std::string> command, const std::vector<std::string>& more) {
    command.insert(command.end(), more.begin(), more.end());
    return command;
}

std::vector<nlohmann::json> CliAnswer::Objects() const {
    std::vector<nlohmann::json> objects;
    std::istringstream lines(out);
    for (std::string line; std::getline(lines, line);) objects.push_back(nlohmann::json::parse(line));
    return objects;
}

nlohmann::json CliAnswer::Object() const {
    const auto objects = Objects();
    EXPECT_EQ(objects.size(), 1u) << out << err;
    return objects.empty() ? nlohmann::json() : objects.front();
}

CliAnswer RunCli(const std::vector<std::string>& arguments, const std::string& folder,
                 const std::string& input) {
    return RunProgram(TARVOKOL_CLI, arguments, folder, input);
}

pid_t StartProgram(const std::vector<std::string>& words, const posix_spawn_file_actions_t* actions) {
    std::vector<std::string> copies = words;
    std::vector<char*> argv;
    for (std::string& word : copies) argv.push_back(word.data());
    argv.push_back(nullptr);
    sigset_t every, none;
    ::sigfillset(&every);
    ::sigemptyset(&none);
    posix_spawnattr_t attributes;
    ::posix_spawnattr_init(&attributes);
    ::posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
    ::posix_spawnattr_setsigdefault(&attributes, &every);
    ::posix_spawnattr_setsigmask(&attributes, &none);
    pid_t child = 0;
    const bool started = ::posix_spawn(&child, argv[0], actions, &attributes, argv.data(), environ) == 0;
    ::posix_spawnattr_destroy(&attributes);
    return started ? child : 0;
}

CliAnswer RunProgram(const std::string& program, const std::vector<std::string>& arguments,
                     const std::string& folder, const std::string& input) {
    std::string pattern = (std::filesystem::temp_directory_path() / "tarvokol-cli-XXXXXX").string();
    const std::filesystem::path scratch = ::mkdtemp(pattern.data());
    std::ofstream(scratch / "in", std::ios::binary) << input;

    std::vector<std::string> words{program};
    words.insert(words.end(), arguments.begin(), arguments.end());
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    const std::string in = (scratch / "in").string(), out = (scratch / "out").string(),
                      err = (scratch / "err").string();
    posix_spawn_file_actions_addopen(&actions, 0, in.c_str(), O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, 1, out.c_str(), O_WRONLY | O_CREAT, 0600);
    posix_spawn_file_actions_addopen(&actions, 2, err.c_str(), O_WRONLY | O_CREAT, 0600);
    if (!folder.empty()) posix_spawn_file_actions_addchdir_np(&actions, folder.c_str());
    CliAnswer answer;
    if (const pid_t child = StartProgram(words, &actions); child != 0) {
        int status = 0;
        waitpid(child, &status, 0);
        answer.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    }
    posix_spawn_file_actions_destroy(&actions);
    answer.out = Slurp(scratch / "out");
    answer.err = Slurp(scratch / "err");
    std::filesystem::remove_all(scratch);
    return answer;
}

ProjectText MetricProject() {
    ProjectText project;
    project.units = " 1 ";
    project.height = project.hole = project.web = "3";
    project.barrier = "6";
    project.depth = "30";
    project.strength = "6.2";
    project.weight = "25.4";
    return project;
}

std::string ProjectText::Bytes() const {
    std::vector<std::string> lines{magic, units, title, "##StartDesc##"};
    lines.insert(lines.end(), description.begin(), description.end());
    for (const std::string& line : {std::string("##EndDesc##"), height, depth, hole, web, barrier, holes,
                                    angle, spacing, strength, weight, abutment, sf_web, sf_barrier, spare})
        lines.push_back(line);
    std::string bytes;
    for (const std::string& line : lines) bytes += line + "\r\n";
    return bytes;
}

std::string CliTest::Project(const std::string& name, const ProjectText& project) {
    WriteBytes(PathTo(name), project.Bytes());
    return name;
}

}  // namespace tarvokol

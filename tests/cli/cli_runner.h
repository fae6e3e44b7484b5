// SPDX-License-Identifier: GPL-3.0-or-later
// Runs the built command line and gives back what it said.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>
#include <spawn.h>
#include <sys/types.h>

#include "tests/support/core_fixture.h"

namespace tarvokol {

struct CliAnswer {
    int status = -1;
    std::string out;
    std::string err;

    // The JSON objects of the output, one per line.
    std::vector<nlohmann::json> Objects() const;
    // The one object of the output.
    nlohmann::json Object() const;
};

// The words of a command and more of them.
std::vector<std::string> With(std::vector<std::string> command, const std::vector<std::string>& more);

// Runs tarvokol-cli with these arguments in `folder` (empty: the present one), `input` on standard input.
CliAnswer RunCli(const std::vector<std::string>& arguments, const std::string& folder = "",
                 const std::string& input = "");

// The same for another program: the path of a copy.
CliAnswer RunProgram(const std::string& program, const std::vector<std::string>& arguments,
                     const std::string& folder = "", const std::string& input = "");

// Starts a program without waiting for it; its process, 0 for none. No signal is put off in it, whatever the caller of the
// tests has put off.
pid_t StartProgram(const std::vector<std::string>& words,
                   const posix_spawn_file_actions_t* actions = nullptr);

// A project of nice round figures, as a file's text; fields by their names.
struct ProjectText {
    std::string magic = "TARVOKOL_101";
    std::string units = " 0 ";
    std::string title = "Ridge Panel 4";
    std::vector<std::string> description{"Upper seam, north highwall."};
    std::string height = "10", depth = "100", hole = "10", web = "10", barrier = "20", holes = " 5 ",
                angle = "90", spacing = "1000000", strength = "900", weight = "162", abutment = "21",
                sf_web = "1.6", sf_barrier = "2", spare = "0";

    std::string Bytes() const;
};

// Three metres high, holes and webs of three metres, barriers of six, under thirty metres of rock.
ProjectText MetricProject();

// Why a test with a library in front of the program (LD_PRELOAD) is left out, if it is.
#ifdef TARVOKOL_SANITIZED
inline constexpr const char* kNoLibraryInFront =
    "the address sanitizer and a library in front of the program both want to be loaded first";
#else
inline constexpr const char* kNoLibraryInFront = nullptr;
#endif

class CliTest : public CoreTest {
  protected:
    // Writes a project into the test's folder and returns its name there.
    std::string Project(const std::string& name, const ProjectText& project = {});

    // Runs in the test's folder.
    CliAnswer Run(const std::vector<std::string>& arguments, const std::string& input = "") const {
        return RunCli(arguments, Folder.string(), input);
    }

    // Runs a line of the shell there, in which $cli is the command line.
    CliAnswer Shell(const std::string& line) const {
        return RunProgram("/bin/sh", {"-c", "cli='" TARVOKOL_CLI "'; " + line}, Folder.string());
    }
};

}  // namespace tarvokol

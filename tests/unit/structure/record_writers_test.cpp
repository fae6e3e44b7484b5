// SPDX-License-Identifier: GPL-3.0-or-later
// The records that the program's vocabulary makes global have the writers that their headers name. Writing is what
// can be seen in a text: an assignment, a step, a call that changes, an address that is taken; what a function does
// with a reference that it is given, it must be trusted with.
#include <algorithm>
#include <cctype>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>

#include "tests/unit/structure/source_text.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;
using Names = std::set<std::string>;

// Puts every record back for the next project of a run, and is named by no header.
constexpr std::string_view kReset = "core/program/reset";

bool IsNamePart(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_';
}

// Walks over code from a place on.
class Walker {
  public:
    Walker(const std::string& code, std::size_t at) : code_(code), at_(at) {}

    char Next() {
        while (at_ < code_.size() && std::isspace(static_cast<unsigned char>(code_[at_])) != 0) ++at_;
        return at_ < code_.size() ? code_[at_] : '\0';
    }
    bool Takes(std::string_view text) {
        Next();
        if (code_.compare(at_, text.size(), text) != 0) return false;
        at_ += text.size();
        return true;
    }
    std::string TakeName() {
        Next();
        const std::size_t start = at_;
        while (at_ < code_.size() && IsNamePart(code_[at_])) ++at_;
        return code_.substr(start, at_ - start);
    }
    void SkipBrackets(char open, char close) {
        int depth = 0;
        do {
            if (code_[at_] == open) ++depth;
            if (code_[at_] == close) --depth;
        } while (++at_ < code_.size() && depth > 0);
    }

  private:
    const std::string& code_;
    std::size_t at_;
};

// What stands before a name: nothing for the blanks between.
std::string Before(const std::string& code, std::size_t at) {
    const std::size_t last = at == 0 ? std::string::npos : code.find_last_not_of(" \n", at - 1);
    return last == std::string::npos ? "" : code.substr(last == 0 ? 0 : last - 1, last == 0 ? 1 : 2);
}

bool IsChangedAfter(Walker walker) {
    static const Names changing{"clear",  "append", "resize",    "Fill",
                                "assign", "insert", "push_back", "Allocate"};
    while (true) {
        if (walker.Next() == '[') {
            walker.SkipBrackets('[', ']');
        } else if (walker.Next() == '(') {
            walker.SkipBrackets('(', ')');
        } else if (walker.Takes(".")) {
            if (changing.contains(walker.TakeName()) && walker.Next() == '(') return true;
        } else {
            break;
        }
    }
    if (walker.Takes("==")) return false;
    for (const char* change : {"=", "+=", "-=", "*=", "/=", "++", "--"})
        if (walker.Takes(change)) return true;
    return false;
}

// The program-wide names that a code writes.
Names Written(const std::string& code, const Names& known) {
    Names written;
    for (std::size_t at = 0; at < code.size(); ++at) {
        if (!IsNamePart(code[at])) continue;
        const std::string name = Walker(code, at).TakeName();
        const std::string before = Before(code, at);
        const char last = before.empty() ? ' ' : before.back();
        const bool of_another = last == '.' || last == ':' || before == "->";
        if (known.contains(name) && !of_another &&
            (before == "++" || before == "--" || (last == '&' && before != "&&" && !IsNamePart(before[0])) ||
             IsChangedAfter(Walker(code, at + name.size()))))
            written.insert(name);
        at += name.size();
    }
    return written;
}

// A program-wide variable of a header, with the writers that the comment above its group names.
struct Record {
    std::string name;
    std::string header;
    Names writers;
    bool tells_writers = false;
};

// "Written by core/project/lifecycle and desktop/main/frmMain." of a comment.
Names NamedWriters(const std::string& comment, bool& tells) {
    static const std::regex sentence(R"(Written by ([^.]*)\.)"), path(R"([a-z]+/[A-Za-z_/]+)");
    std::smatch found;
    tells = std::regex_search(comment, found, sentence);
    if (!tells) return {};
    const std::string told = found[1];
    return {std::sregex_token_iterator(told.begin(), told.end(), path), std::sregex_token_iterator()};
}

std::vector<Record> RecordsOf(const std::string& header, const std::string& source) {
    static const std::regex variable(
        R"(inline (?:auto& (\w+) =.*|(?!const)(?:[\w:<>, ]+) (\w+)(?: = .*|\{.*\})?;)$)");
    std::vector<Record> records;
    std::istringstream lines(source);
    std::string comment;
    bool comment_ended = false;
    std::string before;
    for (std::string line; std::getline(lines, line); before = line) {
        if (line.starts_with("//")) {
            if (comment_ended) comment.clear();
            comment_ended = false;
            comment += line.substr(std::min<std::size_t>(line.size(), 3)) + " ";
            continue;
        }
        comment_ended = true;
        if (line.empty()) comment.clear();
        std::smatch found;
        if (before.starts_with("namespace state") || !std::regex_match(line, found, variable)) continue;
        Record record{found[1].matched ? found[1] : found[2], header, {}, false};
        record.writers = NamedWriters(comment, record.tells_writers);
        records.push_back(record);
    }
    return records;
}

std::vector<Record> AllRecords(const std::map<std::string, std::string>& files) {
    std::vector<Record> all;
    for (const auto& [path, text] : files) {
        if (!path.starts_with("core/") || !path.ends_with(".h")) continue;
        const auto records = RecordsOf(path, text);
        all.insert(all.end(), records.begin(), records.end());
    }
    return all;
}

std::string WithoutEnding(const std::string& path) {
    return path.substr(0, path.rfind('.'));
}

TEST(RecordWriters, AreThoseThatTheHeaderNames) {
    const auto files = SourceFiles();
    const std::vector<Record> records = AllRecords(files);
    Names known;
    for (const Record& record : records) known.insert(record.name);
    EXPECT_GT(known.size(), 100u);
    std::map<std::string, Names> writers;
    for (const auto& [path, text] : files)
        for (const std::string& name : Written(CodeOf(text), known))
            writers[name].insert(WithoutEnding(path));
    for (const Record& record : records) {
        EXPECT_TRUE(record.tells_writers) << record.header << " tells no writers of " << record.name;
        for (const std::string& writer : writers[record.name])
            EXPECT_TRUE(writer == kReset || writer == WithoutEnding(record.header) ||
                        record.writers.contains(writer))
                << writer << " writes " << record.name << ", and " << record.header << " does not say so";
    }
}

// A writer that is gone is gone from the header, too.
TEST(RecordWriters, StillNameTheirRecord) {
    const auto files = SourceFiles();
    for (const Record& record : AllRecords(files))
        for (const std::string& writer : record.writers) {
            const auto source = files.find(writer + ".cpp");
            const bool named =
                writer == WithoutEnding(record.header) ||
                (source != files.end() && CodeOf(source->second).find(record.name) != std::string::npos);
            EXPECT_TRUE(named) << record.header << ": " << writer << " does not write " << record.name;
        }
}

// Whole records go back to what they were at the start by `state::`, which nobody else needs outside their room.
TEST(RecordWriters, ReachTheWholeRecordInItsOwnRoomOnly) {
    static const std::regex whole(R"(state::(\w+))");
    const auto files = SourceFiles();
    std::map<std::string, std::string> rooms;
    for (const auto& [path, text] : files) {
        static const std::regex instance(R"(namespace state \{\ninline \w+ (\w+);)");
        for (std::sregex_iterator at(text.begin(), text.end(), instance), end; at != end; ++at)
            rooms[(*at)[1]] = path.substr(0, path.rfind('/'));
    }
    EXPECT_GT(rooms.size(), 10u);
    for (const auto& [path, text] : files) {
        const std::string code = CodeOf(text);
        for (std::sregex_iterator at(code.begin(), code.end(), whole), end; at != end; ++at) {
            const std::string room = path.substr(0, path.rfind('/'));
            EXPECT_TRUE(rooms[(*at)[1]] == room || WithoutEnding(path) == kReset)
                << path << " reaches " << at->str();
        }
    }
}

TEST(RecordWriters, AreSeenByAssignmentsStepsCallsAndAddresses) {
    const Names known{"Saved", "Names", "Table", "Count"};
    const auto written = [&known](const std::string& code) { return Written(code, known); };
    EXPECT_THAT(written("Saved = 0;"), ElementsAre("Saved"));
    EXPECT_THAT(written("Names[Count + 1] = x;"), ElementsAre("Names"));
    EXPECT_THAT(written("Table.Rows = 3; ++Count;"), UnorderedElementsAre("Table", "Count"));
    EXPECT_THAT(written("Table(0, 1) = 2; Names[2].clear();"), UnorderedElementsAre("Table", "Names"));
    EXPECT_THAT(written("{\"key\", &Count, 0}; Saved += 1"), UnorderedElementsAre("Count", "Saved"));
    EXPECT_THAT(written("if (Saved == 0 && Count != 1) f(Names, Table.Rows);"), IsEmpty());
    EXPECT_THAT(written("other.Saved = 1; p->Count = 2; x::Table = 3; SavedToo = 1;"), IsEmpty());
    EXPECT_THAT(written("a && Saved; int y = Count;"), IsEmpty());
}

TEST(RecordWriters, AreReadFromTheCommentAboveAGroup) {
    const auto records = RecordsOf("a.h",
                                   "namespace state {\ninline T All;\n}\n"
                                   "// Two of them. Written by core/a/one and\n// desktop/b/frmTwo.\n"
                                   "inline auto& First = state::All.First;\n"
                                   "inline auto& Second =\n    state::All.Second;\n"
                                   "// Written by nobody.\ninline int16_t Third = 0;\n\n"
                                   "inline std::string Fourth;\ninline constexpr int kFifth = 5;\n");
    ASSERT_EQ(records.size(), 4u);
    EXPECT_EQ(records[0].name, "First");
    EXPECT_THAT(records[0].writers, UnorderedElementsAre("core/a/one", "desktop/b/frmTwo"));
    EXPECT_THAT(records[1].writers, UnorderedElementsAre("core/a/one", "desktop/b/frmTwo"));
    EXPECT_TRUE(records[2].tells_writers);
    EXPECT_THAT(records[2].writers, IsEmpty());
    EXPECT_FALSE(records[3].tells_writers);
}

}  // namespace
}  // namespace tarvokol

// SPDX-License-Identifier: GPL-3.0-or-later
// Where the links of the help lead, and what it says of the settings file.
#include <algorithm>
#include <cctype>
#include <fstream>
#include <map>
#include <regex>
#include <sstream>

#include "core/program/start_up.h"
#include "core/runtime/numbers.h"
#include "core/settings/configuration.h"
#include "core/settings/key_tables.h"
#include "tests/support/core_fixture.h"
#include "tests/support/formula_text.h"

namespace tarvokol {
namespace {

const std::filesystem::path kHelp = std::filesystem::path(TARVOKOL_SOURCE_FOLDER) / "resources/help";

std::string PageOf(const std::filesystem::path& path) {
    std::ostringstream html;
    html << std::ifstream(path, std::ios::binary).rdbuf();
    return html.str();
}

std::string LowerCase(std::string text) {
    for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return text;
}

// The parts of a list that a comma and a blank keep apart.
std::vector<std::string> PartsOf(const std::string& list) {
    std::vector<std::string> parts;
    for (std::size_t begin = 0; begin <= list.size();) {
        const std::size_t end = std::min(list.find(", ", begin), list.size());
        parts.push_back(list.substr(begin, end - begin));
        begin = end + 2;
    }
    return parts;
}

// True if every longer word of a link stands in the topic, or one that begins as it does.
bool SaysAll(const std::string& topic, const std::string& words) {
    constexpr std::size_t kShortWord = 3, kLongestStem = 5;
    const std::regex word("[a-z]+");
    for (std::sregex_iterator it(words.begin(), words.end(), word), last; it != last; ++it) {
        const std::string found = it->str();
        const std::string stem = found.substr(0, std::min(kLongestStem, found.size() - found.ends_with('s')));
        if (found.size() > kShortWord && topic.find(stem) == std::string::npos) return false;
    }
    return true;
}

// Links whose topic has other words for what they say.
const std::map<std::string, std::string> kOtherWords{{"text browser", "frmTextBrow.htm"},
                                                     {"text file browser", "frmTextBrow.htm"},
                                                     {"unit calculator", "frmUnits.htm"},
                                                     {"basic options", "frmGraphOptS.htm"}};

TEST(HelpLinks, LeadToTheTopicsThatTheyName) {
    const std::regex link("<a href=\"(\\w+\\.htm)(?:#\\w+)?\">(.*?)</a>");
    int count = 0;
    for (const auto& page : std::filesystem::directory_iterator(kHelp)) {
        if (page.path().extension() != ".htm") continue;
        const std::string html = PageOf(page.path());
        for (std::sregex_iterator it(html.begin(), html.end(), link), last; it != last; ++it, ++count) {
            const std::string topic = (*it)[1];
            const std::string words = LowerCase(TextOfTopic((*it)[2]));
            SCOPED_TRACE(page.path().filename().string() + ": " + words);
            const auto other = kOtherWords.find(words);
            if (other != kOtherWords.end())
                EXPECT_EQ(topic, other->second);
            else
                EXPECT_TRUE(SaysAll(LowerCase(TextOfTopic(PageOf(kHelp / topic))), words)) << topic;
        }
    }
    EXPECT_GT(count, 100);
}

class HelpOfSettings : public CoreTest {
  protected:
    HelpOfSettings() {
        ResetProgram();
        SetSettingsToBuiltIn();
    }
    ~HelpOfSettings() override { ResetProgram(); }

    static const KeyRule* RuleOf(const std::string& key) {
        for (int selector = section::First; selector <= section::Last; ++selector)
            for (const KeyRule& rule : KeysOf(selector))
                if (rule.name == key) return &rule;
        return nullptr;
    }
};

TEST_F(HelpOfSettings, TheRangesAndDefaultsOfTheFileAreTheProgramsOwn) {
    const std::string html = PageOf(kHelp / "config_file.htm");
    const std::regex row("<tr><td>([^<]*)</td><td>(\\d+) to (\\d+)</td><td>([^<]*)</td></tr>");
    int count = 0;
    for (std::sregex_iterator it(html.begin(), html.end(), row), last; it != last; ++it) {
        const std::vector<std::string> keys = PartsOf((*it)[1]), defaults = PartsOf((*it)[4]);
        for (std::size_t i = 0; i < keys.size(); ++i, ++count) {
            SCOPED_TRACE(keys[i]);
            const KeyRule* rule = RuleOf(keys[i]);
            ASSERT_NE(rule, nullptr);
            EXPECT_EQ(rule->low, NumericParse((*it)[2].str()));
            EXPECT_EQ(rule->high, NumericParse((*it)[3].str()));
            SetFromText(*rule, KeyText(*rule));  // as a new file is read at once
            EXPECT_EQ(KeyText(*rule), defaults[std::min(i, defaults.size() - 1)]);
        }
    }
    EXPECT_EQ(count, 11);
}

}  // namespace
}  // namespace tarvokol

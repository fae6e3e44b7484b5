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

// How the longer words of a link begin, whatever their ending.
std::vector<std::string> StemsOf(const std::string& words) {
    constexpr std::size_t kShortWord = 3, kLongestStem = 5;
    std::vector<std::string> stems;
    std::string word;
    for (const char c : words + " ") {
        if (c >= 'a' && c <= 'z') {
            word += c;
            continue;
        }
        if (word.size() > kShortWord)
            stems.push_back(word.substr(0, std::min(kLongestStem, word.size() - word.ends_with('s'))));
        word.clear();
    }
    return stems;
}

bool SaysAll(const std::string& text, const std::vector<std::string>& stems) {
    return std::all_of(stems.begin(), stems.end(),
                       [&](const std::string& stem) { return text.find(stem) != std::string::npos; });
}

// Links whose topic has other words for what they say.
const std::map<std::string, std::string> kTopicsOfWords{{"text browser", "frmTextBrow.htm"},
                                                        {"text file browser", "frmTextBrow.htm"},
                                                        {"unit calculator", "frmUnits.htm"},
                                                        {"basic options", "frmGraphOptS.htm"}};

// A topic as it is looked through for the words of a link, in small letters.
struct TopicWords {
    std::string title;
    std::string text;
};

std::map<std::string, TopicWords> AllTopics() {
    std::map<std::string, TopicWords> topics;
    const std::regex title("<h1>(.*?)</h1>");
    for (const auto& page : std::filesystem::directory_iterator(kHelp)) {
        if (page.path().extension() != ".htm") continue;
        const std::string html = PageOf(page.path());
        std::smatch found;
        std::regex_search(html, found, title);
        topics[page.path().filename().string()] = {LowerCase(TextOfTopic(found[1])),
                                                   LowerCase(TextOfTopic(html))};
    }
    return topics;
}

// Where topics have the words in their titles, a link leads to one of those; else to one that has them in its text.
bool IsMeant(const std::map<std::string, TopicWords>& topics, const std::string& topic,
             const std::string& words) {
    const auto other = kTopicsOfWords.find(words);
    if (other != kTopicsOfWords.end()) return topic == other->second;
    const auto found = topics.find(topic);
    if (found == topics.end()) return false;
    const std::vector<std::string> stems = StemsOf(words);
    const bool has_title = std::any_of(topics.begin(), topics.end(),
                                       [&](const auto& each) { return SaysAll(each.second.title, stems); });
    return SaysAll(has_title ? found->second.title : found->second.text, stems);
}

TEST(HelpLinks, LeadToTheTopicsThatTheyName) {
    const std::map<std::string, TopicWords> topics = AllTopics();
    const std::regex link("<a href=\"(\\w+\\.htm)(?:#\\w+)?\">(.*?)</a>");
    int count = 0;
    for (const auto& entry : topics) {
        const std::string html = PageOf(kHelp / entry.first);
        for (std::sregex_iterator it(html.begin(), html.end(), link), last; it != last; ++it, ++count) {
            const std::string words = LowerCase(TextOfTopic((*it)[2]));
            EXPECT_TRUE(IsMeant(topics, (*it)[1], words)) << entry.first << ": " << words << ": " << (*it)[1];
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

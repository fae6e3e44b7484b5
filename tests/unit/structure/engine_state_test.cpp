// SPDX-License-Identifier: GPL-3.0-or-later
// The calculation keeps nothing between two calls: no variable of its source files outlives a call and can be
// changed, neither at namespace scope nor as a static of a function or a class.
#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/unit/structure/source_text.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::string Trimmed(const std::string& text) {
    static const std::regex blanks("\\s+");
    const std::string single = std::regex_replace(text, blanks, " ");
    const std::size_t first = single.find_first_not_of(' ');
    if (first == std::string::npos) return "";
    return single.substr(first, single.find_last_not_of(' ') - first + 1);
}

bool HasWord(const std::string& text, const std::string& word) {
    return std::regex_search(text, std::regex("\\b(" + word + ")\\b"));
}

// The declaration without what stands in parentheses and, of a template, before its own words.
std::string Bare(std::string declaration) {
    static const std::regex number("\\(\\s*[0-9][^()]*\\)"), inner("\\([^()]*\\)"),
        operator_name("operator *[^\\s(]+"), head("^template *<[^{;]*?> (?=[a-z_A-Z])");
    declaration = std::regex_replace(declaration, operator_name, "operator_");
    declaration = std::regex_replace(declaration, number, " = @");
    for (std::string before; before != declaration;) {
        before = declaration;
        declaration = std::regex_replace(declaration, inner, "@");
    }
    return std::regex_replace(declaration, head, "");
}

// What can be changed through a name: not a constant expression, not const; of a pointer or a reference, what
// counts is the end that the name holds, or what it leads to.
bool CanChange(const std::string& declaration) {
    if (HasWord(declaration, "constexpr|constinit const")) return false;
    const std::string declarator = declaration.substr(0, declaration.find('='));
    const std::size_t pointer = declarator.rfind('*');
    if (pointer != std::string::npos) return !HasWord(declarator.substr(pointer), "const");
    return !HasWord(declarator, "const");
}

bool IsVariable(const std::string& bare) {
    if (bare.empty() || bare == "}" ||
        HasWord(bare.substr(0, bare.find(' ')), "using|typedef|static_assert|friend|extern|namespace"))
        return false;
    if (HasWord(bare, "class|struct|union|enum") && bare.find('=') == std::string::npos) return false;
    const std::size_t arguments = bare.find('@');
    return arguments == std::string::npos || bare.find('=') < arguments;
}

enum class Scope { Namespace, Type, Function };

// Reads code as declarations and the braces between them.
class StateFinder {
  public:
    explicit StateFinder(const std::string& source) : code_(CodeOf(source)) { ReadScope(Scope::Namespace); }
    const std::vector<std::string>& Found() const { return found_; }

  private:
    void ReadScope(Scope scope) {
        std::string text;
        while (position_ < code_.size()) {
            const char c = code_[position_++];
            if (c == '}') return;
            if (c == ';') {
                Judge(scope, Trimmed(text));
                text.clear();
            } else if (c == '{') {
                EnterBraces(scope, text);
            } else {
                text += c;
            }
        }
    }

    void EnterBraces(Scope scope, std::string& text) {
        const std::string declaration = Trimmed(text);
        const std::string bare = Bare(declaration);
        if (scope == Scope::Function) {
            Judge(scope, declaration);
            ReadScope(Scope::Function);
            text.clear();
        } else if (HasWord(bare, "namespace") || bare == "extern") {
            ReadScope(Scope::Namespace);
            text.clear();
        } else if (HasWord(bare, "class|struct|union|enum") &&
                   bare.find_first_of("=@") == std::string::npos) {
            ReadScope(Scope::Type);
            text = "struct of";  // a name before the next semicolon would be a variable of that type
            named_type_ = true;
        } else if (bare.find('@') != std::string::npos && bare.find('=') == std::string::npos) {
            ReadScope(Scope::Function);
            text.clear();
        } else {
            ReadScope(Scope::Function);  // an initial value
            text += " = @";
        }
    }

    void Judge(Scope scope, const std::string& declaration) {
        const bool behind_type = named_type_;
        named_type_ = false;
        if (behind_type && declaration == "struct of") return;
        const std::string bare = behind_type ? "T" + declaration.substr(9) : Bare(declaration);
        const bool outlives = scope == Scope::Namespace
                                  ? IsVariable(bare)
                                  : HasWord(bare, "static|thread_local") &&
                                        !(scope == Scope::Type && bare.find('@') < bare.find('='));
        if (outlives && CanChange(declaration)) found_.push_back(declaration);
    }

    std::string code_;
    std::size_t position_ = 0;
    bool named_type_ = false;
    std::vector<std::string> found_;
};

std::vector<std::string> StateOf(const std::string& source) {
    return StateFinder(source).Found();
}

TEST(EngineState, NoVariableOfTheCalculationOutlivesACall) {
    std::vector<std::string> found;
    int files = 0;
    for (const auto& entry :
         std::filesystem::directory_iterator(std::string(TARVOKOL_SOURCE_FOLDER) + "/core/engine")) {
        if (entry.path().extension() != ".cpp" && entry.path().extension() != ".h") continue;
        ++files;
        std::ostringstream source;
        source << std::ifstream(entry.path()).rdbuf();
        for (const std::string& state : StateOf(source.str()))
            found.push_back(entry.path().filename().string() + ": " + state);
    }
    EXPECT_GT(files, 15);
    EXPECT_THAT(found, IsEmpty());
}

TEST(EngineState, SeesVariablesOfANamespace) {
    EXPECT_THAT(StateOf("int Count;\nnamespace a {\nnamespace {\ndouble sum = 0.0;\n}\n"
                        "inline Curve Last{1, 2};\nstd::vector<int> cache(7);\nint x = F(3);\n}\n"),
                ElementsAre("int Count", "double sum = 0.0", "inline Curve Last = @",
                            "std::vector<int> cache(7)", "int x = F(3)"));
    EXPECT_THAT(StateOf("static thread_local long calls;\nextern \"C\" {\nint n;\n}\n"),
                ElementsAre("static thread_local long calls", "int n"));
    EXPECT_THAT(StateOf("namespace {\nstruct Counter {\n int n = 0;\n} counter;\n}\n"),
                ElementsAre("struct of counter"));
}

TEST(EngineState, SeesStaticsOfFunctionsAndClasses) {
    EXPECT_THAT(StateOf("int Next() {\n    static int last = 0;\n    return ++last;\n}\n"),
                ElementsAre("static int last = 0"));
    EXPECT_THAT(
        StateOf("void F() {\n  if (a) {\n static Table t{1};\n }\n for (;;) { thread_local X y; }\n}\n"),
        ElementsAre("static Table t", "thread_local X y"));
    EXPECT_THAT(StateOf("class A {\n  static int n;\n inline static double d = 3;\n int m = 0;\n};\n"),
                ElementsAre("static int n", "inline static double d = 3"));
}

TEST(EngineState, SeesPointersThatCanBeLedElsewhere) {
    EXPECT_THAT(StateOf("const char* name = \"a\";\nstatic const int* p;\nint& alias = other;\n"),
                ElementsAre("const char* name =", "static const int* p", "int& alias = other"));
}

TEST(EngineState, LetsConstantsAndFunctionsBe) {
    EXPECT_THAT(
        StateOf(
            "#include \"a.h\"\nusing T = int;\nusing A = B<int, 1>;\nclass C;\nstatic_assert(1 == 1);\n"
            "constexpr double kA = 1.0;  // int b = 2;\n/* int c; */\nconst std::string kB = \"int d;\";\n"
            "const std::array<std::string, 2> kNames{\"a\", \"b\"};\nconst char* const kC = \"e\";\n"
            "constexpr const char* kD = \"f\";\nenum class E { One = 1, Two };\n"
            "template <typename F, std::size_t N = 3>\nint Run(F f = F()) {\n  int i = 0;\n"
            "  static const int k = 1;\n  static constexpr int m{2};\n  auto g = [](int x) { return x; };\n"
            "  return i;\n}\ninline bool operator==(const A& a, const B& b) { return true; }\n"
            "void G(int a, int b = 4);\nstruct S : T {\n  int n = 0;\n  static int Offset(long i);\n"
            "  static long First() { return 1; }\n  static constexpr int kE = 5;\n"
            "  bool operator==(const S&) const = default;\n  explicit S(int n) : n_(n) {}\n};\n"),
        IsEmpty());
}

}  // namespace
}  // namespace tarvokol

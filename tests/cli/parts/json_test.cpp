// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/output/json.h"

#include <limits>

#include <gtest/gtest.h>

namespace tarvokol::cli {
namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

std::string Number(double value) {
    JsonValues array;
    array.Add(value);
    JsonMembers object;
    object.Add("n", value);
    EXPECT_EQ(object.Object(), "{\"n\":" + array.Array().substr(1, array.Array().size() - 2) + '}');
    return array.Array().substr(1, array.Array().size() - 2);
}

std::string JsonText(const std::string& text) {
    JsonValues array;
    array.Add(text);
    return array.Array().substr(1, array.Array().size() - 2);
}

TEST(JsonNumbers, WholeOnesHaveNoFraction) {
    EXPECT_EQ(Number(10), "10");
    EXPECT_EQ(Number(-3), "-3");
    EXPECT_EQ(Number(0), "0");
    EXPECT_EQ(Number(0.5), "0.5");
    EXPECT_EQ(Number(-2.25), "-2.25");
    EXPECT_EQ(Number(0.1), "0.1");
}

TEST(JsonNumbers, FromSixteenDigitsOnTheyHaveAnExponent) {
    EXPECT_EQ(Number(999999999999999), "999999999999999");
    EXPECT_EQ(Number(-999999999999999), "-999999999999999");
    EXPECT_EQ(Number(1e15), "1e+15");
    EXPECT_EQ(Number(-1e15), "-1e+15");
    EXPECT_EQ(Number(1e300), "1e+300");
}

TEST(JsonNumbers, NeitherNanNorInfinityIsOne) {
    EXPECT_EQ(Number(kNan), "null");
    EXPECT_EQ(Number(kInfinity), "null");
    EXPECT_EQ(Number(-kInfinity), "null");
}

TEST(JsonTexts, EscapeWhatMayNotStandInOne) {
    EXPECT_EQ(JsonText("say \"no\""), R"("say \"no\"")");
    EXPECT_EQ(JsonText("a\\b/c"), R"("a\\b/c")");
    EXPECT_EQ(JsonText("\b\f\n\r\t"), R"("\b\f\n\r\t")");
    EXPECT_EQ(JsonText(std::string("\0\x01\x0b\x1e\x1f", 5)), R"("\u0000\u0001\u000b\u001e\u001f")");
    EXPECT_EQ(JsonText(" ~\x7f"), "\" ~\x7f\"");
    EXPECT_EQ(JsonText(""), "\"\"");
}

TEST(JsonTexts, KeepUtf8AndReplaceTheRest) {
    EXPECT_EQ(JsonText("60\xC2\xB0 \"\n"), "\"60\xC2\xB0 \\\"\\n\"");
    EXPECT_EQ(JsonText("a\xFFz"), "\"a\xEF\xBF\xBDz\"");
    EXPECT_EQ(JsonText("a\x80z"), "\"a\xEF\xBF\xBDz\"");
}

TEST(JsonLines, AreOneObjectEach) {
    JsonMembers object;
    object.Add("k\n", 7064.900000000001);
    EXPECT_EQ(object.Line(), "{\"k\\n\":7064.900000000001}\n");
    std::string lines = object.Line();
    object.AppendLine(lines);
    EXPECT_EQ(lines, object.Line() + object.Line());
}

TEST(JsonValuesOfAnArray, AreNumbersTextsObjectsAndArrays) {
    JsonMembers object;
    object.Add("k", 1);
    JsonValues inner;
    inner.Add(kNan);
    inner.Add("x");
    JsonValues array;
    EXPECT_EQ(array.Array(), "[]");
    array.Add(1.5);
    array.Add(inner);
    array.Add(object);
    array.Add(JsonValues());
    EXPECT_EQ(array.Array(), R"([1.5,[null,"x"],{"k":1},[]])");
}

TEST(JsonDigits, StandAsTheyAreAndNoneAreNull) {
    JsonMembers object;
    object.AddDigits(JsonKey("a\"b"), "1e+05");
    object.AddDigits(JsonKey("c"), "");
    EXPECT_EQ(object.Object(), R"({"a\"b":1e+05,"c":null})");
}

TEST(JsonErrors, HaveANumberAndAText) {
    EXPECT_EQ(ErrorMember(53, "File not found").Object(),
              R"({"error":{"number":53,"text":"File not found"}})");
}

TEST(JsonMembersOfAnObject, StandInTheOrderInWhichTheyAreAdded) {
    OneBased<double, 3> figures;
    figures[1] = 1;
    figures[2] = 2.5;
    figures[3] = kNan;
    JsonMembers inner;
    inner.Add("deep", "down");
    JsonMembers members;
    EXPECT_EQ(members.Object(), "{}");
    members.Add("number", 0.5);
    members.Add("count", 12);
    members.Add("yes", true);
    members.Add("no", false);
    members.Add("text", "a\"b");
    members.Add("list", std::vector<std::string>{"x", "y\n", "x"});
    members.Add("none", std::vector<std::string>{});
    members.Add("inner", inner);
    members.Add("figures", figures);
    members.Add("first", figures, 1);
    members.Add("nothing", figures, 0);
    JsonValues values;
    values.Add(1);
    members.Add("values", values);
    EXPECT_EQ(
        members.Object(),
        R"({"number":0.5,"count":12,"yes":true,"no":false,"text":"a\"b","list":["x","y\n","x"],"none":[],)"
        R"("inner":{"deep":"down"},"figures":[1,2.5,null],"first":[1],"nothing":[],)"
        R"("values":[1]})");
}

TEST(JsonMembersOfAnObject, AreAppendedAfterOthers) {
    JsonMembers none, one, two;
    one.Add("a", 1);
    two.Add("b", 2);
    two.Append(none);
    EXPECT_EQ(two.Object(), R"({"b":2})");
    none.Append(one);
    EXPECT_EQ(none.Object(), R"({"a":1})");
    two.Append(one);
    EXPECT_EQ(two.Object(), R"({"b":2,"a":1})");
}

}  // namespace
}  // namespace tarvokol::cli

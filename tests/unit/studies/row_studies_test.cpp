// SPDX-License-Identifier: GPL-3.0-or-later
// Sweeps and tables as requests: which rows they have, in which order, in parts, and how they end early.
#include <cmath>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>

#include "core/statistics/study_refusal.h"
#include "core/studies/sweep_study.h"
#include "core/studies/table_study.h"
#include "tests/support/study_requests.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using Values = std::vector<double>;

struct SeenRow {
    std::uint64_t number = 0;
    Values values;
    std::vector<std::uint64_t> places;
    double webs = 0;
    std::string message;

    bool operator==(const SeenRow&) const = default;
};

SweepRequest SweepOf(const std::vector<const char*>& axes) {
    SweepRequest request;
    request.panel = WorkedPanel();
    for (const char* axis : axes) request.AddAxis(AxisOf(axis));
    return request;
}

template <typename Request, typename Run>
std::vector<SeenRow> RowsOf(const Request& request, Run run) {
    std::vector<SeenRow> rows;
    RowsInOrder observer([&rows](const StudyRow& row) {
        rows.push_back({row.number,
                        Values(row.values.begin(), row.values.end()),
                        {row.places.begin(), row.places.end()},
                        row.figures.WebsOnly,
                        row.figures.message});
        return true;
    });
    EXPECT_TRUE(run(request, observer));
    return rows;
}

std::vector<SeenRow> RowsOf(const SweepRequest& request) {
    return RowsOf(request, RunSweep);
}

template <typename Work>
std::string RefusalOf(Work work) {
    try {
        work();
    } catch (const StudyRefusal& refusal) {
        return refusal.what();
    }
    return "not refused";
}

// The webs' factor is 471.99928 / depth at 900 psi, and in proportion to the strength.
TEST(SweepStudy, TheLastAxisRunsFastest) {
    const auto rows = RowsOf(SweepOf({"CoalStrength=900,450", "DepthCover=100:300:100"}));
    ASSERT_EQ(rows.size(), 6u);
    EXPECT_THAT(rows[0].values, ElementsAre(900, 100));
    EXPECT_THAT(rows[2].values, ElementsAre(900, 300));
    EXPECT_THAT(rows[3].values, ElementsAre(450, 100));
    EXPECT_THAT(rows[5].places, ElementsAre(1, 2));
    EXPECT_EQ(rows[5].number, 5u);
    EXPECT_NEAR(rows[2].webs, 471.99928 / 300, 1e-13);
    EXPECT_NEAR(rows[3].webs, 471.99928 / 200, 1e-13);
}

TEST(SweepStudy, PartsAreTheRowsOfTheWhole) {
    SweepRequest request = SweepOf({"WebThickness=2:12/61", "DepthCover=-10:900/101"});
    request.threads = 2;
    const auto whole = RowsOf(request);
    ASSERT_EQ(whole.size(), 6161u);
    std::vector<SeenRow> parts;
    for (const auto& [first, count] : std::vector<std::pair<std::uint64_t, std::uint64_t>>{
             {0, 1}, {1, 2999}, {3000, 0}, {3000, 3000}, {6000, 99999}, {6161, 5}, {9999, 5}}) {
        request.first = first;
        request.count = count;
        const auto part = RowsOf(request);
        parts.insert(parts.end(), part.begin(), part.end());
    }
    ASSERT_EQ(parts.size(), whole.size());
    for (std::size_t i = 0; i < whole.size(); ++i) {
        EXPECT_EQ(parts[i].number, i);
        EXPECT_EQ(parts[i].values, whole[i].values);
        EXPECT_EQ(parts[i].message, whole[i].message);
        EXPECT_TRUE(parts[i].webs == whole[i].webs || std::isnan(whole[i].webs)) << i;
    }
}

TEST(SweepStudy, RefusesInItsWords) {
    EXPECT_EQ(RefusalOf([] { SweepOf({"Height=1", "height=2"}); }), "Height: the field is given twice");
    const SweepRequest wide = SweepOf({"Height=1:2/4000000000", "DepthCover=1:2/4000000000"});
    EXPECT_EQ(RefusalOf([&] { wide.Rows(); }), "too many combinations to count; give larger steps");
    EXPECT_EQ(SweepOf({"Height=1:2/3", "DepthCover=1:2/5"}).Rows(), 15u);
}

// An observer that sees how far the study is, and ends it.
class EndsAt : public RowsInOrder {
  public:
    explicit EndsAt(std::uint64_t last)
        : RowsInOrder([this](const StudyRow&) { return ++rows > 0; }), last_(last) {}
    bool Progress(std::uint64_t done, std::optional<std::uint64_t> total) override {
        told.emplace_back(done, total);
        return done < last_;
    }

    std::uint64_t rows = 0;
    std::vector<std::pair<std::uint64_t, std::optional<std::uint64_t>>> told;

  private:
    std::uint64_t last_;
};

TEST(SweepStudy, AnObserverSeesTheProgressAndEndsIt) {
    SweepRequest request = SweepOf({"DepthCover=1:900/5000"});
    request.threads = 3;
    EndsAt never(99999);
    EXPECT_TRUE(RunSweep(request, never));
    EXPECT_THAT(never.told,
                ElementsAre(std::pair(2048u, std::optional(5000u)), std::pair(4096u, std::optional(5000u)),
                            std::pair(5000u, std::optional(5000u))));
    EXPECT_EQ(never.rows, 5000u);
    EndsAt soon(2000);
    EXPECT_FALSE(RunSweep(request, soon));
    EXPECT_EQ(soon.rows, 2048u);
}

TEST(SweepStudy, WhatATakerRaisesEndsItAndComesOut) {
    const SweepRequest request = SweepOf({"DepthCover=1:900/5000"});
    RowsInOrder observer([](const StudyRow& row) {
        if (row.number == 3000) throw std::runtime_error("row 3000");
        return true;
    });
    EXPECT_THROW(RunSweep(request, observer), std::runtime_error);
}

TableRequest TableOf(std::vector<std::string> header, std::vector<std::vector<std::string>> rows) {
    TableRequest request{WorkedPanel(), TableColumns(std::move(header), Units::English), {}, {}, false, 1};
    request.rows = [rows = std::move(rows), next = std::size_t{0}](TableRow& row) mutable {
        if (next == rows.size()) return false;
        row = {next + 2, rows[next]};
        return ++next > 0;
    };
    return request;
}

TEST(TableStudy, RowsSetTheFieldsOfTheirColumns) {
    const auto rows = RowsOf(TableOf({"Borehole", "depthcover", "CoalStrength"},
                                     {{"a", "200", "900"}, {"b", " 400 ", ""}, {"c", "", "450"}}),
                             RunTable);
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_THAT(rows[0].values, ElementsAre(200, 900));
    EXPECT_THAT(rows[1].values, ElementsAre(400, 900));  // the project's own strength
    EXPECT_THAT(rows[2].values, ElementsAre(100, 450));  // and its depth
    EXPECT_NEAR(rows[0].webs, 471.99928 / 200, 1e-13);
    EXPECT_NEAR(rows[1].webs, 471.99928 / 400, 1e-13);
    EXPECT_NEAR(rows[2].webs, 471.99928 / 200, 1e-13);
}

TEST(TableStudy, AFaultyCellIsRefusedByItsPlace) {
    const auto refusal = [](const char* cell, const char* title) {
        return RefusalOf([&] { RowsOf(TableOf({"Borehole", title}, {{"a", "7"}, {"b", cell}}), RunTable); });
    };
    EXPECT_EQ(refusal("x", "Height"), "line 3, column 2 (Height): \"x\" is no number");
    EXPECT_EQ(refusal("2.5", "NumberHoles"),
              "line 3, column 2 (NumberHoles): \"2.5\" cannot be stored in this field");
    EXPECT_EQ(refusal("1e39", "SFWeb"), "line 3, column 2 (SFWeb): \"1e39\" cannot be stored in this field");
}

TEST(TableStudy, AHeaderNeedsAFieldAndEachOnce) {
    EXPECT_EQ(RefusalOf([] {
                  TableColumns({"Height", "Borehole", "HEIGHT"}, Units::English);
              }),
              "the column Height stands there twice");
    EXPECT_EQ(RefusalOf([] { TableColumns({"Borehole"}, Units::English); }).substr(0, 77),
              "no column is named as a field of the project; the fields are Height, DepthCov");
}

}  // namespace
}  // namespace tarvokol

// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/engine/panel_fields.h"

#include <cmath>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "core/runtime/run_time_error.h"

namespace tarvokol {
namespace {

TEST(PanelFields, AreElevenWithNamesAndTitlesOfTheirOwn) {
    std::set<std::string> names, titles;
    for (const PanelFieldFacts& facts : kPanelFields) {
        names.insert(facts.name);
        titles.insert(facts.title);
    }
    EXPECT_EQ(names.size(), 11u);
    EXPECT_EQ(titles.size(), 11u);
}

TEST(PanelFields, AreFoundByTheirNamesInAnyLetterCase) {
    EXPECT_EQ(FieldNamed("DepthCover"), PanelField::DepthCover);
    EXPECT_EQ(FieldNamed("sfbarrier"), PanelField::SFBarrier);
    EXPECT_EQ(FieldNamed("Depth"), std::nullopt);
    EXPECT_EQ(FieldNamed(""), std::nullopt);
    EXPECT_EQ(FieldNamed("DepthCover "), std::nullopt);
}

TEST(PanelFields, HaveUnitsOfTheSystem) {
    EXPECT_STREQ(UnitOfField(PanelField::CoalStrength, Units::English), "psi");
    EXPECT_STREQ(UnitOfField(PanelField::CoalStrength, Units::Metric), "MPa");
    // The analysis takes a number that is no unit system for Metric.
    EXPECT_STREQ(UnitOfField(PanelField::UnitWeight, static_cast<Units>(3)), "kN/m3");
    EXPECT_STREQ(UnitOfField(PanelField::SFWeb, Units::English), "");
}

TEST(PanelFields, AreStoredInTheirTypes) {
    Panel panel;
    StoreInField(panel, PanelField::Height, 0.1);
    EXPECT_EQ(panel.Height, 0.1);
    StoreInField(panel, PanelField::SFWeb, 0.1);
    EXPECT_EQ(panel.SFWeb, 0.1f);
    EXPECT_EQ(ValueOfField(panel, PanelField::SFWeb), double{0.1f});
    StoreInField(panel, PanelField::NumberHoles, 2.5);  // halves to even
    EXPECT_EQ(panel.NumberHoles, 2);
    StoreInField(panel, PanelField::NumberHoles, 0);
    EXPECT_EQ(panel.NumberHoles, 1);
    EXPECT_THROW(StoreInField(panel, PanelField::NumberHoles, 40000), RunTimeError);
    EXPECT_THROW(StoreInField(panel, PanelField::SFBarrier, 1e39), RunTimeError);
}

TEST(PanelFields, OnlyTheNumberOfHolesIsACount) {
    for (const PanelFieldFacts& facts : kPanelFields)
        EXPECT_EQ(IsWholeField(facts.field), facts.field == PanelField::NumberHoles) << facts.name;
}

// Strength and unit weight stand with two decimals in the dialog, whose point is always written.
TEST(PanelFields, HaveTheTextsOfTheDialog) {
    Panel panel;
    panel.CoalStrength = 900.128;
    panel.UnitWeight = 162;
    panel.DepthCover = 100.125;
    panel.SFWeb = 1.6f;
    panel.NumberHoles = 12;
    EXPECT_EQ(TextOfField(panel, PanelField::CoalStrength), "900.13");
    EXPECT_EQ(TextOfField(panel, PanelField::UnitWeight), "162.");
    EXPECT_EQ(TextOfField(panel, PanelField::DepthCover), "100.125");
    EXPECT_EQ(TextOfField(panel, PanelField::SFWeb), "1.6");
    EXPECT_EQ(TextOfField(panel, PanelField::NumberHoles), "12");
}

}  // namespace
}  // namespace tarvokol

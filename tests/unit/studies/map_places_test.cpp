// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/map_places.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/study_requests.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;

std::vector<bool> GivenOf(const MapPlaces& places) {
    std::vector<bool> given;
    for (std::size_t i = 0; i < places.Count(); ++i) given.push_back(places.IsGiven(i));
    return given;
}

TEST(MapPlaces, AreRisingAndEachOnce) {
    const MapPlaces places(AxisOf("Height=3,1,2,3,1"));
    EXPECT_THAT(places.Values(), ElementsAre(1, 2, 3));
    EXPECT_THAT(GivenOf(places), ElementsAre(true, true, true));
    EXPECT_EQ(places.Field(), PanelField::Height);
    EXPECT_THAT(MapPlaces(AxisOf("Height=8:2:-3")).Values(), ElementsAre(2, 5, 8));
}

// No step longer than a quarter of 0 to 8: the one from 0 to 1 stays, that to 8 becomes four.
TEST(MapPlaces, LongStepsAreDividedEvenly) {
    MapPlaces places(AxisOf("Height=0,1,8"));
    places.Divide(4);
    EXPECT_THAT(places.Values(), ElementsAre(0, 1, 2.75, 4.5, 6.25, 8));
    EXPECT_THAT(GivenOf(places), ElementsAre(true, true, false, false, false, true));
}

TEST(MapPlaces, StepsThatAreFineEnoughStay) {
    MapPlaces places(AxisOf("Height=0:1:0.1"));
    places.Divide(10);
    EXPECT_EQ(places.Count(), 11u);
    places.Divide(5);
    EXPECT_EQ(places.Count(), 11u);
    places.Divide(0);
    EXPECT_EQ(places.Count(), 11u);
    places.Divide(11);
    EXPECT_EQ(places.Count(), 21u);
}

TEST(MapPlaces, CountsAreDividedAtWholeNumbers) {
    MapPlaces places(AxisOf("NumberHoles=2,4,9"));
    EXPECT_TRUE(places.IsWhole());
    places.Divide(240);
    EXPECT_THAT(places.Values(), ElementsAre(2, 3, 4, 5, 6, 7, 8, 9));
    EXPECT_THAT(GivenOf(places), ElementsAre(true, false, true, false, false, false, false, true));
    MapPlaces wide(AxisOf("NumberHoles=1,2000"));
    wide.Divide(240);
    EXPECT_THAT(wide.Values(), ElementsAre(1, 2000));
}

TEST(MapPlaces, AValueIsInsertedInItsPlaceOnce) {
    MapPlaces places(AxisOf("Height=1,3"));
    places.Insert(2);
    places.Insert(2);
    places.Insert(3);
    EXPECT_THAT(places.Values(), ElementsAre(1, 2, 3));
    EXPECT_THAT(GivenOf(places), ElementsAre(true, false, true));
}

}  // namespace
}  // namespace tarvokol

// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/runtime/shown_text.h"

#include <gtest/gtest.h>

namespace tarvokol {
namespace {

TEST(ShownText, ControlCharactersAreShownByTheirNumbers) {
    EXPECT_EQ(WithControlsShown("a\x1b[2Jb"), "a\\x1B[2Jb");
    EXPECT_EQ(WithControlsShown(std::string("\0\t\n\x7f", 4)), "\\x00\\x09\\x0A\\x7F");
    EXPECT_EQ(WithControlsShown("\xc2\x80\xc2\x9b\xc2\x9f"), "\\u0080\\u009B\\u009F");
}

TEST(ShownText, ABytesControlOfAnEightBitTerminalIsShown) {
    EXPECT_EQ(WithControlsShown("a\x9b"), "a\\x9B");
}

TEST(ShownText, OtherCharactersAndThoseAskedForStay) {
    EXPECT_EQ(WithControlsShown("Gr\xc3\xbc\xc3\x9f"
                                "e \xe2\x82\xac ~ \xc2\xa0"),
              "Gr\xc3\xbc\xc3\x9f"
              "e \xe2\x82\xac ~ \xc2\xa0");
    EXPECT_EQ(WithControlsShown("one\n\ttwo\r", "\n\t"), "one\n\ttwo\\x0D");
    EXPECT_EQ(WithControlsShown(""), "");
}

}  // namespace
}  // namespace tarvokol

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

namespace tarvokol {

// Message-box styles and results, as the program passes them about.
namespace box_style {
constexpr int Plain = 0;
constexpr int YesNo = 4;
constexpr int RetryCancel = 5;
constexpr int Critical = 16;
constexpr int YesNoCancelQuestion = 35;
constexpr int YesNoQuestion = 36;
constexpr int Exclamation = 48;
constexpr int Information = 64;
constexpr int PlainSecondButton = 256;  // a plain OK box: it has no second button
constexpr int YesNoQuestionNoDefault = 292;
constexpr int YesNoCancelQuestionNoDefault = 291;
}  // namespace box_style

namespace box_result {
constexpr int Ok = 1;
constexpr int Cancel = 2;
constexpr int Retry = 4;
constexpr int Yes = 6;
constexpr int No = 7;
}  // namespace box_result

struct BoxRequest {
    std::string message;
    int style = box_style::Plain;
    std::string title;
    std::string help_file;
    long context = 0;
    std::vector<std::string>
        captions{};  // of the buttons in the order of the style's name; empty for the usual ones
};

// A modal box that waits for its answer.
class MessageBox {
  public:
    virtual ~MessageBox() = default;

    // Shows the box; the result is one of box_result.
    virtual int Show(const BoxRequest& request) = 0;
};

}  // namespace tarvokol

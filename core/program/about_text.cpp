// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/program/about_text.h"

#include "core/platform/message_box.h"
#include "core/platform/platform.h"
#include "core/program/start_up.h"
#include "core/report/report_builder.h"
#include "core/settings/program_name.h"
#include "core/settings/update_reminder.h"

namespace tarvokol {
namespace {

constexpr const char* kLineEnd = "\r\n";
constexpr const char* kParagraphEnd = "\r\n\n";

}  // namespace

std::string AboutText() {
    return "Version: " + VersionString() + kParagraphEnd +           //
           "Revision Date: " + ReleaseDateText() + kParagraphEnd +   //
           "This program was originally created by:" + kLineEnd +    //
           "   OLTEK design group" + kLineEnd +                      //
           "   OLTEK, Ground Control Engineering" + kParagraphEnd +  //
           "Development of windows version:" + kLineEnd +            //
           "   OLTEK design group" + kLineEnd;
}

void ShowAboutBox() {
    Platform.Messages->Show({AboutText(), box_style::Information, "About the " + ExeNameUpper + " Program",
                             RunTimeHelpFile, kAboutContext});
}

}  // namespace tarvokol

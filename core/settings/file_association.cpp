// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/settings/file_association.h"

#include "core/messages/history_log.h"
#include "core/messages/notify.h"
#include "core/platform/document_types.h"
#include "core/platform/message_box.h"
#include "core/platform/platform.h"
#include "core/platform/special_folders.h"
#include "core/settings/folders.h"
#include "core/settings/main_settings.h"
#include "core/settings/program_name.h"

namespace tarvokol {
void CreateFileAssociation() {
    const std::string name = ProgramName();
    const int16_t answer = Notify("This operation may break an existing association of file extension " +
                                      FileExtension + " with other programs on this computer. Proceed?",
                                  box_style::YesNo);
    if (answer != box_result::Yes) return;
    RegisterFileType(AppFolder, name, FileExtension);
    LogMessage(AppFolder + " " + name + " " + FileExtension);
}

void RegisterFileType(const std::string& folder, const std::string& name, const std::string& ext) {
    const std::string command = folder + name + ".EXE \"%1\"";
    Platform.FileTypes->Register(
        {ext, name + ".Document", name + " Document", command, Platform.Folders->ProgramFile()});
    Notify("The file association for " + ext + " has been made to " + command, box_style::Plain);
}

}  // namespace tarvokol

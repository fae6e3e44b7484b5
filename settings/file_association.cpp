#include "settings/file_association.h"

#include "messages/history_log.h"
#include "messages/notify.h"
#include "platform/document_types.h"
#include "platform/message_box.h"
#include "platform/platform.h"
#include "platform/program_name.h"
#include "platform/special_folders.h"
#include "settings/folders.h"
#include "settings/program_settings.h"

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

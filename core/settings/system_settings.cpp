// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/settings/system_settings.h"

#include "core/settings/ini_file.h"
#include "core/settings/key_tables.h"

namespace tarvokol {

bool TakeSystemSettings() {
    const IniDocument file = IniDocument::Load(SystemIniPath);
    if (file.Outcome() != ReadOutcome::Read) return false;
    for (int selector = section::First; selector <= section::Last; ++selector) {
        if (selector == section::FileMenu) continue;
        const IniSection keys = file.Section(SectionName(selector));
        for (const KeyRule& rule : KeysOf(selector))
            if (const std::string text = keys.Get(rule.read_name); !text.empty()) SetFromText(rule, text);
    }
    return true;
}

}  // namespace tarvokol

// SPDX-License-Identifier: GPL-3.0-or-later
// All sections of the configuration file, for who goes over the whole file. One variable per key; memory is the
// master after start-up. Keys and ranges stand in core/settings/key_tables.cpp; what depends on the computer or on
// another setting is filled by SetSettingsToBuiltIn. Who needs one section includes that alone.
#pragma once

#include "core/messages/history_log.h"
#include "core/settings/graph_settings.h"
#include "core/settings/main_settings.h"
#include "core/settings/option_settings.h"
#include "core/settings/options_record.h"
#include "core/settings/program_name.h"
#include "core/settings/recent_file_settings.h"
#include "core/settings/text_browse_settings.h"

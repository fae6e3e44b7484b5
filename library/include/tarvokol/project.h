// SPDX-License-Identifier: GPL-3.0-or-later
// A project file, made of its bytes and making them.
#pragma once

#include "core/project/project_document.h"  // IWYU pragma: export

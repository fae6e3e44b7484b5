// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>

#include "desktop/base/form_base.h"

namespace tarvokol {

// The form that opened the results viewer; it sets this before it loads the viewer, which enables it again
// when it closes.
inline QPointer<FormBase> ResultsCaller;

}  // namespace tarvokol

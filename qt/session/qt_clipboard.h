// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/platform/clipboard.h"

namespace tarvokol {

// The desktop's clipboard.
class QtClipboard : public Clipboard {
  public:
    void Clear() override;
    void SetText(const std::string& text) override;
};

}  // namespace tarvokol

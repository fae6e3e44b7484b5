// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace tarvokol {

class Clipboard {
  public:
    virtual ~Clipboard() = default;

    virtual void Clear() = 0;
    virtual void SetText(const std::string& text) = 0;
};

}  // namespace tarvokol

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/platform/message_box.h"

namespace tarvokol {

// Message boxes of the toolkit, above the window that the user is in. One with a help file and a context opens that
// topic with F1.
class QtMessageBox : public MessageBox {
  public:
    int Show(const BoxRequest& request) override;
};

}  // namespace tarvokol

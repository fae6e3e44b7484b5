#pragma once

#include "core/platform/message_box.h"

namespace tarvokol {

// Message boxes of the toolkit, above the active window.
class QtMessageBox : public MessageBox {
  public:
    int Show(const BoxRequest& request) override;
};

}  // namespace tarvokol

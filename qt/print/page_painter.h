// SPDX-License-Identifier: GPL-3.0-or-later
// What the toolkit's printer gives those who draw pictures on its pages.
#pragma once

#include <QPainter>
#include <QPrinter>

namespace tarvokol {

class PagePainter {
  public:
    explicit PagePainter(QPainter& painter) : Painter(painter) {}

    QPainter& Painter;
};

class PageDevice {
  public:
    explicit PageDevice(QPrinter& device) : Device(device) {}

    QPrinter& Device;
};

}  // namespace tarvokol

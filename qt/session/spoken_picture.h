// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAccessible>
#include <QString>

namespace tarvokol {

// A number and its bounds.
struct SpokenValue {
    double now = 0;
    double least = 0;
    double most = 0;
};

// What a widget that draws a picture tells a screen reader beside its name and its description.
class SpokenPicture {
  public:
    virtual ~SpokenPicture() = default;

    // What kind of thing it is.
    virtual QAccessible::Role SpokenRole() const = 0;

    // Of the place to which the keys have led.
    virtual SpokenValue ValueToSpeak() const = 0;

    // The same in words; empty where the number says it all.
    virtual QString WordsToSpeak() const { return {}; }
};

}  // namespace tarvokol

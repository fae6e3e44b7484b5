// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QLineEdit;

namespace tarvokol {

// What becomes of a figure where it is stored.
enum class StoredAs { Figure, Whole };

// From now on, whenever the box of a figure holds a text of which another value would be used ("4,5" is used as 4, "12O" as
// 12), a note beside the box says which. It covers no other box and stays as long as that is so. An empty box has none.
void NoteUsedValue(QLineEdit& box, StoredAs stored = StoredAs::Figure);

}  // namespace tarvokol

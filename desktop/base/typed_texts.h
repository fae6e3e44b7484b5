// SPDX-License-Identifier: GPL-3.0-or-later
// Keeps what stands typed in a dialog before its OK, for the case that the program does not live to see it.
#pragma once

#include <QObject>
#include <QTimer>

#include "core/project/copy_note.h"

namespace tarvokol {

class FormBase;

// The texts of the form's boxes that can be typed into, and its options, by their names.
TypedTexts TypedTextsOf(const FormBase& form);

// Puts them into the boxes of a form, as if they were typed; boxes that the form does not have are passed over.
void PutTypedTexts(FormBase& form, const TypedTexts& typed);

// Makes the program keep a form's texts a second after the last key. A form makes it at the end of its load.
class TypedTextsKeeper : public QObject {
    Q_OBJECT

  public:
    explicit TypedTextsKeeper(FormBase& form);
    ~TypedTextsKeeper() override;

    // Keeps what stands there now.
    void Keep();

    // The dialog closes: nothing is kept any more (recovery_copy.h).
    void Drop();

  private:
    FormBase& form_;
    TypedTexts loaded_;
    QTimer pause_;
    bool dropped_ = false;
};

// Keeps at once what stands in all dialogs, for an end that does not wait.
void KeepAllTypedTexts();

}  // namespace tarvokol

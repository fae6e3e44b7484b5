// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/base/used_value.h"

#include <QAbstractSlider>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QToolTip>
#include <algorithm>
#include <cmath>

#include "core/runtime/numbers.h"
#include "core/runtime/run_time_error.h"
#include "core/runtime/text.h"
#include "qt/session/qt_text.h"

namespace tarvokol {
namespace {

constexpr int kGap = 3;  // pixels between box and note

bool IsTyped(double used, const std::string& text) {
    try {
        return StrictNumber(text) == used;
    } catch (const RunTimeError&) {
        return false;
    }
}

// Empty if the text says what is used, or is refused in any case.
std::string UsedText(const std::string& text, StoredAs stored) {
    if (Trim(text).empty()) return "";
    try {
        double used = NumericParse(text);
        if (stored == StoredAs::Whole) used = std::nearbyint(used);
        return IsTyped(used, text) ? "" : GeneralText(used);
    } catch (const RunTimeError&) {
        return "";  // too large for any box
    }
}

class UsedValueNote : public QLabel {
  public:
    UsedValueNote(QLineEdit& box, StoredAs stored) : QLabel(box.parentWidget()), box_(box), stored_(stored) {
        setObjectName(box.objectName() + "Used");
        setTextFormat(Qt::PlainText);
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setAutoFillBackground(true);
        setPalette(QToolTip::palette());
        setForegroundRole(QPalette::ToolTipText);
        setBackgroundRole(QPalette::ToolTipBase);
        setFrameShape(QFrame::Box);
        setMargin(2);
        hide();
        connect(&box, &QLineEdit::textChanged, this, [this] { Follow(); });
        box.installEventFilter(this);
        Follow();
    }

    bool eventFilter(QObject*, QEvent* event) override {
        if (isHidden()) return false;
        if (event->type() == QEvent::Move || event->type() == QEvent::Resize || event->type() == QEvent::Show)
            Place();
        return false;
    }

  private:
    void Follow() {
        const std::string used = UsedText(FromQt(box_.text()), stored_);
        setText(used.empty() ? QString() : "used: " + ToQt(used));
        box_.setAccessibleDescription(text());
        setVisible(!used.empty());
        if (!used.empty()) Place();
    }

    // Beside the box where nothing else stands, else where at least no control does.
    void Place() {
        adjustSize();
        const QRect places[] = {
            At(box_.geometry().right() + kGap, MiddleY()), At(box_.x() - width() - kGap, MiddleY()),
            At(box_.x(), box_.geometry().bottom() + kGap), At(box_.x(), box_.y() - height() - kGap)};
        const auto free = [this](bool of_everything) {
            return [this, of_everything](const QRect& place) { return IsFree(place, of_everything); };
        };
        const QRect* found = std::find_if(std::begin(places), std::end(places), free(true));
        if (found == std::end(places))
            found = std::find_if(std::begin(places), std::end(places), free(false));
        setGeometry(found == std::end(places) ? places[0] : *found);
        raise();
    }

    QRect At(int x, int y) const { return {QPoint(x, y), size()}; }
    int MiddleY() const { return box_.geometry().center().y() - height() / 2; }

    bool IsFree(const QRect& place, bool of_everything) const {
        if (!parentWidget()->rect().contains(place)) return false;
        const auto others = parentWidget()->findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
        return std::none_of(others.begin(), others.end(), [&](const QWidget* other) {
            return other != this && !other->isHidden() && (of_everything || TakesInput(*other)) &&
                   other->geometry().intersects(place);
        });
    }

    static bool TakesInput(const QWidget& widget) {
        return widget.focusPolicy() != Qt::NoFocus || qobject_cast<const QLineEdit*>(&widget) != nullptr ||
               qobject_cast<const QAbstractSlider*>(&widget) != nullptr;
    }

    QLineEdit& box_;
    StoredAs stored_;
};

}  // namespace

void NoteUsedValue(QLineEdit& box, StoredAs stored) {
    new UsedValueNote(box, stored);
}

}  // namespace tarvokol

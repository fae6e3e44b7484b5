// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QPalette>
#include <QProxyStyle>

namespace tarvokol {

// The contrast of two colours, 1 to 21: (L + 0.05) / (l + 0.05) of their relative luminances L and l, the lighter one first
// (Web Content Accessibility Guidelines 2.1).
double ContrastOf(const QColor& one, const QColor& other);

// The desktop's style, but for four things. The mark of a toolbar that is too narrow for its buttons: the style reads it
// from a picture file as soon as a toolbar exists, for which all readers of picture files are loaded, a tenth
// of the program's start; here it is drawn when it is seen. And the texts of what is disabled, which many desktops paint
// so pale that nobody reads them: they get a contrast of kLeastContrast with what they stand on. So does what an empty box
// says of itself.
// And the look of a default button, which a button with the focus takes over together with Enter.
class ProgramStyle : public QProxyStyle {
    Q_OBJECT

  public:
    static constexpr double kLeastContrast = 3;

    using QProxyStyle::polish;
    void polish(QPalette& palette) override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const override;
};

}  // namespace tarvokol

// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/session/program_style.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPushButton>
#include <QStyleOption>
#include <algorithm>
#include <cmath>
#include <vector>

namespace tarvokol {
namespace {

// An arrow of the style, in the colours of the desktop.
class ArrowIcon : public QIconEngine {
  public:
    explicit ArrowIcon(QStyle::PrimitiveElement arrow) : arrow_(arrow) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        QStyleOption option;
        option.rect = rect;
        option.palette = QApplication::palette();
        option.state = mode == QIcon::Disabled ? QStyle::State_None : QStyle::State_Enabled;
        QApplication::style()->drawPrimitive(arrow_, &option, painter);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return picture;
    }

    QIconEngine* clone() const override { return new ArrowIcon(arrow_); }

  private:
    QStyle::PrimitiveElement arrow_;
};

// Relative luminance of a part of a colour, 0 to 1.
double Linear(double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double LuminanceOf(const QColor& colour) {
    return 0.2126 * Linear(colour.redF()) + 0.7152 * Linear(colour.greenF()) +
           0.0722 * Linear(colour.blueF());
}

// The colour `share` of the way to the other one.
QColor Between(const QColor& from, const QColor& to, double share) {
    const auto part = [share](float a, float b) { return static_cast<float>(a + (b - a) * share); };
    return QColor::fromRgbF(part(from.redF(), to.redF()), part(from.greenF(), to.greenF()),
                            part(from.blueF(), to.blueF()));
}

bool CanBeRead(const QColor& text, const std::vector<QColor>& grounds) {
    return std::all_of(grounds.begin(), grounds.end(), [&](const QColor& ground) {
        return ContrastOf(text, ground) >= ProgramStyle::kLeastContrast;
    });
}

// The text's own colour, or one as near to it as can be read, on the way to the colour of what is enabled.
QColor Readable(const QColor& text, const QColor& enabled, const std::vector<QColor>& grounds) {
    constexpr int kSteps = 20;
    for (int step = 0; step < kSteps; ++step) {
        const QColor colour = Between(text, enabled, static_cast<double>(step) / kSteps);
        if (CanBeRead(colour, grounds)) return colour;
    }
    return enabled;
}

// What an empty box says of itself, in a colour that the toolkit may have made half transparent of another palette's.
void MakePlaceholderReadable(QPalette& palette, QPalette::ColorGroup group) {
    const QColor base = palette.color(group, QPalette::Base);
    const QColor placeholder = palette.color(group, QPalette::PlaceholderText);
    const QColor seen = Between(base, placeholder, placeholder.alphaF());
    if (!CanBeRead(seen, {base}))
        palette.setColor(group, QPalette::PlaceholderText,
                         Readable(seen, palette.color(group, QPalette::Text), {base}));
}

}  // namespace

double ContrastOf(const QColor& one, const QColor& other) {
    const double a = LuminanceOf(one) + 0.05, b = LuminanceOf(other) + 0.05;
    return std::max(a, b) / std::min(a, b);
}

void ProgramStyle::polish(QPalette& palette) {
    QProxyStyle::polish(palette);
    // A style may put each of these texts on each of these grounds, as in a menu or a list.
    std::vector<QColor> grounds;
    grounds.reserve(3);
    for (const QPalette::ColorRole ground : {QPalette::Window, QPalette::Base, QPalette::Button})
        grounds.push_back(palette.color(QPalette::Disabled, ground));
    for (const QPalette::ColorRole text : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, text,
                         Readable(palette.color(QPalette::Disabled, text),
                                  palette.color(QPalette::Active, text), grounds));
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive})
        MakePlaceholderReadable(palette, group);
}

void ProgramStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
    const bool drawn = element == CE_PushButton || element == CE_PushButtonBevel;
    const auto* focused =
        drawn && widget != nullptr ? qobject_cast<QPushButton*>(widget->window()->focusWidget()) : nullptr;
    if (button == nullptr || focused == nullptr) {
        QProxyStyle::drawControl(element, option, painter, widget);
        return;
    }
    QStyleOptionButton looks(*button);
    looks.features.setFlag(QStyleOptionButton::DefaultButton, focused == widget);
    QProxyStyle::drawControl(element, &looks, painter, widget);
}

QIcon ProgramStyle::standardIcon(StandardPixmap icon, const QStyleOption* option,
                                 const QWidget* widget) const {
    if (icon == SP_ToolBarHorizontalExtensionButton) return QIcon(new ArrowIcon(PE_IndicatorArrowRight));
    if (icon == SP_ToolBarVerticalExtensionButton) return QIcon(new ArrowIcon(PE_IndicatorArrowDown));
    return QProxyStyle::standardIcon(icon, option, widget);
}

}  // namespace tarvokol

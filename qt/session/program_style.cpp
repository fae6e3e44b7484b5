// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/session/program_style.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QStyleOption>

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

}  // namespace

QIcon ProgramStyle::standardIcon(StandardPixmap icon, const QStyleOption* option,
                                 const QWidget* widget) const {
    if (icon == SP_ToolBarHorizontalExtensionButton) return QIcon(new ArrowIcon(PE_IndicatorArrowRight));
    if (icon == SP_ToolBarVerticalExtensionButton) return QIcon(new ArrowIcon(PE_IndicatorArrowDown));
    return QProxyStyle::standardIcon(icon, option, widget);
}

}  // namespace tarvokol

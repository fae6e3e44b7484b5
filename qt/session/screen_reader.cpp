// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/session/screen_reader.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QTabWidget>

#include "qt/session/spoken_picture.h"

namespace tarvokol {
namespace {

// A widget with a value, which nobody sets from outside.
class ValuedWidget : public QAccessibleWidget, public QAccessibleValueInterface {
  public:
    using QAccessibleWidget::QAccessibleWidget;

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::ValueInterface) return static_cast<QAccessibleValueInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }
    QVariant currentValue() const override { return Value().now; }
    QVariant minimumValue() const override { return Value().least; }
    QVariant maximumValue() const override { return Value().most; }
    QVariant minimumStepSize() const override { return 0.0; }
    void setCurrentValue(const QVariant&) override {}

  protected:
    virtual SpokenValue Value() const = 0;
};

class PictureForReaders : public ValuedWidget {
  public:
    PictureForReaders(QWidget& widget, const SpokenPicture& picture)
        : ValuedWidget(&widget, picture.SpokenRole()), picture_(picture) {}

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Value && object() != nullptr ? picture_.WordsToSpeak()
                                                                 : ValuedWidget::text(kind);
    }

  protected:
    SpokenValue Value() const override {
        return object() == nullptr ? SpokenValue{} : picture_.ValueToSpeak();
    }

  private:
    const SpokenPicture& picture_;
};

// Named by what the form calls it, described by the caption of the page that shows.
class TabsForReaders : public ValuedWidget {
  public:
    explicit TabsForReaders(QTabWidget& tabs) : ValuedWidget(&tabs, QAccessible::LayeredPane) {}

    QString text(QAccessible::Text kind) const override {
        const auto* tabs = qobject_cast<QTabWidget*>(object());
        if (kind != QAccessible::Description || tabs == nullptr) return ValuedWidget::text(kind);
        return tabs->tabText(tabs->currentIndex()).remove('&');
    }

  protected:
    SpokenValue Value() const override {
        const auto* tabs = qobject_cast<QTabWidget*>(object());
        if (tabs == nullptr) return {};
        return {tabs->currentIndex() + 1.0, 1.0, static_cast<double>(tabs->count())};
    }
};

// The tabs that a widget is a page of, if it is one.
QTabWidget* TabsOfPage(const QWidget& page) {
    auto* tabs = page.parentWidget() == nullptr
                     ? nullptr
                     : qobject_cast<QTabWidget*>(page.parentWidget()->parentWidget());
    return tabs != nullptr && tabs->indexOf(&page) >= 0 ? tabs : nullptr;
}

class PageForReaders : public QAccessibleWidget {
  public:
    explicit PageForReaders(QWidget& page) : QAccessibleWidget(&page, QAccessible::Grouping) {}

    QString text(QAccessible::Text kind) const override {
        const QWidget* page = widget();
        const QTabWidget* tabs = kind == QAccessible::Name && page != nullptr ? TabsOfPage(*page) : nullptr;
        return tabs == nullptr ? QAccessibleWidget::text(kind)
                               : tabs->tabText(tabs->indexOf(page)).remove('&');
    }
};

QAccessibleInterface* InterfaceOf(const QString& name, QObject* object) {
    auto* widget = qobject_cast<QWidget*>(object);
    if (widget == nullptr) return nullptr;
    if (const auto* picture = dynamic_cast<const SpokenPicture*>(widget))
        return new PictureForReaders(*widget, *picture);
    if (auto* tabs = qobject_cast<QTabWidget*>(widget)) return new TabsForReaders(*tabs);
    if (name == "QSvgWidget") return new QAccessibleWidget(widget, QAccessible::Graphic);
    if (name == "QWidget" && TabsOfPage(*widget) != nullptr) return new PageForReaders(*widget);
    return nullptr;
}

}  // namespace

void TellScreenReaders() {
    QAccessible::installFactory(InterfaceOf);
}

}  // namespace tarvokol

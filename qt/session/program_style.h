// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProxyStyle>

namespace tarvokol {

// The desktop's style, but for the mark of a toolbar that is too narrow for its buttons: the style reads it
// from a picture file as soon as a toolbar exists, for which all readers of picture files are loaded, a tenth
// of the program's start. Here it is drawn when it is seen.
class ProgramStyle : public QProxyStyle {
    Q_OBJECT

  public:
    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const override;
};

}  // namespace tarvokol

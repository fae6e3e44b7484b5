#include "platform/qt/qt_message_box.h"

#include <QApplication>
#include <QMessageBox>

#include "platform/qt/message_box_style.h"
#include "platform/qt/qt_text.h"

namespace tarvokol {

int QtMessageBox::Show(const BoxRequest& request) {
    QMessageBox box(IconOfStyle(request.style), ToQt(request.title),
                    ToQt(request.message).replace("\r\n", "\n"), ButtonsOfStyle(request.style),
                    QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse);
    box.setDefaultButton(DefaultButtonOfStyle(request.style));
    return ResultOfButton(static_cast<QMessageBox::StandardButton>(box.exec()));
}

}  // namespace tarvokol

// SPDX-License-Identifier: GPL-3.0-or-later
// drag_source FILE: a window from which the mouse drags that file, as from a file manager.
#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>
#include <QWidget>

namespace {

class DragSource : public QWidget {
  public:
    explicit DragSource(const QString& file) : file_(file) {
        setWindowTitle("Drag source");
        setGeometry(0, 0, 120, 60);
    }

  protected:
    void mouseMoveEvent(QMouseEvent* event) override {
        if (!event->buttons().testFlag(Qt::LeftButton)) return;
        auto* dragged = new QMimeData;
        dragged->setUrls({QUrl::fromLocalFile(file_)});
        auto* drag = new QDrag(this);
        drag->setMimeData(dragged);
        drag->exec(Qt::CopyAction);
    }

  private:
    QString file_;
};

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    if (argc != 2) return 2;
    DragSource source(QString::fromLocal8Bit(argv[1]));
    source.show();
    return QApplication::exec();
}

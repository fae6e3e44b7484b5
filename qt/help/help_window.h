// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMainWindow>
#include <QModelIndex>
#include <QUrl>
#include <optional>

#include "qt/help/help_collection.h"

class QHelpIndexWidget;
class QHelpLink;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QTabWidget;

namespace tarvokol {

class HelpBrowser;

// The help viewer: contents, index and search on the left, the topic on the right.
class HelpWindow : public QMainWindow {
    Q_OBJECT

  public:
    // A missing or unreadable compiled file gives a window that says so in place of topics.
    explicit HelpWindow(const QString& compiled_file);

    const QString& CompiledFile() const { return compiled_file_; }

    void ShowContents();
    void ShowIndex();

    // A topic by its file name; the page says so if the help has no such topic.
    void ShowTopic(const QString& topic);

  protected:
    bool event(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    void BuildNavigation();
    void BuildToolbar();
    QWidget* BuildIndexPage();
    QWidget* BuildSearchPage();
    void Connect();

    void ShowHomeUnlessOnPage();
    void ShowNotice(const QString& title, const QString& text);
    void PutInFront();
    void BelongTo(QWidget* dialog);
    void FollowDialog();
    void FocusOnPage(int page);
    void RememberPlace();

    void Page_Changed(int page);
    void Contents_Created();
    void Contents_Clicked(const QModelIndex& index);
    void Index_Activated(const QHelpLink& link);
    void IndexFilter_Changed(const QString& text);
    void IndexFilter_Entered();
    void Search_Run();
    void Search_Finished(int hits);
    void Result_Activated(QListWidgetItem* item);
    void Home_Triggered();
    void Print_Triggered();
    void Source_Changed(const QUrl& address);

    QString compiled_file_;
    std::optional<QPoint> last_place_;  // where the user saw it last
    bool was_framed_ = false;           // by the window manager, then
    HelpCollection collection_;
    HelpBrowser* browser_;
    QTabWidget* tabs_;
    QLineEdit* index_filter_ = nullptr;
    QHelpIndexWidget* index_ = nullptr;
    QLineEdit* search_text_ = nullptr;
    QListWidget* results_ = nullptr;
};

}  // namespace tarvokol

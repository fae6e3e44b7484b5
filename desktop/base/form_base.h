// SPDX-License-Identifier: GPL-3.0-or-later
// What all forms share: one instance of each, loading and unloading, modal and modeless show, Enter, Escape,
// F1.
#pragma once

#include <QFont>
#include <QMainWindow>
#include <QPointer>
#include <string>
#include <string_view>
#include <vector>

class QEventLoop;
class QPushButton;

namespace tarvokol {

// A form is a parentless top-level window, so that a disabled opener does not disable what it opened. It
// lives from its load to its unload; the next use loads a new one. Form classes derive from SingleForm below.
class FormBase : public QMainWindow {
    Q_OBJECT

  public:
    ~FormBase() override;

    // Shows the form and brings it to the front. It stays above `owner`, or the active window if that is not
    // given.
    void ShowModeless(QWidget* owner = nullptr);

    // Shows the form so that no other window of the program takes input, and returns once it is unloaded.
    void ShowModal(QWidget* owner = nullptr);

    // Asks Form_QueryUnload, runs Form_Unload and takes the form away; false if the form refuses. The object
    // itself lives on until control is back in the event loop, so a handler may unload its own form. During
    // an unload a further call does nothing.
    bool Unload();

    // Takes the form away without asking it and without its Form_Unload: the program is ending.
    void Abandon() { Discard(); }

    // True from the unload on.
    bool IsUnloaded() const { return unloaded_; }

  protected:
    FormBase();

    // Events of a form. Load runs once, before the form shows; Activate whenever the user comes to it from another
    // form, or first of all, and it is enabled; Deactivate when he goes on to another form. Message boxes, common
    // dialogs, the help window and other programs come and go in front of a form without either. Resize runs with
    // every new size, the first one included, FontChange when the desktop has given the form another font. An unload can be refused by QueryUnload only.
    virtual void Form_Load() {}
    virtual void Form_Activate() {}
    virtual void Form_Deactivate() {}
    virtual void Form_Resize() {}
    virtual void Form_FontChange() {}
    virtual bool Form_QueryUnload() { return true; }
    virtual void Form_Unload() {}

    // True if a size that the user gave the form is there again at its next opening in this run.
    virtual bool KeepsSizeOfUser() const { return true; }

    // Topic of the help file that F1 opens: the form's name and ".htm".
    virtual std::string HelpTopic() const;

    // Runs Form_Load, sizes and centres the form. Called once, by SingleForm.
    void Load();

    // True once the user closes the form by what takes over its data, such as OK: Form_Unload stores them then.
    bool Accepted = false;

    // Drops the class's reference to this object.
    virtual void ForgetInstance() = 0;

    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void Discard();
    void FollowFont();
    void FitToContents();
    int HeightNeededFor(int width) const;
    void LetContentsScroll();
    void TakeChosenSize();
    void KeepChosenSize();
    void Present(QWidget* owner);
    void Activate();
    void SettleInFrame();
    void BringFrontForward();
    static void LeaveForemost();
    void RememberFocus(QWidget* now);
    bool PressDefault();
    bool PressCancel();
    QPushButton* ButtonWith(const char* property) const;

    bool unloading_ = false;
    bool unloaded_ = false;
    bool activate_missed_ = false;
    bool settled_ = false;
    QFont fitted_font_;
    bool sized_by_user_ = false;
    QPointer<QWidget> last_focus_;
    QEventLoop* modal_loop_ = nullptr;
};

// Gives a form class its one instance: `class frmAbout : public SingleForm<frmAbout>`. Forms that are twins
// have a base of their own between: `class frmGraph : public SingleForm<frmGraph, GraphFormBase>`.
template <typename Form, typename Base = FormBase>
class SingleForm : public Base {
  public:
    // The loaded form; the first use creates it and runs its Form_Load. An error in there leaves it unloaded.
    static Form& Instance() {
        if (instance_ == nullptr) {
            instance_ = new Form;
            instance_->Load();
        }
        return *instance_;
    }

    static bool IsLoaded() { return instance_ != nullptr; }

  private:
    void ForgetInstance() override {
        if (instance_ == this) instance_ = nullptr;
    }

    static inline Form* instance_ = nullptr;
};

// The loaded form of a name, or nothing. Never loads one.
FormBase* FindForm(std::string_view name);

// All loaded forms, in the order of their loading.
const std::vector<FormBase*>& LoadedForms();

// Enables the form and makes it the active window; the control that had the focus before gets it back. By
// name: nothing happens if that form is not loaded.
void EnableAndFocus(FormBase& form);
void EnableAndFocus(std::string_view name);

// Unloads every form without asking any of them; the program is ending.
void UnloadAllForms();

}  // namespace tarvokol

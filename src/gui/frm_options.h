#pragma once
// The "HTML Options" dialog: shows the toolkit-free OptionsDialog and passes
// its OK and Cancel on to it.
#include <QDialog>

#include "platform/view.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace tamrix {
/// The toolkit-free options dialog this window shows.
class OptionsDialog;
}  // namespace tamrix

namespace tamrix::gui {

/// The window of the style-sheet options.
class FrmOptions : public QDialog {
    Q_OBJECT

public:
    /// The dialog; its refusal message goes to `view`.
    explicit FrmOptions(IView& view, QWidget* parent = nullptr);

    /// Fills the controls from the dialog's values and shows it modally.
    void ShowModal(OptionsDialog& dialog);
    /// Fills the controls without showing the window.
    void Load(OptionsDialog& dialog);

    /// The check box of the style-sheet link; the controls are exposed for tests.
    QCheckBox* CssFile() const { return chkCssFile_; }
    /// The check box of the topic class.
    QCheckBox* TopicClass() const { return chkTopicClass_; }
    /// The style sheet's file name.
    QLineEdit* CssFileName() const { return txtCssFileName_; }
    /// The label of the file name, shown with it.
    QLabel* CssFileLabel() const { return lblCssFile_; }
    /// Stores the controls in the dialog and closes.
    QPushButton* OKButton() const { return cmdOK_; }
    /// Closes without storing.
    QPushButton* CancelButton() const { return cmdCancel_; }

    /// Escape and the close box act as Cancel.
    void reject() override;

protected:
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    /// An empty style-sheet name gets the default back whenever the dialog is painted.
    void PutBackDefaultName();
    void Store();
    void UpdateCssVisibility();
    void OK();

    IView& view_;
    OptionsDialog* dialog_ = nullptr;
    QCheckBox* chkCssFile_ = nullptr;
    QLabel* lblCssFile_ = nullptr;
    QLineEdit* txtCssFileName_ = nullptr;
    QCheckBox* chkTopicClass_ = nullptr;
    QPushButton* cmdOK_ = nullptr;
    QPushButton* cmdCancel_ = nullptr;
};

}  // namespace tamrix::gui

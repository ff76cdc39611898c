// The wizard window's keyboard, focus and drop handling, and the lists it
// keeps for the run (recent projects, the opened project's summary).
#include <QAction>
#include <QCheckBox>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QRadioButton>
#include <QUrl>

#include "gui/frm_wizard.h"
#include "model/conversion.h"
#include "platform/path_helpers.h"

namespace tamrix::gui {
namespace {

constexpr int kF1 = 112;

// The local files among the dropped ones that the wizard can open.
QStringList ProjectFiles(const QMimeData* mime) {
    QStringList files;
    if (mime == nullptr || !mime->hasUrls()) return files;
    for (const QUrl& url : mime->urls()) {
        const QString path = url.toLocalFile();
        if (path.endsWith(".hhp", Qt::CaseInsensitive) ||
            path.endsWith(".hpj", Qt::CaseInsensitive))
            files << path;
    }
    return files;
}

}  // namespace

void FrmWizard::keyPressEvent(QKeyEvent* event) {
    const bool plain =
        event->modifiers() == Qt::NoModifier || event->modifiers() == Qt::KeypadModifier;
    if (event->key() == Qt::Key_F1 && plain) {
        wizard_->Form_KeyDown(kF1);
        event->accept();
        return;
    }
    // Return anywhere on a page (the boxes pass it on) presses Next; on a
    // button it presses that button.
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && plain) {
        auto* button = qobject_cast<QPushButton*>(focusWidget());
        if (button == nullptr) button = cmdNav_[kNavNext];
        if (button->isEnabled() && button->isVisible()) button->click();
        event->accept();
        return;
    }
    QMainWindow::keyPressEvent(event);
}

void FrmWizard::dragEnterEvent(QDragEnterEvent* event) {
    if (!ProjectFiles(event->mimeData()).isEmpty() && wizard_->BrowseEnabled())
        event->acceptProposedAction();
}

void FrmWizard::dropEvent(QDropEvent* event) {
    bool used = false;
    for (const QString& path : ProjectFiles(event->mimeData()))
        used = wizard_->FileDropped(path.toStdString()) || used;
    if (used) event->acceptProposedAction();
}

// The page's controls come before the buttons; hidden pages are skipped.
void FrmWizard::SetTabOrder() {
    const std::vector<QWidget*> order = {
        chkShowIntro_,     txtProjectName_,     cmdBrowseHHP_,     txtWinhelpProjectName_,
        cmdbrowseHPJ_,     chkIgnoreZeroIDs_,   txtRootPath_,      cmdBrowseNewRoot_,
        optYesPopups_,     optNoPopups_,        cmdOpenFolder_,    chkSaveSettings_,
        cmdNav_[kNavHelp], cmdNav_[kNavCancel], cmdNav_[kNavBack], cmdNav_[kNavNext],
        cmdNav_[kNavExit]};
    for (std::size_t i = 1; i < order.size(); ++i) setTabOrder(order[i - 1], order[i]);
}

void FrmWizard::FocusStep(int step) {
    QWidget* first = nullptr;
    switch (step) {
        case 0: first = chkShowIntro_; break;
        case 1: first = txtProjectName_; break;
        case 2: first = txtWinhelpProjectName_; break;
        case 3: first = txtRootPath_; break;
        case 4: first = optYesPopups_->isChecked() ? optYesPopups_ : optNoPopups_; break;
        default: first = cmdOpenFolder_->isEnabled() ? cmdOpenFolder_ : cmdNav_[kNavExit]; break;
    }
    first->setFocus(Qt::OtherFocusReason);
    if (auto* edit = qobject_cast<QLineEdit*>(first)) edit->end(false);
}

void FrmWizard::RefreshRecentProjects(const Wizard& wizard) {
    if (wizard.RecentProjects() == recentShown_) return;
    recentShown_ = wizard.RecentProjects();
    mnuFileRecent_->clear();
    for (std::size_t i = 0; i < recentShown_.size(); ++i) {
        QAction* action = mnuFileRecent_->addAction(QString("&%1 %2").arg(i + 1).arg(
            QString::fromStdString(recentShown_[i]).replace("&", "&&")));
        action->setObjectName(QString("mnuFileRecent_%1").arg(i));
        connect(action, &QAction::triggered, this, [this, i] { wizard_->OpenRecentProject(i); });
    }
    mnuFileRecent_->setEnabled(!recentShown_.empty());
}

QString FrmWizard::ProjectSummary(const Wizard& wizard) {
    if (wizard.Projectname.empty()) return {};
    const WizardControls& c = wizard.controls;
    const auto orNone = [](const std::string& name) {
        return name.empty() ? QString("none") : QString::fromStdString(name);
    };
    return QString("HTML Help project %1: %2 topic files, contents %3, index %4.")
        .arg(QString::fromStdString(modUtilities::FileNameNoPath(wizard.Projectname)),
             QString::fromStdString(c.lblTopicCount), orNone(c.lblContents),
             orNone(c.lblIndexFile));
}

}  // namespace tamrix::gui

// tamrix-screenshots: converts a copy of a sample project in the real wizard
// window and saves a picture of every step (not installed).
//   tamrix-screenshots IN_FOLDER OUT_FOLDER PICTURE_FOLDER
// IN_FOLDER holds TideClock.hhp and TideClock.hpj; pictures are wizard-step-N.png,
// message-form.png, html-options.png and log-viewer.png (the scan log).
#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QEventLoop>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <cstdio>

#include "gui/frm_options.h"
#include "gui/frm_wizard.h"
#include "gui/message_form.h"
#include "gui/summary_viewer.h"
#include "messages/messages.h"
#include "model/conversion.h"
#include "platform/file_system.h"
#include "wizard/options_dialog.h"

using tamrix::gui::FrmWizard;

namespace {

void Settle(int ms = 400) {
    QEventLoop loop;
    QTimer::singleShot(ms, &loop, &QEventLoop::quit);
    loop.exec();
}

bool Save(FrmWizard& window, const QString& folder, int step) {
    Settle();
    const QString path = QDir(folder).filePath(QString("wizard-step-%1.png").arg(step));
    const bool saved = window.GetWizard().CurrentStep() == step && window.grab().save(path);
    std::fprintf(stderr, "%s %s\n", saved ? "saved" : "FAILED", qPrintable(path));
    return saved;
}

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    if (argc != 4) {
        std::fprintf(stderr, "usage: tamrix-screenshots IN_FOLDER OUT_FOLDER PICTURE_FOLDER\n");
        return 2;
    }
    const QString in = QDir(argv[1]).absolutePath();
    const QString out = QDir(argv[2]).absolutePath();
    const QString pictures = argv[3];
    QDir().mkpath(pictures);

    FrmWizard::Options options;
    options.printers = true;  // pictures independent of the machine's printers
    // Every question answered with its affirmative button, every message closed.
    options.dialogs.message = [](QWidget*, const tamrix::MessageRequest& request) {
        return tamrix::AffirmativeAnswerOfStyle(request.style);
    };
    options.dialogs.input = [](QWidget*, const std::string&, const std::string&,
                               const std::string& defaultText) -> std::optional<std::string> {
        return defaultText;
    };
    options.dialogs.openFile = [in](QWidget*, const tamrix::FileDialogRequest& request) {
        return (in + (request.defaultExtension == "hpj" ? "/TideClock.hpj" : "/TideClock.hhp"))
            .toStdString();
    };
    options.dialogs.saveFile = [out](QWidget*, const tamrix::FileDialogRequest&) {
        return (out + "/TideClock.hhp").toStdString();
    };
    FrmWizard window(options);
    tamrix::gui::FrmSummary::Options viewer;
    viewer.owner = &window;
    viewer.printerPresent = true;
    tamrix::gui::InstallSummaryViewer(viewer);
    window.move(120, 100);
    window.show();
    window.Start();

    bool ok = Save(window, pictures, 0);
    window.NavButton(tamrix::kNavNext)->click();
    window.findChild<QPushButton*>("cmdBrowseHHP")->click();
    ok = Save(window, pictures, 1) && ok;
    window.NavButton(tamrix::kNavNext)->click();
    window.findChild<QPushButton*>("cmdbrowseHPJ")->click();
    ok = Save(window, pictures, 2) && ok;
    window.NavButton(tamrix::kNavNext)->click();
    window.findChild<QPushButton*>("cmdBrowseNewRoot")->click();
    ok = Save(window, pictures, 3) && ok;
    window.NavButton(tamrix::kNavNext)->click();
    window.findChild<QRadioButton*>("optYesPopups")->click();
    ok = Save(window, pictures, 4) && ok;
    window.NavButton(tamrix::kNavNext)->click();
    ok = Save(window, pictures, 5) && ok;
    window.GetWizard().Files.SetWriteRoot({});

    // The scan log from the new folder, in the viewer over the wizard.
    window.MenuAction("mnuViewScanLog")->trigger();
    Settle();
    for (QWidget* top : QApplication::topLevelWidgets()) {
        auto* form = qobject_cast<tamrix::gui::FrmSummary*>(top);
        if (form == nullptr || !form->isVisible()) continue;
        ok = form->grab().save(QDir(pictures).filePath("log-viewer.png")) && ok;
        form->hide();
    }

    // The message window with the results shown on entering step 4, and the options dialog.
    tamrix::gui::MessageForm message;
    message.Prepare(tamrix::modMessages::GetMessageString(10064, "cshelp.txt", "popups.js") +
                        "\r\n" + tamrix::modMessages::GetMessageString(10025),
                    tamrix::mb::kInformation, "StepResults");
    message.show();
    Settle();
    ok = message.grab().save(QDir(pictures).filePath("message-form.png")) && ok;
    // Ticked after it opened, so the picture shows the window grown by the name row.
    tamrix::OptionsDialog optionsData;
    tamrix::gui::FrmOptions optionsForm(window);
    optionsForm.Load(optionsData);
    optionsForm.show();
    Settle();
    optionsForm.CssFile()->click();
    Settle();
    ok = optionsForm.grab().save(QDir(pictures).filePath("html-options.png")) && ok;
    return ok ? 0 : 1;
}

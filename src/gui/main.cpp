// tamrix: the desktop wizard.
//   tamrix [OLD.hhp]    starts with the project name filled in
#include <QApplication>
#include <QCommandLineParser>

#include "gui/app_icon.h"
#include "gui/frm_wizard.h"
#include "gui/summary_viewer.h"
#include "model/conversion.h"
#include "platform/program_identity.h"
#include "platform/view.h"

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName("Tamrix");
    QApplication::setApplicationVersion(QString::fromStdString(tamrix::VersionString()));
    QApplication::setDesktopFileName("tamrix");
    QApplication::setWindowIcon(tamrix::gui::AppIcon());

    QCommandLineParser parser;
    parser.setApplicationDescription("Rewrites HTML Help projects converted from WinHelp.");
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument("project", "The HTML Help project (.hhp) to convert.",
                                 "[OLD.hhp]");
    parser.process(app);

    tamrix::gui::FrmWizard wizard;
    tamrix::gui::FrmSummary::Options viewer;
    viewer.owner = &wizard;
    viewer.saveFolder = [&wizard] { return wizard.GetWizard().NewRootPath; };
    tamrix::gui::InstallSummaryViewer(viewer);
    QObject::connect(&wizard, &tamrix::gui::FrmWizard::ExitRequested, &app, &QApplication::quit,
                     Qt::QueuedConnection);
    wizard.show();
    const QStringList args = parser.positionalArguments();
    wizard.Start(args.isEmpty() ? std::string() : args.front().toStdString());
    return app.exec();
}

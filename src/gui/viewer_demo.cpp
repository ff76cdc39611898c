// tamrix-viewer: shows a file (or a sample log) in the log viewer on its own.
#include <QApplication>
#include <QTimer>
#include <string>

#include "gui/frm_summary.h"

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    tamrix::gui::FrmSummary form;
    QObject::connect(&form, &tamrix::gui::FrmSummary::CloseForm, &app, &QApplication::quit);
    const QStringList args = app.arguments();
    // tamrix-viewer FILE [--screenshot PNG]
    if (args.size() >= 2) {
        const std::string file = args[1].toStdString();
        const bool rich = args[1].endsWith(".rtf", Qt::CaseInsensitive);
        form.LoadFile(file, rich ? tamrix::gui::FrmSummary::kRichText
                                 : tamrix::gui::FrmSummary::kPlainText);
        form.setWindowTitle(args[1]);
    }
    form.InitRTFWidth();
    form.show();
    if (args.size() >= 4 && args[2] == "--screenshot") {
        const QString png = args[3];
        QTimer::singleShot(500, &form, [&form, png] {
            form.grab().save(png);
            QApplication::quit();
        });
    }
    return app.exec();
}

// tamrix-viewer: shows a file in the log viewer on its own.
//   tamrix-viewer FILE                     shows the file
//   tamrix-viewer FILE --screenshot PNG    saves a picture of the window and quits
//   tamrix-viewer FILE --pdf PDF           prints the file in landscape to a PDF file
#include <QApplication>
#include <QPrinter>
#include <QTimer>
#include <memory>
#include <string>

#include "gui/c_print_rtf.h"
#include "gui/frm_summary.h"

using tamrix::gui::FrmSummary;

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    const QStringList args = app.arguments();
    const bool toPdf = args.size() >= 4 && args[2] == "--pdf";
    QPrinter pdf(QPrinter::HighResolution);
    FrmSummary::Options options;
    if (toPdf) {
        pdf.setOutputFormat(QPrinter::PdfFormat);
        pdf.setOutputFileName(args[3]);
        pdf.setPageOrientation(QPageLayout::Landscape);
        options.printer = &pdf;
        options.printerPresent = true;
    }
    tamrix::SilentView view;  // the demo has no questions to answer
    tamrix::ErrorReporter errors{view};
    FrmSummary form(errors, options);
    QObject::connect(&form, &FrmSummary::CloseForm, &app, &QApplication::quit);
    if (args.size() >= 2) {
        const bool rich = args[1].endsWith(".rtf", Qt::CaseInsensitive);
        form.LoadFile(args[1].toStdString(), rich ? FrmSummary::kRichText : FrmSummary::kPlainText);
        form.setWindowTitle(args[1]);
    }
    form.InitRTFWidth();
    if (toPdf) return form.Printing().PrintRTF(*form.RTFItems(), false, 1, 65535) > 0 ? 0 : 1;
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

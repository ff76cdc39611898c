#include "gui/c_print_rtf.h"

#include <QAbstractTextDocumentLayout>
#include <QFontMetricsF>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <QTextEdit>
#include <algorithm>

#include "platform/clock.h"
#include "platform/format.h"

// Qt lays out documents without a paint device at this resolution; the
// printed page is scaled from it so that lines break as on screen.
Q_GUI_EXPORT int qt_defaultDpiX();
Q_GUI_EXPORT int qt_defaultDpiY();

namespace tamrix::gui {

QPrinter& SharedPrinter() {
    // Never destroyed: it may outlive the application object.
    static QPrinter* printer = new QPrinter(QPrinter::HighResolution);
    return *printer;
}

double TwipsToPixels(int twips, double dpi) { return twips * dpi / 1440.0; }

CPrintRTF::CPrintRTF(QPrinter* printer) : printer_(printer ? printer : &SharedPrinter()) {
    MeasurePage();
}

CPrintRTF::~CPrintRTF() = default;

bool CPrintRTF::PrinterInstalled() { return !QPrinterInfo::availablePrinters().isEmpty(); }

bool CPrintRTF::CanPrint() const {
    return printer_->outputFormat() == QPrinter::PdfFormat || PrinterInstalled();
}

void CPrintRTF::MeasurePage() {
    const QRectF page = printer_->pageLayout().fullRect(QPageLayout::Point);
    printableWidth_ = std::max(1, static_cast<int>(page.width() * 20) - leftMargin_ - rightMargin_);
    printableHeight_ =
        std::max(1, static_cast<int>(page.height() * 20) - topMargin_ - bottomMargin_);
}

bool CPrintRTF::WYSIWYG_RTF(QTextEdit& edit, int leftMargin, int rightMargin, int topMargin,
                            int bottomMargin) {
    if (!CanPrint()) return false;
    leftMargin_ = leftMargin;
    rightMargin_ = rightMargin;
    topMargin_ = topMargin;
    bottomMargin_ = bottomMargin;
    MeasurePage();
    edit.setLineWrapMode(QTextEdit::FixedPixelWidth);
    edit.setLineWrapColumnOrWidth(
        static_cast<int>(TwipsToPixels(printableWidth_, qt_defaultDpiX()) + 0.5));
    return true;
}

std::unique_ptr<QTextDocument> CPrintRTF::PageDocument(const QTextEdit& edit,
                                                       bool selection) const {
    const QTextDocument& source = *edit.document();
    auto doc = std::make_unique<QTextDocument>();
    doc->setDefaultFont(source.defaultFont());
    doc->setDocumentMargin(source.documentMargin());
    doc->setDefaultTextOption(source.defaultTextOption());
    QTextCursor into(doc.get());
    if (selection) {
        into.insertFragment(edit.textCursor().selection());
    } else {
        QTextCursor all = edit.textCursor();
        all.select(QTextCursor::Document);
        into.insertFragment(all.selection());
    }
    // The same width as the editor's wrapping, the printable height per page.
    const int width = static_cast<int>(TwipsToPixels(printableWidth_, qt_defaultDpiX()) + 0.5);
    doc->setPageSize(QSizeF(width, TwipsToPixels(printableHeight_, qt_defaultDpiY())));
    return doc;
}

int CPrintRTF::PageCount(const QTextEdit& edit, bool selection) {
    MeasurePage();
    pageCount_ = PageDocument(edit, selection)->pageCount();
    return pageCount_;
}

std::string CPrintRTF::FooterText(int page, int pageCount) {
    return FormatDate(Now(), "yyyy/mm/dd  hh:mm") + "     Page" + SignedText(page) + " of" +
           SignedText(pageCount);
}

int CPrintRTF::PrintRTF(const QTextEdit& edit, bool selection, int fromPage, int toPage) {
    const QTextCursor cursor = edit.textCursor();
    if (selection ? !cursor.hasSelection() : edit.document()->isEmpty()) return 0;
    MeasurePage();
    const std::unique_ptr<QTextDocument> doc = PageDocument(edit, selection);
    pageCount_ = doc->pageCount();
    int first = 1;
    int last = pageCount_;
    if (toPage <= 65534 && !selection) {
        first = std::max(1, fromPage);
        last = std::min(pageCount_, toPage);
    }
    if (first > last) return 0;

    printer_->setFullPage(true);  // positions below are measured from the paper's corner
    QPainter painter;
    if (!painter.begin(printer_)) return 0;
    const double dpiX = printer_->logicalDpiX();
    const double dpiY = printer_->logicalDpiY();
    const QRectF paper = printer_->pageLayout().fullRectPixels(printer_->resolution());
    const QRectF area(TwipsToPixels(leftMargin_, dpiX), TwipsToPixels(topMargin_, dpiY),
                      TwipsToPixels(printableWidth_, dpiX), TwipsToPixels(printableHeight_, dpiY));
    const double scaleX = dpiX / qt_defaultDpiX();
    const double scaleY = dpiY / qt_defaultDpiY();
    const QSizeF pageSize = doc->pageSize();

    QFont footerFont("Times New Roman", 10);
    footerFont.setStyleHint(QFont::Serif);
    const QFontMetricsF metrics(footerFont, printer_);

    int printed = 0;
    for (int page = first; page <= last; ++page) {
        if (printed > 0) printer_->newPage();
        const QString footer = QString::fromStdString(FooterText(page, pageCount_));
        painter.setFont(footerFont);
        painter.setPen(Qt::black);
        const double footerTop = area.bottom() + 1.5 * metrics.height();
        painter.drawText(QPointF((paper.width() - metrics.horizontalAdvance(footer)) / 2,
                                 footerTop + metrics.ascent()),
                         footer);

        painter.save();
        painter.translate(area.topLeft());
        painter.scale(scaleX, scaleY);
        const QRectF view(0, (page - 1) * pageSize.height(), pageSize.width(), pageSize.height());
        painter.translate(0, -view.top());
        painter.setClipRect(view);
        QAbstractTextDocumentLayout::PaintContext context;
        context.clip = view;
        context.palette.setColor(QPalette::Text, Qt::black);
        doc->documentLayout()->draw(&painter, context);
        painter.restore();
        ++printed;
    }
    painter.end();
    return printed;
}

}  // namespace tamrix::gui

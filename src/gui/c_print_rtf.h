#pragma once
// Makes the viewer's text wrap at the printer's page width (what you see is
// what prints) and prints the text page by page with a dated, numbered footer.
#include <memory>
#include <string>

class QPrinter;
class QTextDocument;
class QTextEdit;

namespace tamrix::gui {

/// Page margins of printed logs, in twips (1/1440 inch).
inline constexpr int kLeftMarginTwips = 1440;
/// The right margin, half an inch.
inline constexpr int kRightMarginTwips = 720;
/// The top margin, 0.6 inch.
inline constexpr int kTopMarginTwips = 864;
/// The bottom margin, 0.8 inch.
inline constexpr int kBottomMarginTwips = 1152;

/// The program's one printer, as every viewer shares it (orientation included).
QPrinter& SharedPrinter();

/// Page layout and printing of a log viewer's text.
class CPrintRTF {
public:
    /// Prints on `printer` (the shared printer when null); the printer must outlive this.
    explicit CPrintRTF(QPrinter* printer = nullptr);
    /// Out of line, where QTextDocument is complete.
    ~CPrintRTF();
    /// Not copied: it owns its document.
    CPrintRTF(const CPrintRTF&) = delete;
    /// Not assigned either.
    CPrintRTF& operator=(const CPrintRTF&) = delete;

    /// The printer it prints on.
    QPrinter& Printer() const { return *printer_; }
    /// Whether the system knows at least one printer.
    static bool PrinterInstalled();
    /// An installed printer, or output to a PDF file, which works everywhere.
    bool CanPrint() const;

    /// Wraps the editor's text at the printable width (page less margins); false
    /// and nothing changed when there is nothing to print on.
    bool WYSIWYG_RTF(QTextEdit& edit, int leftMargin, int rightMargin, int topMargin,
                     int bottomMargin);
    /// Width of the page less margins, in twips.
    int PrintableWidth() const { return printableWidth_; }
    /// Height of the page less margins, in twips.
    int PrintableHeight() const { return printableHeight_; }

    /// Pages the text (or its selection) takes on the current page.
    int PageCount(const QTextEdit& edit, bool selection = false);
    /// Prints all pages, pages fromPage..toPage (all when toPage is 65535 or more)
    /// or the selection; returns the number of pages printed.
    int PrintRTF(const QTextEdit& edit, bool selection, int fromPage, int toPage);

    /// "2011/03/05  14:07     Page 2 of 7", dated now.
    static std::string FooterText(int page, int pageCount);

private:
    void MeasurePage();
    std::unique_ptr<QTextDocument> PageDocument(const QTextEdit& edit, bool selection) const;

    QPrinter* printer_;
    int leftMargin_ = kLeftMarginTwips;
    int rightMargin_ = kRightMarginTwips;
    int topMargin_ = kTopMarginTwips;
    int bottomMargin_ = kBottomMarginTwips;
    int printableWidth_ = 0;
    int printableHeight_ = 0;
    int pageCount_ = 0;
};

/// Twips as pixels of a device with `dpi` dots per inch.
double TwipsToPixels(int twips, double dpi);

}  // namespace tamrix::gui

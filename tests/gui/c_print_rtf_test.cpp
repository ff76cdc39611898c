#include "gui/c_print_rtf.h"

#include <gtest/gtest.h>

#include <QAbstractTextDocumentLayout>
#include <QPrinter>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextEdit>
#include <QTextLayout>
#include <cstdlib>
#include <string>

#include "gui/frm_summary.h"
#include "gui/gui_test_helpers.h"
#include "support/scripted_view.h"
#include "support/temp_dir.h"

namespace tamrix::gui {
namespace {

class PrintTest : public ::testing::Test {
protected:
    void SetUp() override {
        setenv("SOURCE_DATE_EPOCH", "1299334020", 1);  // 2011-03-05 14:07 UTC
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setPageSize(QPageSize(QPageSize::Letter));
        printer.setPageOrientation(QPageLayout::Portrait);
        FrmSummary::Options options;
        options.printerPresent = true;
        options.printer = &printer;
        options.dialogs.print = [this](QWidget*, QPrinter&, int pageCount, bool hasSelection) {
            offeredPages = pageCount;
            offeredSelection = hasSelection;
            return printAnswer;
        };
        form = std::make_unique<FrmSummary>(errors, options);
    }
    void TearDown() override { unsetenv("SOURCE_DATE_EPOCH"); }

    // Prints to a fresh PDF file and returns its text page by page (nullopt without pdftotext).
    std::optional<QStringList> PrintToPdf(bool selection, int from, int to) {
        const std::string pdf = dir / ("out" + std::to_string(++files) + ".pdf");
        printer.setOutputFileName(QString::fromStdString(pdf));
        printed = form->Printing().PrintRTF(*form->RTFItems(), selection, from, to);
        const auto text =
            testing::RunProgram("pdftotext", {"-layout", QString::fromStdString(pdf), "-"});
        if (!text) return std::nullopt;
        QStringList pages = QString::fromStdString(*text).split(u'\f');
        if (!pages.isEmpty() && pages.last().trimmed().isEmpty()) pages.removeLast();
        return pages;
    }

    // A log of exactly `pages` pages in the current layout.
    void FillPages(int pages) {
        std::string log;
        for (int line = 1;; ++line) {
            std::string next = log + "Log line " + std::to_string(line) + "\r\n";
            form->SetPlainText(next);
            form->InitRTFWidth();
            if (form->Printing().PageCount(*form->RTFItems()) > pages) break;
            log = next;
        }
        form->SetPlainText(log);
        ASSERT_EQ(form->Printing().PageCount(*form->RTFItems()), pages);
    }

    testing::ScriptedView view;
    ErrorReporter errors{view};
    testing::TempDir dir;
    QPrinter printer{QPrinter::HighResolution};
    std::unique_ptr<FrmSummary> form;
    std::optional<PrintChoice> printAnswer;
    int offeredPages = 0;
    bool offeredSelection = false;
    int printed = 0;
    int files = 0;
};

TEST_F(PrintTest, FooterNamesDateAndPage) {
    EXPECT_EQ(CPrintRTF::FooterText(2, 7), "2011/03/05  14:07     Page 2 of 7");
}

TEST_F(PrintTest, PrintableAreaIsThePageLessTheMargins) {
    form->InitRTFWidth();
    EXPECT_EQ(form->Printing().PrintableWidth(), 12240 - 1440 - 720);
    EXPECT_EQ(form->Printing().PrintableHeight(), 15840 - 864 - 1152);
    printer.setPageOrientation(QPageLayout::Landscape);
    form->InitRTFWidth();
    EXPECT_EQ(form->Printing().PrintableWidth(), 15840 - 1440 - 720);
    EXPECT_EQ(form->Printing().PrintableHeight(), 12240 - 864 - 1152);
}

TEST_F(PrintTest, PageRangesSelectionsAndFooters) {
    FillPages(3);
    PrintToPdf(false, 2, 65535);  // a range ending at 65535 is every page
    EXPECT_EQ(printed, 3);
    PrintToPdf(false, 3, 9);  // past the last page
    EXPECT_EQ(printed, 1);
    const auto second = PrintToPdf(false, 2, 2);
    EXPECT_EQ(printed, 1);
    const auto all = PrintToPdf(false, 1, 65535);
    EXPECT_EQ(printed, 3);
    QTextCursor c = form->RTFItems()->textCursor();
    c.setPosition(0);
    c.movePosition(QTextCursor::Down, QTextCursor::KeepAnchor, 2);
    form->RTFItems()->setTextCursor(c);
    const auto selection = PrintToPdf(true, 3, 3);  // the range does not apply to a selection
    EXPECT_EQ(printed, 1);
    form->Clear();
    printer.setOutputFileName(QString::fromStdString(dir / "empty.pdf"));
    EXPECT_EQ(form->Printing().PrintRTF(*form->RTFItems(), false, 1, 65535), 0);
    EXPECT_FALSE(dir.Exists("empty.pdf"));

    if (!all) GTEST_SKIP() << "pdftotext is not available";
    ASSERT_EQ(all->size(), 3);
    for (int i = 0; i < 3; ++i) {
        // PDF text keeps the words of the footer, not the width of its gaps.
        const QRegularExpression footer(QString(R"(2011/03/05\s+14:07\s+Page %1 of 3)").arg(i + 1));
        EXPECT_TRUE(all->at(i).contains(footer)) << all->at(i).toStdString();
    }
    EXPECT_TRUE(all->at(0).contains("Log line 1\n"));
    EXPECT_FALSE(all->at(1).contains("Log line 1\n"));
    ASSERT_EQ(second->size(), 1);
    EXPECT_TRUE(second->at(0).contains("Page 2 of 3"));
    ASSERT_EQ(selection->size(), 1);
    EXPECT_TRUE(selection->at(0).contains("Page 1 of 1"));
    EXPECT_TRUE(selection->at(0).contains("Log line 2"));
    EXPECT_FALSE(selection->at(0).contains("Log line 3"));
}

TEST_F(PrintTest, PrintMenuOffersThePagesAndKeepsTheSelection) {
    FillPages(2);
    QTextCursor c = form->RTFItems()->textCursor();
    c.setPosition(3);
    c.setPosition(7, QTextCursor::KeepAnchor);
    form->RTFItems()->setTextCursor(c);
    printer.setOutputFileName(QString::fromStdString(dir / "menu.pdf"));
    printAnswer = PrintChoice{PrintChoice::Range::Pages, 2, 2};
    form->Print();
    EXPECT_EQ(offeredPages, 2);
    EXPECT_TRUE(offeredSelection);
    EXPECT_EQ(form->RTFItems()->textCursor().selectionStart(), 3);
    EXPECT_EQ(form->RTFItems()->textCursor().selectionEnd(), 7);
    EXPECT_TRUE(dir.Exists("menu.pdf"));

    printAnswer.reset();  // cancelled: nothing printed
    printer.setOutputFileName(QString::fromStdString(dir / "cancelled.pdf"));
    form->Print();
    EXPECT_FALSE(dir.Exists("cancelled.pdf"));
    EXPECT_TRUE(view.errors.empty());
}

// A full table row of a log stays on one line in landscape, as the logs are
// printed; in portrait the same row wraps.
TEST_F(PrintTest, WideLogLinesFitInLandscape) {
    // A table heading padded to 144 columns with blanks, and a row of 112.
    std::string heading =
        ".htm File:         WinHelp Topic_ID's:                 "
        "WinHelp Topic Title:";
    heading.resize(144, ' ');
    const std::string row =
        "hs16.htm           IDH_TROUBLESHOOTING_STARTUP         "
        "Troubleshooting: when the widget refuses to start ENDMARK";
    form->SetPlainText(heading + "\r\n" + row + "\r\n");

    const auto screenLines = [this](int block) {
        QTextDocument* doc = form->RTFItems()->document();
        doc->documentLayout()->documentSize();  // lays the whole text out
        return doc->findBlockByNumber(block).layout()->lineCount();
    };
    const auto rowOnOneLine = [](const QString& page) {
        for (const QString& line : page.split(u'\n'))
            if (line.contains("hs16.htm")) return line.contains("ENDMARK");
        return false;
    };
    printer.setPageOrientation(QPageLayout::Landscape);
    form->InitRTFWidth();
    EXPECT_EQ(form->Printing().PageCount(*form->RTFItems()), 1);
    EXPECT_EQ(screenLines(0), 1);  // trailing blanks of a heading do not wrap
    EXPECT_EQ(screenLines(1), 1);
    const auto landscape = PrintToPdf(false, 1, 65535);
    if (!landscape) GTEST_SKIP() << "pdftotext is not available";
    ASSERT_EQ(landscape->size(), 1);
    EXPECT_TRUE(rowOnOneLine(landscape->at(0))) << landscape->at(0).toStdString();

    printer.setPageOrientation(QPageLayout::Portrait);
    form->InitRTFWidth();
    EXPECT_EQ(screenLines(0), 1);
    EXPECT_GT(screenLines(1), 1);
    const auto portrait = PrintToPdf(false, 1, 65535);
    ASSERT_TRUE(portrait);
    EXPECT_FALSE(rowOnOneLine(portrait->at(0))) << portrait->at(0).toStdString();
}

}  // namespace
}  // namespace tamrix::gui

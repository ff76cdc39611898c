#include "gui/frm_summary.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QComboBox>
#include <QDir>
#include <QFontDatabase>
#include <QFontInfo>
#include <QPrinter>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTextCursor>
#include <QTextEdit>
#include <QWindow>
#include <deque>

#include "gui/gui_test_helpers.h"
#include "support/scripted_view.h"
#include "support/temp_dir.h"

namespace tamrix::gui {
namespace {

using testing::FormatAt;

class FrmSummaryTest : public ::testing::Test {
protected:
    FrmSummary::Options Options(bool printer = false) {
        FrmSummary::Options options;
        options.printerPresent = printer;
        options.dialogs.saveFile = [this](QWidget*, const FileDialogRequest& request) {
            saveRequests.push_back(request);
            if (saveAnswers.empty()) return SaveChoice{};
            SaveChoice answer = saveAnswers.front();
            saveAnswers.pop_front();
            return answer;
        };
        return options;
    }

    testing::ScriptedView view;
    ErrorReporter errors{view};
    testing::TempDir dir;
    std::deque<SaveChoice> saveAnswers;
    std::vector<FileDialogRequest> saveRequests;
};

const std::string kLog = "Scan Summary\r\nTamrix Version 1.0.0\r\nCaf\xE9 \x80 5\r\n";

TEST_F(FrmSummaryTest, ReadOnlyFileIsNotSavedUnderItsOwnName) {
    const std::string path = dir.Write("scan.log", kLog);
    FrmSummary form(errors, Options());
    ASSERT_TRUE(form.LoadFile(path, FrmSummary::kPlainText));
    form.SetReadOnly(true);
    form.RTFItems()->setPlainText("changed");

    std::string upper = path;
    upper.replace(upper.size() - 8, 8, "SCAN.LOG");  // the same name in other letters
    saveAnswers = {{path, 1}, {upper, 3}, {dir / "copy.log", 3}};
    form.Save();
    form.Save();
    ASSERT_EQ(view.messages.size(), 2u);
    for (const MessageRequest& m : view.messages) {
        EXPECT_EQ(
            m.text,
            "This file was opened as Read-Only.\r\nPlease save it under a different file name.");
        EXPECT_EQ(m.style, mb::kExclamation);
    }
    EXPECT_EQ(dir.Read("scan.log"), kLog);
    EXPECT_FALSE(dir.Exists("SCAN.LOG"));

    form.Save();
    EXPECT_EQ(view.messages.size(), 2u);
    EXPECT_EQ(dir.Read("copy.log"), "changed");

    // Writable, it is saved under its own name, the text coming back byte for byte.
    ASSERT_TRUE(form.LoadFile(path, FrmSummary::kPlainText));
    form.SetReadOnly(false);
    saveAnswers = {{path, 1}};
    form.Save();
    EXPECT_EQ(view.messages.size(), 2u);
    EXPECT_EQ(dir.Read("scan.log"), kLog);
}

TEST_F(FrmSummaryTest, SaveOffersTheFiltersAndTheProposedName) {
    FrmSummary form(errors, Options());
    form.SetSaveFileName("Scan Summary");
    form.SetPlainText(kLog);
    saveAnswers = {
        {dir / "a.rtf", 2}, {dir / "b.txt", 1}, {dir / "c.rtf", 3}, {dir / "d.any", 4}, {}};
    for (int i = 0; i < 5; ++i) form.Save();

    ASSERT_EQ(saveRequests.size(), 5u);
    EXPECT_EQ(saveRequests[0].filter,
              "Text Files (*.txt)|*.txt|Rich Text Format (*.rtf)|*.rtf|Log Files (*.log)|*.log|"
              "All Files (*.*)|*.*");
    EXPECT_EQ(saveRequests[0].initialName, "Scan Summary");
    EXPECT_EQ(saveRequests[0].initialFolder, QDir::homePath().toStdString());
    // Only the second filter saves rich text, whatever the name's extension.
    EXPECT_EQ(dir.Read("a.rtf").rfind("{\\rtf1", 0), 0u);
    EXPECT_EQ(dir.Read("b.txt"), kLog);
    EXPECT_EQ(dir.Read("c.rtf"), kLog);
    EXPECT_EQ(dir.Read("d.any"), kLog);
    EXPECT_TRUE(view.messages.empty());
}

// "Courier New", or the platform's fixed font where it is missing.
QString LogFamily() {
    return QFontDatabase::hasFamily("Courier New")
               ? QString("Courier New")
               : QFontInfo(QFontDatabase::systemFont(QFontDatabase::FixedFont)).family();
}

TEST_F(FrmSummaryTest, ShowsTheLogInCourierNew9) {
    FrmSummary form(errors, Options());
    form.SetPlainText(kLog);
    EXPECT_EQ(form.RTFItems()->toPlainText(), QString::fromUtf8("Scan Summary\nTamrix Version "
                                                                "1.0.0\nCaf\u00e9 \u20ac 5\n"));
    EXPECT_EQ(form.PlainText(), kLog);
    const QFont font = FormatAt(*form.RTFItems()->document(), 0)
                           .font()
                           .resolve(form.RTFItems()->document()->defaultFont());
    EXPECT_EQ(font.family(), LogFamily());
    EXPECT_EQ(font.pointSize(), 9);
    EXPECT_EQ(form.FontNameBox()->currentText(), LogFamily());
    EXPECT_EQ(form.FontSizeBox()->currentText(), "9");
}

TEST_F(FrmSummaryTest, WithoutPrinterPrintIsHiddenAndHelpIsShort) {
    FrmSummary form(errors, Options(false));
    QAction* print = form.findChild<QAction*>("mnuFilePrint");
    ASSERT_NE(print, nullptr);
    EXPECT_FALSE(print->isVisible());
    form.RTFItems()->resize(500, 300);
    const auto mode = form.RTFItems()->lineWrapMode();
    EXPECT_TRUE(form.InitRTFWidth());
    EXPECT_EQ(form.RTFItems()->lineWrapMode(), mode);

    form.ShowHelp();
    ASSERT_EQ(view.messages.size(), 1u);
    EXPECT_EQ(view.messages[0].text, FrmSummary::HelpText(false));
}

TEST_F(FrmSummaryTest, WithPrinterTheTextWrapsAtThePageWidth) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setPageSize(QPageSize(QPageSize::Letter));
    auto options = Options(true);
    options.printer = &printer;
    FrmSummary form(errors, options);
    EXPECT_TRUE(form.findChild<QAction*>("mnuFilePrint")->isVisible());
    EXPECT_TRUE(form.InitRTFWidth());
    EXPECT_EQ(form.RTFItems()->lineWrapMode(), QTextEdit::FixedPixelWidth);
    // 8.5 inches less 1 inch and half an inch of margins
    EXPECT_NEAR(form.RTFItems()->lineWrapColumnOrWidth(), 7.0 * form.RTFItems()->logicalDpiX(), 1);
    // The printer's (the system's) families, each once, the log's own among them.
    QStringList names;
    for (int i = 0; i < form.FontNameBox()->count(); ++i) names << form.FontNameBox()->itemText(i);
    EXPECT_EQ(names.removeDuplicates(), 0);
    EXPECT_TRUE(names.contains(LogFamily()));

    form.ShowHelp();
    ASSERT_EQ(view.messages.size(), 1u);
    EXPECT_EQ(view.messages[0].text, FrmSummary::HelpText(true));
}

TEST_F(FrmSummaryTest, ToolbarFollowsTheSelection) {
    FrmSummary form(errors, Options());
    form.SetPlainText("abc def\r\nsecond\r\n");
    QTextEdit* edit = form.RTFItems();
    QAction* bold = form.ToolbarButton("Bold");
    QAction* strike = form.ToolbarButton("Strike Through");
    QAction* centre = form.ToolbarButton("Centre");
    QAction* left = form.ToolbarButton("Left");
    ASSERT_TRUE(bold && strike && centre && left);

    const auto select = [&](int from, int to) {
        QTextCursor c = edit->textCursor();
        c.setPosition(from);
        c.setPosition(to, QTextCursor::KeepAnchor);
        edit->setTextCursor(c);
    };
    select(0, 3);
    EXPECT_FALSE(bold->isChecked());
    bold->trigger();
    strike->trigger();
    EXPECT_EQ(FormatAt(*edit->document(), 1).fontWeight(), QFont::Bold);
    EXPECT_TRUE(FormatAt(*edit->document(), 2).fontStrikeOut());
    EXPECT_NE(FormatAt(*edit->document(), 4).fontWeight(), QFont::Bold);

    select(5, 6);
    EXPECT_FALSE(bold->isChecked());
    EXPECT_FALSE(strike->isChecked());
    select(0, 3);
    EXPECT_TRUE(bold->isChecked());
    EXPECT_TRUE(strike->isChecked());
    select(1, 5);  // partly bold
    EXPECT_FALSE(bold->isChecked());
    bold->trigger();  // makes all of it bold
    EXPECT_TRUE(bold->isChecked());
    EXPECT_EQ(FormatAt(*edit->document(), 4).fontWeight(), QFont::Bold);
    bold->trigger();
    EXPECT_NE(FormatAt(*edit->document(), 2).fontWeight(), QFont::Bold);

    EXPECT_TRUE(left->isChecked());
    centre->trigger();
    EXPECT_TRUE(centre->isChecked());
    EXPECT_FALSE(left->isChecked());
    EXPECT_EQ(edit->document()->firstBlock().blockFormat().alignment() & Qt::AlignHorizontal_Mask,
              Qt::AlignHCenter);
    select(9, 9);  // the second line keeps its alignment
    EXPECT_TRUE(left->isChecked());
    EXPECT_FALSE(centre->isChecked());

    select(0, 3);
    form.FontNameBox()->textActivated("Arial");
    EXPECT_EQ(FormatAt(*edit->document(), 1).fontFamilies().toStringList(), QStringList{"Arial"});
    form.FontSizeBox()->textActivated("14");
    EXPECT_EQ(FormatAt(*edit->document(), 1).fontPointSize(), 14.0);
    select(9, 9);
    EXPECT_EQ(form.FontSizeBox()->currentText(), "9");
    select(0, 3);
    EXPECT_EQ(form.FontSizeBox()->currentText(), "14");
}

// Ctrl+F, F3, Ctrl+S, Ctrl+P and Escape, pressed as the platform delivers them.
TEST_F(FrmSummaryTest, KeysFindSavePrintAndClose) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    auto options = Options(true);
    options.printer = &printer;
    int printDialogs = 0;
    options.dialogs.print = [&](QWidget*, QPrinter&, int, bool) {
        ++printDialogs;
        return std::optional<PrintChoice>();
    };
    options.dialogs.findText = [](QWidget*, const QString&) {
        return std::optional<QString>("version");
    };
    options.saveFolder = [this] { return dir.Path(); };
    FrmSummary form(errors, options);
    form.SetPlainText(kLog);
    QSignalSpy closing(&form, &FrmSummary::CloseForm);
    form.show();
    form.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    QWindow* window = form.windowHandle();

    QTest::keyClick(window, Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(form.RTFItems()->textCursor().selectedText(), "Version");
    QTest::keyClick(window, Qt::Key_F3);  // the only match again, from the top
    EXPECT_EQ(form.RTFItems()->textCursor().selectionStart(), 20);
    QTest::keyClick(window, Qt::Key_S, Qt::ControlModifier);
    ASSERT_EQ(saveRequests.size(), 1u);
    EXPECT_EQ(saveRequests[0].initialFolder, dir.Path());
    QTest::keyClick(window, Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(printDialogs, 1);

    // An edit is asked about: Cancel stays, No closes without saving.
    QTest::keyClicks(form.RTFItems(), "x");
    view.answers = {mb::kCancel, mb::kNo};
    QTest::keyClick(window, Qt::Key_Escape);
    EXPECT_EQ(view.messages.back().text,
              "The text has been changed. Do you want to save the changes?");
    EXPECT_EQ(closing.count(), 0);
    QTest::keyClick(window, Qt::Key_Escape);
    EXPECT_EQ(closing.count(), 1);
    EXPECT_EQ(view.messages.size(), 2u);
}

TEST_F(FrmSummaryTest, CloseRaisesCloseFormAndClearEmpties) {
    FrmSummary form(errors, Options());
    form.SetPlainText(kLog);
    QSignalSpy closing(&form, &FrmSummary::CloseForm);
    form.show();
    form.CloseButton()->click();
    EXPECT_EQ(closing.count(), 1);
    EXPECT_FALSE(form.close());  // the close box is refused, the owner decides
    EXPECT_EQ(closing.count(), 2);
    EXPECT_TRUE(form.isVisible());
    form.findChild<QAction*>("mnuFileClose")->trigger();
    EXPECT_EQ(closing.count(), 3);

    form.ClearButton()->click();
    EXPECT_TRUE(form.RTFItems()->document()->isEmpty());
}

// Rich text itself is loaded by the viewer's tests.
TEST_F(FrmSummaryTest, RichTextFallsBackToTextForOtherBytes) {
    const std::string fake = dir.Write("b.rtf", "not rich");
    FrmSummary form(errors, Options());
    ASSERT_TRUE(form.LoadFile(fake, FrmSummary::kRichText));
    EXPECT_EQ(form.RTFItems()->toPlainText(), "not rich");
    EXPECT_FALSE(form.LoadFile(dir / "missing.rtf", FrmSummary::kRichText));
}

}  // namespace
}  // namespace tamrix::gui

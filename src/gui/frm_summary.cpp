#include "gui/frm_summary.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QCoreApplication>
#include <QDir>
#include <QFontDatabase>
#include <QFontInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QShowEvent>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextEdit>
#include <QToolBar>
#include <QVBoxLayout>
#include <algorithm>
#include <functional>

#include "gui/c_print_rtf.h"
#include "gui/cp1252.h"
#include "gui/rtf_reader.h"
#include "gui/rtf_writer.h"
#include "gui/toolbar_icons.h"
#include "messages/messages.h"
#include "platform/byte_text.h"
#include "platform/file_system.h"
#include "platform/program_error.h"
#include "tamrix_version.h"

namespace tamrix::gui {
namespace {

const char* const kToggleKeys[] = {"Bold", "Italic", "Underline", "Strike Through"};
const char* const kAlignKeys[] = {"Left", "Right", "Centre"};

// "Courier New" where it is installed, else the platform's fixed-width font.
QFont LogFont() {
    QFont font("Courier New");
    if (!QFontDatabase::hasFamily(font.family())) {
        // The real family, not a generic name like "monospace", so the font box can show it.
        font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
        font.setFamily(QFontInfo(font).family());
    }
    font.setPointSize(9);
    font.setStyleHint(QFont::TypeWriter);
    font.setBold(false);
    return font;
}

QString LogFamily() { return LogFont().family(); }

// "Family [Foundry]" and "Family" are one family in the list.
QStringList FamilyNames(const QStringList& names) {
    QStringList out;
    for (const QString& name : names) {
        const qsizetype foundry = name.indexOf(" [");
        out << (foundry > 0 ? name.left(foundry) : name);
    }
    out.removeDuplicates();
    return out;
}

// Whether every character of the selection (or the caret's format) satisfies `test`.
bool SelectionAll(const QTextCursor& cursor,
                  const std::function<bool(const QTextCharFormat&)>& test) {
    if (!cursor.hasSelection()) return test(cursor.charFormat());
    const int start = cursor.selectionStart();
    const int end = cursor.selectionEnd();
    const QTextDocument* doc = cursor.document();
    for (QTextBlock block = doc->findBlock(start); block.isValid() && block.position() < end;
         block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment fragment = it.fragment();
            if (!fragment.isValid()) continue;
            if (fragment.position() + fragment.length() <= start || fragment.position() >= end)
                continue;
            if (!test(fragment.charFormat())) return false;
        }
    }
    return true;
}

bool IsBold(const QTextCharFormat& f) { return f.fontWeight() > QFont::Medium; }

Qt::Alignment AlignmentOfKey(const QString& key) {
    if (key == "Right") return Qt::AlignRight;
    if (key == "Centre") return Qt::AlignHCenter;
    return Qt::AlignLeft;
}

}  // namespace

FrmSummary::FrmSummary(ErrorReporter& errors, Options options, QWidget* parent)
    : QMainWindow(parent), options_(std::move(options)), errors_(errors) {
    printerPresent_ = options_.printerPresent.value_or(CPrintRTF::PrinterInstalled());
    setWindowTitle(QString::fromLatin1(kProgramName));
    resize(900, 640);

    rtfItems_ = new QTextEdit(this);
    rtfItems_->setObjectName("RTFItems");
    rtfItems_->setAcceptRichText(true);
    rtfItems_->document()->setDefaultFont(LogFont());
    rtfItems_->setCurrentFont(LogFont());

    cmdClear_ = new QPushButton(tr("Clear"), this);
    cmdClear_->setObjectName("cmdClear");
    cmdClose_ = new QPushButton(tr("Close"), this);
    cmdClose_->setObjectName("cmdClose");
    connect(cmdClear_, &QPushButton::clicked, this, [this] { Clear(); });
    connect(cmdClose_, &QPushButton::clicked, this, [this] { RequestClose(); });

    auto* central = new QWidget(this);
    auto* layout = new QVBoxLayout(central);
    layout->addWidget(rtfItems_, 1);
    auto* buttons = new QHBoxLayout();
    buttons->addStretch(1);
    buttons->addWidget(cmdClear_);
    buttons->addWidget(cmdClose_);
    layout->addLayout(buttons);
    setCentralWidget(central);

    BuildMenus();
    BuildToolbar();
    FillFontBoxes(true);

    connect(rtfItems_, &QTextEdit::cursorPositionChanged, this, [this] { RefreshToolbar(); });
    connect(rtfItems_, &QTextEdit::selectionChanged, this, [this] { RefreshToolbar(); });
    connect(rtfItems_, &QTextEdit::currentCharFormatChanged, this,
            [this](const QTextCharFormat&) { RefreshToolbar(); });
    RefreshToolbar();
}

FrmSummary::~FrmSummary() = default;

void FrmSummary::BuildMenus() {
    QMenu* file = menuBar()->addMenu(tr("&File"));
    file->setObjectName("mnuFile");
    QAction* save = file->addAction(ToolbarIcon("Save"), tr("&Save"), this, [this] { Save(); });
    save->setObjectName("mnuFileSave");
    save->setShortcut(QKeySequence::Save);
    save->setData(QString("Save"));
    file->addAction(tr("Print Set&up"), this, [this] { PrintSetup(); })
        ->setObjectName("mnuFilePrintSetup");
    QAction* print = file->addAction(ToolbarIcon("Print"), tr("&Print"), this, [this] { Print(); });
    print->setObjectName("mnuFilePrint");
    print->setShortcut(QKeySequence::Print);
    print->setData(QString("Print"));
    // Without a printer there is nothing to print on.
    print->setVisible(printerPresent_);
    print->setEnabled(printerPresent_);
    file->addSeparator();
    QAction* close = file->addAction(tr("&Close"), this, [this] { RequestClose(); });
    close->setObjectName("mnuFileClose");
    close->setShortcut(Qt::Key_Escape);

    QMenu* edit = menuBar()->addMenu(tr("&Edit"));
    edit->setObjectName("mnuEdit");
    QAction* find = edit->addAction(tr("&Find..."), this, [this] { Find(); });
    find->setObjectName("mnuEditFind");
    find->setShortcut(QKeySequence::Find);
    QAction* findNext = edit->addAction(tr("Find &Next"), this, [this] { FindNext(); });
    findNext->setObjectName("mnuEditFindNext");
    findNext->setShortcut(QKeySequence::FindNext);

    QMenu* format = menuBar()->addMenu(tr("F&ormat"));
    format->setObjectName("mnuFormat");
    format->addAction(tr("&Font"), this, [this] { FormatFont(); })->setObjectName("mnuFormatFont");

    QAction* help = menuBar()->addAction(tr("&Help"), this, [this] { ShowHelp(); });
    help->setObjectName("mnuHelp");
}

QAction* FrmSummary::AddToolbarToggle(const QString& key, const QIcon& icon) {
    QAction* action = toolbar_->addAction(icon, key);
    action->setData(key);
    action->setToolTip(key);
    action->setCheckable(true);
    connect(action, &QAction::triggered, this, [this, key] { ToolbarClicked(key); });
    return action;
}

void FrmSummary::BuildToolbar() {
    toolbar_ = addToolBar(tr("Toolbar"));
    toolbar_->setObjectName("Toolbar1");
    toolbar_->setMovable(false);
    toolbar_->setIconSize(QSize(16, 16));
    toolbar_->addAction(findChild<QAction*>("mnuFilePrint"));
    toolbar_->addAction(findChild<QAction*>("mnuFileSave"));
    toolbar_->addSeparator();
    for (const char* key : kToggleKeys) AddToolbarToggle(key, ToolbarIcon(key));
    toolbar_->addSeparator();
    for (const char* key : kAlignKeys) AddToolbarToggle(key, ToolbarIcon(key));
    toolbar_->addSeparator();

    cmbFontName_ = new QComboBox(toolbar_);
    cmbFontName_->setObjectName("cmbFontName");
    cmbFontName_->setMinimumContentsLength(16);
    cmbFontName_->setToolTip(tr("Font Name"));
    toolbar_->addWidget(cmbFontName_);
    cmbFontSize_ = new QComboBox(toolbar_);
    cmbFontSize_->setObjectName("cmbFontSize");
    cmbFontSize_->setToolTip(tr("Font Size"));
    toolbar_->addWidget(cmbFontSize_);

    connect(cmbFontName_, &QComboBox::textActivated, this, [this](const QString& name) {
        QTextCharFormat f;
        f.setFontFamilies(QStringList{name});
        MergeFormat(f);
    });
    connect(cmbFontSize_, &QComboBox::textActivated, this, [this](const QString& size) {
        bool ok = false;
        const double points = size.toDouble(&ok);
        if (!ok || points <= 0) return;
        QTextCharFormat f;
        f.setFontPointSize(points);
        MergeFormat(f);
    });
}

QAction* FrmSummary::ToolbarButton(const QString& key) const {
    for (QAction* action : toolbar_->actions())
        if (action->data().toString() == key) return action;
    return nullptr;
}

CPrintRTF& FrmSummary::Printing() {
    if (!printing_) printing_ = std::make_unique<CPrintRTF>(options_.printer);
    return *printing_;
}

void FrmSummary::FillFontBoxes(bool printerFonts) {
    cmbFontName_->clear();
    QStringList names;
    // Printing renders with the system's fonts, so those are the printer's fonts.
    if (printerFonts && printerPresent_) names = QFontDatabase::families();
    if (names.isEmpty())
        names = {"Arial", "Courier New", "Tahoma", "Times New Roman", "Symbol", "WingDings"};
    // The log's own font is always there to go back to.
    names << LogFamily();
    cmbFontName_->addItems(FamilyNames(names));
    cmbFontSize_->clear();
    for (int size = 5; size <= 24; ++size) cmbFontSize_->addItem(QString::number(size));
    RefreshToolbar();
}

void FrmSummary::MergeFormat(const QTextCharFormat& format) {
    rtfItems_->mergeCurrentCharFormat(format);
    RefreshToolbar();
}

void FrmSummary::ToolbarClicked(const QString& key) {
    QAction* button = ToolbarButton(key);
    const bool on = button != nullptr && button->isChecked();
    QTextCharFormat f;
    if (key == "Bold") {
        f.setFontWeight(on ? QFont::Bold : QFont::Normal);
        MergeFormat(f);
    } else if (key == "Italic") {
        f.setFontItalic(on);
        MergeFormat(f);
    } else if (key == "Underline") {
        f.setFontUnderline(on);
        MergeFormat(f);
    } else if (key == "Strike Through") {
        f.setFontStrikeOut(on);
        MergeFormat(f);
    } else {
        rtfItems_->setAlignment(AlignmentOfKey(key));
        RefreshToolbar();
    }
}

void FrmSummary::RefreshToolbar() {
    if (toolbar_ == nullptr) return;
    const QTextCursor cursor = rtfItems_->textCursor();
    const auto set = [this](const char* key, bool on) {
        if (QAction* a = ToolbarButton(key)) a->setChecked(on);
    };
    set("Bold", SelectionAll(cursor, IsBold));
    set("Italic", SelectionAll(cursor, [](const QTextCharFormat& f) { return f.fontItalic(); }));
    set("Underline",
        SelectionAll(cursor, [](const QTextCharFormat& f) { return f.fontUnderline(); }));
    set("Strike Through",
        SelectionAll(cursor, [](const QTextCharFormat& f) { return f.fontStrikeOut(); }));
    const Qt::Alignment align = cursor.blockFormat().alignment() & Qt::AlignHorizontal_Mask;
    set("Left", align == Qt::AlignLeft || align == Qt::AlignLeading || align == 0);
    set("Right", align == Qt::AlignRight || align == Qt::AlignTrailing);
    set("Centre", align == Qt::AlignHCenter);

    // The font boxes show the selection's font when it is one.
    const QFont font = cursor.charFormat().font().resolve(rtfItems_->document()->defaultFont());
    const QStringList families = font.families();
    const QString family = families.isEmpty() ? font.family() : families.first();
    const QSignalBlocker blockName(cmbFontName_);
    const QSignalBlocker blockSize(cmbFontSize_);
    cmbFontName_->setCurrentIndex(cmbFontName_->findText(family));
    cmbFontSize_->setCurrentIndex(
        cmbFontSize_->findText(QString::number(static_cast<int>(font.pointSizeF() + 0.5))));
}

bool FrmSummary::InitRTFWidth() {
    if (printerPresent_)
        Printing().WYSIWYG_RTF(*rtfItems_, kLeftMarginTwips, kRightMarginTwips, kTopMarginTwips,
                               kBottomMarginTwips);
    return true;
}

void FrmSummary::SetPlainText(const std::string& text) {
    QString decoded = DecodeCp1252(text);
    decoded.replace("\r\n", "\n").replace(u'\r', u'\n');
    QTextDocument* doc = rtfItems_->document();
    doc->setDefaultFont(LogFont());
    rtfItems_->setPlainText(decoded);
    doc->setModified(false);
    rtfItems_->moveCursor(QTextCursor::Start);
    RefreshToolbar();
}

std::string FrmSummary::PlainText() const {
    QString text = rtfItems_->toPlainText();
    text.replace(QChar::LineSeparator, u'\n').replace("\n", "\r\n");
    return EncodeCp1252(text);
}

bool FrmSummary::LoadFile(const std::string& path, FileKind kind) {
    std::string bytes;
    try {
        bytes = files_.ReadAll(path);
    } catch (...) {
        return false;
    }
    loadedFile_ = FileSystem::GetAbsolutePathName(path);
    if (kind == kRichText && LooksLikeRtf(bytes)) {
        QTextDocument* doc = rtfItems_->document();
        doc->setDefaultFont(LogFont());
        ReadRtf(bytes, *doc);
        doc->setModified(false);
        rtfItems_->moveCursor(QTextCursor::Start);
        RefreshToolbar();
    } else {
        SetPlainText(bytes);
    }
    return true;
}

bool FrmSummary::SaveFile(const std::string& path, FileKind kind) {
    return Guarded(errors_, "frmSummary:SaveFile", false, [&] {
        const std::string content =
            kind == kRichText ? WriteRtf(*rtfItems_->document()) : PlainText();
        // The user's own Save may go anywhere: only the conversion is kept
        // inside the new project folder.
        FileSystem userFiles;
        userFiles.WriteAll(path, content);
        return true;
    });
}

const char* FrmSummary::SaveFilter() {
    return "Text Files (*.txt)|*.txt|Rich Text Format (*.rtf)|*.rtf|Log Files (*.log)|*.log|"
           "All Files (*.*)|*.*";
}

// The program's own folder is not writable once installed: the dialog starts
// in the new project's folder, or else in the user's home.
std::string FrmSummary::SaveFolder() const {
    const std::string folder = options_.saveFolder ? options_.saveFolder() : std::string();
    if (!folder.empty() && files_.FolderExists(folder)) return folder;
    return QDir::homePath().toStdString();
}

bool FrmSummary::Save() {
    return Guarded(errors_, "frmSummary:mnuFileSave_Click", false, [&] {
        FileDialogRequest request;
        request.filter = SaveFilter();
        request.initialName = saveFileName_;
        request.initialFolder = SaveFolder();
        const SaveChoice choice = options_.dialogs.saveFile(this, request);
        if (choice.path.empty()) return false;
        if (readOnly_ && !loadedFile_.empty() &&
            EqualsNoCase(FileSystem::GetAbsolutePathName(choice.path), loadedFile_)) {
            modMessages::ShowMessage(
                errors_.View(),
                "This file was opened as Read-Only.\r\nPlease save it under a different file name.",
                mb::kExclamation, kProgramName, {}, 0);
            return false;
        }
        if (!SaveFile(choice.path, choice.filterIndex == 2 ? kRichText : kPlainText)) return false;
        rtfItems_->document()->setModified(false);
        return true;
    });
}

void FrmSummary::PrintSetup() {
    GuardedVoid(errors_, "frmSummary:mnuFilePrintSetup_Click", [&] {
        if (options_.dialogs.printSetup(this, Printing().Printer())) {
            Printing().WYSIWYG_RTF(*rtfItems_, kLeftMarginTwips, kRightMarginTwips, kTopMarginTwips,
                                   kBottomMarginTwips);
        }
        FillFontBoxes(true);
    });
}

void FrmSummary::Print() {
    GuardedVoid(errors_, "frmSummary:mnuFilePrint_Click", [&] {
        CPrintRTF& printing = Printing();
        printing.WYSIWYG_RTF(*rtfItems_, kLeftMarginTwips, kRightMarginTwips, kTopMarginTwips,
                             kBottomMarginTwips);
        const int pages = printing.PageCount(*rtfItems_);
        const QTextCursor before = rtfItems_->textCursor();
        const auto choice =
            options_.dialogs.print(this, printing.Printer(), pages, before.hasSelection());
        if (choice) {
            const bool selection = choice->range == PrintChoice::Range::Selection;
            const bool range = choice->range == PrintChoice::Range::Pages;
            printing.PrintRTF(*rtfItems_, selection, range ? choice->fromPage : 1,
                              range ? choice->toPage : 65535);
            rtfItems_->setTextCursor(before);
        }
        FillFontBoxes(true);
    });
}

void FrmSummary::FormatFont() {
    const QFont current =
        rtfItems_->currentCharFormat().font().resolve(rtfItems_->document()->defaultFont());
    const std::optional<QFont> font = options_.dialogs.chooseFont(this, current);
    if (!font) return;
    QTextCharFormat f;
    f.setFont(*font, QTextCharFormat::FontPropertiesSpecifiedOnly);
    MergeFormat(f);
}

std::string FrmSummary::HelpText(bool printerPresent) {
    if (printerPresent)
        return "The contents of this WYSIWYG RTF window can be edited, formatted, saved\r\n"
               "and printed. The Button and Menu functions are similar to Microsoft Word.\r\n"
               "Text and pictures can also be pasted into it. The text will be adjusted\r\n"
               "in width to match the width selected by \"Print Setup\". When selecting \r\n"
               "\"Print\", set the orientation of the printer to match.";
    return "The contents of this WYSIWYG RTF window can be edited, formatted and saved\r\n"
           "as a RTF file. The Button and Menu functions are similar to Microsoft Word.\r\n"
           "Text and pictures can also be pasted into it.";
}

void FrmSummary::ShowHelp() {
    modMessages::ShowMessage(errors_.View(), HelpText(printerPresent_), mb::kOKOnly,
                             "RTF Display Form", {}, 0);
}

void FrmSummary::Clear() {
    rtfItems_->clear();
    RefreshToolbar();
}

void FrmSummary::closeEvent(QCloseEvent* event) {
    // The owner decides what closing means (the report hides the window).
    event->ignore();
    RequestClose();
}

void FrmSummary::RequestClose() {
    if (rtfItems_->document()->isModified()) {
        const int answer = modMessages::AskMessage(
            errors_.View(), "The text has been changed. Do you want to save the changes?",
            mb::kYesNoCancel + mb::kQuestion, kProgramName, {});
        if (answer == mb::kCancel || (answer == mb::kYes && !Save())) return;
        rtfItems_->document()->setModified(false);
    }
    emit CloseForm();
}

void FrmSummary::Find() {
    const std::optional<QString> text = options_.dialogs.findText(this, findText_);
    if (!text || text->isEmpty()) return;
    findText_ = *text;
    FindNext();
}

// From the caret on, then once more from the top.
bool FrmSummary::FindNext() {
    if (findText_.isEmpty()) {
        Find();
        return rtfItems_->textCursor().hasSelection();
    }
    if (rtfItems_->find(findText_)) return true;
    const QTextCursor before = rtfItems_->textCursor();
    rtfItems_->moveCursor(QTextCursor::Start);
    if (rtfItems_->find(findText_)) return true;
    rtfItems_->setTextCursor(before);
    modMessages::ShowMessage(errors_.View(), "\"" + findText_.toStdString() + "\" was not found.",
                             mb::kInformation, kProgramName, {});
    return false;
}

// Over the window it was opened from, the first time it is shown.
void FrmSummary::showEvent(QShowEvent* event) {
    if (!placed_ && !event->spontaneous()) {
        placed_ = true;
        QWidget* owner = options_.owner ? options_.owner : QApplication::activeWindow();
        if (owner != nullptr && owner != this && owner->isVisible()) {
            QRect frame = frameGeometry();
            frame.moveCenter(owner->frameGeometry().center());
            if (const QScreen* screen = owner->screen()) {
                const QRect area = screen->availableGeometry();
                frame.moveLeft(std::clamp(frame.left(), area.left(),
                                          std::max(area.left(), area.right() - frame.width())));
                frame.moveTop(std::clamp(frame.top(), area.top(),
                                         std::max(area.top(), area.bottom() - frame.height())));
            }
            move(frame.topLeft());
        }
    }
    QMainWindow::showEvent(event);
}

void FrmSummary::hideEvent(QHideEvent* event) {
    QMainWindow::hideEvent(event);
    if (!event->spontaneous()) emit Hidden();  // not when minimised
}

}  // namespace tamrix::gui

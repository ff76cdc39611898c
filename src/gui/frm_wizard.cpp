#include "gui/frm_wizard.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QDesktopServices>
#include <QFormLayout>
#include <QFrame>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPrinterInfo>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <QStyle>
#include <QUrl>
#include <QVBoxLayout>
#include "model/conversion.h"

#include "gui/about_box.h"
#include "gui/app_icon.h"
#include "gui/check_report.h"
#include "gui/frm_options.h"
#include "gui/localise_form.h"
#include "messages/messages.h"
#include "platform/file_system.h"
#include "platform/path_helpers.h"

namespace tamrix::gui {
namespace {

QString Q(const std::string& text) { return QString::fromStdString(text); }

void Tag(QWidget* widget, int id) { widget->setProperty(kTagProperty, QString::number(id)); }

void SetEdit(QLineEdit* edit, const std::string& text) {
    // Only a real change is written, so the cursor stays where the user typed.
    if (edit->text() != Q(text)) edit->setText(Q(text));
}

void SetCheck(QAbstractButton* button, bool checked) {
    const QSignalBlocker block(button);
    button->setChecked(checked);
}

QLabel* ValueLabel(const char* name, QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setMinimumWidth(160);
    return label;
}

// A result shown as a check box the user cannot change.
QCheckBox* DisplayCheck(const char* name, const QString& caption, QWidget* parent) {
    auto* box = new QCheckBox(caption, parent);
    box->setObjectName(name);
    box->setAttribute(Qt::WA_TransparentForMouseEvents);
    box->setFocusPolicy(Qt::NoFocus);
    return box;
}

QLineEdit* PathEdit(const char* name, QWidget* parent) {
    auto* edit = new QLineEdit(parent);
    edit->setObjectName(name);
    edit->setClearButtonEnabled(true);
    edit->setMinimumWidth(300);
    // A file dropped on the box goes to the window, which opens it.
    edit->setAcceptDrops(false);
    return edit;
}

QPushButton* BrowseButton(const char* name, const QString& caption, QWidget* parent) {
    auto* button = new QPushButton(caption, parent);
    button->setObjectName(name);
    button->setAutoDefault(false);
    return button;
}

// A tagged caption above a path box with its Browse button.
QLayout* PathRow(int tag, QLineEdit* edit, QPushButton* browse, QWidget* parent) {
    auto* caption = new QLabel(parent);
    Tag(caption, tag);
    caption->setBuddy(edit);
    auto* row = new QHBoxLayout;
    row->addWidget(edit, 1);
    row->addWidget(browse);
    auto* column = new QVBoxLayout;
    column->setSpacing(4);
    column->addWidget(caption);
    column->addLayout(row);
    return column;
}

// A small grey line under a check box that says how far its choice reaches.
QLabel* NoteLabel(const char* name, const QString& text, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    label->setObjectName(name);
    label->setWordWrap(true);
    label->setIndent(22);
    label->setForegroundRole(QPalette::PlaceholderText);
    return label;
}

QFormLayout* ResultForm(QGroupBox* group) {
    auto* form = new QFormLayout(group);
    form->setLabelAlignment(Qt::AlignLeft);
    form->setHorizontalSpacing(24);
    form->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    return form;
}

}  // namespace

FrmWizard::FrmWizard(Options options, QWidget* parent)
    : QMainWindow(parent), options_(std::move(options)) {
    setObjectName("frmWizard");
    setWindowTitle("Tamrix HTML Help Project Wizard");
    setWindowIcon(AppIcon());
    setAcceptDrops(true);
    if (!options_.openUrl)
        options_.openUrl = [](const QUrl& url) { return QDesktopServices::openUrl(url); };
    wizard_ = std::make_unique<Wizard>(*this);

    fraStep_ = new QStackedWidget(this);
    fraStep_->setObjectName("fraStep");
    fraStep_->addWidget(BuildStepPage(0, BuildIntroduction()));
    fraStep_->addWidget(BuildStepPage(1, BuildProjectFile()));
    fraStep_->addWidget(BuildStepPage(2, BuildWinHelpFile()));
    fraStep_->addWidget(BuildStepPage(3, BuildNewProject()));
    fraStep_->addWidget(BuildStepPage(4, BuildPopups()));
    fraStep_->addWidget(BuildStepPage(5, BuildFinished()));

    auto* right = new QVBoxLayout;
    right->setContentsMargins(20, 16, 20, 8);
    right->addWidget(fraStep_, 1);
    right->addWidget(BuildProgress());
    auto* body = new QHBoxLayout;
    body->setContentsMargins(0, 0, 0, 0);
    body->setSpacing(0);
    body->addWidget(BuildSidePanel());
    auto* edge = new QFrame(this);
    edge->setFrameShape(QFrame::VLine);
    edge->setFrameShadow(QFrame::Sunken);
    body->addWidget(edge);
    body->addLayout(right, 1);

    auto* line = new QFrame(this);
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    auto* central = new QWidget(this);
    auto* layout = new QVBoxLayout(central);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(body, 1);
    layout->addWidget(line);
    layout->addWidget(BuildNavigation());
    setCentralWidget(central);
    BuildMenus();
    SetTabOrder();

    help_ = new HelpWindow(this);
    if (options_.help) help_->SetProject(options_.help);
    LocaliseForm(*this);
    resize(800, 540);
    setMinimumSize(680, 500);
}

FrmWizard::~FrmWizard() = default;

// ---- Building the window ----

QWidget* FrmWizard::BuildSidePanel() {
    auto* panel = new QFrame(this);
    panel->setObjectName("picSteps");
    panel->setAutoFillBackground(true);
    panel->setBackgroundRole(QPalette::Base);
    panel->setFrameShape(QFrame::NoFrame);
    panel->setFixedWidth(230);
    auto* layout = new QVBoxLayout(panel);
    layout->setContentsMargins(16, 20, 12, 16);
    layout->setSpacing(10);
    auto* image = new QLabel(panel);
    image->setObjectName("imgStep");
    image->setPixmap(AppIcon().pixmap(64, 64));
    image->setAlignment(Qt::AlignHCenter);
    layout->addWidget(image);
    layout->addSpacing(12);
    for (int step = 0; step < Wizard::kStepCount; ++step) {
        auto* label = new QLabel(panel);
        label->setObjectName(QString("lblSideStep_%1").arg(step));
        Tag(label, 1000 + step);
        label->setWordWrap(true);
        label->setIndent(14);
        sideSteps_[static_cast<std::size_t>(step)] = label;
        layout->addWidget(label);
    }
    layout->addStretch(1);
    return panel;
}

QWidget* FrmWizard::BuildStepPage(int step, QWidget* body) {
    auto* page = new QWidget(fraStep_);
    page->setObjectName(QString("fraStep_%1").arg(step));
    auto* title = new QLabel(page);
    title->setObjectName(QString("lblTitle_%1").arg(step));
    Tag(title, 1000 + step);
    QFont font = title->font();
    font.setPointSizeF(font.pointSizeF() * 1.35);
    font.setBold(true);
    title->setFont(font);
    auto* instruction = new QLabel(page);
    instruction->setObjectName(QString("lblStep_%1").arg(step));
    Tag(instruction, 2000 + step);
    instruction->setWordWrap(true);
    instruction->setTextFormat(Qt::PlainText);
    instruction->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(10);
    layout->addWidget(title);
    layout->addWidget(instruction);
    layout->addSpacing(6);
    layout->addWidget(body);
    layout->addStretch(1);
    return page;
}

QWidget* FrmWizard::BuildIntroduction() {
    auto* frame = new QGroupBox("Introduction Screen", this);
    frame->setObjectName("fraIntroduction");
    auto* note = new QLabel(Q(modMessages::GetMessageString(10002)), frame);
    note->setWordWrap(true);
    chkShowIntro_ = new QCheckBox("Show this introduction at start", frame);
    chkShowIntro_->setObjectName("chkShowIntro");
    connect(chkShowIntro_, &QCheckBox::toggled, this,
            [this](bool on) { wizard_->controls.chkShowIntro = on; });
    chkShowIntro_->setToolTip("Applies to this run only");
    lblPrinter1_ = new QLabel(frame);
    lblPrinter1_->setObjectName("lblPrinter1");
    lblPrinter1_->setToolTip("printers");
    const int iconSize = style()->pixelMetric(QStyle::PM_SmallIconSize);
    lblPrinter1_->setPixmap(
        style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(iconSize, iconSize));
    lblPrinter2_ = new QLabel(
        "No printer is installed: the logs can be viewed and saved, but not printed.", frame);
    lblPrinter2_->setObjectName("lblPrinter2");
    lblPrinter2_->setWordWrap(true);
    auto* printers = new QHBoxLayout;
    printers->addWidget(lblPrinter1_, 0, Qt::AlignTop);
    printers->addWidget(lblPrinter2_, 1);
    auto* layout = new QVBoxLayout(frame);
    layout->addWidget(note);
    layout->addLayout(printers);
    layout->addWidget(chkShowIntro_);
    layout->addWidget(NoteLabel("lblShowIntroNote",
                                "For this run: when unticked, a restart goes straight to step 1. "
                                "Nothing is saved on disk.",
                                frame));
    return frame;
}

QWidget* FrmWizard::BuildProjectFile() {
    auto* body = new QWidget(this);
    txtProjectName_ = PathEdit("txtProjectName", body);
    connect(txtProjectName_, &QLineEdit::textEdited, this,
            [this](const QString& text) { wizard_->controls.txtProjectName = text.toStdString(); });
    cmdBrowseHHP_ = BrowseButton("cmdBrowseHHP", "Brow&se...", body);
    connect(cmdBrowseHHP_, &QPushButton::clicked, this, [this] { wizard_->cmdBrowseHHP_Click(); });
    auto* frame = new QGroupBox("HTML Project File Properties", body);
    frame->setObjectName("fraHHPOpen");
    lblTopicCount_ = ValueLabel("lblTopicCount", frame);
    lblContents_ = ValueLabel("lblContents", frame);
    lblIndexFile_ = ValueLabel("lblIndexFile", frame);
    auto* form = ResultForm(frame);
    form->addRow("Number of Topic Files", lblTopicCount_);
    form->addRow("Contents File", lblContents_);
    form->addRow("Index File", lblIndexFile_);
    auto* layout = new QVBoxLayout(body);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(14);
    layout->addLayout(PathRow(4001, txtProjectName_, cmdBrowseHHP_, body));
    layout->addWidget(frame);
    return body;
}

QWidget* FrmWizard::BuildWinHelpFile() {
    auto* body = new QWidget(this);
    txtWinhelpProjectName_ = PathEdit("txtWinhelpProjectName", body);
    connect(txtWinhelpProjectName_, &QLineEdit::textEdited, this, [this](const QString& text) {
        wizard_->controls.txtWinhelpProjectName = text.toStdString();
    });
    cmdbrowseHPJ_ = BrowseButton("cmdbrowseHPJ", "Bro&wse...", body);
    connect(cmdbrowseHPJ_, &QPushButton::clicked, this, [this] { wizard_->cmdbrowseHPJ_Click(); });
    chkIgnoreZeroIDs_ = new QCheckBox("Ignore Zero Value Context  ID's", body);
    chkIgnoreZeroIDs_->setObjectName("chkIgnoreZeroIDs");
    chkIgnoreZeroIDs_->setToolTip("The same switch as Options/Ignore Zero IDs");
    connect(chkIgnoreZeroIDs_, &QCheckBox::clicked, this,
            [this] { wizard_->chkIgnoreZeroIDs_Click(); });
    lblHHPSummary_ = new QLabel(body);
    lblHHPSummary_->setObjectName("lblHHPSummary");
    lblHHPSummary_->setWordWrap(true);
    lblHHPSummary_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    fraHPJOpen_ = new QGroupBox("WinHelp Project File Properties", body);
    fraHPJOpen_->setObjectName("fraHPJOpen");
    chkMapData_ = DisplayCheck("chkMapData", "Has Map Data", fraHPJOpen_);
    chkAliasData_ = DisplayCheck("chkAliasData", "Has Alias Data", fraHPJOpen_);
    auto* frameLayout = new QHBoxLayout(fraHPJOpen_);
    frameLayout->addWidget(chkMapData_);
    frameLayout->addSpacing(24);
    frameLayout->addWidget(chkAliasData_);
    frameLayout->addStretch(1);
    auto* layout = new QVBoxLayout(body);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(14);
    layout->addWidget(lblHHPSummary_);
    layout->addLayout(PathRow(4002, txtWinhelpProjectName_, cmdbrowseHPJ_, body));
    layout->addWidget(chkIgnoreZeroIDs_);
    layout->addWidget(fraHPJOpen_);
    return body;
}

QWidget* FrmWizard::BuildNewProject() {
    auto* body = new QWidget(this);
    txtRootPath_ = PathEdit("txtRootPath", body);
    txtRootPath_->setToolTip("Path of new HTML Help project");
    connect(txtRootPath_, &QLineEdit::textEdited, this,
            [this](const QString& text) { wizard_->controls.txtRootPath = text.toStdString(); });
    cmdBrowseNewRoot_ = BrowseButton("cmdBrowseNewRoot", "B&rowse...", body);
    connect(cmdBrowseNewRoot_, &QPushButton::clicked, this,
            [this] { wizard_->cmdBrowseNewRoot_Click(); });
    auto* frame = new QGroupBox("Project Scan Results", body);
    frame->setObjectName("fraParse");
    lblContextCount_ = ValueLabel("lblContextCount", frame);
    lblUntitledCount_ = ValueLabel("lblUntitledCount", frame);
    lblContextIDs_ = ValueLabel("lblContextIDs", frame);
    auto* form = ResultForm(frame);
    form->addRow("Number of Topic Files", lblContextCount_);
    form->addRow("Untitled Topics (Popups)", lblUntitledCount_);
    form->addRow("Total Context ID's", lblContextIDs_);
    auto* layout = new QVBoxLayout(body);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(14);
    layout->addLayout(PathRow(4003, txtRootPath_, cmdBrowseNewRoot_, body));
    layout->addWidget(frame);
    return body;
}

QWidget* FrmWizard::BuildPopups() {
    auto* frame = new QGroupBox("Insert Javascript Calls?", this);
    frame->setObjectName("fraPopups");
    optYesPopups_ = new QRadioButton("&Yes", frame);
    optYesPopups_->setObjectName("optYesPopups");
    // Alt+N is Next and Alt+O Options: No is chosen with the arrow keys.
    optNoPopups_ = new QRadioButton("No", frame);
    optNoPopups_->setObjectName("optNoPopups");
    auto store = [this] {
        wizard_->controls.optYesPopups = optYesPopups_->isChecked();
        wizard_->controls.optNoPopups = optNoPopups_->isChecked();
    };
    connect(optYesPopups_, &QRadioButton::toggled, this, store);
    connect(optNoPopups_, &QRadioButton::toggled, this, store);
    auto* layout = new QVBoxLayout(frame);
    layout->addWidget(optYesPopups_);
    layout->addWidget(optNoPopups_);
    return frame;
}

QWidget* FrmWizard::BuildFinished() {
    auto* frame = new QGroupBox("Finished!", this);
    frame->setObjectName("fraFinished");
    lblNewProject_ = new QLabel(frame);
    lblNewProject_->setObjectName("lblNewProject");
    lblNewProject_->setWordWrap(true);
    lblNewProject_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    chkSaveSettings_ = new QCheckBox("Save these settings", frame);
    chkSaveSettings_->setObjectName("chkSaveSettings");
    connect(chkSaveSettings_, &QCheckBox::toggled, this,
            [this](bool on) { wizard_->controls.chkSaveSettings = on; });
    auto* check = new QPushButton("Chec&k New Project\u2026", frame);
    check->setAutoDefault(false);
    check->setObjectName("cmdCheckProject");
    connect(check, &QPushButton::clicked, this, &FrmWizard::CheckNewProject);
    chkSaveSettings_->setToolTip("Applies to this run only");
    cmdOpenFolder_ = new QPushButton("Open New &Project Folder", frame);
    cmdOpenFolder_->setObjectName("cmdOpenFolder");
    cmdOpenFolder_->setAutoDefault(false);
    connect(cmdOpenFolder_, &QPushButton::clicked, this, [this] {
        options_.openUrl(QUrl::fromLocalFile(QString::fromStdString(wizard_->NewRootPath)));
    });
    // The buttons that act on the new project.
    auto* actions = new QHBoxLayout;
    actions->setObjectName("layFinishedActions");
    actions->addWidget(cmdOpenFolder_);
    actions->addWidget(check);
    actions->addStretch(1);
    auto* layout = new QVBoxLayout(frame);
    layout->addWidget(lblNewProject_);
    layout->addLayout(actions);
    layout->addSpacing(8);
    layout->addWidget(chkSaveSettings_);
    layout->addWidget(
        NoteLabel("lblSaveSettingsNote",
                  "For this run: when ticked, a restart with Cancel keeps the options "
                  "for the next project. Nothing is saved on disk.",
                  frame));
    return frame;
}

QGroupBox* FrmWizard::BuildProgress() {
    fraProgress_ = new QGroupBox("Progress", this);
    fraProgress_->setObjectName("fraProgress");
    pgbConversion_ = new QProgressBar(fraProgress_);
    pgbConversion_->setObjectName("pgbConversion");
    pgbConversion_->setToolTip("Fraction of completion of the current operation");
    pgbConversion_->setRange(0, 100);
    pgbConversion_->setValue(0);
    lblprogress_ = new QLabel(fraProgress_);
    lblprogress_->setObjectName("lblprogress");
    lblprogress_->setToolTip("Shows progress during program execution");
    auto* layout = new QVBoxLayout(fraProgress_);
    layout->addWidget(pgbConversion_);
    layout->addWidget(lblprogress_);
    // The page does not jump when the frame comes and goes.
    QSizePolicy policy = fraProgress_->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    fraProgress_->setSizePolicy(policy);
    fraProgress_->hide();
    return fraProgress_;
}

QWidget* FrmWizard::BuildNavigation() {
    auto* strip = new QWidget(this);
    strip->setObjectName("picNav");
    auto* layout = new QHBoxLayout(strip);
    layout->setContentsMargins(12, 10, 12, 10);
    for (int index = 0; index < 5; ++index) {
        auto* button = new QPushButton(strip);
        button->setObjectName(QString("cmdNav_%1").arg(index));
        Tag(button, 100 + index);
        button->setAutoDefault(false);
        button->setMinimumWidth(88);
        connect(button, &QPushButton::clicked, this,
                [this, index] { wizard_->cmdNav_Click(index); });
        cmdNav_[static_cast<std::size_t>(index)] = button;
    }
    layout->addWidget(cmdNav_[kNavHelp]);
    layout->addStretch(1);
    layout->addWidget(cmdNav_[kNavCancel]);
    layout->addSpacing(12);
    layout->addWidget(cmdNav_[kNavBack]);
    layout->addWidget(cmdNav_[kNavNext]);
    layout->addSpacing(12);
    layout->addWidget(cmdNav_[kNavExit]);
    return strip;
}

QMenu* FrmWizard::AddMenu(const char* name, const QString& caption, MenuEntry WizardMenus::*entry) {
    QMenu* menu = menuBar()->addMenu(caption);
    menu->setObjectName(name);
    menu->menuAction()->setObjectName(name);
    menus_.push_back({menu->menuAction(), entry});
    return menu;
}

QAction* FrmWizard::AddEntry(QMenu* menu, const char* name, const QString& caption,
                             MenuEntry WizardMenus::*entry, void (Wizard::*handler)(),
                             bool checkable) {
    QAction* action = menu->addAction(caption);
    action->setObjectName(name);
    action->setCheckable(checkable);
    connect(action, &QAction::triggered, this, [this, handler] { ((*wizard_).*handler)(); });
    menus_.push_back({action, entry});
    return action;
}

void FrmWizard::BuildMenus() {
    using W = WizardMenus;
    QMenu* file = AddMenu("mnuFile", "&File", &W::mnuFile);
    mnuFileRecent_ = file->addMenu("Recent &Projects");
    mnuFileRecent_->setObjectName("mnuFileRecent");
    mnuFileRecent_->setEnabled(false);
    file->addSeparator();
    AddEntry(file, "mnuFileExit", "E&xit", &W::mnuFileExit, &Wizard::mnuFileExit_Click);

    QMenu* view = AddMenu("mnuView", "&View", &W::mnuView);
    AddEntry(view, "mnuViewOldprojectFile", "Old HTML &Project File", &W::mnuViewOldprojectFile,
             &Wizard::mnuViewOldprojectFile_Click);
    AddEntry(view, "mnuViewNewProjectFile", "&New HTML Project File", &W::mnuViewNewProjectFile,
             &Wizard::mnuViewNewProjectFile_Click);
    view->addSeparator();
    AddEntry(view, "mnuViewRTF", "An R&TF File", &W::mnuViewRTF, &Wizard::mnuViewRTF_Click);
    AddEntry(view, "mnuViewFile", "&Any Text File", &W::mnuViewFile, &Wizard::mnuViewFile_Click);
    AddEntry(view, "mnuViewHTM", "View Topic File", &W::mnuViewHTM, &Wizard::mnuViewHTM_Click);
    view->addSeparator();
    AddEntry(view, "mnuViewScanLog", "S&can Log", &W::mnuViewScanLog,
             &Wizard::mnuViewScanLog_Click);
    AddEntry(view, "mnuViewRewriteLog", "&Rewrite Log", &W::mnuViewRewriteLog,
             &Wizard::mnuViewRewriteLog_Click);
    AddEntry(view, "mnuViewPopupLog", "Popup &Extraction Log", &W::mnuViewPopupLog,
             &Wizard::mnuViewPopupLog_Click);

    QMenu* options = AddMenu("mnuOptions", "&Options", &W::mnuOptions);
    AddEntry(options, "mnuOptionsHTML", "&HTML Options...", &W::mnuOptionsHTML,
             &Wizard::mnuOptionsHTML_Click);
    AddEntry(options, "mnuOptionsIgnoreZeroIDs", "Ignore &Zero IDs", &W::mnuOptionsIgnoreZeroIDs,
             &Wizard::mnuOptionsIgnoreZeroIDs_Click, true);
    AddEntry(options, "mnuOptionsReformatMap", "Automatically Reformat &Map Files",
             &W::mnuOptionsReformatMap, &Wizard::mnuOptionsReformatMap_Click, true);
    AddEntry(options, "mnuOptionsReadNameValue", "Read &Name-Value Lines in Map Files",
             &W::mnuOptionsReadNameValue, &Wizard::mnuOptionsReadNameValue_Click, true);
    QAction* separator = options->addSeparator();
    separator->setObjectName("mnuOptionsSep1");
    menus_.push_back({separator, &W::mnuOptionsSep1});
    AddEntry(options, "mnuOptionstest", "Test", &W::mnuOptionstest, &Wizard::mnuOptionstest_Click);

    QMenu* tools = AddMenu("mnuTools", "&Tools", &W::mnuTools);
    AddEntry(tools, "mnuToolsFormatMapFiles", "Format Map Files", &W::mnuToolsFormatMapFiles,
             &Wizard::mnuToolsFormatMapFiles_Click);
    QAction* check = tools->addAction("Chec&k New Project\u2026");
    check->setObjectName("mnuToolsCheckProject");
    connect(check, &QAction::triggered, this, &FrmWizard::CheckNewProject);

    QMenu* help = AddMenu("mnuHelp", "&Help", &W::mnuHelp);
    AddEntry(help, "mnuHelpProgram", "Help on the &Program", &W::mnuHelpProgram,
             &Wizard::mnuHelpProgram_Click);
    help->addSeparator();
    AddEntry(help, "mnuHelpAbout", "&About Tamrix", &W::mnuHelpAbout, &Wizard::mnuHelpAbout_Click);
}

void FrmWizard::CheckNewProject() {
    // The project just written, else one the user picks.
    std::string project;
    if (!wizard_->NewRootPath.empty() && !wizard_->NewProjectName.empty())
        project = modUtilities::MakeFullPathforFile(wizard_->NewRootPath, wizard_->NewProjectName);
    if (!modUtilities::FileExists(wizard_->Files, project))
        project = OpenFileDialog({"Check New Project",
                                  "HTML Help Project Files (*.hhp)|*.hhp|All Files (*.*)|*.*",
                                  "hhp",
                                  wizard_->NewRootPath,
                                  {}});
    if (!project.empty()) checkReport_ = CheckProjectAndShowReport(wizard_->Errors, project);
}

QAction* FrmWizard::MenuAction(const QString& name) const {
    for (const MenuBinding& binding : menus_)
        if (binding.action->objectName() == name) return binding.action;
    return nullptr;
}

// ---- Start and refresh ----

void FrmWizard::Start(const std::string& projectName) {
    UpdateBoxPosition();
    wizard_->Start();
    if (!projectName.empty()) {
        wizard_->controls.txtProjectName = FileSystem::GetAbsolutePathName(projectName);
        WizardChanged(*wizard_);
    }
    FocusStep(wizard_->CurrentStep());
}

void FrmWizard::WizardChanged(const Wizard& wizard) {
    const int step = wizard.CurrentStep();
    setWindowTitle(Q(wizard.Caption()));
    fraStep_->setCurrentIndex(step);
    for (int i = 0; i < Wizard::kStepCount; ++i) {
        QLabel* label = sideSteps_[static_cast<std::size_t>(i)];
        QFont font = label->font();
        font.setBold(i == step);
        label->setFont(font);
        label->setForegroundRole(i <= step ? QPalette::WindowText : QPalette::PlaceholderText);
    }
    for (int i = 0; i < 5; ++i) {
        const ControlState& state = wizard.NavButtons()[static_cast<std::size_t>(i)];
        cmdNav_[static_cast<std::size_t>(i)]->setEnabled(state.enabled);
        cmdNav_[static_cast<std::size_t>(i)]->setVisible(state.visible);
    }
    for (const MenuBinding& binding : menus_) {
        const MenuEntry& entry = wizard.menus.*binding.entry;
        binding.action->setEnabled(entry.enabled);
        binding.action->setVisible(entry.visible);
        if (binding.action->isCheckable()) binding.action->setChecked(entry.checked);
    }
    for (QPushButton* browse : {cmdBrowseHHP_, cmdbrowseHPJ_, cmdBrowseNewRoot_})
        browse->setEnabled(wizard.BrowseEnabled());
    RefreshControls(wizard);
    RefreshRecentProjects(wizard);
    fraProgress_->setVisible(wizard.FrameProgressVisible());
    if (step != shownStep_) {
        shownStep_ = step;
        FocusStep(step);
    }
}

void FrmWizard::RefreshControls(const Wizard& wizard) {
    const WizardControls& c = wizard.controls;
    SetCheck(chkShowIntro_, c.chkShowIntro);
    lblPrinter1_->setVisible(c.lblPrinterVisible);
    lblPrinter2_->setVisible(c.lblPrinterVisible);
    SetEdit(txtProjectName_, c.txtProjectName);
    lblTopicCount_->setText(Q(c.lblTopicCount));
    lblContents_->setText(Q(c.lblContents));
    lblIndexFile_->setText(Q(c.lblIndexFile));
    SetEdit(txtWinhelpProjectName_, c.txtWinhelpProjectName);
    SetCheck(chkIgnoreZeroIDs_, c.chkIgnoreZeroIDs);
    SetCheck(chkMapData_, c.chkMapData);
    SetCheck(chkAliasData_, c.chkAliasData);
    fraHPJOpen_->setVisible(c.fraHPJOpenVisible);
    SetEdit(txtRootPath_, c.txtRootPath);
    lblContextCount_->setText(Q(c.lblContextCount));
    lblUntitledCount_->setText(Q(c.lblUntitledCount));
    lblContextIDs_->setText(Q(c.lblContextIDs));
    SetCheck(optYesPopups_, c.optYesPopups);
    SetCheck(optNoPopups_, c.optNoPopups);
    SetCheck(chkSaveSettings_, c.chkSaveSettings);
    if (wizard.RewriteDone)
        lblNewProject_->setText("New project: " + Q(modUtilities::MakeFullPathforFile(
                                                      wizard.NewRootPath, wizard.NewProjectName)));
    else
        lblNewProject_->clear();
    lblNewProject_->setVisible(wizard.RewriteDone);
    cmdOpenFolder_->setEnabled(wizard.RewriteDone &&
                               modUtilities::FolderExists(wizard_->Files, wizard.NewRootPath));
    lblHHPSummary_->setText(ProjectSummary(wizard));
    lblHHPSummary_->setVisible(!wizard.Projectname.empty());
}

void FrmWizard::UpdateBoxPosition() {
    const QPoint centre = frameGeometry().center();
    wizard_->BoxLeft = centre.x();
    wizard_->BoxTop = centre.y();
}

// ---- IView ----

int FrmWizard::MessageBox(const MessageRequest& request) {
    return options_.dialogs.message ? options_.dialogs.message(this, request) : mb::kOK;
}

void FrmWizard::ErrorBox(const std::string& text, const std::string& title) {
    if (options_.dialogs.error) options_.dialogs.error(this, text, title);
}

std::optional<std::string> FrmWizard::InputBox(const std::string& prompt, const std::string& title,
                                               const std::string& defaultText) {
    if (!options_.dialogs.input) return std::nullopt;
    return options_.dialogs.input(this, prompt, title, defaultText);
}

std::string FrmWizard::OpenFileDialog(const FileDialogRequest& request) {
    return options_.dialogs.openFile ? options_.dialogs.openFile(this, request) : std::string();
}

std::string FrmWizard::SaveFileDialog(const FileDialogRequest& request) {
    return options_.dialogs.saveFile ? options_.dialogs.saveFile(this, request) : std::string();
}

void FrmWizard::SetProgressCaption(const std::string& caption) {
    lblprogress_->setText(Q(caption));
}

void FrmWizard::SetProgressMax(int maximum) { pgbConversion_->setRange(0, std::max(maximum, 1)); }

void FrmWizard::SetProgressValue(int value) { pgbConversion_->setValue(value); }

void FrmWizard::SetProgressVisible(bool visible) {
    fraProgress_->setVisible(visible);
    if (visible) fraProgress_->raise();
}

void FrmWizard::ProcessEvents() { QCoreApplication::processEvents(); }

// ---- IWizardView ----

bool FrmWizard::ShowHelp(int command, int context) { return help_->HtmlHelp(command, context); }

void FrmWizard::CloseHelp() { help_->HtmlHelp(kHelpCloseAll, 0); }

void FrmWizard::ExitProgram() {
    help_->close();
    if (frmOptions_) frmOptions_->close();
    closing_ = true;
    if (!inCloseEvent_) close();
    emit ExitRequested();
}

void FrmWizard::ShowAbout() {
    AboutBox about(this);
    about.exec();
}

void FrmWizard::ShowOptionsDialog(OptionsDialog& dialog) {
    if (!frmOptions_) frmOptions_ = std::make_unique<FrmOptions>(*this, this);
    frmOptions_->ShowModal(dialog);
}

bool FrmWizard::HasAnyPrinters() {
    if (options_.printers) return *options_.printers;
    return !QPrinterInfo::availablePrinterNames().isEmpty();
}

// ---- Events ----

void FrmWizard::closeEvent(QCloseEvent* event) {
    if (closing_) {
        event->accept();
        return;
    }
    // While an operation runs its File menu is off; the window stays.
    if (!wizard_->menus.mnuFile.enabled) {
        event->ignore();
        return;
    }
    inCloseEvent_ = true;
    wizard_->mnuFileExit_Click();  // ends in ExitProgram
    inCloseEvent_ = false;
    event->setAccepted(closing_);
}

void FrmWizard::moveEvent(QMoveEvent* event) {
    QMainWindow::moveEvent(event);
    UpdateBoxPosition();
}

void FrmWizard::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    UpdateBoxPosition();
}

}  // namespace tamrix::gui

#include "gui/help_window.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPushButton>
#include <QRegularExpression>
#include <QTextBrowser>
#include <QVBoxLayout>

#include "wizard/wizard_view.h"

namespace tamrix::gui {

std::optional<HelpProject> HelpProject::Load(const QString& hhpPath) {
    QFile file(hhpPath);
    if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
    HelpProject project;
    project.folder_ = QFileInfo(hhpPath).absolutePath();
    QMap<QString, int> numbers;  // upper-case name -> context number
    QMap<QString, QString> aliases;
    QString section;
    static const QRegularExpression define(R"(^#define\s+(\S+)\s+(\d+))");
    for (const QByteArray& raw : file.readAll().split('\n')) {
        const QString line = QString::fromLatin1(raw).trimmed();
        if (line.isEmpty() || line.startsWith(';')) continue;
        if (line.startsWith('[') && line.endsWith(']')) {
            section = line.mid(1, line.size() - 2).toUpper();
            continue;
        }
        if (section == "OPTIONS" && line.startsWith("Default topic=", Qt::CaseInsensitive)) {
            project.defaultTopic_ = line.mid(line.indexOf('=') + 1).trimmed();
        } else if (section == "MAP") {
            if (const auto m = define.match(line); m.hasMatch())
                numbers[m.captured(1).toUpper()] = m.captured(2).toInt();
        } else if (section == "ALIAS" && line.contains('=')) {
            const qsizetype eq = line.indexOf('=');
            aliases[line.left(eq).trimmed().toUpper()] = line.mid(eq + 1).trimmed();
        }
    }
    for (auto it = numbers.cbegin(); it != numbers.cend(); ++it)
        if (aliases.contains(it.key())) project.contexts_[it.value()] = aliases[it.key()];
    return project;
}

QString HelpProject::PageForContext(int context) const {
    const QString page = contexts_.value(context);
    if (page.isEmpty()) return {};
    return QDir(folder_).filePath(QString(page).replace('\\', '/'));
}

QString HelpProject::DefaultTopic() const {
    if (defaultTopic_.isEmpty()) return {};
    return QDir(folder_).filePath(QString(defaultTopic_).replace('\\', '/'));
}

QString FindHelpProject() {
    const QString appDir = QCoreApplication::applicationDirPath();
    const QStringList candidates = {
        appDir + "/help/Tamrix.hhp",
        appDir + "/../" TAMRIX_INSTALL_DATADIR "/tamrix/help/Tamrix.hhp",
        TAMRIX_INSTALL_FULL_DATADIR "/tamrix/help/Tamrix.hhp",
        TAMRIX_SOURCE_HELP_DIR "/Tamrix.hhp",
    };
    for (const QString& path : candidates)
        if (QFileInfo::exists(path)) return QFileInfo(path).absoluteFilePath();
    return {};
}

HelpWindow::HelpWindow(QWidget* parent) : QDialog(parent) {
    setObjectName("HelpWindow");
    setWindowTitle("Tamrix Help");
    setWindowFlags(Qt::Window);
    browser_ = new QTextBrowser(this);
    browser_->setObjectName("helpBrowser");
    browser_->setOpenExternalLinks(true);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    auto* home = buttons->addButton("&Contents", QDialogButtonBox::ActionRole);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::close);
    connect(home, &QPushButton::clicked, this, [this] { HtmlHelp(kHelpDisplayTopic, 0); });
    connect(browser_, &QTextBrowser::sourceChanged, this,
            [this] { setWindowTitle("Tamrix Help - " + browser_->documentTitle()); });
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->addWidget(browser_, 1);
    layout->addWidget(buttons);
    resize(640, 560);
}

void HelpWindow::SetProject(std::optional<HelpProject> project) {
    project_ = std::move(project);
    projectLooked_ = true;
}

QString HelpWindow::CurrentPage() const { return browser_->source().toLocalFile(); }

bool HelpWindow::ShowPage(const QString& path) {
    if (path.isEmpty() || !QFileInfo::exists(path)) return false;
    browser_->setSearchPaths({QFileInfo(path).absolutePath()});
    browser_->setSource(QUrl::fromLocalFile(path));
    show();
    raise();
    activateWindow();
    return true;
}

bool HelpWindow::HtmlHelp(int command, int context) {
    if (command == kHelpCloseAll) {
        close();
        return true;
    }
    if (!projectLooked_) {
        projectLooked_ = true;
        if (const QString hhp = FindHelpProject(); !hhp.isEmpty())
            project_ = HelpProject::Load(hhp);
    }
    if (!project_) return false;
    if (command == kHelpContext) return ShowPage(project_->PageForContext(context));
    if (command == kHelpDisplayTopic) return ShowPage(project_->DefaultTopic());
    return false;
}

}  // namespace tamrix::gui

#pragma once
// The program's own help: the HTML Help project under help/ read for its
// context map, and a window that shows its pages.
#include <QDialog>
#include <QMap>
#include <QString>
#include <optional>

class QTextBrowser;

namespace tamrix::gui {

/// What the help viewer needs from Tamrix.hhp: the default page and the
/// context numbers ([MAP] "#define NAME number") with their pages ([ALIAS] "NAME=page").
class HelpProject {
public:
    /// Reads a help project; nothing when the file cannot be read.
    static std::optional<HelpProject> Load(const QString& hhpPath);

    /// The project's folder.
    QString Folder() const { return folder_; }
    /// Full path of the page for a context number, or empty.
    QString PageForContext(int context) const;
    /// Full path of the default topic (the index page).
    QString DefaultTopic() const;
    /// The context numbers that have a page, in ascending order.
    QList<int> Contexts() const { return contexts_.keys(); }

private:
    QString folder_;
    QString defaultTopic_;
    QMap<int, QString> contexts_;  // number -> page file name
};

/// Tamrix.hhp next to the program (help/), then in the installed data folder,
/// then in the source tree; empty when none is found.
QString FindHelpProject();

/// The help window: a browser on the pages of the program's help project.
class HelpWindow : public QDialog {
    Q_OBJECT

public:
    /// The project is looked for (FindHelpProject) when help is first asked for.
    explicit HelpWindow(QWidget* parent = nullptr);

    /// Uses this project instead of looking for one.
    void SetProject(std::optional<HelpProject> project);
    /// HTML Help commands: display topic (0), help context (15), close all (18).
    /// True when a page was shown (or, for close all, always).
    bool HtmlHelp(int command, int context);
    /// The browser showing the page.
    QTextBrowser* Browser() const { return browser_; }
    /// The full path of the page shown.
    QString CurrentPage() const;

private:
    bool ShowPage(const QString& path);

    std::optional<HelpProject> project_;
    bool projectLooked_ = false;
    QTextBrowser* browser_ = nullptr;
};

}  // namespace tamrix::gui

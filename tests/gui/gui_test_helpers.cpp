#include "gui/gui_test_helpers.h"

#include <QProcess>
#include <QStandardPaths>

namespace tamrix::testing {

std::optional<std::string> RunProgram(const QString& program, const QStringList& args) {
    if (QStandardPaths::findExecutable(program).isEmpty()) return std::nullopt;
    QProcess process;
    process.start(program, args);
    if (!process.waitForFinished(60000) || process.exitCode() != 0) return std::nullopt;
    return process.readAllStandardOutput().toStdString();
}

}  // namespace tamrix::testing

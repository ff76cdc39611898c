#pragma once
// The log viewer's toolbar pictures, drawn rather than shipped as image files.
#include <QIcon>
#include <QString>

namespace tamrix::gui {

/// The icon of a toolbar key: "Print", "Save", "Bold", "Italic", "Underline",
/// "Strike Through", "Left", "Right" or "Centre".
QIcon ToolbarIcon(const QString& key);

}  // namespace tamrix::gui

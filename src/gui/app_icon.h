#pragma once
// The program's icon, painted the same way as data/tamrix.svg (the Qt build
// here may lack the SVG image plugin).
#include <QIcon>

namespace tamrix::gui {

/// The window icon of every window of the program.
QIcon AppIcon();

}  // namespace tamrix::gui

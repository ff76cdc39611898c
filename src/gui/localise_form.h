#pragma once
// Fills a window's captions from the message catalogue: every widget whose
// "tag" property holds a catalogue number gets that text, and a numeric
// "toolTipId" gives its tool tip. Non-numeric values are left alone.
#include <QString>

class QWidget;

namespace tamrix::gui {

/// The property holding a widget's caption number.
inline constexpr const char* kTagProperty = "tag";
/// The property holding a widget's tool-tip number.
inline constexpr const char* kToolTipProperty = "toolTipId";

/// The catalogue text of a numeric value, or nothing for other values.
bool CatalogueTextOf(const QString& value, QString& text);

/// Sets the captions and tool tips of `form` and its children from their numeric properties.
void LocaliseForm(QWidget& form);

}  // namespace tamrix::gui

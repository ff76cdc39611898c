#pragma once
// Fills a window's captions from the message catalogue: every widget whose
// "tag" property holds a catalogue number gets that text, and a numeric
// "toolTipId" gives its tool tip. Non-numeric values are left alone.
#include <QString>

class QWidget;

namespace tamrix::gui {

inline constexpr const char* kTagProperty = "tag";
inline constexpr const char* kToolTipProperty = "toolTipId";

// The catalogue text of a numeric value, or nothing for other values.
bool CatalogueTextOf(const QString& value, QString& text);

void LocaliseForm(QWidget& form);

}  // namespace tamrix::gui

#pragma once
// The numbered message catalogue and the message boxes built on it.
#include <optional>
#include <string>
#include <string_view>

#include "platform/view.h"

namespace tamrix::modMessages {

/// Placeholder for the first inserted text of a catalogue message.
inline constexpr const char* kInsertText = "<INSERT_TEXT>";
/// Placeholder for the second inserted text.
inline constexpr const char* kInsertText2 = "<INSERT_TEXT2>";

/// The catalogue text of `id`, or nothing when the catalogue lacks it.
std::optional<std::string> CatalogueText(long id);

/// The catalogue text with its placeholders filled. An empty second text leaves
/// "<INSERT_TEXT2>" in place; a missing ID gives "Resource ID <id> Missing".
std::string GetMessageString(long id, std::string_view insertText = {},
                             std::string_view insertText2 = {});

/// A catalogue text with its placeholders filled, and the ID it came from.
struct CatalogueMessage {
    long id;           ///< the catalogue ID
    std::string text;  ///< the text, placeholders filled
};
/// The catalogue text of `id` with its placeholders filled, kept with its ID.
CatalogueMessage FromCatalogue(long id, std::string_view insertText = {},
                               std::string_view insertText2 = {});

/// Shows a catalogue text (placeholders unfilled) followed by CR LF and `extra`.
void ShowMessageID(IView& view, long id, int style, std::string_view title,
                   std::string_view extra = {}, BoxPosition position = {});
/// As ShowMessageID, and returns the button pressed.
int AskMessageID(IView& view, long id, int style, std::string_view title,
                 std::string_view extra = {}, BoxPosition position = {});

/// Shows a ready text. `catalogueId` names the catalogue entry the text was made
/// from (0 when none), so that an automated answer can be given by ID.
void ShowMessage(IView& view, std::string_view text, int style, std::string_view title,
                 BoxPosition position = {}, long catalogueId = 0);
/// As ShowMessage, and returns the button pressed; an unanswered question is No.
int AskMessage(IView& view, std::string_view text, int style, std::string_view title,
               BoxPosition position = {}, long catalogueId = 0);

/// Shows a filled catalogue text; an automated answer can name it by its ID.
void ShowMessage(IView& view, const CatalogueMessage& message, int style, std::string_view title,
                 BoxPosition position = {});
/// As ShowMessage, and returns the button pressed.
int AskMessage(IView& view, const CatalogueMessage& message, int style, std::string_view title,
               BoxPosition position = {});

}  // namespace tamrix::modMessages

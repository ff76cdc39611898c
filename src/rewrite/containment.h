#pragma once
// Keeping every written file inside the new project folder. Names that come
// from the old project ([FILES] entries, topic IDs, file names held by the
// wizard) are checked before a file is written from them; a refused name is
// shown to the user and kept for the rewrite log.
#include <string>
#include <string_view>
#include <vector>

#include "model/c_topic_file.h"
#include "model/conversion.h"

namespace tamrix::modRewrite {

/// Whether a Windows-style name relative to the new project folder stays inside
/// it: not empty, not absolute, no drive letter or other ":", no ".." component
/// (nor one of dots only, which Windows reads as ".."), no NUL.
bool IsSafeRelativeName(std::string_view relativeName);

/// Whether a topic ID can be a Windows file name: none of " * ? < > | : \ / or
/// control bytes, no trailing dot or blank (so no ".."), not a device name (CON, PRN, AUX, NUL,
/// COM1-9, LPT1-9, with any extension), at most 200 characters.
bool IsWindowsFileName(std::string_view name);

/// Tells the user that `relativeName` is not written and keeps it for the log.
void RefuseOutsideFile(Conversion& wizard, const std::string& relativeName);

/// Tells the user that a topic keeps its old file name because its topic ID
/// cannot be one, and keeps "old name (topic ID)" for the log.
void RefuseTopicID(Conversion& wizard, const std::string& oldName, const std::string& topicId);

/// Tells the user that `topic` keeps its old file name because `holder` writes
/// the new one, and keeps it for the log.
void RefuseTakenName(Conversion& wizard, const CTopicFile& topic, const CTopicFile& holder);

}  // namespace tamrix::modRewrite

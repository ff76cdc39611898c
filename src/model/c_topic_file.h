#pragma once
#include <string>

#include "model/c_target.h"
#include "platform/counter16.h"
#include "platform/path_helpers.h"

namespace tamrix {

/// One .htm topic file listed in the [FILES] section.
class CTopicFile {
public:
    std::string ContextIDValueString;  ///< value text of the map context ID named Context
    // The small fields side by side, so that a project's many records stay small.
    bool HasTitle = false;         ///< false for "(Untitled)" topics (former popups)
    Counter16 InternalReferences;  ///< links from topic files that resolve here
    Counter16 ExternalReferences;  ///< context-ID definitions naming Context or an extra ID
    /// How many hotspot links the file holds.
    Counter16 HotSpotCount;
    /// Set once popup links have been written into the file.
    bool JavaModified = false;
    std::string ExtraIds;  ///< further anchor names, "^"-separated
    /// The comment written after the [FILES] line, if any.
    std::string Comment;
    std::string AutoNamePath;  ///< the name exactly as listed in [FILES]
    /// The text of the file's <TITLE>, or "(Untitled)".
    std::string TopicTitle;
    std::string Context;       ///< topic ID: the first anchor name after the body start
    std::string AutoFileName;  ///< AutoNamePath without its folder; the key in TopicFiles
    std::string NewFileName;   ///< Context + ".htm", or AutoFileName without an ID
    /// Where the write step puts the file, relative to the new project folder: the
    /// [FILES] folder and the new name.
    std::string NewNamePath() const {
        return modUtilities::FilePathOnly(AutoNamePath) + NewFileName;
    }

    /// The unique link targets of the file; never absent.
    CTargets& targets() { return targets_; }
    /// The same, read-only.
    const CTargets& targets() const { return targets_; }

private:
    CTargets targets_;
};

}  // namespace tamrix

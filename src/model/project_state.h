#pragma once
// The project in memory of one conversion. Each scan clears and refills it;
// writers and logs only read it, except for the flags the writers set on its records.
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "model/c_alias.h"
#include "model/c_context_id.h"
#include "model/c_target.h"
#include "model/c_topic_files.h"
#include "platform/counter16.h"

namespace tamrix {

/// The project one conversion holds in memory, its options and the tag readers' state.
struct ProjectState {
    std::shared_ptr<CTopicFiles> TopicFiles;  ///< absent before the first scan
    /// The Local values of the index file.
    std::shared_ptr<CTargets> IndexTargets;
    /// The Local values of the contents file.
    std::shared_ptr<CTargets> ContentsTargets;
    std::shared_ptr<CContextIDs> MapContextIDs;      ///< from the #included map files
    std::shared_ptr<CContextIDs> ProjectContextIDs;  ///< from the .hpj [MAP] section
    std::shared_ptr<CAliases> ProjectAliases;        ///< from the .hpj [ALIAS] section
    std::vector<std::string> MapFiles;               ///< 0-based; MapFileCount entries are in use
    /// How many entries of MapFiles are in use.
    Counter16 MapFileCount;
    /// The alias files of the WinHelp project, 0-based; AliasFileCount entries are in use.
    std::vector<std::string> AliasFiles;
    /// How many entries of AliasFiles are in use.
    Counter16 AliasFileCount;
    std::string DuplicateIncludes;  ///< "^"-separated
    /// Context IDs defined more than once, one entry per name, with its later value.
    std::shared_ptr<CContextIDs> DuplicateContextIDs;
    std::string RenamedTopicIDs;    ///< message 10066 + "^" per renamed duplicate ID
    std::string InvalidContextIDs;  ///< "NAME = overflow value: VALUE", "^"-separated
    std::string ContentsTopic;      ///< CONTENTS option of the WinHelp project
    std::string MapSectionText;     ///< raw [MAP] section; kept, never read

    /// Options of the run.
    bool IgnoreZeroIDs = true;  ///< ignore zero-value context IDs (Options menu)
    /// Map header files may define IDs as "NAME VALUE" lines, as Visual C++ writes
    /// them (Options menu); when not, such lines are only counted.
    bool ReadNameValueLines = false;
    /// How many "NAME VALUE" lines were skipped because ReadNameValueLines was off.
    int UnreadNameValueLines = 0;
    /// The popup cleaning switches: set at start-up and never changed.
    bool RemoveScriptLinks = true;
    /// Whether links are stripped from the texts of text popups.
    bool RemoveTextLinks = true;
    /// Whether images are stripped from popup texts.
    bool RemovePopupImages = true;

    /// Scanner state shared between the tag readers: 0 searching, 1 inside, 2 complete.
    int HeadState = 0;
    /// The same for the <BODY> tag.
    int BodyState = 0;
    /// The same for an <A> tag.
    int AnchorState = 0;
    /// The same for an <AREA> tag.
    int AreaState = 0;
    /// The same for an <OBJECT> tag.
    int ObjectState = 0;
    /// Text the anchor reader read past the last anchor, where the next search continues.
    std::string PendingAnchorText;
    /// Where the next "<A" starts in PendingAnchorText when the tag readers left it
    /// there, so a long line is not copied once per anchor; 0 for text put there otherwise.
    std::size_t PendingAnchorStart = 0;

    /// The names the writers refused to write, in order, without repeats.
    std::vector<std::string> RefusedFiles;
    /// The topic files that kept their names because their ID cannot name a file.
    std::vector<std::string> RefusedTopicIDs;
    /// The topic files that kept their names because another topic file writes the new one.
    std::vector<std::string> ClashingTopicIDs;

    /// Drops the WinHelp data: context IDs, aliases, duplicates, map and alias files.
    void ClearWinHelpData();
    /// Drops everything, the topic files and the contents and index targets included.
    void CloseProject();
};

}  // namespace tamrix

#pragma once
// The single project in memory. Each scan clears and refills it; writers and
// logs only read it, except for the flags the writers set on its records.
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "model/c_alias.h"
#include "model/c_context_id.h"
#include "model/c_target.h"
#include "model/c_topic_files.h"
#include "platform/counter16.h"

namespace tamrix::modGlobals {

extern std::shared_ptr<CTopicFiles> TopicFiles;  // absent before the first scan
extern std::shared_ptr<CTargets> IndexTargets;
extern std::shared_ptr<CTargets> ContentsTargets;
extern std::shared_ptr<CContextIDs> MapContextIDs;      // from the #included map files
extern std::shared_ptr<CContextIDs> ProjectContextIDs;  // from the .hpj [MAP] section
extern std::shared_ptr<CAliases> ProjectAliases;        // from the .hpj [ALIAS] section
extern std::vector<std::string> MapFiles;               // 0-based; MapFileCount entries are in use
extern Counter16 MapFileCount;
extern std::vector<std::string> AliasFiles;
extern Counter16 AliasFileCount;
extern std::string DuplicateIncludes;  // "^"-separated
extern std::shared_ptr<CContextIDs> DuplicateContextIDs;
extern std::string RenamedTopicIDs;    // message 10066 + "^" per renamed duplicate ID
extern std::string InvalidContextIDs;  // "NAME = overflow value: VALUE", "^"-separated
extern std::string ContentsTopic;      // CONTENTS option of the WinHelp project
extern std::string MapSectionText;     // raw [MAP] section; kept, never read

// Options of the run.
extern bool IgnoreZeroIDs;  // ignore zero-value context IDs (Options menu)
// Map header files may define IDs as "NAME VALUE" lines, as Visual C++ writes
// them (Options menu); when not, such lines are only counted.
extern bool ReadNameValueLines;
extern int UnreadNameValueLines;
// The popup cleaning switches: set at start-up and never changed.
extern bool RemoveScriptLinks;
extern bool RemoveTextLinks;
extern bool RemovePopupImages;

// Scanner state shared between the tag readers: 0 searching, 1 inside, 2 complete.
extern int HeadState;
extern int BodyState;
extern int AnchorState;
extern int AreaState;
extern int ObjectState;
extern std::string PendingAnchorText;
// Where the next "<A" starts in PendingAnchorText when the tag readers left it
// there, so a long line is not copied once per anchor; 0 for text put there otherwise.
extern std::size_t PendingAnchorStart;

// Drops the WinHelp data: context IDs, aliases, duplicates, map and alias files.
void ClearWinHelpData();
// Drops everything, the topic files and the contents and index targets included.
void CloseProject();
// Restores the start-up state of the whole model and its switches.
void ResetAll();

}  // namespace tamrix::modGlobals

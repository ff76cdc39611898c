#include "model/project_state.h"

namespace tamrix::modGlobals {

std::shared_ptr<CTopicFiles> TopicFiles;
std::shared_ptr<CTargets> IndexTargets;
std::shared_ptr<CTargets> ContentsTargets;
std::shared_ptr<CContextIDs> MapContextIDs;
std::shared_ptr<CContextIDs> ProjectContextIDs;
std::shared_ptr<CAliases> ProjectAliases;
std::vector<std::string> MapFiles;
Counter16 MapFileCount;
std::vector<std::string> AliasFiles;
Counter16 AliasFileCount;
std::string DuplicateIncludes;
std::shared_ptr<CContextIDs> DuplicateContextIDs;
std::string RenamedTopicIDs;
std::string InvalidContextIDs;
std::string ContentsTopic;
std::string MapSectionText;

bool IgnoreZeroIDs = true;
bool ReadNameValueLines = false;
int UnreadNameValueLines = 0;
bool RemoveScriptLinks = true;
bool RemoveTextLinks = true;
bool RemovePopupImages = true;

int HeadState = 0;
int BodyState = 0;
int AnchorState = 0;
int AreaState = 0;
int ObjectState = 0;
std::string PendingAnchorText;
std::size_t PendingAnchorStart = 0;

void ClearWinHelpData() {
    MapContextIDs.reset();
    ProjectContextIDs.reset();
    ProjectAliases.reset();
    DuplicateContextIDs.reset();
    DuplicateIncludes.clear();
    MapFiles.clear();
    MapFileCount = 0;
    AliasFiles.clear();
    AliasFileCount = 0;
    UnreadNameValueLines = 0;
}

void CloseProject() {
    ClearWinHelpData();
    TopicFiles.reset();
    IndexTargets.reset();
    ContentsTargets.reset();
}

void ResetAll() {
    CloseProject();
    RenamedTopicIDs.clear();
    InvalidContextIDs.clear();
    ContentsTopic.clear();
    MapSectionText.clear();
    IgnoreZeroIDs = true;
    ReadNameValueLines = false;
    RemoveScriptLinks = RemoveTextLinks = RemovePopupImages = true;
    HeadState = BodyState = AnchorState = AreaState = ObjectState = 0;
    PendingAnchorText.clear();
    PendingAnchorStart = 0;
}

}  // namespace tamrix::modGlobals

#include "model/project_state.h"

namespace tamrix {

void ProjectState::ClearWinHelpData() {
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

void ProjectState::CloseProject() {
    ClearWinHelpData();
    TopicFiles.reset();
    IndexTargets.reset();
    ContentsTargets.reset();
}

}  // namespace tamrix

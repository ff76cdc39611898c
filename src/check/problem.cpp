#include "check/problem.h"

namespace tamrix::check {

bool IsWarning(ProblemKind kind) { return kind == ProblemKind::kUnaliasedId; }

const char* KindName(ProblemKind kind) {
    switch (kind) {
        case ProblemKind::kMissingFile: return "missing-file";
        case ProblemKind::kBrokenLink: return "broken-link";
        case ProblemKind::kMissingAnchor: return "missing-anchor";
        case ProblemKind::kUnaliasedId: return "unaliased-id";
        case ProblemKind::kAliasMissingFile: return "alias-missing-file";
        case ProblemKind::kAliasUnknownId: return "alias-unknown-id";
        case ProblemKind::kConflictingId: return "conflicting-id";
        case ProblemKind::kBadHeaderLine: return "bad-header-line";
        case ProblemKind::kBadPopupScript: return "bad-popup-script";
        case ProblemKind::kMissingTextPopups: return "missing-text-popups";
        case ProblemKind::kNameCollision: return "name-collision";
        case ProblemKind::kInvalidName: return "invalid-name";
    }
    return "unknown";
}

}  // namespace tamrix::check

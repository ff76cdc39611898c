// Kept apart from the log text: this is the part that needs the reference counts.
#include "reports/rewrite_log.h"

#include "parser/undefined_ids.h"
#include "platform/program_error.h"

namespace tamrix::modUtilities {

bool MakeRewriteLogSummary(Conversion& wizard, CSummary& report) {
    return Guarded(wizard.Errors, "modUtilities:MakeRewriteLogSummary", false, [&] {
        int zeroCount = 0;
        const int undefinedCount = UndefinedIDs(wizard, zeroCount);
        return WriteRewriteLog(wizard, report, undefinedCount, zeroCount);
    });
}

}  // namespace tamrix::modUtilities

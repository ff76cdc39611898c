#include "parser/undefined_ids.h"

#include "model/conversion.h"
#include "model/project_state.h"
#include "platform/counter16.h"
#include "platform/program_error.h"

namespace tamrix::modUtilities {

int UndefinedIDs(Conversion& wizard, int& zeroCount) {
    zeroCount = 0;
    return Guarded(wizard.Errors, "modUtilities:UndefinedIDs", 0, [&] {
        Counter16 undefined;
        Counter16 zeros;
        for (const auto* collection :
             {wizard.Globals.ProjectContextIDs.get(), wizard.Globals.MapContextIDs.get()}) {
            if (collection == nullptr) continue;
            for (const auto& id : *collection) {
                if (id->ContextIDVal == 0)
                    ++zeros;
                else if (!id->FileDefined)
                    ++undefined;
            }
        }
        zeroCount = zeros;
        return static_cast<int>(undefined);
    });
}

}  // namespace tamrix::modUtilities

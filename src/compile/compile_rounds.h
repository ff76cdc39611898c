#pragma once
// chmcmd refuses a project in which two aliases name one file or a [MAP] ID
// has no alias. So the aliased IDs are compiled in rounds: each round takes at
// most one alias per file, and together the rounds take every aliased ID.
#include <cstdint>
#include <string>
#include <vector>

#include "check/context_map.h"

namespace tamrix::compile {

struct AliasedId {
    std::string name;
    std::int32_t value = 0;
    std::string target;  // as the alias names it
};

struct RoundPlan {
    std::vector<std::vector<AliasedId>> rounds;  // the first round is the one given to the user
    std::vector<std::string> unaliased;          // [MAP] IDs without an alias
};

RoundPlan PlanRounds(const check::ContextMap& map);

}  // namespace tamrix::compile

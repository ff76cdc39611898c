#pragma once
// chmcmd refuses a project in which two aliases name one file or a [MAP] ID
// has no alias. So the aliased IDs are compiled in rounds: each round takes at
// most one alias per file, and together the rounds take every aliased ID.
#include <cstdint>
#include <string>
#include <vector>

#include "check/context_map.h"

namespace tamrix::compile {

/// A [MAP] ID with the file its alias names.
struct AliasedId {
    std::string name;        ///< as [MAP] names it
    std::int32_t value = 0;  ///< its number
    std::string target;      ///< as the alias names it
};

/// The compile rounds and the IDs that none of them can take.
struct RoundPlan {
    std::vector<std::vector<AliasedId>> rounds;  ///< the first round is the one given to the user
    std::vector<std::string> unaliased;          ///< [MAP] IDs without an alias
};

/// Splits the aliased IDs into rounds in [MAP] order, each file named at most once per round.
RoundPlan PlanRounds(const check::ContextMap& map);

}  // namespace tamrix::compile

#include "compile/compile_rounds.h"

#include <unordered_map>

#include "check/link_check.h"
#include "platform/byte_text.h"

namespace tamrix::compile {

RoundPlan PlanRounds(const check::ContextMap& map) {
    std::unordered_map<std::string, const check::AliasEntry*> aliases;  // by folded name
    for (const check::AliasEntry& alias : map.aliases) aliases.emplace(Fold(alias.name), &alias);
    RoundPlan plan;
    std::unordered_map<std::string, std::size_t> perFile;  // aliases of a file taken so far
    for (const check::Definition& definition : map.definitions) {
        const auto it = aliases.find(Fold(definition.name));
        if (it == aliases.end()) {
            plan.unaliased.push_back(definition.name);
            continue;
        }
        const std::string& target = it->second->target;
        const std::size_t round = perFile[check::PathKey({}, std::string(Before(target, '#')))]++;
        if (round == plan.rounds.size()) plan.rounds.emplace_back();
        plan.rounds[round].push_back({definition.name, definition.value, target});
    }
    return plan;
}

}  // namespace tamrix::compile

#include <gtest/gtest.h>

#include "support/scripted_view.h"

#include "model/context_id_index.h"

namespace tamrix {
namespace {

std::vector<std::string> Values(const std::vector<NamedDefinition>& found) {
    std::vector<std::string> out;
    for (const auto& named : found)
        out.push_back(named.definition->ContextID + (named.fromMapFiles ? " map" : " hpj"));
    return out;
}

TEST(ContextIDIndexTest, FindsEveryDefinitionOfANameMapFilesFirstInCollectionOrder) {
    testing::ScriptedView view;
    ErrorReporter errors{view};
    CContextIDs map;
    CContextIDs project;
    project.Add(errors, "IDH_A", "5", "IDH_A");
    map.Add(errors, "idh_a", "1", "");
    map.Add(errors, "IDH_B", "2", "IDH_B");
    map.Add(errors, "Idh_A", "3", "");  // unkeyed records may repeat a name
    map.Add(errors, "", "7", "");
    const ContextIDIndex index(&map, &project);
    EXPECT_EQ(Values(index.Named("IDH_a")), (std::vector<std::string>{"1 map", "3 map", "5 hpj"}));
    EXPECT_EQ(Values(index.Named("idh_b")), std::vector<std::string>{"2 map"});
    EXPECT_TRUE(index.Named("IDH_C").empty());
    // An empty name matches the definitions without a name.
    EXPECT_EQ(Values(index.Named("")), std::vector<std::string>{"7 map"});
    // Either collection may be missing.
    EXPECT_EQ(Values(ContextIDIndex(nullptr, &project).Named("idh_a")),
              std::vector<std::string>{"5 hpj"});
    EXPECT_TRUE(ContextIDIndex(nullptr, nullptr).Named("IDH_A").empty());
}

}  // namespace
}  // namespace tamrix

#include "parser/sitemap_reader.h"

#include <gtest/gtest.h>

#include <memory>

#include "model/project_state.h"
#include "support/scripted_view.h"
#include "support/temp_dir.h"

namespace tamrix::modParser {
namespace {

std::string Entry(const std::string& params) {
    return "\t<LI> <OBJECT type=\"text/sitemap\">\r\n\t\t<param name=\"Name\" "
           "value=\"Topic\">\r\n" +
           params + "\t\t</OBJECT>\r\n";
}

std::vector<std::string> Names(const CTargets& targets) {
    std::vector<std::string> names;
    for (const auto& t : targets) names.push_back(t->TargetString);
    return names;
}

class SitemapReader : public ::testing::Test {
  protected:
    void SetUp() override {
        modGlobals::ResetAll();
        modGlobals::IndexTargets = std::make_shared<CTargets>();
        modGlobals::ContentsTargets = std::make_shared<CTargets>();
    }
    void TearDown() override { modGlobals::ResetAll(); }

    testing::ScriptedView view;
    ScopedActiveView active{view};
    testing::TempDir dir;
};

TEST_F(SitemapReader, IndexLocalValuesLoseTheirAnchorsAndRepeats) {
    const std::string file =
        dir.Write("x.hhk", "<HTML><BODY><UL>\r\n" +
                               Entry("\t\t<param name=\"Local\" value=\"html\\hs1.htm#a\">\r\n") +
                               Entry("\t\t<param name=\"Local\" value=\"HTML\\HS1.htm\">\r\n") +
                               Entry("\t\t<param name=\"local\" value=\" html/hs2.htm \">\r\n") +
                               "</UL></BODY></HTML>\r\n");
    EXPECT_TRUE(ParseIndexFile(file));
    EXPECT_EQ(Names(*modGlobals::IndexTargets),
              (std::vector<std::string>{"html\\hs1.htm", "html/hs2.htm"}));
    EXPECT_TRUE(modGlobals::ContentsTargets->Count() == 0);
}

TEST_F(SitemapReader, AnObjectWithTwoLocalParametersGivesBoth) {
    const std::string file = dir.Write(
        "t.hhc",
        Entry(
            "<param name=\"Local\" value=\"a.htm\"><param name=\"Local\" value=\"b.htm#q\">\r\n"));
    EXPECT_TRUE(ParseContentsFile(file));
    EXPECT_EQ(Names(*modGlobals::ContentsTargets), (std::vector<std::string>{"a.htm", "b.htm"}));
}

TEST_F(SitemapReader, MalformedParametersEndTheirObjectWithoutHanging) {
    const std::string file = dir.Write(
        "m.hhk",
        // No VALUE= after "Local": the object is given up.
        Entry("<param name=\"Local\">\r\n") +
            // An unclosed value runs to the ">" of the end tag.
            "<OBJECT type=\"text/sitemap\"><param name=\"Local\" value=\"c.htm </OBJECT>\r\n" +
            Entry("<param name=\"Local\" value=\"d.htm\">\r\n"));
    EXPECT_TRUE(ParseIndexFile(file));
    EXPECT_EQ(Names(*modGlobals::IndexTargets),
              (std::vector<std::string>{"c.htm </OBJECT", "d.htm"}));
}

TEST_F(SitemapReader, ContentsAlsoCollectsPlainLinks) {
    const std::string file =
        dir.Write("c.hhc", Entry("<param name=\"Local\" value=\"a.htm\">\r\n") +
                               "<P><A HREF=\"A.HTM#top\">again</A> <A HREF=\"extra.htm\">x</A>\r\n"
                               "<A NAME=\"n\">no link</A>\r\n");
    EXPECT_TRUE(ParseContentsFile(file));
    EXPECT_EQ(Names(*modGlobals::ContentsTargets),
              (std::vector<std::string>{"a.htm", "extra.htm"}));
}

TEST_F(SitemapReader, MissingFiles) {
    EXPECT_TRUE(ParseIndexFile(dir / "none.hhk"));
    EXPECT_TRUE(view.errors.empty());
    EXPECT_FALSE(ParseContentsFile(dir / "none.hhc"));
    ASSERT_EQ(view.errors.size(), 1u);
    EXPECT_NE(view.errors[0].first.find("modParser:ParseContentsFile"), std::string::npos);
}

}  // namespace
}  // namespace tamrix::modParser

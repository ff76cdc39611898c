#include "parser/sitemap_reader.h"

#include "parser/project_fixture.h"

namespace tamrix::modParser {
namespace {

std::string Entry(const std::string& params) {
    return "\t<LI> <OBJECT type=\"text/sitemap\">\r\n\t\t<param name=\"Name\" "
           "value=\"Topic\">\r\n" +
           params + "\t\t</OBJECT>\r\n";
}
std::string Local(const std::string& value) {
    return "<param name=\"Local\" value=\"" + value + "\">\r\n";
}

using SitemapReader = testing::ProjectFixture;

TEST_F(SitemapReader, LocalValuesLoseTheirAnchorsAndRepeats) {
    struct Case {
        bool index;
        std::string text;
        std::vector<std::string> expected;
    } const cases[] = {
        {true,
         "<HTML><BODY><UL>\r\n" + Entry(Local("html\\hs1.htm#a")) + Entry(Local("HTML\\HS1.htm")) +
             Entry("\t\t<param name=\"local\" value=\" html/hs2.htm \">\r\n") +
             "</UL></BODY></HTML>\r\n",
         {"html\\hs1.htm", "html/hs2.htm"}},
        // An object with two Local parameters gives both.
        {false,
         Entry(
             "<param name=\"Local\" value=\"a.htm\"><param name=\"Local\" value=\"b.htm#q\">\r\n"),
         {"a.htm", "b.htm"}},
        // No VALUE= after "Local" gives the object up; an unclosed value runs to
        // the ">" of the end tag. Neither may hang.
        {true,
         Entry("<param name=\"Local\">\r\n") +
             "<OBJECT type=\"text/sitemap\"><param name=\"Local\" value=\"c.htm </OBJECT>\r\n" +
             Entry(Local("d.htm")),
         {"c.htm </OBJECT", "d.htm"}},
        // The contents file also collects plain links.
        {false,
         Entry(Local("a.htm")) +
             "<P><A HREF=\"A.HTM#top\">again</A> <A HREF=\"extra.htm\">x</A>\r\n"
             "<A NAME=\"n\">no link</A>\r\n",
         {"a.htm", "extra.htm"}}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        wizard.Globals.IndexTargets = std::make_shared<CTargets>();
        wizard.Globals.ContentsTargets = std::make_shared<CTargets>();
        const std::string file = dir.Write(c.index ? "x.hhk" : "x.hhc", c.text);
        EXPECT_TRUE(c.index ? ParseIndexFile(wizard, file) : ParseContentsFile(wizard, file));
        std::vector<std::string> names;
        for (const auto& t :
             *(c.index ? wizard.Globals.IndexTargets : wizard.Globals.ContentsTargets))
            names.push_back(t.TargetString);
        EXPECT_EQ(names, c.expected);
        EXPECT_EQ((c.index ? wizard.Globals.ContentsTargets : wizard.Globals.IndexTargets)->Count(),
                  0);
    }
}

TEST_F(SitemapReader, MissingFiles) {
    wizard.Globals.IndexTargets = std::make_shared<CTargets>();
    wizard.Globals.ContentsTargets = std::make_shared<CTargets>();
    EXPECT_TRUE(ParseIndexFile(wizard, dir / "none.hhk"));
    EXPECT_TRUE(view.errors.empty());
    EXPECT_FALSE(ParseContentsFile(wizard, dir / "none.hhc"));
    ASSERT_EQ(view.errors.size(), 1u);
    EXPECT_TRUE(view.ErrorNamed("modParser:ParseContentsFile"));
}

}  // namespace
}  // namespace tamrix::modParser

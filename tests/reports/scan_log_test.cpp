#include "reports/scan_log.h"

#include "platform/byte_text.h"
#include "reports/log_fixture.h"
#include "support/temp_dir.h"

namespace tamrix::modUtilities {
namespace {

using testing::Sp;

// A full-width table line from pieces already laid out.
std::string Wide(const std::string& text) { return text + Sp(144 - text.size()); }

class ScanLog : public testing::LogTest {
protected:
    ScanLog() : LogTest("0") {}
    void SetUp() override {
        LogTest::SetUp();
        wizard.Projectname = dir / "old.hhp";
        wizard.ScanComplete = true;
        wizard.UntitledCountText = "  1 ";
    }
    std::shared_ptr<CTopicFile> Add(const std::string& file, const std::string& context,
                                    const std::string& title,
                                    std::vector<std::string> targets = {}) {
        auto topic = AddTopic(file, context, !EqualsNoCase(title, "(Untitled)"));
        topic->TopicTitle = title;
        for (const auto& t : targets) topic->targets().Add(t);
        return topic;
    }
    std::vector<std::string> Lines() {
        EXPECT_TRUE(MakeScanLogSummary(wizard, report));
        return testing::LogLines(report.Text());
    }
    testing::TempDir dir;
};

TEST_F(ScanLog, HtmlOnlyProjectLogLineForLine) {
    wizard.ContentsFile = dir / "missing.hhc";
    wizard.IndexFile = dir.Write("old.hhk", "x");
    auto a = Add("a1.htm", "Setup_Topic", "Setup", {"b2.htm#x", "#top"});
    a->ExtraIds = "second^third";
    a->Comment = "note";
    auto b = Add("b2.htm", "", "(Untitled)");
    b->InternalReferences = 12;
    b->ExternalReferences = 3;

    const auto lines = Lines();
    // The fixed headings between these lines are the program's own constants.
    testing::ExpectInOrder(
        lines,
        {"Scan Results for HTML Project: old.hhp",
         "Tamrix Version " + VersionString(),
         "January 01, 1970: 12:00 AM",
         "HTML Project File: " + wizard.Projectname,
         "HTML Contents File: None.",
         "HTML Index File: " + wizard.IndexFile,
         " Topic Files (total): 2",
         " Untitled Topics: 1 (may be converted popups)",
         Wide(".htm File:" + Sp(9) + "WinHelp Topic_ID's:" + Sp(17) + "WinHelp Topic Title:"),
         Wide(std::string(10, '-') + Sp(9) + std::string(17, '-') + Sp(19) + std::string(20, '-')),
         "a1.htm" + Sp(13) + "Setup_Topic" + Sp(25) + "Setup",
         Wide(Sp(19) + "second"),
         Wide(Sp(19) + "third"),
         "( note )",
         "    \" Contains 2 Links:",
         Sp(10) + "b2.htm#x = b2.htm#x",
         Sp(10) + "#top = Setup_Topic.htm#top",
         "     Topic Files Without Titles:",
         Wide(".htm File:" + Sp(9) + "WinHelp Topic_ID's:" + Sp(11) +
              "Number of Internal (from other .htm Files)"),
         Wide(Sp(49) + "And External(via Map Files) References:"),
         Wide(Sp(51) + "Internal:" + Sp(5) + "External:")});
    EXPECT_EQ(lines.back(), "b2.htm" + Sp(49) + " 12" + Sp(9) + " 3");
    EXPECT_EQ(lines.size(), 37u);
    EXPECT_EQ(report.Name(), "Scan Summary");
    EXPECT_EQ(view.Captions().front(), "Generating Scan Log ...");
    EXPECT_EQ(wizard.Progress(), 2);
    EXPECT_TRUE(view.messages.empty());
}

TEST_F(ScanLog, WarningsForAnInterruptedScanAndMissingFiles) {
    Add("a.htm", "A", "T");
    wizard.ScanComplete = false;
    wizard.MissingCount = 1;
    testing::ExpectInOrder(Lines(), {" Topic Files (total): 1",
                                     " WARNING: The scan of the project file was interrupted. "
                                     "Not all files may have been scanned.",
                                     " WARNING: 1 topic file was not found.",
                                     " Untitled Topics: 1 (may be converted popups)"});
    wizard.ScanComplete = true;
    wizard.MissingCount = 3;
    const auto lines = Lines();
    EXPECT_EQ(lines[12], " WARNING: 3 topic files were not found.");
    EXPECT_EQ(lines[13], " Untitled Topics: 1 (may be converted popups)");
}

TEST_F(ScanLog, LongIdsPushTheTitleAndCountsOneSpaceOn) {
    Add("a.htm", std::string(36, 'L'), "Title");
    Add("b.htm", std::string(35, 'S'), "Title");
    auto u = Add("c.htm", std::string(40, 'U'), "(untitled)");
    u->InternalReferences = 9;
    const auto lines = Lines();
    EXPECT_EQ(lines[20], "a.htm" + Sp(14) + std::string(36, 'L') + " Title");
    EXPECT_EQ(lines[21], "b.htm" + Sp(14) + std::string(35, 'S') + " Title");
    EXPECT_EQ(lines.back(), "c.htm" + Sp(14) + std::string(40, 'U') + "  9" + Sp(10) + " 0");
}

TEST_F(ScanLog, AnUnknownTargetAsksAndCancelStopsOnlyTheTitledListing) {
    Add("a.htm", "A", "First", {"gone.htm#x", "b.htm"});
    Add("b.htm", "B", "Second", {"one.htm"});
    Add("c.htm", "", "(Untitled)", {"gone.htm"});
    view.answers = {mb::kCancel, mb::kOK};
    const auto lines = Lines();
    ASSERT_EQ(view.MessageIds(), (std::vector<long>{10052, 10052}));
    EXPECT_EQ(view.messages[0].style, mb::kOKCancel | mb::kInformation);
    EXPECT_EQ(view.messages[0].title, "Reporting Scan Results");
    EXPECT_NE(view.messages[0].text.find("gone.htm "), std::string::npos);
    // The titled listing stopped inside a.htm; b.htm never appears.
    EXPECT_EQ(std::vector<std::string>(lines.begin() + 21, lines.begin() + 24),
              (std::vector<std::string>{"    \" Contains 2 Links:", "",
                                        "     Topic Files Without Titles:"}));
    EXPECT_EQ(std::vector<std::string>(lines.end() - 3, lines.end()),
              (std::vector<std::string>{"c.htm" + Sp(50) + " 0" + Sp(10) + " 0",
                                        "    \" Contains 1 Link:", Sp(10) + "gone.htm"}));
}

TEST_F(ScanLog, WinHelpBlock) {
    wizard.WinHelpProjectName = dir / "old.hpj";
    wizard.Globals.MapFiles = {"/p/one.h", "/p/two.h"};
    wizard.Globals.MapFileCount = 2;
    wizard.Globals.AliasFiles = {"/p/al.h"};
    wizard.Globals.AliasFileCount = 1;
    wizard.Globals.ProjectContextIDs = std::make_shared<CContextIDs>();
    wizard.Globals.ProjectContextIDs->Add(wizard.Errors, "IDH_P", "5", "IDH_P");
    wizard.Globals.MapContextIDs = std::make_shared<CContextIDs>();
    for (int i = 0; i < 41; ++i)
        wizard.Globals.MapContextIDs->Add(wizard.Errors, "IDH_" + std::to_string(i), "1",
                                          "IDH_" + std::to_string(i));
    wizard.Globals.ProjectAliases = std::make_shared<CAliases>();
    wizard.Globals.ProjectAliases->Add("ALIAS_A");
    wizard.Globals.DuplicateIncludes = "/p/one.h^/p/al.h";
    wizard.Globals.DuplicateContextIDs = std::make_shared<CContextIDs>();
    wizard.Globals.DuplicateContextIDs->Add(wizard.Errors, "IDH_3", "&H10", "");
    wizard.Globals.InvalidContextIDs = "IDH_E = overflow value: 99999999999";
    wizard.Globals.TopicFiles.reset();

    const auto lines = Lines();
    testing::ExpectInOrder(
        lines,
        {"HTML Index File: None.", "Original WinHelp 4 Project File: " + wizard.WinHelpProjectName,
         " Map Files: 2", "    /p/one.h", "    /p/two.h", " Map Definitions in WinHelp File: 1",
         " Alias Files: 1", "    /p/al.h", " Alias Definitions in WinHelp File: 1",
         " Number of ContextID's defined =  42", " Duplicate #Included Map Files:", "/p/one.h",
         "/p/al.h", " There were redefinitions of ContextID that were ignored:",
         Wide("Map File:" + Sp(10) + "Context ID:" + Sp(25) + "New value:"),
         Wide(std::string(10, '-') + Sp(9) + std::string(17, '-') + Sp(19) + std::string(12, '-')),
         // MapFileIndex 0 names the first map file.
         Wide("one.h" + Sp(14) + "IDH_3" + Sp(31) + "&H10"),
         " Context ID's with out-of-range Values:", "/p/one.h", "/p/al.h",
         "No Topic Files were found in the project file. Terminating the log file"});
    EXPECT_EQ(lines.size(), 36u);

    // Without map files a redefinition is placed in [MAP]; without duplicate
    // includes the out-of-range heading stands alone.
    wizard.Globals.MapFileCount = 0;
    wizard.Globals.DuplicateIncludes.clear();
    const auto again = Lines();
    EXPECT_EQ(again[again.size() - 4], Wide("in [MAP]" + Sp(11) + "IDH_3" + Sp(31) + "&H10"));
    EXPECT_EQ(again[again.size() - 2], " Context ID's with out-of-range Values:");
}

}  // namespace
}  // namespace tamrix::modUtilities

#include "rewrite/popup_activation.h"

#include <gtest/gtest.h>

#include <vector>

#include "messages/messages.h"
#include "model/project_state.h"
#include "platform/byte_text.h"
#include "platform/script_identifier.h"
#include "support/scanned_topic.h"
#include "support/scripted_view.h"
#include "support/temp_dir.h"
#include "wizard/activate_popups.h"

namespace tamrix::modRewrite {
namespace {

using testing::ReadFileBytes;

// Topic files lie in html\, one folder below popups.js.
std::string Declarations(const std::string& eol = "\r\n") {
    return ReplaceAllExact(modMessages::GetMessageString(10058) + "\n" +
                               modMessages::GetMessageString(10059, "../popups.js") + "\n",
                           "\n", eol);
}

std::string ScriptLink(const std::string& context) {
    return modMessages::GetMessageString(10060, context);
}

const char* const kMainHead = "<HTML>\r\n<HEAD>\r\n<TITLE>Main</TITLE>\r\n";
const char* const kMainBody =
    "</HEAD>\r\n<BODY>\r\n<P>See <A HREF=\"idh_pop1.htm#x\">one</A>, "
    "<a href=\"idh_pop2.htm\">two</a> and <A HREF=\"idh_titled.htm\">titled</A>.</P>\r\n"
    "</BODY>\r\n</HTML>\r\n";

class PopupActivation : public ::testing::Test {
protected:
    void SetUp() override {
        wizard_.Globals.TopicFiles = std::make_shared<CTopicFiles>();
        main_ = Topic("idh_main", true, 0);
        pop1_ = Topic("idh_pop1", false, 1);
        pop2_ = Topic("idh_pop2", false, 2);
        Topic("idh_titled", true, 1);
        for (const char* target : {"afx_idh_pop1.htm#x", "afx_idh_pop2.htm", "afx_idh_titled.htm",
                                   "afx_idh_main.htm", "elsewhere.htm"})
            main_->targets().Add(target);
        dir_.Write("html/idh_main.htm", std::string(kMainHead) + kMainBody);
        wizard_.NewRootPath = dir_.Path();
    }

    std::shared_ptr<CTopicFile> Topic(const std::string& context, bool hasTitle, int internal) {
        auto topic = testing::AddScannedTopic(*wizard_.Globals.TopicFiles,
                                              "html\\afx_" + context + ".htm", context, hasTitle);
        topic->InternalReferences = internal;
        return topic;
    }

    std::string Main() const { return ReadFileBytes(dir_ / "html/idh_main.htm"); }

    testing::TempDir dir_;
    testing::ScriptedView view_;
    Conversion wizard_{view_};
    std::shared_ptr<CTopicFile> main_, pop1_, pop2_;
};

TEST_F(PopupActivation, ConvertsPopupLinksOnceWithOneBackupAndOnePairOfDeclarations) {
    dir_.Write("html/idh_pop1.htm", "popup");
    ASSERT_TRUE(ModifyPopupFiles(wizard_, dir_.Path()));
    const std::string expected =
        std::string(kMainHead) + Declarations() + "</HEAD>\r\n<BODY>\r\n<P>See " +
        ScriptLink("idh_pop1") + ">one</A>, " + ScriptLink("idh_pop2") +
        ">two</a> and <A HREF=\"idh_titled.htm\">titled</A>.</P>\r\n</BODY>\r\n</HTML>\r\n";
    EXPECT_EQ(Main(), expected);
    EXPECT_EQ(ReadFileBytes(dir_ / "html/NoPopups/idh_main.htm"),
              std::string(kMainHead) + kMainBody);
    EXPECT_FALSE(dir_.Exists("html/NoPopups/idh_pop1.htm"));  // only callers are kept
    EXPECT_TRUE(main_->JavaModified);
    EXPECT_FALSE(pop1_->JavaModified);
    EXPECT_TRUE(view_.messages.empty());
    EXPECT_TRUE(view_.errors.empty());
    EXPECT_EQ(view_.Captions().front(), "Editing the Topic Files that call Java Popups ...");

    // A second run finds every link converted and adds nothing.
    ASSERT_TRUE(ModifyPopupFiles(wizard_, dir_.Path()));
    EXPECT_EQ(Main(), expected);
    // The write step ran again and replaced the file; the model still marks it.
    dir_.Write("html/idh_main.htm", std::string(kMainHead) + kMainBody);
    ASSERT_TRUE(ModifyPopupFiles(wizard_, dir_.Path()));
    EXPECT_EQ(Main(), expected);
}

TEST_F(PopupActivation, DeclarationsGoBeforeTheBodyWhenTheHeadIsMissingEndingAsTheFileDoes) {
    dir_.Write("html/idh_main.htm", "<HTML>\n<BODY>\n<A HREF=\"idh_pop2.htm\">t</A>\n</BODY>");
    ASSERT_TRUE(ModifyPopupFiles(wizard_, dir_.Path()));
    EXPECT_EQ(Main(), "<HTML>\n" + Declarations("\n") + "<BODY>\n" + ScriptLink("idh_pop2") +
                          ">t</A>\n</BODY>");
}

TEST_F(PopupActivation, APopupWhoseIDIsNoScriptNameKeepsItsLinks) {
    pop2_->Context = "idh-pop2";
    ASSERT_TRUE(ModifyPopupFiles(wizard_, dir_.Path()));
    const std::string text = Main();
    EXPECT_NE(text.find(ScriptLink("idh_pop1")), std::string::npos);
    EXPECT_NE(text.find("<a href=\"idh_pop2.htm\">two</a>"), std::string::npos);
}

TEST(ScriptNames, PopupsJsIsReachedFromTheTopicsFolderAndNamesAreIdentifiers) {
    for (const auto& [folder, path] :
         std::vector<std::pair<const char*, const char*>>{{"", "popups.js"},
                                                          {"html\\", "../popups.js"},
                                                          {"a\\b/", "../../popups.js"},
                                                          {".\\html\\", "../popups.js"}})
        EXPECT_EQ(PopupScriptPath(folder), path) << folder;
    for (const char* good : {"IDH_X", "_a1", "$x", "idh_pop2", "Var"})
        EXPECT_TRUE(IsScriptIdentifier(good)) << good;
    for (const char* bad : {"", "1x", "a.b", "a-b", "a b", "caf\xe9", "var", "new", "x\"y"})
        EXPECT_FALSE(IsScriptIdentifier(bad)) << bad;
}

TEST(AddJavaLinks, ConvertsLinksAfterTheBodyUntilTheReplacementMatchesAgainOrATagIsOpen) {
    testing::ScriptedView view;
    ErrorReporter errors{view};
    struct Case {
        const char* newName;
        std::string text, expected;
    } const cases[] = {
        {"idh_pop.htm",
         "<A HREF=\"idh_pop.htm\">head</A><BODY><A HREF=\"IDH_POP.HTM\" TARGET=x>a</A>",
         "<A HREF=\"idh_pop.htm\">head</A><BODY>" + ScriptLink("idh_pop") + ">a</A>"},
        {"Javascript:POPUPS.TextPopup(idh_pop",
         "<BODY><A HREF=\"Javascript:POPUPS.TextPopup(idh_pop.htm\">a</A>",
         "<BODY>" + ScriptLink("idh_pop") + ">a</A>"},
        {"p.htm", "<BODY><A HREF=\"p.htm\">a</A> <A HREF=\"p.htm",
         "<BODY>" + ScriptLink("idh_pop") + ">a</A> <A HREF=\"p.htm"},
        {"p.htm", "<A HREF=\"p.htm\">no body</A>", "<A HREF=\"p.htm\">no body</A>"}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        CTopicFile popup;
        popup.Context = "idh_pop";
        popup.NewFileName = c.newName;
        TextBuffer buffer;
        buffer.SetText(c.text);
        EXPECT_TRUE(AddJavaLinks(errors, buffer, popup));
        EXPECT_EQ(buffer.Text(), c.expected);
    }
}

TEST_F(PopupActivation, TheStepRunsOnlyWhenPopupStringsWereExtractedAndKeepsTheMessageOnFailure) {
    wizard_.NumPopupStrings = 0;
    wizard_.StepMessage = "before";
    ActivatePopups(wizard_);
    EXPECT_FALSE(wizard_.PopupsActivated);
    EXPECT_FALSE(dir_.Exists("html/NoPopups"));
    // A file without a body stops the activation and leaves the file as it was.
    const std::string bad = "<HTML><A HREF=\"idh_pop1.htm\">x</A></HTML>";
    dir_.Write("html/idh_main.htm", bad);
    wizard_.NumPopupStrings = 1;
    ActivatePopups(wizard_);
    EXPECT_FALSE(wizard_.PopupsActivated);
    EXPECT_EQ(wizard_.StepMessage, "before");
    EXPECT_EQ(Main(), bad);
    view_.ExpectMessage(0, 0, "Writing Java Links");
    EXPECT_EQ(view_.messages[0].text, "Bad format in Topic File idh_main.htm");
    EXPECT_TRUE(view_.ErrorNamed("modRewrite:ModifyPopupFiles"));

    dir_.Write("html/idh_main.htm", std::string(kMainHead) + kMainBody);
    ActivatePopups(wizard_);
    EXPECT_TRUE(wizard_.PopupsActivated);
    EXPECT_EQ(wizard_.StepMessage,
              modMessages::GetMessageString(10063, "popups.js", "\\html\\NoPopups"));
}

}  // namespace
}  // namespace tamrix::modRewrite

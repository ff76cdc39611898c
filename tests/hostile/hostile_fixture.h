#pragma once
// Whole conversions of small hostile projects through the wizard and the
// scripted view. The project lies three folders deep in a temporary folder
// (root/a/b/in, the new one in root/a/b/out), so a name that climbs out of either
// still lands inside the temporary folder, where the snapshot sees it.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "model/project_state.h"
#include "platform/file_system.h"
#include "support/environment.h"
#include "support/scripted_wizard_view.h"
#include "support/temp_dir.h"
#include "wizard/wizard.h"

namespace tamrix::testing {

// Name, size, content and modification time of every entry under a folder.
struct EntryState {
    bool folder = false;
    std::uintmax_t size = 0;
    std::size_t bytes = 0;  // hash of the content, so a 50 MB file is not held twice
    std::int64_t mtime = 0;
    unsigned mode = 0;
    bool operator==(const EntryState&) const = default;
};
using Snapshot = std::map<std::string, EntryState>;

// Everything under `root` except the subtree `skip` (relative, may be empty).
inline Snapshot TakeSnapshot(const std::string& root, const std::string& skip = {}) {
    namespace fs = std::filesystem;
    Snapshot shot;
    for (auto it = fs::recursive_directory_iterator(root); it != fs::recursive_directory_iterator();
         ++it) {
        const std::string rel = fs::relative(it->path(), root).string();
        if (!skip.empty() && (rel == skip || rel.rfind(skip + "/", 0) == 0)) {
            if (it->is_directory()) it.disable_recursion_pending();
            continue;
        }
        struct stat st {};
        if (::lstat(it->path().c_str(), &st) != 0) continue;
        EntryState e;
        e.folder = S_ISDIR(st.st_mode);
        e.mode = st.st_mode;
        // A folder that holds the skipped one changes its stamp when that is created.
        const bool holdsSkipped = e.folder && !skip.empty() && skip.rfind(rel + "/", 0) == 0;
        if (!holdsSkipped)
            e.mtime =
                static_cast<std::int64_t>(st.st_mtim.tv_sec) * 1000000000LL + st.st_mtim.tv_nsec;
        if (S_ISREG(st.st_mode)) {
            e.size = static_cast<std::uintmax_t>(st.st_size);
            e.bytes = std::hash<std::string>{}(ReadFileBytes(it->path().string()));
        }
        shot[rel] = e;
    }
    return shot;
}

// Names that differ between two snapshots, for a readable failure.
inline std::vector<std::string> Differences(const Snapshot& before, const Snapshot& after) {
    std::vector<std::string> diff;
    for (const auto& [name, state] : before) {
        auto it = after.find(name);
        if (it == after.end())
            diff.push_back("gone: " + name);
        else if (!(it->second == state))
            diff.push_back("changed: " + name);
    }
    for (const auto& [name, state] : after)
        if (!before.count(name)) diff.push_back("new: " + name);
    return diff;
}

inline std::string Topic(const std::string& title, const std::string& id,
                         const std::string& body = {}) {
    return "<HTML>\r\n<HEAD>\r\n<TITLE>" + title +
           "</TITLE>\r\n</HEAD>\r\n<BODY>\r\n<P><A NAME=\"" + id + "\"></A>" + title + "</P>\r\n" +
           body + "\r\n</BODY>\r\n</HTML>\r\n";
}

inline std::string Sitemap(const std::vector<std::string>& locals) {
    std::string text =
        "<HTML>\r\n<HEAD>\r\n</HEAD><BODY>\r\n<OBJECT type=\"text/site "
        "properties\">\r\n</OBJECT>\r\n<UL>\r\n";
    for (const auto& l : locals)
        text += "\t<LI> <OBJECT type=\"text/sitemap\">\r\n\t\t<param name=\"Name\" value=\"" + l +
                "\">\r\n\t\t<param name=\"Local\" value=\"" + l + "\">\r\n\t\t</OBJECT>\r\n";
    return text + "</UL>\r\n</BODY></HTML>\r\n";
}

class HostileFixture : public ::testing::Test {
protected:
    static constexpr const char* kIn = "a/b/in";
    static constexpr const char* kOut = "a/b/out";

    void SetUp() override {
        testing::SetEnvironment("SOURCE_DATE_EPOCH", "1299333420");
        wizard.Start();
    }
    void TearDown() override { testing::ClearEnvironment("SOURCE_DATE_EPOCH"); }

    std::string In(const std::string& rel) const { return dir / (std::string(kIn) + "/" + rel); }
    std::string Out(const std::string& rel) const { return dir / (std::string(kOut) + "/" + rel); }
    void WriteIn(const std::string& rel, const std::string& content) const {
        dir.Write(std::string(kIn) + "/" + rel, content);
    }

    // A two-topic project, plus `extraFiles` in [FILES] and `hpj` when not empty.
    void WriteProject(const std::vector<std::string>& extraFiles = {},
                      const std::string& hpj = {}) {
        std::string hhp =
            "[OPTIONS]\r\nCompatibility=1.1 or later\r\nCompiled file=old.chm\r\n"
            "Contents file=old.hhc\r\nIndex file=old.hhk\r\nDefault topic=html\\gen00001.htm\r\n"
            "\r\n[FILES]\r\nhtml\\gen00001.htm\r\nhtml\\gen00002.htm\r\n";
        for (const auto& f : extraFiles) hhp += f + "\r\n";
        WriteIn("old.hhp", hhp);
        WriteIn("html/gen00001.htm",
                Topic("First", "IDH_FIRST", "<P>See <A HREF=\"gen00002.htm\">second</A>.</P>"));
        WriteIn("html/gen00002.htm", Topic("Second", "IDH_SECOND"));
        WriteIn("old.hhc", Sitemap({"html\\gen00001.htm", "html\\gen00002.htm"}));
        WriteIn("old.hhk", Sitemap({"html\\gen00002.htm"}));
        if (!hpj.empty()) WriteIn("old.hpj", hpj);
    }

    void Next() { wizard.cmdNav_Click(kNavNext); }
    // Steps 1 to 4: open, scan (with the .hpj when given) and write. Returns the
    // step the wizard stands at.
    int Convert(bool withHpj = false) {
        if (before.empty()) before = TakeSnapshot(dir.Path(), kOut);
        Next();
        wizard.controls.txtProjectName = In("old.hhp");
        Next();
        wizard.controls.txtWinhelpProjectName = withHpj ? In("old.hpj") : "";
        Next();
        wizard.controls.txtRootPath = Out("new.hhp");
        view.answersById[10011] = mb::kYes;  // create the new folder
        Next();
        return wizard.CurrentStep();
    }
    // Nothing outside the new folder changed, the input included.
    void ExpectOnlyNewFolderWritten() const {
        const std::vector<std::string> diff = Differences(before, TakeSnapshot(dir.Path(), kOut));
        EXPECT_TRUE(diff.empty()) << ::testing::PrintToString(diff);
    }
    std::string AllMessages() const {
        std::string all;
        for (const auto& m : view.messages)
            all += "[" + std::to_string(m.catalogueId) + "] " + m.text + "\n";
        for (const auto& e : view.errors) all += "[error] " + e.first + "\n";
        return all;
    }

    TempDir dir;
    ScriptedWizardView view;
    Wizard wizard{view};
    Snapshot before;
};

}  // namespace tamrix::testing

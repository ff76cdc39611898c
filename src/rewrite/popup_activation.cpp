#include "rewrite/popup_activation.h"

#include <algorithm>
#include "model/conversion.h"

#include "messages/messages.h"
#include "model/project_state.h"
#include "platform/byte_text.h"
#include "platform/counter16.h"
#include "platform/file_system.h"
#include "platform/path_helpers.h"
#include "platform/program_error.h"
#include "platform/script_identifier.h"
#include "rewrite/project_writer.h"

namespace tamrix::modRewrite {
namespace {

// The declarations' own line breaks end as the file's lines do.
std::string WithLineEnds(const std::string& text, std::string_view eol) {
    return eol == "\n" ? text : ReplaceAllExact(text, "\n", eol);
}

std::string ControlDeclaration(std::string_view eol) {
    return WithLineEnds(modMessages::GetMessageString(10058), eol);
}

// Where the control and script declarations go: before "</HEAD>" when the head is
// complete, after the "<HEAD" tag when it is never closed, otherwise just before
// "<BODY" (or at the very start when even that is missing).
long DeclarationPosition(const std::string& text) {
    const std::size_t head = FindNoCase(text, "<HEAD");
    if (head != kNotFound) {
        const std::size_t close = FindNoCase(text, "</HEAD>", head);
        if (close != kNotFound) return static_cast<long>(close);
        const std::size_t tagEnd = text.find('>', head);
        if (tagEnd != std::string::npos) return static_cast<long>(tagEnd + 1);
    }
    const std::size_t body = FindNoCase(text, "<BODY");
    return body == kNotFound ? 0 : static_cast<long>(body);
}

void InsertDeclarations(TextBuffer& buffer, const CTopicFile& caller) {
    const std::string eol(LineEndOf(buffer.Text()));
    const std::string script = PopupScriptPath(modUtilities::FilePathOnly(caller.AutoNamePath));
    buffer.SetSelStart(DeclarationPosition(buffer.Text()));
    buffer.ReplaceSel(ControlDeclaration(eol) + eol +
                      WithLineEnds(modMessages::GetMessageString(10059, script), eol) + eol);
}

// A file marked as edited may have been written anew since; converted links are
// only ever saved together with the control declaration.
bool NeedsDeclarations(const CTopicFile& caller, const TextBuffer& buffer) {
    return !caller.JavaModified ||
           !ContainsNoCase(buffer.Text(), ControlDeclaration(LineEndOf(buffer.Text())));
}

void ReportBadFormat(Conversion& wizard, const std::string& fileName, int errorNumber) {
    modMessages::ShowMessage(wizard.View(), "Bad format in Topic File " + fileName,
                             mb::kExclamation, "Writing Java Links", wizard.Box(), 0);
    ReportProgramError(wizard.Errors, errorNumber, "modRewrite:ModifyPopupFiles");
}

bool IsPopupToActivate(const CTopicFile& target, const CTopicFile& caller) {
    return !target.HasTitle && target.InternalReferences >= 1 && &target != &caller &&
           IsScriptIdentifier(target.Context);
}

}  // namespace

std::string PopupScriptPath(std::string_view folder) {
    std::string path;
    std::size_t start = 0;
    while (start < folder.size()) {
        const std::size_t sep = std::min(FindSeparator(folder, start), folder.size());
        const std::string_view part = folder.substr(start, sep - start);
        if (!part.empty() && part != ".") path += "../";
        start = sep + 1;
    }
    return path + "popups.js";
}

bool CallsPopupToActivate(const ProjectState& project, const CTopicFile& caller) {
    const CTopicFiles* topics = project.TopicFiles.get();
    if (topics == nullptr) return false;
    for (const auto& target : caller.targets()) {
        const CTopicFile* popup = topics->TargetTopic(target);
        if (popup != nullptr && IsPopupToActivate(*popup, caller)) return true;
    }
    return false;
}

bool ModifyPopupFiles(Conversion& wizard, const std::string& root) {
    std::string current;  // the calling file being edited, named when it fails
    try {
        FileSystem& fs = wizard.Files;
        const std::string backupFolder = modUtilities::MakeFullPathforFile(root, "html\\NoPopups");
        if (!fs.FolderExists(backupFolder)) fs.CreateFolder(backupFolder);
        const CTopicFiles* topics = wizard.Globals.TopicFiles.get();
        modUtilities::InitializeProgressBar(wizard, topics == nullptr ? 0 : topics->Count(),
                                            "Editing the Topic Files that call Java Popups ...");
        if (topics == nullptr) return true;
        TextBuffer buffer;
        long visited = 0;
        FileSystem::QueuedWrites queued(fs);
        for (const auto& caller : *topics) {
            modUtilities::UpdateProgressBar(wizard, std::min(++visited, Counter16::kMax));
            current = caller->NewFileName;
            if (!TopicTargetIsSafe(*caller)) continue;  // never written
            const std::string path = modUtilities::MakeFullPathforFile(root, caller->NewNamePath());
            const std::string backup =
                modUtilities::MakeFullPathforFile(backupFolder, caller->NewFileName);
            bool loaded = false;
            bool declared = false;  // the declarations are in the buffer
            bool backedUp = false;  // the file as written goes to the backup folder
            bool dirty = false;
            for (const auto& target : caller->targets()) {
                const CTopicFile* popup = topics->TargetTopic(target);
                if (popup == nullptr || !IsPopupToActivate(*popup, *caller)) continue;
                if (!loaded) {
                    buffer.LoadFile(wizard.Files, path);
                    loaded = true;
                }
                if (!declared && NeedsDeclarations(*caller, buffer)) {
                    InsertDeclarations(buffer, *caller);
                    backedUp = true;
                    dirty = true;
                }
                declared = true;
                buffer.SetSelStart(0);
                const long body = buffer.Find("<BODY", 0);
                if (body < 0) {
                    if (backedUp) fs.CopyFile(path, backup);
                    ReportBadFormat(wizard, current, 0);
                    return false;
                }
                const std::string converted = modMessages::GetMessageString(10060, popup->Context);
                if (buffer.Find(converted, body) < 0 && AddJavaLinks(wizard.Errors, buffer, *popup))
                    dirty = true;
            }
            // Saved once with all its links, so a file is either as written before or done.
            if (backedUp) {
                fs.ReplaceKeepingOld(path, backup, buffer.Text());
                caller->JavaModified = true;
            } else if (dirty) {
                buffer.SaveFile(wizard.Files, path);
                caller->JavaModified = true;
            }
        }
        fs.WriteHeld();  // the callers that activation left as they were
        queued.Finish();
        return true;
    } catch (...) {
        ReportBadFormat(wizard, current, CurrentErrorNumber());
        return false;
    }
}

bool AddJavaLinks(ErrorReporter& errors, TextBuffer& buffer, const CTopicFile& popupTopic) {
    return Guarded(errors, "modRewrite:AddJavaLinks", false, [&] {
        const long body = buffer.Find("<BODY", 0);
        if (body < 0) return true;
        const std::string link = "<A HREF=\"" + popupTopic.NewFileName;
        const std::string replacement = modMessages::GetMessageString(10060, popupTopic.Context);
        long from = body;
        for (;;) {
            const long match = buffer.Find(link, from);
            if (match <= body) break;
            const std::size_t tagEnd = buffer.Text().find('>', static_cast<std::size_t>(match));
            if (tagEnd == std::string::npos) break;
            // The rest of the tag and the link text stay.
            buffer.SetSelStart(match);
            buffer.SetSelLength(static_cast<long>(tagEnd) - match);
            buffer.ReplaceSel(replacement);
            // Go on after the inserted text, so a replacement that matches again cannot loop.
            from = buffer.SelStart();
        }
        return true;
    });
}

}  // namespace tamrix::modRewrite

#include "check/link_check.h"

#include "check/html_tags.h"
#include "platform/byte_text.h"
#include "platform/file_system.h"

namespace tamrix::check {
namespace {

int HexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

std::string PercentDecoded(const std::string& text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '%' && i + 2 < text.size() && HexDigit(text[i + 1]) >= 0 &&
            HexDigit(text[i + 2]) >= 0) {
            out += static_cast<char>(HexDigit(text[i + 1]) * 16 + HexDigit(text[i + 2]));
            i += 2;
        } else {
            out += text[i];
        }
    }
    return out;
}

// "http:", "mailto:", "javascript:", "ms-its:" and the like name no project file.
bool HasScheme(const std::string& target) {
    const std::size_t colon = target.find(':');
    if (colon == std::string::npos || colon < 2) return false;
    for (std::size_t i = 0; i < colon; ++i) {
        const char c = target[i];
        if (!((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '-' || c == '+' ||
              c == '.' || (i > 0 && c >= '0' && c <= '9')))
            return false;
    }
    return true;
}

bool IsHtml(const std::string& name) {
    return EndsWithNoCase(name, ".htm") || EndsWithNoCase(name, ".html");
}

std::string FolderOfKey(const std::string& key) {
    const std::size_t slash = key.rfind('/');
    return slash == std::string::npos ? std::string() : key.substr(0, slash + 1);
}

}  // namespace

std::string PathKey(const std::string& fromFolder, const std::string& path) {
    std::vector<std::string> parts;
    for (const std::string& part : Split(Fold(fromFolder + PercentDecoded(path)), '/')) {
        for (const std::string& piece : Split(part, '\\')) {
            if (piece.empty() || piece == ".") continue;
            if (piece != "..") {
                parts.push_back(piece);
            } else if (parts.empty()) {
                return {};
            } else {
                parts.pop_back();
            }
        }
    }
    std::string key;
    for (const std::string& part : parts) key += (key.empty() ? "" : "/") + part;
    return key;
}

LinkChecker::LinkChecker(FileSystem& fs, std::string folder)
    : fs_(fs), folder_(std::move(folder)) {}
LinkChecker::~LinkChecker() = default;

LinkChecker::HtmlFile* LinkChecker::Read(const std::string& key, const std::string& name) {
    if (const auto it = files_.find(key); it != files_.end()) return it->second.get();
    if (!Exists(key)) return nullptr;
    auto file = std::make_unique<HtmlFile>();
    file->name = name;
    const std::string text = fs_.ReadAll(folder_ + key);
    ScanTags(text, [&](const HtmlTag& tag) {
        for (const TagAttribute& attribute : tag.attributes) {
            if (attribute.name == "id" || (tag.name == "a" && attribute.name == "name"))
                file->anchors.insert(Fold(attribute.value));
            else if (attribute.name == "href" || attribute.name == "src")
                file->links.push_back({attribute.value, attribute.line});
        }
        const TagAttribute* param = tag.name == "param" ? tag.Find("name") : nullptr;
        const TagAttribute* value = tag.Find("value");
        if (param != nullptr && value != nullptr && EqualsNoCase(param->value, "Local"))
            file->links.push_back({value->value, value->line});
    });
    return files_.emplace(key, std::move(file)).first->second.get();
}

bool LinkChecker::Exists(const std::string& key) {
    const auto [it, added] = exists_.try_emplace(key, false);
    if (added) it->second = !key.empty() && fs_.FileExists(folder_ + key);
    return it->second;
}

bool LinkChecker::AddFile(const std::string& name) {
    const std::string key = PathKey({}, name);
    const bool known = files_.count(key) != 0;
    HtmlFile* file = Read(key, name);
    if (file != nullptr && !known) order_.push_back(file);
    return file != nullptr;
}

void LinkChecker::CheckLink(const HtmlFile& from, const Link& link,
                            std::vector<Problem>& problems) {
    const std::string target = Trim(link.target);
    if (target.empty() || HasScheme(target)) return;
    const std::size_t hash = target.find('#');
    const std::string path(Before(Before(target, '#'), '?'));
    const std::string anchor = hash == std::string::npos ? "" : target.substr(hash + 1);
    const std::string fromKey = PathKey({}, from.name);
    const std::string key = path.empty() ? fromKey : PathKey(FolderOfKey(fromKey), path);
    if (!Exists(key)) {
        problems.push_back({ProblemKind::kBrokenLink, from.name, link.line,
                            "link to \"" + target + "\": no such file in the project"});
        return;
    }
    if (anchor.empty() || !IsHtml(key)) return;
    const HtmlFile* to = Read(key, path);
    if (to != nullptr && to->anchors.count(Fold(PercentDecoded(anchor))) == 0)
        problems.push_back({ProblemKind::kMissingAnchor, from.name, link.line,
                            "link to \"" + target + "\": no anchor \"" + anchor + "\" there"});
}

void LinkChecker::Check(std::vector<Problem>& problems) {
    // Checking may read further files (anchor targets), so walk a copy of the order.
    const std::vector<HtmlFile*> files = order_;
    for (const HtmlFile* file : files)
        for (const Link& link : file->links) CheckLink(*file, link, problems);
}

}  // namespace tamrix::check

#pragma once
// A forward-only scan of the tags of an HTML file and their attributes, with
// the line each attribute lies on. Comments and the bodies of script and style
// elements are skipped.
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tamrix::check {

/// One attribute of a start tag and the line it lies on.
struct TagAttribute {
    std::string name;   ///< folded
    std::string value;  ///< quotes removed, entities left as written
    long line = 0;      ///< 1-based
};

/// A start tag with its attributes, in the order written.
struct HtmlTag {
    std::string name;                      ///< folded
    std::vector<TagAttribute> attributes;  ///< in the order written

    /// The value of an attribute (name folded), or nullptr.
    const TagAttribute* Find(std::string_view foldedName) const;
};

/// Calls `visit` for every start tag of `text`, in order; linear in the text.
void ScanTags(std::string_view text, const std::function<void(const HtmlTag&)>& visit);

}  // namespace tamrix::check

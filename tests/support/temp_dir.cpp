#include "support/temp_dir.h"

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace tamrix::testing {

TempDir::TempDir() {
    std::string pattern = (std::filesystem::temp_directory_path() / "tamrix-test-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("mkdtemp failed");
    path_ = pattern;
}

TempDir::~TempDir() {
    std::error_code ec;
    std::filesystem::permissions(path_, std::filesystem::perms::owner_all,
                                 std::filesystem::perm_options::add, ec);
    std::filesystem::remove_all(path_, ec);
}

std::string TempDir::Write(const std::string& relative, const std::string& content) const {
    const std::filesystem::path full = std::filesystem::path(path_) / relative;
    std::filesystem::create_directories(full.parent_path());
    std::ofstream out(full, std::ios::binary);
    out << content;
    return full.string();
}

std::string TempDir::Read(const std::string& relative) const {
    return ReadFileBytes(path_ + "/" + relative);
}

bool TempDir::Exists(const std::string& relative) const {
    return std::filesystem::exists(std::filesystem::path(path_) / relative);
}

std::string ReadFileBytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) throw std::runtime_error("cannot read " + path);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
}

std::map<std::string, std::string> FilesUnder(const std::string& root) {
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root))
        if (entry.is_regular_file())
            files[std::filesystem::relative(entry.path(), root).string()] =
                ReadFileBytes(entry.path().string());
    return files;
}

}  // namespace tamrix::testing

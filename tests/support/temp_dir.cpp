#include "support/temp_dir.h"

#include <cstdlib>
#include <fstream>
#include <random>
#include <sstream>
#include <stdexcept>

namespace tamrix::testing {

TempDir::TempDir() {
#ifdef _WIN32
    // No mkdtemp there: a random name that create_directory makes anew.
    static std::mt19937_64 random{std::random_device{}()};
    for (int attempt = 0; attempt < 100 && path_.empty(); ++attempt) {
        const std::filesystem::path candidate =
            std::filesystem::temp_directory_path() / ("tamrix-test-" + std::to_string(random()));
        if (std::filesystem::create_directory(candidate)) path_ = candidate.generic_string();
    }
    if (path_.empty()) throw std::runtime_error("no temporary folder");
#else
    std::string pattern = (std::filesystem::temp_directory_path() / "tamrix-test-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("mkdtemp failed");
    path_ = pattern;
#endif
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
    return full.generic_string();
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
            files[std::filesystem::relative(entry.path(), root).generic_string()] =
                ReadFileBytes(entry.path().string());
    return files;
}

}  // namespace tamrix::testing

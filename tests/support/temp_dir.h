#pragma once
// A fresh folder under the system's temporary folder, removed with its contents.
#include <filesystem>
#include <map>
#include <string>

namespace tamrix::testing {

class TempDir {
public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    const std::string& Path() const { return path_; }
    // Writes a file (folders created) relative to the temp folder; returns its full path.
    std::string Write(const std::string& relative, const std::string& content) const;
    std::string Read(const std::string& relative) const;
    bool Exists(const std::string& relative) const;
    std::string operator/(const std::string& relative) const { return path_ + "/" + relative; }

private:
    std::string path_;
};

// Reads a whole file as bytes.
std::string ReadFileBytes(const std::string& path);

// Every regular file under a folder, by its path relative to the folder, with its bytes.
std::map<std::string, std::string> FilesUnder(const std::string& root);

}  // namespace tamrix::testing

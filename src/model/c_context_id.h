#pragma once
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "model/keyed_collection.h"
#include "platform/program_error.h"

namespace tamrix {

/// One context-ID definition of the WinHelp project or one of its map files.
class CContextID {
public:
    int MapFileIndex = 0;  // 1-based map file number; 0 for the project's own [MAP]
    std::string ContextString;
    std::string AliasFile;
    std::string ContextID;  // the value as written, "0x" stored as "&H"
    std::int32_t ContextIDVal = 0;
    bool FileDefined = false;
    std::string Comment;

    /// Unused: assigning stores into ContextString, and reading yields empty text.
    std::string AliasString() const { return {}; }
    void SetAliasString(std::string_view value) { ContextString = std::string(value); }
};

class CContextIDs {
public:
    /// Adds a definition under `key` (no key when empty). A key already present is
    /// reported with "CContextIDs Collection:Add" and gives nullptr.
    std::shared_ptr<CContextID> Add(ErrorReporter& errors, std::string_view contextString,
                                    std::string_view contextID, std::string_view key);
    long Count() const { return items_.Count(); }
    const std::shared_ptr<CContextID>& Item(long index) const { return items_.Item(index); }
    const std::shared_ptr<CContextID>& Item(std::string_view key) const { return items_.Item(key); }
    std::shared_ptr<CContextID> Find(std::string_view key) const { return items_.Find(key); }
    void Delete(long index) { items_.Delete(index); }
    void Delete(std::string_view key) { items_.Delete(key); }

    auto begin() const { return items_.begin(); }
    auto end() const { return items_.end(); }

private:
    KeyedCollection<CContextID> items_;
};

}  // namespace tamrix

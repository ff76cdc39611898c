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
    int MapFileIndex = 0;  ///< 1-based map file number; 0 for the project's own [MAP]
    /// The context string being defined.
    std::string ContextString;
    /// The rewritten alias file that gave it a topic, if any.
    std::string AliasFile;
    std::string ContextID;  ///< the value as written, "0x" stored as "&H"
    /// The numeric value of ContextID.
    std::int32_t ContextIDVal = 0;
    /// Set once the ID has a topic, from a topic file or a rewritten alias.
    bool FileDefined = false;
    /// The comment written after the definition, if any.
    std::string Comment;

    /// Unused: assigning stores into ContextString, and reading yields empty text.
    std::string AliasString() const { return {}; }
    /// Stores `value` into ContextString.
    void SetAliasString(std::string_view value) { ContextString = std::string(value); }
};

/// The context-ID definitions of the project or of its map files, keyed by name.
class CContextIDs {
public:
    /// Adds a definition under `key` (no key when empty). A key already present is
    /// reported with "CContextIDs Collection:Add" and gives nullptr.
    std::shared_ptr<CContextID> Add(ErrorReporter& errors, std::string_view contextString,
                                    std::string_view contextID, std::string_view key);
    /// How many definitions are held.
    long Count() const { return items_.Count(); }
    /// The definition at 1-based `index`; out of range raises error 9.
    const std::shared_ptr<CContextID>& Item(long index) const { return items_.Item(index); }
    /// The definition under `key`; a missing key raises error 5.
    const std::shared_ptr<CContextID>& Item(std::string_view key) const { return items_.Item(key); }
    /// The definition under `key`, or nullptr when there is none.
    std::shared_ptr<CContextID> Find(std::string_view key) const { return items_.Find(key); }
    /// Removes the definition at 1-based `index`.
    void Delete(long index) { items_.Delete(index); }
    /// Removes the definition under `key`; a missing key raises error 5.
    void Delete(std::string_view key) { items_.Delete(key); }

    /// Iteration over the definitions in order.
    auto begin() const { return items_.begin(); }
    /// The end of that iteration.
    auto end() const { return items_.end(); }

private:
    KeyedCollection<CContextID> items_;
};

}  // namespace tamrix

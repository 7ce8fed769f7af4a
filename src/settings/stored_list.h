// Lists that are stored in the registry.
#pragma once

#include <cstdint>

#include "registry/oregistry.h"
#include "registry/oregistry_transaction.h"

// The result of a list's Save.
enum class [[nodiscard]] SaveResult{
    UNCHANGED, // nothing was written: the list is as at the last load or save
    STORED,    // all of it was written
    FAILED,    // nothing was written, and the list still counts as changed
};

// A list's memory of its last load or save. It is written only if it has changed, and never if a
// part of what is stored could not be loaded. A copy remembers the same.
class StoredList {
public:
    // Keeps what is stored: no change is saved until the list is loaded again.
    void KeepStored() { whole_ = false; }

protected:
    // The list is as stored and has this checksum.
    void NoteStored(uint32_t checksum) const { checksum_ = checksum; }
    // The same after a load through `registry`, which knows whether all of it could be read.
    void NoteLoaded(uint32_t checksum, const ORegistry& registry) {
        checksum_ = checksum;
        whole_ = !registry.HasFailed();
    }
    // Whether a list with this checksum has changed.
    bool HasChanged(uint32_t checksum) const { return checksum != checksum_; }

    // Stores a list with this checksum: `write()` writes it through `registry`.
    template <class Write>
    SaveResult SaveChanges(ORegistry& registry, uint32_t checksum, Write write) const {
        if (!HasChanged(checksum)) return SaveResult::UNCHANGED;
        // Without memory the checksum is not that of the list.
        if (!whole_ || registry.HasFailed()) return SaveResult::FAILED;
        ORegistryTransaction changes(registry);
        write();
        if (!changes.Commit()) return SaveResult::FAILED;
        NoteStored(checksum);
        return SaveResult::STORED;
    }

private:
    mutable uint32_t checksum_ = 0;
    bool whole_ = true;
};

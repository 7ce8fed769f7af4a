// Changes of the registry that belong together.
#pragma once

#include <windows.h>

class ORegistry;

// The writes and deletions of an ORegistry from here to Commit become visible at once. Without
// Commit, or if any of it failed, everything stays as it was. This includes failed reads, as later
// writes may depend on them. Once something has failed, nothing more is written.
//
// On systems without transactions (before Windows Vista) only the last of this holds: writes before
// a failure stay.
//
// One for reading stores nothing. Everything that the ORegistry reads in it is from one moment,
// although others write meanwhile. It makes nobody wait.
//
// One within another, over the same ORegistry, is a part of that. Transactions of different objects
// on one thread may nest, but not overlap. Other writers wait meanwhile, so it should be short.
class ORegistryTransaction {
public:
    enum Kind { WRITING, READING };
    explicit ORegistryTransaction(ORegistry& registry, Kind kind = WRITING);
    ~ORegistryTransaction();
    ORegistryTransaction(const ORegistryTransaction&) = delete;
    ORegistryTransaction& operator=(const ORegistryTransaction&) = delete;

    // Whether all of it is stored.
    bool Commit();

private:
    ORegistry& registry_;
    const Kind kind_;
    const bool inner_;
    bool committed_ = false;
};

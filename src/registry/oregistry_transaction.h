// Changes of the registry that belong together.
#pragma once

#include <windows.h>

class ORegistry;

// What an ORegistry writes and deletes from here to Commit becomes visible at once; without Commit,
// and when anything of it failed, all is as it was. That includes reads that failed, for what is
// written may depend on them. Once something has failed, nothing more is written.
//
// Systems without transactions (before Windows Vista) have the last of this only: what was written
// before a failure stays.
//
// One for reading stores nothing: what the ORegistry reads in it is of one moment, though others
// write meanwhile. It makes nobody wait.
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

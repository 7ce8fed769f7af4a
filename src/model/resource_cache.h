// The model data files that the process has open.
#pragma once

#include "core/locks.h"
#include "core/ostring_map.h"
#include "model/resource_file.h"

// One per process, made when the module is attached. A file is read from disk on its first request
// and kept until the module is detached. Any thread may ask.
class OResourceCache {
public:
    // Make the cache, if there is none, and destroy it with all of its files, which nobody may use
    // any more.
    static void Initialize();
    static void Free();

    // The file of that path (case-sensitive). A missing one is an empty file, now and at later
    // requests. Null without a cache or memory and for an existing file that cannot be read; the
    // next request tries again.
    static OResourceFile* GetResourceFile(const OString& path);

private:
    OResourceCache() = default;
    ~OResourceCache();

    static OResourceCache* instance_;

    OStringMap<OResourceFile*> files_; // owned
    OCriticalSection lock_;
};

// The model data files that the process has open.
#pragma once

#include "core/locks.h"
#include "core/ostring_map.h"
#include "model/resource_file.h"

// One per process, made when the module is attached. A file is read from disk at its first request
// and kept until the module is detached. Any thread may ask.
class OResourceCache {
public:
    // Makes the cache; nothing when there is one. And destroys it with all of its files, which
    // nobody may use any more.
    static void Initialize();
    static void Free();

    // The file of that path (compared by case). One that is missing is an empty file, now and at
    // later requests. Null without a cache or memory and for one that is there and cannot be read;
    // the next request tries again.
    static OResourceFile* GetResourceFile(const OString& path);

private:
    OResourceCache() = default;
    ~OResourceCache();

    static OResourceCache* instance_;

    OStringMap<OResourceFile*> files_; // owned
    OCriticalSection lock_;
};

#include "model/resource_cache.h"

#include "core/memory.h"

OResourceCache* OResourceCache::instance_ = nullptr;

OResourceCache::~OResourceCache() {
    for (int i = 0; i < files_.GetSize(); ++i) delete files_.ValueAt(i);
}

void OResourceCache::Initialize() {
    if (!instance_) instance_ = new (kCounted) OResourceCache;
}

void OResourceCache::Free() {
    delete instance_;
    instance_ = nullptr;
}

OResourceFile* OResourceCache::GetResourceFile(const OString& path) {
    if (!instance_) return nullptr;
    OSingleLock lock(&instance_->lock_, true);
    const AllocationWatch memory;
    OResourceFile* file = nullptr;
    if (instance_->files_.Lookup(path, file)) return file;

    file = new (kCounted) OResourceFile(path);
    if (!file) return nullptr;
    file->Load(path);
    const OString key = path.OwnCopy();
    // With a partial file every printer would lack something until the module is detached.
    if (memory.Failed() || !file->WasReadWhole() || !instance_->files_.Set(key, file)) {
        delete file;
        return nullptr;
    }
    return file;
}

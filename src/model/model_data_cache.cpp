#include "model/model_data_cache.h"

#include <cstring>

#include "core/locks.h"
#include "core/memory.h"
#include "core/ostring_map.h"

namespace {

// The records of the process, as blocks that know their size.
struct ModelDataStorage {
    OStringMap<void*> records; // owned
    OCriticalSection lock;
    uint32_t stamp = 0;

    ~ModelDataStorage() { Clear(); }

    void Clear() {
        for (int i = 0; i < records.GetSize(); ++i) ___free(records.ValueAt(i));
        records.RemoveAll();
    }

    void* Find(const OString& key) const {
        void* record = nullptr;
        records.Lookup(key, record);
        return record;
    }
};

ModelDataStorage* storage = nullptr;

// Keeps a copy of the record, with a stamp only while that is the store's.
void Keep(const OString& key, const void* data, uint32_t size, const uint32_t* stamp) {
    if (!storage || !data) return;
    void* record = ___malloc(size);
    if (!record) return;
    std::memcpy(record, data, size);

    OSingleLock lock(&storage->lock, true);
    if (stamp && *stamp != storage->stamp) {
        ___free(record);
        return;
    }
    void* const old = storage->Find(key);
    OString own(key);
    own.ChangeCore(); // the caller's string belongs to the caller's thread
    ___free(storage->records.Set(own, record) ? old : record);
}

} // namespace

void ModelDataCache::Initialize() {
    if (!storage) storage = new (kCounted) ModelDataStorage;
}

void ModelDataCache::Free() {
    delete storage;
    storage = nullptr;
}

uint32_t ModelDataCache::GetDataSize(const OString& key) const {
    if (!storage) return 0;
    OSingleLock lock(&storage->lock, true);
    return static_cast<uint32_t>(___msize(storage->Find(key)));
}

bool ModelDataCache::GetData(const OString& key, void* buffer, uint32_t size) const {
    if (!storage) return false;
    OSingleLock lock(&storage->lock, true);
    const void* record = storage->Find(key);
    if (!record || size > ___msize(record)) return false;
    __memcpy(buffer, record, size);
    return true;
}

void ModelDataCache::SetData(const OString& key, const void* data, uint32_t size) {
    Keep(key, data, size, nullptr);
}

void ModelDataCache::SetData(const OString& key, const void* data, uint32_t size, uint32_t stamp) {
    Keep(key, data, size, &stamp);
}

void ModelDataCache::Synchronize(uint32_t stamp) {
    if (!storage) return;
    OSingleLock lock(&storage->lock, true);
    if (stamp == storage->stamp) return;
    storage->Clear();
    storage->stamp = stamp;
}

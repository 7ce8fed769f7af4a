#include "model/model_data_cache.h"

#include "core/locks.h"
#include "core/memory.h"
#include "core/ostring_map.h"

namespace {

// The records of one printer, as blocks that know their size.
struct PrinterRecords {
    OString model;
    uint32_t stamp = 0;
    OStringMap<void*> records; // owned

    ~PrinterRecords() { Clear(); }

    void Clear() {
        for (int i = 0; i < records.GetSize(); ++i) ___free(records.ValueAt(i));
        records.RemoveAll();
    }

    bool BelongTo(const ModelDataOwner& owner) const {
        return stamp == owner.stamp && model == owner.model;
    }
};

struct ModelDataStorage {
    OStringMap<PrinterRecords*> printers; // owned
    OCriticalSection lock;

    ~ModelDataStorage() {
        for (int i = 0; i < printers.GetSize(); ++i) delete printers.ValueAt(i);
    }

    PrinterRecords* Find(const OString& printer) const {
        PrinterRecords* found = nullptr;
        printers.Lookup(printer, found);
        return found;
    }

    // The records of a printer, or null if they are another owner's.
    PrinterRecords* Find(const ModelDataOwner& owner) const {
        PrinterRecords* found = Find(owner.printer);
        return found && found->BelongTo(owner) ? found : nullptr;
    }

    void* Find(const ModelDataOwner& owner, const OString& name) const {
        void* record = nullptr;
        if (const PrinterRecords* found = Find(owner)) found->records.Lookup(name, record);
        return record;
    }
};

ModelDataStorage* storage = nullptr;

} // namespace

void ModelDataCache::Initialize() {
    if (!storage) storage = new (kCounted) ModelDataStorage;
}

void ModelDataCache::Free() {
    delete storage;
    storage = nullptr;
}

void ModelDataCache::Synchronize(const ModelDataOwner& owner) {
    if (!storage) return;
    const AllocationWatch memory;
    // Strings in the store must share nothing with the caller's, nor with those here once the lock
    // is released.
    OSingleLock lock(&storage->lock, true);
    const OString printer = owner.printer.OwnCopy();
    OString model = owner.model.OwnCopy();
    PrinterRecords* records = storage->Find(owner.printer);
    if (records && records->BelongTo(owner)) return;
    if (!records) {
        records = memory.Failed() ? nullptr : new (kCounted) PrinterRecords;
        if (!records) return;
        if (!storage->printers.Set(printer, records)) {
            delete records;
            return;
        }
    }
    records->Clear();
    records->model = std::move(model); // empty without memory, and then nobody's
    records->stamp = owner.stamp;
}

uint32_t ModelDataCache::GetDataSize(const ModelDataOwner& owner, const OString& name) const {
    if (!storage) return 0;
    OSingleLock lock(&storage->lock, true);
    return static_cast<uint32_t>(___msize(storage->Find(owner, name)));
}

bool ModelDataCache::GetData(const ModelDataOwner& owner, const OString& name, void* buffer,
                             uint32_t size) const {
    if (!storage) return false;
    OSingleLock lock(&storage->lock, true);
    const void* record = storage->Find(owner, name);
    if (!record || size > ___msize(record)) return false;
    __memcpy(buffer, record, size);
    return true;
}

void ModelDataCache::SetData(const ModelDataOwner& owner, const OString& name, const void* data,
                             uint32_t size) {
    if (!storage || !data) return;
    const AllocationWatch memory;
    void* record = ___malloc(size);
    __memcpy(record, data, size);

    OSingleLock lock(&storage->lock, true);
    const OString own_name = name.OwnCopy();
    PrinterRecords* records = storage->Find(owner);
    void* old = nullptr;
    if (records) records->records.Lookup(own_name, old);
    const bool kept = records && !memory.Failed() && records->records.Set(own_name, record);
    ___free(kept ? old : record);
}

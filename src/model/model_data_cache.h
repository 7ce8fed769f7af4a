// The binary model records that the process has built.
#pragma once

#include <cstdint>

#include "core/ostring.h"

// The owner of records: a printer, with the data of that model, while its settings had that stamp
// ("DATA:Model Synchronization").
struct ModelDataOwner {
    OString printer;
    OString model; // not empty
    uint32_t stamp = 0;
};

// A handle on the one store of the process, made when the module is attached. Records are blocks of
// bytes with names ("ModelData", case-sensitive). For each printer the store has those of one
// owner. Nothing is found or kept for another: the printer may have got another driver, been
// deleted and added again, or had its settings changed. Any thread may use the store. Without a
// store nothing is kept or found.
class ModelDataCache {
public:
    // Make the store, if there is none, and destroy it with all of its records.
    static void Initialize();
    static void Free();

    // Makes the records of a printer those of that owner, dropping those of another. Other
    // printers' records stay.
    void Synchronize(const ModelDataOwner& owner);

    // The size of a record, or 0 if there is none.
    uint32_t GetDataSize(const ModelDataOwner& owner, const OString& name) const;

    // Copies the first `size` bytes of a record. False, with nothing copied, if there is no such
    // record or it is shorter.
    bool GetData(const ModelDataOwner& owner, const OString& name, void* buffer,
                 uint32_t size) const;

    // Keeps a copy of the bytes, replacing an older record of that name. Null data is ignored.
    void SetData(const ModelDataOwner& owner, const OString& name, const void* data, uint32_t size);
};

// The binary model records that the process has built.
#pragma once

#include <cstdint>

#include "core/ostring.h"

// Whose records they are: a printer's, made of the data of that model while its settings had that
// stamp ("DATA:Model Synchronization").
struct ModelDataOwner {
    OString printer;
    OString model; // not empty
    uint32_t stamp = 0;
};

// A handle on the one store of the process, made when the module is attached. Records are blocks of
// bytes with names ("ModelData"; names count case). For each printer the store has those of one
// owner: nothing is found or kept for another, be it that the printer has got another driver, or
// that it was deleted and added again, or that its settings have changed since. Any thread may use
// the store. Without a store nothing is kept and nothing is found.
class ModelDataCache {
public:
    // Makes the store; nothing when there is one. And destroys it with all of its records.
    static void Initialize();
    static void Free();

    // Makes the records of a printer those of that owner: what is there of another is forgotten.
    // Other printers' records stay.
    void Synchronize(const ModelDataOwner& owner);

    // The size of a record, 0 when there is none.
    uint32_t GetDataSize(const ModelDataOwner& owner, const OString& name) const;

    // Copies the first `size` bytes of a record. False, and nothing copied, when there is no such
    // record or when it is shorter.
    bool GetData(const ModelDataOwner& owner, const OString& name, void* buffer,
                 uint32_t size) const;

    // Keeps a copy of the bytes, in place of an older record of that name. Null data is ignored.
    void SetData(const ModelDataOwner& owner, const OString& name, const void* data, uint32_t size);
};

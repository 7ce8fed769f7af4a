// The binary model records that the process has built.
#pragma once

#include <cstdint>

#include "core/ostring.h"

// A handle on the one store of the process, made when the module is attached. Records are blocks of
// bytes under a key ("Dock3:ModelData"; keys count case). Any thread may use the store. Without a
// store nothing is kept and nothing is found.
class ModelDataCache {
public:
    // Makes the store; nothing when there is one. And destroys it with all of its records.
    static void Initialize();
    static void Free();

    // The size of a record, 0 when there is none.
    uint32_t GetDataSize(const OString& key) const;

    // Copies the first `size` bytes of a record. False, and nothing copied, when there is no such
    // record or when it is shorter.
    bool GetData(const OString& key, void* buffer, uint32_t size) const;

    // Keeps a copy of the bytes, in place of an older record of that key. Null data is ignored.
    void SetData(const OString& key, const void* data, uint32_t size);

    // The same for a record that was built under that stamp: it is not kept when another thread has
    // synchronized the store with a newer one meanwhile, for it may be made of older settings.
    void SetData(const OString& key, const void* data, uint32_t size, uint32_t stamp);

    // Forgets every record when the stamp is another than at the last call (than 0 at the first).
    void Synchronize(uint32_t stamp);
};

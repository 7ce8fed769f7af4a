// What a job does with the objects in the printer's memory.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "printer/escape_records.h"
#include "zpl/object_name.h"
#include "zpl/zpl_scanner.h"

// One such act.
struct ObjectEvent {
    enum Act { STORED, RECALLED, ERASED };

    Act act;
    ObjectName where; // with an extension; what is erased may be a pattern
    // Of what is stored:
    KVCacheItemInfo::Kind kind = KVCacheItemInfo::GRAPHIC;
    uint32_t size = 0; // bytes
};

// Reads the ZPL II of a job as it comes, in pieces of any size. Knows the commands ^DF and ~DG,
// ^XF, ^XG and ^IM, and ^ID.
class ObjectWatch {
public:
    void Read(const void* bytes, size_t size);
    // Ends the job and returns its acts in their order. The next job begins.
    std::vector<ObjectEvent> End();

private:
    void Take(const ZplCommand& command);

    ZplScanner scanner_;
    std::vector<ObjectEvent> events_;
    bool in_format_ = false; // one is being stored: that of the last event
};

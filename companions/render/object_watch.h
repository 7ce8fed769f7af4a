// What a job does with the objects in the printer's memory.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "printer/escape_records.h"

// One such act.
struct ObjectEvent {
    enum Act { STORED, RECALLED, ERASED };

    Act act;
    char location;    // the letter of a memory
    std::string name; // with its extension, in capitals: "LOGO.GRF"; ERASED: perhaps with *
    // Of what is stored:
    KVCacheItemInfo::Kind kind = KVCacheItemInfo::GRAPHIC;
    uint32_t size = 0; // bytes
};

// Reads the ZPL II of a job as it comes, in pieces of any size. Knows the commands ^DF and ~DG,
// ^XF, ^XG and ^IM, and ^ID, with the usual prefixes (no ^CC and ^CT).
class ObjectWatch {
public:
    void Read(const void* bytes, size_t size);
    // Ends the job: its acts in their order. The next job begins.
    std::vector<ObjectEvent> End();
    // Forgets the job.
    void Reset();

private:
    void EndCommand();

    std::string command_; // from its prefix on; empty before the first one
    std::vector<ObjectEvent> events_;
    bool in_format_ = false; // which is being stored, as the last event says
};

// The objects that jobs have stored in the printer, which the driver's pages show and control.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

#include "job_output.h"
#include "object_watch.h"
#include "printer/escape_records.h"
#include "zpl/object_name.h"

// One of them, as it is remembered in the printer's data.
struct KeptObject {
    KVCacheItemInfo info; // the counters: how often it was used, and how many jobs ago
    uint32_t location;    // the letter of a memory

    ObjectName Where() const;
};
static_assert(sizeof(KeptObject) == 60);

// What a job stores becomes an object if it lies in the memory that the settings name for its kind.
// An object has a number within the range for its kind. If all numbers are taken, or the memory is,
// the objects that have not been used for the longest time are erased; never those that are locked.
// Where even that makes no room, none is erased. What was stored then does not become an object,
// and stays in the printer for whoever stored it.
//
// What the user changes, and what a job has changed by its end, is remembered for all devices of
// the printer, if the user may change the printer's data.
class ObjectCache {
public:
    // `printer` and `output` are borrowed.
    ObjectCache(HANDLE printer, const std::basic_string<WCHAR>& name, JobOutput& output)
        : printer_(printer)
        , name_(name)
        , output_(output) {}

    void StartJob() { watch_ = {}; }
    // Bytes of the job.
    void Read(const void* bytes, size_t size) { watch_.Read(bytes, size); }
    // False if commands that make room could not be written.
    [[nodiscard]] bool EndJob();

    // Writes the description that escape 15033 answers, with as many objects as there is room for,
    // and answers its size; -1 if there is no room for its header. Without output, the size needed.
    int Describe(unsigned char* output, ULONG size) const;

    // Erases all objects, in the current document, or forgets those in a memory. False if it
    // cannot.
    [[nodiscard]] bool Clear();
    [[nodiscard]] bool Forget(uint32_t location);
    // Prints, erases, locks or unlocks an object, the first two in the current document. False for
    // an object or an action that does not exist, and if it cannot.
    [[nodiscard]] bool Act(const KVCacheItemAction& action);

private:
    // Another process may change the objects too, so that they are changed under a lock. Whoever
    // does not get it within a minute changes nothing.
    class Objects;

    bool Erase(const KeptObject& object);

    const HANDLE printer_;
    const std::basic_string<WCHAR> name_;
    JobOutput& output_;
    ObjectWatch watch_;
};

// The fixture of tests in which something fails at every point of an operation.
#pragma once

#include <windows.h>
#include <winspool.h>

#include <win32host/fault_control.h>

#include <functional>
#include <span>
#include <string>
#include <vector>

#include "support/job_test.h"
#include "zplui.h"

// The faults of a run.
struct FaultKindOfRun {
    const char* what;
    DWORD kinds; // of win32host; 0: allocations
    bool partly = false;
    bool from_then = false;
};

// Every registry fault, once and permanently, and lack of memory.
inline constexpr FaultKindOfRun kStoreFaults[] = {
    {"a registry operation fails", win32host::FAULT_REGISTRY},
    {"the registry cannot be changed any more", win32host::FAULT_REGISTRY_CHANGES, false, true},
    {"the registry cannot be read any more", win32host::FAULT_REGISTRY_READ, false, true},
    {"an allocation fails", 0},
    {"memory has run out", 0, false, true},
};

class FaultTest : public JobTest {
protected:
    // The printer "Dock 3", for bar codes and 203 dpi.
    void InstallPrinter();

    // Does `work` once without a fault, on a copy of the current root folder, and then with the
    // first, the second, ... point of each kind failing. It goes on until the kind has no point
    // left or, if there are more than `points` for a run, takes that many points evenly spread.
    // Each time `state` returns the state afterwards, in parts. Every part must be as before or as
    // the undisturbed work leaves it, and no additional handle may be open.
    void AtEveryPoint(std::span<const FaultKindOfRun> faults, const std::function<void()>& work,
                      const std::function<std::vector<std::string>()>& state);

    // The stored lists and settings of the printer, one text each.
    static std::vector<std::string> StoredSettings();

    // The text form of a key and those below it.
    static std::string Exported(ORegistry& registry, const char* key);

    // The names and bytes of the files in a folder of drive C, as one text.
    std::vector<std::string> FilesIn(const std::string& folder) const;

    // The bytes of the jobs waiting in the spooler, as one text. A document that was not ended is
    // not a job.
    static std::vector<std::string> SpooledJobs();

    static HANDLE OpenDock3(ACCESS_MASK access = PRINTER_ALL_ACCESS);

    // Calls `call(settings)` with the open settings of the printer, unless they cannot be opened.
    // Closing them stores them.
    template <class Call>
    static void WithSettings(const Call& call) {
        const HANDLE printer = OpenDock3();
        if (const HANDLE settings = DAL_Printer_Open(printer)) {
            call(settings);
            DAL_Printer_Close(settings);
        }
        ClosePrinter(printer);
    }

    // Runs `work` on a copy of the root folder, then goes back. Returns its result.
    std::vector<std::string> OnCopy(const std::function<std::vector<std::string>()>& work);

private:
    void Run(const FaultKindOfRun& fault, DWORD point, const std::function<void()>& work);
};

// One job as it is in the registry, below its printer, and its file in the spool folder.
#pragma once

#include "spooler/print_server.h"

#include <optional>
#include <string>
#include <vector>

namespace win32host {

struct JobRecord {
    DWORD number = 0;
    std::u16string document;
    std::u16string user;
    std::u16string machine;
    std::u16string datatype;
    std::u16string status_text; // what went wrong
    std::vector<BYTE> dev_mode;
    DWORD status = 0; // JOB_STATUS_ bits
    DWORD pages = 0;
    DWORD size = 0;
    SYSTEMTIME submitted = {};
};

// The POSIX path of a job's file: the complete one, or the one that is being written.
std::string SpoolFile(const PrintServer& server, DWORD job);
std::string UnfinishedSpoolFile(const PrintServer& server, DWORD job);

// The jobs of a printer, oldest first.
std::vector<JobRecord> ReadJobs(const PrintServer& server, const std::u16string& printer);
std::optional<JobRecord> ReadJob(const PrintServer& server, const std::u16string& printer,
                                 DWORD job);
DWORD CountJobs(const PrintServer& server, const std::u16string& printer);

// A number that no other job of the machine has, or 0 on failure. The caller holds the SpoolerLock.
DWORD NewJobNumber(const PrintServer& server);

// Writes the record. With `only_existing` a job that somebody has deleted meanwhile stays deleted.
LSTATUS WriteJob(const PrintServer& server, const std::u16string& printer, const JobRecord& record,
                 bool only_existing);

// Deletes the record and the files.
LSTATUS EraseJob(const PrintServer& server, const std::u16string& printer, DWORD job);
// Deletes the jobs whose writers died. The caller holds the SpoolerLock.
void EraseAbandonedJobs(const PrintServer& server, const std::u16string& printer);

} // namespace win32host

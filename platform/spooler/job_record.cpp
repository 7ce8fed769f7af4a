#include "spooler/job_record.h"

#include "registry/transactions.h"

#include <winspool.h>

#include <algorithm>
#include <cstdio>
#include <cstring>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace win32host {
namespace {

const char16_t kJobs[] = u"Jobs";        // the key of a printer's jobs
const char16_t kLastJob[] = u"Last Job"; // a value of the key of all printers
const char16_t kDocument[] = u"Document";
const char16_t kUser[] = u"User";
const char16_t kMachine[] = u"Machine";
const char16_t kDatatype[] = u"Datatype";
const char16_t kDevMode[] = u"DevMode";
const char16_t kPages[] = u"Pages";
const char16_t kSize[] = u"Size";
const char16_t kSubmitted[] = u"Submitted";
const char16_t kStatusText[] = u"Status Text";
// Written last: a job without it does not exist yet.
const char16_t kStatus[] = u"Status";
constexpr DWORD kNoStatus = 0xFFFFFFFF;

std::string Digits(DWORD job) {
    char digits[16];
    std::snprintf(digits, sizeof digits, "%05u", unsigned{job});
    return digits;
}

std::u16string KeyName(DWORD job) {
    const std::string digits = Digits(job);
    return {digits.begin(), digits.end()};
}

// 0 if it is not a job's key.
DWORD JobOfKey(const std::u16string& name) {
    uint64_t number = 0;
    for (const char16_t digit : name) {
        if (digit < u'0' || digit > u'9') return 0;
        number = number * 10 + (digit - u'0');
        if (number > 0xFFFFFFFE) return 0;
    }
    return static_cast<DWORD>(number);
}

LSTATUS OpenJobs(const PrintServer& server, const std::u16string& printer, RegistryKey& jobs) {
    RegistryKey key;
    const LSTATUS status = server.OpenPrinter(printer, key);
    return status == ERROR_SUCCESS ? jobs.Open(key.get(), kJobs, KEY_ALL_ACCESS) : status;
}

std::optional<JobRecord> ReadKey(const RegistryKey& key, DWORD number) {
    JobRecord record;
    record.number = number;
    record.status = key.Number(kStatus, kNoStatus);
    if (record.status == kNoStatus) return std::nullopt;
    record.document = key.Text(kDocument);
    record.user = key.Text(kUser);
    record.machine = key.Text(kMachine);
    record.datatype = key.Text(kDatatype);
    record.status_text = key.Text(kStatusText);
    record.dev_mode = key.Bytes(kDevMode);
    record.pages = key.Number(kPages);
    record.size = key.Number(kSize);
    const std::vector<BYTE> time = key.Bytes(kSubmitted);
    if (time.size() == sizeof record.submitted)
        std::memcpy(&record.submitted, time.data(), time.size());
    return record;
}

// True if nobody writes the job any more; a writer holds a lock on the file.
bool IsAbandoned(const PrintServer& server, DWORD job) {
    const int file = open(UnfinishedSpoolFile(server, job).c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) return true;
    const bool free = flock(file, LOCK_EX | LOCK_NB) == 0;
    close(file);
    return free;
}

} // namespace

std::string SpoolFile(const PrintServer& server, DWORD job) {
    return server.SpoolFolder() + '/' + Digits(job) + ".SPL";
}

std::string UnfinishedSpoolFile(const PrintServer& server, DWORD job) {
    return server.SpoolFolder() + '/' + Digits(job) + ".TMP";
}

std::vector<JobRecord> ReadJobs(const PrintServer& server, const std::u16string& printer) {
    std::vector<JobRecord> records;
    RegistryKey jobs;
    if (OpenJobs(server, printer, jobs) != ERROR_SUCCESS) return records;
    for (const std::u16string& name : jobs.SubkeyNames()) {
        RegistryKey key;
        const DWORD number = JobOfKey(name);
        if (!number || key.Open(jobs.get(), name) != ERROR_SUCCESS) continue;
        if (auto record = ReadKey(key, number)) records.push_back(std::move(*record));
    }
    std::sort(records.begin(), records.end(),
              [](const JobRecord& a, const JobRecord& b) { return a.number < b.number; });
    return records;
}

std::optional<JobRecord> ReadJob(const PrintServer& server, const std::u16string& printer,
                                 DWORD job) {
    RegistryKey jobs, key;
    if (OpenJobs(server, printer, jobs) != ERROR_SUCCESS ||
        key.Open(jobs.get(), KeyName(job)) != ERROR_SUCCESS)
        return std::nullopt;
    return ReadKey(key, job);
}

DWORD CountJobs(const PrintServer& server, const std::u16string& printer) {
    RegistryKey jobs;
    if (OpenJobs(server, printer, jobs) != ERROR_SUCCESS) return 0;
    return static_cast<DWORD>(jobs.SubkeyNames().size());
}

DWORD NewJobNumber(const PrintServer& server) {
    RegistryKey printers;
    if (server.OpenPrinters(printers) != ERROR_SUCCESS) return 0;
    const DWORD number = printers.Number(kLastJob) + 1;
    return printers.SetNumber(kLastJob, number) == ERROR_SUCCESS ? number : 0;
}

LSTATUS WriteJob(const PrintServer& server, const std::u16string& printer, const JobRecord& record,
                 bool only_existing) {
    RegistryKey printer_key, key;
    LSTATUS status = server.OpenPrinter(printer, printer_key);
    if (status != ERROR_SUCCESS) return status;
    registry::KeyTransaction transaction(printer_key.get());
    const std::u16string path = std::u16string(kJobs) + u'\\' + KeyName(record.number);
    status = only_existing ? key.Open(printer_key.get(), path, KEY_ALL_ACCESS)
                           : key.Create(printer_key.get(), path);
    const auto then = [&](LSTATUS next) {
        if (status == ERROR_SUCCESS) status = next;
    };
    if (status != ERROR_SUCCESS) return status;
    then(key.SetText(kDocument, record.document));
    then(key.SetText(kUser, record.user));
    then(key.SetText(kMachine, record.machine));
    then(key.SetText(kDatatype, record.datatype));
    then(key.SetText(kStatusText, record.status_text));
    then(key.SetBytes(kDevMode, record.dev_mode.data(), record.dev_mode.size()));
    then(key.SetNumber(kPages, record.pages));
    then(key.SetNumber(kSize, record.size));
    then(key.SetBytes(kSubmitted, &record.submitted, sizeof record.submitted));
    then(key.SetNumber(kStatus, record.status));
    return transaction.Commit(status);
}

LSTATUS EraseJob(const PrintServer& server, const std::u16string& printer, DWORD job) {
    RegistryKey jobs;
    LSTATUS status = OpenJobs(server, printer, jobs);
    if (status == ERROR_SUCCESS) status = jobs.DeleteTree(KeyName(job));
    // If the job still exists it keeps its bytes.
    if (status != ERROR_SUCCESS && status != ERROR_FILE_NOT_FOUND) return status;
    unlink(SpoolFile(server, job).c_str());
    unlink(UnfinishedSpoolFile(server, job).c_str());
    return status;
}

void EraseAbandonedJobs(const PrintServer& server, const std::u16string& printer) {
    for (const JobRecord& record : ReadJobs(server, printer))
        if (record.status & JOB_STATUS_SPOOLING && IsAbandoned(server, record.number))
            EraseJob(server, printer, record.number);
}

} // namespace win32host

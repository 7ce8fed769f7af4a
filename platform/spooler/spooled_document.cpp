#include "spooler/spooled_document.h"

#include "files/paths.h"
#include "host/fault_point.h"
#include "host/text.h"
#include "host/user.h"
#include "security/accounts.h"
#include "spooler/job_delivery.h"
#include "spooler/opened_printer.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace win32host {

std::unique_ptr<SpooledDocument> SpooledDocument::Start(const OpenedPrinter& printer,
                                                        const std::u16string& name,
                                                        const std::u16string& datatype) {
    const auto record = printer.Record();
    if (!record) return nullptr;
    // make_unique cannot reach the private constructor.
    std::unique_ptr<SpooledDocument> document(
        new SpooledDocument(printer.SharedServer(), printer.Printer()));
    const PrintServer& server = printer.Server();
    JobRecord& job = document->record_;
    job.document = name;
    job.user = Utf16(CurrentUserName());
    job.machine = u"\\\\" + ComputerName();
    job.datatype = datatype.empty() ? record->datatype : datatype;
    job.dev_mode = record->dev_mode;
    job.status = JOB_STATUS_SPOOLING;
    GetSystemTime(&job.submitted);

    SpoolerLock lock(server);
    EraseAbandonedJobs(server, printer.Printer());
    job.number = NewJobNumber(server);
    if (!job.number) {
        SetLastError(ERROR_WRITE_FAULT);
        return nullptr;
    }
    mkdir(server.SpoolFolder().c_str(), 0777);
    const std::string path = UnfinishedSpoolFile(server, job.number);
    document->file_ = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (document->file_ < 0) {
        FailWith(errno, path);
        return nullptr;
    }
    flock(document->file_, LOCK_EX);
    const LSTATUS status = WriteJob(server, printer.Printer(), job, false);
    if (status == ERROR_SUCCESS) return document;
    SetLastError(static_cast<DWORD>(status));
    return nullptr;
}

SpooledDocument::~SpooledDocument() {
    if (file_ < 0) return;
    close(file_);
    Guarded(LSTATUS{}, [this] {
        SpoolerLock lock(*server_);
        return EraseJob(*server_, printer_, record_.number);
    });
}

bool SpooledDocument::Write(const void* data, DWORD size, DWORD& written) {
    written = 0;
    const Fault fault = FaultAt(FAULT_SPOOL_WRITE);
    if (fault) size = static_cast<DWORD>(fault.Part(size));
    while (written < size) {
        const ssize_t count =
            write(file_, static_cast<const char*>(data) + written, size - written);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) {
            FailWith(errno, UnfinishedSpoolFile(*server_, record_.number));
            fault_ = GetLastError();
            return false;
        }
        written += static_cast<DWORD>(count);
        record_.size = static_cast<DWORD>(
            std::min(uint64_t{record_.size} + static_cast<uint64_t>(count), uint64_t{0xFFFFFFFF}));
    }
    if (fault) SetLastError(fault_ = fault.Happen());
    return !fault;
}

bool SpooledDocument::End() {
    if (fault_) {
        SetLastError(fault_);
        return false;
    }
    const std::string unfinished = UnfinishedSpoolFile(*server_, record_.number);
    {
        SpoolerLock lock(*server_);
        record_.status = 0;
        if (const DWORD error = FailureAt(FAULT_SPOOL_END)) {
            SetLastError(error);
            return false;
        }
        // There is nothing to complete if somebody has deleted the job meanwhile.
        if (rename(unfinished.c_str(), SpoolFile(*server_, record_.number).c_str()) != 0)
            return FailWith(errno, unfinished);
        const LSTATUS status = WriteJob(*server_, printer_, record_, true);
        if (status != ERROR_SUCCESS) {
            SetLastError(static_cast<DWORD>(status));
            return false;
        }
        close(file_);
        file_ = -1;
    }
    DeliverJob(*server_, printer_, record_.number);
    return true;
}

} // namespace win32host

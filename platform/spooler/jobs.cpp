// The jobs in the spooler.
#include "host/text.h"
#include "host/user.h"
#include "spooler/job_delivery.h"
#include "spooler/level_writer.h"
#include "spooler/opened_printer.h"

#include <algorithm>
#include <span>

using namespace win32host;

namespace {

// The jobs of a printer and how they are shown: JOB_INFO_1W or JOB_INFO_2W.
struct ShownJobs {
    const OpenedPrinter& printer;
    const PrinterRecord& record;
    std::span<const JobRecord> jobs;
    size_t position; // of the first one
};

// The fields that both levels have.
template <class Info>
void PutCommon(LevelWriter& writer, const ShownJobs& shown, size_t index, Info& info) {
    const JobRecord& job = shown.jobs[index];
    info.JobId = job.number;
    writer.Text(info.pPrinterName, shown.printer.FullName());
    writer.Text(info.pMachineName, job.machine);
    writer.Text(info.pUserName, job.user);
    writer.Text(info.pDocument, job.document);
    writer.Text(info.pDatatype, job.datatype);
    writer.OptionalText(info.pStatus, job.status_text);
    info.Status = job.status;
    info.Priority = shown.record.default_priority;
    info.Position = static_cast<DWORD>(shown.position + index + 1);
    info.TotalPages = job.pages;
    info.PagesPrinted = job.status & JOB_STATUS_PRINTED ? job.pages : 0;
    info.Submitted = job.submitted;
}

void PutJob(LevelWriter& writer, const ShownJobs& shown, size_t index, JOB_INFO_1W& info) {
    PutCommon(writer, shown, index, info);
}

void PutJob(LevelWriter& writer, const ShownJobs& shown, size_t index, JOB_INFO_2W& info) {
    const JobRecord& job = shown.jobs[index];
    if (!job.dev_mode.empty())
        info.pDevMode = writer.Block<DEVMODEW>(job.dev_mode.data(), job.dev_mode.size());
    PutCommon(writer, shown, index, info);
    writer.Text(info.pNotifyName, job.user);
    writer.Text(info.pPrintProcessor, shown.record.print_processor);
    writer.Text(info.pParameters, shown.record.parameters);
    writer.Text(info.pDriverName, shown.record.driver);
    info.StartTime = shown.record.start_time;
    info.UntilTime = shown.record.until_time;
    info.Size = job.size;
}

template <class Info>
void PutJobs(LevelWriter& writer, const ShownJobs& shown) {
    writer.Structures<Info>(shown.jobs.size());
    for (size_t i = 0; i < shown.jobs.size(); ++i) {
        Info info = {};
        PutJob(writer, shown, i, info);
        writer.Put(i, info);
    }
}

// Answers the jobs `shown`; the level has been checked.
BOOL Answer(const ShownJobs& shown, DWORD level, LPBYTE buffer, DWORD size, LPDWORD needed) {
    return FillBuffer(buffer, size, needed, [&](LevelWriter& writer) {
        if (level == 1) PutJobs<JOB_INFO_1W>(writer, shown);
        if (level == 2) PutJobs<JOB_INFO_2W>(writer, shown);
    });
}

bool IsJobLevel(DWORD level) {
    return level == 1 || level == 2;
}

} // namespace

extern "C" {

BOOL WINAPI EnumJobsW(HANDLE handle, DWORD first, DWORD count, DWORD level, LPBYTE buffer,
                      DWORD size, LPDWORD needed, LPDWORD returned) {
    return Guarded(FALSE, [&] {
        const auto printer = FindPrinter(handle);
        if (!printer) return FALSE;
        if (!needed || !returned) return Fail(ERROR_INVALID_PARAMETER);
        *returned = 0;
        if (!IsJobLevel(level)) return Fail(ERROR_INVALID_LEVEL);
        const auto record = printer->Record();
        if (!record) return FALSE;
        const auto jobs = ReadJobs(printer->Server(), printer->Printer());
        const size_t from = std::min<size_t>(first, jobs.size());
        const auto shown =
            std::span(jobs).subspan(from, std::min<size_t>(count, jobs.size() - from));
        if (!Answer({*printer, *record, shown, from}, level, buffer, size, needed)) return FALSE;
        *returned = static_cast<DWORD>(shown.size());
        return TRUE;
    });
}

BOOL WINAPI GetJobW(HANDLE handle, DWORD job, DWORD level, LPBYTE buffer, DWORD size,
                    LPDWORD needed) {
    return Guarded(FALSE, [&] {
        const auto printer = FindPrinter(handle);
        if (!printer) return FALSE;
        if (!needed) return Fail(ERROR_INVALID_PARAMETER);
        if (!IsJobLevel(level)) return Fail(ERROR_INVALID_LEVEL);
        const auto record = printer->Record();
        if (!record) return FALSE;
        const auto jobs = ReadJobs(printer->Server(), printer->Printer());
        for (size_t i = 0; i < jobs.size(); ++i)
            if (jobs[i].number == job)
                return Answer({*printer, *record, {&jobs[i], 1}, i}, level, buffer, size, needed);
        return Fail(ERROR_INVALID_PARAMETER);
    });
}

BOOL WINAPI SetJobW(HANDLE handle, DWORD job, DWORD level, LPBYTE, DWORD command) {
    return Guarded(FALSE, [&] {
        const auto printer = FindPrinter(handle);
        if (!printer) return FALSE;
        if (level != 0) return Fail(ERROR_INVALID_LEVEL);
        const PrintServer& server = printer->Server();
        const auto record = ReadJob(server, printer->Printer(), job);
        if (!record) return Fail(ERROR_INVALID_PARAMETER);
        if (!SameName(record->user, Utf16(CurrentUserName())) && !MayAdminister())
            return Fail(ERROR_ACCESS_DENIED);
        DWORD status = ERROR_SUCCESS;
        switch (command) {
        case JOB_CONTROL_RESTART:
            status = record->status & JOB_STATUS_SPOOLING
                         ? ERROR_BUSY
                         : DeliverJob(server, printer->Printer(), job);
            break;
        case JOB_CONTROL_CANCEL:
        case JOB_CONTROL_DELETE: {
            SpoolerLock lock(server);
            status = static_cast<DWORD>(EraseJob(server, printer->Printer(), job));
            break;
        }
        default:
            status = ERROR_INVALID_PRINTER_COMMAND;
        }
        return status == ERROR_SUCCESS ? TRUE : Fail(status);
    });
}

} // extern "C"

// Queries: questions to the printer, which the status monitor asks.
#include <windows.h>

#include <winspool.h>

#include "core/windows_version.h"
#include "keys/prtreg.h"
#include "printer/prtstream.h"
#include "printer/ui_printer.h"
#include "registry/oregistry.h"
#include "spooler/driver_utility.h"

namespace {

using QueryFunction = int(WINAPI*)(HWND parent, LPSTR command_line);

// The function's result if it has answers from the printer.
constexpr int kAnswered = 1;

const char kAnswers[] = "LOCAL:Global/Query";

OString AnswerPath(const OString& name, const char* value) {
    return OString(kAnswers) << "/Query " << ORegistry::EncodeName(name) << value;
}

// Calls the status monitor. Returns its result, or without a monitor one other than kAnswered.
int CallMonitor(HWND parent, const OString& command_line) {
    const OString path = DriverUtility::GetDriverDirectory() + "\\qstmon.dll";
    const HMODULE library = LoadLibraryW(path.wstring());
    if (!library) return 0;
    int answer = 0;
    if (const FARPROC function = GetProcAddress(library, "Query"))
        answer = reinterpret_cast<QueryFunction>(reinterpret_cast<void (*)()>(function))(
            parent, const_cast<LPSTR>(command_line.nstring()));
    FreeLibrary(library);
    return answer;
}

} // namespace

void prtstream::XPML_xpml(bool open) {
    *this << (open ? "<xpml>" : "</xpml>");
    xpml_open_ = open;
}

int prtstream::QueryStart(const OString& job_name) {
    // The texts that the status monitor shows as progress.
    static const char* const kProgress[] = {
        "DATA:Query Status", "DATA:Query Bytes Read", "DATA:Query Bytes Written",
        "DATA:Query Total",  "DATA:Query Complete",   "DATA:Query Current",
    };
    if (!xpml_open_) XPML_xpml(true);
    ORegistry answers;
    answers.Delete(kAnswers, true);
    answers.SetInt(OString(kAnswers) << "/Query Done", 0);
    if (ui_) {
        prtreg printer(ui_->printer_name);
        for (const char* value : kProgress) printer.Delete(value, false);
    }
    return StartJob(job_name);
}

void prtstream::Query(const char* name, int32_t length) {
    if (query_open_) *this << "</query>";
    query_open_ = true;
    const int64_t magnitude = length < 0 ? -int64_t{length} : length;
    OString tag = "<query name=\"";
    tag << name << (length < 0 ? "\", response_estimate=\"" : "\", response_length=\"") << magnitude
        << "\">";
    *this << tag.nstring();
}

void prtstream::QueryEnd() {
    *this << "</query><end/>";
    XPML_xpml(false);
    EndJob();
    query_open_ = false;
}

bool prtstream::QueryExecute(const OString& job_name, int job, HWND parent) {
    if (!ui_) return false;
    OString command_line = "open \"";
    command_line << ui_->printer_name << "\" -jn " << job_name;
    if (IsWindowsNT()) command_line << " -ji " << job;
    const int answer = CallMonitor(parent ? parent : GetDesktopWindow(), command_line);
    // It is the monitor's, and nothing that a printer should get when there is none.
    if (job > 0) SetJobW(hprinter_, static_cast<DWORD>(job), 0, nullptr, JOB_CONTROL_DELETE);
    return answer == kAnswered;
}

int32_t prtstream::QueryResponseSize(const OString& name) {
    return static_cast<int32_t>(ORegistry().GetDWORD(AnswerPath(name, " Size"), 0));
}

bool prtstream::QueryResponse(const OString& name, unsigned char* buffer, int32_t size) {
    if (!buffer || size < 0) return false;
    return ORegistry().GetBinary(AnswerPath(name, " Response"), buffer,
                                 static_cast<uint32_t>(size)) >= 0;
}

bool prtstream::XPML_Query(const char* request, void* buffer, int32_t size) {
    if (!ui_ || !buffer || size < 1) return false;
    // With the time in it, each name is new, and nobody has an answer to it yet.
    OString document = "<xpml>";
    document << request << "<tick count='" << GetTickCount() << "'/></xpml>";
    prtreg printer(ui_->printer_name);
    const bool answered =
        printer.GetPrinterDataW(document, REG_BINARY, buffer, static_cast<uint32_t>(size));
    printer.DeletePrinterDataKey(document);
    return answered;
}

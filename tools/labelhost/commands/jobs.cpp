#include "arguments.h"
#include "commands/commands.h"
#include "fault.h"
#include "files.h"
#include "json.h"
#include "machine/machine.h"
#include "machine/printer.h"
#include "text.h"

#include <cstdio>

namespace {

// The folder in which the spooler of the printer's machine keeps its jobs.
std::string SpoolFolder(const PrinterFacts& printer) {
    WideString server = ToWide(printer.server);
    HANDLE handle = nullptr;
    WCHAR folder[MAX_PATH] = {};
    DWORD needed = 0;
    WCHAR name[] = SPLREG_DEFAULT_SPOOL_DIRECTORY;
    DWORD error = NO_ERROR;
    if (!OpenPrinterW(server.empty() ? nullptr : server.data(), &handle, nullptr))
        error = GetLastError();
    else
        error = GetPrinterDataW(handle, name, nullptr, reinterpret_cast<BYTE*>(folder),
                                sizeof folder, &needed);
    if (handle) ClosePrinter(handle);
    if (error != NO_ERROR) throw SystemFault("cannot find the folder of the jobs", error);
    return OwnPath(ToUtf8(folder));
}

std::string StateOf(const JOB_INFO_2W& job) {
    if (job.Status & JOB_STATUS_ERROR) return "error: " + ToUtf8(job.pStatus);
    if (job.Status & JOB_STATUS_SPOOLING) return "spooling";
    if (job.Status & JOB_STATUS_PRINTED) return "printed";
    return "spooled";
}

Json JobsOf(const OpenedPrinter& printer, const std::string& name, const std::string& folder) {
    DWORD count = 0;
    const std::vector<BYTE> buffer =
        Record("cannot list the jobs of '" + name + "'", [&](BYTE* out, DWORD size, DWORD* needed) {
            return EnumJobsW(printer.handle(), 0, 0xFFFFFFFF, 2, out, size, needed, &count);
        });
    Json jobs = Json::array();
    const auto* infos = reinterpret_cast<const JOB_INFO_2W*>(buffer.data());
    for (DWORD i = 0; i < count && !buffer.empty(); ++i) {
        char file[32];
        const bool complete = !(infos[i].Status & JOB_STATUS_SPOOLING);
        std::snprintf(file, sizeof file, "/%05u.%s", static_cast<unsigned>(infos[i].JobId),
                      complete ? "SPL" : "TMP");
        jobs.push_back({{"id", infos[i].JobId},
                        {"name", ToUtf8(infos[i].pDocument)},
                        {"bytes", infos[i].Size},
                        {"file", folder + file},
                        {"state", StateOf(infos[i])}});
    }
    return jobs;
}

[[noreturn]] void ThrowNoJob(DWORD id) {
    throw Fault("there is no job " + std::to_string(id));
}

void ControlJob(const OpenedPrinter& printer, const Arguments& arguments, const char* option,
                DWORD command) {
    if (!arguments.Has(option)) return;
    const DWORD job = arguments.Number(option, 0xFFFFFFFF, 0);
    if (SetJobW(printer.handle(), job, 0, nullptr, command)) return;
    const DWORD error = GetLastError();
    if (error == ERROR_INVALID_PARAMETER) ThrowNoJob(job);
    throw SystemFault("cannot " + std::string(option) + " job " + arguments.Get(option, ""), error);
}

// Prints sixteen bytes per line: their offset, their values, and the characters among them.
void PrintBytes(const std::vector<BYTE>& bytes) {
    for (size_t at = 0; at < bytes.size(); at += 16) {
        std::string values, characters;
        for (size_t i = at; i < at + 16 && i < bytes.size(); ++i) {
            values += ToHex({bytes[i]}) + ' ';
            characters += bytes[i] >= 0x20 && bytes[i] < 0x7F ? static_cast<char>(bytes[i]) : '.';
        }
        std::printf("%08zx  %-48s |%s|\n", at, values.c_str(), characters.c_str());
    }
}

void ShowJob(const Json& jobs, DWORD id) {
    for (const Json& job : jobs) {
        if (job["id"] != id) continue;
        const std::string bytes = ReadBytes("cannot read job", job["file"].get<std::string>());
        PrintBytes(std::vector<BYTE>(bytes.begin(), bytes.end()));
        return;
    }
    ThrowNoJob(id);
}

} // namespace

void JobsCommand(const Words& words) {
    const Arguments arguments(words, {"show", "restart", "delete"}, {"json"});
    arguments.RequireCount(1, 1, "jobs PRINTER [--show ID] [--restart ID] [--delete ID] [--json]");
    const PrinterFacts facts = FactsOf(arguments[0]);
    const OpenedPrinter printer(arguments[0], PRINTER_ACCESS_USE);
    ControlJob(printer, arguments, "restart", JOB_CONTROL_RESTART);
    ControlJob(printer, arguments, "delete", JOB_CONTROL_DELETE);
    const Json jobs = JobsOf(printer, arguments[0], SpoolFolder(facts));
    if (arguments.Has("show")) {
        ShowJob(jobs, arguments.Number("show", 0xFFFFFFFF, 0));
        return;
    }
    if (arguments.Has("json")) {
        PrintJson(jobs);
        return;
    }
    for (const Json& job : jobs)
        std::printf("%5u %10u  %s  %s\n                  %s\n", job["id"].get<unsigned>(),
                    job["bytes"].get<unsigned>(), job["name"].get<std::string>().c_str(),
                    job["state"].get<std::string>().c_str(),
                    job["file"].get<std::string>().c_str());
}

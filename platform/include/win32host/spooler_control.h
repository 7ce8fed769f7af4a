// Control of the spooler's answers, for tests. The module never includes this.
#pragma once

#include <windows.h>

#include <functional>
#include <string_view>

#pragma GCC visibility push(default)
namespace win32host {

// A question for the record of a printer or of its driver: GetPrinterW, GetPrinterA,
// GetPrinterDriverW or GetPrinterDriverA, with its information level.
struct SpoolerQuestion {
    std::string_view function;
    DWORD level;
};

// Asks `refuse` about every such question first: any error code other than 0 is the answer, for
// instance ERROR_CALL_NOT_IMPLEMENTED for the wide functions of a system that lacks them. An empty
// function refuses nothing.
void RefuseSpoolerQuestions(std::function<DWORD(const SpoolerQuestion&)> refuse);

// Shows every record that was written into a caller's buffer to `alter` before the caller gets it,
// to make answers that no sound spooler gives.
void AlterSpoolerAnswers(
    std::function<void(const SpoolerQuestion&, BYTE* buffer, DWORD size)> alter);

} // namespace win32host
#pragma GCC visibility pop

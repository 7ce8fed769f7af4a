// How questions for records are answered, so that tests can intervene.
#pragma once

#include <win32host/spooler_control.h>

#include "host/guarded.h"

namespace win32host {

// 0, or the error code to answer with.
DWORD Refusal(const SpoolerQuestion& question);

void Alter(const SpoolerQuestion& question, BYTE* buffer, DWORD size);

// Runs the body of an exported function that answers a question into the caller's buffer.
template <class Body>
BOOL AnswerQuestion(const SpoolerQuestion& question, BYTE* buffer, DWORD size, const Body& body) {
    return Guarded(FALSE, [&] {
        if (const DWORD code = Refusal(question)) return Fail(code);
        const BOOL good = body();
        if (good) Alter(question, buffer, size);
        return good;
    });
}

} // namespace win32host

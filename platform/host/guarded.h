// How an exported function fails.
#pragma once

#include <windows.h>

#include <exception>

namespace win32host {

// Runs the body of a function that must not throw. Answers `failure` when memory is short.
template <class Body, class Answer>
Answer Guarded(Answer failure, const Body& body) {
    try {
        return body();
    } catch (const std::exception&) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return failure;
    }
}

// Sets the last error. Always FALSE, so that callers can return it.
inline BOOL Fail(DWORD code) {
    SetLastError(code);
    return FALSE;
}

} // namespace win32host

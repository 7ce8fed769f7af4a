// A fault that the user can correct: one line that says what was wrong with which input.
#pragma once

#include <windows.h>

#include <stdexcept>
#include <string>

struct Fault : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// The command line itself was not understood: exit status 2.
struct UsageFault : Fault {
    using Fault::Fault;
};

// `what` followed by the reason that Win32 gives for `error` ("no such file", "access denied"...).
Fault SystemFault(const std::string& what, DWORD error);

// `what`, the name of a file, and the reason that the C library gives in errno.
Fault FileFault(const std::string& what, const std::string& path);

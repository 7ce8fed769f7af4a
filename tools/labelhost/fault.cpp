#include "fault.h"

#include <winspool.h>

#include <cerrno>
#include <cstring>

namespace {

struct ErrorText {
    DWORD error;
    const char* text;
};

constexpr DWORD kServerUnavailable = 1722; // an error of remote procedure calls

constexpr ErrorText kErrorTexts[] = {
    {ERROR_FILE_NOT_FOUND, "no such file or key"},
    {ERROR_PATH_NOT_FOUND, "no such folder"},
    {ERROR_ACCESS_DENIED, "access denied"},
    {ERROR_INVALID_PARAMETER, "not a sound value"},
    {ERROR_DISK_FULL, "the disk is full"},
    {ERROR_UNKNOWN_PORT, "no such port"},
    {ERROR_UNKNOWN_PRINTER_DRIVER, "no such driver"},
    {ERROR_INVALID_PRINTER_NAME, "no such printer, or not a printer's name"},
    {ERROR_PRINTER_ALREADY_EXISTS, "a printer of that name exists"},
    {kServerUnavailable, "the server does not answer"},
    {ERROR_KEY_DELETED, "the key was deleted meanwhile"},
};

} // namespace

Fault SystemFault(const std::string& what, DWORD error) {
    for (const ErrorText& reason : kErrorTexts)
        if (reason.error == error) return Fault(what + ": " + reason.text);
    return Fault(what + ": error " + std::to_string(error));
}

Fault FileFault(const std::string& what, const std::string& path) {
    return Fault(what + " '" + path + "': " + std::strerror(errno));
}

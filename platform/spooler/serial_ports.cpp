// The setup of serial ports: texts like "9600,n,8,1,x", the values of the key that lists the ports.
#include "host/guarded.h"
#include "host/text.h"
#include "spooler/print_server.h"
#include "spooler/registry_key.h"

#include <sstream>

namespace win32host {
namespace {

// The setup in `text`, a value of the ports' key. The defaults are 9600 baud, no parity, 8 data
// bits, 1 stop bit and no handshake.
DCB SetupOf(const std::string& text) {
    std::string parts[5] = {"9600", "n", "8", "1", ""};
    std::istringstream stream(text);
    for (std::string& part : parts) {
        std::string given;
        if (!std::getline(stream, given, ',')) break;
        if (!given.empty()) part = given;
    }
    const auto number = [](const std::string& digits) {
        DWORD value = 0;
        for (const char digit : digits) {
            if (digit < '0' || digit > '9' || value > 100000000) break;
            value = value * 10 + static_cast<DWORD>(digit - '0');
        }
        return value;
    };
    const std::string parities = "noems";
    DCB setup = {};
    setup.DCBlength = sizeof setup;
    setup.fBinary = 1;
    setup.BaudRate = number(parts[0]);
    const size_t parity = parities.find(static_cast<char>(parts[1][0] | 0x20));
    setup.Parity = static_cast<BYTE>(parity == std::string::npos ? NOPARITY : parity);
    setup.ByteSize = static_cast<BYTE>(number(parts[2]));
    setup.StopBits = parts[3] == "2" ? TWOSTOPBITS : parts[3] == "1.5" ? ONE5STOPBITS : ONESTOPBIT;
    if (parts[4] == "x") setup.fOutX = setup.fInX = 1;
    if (parts[4] == "p") {
        setup.fOutxCtsFlow = 1;
        setup.fRtsControl = RTS_CONTROL_HANDSHAKE;
    }
    return setup;
}

} // namespace
} // namespace win32host

using namespace win32host;

extern "C" BOOL WINAPI GetDefaultCommConfigW(LPCWSTR name, LPCOMMCONFIG config, LPDWORD size) {
    return Guarded(FALSE, [&] {
        const auto fail = [](DWORD error) {
            SetLastError(error);
            return FALSE;
        };
        if (!name || !size) return fail(ERROR_INVALID_PARAMETER);
        const DWORD room = *size;
        *size = sizeof(COMMCONFIG);
        if (!config || room < sizeof(COMMCONFIG)) return fail(ERROR_INSUFFICIENT_BUFFER);
        const std::u16string port = name;
        const auto server = PrintServer::Named(u"");
        RegistryKey key;
        if (port.size() < 4 || !SameName(port.substr(0, 3), u"COM") || !server ||
            server->OpenPorts(key) != ERROR_SUCCESS)
            return fail(ERROR_FILE_NOT_FOUND);
        for (const std::u16string& known : key.ValueNames()) {
            if (!SameName(known, port + u":") && !SameName(known, port)) continue;
            *config = {};
            config->dwSize = sizeof *config;
            config->wVersion = 1;
            config->dcb = SetupOf(Utf8(key.Text(known.c_str())));
            config->dwProviderSubType = 1; // a serial port
            return BOOL{TRUE};
        }
        return fail(ERROR_FILE_NOT_FOUND);
    });
}

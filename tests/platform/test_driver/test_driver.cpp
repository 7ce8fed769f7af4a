// A printer driver that notes its calls, for the tests of the spooler. Its notes are the texts of
// HKEY_CURRENT_USER\TestDriver.
#include <winddi.h>
#include <winddiui.h>
#include <windows.h>

#include <algorithm>
#include <atomic>
#include <cstring>
#include <string>
#include <vector>

namespace {

std::u16string Number(DWORD number) {
    std::u16string digits;
    do digits.insert(digits.begin(), static_cast<WCHAR>(u'0' + number % 10));
    while (number /= 10);
    return digits;
}

void Note(const std::u16string& line) {
    HKEY key;
    RegCreateKeyExW(HKEY_CURRENT_USER, TEXT("TestDriver"), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                    &key, nullptr);
    WCHAR notes[1024] = {};
    DWORD size = sizeof notes - sizeof(WCHAR);
    RegQueryValueExW(key, TEXT("Notes"), nullptr, nullptr, reinterpret_cast<LPBYTE>(notes), &size);
    const std::u16string all = notes + line + u";";
    RegSetValueExW(key, TEXT("Notes"), 0, REG_SZ, reinterpret_cast<const BYTE*>(all.c_str()),
                   static_cast<DWORD>((all.size() + 1) * sizeof(WCHAR)));
    RegCloseKey(key);
}

// Asks what a real driver asks about its printer. Returns how many questions were answered.
DWORD AskAboutPrinter(HANDLE printer) {
    DWORD good = 0, needed = 0;
    GetPrinterW(printer, 2, nullptr, 0, &needed);
    std::vector<BYTE> buffer(needed);
    good += GetPrinterW(printer, 2, buffer.data(), needed, &needed) ? 1 : 0;
    GetPrinterDriverW(printer, nullptr, 6, nullptr, 0, &needed);
    buffer.resize(needed);
    good += GetPrinterDriverW(printer, nullptr, 6, buffer.data(), needed, &needed) ? 1 : 0;
    return good;
}

// Opens the printer with all rights, or notes in the line that it is not there.
HANDLE Open(const std::u16string& name, std::u16string& line) {
    PRINTER_DEFAULTSW defaults = {nullptr, nullptr, PRINTER_ALL_ACCESS};
    HANDLE printer = nullptr;
    if (!OpenPrinterW(const_cast<LPWSTR>(name.c_str()), &printer, &defaults))
        line += u" (not there)";
    return printer;
}

bool IsBroken(LPCWSTR printer) {
    return std::u16string(printer).starts_with(u"Broken");
}

constexpr WORD kPrivateSize = 8;

std::atomic<DWORD> g_capability_calls = 0; // the spooler calls from every thread

// ---- The rendering module -----------------------------------------------------------------------

DHPDEV WINAPI EnableDevice(DEVMODEW* dev_mode, LPWSTR, ULONG, HSURF*, ULONG, ULONG* caps, ULONG,
                           DEVINFO*, HDEV, LPWSTR name, HANDLE printer) {
    auto& info = *reinterpret_cast<GDIINFO*>(caps);
    info.ulHorzRes = dev_mode ? static_cast<ULONG>(dev_mode->dmPaperWidth) : 100;
    Note(u"enable " + std::u16string(name));
    return static_cast<DHPDEV>(printer); // all that it needs
}

void WINAPI DisableDevice(DHPDEV) {
    Note(u"disable");
}

BOOL WINAPI StartDocument(SURFOBJ*, LPWSTR name, DWORD job) {
    Note(u"start doc " + std::u16string(name) + u' ' + Number(job));
    return !std::u16string(name).starts_with(u"Refused");
}

BOOL WINAPI SendPage(SURFOBJ*) {
    Note(u"send page");
    return TRUE;
}

BOOL WINAPI EndDocument(SURFOBJ*, ULONG flags) {
    Note(flags & ED_ABORTDOC ? u"abort doc" : u"end doc");
    return TRUE;
}

ULONG WINAPI Escape(SURFOBJ* surface, ULONG escape, ULONG input_size, PVOID input, ULONG, PVOID) {
    DWORD written = 0;
    WritePrinter(surface->dhpdev, input, input_size, &written);
    return escape + written;
}

template <class Function>
DRVFN Entry(ULONG index, Function function) {
    return {index, reinterpret_cast<PFN>(reinterpret_cast<void (*)()>(function))};
}

DRVFN g_functions[] = {
    Entry(INDEX_DrvEnablePDEV, EnableDevice), Entry(INDEX_DrvDisablePDEV, DisableDevice),
    Entry(INDEX_DrvStartDoc, StartDocument),  Entry(INDEX_DrvSendPage, SendPage),
    Entry(INDEX_DrvEndDoc, EndDocument),      Entry(INDEX_DrvEscape, Escape),
};

} // namespace

extern "C" {

__declspec(dllexport) BOOL WINAPI DrvEnableDriver(ULONG, ULONG, DRVENABLEDATA* data) {
    *data = {DDI_DRIVER_VERSION_NT5, static_cast<ULONG>(std::size(g_functions)), g_functions};
    return TRUE;
}

// Fails to let documents start whose names begin with "No".
__declspec(dllexport) int WINAPI
    DrvDocumentEvent(HANDLE, HDC, int event, ULONG, PVOID input, ULONG, PVOID) {
    Note(u"event " + Number(static_cast<DWORD>(event)));
    if (event != DOCUMENTEVENT_STARTDOCPRE) return DOCUMENTEVENT_SUCCESS;
    const DOCINFOW& info = **static_cast<const DOCINFOW**>(input);
    return std::u16string(info.lpszDocName).starts_with(u"No") ? DOCUMENTEVENT_FAILURE
                                                               : DOCUMENTEVENT_SUCCESS;
}

// FALSE for printers whose names begin with "Broken".
__declspec(dllexport) BOOL WINAPI DrvPrinterEvent(LPWSTR name, int event, DWORD, LPARAM parameter) {
    std::u16string line = Number(static_cast<DWORD>(event)) + u' ' + name;
    if (event == PRINTER_EVENT_ATTRIBUTES_CHANGED) {
        const auto& info = *reinterpret_cast<const PRINTER_EVENT_ATTRIBUTES_INFO*>(parameter);
        line += u' ' + Number(info.dwOldAttributes) + u' ' + Number(info.dwNewAttributes);
    }
    // The printer exists and may be changed while its driver is told of it.
    const HANDLE printer = Open(name, line);
    BYTE byte = 1;
    SetPrinterDataW(printer, const_cast<LPWSTR>(TEXT("Seen")), REG_BINARY, &byte, 1);
    ClosePrinter(printer);
    Note(line);
    return !IsBroken(name);
}

__declspec(dllexport) BOOL WINAPI DrvUpgradePrinter(DWORD level, LPBYTE info) {
    const std::u16string name = reinterpret_cast<const DRIVER_UPGRADE_INFO_1W*>(info)->pPrinterName;
    std::u16string line = u"upgrade " + Number(level) + u' ' + name;
    ClosePrinter(Open(name, line));
    Note(line);
    return !IsBroken(name.c_str());
}

__declspec(dllexport) DWORD WINAPI
    DrvDeviceCapabilities(HANDLE printer, LPWSTR name, WORD capability, LPVOID output, DEVMODEW*) {
    ++g_capability_calls;
    switch (capability) {
    case DC_BINNAMES:
        if (output) std::u16string(name).copy(static_cast<LPWSTR>(output), 23);
        return 1;
    case DC_COPIES:
        return g_capability_calls;
    case DC_PERSONALITY:
        return AskAboutPrinter(printer);
    default:
        return static_cast<DWORD>(-1);
    }
}

// Keeps the public part, sets its driver version to 7, and makes the private part new.
__declspec(dllexport) BOOL WINAPI
    DrvConvertDevMode(LPWSTR name, PDEVMODEW in, PDEVMODEW out, PDWORD needed, DWORD mode) {
    const DWORD size = *needed;
    *needed = sizeof(DEVMODEW) + kPrivateSize;
    if (IsBroken(name)) return FALSE;
    if (!out || size < *needed) {
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return FALSE;
    }
    std::memset(out, 0, *needed);
    if (mode == CDM_CONVERT) std::memcpy(out, in, std::min<size_t>(in->dmSize, sizeof *out));
    out->dmSpecVersion = 0x401;
    out->dmSize = sizeof *out;
    out->dmDriverExtra = kPrivateSize;
    if (mode == CDM_CONVERT) out->dmDriverVersion = 7;
    return TRUE;
}

} // extern "C"

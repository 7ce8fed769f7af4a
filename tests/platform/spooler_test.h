// The fixture of the spooler's tests: a machine with the test driver's files ready, and short forms
// of the questions that most tests ask.
#pragma once

#include "platform/error_of.h"
#include "support/host_test.h"
#include "support/spooler_answer.h"

#include <windows.h>
#include <winspool.h>

#include <win32host/control.h>

#include <initializer_list>
#include <string>
#include <vector>

class SpoolerTest : public HostTest {
protected:
    SpoolerTest();
    ~SpoolerTest() override;

    // Installs the driver "Test Driver" with its files below C:\setup.
    void AddDriver(const std::u16string& name = u"Test Driver") const;
    // Adds a printer with that driver on "FILE:".
    void AddPrinter(const std::u16string& name) const;

    // A PRINTER_INFO_2W with everything that a printer needs.
    static PRINTER_INFO_2W Wanted(LPCWSTR name);
    static PRINTER_INFO_2W Wanted(const std::u16string& name) { return Wanted(name.c_str()); }
    static PRINTER_INFO_2W Wanted(std::u16string&& name) = delete;

    // Null on failure. Handles opened with this are closed at the end of the test.
    HANDLE Open(const std::u16string& name, ACCESS_MASK access = PRINTER_ALL_ACCESS);
    HANDLE Add(PRINTER_INFO_2W info);

    // The driver's notes since the last call.
    static std::u16string TakeNotes();

    // The numbers of a document that is started, and of one that is printed to its end.
    static DWORD Start(HANDLE printer, LPCWSTR name);
    static DWORD Print(HANDLE printer, LPCWSTR name, std::string bytes);
    // The bytes of a waiting job.
    std::string Spooled(DWORD job) const;

    // Makes the machine "\\NAME" with the driver and runs `work` there. Returns its root folder.
    template <class Work>
    std::string OnServer(const std::string& name, Work work) {
        const std::string server = EnterServer(name);
        work();
        win32host::SetRoot(root());
        return server;
    }

    static void UseAdministrator();
    static void UseGuest();

private:
    std::string EnterServer(const std::string& name) const;

    std::vector<HANDLE> opened_;
};

// With the driver and the printer LABELS.
class LabelsTest : public SpoolerTest {
protected:
    LabelsTest() {
        AddDriver();
        AddPrinter(u"LABELS");
        printer_ = Open(u"LABELS");
        TakeNotes();
    }
    HANDLE printer_ = nullptr;
};

// The SDK's structures point to texts that they do not change.
inline LPWSTR Text(LPCWSTR text) {
    return const_cast<LPWSTR>(text);
}
inline LPWSTR Text(const std::u16string& text) {
    return Text(text.c_str());
}
LPWSTR Text(std::u16string&& text) = delete; // it would be gone before its use

// All these texts, each followed by a semicolon.
inline std::u16string Joined(std::initializer_list<LPCWSTR> texts) {
    std::u16string all;
    for (LPCWSTR text : texts) all += std::u16string(text ? text : u"(null)") + u';';
    return all;
}

inline Answer<PRINTER_INFO_2W> PrinterInfo2(HANDLE printer) {
    return Answer<PRINTER_INFO_2W>([&](LPBYTE buffer, DWORD size, LPDWORD needed) {
        return GetPrinterW(printer, 2, buffer, size, needed);
    });
}

template <class Info>
Answer<Info> DriverInfo(HANDLE printer, DWORD level) {
    return Answer<Info>([&](LPBYTE buffer, DWORD size, LPDWORD needed) {
        return GetPrinterDriverW(printer, nullptr, level, buffer, size, needed);
    });
}

// Changes a printer's record. Returns the error code.
inline int SetInfo(HANDLE printer, PRINTER_INFO_2W info, DWORD command = 0) {
    return ErrorOf(SetPrinterW(printer, 2, reinterpret_cast<LPBYTE>(&info), command));
}

// The names from EnumPrintersW, joined.
inline std::u16string PrinterNames(DWORD flags, LPWSTR server = nullptr) {
    DWORD count = 0;
    const Answer<PRINTER_INFO_2W> list([&](LPBYTE buffer, DWORD size, LPDWORD needed) {
        return EnumPrintersW(flags, server, 2, buffer, size, needed, &count);
    });
    std::u16string all;
    for (DWORD i = 0; list.good() && i < count; ++i) all += Joined({list[i].pPrinterName});
    return all;
}

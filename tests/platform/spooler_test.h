// The fixture of the spooler's tests: a machine with the test driver's files at hand, and short
// forms of the questions that most tests ask.
#pragma once

#include "support/host_test.h"

#include <windows.h>
#include <winspool.h>

#include <win32host/control.h>

#include <cstring>
#include <string>
#include <vector>

class SpoolerTest : public HostTest {
protected:
    SpoolerTest();
    ~SpoolerTest() override;

    // The driver "Test Driver" with its files below C:\setup, installed.
    void AddDriver(const std::u16string& name = u"Test Driver") const;
    // A printer with that driver on "FILE:".
    void AddPrinter(const std::u16string& name) const;

    // A PRINTER_INFO_2W with what a printer needs.
    static PRINTER_INFO_2W Wanted(LPCWSTR name);
    static PRINTER_INFO_2W Wanted(const std::u16string& name) { return Wanted(name.c_str()); }
    static PRINTER_INFO_2W Wanted(std::u16string&& name) = delete;
    static HANDLE Open(const std::u16string& name, ACCESS_MASK access = PRINTER_ALL_ACCESS);

    // What the driver has noted since the last call.
    static std::u16string TakeNotes();

    static void UseAdministrator();
    static void UseGuest();
};

// The SDK's structures point to texts that they do not change.
inline LPWSTR Text(LPCWSTR text) {
    return const_cast<LPWSTR>(text);
}
inline LPWSTR Text(const std::u16string& text) {
    return Text(text.c_str());
}
LPWSTR Text(std::u16string&& text) = delete; // it would be gone before it is looked at

// A text of ASCII characters.
inline std::u16string Utf16Of(const char* text) {
    return {text, text + std::strlen(text)};
}

// A filled buffer, and the structures at its start.
template <class Info>
class Answer {
public:
    // `ask(buffer, size, needed)` as the API wants it; empty when it fails.
    template <class Ask>
    explicit Answer(const Ask& ask) {
        DWORD needed = 0;
        if (ask(nullptr, 0, &needed)) return;
        buffer_.resize(needed);
        if (!ask(buffer_.data(), needed, &needed)) buffer_.clear();
    }
    bool good() const { return !buffer_.empty(); }
    const Info& operator[](size_t i) const {
        return reinterpret_cast<const Info*>(buffer_.data())[i];
    }
    const Info* operator->() const { return &(*this)[0]; }
    const std::vector<BYTE>& buffer() const { return buffer_; }

private:
    std::vector<BYTE> buffer_;
};

inline Answer<PRINTER_INFO_2W> PrinterInfo2(HANDLE printer) {
    return Answer<PRINTER_INFO_2W>([&](LPBYTE buffer, DWORD size, LPDWORD needed) {
        return GetPrinterW(printer, 2, buffer, size, needed);
    });
}

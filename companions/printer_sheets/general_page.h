// The page of a printer's properties that is the system's own: what the printer is called, where it
// is, and its test page.
#pragma once

#include "printer_sheets/printer_record.h"

#include <windows.h>

#include <prsht.h>

#include <string>
#include <vector>

namespace printer_sheets {

// Identifiers that drivers know: they subclass the page to print a test page of their own.
constexpr int kComment = 3001;
constexpr int kLocation = 3002;
constexpr int kTestPage = 3007;
constexpr int kAlwaysAvailable = 3227;
constexpr int kSometimesAvailable = 3228;

class GeneralPage {
public:
    // `printer` must remain open, and this object must exist, as long as the page does.
    GeneralPage(HANDLE printer, bool may_change);
    GeneralPage(const GeneralPage&) = delete;
    GeneralPage& operator=(const GeneralPage&) = delete;

    const PROPSHEETPAGEW& Record() const { return page_; }

private:
    static INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM first, LPARAM second);
    void Fill(HWND dialog);
    void Command(HWND dialog, int id, int code);
    // False, after the user was told, if the spooler refuses.
    bool Store(HWND dialog);
    void PrintTestPage(HWND dialog);

    HANDLE printer_;
    bool may_change_;
    PrinterRecord record_;
    std::vector<BYTE> template_;
    PROPSHEETPAGEW page_ = {};
    bool filling_ = false;
    bool changed_ = false;
};

} // namespace printer_sheets

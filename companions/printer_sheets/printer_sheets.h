// The property sheets of a printer, opened as programs and the system's folder of printers open
// them. The same on every host; on Windows the sheets are the system's.
#pragma once

#include <windows.h>
#include <winspool.h>

#include <string>
#include <vector>

namespace printer_sheets {

using Text = std::basic_string<WCHAR>;

enum class Ended {
    Failed, // GetLastError tells why
    Cancelled,
    Confirmed,
};

// A program's document settings (DocumentPropertiesW with the prompt). `input` may be null: the
// printer's defaults. `output` becomes the settings, of the size that the driver needs: those
// confirmed, or what the driver makes of a cancelled sheet, which are those that were applied last
// or those that it began with; empty if it makes nothing. `printer` was opened for use. Wine's
// spooler calls every sheet confirmed: who must know watches the sheet.
Ended ShowDocument(HWND owner, HANDLE printer, const Text& name, DEVMODEW* input,
                   std::vector<BYTE>& output);

// The default settings of the printer. What the user confirms becomes its default DEVMODE. The
// sheets only show them if `printer` was not opened for administering it: `may_change` false.
Ended ShowDefaults(HWND owner, HANDLE printer, const Text& name, bool may_change);

// The properties of the printer: the system's General page, then the driver's pages
// (DrvDevicePropertySheets).
Ended ShowDevice(HWND owner, HANDLE printer, const Text& name, bool may_change);

} // namespace printer_sheets

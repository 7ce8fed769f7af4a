// Shared code of both entry points for property sheets.
#pragma once

#include <windows.h>

#include <winddiui.h>

#include <cstdint>
#include <memory>

#include "ui/prtui.h"

// The answer of an entry point without a sheet.
constexpr LONG kNoSheets = -1;

// The UI object for a new sheet on a printer (`in` and `mode` as prtui::init takes them), after
// asking the printer's server for news. Null if there is no memory or no model, as such a sheet
// would have nothing to show.
std::unique_ptr<prtui> OpenSheets(HANDLE printer, const DEVMODEW* in, uint32_t mode);

// Handles every reason but INIT for the UI object in `info`, which DESTROY deletes. Answers -1
// without one or without the record that the reason comes with, and 1 for an unknown reason.
// `header` is that of document settings, else null.
LONG AnswerSheets(PROPSHEETUI_INFO& info, LPARAM parameter, HANDLE printer, const WCHAR* name,
                  const DOCUMENTPROPERTYHEADER* header);

// Whether the program with this path is the one that shows the printers folder.
bool IsExplorer(const char* path);

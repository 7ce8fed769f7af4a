// What both entry points for property sheets have in common.
#pragma once

#include <windows.h>

#include <winddiui.h>

#include <cstdint>
#include <memory>

#include "ui/prtui.h"

// The answer of an entry point for a sheet that there is not.
constexpr LONG kNoSheets = -1;

// The UI object for a new sheet on a printer (`in` and `mode` as prtui::init takes them), after the
// printer's server was asked for news. Null when there is no memory or no model: such a sheet would
// have nothing to show.
std::unique_ptr<prtui> OpenSheets(HANDLE printer, const DEVMODEW* in, uint32_t mode);

// Answers every reason but INIT for the UI object in `info`, which DESTROY deletes: -1 without one
// or without the record that the reason comes with, 1 for an unknown reason. `header` is that of
// document settings, else null.
LONG AnswerSheets(PROPSHEETUI_INFO& info, LPARAM parameter, HANDLE printer, const WCHAR* name,
                  const DOCUMENTPROPERTYHEADER* header);

// Whether a program is the one that shows the printers folder, by the path of its file.
bool IsExplorer(const char* path);

// Where the answers of printers and the monitor's own settings are kept: HKEY_LOCAL_MACHINE,
// SOFTWARE\Valdrick\Drivers.
#pragma once

#include <string>

#include "qstmon/conversation.h"
#include "qstmon/printer_port.h"

// Stores a printer's answer under its question's name: its size and its bytes.
bool StoreAnswer(const WideString& query, const std::string& answer);

// Marks the answers as complete.
void MarkQueryDone();

// The waiting times. Each is the one set for this machine (REG_DWORD values "Connect Time Limit",
// "Answer Time Limit" and "Quiet Time Limit" of the key "Status Monitor", in milliseconds) or its
// default.
TimeLimits ConfiguredTimeLimits();

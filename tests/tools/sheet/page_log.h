// What a page of the test sheet was told, in its field ID_LOG.
#pragma once

#include <windows.h>

#include <initializer_list>
#include <string>

void LogText(HWND page, const std::string& text);
// `what` and the numbers.
void Log(HWND page, const char* what, std::initializer_list<int> numbers);
void LogCommand(HWND page, int id, int code);
// Those that do not depend on how a control draws itself or takes the mouse.
void LogNotification(HWND page, const NMHDR& notification);

// What the topmost window shows, told as JSON or for people.
#pragma once

#include "json.h"
#include "sheet/topmost.h"

#include <string>

// The window as it is now.
Json StateOf(const Topmost& topmost, const std::string& name);

// The titles of the sheet's pages.
Json PageTitles(HWND sheet);
int CurrentPageNumber(HWND sheet);

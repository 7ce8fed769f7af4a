// A property sheet with every control. Each page writes the notifications that it gets into its
// field ID_LOG, so that a state tells them.
#pragma once

#include <windows.h>

#include <prsht.h>

#include <vector>

// The pages of the sheet; `resources` is the library with their templates.
std::vector<HPROPSHEETPAGE> MakeTestPages(HMODULE resources);

// Loads the controls that the pages have.
void LoadTestControls();

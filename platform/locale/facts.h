// The settings of control.h, as the functions of this folder see them.
#pragma once

#include <win32host/control.h>

namespace win32host {

// The code page's number, after resolving CP_ACP, CP_OEMCP and CP_THREAD_ACP.
UINT ResolveCodePage(UINT code_page);

// True if SetMissingCodePages removed this one.
bool IsMissingCodePage(UINT code_page);

void ResetCodePages();
void ResetVersion();
void ResetMessageBoxes();

} // namespace win32host

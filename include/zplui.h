// The exported functions of the label printer driver's configuration module.
//
// Usable from C and from any language that can call C. All integers are little-endian and of fixed
// width; text is UTF-16 (WCHAR) where a parameter says so. Exports use the platform's standard
// calling convention. No function throws.
#pragma once

#include <windows.h>
#include <winspool.h>

#include <stdint.h>

#ifndef ZPLUI_API
#define ZPLUI_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

// ---- Loading ------------------------------------------------------------------------------------

// The module's entry point. Attach (reason 1) records the module handle and creates the
// process-wide caches of the model data; detach (reason 0) frees them. Always TRUE.
ZPLUI_API BOOL WINAPI DllInitialize(HINSTANCE instance, DWORD reason, LPVOID context);

#ifdef __cplusplus
}
#endif

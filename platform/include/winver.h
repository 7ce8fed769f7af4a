// Version resources.
#pragma once

#include <windef.h>

#define VS_VERSION_INFO 1
#define VS_FFI_SIGNATURE 0xFEEF04BDu

// The numbers of a version resource.
typedef struct VS_FIXEDFILEINFO {
    DWORD dwSignature; // VS_FFI_SIGNATURE
    DWORD dwStrucVersion;
    DWORD dwFileVersionMS; // major and minor version
    DWORD dwFileVersionLS;
    DWORD dwProductVersionMS;
    DWORD dwProductVersionLS;
    DWORD dwFileFlagsMask;
    DWORD dwFileFlags;
    DWORD dwFileOS;
    DWORD dwFileType;
    DWORD dwFileSubtype;
    DWORD dwFileDateMS;
    DWORD dwFileDateLS;
} VS_FIXEDFILEINFO;
static_assert(sizeof(VS_FIXEDFILEINFO) == 52, "layout");

#pragma GCC visibility push(default)
WIN32HOST_BEGIN_C

// The size of a file's version resource in bytes, or 0 if it has none. `handle` receives 0 and may
// be null.
DWORD WINAPI GetFileVersionInfoSizeW(LPCWSTR file, DWORD* handle);

// Copies the version resource into `data`, cut to `size` bytes.
BOOL WINAPI GetFileVersionInfoW(LPCWSTR file, DWORD handle, DWORD size, void* data);

// Finds a value in a version resource: "\" is the fixed part, "\VarFileInfo\Translation" the pairs
// of language and code page, "\StringFileInfo\000004B0\NAME" a text, whose length is counted in
// characters with the terminator; other lengths are in bytes. Keys match in any case. FALSE with
// ERROR_RESOURCE_TYPE_NOT_FOUND if there is no such value.
BOOL WINAPI VerQueryValueW(const void* block, LPCWSTR path, void** value, UINT* length);

WIN32HOST_END_C
#pragma GCC visibility pop

// The exported functions of the label printer driver's configuration module.
//
// Usable from C and from any language that can call C. All integers are little-endian and of fixed
// width; text is UTF-16 (WCHAR) where a parameter says so. Exports use the platform's standard
// calling convention. No function throws.
#pragma once

#include <windows.h>
#include <winspool.h>

#include <winddiui.h>

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

// ---- Called by the spooler ----------------------------------------------------------------------

// Whether a job may print: always TRUE, the record is not looked at.
ZPLUI_API BOOL WINAPI DevQueryPrintEx(PDEVQUERYPRINT_INFO info);

// Answers a device capability of the printer behind the open handle `printer`. `output` may be null
// to ask for the value or the count only; otherwise the caller provides room for what the
// capability stores there:
//
//   DC_MINEXTENT, DC_MAXEXTENT   paper width (low word) and length (high word) in tenths of a
//                                millimetre; the same number is stored as a DWORD
//   DC_BINS                      1; stores one WORD, DMBIN_USER
//   DC_BINNAMES                  1; stores one name of 24 characters
//   DC_ENUMRESOLUTIONS           the number of resolutions; stores a pair of LONGs (x, y) for each
//   DC_FILEDEPENDENCIES          the number of files; stores a name of 64 characters for each
//   DC_PERSONALITY               1; stores one name of 32 characters
//   DC_NUP                       1; stores one DWORD, 1
//   DC_TRUETYPE, DC_EMF_COMPLIANT   1
//   DC_ORIENTATION 90,  DC_BINADJUST 2,  DC_COPIES the most copies,  DC_COLORDEVICE 1 or 0
//   DC_DUPLEX, DC_COLLATE, DC_STAPLE   0
//
// Names are terminated and padded with zeros. Every other capability, and every one without memory,
// is answered with -1.
ZPLUI_API DWORD WINAPI DrvDeviceCapabilities(HANDLE printer, PWSTR device, WORD capability,
                                             PVOID output, PDEVMODEW dev_mode);

// ---- Codecs and checksums -----------------------------------------------------------------------
//
// Input and output are raw bytes. A null pointer is harmless where its length is 0.

// Encodes `size` bytes in Base64 (RFC 4648, padded, no line breaks, no terminator). `out` has room
// for (size + 2) / 3 * 4 bytes; `out_size` receives the bytes written.
ZPLUI_API void WINAPI X16_Base64_Encode(const void* in, uint32_t size, void* out,
                                        uint32_t* out_size);

// Decodes `size` characters of Base64 up to the first padding. Nothing is skipped or rejected: a
// character outside the alphabet counts as 0. `out` has room for size / 4 * 3 + 2 bytes; `out_size`
// receives the bytes written.
ZPLUI_API void WINAPI X16_Base64_Decode(const void* in, uint32_t size, void* out,
                                        uint32_t* out_size);

// Compresses `size` bytes into a container: "ZLIB", the two lengths, a zlib stream. `length` is the
// room in `out`, of which size + (size + 999) / 1000 + 24 bytes always suffice, and receives the
// container's length. FALSE when the room does not suffice; `out` and `length` are then undefined.
ZPLUI_API BOOL WINAPI X16_LZ77_Encode(const void* in, uint32_t size, void* out, uint32_t* length);

// Decompresses a container. `length` is the room in `out` and receives the uncompressed length.
// FALSE when the container is damaged or does not fit.
ZPLUI_API BOOL WINAPI X16_LZ77_Decode(const void* in, uint32_t size, void* out, uint32_t* length);

// CRC-16, polynomial 0x1021, most significant bit first: with seed 0 the checksum called XMODEM,
// with 0xFFFF CCITT-FALSE. Pieces chain: the checksum of one is the seed of the next.
ZPLUI_API uint16_t WINAPI X16_CRC16(const void* data, uint32_t size, uint16_t seed);

// CRC-32, polynomial 0x04C11DB7, most significant bit first, complemented at both ends: with seed 0
// the checksum called BZIP2. Pieces chain as above.
ZPLUI_API uint32_t WINAPI X16_CRC32(const void* data, uint32_t size, uint32_t seed);

#ifdef __cplusplus
}
#endif

// The exported functions of the label printer driver's configuration module.
//
// They can be called from C and from any language that can call C. All integers are little-endian
// and of fixed width; text is UTF-16 (WCHAR) where a parameter says so. Exports use the platform's
// standard calling convention. No function throws.
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

// Says whether a job may print. Always TRUE; the record is ignored.
ZPLUI_API BOOL WINAPI DevQueryPrintEx(PDEVQUERYPRINT_INFO info);

// Answers a device capability of the printer behind the open handle `printer`. `output` may be null
// to ask only for the value or the count; otherwise the caller provides room for what the
// capability stores there:
//
//   DC_FIELDS, DC_SIZE, DC_EXTRA, DC_VERSION, DC_DRIVER
//                                the field of that name of the printer's default DEVMODE, after
//                                `dev_mode` has been merged into it unless it is null
//   DC_PAPERS, DC_PAPERSIZE, DC_PAPERNAMES
//                                the number of stocks that the printer can print; stores for each
//                                a WORD with its number, a POINT with its width and length in
//                                tenths of a millimetre, or a name of 64 characters
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
// Names are terminated and padded with zeros. The answer is -1 for every other capability, and for
// all of them when memory is short.
ZPLUI_API DWORD WINAPI DrvDeviceCapabilities(HANDLE printer, PWSTR device, WORD capability,
                                             PVOID output, PDEVMODEW dev_mode);

// Converts a DEVMODE. `needed` holds the size of `out` in bytes. If that is too small, the answer
// is FALSE with ERROR_INSUFFICIENT_BUFFER, and `needed` receives the required size; without `out`
// this is the size of the driver's own DEVMODE, 1508. `mode` is one of:
//
//   CDM_DRIVER_DEFAULT   stores the defaults of the printer of that name; `in` is ignored.
//                        FALSE if the printer cannot be opened
//   CDM_CONVERT          stores `in` in the layout that dmSpecVersion and dmSize of `out` ask for:
//                        the public part is cut or padded with zeros, the private part follows
//                        unchanged. `needed` receives the size. `out` may be the buffer of `in`
//   CDM_CONVERT351       the same in the layout of Windows NT 3.51: version 0x320, 188 bytes
//
// FALSE with ERROR_INVALID_PARAMETER without `needed`, without an `in` to convert, and if `out`
// asks for a layout that ends before dmFields. FALSE for any other mode.
ZPLUI_API BOOL WINAPI DrvConvertDevMode(LPWSTR printer, PDEVMODEW in, PDEVMODEW out, PDWORD needed,
                                        DWORD mode);

// Makes document settings. Without `info`, `parameter` points to the DOCUMENTPROPERTYHEADER and
// nothing is shown:
//
//   fMode 0, or no pdmOut   answers the size of the driver's DEVMODE, 1508, and stores it in cbOut
//   else                    makes the settings of hPrinter: the defaults of its model, then the
//                           printer's default DEVMODE, then, with DM_IN_BUFFER, pdmIn, each merged
//                           and validated. With DM_OUT_BUFFER they are stored in pdmOut, which may
//                           be pdmIn. Answers 1 (IDOK)
//
// Without hPrinter the printer is the one named pszPrinterName. cbOut is the room in pdmOut; 0 is
// taken for enough, and so is the dmSize of what pdmOut holds, because some spoolers know no more.
// Answers 0 without a header, if there is too little room (ERROR_INSUFFICIENT_BUFFER) and when
// memory is short. DM_IN_PROMPT is ignored.
//
// With `info`, whose lParamInit is the header, the common property sheets make a sheet (0 without a
// header). The driver adds no pages of its own. The reasons do this:
//
//   INIT              opens the printer's settings, as above with DM_IN_BUFFER, and keeps them in
//                     UserData until DESTROY. -1 if they cannot be opened
//   GET_INFO_HEADER   fills in the title, the printer's name, and the icon of the record that
//                     `parameter` points to
//   SET_RESULT        `parameter` points to the SETRESULT_INFO. After OK, with DM_COPY or
//                     DM_UPDATE, the settings go to pdmOut (merged into it if that is also
//                     pdmIn); with DM_UPDATE they also become the printer's defaults. After
//                     Cancel, with DM_COPY, pdmOut gets the settings as last applied
//   DESTROY           closes the settings, and sends them to the server that shares them
//   others            do nothing
//
// On success they answer 1. The reasons after INIT answer -1 if they lack what INIT has kept.
ZPLUI_API LONG WINAPI DrvDocumentPropertySheets(PPROPSHEETUI_INFO info, LPARAM parameter);

// The same for the properties of a printer: lParamInit is a DEVICEPROPERTYHEADER, and no settings
// are returned. -1 without `info` and without a header.
ZPLUI_API LONG WINAPI DrvDevicePropertySheets(PPROPSHEETUI_INFO info, LPARAM parameter);

// Tells the driver what happens to the printer of that name; `flags` and `parameter` are ignored.
// Two events do something:
//
//   PRINTER_EVENT_INITIALIZE       the printer was added or got this driver: its default DEVMODE
//                                  is converted to the driver's layout and brought within the
//                                  model's limits, its driver settings are reset, and the data
//                                  fonts, presets and stocks of the driver's default settings file
//                                  are added, replacing those of the same names; the model's plug
//                                  and play identifiers are recorded. FALSE if the printer cannot
//                                  be opened with full access
//   PRINTER_EVENT_ADD_CONNECTION   a user has connected to the printer: the same without the
//                                  DEVMODE. Also TRUE if the printer cannot be opened
//
// Both are FALSE, after a message box, on a system that this build of the driver does not fit; a
// printer that is being initialised is then marked so that the rendering module does not use it.
// Every other event is FALSE.
ZPLUI_API BOOL WINAPI DrvPrinterEvent(LPWSTR printer, int event, DWORD flags, LPARAM parameter);

// Tells the driver what happens to a document on the open printer; everything but the printer and
// the low 16 bits of `event` is ignored. These events do something, for a connection whose server
// shares the printer's settings:
//
//   DOCUMENTEVENT_CREATEDCPRE, DOCUMENTEVENT_STARTDOC
//                                updates the user's copy of the settings
//   DOCUMENTEVENT_ENDDOCPOST     sends the copy to the server, which takes it over
//
// These answer DOCUMENTEVENT_SUCCESS (1), whatever the outcome. Every other event answers
// DOCUMENTEVENT_UNSUPPORTED (0).
ZPLUI_API int WINAPI DrvDocumentEvent(HANDLE printer, HDC dc, int event, ULONG in_size, PVOID in,
                                      ULONG out_size, PVOID out);

// Does what PRINTER_EVENT_INITIALIZE does, except for the plug and play identifiers and the message
// box, for a printer that has had an older version of the driver. `info` is a DRIVER_UPGRADE_INFO_1
// or _2; the level is ignored. FALSE with ERROR_INVALID_PARAMETER if there is no `info` or the
// printer cannot be opened with full access, and with ERROR_BAD_DRIVER on a system that this build
// does not fit.
ZPLUI_API BOOL WINAPI DrvUpgradePrinter(DWORD level, LPBYTE info);

// ---- Settings without a user interface ----------------------------------------------------------
//
// A program opens a printer, works on it, and closes it, all on one thread. The handle is opaque;
// every function but DAL_Printer_Open does nothing with a null one.
//
// Each list is stored completely or, if that fails, stays as it was, and so do the driver's
// settings. For a printer that the spooler does not know, nothing is stored.
//
// A printer has an access level, below which its pages refuse a user's changes. Here this applies
// to the actions of administrators and to the fonts in the printer's memory. The settings are
// stored for everyone whom the system lets write them.

// Opens the settings of a printer. `printer` is from the spooler's OpenPrinter and must stay open
// until the settings are closed. Null if memory is short.
ZPLUI_API HANDLE WINAPI DAL_Printer_Open(HANDLE printer);

// Saves the settings and closes them.
ZPLUI_API void WINAPI DAL_Printer_Close(HANDLE settings);

// The first reads the stored settings again, the second stores those that have changed since.
// Stocks that are not stored yet stay in the list when it is read, but no longer count as a change:
// save first. On a connection whose server shares its settings, they are fetched from there before
// reading, and sent there after storing.
//
// After DAL_Settings_Save, GetLastError is NO_ERROR, or ERROR_WRITE_FAULT if not everything could
// be stored.
ZPLUI_API void WINAPI DAL_Settings_Load(HANDLE settings);
ZPLUI_API void WINAPI DAL_Settings_Save(HANDLE settings);

// Contents of settings files; any of these together.
#define DAL_SETTINGS_STOCKS 0x001
#define DAL_SETTINGS_PRESETS 0x002
#define DAL_SETTINGS_BAR_FONTS 0x004
#define DAL_SETTINGS_RFID_FONTS 0x008
#define DAL_SETTINGS_OPTIONS 0x100 // the settings of the driver

// Writes the contents to a settings file, replacing an existing one. If it cannot be written
// completely, the old file stays; there is no other sign of the failure.
ZPLUI_API void WINAPI DAL_Settings_Export(HANDLE settings, LPCWSTR file, int contents);

// Adds the contents of a settings file, or of a binary file of old drivers, to the settings,
// replacing those of the same names. They are stored when the settings are saved. Options take
// effect at once, and only those for the printer's own model are taken. A file that is missing or
// of another kind changes nothing.
ZPLUI_API void WINAPI DAL_Settings_Import(HANDLE settings, LPCWSTR file, int contents);

// ---- Telling the printer what to do -------------------------------------------------------------
//
// Actions have the numbers 1 to DAL_ACTION_LAST, with gaps. Each is one thing that the printer can
// be told to do, as in the printer's properties.

#define DAL_ACTION_SEND_FILE 22
#define DAL_ACTION_MEMORY 32
#define DAL_ACTION_POWER_MANAGEMENT 46
#define DAL_ACTION_LAST 48

// How an action is offered.
#define DAL_ACTION_OFFERED 1
#define DAL_ACTION_OPENS_DIALOG 2
#define DAL_ACTION_ADMINISTRATIVE 4 // only for users with the printer's access level

// The sum of these for an action, with the current printer and settings; 0 for one that is not
// offered. Some answers depend on the port, about which the status monitor is asked each time.
ZPLUI_API DWORD WINAPI DAL_Action_Supported(HANDLE settings, int action);

// The name of an action in the user's language. As much of it as fits is stored in `name`, which
// has room for `size` characters including the terminator. Answers the length of the whole name, or
// 0 if the action has no name.
ZPLUI_API int WINAPI DAL_Action_Name(HANDLE settings, int action, LPWSTR name, int size);

// Runs an action, in a job of its own. `choice` is for the following actions, which would open a
// dialog, and names the choice made there. Other actions ignore it:
//
//   DAL_ACTION_SEND_FILE         the file's full path
//   DAL_ACTION_MEMORY            what to do, and the letter of one of the printer's memories:
//                                "format E", "erase E" (its files), "print E" (a list of its
//                                files), "reset E" (the optional memory; the driver forgets what
//                                it has stored in the memory of that letter)
//   DAL_ACTION_POWER_MANAGEMENT  "discharge" (the battery), or settings: "sleep=300" (after so many
//                                seconds, at most 999999) or "sleep=off", "forced=yes" (with labels
//                                still to print, too) or "forced=no", "low-voltage-pause=yes" or
//                                "...=no", separated by blanks. They are stored and sent; those
//                                that are not named stay as they were
//
// FALSE if nothing was done: for an action that is not offered or not for this user, for any other
// action that opens a dialog, and for a choice that is missing or makes no sense, such as a file
// that does not exist. There is no sign of whether the printer could be reached; the job shows in
// the spooler.
ZPLUI_API BOOL WINAPI DAL_Action_Run(HANDLE settings, int action, LPCWSTR choice);

// ---- Asking the printer -------------------------------------------------------------------------

// What to ask; any of these together, but only one of the two lists of files.
#define DAL_QUERY_IDENTIFICATION 1 // model, firmware, resolution, memory, options
#define DAL_QUERY_STATUS 2         // communication settings, errors and modes
#define DAL_QUERY_MEMORY 4
#define DAL_QUERY_FILES 8           // every stored file
#define DAL_QUERY_FONTS 16          // stored fonts
#define DAL_QUERY_CONFIGURATION 512 // the lines of the printer's configuration label
// Asked for, and left in the registry as received: the printer's settings and files as XML. They
// stay only until the next query of any program on this machine.
#define DAL_QUERY_XML_FORMAT 32
#define DAL_QUERY_XML_DIRECTORY 64
#define DAL_QUERY_XML_STATUS 128
#define DAL_QUERY_XML_ALL 256

// Kinds of answers.
#define DAL_ANSWER_PROPERTY 0      // a value under its name: "Model", "Head-Up", ...
#define DAL_ANSWER_FILE 1          // "E:LOGO.GRF;1234;P": device and name, bytes, flags
#define DAL_ANSWER_CONFIGURATION 2 // "PRINT WIDTH@832": a label and its value

// Receives one answer. `context` is the caller's; `name` is null except for a property. The texts
// are valid only during the call.
typedef void(WINAPI* DAL_QUERY_ANSWER)(void* context, int kind, const WCHAR* name,
                                       const WCHAR* value);

// Asks the printer and hands over its answers: properties, then files, then configuration. It needs
// a job on the printer, which is gone afterwards, and the status monitor beside this module, and
// waits for the printer. If another query is under way on this machine, it waits for that first.
// FALSE, without any answer, if `answer` is null, `questions` asks nothing, the printer's port has
// no way back or the printer cannot be asked. A question that was not answered, or not
// intelligibly, is left out.
ZPLUI_API BOOL WINAPI DAL_Query_Run(HANDLE settings, int questions, DAL_QUERY_ANSWER answer,
                                    void* context);

// ---- Fonts in the printer's memory --------------------------------------------------------------
//
// TrueType fonts of the system that are stored in the printer, as font files or as pictures of
// their characters. The driver keeps a list of those that it has sent and those that it has found.

#define DAL_FONT_FOUND 0    // another host has sent it
#define DAL_FONT_TRUETYPE 1 // the font's file
#define DAL_FONT_BITMAP 2   // pictures in one size

#define DAL_FONT_SENT 0 // it is not known whether the printer has it
#define DAL_FONT_PRESENT 1
#define DAL_FONT_MISSING 2

// Character sets for bitmap fonts.
#define DAL_CHARACTERS_ALL 1910
#define DAL_CHARACTERS_ASCII 1911
#define DAL_CHARACTERS_CAPITALS_NUMBERS 1912
#define DAL_CHARACTERS_CAPITALS_PUNCTUATION 1913
#define DAL_CHARACTERS_CAPITALS 1914
#define DAL_CHARACTERS_NUMBERS 1915
#define DAL_CHARACTERS_AMOUNTS 1916
#define DAL_CHARACTERS_CAPITALS_NUMBERS_PUNCTUATION 1917

// A font of the list. Texts are terminated and padded with zeros.
typedef struct DAL_FONT {
    DWORD kind;       // DAL_FONT_FOUND, ...
    DWORD status;     // DAL_FONT_SENT, ...
    DWORD point_size; // tenths of a point, for bitmaps; else 0
    DWORD characters; // DAL_CHARACTERS_, for bitmaps; else 0
    DWORD bytes;      // of the file or of all pictures
    WCHAR memory;     // its letter: 'E'
    WCHAR identifier; // the letter or digit by which formats call the font, or 0
    WCHAR file[32];   // its name in the memory: "ARIAL.FNT"
    WCHAR name[64];   // the name that people know
    LOGFONTW font;    // the system's font: lfFaceName, lfWeight, lfItalic and lfCharSet
} DAL_FONT;

// Stores the first fonts of the list, at most `count`. Answers how many there are in all; `fonts`
// may be null.
ZPLUI_API int WINAPI DAL_Fonts_List(HANDLE settings, DAL_FONT* fonts, int count);

// Asks the printer which fonts it has. Those of the list become present or missing; others are
// added to it. The list is stored. FALSE, with the list unchanged, if the printer cannot be asked;
// if the list cannot be stored; and if this user may not do it.
ZPLUI_API BOOL WINAPI DAL_Fonts_Verify(HANDLE settings);

// Sends every font again that is not known to be present, each in a job of its own, and stores the
// list. FALSE, with the last error ERROR_BAD_LENGTH, if some were left out because their characters
// are too large to be sent at the printer's resolution; if the list cannot be stored; and if this
// user may not do it.
ZPLUI_API BOOL WINAPI DAL_Fonts_Resend(HANDLE settings);

// Sends a font of the system to the printer in a job of its own, adds it to the list and stores
// that. `kind` and `font` say what to send; for DAL_FONT_BITMAP also `point_size` (40 to 1440) and
// `characters` (0 for all). `memory` 0 is the model's usual one. `file` is a name without
// extension, of which eight characters are used; if it is empty a name is made up. The rest is
// filled in. FALSE, with nothing kept, if the system has no such font, the model takes no fonts of
// that kind or has no such memory, the size, the characters or the name are invalid (letters,
// digits and "_" are valid), no job can be made, or this user may not do it; with the last error
// ERROR_BAD_LENGTH, and nothing sent, if a bitmap font's characters are too large (65535 bytes
// each) at the printer's resolution. Also FALSE if the list cannot be stored, although the printer
// then has the font. A font in a file of the same name is replaced.
ZPLUI_API BOOL WINAPI DAL_Font_Download(HANDLE settings, DAL_FONT* font);

// Makes the printer delete a font and removes it from the list, which is stored. `index` is its
// place in the list, from 0. FALSE if there is none, if the list cannot be stored, and if this user
// may not do it.
ZPLUI_API BOOL WINAPI DAL_Font_Delete(HANDLE settings, int index);

// ---- Codecs and checksums -----------------------------------------------------------------------
//
// Input and output are raw bytes. A pointer may be null if its length is 0.

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
// room in `out`, for which size + (size + 999) / 1000 + 24 bytes are always enough, and receives
// the container's length. FALSE if there is too little room; `out` and `length` are then undefined.
ZPLUI_API BOOL WINAPI X16_LZ77_Encode(const void* in, uint32_t size, void* out, uint32_t* length);

// Decompresses a container. `length` is the room in `out` and receives the uncompressed length.
// FALSE if the container is damaged or its contents do not fit.
ZPLUI_API BOOL WINAPI X16_LZ77_Decode(const void* in, uint32_t size, void* out, uint32_t* length);

// CRC-16, polynomial 0x1021, most significant bit first: with seed 0 the checksum known as XMODEM,
// with 0xFFFF CCITT-FALSE. Pieces can be chained: the checksum of one is the seed of the next.
ZPLUI_API uint16_t WINAPI X16_CRC16(const void* data, uint32_t size, uint16_t seed);

// CRC-32, polynomial 0x04C11DB7, most significant bit first, complemented at both ends: with seed 0
// the checksum known as BZIP2. Pieces can be chained as above.
ZPLUI_API uint32_t WINAPI X16_CRC32(const void* data, uint32_t size, uint32_t seed);

// ---- Dithering ----------------------------------------------------------------------------------
//
// Reduces an image of 24-bit pixels (blue, green, red; rows packed, top row first), in place, to
// black and white, to a palette or to colours whose channels are on or off. The image and the
// settings are in a record that the caller fills in. All fields are little-endian and 32 bits wide
// unless stated otherwise. Offsets are those of 32-bit systems; 64-bit ones add 4 from the width on
// (and 4 bytes at the end):
//
//     0  pointer to the pixels
//     4  width, at most 32767       8  height, at most 32767      12  row size, ignored
//    16  palette, 16 entries of red, green, blue and an unused byte
//    80  number of entries in use, 1..16
//    84  colour mode: 0 monochrome, 1 palette, 2 on or off, 3 and 4 the same with black as index 1
//    88  0: colours go into all three bytes; else: a colour index goes into the first byte (1
//        white, 0 black in mode 0; the entry in mode 1; else 2 magenta + 4 cyan + 8 yellow ink)
//    92  output: the palette entry nearest to the last pixel that was looked up, or -1
//    96  output: the second nearest entry with another value, or -1
//   100  column and            104  row of the pattern that the image's first pixel meets
//   108  twelve 16-bit numbers: algorithm (0 none, 1 ordered dispersed-dot, 2 ordered
//        clustered-dot, 3 algebraic, 4 and 5 error diffusion); brightness, contrast, red, green,
//        blue (-100..100); dispersed-dot matrix (0..2: 2, 4, 8 square), clustered-dot matrix
//        (0..3: 2, 4, 6, 8 square); diffusion kernel (0 Floyd-Steinberg, 1 Jarvis); algebraic
//        sequence (0..19); flags (1 mirror left to right, 2 mirror top to bottom, 4 invert);
//        reserved
//
// Values outside their ranges never lead outside the image. A null record, one without pixels and
// one with an impossible size are left alone.
struct ImageDither;

// Adjusts the colours, mirrors and dithers.
ZPLUI_API void WINAPI X16_ImageDither_Dither(struct ImageDither* record);

// Makes a preview for a screen: dithers at twice the size, ignoring the origin of the pattern, and
// averages each block of 2 x 2 pixels. Needs memory for the larger image, whose sides are at most
// 32767 as well; leaves the image alone if it cannot be made.
ZPLUI_API void WINAPI X16_ImageDither_DitherSmooth(struct ImageDither* record);

// ---- For the 16-bit driver ----------------------------------------------------------------------

// Shows property sheets for the driver of a 16-bit system, in a process that the driver starts for
// it (as by "rundll32 zplui.dll,X16_DocumentProperties CHANNEL"), and returns when they are closed.
// The other arguments are not used.
//
// `channel` is the title of a window of the class "X16_Channel" that the driver has made; without
// one, nothing is done. What to show is below the key X16\CHANNEL of the driver's machine-wide
// settings: "Printer" (text); "DevMode 16" (binary, a DEVMODEA; the printer's own settings without
// it); and three bytes, 0 if missing: "Default DevMode" (the printer's defaults are edited, and its
// device pages are there as well), "Advanced Setup" (leaves the page setup out) and "Properties"
// (the sheet of the printer, side by side with the driver's own sheet, instead of a sheet that
// stands alone). For a sheet side by side, X16\Launch has "Template Count" and the 16-bit dialog
// templates "Template0" and so on, of which the driver makes the tabs for the module's pages.
//
// The window is sent WM_USER + 1 at the start. Each time that changed settings are applied, they
// are stored as "DevMode 32" (binary, a DEVMODEW) and WM_USER + 2 is posted, with 1 for defaults
// and 0 for other settings. WM_USER + 3, with 2, is posted at the end, also if no sheet could be
// shown.
ZPLUI_API void WINAPI X16_DocumentProperties(HWND window, HINSTANCE instance, char* channel,
                                             int show);

#ifdef __cplusplus
}
#endif

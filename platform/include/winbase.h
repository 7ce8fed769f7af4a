// Files, modules, memory, time, critical sections and errors.
//
// Functions that fail answer FALSE, null, 0 or the value given with them, and GetLastError says
// why.
#pragma once

#include <windef.h>
#include <winnt.h>

// ---- Constants ----------------------------------------------------------------------------------

#define INVALID_HANDLE_VALUE ((HANDLE)(LONG_PTR)(-1))
#define INVALID_FILE_SIZE 0xFFFFFFFF
#define INVALID_SET_FILE_POINTER 0xFFFFFFFF
#define INVALID_FILE_ATTRIBUTES 0xFFFFFFFF
#define HFILE_ERROR (-1)

// What to do if a file exists, or does not.
#define CREATE_NEW 1
#define CREATE_ALWAYS 2
#define OPEN_EXISTING 3
#define OPEN_ALWAYS 4
#define TRUNCATE_EXISTING 5

// Rights besides the generic ones, what others may do meanwhile, and the kinds of file.
#define FILE_READ_DATA 0x0001
#define FILE_WRITE_DATA 0x0002
#define FILE_APPEND_DATA 0x0004
#define FILE_SHARE_READ 0x00000001
#define FILE_SHARE_WRITE 0x00000002
#define FILE_SHARE_DELETE 0x00000004
#define FILE_ATTRIBUTE_READONLY 0x00000001
#define FILE_ATTRIBUTE_HIDDEN 0x00000002
#define FILE_ATTRIBUTE_SYSTEM 0x00000004
#define FILE_ATTRIBUTE_DIRECTORY 0x00000010
#define FILE_ATTRIBUTE_ARCHIVE 0x00000020
#define FILE_ATTRIBUTE_NORMAL 0x00000080
#define FILE_ATTRIBUTE_TEMPORARY 0x00000100

#define FILE_BEGIN 0
#define FILE_CURRENT 1
#define FILE_END 2

#define FILE_FLAG_WRITE_THROUGH 0x80000000
#define FILE_FLAG_RANDOM_ACCESS 0x10000000
#define FILE_FLAG_SEQUENTIAL_SCAN 0x08000000
#define FILE_FLAG_DELETE_ON_CLOSE 0x04000000
#define FILE_FLAG_BACKUP_SEMANTICS 0x02000000

#define MOVEFILE_REPLACE_EXISTING 0x00000001
#define MOVEFILE_COPY_ALLOWED 0x00000002
#define MOVEFILE_WRITE_THROUGH 0x00000008

#define OF_READ 0x0000
#define OF_EXIST 0x4000
#define OFS_MAXPATHNAME 128

#define GMEM_FIXED 0x0000
#define GMEM_MOVEABLE 0x0002
#define GMEM_ZEROINIT 0x0040
#define GHND (GMEM_MOVEABLE | GMEM_ZEROINIT)
#define GPTR (GMEM_FIXED | GMEM_ZEROINIT)
#define LMEM_FIXED 0x0000
#define LMEM_MOVEABLE 0x0002
#define LMEM_ZEROINIT 0x0040
#define LPTR (LMEM_FIXED | LMEM_ZEROINIT)
#define HEAP_ZERO_MEMORY 0x00000008

#define INFINITE 0xFFFFFFFFu
#define WAIT_OBJECT_0 0u
#define WAIT_ABANDONED 0x80u
#define WAIT_TIMEOUT 258u
#define WAIT_FAILED 0xFFFFFFFFu

#define DLL_PROCESS_ATTACH 1
#define DLL_PROCESS_DETACH 0

#define DONT_RESOLVE_DLL_REFERENCES 0x00000001
#define LOAD_LIBRARY_AS_DATAFILE 0x00000002
#define LOAD_WITH_ALTERED_SEARCH_PATH 0x00000008

// ---- Structures ---------------------------------------------------------------------------------

typedef struct SECURITY_ATTRIBUTES {
    DWORD nLength;
    LPVOID lpSecurityDescriptor;
    BOOL bInheritHandle;
} SECURITY_ATTRIBUTES;
typedef SECURITY_ATTRIBUTES* PSECURITY_ATTRIBUTES;
typedef SECURITY_ATTRIBUTES* LPSECURITY_ATTRIBUTES;

typedef struct OVERLAPPED {
    ULONG_PTR Internal;
    ULONG_PTR InternalHigh;
    DWORD Offset;
    DWORD OffsetHigh;
    HANDLE hEvent;
} OVERLAPPED;
typedef OVERLAPPED* LPOVERLAPPED;

typedef struct SYSTEMTIME {
    WORD wYear;
    WORD wMonth;
    WORD wDayOfWeek;
    WORD wDay;
    WORD wHour;
    WORD wMinute;
    WORD wSecond;
    WORD wMilliseconds;
} SYSTEMTIME;
typedef SYSTEMTIME* LPSYSTEMTIME;
static_assert(sizeof(SYSTEMTIME) == 16, "layout");

// A lock that the thread holding it may enter again. Only the functions use the contents.
typedef struct CRITICAL_SECTION {
    alignas(8) BYTE state[48];
} CRITICAL_SECTION;
typedef CRITICAL_SECTION* LPCRITICAL_SECTION;

typedef struct WIN32_FIND_DATAW {
    DWORD dwFileAttributes;
    FILETIME ftCreationTime;
    FILETIME ftLastAccessTime;
    FILETIME ftLastWriteTime;
    DWORD nFileSizeHigh;
    DWORD nFileSizeLow;
    DWORD dwReserved0;
    DWORD dwReserved1;
    WCHAR cFileName[MAX_PATH];
    WCHAR cAlternateFileName[14];
} WIN32_FIND_DATAW;
typedef WIN32_FIND_DATAW* LPWIN32_FIND_DATAW;
static_assert(sizeof(WIN32_FIND_DATAW) == 592, "layout");

#define DRIVE_UNKNOWN 0
#define DRIVE_NO_ROOT_DIR 1
#define DRIVE_REMOVABLE 2
#define DRIVE_FIXED 3
#define DRIVE_REMOTE 4
#define DRIVE_CDROM 5
#define DRIVE_RAMDISK 6

// Sizes in bytes. Those of page files and address spaces are 0 here.
typedef struct MEMORYSTATUSEX {
    DWORD dwLength;     // the caller's
    DWORD dwMemoryLoad; // in percent
    DWORDLONG ullTotalPhys;
    DWORDLONG ullAvailPhys;
    DWORDLONG ullTotalPageFile;
    DWORDLONG ullAvailPageFile;
    DWORDLONG ullTotalVirtual;
    DWORDLONG ullAvailVirtual;
    DWORDLONG ullAvailExtendedVirtual;
} MEMORYSTATUSEX;
static_assert(sizeof(MEMORYSTATUSEX) == 64, "layout");

typedef struct MEMORYSTATUS {
    DWORD dwLength;
    DWORD dwMemoryLoad;
    SIZE_T dwTotalPhys;
    SIZE_T dwAvailPhys;
    SIZE_T dwTotalPageFile;
    SIZE_T dwAvailPageFile;
    SIZE_T dwTotalVirtual;
    SIZE_T dwAvailVirtual;
} MEMORYSTATUS;

typedef struct OFSTRUCT {
    BYTE cBytes;
    BYTE fFixedDisk;
    WORD nErrCode;
    WORD Reserved1;
    WORD Reserved2;
    CHAR szPathName[OFS_MAXPATHNAME];
} OFSTRUCT;
typedef OFSTRUCT* LPOFSTRUCT;
static_assert(sizeof(OFSTRUCT) == 136, "layout");

// The setup of a serial port.
typedef struct DCB {
    DWORD DCBlength;
    DWORD BaudRate;
    DWORD fBinary : 1;
    DWORD fParity : 1;
    DWORD fOutxCtsFlow : 1; // waits for CTS, for DSR
    DWORD fOutxDsrFlow : 1;
    DWORD fDtrControl : 2;
    DWORD fDsrSensitivity : 1;
    DWORD fTXContinueOnXoff : 1;
    DWORD fOutX : 1; // waits while Xoff was received; sends Xoff when its own buffer is full
    DWORD fInX : 1;
    DWORD fErrorChar : 1;
    DWORD fNull : 1;
    DWORD fRtsControl : 2;
    DWORD fAbortOnError : 1;
    DWORD fDummy2 : 17;
    WORD wReserved;
    WORD XonLim;
    WORD XoffLim;
    BYTE ByteSize; // data bits
    BYTE Parity;
    BYTE StopBits;
    char XonChar;
    char XoffChar;
    char ErrorChar;
    char EofChar;
    char EvtChar;
    WORD wReserved1;
} DCB;
static_assert(sizeof(DCB) == 28, "layout");

#define NOPARITY 0
#define ODDPARITY 1
#define EVENPARITY 2
#define MARKPARITY 3
#define SPACEPARITY 4
#define ONESTOPBIT 0
#define ONE5STOPBITS 1
#define TWOSTOPBITS 2
#define RTS_CONTROL_HANDSHAKE 2

typedef struct COMMCONFIG {
    DWORD dwSize;
    WORD wVersion;
    WORD wReserved;
    DCB dcb;
    DWORD dwProviderSubType;
    DWORD dwProviderOffset;
    DWORD dwProviderSize;
    WCHAR wcProviderData[1];
} COMMCONFIG;
typedef COMMCONFIG* LPCOMMCONFIG;
static_assert(sizeof(COMMCONFIG) == 52, "layout");

#pragma GCC visibility push(default)
WIN32HOST_BEGIN_C

// ---- Errors -------------------------------------------------------------------------------------

// The calling thread's last error.
DWORD WINAPI GetLastError();
void WINAPI SetLastError(DWORD code);

// ---- Memory -------------------------------------------------------------------------------------

// The machine's memory. The older function tells of no more than its fields can hold.
BOOL WINAPI GlobalMemoryStatusEx(MEMORYSTATUSEX* status);
void WINAPI GlobalMemoryStatus(MEMORYSTATUS* status);

// A block of `size` bytes, aligned for any type. The handle is the block's address whether or not
// it was asked for as moveable; a moveable block counts its locks.
HGLOBAL WINAPI GlobalAlloc(UINT flags, SIZE_T size);
LPVOID WINAPI GlobalLock(HGLOBAL memory);
// FALSE when the last lock is released (GetLastError is then NO_ERROR) or the block was not locked
// (ERROR_NOT_LOCKED); always TRUE for a fixed block.
BOOL WINAPI GlobalUnlock(HGLOBAL memory);
SIZE_T WINAPI GlobalSize(HGLOBAL memory);
// Null if the block was freed; also for a null handle.
HGLOBAL WINAPI GlobalFree(HGLOBAL memory);
HLOCAL WINAPI LocalAlloc(UINT flags, SIZE_T size);
HLOCAL WINAPI LocalFree(HLOCAL memory);

HANDLE WINAPI GetProcessHeap();
LPVOID WINAPI HeapAlloc(HANDLE heap, DWORD flags, SIZE_T size);
BOOL WINAPI HeapFree(HANDLE heap, DWORD flags, LPVOID memory);

// ---- Time ---------------------------------------------------------------------------------------

// number * numerator / denominator with 64 bits in between, rounded to nearest, halves away from
// zero; -1 if the denominator is 0 or the result has more than 32 bits.
int WINAPI MulDiv(int number, int numerator, int denominator);

// Milliseconds since the machine started; starts again at 0 after 49.7 days.
DWORD WINAPI GetTickCount();
void WINAPI Sleep(DWORD milliseconds);
void WINAPI GetLocalTime(LPSYSTEMTIME time);
void WINAPI GetSystemTime(LPSYSTEMTIME time);

// ---- Critical sections --------------------------------------------------------------------------

void WINAPI InitializeCriticalSection(LPCRITICAL_SECTION section);
void WINAPI EnterCriticalSection(LPCRITICAL_SECTION section);
BOOL WINAPI TryEnterCriticalSection(LPCRITICAL_SECTION section);
void WINAPI LeaveCriticalSection(LPCRITICAL_SECTION section);
void WINAPI DeleteCriticalSection(LPCRITICAL_SECTION section);

// ---- Mutexes ------------------------------------------------------------------------------------

// A named mutex, not owned at first. Those of the same name exclude each other in all processes of
// this host. Null without a name, and if it is to be owned at once. Closing the handle releases it.
HANDLE WINAPI CreateMutexW(LPSECURITY_ATTRIBUTES security, BOOL owned, LPCWSTR name);
// For mutexes only: WAIT_OBJECT_0, WAIT_TIMEOUT or WAIT_FAILED. The owner of one must not wait for
// it through another handle. If the owner's process ends, the mutex is free.
DWORD WINAPI WaitForSingleObject(HANDLE object, DWORD milliseconds);
BOOL WINAPI ReleaseMutex(HANDLE mutex);

// ---- Open files ---------------------------------------------------------------------------------

// INVALID_HANDLE_VALUE on failure. With CREATE_ALWAYS and OPEN_ALWAYS the last error is
// ERROR_ALREADY_EXISTS if the file existed and NO_ERROR if it was made. The share mode binds all
// processes of this host.
HANDLE WINAPI CreateFileW(LPCWSTR name, DWORD access, DWORD share, LPSECURITY_ATTRIBUTES security,
                          DWORD disposition, DWORD flags_and_attributes, HANDLE template_file);
// At the end of the file the answer is TRUE with 0 bytes. With `overlapped` it reads at that
// offset, and fails with ERROR_HANDLE_EOF at the end.
BOOL WINAPI ReadFile(HANDLE file, LPVOID buffer, DWORD size, LPDWORD read, LPOVERLAPPED overlapped);
BOOL WINAPI WriteFile(HANDLE file, LPCVOID buffer, DWORD size, LPDWORD written,
                      LPOVERLAPPED overlapped);
// The low half of the new position, INVALID_SET_FILE_POINTER on failure. A null `distance_high`
// makes `distance` a signed 32-bit number.
DWORD WINAPI SetFilePointer(HANDLE file, LONG distance, PLONG distance_high, DWORD method);
BOOL WINAPI SetEndOfFile(HANDLE file);
// The low half of the size; INVALID_FILE_SIZE, with a last error other than NO_ERROR, on failure.
DWORD WINAPI GetFileSize(HANDLE file, LPDWORD size_high);
BOOL WINAPI FlushFileBuffers(HANDLE file);
// Closes files, tokens and the other objects of the system's core; searches and printers have
// closing functions of their own.
BOOL WINAPI CloseHandle(HANDLE object);

// ---- Files and folders by name ------------------------------------------------------------------

BOOL WINAPI DeleteFileW(LPCWSTR name);
BOOL WINAPI MoveFileExW(LPCWSTR from, LPCWSTR to, DWORD flags);
BOOL WINAPI CopyFileW(LPCWSTR from, LPCWSTR to, BOOL fail_if_exists);
// INVALID_FILE_ATTRIBUTES on failure.
DWORD WINAPI GetFileAttributesW(LPCWSTR name);
// Only FILE_ATTRIBUTE_READONLY is kept.
BOOL WINAPI SetFileAttributesW(LPCWSTR name, DWORD attributes);
BOOL WINAPI CreateDirectoryW(LPCWSTR name, LPSECURITY_ATTRIBUTES security);
BOOL WINAPI RemoveDirectoryW(LPCWSTR name);

// Searches a folder for names that match the last component ('*' and '?').
// INVALID_HANDLE_VALUE and ERROR_FILE_NOT_FOUND if nothing matches; FindNextFileW ends with
// ERROR_NO_MORE_FILES.
HANDLE WINAPI FindFirstFileW(LPCWSTR pattern, LPWIN32_FIND_DATAW data);
BOOL WINAPI FindNextFileW(HANDLE search, LPWIN32_FIND_DATAW data);
BOOL WINAPI FindClose(HANDLE search);

// Only the existence test (OF_EXIST), with a name in the ANSI code page: HFILE_ERROR if there is no
// such file, else a number that is not an open file. `info` receives the full name.
HFILE WINAPI OpenFile(LPCSTR name, LPOFSTRUCT info, UINT style);

// These answer the length without the terminator, or the size to provide, terminator included,
// when `size` characters are too few.
DWORD WINAPI GetTempPathW(DWORD size, LPWSTR path);
DWORD WINAPI GetFullPathNameW(LPCWSTR name, DWORD size, LPWSTR path, LPWSTR* file_part);
DWORD WINAPI GetCurrentDirectoryW(DWORD size, LPWSTR path);
UINT WINAPI GetSystemDirectoryW(LPWSTR path, UINT size);
UINT WINAPI GetWindowsDirectoryW(LPWSTR path, UINT size);
// The value of an environment variable of the process, or of those that Windows sets about the
// processor. 0 with ERROR_ENVVAR_NOT_FOUND if there is none.
DWORD WINAPI GetEnvironmentVariableW(LPCWSTR name, LPWSTR buffer, DWORD size);

// The kind of a drive (DRIVE_), by its root ("C:\") or, for null, of the current one.
UINT WINAPI GetDriveTypeW(LPCWSTR root);

// Makes "PATH\PREnnnn.TMP" from three characters of the prefix and a number. With `unique` 0 an
// unused number is chosen and the file is created. Answers the number; `name` has room for
// MAX_PATH.
UINT WINAPI GetTempFileNameW(LPCWSTR path, LPCWSTR prefix, UINT unique, LPWSTR name);

// ---- Private profiles ---------------------------------------------------------------------------

// Reads one value. A null key lists the section's keys, a null section lists the sections; each
// name is ended by a zero and the list by another. A file name without a folder is in the Windows
// folder. Answers the number of characters copied without the last terminator; `size` - 1 (lists:
// `size` - 2) if the text was cut.
DWORD WINAPI GetPrivateProfileStringW(LPCWSTR section, LPCWSTR key, LPCWSTR fallback, LPWSTR text,
                                      DWORD size, LPCWSTR file);
// A null text deletes the key; a null key deletes the section.
BOOL WINAPI WritePrivateProfileStringW(LPCWSTR section, LPCWSTR key, LPCWSTR text, LPCWSTR file);

// ---- Modules and resources ----------------------------------------------------------------------

// Loads an ELF library (and calls its DllInitialize, else its DllMain) or a PE file, of which only
// the resources can be used. A module that is already loaded has the same handle, counted once
// more.
HMODULE WINAPI LoadLibraryW(LPCWSTR name);
HMODULE WINAPI LoadLibraryExW(LPCWSTR name, HANDLE file, DWORD flags);
BOOL WINAPI FreeLibrary(HMODULE module);
FARPROC WINAPI GetProcAddress(HMODULE module, LPCSTR name);
// A loaded module by its name, or the program itself for null; not counted.
HMODULE WINAPI GetModuleHandleW(LPCWSTR name);
// The full name of the module's file, or of the program's for null. A name that does not fit is cut
// and terminated; the answer is then `size` and the error ERROR_INSUFFICIENT_BUFFER.
DWORD WINAPI GetModuleFileNameW(HMODULE module, LPWSTR name, DWORD size);
DWORD WINAPI GetModuleFileNameA(HMODULE module, LPSTR name, DWORD size);

// `type` and `name` are texts, "#123" or MAKEINTRESOURCEW(123).
HRSRC WINAPI FindResourceW(HMODULE module, LPCWSTR name, LPCWSTR type);
HRSRC WINAPI FindResourceExW(HMODULE module, LPCWSTR type, LPCWSTR name, WORD language);
// The resource's bytes stay where they are until the module is freed.
HGLOBAL WINAPI LoadResource(HMODULE module, HRSRC resource);
LPVOID WINAPI LockResource(HGLOBAL resource);
DWORD WINAPI SizeofResource(HMODULE module, HRSRC resource);
// Names every resource of a type, as MAKEINTRESOURCEW(123) or a text, until the function answers
// FALSE. FALSE if it did, and if there is no resource of the type.
typedef BOOL(CALLBACK* ENUMRESNAMEPROCW)(HMODULE module, LPCWSTR type, LPWSTR name,
                                         LONG_PTR parameter);
BOOL WINAPI EnumResourceNamesW(HMODULE module, LPCWSTR type, ENUMRESNAMEPROCW function,
                               LONG_PTR parameter);

// ---- Serial ports and programs ------------------------------------------------------------------

// How the user has set up a serial port ("COM1"). `*size` is the room in `config` and receives the
// size that is needed. FALSE with ERROR_INSUFFICIENT_BUFFER if that is more, and with
// ERROR_FILE_NOT_FOUND if there is no such port.
BOOL WINAPI GetDefaultCommConfigW(LPCWSTR name, LPCOMMCONFIG config, LPDWORD size);

// Runs a program. Answers a number greater than 31, or an error code. This host has one program,
// rundll32.exe, and what it is told to call runs before the function returns.
UINT WINAPI WinExec(LPCSTR command_line, UINT show);

WIN32HOST_END_C
#pragma GCC visibility pop

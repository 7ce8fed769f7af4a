// The system's dialog for folders.
#pragma once

#include <windows.h>

#include <objbase.h>

#pragma pack(push, 1)
typedef struct SHITEMID {
    USHORT cb;
    BYTE abID[1];
} SHITEMID;
typedef struct ITEMIDLIST {
    SHITEMID mkid;
} ITEMIDLIST;
#pragma pack(pop)
// A folder's place among all others. Freed with CoTaskMemFree or ILFree.
typedef ITEMIDLIST* LPITEMIDLIST;
typedef const ITEMIDLIST* LPCITEMIDLIST;
typedef ITEMIDLIST* PIDLIST_ABSOLUTE;
typedef const ITEMIDLIST* PCIDLIST_ABSOLUTE;

#define BIF_RETURNONLYFSDIRS 0x0001
#define BIF_STATUSTEXT 0x0004
#define BIF_EDITBOX 0x0010
#define BIF_NEWDIALOGSTYLE 0x0040

// What a dialog tells its callback, and what that may send to it.
#define BFFM_INITIALIZED 1
#define BFFM_SELCHANGED 2
#define BFFM_ENABLEOK (WM_USER + 101)
#define BFFM_SETSELECTIONW (WM_USER + 103)

typedef int(CALLBACK* BFFCALLBACK)(HWND dialog, UINT message, LPARAM parameter, LPARAM data);

typedef struct BROWSEINFOW {
    HWND hwndOwner;
    PCIDLIST_ABSOLUTE pidlRoot; // not looked at: all folders are offered
    LPWSTR pszDisplayName;      // receives the folder's name, up to MAX_PATH units; may be null
    LPCWSTR lpszTitle;          // a text above the folders
    UINT ulFlags;               // BIF_
    BFFCALLBACK lpfn;           // may be null
    LPARAM lParam;              // for it
    int iImage;
} BROWSEINFOW;
typedef BROWSEINFOW* LPBROWSEINFOW;

#pragma GCC visibility push(default)
WIN32HOST_BEGIN_C

// Lets the user choose a folder; null if it was cancelled, or if the thread has no user
// (win32host/user.h).
PIDLIST_ABSOLUTE WINAPI SHBrowseForFolderW(LPBROWSEINFOW request);
// The folder's path; `path` has room for MAX_PATH units.
BOOL WINAPI SHGetPathFromIDListW(PCIDLIST_ABSOLUTE folder, LPWSTR path);
void WINAPI ILFree(LPITEMIDLIST folder);

WIN32HOST_END_C
#pragma GCC visibility pop

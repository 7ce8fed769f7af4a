// Control of the host platform layer, for tests and host programs. The module never includes this.
//
// What is set here holds for the whole process until it is set again or ResetControl is called.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#pragma GCC visibility push(default)
namespace win32host {

// The root folder: everything that the host keeps (drive_c/, registry.db, spool/, servers/) lies
// below it. It is $LABELHOST_ROOT, else ~/.local/share/labelhost, until SetRoot names another.
// POSIX path without a trailing slash.
std::string Root();

// Moves the whole host to another root folder, which is created when it is missing. Open registry
// connections are left behind with the old one. No handle of the old root may be used afterwards.
void SetRoot(const std::string& folder);

// Puts everything below back to what the host is by itself.
void ResetControl();

// ---- System version -----------------------------------------------------------------------------

// What GetVersionExW answers. By itself: platform VER_PLATFORM_WIN32_NT, version 5.0, build 2195.
void SetVersion(DWORD platform, DWORD major, DWORD minor, DWORD build);

// ---- Code pages and locale ----------------------------------------------------------------------

// The code pages behind CP_ACP and CP_OEMCP; 1252 and 437 by themselves. They must be code pages
// that the host has.
void SetAnsiCodePage(UINT code_page);
void SetOemCodePage(UINT code_page);

// Code pages that the system is to lack: IsValidCodePage denies them and conversions fail.
void SetMissingCodePages(const std::vector<UINT>& code_pages);

// The user's locale as GetLocaleInfoW tells it.
struct LocaleFacts {
    bool inches = false;      // LOCALE_IMEASURE "1"
    bool leading_zero = true; // LOCALE_ILZERO "1"
    std::basic_string<WCHAR> decimal = TEXT(".");
    std::basic_string<WCHAR> thousands = TEXT(",");
    std::basic_string<WCHAR> abbreviation = TEXT("ENU"); // LOCALE_SABBREVLANGNAME
};
void SetLocaleFacts(const LocaleFacts& facts);

// Takes the facts from the environment's locale (LC_ALL, LC_NUMERIC, LANG...) again, as it is now.
void UseProcessLocale();

// ---- User and groups ----------------------------------------------------------------------------

struct Group {
    enum Kind {
        Alias,      // local group of this computer
        Builtin,    // local group that every computer has; `rid` 544 administrators, 545 users,
                    // 546 guests, 547 power users
        DomainGroup // group of `domain`
    };
    Kind kind = Alias;
    std::basic_string<WCHAR> name;
    std::basic_string<WCHAR> domain; // of a domain group only
    DWORD rid = 0; // the last number of the identifier; unique among groups of one kind
};

struct UserFacts {
    std::basic_string<WCHAR> name;
    std::basic_string<WCHAR> domain;        // the computer's name for a local account
    std::basic_string<WCHAR> computer_name; // in capitals
    std::vector<Group> groups;              // of the process token
    DWORD rid = 1000;                       // the last number of the user's identifier
};

// The user that runs the process, by itself the one that the machine knows: with the computer as
// domain, the machine's groups as local groups, always in the users group, and in the
// administrators group when root or a member of "sudo", "wheel" or "admin".
void SetUser(const UserFacts& user);
void UseProcessUser();

// ---- Message boxes ------------------------------------------------------------------------------

// What the user answers from now on. By itself a box is answered with IDOK when OK is its only
// button, else with the careful choice: IDCANCEL, or IDNO and IDABORT where there is no Cancel.
void AnswerMessageBoxes(int answer);

struct ShownMessageBox {
    HWND owner;
    std::basic_string<WCHAR> text;
    std::basic_string<WCHAR> caption;
    UINT type;
};

// The boxes shown since the last call, oldest first.
std::vector<ShownMessageBox> TakeMessageBoxes();

// ---- Programs -----------------------------------------------------------------------------------

struct StartedProgram {
    std::string command_line;
    UINT show;
};

// What WinExec was told to run since the last call, oldest first.
std::vector<StartedProgram> TakeStartedPrograms();

} // namespace win32host
#pragma GCC visibility pop

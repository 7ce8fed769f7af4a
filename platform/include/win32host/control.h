// Control of the host platform layer, for tests and host programs. The module never includes this.
//
// Settings hold for the whole process until they are set again or ResetControl is called.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#pragma GCC visibility push(default)
namespace win32host {

// The root folder, which holds everything that the host keeps (drive_c/, registry.db, spool/,
// servers/). It is $LABELHOST_ROOT, else ~/.local/share/labelhost, until SetRoot names another. A
// POSIX path without a trailing slash.
std::string Root();

// Moves the host to another root folder, which is created if it is missing. Open registry
// connections stay with the old one. No handle of the old root may be used afterwards.
void SetRoot(const std::string& folder);

// Resets everything below to the host's defaults.
void ResetControl();

// ---- System version -----------------------------------------------------------------------------

// What GetVersionExW answers. Default: platform VER_PLATFORM_WIN32_NT, version 5.0, build 2195.
void SetVersion(DWORD platform, DWORD major, DWORD minor, DWORD build);

// ---- Code pages and locale ----------------------------------------------------------------------

// The code pages behind CP_ACP and CP_OEMCP, 1252 and 437 by default. The host must have them.
void SetAnsiCodePage(UINT code_page);
void SetOemCodePage(UINT code_page);

// Code pages that the system is to lack: IsValidCodePage answers FALSE and conversions fail.
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

// Takes the facts from the environment's current locale (LC_ALL, LC_NUMERIC, LANG...) again.
void UseProcessLocale();

// ---- User and groups ----------------------------------------------------------------------------

struct Group {
    enum Kind {
        Alias,      // local group of this computer
        Builtin,    // local group that every computer has; `rid`: 544 administrators, 545 users,
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

// The user who runs the process. The default is the machine's own user, with the computer as domain
// and the machine's groups as local groups; always in the users group, and in the administrators
// group if root or a member of "sudo", "wheel" or "admin".
void SetUser(const UserFacts& user);
void UseProcessUser();

// ---- Message boxes ------------------------------------------------------------------------------

// While the thread has a user (win32host/user.h), boxes are shown as windows and answered there.
// Otherwise they are answered at once.

// What the answer is from now on. By default a box is answered with IDOK if OK is its only
// button, else with the safe choice: IDCANCEL, or IDNO or IDABORT where there is no Cancel.
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

// What programs asked the system to open.
struct SystemAct {
    enum Kind {
        Open,  // a file or an address
        Run,   // a program
        Help,  // a topic of a help file
        Folder // a folder
    };
    Kind kind = Open;
    std::basic_string<WCHAR> what;       // the file, address, program, help file or folder
    std::basic_string<WCHAR> parameters; // of a program; the topic
};

// What WinExec, ShellExecuteW and HtmlHelpW were told since the last call, oldest first.
std::vector<SystemAct> TakeSystemActs();

} // namespace win32host
#pragma GCC visibility pop

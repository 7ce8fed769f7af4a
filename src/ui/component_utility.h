// What is installed on the system, and which version of it.
#pragma once

#include <windows.h>

#include <cstdint>

#include "core/oarray.h"
#include "core/ostring.h"

class prtpage;

// Versions are texts of decimal parts: "5.82". A component is a file by its name or path, or one of
// these, in any case:
//
//   Com Control, WinSock   the system's files comctl32.dll and ws2_32.dll
//   RichEdit               riched20.dll, as the version of the control: 1.0, 2.0 or 3.0
//   HTML Help              the installed web browser, which brings it
//   Fablewick              the label design program
//
// Comparisons are 1 if what is installed is newer, 0 if it is equal as far as the required version
// goes, and -1 if it is older or not there.
class ComponentUtility {
public:
    // Texts of a file's version resource.
    struct tagProductVersionInfo {
        OString product_version;
        OString company_name;
        OString file_description;
        OString legal_copyright;
    };

    // The version of a component, or empty.
    static OString GetVersion(const OString& name);
    static int CheckVersion(const OString& name, const OString& required);
    // Whether it is at least of that version; every version is at least "0.0".
    static bool IsInstalled(const OString& name, const OString& required);

    // False, and nothing changed, if the file has no version resource with texts.
    static bool GetProductVersionInfo(const OString& file, tagProductVersionInfo* info);

    // The running system, "Windows XP", its edition and its service pack. Empty texts for a version
    // of Windows that is not known by name. A system of another kind tells its own name, and its
    // kernel as the edition.
    static void GetOSInformation(OString& name, OString& edition, OString& service_pack);

    // Tells the user of a page that a component must be updated: the text with this number, and
    // what to do about it. What the message box answers.
    static int ComponentUpdateRequired(prtpage* page, int message);
};

// The product version of a file, from the numbers or from the text in its version resource. Its
// parts are appended to `parts`, which may be null. Empty, and no parts, without the resource.
OString GetProductVersion(const OString& file, OTypedArray<int>* parts, bool from_strings);
// The same for the web browser and the label design program.
OString GetExplorerVersion(OTypedArray<int>* parts);
OString GetFablewickVersion(OTypedArray<int>* parts);

// Compare such a version with a required one. An empty required version is older than any file.
int CheckComponentVersion(const OString& file, const OString& required, bool from_strings);
int CheckExplorerVersion(const OString& required);
int CheckFablewickVersion(const OString& required);

// What GetOSInformation says of a version of Windows. Without `extended` only the fields of an
// OSVERSIONINFOW are known, and the registry tells the edition.
void DescribeSystem(const OSVERSIONINFOEXW& system, bool extended, OString& name, OString& edition,
                    OString& service_pack);

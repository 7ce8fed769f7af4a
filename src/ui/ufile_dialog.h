// The system's dialogs that open and save files.
#pragma once

#include <windows.h>

#include <cstdint>

#include "core/obuffer.h"
#include "core/ostring.h"
#include "core/ostring_array.h"
#include "registry/oregistry.h"
#include "ui/ustring_resource.h"

class UDialog;

// Asks for a file of a type, which is the dialog's title. The folder, the file's name and the
// filter that the user last chose for the type are remembered among the user's settings.
class UFileDialog {
public:
    enum Kind { OPEN = 1, SAVE = 2 };

    // Both are used by Browse; `owner` also has the texts.
    UFileDialog(UDialog& owner, ORegistry& registry, const UStringResource& type);

    // Adds a filter: the text with this number, and the pattern in parentheses after it.
    void AddFilter(int text, const char* pattern);
    // More OFN_ flags, for instance OFN_ALLOWMULTISELECT.
    void AddFlags(DWORD flags) { flags_ |= flags; }
    // What the system adds to a name without an extension: "kds".
    void SetExtension(const OString& extension) { extension_ = extension; }
    // Proposes a name in place of the last one.
    void SetName(const OString& name) { name_ = name; }

    // Shows the dialog. True if the user chose.
    bool Browse(int kind);

    // After that: the path, the paths (several only if the flags allow it), and the number of the
    // chosen filter, from 1.
    OString GetPath() const;
    void GetPaths(OStringArray& paths) const;
    int32_t GetFilter() const { return filter_; }

private:
    OString ValueName(const char* what) const;
    void ReadLast();
    void StoreLast();

    UDialog& owner_;
    ORegistry& registry_;
    OString type_;
    OStringArray filters_; // text, pattern, text...
    OString extension_;
    OString name_;
    OString folder_;
    OBuffer<WCHAR> files_; // the system's: a path, or a folder and names in it
    int32_t filter_ = 0;
    DWORD flags_ = 0;
};

// The system's dialog that chooses a folder.
#pragma once

#include "core/ostring.h"

class UDialog;

class UDirectoryDialog {
public:
    explicit UDirectoryDialog(UDialog& owner)
        : owner_(owner) {}

    // Shows the dialog with a text above the folders. True if the user chose a folder that has a
    // path.
    bool Browse(const OString& text);

    const OString& GetPath() const { return path_; }

private:
    UDialog& owner_;
    OString path_;
};

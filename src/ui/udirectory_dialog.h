// The system's dialog that chooses a folder.
#pragma once

#include "core/ostring.h"

class UDialog;

class UDirectoryDialog {
public:
    explicit UDirectoryDialog(UDialog& owner)
        : owner_(owner) {}

    // Shows the dialog with a text above the folders, and a folder chosen at first, or none if it
    // does not exist. True if the user chose a folder that has a path.
    bool Browse(const OString& text, const OString& start);

    const OString& GetPath() const { return path_; }

private:
    UDialog& owner_;
    OString path_;
};

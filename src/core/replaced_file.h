// A file that replaces another one when it is complete.
#pragma once

#include "core/ofile.h"

// The contents go into a file of its own beside the place; only Commit moves it there. Without
// that, or if something could not be written, the old file stays as it is and nothing new remains.
class ReplacedFile {
public:
    // Begins the file for the place `name`, whose folder must exist.
    explicit ReplacedFile(const OString& name);
    ~ReplacedFile();
    ReplacedFile(const ReplacedFile&) = delete;
    ReplacedFile& operator=(const ReplacedFile&) = delete;

    // The file to write to. Not open if none can be made in that folder.
    OFile& GetFile() { return file_; }

    // Closes the file and moves it to its place. False if not all of it could be written, or if the
    // place is unavailable: it is a folder, or others hold it. To be called once per object.
    bool Commit();

private:
    OString name_;
    OString aside_; // empty if there is no file there
    OFile file_;
};

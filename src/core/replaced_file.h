// A file that takes the place of another one when it is whole.
#pragma once

#include "core/ofile.h"

// What is written goes into a file of its own beside the place; only Commit moves it there. Without
// that, and when something could not be written, the file that was in the place stays as it is and
// nothing new is left.
class ReplacedFile {
public:
    // Begins the file for the place `name`; its folder must be there.
    explicit ReplacedFile(const OString& name);
    ~ReplacedFile();
    ReplacedFile(const ReplacedFile&) = delete;
    ReplacedFile& operator=(const ReplacedFile&) = delete;

    // The file to write to; not open when none can be made in that folder.
    OFile& GetFile() { return file_; }

    // Closes the file and puts it in its place. False when not all of it could be written and when
    // the place cannot be had: it is a folder, or others hold it. Once per object.
    bool Commit();

private:
    OString name_;
    OString aside_; // empty when there is no file there
    OFile file_;
};

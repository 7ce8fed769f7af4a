// The blocks of settings files.
#pragma once

#include "core/ofile.h"
#include "core/ostring.h"

// Reads the blocks of one kind in a file, from its start to its end:
//
//   <preset>
//   Name=Draft
//   </preset>
//
// Everything else in the file is passed over: lines outside these blocks, empty ones, and those
// without an equals sign or a key before it. Blanks at both ends of a line do not count.
class SettingsBlocks {
public:
    enum Line { NO_MORE, BLOCK_START, ENTRY, BLOCK_END };

    // `kind` is what stands between the angle brackets; the end repeats only its first word:
    // "font type='RFID'" ends with "</font>".
    SettingsBlocks(OFile& file, const char* kind);

    // The next line. A block that is interrupted by another one has a start but no end, as may the
    // last one.
    Line Read();

    // What an entry has before and after its first equals sign.
    const OString& Key() const { return key_; }
    const OString& Value() const { return value_; }

private:
    OFile& file_;
    const OString start_;
    const OString end_;
    bool inside_ = false;
    OString line_;
    OString key_;
    OString value_;
};

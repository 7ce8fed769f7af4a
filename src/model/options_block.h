// Options blocks: the settings of a printer as lines of text that fit every printer of its model.
//
//   <options model='MODEL'>
//   [DATA:\Settings\Status]
//   "Query Interval"=dword:000003e8
//   </options>
//
// Keys that are not below the printer's data are skipped, whoever wrote the file.
//
// Between the tags is the registry's text form, except that the path of the printer's data (in
// Windows notation, "HKEY_LOCAL_MACHINE\...") is written as "DATA:" at the start of a key.
#pragma once

#include "core/ostream.h"
#include "core/ostring.h"
#include "core/ostring_array.h"

// Writes a block of the lines from ORegistry::Export, and an empty line. `data_path` is the path of
// the printer's data.
void WriteOptionsBlock(OCore::OStream& stream, const char* model, const OStringArray& lines,
                       const OString& data_path);

// Finds the blocks of one model among the lines of a file.
class OptionsBlockReader {
public:
    // `data_path` is the path of the data of the printer that the settings are for.
    OptionsBlockReader(const char* model, const OString& data_path);

    // Takes the next line of the file. True if it ended a block; GetLines then has its lines. A
    // block that is interrupted by the start of another one does not count.
    bool Read(const OString& line);

    // The lines of the block that has ended, as ORegistry::Import takes them.
    const OStringArray& GetLines() const { return lines_; }

private:
    OString header_;
    OString data_path_;
    OStringArray lines_;
    bool inside_ = false;
    bool foreign_ = false; // the key that is being read is not the printer's
};

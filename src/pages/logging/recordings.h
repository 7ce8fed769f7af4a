// Recordings: files with the code that jobs sent to the printer, "*.prn" in a folder.
#pragma once

#include "core/ostring.h"
#include "core/ostring_array.h"

// Replaces `names` with the names of the recordings in a folder, in alphabetical order. None if
// there is no such folder.
void ListRecordings(const OString& folder, OStringArray& names);

// Whether the file at `path` is there and can be opened.
[[nodiscard]] bool CanReadRecording(const OString& path);

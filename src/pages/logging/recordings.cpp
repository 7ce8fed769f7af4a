#include "pages/logging/recordings.h"

#include <windows.h>

#include <algorithm>

#include "core/ofile.h"

void ListRecordings(const OString& folder, OStringArray& names) {
    names.SetSize(0);
    const OString pattern = folder + "\\*.prn";
    WIN32_FIND_DATAW found = {};
    const HANDLE search = FindFirstFileW(pattern.wstring(), &found);
    if (search == INVALID_HANDLE_VALUE) return;
    do {
        if (!(found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)) names.Add(found.cFileName);
    } while (FindNextFileW(search, &found));
    FindClose(search);
    // File systems have orders of their own.
    if (names.GetSize() > 1)
        std::sort(&names[0], &names[0] + names.GetSize(), [](const OString& a, const OString& b) {
            const int order = a.CompareNoCase(b);
            return order != 0 ? order < 0 : a.Collate(b) < 0;
        });
}

bool CanReadRecording(const OString& path) {
    // Opening a file that is not there would make it.
    return OFile::Exists(path) && OFile(path, OFILE_READ).is_open();
}

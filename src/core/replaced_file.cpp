#include "core/replaced_file.h"

ReplacedFile::ReplacedFile(const OString& name) {
    WCHAR path[MAX_PATH] = {};
    WCHAR aside[MAX_PATH] = {};
    WCHAR* file_part = nullptr;
    const DWORD length = GetFullPathNameW(name.wstring(), MAX_PATH, path, &file_part);
    if (length == 0 || length >= MAX_PATH || !file_part) return;
    name_ = path;
    *file_part = 0;
    if (!GetTempFileNameW(path, TEXT("new"), 0, aside)) return;
    aside_ = aside;
    file_.Open(aside_, OFILE_WRITE);
}

ReplacedFile::~ReplacedFile() {
    file_.Close();
    if (!aside_.IsEmpty()) OFile::Delete(aside_);
}

bool ReplacedFile::Commit() {
    if (!file_.is_open()) return false;
    file_.Close();
    if (file_.HasFailed() ||
        !MoveFileExW(aside_.wstring(), name_.wstring(), MOVEFILE_REPLACE_EXISTING))
        return false;
    aside_ = OString();
    return true;
}

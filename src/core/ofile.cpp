#include "core/ofile.h"

#include <algorithm>

#include "core/memory.h"

OFile::OFile() = default;

OFile::OFile(const OString& name, uint32_t mode) {
    OFile::Open(name, mode);
}

OFile::~OFile() {
    OFile::Close();
}

namespace {

DWORD ShareModeOf(uint32_t mode) {
    switch (mode & OFILE_SHARE_MASK) {
    case OFILE_SHARE_NONE:
        return 0;
    case OFILE_SHARE_READ:
        return FILE_SHARE_READ;
    case OFILE_SHARE_WRITE:
        return FILE_SHARE_WRITE;
    default:
        return FILE_SHARE_READ | FILE_SHARE_WRITE;
    }
}

} // namespace

bool OFile::Open(const OString& name, uint32_t mode) {
    OFile::Close();
    handle_ = new (kCounted) HANDLE;
    if (!handle_) return false;
    name_ = name;
    failed_ = false;
    const bool write = (mode & OFILE_WRITE) != 0;
    *handle_ = CreateFileW(name.wstring(), write ? GENERIC_READ | GENERIC_WRITE : GENERIC_READ,
                           ShareModeOf(mode), nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (*handle_ == INVALID_HANDLE_VALUE) {
        delete handle_;
        handle_ = nullptr;
        return false;
    }
    if (write) {
        if (mode & OFILE_APPEND)
            OFile::Seek(0, FILE_END);
        else
            SetEndOfFile(*handle_);
    }
    return true;
}

void OFile::Close() {
    if (!handle_) return;
    Flush();
    CloseHandle(*handle_);
    delete handle_;
    handle_ = nullptr;
    ahead_at_ = ahead_end_ = 0;
}

void OFile::Seek(int32_t offset, uint32_t origin) {
    if (!handle_) return;
    Flush();
    ReturnAhead();
    SetFilePointer(*handle_, offset, nullptr, origin);
}

uint32_t OFile::GetLength() const {
    if (!handle_) return 0;
    DWORD high = 0;
    SetLastError(NO_ERROR);
    DWORD low = GetFileSize(*handle_, &high);
    if (low == INVALID_FILE_SIZE && GetLastError() != NO_ERROR) return 0;
    return high != 0 ? 0xFFFFFFFF : low;
}

int32_t OFile::Read(void* data, int32_t size) {
    if (!handle_ || !data || size <= 0) return 0;
    ReturnAhead();
    DWORD read = 0;
    if (!ReadFile(*handle_, data, static_cast<DWORD>(size), &read, nullptr)) {
        failed_ = true;
        return 0;
    }
    return static_cast<int32_t>(read);
}

uint32_t OFile::_StreamWrite(const void* data, uint32_t size) {
    if (!handle_) return 0;
    ReturnAhead();
    DWORD written = 0;
    if (!WriteFile(*handle_, data, size, &written, nullptr)) written = 0;
    if (written < size) failed_ = true;
    return written;
}

void OFile::ReturnAhead() {
    if (ahead_at_ < ahead_end_)
        SetFilePointer(*handle_, ahead_at_ - ahead_end_, nullptr, FILE_CURRENT);
    ahead_at_ = ahead_end_ = 0;
}

bool OFile::ReadLine(OString& line) {
    OString text;
    text.SetCodePage(GetCodePage());
    for (bool line_ended = false; !line_ended;) {
        if (ahead_at_ == ahead_end_) {
            const int32_t count = Read(ahead_, sizeof ahead_);
            if (count == 0) break;
            ahead_end_ = count;
        }
        // Up to the end of the line, or to a NUL, which no text can hold.
        const char* const start = ahead_ + ahead_at_;
        const char* const limit = ahead_ + ahead_end_;
        const char* const end =
            std::find_if(start, limit, [](char c) { return c == 0 || c == '\n'; });
        line_ended = end != limit && *end == '\n';
        text.Insert(text.nlen(), start, static_cast<int>(end - start) + (line_ended ? 1 : 0));
        ahead_at_ = static_cast<int32_t>(end - ahead_) + (end != limit ? 1 : 0);
    }
    if (text.GetLength() == 0) return false;
    text.TrimRight("\r\n");
    text.SetCodePage(line.GetCodePage());
    line = text;
    return true;
}

OString OFile::GetFileName() const {
    // In the UTF-16 form: in a double-byte code page a backslash may be half of a character.
    const WCHAR* full = name_.wstring();
    const WCHAR* start = full;
    for (const WCHAR* at = full; *at; ++at)
        if (*at == TEXT('\\')) start = at + 1;
    OString name(start);
    name.SetCodePage(name_.GetCodePage());
    return name;
}

bool OFile::Exists(const OString& name) {
    // By its UTF-16 name, so that a name outside the ANSI code page can be found too.
    const DWORD attributes = GetFileAttributesW(name.wstring());
    return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

bool OFile::Delete(const OString& name) {
    return DeleteFileW(name.wstring()) != 0;
}

// A file: written through the stream's buffer, read directly and line by line.
#pragma once

#include <windows.h>

#include "core/ostream.h"

// The mode that OFile::Open takes. Bits not named here are ignored.
enum OFileMode : uint32_t {
    OFILE_READ = 0x0,
    OFILE_WRITE = 0x1, // reading and writing

    // The rights of other openers of the file. Any other value of this digit, 0 included, lets them
    // read and write.
    OFILE_SHARE_NONE = 0x10,
    OFILE_SHARE_READ = 0x20,
    OFILE_SHARE_WRITE = 0x30,
    OFILE_SHARE_MASK = 0xF0,

    OFILE_APPEND = 0x2000 // with OFILE_WRITE: keep the contents and write after them
};

// Failures are false or a count of 0; the platform's error code is not passed on. One thread uses
// a file at a time.
class OFile : public OCore::OStream {
public:
    OFile();
    // Opens at once; is_open answers whether that worked.
    OFile(const OString& name, uint32_t mode);
    ~OFile() override;

    // Opens `name`, after closing what was open. A missing file is created, even if it is opened
    // only for reading. If it is opened for writing without OFILE_APPEND, the file is truncated to
    // length 0.
    virtual bool Open(const OString& name, uint32_t mode);

    // Writes out the buffer and closes. Harmless if not open.
    virtual void Close();

    // Flushes, then moves the position: `origin` 0 from the start, 1 from the current position,
    // 2 from the end.
    virtual void Seek(int32_t offset, uint32_t origin);

    // The size of the file in bytes, without those still in the buffer. 0 if not open, 0xFFFFFFFF
    // for a file of 4 GiB or more.
    virtual uint32_t GetLength() const;

    // Reads up to `size` bytes at the current position. Returns the bytes read, 0 at the end of the
    // file or if not open. Bytes still in the write buffer are not seen.
    virtual int32_t Read(void* data, int32_t size);

    bool is_open() const { return handle_ != nullptr; }

    // Whether something written since the file was opened has not reached it: the disk is full, or
    // the file is open only for reading. For bytes in the buffer this is known after Close. Also
    // whether a read failed, which otherwise looks like the end of the file.
    bool HasFailed() const { return failed_; }

    // Reads up to the next line feed or the end of the file. NUL bytes are skipped, and trailing
    // carriage returns and line feeds removed. The text, read in the file's code page, is converted
    // to the code page of `line`. False, with `line` unchanged, at the end of the file.
    bool ReadLine(OString& line);

    // The part of the file's name after its last backslash.
    OString GetFileName() const;

    // Whether `name` is a file. A folder is not one.
    static bool Exists(const OString& name);

    // Deletes a file; true on success.
    static bool Delete(const OString& name);

protected:
    uint32_t _StreamWrite(const void* data, uint32_t size) override;

private:
    // Moves the file's position to the end of the last line again.
    void ReturnAhead();

    OString name_;
    HANDLE* handle_ = nullptr; // a heap cell with the platform's handle; null while closed
    bool failed_ = false;

    // Bytes that ReadLine has read beyond its line, while lines are read one after the other.
    char ahead_[2048];
    int32_t ahead_at_ = 0;
    int32_t ahead_end_ = 0;
};

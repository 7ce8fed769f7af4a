// The model data file: named, compressed resources.
#pragma once

#include <cstdint>

#include "core/locks.h"
#include "core/oarray.h"
#include "core/obuffer.h"
#include "core/ostring.h"
#include "model/table_text.h"

// One resource. Its bytes are decompressed by OResourceFile::Find. From then on they do not change,
// and every thread may read them as long as the file lives.
class OResource {
public:
    // A resource of that name with a copy of its compressed container (see core/lz77.h). One that
    // does not decode, or is truncated, makes a resource without bytes.
    OResource(const OString& name, const void* container, uint32_t size);
    OResource(const OResource&) = delete;
    OResource& operator=(const OResource&) = delete;

    // The decompressed bytes, or null, and their number.
    const void* GetData() const { return data_.GetData(); }
    uint32_t GetSize() const { return data_.GetSize(); }

    // The bytes as the text of a table, parsed on the first call. If there is no memory for it,
    // returns an empty text, and the next call tries again.
    const TableText& GetTextData();

private:
    friend class OResourceFile;

    // False if memory is short; nothing has changed then.
    bool Decompress();

    OString name_;             // used only under the lock, as strings are not thread-safe
    OBuffer<char> compressed_; // empty once it has been decompressed, or if it cannot be
    OBuffer<char> data_;
    TableText text_;
    bool text_parsed_ = false;
    OSynchronizer* lock_ = nullptr; // that of the file; null outside of one
};

// A model data file in memory. On disk it is a plain sequence of records without a head:
//
//   0                4                  record length, all of the record; 0 ends the file
//   4                4                  header length: 8 and the length of the name
//   8                header length - 8  name, 8-bit; a NUL ends it early
//   header length    to the end         container of core/lz77.h
//
// All integers are little-endian. A record that claims more than the rest of the file is truncated
// at the end of the file. Any thread may use a file once it has been made.
class OResourceFile {
public:
    // Without resources; Load reads the file.
    explicit OResourceFile(const OString& path);
    OResourceFile(const OResourceFile&) = delete;
    OResourceFile& operator=(const OResourceFile&) = delete;
    virtual ~OResourceFile();

    // Appends the resources of a file on disk. False if it cannot be opened. A missing file is not
    // created.
    bool Load(const OString& path);

    // The same for the bytes of a file.
    void Parse(const void* data, size_t size);

    // The first resource of that name, letters a to z in any case, with its bytes decompressed.
    // Null if there is none, or no memory for the bytes. The file owns it.
    OResource* Find(const OString& name);

    // Appends a resource, which the file then owns. Null is ignored. Nothing is written to disk.
    void Add(OResource* resource);

    // Whether the last Load could read everything and had the memory for it. A missing file counts
    // as read.
    bool WasReadWhole() const { return whole_; }

    // Whether resources were added since the file was loaded.
    bool IsModified();

    // The path of the file, as a string that shares nothing.
    OString GetPath();

private:
    void Append(OResource* resource);

    OCriticalSection lock_;
    OPointerArray<OResource*> resources_; // owned
    OString path_;
    bool modified_ = false;
    bool whole_ = true;
};

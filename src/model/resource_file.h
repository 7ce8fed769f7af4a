// The model data file: named, compressed resources.
#pragma once

#include <cstdint>

#include "core/locks.h"
#include "core/oarray.h"
#include "core/obuffer.h"
#include "core/ostring.h"
#include "model/table_text.h"

// One resource. Its bytes are decompressed by OResourceFile::Find. From then on they do not change
// any more, and every thread may read them as long as the file lives.
class OResource {
public:
    // A resource of that name with a copy of its compressed container (see core/lz77.h). One that
    // does not decode, or is cut short, makes a resource without bytes.
    OResource(const OString& name, const void* container, uint32_t size);
    OResource(const OResource&) = delete;
    OResource& operator=(const OResource&) = delete;

    // The decompressed bytes, null when there are none, and their number.
    const void* GetData() const { return data_.GetData(); }
    uint32_t GetSize() const { return data_.GetSize(); }

    // The bytes as the text of a table, parsed at the first call. Without the memory for it an
    // empty text, and the next call tries again.
    const TableText& GetTextData();

private:
    friend class OResourceFile;

    // False when memory does not suffice; then nothing has changed.
    bool Decompress();

    OString name_; // touched under the lock only, for strings do not stand several threads
    OBuffer<char> compressed_; // empty once it has been decompressed, or cannot be
    OBuffer<char> data_;
    TableText text_;
    bool text_parsed_ = false;
    OSynchronizer* lock_ = nullptr; // that of the file; null while in none
};

// A model data file in memory. On disk it is a plain sequence of records without a head:
//
//   0                4                  record length, all of the record; 0 ends the file
//   4                4                  header length: 8 and the length of the name
//   8                header length - 8  name, 8-bit; a NUL ends it early
//   header length    to the end         container of core/lz77.h
//
// All integers are little-endian. A record that claims more than there is of the file is cut at the
// end of the file. Any thread may use a file once it has been made.
class OResourceFile {
public:
    // Without resources; Load reads the file.
    explicit OResourceFile(const OString& path);
    OResourceFile(const OResourceFile&) = delete;
    OResourceFile& operator=(const OResourceFile&) = delete;
    virtual ~OResourceFile();

    // Appends the resources of a file on disk. False when it cannot be opened; a missing file is
    // not created.
    bool Load(const OString& path);

    // The same for the bytes of a file.
    void Parse(const void* data, size_t size);

    // The first resource of that name, letters a to z in either case, with its bytes decompressed;
    // null when there is none and without the memory for the bytes. The file owns it.
    OResource* Find(const OString& name);

    // Appends a resource, which the file then owns; null is ignored. Nothing is written to disk.
    void Add(OResource* resource);

    // Whether the last Load could read all that is there; a missing file is whole.
    bool WasReadWhole() const { return whole_; }

    // Whether resources were added since the file was loaded.
    bool IsModified();

    // The path of the file, as a string of the caller's own.
    OString GetPath();

private:
    void Append(OResource* resource);

    OCriticalSection lock_;
    OPointerArray<OResource*> resources_; // owned
    OString path_;
    bool modified_ = false;
    bool whole_ = true;
};

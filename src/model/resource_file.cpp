#include "model/resource_file.h"

#include <algorithm>

#include "core/lz77.h"
#include "core/memory.h"
#include "core/ofile.h"

namespace {

constexpr size_t kRecordHead = 8; // the two lengths

uint32_t ReadLength(const char* at) {
    const auto* bytes = reinterpret_cast<const unsigned char*>(at);
    return uint32_t{bytes[0]} | uint32_t{bytes[1]} << 8 | uint32_t{bytes[2]} << 16 |
           uint32_t{bytes[3]} << 24;
}

} // namespace

OResource::OResource(const OString& name, const void* container, uint32_t size)
    : name_(name.OwnCopy()) {
    if (container) compressed_.Assign(static_cast<const char*>(container), size);
}

bool OResource::Decompress() {
    if (compressed_.GetSize() == 0) return true;
    const AllocationWatch memory;
    LZ77::Decode(compressed_, data_);
    if (memory.Failed()) {
        data_.Clear();
        return false;
    }
    // Only once, even if this failed: data that was handed out must not change any more.
    compressed_.Clear();
    return true;
}

const TableText& OResource::GetTextData() {
    OSynchronizer alone;
    OSingleLock lock(lock_ ? lock_ : &alone, true);
    if (!text_parsed_) {
        const AllocationWatch memory;
        text_.Parse(data_.GetData(), data_.GetSize());
        text_parsed_ = !memory.Failed();
    }
    // A text that may be parsed again is not handed out.
    static const TableText none;
    return text_parsed_ ? text_ : none;
}

OResourceFile::OResourceFile(const OString& path)
    : path_(path.OwnCopy()) {}

OResourceFile::~OResourceFile() {
    for (int i = 0; i < resources_.GetSize(); ++i) delete resources_[i];
}

bool OResourceFile::Load(const OString& path) {
    OSingleLock lock(&lock_, true);
    const AllocationWatch memory;
    // Opening a missing file would create it.
    if (!OFile::Exists(path)) return false;
    OFile file(path, OFILE_READ | OFILE_SHARE_READ);
    whole_ = file.is_open();
    if (!whole_) return false;

    OBuffer<char> bytes;
    uint32_t used = 0;
    if (bytes.SetSize(file.GetLength())) {
        while (used < bytes.GetSize()) {
            const uint32_t wanted = std::min<uint32_t>(bytes.GetSize() - used, INT32_MAX);
            const int32_t count = file.Read(&bytes[used], static_cast<int32_t>(wanted));
            if (count <= 0) break;
            used += static_cast<uint32_t>(count);
        }
    }
    Parse(bytes.GetData(), used);
    path_ = path.OwnCopy();
    modified_ = false;
    whole_ = !file.HasFailed() && !memory.Failed();
    return true;
}

void OResourceFile::Parse(const void* data, size_t size) {
    OSingleLock lock(&lock_, true);
    const char* at = static_cast<const char*>(data);
    while (size >= kRecordHead) {
        const uint32_t record_length = ReadLength(at);
        const uint32_t header_length = ReadLength(at + 4);
        // After a record with impossible lengths nothing can be found.
        if (header_length < kRecordHead || header_length > record_length || header_length > size)
            return;
        const size_t available = std::min<size_t>(record_length, size);

        OString name;
        if (header_length > kRecordHead)
            name.Insert(0, at + kRecordHead,
                        static_cast<int>(std::min<size_t>(header_length - kRecordHead, INT32_MAX)));
        auto* resource = new (kCounted)
            OResource(name, at + header_length, static_cast<uint32_t>(available - header_length));
        Append(resource);
        at += available;
        size -= available;
    }
}

OResource* OResourceFile::Find(const OString& name) {
    OSingleLock lock(&lock_, true);
    for (int i = 0; i < resources_.GetSize(); ++i) {
        OResource* resource = resources_[i];
        if (resource->name_.CompareNoCase(name) != 0) continue;
        return resource->Decompress() ? resource : nullptr;
    }
    return nullptr;
}

void OResourceFile::Add(OResource* resource) {
    OSingleLock lock(&lock_, true);
    Append(resource);
    modified_ = true;
}

void OResourceFile::Append(OResource* resource) {
    if (!resource) return;
    resource->lock_ = &lock_;
    if (resources_.Add(resource) < 0) delete resource;
}

bool OResourceFile::IsModified() {
    OSingleLock lock(&lock_, true);
    return modified_;
}

OString OResourceFile::GetPath() {
    OSingleLock lock(&lock_, true);
    return path_.OwnCopy();
}

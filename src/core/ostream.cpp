#include "core/ostream.h"

#include <algorithm>

#include "core/memory.h"
#include "core/obuffer.h"

namespace OCore {

namespace {

constexpr uint32_t kDefaultBufferSize = 1024;

uint8_t* AllocateBuffer(uint32_t size) {
    return size == 0 ? nullptr : static_cast<uint8_t*>(MemoryHeap::ReAlloc(nullptr, size));
}

} // namespace

OStream::OStream()
    : buffer_(AllocateBuffer(kDefaultBufferSize))
    , buffer_size_(buffer_ ? kDefaultBufferSize : 0) {}

OStream::~OStream() {
    MemoryHeap::Free(buffer_);
}

void OStream::SetBufferSize(uint32_t size) {
    _BufferFlush();
    MemoryHeap::Free(buffer_);
    buffer_ = AllocateBuffer(size);
    buffer_size_ = buffer_ ? size : 0;
}

uint32_t OStream::Write(const void* data, uint32_t size) {
    return _BufferWrite(data, size);
}

uint32_t OStream::WriteString(const OString& text) {
    OString converted(text);
    converted.SetCodePage(code_page_);
    const char* bytes = converted.nstring();
    return Write(bytes, static_cast<uint32_t>(converted.nlen()));
}

OStream& OStream::operator<<(const OString& text) {
    WriteString(text);
    return *this;
}

OStream& OStream::operator<<(const char* text) {
    if (text) WriteString(OString(text));
    return *this;
}

OStream& OStream::operator<<(int32_t number) {
    WriteString(FormatInt(number));
    return *this;
}

uint32_t OStream::Flush() {
    return _BufferFlush();
}

uint32_t OStream::_StreamWrite(const void*, uint32_t) {
    return 0;
}

uint32_t OStream::_BufferWrite(const void* data, uint32_t size) {
    if (buffer_size_ == 0) return _StreamWrite(data, size);
    if (size == 0 || !data) return 0;
    const uint8_t* next = static_cast<const uint8_t*>(data);
    uint32_t left = size;
    while (left != 0) {
        uint32_t part = std::min(buffer_size_ - buffered_, left);
        MemoryHeap::Copy(buffer_ + buffered_, next, part);
        buffered_ += part;
        next += part;
        left -= part;
        if (buffered_ == buffer_size_ && _BufferFlush() < buffer_size_) return 0;
    }
    return size;
}

uint32_t OStream::_BufferFlush() {
    if (buffered_ == 0) return 0;
    uint32_t waiting = buffered_;
    // Emptied whatever the sink takes: refused bytes are not offered again.
    buffered_ = 0;
    return _StreamWrite(buffer_, waiting);
}

OStream& operator<<(OStream& stream, OStream& (*manipulator)(OStream&)) {
    return manipulator(stream);
}

OStream& endl(OStream& stream) {
    stream.Write("\r\n", 2);
    return stream;
}

} // namespace OCore

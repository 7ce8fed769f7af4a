// A buffered byte stream that writes text in a chosen code page.
#pragma once

#include <cstdint>

#include "core/ostring.h"

namespace OCore {

// Gathers what is written in a buffer of 1024 bytes and hands it on in blocks. A subclass gives
// the sink (`_StreamWrite`); the base class accepts nothing. One thread uses a stream at a time.
class OStream {
public:
    OStream();
    // Frees the buffer. It does not flush: the owner of the sink does, while the sink still exists.
    virtual ~OStream();
    OStream(const OStream&) = delete;
    OStream& operator=(const OStream&) = delete;

    // Writes `size` bytes; answers the bytes accepted, 0 when the sink took less than a full
    // buffer.
    uint32_t Write(const void* data, uint32_t size);

    // Writes `text` in the stream's code page, without terminator; answers the bytes accepted.
    // The string itself keeps its code page.
    uint32_t WriteString(const OString& text);

    OStream& operator<<(const OString& text);
    // A null pointer writes nothing.
    OStream& operator<<(const char* text);
    // The decimal form of the number.
    OStream& operator<<(int32_t number);

    // Hands the buffered bytes to the sink; answers how many it took.
    uint32_t Flush();

    // The code page of the text that is written and, for files, read: 0 is the system's ANSI code
    // page, 1208 UTF-8, any other value a Windows code page number. 0 after construction.
    uint32_t GetCodePage() const { return code_page_; }
    void SetCodePage(uint32_t code_page) { code_page_ = code_page; }

    // The size of the write buffer in bytes; 0 hands every write straight to the sink. What waits
    // in the buffer is flushed first.
    void SetBufferSize(uint32_t size);

protected:
    // The sink: takes `size` bytes, answers how many it took.
    virtual uint32_t _StreamWrite(const void* data, uint32_t size);
    virtual uint32_t _BufferWrite(const void* data, uint32_t size);
    virtual uint32_t _BufferFlush();

private:
    uint8_t* buffer_ = nullptr;
    uint32_t buffer_size_ = 0;
    uint32_t buffered_ = 0;
    uint32_t code_page_ = 0;
};

// Calls a manipulator: `stream << OCore::endl`.
OStream& operator<<(OStream& stream, OStream& (*manipulator)(OStream&));

// Ends a line: writes carriage return and line feed.
OStream& endl(OStream& stream);

} // namespace OCore

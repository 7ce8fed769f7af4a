// A buffered byte stream that writes text in a chosen code page.
#pragma once

#include <cstdint>

#include "core/ostring.h"

namespace OCore {

// Gathers writes in a buffer of 1024 bytes and passes them on in blocks. A subclass provides the
// sink (`_StreamWrite`); the base class accepts nothing. One thread uses a stream at a time.
class OStream {
public:
    OStream();
    // Frees the buffer without flushing it. The owner of the sink does that, while the sink exists.
    virtual ~OStream();
    OStream(const OStream&) = delete;
    OStream& operator=(const OStream&) = delete;

    // Writes `size` bytes. Returns the bytes accepted, 0 if the sink took less than a full buffer.
    uint32_t Write(const void* data, uint32_t size);

    // Writes `text` in the stream's code page, without terminator. Returns the bytes accepted. The
    // string itself keeps its code page.
    uint32_t WriteString(const OString& text);

    OStream& operator<<(const OString& text);
    // A null pointer writes nothing.
    OStream& operator<<(const char* text);
    // The decimal form of the number.
    OStream& operator<<(int32_t number);

    // Passes the buffered bytes to the sink. Returns how many it took.
    uint32_t Flush();

    // The code page of text that is written and, for files, read: 0 is the system's ANSI code page,
    // 1208 UTF-8, any other value a Windows code page number. 0 after construction.
    uint32_t GetCodePage() const { return code_page_; }
    void SetCodePage(uint32_t code_page) { code_page_ = code_page; }

    // The size of the write buffer in bytes. 0 passes every write straight to the sink. Buffered
    // bytes are flushed first.
    void SetBufferSize(uint32_t size);

protected:
    // The sink: takes `size` bytes and returns how many it took.
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

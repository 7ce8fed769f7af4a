// The bytes of a job on their way to the spooler.
#pragma once

#include <windows.h>

#include <winspool.h>

#include <cstddef>
#include <string_view>

class JobOutput {
public:
    // `printer` is the device's handle, borrowed.
    explicit JobOutput(HANDLE printer)
        : printer_(printer) {}

    // False when the spooler does not take all of it: there is no document, or no room.
    bool Write(const void* bytes, size_t size);
    bool Write(std::string_view text) { return Write(text.data(), text.size()); }
    // Bytes as ZPL has them inside of commands, two digits for each.
    bool WriteHex(const unsigned char* bytes, size_t size);

private:
    HANDLE printer_;
};

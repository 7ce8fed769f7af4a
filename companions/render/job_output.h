// Writes the bytes of a job to the spooler.
#pragma once

#include <windows.h>

#include <winspool.h>

#include <cstddef>
#include <string_view>

class JobOutput {
public:
    // `printer` is the device's handle, which is borrowed.
    explicit JobOutput(HANDLE printer)
        : printer_(printer) {}

    // False if the spooler does not take all of it because there is no document or no room.
    bool Write(const void* bytes, size_t size);
    bool Write(std::string_view text) { return Write(text.data(), text.size()); }
    // Writes bytes as in ZPL commands, two hexadecimal digits for each.
    bool WriteHex(const unsigned char* bytes, size_t size);

private:
    HANDLE printer_;
};

#include "job_output.h"

#include <algorithm>

bool JobOutput::Write(const void* bytes, size_t size) {
    if (size == 0) return true;
    DWORD written = 0;
    return WritePrinter(printer_, const_cast<void*>(bytes), static_cast<DWORD>(size), &written) &&
           written == size;
}

bool JobOutput::WriteHex(const unsigned char* bytes, size_t size) {
    static const char digits[] = "0123456789ABCDEF";
    char text[2048];
    while (size > 0) {
        const size_t count = std::min(size, sizeof text / 2);
        for (size_t i = 0; i < count; ++i) {
            text[2 * i] = digits[bytes[i] >> 4];
            text[2 * i + 1] = digits[bytes[i] & 15];
        }
        if (!Write(text, 2 * count)) return false;
        bytes += count;
        size -= count;
    }
    return true;
}

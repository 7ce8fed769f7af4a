// One connection to the spooler.
#pragma once

#include <windows.h>

#include <cstdint>

#include "core/ostring.h"

class UIPrinter;

using CSize = SIZE; // pixels

// A device context on the printer, with the UI object's document settings, and documents on it.
// Without a printer that can be had there is no device context and nothing is sent; that is told
// by the result of StartDocW alone.
class prtspool {
public:
    explicit prtspool(const UIPrinter* ui);
    // Deletes the device context. A document that is not ended is lost.
    virtual ~prtspool();
    prtspool(const prtspool&) = delete;
    prtspool& operator=(const prtspool&) = delete;

    // Starts a document; the number of its job, or what the system answers when it cannot (0 or
    // less). 0 without a device context.
    int StartDocW(const OString& name);

    // False without a device context; what the system answers is not looked at.
    bool StartPage();
    bool EndPage();
    bool EndDoc();

    // Says something to the rendering module. Answers what it answers: less than 1 is failure.
    uint32_t Escape(int code, int input_size, const char* input, int output_size, char* output);

    // Sends bytes into the document as they are. Of the count only the low 16 bits are taken; no
    // bytes make an empty packet. False without a device context, true also when memory is short
    // and the packet is dropped.
    bool WriteDirect(const char* data, int32_t count);

    // 0 by 0 without a device context.
    CSize GetPrintableArea() const;

    HDC GetDC() const { return dc_; }

private:
    const HDC dc_; // null when it could not be made
};

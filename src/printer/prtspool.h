// One connection to the spooler.
#pragma once

#include <windows.h>

#include <cstdint>

#include "core/ostring.h"

class UIPrinter;

using CSize = SIZE; // pixels

// A device context on the printer, with the UI object's document settings, and documents on it. If
// the printer cannot be opened there is no device context and nothing is sent. Only the result of
// StartDocW tells of that.
class prtspool {
public:
    explicit prtspool(const UIPrinter* ui);
    // Deletes the device context. A document that was not ended is lost.
    virtual ~prtspool();
    prtspool(const prtspool&) = delete;
    prtspool& operator=(const prtspool&) = delete;

    // Starts a document. Returns the number of its job, or the system's answer (0 or less) if it
    // cannot start one. 0 without a device context.
    int StartDocW(const OString& name);

    // False without a device context. The system's answer is ignored.
    bool StartPage();
    bool EndPage();
    bool EndDoc();

    // Sends an escape to the rendering module. Returns its answer; less than 1 means failure.
    uint32_t Escape(int code, int input_size, const char* input, int output_size, char* output);

    // Sends bytes into the document unchanged. Only the low 16 bits of the count are used; no bytes
    // make an empty packet. False without a device context, but true if memory is short and the
    // packet is dropped.
    bool WriteDirect(const char* data, int32_t count);

    // 0 by 0 without a device context.
    CSize GetPrintableArea() const;

    HDC GetDC() const { return dc_; }

private:
    const HDC dc_; // null if it could not be made
};

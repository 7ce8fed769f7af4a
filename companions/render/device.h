// One device of the rendering module: a printer with certain settings.
#pragma once

#include <windows.h>

#include <winddi.h>

#include <string>

#include "font_download.h"
#include "job_output.h"
#include "object_cache.h"

class Device {
public:
    // `printer` is borrowed.
    Device(HANDLE printer, const WCHAR* name)
        : printer_(printer)
        , name_(name ? name : TEXT(""))
        , output_(printer)
        , font_(output_)
        , objects_(printer, name_, output_) {}

    // Describes the device with these settings (`dev_mode` may be null).
    void Describe(const DEVMODEW* dev_mode, GDIINFO& info) const;

    // Starts and ends a document. End answers false if the spooler does not take the output.
    void StartDocument();
    [[nodiscard]] bool EndDocument();
    // Starts a page, or forgets a document that is not completed.
    void Reset();
    // Ends the page. False if the spooler does not take the output.
    bool SendPage();

    // Fills a rectangle of the page, black or white. Empty ones are ignored.
    bool Fill(const RECTL& area, bool black);

    // Runs a private escape. Answers as DrvEscape does: greater than 0 on success, 0 for an unknown
    // escape, less than 0 on failure. The sizes are those of the blocks.
    int Escape(ULONG escape, const unsigned char* input, ULONG input_size, unsigned char* output,
               ULONG output_size);

private:
    // Writes one filled rectangle into the page's format.
    bool WriteBox(int x, int y, int width, int height, bool black);
    int WriteRaw(const unsigned char* input, ULONG size);
    int DrawBar(const unsigned char* input, ULONG size);
    int HandleFont(const unsigned char* input, ULONG size);
    int AddFontData(const unsigned char* input, ULONG size);
    int AddGlyph(const unsigned char* input, ULONG size);
    int HandleCache(const unsigned char* input, ULONG size);
    int HandleCacheItem(const unsigned char* input, ULONG size);

    const HANDLE printer_;
    const std::basic_string<WCHAR> name_;
    JobOutput output_;
    FontDownload font_;
    ObjectCache objects_;
    bool in_format_ = false;
};

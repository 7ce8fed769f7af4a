// Downloads of fonts into the printer's memory.
#pragma once

#include <cstddef>
#include <string>

#include "job_output.h"
#include "printer/escape_records.h"

// A font is sent as one command that stays open while its data come: ~DU with the font's file, ~DB
// with glyphs. Records that come out of order are refused.
class FontDownload {
public:
    explicit FontDownload(JobOutput& output)
        : output_(output) {}

    // Forgets a font that was not ended.
    void Reset() { open_ = Open::NOTHING; }

    // Does the operation that the record names.
    bool Handle(const KVFontInfo& font);
    // The next bytes of the font's file.
    bool AddData(const unsigned char* bytes, size_t size);
    // The next glyph; `rows` are its data_size bytes.
    bool AddGlyph(const KVDownloadBitmapChar& glyph, const unsigned char* rows);

private:
    enum class Open { NOTHING, FONT_FILE, GLYPHS };

    bool Begin(Open kind, const std::string& command);
    bool End(Open kind);

    JobOutput& output_;
    Open open_ = Open::NOTHING;
};

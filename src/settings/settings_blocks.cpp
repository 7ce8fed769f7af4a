#include "settings/settings_blocks.h"

namespace {

constexpr char kBlanks[] = " \t\r\n";

// The name in the tag that ends a block, without the rest of the one that begins it.
OString EndOf(const char* kind) {
    const OString text(kind);
    const int blank = text.Find(' ');
    return blank < 0 ? text : text.Left(blank);
}

} // namespace

SettingsBlocks::SettingsBlocks(OFile& file, const char* kind)
    : file_(file)
    , start_(OString("<") << kind << ">")
    , end_(OString("</") << EndOf(kind) << ">") {
    file_.Seek(0, 0);
}

SettingsBlocks::Line SettingsBlocks::Read() {
    while (file_.ReadLine(line_)) {
        line_.TrimLeft(kBlanks);
        line_.TrimRight(kBlanks);
        if (line_ == start_) {
            inside_ = true;
            return BLOCK_START;
        }
        if (!inside_) continue;
        if (line_ == end_) {
            inside_ = false;
            return BLOCK_END;
        }
        line_.wstring(); // only positions in this form are used from here on
        const int equals = line_.Find(TEXT("="));
        if (equals <= 0) continue;
        key_ = line_.Left(equals);
        value_ = line_.Mid(equals + 1);
        return ENTRY;
    }
    return NO_MORE;
}

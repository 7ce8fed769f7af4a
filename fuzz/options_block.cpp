// Any text as a file with options blocks.
#include "model/options_block.h"
#include "target.h"

#include <cstdlib>
#include <string>

FUZZ_TARGET(options_block)(const uint8_t* data, size_t size) {
    OptionsBlockReader reader("M", "HKEY_LOCAL_MACHINE\\Printers\\P");
    std::string line;
    for (size_t i = 0; i <= size; ++i) {
        if (i < size && data[i] != '\n') {
            if (data[i]) line += static_cast<char>(data[i]);
            continue;
        }
        OString text;
        text.SetCodePage(1208);
        text = line.c_str();
        line.clear();
        if (!reader.Read(text)) continue;
        const OStringArray& lines = reader.GetLines();
        if (lines.GetSize() == 0 || !lines[lines.GetSize() - 1].IsEmpty()) std::abort();
    }
    return 0;
}

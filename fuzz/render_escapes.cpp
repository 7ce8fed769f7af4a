// Any private escapes in any order, with records of any size, for the rendering module's device
// with an open document: it reads and writes no further than the sizes say.
#include <winspool.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "device.h"
#include "fuzz_host.h"
#include "input.h"
#include "spooler/open_printer.h"
#include "target.h"

namespace {

constexpr int kEscapes[] = {QUERYESCSUPPORT,
                            ESCAPE_BAR,
                            ESCAPE_CACHE_ACTION,
                            ESCAPE_RAW_PACKET,
                            ESCAPE_DOWNLOAD_FONT,
                            ESCAPE_DOWNLOAD_FONT_DATA,
                            ESCAPE_DOWNLOAD_BITMAP,
                            ESCAPE_READ_CACHE_SETTINGS,
                            ESCAPE_WRITE_CACHE_SETTINGS,
                            ESCAPE_CACHE_INFORMATION,
                            ESCAPE_CACHE_ITEM_ACTION,
                            16001};

// A document on the printer, restarted now and then so that its file stays small.
class Document {
public:
    explicit Document(HANDLE printer)
        : printer_(printer) {}
    ~Document() { AbortPrinter(printer_); }
    void Refresh() {
        if (++rounds_ % 1000 != 1) return;
        AbortPrinter(printer_);
        WCHAR name[] = TEXT("fuzz");
        DOC_INFO_1W info = {name, nullptr, nullptr};
        if (!StartDocPrinterW(printer_, 1, reinterpret_cast<LPBYTE>(&info))) std::abort();
    }

private:
    const HANDLE printer_;
    uint64_t rounds_ = 0;
};

} // namespace

FUZZ_TARGET(render_escapes)(const uint8_t* data, size_t size) {
    static const FuzzHost host(UsualModelData());
    static const OpenPrinter printer("P", PRINTER_ALL_ACCESS);
    static Document document(printer.Get());
    document.Refresh();

    Device device(printer.Get(), TEXT("P"));
    Input input(data, size);
    while (!input.IsEmpty()) {
        const size_t choice = input.Number();
        const int escape = kEscapes[choice % std::size(kEscapes)];
        const auto record = input.Take(input.Number() + (choice & 0x80 ? 256 * input.Number() : 0));
        std::vector<unsigned char> output(input.Number());
        const int answer = device.Escape(static_cast<ULONG>(escape), record.data(),
                                         static_cast<ULONG>(record.size()), output.data(),
                                         static_cast<ULONG>(output.size()));
        if (answer < -1 || answer > 0xFFFF) std::abort();
        if (choice & 0x40) device.SendPage();
    }
    return 0;
}

// Documents printed through the spooler.
#include "host/text.h"
#include "spooler/opened_printer.h"
#include "spooler/spooled_document.h"

#include <mutex>

using namespace win32host;

namespace {

// Works on the handle's document: `work` gets the pointer to it, which is not null unless the
// handle may have none.
template <class Work>
BOOL WithDocument(HANDLE handle, const Work& work) {
    return Guarded(FALSE, [&] {
        const auto printer = FindPrinter(handle);
        if (!printer) return FALSE;
        OpenedPrinter::Document& slot = printer->CurrentDocument();
        std::lock_guard guard(slot.lock);
        if (!slot.document) return Fail(ERROR_SPL_NO_STARTDOC);
        return work(slot.document);
    });
}

using DocumentPointer = std::unique_ptr<SpooledDocument>;

} // namespace

extern "C" {

DWORD WINAPI StartDocPrinterW(HANDLE handle, DWORD level, LPBYTE info) {
    return Guarded(DWORD{0}, [&]() -> DWORD {
        const auto fail = [](DWORD code) {
            SetLastError(code);
            return DWORD{0};
        };
        const auto printer = FindPrinter(handle);
        if (!printer) return 0;
        if (level != 1) return fail(ERROR_INVALID_LEVEL);
        if (!info) return fail(ERROR_INVALID_PARAMETER);
        const auto& wanted = *reinterpret_cast<const DOC_INFO_1W*>(info);
        if (wanted.pOutputFile && *wanted.pOutputFile) return fail(ERROR_NOT_SUPPORTED);
        if (!printer->Has(PRINTER_ACCESS_USE)) return fail(ERROR_ACCESS_DENIED);
        OpenedPrinter::Document& slot = printer->CurrentDocument();
        std::lock_guard guard(slot.lock);
        if (slot.document) return fail(ERROR_INVALID_HANDLE);
        slot.document = SpooledDocument::Start(*printer, wanted.pDocName ? wanted.pDocName : u"",
                                               wanted.pDatatype ? wanted.pDatatype : u"");
        return slot.document ? slot.document->Job() : 0;
    });
}

BOOL WINAPI StartPagePrinter(HANDLE handle) {
    return WithDocument(handle, [](DocumentPointer& document) {
        document->AddPage();
        return TRUE;
    });
}

BOOL WINAPI EndPagePrinter(HANDLE handle) {
    return WithDocument(handle, [](DocumentPointer&) { return TRUE; });
}

BOOL WINAPI WritePrinter(HANDLE handle, LPVOID data, DWORD size, LPDWORD written) {
    if (written) *written = 0;
    return WithDocument(handle, [&](DocumentPointer& document) {
        if (!written || (!data && size)) return Fail(ERROR_INVALID_PARAMETER);
        return BOOL{document->Write(data, size, *written)};
    });
}

BOOL WINAPI EndDocPrinter(HANDLE handle) {
    return WithDocument(handle, [](DocumentPointer& document) {
        const DocumentPointer ended = std::move(document);
        return BOOL{ended->End()};
    });
}

BOOL WINAPI AbortPrinter(HANDLE handle) {
    return WithDocument(handle, [](DocumentPointer& document) {
        document.reset();
        return TRUE;
    });
}

} // extern "C"

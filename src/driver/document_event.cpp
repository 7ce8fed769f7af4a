// What happens to documents: DrvDocumentEvent.
#include "config/shadow_keys.h"
#include "driver/printer_info.h"
#include "zplui.h"

int WINAPI DrvDocumentEvent(HANDLE printer, HDC, int event, ULONG, PVOID, ULONG, PVOID) {
    const OString name = PrinterInfo(printer).GetPrinterName();
    switch (event & 0xFFFF) {
    case DOCUMENTEVENT_CREATEDCPRE:
    case DOCUMENTEVENT_STARTDOC:
        CreateShadow(name);
        return DOCUMENTEVENT_SUCCESS;
    case DOCUMENTEVENT_ENDDOCPOST:
        CommitShadow(name);
        return DOCUMENTEVENT_SUCCESS;
    default:
        return DOCUMENTEVENT_UNSUPPORTED;
    }
}

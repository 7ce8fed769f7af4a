// Events of documents: DrvDocumentEvent.
#include "keys/shadow_keys.h"
#include "spooler/printer_info.h"
#include "zplui.h"

int WINAPI DrvDocumentEvent(HANDLE printer, HDC, int event, ULONG, PVOID, ULONG, PVOID) {
    const PrinterInfo info(printer); // asks the spooler only for events that need the name
    switch (event & 0xFFFF) {
    case DOCUMENTEVENT_CREATEDCPRE:
    case DOCUMENTEVENT_STARTDOC:
        CreateShadow(info.GetPrinterName());
        return DOCUMENTEVENT_SUCCESS;
    case DOCUMENTEVENT_ENDDOCPOST:
        CommitShadow(info.GetPrinterName());
        return DOCUMENTEVENT_SUCCESS;
    default:
        return DOCUMENTEVENT_UNSUPPORTED;
    }
}

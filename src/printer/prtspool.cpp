#include "printer/prtspool.h"

#include <cstring>

#include "core/obuffer.h"
#include "printer/escape_records.h"
#include "printer/ui_printer.h"

prtspool::prtspool(const UIPrinter* ui)
    : dc_(ui ? CreateDCW(TEXT("WINSPOOL"), ui->printer_name.wstring(), nullptr,
                         ui->devmode.GetDevMode())
             : nullptr) {}

prtspool::~prtspool() {
    if (dc_) DeleteDC(dc_);
}

int prtspool::StartDocW(const OString& name) {
    if (!dc_) return 0;
    DOCINFOW document = {};
    document.cbSize = sizeof document;
    document.lpszDocName = name.wstring();
    return ::StartDocW(dc_, &document);
}

bool prtspool::StartPage() {
    if (!dc_) return false;
    ::StartPage(dc_);
    return true;
}

bool prtspool::EndPage() {
    if (!dc_) return false;
    ::EndPage(dc_);
    return true;
}

bool prtspool::EndDoc() {
    if (!dc_) return false;
    ::EndDoc(dc_);
    return true;
}

uint32_t prtspool::Escape(int code, int input_size, const char* input, int output_size,
                          char* output) {
    return static_cast<uint32_t>(ExtEscape(dc_, code, input_size, input, output_size, output));
}

bool prtspool::WriteDirect(const char* data, int32_t count) {
    if (!dc_) return false;
    const auto taken = static_cast<uint16_t>(count);
    OBuffer<char> packet(sizeof taken + taken);
    if (!packet.GetData()) return true;
    std::memcpy(packet.GetData(), &taken, sizeof taken);
    if (taken) std::memcpy(packet.GetData() + sizeof taken, data, taken);
    Escape(ESCAPE_RAW_PACKET, static_cast<int>(packet.GetSize()), packet.GetData(), 0, nullptr);
    return true;
}

CSize prtspool::GetPrintableArea() const {
    return {GetDeviceCaps(dc_, HORZRES), GetDeviceCaps(dc_, VERTRES)};
}

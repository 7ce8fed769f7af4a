// The printer's port as the status monitor knows it.
#include <windows.h>

#include "core/windows_version.h"
#include "keys/prtreg.h"
#include "model/prtmodel.h"
#include "printer/prtstream.h"
#include "printer/ui_printer.h"

namespace {

constexpr char kTypeRequest[] = "<port action='get' name='type'/>";
constexpr char kBidirectionalRequest[] = "<port action='get' name='bidirectional'/>";

} // namespace

OString prtstream::AskPort(const char* request) {
    char answer[261] = {}; // ends with a zero, whatever the answer is
    return XPML_Query(request, answer, 260) ? OString(answer) : OString();
}

OString prtstream::GetPortType() {
    return AskPort(kTypeRequest);
}

OString prtstream::GetPortIPAddress() {
    return AskPort("<port action='get' name='ip_address'/>");
}

OString prtstream::GetPortMonitorName() {
    return AskPort("<port action='get' name='monitor_name'/>");
}

OString prtstream::GetPortUDPPort() {
    return AskPort("<port action='get' name='udp_port'/>");
}

OString prtstream::GetPortDescription() {
    return AskPort("<port action='get' name='description'/>");
}

OString prtstream::GetPortProtocol() {
    return AskPort("<port action='get' name='protocol'/>");
}

bool prtstream::is_bidirectional() {
    const prtmodel* model = GetModel();
    if (!model) return false;
    char type[33] = {};
    char bidirectional[32] = {};
    if (!XPML_Query(kTypeRequest, type, 32) ||
        !XPML_Query(kBidirectionalRequest, bidirectional, 32) || !bidirectional[0])
        return false;
    const OString name = type;
    if (name == "LPT") return !IsWindowsNT4() && model->IsBidiParallel();
    if (name == "USB") return model->IsBidiUSB();
    return true;
}

bool prtstream::IsMonitorSupported() {
    if (!ui_) return false;
    // Tells the monitor which printer is meant. The answer does not matter.
    OString request = "<printer name='";
    request << ui_->printer_name << "'/>";
    char ignored = 0;
    XPML_Query(request.nstring(), &ignored, 1);

    OString name = "Monitoring Supported";
    name << GetTickCount();
    unsigned char supported = 0;
    prtreg printer(ui_->printer_name);
    const bool read = printer.GetPrinterDataW(name, REG_BINARY, &supported, sizeof supported);
    printer.DeletePrinterDataKey(name);
    return read && supported != 0;
}

bool prtstream::IsMonitorEnabled() {
    char type[260] = {};
    return XPML_Query(kTypeRequest, type, sizeof type);
}

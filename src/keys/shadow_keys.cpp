#include "keys/shadow_keys.h"

#include <windows.h>

#include <cstring>

#include "keys/network_policy.h"
#include "keys/prtreg.h"
#include "keys/shadow_request.h"
#include "keys/shared_keys_text.h"

namespace {

bool IsExchanged(const prtreg& registry) {
    return registry.IsShadow() && NetworkPolicy(registry).IsNetworkShared();
}

// The server's name for its printer.
OString NameOnServer(const OString& printer_name) {
    const WCHAR* name = printer_name.wstring();
    for (const WCHAR* c = name; *c; ++c) {
        if (*c == '\\') name = c + 1;
    }
    return OString(name);
}

// Asks the server. 0 if it does not answer.
uint32_t Ask(prtreg& registry, ShadowRequest& request, ShadowRequest::Action action,
             const OString& printer_name) {
    request.action = action;
    request.printer = NameOnServer(printer_name);
    request.tick = static_cast<int32_t>(GetTickCount());
    uint32_t answer = 0;
    registry.GetPrinterDataW(request.Text(), REG_DWORD, &answer, sizeof answer);
    return answer;
}

} // namespace

void CreateShadow(const OString& printer_name) {
    prtreg registry(printer_name);
    if (!IsExchanged(registry)) return;
    OStringArray keys;
    registry.EnumShadowKeys(keys);
    ShadowRequest request;
    for (int i = 0; i < keys.GetSize(); ++i) {
        const uint32_t checksum = SharedKeysChecksum(registry, keys[i]);
        registry.SetDWORD(keys[i] + " CRC32", checksum);
        request.Add(keys[i], checksum);
    }

    const uint32_t size = Ask(registry, request, ShadowRequest::EXPORT, printer_name);
    OBuffer<char> bytes;
    if (size == 0 || size > kMaxSharedKeyData || !bytes.SetSize(size)) return;
    std::memset(bytes.GetData(), 0, size); // the server may send less than announced
    OStringArray received;
    if (!registry.GetPrinterDataW(kSharedKeyData, REG_BINARY, bytes.GetData(), size) ||
        !UnpackSharedKeys(bytes, received))
        return;
    OStringArray lines;
    RenameSharedKeys(received, registry.GetPrinterPart(), registry.SubstituteWindowsSyntax("DATA:"),
                     registry.SubstituteWindowsSyntax("LOCAL:"), lines);
    if (!registry.HasFailed()) registry.Import(lines);
}

void CommitShadow(const OString& printer_name) {
    prtreg registry(printer_name);
    if (!IsExchanged(registry)) return;
    OStringArray keys;
    registry.EnumShadowKeys(keys);
    ShadowRequest request;
    OStringArray lines;
    SurvivingLines surviving(lines);
    for (int i = 0; i < keys.GetSize(); ++i) {
        registry.Export(keys[i], surviving);
        request.Add(keys[i], 0);
    }

    OBuffer<char> bytes;
    // Incomplete settings would delete the missing ones on the server.
    if (registry.HasFailed() || !PackSharedKeys(lines, bytes)) return;
    const uint32_t size = bytes.GetSize();
    if (registry.SetPrinterDataW(kSharedKeyData, REG_BINARY, bytes.GetData(), size) &&
        registry.SetPrinterDataW(kSharedKeySize, REG_DWORD, &size, sizeof size))
        Ask(registry, request, ShadowRequest::IMPORT, printer_name);
}

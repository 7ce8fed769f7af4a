#include "qstmon/shadow_server.h"

#include <mutex>

#include "keys/prtreg.h"
#include "keys/shadow_request.h"
#include "keys/shared_keys_text.h"
#include "registry/oregistry_names.h"

namespace {

constexpr char kData[] = "DATA:Shadow Key Data";
constexpr char kSize[] = "DATA:Shadow Key Size";
constexpr char kStamp[] = "DATA:Model Synchronization";

// The settings of a printer in their home, the registry of its own machine.
class HomeRegistry : public prtreg {
public:
    explicit HomeRegistry(const OString& printer)
        : prtreg(printer) {
        SetShadow(false);
        ReleaseKey(); // init has opened this machine's keys
        if (!IsRemote()) return;
        const OString server = OString("\\\\") << GetServerName();
        if (RegConnectRegistryW(server.wstring(), HKEY_LOCAL_MACHINE, &machine_) != ERROR_SUCCESS)
            machine_ = nullptr;
    }
    ~HomeRegistry() override {
        ReleaseKey();
        if (machine_) RegCloseKey(machine_);
    }

    bool IsShared() {
        return !GetPrinterName().IsEmpty() && GetByte("Settings:Network Sharing", 1) != 0 &&
               Enable_BiDirectional_On();
    }

    // The path of a printer's data in Windows notation.
    OString DataPath(const OString& printer) {
        OString key = "PRINT:Printers/";
        return SubstituteWindowsSyntax(key << EncodeName(printer) << "/PrinterDriverData");
    }
    OString LocalPath() { return SubstituteWindowsSyntax("LOCAL:"); }

    HKEY OpenKey(const OString& key, bool create) override {
        if (!IsRemote()) return prtreg::OpenKey(key, create);
        if (!machine_ || !BeginsNoCase(key.wstring(), "2:")) return nullptr;
        const OString path = DecodeName(ReplaceText(OString(key.wstring() + 2), "/", "\\"));
        return OpenKeyBelow(machine_, path, create);
    }

private:
    HKEY machine_ = nullptr; // another machine's
};

bool TakeOver(HomeRegistry& home, const ShadowRequest& request) {
    const int32_t size = home.GetSize(kData);
    const uint32_t announced = home.GetDWORD(kSize, 0);
    if (size <= 0 || static_cast<uint32_t>(size) != announced || announced > kMaxSharedKeyData)
        return false;
    OBuffer<char> bytes(announced);
    OStringArray received;
    const bool whole = home.GetBinary(kData, bytes.GetData(), bytes.GetSize()) == size &&
                       UnpackSharedKeys(bytes, received);
    OStringArray lines;
    if (whole) {
        RenameSharedKeys(received, request.printer, home.DataPath(home.GetPrinterPart()),
                         home.LocalPath(), lines);
        if (!home.HasFailed()) home.Import(lines);
    }
    // What could not be taken over stays where the client left it.
    if (home.HasFailed()) return false;
    home.Delete(kData, false);
    home.Delete(kSize, false);
    if (!whole) return false;
    const uint32_t now = GetTickCount();
    home.SetDWORD(kStamp, now == home.GetDWORD(kStamp, 0) ? now + 1 : now);
    return true;
}

int Find(const OStringArray& keys, const OString& key) {
    for (int i = 0; i < keys.GetSize(); ++i)
        if (keys[i].CompareNoCase(key) == 0) return i;
    return -1;
}

uint32_t MakeReady(HomeRegistry& home, const ShadowRequest& request) {
    const OString data = home.DataPath(request.printer);
    OStringArray keys, news;
    home.EnumShadowKeys(keys);
    for (int i = 0; i < keys.GetSize(); ++i) {
        OStringArray lines, renamed;
        home.Export(keys[i], lines);
        RenameSharedKeys(lines, home.GetPrinterPart(), data, home.LocalPath(), renamed);
        const int known = Find(request.keys, keys[i]);
        if (known < 0 || request.checksums[known] != SharedKeysChecksum(renamed))
            news.Append(renamed);
    }
    OStringArray gone;
    for (int i = 0; i < request.keys.GetSize(); ++i) {
        if (Find(keys, request.keys[i]) >= 0) continue;
        WideText line;
        line.AddAscii("[-");
        line.Add(home.SubstituteWindowsSyntax(request.keys[i]));
        line.Add(']');
        gone.Add(line.String());
    }
    RenameSharedKeys(gone, home.GetPrinterPart(), data, home.LocalPath(), news);

    OBuffer<char> bytes;
    // News that were read only in part would make the client delete the rest.
    if (home.HasFailed() || news.GetSize() == 0 || !PackSharedKeys(news, bytes)) return 0;
    home.Delete(kSize, false); // this value belongs to what clients leave
    return home.SetBinary(kData, bytes.GetData(), bytes.GetSize()) < 0 ? 0 : bytes.GetSize();
}

} // namespace

std::optional<uint32_t> AnswerShadowRequest(LPCWSTR printer, std::string_view document) {
    ShadowRequest request;
    if (!request.Parse(document.data(), document.size())) return std::nullopt;
    static std::mutex lock;
    const std::lock_guard guard(lock);
    HomeRegistry home{OString(printer)};
    if (!home.IsShared()) return std::nullopt;
    const bool taken = TakeOver(home, request);
    if (request.action == ShadowRequest::IMPORT) return taken ? 1 : 0;
    return MakeReady(home, request);
}

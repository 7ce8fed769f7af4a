#include "gdi/rendering_module.h"

#include "host/text.h"

#include <map>
#include <mutex>

namespace win32host {
namespace {

template <class Function>
Function As(PFN function) {
    return reinterpret_cast<Function>(reinterpret_cast<void (*)()>(function));
}

template <class Function>
Function Export(HMODULE module, const char* name) {
    return reinterpret_cast<Function>(reinterpret_cast<void (*)()>(GetProcAddress(module, name)));
}

struct Loaded {
    std::mutex lock;
    std::map<std::u16string, std::weak_ptr<const RenderingModule>> modules;
};

// Lives until the process ends, like the modules themselves.
Loaded& TheLoaded() {
    static Loaded* loaded = new Loaded;
    return *loaded;
}

} // namespace

std::shared_ptr<const RenderingModule> RenderingModule::Load(const std::u16string& file) {
    std::u16string key = file;
    for (char16_t& unit : key) unit = UpperOf(unit);
    Loaded& loaded = TheLoaded();
    // Held while the module is enabled, so that it is enabled once only.
    std::lock_guard guard(loaded.lock);
    std::weak_ptr<const RenderingModule>& known = loaded.modules[key];
    if (auto module = known.lock()) return module;
    const HMODULE handle = LoadLibraryW(file.c_str());
    if (!handle) return nullptr;
    const auto module = std::make_shared<RenderingModule>(handle);
    if (!module->Enable()) {
        SetLastError(ERROR_BAD_DRIVER);
        return nullptr;
    }
    known = module;
    return module;
}

bool RenderingModule::Enable() {
    const auto enable = Export<PFN_DrvEnableDriver>(module_, "DrvEnableDriver");
    DRVENABLEDATA data = {};
    if (!enable || !enable(DDI_DRIVER_VERSION_NT5, sizeof data, &data)) return false;
    enabled_ = true;
    for (ULONG i = 0; i < data.c; ++i) {
        const PFN function = data.pdrvfn[i].pfn;
        switch (data.pdrvfn[i].iFunc) {
        case INDEX_DrvEnablePDEV:
            enable_device = As<PFN_DrvEnablePDEV>(function);
            break;
        case INDEX_DrvCompletePDEV:
            complete_device = As<PFN_DrvCompletePDEV>(function);
            break;
        case INDEX_DrvDisablePDEV:
            disable_device = As<PFN_DrvDisablePDEV>(function);
            break;
        case INDEX_DrvEscape:
            escape = As<PFN_DrvEscape>(function);
            break;
        case INDEX_DrvSendPage:
            send_page = As<PFN_DrvSendPage>(function);
            break;
        case INDEX_DrvStartPage:
            start_page = As<PFN_DrvStartPage>(function);
            break;
        case INDEX_DrvEndDoc:
            end_doc = As<PFN_DrvEndDoc>(function);
            break;
        case INDEX_DrvStartDoc:
            start_doc = As<PFN_DrvStartDoc>(function);
            break;
        case INDEX_DrvBitBlt:
            bit_blt = As<PFN_DrvBitBlt>(function);
            break;
        default: // other drawing, which this host does not support
            break;
        }
    }
    return enable_device && disable_device;
}

RenderingModule::~RenderingModule() {
    const auto disable = Export<PFN_DrvDisableDriver>(module_, "DrvDisableDriver");
    if (enabled_ && disable) disable();
    FreeLibrary(module_);
}

} // namespace win32host

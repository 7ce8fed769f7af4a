#include "ui/activation_context.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "core/ostring.h"

namespace {

constexpr char kManifest[] = "\\Valdrick.Drivers.manifest";

// What CreateActCtxW takes; only the file is given.
struct ActivationSource {
    uint32_t size;
    uint32_t flags;
    const WCHAR* source;
    uint16_t processor;
    uint16_t language;
    const WCHAR* folder;
    const WCHAR* resource;
    const WCHAR* application;
    HMODULE module;
};
static_assert(sizeof(void*) == 8 || sizeof(ActivationSource) == 32);

template <class Function>
Function* FindInKernel(const char* name) {
    const HMODULE kernel = GetModuleHandleW(TEXT("kernel32.dll"));
    return kernel
               ? reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(kernel, name)))
               : nullptr;
}

} // namespace

ActivationContext::ActivationContext() {
    auto* const create = FindInKernel<HANDLE WINAPI(const ActivationSource*)>("CreateActCtxW");
    WCHAR folder[MAX_PATH] = {};
    if (!create || GetSystemDirectoryW(folder, MAX_PATH) == 0) return;
    OString path(folder);
    path << kManifest;
    ActivationSource source = {};
    source.size = sizeof source;
    source.source = path.wstring();
    context_ = create(&source);
}

ActivationContext::~ActivationContext() {
    if (!Exists()) return;
    if (auto* const release = FindInKernel<void WINAPI(HANDLE)>("ReleaseActCtx")) release(context_);
}

HPROPSHEETPAGE ActivationContext::CreatePropertySheetPageW(const PROPSHEETPAGEW* page) const {
    if (!Exists()) return ::CreatePropertySheetPageW(page);
    PROPSHEETPAGEW themed = {};
    std::memcpy(&themed, page, std::min<size_t>(page->dwSize, sizeof themed));
    themed.dwSize = sizeof themed;
    themed.dwFlags |= PSP_USEFUSIONCONTEXT;
    themed.hActCtx = context_;
    return ::CreatePropertySheetPageW(&themed);
}

// A driver's rendering module, loaded and ready to call.
#pragma once

#include <windows.h>

#include <winddi.h>

#include <memory>
#include <string>

namespace win32host {

class RenderingModule {
public:
    // The module with this full name, which stays loaded while somebody holds it. Null with the
    // loader's error, or with ERROR_BAD_DRIVER if it provides no device functions.
    static std::shared_ptr<const RenderingModule> Load(const std::u16string& file);

    explicit RenderingModule(HMODULE module)
        : module_(module) {}
    ~RenderingModule();
    RenderingModule(const RenderingModule&) = delete;
    RenderingModule& operator=(const RenderingModule&) = delete;

    // Those that Load requires are never null; the others may be.
    PFN_DrvEnablePDEV enable_device = nullptr;
    PFN_DrvDisablePDEV disable_device = nullptr;
    PFN_DrvCompletePDEV complete_device = nullptr;
    PFN_DrvStartDoc start_doc = nullptr;
    PFN_DrvStartPage start_page = nullptr;
    PFN_DrvSendPage send_page = nullptr;
    PFN_DrvEndDoc end_doc = nullptr;
    PFN_DrvEscape escape = nullptr;
    PFN_DrvBitBlt bit_blt = nullptr;

private:
    bool Enable();

    HMODULE module_;
    bool enabled_ = false;
};

} // namespace win32host

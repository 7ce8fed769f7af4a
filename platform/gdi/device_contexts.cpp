// Device contexts and the documents printed on them.
#include "gdi/device_context.h"
#include "gdi/drawing_context.h"
#include "host/guarded.h"
#include "host/text.h"

using namespace win32host;

namespace {

HDC Create(LPCWSTR driver, LPCWSTR device, const DEVMODEW* dev_mode, bool information_only) {
    return Guarded(HDC{}, [&]() -> HDC {
        if (!device || (driver && *driver && !SameName(driver, u"WINSPOOL"))) {
            SetLastError(ERROR_INVALID_PARAMETER);
            return nullptr;
        }
        const auto context = DeviceContext::Create(device, dev_mode, information_only);
        if (!context) return nullptr;
        const HDC handle = static_cast<HDC>(NewHandle(context));
        context->SetHandle(handle);
        return handle;
    });
}

// Runs `work` with the device context of a handle, or answers `failure` if there is none.
template <class Work>
int WithPrinter(HDC handle, int failure, const Work& work) {
    return Guarded(failure, [&] {
        const auto context = Find<DeviceContext>(handle);
        return context ? work(*context) : failure;
    });
}

bool IsDrawing(HDC dc) {
    return std::dynamic_pointer_cast<DrawingContext>(FindObject(dc)) != nullptr;
}

} // namespace

extern "C" {

HDC WINAPI CreateDCW(LPCWSTR driver, LPCWSTR device, LPCWSTR, const DEVMODEW* dev_mode) {
    return Create(driver, device, dev_mode, false);
}

HDC WINAPI CreateICW(LPCWSTR driver, LPCWSTR device, LPCWSTR, const DEVMODEW* dev_mode) {
    return Create(driver, device, dev_mode, true);
}

BOOL WINAPI DeleteDC(HDC dc) {
    return Guarded(FALSE, [&] {
        if (IsDrawing(dc)) return BOOL{Close<DrawingContext>(dc) != nullptr};
        const auto context = Find<DeviceContext>(dc);
        if (!context) return FALSE;
        context->Close();
        return BOOL{Close<DeviceContext>(dc) != nullptr};
    });
}

int WINAPI GetDeviceCaps(HDC dc, int index) {
    if (const auto drawing = std::dynamic_pointer_cast<DrawingContext>(FindObject(dc)))
        return drawing->GetDeviceCaps(index);
    return WithPrinter(dc, 0, [&](const DeviceContext& context) { return context.Caps(index); });
}

int WINAPI StartDocW(HDC dc, const DOCINFOW* info) {
    return WithPrinter(dc, SP_ERROR, [&](DeviceContext& context) {
        if (info) return context.StartDoc(*info);
        SetLastError(ERROR_INVALID_PARAMETER);
        return SP_ERROR;
    });
}

int WINAPI StartPage(HDC dc) {
    return WithPrinter(dc, SP_ERROR, [](DeviceContext& context) { return context.StartPage(); });
}

int WINAPI EndPage(HDC dc) {
    return WithPrinter(dc, SP_ERROR, [](DeviceContext& context) { return context.EndPage(); });
}

int WINAPI EndDoc(HDC dc) {
    return WithPrinter(dc, SP_ERROR, [](DeviceContext& context) { return context.EndDoc(); });
}

int WINAPI AbortDoc(HDC dc) {
    return WithPrinter(dc, SP_ERROR, [](DeviceContext& context) { return context.AbortDoc(); });
}

int WINAPI ExtEscape(HDC dc, int escape, int input_size, LPCSTR input, int output_size,
                     LPSTR output) {
    return WithPrinter(dc, SP_ERROR, [&](DeviceContext& context) {
        return context.Escape(escape, input_size, input, output_size, output);
    });
}

int WINAPI SetMapMode(HDC dc, int mode) {
    return Guarded(0, [&] {
        if (!IsDrawing(dc) && !Find<DeviceContext>(dc)) return 0;
        return mode == MM_TEXT ? MM_TEXT : static_cast<int>(Fail(ERROR_INVALID_PARAMETER));
    });
}

} // extern "C"

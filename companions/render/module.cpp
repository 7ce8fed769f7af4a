// The functions that GDI calls.
#include <windows.h>

#include <winddi.h>

#include <algorithm>
#include <cstring>
#include <exception>
#include <memory>

#include "device.h"

namespace {

Device* DeviceOf(SURFOBJ* surface) {
    return reinterpret_cast<Device*>(surface->dhpdev);
}

// No exception leaves the module.
template <class Answer, class Body>
Answer Guarded(Answer failure, const Body& body) {
    try {
        return body();
    } catch (const std::exception&) {
        return failure;
    }
}

DHPDEV APIENTRY EnablePDEV(DEVMODEW* dev_mode, LPWSTR, ULONG, HSURF*, ULONG caps_size, ULONG* caps,
                           ULONG info_size, DEVINFO* info, HDEV, LPWSTR device_name,
                           HANDLE driver) {
    return Guarded(DHPDEV{}, [&]() -> DHPDEV {
        auto device = std::make_unique<Device>(driver, device_name);
        GDIINFO facts = {};
        device->Describe(dev_mode, facts);
        if (caps) std::memcpy(caps, &facts, std::min<size_t>(caps_size, sizeof facts));
        if (info) std::memset(info, 0, std::min<size_t>(info_size, sizeof *info));
        return reinterpret_cast<DHPDEV>(device.release());
    });
}

void APIENTRY CompletePDEV(DHPDEV, HDEV) {}

void APIENTRY DisablePDEV(DHPDEV device) {
    delete reinterpret_cast<Device*>(device);
}

BOOL APIENTRY StartDocument(SURFOBJ* surface, LPWSTR, DWORD) {
    DeviceOf(surface)->StartDocument();
    return TRUE;
}

BOOL APIENTRY StartOnePage(SURFOBJ* surface) {
    DeviceOf(surface)->Reset();
    return TRUE;
}

BOOL APIENTRY SendOnePage(SURFOBJ* surface) {
    return DeviceOf(surface)->SendPage();
}

BOOL APIENTRY EndDocument(SURFOBJ* surface, ULONG flags) {
    return Guarded(BOOL{FALSE}, [&]() -> BOOL {
        // What a cancelled document did is forgotten when the next one starts.
        if (!(flags & ED_ABORTDOC)) return DeviceOf(surface)->EndDocument();
        DeviceOf(surface)->Reset();
        return TRUE;
    });
}

ULONG APIENTRY AnswerEscape(SURFOBJ* surface, ULONG escape, ULONG input_size, PVOID input,
                            ULONG output_size, PVOID output) {
    return static_cast<ULONG>(Guarded(-1, [&] {
        return DeviceOf(surface)->Escape(
            escape, static_cast<const unsigned char*>(input), input ? input_size : 0,
            static_cast<unsigned char*>(output), output ? output_size : 0);
    }));
}

BOOL APIENTRY CombineArea(SURFOBJ* surface, SURFOBJ*, SURFOBJ*, CLIPOBJ*, XLATEOBJ*, RECTL* area,
                          POINTL*, POINTL*, BRUSHOBJ*, POINTL*, ROP4 operation) {
    const bool black = operation == 0x0000;
    if (!black && operation != 0xFFFF) return FALSE;
    return DeviceOf(surface)->Fill(*area, black);
}

template <class Function>
DRVFN Entry(ULONG index, Function function) {
    return {index, reinterpret_cast<PFN>(reinterpret_cast<void (*)()>(function))};
}

DRVFN g_functions[] = {
    Entry(INDEX_DrvEnablePDEV, EnablePDEV),   Entry(INDEX_DrvCompletePDEV, CompletePDEV),
    Entry(INDEX_DrvDisablePDEV, DisablePDEV), Entry(INDEX_DrvStartDoc, StartDocument),
    Entry(INDEX_DrvStartPage, StartOnePage),  Entry(INDEX_DrvSendPage, SendOnePage),
    Entry(INDEX_DrvEndDoc, EndDocument),      Entry(INDEX_DrvEscape, AnswerEscape),
    Entry(INDEX_DrvBitBlt, CombineArea),
};

} // namespace

extern "C" {

__declspec(dllexport) BOOL APIENTRY DrvEnableDriver(ULONG, ULONG size, DRVENABLEDATA* data) {
    if (!data || size < sizeof *data) return FALSE;
    data->iDriverVersion = DDI_DRIVER_VERSION_NT5;
    data->c = static_cast<ULONG>(std::size(g_functions));
    data->pdrvfn = g_functions;
    return TRUE;
}

__declspec(dllexport) void APIENTRY DrvDisableDriver() {}

} // extern "C"

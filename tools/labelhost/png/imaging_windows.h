// The system's imaging component, which has a codec for PNG files.
#pragma once

#include "fault.h"

#include <windows.h>

#include <wincodec.h>

#include <memory>

// An object of the component, released with its owner.
struct Releaser {
    void operator()(IUnknown* object) const { object->Release(); }
};
template <class Interface>
using ComObject = std::unique_ptr<Interface, Releaser>;

// Throws the Fault `what` if a call of the component has failed.
inline void Require(HRESULT result, const char* what) {
    if (result == E_OUTOFMEMORY) throw Fault("not enough memory");
    if (FAILED(result)) throw Fault(what);
}

// The object that `make(&object)` delivers. Throws the Fault `what` if there is none.
template <class Interface, class Make>
ComObject<Interface> Made(const char* what, Make make) {
    Interface* object = nullptr;
    Require(make(&object), what);
    return ComObject<Interface>(object);
}

// The component. Destroy the objects that it made before it.
class Imaging {
public:
    // Throws Fault if the system does not have it.
    Imaging()
        : factory_(
              Made<IWICImagingFactory>("this system has no imaging component", [](auto** made) {
                  return CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                          IID_IWICImagingFactory, reinterpret_cast<void**>(made));
              })) {}

    IWICImagingFactory* operator->() const { return factory_.get(); }

private:
    // Initializes components for the thread.
    struct Components {
        Components()
            : result(CoInitializeEx(nullptr, COINIT_MULTITHREADED)) {}
        ~Components() {
            if (SUCCEEDED(result)) CoUninitialize();
        }
        Components(const Components&) = delete;
        Components& operator=(const Components&) = delete;
        const HRESULT result;
    };

    const Components components_;
    const ComObject<IWICImagingFactory> factory_;
};

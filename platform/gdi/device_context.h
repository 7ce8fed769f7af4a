// What a device context handle names: a printer with certain settings, and a document on it.
#pragma once

#include "gdi/font.h"
#include "gdi/rendering_module.h"
#include "host/handles.h"
#include "spooler/driver_library.h"

#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace win32host {

// Tells the driver what happens to the document, has the rendering module make the output, and
// hands that to the spooler. Operations answer as the GDI functions of the same names do. When two
// threads use a device context, one of them waits.
class DeviceContext : public HandleObject {
public:
    // Null, with the last error set, on failure.
    static std::shared_ptr<DeviceContext> Create(const std::u16string& printer,
                                                 const DEVMODEW* dev_mode, bool information_only);
    ~DeviceContext() override;
    DeviceContext(const DeviceContext&) = delete;
    DeviceContext& operator=(const DeviceContext&) = delete;

    // The handle that the driver is told.
    void SetHandle(HDC handle) { handle_ = handle; }

    int Caps(int index) const;
    int StartDoc(const DOCINFOW& info);
    int StartPage();
    int EndPage();
    int EndDoc();
    int AbortDoc();
    int Escape(int escape, int input_size, LPCSTR input, int output_size, LPSTR output);
    bool PatBlt(int x, int y, int width, int height, DWORD operation);
    // Selects a font and returns the one before; null for other objects.
    HGDIOBJ SelectFont(HGDIOBJ handle);
    bool TextOut(int x, int y, const std::u16string& text);
    // Ends everything before the handle is closed.
    void Close();

private:
    DeviceContext() = default;
    bool Open(const std::u16string& printer, const DEVMODEW* dev_mode);
    bool EnableDevice(std::vector<BYTE> dev_mode);
    // Raises a document event. Answers -1 if the driver refuses it.
    int Event(int event, ULONG input_size = 0, void* input = nullptr, ULONG output_size = 0,
              void* output = nullptr) const;
    int FinishPage();
    void DropDocument();

    mutable std::recursive_mutex lock_; // a driver may call back from its events
    HDC handle_ = nullptr;
    bool information_only_ = false;
    std::u16string name_;
    HANDLE printer_ = nullptr;
    std::shared_ptr<const DriverLibrary> driver_; // null: nobody is told
    std::shared_ptr<const RenderingModule> module_;
    SURFOBJ surface_ = {};
    HGDIOBJ font_handle_ = GetStockObject(SYSTEM_FONT);
    std::shared_ptr<Font> font_ = FindGdi<Font>(font_handle_);
    GDIINFO device_ = {};
    bool in_document_ = false;
    bool in_page_ = false;
};

} // namespace win32host

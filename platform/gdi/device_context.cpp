#include "gdi/device_context.h"

#include "gdi/printed_text.h"
#include "spooler/opened_printer.h"

#include <winddiui.h>
#include <winspool.h>

#include <algorithm>
#include <utility>

namespace win32host {
namespace {

// The settings of a device context without a DEVMODE. Empty if the driver cannot tell them.
std::vector<BYTE> DefaultSettings(HANDLE printer, std::u16string name) {
    const LONG size = DocumentPropertiesW(nullptr, printer, name.data(), nullptr, nullptr, 0);
    if (size <= 0) return {};
    std::vector<BYTE> settings(static_cast<size_t>(size));
    if (DocumentPropertiesW(nullptr, printer, name.data(),
                            reinterpret_cast<DEVMODEW*>(settings.data()), nullptr,
                            DM_OUT_BUFFER) < 0)
        return {};
    return settings;
}

// A size in millimetres; a negative one is in micrometres.
int Millimetres(ULONG size) {
    const auto number = static_cast<LONG>(size);
    return number >= 0 ? number : static_cast<int>((-int64_t{number} + 500) / 1000);
}

} // namespace

std::shared_ptr<DeviceContext> DeviceContext::Create(const std::u16string& printer,
                                                     const DEVMODEW* dev_mode,
                                                     bool information_only) {
    std::shared_ptr<DeviceContext> context(new DeviceContext); // the constructor is private
    context->information_only_ = information_only;
    if (!context->Open(printer, dev_mode)) return nullptr;
    return context;
}

DeviceContext::~DeviceContext() {
    DropDocument();
    if (surface_.dhpdev) module_->disable_device(surface_.dhpdev);
    if (printer_) ClosePrinter(printer_);
}

bool DeviceContext::Open(const std::u16string& printer, const DEVMODEW* dev_mode) {
    name_ = printer;
    if (name_.empty()) return Fail(ERROR_INVALID_PRINTER_NAME);
    if (!OpenPrinterW(name_.data(), &printer_, nullptr)) {
        printer_ = nullptr;
        return false;
    }
    const auto opened = FindPrinter(printer_);
    if (!opened) return false;
    name_ = opened->FullName();
    const auto driver = opened->Driver();
    if (!driver) return false;
    driver_ = LoadDriver(driver->name);

    std::vector<BYTE> settings = CheckedDevMode(dev_mode);
    if (dev_mode && settings.empty()) return Fail(ERROR_INVALID_PARAMETER);
    if (!dev_mode) settings = DefaultSettings(printer_, name_);
    PDEVMODEW wanted = settings.empty() ? nullptr : reinterpret_cast<PDEVMODEW>(settings.data());
    PDEVMODEW changed = nullptr;
    std::u16string spooler = u"WINSPOOL";
    DOCEVENT_CREATEDCPRE creation = {spooler.data(), name_.data(), wanted,
                                     information_only_ ? TRUE : FALSE};
    if (Event(DOCUMENTEVENT_CREATEDCPRE, sizeof creation, &creation, sizeof changed, &changed) ==
        DOCUMENTEVENT_FAILURE)
        return Fail(ERROR_CANCELLED);
    if (changed) settings = CheckedDevMode(changed);

    module_ = RenderingModule::Load(PrintServer::Named({})->InstalledFolder() + u'\\' +
                                    driver->driver_file);
    return module_ && EnableDevice(std::move(settings));
}

bool DeviceContext::EnableDevice(std::vector<BYTE> dev_mode) {
    DEVINFO info = {};
    surface_.dhpdev = module_->enable_device(
        dev_mode.empty() ? nullptr : reinterpret_cast<DEVMODEW*>(dev_mode.data()), nullptr, 0,
        nullptr, sizeof device_, reinterpret_cast<ULONG*>(&device_), sizeof info, &info, nullptr,
        name_.data(), printer_);
    if (!surface_.dhpdev) return Fail(ERROR_BAD_DRIVER);
    if (module_->complete_device) module_->complete_device(surface_.dhpdev, nullptr);
    Event(DOCUMENTEVENT_CREATEDCPOST);
    return true;
}

int DeviceContext::Event(int event, ULONG input_size, void* input, ULONG output_size,
                         void* output) const {
    if (!driver_) return DOCUMENTEVENT_UNSUPPORTED;
    return driver_->DocumentEvent(printer_, handle_, event, input_size, input, output_size, output);
}

int DeviceContext::Caps(int index) const {
    switch (index) {
    case DRIVERVERSION:
        return static_cast<int>(device_.ulVersion);
    case TECHNOLOGY:
        return static_cast<int>(device_.ulTechnology);
    case HORZSIZE:
        return Millimetres(device_.ulHorzSize);
    case VERTSIZE:
        return Millimetres(device_.ulVertSize);
    case HORZRES:
        return static_cast<int>(device_.ulHorzRes);
    case VERTRES:
        return static_cast<int>(device_.ulVertRes);
    case BITSPIXEL:
        return static_cast<int>(device_.cBitsPixel);
    case PLANES:
        return static_cast<int>(device_.cPlanes);
    case NUMCOLORS:
        return static_cast<int>(device_.ulNumColors);
    case RASTERCAPS:
        return static_cast<int>(device_.flRaster);
    case ASPECTX:
        return static_cast<int>(device_.ulAspectX);
    case ASPECTY:
        return static_cast<int>(device_.ulAspectY);
    case ASPECTXY:
        return static_cast<int>(device_.ulAspectXY);
    case LOGPIXELSX:
        return static_cast<int>(device_.ulLogPixelsX);
    case LOGPIXELSY:
        return static_cast<int>(device_.ulLogPixelsY);
    case PHYSICALWIDTH:
        return device_.szlPhysSize.cx;
    case PHYSICALHEIGHT:
        return device_.szlPhysSize.cy;
    case PHYSICALOFFSETX:
        return device_.ptlPhysOffset.x;
    case PHYSICALOFFSETY:
        return device_.ptlPhysOffset.y;
    default:
        return 0;
    }
}

int DeviceContext::StartDoc(const DOCINFOW& info) {
    const auto fail = [](DWORD code) {
        SetLastError(code);
        return SP_ERROR;
    };
    std::lock_guard guard(lock_);
    if (information_only_ || in_document_) return fail(ERROR_INVALID_HANDLE);
    if (info.lpszOutput && *info.lpszOutput) return fail(ERROR_NOT_SUPPORTED);
    const DOCINFOW* input = &info;
    if (Event(DOCUMENTEVENT_STARTDOCPRE, sizeof input, &input) == DOCUMENTEVENT_FAILURE)
        return fail(ERROR_CANCELLED);

    std::u16string name = info.lpszDocName ? info.lpszDocName : u"";
    std::u16string datatype = info.lpszDatatype ? info.lpszDatatype : u"RAW";
    DOC_INFO_1W document = {name.data(), nullptr, datatype.data()};
    const DWORD job = StartDocPrinterW(printer_, 1, reinterpret_cast<LPBYTE>(&document));
    if (!job) return SP_ERROR;
    in_document_ = true;
    if (module_->start_doc && !module_->start_doc(&surface_, name.data(), job)) {
        DropDocument();
        return SP_ERROR;
    }
    DWORD number = job;
    Event(DOCUMENTEVENT_STARTDOCPOST, sizeof number, &number);
    return static_cast<int>(job);
}

int DeviceContext::StartPage() {
    std::lock_guard guard(lock_);
    if (!in_document_ || in_page_) return SP_ERROR;
    if (Event(DOCUMENTEVENT_STARTPAGE) == DOCUMENTEVENT_FAILURE) return SP_ERROR;
    if (!StartPagePrinter(printer_)) return SP_ERROR;
    if (module_->start_page && !module_->start_page(&surface_)) return SP_ERROR;
    in_page_ = true;
    return 1;
}

int DeviceContext::FinishPage() {
    in_page_ = false;
    Event(DOCUMENTEVENT_ENDPAGE);
    const bool sent = !module_->send_page || module_->send_page(&surface_);
    return sent && EndPagePrinter(printer_) ? 1 : SP_ERROR;
}

int DeviceContext::EndPage() {
    std::lock_guard guard(lock_);
    return in_page_ ? FinishPage() : SP_ERROR;
}

int DeviceContext::EndDoc() {
    std::lock_guard guard(lock_);
    if (!in_document_) return SP_ERROR;
    if (in_page_) FinishPage();
    Event(DOCUMENTEVENT_ENDDOCPRE);
    in_document_ = false;
    const bool written = !module_->end_doc || module_->end_doc(&surface_, 0);
    const bool spooled = EndDocPrinter(printer_) != FALSE;
    Event(DOCUMENTEVENT_ENDDOCPOST);
    return written && spooled ? 1 : SP_ERROR;
}

void DeviceContext::DropDocument() {
    if (!in_document_) return;
    in_document_ = in_page_ = false;
    if (module_->end_doc) module_->end_doc(&surface_, ED_ABORTDOC);
    AbortPrinter(printer_);
}

int DeviceContext::AbortDoc() {
    std::lock_guard guard(lock_);
    if (!in_document_) return SP_ERROR;
    Event(DOCUMENTEVENT_ABORTDOC);
    DropDocument();
    return 1;
}

int DeviceContext::Escape(int escape, int input_size, LPCSTR input, int output_size, LPSTR output) {
    std::lock_guard guard(lock_);
    if (!module_->escape) return 0;
    if (input_size < 0 || output_size < 0) return SP_ERROR;
    return static_cast<int>(module_->escape(
        &surface_, static_cast<ULONG>(escape), input ? static_cast<ULONG>(input_size) : 0,
        const_cast<LPSTR>(input), output ? static_cast<ULONG>(output_size) : 0, output));
}

bool DeviceContext::PatBlt(int x, int y, int width, int height, DWORD operation) {
    std::lock_guard guard(lock_);
    if (operation != BLACKNESS && operation != WHITENESS) return Fail(ERROR_NOT_SUPPORTED);
    if (!in_page_) return Fail(ERROR_INVALID_HANDLE);
    if (!module_->bit_blt) return Fail(ERROR_NOT_SUPPORTED);
    const auto cut = [](int64_t start, int64_t extent, ULONG page) {
        const auto end = static_cast<int64_t>(static_cast<LONG>(page));
        const auto [first, last] = std::minmax({start, start + extent});
        return std::pair(static_cast<LONG>(std::clamp<int64_t>(first, 0, end)),
                         static_cast<LONG>(std::clamp<int64_t>(last, 0, end)));
    };
    const auto [left, right] = cut(x, width, device_.ulHorzRes);
    const auto [top, bottom] = cut(y, height, device_.ulVertRes);
    if (left == right || top == bottom) return true;
    RECTL area = {left, top, right, bottom};
    // The third byte of the code is the raster operation; it is the same in fore- and background.
    const ROP4 rop = ((operation >> 16) & 0xFF) * 0x101u;
    return module_->bit_blt(&surface_, nullptr, nullptr, nullptr, nullptr, &area, nullptr, nullptr,
                            nullptr, nullptr, rop) != FALSE;
}

HGDIOBJ DeviceContext::SelectFont(HGDIOBJ handle) {
    std::lock_guard guard(lock_);
    auto font = FindGdi<Font>(handle);
    if (!font) return nullptr;
    font_ = std::move(font);
    return std::exchange(font_handle_, handle);
}

bool DeviceContext::TextOut(int x, int y, const std::u16string& text) {
    std::lock_guard guard(lock_);
    return PrintText(*this, *font_, {x, y}, text);
}

void DeviceContext::Close() {
    std::lock_guard guard(lock_);
    DropDocument();
    Event(DOCUMENTEVENT_DELETEDC);
}

} // namespace win32host

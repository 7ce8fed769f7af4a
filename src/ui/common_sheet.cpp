#include "ui/common_sheet.h"

#include <cstring>

#include "core/memory.h"

namespace {

// A sheet is answered by the last page but two: the driver's last one before its About page and the
// system's own.
constexpr int32_t kAnsweringPage = 3;

} // namespace

void CommonSheet::Open(const PROPSHEETUI_INFO& info) {
    call_ = info.pfnComPropSheet;
    sheet_ = info.hComPropSheet;
}

bool CommonSheet::InsertPage(void* after, unsigned char mode, HPROPSHEETPAGE page) const {
    if (!call_) return false;
    INSERTPSUIPAGE_INFO info = {};
    info.cbSize = sizeof info;
    info.Type = PSUIPAGEINSERT_HPROPSHEETPAGE;
    info.Mode = mode;
    info.dwData1 = reinterpret_cast<ULONG_PTR>(page);
    return call_(sheet_, CPSFUNC_INSERT_PSUIPAGEW, reinterpret_cast<LPARAM>(after),
                 reinterpret_cast<LPARAM>(&info)) > 0;
}

void CommonSheet::ReadPages() {
    if (!call_) return;
    const auto count = static_cast<int32_t>(call_(sheet_, CPSFUNC_GET_PAGECOUNT, 0, 0));
    if (count <= 0) return;
    pages_.reset(new (kCounted) HANDLE[static_cast<size_t>(count)]());
    if (!pages_) return;
    page_count_ = count;
    call_(sheet_, CPSFUNC_GET_HPSUIPAGES, reinterpret_cast<LPARAM>(pages_.get()), count);
}

bool CommonSheet::SetResult(LPARAM result) const {
    if (!call_) return true;
    const HANDLE page = page_count_ >= kAnsweringPage
                            ? pages_[static_cast<size_t>(page_count_ - kAnsweringPage)]
                            : nullptr;
    return call_(sheet_, CPSFUNC_SET_RESULT, reinterpret_cast<LPARAM>(page), result) != 0;
}

bool HasRoom(const DOCUMENTPROPERTYHEADER& header, size_t size) {
    if (header.cbOut == 0 || header.cbOut >= size) return true;
    // Some spoolers do not know the room and give the size of the public part that is there.
    if (!header.pdmOut || header.cbOut < offsetof(DEVMODEW, dmFields)) return false;
    WORD public_size = 0;
    std::memcpy(&public_size,
                reinterpret_cast<const char*>(header.pdmOut) + offsetof(DEVMODEW, dmSize),
                sizeof public_size);
    return header.cbOut == public_size;
}

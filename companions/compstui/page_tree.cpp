#include "compstui/page_tree.h"

#include "compstui/sheet_functions.h"

namespace compstui {
namespace {

// PROPSHEETUI_INFO::Flags: texts are UTF-16.
constexpr WORD kUnicode = 1;

} // namespace

HANDLE PageItem::Handle() const {
    return group ? static_cast<HANDLE>(group.get()) : static_cast<HANDLE>(page);
}

PageGroup::PageGroup(PropertyPages& all, PageGroup* parent, PageFunction function, LPARAM parameter)
    : all_(all)
    , parent_(parent)
    , function_(function) {
    info_.cbSize = sizeof info_;
    info_.Version = PROPSHEETUI_INFO_VERSION;
    info_.Flags = kUnicode;
    info_.hComPropSheet = this;
    info_.pfnComPropSheet = SheetFunction;
    info_.lParamInit = parameter;
}

PageGroup::~PageGroup() {
    items_.clear();
    if (module_) FreeLibrary(module_);
}

LONG PageGroup::Call(WORD reason, LPARAM parameter) {
    if (!function_) return 1;
    info_.Reason = reason;
    return function_(&info_, parameter);
}

bool PageGroup::SetResult(HANDLE about, LRESULT result) {
    SETRESULT_INFO told = {};
    told.cbSize = sizeof told;
    told.hSetResult = about;
    told.Result = result;
    info_.Result = static_cast<ULONG_PTR>(result);
    return Call(PROPSHEETUI_REASON_SET_RESULT, reinterpret_cast<LPARAM>(&told)) > 0;
}

HICON PageGroup::AskIcon(WORD width, WORD height) {
    PROPSHEETUI_GETICON_INFO asked = {};
    asked.cbSize = sizeof asked;
    asked.cxIcon = width;
    asked.cyIcon = height;
    if (!function_ || Call(PROPSHEETUI_REASON_GET_ICON, reinterpret_cast<LPARAM>(&asked)) <= 0)
        return nullptr;
    return asked.hIcon;
}

} // namespace compstui

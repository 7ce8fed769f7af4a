#include "compstui/sheet_functions.h"

#include "compstui/property_pages.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <optional>

namespace compstui {
namespace {

using Place = PropertyPages::Place;

LONG_PTR Answer(HANDLE handle) {
    return reinterpret_cast<LONG_PTR>(handle);
}

// ---- Adding -------------------------------------------------------------------------------------

// Where something goes that `caller` adds; see INSPSUIPAGE_MODE_.
std::optional<Place> PlaceOf(PageGroup& caller, HANDLE where, BYTE mode) {
    const size_t end = caller.Items().size();
    if (where == HINSPSUIPAGE_FIRST) return Place{&caller, 0};
    if (where == HINSPSUIPAGE_LAST) return Place{&caller, end};
    switch (mode) {
    case INSPSUIPAGE_MODE_FIRST_CHILD:
    case INSPSUIPAGE_MODE_LAST_CHILD: {
        PageGroup* const group = where ? caller.All().FindGroup(where) : &caller;
        if (!group) return std::nullopt;
        return Place{group, mode == INSPSUIPAGE_MODE_FIRST_CHILD ? 0 : group->Items().size()};
    }
    case INSPSUIPAGE_MODE_BEFORE:
    case INSPSUIPAGE_MODE_AFTER: {
        if (!where) return Place{&caller, mode == INSPSUIPAGE_MODE_BEFORE ? 0 : end};
        auto place = caller.All().Find(where);
        if (place && mode == INSPSUIPAGE_MODE_AFTER) ++place->position;
        return place;
    }
    case INSPSUIPAGE_MODE_INDEX:
        return Place{&caller, std::min<size_t>(LOWORD(where), end)};
    default:
        return std::nullopt;
    }
}

HANDLE InsertNewPage(Place place, LPCPROPSHEETPAGEW page) {
    if (!page) return nullptr;
    const HPROPSHEETPAGE made = CreatePropertySheetPageW(page);
    const HANDLE added = place.group->All().AddPage(place, made);
    if (made && !added) DestroyPropertySheetPage(made);
    return added;
}

HANDLE InsertFunctionOfLibrary(Place place, LPCWSTR file, LPCSTR name, LPARAM parameter) {
    if (!file || !name) return nullptr;
    const HMODULE module = LoadLibraryW(file);
    if (!module) return nullptr;
    const FARPROC function = GetProcAddress(module, name);
    if (!function) {
        FreeLibrary(module);
        return nullptr;
    }
    return place.group->All().AddFunction(
        place, reinterpret_cast<PageFunction>(reinterpret_cast<void (*)()>(function)), parameter,
        module);
}

HANDLE Insert(PageGroup& caller, HANDLE where, const INSERTPSUIPAGE_INFO* info) {
    if (!info || info->cbSize < sizeof *info) return nullptr;
    const auto place = PlaceOf(caller, where, info->Mode);
    if (!place) return nullptr;
    PropertyPages& all = caller.All();
    switch (info->Type) {
    case PSUIPAGEINSERT_GROUP_PARENT:
        return all.AddFunction(*place, nullptr, 0);
    case PSUIPAGEINSERT_PFNPROPSHEETUI:
        if (info->dwData1 == 0) return nullptr;
        return all.AddFunction(*place, reinterpret_cast<PageFunction>(info->dwData1),
                               static_cast<LPARAM>(info->dwData2));
    case PSUIPAGEINSERT_PROPSHEETPAGE:
        return InsertNewPage(*place, reinterpret_cast<LPCPROPSHEETPAGEW>(info->dwData1));
    case PSUIPAGEINSERT_HPROPSHEETPAGE:
        return all.AddPage(*place, reinterpret_cast<HPROPSHEETPAGE>(info->dwData1));
    case PSUIPAGEINSERT_DLL:
        return InsertFunctionOfLibrary(*place, reinterpret_cast<LPCWSTR>(info->dwData1),
                                       reinterpret_cast<LPCSTR>(info->dwData2),
                                       static_cast<LPARAM>(info->dwData3));
    default:
        return nullptr;
    }
}

// ---- Asking -------------------------------------------------------------------------------------

LONG_PTR CopyPages(PropertyPages& all, HANDLE* to, LPARAM room) {
    if (!to || room <= 0) return 0;
    const auto pages = all.Pages();
    const size_t count = std::min(pages.size(), static_cast<size_t>(room));
    std::copy_n(pages.begin(), count, to);
    return static_cast<LONG_PTR>(count);
}

bool SetStartPage(PropertyPages& all, HANDLE handle, LPARAM which) {
    PageGroup* const group = handle ? all.FindGroup(handle) : &all.Root();
    if (!group) return all.SetStart(static_cast<HPROPSHEETPAGE>(handle));
    if (!handle && static_cast<ULONG_PTR>(which) > 0xFFFF)
        return all.SetStart(reinterpret_cast<LPCWSTR>(which));
    const auto pages = PropertyPages::PagesOf(*group);
    if (which < 0 || static_cast<size_t>(which) >= pages.size()) return false;
    return all.SetStart(pages[static_cast<size_t>(which)]);
}

// The length of the copied text, which is cut to the room there is.
LONG_PTR LoadText(LPWSTR to, WORD room, WORD number) {
    const LPCWSTR text = StandardText(number);
    if (!to || room == 0 || !text) return 0;
    const size_t length = std::min<size_t>(std::char_traits<WCHAR>::length(text), room - 1u);
    std::copy_n(text, length, to);
    to[length] = 0;
    return static_cast<LONG_PTR>(length);
}

LONG_PTR AskIconOf(PropertyPages& all, HANDLE handle, LPARAM size) {
    PageGroup* const group = all.FindGroup(handle);
    return group ? reinterpret_cast<LONG_PTR>(group->AskIcon(LOWORD(size), HIWORD(size))) : 0;
}

LONG_PTR SetData(PageGroup& group, const CPSUIDATABLOCK* block) {
    if (!block || (block->cbData != 0 && !block->pbData)) return ERR_CPSUI_INVALID_PDATA;
    group.data.assign(block->pbData, block->pbData + block->cbData);
    return 1;
}

// How many bytes there are; as many as there is room for are copied.
LONG_PTR QueryData(const PageGroup& group, const CPSUIDATABLOCK* block) {
    if (!block) return ERR_CPSUI_INVALID_PDATA;
    const size_t count = std::min<size_t>(block->cbData, group.data.size());
    if (block->pbData && count != 0) std::memcpy(block->pbData, group.data.data(), count);
    return static_cast<LONG_PTR>(group.data.size());
}

LONG_PTR Do(PageGroup& caller, UINT function, LPARAM first, LPARAM second) {
    PropertyPages& all = caller.All();
    const auto handle = reinterpret_cast<HANDLE>(first);
    const Place end = {&caller, caller.Items().size()};
    switch (function) {
    case CPSFUNC_ADD_HPROPSHEETPAGE:
        return Answer(all.AddPage(end, static_cast<HPROPSHEETPAGE>(handle)));
    case CPSFUNC_ADD_PROPSHEETPAGEW:
        return Answer(InsertNewPage(end, reinterpret_cast<LPCPROPSHEETPAGEW>(first)));
    case CPSFUNC_ADD_PFNPROPSHEETUIW:
        if (first == 0) return 0;
        return Answer(all.AddFunction(end, reinterpret_cast<PageFunction>(first), second));
    case CPSFUNC_INSERT_PSUIPAGEW:
        return Answer(Insert(caller, handle, reinterpret_cast<const INSERTPSUIPAGE_INFO*>(second)));
    case CPSFUNC_DELETE_HCOMPROPSHEET:
        return all.Remove(handle);
    case CPSFUNC_SET_HSTARTPAGE:
        return SetStartPage(all, handle, second);
    case CPSFUNC_GET_PAGECOUNT:
        return static_cast<LONG_PTR>(all.Pages().size());
    case CPSFUNC_SET_RESULT:
        return all.SetResult(handle ? handle : &caller, second);
    case CPSFUNC_GET_HPSUIPAGES:
        return CopyPages(all, reinterpret_cast<HANDLE*>(first), second);
    case CPSFUNC_LOAD_CPSUI_STRINGW:
        return LoadText(reinterpret_cast<LPWSTR>(first), LOWORD(second), HIWORD(second));
    case CPSFUNC_GET_PFNPROPSHEETUI_ICON:
        return AskIconOf(all, handle, second);
    case CPSFUNC_SET_PSUIPAGE_TITLEW:
        return all.SetTitle(static_cast<HPROPSHEETPAGE>(handle), reinterpret_cast<LPCWSTR>(second));
    case CPSFUNC_SET_DATABLOCK:
        return SetData(caller, reinterpret_cast<const CPSUIDATABLOCK*>(first));
    case CPSFUNC_QUERY_DATABLOCK:
        return QueryData(caller, reinterpret_cast<const CPSUIDATABLOCK*>(first));
    case CPSFUNC_IGNORE_CPSUI_PSN_APPLY:
        return 1; // there are no pages of the library's own that could apply
    default:
        return ERR_CPSUI_FUNCTION_NOT_IMPLEMENTED;
    }
}

} // namespace

LONG_PTR CALLBACK SheetFunction(HANDLE sheet, UINT function, LPARAM first, LPARAM second) {
    if (!sheet) return 0;
    try {
        return Do(*static_cast<PageGroup*>(sheet), function, first, second);
    } catch (const std::bad_alloc&) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return 0;
    }
}

} // namespace compstui

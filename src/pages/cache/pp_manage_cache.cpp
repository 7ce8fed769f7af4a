#include "pages/cache/pp_manage_cache.h"

#include "locale/text_numbers.h"
#include "ui/prtui.h"

namespace {

enum : uint16_t {
    kCacheList = 661,
    kObjectButton = 662,
    kViewButton = 663,
    kPrintObject = 671,
    kLockObject = 672,
    kDeleteObject = 673,
    kClearCache = 674,
    kViewGraphics = 675,
    kViewFormats = 676
};

constexpr int kAskTimer = 1;
constexpr uint32_t kAskInterval = 1000; // milliseconds

constexpr char kCacheWidths[] = "USERSETTINGS:Cache Contents/Column Widths";

} // namespace

void ppManageCache::Init() {
    prtpage::Init();
    if (!config_) return;
    UColumnInfo columns[] = {{GetString(TEXT_CACHE_OBJECT), 80},
                             {GetString(TEXT_CACHE_SIZE), 60, LVCFMT_RIGHT},
                             {GetString(TEXT_CACHE_USED), 40, LVCFMT_RIGHT},
                             {GetString(TEXT_CACHE_AGE), 40, LVCFMT_RIGHT},
                             {GetString(TEXT_CACHE_NAME), 120}};
    list_.Open(*this, registry_, kCacheList, kCacheWidths, columns, "*:CACHE/CONTEXT");
    menus_.Load(ui_->locale, "*:CACHE/MENU");
    object_button_.Bind(this, kObjectButton);
    object_button_.GetMenu() = menus_.GetSubMenu(0);
    view_button_.Bind(this, kViewButton);
    view_button_.GetMenu() = menus_.GetSubMenu(1);
}

void ppManageCache::Destroy() {
    list_.Close();
}

// ---- What there is ------------------------------------------------------------------------------

bool ppManageCache::SetActive() {
    if (config_) StartToAsk();
    return true;
}

bool ppManageCache::KillActive() {
    KillTimer(kAskTimer);
    return true;
}

bool ppManageCache::Apply() {
    // The sheet treats a page that it applies as one that is left, but goes on showing it.
    const auto shown =
        reinterpret_cast<HWND>(SendMessageW(GetSheet(), PSM_GETCURRENTPAGEHWND, 0, 0));
    if (shown == GetWindow()) StartToAsk();
    return prtpage::Apply();
}

void ppManageCache::Timer(uint16_t) {
    Ask();
    WM_Refresh(false);
}

void ppManageCache::StartToAsk() {
    Ask();
    SetTimer(kAskTimer, kAskInterval);
}

void ppManageCache::Ask() {
    if (contents_.Refresh(*ui_->stream)) contents_changed_ = true;
}

const KVCacheItemInfo* ppManageCache::SelectedItem() const {
    const int row = list_.GetNextSelected(-1);
    if (row < 0) return nullptr;
    const int index = contents_.Find(static_cast<uint32_t>(list_.GetData(row)));
    return index < 0 ? nullptr : &contents_.GetItem(index);
}

// ---- What the page shows ------------------------------------------------------------------------

void ppManageCache::Refresh(bool all) {
    if (all || contents_changed_) ShowContents();
    contents_changed_ = false;
    PrepareMenus();
}

void ppManageCache::ShowContents() {
    const KVCacheItemInfo* const selected = SelectedItem();
    const int before = list_.GetNextSelected(-1);
    const int now = selected ? contents_.Find(selected->id) : -1;
    // Rows are rewritten in place, which leaves the list where it is scrolled to.
    for (int i = 0; i < contents_.GetSize(); ++i) {
        const KVCacheItemInfo& item = contents_.GetItem(i);
        OStringArray texts;
        texts.Add(CacheItemTitle(item, GetString(CacheItemKindText(item))));
        texts.Add(ui_->locale.FormatK(item.size));
        for (const uint16_t counter : item.counters) texts.Add(OString() << counter);
        texts.Add(CacheItemName(item));
        if (i >= list_.GetCount()) {
            list_.InsertItem(i, texts, static_cast<LPARAM>(item.id));
            continue;
        }
        for (int column = 0; column < texts.GetSize(); ++column)
            if (list_.GetItemText(i, column) != texts[column])
                list_.SetItemText(i, column, texts[column]);
        list_.SetData(i, static_cast<LPARAM>(item.id));
    }
    while (list_.GetCount() > contents_.GetSize()) list_.DeleteItem(list_.GetCount() - 1);
    if (now == before) return;
    if (before >= 0) list_.Select(before, false);
    if (now < 0) return;
    list_.Select(now, true);
    list_.SetFocused(now);
}

void ppManageCache::PrepareMenus() {
    const KVCacheItemInfo* const selected = SelectedItem();
    for (UMenu* const menu : {&menus_, &list_.GetMenu()}) {
        for (const int item : {kPrintObject, kLockObject, kDeleteObject})
            menu->Enable(item, selected != nullptr);
        menu->Check(kLockObject, selected && selected->locked);
    }
    menus_.Check(kViewGraphics, contents_.GetView() & CacheContents::VIEW_GRAPHICS);
    menus_.Check(kViewFormats, contents_.GetView() & CacheContents::VIEW_FORMATS);
}

// ---- The user's acts ----------------------------------------------------------------------------

bool ppManageCache::Notify(uint16_t id, uint32_t code, NMHDR* header) {
    int column = -1;
    if (id != kCacheList || !config_ || !list_.Notify(code, header, column))
        return prtpage::Notify(id, code, header);
    if (column < 0) return false;
    contents_.SortBy(static_cast<CacheContents::Column>(column + CacheContents::OBJECT));
    contents_changed_ = true;
    return false;
}

bool ppManageCache::Command(uint16_t id, uint16_t code, LPARAM value) {
    if (code != BN_CLICKED || !config_) return prtpage::Command(id, code, value);
    const KVCacheItemInfo* const selected = SelectedItem();
    switch (id) {
    case kPrintObject:
        if (selected) PrintCacheItem(*ui_->stream, *selected);
        return false;
    case kLockObject:
        if (selected) ToggleCacheItemLock(*ui_->stream, *selected);
        return false;
    case kDeleteObject:
        if (selected) RemoveCacheItem(*ui_->stream, *selected);
        return false;
    case kClearCache:
        PrinterAction(ACTION_CLEAR_CACHE);
        return false;
    case kViewGraphics:
        contents_.Toggle(CacheContents::VIEW_GRAPHICS);
        contents_changed_ = true;
        return false;
    case kViewFormats:
        contents_.Toggle(CacheContents::VIEW_FORMATS);
        contents_changed_ = true;
        return false;
    default:
        return prtpage::Command(id, code, value);
    }
}

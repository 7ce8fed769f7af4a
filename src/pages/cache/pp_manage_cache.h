// The page for the objects that the rendering module keeps in the printer.
#pragma once

#include "pages/page_list_view.h"
#include "printer/cache_contents.h"
#include "ui/prtpage.h"
#include "ui/upop_button.h"

// While it is shown it asks once a second what there is. The list changes only if the answer does,
// so that selection and scroll position stay. Two buttons open the menus of what can be done with
// the selected object and of what is shown; a right click on the list opens the first one.
class ppManageCache : public prtpage {
public:
    static constexpr DLGPROC WinProc = prtpage::WinProcOf<ppManageCache>;

    void Refresh(bool all) override;
    bool Command(uint16_t id, uint16_t code, LPARAM value) override;
    bool Notify(uint16_t id, uint32_t code, NMHDR* header) override;
    void Init() override;
    bool Apply() override;
    // Remembers the column widths if the user has changed them.
    void Destroy() override;
    void Timer(uint16_t id) override;
    bool SetActive() override;
    bool KillActive() override;

private:
    // Asks the rendering module, now and from now on.
    void StartToAsk();
    void Ask();
    void ShowContents();
    // Brings the menus in line with the selection and the view.
    void PrepareMenus();
    // The selected object, or null.
    const KVCacheItemInfo* SelectedItem() const;

    PageListView list_;
    UMenu menus_; // of both buttons
    UPopButton object_button_;
    UPopButton view_button_;
    CacheContents contents_;
    // What the next refresh brings up to date.
    bool contents_changed_ = false;
};

// The page for how the rendering module keeps objects in the printer.
#pragma once

#include "printer/cache_settings.h"
#include "ui/prtpage.h"

// Shows a copy of the rendering module's settings, which Apply sends back. A number that passes its
// neighbour, the other end of the range, moves it along.
class ppCacheSettings : public prtpage {
public:
    static constexpr DLGPROC WinProc = prtpage::WinProcOf<ppCacheSettings>;

    void Refresh(bool all) override;
    bool Command(uint16_t id, uint16_t code, LPARAM value) override;
    void Init() override;
    // Sends the settings to the rendering module, which does not say what it makes of them.
    bool Apply() override;
    uint32_t GetCurrentCRC32() const override;

private:
    void FillLists();
    // Fills a list of memories and shows whether there is a choice; `label` stands before it.
    void FillLocations(int list, int label, bool possible, const OTypedArray<int32_t>& letters,
                       const OStringArray& names);
    void ShowFields();
    void ShowLocation(int list, uint32_t letter);
    // Takes what is in a field. False for another control.
    bool ReadField(uint16_t id);

    CacheParameters parameters_;
    KVCacheSettings settings_ = {};
    // While the user types in a field: that field, and the settings as they were before. Numbers
    // that exist only on the way to the final one must not move the neighbour for good.
    uint16_t typed_field_ = 0;
    KVCacheSettings before_typing_ = {};
};

#include "zpl/pages/pp_memory_format.h"

#include "locale/text_numbers.h"
#include "zpl/extmodel.h"

namespace {

enum : uint16_t {
    kMemoryList = 1251,
    kFormat = 1252,
    kPrintContents = 1253,
    kErase = 1254,
    kResetOptional = 1255
};

constexpr char kMemoryType[] = "UserSettings:Memory Type";

} // namespace

void ppMemoryFormat::Init() {
    prtpage::Init();
    memory_ = static_cast<char>(registry_.GetByte(kMemoryType, static_cast<uint8_t>(memory_)));
}

void ppMemoryFormat::Refresh(bool all) {
    if (!all) return;
    CB_ResetContent(kMemoryList);
    OStringArray locations;
    AsZpl(*GetModel()).GetMemoryLocations(locations);
    const auto& zpl = *static_cast<const extui*>(GetUI());
    for (int i = 0; i < locations.GetSize(); ++i)
        CB_AddString(kMemoryList, zpl.MemoryName(locations[i]), *locations[i].nstring());
    CB_SetCurSelData(kMemoryList, memory_);
    if (IsRestricted()) WM_EnableAll(false, 0, 0);
}

char ppMemoryFormat::Memory() const {
    const int chosen = CB_GetCurSel(kMemoryList);
    return static_cast<char>(CB_GetSelData(kMemoryList, chosen < 0 ? 0 : chosen));
}

bool ppMemoryFormat::Command(uint16_t id, uint16_t code, LPARAM value) {
    if (id == kMemoryList && code == CBN_SELCHANGE) {
        memory_ = static_cast<char>(CB_GetCurSelData(kMemoryList));
        return false;
    }
    static constexpr struct {
        uint16_t button;
        MemoryWork work;
    } kWorks[] = {{kFormat, MemoryWork::FORMAT},
                  {kPrintContents, MemoryWork::PRINT},
                  {kErase, MemoryWork::ERASE},
                  {kResetOptional, MemoryWork::RESET}};
    for (const auto& work : kWorks) {
        if (work.button != id || code != BN_CLICKED) continue;
        static_cast<extui*>(GetUI())->RunMemoryWork(work.work, Memory());
        return false;
    }
    return prtpage::Command(id, code, value);
}

bool ppMemoryFormat::Apply() {
    if (!registry_.SetByte(kMemoryType, static_cast<uint8_t>(memory_))) {
        ReportNotStored(GetString(TEXT_MEMORY));
        return false;
    }
    return prtpage::Apply();
}

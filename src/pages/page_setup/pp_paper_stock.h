// The dialog that edits a stock.
#pragma once

#include <cstdint>

#include "ui/prtpage.h"

class Stock;

// Edits the UI object's `edit_stock`, a copy that its caller takes over after OK. Name and sizes
// follow what is typed, within the limits of the model; a field shows the limit when it is left.
class ppPaperStock : public prtpage {
public:
    static constexpr DLGPROC WinProc = prtpage::WinProcOf<ppPaperStock>;

    void Refresh(bool all) override;
    bool Command(uint16_t id, uint16_t code, LPARAM value) override;
    void Init() override;
    bool VerifyOkay() override;
    const char* HelpTopic() override { return "/base/PageSetup_Edit.html"; }

private:
    bool IsEditable() const;
    void Typed(uint16_t id);
    void CopyLiner(int from, int to);
    bool IsReserved(const OString& name) const;
    bool IsTaken(const OString& name) const;

    Stock* stock_ = nullptr;
    int32_t least_width_ = 0; // micrometres, like all
    int32_t least_length_ = 0;
    int32_t most_width_ = 0;
    int32_t most_length_ = 0;
    bool size_changed_ = false;
    bool liner_changed_ = false;
    int copying_ = 0; // liners that are being copied, whose notifications are not the user's
};

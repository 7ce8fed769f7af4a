// List views in columns.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <cstdint>
#include <span>

#include "core/oarray.h"
#include "core/ostring_array.h"
#include "ui/ucontrol.h"

struct UColumnInfo {
    OString title;
    int32_t width = 0;        // pixels
    int format = LVCFMT_LEFT; // or LVCFMT_RIGHT, LVCFMT_CENTER
};

// Rows are numbered from 0; -1 is none. A double click on a row is sent to the dialog as a command
// with the code DOUBLE_CLICKED.
class UListView : public UControl {
public:
    static constexpr uint16_t DOUBLE_CLICKED = LBN_DBLCLK;

    // Replaces the columns. They get the widths that were last saved, if there are as many, else
    // their own.
    void SetColumns(std::span<const UColumnInfo> columns);
    int GetColumnCount() const;
    // Remembers how wide the user has made the columns, and gives them these widths again.
    void SaveWidths();
    const OTypedArray<int>& GetWidths() const { return widths_; }
    void RestoreWidths();

    void SetFullRowSelect();

    void ResetContent() { Send(LVM_DELETEALLITEMS); }
    int GetCount() const { return static_cast<int>(Send(LVM_GETITEMCOUNT)); }
    // Inserts a row before another; an index beyond the end appends. `texts` are those of its
    // columns. The row's index, or -1 without memory.
    int InsertItem(int index, const OStringArray& texts, LPARAM data);
    void DeleteItem(int index) { Send(LVM_DELETEITEM, static_cast<WPARAM>(index)); }

    OString GetItemText(int index, int column) const;
    void SetItemText(int index, int column, const OString& text);
    LPARAM GetData(int index) const; // 0 for a row that does not exist
    void SetData(int index, LPARAM data);
    int FindData(LPARAM data) const;

    bool IsSelected(int index) const;
    void Select(int index, bool select);
    int GetSelectedCount() const { return static_cast<int>(Send(LVM_GETSELECTEDCOUNT)); }
    // The first selected row after another; after -1 the first of all. -1 if there is none.
    int GetNextSelected(int index) const;
    void SetFocused(int index);
    void EnsureVisible(int index) { Send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(index), FALSE); }

    bool OnLButtonDoubleClick(uint32_t flags, CPoint at) override;
    void OnDestroy() override { SaveWidths(); }

private:
    OTypedArray<int> widths_;
};

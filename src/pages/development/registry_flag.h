// Switches of the development pages: a control, and a byte in the registry.
#pragma once

#include <windows.h>

#include <cstdint>
#include <iterator>

#include "core/crc.h"
#include "keys/prtreg.h"

struct RegistryFlag {
    const char* value; // its path; while the registry has no such value, the switch is off
    uint16_t control;  // a check box or a menu item, or 0 for none
};

// The switches of a page, in the order of a table. Off until they are read.
template <int Count>
class RegistryFlags {
public:
    // `table` must outlive the object.
    explicit RegistryFlags(const RegistryFlag (&table)[Count])
        : table_(table) {}

    void Read(prtreg& registry) {
        for (int i = 0; i < Count; ++i) on_[i] = registry.GetByte(table_[i].value, 0);
    }
    // Stores all of them. What cannot be stored is lost.
    void Write(prtreg& registry) const {
        for (int i = 0; i < Count; ++i) registry.SetByte(table_[i].value, on_[i]);
    }
    uint32_t GetCRC32(uint32_t seed) const { return CRC32(on_, Count, seed); }

    // The switch of a control, or -1.
    int Find(uint16_t control) const {
        for (int i = 0; control != 0 && i < Count; ++i)
            if (table_[i].control == control) return i;
        return -1;
    }
    bool IsOn(int index) const { return on_[index] != 0; }
    void Set(int index, bool on) { on_[index] = on; }

    // For a dialog in which all controls are check boxes: shows the switches, and takes one over.
    // False for a control that is none of them.
    void ShowIn(HWND dialog) const {
        for (int i = 0; i < Count; ++i)
            CheckDlgButton(dialog, table_[i].control, on_[i] ? BST_CHECKED : BST_UNCHECKED);
    }
    bool TakeFrom(HWND dialog, uint16_t control) {
        const int index = Find(control);
        if (index < 0) return false;
        Set(index, IsDlgButtonChecked(dialog, control) == BST_CHECKED);
        return true;
    }

private:
    const RegistryFlag (&table_)[Count];
    unsigned char on_[Count] = {};
};

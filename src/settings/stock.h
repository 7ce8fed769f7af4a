// A stock: the size of a label and of the area around it.
#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>

#include "core/name_list.h"
#include "keys/prtreg.h"

class prtmodel;

// The stored part of a stock: 28 bytes, little-endian, lengths in micrometres.
struct StockRecord {
    int32_t width; // of the label
    int32_t length;
    int32_t liner_left; // how far the backing extends beside the label
    int32_t liner_right;
    int32_t gap_top; // above and below the label
    int32_t gap_bottom;
    uint32_t flags;

    enum : uint32_t {
        USER = 1,       // the custom size
        PREDEFINED = 2, // belongs to the printer family's set
        GLOBAL = 4,     // shared and editable
        SERVER = 8      // comes from the print server
    };
};
static_assert(sizeof(StockRecord) == 28);
static_assert(offsetof(StockRecord, flags) == 24);

// A label size that the user can choose, with its name. Any lengths may be stored; derived ones are
// limited to 32 bits.
class Stock : public NameNode, public StockRecord {
public:
    // All lengths 0, global.
    Stock();

    bool is_user() const { return (flags & USER) != 0; }
    bool is_predefined() const { return (flags & PREDEFINED) != 0; }
    bool is_global() const { return (flags & GLOBAL) != 0; }
    bool is_server() const { return (flags & SERVER) != 0; }
    void set_global(bool on) { SetFlag(GLOBAL, on); }
    void set_predefined(bool on) { SetFlag(PREDEFINED, on); }
    bool can_delete() const { return is_global() && !is_server(); }
    // For the pages that edit stocks.
    bool can_resize() const { return (is_user() || is_global()) && !is_server(); }

    // The record as bytes. Set accepts only exactly 28.
    const StockRecord& GetRecord() const { return *this; }
    bool SetRecord(const void* data, size_t size);

    // In the registry: the values of `prefix` (a path and the beginning of their names) with "Name"
    // and "Data" after it. Load is false, and the stock unchanged, when the name is empty or the
    // record not 28 bytes long. Save is false when a value cannot be written.
    bool Load(prtreg& registry, const OString& prefix);
    bool Save(prtreg& registry, const OString& prefix) const;
    static void Delete(prtreg& registry, const OString& prefix);

    // The start of the names of stock number `index`: "Form 07:: " for 7.
    static OString KeyName(int index);

    // The size of label, liner and gaps, rounded to tenths of a millimetre.
    SIZE GetFormSize() const;

    // The checksum of name, priority and record, continued from `seed`.
    uint32_t GetCRC32(uint32_t seed) const;

    // ---- Derived --------------------------------------------------------------------------------

    // Sets the sizes below. The model limits the printable ones.
    void CalculatePrintableArea(const prtmodel* model);

    // Sets the sizes and the offsets of the page for the orientation and resolution of a DEVMODE.
    // Paper and printable sizes are then those of the turned page.
    void CalculateOffsets(const prtmodel* model, const DEVMODEW* dev_mode);

    // Micrometres.
    int32_t paper_width = 0;
    int32_t paper_length = 0;
    int32_t printable_width = 0;
    int32_t printable_length = 0;
    int32_t offset_left = 0; // not printed, on each side
    int32_t offset_right = 0;
    int32_t offset_top = 0;
    int32_t offset_bottom = 0;

    // The number as a form: 256 for the user's, 257 and up for others, 0 for one that the model
    // cannot print. A list assigns them.
    uint16_t paper_id = 0;

    // Dots on the page, and the resolution that they were counted with.
    int32_t shift_x = 0;
    int32_t shift_y = 0;
    int32_t margin_x = 0;
    int32_t margin_y = 0;
    int32_t origin_x = 0;
    int32_t origin_y = 0;
    int32_t device_x = 0;
    int32_t device_y = 0;
    int32_t dpi_x = 0;
    int32_t dpi_y = 0;

private:
    void SetFlag(uint32_t flag, bool on) { flags = on ? flags | flag : flags & ~flag; }
};

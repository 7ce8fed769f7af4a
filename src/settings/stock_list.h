// The stocks of a printer.
#pragma once

#include <windows.h>

#include <cstdint>

#include "core/ofile.h"
#include "keys/prtreg.h"
#include "settings/stock.h"
#include "settings/stored_list.h"

// The user's own stock at the head, then the others by name. Those that the printer can print are
// valid: they have a paper id and are offered to the system as forms. Paper ids follow the order,
// so they change when stocks are added or deleted.
//
// Stored in the registry in three places: the user's stock in the printer's settings, the family's
// under "Stock:" and the OEM code, all others under "Stock:".
//
// The list needs its model as long as it lives. It belongs to one thread.
class StockList : public OTypedNameList<Stock>, public StoredList {
public:
    // Without a model, only good to be assigned to.
    StockList() = default;
    explicit StockList(const prtmodel* model) { init(model); }
    StockList(const StockList&) = delete;
    // Takes over copies of the stocks, the model and the memory of the last load or save. An
    // incomplete copy is not saved.
    StockList& operator=(const StockList& other);

    // Takes a model, and puts the user's stock with the model's default label at the head.
    void init(const prtmodel* model);

    // ---- Storage --------------------------------------------------------------------------------

    // Adds the stored stocks, validates and remembers the list's checksum. If not all of them could
    // be read, the list is not saved until it is loaded again.
    void Load(const prtmodel* model);

    // Adds the stocks of a key (its path with the separator after it); their number as stored,
    // which skipped ones count in. At most 65535.
    int LoadForms(prtreg& registry, const OString& key);
    // Adds one stock; see Stock::Load.
    bool LoadForm(prtreg& registry, const OString& prefix);

    // Writes the stocks, and deletes stored ones that are gone: all of it or nothing.
    SaveResult Save(const prtmodel* model) const;

    // ---- Exchange -------------------------------------------------------------------------------

    // Writes a text block for each stock except the user's. Returns the number of blocks.
    //
    //   <stock>
    //   Name=4 x 6
    //   Data=Wkxi...           the record as blob text
    //   </stock>
    int Export(OFile& file) const;

    // Adds the stocks of all blocks of a file, which is read from its start. Returns their number.
    // A record may be blob text or plain Base64. Blocks whose record is not 28 bytes long, without
    // an end, or without a name or with one that is too long to be stored are left out. A line
    // "Protected=true" makes the stocks of the records after it, in this and the following blocks,
    // uneditable, any other "Protected" editable. `reserved` is ignored.
    int Import(OFile& file, int reserved);

    // Adds the stocks of a binary file of old drivers, from its current position: "KFM1", the size
    // of a record (4 bytes), and records of 28 bytes followed by the 8-bit name. Returns their
    // number, without those that have no name; 0 for any other file.
    int ImportKFM1(OFile& file);

    // ---- Use ------------------------------------------------------------------------------------

    // Sorts the list by the UTF-16 units of the names (which is the order of their bytes in UTF-8),
    // leaves one stock of each name and assigns new paper ids. Of two with one name the later one
    // stays if the earlier can be deleted or the later is the user's or the server's; else the
    // earlier one. Always true.
    bool Validate();

    // The next valid stock after one, or the first for null. Null at the end.
    Stock* GetNextValid(const Stock* after) const;

    // The first valid stock with exactly this name or a paper id, or null.
    Stock* Find(const OString& name) const;
    Stock* Find(int16_t paper_id) const;

    // The stock that a DEVMODE asks for, by its form's name or paper size, with its offsets for
    // that DEVMODE. If there is no such stock, the user's, in the size of the DEVMODE. Null for
    // null and in a list without the user's stock.
    Stock* Find(const DEVMODEW* dev_mode);

    // For the system: return the number of valid stocks and, unless `output` is null, store their
    // ids, their sizes in tenths of a millimetre, their names in fields of 64 units.
    int enum_paper_id(uint16_t* output) const;
    int enum_paper_size(POINT* output) const;
    int enum_paper_name(WCHAR* output) const;

private:
    void SaveForms(prtreg& registry, const OString& key, bool predefined) const;
    void RemoveDuplicates();
    void NumberStocks();

    const prtmodel* model_ = nullptr;
};

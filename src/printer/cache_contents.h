// The objects that the rendering module keeps in the printer, as a list for display. Only for the
// page that shows them.
#pragma once

#include <cstdint>

#include "core/oarray.h"
#include "core/obuffer.h"
#include "core/ostring.h"
#include "printer/escape_records.h"

class prtstream;

// Sorted by one column and limited to some kinds. An object belongs to one thread.
class CacheContents {
public:
    enum Column : int32_t {
        OBJECT = 1,         // graphics first, then by number
        SIZE = 2,           // the largest first
        FIRST_COUNTER = 3,  // the smallest first
        SECOND_COUNTER = 4, // the largest first
        NAME = 5,           // in any case of the letters A to Z
    };
    enum View : uint32_t { VIEW_GRAPHICS = 1, VIEW_FORMATS = 2 };

    // Asks the rendering module. True if there is something new to show. The list stays if there is
    // no answer.
    bool Refresh(prtstream& stream);
    // Takes a description (KVCacheInformation and its objects), as far as it is complete. False if
    // it is invalid or the one that the list was made from.
    bool Take(const unsigned char* description, uint32_t size);

    // Sorts by a column, or reverses the order if it is sorted by that column already. Objects that
    // are equal in it are sorted as OBJECT sorts them.
    void SortBy(Column column);

    // Shows or hides one kind. When the last one shown is hidden, the other one is shown.
    void Toggle(View kind);
    uint32_t GetView() const { return view_; }

    // The objects that are shown.
    int GetSize() const { return shown_.GetSize(); }
    const KVCacheItemInfo& GetItem(int index) const { return items_.GetData()[shown_[index]]; }
    // The position of the object with this identifier, or -1 if it is not shown.
    int Find(uint32_t id) const;

private:
    int CompareItems(const KVCacheItemInfo& a, const KVCacheItemInfo& b) const;
    void Show();

    OBuffer<KVCacheItemInfo> items_;
    OTypedArray<int32_t> shown_; // indices of items_
    bool known_ = false;         // a description was taken
    uint32_t crc_ = 0;           // of it
    Column column_ = OBJECT;
    bool reverse_ = false;
    uint32_t view_ = VIEW_GRAPHICS | VIEW_FORMATS;
};

// The number, in the language library, of the text for an object's kind.
int CacheItemKindText(const KVCacheItemInfo& item);
// The title of an object in the list: its kind and its number, with a mark if it is locked.
OString CacheItemTitle(const KVCacheItemInfo& item, const OString& kind);
OString CacheItemName(const KVCacheItemInfo& item);

// Make the rendering module do something with an object: the first two in a job of their own.
// Setting or clearing the lock needs none.
void PrintCacheItem(prtstream& stream, const KVCacheItemInfo& item);
void RemoveCacheItem(prtstream& stream, const KVCacheItemInfo& item);
void ToggleCacheItemLock(prtstream& stream, const KVCacheItemInfo& item);

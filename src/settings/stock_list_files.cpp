// Stocks in settings files and in the binary files of old drivers.
#include <cstring>
#include <memory>

#include "core/base64.h"
#include "core/memory.h"
#include "core/obuffer.h"
#include "settings/settings_blocks.h"
#include "settings/stock_list.h"

namespace {

constexpr char kStockBlock[] = "stock";

// The record of a "Data" line. Text that decodes to a valid container is unpacked, any other is
// taken unchanged.
bool ReadRecord(const OString& text, Stock& stock) {
    OBuffer<char> bytes;
    Base64::StringToBuffer(text, bytes);
    return stock.SetRecord(bytes.GetData(), bytes.GetSize());
}

bool CanBeStored(const Stock& stock) {
    return !stock.GetName().IsEmpty() && ORegistry::CanStore(stock.GetName());
}

OString RecordText(const Stock& stock) {
    OBuffer<char> bytes;
    OString text;
    bytes.Assign(reinterpret_cast<const char*>(&stock.GetRecord()), sizeof(StockRecord));
    Base64::BufferToString(bytes, text);
    return text;
}

} // namespace

int StockList::Export(OFile& file) const {
    int blocks = 0;
    for (const Stock* stock = GetNext(nullptr); stock; stock = GetNext(stock)) {
        if (stock->is_user()) continue;
        file << "<" << kStockBlock << ">" << OCore::endl;
        file << "Name=" << stock->GetName() << OCore::endl;
        file << "Data=" << RecordText(*stock) << OCore::endl;
        file << "</" << kStockBlock << ">" << OCore::endl << OCore::endl;
        ++blocks;
    }
    return blocks;
}

int StockList::Import(OFile& file, int) {
    int blocks = 0;
    bool is_protected = false;
    std::unique_ptr<Stock> stock; // of the block that is being read
    SettingsBlocks reader(file, kStockBlock);
    while (const SettingsBlocks::Line line = reader.Read()) {
        if (line == SettingsBlocks::BLOCK_START) {
            stock.reset(new (kCounted) Stock);
        } else if (!stock) {
            continue;
        } else if (line == SettingsBlocks::BLOCK_END) {
            if (CanBeStored(*stock)) {
                AddTail(stock.release());
                ++blocks;
            }
            stock.reset();
        } else if (reader.Key() == "Name") {
            stock->SetName(reader.Value());
        } else if (reader.Key() == "Protected") {
            is_protected = reader.Value() == "true";
        } else if (reader.Key() == "Data") {
            if (ReadRecord(reader.Value(), *stock))
                stock->set_global(!is_protected);
            else
                stock.reset();
        }
    }
    Validate();
    return blocks;
}

int StockList::ImportKFM1(OFile& file) {
    char signature[4];
    uint32_t size;
    if (file.Read(signature, sizeof signature) != sizeof signature ||
        std::memcmp(signature, "KFM1", sizeof signature) != 0 ||
        file.Read(&size, sizeof size) != sizeof size)
        return 0;
    if (size < sizeof(StockRecord) || size > file.GetLength() || size >= INT32_MAX) return 0;
    OBuffer<char> record(size + 1);
    if (record.GetSize() == 0) return 0;

    int stocks = 0;
    const auto whole = static_cast<int32_t>(size);
    while (file.Read(record.GetData(), whole) == whole) {
        std::unique_ptr<Stock> stock(new (kCounted) Stock);
        if (!stock) break;
        record[size] = 0;
        stock->SetRecord(record.GetData(), sizeof(StockRecord));
        stock->SetName(record.GetData() + sizeof(StockRecord));
        stock->set_predefined(false);
        stock->set_global(true);
        if (!CanBeStored(*stock)) continue;
        AddTail(stock.release());
        ++stocks;
    }
    Validate();
    return stocks;
}

#include "settings/stock.h"

#include <cstring>

#include "core/crc.h"

Stock::Stock()
    : StockRecord{0, 0, 0, 0, 0, 0, GLOBAL} {}

bool Stock::SetRecord(const void* data, size_t size) {
    if (size != sizeof(StockRecord)) return false;
    std::memcpy(static_cast<StockRecord*>(this), data, size);
    return true;
}

bool Stock::Load(prtreg& registry, const OString& prefix) {
    const OString name = registry.GetString(OString(prefix) << "Name", "");
    if (name.IsEmpty()) return false;
    StockRecord record;
    const int32_t size = registry.GetBinary(OString(prefix) << "Data", &record, sizeof record);
    if (size < 0 || !SetRecord(&record, static_cast<size_t>(size))) return false;
    SetName(name);
    return true;
}

bool Stock::Save(prtreg& registry, const OString& prefix) const {
    const StockRecord& record = GetRecord();
    return registry.SetString(OString(prefix) << "Name", GetName()) &&
           registry.SetBinary(OString(prefix) << "Data", &record, sizeof record) >= 0;
}

void Stock::Delete(prtreg& registry, const OString& prefix) {
    registry.Delete(OString(prefix) << "Name", false);
    registry.Delete(OString(prefix) << "Data", false);
}

OString Stock::KeyName(int index) {
    return OString("Form ") << index / 10 << index % 10 << ":: ";
}

SIZE Stock::GetFormSize() const {
    const auto tenths = [](int64_t a, int64_t b, int64_t c) {
        return static_cast<LONG>((a + b + c + 50) / 100);
    };
    return {tenths(width, liner_left, liner_right), tenths(length, gap_top, gap_bottom)};
}

uint32_t Stock::GetCRC32(uint32_t seed) const {
    const StockRecord& record = GetRecord();
    return CRC32(&record, sizeof record, NameNode::GetCRC32(seed));
}

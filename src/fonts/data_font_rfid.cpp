#include "fonts/data_font_rfid.h"

#include <algorithm>
#include <cstring>

#include "model/prtmodel.h"
#include "model/record_text.h"

namespace {

// The memory of a tag in blocks: their number, and the first that is free for writing.
struct Blocks {
    uint32_t tag_type;
    int32_t total;
    int32_t first;
};

Blocks BlocksOf(uint32_t tag_type) {
    static constexpr Blocks known[] = {
        {DataFont_RFID::EPC_64, 1, 0},         {DataFont_RFID::EPC_96, 1, 0},
        {DataFont_RFID::TAG_IT_HF, 8, 0},      {DataFont_RFID::ISO_15693, 124, 0},
        {DataFont_RFID::I_CODE1, 16, 5},       {DataFont_RFID::PICOTAG, 31, 3},
        {DataFont_RFID::MY_D, 128, 3},         {DataFont_RFID::TAG_IT_HF_I, 1, 0},
        {DataFont_RFID::I_CODE_SLI, 1, 0},     {DataFont_RFID::TAGSYS, 128, 0},
        {DataFont_RFID::ISO_18000_6B, 128, 2},
    };
    for (const Blocks& blocks : known)
        if (blocks.tag_type == tag_type) return blocks;
    return {tag_type, 1, 0};
}

// Null for a format without a mask of its own.
const char* MaskOf(uint32_t format) {
    switch (format) {
    case DataFont_RFID::FORMAT_EPC_64:
        return "64";
    case DataFont_RFID::FORMAT_SGTIN_64:
        return "2:2;3;14;20;25";
    case DataFont_RFID::FORMAT_SSCC_64:
        return "8:8;3;14;39";
    case DataFont_RFID::FORMAT_SGLN_64:
        return "8:9;3;14;20;19";
    case DataFont_RFID::FORMAT_EPC_96:
        return "96";
    default:
        return nullptr;
    }
}

uint32_t TagTypesOf(const prtmodel* model) {
    const KVRFIDCapabilities* record = model->GetRFIDCapabilities();
    return record ? record->tag_types : 0;
}

} // namespace

DataFont_RFID::DataFont_RFID()
    : record_{} {
    type_ = RFID;
    record_.size = sizeof record_;
    SetDefaults(EPC_64);
}

void DataFont_RFID::SetDefaults(uint32_t tag_type) {
    record_.tag_type = tag_type;
    SetFormat(tag_type == EPC_64   ? FORMAT_EPC_64
              : tag_type == EPC_96 ? FORMAT_EPC_96
                                   : FORMAT_CUSTOM);
    if (UpdateFormatMask()) ClearFormatMask();
    SetEncoding(0);
    SetWriteProtect(false);
    ResetStartingBlock();
}

void DataFont_RFID::SetFormatMask(const OString& mask) {
    OString text(mask);
    text.SetCodePage(0);
    SetRecordText(record_.mask, text);
}

bool DataFont_RFID::UpdateFormatMask() {
    const char* mask = MaskOf(record_.format);
    if (mask) SetFormatMask(mask);
    return !mask;
}

void DataFont_RFID::ResetStartingBlock() {
    SetStartingBlock(BlocksOf(record_.tag_type).first);
}

void DataFont_RFID::ValidateRFIDData(const prtmodel* model) {
    if (!IsSupported(model)) {
        const uint32_t supported = TagTypesOf(model);
        uint32_t first = EPC_64;
        while (first < MY_D && !(supported & first)) first <<= 1;
        SetDefaults(supported & first ? first : EPC_64);
    }
    const uint32_t format = record_.format;
    const bool of_epc_64 = format >= FORMAT_EPC_64 && format <= FORMAT_SGLN_64;
    if (format != FORMAT_CUSTOM && ((record_.tag_type == EPC_64 && !of_epc_64) ||
                                    (record_.tag_type == EPC_96 && format != FORMAT_EPC_96)))
        SetDefaults(record_.tag_type);
    SetStartingBlock(std::clamp(record_.starting_block, 0, BlocksOf(record_.tag_type).total - 1));
}

bool DataFont_RFID::IsSupported(const prtmodel* model) const {
    return (TagTypesOf(model) & record_.tag_type) != 0;
}

bool DataFont_RFID::Load(const void* blob, size_t size) {
    DataFontStorage_RFID storage = {};
    if (!ReadBlob(blob, size, &storage, sizeof storage) || storage.font.type != RFID) return false;
    DataFont::Load(storage.font);
    std::memcpy(&record_, &storage.record, storage.record.size);
    record_.mask[sizeof record_.mask - 1] = 0;
    return true;
}

void DataFont_RFID::Save(DataFontStorage_RFID& blob) const {
    blob = {};
    DataFont::Save(blob.font);
    std::memcpy(&blob.record, &record_, record_.size);
}

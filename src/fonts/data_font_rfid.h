// A data font whose text is written into an RFID tag. What reads and changes its fields is for the
// pages that edit fonts.
#pragma once

#include "fonts/data_font.h"

class prtmodel;

class DataFont_RFID : public DataFont {
public:
    // Kinds of tags. A printer's supported ones are a mask of them (KVRFIDCapabilities::tag_types).
    enum TagType : uint32_t {
        EPC_64 = 1,
        EPC_96 = 2,
        TAG_IT_HF = 4,
        ISO_15693 = 8,
        I_CODE1 = 16,
        PICOTAG = 32,
        MY_D = 64,
        TAG_IT_HF_I = 128,
        I_CODE_SLI = 256,
        TAGSYS = 512,
        ISO_18000_6B = 1024
    };

    // The division of a tag's bits. All except custom belong to one EPC type each.
    enum Format : uint32_t {
        FORMAT_CUSTOM = 0,
        FORMAT_EPC_64 = 256,
        FORMAT_SGTIN_64 = 257,
        FORMAT_SSCC_64 = 258,
        FORMAT_SGLN_64 = 259,
        FORMAT_EPC_96 = 512
    };

    // A font for EPC-64 tags.
    DataFont_RFID();

    // SetDefaults changes the tag type and resets everything else: the general format of an EPC
    // type, or for other tags none and no mask; encoding 0, no write protection, the tag's first
    // free block.
    uint32_t GetTagType() const { return record_.tag_type; }
    void SetDefaults(uint32_t tag_type);

    uint32_t GetFormat() const { return record_.format; }
    void SetFormat(uint32_t format) { record_.format = format; }

    // The widths of the fields, as text of at most 127 bytes in code page 0.
    OString GetFormatMask() const { return OString(record_.mask); }
    void SetFormatMask(const OString& mask);
    void ClearFormatMask() { SetFormatMask(OString()); }
    // Sets the mask to that of the format. True, with the mask unchanged, for a format that has
    // none of its own.
    bool UpdateFormatMask();

    int GetEncoding() const { return record_.encoding; }
    void SetEncoding(int encoding) { record_.encoding = static_cast<uint16_t>(encoding); }

    bool GetWriteProtect() const { return record_.write_protect != 0; }
    void SetWriteProtect(bool on) { record_.write_protect = on; }

    // The block of the tag's memory where writing starts.
    int32_t GetStartingBlock() const { return record_.starting_block; }
    void SetStartingBlock(int32_t block) { record_.starting_block = block; }
    // Returns to the tag's first free block.
    void ResetStartingBlock();

    // Brings the font in line with what the printer can write: an unknown tag type becomes the
    // first supported one, a format of another tag type becomes that of its own, a block that the
    // tag does not have becomes the nearest one.
    void ValidateRFIDData(const prtmodel* model);

    // Whether the printer writes tags of the type.
    bool IsSupported(const prtmodel* model) const;

    // Fills the font from a blob. False, with the font unchanged, if the blob is another font's or
    // incomplete, or if its record is too long.
    bool Load(const void* blob, size_t size);
    void Save(DataFontStorage_RFID& blob) const;

private:
    RFIDRecord record_;
};

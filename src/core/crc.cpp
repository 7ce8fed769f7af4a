#include "core/crc.h"

#include <array>
#include <utility>

#include "core/crc32_fold.h"

namespace {

constexpr uint32_t kUTF8 = 1208;

// Tables for a most-significant-bit-first checksum that takes kSlices bytes at a time. Row i has
// the effect of a byte on the register i bytes later.
template <class Word, Word kPolynomial, size_t kSlices>
class Slicer {
public:
    static Word Advance(Word crc, const uint8_t* data, size_t size) {
        for (; size >= kSlices; data += kSlices, size -= kSlices)
            crc = Slice(crc, data, std::make_index_sequence<kSlices>());
        for (; size != 0; ++data, --size)
            crc = static_cast<Word>((crc << 8) ^ kTables[0][(crc >> kTopByte) ^ *data]);
        return crc;
    }

private:
    static constexpr size_t kWordBytes = sizeof(Word);
    static constexpr int kTopByte = 8 * (kWordBytes - 1);

    static constexpr auto kTables = [] {
        std::array<std::array<Word, 256>, kSlices> tables{};
        for (unsigned byte = 0; byte < 256; ++byte) {
            Word crc = static_cast<Word>(static_cast<Word>(byte) << kTopByte);
            for (int bit = 0; bit < 8; ++bit) {
                const bool top = (crc >> (kTopByte + 7)) != 0;
                crc = static_cast<Word>((crc << 1) ^ (top ? kPolynomial : 0));
            }
            tables[0][byte] = crc;
        }
        for (size_t row = 1; row < kSlices; ++row) {
            for (unsigned byte = 0; byte < 256; ++byte) {
                const Word crc = tables[row - 1][byte];
                tables[row][byte] = static_cast<Word>((crc << 8) ^ tables[0][crc >> kTopByte]);
            }
        }
        return tables;
    }();

    template <size_t... I>
    static Word Slice(Word crc, const uint8_t* data, std::index_sequence<I...>) {
        return static_cast<Word>((kTables[kSlices - 1 - I][Byte<I>(crc, data)] ^ ...));
    }

    // Byte I of the data, combined with the byte of the register that meets it.
    template <size_t I>
    static uint8_t Byte(Word crc, const uint8_t* data) {
        if constexpr (I < kWordBytes)
            return static_cast<uint8_t>(data[I] ^ (crc >> (kTopByte - 8 * static_cast<int>(I))));
        else
            return data[I];
    }
};

} // namespace

uint16_t CRC16(const void* data, uint32_t size, uint16_t seed) {
    if (!data) return seed;
    return Slicer<uint16_t, 0x1021, 8>::Advance(seed, static_cast<const uint8_t*>(data), size);
}

uint32_t AdvanceCRC32(uint32_t crc, const uint8_t* data, size_t size) {
    return Slicer<uint32_t, 0x04C11DB7, 16>::Advance(crc, data, size);
}

uint32_t CRC32(const void* data, uint32_t size, uint32_t seed) {
    if (!data) return seed;
    uint32_t crc = ~seed;
    const uint8_t* bytes = static_cast<const uint8_t*>(data);
    size_t left = size;
    FoldCRC32(crc, bytes, left);
    return ~AdvanceCRC32(crc, bytes, left);
}

uint32_t CRC32_UTF8(const OString& text, uint32_t seed) {
    OString utf8(text);
    utf8.SetCodePage(kUTF8);
    const char* bytes = utf8.nstring();
    return CRC32(bytes, static_cast<uint32_t>(utf8.nlen()) + 1, seed);
}

uint32_t CRC32_Calculator::CRC32(const void* data, uint32_t size) {
    return value_ = ::CRC32(data, size, value_);
}

uint32_t CRC32_Calculator::CRC32(char value) {
    return CRC32(&value, sizeof(value));
}

uint32_t CRC32_Calculator::CRC32(int16_t value) {
    return CRC32(&value, sizeof(value));
}

uint32_t CRC32_Calculator::CRC32(int32_t value) {
    return CRC32(&value, sizeof(value));
}

uint32_t CRC32_Calculator::CRC32(const OString& text) {
    const WCHAR* units = text.wstring();
    const uint32_t count = static_cast<uint32_t>(text.wlen()) + 1;
    return CRC32(units, count * static_cast<uint32_t>(sizeof(WCHAR)));
}

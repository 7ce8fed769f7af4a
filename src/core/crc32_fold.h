// CRC-32 by carry-less multiplication, where the processor has it.
#pragma once

#include <cstddef>
#include <cstdint>

// Advances the register over as much of the data as is worthwhile. `data` and `size` then describe
// the rest, which may be all of it.
void FoldCRC32(uint32_t& crc, const uint8_t*& data, size_t& size);

// Advances the register over any data, by tables.
uint32_t AdvanceCRC32(uint32_t crc, const uint8_t* data, size_t size);

#include "imaging/dither_pattern.h"

#include <algorithm>
#include <cstddef>
#include <numeric>

namespace {

struct Matrix {
    int size;
    int scale; // from an entry to its threshold
    uint8_t entries[64];
};

constexpr Matrix kDispersed[] = {
    {2, 64, {0, 2, 3, 1}},
    {4, 16, {0, 8, 2, 10, 12, 4, 14, 6, 3, 11, 1, 9, 15, 7, 13, 5}},
    {8, 4, {0,  32, 8,  40, 2,  34, 10, 42, 48, 16, 56, 24, 50, 18, 58, 26, 12, 44, 4,  36, 14, 46,
            6,  38, 60, 28, 52, 20, 62, 30, 54, 22, 3,  35, 11, 43, 1,  33, 9,  41, 51, 19, 59, 27,
            49, 17, 57, 25, 15, 47, 7,  39, 13, 45, 5,  37, 63, 31, 55, 23, 61, 29, 53, 21}},
};

constexpr Matrix kClustered[] = {
    {2, 64, {0, 1, 2, 3}},
    {4, 16, {0, 2, 8, 10, 4, 6, 12, 14, 9, 11, 1, 3, 13, 15, 5, 7}},
    {6, 7, {16, 12, 14, 18, 22, 20, 8,  0,  2,  26, 34, 32, 10, 4,  6,  24, 30, 28,
            19, 23, 21, 17, 13, 15, 27, 35, 33, 9,  1,  3,  25, 31, 29, 11, 5,  7}},
    {8, 4, {30, 24, 26, 28, 32, 38, 36, 34, 22, 0,  2,  14, 40, 62, 60, 48, 18, 4,  6,  12, 44, 58,
            56, 50, 20, 10, 8,  16, 42, 52, 54, 46, 33, 39, 37, 35, 31, 25, 27, 29, 41, 63, 61, 49,
            23, 1,  3,  15, 45, 59, 57, 51, 19, 5,  7,  13, 43, 53, 55, 47, 21, 11, 9,  17}},
};

// The remainder in 0..divisor - 1.
int Modulo(int64_t value, int divisor) {
    const int64_t rest = value % divisor;
    return static_cast<int>(rest < 0 ? rest + divisor : rest);
}

} // namespace

DitherPattern::DitherPattern(const dithercfg& config, int32_t origin_x, int32_t origin_y) {
    const uint8_t middle = 127;
    const Matrix& matrix = config.algorithm == dithercfg::ALGORITHM_DISPERSED
                               ? kDispersed[config.dispersed_matrix]
                               : kClustered[config.clustered_matrix];
    switch (config.algorithm) {
    case dithercfg::ALGORITHM_DISPERSED:
    case dithercfg::ALGORITHM_CLUSTERED:
        SetMatrix(matrix.entries, matrix.size, matrix.scale, origin_x, origin_y);
        break;
    case dithercfg::ALGORITHM_ALGEBRAIC:
        SetAlgebraic(config.sequence, origin_x, origin_y);
        break;
    default:
        SetMatrix(&middle, 1, 1, 0, 0);
    }
}

void DitherPattern::SetMatrix(const uint8_t* matrix, int size, int scale, int32_t origin_x,
                              int32_t origin_y) {
    period_ = size;
    first_ = Modulo(origin_y, size);
    column_ = Modulo(origin_x, size);
    for (int row = 0; row < size; ++row) {
        uint16_t* values = values_ + ptrdiff_t{row} * (size + kRun);
        uint8_t* limits = limits_ + ptrdiff_t{row} * (size + kRun);
        for (int x = 0; x < size + kRun; ++x) {
            values[x] = static_cast<uint16_t>(matrix[row * size + x % size] * scale);
            limits[x] = static_cast<uint8_t>(values[x]);
        }
    }
}

void DitherPattern::SetAlgebraic(int sequence, int32_t origin_x, int32_t origin_y) {
    int A, B, C;
    GetSequence(sequence, A, B, C);
    algebraic_ = true;
    range_ = static_cast<uint32_t>(C);
    step_ = A % C;
    first_ = Modulo(int64_t{origin_y} * A + int64_t{origin_x} * B, C);
    // Steps of B reach every value with the same remainder by the common divisor.
    const int classes = std::gcd(B, C);
    period_ = C / classes;
    for (int start = 0; start < classes; ++start) {
        int value = start;
        for (int i = 0; i < period_ + kRun; ++i) {
            const int place = start * (period_ + kRun) + i;
            if (i < period_) place_[value] = static_cast<uint16_t>(place);
            values_[place] = static_cast<uint16_t>(value);
            // A channel of more than this has channel * C > value * 256.
            limits_[place] = static_cast<uint8_t>(value * 256 / C);
            value = (value + B) % C;
        }
    }
}

DitherPattern::Row DitherPattern::GetRow(int y) const {
    int sequence, start;
    if (algebraic_) {
        const int C = static_cast<int>(range_);
        const int place = place_[Modulo(first_ + int64_t{y} * step_, C)];
        sequence = place / (period_ + kRun);
        start = place % (period_ + kRun);
    } else {
        sequence = Modulo(int64_t{first_} + y, period_);
        start = column_;
    }
    const int base = sequence * (period_ + kRun);
    return {limits_ + base, values_ + base, start, period_};
}

void DitherPattern::GetSequence(int n, int& A, int& B, int& C) {
    A = B = 1;
    C = 2;
    for (int i = std::clamp(n, 0, 19); i > 0; --i) {
        const int next = C + A;
        A = B;
        B = C;
        C = next;
    }
}

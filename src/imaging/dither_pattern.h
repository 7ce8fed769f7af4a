// The thresholds that screening compares pixels with.
#pragma once

#include <cstdint>

#include "imaging/dithercfg.h"

// An endless field of thresholds: one value everywhere, a matrix that repeats, or the algebraic
// pattern. Every row is a piece of one of a few sequences. These are stored a little longer than
// their period, so a run of kRun thresholds is always contiguous.
class DitherPattern {
public:
    static constexpr int kRun = 256;

    // The pattern of the settings, with the threshold of the image's first pixel at the origin.
    DitherPattern(const dithercfg& config, int32_t origin_x, int32_t origin_y);

    // The value that thresholds are fractions of: 255, or C of the algebraic pattern.
    uint32_t Range() const { return range_; }

    // One row of the pattern.
    struct Row {
        const uint8_t* limits;  // a channel above its limit is on
        const uint16_t* values; // the thresholds themselves, at most the range
        int start;
        int period;

        // Where the thresholds of column `x` and of the columns to its right begin.
        int At(int x) const { return (start + x) % period; }
    };
    Row GetRow(int y) const;

    // Three successive numbers of the algebraic sequence from number `n` on. An `n` outside 0..19
    // means the nearer end.
    static void GetSequence(int n, int& A, int& B, int& C);

private:
    static constexpr int kMaxRange = 2745;  // C of the last three numbers
    static constexpr int kMaxSequences = 8; // rows of a matrix; classes of the algebraic pattern
    static constexpr int kSize = kMaxRange + kMaxSequences * kRun;

    void SetMatrix(const uint8_t* matrix, int size, int scale, int32_t origin_x, int32_t origin_y);
    void SetAlgebraic(int sequence, int32_t origin_x, int32_t origin_y);

    uint32_t range_ = 255;
    int period_ = 1;
    int first_ = 0; // the threshold at the origin of the algebraic pattern, or the row of a matrix
    int step_ = 0;  // from one row's first threshold to the next one's, modulo range_
    int column_ = 0;
    bool algebraic_ = false;
    uint8_t limits_[kSize];
    uint16_t values_[kSize];
    uint16_t place_[kMaxRange]; // the position of each value in the algebraic sequences
};

#include "imaging/dithercfg.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

using Fields = int16_t[12];

dithercfg Record(const Fields& fields) {
    dithercfg record;
    std::memcpy(&record, fields, sizeof record);
    return record;
}

void ExpectFields(const dithercfg& record, const Fields& expected, const char* what) {
    Fields fields;
    std::memcpy(fields, &record, sizeof fields);
    for (int i = 0; i < 12; ++i) EXPECT_EQ(fields[i], expected[i]) << what << ", field " << i;
}

} // namespace

TEST(DitherSettings, AreBroughtIntoTheirRanges) {
    const struct {
        const char* what;
        Fields before;
        Fields after;
    } cases[] = {
        {"below",
         {-1, -101, -32768, -200, -101, -150, -1, -1, -1, -5, -1, -7},
         {0, -100, -100, -100, -100, -100, 0, 2, 0, -5, -1, -7}},
        {"above",
         {6, 101, 32767, 200, 101, 150, 3, 4, 2, 20, 0x7FFF, 9},
         {5, 100, 100, 100, 100, 100, 2, 2, 1, 20, 0x7FFF, 9}},
        {"lower ends",
         {0, -100, -100, -100, -100, -100, 0, 0, 0, 0, 0, 0},
         {0, -100, -100, -100, -100, -100, 0, 0, 0, 0, 0, 0}},
        {"upper ends",
         {5, 100, 100, 100, 100, 100, 2, 3, 1, 19, 7, 0},
         {5, 100, 100, 100, 100, 100, 2, 3, 1, 19, 7, 0}},
    };
    for (const auto& c : cases) {
        dithercfg record = Record(c.before);
        record.Validate();
        ExpectFields(record, c.after, c.what);
    }
}

// The facts that a ZPL II printer adds to the printer model.

#include "zpl/extmodel.h"

#include <cstring>

#include "core/memory.h"
#include "model/model_data_cache.h"
#include "support/model_test.h"

namespace {

class ZplModel : public ModelTest {
protected:
    void SetUp() override { Install({}); }

    void LoadBlob(const std::string& length, const std::string& text) {
        Replace({.custom_data = "Data.Length=" + length + "\nData=" + text + "\n"});
    }
};

} // namespace

TEST_F(ZplModel, TellsItsRfidTagTypesInBits) {
    const struct {
        const char* types;
        uint32_t bits;
    } cases[] = {
        {"EPC64", 1}, {"EPC96,TagIt", 6}, {"ISO15693,ICode1,Picotag", 0x38}, {"epc64,New", 0}};
    for (const auto& c : cases) {
        Replace({.model = std::string("~RFID.TagTypes=") + c.types});
        auto model = Model();
        const uint32_t expected[7] = {28 << 16 | 28, 7, c.bits, 3, 1, 0xE0000000, 10};
        EXPECT_EQ(std::memcmp(model->GetRFIDCapabilities(), expected, 28), 0) << c.types;
        EXPECT_TRUE(model->HasRFID()) << c.types;
    }
    Replace({});
    auto model = Model();
    const uint32_t none[7] = {28 << 16 | 28};
    EXPECT_EQ(std::memcmp(model->GetRFIDCapabilities(), none, 28), 0);
    EXPECT_FALSE(model->HasRFID());
}

TEST_F(ZplModel, TakesALongerRfidRecordFromTheCache) {
    uint32_t longer[9] = {36 << 16 | 28, 1};
    ModelDataCache().Synchronize(Records());
    ModelDataCache().SetData(Records(), "RFIDCapabilities", longer, sizeof longer);
    auto model = Model();
    EXPECT_TRUE(model->HasRFID());
    EXPECT_EQ(std::memcmp(model->GetRFIDCapabilities(), longer, sizeof longer), 0);
    ModelDataCache().SetData(Records(), "RFIDCapabilities", longer, 27);
    EXPECT_FALSE(Model()->HasRFID()) << "too short to be one";
}

TEST_F(ZplModel, DescribesTemplatesAndTheClock) {
    auto* templates = static_cast<KVTemplateCapabilities*>(___calloc(1, 24));
    templates->size = 20;
    Model()->GetTemplateCapabilities(templates);
    const char pattern[] = "[A-Za-z][A-Za-z0-9]{0,7}\\.ZPL";
    ASSERT_EQ(___msize(templates), 24 + sizeof pattern);
    EXPECT_EQ(templates->size, 20);
    EXPECT_EQ(templates->value4, 3u);
    EXPECT_EQ(templates->value8, 3u);
    EXPECT_EQ(templates->value12, 4);
    EXPECT_EQ(templates->value14, 4);
    ASSERT_EQ(templates->name_pattern_offset, 24) << "after all that was there";
    EXPECT_STREQ(reinterpret_cast<char*>(templates) + 24, pattern);
    ___free(templates);

    auto* clock = static_cast<KVClockCapabilities*>(___calloc(1, sizeof(KVClockCapabilities)));
    Model()->GetClockCapabilities(clock);
    const uint32_t expected[6] = {0, 0x1010F, 0x2502EA, 0x1011A, 0, 119};
    EXPECT_EQ(std::memcmp(clock, expected, sizeof expected), 0);
    ___free(clock);
}

TEST_F(ZplModel, TrustsTheLengthOfItsCustomDataOnlyAsFarAsTheTextGoes) {
    const std::string bytes(300, '\x11');
    const std::string text = Encoded(bytes.data(), bytes.size());
    const struct {
        const char* length;
        std::string text;
        uint32_t kept;   // bytes in the record cache
        size_t readable; // bytes that are not zero
    } cases[] = {
        {"196", text, 196, 196},
        {"24", text, 24, 24},
        {"2000000000", text, 303, 196},
        {"4", Encoded("\x11\x11", 2), 4, 2},
        {"2000000000", "", 3, 0},
        {"-1", text, 0, 0},
        {"0", text, 0, 0},
        {"many", text, 0, 0},
    };
    for (const auto& c : cases) {
        LoadBlob(c.length, c.text);
        for (int pass = 0; pass < 2; ++pass) { // built, then from the cache
            auto model = Model();
            const auto* data = reinterpret_cast<const char*>(model->GetCustomData());
            for (size_t i = 0; i < sizeof(CustomData); ++i)
                ASSERT_EQ(data[i], i < c.readable ? '\x11' : 0) << c.length << " at " << i;
        }
        EXPECT_EQ(ModelDataCache().GetDataSize(Records(), "~CustomData"), c.kept) << c.length;
    }
    LoadBlob("2000000000", std::string(200000, 'A'));
    EXPECT_EQ(Model()->GetCustomData()->flags, 0u);
    EXPECT_EQ(ModelDataCache().GetDataSize(Records(), "~CustomData"), 65536u) << "a sane amount";
}

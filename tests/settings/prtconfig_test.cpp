// The framework's view of the driver configuration, and how it is found in DEVMODEs of all kinds.
#include "settings/prtconfig.h"

#include <cstring>
#include <string>
#include <vector>

#include "support/model_test.h"

namespace {

// A block in the length of today, with settings that no two bytes share.
struct Block {
    std::vector<char> bytes = std::vector<char>(1116);
    Block() {
        for (size_t i = 1024; i < bytes.size(); ++i) bytes[i] = static_cast<char>(i * 7);
        (*this)->length = 1116;
    }
    prtconfig& operator*() { return *reinterpret_cast<prtconfig*>(bytes.data()); }
    prtconfig* operator->() { return &**this; }
};

// A DEVMODE of exactly its own size, so that a read behind it is noticed.
struct Record {
    std::vector<char> bytes;

    Record(uint16_t size, uint16_t extra)
        : bytes(static_cast<size_t>(size < 72 ? 72 : size) + extra) {
        dev_mode().dmSpecVersion = 0x401;
        dev_mode().dmDriverVersion = 1;
        dev_mode().dmSize = size;
        dev_mode().dmDriverExtra = extra;
    }
    DEVMODEW& dev_mode() { return *reinterpret_cast<DEVMODEW*>(bytes.data()); }
    char* End() { return bytes.data() + dev_mode().dmSize + dev_mode().dmDriverExtra; }
    Record& Tail(uint16_t size, const char* text = "kvkzpl") {
        std::memcpy(End() - 8, text, 6);
        std::memcpy(End() - 2, &size, 2);
        return *this;
    }
    // How far in front of the end the configuration begins; 0 when there is none.
    int64_t Found() {
        const prtconfig* config = prtconfig::get_cfg(&dev_mode());
        return config ? End() - reinterpret_cast<const char*>(config) : 0;
    }
};

class FrameworkConfiguration : public ModelTest {};

} // namespace

TEST(DriverConfiguration, IsFoundFromTheEndOfADevMode) {
    const struct {
        const char* what;
        uint16_t size, extra, tail;
        int64_t found;
    } cases[] = {
        {"today's", 220, 1288, 1124, 1124},
        {"a shorter public part", 188, 1288, 1124, 1124},
        {"a longer public part of odd size", 301, 1288, 1124, 1124},
        {"a shorter configuration", 220, 1288, 1100, 1100},
        {"without its user commands in the size", 220, 1288, 100, 1124},
        {"nothing but a configuration", 220, 1124, 1124, 1124},
        {"a tail larger than the private bytes", 220, 1100, 1200, 0},
        {"user commands in front of the private bytes", 220, 1123, 100, 0},
        {"too short for its fields", 220, 1288, 1067, 0},
        {"just long enough", 220, 1288, 1068, 1068},
        {"no size", 220, 1288, 0, 0},
        {"all of a large size", 220, 65535, 65535, 65535},
        {"half a tail", 220, 7, 8, 0},
    };
    for (const auto& c : cases) {
        Record record(c.size, c.extra);
        if (c.extra >= 8) record.Tail(c.tail);
        EXPECT_EQ(record.Found(), c.found) << c.what;
    }
}

TEST(DriverConfiguration, IsNotFoundWithoutSignatureVersionsSizeOrATrueLength) {
    EXPECT_EQ(prtconfig::get_tail(static_cast<DEVMODEW*>(nullptr)), nullptr);
    EXPECT_EQ(prtconfig::get_cfg(static_cast<DEVMODEW*>(nullptr)), nullptr);
    Record record(220, 1288);
    EXPECT_EQ(record.Found(), 0);
    record.Tail(1124, "kvjzpl");
    EXPECT_EQ(record.Found(), 0);
    record.Tail(1124);
    for (WORD DEVMODEW::*field :
         {&DEVMODEW::dmSpecVersion, &DEVMODEW::dmDriverVersion, &DEVMODEW::dmSize}) {
        const WORD before = record.dev_mode().*field;
        record.dev_mode().*field = 0;
        EXPECT_EQ(prtconfig::get_cfg(&record.dev_mode()), nullptr);
        record.dev_mode().*field = before;
        EXPECT_EQ(record.Found(), 1124);
    }
    prtconfig::get_cfg(&record.dev_mode())->length = 1117;
    EXPECT_EQ(record.Found(), 0) << "longer than its place";
}

TEST(DriverConfiguration, IsCopiedBetweenDevModesOfOneFamilyAndVersion) {
    const struct {
        const char* what;
        const char* tail;
        uint16_t size, version, length;
        bool copied;
        uint16_t length_after;
    } cases[] = {
        {"the same", "kvkzpl", 1124, 1028, 1116, true, 1116},
        {"another family", "kvkzpx", 1124, 1028, 1116, false, 1116},
        {"another signature", "kvxzpl", 1124, 1028, 1116, false, 1116},
        {"another version", "kvkzpl", 1124, 1027, 1116, false, 1116},
        {"a shorter one", "kvkzpl", 1124, 1028, 1040, true, 1040},
        {"a length beyond all bytes", "kvkzpl", 1124, 1028, 65535, true, 1116},
        {"less room than length", "kvkzpl", 1060, 1028, 1116, true, 1116},
        {"no room for a version", "kvkzpl", 1035, 1028, 1116, false, 1116},
    };
    for (const auto& c : cases) {
        Record to(220, 1288);
        to.Tail(1124);
        prtconfig* own = prtconfig::get_cfg(&to.dev_mode());
        own->length = 1116;
        own->version = 1028;

        Record from(220, 1288);
        from.Tail(1124);
        char* block = from.End() - c.size;
        std::memset(block, 0x21, 1030);
        std::memcpy(block + 1024, &c.length, 2);
        std::memcpy(block + 1026, &c.version, 2);
        from.Tail(c.size, c.tail);
        prtconfig::Copy(prtconfig::get_tail(&to.dev_mode()), prtconfig::get_tail(&from.dev_mode()));
        EXPECT_EQ(own->user[0][0], c.copied ? 0x21 : 0) << c.what;
        EXPECT_EQ(own->length, c.length_after) << c.what;
        EXPECT_EQ(std::memcmp(to.End() - 8, "kvkzpl", 6), 0) << c.what;
    }
}

TEST(DriverConfiguration, IsEqualInTextsLengthAndEverythingBehindIt) {
    Block a, b;
    EXPECT_TRUE(*a == *b);
    const struct {
        const char* what;
        size_t offset;
        bool equal;
    } cases[] = {
        {"behind the end of a command", 5, true},
        {"at the end of a command", 4, false},
        {"the preset checksum", 1021, true},
        {"the length", 1025, false},
        {"the version", 1026, false},
        {"the last byte", 1115, false},
    };
    std::memcpy(a->user[0], "^XA!", 5);
    std::memcpy(b->user[0], "^XA!", 5);
    for (const auto& c : cases) {
        b.bytes[c.offset] = static_cast<char>(b.bytes[c.offset] ^ 1);
        EXPECT_EQ(*a == *b, c.equal) << c.what;
        EXPECT_EQ(*b != *a, !c.equal) << c.what;
        b.bytes[c.offset] = static_cast<char>(b.bytes[c.offset] ^ 1);
    }
    for (Block* block : {&a, &b}) {
        std::memset((*block)->user[3], 'x', 256);
        EXPECT_EQ(*a == *b, block == &b) << "commands that fill their place";
    }
    b->user[3][255] = 'y';
    EXPECT_FALSE(*a == *b);
    a->length = b->length = 0;
    b->user[3][255] = 'x';
    EXPECT_TRUE(*a == *b) << "without a length nothing else is compared";
}

TEST(DriverConfiguration, KeepsUserCommandsOfUpTo256Bytes) {
    Block block;
    for (int length : {0, 1, 255, 256, 300}) {
        std::memset(block->user, '-', 1024);
        block->set_user(OString(std::string(static_cast<size_t>(length), 'c').c_str()), 1);
        std::string expected(static_cast<size_t>(length > 256 ? 256 : length), 'c');
        expected.resize(256);
        EXPECT_EQ(std::string(block->user[1], 256), expected) << length;
        EXPECT_EQ(block->user[0][255], '-') << length;
        EXPECT_EQ(block->user[2][0], '-') << length;
    }
    const Block before = block;
    block->set_user("x", -1);
    block->set_user("x", 4);
    EXPECT_EQ(block.bytes, before.bytes);
}

TEST(DriverConfiguration, HasAPresetChecksumWhileTheLastCommandLeavesRoom) {
    for (int length : {0, 250, 251, 255, 256}) {
        Block block;
        block->set_user(OString(std::string(static_cast<size_t>(length), 'c').c_str()), 3);
        const std::vector<char> before = block.bytes;
        block->SetPresetCRC32(0x12345678);
        if (length < 251) {
            EXPECT_EQ(block->GetPresetCRC32(), 0x12345678u) << length;
            EXPECT_EQ(block.bytes[1020], 0x78) << length;
            EXPECT_EQ(std::strlen(block->user[3]), static_cast<size_t>(length));
        } else {
            EXPECT_EQ(block.bytes, before) << length;
        }
    }
}

TEST_F(FrameworkConfiguration, StartsWithDotsForTheResolution) {
    const struct {
        const char* resolution;
        int16_t matrix;
    } cases[] = {{"", 1}, {"Resolution=152", 1}, {"Resolution=203", 2}, {"Resolution=600x300", 3}};
    Install({});
    for (const auto& c : cases) {
        Replace({.model = c.resolution});
        Block block;
        std::memset(block.bytes.data(), 0x5A, block.bytes.size());
        block->prtconfig::Reset(Model().get());
        EXPECT_EQ(std::string(block.bytes.data(), 1024), std::string(1024, '\0'));
        EXPECT_EQ(block->flags, 0);
        EXPECT_EQ(block->reserved, 0);
        EXPECT_EQ(block->option_length, 6350);
        EXPECT_EQ(block->dither.clustered_matrix, c.matrix) << c.resolution;
        EXPECT_EQ(block->dither.sequence, 18);
        EXPECT_EQ(block->length, 0x5A5A) << "the printer language's";
        EXPECT_EQ(block.bytes[1060], 0x5A) << "the printer language's";
    }
}

TEST_F(FrameworkConfiguration, LosesWhatTheModelCannotDo) {
    const struct {
        const char* drawing;
        uint16_t flags;
    } cases[] = {{"", 0xFFF9},
                 {"Transform.Mirror=yes", 0xFFFB},
                 {"Transform.Inverse=yes", 0xFFFD},
                 {"Transform.Mirror=yes\nTransform.Inverse=yes", 0xFFFF}};
    Install({});
    for (const auto& c : cases) {
        Replace({.drawing = c.drawing});
        Block block;
        block->flags = 0xFFFF;
        block->dither.algorithm = 9;
        block->Validate(Model().get());
        EXPECT_EQ(block->flags, c.flags) << c.drawing;
        EXPECT_TRUE(block->is_24bit_device());
        block->dither.algorithm = 4;
        EXPECT_FALSE(block->is_24bit_device());
    }
}

// Conversion of DEVMODEs between layouts.
#include <cstring>
#include <vector>

#include "support/dev_mode_test.h"
#include "zplui.h"

namespace {

class ConvertDevMode : public DevModeTest {
protected:
    // The error of a call that fails; 0 when it succeeds.
    static DWORD Call(DEVMODEW* in, DEVMODEW* out, DWORD* size, DWORD mode,
                      const WCHAR* printer = TEXT("Dock 3")) {
        SetLastError(0);
        const bool done =
            DrvConvertDevMode(const_cast<WCHAR*>(printer), in, out, size, mode) != FALSE;
        return done ? 0 : GetLastError();
    }
};

} // namespace

TEST_F(ConvertDevMode, StoresTheDefaultsOfAPrinter) {
    Install(Tables());
    DevMode expected;
    expected.CreateDefault(Model().get());
    std::vector<char> out(1600, 'x');
    auto* mode = reinterpret_cast<DEVMODEW*>(out.data());
    DWORD size = 1600;
    EXPECT_EQ(Call(nullptr, mode, &size, CDM_DRIVER_DEFAULT), 0u);
    EXPECT_EQ(std::memcmp(mode, expected.GetDevMode(), 1508), 0);
    EXPECT_EQ(out[1508], 'x');
    size = 1507;
    EXPECT_EQ(Call(nullptr, mode, &size, CDM_DRIVER_DEFAULT), DWORD(ERROR_INSUFFICIENT_BUFFER));
    EXPECT_EQ(size, 1508u);
    EXPECT_FALSE(DrvConvertDevMode(const_cast<WCHAR*>(TEXT("Nowhere")), nullptr, mode, &size,
                                   CDM_DRIVER_DEFAULT));
}

TEST_F(ConvertDevMode, TellsTheSizeItTakes) {
    DWORD size = 5;
    EXPECT_EQ(Call(nullptr, nullptr, &size, CDM_CONVERT), DWORD(ERROR_INSUFFICIENT_BUFFER));
    EXPECT_EQ(size, 1508u);
    DEVMODEW mode = {};
    for (const DWORD to : {CDM_CONVERT, CDM_CONVERT351})
        EXPECT_EQ(Call(nullptr, &mode, &size, to), DWORD(ERROR_INVALID_PARAMETER));
    mode.dmSize = 71;
    EXPECT_EQ(Call(&mode, &mode, &size, CDM_CONVERT), DWORD(ERROR_INVALID_PARAMETER));
    EXPECT_EQ(Call(&mode, &mode, nullptr, CDM_CONVERT), DWORD(ERROR_INVALID_PARAMETER));

    ForeignDevMode in(220, 100), out(220, 500);
    const struct {
        const char* what;
        DWORD size, mode, error, size_after;
    } cases[] = {
        {"enough", 320, CDM_CONVERT, 0, 320},
        {"more than enough", 720, CDM_CONVERT, 0, 320},
        {"too small", 319, CDM_CONVERT, ERROR_INSUFFICIENT_BUFFER, 320},
        {"too small to ask for a layout", 71, CDM_CONVERT, ERROR_INSUFFICIENT_BUFFER, 320},
        {"enough for the old layout", 288, CDM_CONVERT351, 0, 288},
        {"too small for the old layout", 287, CDM_CONVERT351, ERROR_INSUFFICIENT_BUFFER, 288},
        {"nothing for the old layout", 0, CDM_CONVERT351, ERROR_INSUFFICIENT_BUFFER, 288},
        {"another mode", 720, 3, 0xFFFF, 720},
    };
    for (const auto& c : cases) {
        out->dmSize = 220;
        size = c.size;
        SetLastError(0xFFFF);
        const BOOL done = DrvConvertDevMode(nullptr, in.dev_mode(), out.dev_mode(), &size, c.mode);
        EXPECT_EQ(done ? 0 : GetLastError(), c.error) << c.what;
        EXPECT_EQ(size, c.size_after) << c.what;
    }
}

TEST_F(ConvertDevMode, CutsOrPadsThePublicPartAndKeepsThePrivateOne) {
    const struct {
        const char* what;
        WORD in_size, out_size, mode, expected_version, expected_size;
    } cases[] = {
        {"the same", 220, 220, CDM_CONVERT, 0x400, 220},
        {"to an older one", 220, 156, CDM_CONVERT, 0x400, 156},
        {"to a newer one", 188, 220, CDM_CONVERT, 0x400, 220},
        {"to that of 3.51", 220, 220, CDM_CONVERT351, 0x320, 188},
        {"from nothing", 0, 220, CDM_CONVERT, 0x400, 220},
        {"to the shortest", 220, 72, CDM_CONVERT, 0x400, 72},
    };
    for (const auto& c : cases) {
        ForeignDevMode in(c.in_size, 30);
        for (size_t i = 72; i < in.bytes.size(); ++i) in.bytes[i] = static_cast<char>(i);
        ForeignDevMode out(c.expected_size, 30, "Whatever");
        std::fill(out.bytes.begin() + 72, out.bytes.end(), 'x');
        out->dmSpecVersion = 0x400;
        out->dmSize = c.out_size;
        const std::vector<char> before = in.bytes;
        DWORD size = c.expected_size + 30u;
        EXPECT_EQ(Call(in.dev_mode(), out.dev_mode(), &size, c.mode), 0u) << c.what;
        EXPECT_EQ(in.bytes, before) << c.what;

        EXPECT_EQ(out->dmSpecVersion, c.expected_version) << c.what;
        EXPECT_EQ(out->dmSize, c.expected_size) << c.what;
        EXPECT_EQ(out->dmDriverExtra, 30) << c.what;
        EXPECT_EQ(out->dmDriverVersion, c.in_size ? 1 : 0) << c.what;
        for (size_t i = 72; i < c.expected_size; ++i)
            ASSERT_EQ(out.bytes[i], i < c.in_size ? static_cast<char>(i) : 0) << c.what << i;
        EXPECT_EQ(std::memcmp(&out.bytes[c.expected_size], &in.bytes[c.in_size], 30), 0) << c.what;
    }
}

TEST_F(ConvertDevMode, WorksInPlace) {
    ForeignDevMode mode(220, 30);
    std::fill(mode.bytes.begin() + 72, mode.bytes.end(), 'p');
    const std::vector<char> before = mode.bytes;
    DWORD size = 250;
    EXPECT_EQ(Call(mode.dev_mode(), mode.dev_mode(), &size, CDM_CONVERT), 0u);
    EXPECT_EQ(mode.bytes, before);

    std::fill(mode.bytes.begin() + 188, mode.bytes.begin() + 220, 'o');
    EXPECT_EQ(Call(mode.dev_mode(), mode.dev_mode(), &size, CDM_CONVERT351), 0u);
    EXPECT_EQ(size, 218u);
    EXPECT_EQ(mode->dmSize, 188);
    EXPECT_EQ(mode.bytes[187], 'p');
    EXPECT_EQ(mode.bytes[188], 'p') << "the private bytes have moved";
}

// labelhost dither on PNG files of every kind.

#include "support/build_folders.h"
#include "support/host_test.h"
#include "support/program.h"
#include "tools/png_file.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace {

using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;

class LabelhostDither : public HostTest {
protected:
    std::string Path(const std::string& name) const { return root() + "/" + name; }

    ProgramResult Run(const std::vector<std::string>& words) const {
        std::vector<std::string> all = OnMachine(root());
        all.emplace_back("dither");
        all.insert(all.end(), words.begin(), words.end());
        all.insert(all.end(), {"--product", Built("/bin")});
        return RunProgram("labelhost", all);
    }

    // The picture as red, green, blue, after the command with these options.
    Bytes Dither(const Png& image, std::vector<std::string> options = {}) const {
        SavePng(Path("in.png"), image);
        options.insert(options.begin(), {Path("in.png"), Path("out.png")});
        const ProgramResult result = Run(options);
        EXPECT_EQ(result.status, 0) << result.errors;
        EXPECT_EQ(result.output + result.errors, "");
        return PixelsOf(Path("out.png"));
    }

    // Depth and colour type in the header of the last result.
    std::pair<int, int> Kind() const {
        std::ifstream in(Path("out.png"), std::ios::binary);
        char header[26] = {};
        in.read(header, sizeof(header));
        return {header[24], header[25]};
    }
};

Bytes Repeat(size_t times, const Bytes& bytes) {
    Bytes all;
    for (size_t i = 0; i < times; ++i) all.insert(all.end(), bytes.begin(), bytes.end());
    return all;
}

TEST_F(LabelhostDither, ScreensByTheModule) {
    // A grey of 100 is above two of the four thresholds.
    const Png grey = {2, 2, 8, kGrey, false, Bytes(4, 100)};
    const std::vector<std::string> options = {"--algorithm", "dispersed", "--dispersed-matrix",
                                              "0"};
    const auto with = [&](std::vector<std::string> more) {
        more.insert(more.begin(), options.begin(), options.end());
        const Bytes pixels = Dither(grey, more);
        return Bytes{pixels[0], pixels[3], pixels[6], pixels[9]};
    };
    EXPECT_THAT(with({}), ElementsAre(255, 0, 0, 255));
    EXPECT_EQ(Kind(), std::make_pair(1, int{kGrey}));
    EXPECT_THAT(with({"--origin-x", "1"}), ElementsAre(0, 255, 255, 0));
    EXPECT_THAT(with({"--brightness", "100"}), Each(255));
    EXPECT_THAT(with({"--invert"}), ElementsAre(255, 255, 0, 255));
    EXPECT_THAT(with({"--preview"}), Each(127));
    EXPECT_EQ(Kind(), std::make_pair(1, int{kPalette}));
}

TEST_F(LabelhostDither, MirrorsBothWays) {
    const Png corner = {2, 2, 8, kGrey, false, {255, 0, 0, 0}};
    const auto white = [&](const std::vector<std::string>& options) {
        const Bytes pixels = Dither(corner, options);
        return (std::find(pixels.begin(), pixels.end(), 255) - pixels.begin()) / 3;
    };
    EXPECT_EQ(white({"--algorithm", "0"}), 0);
    EXPECT_EQ(white({"--algorithm", "0", "--mirror"}), 1);
    EXPECT_EQ(white({"--algorithm", "0", "--flip"}), 2);
}

TEST_F(LabelhostDither, ReadsEveryKindOfPng) {
    // Each is one colour, which must be found again among all of them.
    const struct {
        const char* what;
        Png image;
        const char* color;
    } cases[] = {
        {"grey", {5, 3, 8, kGrey, false, Bytes(15, 120)}, "787878"},
        {"grey of 4 bits", {4, 2, 4, kGrey, false, Bytes(4, 0x33)}, "333333"},
        {"grey of 16 bits", {2, 2, 16, kGrey, false, Repeat(4, {0x80, 0x80})}, "808080"},
        {"grey of 16 bits, rounded", {2, 2, 16, kGrey, false, Repeat(4, {0x40, 0xFF})}, "414141"},
        {"transparent grey", {2, 2, 8, kGrey, false, Bytes(4, 7), {}, {0, 7}}, "FFFFFF"},
        {"colour", {2, 2, 8, kColor, false, Repeat(4, {10, 20, 30})}, "0A141E"},
        {"colour of 16 bits",
         {2, 2, 16, kColor, false, Repeat(4, {10, 10, 20, 20, 30, 30})},
         "0A141E"},
        {"palette", {3, 1, 8, kPalette, false, {1, 1, 1}, {{1, 2, 3}, {40, 50, 60}}}, "28323C"},
        {"half transparent palette",
         {3, 1, 8, kPalette, false, {0, 0, 0}, {{0, 51, 255}}, {51}},
         "CCD6FF"},
        {"transparent", {2, 1, 8, kColorAlpha, false, Repeat(2, {9, 9, 9, 0})}, "FFFFFF"},
        {"half transparent", {2, 1, 8, kColorAlpha, false, Repeat(2, {0, 51, 255, 51})}, "CCD6FF"},
        {"half transparent grey, 16 bits",
         {2, 1, 16, kGreyAlpha, false, Repeat(2, {0, 0, 0x80, 0x80})},
         "7F7F7F"},
        {"interlaced", {9, 9, 8, kColor, true, Repeat(81, {10, 20, 30})}, "0A141E"},
    };
    // The colours, all of them in one palette of several.
    std::string colors;
    for (const auto& c : cases)
        if (colors.find(c.color) == std::string::npos)
            colors += (colors.empty() ? "" : ",") + std::string(c.color);
    for (const auto& c : cases) {
        const Bytes pixels = Dither(c.image, {"--algorithm", "none", "--palette", colors});
        const int value = std::stoi(c.color, nullptr, 16);
        const Bytes one = {static_cast<uint8_t>(value >> 16), static_cast<uint8_t>(value >> 8),
                           static_cast<uint8_t>(value)};
        EXPECT_EQ(pixels, Repeat(size_t{c.image.width} * c.image.height, one)) << c.what;
    }
}

TEST_F(LabelhostDither, KeepsThePixelsOfInterlacedPicturesInPlace) {
    Png image = {40, 30, 8, kGrey, false, {}};
    for (int i = 0; i < 1200; ++i) image.samples.push_back(static_cast<uint8_t>(i * 7 % 256));
    const Bytes plain = Dither(image);
    image.interlaced = true;
    EXPECT_EQ(Dither(image), plain);
}

TEST_F(LabelhostDither, MakesThePicturesOfThePage) {
    const struct {
        const char* name;
        std::vector<std::string> options;
    } cases[] = {
        {"none", {"--algorithm", "none"}},
        {"dispersed", {"--algorithm", "dispersed"}},
        {"clustered-8", {"--algorithm", "clustered", "--clustered-matrix", "3"}},
        {"algebraic", {"--algorithm", "algebraic"}},
        {"jarvis", {"--algorithm", "diffusion", "--kernel", "jarvis"}},
        {"contrast", {"--algorithm", "diffusion", "--contrast", "60"}},
        {"palette", {"--algorithm", "diffusion", "--palette", "FFFFFF,000000,E02020"}},
        {"color", {"--algorithm", "dispersed", "--color-mode", "color"}},
        {"preview", {"--algorithm", "clustered", "--preview"}},
    };
    const std::string pictures = Sources("/docs/pictures/");
    const std::string out = Path("Größe 漢字.png");
    for (const auto& c : cases) {
        std::vector<std::string> words = {pictures + "before.png", out};
        words.insert(words.end(), c.options.begin(), c.options.end());
        ASSERT_EQ(Run(words).status, 0) << c.name;
        EXPECT_TRUE(PixelsOf(out) == PixelsOf(pictures + c.name + ".png")) << c.name;
    }
    // Its name need not be plain for it to be read either.
    EXPECT_EQ(Run({out, out}).errors, "");
}

TEST_F(LabelhostDither, SaysInOneLineWhatWasWrong) {
    const Png grey = {300, 200, 8, kGrey, false, Bytes(60000, 100)};
    SavePng(Path("in.png"), grey);
    std::ifstream in(Path("in.png"), std::ios::binary);
    const std::string sound((std::istreambuf_iterator<char>(in)), {});
    const auto damaged = [&](const char* name, std::string bytes) {
        std::ofstream(Path(name), std::ios::binary) << bytes;
    };
    damaged("empty.png", "");
    damaged("text.png", "not a picture, and longer than a signature");
    damaged("short.png", sound.substr(0, sound.size() / 2));
    damaged("header.png", sound.substr(0, 20));
    std::string flipped = sound;
    flipped[sound.size() / 2] ^= 0x10;
    damaged("flipped.png", flipped);
    SavePng(Path("wide.png"), {32768, 1, 8, kGrey, false, Bytes(32768, 100)});
    // 32767 x 32767 pixels, announced by a file of a few bytes.
    damaged("vast.png", sound.substr(0, 8) +
                            PngPart("IHDR", std::string("\0\0\x7F\xFF\0\0\x7F\xFF\1\0\0\0\0", 13)) +
                            sound.substr(33));

    const std::string out = Path("out.png");
    const struct {
        std::vector<std::string> words;
        int status;
        const char* names;
    } cases[] = {
        {{Path("none.png"), out}, 1, "none.png': no such file"},
        {{root(), out}, 1, "cannot read"},
        {{Path("empty.png"), out}, 1, "empty.png': not a PNG file"},
        {{Path("text.png"), out}, 1, "text.png': not a PNG file"},
        {{Path("short.png"), out}, 1, "short.png"},
        {{Path("header.png"), out}, 1, "header.png"},
        {{Path("flipped.png"), out}, 1, "flipped.png"},
        {{Path("wide.png"), out}, 1, "wide.png': 32768 x 1 pixels, more than 32767"},
        {{Path("vast.png"), out}, 1, "vast.png': the file ends early"},
        {{Path("in.png"), Path("no folder/out.png")}, 1, "no folder"},
        {{Path("in.png"), Path("")}, 1, "not a plain file"},
        {{Path("in.png"), out, "--algorithm", "magic"}, 1, "not 'magic'"},
        {{Path("in.png"), out, "--algorithm", "6"}, 1, "not '6'"},
        {{Path("in.png"), out, "--contrast", "101"}, 1, "not '101'"},
        {{Path("in.png"), out, "--palette", "FFFFFF,12345"}, 1, "12345"},
        {{Path("in.png"), out, "--color-mode", "palette"}, 2, "--palette"},
        {{Path("in.png"), out, "--colour"}, 2, "--colour"},
        {{Path("in.png")}, 2, "dither IN OUT"},
    };
    for (const auto& c : cases) {
        const ProgramResult result = Run(c.words);
        EXPECT_EQ(result.status, c.status) << result.errors;
        EXPECT_THAT(result.errors, HasSubstr(c.names));
        EXPECT_EQ(std::count(result.errors.begin(), result.errors.end(), '\n'), 1) << result.errors;
        EXPECT_FALSE(std::filesystem::exists(out));
    }
    for (const auto& entry : std::filesystem::directory_iterator(Path("")))
        EXPECT_NE(entry.path().extension(), ".part");
}

} // namespace

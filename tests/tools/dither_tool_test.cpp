// labelhost dither on PNG files of every kind. The pictures in `pictures/` were made without the
// codecs that labelhost has; the names of those in one colour end with it.

#include "support/build_folders.h"
#include "support/labelhost_test.h"
#include "tools/png_file.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace {

namespace fs = std::filesystem;
using testing::Each;
using testing::ElementsAre;

const std::string kPictures = Sources("/tests/tools/pictures/");
const std::string kPage = Sources("/docs/pictures/");

class LabelhostDither : public Labelhost {
protected:
    static std::vector<std::string> Command(std::vector<std::string> words) {
        words.insert(words.begin(), "dither");
        words.insert(words.end(), {"--product", Built("/bin")});
        return words;
    }

    // The picture as red, green, blue, after the command with these options.
    Bytes Dither(const std::string& picture, std::vector<std::string> options = {}) const {
        options.insert(options.begin(), {picture, File("out.png")});
        const ProgramResult result = Run(Command(options));
        EXPECT_EQ(result.status, 0) << result.errors;
        EXPECT_EQ(result.output + result.errors, "");
        return PixelsOf(File("out.png"));
    }
};

TEST_F(LabelhostDither, ScreensByTheModule) {
    // A grey of 100 exceeds two of the four thresholds.
    const auto with = [&](std::vector<std::string> more) {
        more.insert(more.end(), {"--algorithm", "dispersed", "--dispersed-matrix", "0"});
        const Bytes pixels = Dither(kPictures + "grey-100.png", more);
        return Bytes{pixels[0], pixels[3], pixels[6], pixels[9]};
    };
    // Depth and colour type in the header of the last result.
    const auto kind = [&] { return BytesOf(File("out.png")).substr(24, 2); };
    EXPECT_THAT(with({}), ElementsAre(255, 0, 0, 255));
    EXPECT_EQ(kind(), (std::string{1, kGrey}));
    EXPECT_THAT(with({"--origin-x", "1"}), ElementsAre(0, 255, 255, 0));
    EXPECT_THAT(with({"--brightness", "100"}), Each(255));
    EXPECT_THAT(with({"--invert"}), ElementsAre(255, 255, 0, 255));
    EXPECT_THAT(with({"--preview"}), Each(127));
    EXPECT_EQ(kind(), (std::string{1, kPalette}));
}

TEST_F(LabelhostDither, MirrorsBothWays) {
    const auto white = [&](const std::vector<std::string>& options) {
        const Bytes pixels = Dither(kPictures + "corner.png", options);
        return (std::find(pixels.begin(), pixels.end(), 255) - pixels.begin()) / 3;
    };
    EXPECT_EQ(white({"--algorithm", "0"}), 0);
    EXPECT_EQ(white({"--algorithm", "0", "--mirror"}), 1);
    EXPECT_EQ(white({"--algorithm", "0", "--flip"}), 2);
}

TEST_F(LabelhostDither, ReadsEveryKindOfPng) {
    // Every colour must be found again among all of them.
    const std::string colors = "787878,333333,808080,414141,FFFFFF,0A141E,28323C,CCD6FF,7F7F7F";
    int pictures = 0;
    for (const auto& entry : fs::directory_iterator(kPictures)) {
        const std::string name = entry.path().stem().string();
        const std::string color = name.substr(name.rfind('-') + 1);
        if (color.size() != 6 || colors.find(color) == std::string::npos) continue;
        ++pictures;
        const Bytes pixels =
            Dither(kPictures + name + ".png", {"--algorithm", "none", "--palette", colors});
        ASSERT_FALSE(pixels.empty()) << name;
        for (size_t i = 0; i < pixels.size(); ++i)
            EXPECT_EQ(pixels[i], std::stoi(color.substr(i % 3 * 2, 2), nullptr, 16)) << name;
    }
    EXPECT_EQ(pictures, 13);
    EXPECT_EQ(Dither(kPictures + "pattern-interlaced.png"), Dither(kPictures + "pattern.png"));
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
    for (const auto& c : cases)
        EXPECT_TRUE(Dither(kPage + "before.png", c.options) == PixelsOf(kPage + c.name + ".png"))
            << c.name;
    // It can be written and read even with an unusual name.
    const std::string odd = File("Größe 漢字.png");
    EXPECT_EQ(Run(Command({kPage + "before.png", odd})).errors, "");
    EXPECT_EQ(Run(Command({odd, odd})).errors, "");
}

TEST_F(LabelhostDither, SaysInOneLineWhatWasWrong) {
    const std::string sound = BytesOf(kPage + "before.png");
    std::string flipped = sound;
    flipped[sound.size() / 2] ^= 0x10;
    Write("empty.png", "");
    Write("text.png", "not a picture, and longer than a signature");
    Write("short.png", sound.substr(0, sound.size() / 2));
    Write("header.png", sound.substr(0, 20));
    Write("flipped.png", flipped);

    const std::string in = kPictures + "grey-100.png", out = File("out.png");
    std::vector<BadCommand> commands = {
        {{File("none.png"), out}, 1, "none.png': no such file"},
        {{root(), out}, 1, "cannot read"},
        {{File("empty.png"), out}, 1, "empty.png': not a PNG file"},
        {{File("text.png"), out}, 1, "text.png': not a PNG file"},
        {{File("short.png"), out}, 1, "short.png"},
        {{File("header.png"), out}, 1, "header.png"},
        {{File("flipped.png"), out}, 1, "flipped.png"},
        {{kPictures + "wide.png", out}, 1, "wide.png': 32768 x 1 pixels, more than 32767"},
        {{kPictures + "vast.png", out}, 1, "vast.png': the file ends early"},
        {{in, File("no folder/out.png")}, 1, "no folder"},
        {{in, File("")}, 1, "not a plain file"},
        {{in, out, "--algorithm", "magic"}, 1, "not 'magic'"},
        {{in, out, "--algorithm", "6"}, 1, "not '6'"},
        {{in, out, "--contrast", "101"}, 1, "not '101'"},
        {{in, out, "--palette", "FFFFFF,12345"}, 1, "12345"},
        {{in, out, "--color-mode", "palette"}, 2, "--palette"},
        {{in, out, "--colour"}, 2, "--colour"},
        {{in}, 2, "dither IN OUT"},
    };
    for (BadCommand& command : commands) command.words = Command(command.words);
    ExpectRefused(commands);
    EXPECT_FALSE(fs::exists(out));
    for (const auto& entry : fs::directory_iterator(File("")))
        EXPECT_NE(entry.path().extension(), ".part");
}

} // namespace

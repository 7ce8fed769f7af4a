#include "model/options_block.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

#include "core/text.h"

namespace {

constexpr char kPath[] = "HKEY_LOCAL_MACHINE\\Printers\\Dock 3\\Data";

class TextStream : public OCore::OStream {
public:
    TextStream() { SetCodePage(1208); }
    std::string text;

private:
    uint32_t _StreamWrite(const void* data, uint32_t size) override {
        text.append(static_cast<const char*>(data), size);
        return size;
    }
};

std::string Written(std::initializer_list<const char*> lines, const char* path = kPath) {
    OStringArray array;
    for (const char* line : lines) array.Add(InCodePage(1208, line));
    TextStream stream;
    WriteOptionsBlock(stream, "M 1", array, InCodePage(1208, path));
    stream.Flush();
    return stream.text;
}

// The lines of every block for the model "M 1", each followed by "|", each block by "#".
std::string Read(const std::string& text) {
    OptionsBlockReader reader("M 1", kPath);
    std::string blocks;
    for (size_t start = 0; start < text.size();) {
        const size_t end = std::min(text.find('\n', start), text.size());
        if (reader.Read(InCodePage(1208, text.substr(start, end - start).c_str()))) {
            for (int i = 0; i < reader.GetLines().GetSize(); ++i) {
                OString line = reader.GetLines()[i];
                line.SetCodePage(1208);
                blocks.append(line.nstring()) += '|';
            }
            blocks += '#';
        }
        start = end + 1;
    }
    return blocks;
}

} // namespace

TEST(OptionsBlock, IsWrittenWithKeysRelativeToThePrintersData) {
    EXPECT_EQ(
        Written({"[HKEY_LOCAL_MACHINE\\Printers\\Dock 3\\Data\\Settings]", "\"a\"=\"\xC3\xA4\"", "",
                 "[HKEY_LOCAL_MACHINE\\PRINTERS\\dock 3\\Data\\Settings\\Status]",
                 "[HKEY_LOCAL_MACHINE\\Other]",
                 "\"path\"=\"HKEY_LOCAL_MACHINE\\\\Printers\\\\Dock 3\\\\Data\""}),
        "<options model='M 1'>\r\n"
        "[DATA:\\Settings]\r\n"
        "\"a\"=\"\xC3\xA4\"\r\n"
        "[DATA:\\Settings\\Status]\r\n"
        "[HKEY_LOCAL_MACHINE\\Other]\r\n"
        "\"path\"=\"HKEY_LOCAL_MACHINE\\\\Printers\\\\Dock 3\\\\Data\"\r\n"
        "</options>\r\n\r\n");
    // Beyond ASCII the path has more bytes than characters.
    EXPECT_EQ(Written({"[HKEY\\P\xC3\xA4\xC3\xA4\\Settings]"}, "HKEY\\P\xC3\xA4\xC3\xA4"),
              "<options model='M 1'>\r\n[DATA:\\Settings]\r\n</options>\r\n\r\n");
    EXPECT_EQ(Written({"[HKEY\\Settings]"}, ""),
              "<options model='M 1'>\r\n[HKEY\\Settings]\r\n</options>\r\n\r\n");
}

TEST(OptionsBlock, IsReadWithTheKeysOfTheOtherPrinter) {
    const std::string key = std::string("[") + kPath;
    const std::tuple<const char*, std::string, std::string> cases[] = {
        {"one block", "<options model='M 1'>\r\n[DATA:\\S]\r\n\"a\"=\"b\"\r\n</options>\r\n",
         "|" + key + "\\S]|\"a\"=\"b\"||#"},
        {"the root in another case", "<options model='M 1'>\n[data:\\S]\n</options>\n",
         "|" + key + "\\S]||#"},
        {"a deleted key", "<options model='M 1'>\n[-DATA:\\S]\n</options>\n",
         "|[-" + key.substr(1) + "\\S]||#"},
        {"keys that are not the printer's",
         "<options model='M 1'>\n[HKEY\\DATA:]\n\"a\"=\"b\"\n[-HKEY\\S]\n[DATA:]\n[-DATA:\\]\n"
         "[DATA:Other\\S]\n\"c\"=\"d\"\n[DATA:\\S]\n\"e\"=\"f\"\n</options>\n",
         "|" + key + "\\S]|\"e\"=\"f\"||#"},
        {"a bracket alone", "<options model='M 1'>\n[\n[-\n</options>\n", "|#"},
        {"values keep the text", "<options model='M 1'>\n\"DATA:\"=\"DATA:\"\n</options>\n",
         "\"DATA:\"=\"DATA:\"||#"},
        {"blanks and empty lines", " \n\t<options model='M 1'> \n\n  x \n\n </options>\t\n",
         "x||#"},
        {"beyond ASCII", "<options model='M 1'>\n[DATA:\\\xC3\xA4]\n</options>\n",
         "|" + key + "\\\xC3\xA4]||#"},
        {"several blocks",
         "<options model='M 1'>\na\n</options>\n\n<options model='M 1'>\nb\n</options>\n",
         "a||#b||#"},
        {"another model", "<options model='M 2'>\na\n</options>\n", ""},
        {"the model in another case", "<options model='m 1'>\na\n</options>\n", ""},
        {"lines outside", "a\n<options model='M 1'>\nb\n</options>\nc\n</options>\n", "b||#"},
        {"no end", "<options model='M 1'>\na\n", ""},
        {"cut off by another model",
         "<options model='M 1'>\na\n<options model='M 2'>\nb\n</options>\n", ""},
        {"cut off by the same model",
         "<options model='M 1'>\na\n<options model='M 1'>\nb\n</options>\n", "b||#"}};
    for (const auto& [what, text, blocks] : cases) EXPECT_EQ(Read(text), blocks) << what;
}

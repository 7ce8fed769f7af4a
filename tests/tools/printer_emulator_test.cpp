// The emulated printer: its reading of bytes, its answers, and spoilt answers.

#include "emulator/answer_rules.h"
#include "emulator/emulated_printer.h"

#include "support/host_test.h"

#include <filesystem>
#include <fstream>

namespace {

using namespace std::string_literals;

// Everything that happened, in one line.
std::string NotesOn(const std::string& bytes) {
    EmulatedPrinter printer;
    printer.Receive(bytes.data(), bytes.size());
    printer.Disconnect();
    std::string all;
    for (const std::string& note : printer.TakeNotes()) all += note + ";";
    return all;
}

std::string AnswerTo(const std::string& query, const std::string& before = {}) {
    EmulatedPrinter printer;
    printer.Receive(before.data(), before.size());
    const auto answers = printer.Receive(query.data(), query.size());
    return answers.size() == 1 ? answers[0].bytes : "no single answer";
}

TEST(EmulatedPrinterTakes, LabelsObjectsAndSettingsInAnyPieces) {
    const struct {
        std::string bytes, notes;
    } cases[] = {
        {"^XA^FO1,1^FDx^FS^PQ3^XZ", "printed 3 labels;"},
        {"\x02^FDx^FS\x03", "printed 1 label;"},
        {"^XA^PW400^XZ^XA^FDbroken off", ""},
        {"^xa^fdlower case^fs^xz", "printed 1 label;"},
        {"^XA^DFE:F^FN1^FS^XZ", "stored E:F.ZPL, 16 bytes;"},
        {"~DGr:logo.grf,512,8,FF,::,\r\nAA^XA^XGR:LOGO.GRF^FS^XZ",
         "stored R:LOGO.GRF, 512 bytes;printed 1 label;"},
        {"~DUE:LONGERTHAN8.FNT,40000,0001", "stored E:LONGERTH.FNT, 40000 bytes;"},
        {"~DBR:B.FNT,N,5,24,3,10,2,C,#0025.5.16.2.5.18.\r\nOO0FF0^XA^XZ",
         "stored R:B.FNT, 7 bytes;"},
        {"~DYE:PIC,B,P,6,0,^XA~HI~HS", "stored E:PIC.PNG, 6 bytes;answered HS;"},
        {"~DYE:PIC,B,P,600,0,^XA~HI", "dropped E:PIC, which broke off;"},
        {"~DGZ:LOGO.GRF,1,1,FF~DGR:,1,1,FF", "refused Z:LOGO.GRF;refused R:.GRF;"},
        {"^XA^GFB,4,4,1,^XZ~^FS^XZ", "printed 1 label;"},
        {"~DGR:A,1,1,F~DGR:B,1,1,F~DGE:A,1,1,F^XA^IDR:*.GRF^FS^XZ",
         "stored R:A.GRF, 1 bytes;stored R:B.GRF, 1 bytes;stored E:A.GRF, 1 bytes;deleted 2 "
         "objects;"},
        {"~JD^XA^FDx^XZ~HI~JE~HI", "answered HI;"},
        {"^CC+~CD;~CT!!HI+XA+FO1;1+FDx+PQ2;0+FS+XZ^XA^FDx^XZ", "answered HI;printed 2 labels;"},
        {"plain text, HI and \r\n\x1b", ""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(NotesOn(c.bytes), c.notes) << c.bytes;
        EmulatedPrinter printer;
        for (const char byte : c.bytes) printer.Receive(&byte, 1);
        printer.Disconnect();
        std::string notes;
        for (const std::string& note : printer.TakeNotes()) notes += note + ";";
        EXPECT_EQ(notes, c.notes) << "byte by byte: " << c.bytes;
    }
}

TEST(EmulatedPrinterAnswers, FromWhatItWasTold) {
    const struct {
        std::string query, before, answer;
    } cases[] = {
        {"~HI", "",
         "\x02"
         "EMULATED-203,V1.0.0,8,8192KB,2\x03\r\n"},
        {"~HS", "~PP^XA^LL600^MNN^MTT^MMC^KP42^XZ~DGR:A,1,1,F",
         "\x02"
         "030,0,1,0600,000,0,0,0,000,0,0,0\x03\r\n\x02"
         "193,0,0,0,1,3,6,0,00000000,1,001\x03\r\n\x02"
         "0042,0\x03\r\n"},
        {"~HM", "~DGR:A,1048576,1,F",
         "\x02"
         "8192,8192,7168\x03\r\n"},
        {"~HB", "",
         "\x02"
         "15.60,15.38,27\x03\r\n"},
        {"\x02^HWE:*.*\x03", "~DUE:ARIAL.FNT,40000,00^XA^CWQ,E:ARIAL.FNT^XZ",
         "\x02\r\n- DIR E:\r\n* E:ARIAL   .FNT  40000   Q  \r\n-  8348608 bytes free "
         "E:\r\n\x03\r\n"},
        {"^XA^HWA:X?.GRF^XZ", "~DGA:X1,1,1,F~DGA:X22,1,1,F~DGA:Y1,1,1,F",
         "\x02\r\n- DIR A:\r\n* A:X1      .GRF      1      \r\n-  8388605 bytes free "
         "A:\r\n\x03\r\n"},
    };
    for (const auto& c : cases) EXPECT_EQ(AnswerTo(c.query, c.before), c.answer) << c.query;
    EXPECT_NE(AnswerTo("^XA^HH^XZ", "~SD07").find("\r\n  7                   DARKNESS\r\n"),
              std::string::npos);
    for (const char part : "FLRA"s)
        EXPECT_EQ(AnswerTo("^XA^HZ"s + part + "^XZ").substr(0, 5), "<?xml") << part;
    EXPECT_EQ(AnswerTo("^XA^HZQ^XZ"), "no single answer");
}

TEST(EmulatedPrinterFaults, SpoilTheAnswersTheyName) {
    const struct {
        const char* line;
        SpoiltAnswer answer;
    } cases[] = {
        {"HS late 500", {"0123456789", 500, 0}}, {"HS short 4", {"0123", 0, 0}},
        {"HS split 3", {"0123456789", 0, 3}},    {"* silent", {"", 0, 0}},
        {"HS short 40", {"0123456789", 0, 0}},   {"HI silent", {"0123456789", 0, 0}},
        {"HS short", {"0123456789", 0, 0}},      {"", {"0123456789", 0, 0}},
    };
    for (const auto& c : cases) {
        SpoiltAnswer answer{"0123456789", 0, 0};
        ApplyFault(c.line, "HS", answer);
        EXPECT_EQ(answer.bytes, c.answer.bytes) << c.line;
        EXPECT_EQ(answer.delay, c.answer.delay) << c.line;
        EXPECT_EQ(answer.packet, c.answer.packet) << c.line;
    }
    SpoiltAnswer garbled{"0123456789", 0, 0};
    ApplyFault("HS garbled", "HS", garbled);
    EXPECT_EQ(garbled.bytes.size(), 10u);
    EXPECT_NE(garbled.bytes, "0123456789");
}

using EmulatedPrinterAnswerFolder = HostTest;

TEST_F(EmulatedPrinterAnswerFolder, ReplacesAnswersAndSpoilsThem) {
    std::ofstream(root() + "/HI") << "another";
    std::ofstream(root() + "/faults") << "HI short 3\nHM silent\n";
    const AnswerRules rules(root());
    EXPECT_EQ(rules.Apply({"HI", "own"}).bytes, "ano");
    EXPECT_EQ(rules.Apply({"HM", "own"}).bytes, "");
    EXPECT_EQ(rules.Apply({"HS", "own"}).bytes, "own");
}

} // namespace

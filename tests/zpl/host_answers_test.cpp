// The answers of printers as they come over the wire, and what becomes of them.

#include "zpl/host_lists.h"
#include "zpl/host_status.h"

#include "core/ostring_array.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using Reader = void (*)(const char*, uint32_t, OPropertySet&);

// What `read` makes of an answer: "value;" for each of the names, which commas part.
std::string Read(Reader read, const std::string& answer, const char* names) {
    OPropertySet properties;
    read(answer.data(), static_cast<uint32_t>(answer.size()), properties);
    OStringArray list;
    list.Split(names, ",");
    std::string all;
    for (int i = 0; i < list.GetSize(); ++i)
        all += std::string(properties.GetString(list[i], "-").nstring()) + ";";
    return all;
}

std::string Joined(const OStringArray& list) {
    std::string all;
    for (int i = 0; i < list.GetSize(); ++i) all += std::string(list[i].nstring()) + "|";
    return all;
}

const std::string kStart = "\x02", kEnd = "\x03\r\n";

// A host status whose three texts have these fields.
std::string Status(const std::string& first, const std::string& second, const std::string& third) {
    return "\x02" + first + kEnd + "\x02" + second + kEnd + "\x02" + third + kEnd;
}

const std::string kFirst = "030,0,0,1225,000,0,0,0,000,0,0,0";
const std::string kSecond = "064,0,0,0,0,2,6,0,00000000,1,000";
const std::string kThird = "0000,0";

TEST(HostIdentification, NeedsFourFieldsAndCutsTheEndMarkOfTheFifth) {
    const char* const names = "Model,Firmware-Version,Dots-Per-Millimeter,Host-Memory,Options";
    const struct {
        std::string answer, properties;
    } cases[] = {
        {"\x02X4,V1,8,8192KB,2" + kEnd, "X4;V1;8;8192KB;2;"},
        {"\x02X4,V1,8,8192KB,", "X4;V1;8;8192KB;-;"},
        {"\x02X4,V1,8,8192KB," + kEnd, "X4;V1;8;8192KB;-;"},
        {"\x02X4,V1,8,8192KB", "X4;V1;8;8192KB;-;"},
        {"\x02,,,", ";;;;-;"},
        {"\x02X4,V1,8" + kEnd, "-;-;-;-;-;"},
        {std::string("\x02X4,V1\0,8,8192KB,2", 19), "-;-;-;-;-;"},
        {"\x02", "-;-;-;-;-;"},
        {"", "-;-;-;-;-;"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Read(ReadHostIdentification, c.answer, names), c.properties) << c.answer;
}

TEST(HostMemory, TellsWhatIsInUse) {
    const char* const names =
        "PhysicalMemory-Size,PhysicalMemory-MaxAvaliable,PhysicalMemory-Avaliable";
    const struct {
        std::string answer, properties;
    } cases[] = {
        {kStart + "1024,780,700" + kEnd, "1024;780;80;"},
        {kStart + "1024,0780,0700" + kEnd, "1024;0780;80;"},
        {kStart + "1,9999999999,-9999999999" + kEnd, "1;9999999999;4000000000;"},
        {kStart + "1024,780,7", "1024;780;780;"},
        {kStart + "1024,780", "-;-;-;"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Read(ReadHostMemory, c.answer, names), c.properties) << c.answer;
}

TEST(HostStatus, TakesTheCommunicationSettingsApart) {
    const char* const names = "Baud,HandShake,StopBits,DataBits,Parity";
    const struct {
        const char* settings;
        const char* properties;
    } cases[] = {
        {"482", "57600;DTR;2;7;EVEN;"},       {"30", "9600;Xon/Xoff;1;8;None;"},
        {"030", "9600;Xon/Xoff;1;8;None;"},   {"32", "110;Xon/Xoff;2;7;ODD;"},
        {"64", "110;Xon/Xoff;2;7;None;"},     {"256", "28800;Xon/Xoff;2;7;None;"},
        {"260", "115200;Xon/Xoff;2;7;None;"}, {"263", "19200;Xon/Xoff;2;7;None;"},
        {"", "110;Xon/Xoff;2;7;None;"},       {" +7x", "19200;Xon/Xoff;2;7;None;"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(
            Read(ReadHostStatus, Status(c.settings + kFirst.substr(3), kSecond, kThird), names),
            c.properties)
            << c.settings;
}

TEST(HostStatus, NamesEveryFieldAndSetsSomeOnlyInOneState) {
    const char* const first = "Paper-Out,Pause,Label-Length,Number-Of-Formats,Receive-Buffer-Full,"
                              "Communication-Mode,Partial-Format,Corrupt-RAM,PrintHead-Temperature";
    const char* const second =
        "Media-Type,Sensor-Profile,Communication-Diagnostics,Transfer-Mode,Head-Up,Ribbon-Out,"
        "Thermal-Mode,Print-Mode,Width-Mode,Label-Waiting,Labels-Remaining,Images";
    const char* const third = "Password,Static-Ram-Installed";
    const struct {
        const char* names;
        std::string answer, properties;
    } cases[] = {
        {first, Status(kFirst, kSecond, kThird),
         "No;Inactive;1225;0;-;Diagnostic Mode Inactive;-;-;Normal;"},
        {first, Status("0,1,1,0042,007,1,1,1,000,1,1,0", kSecond, kThird),
         "Yes;Active;42;7;Full;Diagnostic Mode Active;Partial Format in Progress;Configuration "
         "Data Lost;Under Temperature;"},
        {first, Status("0,01,,x,,2,0,0,1,0,1,1,more", kSecond, kThird),
         "No;Inactive;0;0;-;Diagnostic Mode Inactive;-;-;Over Temperature;"},
        {second, Status(kFirst, kSecond, kThird),
         "Die Cut;On;Off;Direct Thermal;Closed;No;-;Tear Off;6;-;00000000;0;"},
        {second, Status(kFirst, "161,0,1,1,1,4,6,1,00000012,1,034", kThird),
         "Continuous;Off;On;Thermal Transfer;Open;Yes;Thermal Transfer Mode Selected;Applicator;6;"
         "Label Waiting in Peel Off Mode;00000012;34;"},
        {second, Status(kFirst, "0,0,0,0,0,5,,0,,1,0", kThird),
         "Die Cut;Off;Off;Direct Thermal;Closed;No;-;-;;-;;0;"},
        {third, Status(kFirst, kSecond, "1234,1"), "1234;Installed;"},
        {third, Status(kFirst, kSecond, "1234,0,x"), "1234;Not Installed;"},
        // Each text counts for itself, but all three must be there.
        {third, Status("0,0", "0,0", kThird), "0000;Not Installed;"},
        {third, Status(kFirst, kSecond, "1234"), "-;-;"},
        {first, Status("0,0,0,0,0,0,0,0,0,0,0", kSecond, kThird), "-;-;-;-;-;-;-;-;-;"},
        {second, Status(kFirst, "0,0,0,0,0,0,0,0,0,0", kThird), "-;-;-;-;-;-;-;-;-;-;-;-;"},
        {second, "\x02" + kFirst + kEnd + "\x02" + kSecond, "-;-;-;-;-;-;-;-;-;-;-;-;"},
        {third, "\r\n\x02" + kFirst + "\n" + kSecond + std::string(3, '\0') + kThird,
         "0000;Not Installed;"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Read(ReadHostStatus, c.answer, c.names), c.properties) << c.answer;
}

TEST(PowerStatus, IsReadFromFixedColumns) {
    const struct {
        std::string answer, battery, head, temperature;
    } cases[] = {
        {kStart + "15.60,15.38,27" + kEnd, "15.60", "15.38", "27"},
        {kStart + "15.60,15.3", "15.60", "15.3", ""},
        {"\x02", "", "", ""},
        {"", "", "", ""},
    };
    for (const auto& c : cases) {
        const PowerReadings readings =
            ReadPowerStatus(c.answer.data(), static_cast<uint32_t>(c.answer.size()));
        EXPECT_TRUE(readings.battery_voltage == c.battery.c_str()) << c.answer;
        EXPECT_TRUE(readings.head_voltage == c.head.c_str()) << c.answer;
        EXPECT_TRUE(readings.battery_temperature == c.temperature.c_str()) << c.answer;
    }
}

TEST(FileList, ReadsFixedColumnsOfTheLinesThatNameFiles) {
    const std::string head = "\x02\r\n- DIR R:\r\n";
    const std::string tail = "-  794292 bytes free R:\r\n\x03\r\n";
    const std::string arial_r = "* R:ARIAL   .FNT  40000   Q  \r\n";
    const std::string arial_e = "* E:ARIAL   .FNT  40001   I  \r\n";
    const std::string arial_z = "* Z:ARIAL   .FNT   9810   P  \r\n";
    const struct {
        std::string answer, files;
    } cases[] = {
        {head + arial_r + tail, "R:ARIAL.FNT;40000;Q|"},
        {head + tail, ""},
        {"- DIR\r\n" + arial_r, ""}, // three lines with the empty one at the end
        {"- DIR\r\n" + arial_r + "more\r\n", "R:ARIAL.FNT;40000;Q|"},
        {head + arial_r + arial_e + tail, "R:ARIAL.FNT;40000;Q|E:ARIAL.FNT;40001;I|"},
        {head + arial_r + arial_z + tail, "Z:ARIAL.FNT;9810;P|"},
        {head + arial_z + arial_r + tail, "Z:ARIAL.FNT;9810;P|"},
        {head + arial_r + arial_e + arial_z + tail, "Z:ARIAL.FNT;9810;P|Z:ARIAL.FNT;9810;P|"},
        {head + "* R:X.Y\r\n*R:A B C   .GRF 0012x4    a c\r\n:.\r\nx.y no colon\r\n" + tail,
         "R:X.Y;0;|:ABC.GRF;12;a c|"},
    };
    for (const auto& c : cases) {
        OStringArray files;
        ReadFileList(c.answer.data(), static_cast<uint32_t>(c.answer.size()), files);
        EXPECT_EQ(Joined(files), c.files) << c.answer;
    }
}

TEST(ConfigurationList, TakesTheValueFromTheFirst22Columns) {
    const struct {
        std::string answer, lines;
    } cases[] = {
        {"head\r\n  10                  DARKNESS\r\n", "DARKNESS@10|"},
        {"head\r\n  +10.0...            . PRINT SPEED ..\r\n", "PRINT SPEED@+10.0|"},
        {"head\r\n ..................   NOTHING\r\n", ""},
        {"head\r\nshort\r\n\x03\r\n", "@short|"},
        {"head\r\nfour\r\n", ""},
        {"  10                  DARKNESS", ""},
        {"head\r\n  10                  A\nB\r\n", "A\nB@10|"},
    };
    for (const auto& c : cases) {
        OStringArray lines;
        ReadConfigurationList(c.answer.data(), static_cast<uint32_t>(c.answer.size()), lines);
        EXPECT_EQ(Joined(lines), c.lines) << c.answer;
    }
}

} // namespace

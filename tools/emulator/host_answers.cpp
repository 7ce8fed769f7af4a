// The answers of an emulated printer to the host's queries.
#include "emulator/emulated_printer.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>

namespace {

const std::string kStart = "\x02";
const std::string kEnd = "\x03\r\n";

// At most a line of text.
std::string Format(const char* format, ...) {
    char text[160];
    va_list arguments;
    va_start(arguments, format);
    const int length = std::vsnprintf(text, sizeof text, format, arguments);
    va_end(arguments);
    return std::string(text, static_cast<size_t>(std::clamp(length, 0, int(sizeof text) - 1)));
}

unsigned DigitOf(char print_mode) {
    const size_t at = std::string("RPTCA").find(print_mode);
    return at == std::string::npos ? 2 : static_cast<unsigned>(at);
}

const char* NameOf(char print_mode) {
    constexpr const char* kNames[] = {"REWIND", "PEEL OFF", "TEAR OFF", "CUTTER", "APPLICATOR"};
    return kNames[DigitOf(print_mode)];
}

// A line of the configuration: the value in the first 22 columns, then its label.
std::string Line(const std::string& value, const char* label) {
    return Format("  %-20.20s%s\r\n", value.c_str(), label);
}

// A line of a directory; sizes have six columns. The flag is a font's letter, or P for an object
// that is part of the printer.
std::string Line(const StoredObject& object) {
    const char flag = object.letter == ' ' && object.resident ? 'P' : object.letter;
    return Format("* %c:%-8.8s.%-3.3s %6u   %c  \r\n", object.where.device,
                  object.where.name.c_str(), object.where.extension.c_str(),
                  static_cast<unsigned>(std::min(object.size, 999999u)), flag);
}

std::string Escaped(const std::string& text) {
    std::string escaped;
    for (const char c : text) {
        if (c == '&')
            escaped += "&amp;";
        else if (c == '<')
            escaped += "&lt;";
        else
            escaped += c;
    }
    return escaped;
}

std::string Element(const char* name, const std::string& value) {
    return std::string("<") + name + ">" + Escaped(value) + "</" + name + ">\r\n";
}

} // namespace

bool EmulatedPrinter::Ask(const ZplCommand& command, std::vector<EmulatedAnswer>& answers) {
    EmulatedAnswer answer{command.name, {}};
    if (command.control) {
        if (command.name == "HI")
            answer.bytes = Identification();
        else if (command.name == "HS")
            answer.bytes = Status();
        else if (command.name == "HM")
            answer.bytes = Memory();
        else if (command.name == "HB")
            answer.bytes = Battery();
        else
            return false;
    } else if (command.name == "HH") {
        answer.bytes = Configuration();
    } else if (command.name == "HW") {
        answer.bytes = Directory(command.parameters);
    } else if (command.name == "HZ") {
        const char part = command.parameters.empty() ? 'A' : command.parameters[0];
        if (std::string("AFLR").find(part) == std::string::npos) return false;
        answer.query += part;
        answer.bytes = Xml(part);
    } else {
        return false;
    }
    Note("answered " + answer.query);
    answers.push_back(answer);
    return true;
}

// Model, firmware, dots per millimetre, memory, options.
std::string EmulatedPrinter::Identification() const {
    return kStart + "EMULATED-203,V1.0.0,8,8192KB,2" + kEnd;
}

// 9600 baud, 8 bits, no parity, one stop bit, Xon/Xoff; then flags in three texts.
std::string EmulatedPrinter::Status() const {
    const unsigned functions =
        (settings_.continuous ? 128u : 0u) | 64u | (settings_.thermal_transfer ? 1u : 0u);
    return kStart +
           Format("030,0,%d,%04u,000,0,0,0,000,0,0,0", settings_.paused ? 1 : 0,
                  static_cast<unsigned>(settings_.label_length)) +
           kEnd + kStart +
           Format("%03u,0,0,0,%d,%u,6,0,00000000,1,%03d", functions,
                  settings_.thermal_transfer ? 1 : 0, DigitOf(settings_.print_mode),
                  objects_.Count("GRF")) +
           kEnd + kStart + settings_.password + ",0" + kEnd;
}

// Kilobytes: installed, available at most, available now.
std::string EmulatedPrinter::Memory() const {
    const unsigned most = 8192;
    const unsigned now = static_cast<unsigned>(objects_.Free('R') / 1024);
    return kStart + Format("%u,%u,%u", most, most, std::min(most, now)) + kEnd;
}

// Battery voltage, head voltage, temperature.
std::string EmulatedPrinter::Battery() const {
    return kStart + "15.60,15.38,27" + kEnd;
}

std::string EmulatedPrinter::Configuration() const {
    return kStart + "  PRINTER CONFIGURATION\r\n" +
           Line(std::to_string(settings_.darkness), "DARKNESS") +
           Line(settings_.speed + " IPS", "PRINT SPEED") +
           Line(Format("%+04d", static_cast<int>(settings_.tear_off)), "TEAR OFF") +
           Line(NameOf(settings_.print_mode), "PRINT MODE") +
           Line(settings_.continuous ? "CONTINUOUS" : "NON-CONTINUOUS", "MEDIA TYPE") +
           Line(settings_.thermal_transfer ? "THERMAL-TRANS." : "DIRECT-THERMAL", "PRINT METHOD") +
           Line(std::to_string(settings_.print_width), "PRINT WIDTH") +
           Line(std::to_string(settings_.label_length), "LABEL LENGTH") + Line("9600", "BAUD") +
           Line("8 BITS", "DATA BITS") + Line("NONE", "PARITY") +
           Line("XON/XOFF", "HOST HANDSHAKE") + Line("V1.0.0 <-", "FIRMWARE") + kEnd;
}

// One block for each device that matches; "*" asks for all devices.
std::string EmulatedPrinter::Directory(const std::string& pattern) const {
    ObjectName wanted(pattern);
    if (wanted.name.empty()) wanted.name = "*";
    if (wanted.extension.empty()) wanted.extension = "*";
    std::string text = kStart + "\r\n";
    for (const char device : ObjectStore::Devices()) {
        if (wanted.device != device && wanted.device != '*' && wanted.device != '?') continue;
        ObjectName here = wanted;
        here.device = device;
        text += Format("- DIR %c:\r\n", device);
        for (const StoredObject& object : objects_.Find(here)) text += Line(object);
        text += Format("- %8u bytes free %c:\r\n", static_cast<unsigned>(objects_.Free(device)),
                       device);
    }
    return text + kEnd;
}

// A: everything, F: format parameters, L: list of objects, R: status.
std::string EmulatedPrinter::Xml(char part) const {
    std::string text = "<?xml version='1.0'?>\r\n<LABEL-PRINTER>\r\n";
    if (part == 'A' || part == 'F') {
        text += "<FORMAT-SETTINGS>\r\n" +
                Element("PRINT-WIDTH", std::to_string(settings_.print_width)) +
                Element("LABEL-LENGTH", std::to_string(settings_.label_length)) +
                Element("DARKNESS", std::to_string(settings_.darkness)) +
                Element("PRINT-SPEED", settings_.speed) +
                Element("PRINT-MODE", NameOf(settings_.print_mode)) + "</FORMAT-SETTINGS>\r\n";
    }
    if (part == 'A' || part == 'L') {
        text += "<OBJECTS>\r\n";
        for (const StoredObject& object : objects_.Find(ObjectName("*:*.*")))
            text += Format("<OBJECT location='%c' size='%u'>", object.where.device,
                           static_cast<unsigned>(object.size)) +
                    Escaped(object.where.name + "." + object.where.extension) + "</OBJECT>\r\n";
        text += "</OBJECTS>\r\n";
    }
    if (part == 'A' || part == 'R') {
        text += "<STATUS>\r\n" + Element("PAUSED", settings_.paused ? "Y" : "N") +
                Element("LABELS-PRINTED", std::to_string(labels_)) + "</STATUS>\r\n";
    }
    return text + "</LABEL-PRINTER>\r\n";
}

// Any bytes as a printer's configuration, brought into the model's limits and written as commands,
// which contain nothing but text.
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>

#include "core/base64.h"
#include "fuzz_host.h"
#include "input.h"
#include "printer/ui_printer.h"
#include "target.h"
#include "zpl/extconfig.h"
#include "zpl/extstream.h"

namespace {

// A model with everything that a configuration can contain.
std::string FullModelData() {
    CustomData data = {};
    data.flags = 0xFFFFFFFF & ~(CustomData::TRANSFER_ONLY | CustomData::DIRECT_ONLY);
    data.label_top_min = data.tear_off_min = -120;
    data.label_top_max = data.tear_off_max = 120;
    data.speeds[0] = {2, "A", 0};
    data.speeds[1] = {6, "E", 1};
    OBuffer<char> bytes, text;
    bytes.Assign(reinterpret_cast<const char*>(&data), sizeof data);
    Base64::Encode(bytes, text);
    return UsualModelData("~CustomData=~CustomData:A\n") +
           Record("~CustomData.d", "[A]\nData.Length=196\nData=" +
                                       std::string(text.GetData(), text.GetSize()) + "\n");
}

class Printer : public UIPrinter {
public:
    Printer() {
        printer_name = "P";
        model.reset(prtmodel::new_ext(PrinterInfo("P")));
    }
};

class Written : public extstream {
public:
    ~Written() override { clear(); }
    void write_packet(const char* data, int count) override {
        bytes.append(data, static_cast<size_t>(count));
    }
    std::string bytes;
};

} // namespace

FUZZ_TARGET(configuration)(const uint8_t* data, size_t size) {
    static const FuzzHost host(FullModelData());
    static Printer printer;
    extconfig config;
    config.Reset(printer.model.get());
    std::memcpy(&config, data, std::min(size, sizeof config));
    config.Validate(printer.model.get());

    Written stream;
    stream.init(&printer);
    config.output(stream);
    stream.flush();
    for (const char c : stream.bytes) Check((c >= ' ' && c < 127) || c == '\r' || c == '\n');
    Check(stream.bytes.size() < 1000);
    return 0;
}

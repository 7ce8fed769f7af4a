#include "default_settings.h"

#include "core/fixed_text.h"
#include "default_fonts.h"
#include "model/measurement.h"
#include "settings/preset_list.h"
#include "settings/stock_list.h"
#include "text.h"
#include "tool_error.h"
#include "zpl/extconfig.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <sstream>

namespace {

constexpr uint32_t kUtf8 = 1208;
constexpr char kFamily[] = "zpl";
constexpr char kStocks[] = "Stocks";
constexpr char kBarCodeFonts[] = "Bar code fonts";
constexpr char kRFIDFonts[] = "RFID fonts";
constexpr char kUsualLiner[] = "1.27 mm";

OString FromUtf8(const std::string& text) {
    OString string;
    string.SetCodePage(kUtf8);
    string = text.c_str();
    return string;
}

// The document settings of a preset. They set only what the source says: the public part ends
// before the paper unless there is a stock, and colour, resolution and the halftone block are left
// to the printer.
class PresetSettings {
public:
    PresetSettings() {
        mode_.dmSpecVersion = DM_SPECVERSION;
        mode_.dmDriverVersion = 1;
        mode_.dmSize = offsetof(DEVMODEW, dmPaperLength);
        mode_.dmFields = DM_ORIENTATION;
        mode_.dmOrientation = DMORIENT_PORTRAIT;
        config_.Reset(nullptr);
    }

    // Answers the reason if the key or its value is not understood, else null.
    const char* Read(const std::string& key, const std::string& value, const StockList& stocks) {
        static const std::vector<std::string> orientations = {"portrait", "landscape"};
        static const std::vector<std::string> media = {"direct", "transfer"};
        static const std::vector<std::string> dithering = {"none", "dispersed", "clustered",
                                                           "algebraic", "diffusion"};
        int32_t number = 0;
        if (key == "Orientation") {
            if (!IndexOf(orientations, value, number)) return "portrait or landscape";
            mode_.dmOrientation = static_cast<SHORT>(number + 1);
        } else if (key == "Stock") {
            return TakeStock(FromUtf8(value), stocks);
        } else if (key == "Media") {
            if (!IndexOf(media, value, number)) return "direct or transfer";
            config_.media_type = static_cast<int16_t>(number);
        } else if (key == "Speed") {
            if (!ReadNumber(value, number) || number <= 0) return "a speed is a whole number";
            config_.print_speed = config_.slew_speed = config_.backfeed_speed = number;
            Send(extconfig::SETTING_SPEEDS);
        } else if (key == "Darkness") {
            if (!ReadNumber(value, number) || number < -30 || number > 30)
                return "the darkness is from -30 to 30";
            config_.relative_darkness = number;
            Send(extconfig::SETTING_DARKNESS);
        } else if (key == "Dithering") {
            if (!IndexOf(dithering, value, number))
                return "none, dispersed, clustered, algebraic or diffusion";
            config_.dither.algorithm = static_cast<int16_t>(number);
        } else {
            return "no such key";
        }
        return nullptr;
    }

    // The DEVMODE: as much of the public part as is used, the configuration, and the tail.
    std::vector<char> Bytes() const {
        DEVMODEW mode = mode_;
        mode.dmDriverExtra = static_cast<WORD>(prtconfig::GetTotalSize());
        endconfig tail = {};
        std::memcpy(tail.signature, "kvk", sizeof tail.signature);
        std::memcpy(tail.prefix, kFamily, sizeof tail.prefix);
        tail.size = mode.dmDriverExtra;
        std::vector<char> bytes;
        const auto append = [&bytes](const void* data, size_t size) {
            const char* from = static_cast<const char*>(data);
            bytes.insert(bytes.end(), from, from + size);
        };
        append(&mode, mode.dmSize);
        append(&config_, sizeof config_);
        append(&tail, sizeof tail);
        return bytes;
    }

private:
    static bool IndexOf(const std::vector<std::string>& words, const std::string& word,
                        int32_t& index) {
        for (size_t i = 0; i < words.size(); ++i) {
            if (words[i] != word) continue;
            index = static_cast<int32_t>(i);
            return true;
        }
        return false;
    }

    void Send(int flag) {
        config_.setting_flags = static_cast<uint16_t>(config_.setting_flags | flag);
    }

    // Only by its name, as its number differs from printer to printer.
    const char* TakeStock(const OString& name, const StockList& stocks) {
        const auto* stock = static_cast<const Stock*>(stocks.NameList::Find(name));
        if (!stock) return "no stock of that name";
        const SIZE size = stock->GetFormSize();
        mode_.dmSize = sizeof mode_;
        mode_.dmFields |= DM_FORMNAME;
        mode_.dmPaperWidth = static_cast<SHORT>(size.cx);
        mode_.dmPaperLength = static_cast<SHORT>(size.cy);
        PutFixedText(mode_.dmFormName, name, CCHFORMNAME);
        return nullptr;
    }

    DEVMODEW mode_ = {};
    extconfig config_ = {};
};

class Builder {
public:
    void Read(const SettingsSource& source) {
        std::string section;
        size_t number = 0;
        std::istringstream in(source.text);
        for (std::string line; std::getline(in, line);) {
            ++number;
            line = Trim(line);
            const auto fault = [&](const char* what) {
                return ToolError("'" + source.file + "', line " + std::to_string(number) + ": " +
                                 what + ": " + line);
            };
            if (line.empty() || line[0] == '!') continue;
            if (line[0] == '[') {
                if (line.back() != ']') throw fault("a section ends with ]");
                FinishPreset();
                section = line.substr(1, line.size() - 2);
                if (section.rfind("Preset ", 0) == 0)
                    BeginPreset(Trim(section.substr(7)));
                else if (section != kStocks && section != kBarCodeFonts && section != kRFIDFonts)
                    throw fault("a section is [Stocks], [Preset NAME], [Bar code fonts] or "
                                "[RFID fonts]");
                continue;
            }
            const size_t equals = line.find('=');
            if (equals == std::string::npos) throw fault("not a key=value line");
            const std::string key = Trim(line.substr(0, equals));
            const std::string value = Trim(line.substr(equals + 1));
            if (section.empty()) throw fault("a key before the first section");
            const char* what = preset_                    ? ReadPresetKey(key, value)
                               : section == kBarCodeFonts ? ReadBarCodeFont(key, value, fonts_)
                               : section == kRFIDFonts    ? ReadRFIDFont(key, value, fonts_)
                               : key.empty()              ? "a stock has a name"
                                                          : ReadStock(key, value);
            if (what) throw fault(what);
        }
        FinishPreset();
    }

    void Write(const std::string& name) const {
        OFile file(FromUtf8(name), OFILE_WRITE);
        if (!file.is_open()) throw ToolError("cannot write '" + name + "'");
        file.SetCodePage(kUtf8);
        file << "<driver version='6.6'>" << OCore::endl << OCore::endl;
        stocks_.Export(file);
        presets_.Export(file);
        fonts_.ExportBarFont(file, nullptr);
        fonts_.ExportRFID(file, nullptr);
    }

private:
    const char* ReadStock(const std::string& name, const std::string& value) {
        std::vector<int32_t> lengths;
        std::istringstream in(value + (std::count(value.begin(), value.end(), ',') == 2
                                           ? std::string(",") + kUsualLiner
                                           : std::string()));
        for (std::string part; std::getline(in, part, ',');) {
            Measurement length;
            length.SetText(OString(Trim(part).c_str()));
            lengths.push_back(length.Microns());
        }
        if (lengths.size() != 4) return "a stock is NAME=WIDTH,LENGTH,GAP[,LINER]";
        if (lengths[0] <= 0 || lengths[1] <= 0)
            return "a label has a width and a length, with units";
        if (lengths[2] < 0 || lengths[3] < 0) return "gap and liner are not negative";
        if (stocks_.NameList::Find(FromUtf8(name))) return "the stock is there already";
        auto stock = std::make_unique<Stock>();
        stock->SetName(FromUtf8(name));
        stock->width = lengths[0];
        stock->length = lengths[1];
        stock->gap_bottom = lengths[2];
        stock->liner_left = stock->liner_right = lengths[3];
        stock->set_predefined(true);
        stocks_.AddTail(stock.release());
        return nullptr;
    }

    void BeginPreset(const std::string& name) {
        preset_ = std::make_unique<Preset>();
        settings_ = PresetSettings();
        preset_name_ = FromUtf8(name);
    }

    const char* ReadPresetKey(const std::string& key, const std::string& value) {
        if (key != "Description") return settings_.Read(key, value, stocks_);
        preset_->SetDescription(FromUtf8(value));
        return nullptr;
    }

    void FinishPreset() {
        if (!preset_) return;
        std::vector<char> bytes = settings_.Bytes();
        preset_->SetDevMode(reinterpret_cast<const DEVMODEW*>(bytes.data()));
        preset_->SetName(preset_name_);
        presets_.AddTail(preset_.release());
    }

    StockList stocks_;
    PresetList presets_;
    DataFontManager fonts_;
    std::unique_ptr<Preset> preset_; // of the section being read
    OString preset_name_;
    PresetSettings settings_;
};

} // namespace

void WriteDefaultSettings(const std::string& out, const std::vector<SettingsSource>& sources) {
    Builder builder;
    for (const SettingsSource& source : sources) builder.Read(source);
    builder.Write(out);
}

// The configuration as commands to the printer.
#include "core/numbers.h"
#include "zpl/extconfig.h"
#include "zpl/extmodel.h"
#include "zpl/extstream.h"

namespace {

// One configuration being written: its stream, its contents and its printer.
class ConfigurationBlock {
public:
    ConfigurationBlock(const extconfig& config, const extmodel& model, extstream& stream)
        : config_(config)
        , model_(model)
        , stream_(stream)
        , data_(*model.GetCustomData())
        , registry_(model.GetRegistry())
        , pplz_(model.IsPPLZ()) {}

    void Write() {
        if (!pplz_) {
            stream_.command_format("SZ2");
            stream_.command_format("JMA");
            EndLine();
        }
        stream_.command_format("MCY");
        stream_.command_format(config_.flags & prtconfig::FLAG_MIRROR ? "PMY" : "PMN");
        EndLine();
        WriteMedia();
        WritePositions();
        WritePrintMode();
        EndLine();
        WriteDarkness();
        WriteSpeeds();
        WriteOptions();
        EndLine();
        if (model_.HasRFID()) {
            stream_.command_format("RS");
            stream_ << ",1," << Dots(model_.GetRFIDTransponderOffset());
            EndLine();
        }
    }

private:
    bool Sends(uint16_t setting) const { return (config_.setting_flags & setting) != 0; }
    bool Has(uint32_t flag) const { return (data_.flags & flag) != 0; }
    int32_t Dots(int32_t microns) const {
        return muldiv64s(microns, model_.GetXResolution(), 25400);
    }
    void EndLine() { stream_ << endl; }

    void WriteMedia() {
        stream_.command_format("PW");
        stream_ << stream_.GetPageWidth();
        if (!Has(CustomData::TRANSFER_ONLY | CustomData::DIRECT_ONLY) && config_.media_type != -1)
            stream_.command_format(config_.media_type == 0 ? "MTD" : "MTT");
        if (config_.media_tracking == -1) return;
        stream_.command_format("MN");
        switch (config_.media_tracking) {
        case 0:
            stream_ << "N";
            stream_.command_format("LL");
            stream_ << stream_.GetPageHeight();
            break;
        case 1:
            stream_ << "Y";
            break;
        case 2:
            stream_ << (pplz_ ? "Y" : "W");
            break;
        case 3:
            stream_ << (pplz_ ? "Y" : "M");
            break;
        default:
            break;
        }
    }

    void WritePositions() {
        if (Sends(extconfig::SETTING_LABEL_TOP)) {
            stream_.command_format("LT");
            stream_ << Dots(config_.label_top);
        }
        if (model_.TearOff() && Sends(extconfig::SETTING_TEAR_OFF)) {
            stream_.command_control("TA");
            if (model_.RequiresFixedTearOffAdjustment())
                stream_.write_fixedint(Dots(config_.tear_off), 3, false);
            else
                stream_ << Dots(config_.tear_off);
        }
    }

    void WritePrintMode() {
        const int16_t mode = config_.print_mode;
        if (!pplz_ && mode != extconfig::PRINT_TEAR_OFF && mode != extconfig::PRINT_REWIND) {
            stream_.command_control("JS");
            WriteBackfeed();
        }
        if (mode == extconfig::PRINT_AS_SET) return;
        if (pplz_)
            stream_.command_control(
                mode == extconfig::PRINT_CUTTER && config_.cut_variant != 1 ? "JSA" : "JSN");
        stream_.command_format("MM");
        stream_ << PrintModeLetter();
    }

    void WriteBackfeed() {
        switch (config_.backfeed) {
        case 1:
            stream_ << "B";
            break;
        case 2:
            stream_ << "A";
            break;
        case 3:
            stream_ << "O";
            break;
        case extconfig::BACKFEED_PERCENTAGE:
            stream_ << config_.backfeed_percentage;
            break;
        default:
            stream_ << "N";
            break;
        }
    }

    const char* PrintModeLetter() const {
        switch (config_.print_mode) {
        case extconfig::PRINT_TEAR_OFF:
            return "T";
        case extconfig::PRINT_PEEL_OFF:
            return "P";
        case extconfig::PRINT_REWIND:
            return "R";
        case extconfig::PRINT_APPLICATOR:
            return "A";
        case extconfig::PRINT_CUTTER:
            if (config_.cut_variant == 1) return "T";
            return config_.cut_variant == 0 || config_.cut_variant == 2 ? "C" : "";
        default:
            return "";
        }
    }

    void WriteDarkness() {
        if (!Sends(extconfig::SETTING_DARKNESS)) return;
        if (config_.IsAbsoluteDarkness()) {
            stream_.command_control("SD");
            stream_.write_fixedint(config_.absolute_darkness, 2, false);
            stream_.command_format("MD0");
        } else {
            stream_.command_format("MD");
            stream_ << config_.relative_darkness;
        }
        EndLine();
    }

    void WriteSpeeds() {
        if (!Sends(extconfig::SETTING_SPEEDS)) return;
        const auto letter = [this](int32_t speed) {
            stream_ << extconfig::FindSpdLetter(speed, data_).nstring();
        };
        stream_.command_format("PR");
        letter(config_.print_speed);
        if (Has(CustomData::SLEW_SPEED)) {
            stream_ << ",";
            letter(config_.slew_speed);
        }
        if (Has(CustomData::BACKFEED_SPEED)) {
            stream_ << ",";
            letter(config_.backfeed_speed);
        }
        EndLine();
    }

    // Settings of the printer, not of the document.
    void WriteOptions() {
        const bool reprint = registry_.GetByte("Settings:Reprint After Error", 1) != 0;
        stream_.command_format(reprint ? "JZY" : "JZN");
        if (pplz_ || registry_.GetByte("Settings:Media Feed", 0) == 0) return;
        const auto feed = [this](const char* setting) {
            stream_ << extconfig::mediafeed(static_cast<int>(registry_.GetDWORD(setting, 1)));
        };
        stream_.command_format("MF");
        feed("Settings:Media Feed (Power Up)");
        stream_ << ",";
        feed("Settings:Media Feed (Head Close)");
    }

    const extconfig& config_;
    const extmodel& model_;
    extstream& stream_;
    const CustomData& data_;
    prtreg& registry_;
    const bool pplz_;
};

} // namespace

void extconfig::output(extstream& stream) const {
    if (const prtmodel* model = stream.GetModel())
        ConfigurationBlock(*this, AsZpl(*model), stream).Write();
}

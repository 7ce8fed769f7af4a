#include "zpl/host_status.h"

#include "core/numbers.h"
#include "core/ostring_array.h"
#include "zpl/answer_text.h"

namespace {

// The end of a printer's answer, ETX CR LF, is still in the last field.
constexpr int kEndMark = 3;

bool IsSet(const OString& field) {
    return field == "1";
}

int32_t Number(const OString& field) {
    return xtol(field.nstring());
}

OString WithoutEndMark(const OString& field) {
    return AnswerPart(field.nstring(), 0, field.nlen() - kEndMark);
}

// Splits the answer after its STX. Returns the number of fields.
int SplitFields(const char* answer, uint32_t size, OStringArray& fields) {
    if (!answer || size < 2) return 0;
    fields.Split(AnswerText(answer + 1, size - 1), ",");
    // Only the 8-bit form of the pieces is used from here on.
    for (int i = 0; i < fields.GetSize(); ++i) fields[i].nstring();
    return fields.GetSize();
}

const char* BaudRate(int32_t settings) {
    static const char* const kRates[2][8] = {
        {"110", "300", "600", "1200", "2400", "4800", "9600", "19200"},
        {"28800", "38400", "57600", "14400", "115200", "4800", "9600", "19200"},
    };
    return kRates[(settings & 256) ? 1 : 0][settings & 7];
}

// Sets a property to one of two states.
void SetState(OPropertySet& properties, const char* name, bool state, const char* yes,
              const char* no) {
    properties.SetString(name, state ? yes : no);
}

// Sets a property that exists in one state only.
void SetWhen(OPropertySet& properties, const char* name, bool state, const char* text) {
    if (state) properties.SetString(name, text);
}

void ReadCommunication(const OStringArray& fields, OPropertySet& properties) {
    const int32_t settings = Number(fields[0]);
    properties.SetString("Baud", BaudRate(settings));
    SetState(properties, "HandShake", settings & 128, "DTR", "Xon/Xoff");
    SetState(properties, "StopBits", settings & 16, "1", "2");
    SetState(properties, "DataBits", settings & 8, "8", "7");
    SetState(properties, "Parity", settings & 64, "EVEN", "ODD");
    if (!(settings & 32)) properties.SetString("Parity", "None");
    SetState(properties, "Paper-Out", IsSet(fields[1]), "Yes", "No");
    SetState(properties, "Pause", IsSet(fields[2]), "Active", "Inactive");
    properties.SetInt("Label-Length", Number(fields[3]));
    properties.SetInt("Number-Of-Formats", Number(fields[4]));
    SetWhen(properties, "Receive-Buffer-Full", IsSet(fields[5]), "Full");
    SetState(properties, "Communication-Mode", IsSet(fields[6]), "Diagnostic Mode Active",
             "Diagnostic Mode Inactive");
    SetWhen(properties, "Partial-Format", IsSet(fields[7]), "Partial Format in Progress");
    SetWhen(properties, "Corrupt-RAM", IsSet(fields[9]), "Configuration Data Lost");
    properties.SetString("PrintHead-Temperature", "Normal");
    SetWhen(properties, "PrintHead-Temperature", IsSet(fields[10]), "Under Temperature");
    SetWhen(properties, "PrintHead-Temperature", IsSet(fields[11]), "Over Temperature");
}

void ReadFunctions(const OStringArray& fields, OPropertySet& properties) {
    static const char* const kPrintModes[] = {"Rewind", "Peel Off", "Tear Off", "Cut",
                                              "Applicator"};
    const int32_t settings = Number(fields[0]);
    SetState(properties, "Media-Type", settings & 128, "Continuous", "Die Cut");
    SetState(properties, "Sensor-Profile", settings & 64, "On", "Off");
    SetState(properties, "Communication-Diagnostics", settings & 32, "On", "Off");
    SetState(properties, "Transfer-Mode", settings & 1, "Thermal Transfer", "Direct Thermal");
    SetState(properties, "Head-Up", IsSet(fields[2]), "Open", "Closed");
    SetState(properties, "Ribbon-Out", IsSet(fields[3]), "Yes", "No");
    SetWhen(properties, "Thermal-Mode", IsSet(fields[4]), "Thermal Transfer Mode Selected");
    const int32_t mode = Number(fields[5]);
    if (mode >= 0 && mode <= 4) properties.SetString("Print-Mode", kPrintModes[mode]);
    properties.SetString("Width-Mode", fields[6]);
    SetWhen(properties, "Label-Waiting", IsSet(fields[7]), "Label Waiting in Peel Off Mode");
    properties.SetString("Labels-Remaining", fields[8]);
    properties.SetInt("Images", Number(fields[10]));
}

void ReadMemorySettings(const OStringArray& fields, OPropertySet& properties) {
    properties.SetString("Password", fields[0]);
    SetState(properties, "Static-Ram-Installed", IsSet(fields[1]), "Installed", "Not Installed");
}

} // namespace

void ReadHostIdentification(const char* answer, uint32_t size, OPropertySet& properties) {
    static const char* const kNames[] = {"Model", "Firmware-Version", "Dots-Per-Millimeter",
                                         "Host-Memory"};
    OStringArray fields;
    const int count = SplitFields(answer, size, fields);
    if (count < 4) return;
    for (int i = 0; i < 4; ++i) properties.SetString(kNames[i], fields[i]);
    if (count > 4 && fields[4].nlen() > kEndMark)
        properties.SetString("Options", WithoutEndMark(fields[4]));
}

void ReadHostStatus(const char* answer, uint32_t size, OPropertySet& properties) {
    static const struct {
        int fields;
        void (*read)(const OStringArray& fields, OPropertySet& properties);
    } kTexts[] = {{12, ReadCommunication}, {11, ReadFunctions}, {2, ReadMemorySettings}};
    OStringArray texts;
    texts.Split(WithoutControls(answer, size), ";");
    if (texts.GetSize() < 3) return;
    for (int i = 0; i < 3; ++i) {
        OStringArray fields;
        fields.Split(texts[i], ",");
        if (fields.GetSize() >= kTexts[i].fields) kTexts[i].read(fields, properties);
    }
}

void ReadHostMemory(const char* answer, uint32_t size, OPropertySet& properties) {
    OStringArray fields;
    if (SplitFields(answer, size, fields) < 3) return;
    properties.SetString("PhysicalMemory-Size", fields[0]);
    properties.SetString("PhysicalMemory-MaxAvaliable", fields[1]);
    const int64_t used = int64_t{Number(fields[1])} - Number(WithoutEndMark(fields[2]));
    properties.SetString("PhysicalMemory-Avaliable", OString() << used);
}

PowerReadings ReadPowerStatus(const char* answer, uint32_t size) {
    const OString text = answer ? AnswerText(answer, size) : OString();
    return {AnswerPart(text.nstring(), 1, 5), AnswerPart(text.nstring(), 7, 5),
            AnswerPart(text.nstring(), 13, 2)};
}

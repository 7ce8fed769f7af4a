#include "zpl/pages/pp_printer_information.h"

#include "locale/text_numbers.h"
#include "ui/wait_cursor.h"
#include "zpl/extmodel.h"
#include "zpl/extui.h"

namespace {

constexpr int kReportQuestions =
    ZPLQuery::IDENTIFICATION | ZPLQuery::STATUS | ZPLQuery::MEMORY | ZPLQuery::ALL_FILES;

// Tab stops, in quarters of a character's width.
constexpr int kValueStop = 140;

constexpr char kSeparatorLine[] = "----------------------------------------";

} // namespace

bool ppPrinterInformation::RefreshInformation() {
    const WaitCursor wait;
    Info_Clear();
    ZPLQuery query(GetWindow(), static_cast<extstream*>(GetUI()->stream));
    const bool has_configuration = AsZpl(*GetModel()).HasConfigurationLabelCommand();
    if (!query.RunQuery(has_configuration ? kReportQuestions | ZPLQuery::CONFIGURATION
                                          : kReportQuestions))
        return true;
    ShowPrinter(query.properties);
    ShowCommunication(query.properties);
    ShowMemory(query.properties);
    ShowSettings(query.properties);
    if (has_configuration && query.configuration.GetSize() > 0)
        ShowConfiguration(query.configuration);
    ShowStatus(query.properties);
    ShowFiles(query.files);
    return true;
}

void ppPrinterInformation::Item(int label, const OPropertySet& answers, const char* name) {
    Info_Item(label, answers.GetString(name, ""));
}

void ppPrinterInformation::ShowPrinter(const OPropertySet& answers) {
    Info_Tab(TEXT_REPORT_PRINTER);
    Info_TabStop(kValueStop);
    Item(TEXT_REPORT_MODEL, answers, "Model");
    Item(TEXT_REPORT_VERSION, answers, "Firmware-Version");
    Item(TEXT_REPORT_DOTS, answers, "Dots-Per-Millimeter");
    if (IsRestricted()) return;
    Info_Header(TEXT_REPORT_ADMINISTRATION);
    Item(TEXT_REPORT_PASSWORD, answers, "Password");
}

void ppPrinterInformation::ShowCommunication(const OPropertySet& answers) {
    Info_Tab(TEXT_REPORT_COMMUNICATION);
    Info_TabStop(kValueStop);
    Info_Header(TEXT_REPORT_SERIAL);
    Item(TEXT_REPORT_BAUD, answers, "Baud");
    Item(TEXT_REPORT_HANDSHAKE, answers, "HandShake");
    Item(TEXT_REPORT_PARITY, answers, "Parity");
    Item(TEXT_REPORT_STOP_BITS, answers, "StopBits");
    Item(TEXT_REPORT_DATA_BITS, answers, "DataBits");
}

void ppPrinterInformation::ShowMemory(const OPropertySet& answers) {
    Info_Tab(TEXT_REPORT_MEMORY);
    Info_TabStop(kValueStop);
    Item(TEXT_REPORT_TOTAL, answers, "PhysicalMemory-Size");
    Item(TEXT_REPORT_AVAILABLE, answers, "PhysicalMemory-MaxAvaliable");
    Item(TEXT_REPORT_USED, answers, "PhysicalMemory-Avaliable");
    Info_Line(kSeparatorLine);
    Item(TEXT_REPORT_STATIC_RAM, answers, "Static-Ram-Installed");
}

void ppPrinterInformation::ShowSettings(const OPropertySet& answers) {
    Info_Tab(TEXT_REPORT_SETTINGS);
    Info_TabStop(kValueStop);
    Info_Header(TEXT_REPORT_LABEL);
    OString length = answers.GetString("Label-Length", "");
    Info_Item(TEXT_REPORT_LENGTH, length << " " << GetString(TEXT_DOTS));
    Info_Header(TEXT_REPORT_PRINT);
    Item(TEXT_TRANSFER_MODE, answers, "Transfer-Mode");
    if (!answers.GetString("Print-Mode", "").IsEmpty())
        Item(TEXT_PRINT_MODE, answers, "Print-Mode");
    Item(TEXT_MEDIA_TYPE, answers, "Media-Type");
    Info_Header(TEXT_REPORT_STORAGE);
    Item(TEXT_FORMATS, answers, "Number-Of-Formats");
    Item(TEXT_GRAPHICS, answers, "Images");
}

void ppPrinterInformation::ShowConfiguration(const OStringArray& lines) {
    Info_Tab(TEXT_REPORT_CONFIGURATION);
    Info_TabStop(kValueStop);
    for (int i = 0; i < lines.GetSize(); ++i) {
        const int split = lines[i].Find('@');
        if (split == 0 || split == 1) continue;
        if (split < 0)
            Info_Line(lines[i]);
        else
            Info_Item(lines[i].Left(split), lines[i].Mid(split + 1));
    }
}

void ppPrinterInformation::ShowStatus(const OPropertySet& answers) {
    Info_Tab(TEXT_REPORT_STATUS);
    Info_TabStop(kValueStop);
    Item(TEXT_REPORT_PAPER_OUT, answers, "Paper-Out");
    Item(TEXT_REPORT_RIBBON_OUT, answers, "Ribbon-Out");
    Item(TEXT_REPORT_PAUSE, answers, "Pause");
    Item(TEXT_REPORT_PRINT_HEAD, answers, "Head-Up");
    Item(TEXT_REPORT_HEAD_TEMPERATURE, answers, "PrintHead-Temperature");
    if (!answers.GetString("Receive-Buffer-Full", "").IsEmpty())
        Info_Item(TEXT_RECEIVE_BUFFER, TEXT_BUFFER_FULL);
    Item(TEXT_SENSOR_PROFILE_STATE, answers, "Sensor-Profile");
    Item(TEXT_DIAGNOSTICS, answers, "Communication-Diagnostics");
}

// Every file that the printer listed is shown and counted.
void ppPrinterInformation::ShowFiles(const OStringArray& files) {
    Info_Tab(TEXT_REPORT_FILES);
    Info_TabStop(kValueStop);
    OString header = GetString(TEXT_REPORT_NAME);
    Info_Header(header << tab << GetString(TEXT_REPORT_SIZE));
    if (files.GetSize() == 0) Info_Line(TEXT_REPORT_NO_FILES);
    int32_t used = 0;
    for (int i = 0; i < files.GetSize(); ++i) {
        OStringArray fields; // memory, name, size
        fields.Split(files[i], ";");
        if (fields.GetSize() < 2) continue;
        OString line = fields[0];
        Info_Line(line << tab << fields[1]);
        used += static_cast<int32_t>(fields[1]);
    }
    Info_Header(TEXT_REPORT_SUMMARY);
    Info_Item(TEXT_REPORT_TOTAL_FILES, FormatInt(files.GetSize()));
    Info_Item(TEXT_REPORT_MEMORY_USED, FormatInt(used));
}

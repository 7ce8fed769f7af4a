#include "pages/reports/report_formats.h"

#include "core/locale_utility.h"
#include "pages/reports/report_line_reader.h"

namespace {

using OCore::endl;

constexpr int kValueColumn = 29;
constexpr uint32_t kUtf8 = 1208;
constexpr char kHyphens[] =
    "---------------------------------------------------------------------------";

// The system's own capital of a character.
WCHAR Upper(WCHAR character) {
    WCHAR text[] = {character, 0};
    CharUpperW(text);
    return text[0];
}

void AppendBlanks(OString& text, int count) {
    for (int i = 0; i < count; ++i) text << WCHAR(' ');
}

OString PlainLine(const OString& line) {
    OString text;
    bool bold = false;
    for (ReportLineReader reader(line); reader.Next();) {
        switch (reader.kind()) {
        case ReportLineReader::kBold:
            bold = true;
            break;
        case ReportLineReader::kEndBold:
            bold = false;
            break;
        case ReportLineReader::kCharacter:
            if (reader.character() == '\t')
                AppendBlanks(text, kValueColumn - reader.position());
            else
                text << (bold ? Upper(reader.character()) : reader.character());
            break;
        default:
            break;
        }
    }
    return text;
}

OString RichLine(const OString& line) {
    OString text;
    for (ReportLineReader reader(line); reader.Next();) {
        switch (reader.kind()) {
        case ReportLineReader::kBold:
            text << "\\b ";
            break;
        case ReportLineReader::kEndBold:
            text << "\\b0";
            break;
        case ReportLineReader::kCharacter:
            if (reader.character() == '\t')
                text << "\\tab ";
            else if (reader.character() == '\\')
                text << "\\\\";
            else
                text << reader.character();
            break;
        default:
            break;
        }
    }
    return text;
}

void AppendEscaped(OString& text, WCHAR character) {
    switch (character) {
    case '\t':
        text << "</td><td>";
        break;
    case '<':
        text << "&lt;";
        break;
    case '>':
        text << "&gt;";
        break;
    case '"':
        text << "&quot;";
        break;
    case '&':
        text << "&amp;";
        break;
    default:
        text << character;
    }
}

OString HtmlLine(const OString& line) {
    OString text;
    for (ReportLineReader reader(line); reader.Next();) {
        switch (reader.kind()) {
        case ReportLineReader::kBold:
            text << "<b>";
            break;
        case ReportLineReader::kEndBold:
            text << "</b>";
            break;
        case ReportLineReader::kCharacter:
            AppendEscaped(text, reader.character());
            break;
        default:
            break;
        }
    }
    return text;
}

void WriteHtmlRow(OFile& file, const OString& line) {
    if (line.IsEmpty() || line.GetLength() == 0) {
        file << "<tr><td height='10'></td></tr>" << endl;
        return;
    }
    const bool has_value = line.Find(TEXT("\t")) >= 0;
    file << (has_value ? "<tr><td valign='top'>" : "<tr><td valign='top' colspan='2'>")
         << HtmlLine(line) << "</td></tr>" << endl;
}

constexpr const char* kHtmlHead[] = {
    "<html>",
    "<head>",
    "<meta http-equiv='Content-Type' content='text/html; charset=UTF-8'>",
    "<title>Driver Information</title>",
    "<style type='text/css'>",
    "h1 { font-family: Tahoma; font-size: 18pt; color: teal; margin-bottom: 2pt; }",
    "table { font-family: Verdana; font-size: 10pt; }",
    "</style>",
    "</head>",
    "<body>",
    "<table width='100%' cellspacing='0' cellpadding='0' border='0'>",
    "<col width='35%'><col width='65%'>",
};

} // namespace

void SaveReportText(OFile& file, const ReportPanels& panels, uint32_t code_page) {
    file.SetCodePage(code_page);
    for (int i = 0; i < panels.GetSize(); ++i) {
        const TextPanel& panel = *panels[i];
        OString title = panel.title;
        title.MakeUpper();
        file << title << endl << kHyphens << endl << endl;
        for (int line = 0; line < panel.GetSize(); ++line) file << PlainLine(panel[line]) << endl;
        file << endl;
    }
}

void SaveReportRichText(OFile& file, const ReportPanels& panels, uint32_t code_page) {
    file.SetCodePage(code_page);
    const int32_t charset = LocaleUtility::CodePageToCharSet(code_page);
    file << "{\\rtf1\\ansi\\ansicpg" << static_cast<int32_t>(code_page) << "\\deff0" << endl;
    file << "{\\fonttbl" << endl;
    file << "{\\f0\\fswiss\\fprq2\\fcharset" << charset << " Verdana;}" << endl;
    file << "{\\f1\\fswiss\\fprq2\\fcharset" << charset << " Arial;}" << endl;
    file << "}" << endl << "\\viewkind4\\uc1";
    for (int i = 0; i < panels.GetSize(); ++i) {
        const TextPanel& panel = *panels[i];
        file << "\\pard\\fi-2880\\li2880\\tx2880\\tx8640\\ul\\b\\f1\\fs24 " << panel.title
             << "\\tab\\tab\\ulnone\\b0\\f0\\fs20\\par\\pard\\fi-"
                "2880\\li2880\\tx2880\\fs8\\par\\fs20 "
             << endl;
        for (int line = 0; line < panel.GetSize(); ++line)
            file << RichLine(panel[line]) << "\\par" << endl;
        file << "\\par" << endl;
    }
    file << "}" << endl;
}

void SaveReportHtml(OFile& file, const ReportPanels& panels) {
    file.SetCodePage(kUtf8);
    for (const char* line : kHtmlHead) file << line << endl;
    for (int i = 0; i < panels.GetSize(); ++i) {
        const TextPanel& panel = *panels[i];
        file << "<tr>" << endl;
        file << "<td colspan='2'><h1>" << panel.title << "</h1></td>" << endl;
        file << "</tr>" << endl;
        file << "<tr><td colspan='2' height='2' bgcolor='black'></td></tr>" << endl;
        file << "<tr><td colspan='2' height='10'></td></tr>" << endl;
        for (int line = 0; line < panel.GetSize(); ++line) WriteHtmlRow(file, panel[line]);
        file << "<tr><td>&nbsp;</td></tr>" << endl;
    }
    file << "</table>" << endl << "</body>" << endl << "</html>" << endl;
}

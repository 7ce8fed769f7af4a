#include "pages/reports/report_formats.h"

#include "support/host_test.h"

namespace {

using ReportFormats = HostTest;

TEST_F(ReportFormats, SaveMarksTabsAndOddCharacters) {
    TextPanel panel;
    panel.title = OString("System & more");
    for (const char* line : {"[b]Driver[/b]", "", "[B]a[/B]b:\tc <\"&\"> \\", "[x]open [b",
                             "A label that is longer than its column:\tvalue"})
        panel.Add(OString(line));
    ReportPanels panels;
    panels.Add(&panel);

    OFile text(OString("C:\\r.txt"), OFILE_WRITE);
    SaveReportText(text, panels, 1252);
    text.Close();
    EXPECT_EQ(BytesOf(OnDriveC("r.txt")), "SYSTEM & MORE\r\n" + std::string(75, '-') +
                                              "\r\n\r\n"
                                              "DRIVER\r\n"
                                              "\r\n"
                                              "Ab:" +
                                              std::string(29 - 10, ' ') +
                                              "c <\"&\"> \\\r\n"
                                              "open [b\r\n"
                                              "A label that is longer than its column:value\r\n"
                                              "\r\n");

    OFile rich(OString("C:\\r.rtf"), OFILE_WRITE);
    SaveReportRichText(rich, panels, 1250);
    rich.Close();
    EXPECT_EQ(BytesOf(OnDriveC("r.rtf")),
              "{\\rtf1\\ansi\\ansicpg1250\\deff0\r\n"
              "{\\fonttbl\r\n"
              "{\\f0\\fswiss\\fprq2\\fcharset238 Verdana;}\r\n"
              "{\\f1\\fswiss\\fprq2\\fcharset238 Arial;}\r\n"
              "}\r\n"
              "\\viewkind4\\uc1\\pard\\fi-2880\\li2880\\tx2880\\tx8640\\ul\\b\\f1\\fs24 "
              "System & more"
              "\\tab\\tab\\ulnone\\b0\\f0\\fs20\\par\\pard\\fi-2880\\li2880\\tx2880\\fs8\\par"
              "\\fs20 \r\n"
              "\\b Driver\\b0\\par\r\n"
              "\\par\r\n"
              "\\b a\\b0b:\\tab c <\"&\"> \\\\\\par\r\n"
              "open [b\\par\r\n"
              "A label that is longer than its column:\\tab value\\par\r\n"
              "\\par\r\n"
              "}\r\n");

    OFile html(OString("C:\\r.html"), OFILE_WRITE);
    SaveReportHtml(html, panels);
    html.Close();
    const std::string page = BytesOf(OnDriveC("r.html"));
    const std::string rows =
        "<tr><td valign='top' colspan='2'><b>Driver</b></td></tr>\r\n"
        "<tr><td height='10'></td></tr>\r\n"
        "<tr><td valign='top'><b>a</b>b:</td><td>c &lt;&quot;&amp;&quot;&gt; \\</td></tr>\r\n"
        "<tr><td valign='top' colspan='2'>open [b</td></tr>\r\n";
    EXPECT_NE(page.find("<td colspan='2'><h1>System & more</h1></td>\r\n"), std::string::npos);
    EXPECT_NE(page.find(rows), std::string::npos) << page;
    const std::string end = "<tr><td>&nbsp;</td></tr>\r\n</table>\r\n</body>\r\n</html>\r\n";
    EXPECT_EQ(page.substr(page.size() - end.size()), end);
}

} // namespace

// The version report of every model that ships, in the three formats in which people save it.
//
// golden/version_report.* is what one model's report looks like, with the machine's facts masked
// and the label sizes after the third left out. golden/version_reports.txt has the facts in it and
// how those of each further model differ from the model before. All formats tell the same facts.
#include "support/build_folders.h"
#include "support/labelhost_test.h"

#include <regex>
#include <set>

namespace {

constexpr char kShownModel[] = "Valdrick X4 300 dpi";
constexpr int kLabelSizeLines = 21; // of three label sizes
constexpr size_t kValueColumn = 29;

using Lines = std::vector<std::string>;

Lines LinesOf(const std::string& bytes) {
    Lines lines;
    for (size_t start = 0, end; (end = bytes.find("\r\n", start)) != bytes.npos; start = end + 2)
        lines.push_back(bytes.substr(start, end - start));
    return lines;
}

std::string Utf8Of(const std::string& latin1) {
    std::string text;
    for (const char c : latin1) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= 0x80) text += static_cast<char>(0xC0 | byte >> 6);
        text += byte < 0x80 ? c : static_cast<char>(0x80 | (byte & 0x3F));
    }
    return text;
}

// One format: which lines begin a tab, and the parts of a line that has a value.
struct Format {
    const char* extension;
    std::regex title; // the title is its first group
    std::regex item;  // before the label, label, between, value, after it
    std::regex text;  // of a line without a value, its first group
};

const Format& FormatOf(const std::string& extension) {
    static const Format kFormats[] = {
        {"txt", std::regex("(.*)\n-{75}"), std::regex("()(.*?:|)( +)(.*)()"), std::regex("(.+)")},
        {"rtf", std::regex(R"(.*\\fs24 (.*)\\tab\\tab\\ulnone.*)"),
         std::regex(R"(()(.*?)(\\tab )(.*)(\\par))"),
         std::regex(R"((?:\\b )?(.+?)(?:\\b0)?\\par)")},
        {"html", std::regex("<td colspan='2'><h1>(.*)</h1></td>"),
         std::regex("(<tr><td valign='top'>)(.*)(</td><td>)(.*)(</td></tr>)"),
         std::regex("<tr><td valign='top' colspan='2'>(?:<b>)?(.+?)(?:</b>)?</td></tr>")}};
    for (const Format& format : kFormats)
        if (extension == format.extension) return format;
    throw std::out_of_range(extension);
}

bool IsItem(const Format& format, const std::string& line, std::smatch& parts) {
    if (std::string(format.extension) == "txt" &&
        (line.size() < kValueColumn || line[kValueColumn - 1] != ' '))
        return false;
    return std::regex_match(line, parts, format.item);
}

// Calls `use` with each line and the tab that it is in, the lines about the tab among them.
template <class Use>
void ForLines(const Format& format, const std::string& bytes, const Use& use) {
    const Lines lines = LinesOf(bytes);
    std::string tab;
    for (size_t i = 0; i < lines.size(); ++i) {
        std::smatch found;
        const std::string two = i + 1 < lines.size() ? lines[i] + "\n" + lines[i + 1] : lines[i];
        const bool is_title = std::regex_match(lines[i], found, format.title) ||
                              std::regex_match(two, found, format.title);
        if (is_title) tab = found[1];
        use(tab, lines[i], is_title);
    }
}

std::string Capitals(std::string text) {
    for (char& c : text)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    return text;
}

// The machine's facts and those of the build: values of these items, everywhere or in a tab.
bool IsMasked(const std::string& tab, const std::string& label) {
    static const std::set<std::string> kLabels = {"VERSION:", "BUILT:", "COPYRIGHT:"};
    return Capitals(tab) == "SYSTEM" ||
           (Capitals(tab) != "SPECIFICATIONS" && kLabels.contains(Capitals(label)));
}

std::string WithoutYears(const std::string& line) {
    if (Capitals(line).find("COPYRIGHT") == line.npos) return line;
    return std::regex_replace(line, std::regex("20[0-9]{2}(-20[0-9]{2})?"), "YEARS");
}

std::string Masked(const Format& format, const std::string& bytes) {
    std::string masked;
    int label_size_lines = 0;
    ForLines(format, bytes, [&](const std::string& tab, const std::string& line, bool is_title) {
        std::smatch parts;
        if (!is_title && IsItem(format, line, parts) && IsMasked(tab, parts[2])) {
            // Users have any number of groups, and not every processor tells its maker.
            if (parts[2] == "" || parts[2] == "Maker:") return;
            masked += parts[1].str() + parts[2].str() + parts[3].str() + "*" + parts[5].str();
        } else if (Capitals(tab) == "LABEL SIZES" && ++label_size_lines > kLabelSizeLines) {
            return;
        } else {
            masked += WithoutYears(line);
        }
        masked += "\r\n";
    });
    return masked;
}

std::string Unescaped(std::string text) {
    static const std::pair<const char*, const char*> kEscapes[] = {
        {"&lt;", "<"}, {"&gt;", ">"}, {"&quot;", "\""}, {"&amp;", "&"}, {"\\\\", "\\"}};
    for (const auto& [escape, character] : kEscapes)
        for (size_t at = 0; (at = text.find(escape, at)) != text.npos; ++at)
            text.replace(at, std::string(escape).size(), character);
    return text;
}

// What a report tells: "TAB / HEADING: LABEL: VALUE", in capitals as the text format has headings.
Lines FactsOf(const Format& format, const std::string& bytes) {
    Lines facts;
    std::string heading;
    const bool is_html = std::string(format.extension) == "html";
    ForLines(format, bytes, [&](const std::string& tab, const std::string& line, bool is_title) {
        std::smatch parts;
        if (is_title) heading.clear();
        if (is_title || tab.empty() || line == std::string(75, '-')) return;
        std::string fact;
        if (IsItem(format, line, parts)) {
            const std::string label = parts[2];
            fact = (heading.empty() ? "" : heading + ": ") + label + " " +
                   (IsMasked(tab, label) ? std::string("*") : Unescaped(parts[4]));
        } else if (std::regex_match(line, parts, format.text) && parts[1] != "\\par") {
            heading = Unescaped(parts[1]);
            fact = heading;
        } else {
            return;
        }
        facts.push_back(Capitals(tab + " / " + (is_html ? fact : Utf8Of(fact))));
    });
    return facts;
}

class VersionReports : public Labelhost {
protected:
    // Saves the report in all formats, in one visit to its dialog.
    void Save() const {
        Write("script", "page \"About\"\nclick 111\n"
                        "click 618\nfile \"C:\\\\r.txt\"\nclick 618\nfile \"C:\\\\r.rtf\"\n"
                        "click 618\nfile \"C:\\\\r.html\"\ncancel\ncancel\n");
        const ProgramResult result = Run({"sheet", "P", "--device", "--run", File("script")});
        ASSERT_EQ(result.status, 0) << result.errors;
    }
    std::string Saved(const std::string& extension) const {
        return BytesOf(OnDriveC("r." + extension));
    }
};

} // namespace

TEST_F(VersionReports, TellOfEveryModelThatShips) {
    std::string seen;
    Lines before;
    for (const Json& model : RunJson({"models"})) {
        const std::string name = model["name"];
        SCOPED_TRACE(name);
        for (const char* extension : {"txt", "rtf", "html"})
            std::filesystem::remove(OnDriveC(std::string("r.") + extension));
        Install("P", name);
        ASSERT_NO_FATAL_FAILURE(Save());
        const Lines facts = FactsOf(FormatOf("txt"), Saved("txt"));
        EXPECT_EQ(FactsOf(FormatOf("rtf"), Saved("rtf")), facts);
        EXPECT_EQ(FactsOf(FormatOf("html"), Saved("html")), facts);
        seen += "= " + name + "\n";
        const std::set<std::string> old(before.begin(), before.end());
        const std::set<std::string> now(facts.begin(), facts.end());
        for (const std::string& fact : before)
            if (!now.contains(fact)) seen += "- " + WithoutYears(fact) + "\n";
        for (const std::string& fact : facts)
            if (!old.contains(fact) && fact.rfind("SYSTEM / ", 0) != 0)
                seen += "+ " + WithoutYears(fact) + "\n";
        before = facts;
        if (name == kShownModel) {
            for (const char* extension : {"txt", "rtf", "html"})
                EXPECT_EQ(Masked(FormatOf(extension), Saved(extension)),
                          BytesOf(Sources(std::string("/tests/product/golden/version_report.") +
                                          extension)));
        }
        ASSERT_EQ(Run({"remove", "P"}).status, 0);
    }
    EXPECT_EQ(seen, BytesOf(Sources("/tests/product/golden/version_reports.txt")));
}

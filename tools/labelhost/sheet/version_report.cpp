#include "sheet/version_report.h"

#include "fault.h"
#include "machine/machine.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace {

constexpr const char* kCannotWrite = "cannot write version report";

constexpr int kVersionButton = 111;
constexpr int kSaveButton = 618;

// The extensions of reports, and how their files end.
constexpr struct {
    const char* extension;
    const char* end;
} kFormats[] = {
    {".html", "</html>\r\n"}, {".htm", "</html>\r\n"}, {".rtf", "}\r\n"}, {".txt", "\r\n\r\n"}};

std::string ExtensionOf(const std::string& file) {
    std::string extension = NameOf(PathOf(file).extension());
    for (char& c : extension)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return extension;
}

std::string KnownExtension(const std::string& file) {
    const std::string extension = ExtensionOf(file);
    for (const auto& format : kFormats)
        if (extension == format.extension) return extension;
    throw UsageFault("version report '" + file + "' has to end in .html, .htm, .rtf or .txt");
}

} // namespace

VersionReport::VersionReport(const std::string& file)
    : file_(file)
    , aside_(file, KnownExtension(file)) {
    // The driver tells nobody why it cannot write. An empty file would make it ask whether to
    // replace that.
    if (!std::ofstream(PathOf(aside_.name()))) throw FileFault(kCannotWrite, file);
    std::filesystem::remove(PathOf(aside_.name()));
}

std::vector<Act> VersionReport::Acts(int pages) const {
    Act page, open, save, choose;
    page.kind = ActKind::Page;
    page.items = {{"", pages - 1}};
    open.kind = ActKind::Click;
    open.id = kVersionButton;
    save.kind = ActKind::Click;
    save.id = kSaveButton;
    choose.kind = ActKind::File;
    choose.paths = {HostPath(aside_.name())};
    return {page, open, save, choose};
}

void VersionReport::Keep() const {
    std::error_code error;
    if (!std::filesystem::exists(PathOf(aside_.name()), error))
        throw Fault(std::string(kCannotWrite) + " '" + file_ + "'");
    const std::string bytes = ReadBytes(kCannotWrite, aside_.name());
    const std::string extension = ExtensionOf(file_);
    for (const auto& format : kFormats)
        if (extension == format.extension && !bytes.ends_with(format.end))
            throw Fault(std::string(kCannotWrite) + " '" + file_ + "' to its end");
    aside_.Replace(kCannotWrite, file_);
}

// The driver's report about itself, the system and the printer, saved from a property sheet.
#pragma once

#include "files.h"
#include "sheet/script.h"

#include <string>
#include <vector>

// A report that a person at a sheet saves to a file. It is written aside until it is complete.
class VersionReport {
public:
    // The file's extension names the format: .html, .htm, .rtf or .txt. Throws UsageFault for
    // others, and Fault if the file cannot be written.
    explicit VersionReport(const std::string& file);

    // What the person does in a sheet of so many pages; the last one leads to the report.
    std::vector<Act> Acts(int pages) const;

    // Puts the saved report in its place. Throws Fault if the driver has not written all of it.
    void Keep() const;

private:
    const std::string file_;
    const FileAside aside_;
};

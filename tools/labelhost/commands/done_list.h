// A file with a line for each printer that is done, so that interrupted work can be resumed later.
#pragma once

#include <fstream>
#include <set>
#include <string>

class DoneList {
public:
    // Reads the file's lines; makes the file if it is missing. Uses no file if `path` is empty.
    // Throws Fault if the file cannot be read or written.
    explicit DoneList(const std::string& path);

    bool Has(const std::string& printer) const { return printers_.count(printer) != 0; }

    // The printer is in the file when this returns. Throws Fault.
    void Add(const std::string& printer);

private:
    const std::string path_;
    std::set<std::string> printers_;
    std::ofstream file_;
};

// A file with a line for each printer that some work has done, so that the work can go on later.
#pragma once

#include <fstream>
#include <set>
#include <string>

class DoneList {
public:
    // Reads the file's lines; makes the file when there is none. Nothing is kept in a file when
    // `path` is empty. Throws Fault when the file cannot be read or written.
    explicit DoneList(const std::string& path);

    bool Has(const std::string& printer) const { return printers_.count(printer) != 0; }

    // Is in the file when it returns. Throws Fault.
    void Add(const std::string& printer);

private:
    const std::string path_;
    std::set<std::string> printers_;
    std::ofstream file_;
};

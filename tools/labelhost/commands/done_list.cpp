#include "commands/done_list.h"

#include "fault.h"
#include "files.h"

#include <utility>

DoneList::DoneList(const std::string& path)
    : path_(path) {
    if (path.empty()) return;
    file_.open(PathOf(path), std::ios::binary | std::ios::app);
    if (!file_) throw FileFault("cannot write", path);
    std::string line;
    // A line without an end was being written when the program was killed, and is ignored.
    for (const char c : ReadBytes("cannot read", path)) {
        if (c == '\n')
            printers_.insert(std::exchange(line, {}));
        else
            line += c;
    }
    if (!line.empty()) file_ << '\n';
}

void DoneList::Add(const std::string& printer) {
    if (!file_.is_open()) return;
    printers_.insert(printer);
    file_ << printer << '\n' << std::flush;
    if (!file_) throw FileFault("cannot write", path_);
}

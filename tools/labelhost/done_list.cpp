#include "done_list.h"

#include "fault.h"

#include <utility>

DoneList::DoneList(const std::string& path)
    : path_(path)
    , file_(path.empty() ? nullptr : std::fopen(path.c_str(), "a+"), std::fclose) {
    if (path.empty()) return;
    if (!file_) throw FileFault("cannot write", path);
    std::string line;
    // A line without its end was being written when the program was killed: it is no printer's.
    for (int c; (c = std::getc(file_.get())) != EOF;) {
        if (c == '\n')
            printers_.insert(std::exchange(line, {}));
        else
            line += static_cast<char>(c);
    }
    if (std::ferror(file_.get())) throw FileFault("cannot read", path); // a folder, for one
    if (!line.empty()) std::fputc('\n', file_.get());
}

void DoneList::Add(const std::string& printer) {
    if (!file_) return;
    printers_.insert(printer);
    std::fprintf(file_.get(), "%s\n", printer.c_str());
    if (std::fflush(file_.get()) != 0) throw FileFault("cannot write", path_);
}

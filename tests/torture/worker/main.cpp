// A worker in a process of its own: torture_worker ROOT NUMBER ROUNDS. With "options" instead of
// ROUNDS it changes the options of "Dock 1" once. Prints the faults that it has found.
#include <win32host/control.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "torture/worker.h"

int main(int argc, char** argv) {
    if (argc != 4) return 2;
    win32host::SetRoot(argv[1]);
    TortureWorker worker(std::atoi(argv[2]));
    if (std::strcmp(argv[3], "options") == 0)
        worker.ChangeOptions("Dock 1");
    else
        worker.Work(std::atoi(argv[3]));
    for (const std::string& fault : worker.faults()) std::puts(fault.c_str());
    return worker.faults().empty() ? 0 : 1;
}

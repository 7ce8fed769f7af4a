#include "machine/interruption.h"

#include <windows.h>

#include <io.h>

#include <atomic>

namespace {

std::atomic<bool> g_interrupted = false;

// The system calls this on a thread of its own. FALSE ends the program.
BOOL WINAPI Note(DWORD) {
    return !g_interrupted.exchange(true);
}

} // namespace

Interruption::Interruption() {
    g_interrupted = false;
    SetConsoleCtrlHandler(Note, TRUE);
}

Interruption::~Interruption() {
    SetConsoleCtrlHandler(Note, FALSE);
}

bool Interruption::Came() {
    return g_interrupted;
}

bool IsTerminal(std::FILE* stream) {
    return _isatty(_fileno(stream)) != 0;
}

#include "machine/interruption.h"

#include <unistd.h>

#include <csignal>

namespace {

volatile std::sig_atomic_t g_interrupted = 0;
struct sigaction g_interrupt_before, g_terminate_before;

void Note(int) {
    g_interrupted = 1;
}

} // namespace

Interruption::Interruption() {
    g_interrupted = 0;
    struct sigaction action = {};
    action.sa_handler = Note;
    action.sa_flags = static_cast<int>(SA_RESTART | SA_RESETHAND);
    sigaction(SIGINT, &action, &g_interrupt_before);
    sigaction(SIGTERM, &action, &g_terminate_before);
}

Interruption::~Interruption() {
    sigaction(SIGINT, &g_interrupt_before, nullptr);
    sigaction(SIGTERM, &g_terminate_before, nullptr);
}

bool Interruption::Came() {
    return g_interrupted != 0;
}

bool IsTerminal(std::FILE* stream) {
    return isatty(fileno(stream)) != 0;
}

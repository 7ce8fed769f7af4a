#include "spooler/question.h"

#include <mutex>
#include <utility>

namespace win32host {
namespace {

std::mutex g_question_lock;
std::function<DWORD(const SpoolerQuestion&)> g_refuse;
std::function<void(const SpoolerQuestion&, BYTE*, DWORD)> g_alter;

template <class Function>
Function Get(const Function& function) {
    std::lock_guard guard(g_question_lock);
    return function;
}

} // namespace

void RefuseSpoolerQuestions(std::function<DWORD(const SpoolerQuestion&)> refuse) {
    std::lock_guard guard(g_question_lock);
    g_refuse = std::move(refuse);
}

void AlterSpoolerAnswers(std::function<void(const SpoolerQuestion&, BYTE*, DWORD)> alter) {
    std::lock_guard guard(g_question_lock);
    g_alter = std::move(alter);
}

DWORD Refusal(const SpoolerQuestion& question) {
    const auto refuse = Get(g_refuse);
    return refuse ? refuse(question) : ERROR_SUCCESS;
}

void Alter(const SpoolerQuestion& question, BYTE* buffer, DWORD size) {
    if (const auto alter = Get(g_alter)) alter(question, buffer, size);
}

} // namespace win32host

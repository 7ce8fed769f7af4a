#include "host/fault_point.h"

#include <atomic>
#include <csignal>
#include <mutex>

namespace win32host {
namespace {

std::atomic<DWORD> g_kinds{0}; // those of the plan; 0 without one
std::mutex g_faults_lock;      // guards the rest
FaultPlan g_plan;
DWORD g_points = 0;

} // namespace

DWORD Fault::Happen() const {
    if (kills) std::raise(SIGKILL);
    return error;
}

Fault FaultAt(FaultKind kind) {
    if (!(g_kinds.load(std::memory_order_relaxed) & kind)) return {};
    std::lock_guard guard(g_faults_lock);
    if (!(g_plan.kinds & kind)) return {};
    ++g_points;
    const bool happens = g_plan.from_then ? g_points >= g_plan.point : g_points == g_plan.point;
    if (!happens) return {};
    return {g_plan.error ? g_plan.error : DWORD{ERROR_DISK_FULL}, g_plan.partly, g_plan.kills};
}

void PlanFault(const FaultPlan& plan) {
    std::lock_guard guard(g_faults_lock);
    g_plan = plan;
    g_points = 0;
    g_kinds.store(plan.kinds, std::memory_order_relaxed);
}

void ForgetFaults() {
    PlanFault({});
}

bool FaultHappened() {
    std::lock_guard guard(g_faults_lock);
    return g_plan.kinds != 0 && g_points >= g_plan.point;
}

DWORD FaultPoints() {
    std::lock_guard guard(g_faults_lock);
    return g_points;
}

} // namespace win32host

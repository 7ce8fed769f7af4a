// The system's default code pages and what is known of each.
#include "locale/code_page.h"
#include "locale/facts.h"

#include <algorithm>
#include <atomic>
#include <mutex>
#include <set>

namespace win32host {
namespace {

constexpr UINT kAnsi = 1252;
constexpr UINT kOem = 437;

std::atomic<UINT> g_ansi{kAnsi};
std::atomic<UINT> g_oem{kOem};

std::atomic<bool> g_any_missing{false};
std::mutex g_missing_lock;
std::set<UINT> g_missing;

bool Exists(UINT code_page) {
    if (IsMissingCodePage(code_page)) return false;
    return code_page == CP_UTF8 || FindCodePageTable(code_page) != nullptr;
}

} // namespace

void SetAnsiCodePage(UINT code_page) {
    g_ansi = code_page;
}

void SetOemCodePage(UINT code_page) {
    g_oem = code_page;
}

void SetMissingCodePages(const std::vector<UINT>& code_pages) {
    std::lock_guard guard(g_missing_lock);
    g_missing = {code_pages.begin(), code_pages.end()};
    g_any_missing = !g_missing.empty();
}

UINT ResolveCodePage(UINT code_page) {
    if (code_page == CP_ACP || code_page == CP_THREAD_ACP) return g_ansi;
    if (code_page == CP_OEMCP) return g_oem;
    return code_page;
}

bool IsMissingCodePage(UINT code_page) {
    if (!g_any_missing) return false;
    std::lock_guard guard(g_missing_lock);
    return g_missing.contains(code_page);
}

void ResetCodePages() {
    g_ansi = kAnsi;
    g_oem = kOem;
    SetMissingCodePages({});
}

} // namespace win32host

using namespace win32host;

extern "C" {

BOOL WINAPI IsValidCodePage(UINT code_page) {
    return Exists(code_page);
}

UINT WINAPI GetACP(void) {
    return ResolveCodePage(CP_ACP);
}

UINT WINAPI GetOEMCP(void) {
    return ResolveCodePage(CP_OEMCP);
}

BOOL WINAPI GetCPInfo(UINT code_page, LPCPINFO info) {
    code_page = ResolveCodePage(code_page);
    if (!info || !Exists(code_page)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    *info = {};
    info->DefaultChar[0] = '?';
    if (code_page == CP_UTF8) {
        info->MaxCharSize = 4;
        return TRUE;
    }
    const CodePageInfo& known = *FindCodePageInfo(code_page);
    info->MaxCharSize = known.IsDoubleByte() ? 2 : 1;
    std::copy(std::begin(known.lead_bytes), std::end(known.lead_bytes), info->LeadByte);
    return TRUE;
}

BOOL WINAPI IsDBCSLeadByteEx(UINT code_page, BYTE byte) {
    const CodePageInfo* info = FindCodePageInfo(ResolveCodePage(code_page));
    return info && info->IsLeadByte(byte);
}

} // extern "C"

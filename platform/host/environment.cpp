// Environment variables: the process's own, and those that Windows sets itself.
#include "host/guarded.h"
#include "host/machine.h"
#include "host/text.h"

#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>

namespace {

using namespace win32host;

// What Windows tells every process about the processor. Names are in capitals.
std::optional<std::string> SystemVariable(const std::string& name) {
    if (name == "PROCESSOR_ARCHITECTURE") return ProcessorArchitecture();
    if (name == "NUMBER_OF_PROCESSORS") return std::to_string(ProcessorCount());
    const Processor processor = FirstProcessor();
    if (name == "PROCESSOR_LEVEL") return std::to_string(processor.family);
    if (name != "PROCESSOR_REVISION") return std::nullopt;
    char text[16];
    std::snprintf(text, sizeof text, "%04x",
                  (processor.model & 0xFF) << 8 | (processor.stepping & 0xFF));
    return text;
}

std::optional<std::string> Variable(std::string name) {
    if (const char* own = std::getenv(name.c_str())) return own;
    for (char& c : name)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    return SystemVariable(name);
}

} // namespace

extern "C" DWORD WINAPI GetEnvironmentVariableW(LPCWSTR name, LPWSTR buffer, DWORD size) {
    return Guarded(DWORD{0}, [&]() -> DWORD {
        const auto value = Variable(Utf8(CopyOf(name)));
        if (!value) return static_cast<DWORD>(Fail(ERROR_ENVVAR_NOT_FOUND));
        const std::u16string text = Utf16(*value);
        const auto length = static_cast<DWORD>(text.size());
        if (!buffer || size <= length) return length + 1;
        std::memcpy(buffer, text.c_str(), (text.size() + 1) * sizeof(WCHAR));
        return length;
    });
}

// The inputs of labelhost: a DEVMODE file with a change to one of its fields, texts of settings
// files, hexadecimal bytes and numbers.
#include <cstdint>
#include <string>
#include <vector>

#include "input.h"
#include "labelhost/commands/dev_mode_fields.h"
#include "labelhost/commands/settings_text.h"
#include "labelhost/fault.h"
#include "labelhost/text.h"
#include "target.h"

namespace {

std::string Shown(const Json& fields) {
    return fields.dump(-1, ' ', false, Json::error_handler_t::replace);
}

void CheckEdit(DevModeBytes settings, const std::string& field, const std::string& value) {
    const size_t size = settings.bytes().size();
    const Json before = PublicFields(settings);
    for (const auto& [name, shown] : before.items())
        if (shown.is_number()) (void)MeaningOf(name, shown.get<int64_t>());
    Shown(ConfigurationFields(settings));
    try {
        SetField(settings, field, value);
    } catch (const Fault&) {
        return;
    }
    Check(settings.bytes().size() == size);
    int64_t number = 0;
    const Json fields = PublicFields(settings);
    if (fields.contains(field) && fields[field].is_number() && ToNumber(value, number))
        Check(fields[field].get<int64_t>() == number);
    Shown(fields);
}

} // namespace

FUZZ_TARGET(host_texts)(const uint8_t* data, size_t size) {
    Input input(data, size);
    const std::string field = input.Text(input.Number() % 32);
    const std::string value = input.Text(input.Number() % 64);
    std::vector<uint8_t> bytes = input.Take(size);
    const std::string text(bytes.begin(), bytes.end());

    const SettingsText contents(text);
    for (const SettingsKind& kind : kSettingsKinds) Check(contents.Count(kind) >= 0);
    Check(!contents.HasOptionsOf(value) || contents.HasOptions());
    std::vector<BYTE> read, again;
    if (FromHex(value, read)) Check(FromHex(ToHex(read), again) && again == read);
    try {
        CheckEdit(DevModeBytes(bytes, "input"), field, value);
    } catch (const Fault&) {
    }
    return 0;
}

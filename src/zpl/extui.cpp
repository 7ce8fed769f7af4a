#include "zpl/extui.h"
#include "zpl/extconfig.h"

#include "core/memory.h"
#include "locale/text_numbers.h"

// The framework knows that there is a UI object, but not of which printer language.
prtui* prtui::new_ext() {
    return new (kCounted) extui;
}

extui::~extui() = default;

void extui::InitEx() {
    prtui::InitEx();
    stream = &stream_;
    stream->init(this);
}

void extui::Settle(DevMode& settings) const {
    prtui::Settle(settings);
    extconfig* const config = extconfig::get_cfg(settings.GetDevMode());
    if (!config) return;
    config->Validate(model.get());
    config->SettlePrintMode();
}

OString extui::MemoryName(const OString& letter) const {
    constexpr struct {
        char letter;
        TextNumber text;
    } kNames[] = {
        {'R', TEXT_MEMORY_R}, {'E', TEXT_MEMORY_E}, {'B', TEXT_MEMORY_B}, {'A', TEXT_MEMORY_A}};
    for (const auto& known : kNames) {
        if (known.letter != *letter.nstring()) continue;
        const OString name = locale.GetString(known.text);
        return name.IsEmpty() ? letter : name;
    }
    return letter;
}

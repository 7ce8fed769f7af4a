// Any text as a script for property sheets. Each act is of its form, or the line is named.
#include <string>

#include "input.h"
#include "labelhost/fault.h"
#include "labelhost/sheet/script.h"
#include "target.h"

FUZZ_TARGET(sheet_script)(const uint8_t* data, size_t size) {
    const std::string script(reinterpret_cast<const char*>(data), size);
    try {
        int line = 0;
        for (const Act& act : ParseScript(script)) {
            Check(act.line > line);
            line = act.line;
            Check(act.id >= 0);
            const bool one_item = act.kind == ActKind::Page || act.kind == ActKind::Choose ||
                                  act.kind == ActKind::Double || act.kind == ActKind::Column;
            Check(!one_item || act.items.size() == 1);
            Check(act.kind != ActKind::Column || act.items[0].position >= 0);
            Check(act.kind != ActKind::Key || VirtualKey(act.text) != 0);
            Check(act.kind != ActKind::Answer || AnswerName(AnswerId(act.text)) == act.text);
            Check(act.kind != ActKind::Font || act.points > 0);
        }
    } catch (const UsageFault& fault) {
        Check(std::string(fault.what()).starts_with("line "));
    }
    return 0;
}

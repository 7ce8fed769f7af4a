// Checks language libraries: usage: language_check HINTS NUMBERS ORIGINAL TRANSLATION ...
#include <cstdio>
#include <exception>

#include "comparison.h"
#include "dialog_check.h"

namespace {

constexpr size_t kLongestText = 511; // the module reads no more

int Check(int count, char** arguments) {
    const auto hints = ReadHints(arguments[1]);
    std::vector<Library> libraries;
    const auto numbers = ReadTextNumbers(arguments[2]);
    for (int i = 3; i < count; ++i) libraries.push_back(ReadLibrary(arguments[i]));

    Faults faults;
    for (const auto& [name, of_dialog] : hints.dialogs)
        if (!libraries[0].dialogs.contains(name)) faults.Add(Utf8(name), "hints for no dialog");
    for (uint32_t number : numbers)
        if (!libraries[0].texts.contains(number) && !hints.optional_texts.contains(number))
            faults.Add(libraries[0].file + ": text " + std::to_string(number), "is missing");
    for (const Library& library : libraries) {
        for (const auto& [name, dialog] : library.dialogs) {
            const auto of_dialog = hints.dialogs.find(name);
            CheckDialog(library, name,
                        of_dialog == hints.dialogs.end() ? DialogHints() : of_dialog->second,
                        faults);
        }
        for (const auto& [number, text] : library.texts)
            if (text.size() > kLongestText)
                faults.Add(library.file + ": text " + std::to_string(number), "is too long");
        if (&library != &libraries[0]) Compare(libraries[0], library, faults);
    }
    for (const std::string& line : faults.Lines())
        std::fprintf(stderr, "check-languages: %s\n", line.c_str());
    if (!faults.Lines().empty()) return 1;
    for (const Library& library : libraries)
        std::printf("check-languages: %s is sound: %zu dialogs, %zu texts\n", library.file.c_str(),
                    library.dialogs.size(), library.texts.size());
    return 0;
}

} // namespace

int main(int count, char** arguments) {
    if (count < 4) {
        std::fprintf(stderr, "usage: %s HINTS NUMBERS ORIGINAL TRANSLATION ...\n", arguments[0]);
        return 2;
    }
    try {
        return Check(count, arguments);
    } catch (const std::exception& fault) {
        std::fprintf(stderr, "check-languages: %s\n", fault.what());
        return 2;
    }
}

#include "comparison.h"

#include "texts.h"

namespace {

using win32host::DialogItem;
using win32host::DialogTemplate;
using win32host::MenuItem;

class Comparison {
public:
    Comparison(const Library& original, const Library& translation, Faults& faults)
        : original_(original)
        , translation_(translation)
        , faults_(faults) {}

    void Run() {
        Match(original_.dialogs, translation_.dialogs,
              [this](const std::string& where, const auto& one, const auto& other) {
                  CompareDialogs(where, one, other);
              });
        Match(original_.menus, translation_.menus,
              [this](const std::string& where, const auto& one, const auto& other) {
                  CompareMenus(where, one, other);
              });
        Match(original_.texts, translation_.texts,
              [this](const std::string& where, const auto& one, const auto& other) {
                  CompareTexts(where, one, other);
              });
        if (original_.bitmaps != translation_.bitmaps)
            faults_.Add(translation_.file, "has other bitmaps than " + original_.file);
    }

private:
    static std::string Name(uint32_t number) { return "text " + std::to_string(number); }
    static std::string Name(const std::u16string& name) { return Utf8(name); }

    template <class Map, class Function>
    void Match(const Map& originals, const Map& translations, Function compare) {
        for (const auto& [key, value] : originals) {
            const std::string where = translation_.file + ": " + Name(key);
            const auto other = translations.find(key);
            if (other == translations.end())
                faults_.Add(where, "is missing");
            else
                compare(where, value, other->second);
        }
        for (const auto& [key, value] : translations)
            if (!originals.contains(key))
                faults_.Add(original_.file + ": " + Name(key), "is missing");
    }

    void CompareDialogs(const std::string& where, const DialogTemplate& one,
                        const DialogTemplate& other) {
        CompareTexts(where, one.title, other.title);
        if (one.style != other.style || one.width != other.width || one.height != other.height ||
            one.face != other.face || one.points != other.points)
            faults_.Add(where, "has another size, style or font");
        if (one.items.size() != other.items.size()) {
            faults_.Add(where, "has another number of controls");
            return;
        }
        for (size_t i = 0; i < one.items.size(); ++i) {
            const DialogItem &item = one.items[i], &translated = other.items[i];
            const std::string at = where + ": control " + std::to_string(i) + ", " +
                                   std::to_string(static_cast<int16_t>(item.id));
            if (item.id != translated.id || item.style != translated.style ||
                item.extended_style != translated.extended_style ||
                item.window_class.number != translated.window_class.number ||
                item.window_class.text != translated.window_class.text)
                faults_.Add(at, "has another identifier, class or style");
            CompareTexts(at, item.title.text, translated.title.text);
        }
    }

    void CompareMenus(const std::string& where, const std::vector<MenuItem>& one,
                      const std::vector<MenuItem>& other) {
        if (one.size() != other.size()) {
            faults_.Add(where, "has another number of items");
            return;
        }
        for (size_t i = 0; i < one.size(); ++i) {
            const std::string at = where + ": item " + std::to_string(i);
            if (one[i].id != other[i].id || one[i].is_popup != other[i].is_popup)
                faults_.Add(at, "is another command");
            CompareTexts(at, one[i].text, other[i].text);
            CompareMenus(at, one[i].items, other[i].items);
        }
    }

    void CompareTexts(const std::string& where, const std::u16string& one,
                      const std::u16string& other) {
        if (one.empty() != other.empty()) faults_.Add(where, "one of the texts is empty");
        if (Placeholders(one) != Placeholders(other)) Differ(where, "placeholders", one, other);
        if ((AccessKey(one) != 0) != (AccessKey(other) != 0))
            Differ(where, "access keys", one, other);
        for (const char16_t* end : {u"...", u":"})
            if (one.ends_with(end) != other.ends_with(end)) Differ(where, "ends", one, other);
    }

    void Differ(const std::string& where, const std::string& what, const std::u16string& one,
                const std::u16string& other) {
        faults_.Add(where, "other " + what + ": \"" + Utf8(one) + "\" and \"" + Utf8(other) + "\"");
    }

    const Library& original_;
    const Library& translation_;
    Faults& faults_;
};

} // namespace

void Compare(const Library& original, const Library& translation, Faults& faults) {
    Comparison(original, translation, faults).Run();
}

#include "locale/system_texts.h"

#include <windows.h>

namespace win32host {
namespace {

constexpr struct {
    std::u16string_view english, german;
} kTexts[] = {
    // Buttons.
    {u"Cancel", u"Abbrechen"},
    {u"&Apply", u"Ü&bernehmen"},
    {u"Help", u"Hilfe"},
    {u"&Help", u"&Hilfe"},
    {u"&Yes", u"&Ja"},
    {u"&No", u"&Nein"},
    {u"&Abort", u"&Abbrechen"},
    {u"&Retry", u"&Wiederholen"},
    {u"&Ignore", u"&Ignorieren"},
    {u"&Open", u"Ö&ffnen"},
    {u"&Save", u"&Speichern"},
    // Titles.
    {u"Error", u"Fehler"},
    {u"Browse for Folder", u"Ordner suchen"},
    {u"Font", u"Schriftart"},
    {u"Properties for ", u"Eigenschaften von "},
    // Files and folders.
    {u"Look &in:", u"&Suchen in:"},
    {u"Save &in:", u"Speichern &in:"},
    {u"File &name:", u"Datei&name:"},
    {u"Files of &type:", u"Datei&typ:"},
    {u"Save as &type:", u"Datei&typ:"},
    {u"Open as &read-only", u"Sch&reibgeschützt öffnen"},
    {u"Folder not found.", u"Der Ordner wurde nicht gefunden."},
    {u"The file name is not valid.", u"Der Dateiname ist nicht gültig."},
    {u"All files must be in one folder.", u"Alle Dateien müssen in einem Ordner liegen."},
    {u"Path does not exist.\nCheck the path and try again.",
     u"Der Pfad ist nicht vorhanden.\nPrüfen Sie den Pfad, und versuchen Sie es erneut."},
    {u"File not found.\nCheck the file name and try again.",
     u"Die Datei wurde nicht gefunden.\nPrüfen Sie den Namen, und versuchen Sie es erneut."},
    {u" already exists.\nDo you want to replace it?", u" ist bereits vorhanden.\nDatei ersetzen?"},
    // Fonts.
    {u"&Font:", u"&Schriftart:"},
    {u"Font st&yle:", u"Schrifts&chnitt:"},
    {u"&Size:", u"Schrift&grad:"},
    {u"Sample", u"Muster"},
    {u"Sc&ript:", u"S&kript:"},
    {u"Regular", u"Normal"},
    {u"Italic", u"Kursiv"},
    {u"Bold", u"Fett"},
    {u"Bold Italic", u"Fett Kursiv"},
    {u"Western", u"Westlich"},
    {u"Central European", u"Mitteleuropäisch"},
    {u"Cyrillic", u"Kyrillisch"},
    {u"Greek", u"Griechisch"},
    {u"Turkish", u"Türkisch"},
    {u"Hebrew", u"Hebräisch"},
    {u"Arabic", u"Arabisch"},
    {u"Baltic", u"Baltisch"},
    {u"Vietnamese", u"Vietnamesisch"},
    {u"Thai", u"Thailändisch"},
    {u"Japanese", u"Japanisch"},
    {u"There is no font with that name.\nChoose a font from the list of fonts.",
     u"Es gibt keine Schriftart dieses Namens.\nWählen Sie eine aus der Liste."},
    {u"There is no font with that style.\nChoose a style from the list of styles.",
     u"Es gibt diesen Schriftschnitt nicht.\nWählen Sie einen aus der Liste."},
    {u"Size must be a number.", u"Der Schriftgrad muss eine Zahl sein."},
    {u"Size must be between ", u"Der Schriftgrad muss zwischen "},
    {u" and ", u" und "},
    {u" points.", u" Punkt liegen."},
};

} // namespace

std::u16string SystemText(std::u16string_view english) {
    if (PRIMARYLANGID(GetUserDefaultLangID()) == LANG_GERMAN)
        for (const auto& text : kTexts)
            if (text.english == english) return std::u16string(text.german);
    return std::u16string(english);
}

} // namespace win32host

// The editor of bar code fonts: what its lists offer, and what choices store.
#include <windows.h>

#include <commctrl.h>
#include <prsht.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sstream>

#include "model/symbology_info.h"
#include "pages/fonts/pp_bar_font_edit.h"
#include "support/build_folders.h"
#include "support/job_test.h"
#include "ui/uwindow.h"

namespace {

// The parts of the lines in data/bar_code_editor.txt that begin with a word.
std::vector<std::vector<std::string>> Rows(const std::string& word) {
    std::ifstream file(Sources("/tests/pages/data/bar_code_editor.txt"));
    std::vector<std::vector<std::string>> rows;
    for (std::string line; std::getline(file, line);) {
        if (line.rfind(word + " ", 0) != 0) continue;
        std::istringstream parts(line.substr(word.size() + 1));
        std::vector<std::string>& row = rows.emplace_back();
        for (std::string part; std::getline(parts, part, ';');)
            row.push_back(row.empty() || part.empty() ? part : part.substr(1));
    }
    EXPECT_FALSE(rows.empty());
    return rows;
}

std::vector<std::string> Words(const std::string& text) {
    std::istringstream stream(text);
    return {std::istream_iterator<std::string>(stream), {}};
}

class BarCodeEditor : public JobTest {
protected:
    ~BarCodeEditor() override { Close(); }

    // The table of the bar codes, of the symbologies with all options, with few, or of none.
    static std::string Table(size_t offer) {
        std::string table;
        for (int number = 0; offer < 2 && number <= SymbologyInfo::TELEPEN; ++number) {
            const std::string name = Text(SymbologyInfo(number).GetName());
            table += name + "=yes\n";
            for (const auto& model : Rows("model"))
                if (std::stoi(model[0]) == number)
                    for (const std::string& property : Words(model[offer + 1]))
                        table += name + "." + property + "\n";
        }
        return table;
    }

    void Load(size_t offer) {
        Close();
        const ModelTables tables = {.model = "Resolution=203\n", .barcode = Table(offer)};
        if (ui_) {
            Replace(tables);
        } else {
            NeedRenderingModule();
            Install(tables);
            InstallLanguage();
        }
        ui_ = OpenUI();
    }

    void Open(DataFont_BarCode& font) {
        Close();
        ui_->locale.SetNewUnits(prtlocale::MILLIMETRES);
        ui_->edit_data_font = &font;
        PROPSHEETPAGEW record = {};
        record.lParam = reinterpret_cast<LPARAM>(ui_.get());
        dialog_ = CreateDialogIndirectParamW(
            GetModuleHandleW(nullptr),
            static_cast<LPCDLGTEMPLATEW>(ui_->locale.GetDialog("*:FONTS/^BARCODE", nullptr)),
            nullptr, ppBarFontEdit::WinProc, reinterpret_cast<LPARAM>(&record));
        ASSERT_TRUE(dialog_);
    }

    void Close() {
        if (dialog_) DestroyWindow(dialog_);
        dialog_ = nullptr;
    }

    // The page with the options of the symbology.
    HWND Options() const {
        return FindWindowExW(dialog_, nullptr, MAKEINTRESOURCEW(32770), nullptr);
    }
    HWND Item(int id) const {
        const HWND item = GetDlgItem(dialog_, id);
        return item ? item : GetDlgItem(Options(), id);
    }

    // A control as the table has it.
    std::string Shown(int id) const {
        const HWND item = Item(id);
        if (!item) return "missing";
        std::string told = IsWindowEnabled(item) ? "+" : "-";
        if (!(GetWindowLongPtrW(item, GWL_STYLE) & WS_VISIBLE)) told = "^";
        if (SendMessageW(item, WM_GETDLGCODE, 0, 0) & DLGC_BUTTON)
            return told + (SendMessageW(item, BM_GETCHECK, 0, 0) == BST_CHECKED ? "[x]" : "[ ]");
        const auto count = static_cast<int>(SendMessageW(item, CB_GETCOUNT, 0, 0));
        const LRESULT selected = SendMessageW(item, CB_GETCURSEL, 0, 0);
        std::vector<std::string> texts;
        for (int i = 0; i < count; ++i) {
            WCHAR text[80] = {};
            SendMessageW(item, CB_GETLBTEXT, static_cast<WPARAM>(i),
                         reinterpret_cast<LPARAM>(text));
            texts.push_back(Text(OString(text)) + (i == selected ? "*" : ""));
        }
        for (size_t i = 0; i < texts.size(); ++i) {
            size_t last = i;
            while (last + 1 < texts.size() && IsNext(texts[last], texts[last + 1])) ++last;
            told += (i ? "|" : "") + texts[i];
            if (last - i < 2) continue;
            told += ".." + texts[last];
            i = last;
        }
        return told;
    }
    // "7 X" after "6 X".
    static bool IsNext(const std::string& before, const std::string& text) {
        const auto end = [](const std::string& item) {
            return std::min(item.find_first_not_of("0123456789"), item.size());
        };
        return end(before) && end(text) && std::stoi(text) == std::stoi(before) + 1 &&
               text.substr(end(text)) == before.substr(end(before));
    }

    void Act(const std::string& act) const {
        const size_t end = act.find_first_of("#:");
        const HWND item = Item(std::stoi(act));
        ASSERT_TRUE(item) << act;
        if (end == act.npos) {
            SendMessageW(item, BM_CLICK, 0, 0);
            return;
        }
        if (act[end] == ':') {
            SetWindowTextW(item, OString((act.substr(end + 1) + " mm").c_str()).wstring());
            return;
        }
        if (!IsWindowEnabled(item)) return;
        SendMessageW(item, CB_SETCURSEL, std::stoul(act.substr(end + 1)), 0);
        SendMessageW(GetParent(item), WM_COMMAND, MAKEWPARAM(std::stoi(act), CBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(item));
    }

    std::unique_ptr<prtui> ui_;
    HWND dialog_ = nullptr;
};

// A new font of a symbology.
DataFont_BarCode FontOf(int symbology) {
    DataFont_BarCode font;
    font.init(203);
    font.SetFontName("Sample");
    font.change_symbology(symbology);
    return font;
}

} // namespace

TEST_F(BarCodeEditor, OffersWhatThePrinterCanDo) {
    const auto rows = Rows("shows");
    for (size_t offer = 0; offer < 3; ++offer) {
        Load(offer);
        for (const auto& row : rows) {
            size_t column = offer;
            while (row[column + 1] == "=") --column;
            DataFont_BarCode font = FontOf(std::stoi(row[0]));
            Open(font);
            EXPECT_EQ(Shown(std::stoi(Words(row[0])[1])), row[column + 1])
                << row[0] << ", printer " << offer;
        }
        EXPECT_EQ(SendMessageW(Item(832), CB_GETCOUNT, 0, 0), offer < 2 ? 35 : 0);
        EXPECT_EQ(SendMessageW(Item(834), CB_GETCOUNT, 0, 0), 12);
    }
}

TEST_F(BarCodeEditor, StoresWhatIsChosen) {
    size_t printer = SIZE_MAX;
    for (const auto& row : Rows("acts")) {
        if (const size_t wanted = std::stoul(row[0]); wanted != printer) Load(printer = wanted);
        DataFont_BarCode font = FontOf(std::stoi(Words(row[0])[1]));
        Open(font);
        for (const std::string& act : Words(row[1])) Act(act);
        SendMessageW(dialog_, WM_COMMAND, IDOK, 0);
        for (const std::string& field : Words(row[2])) {
            const int offset = std::stoi(field);
            EXPECT_EQ(std::to_string(offset) + "=" + std::to_string(font.GetField(offset)), field)
                << row[0] << ": " << row[1];
        }
    }
}

TEST_F(BarCodeEditor, KeepsItsPlaceForTheOptionsOfOneSymbology) {
    Load(0);
    DataFont_BarCode font = FontOf(SymbologyInfo::CODE39);
    ui_->restricted = true;
    Open(font);
    EXPECT_FALSE(IsWindowEnabled(GetDlgItem(Options(), 2008)));
    const HWND before = Options();
    Act("832#0");
    EXPECT_TRUE(Options() && !IsWindow(before));
    EXPECT_EQ(FindWindowExW(dialog_, Options(), MAKEINTRESOURCEW(32770), nullptr), nullptr);
    EXPECT_EQ(Text(TextOfWindow(Options())), "Options of Australia Post");
    RECT place = {}, page = {};
    GetWindowRect(GetDlgItem(dialog_, 395), &place);
    GetWindowRect(Options(), &page);
    EXPECT_TRUE(place.left == page.left && place.top == page.top);
}

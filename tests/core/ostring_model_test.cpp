// Random edits of strings, compared with a plain string of UTF-16 units after each.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "core/ostring.h"
#include "core/text.h"

namespace {

class Editor {
public:
    // `letters` exist in the code page.
    Editor(uint32_t code_page, const WideText& letters, unsigned seed)
        : code_page_(code_page)
        , letters_(letters)
        , random_(seed) {}

    void Run(int edits) {
        std::vector<OString> copies;
        std::vector<WideText> copied_models;
        for (int i = 0; i < edits && !::testing::Test::HasFailure(); ++i) {
            // An empty string takes the code page of what is appended.
            text_.SetCodePage(code_page_);
            if (Number(4) == 0) {
                copies.push_back(text_);
                copied_models.push_back(model_);
                if (copies.size() > 8) {
                    copies.erase(copies.begin());
                    copied_models.erase(copied_models.begin());
                }
            }
            if (Number(3) == 0) text_.nstring();
            if (Number(3) == 0) text_.wstring();
            Edit();
            Check(text_, model_);
            for (size_t copy = 0; copy < copies.size(); ++copy)
                Check(copies[copy], copied_models[copy]);
        }
    }

private:
    int Number(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random_); }

    WideText Text(int limit) {
        WideText text;
        for (int left = Number(limit); left > 0; --left)
            text.push_back(
                letters_[static_cast<size_t>(Number(static_cast<int>(letters_.size())))]);
        return text;
    }

    OString Make(const WideText& text) const {
        OString string;
        string.SetCodePage(code_page_);
        string = text.c_str();
        return string;
    }

    void Edit() {
        const int length = static_cast<int>(model_.size());
        const int pos = Number(length + 1);
        const size_t at = static_cast<size_t>(pos);
        switch (Number(12)) {
        case 0:
            text_ << '7';
            model_.push_back('7');
            break;
        case 1: {
            const WideText added = Text(60);
            OString other = Make(added);
            if (Number(2)) {
                // In 8-bit form only.
                const std::string bytes = other.nstring();
                other = bytes.c_str();
            }
            text_ << other;
            model_ += added;
            break;
        }
        case 2: {
            const WideText added = Text(20);
            text_.Insert(pos, added.c_str(), static_cast<int>(added.size()));
            model_.insert(at, added);
            break;
        }
        case 3: {
            // With the 16-bit form, positions count its units.
            text_.wstring();
            const int count = Number(10);
            text_.Delete(pos, count);
            model_.erase(at, static_cast<size_t>(count));
            break;
        }
        case 4: {
            text_.wstring();
            const int count = Number(60);
            text_ = text_.Mid(pos, count);
            model_ = model_.substr(at, static_cast<size_t>(count));
            break;
        }
        case 5:
            ReplaceInModel('7', Widen("<12>"));
            text_.Replace("7", "<12>");
            break;
        case 6:
            ReplaceInModel('1', {});
            text_.Remove('1');
            break;
        case 7:
            std::replace(model_.begin(), model_.end(), WCHAR{'2'}, WCHAR{'3'});
            text_.Replace('2', '3');
            break;
        case 8:
            for (WCHAR& unit : model_)
                if (unit >= 'a' && unit <= 'z') unit = static_cast<WCHAR>(unit - 'a' + 'A');
            text_.MakeUpper();
            break;
        case 9:
            model_.erase(model_.find_last_not_of(Widen("<12>")) + 1);
            text_.TrimRight("<12>");
            break;
        case 10: {
            const WideText other = Text(40);
            text_ = other.c_str();
            model_ = other;
            break;
        }
        default:
            text_ << text_;
            model_ += model_;
            if (model_.size() > 3000) {
                text_.wstring();
                text_.Truncate(100);
                model_.resize(100);
            }
        }
    }

    void ReplaceInModel(WCHAR from, const WideText& to) {
        WideText result;
        for (WCHAR unit : model_) {
            if (unit == from)
                result += to;
            else
                result.push_back(unit);
        }
        model_ = result;
    }

    void Check(const OString& text, const WideText& model) {
        const OString copy(text); // uses both forms, in either order
        if (Number(2)) {
            ASSERT_EQ(WideText(copy.wstring()), model);
            ASSERT_EQ(copy.GetLength(), static_cast<int>(model.size()));
        }
        ASSERT_STREQ(copy.nstring(), Make(model).nstring());
        ASSERT_EQ(copy.nlen(), static_cast<int>(std::strlen(copy.nstring())));
    }

    uint32_t code_page_;
    WideText letters_;
    std::mt19937 random_;
    OString text_;
    WideText model_;
};

TEST(StringModel, IsMatchedByRandomEditsInEveryKindOfCodePage) {
    const std::pair<uint32_t, WideText> cases[] = {
        {0, Widen("ab71x2z ")},
        {1252, Widen("ab71\xE9\xFC<2z ")},
        {1208, Widen("ab7\xE9") + WideText{0x20AC, 0x0416, 0xFFFD, 0xD83D, 0xDE00}},
        {932, Widen("ab71z") + WideText{0x30A2, 0x30BD, 0x65E5, 0xFF71}},
        {65001, Widen("ab7\xE9") + WideText{0x20AC, 0x0416, 0x65E5}}};
    for (const auto& [code_page, letters] : cases) {
        for (unsigned seed = 1; seed <= 3; ++seed) {
            SCOPED_TRACE(testing::Message() << "code page " << code_page << ", seed " << seed);
            Editor(code_page, letters, seed).Run(1500);
        }
    }
}

} // namespace

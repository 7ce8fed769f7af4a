#include "platform/error_of.h"
#include "support/build_folders.h"
#include "support/host_test.h"

#include <windows.h>

#include <filesystem>
#include <string>
#include <vector>

namespace {

std::u16string TextAt(HMENU menu, UINT item, UINT flags = MF_BYPOSITION) {
    WCHAR text[50];
    return std::u16string(text, static_cast<size_t>(GetMenuStringW(menu, item, text, 50, flags)));
}

class ModulesMenu : public HostTest {
protected:
    ModulesMenu() {
        std::filesystem::copy_file(Built("/bin/test_data/sample.dll"), OnDriveC("sample.dll"));
        module = LoadLibraryW(u"C:\\sample.dll");
    }
    ~ModulesMenu() override { FreeLibrary(module); }

    HMENU Load(WORD id) const {
        const HRSRC resource = FindResourceW(module, MAKEINTRESOURCEW(id), RT_MENU);
        return LoadMenuIndirectW(LockResource(LoadResource(module, resource)));
    }

    HMODULE module;
};

TEST_F(ModulesMenu, AreMadeFromStandardTemplates) {
    const HMENU menu = Load(200);
    ASSERT_EQ(GetMenuItemCount(menu), 2);
    EXPECT_EQ(TextAt(menu, 0), u"&File");
    EXPECT_EQ(GetMenuItemID(menu, 0), 0xFFFFFFFF);
    EXPECT_EQ(GetMenuItemID(menu, 1), 1003u);
    EXPECT_EQ(GetSubMenu(menu, 1), nullptr);
    const HMENU file = GetSubMenu(menu, 0);
    ASSERT_EQ(GetMenuItemCount(file), 3);
    EXPECT_EQ(GetMenuItemID(file, 1), 0u); // separator
    EXPECT_EQ(TextAt(GetSubMenu(file, 2), 0), u"Nothing");
    EXPECT_EQ(TextAt(menu, 1002, MF_BYCOMMAND), u"Nothing");
    EXPECT_EQ(TextAt(menu, 7), u"");
    EXPECT_TRUE(DestroyMenu(menu));
    EXPECT_EQ(GetMenuItemCount(file), -1) << "what is below goes with it";
    EXPECT_FALSE(DestroyMenu(menu));
}

TEST_F(ModulesMenu, AreMadeFromExtendedTemplates) {
    const HMENU menu = Load(201);
    ASSERT_EQ(GetMenuItemCount(menu), 2);
    EXPECT_EQ(TextAt(menu, 1), u"About");
    const HMENU edit = GetSubMenu(menu, 0);
    ASSERT_EQ(GetMenuItemCount(edit), 2);
    EXPECT_EQ(GetMenuItemID(edit, 0), 70001u);
    EXPECT_EQ(TextAt(menu, 2002, MF_BYCOMMAND), u"Gr\u00F6\u00DFer");
    WCHAR text[4];
    EXPECT_EQ(GetMenuStringW(menu, 1, text, 4, MF_BYPOSITION), 3);
    EXPECT_EQ(std::u16string(text), u"Abo");
    EXPECT_EQ(GetMenuStringW(menu, 1, nullptr, 0, MF_BYPOSITION), 5);
    DestroyMenu(menu);
}

TEST_F(ModulesMenu, AreRefusedWhenTheTemplateNeverEnds) {
    // A popup inside a popup for as long as there are bytes.
    std::vector<WORD> nested(0x8000, 0);
    for (size_t i = 2; i < nested.size(); i += 2) nested[i] = 0x0010;
    EXPECT_EQ(LoadMenuIndirectW(nested.data()), nullptr);
    const WORD version_two[] = {2, 0, 0x0080, 1, 0};
    EXPECT_EQ(ErrorOf(LoadMenuIndirectW(version_two)), ERROR_INVALID_DATA);
}

} // namespace

#include "core/replaced_file.h"

#include <filesystem>

#include "support/host_test.h"

namespace {

class ReplacedFiles : public HostTest {
protected:
    ReplacedFiles() { WriteFile("lists\\list.txt", "old"); }

    static bool Replace(const OString& name, const char* text) {
        ReplacedFile file(name);
        file.GetFile() << text;
        return file.Commit();
    }
    // The number of files in the folder, and the contents of the first.
    std::string Folder() const {
        int count = 0;
        for ([[maybe_unused]] const auto& entry :
             std::filesystem::directory_iterator(OnDriveC("lists")))
            ++count;
        return std::to_string(count) + " " + BytesOf(OnDriveC("lists\\list.txt"));
    }
};

} // namespace

TEST_F(ReplacedFiles, TakeTheirPlaceOnlyWhenTheyAreWhole) {
    const OString name("C:\\lists\\list.txt");
    {
        ReplacedFile file(name);
        file.GetFile() << "half";
        file.GetFile().Flush();
        EXPECT_EQ(Folder(), "2 old");
    }
    EXPECT_EQ(Folder(), "1 old");
    {
        ReplacedFile file(name);
        file.GetFile().Open(name, OFILE_READ); // takes nothing
        file.GetFile() << "lost";
        EXPECT_FALSE(file.Commit());
    }
    EXPECT_EQ(Folder(), "1 old");
    EXPECT_TRUE(Replace(name, "new"));
    EXPECT_EQ(Folder(), "1 new");
    EXPECT_TRUE(Replace(OString(TEXT("C:\\lists\\\u0416.txt")), "beside it"));
    EXPECT_TRUE(OFile::Exists(OString(TEXT("C:\\lists\\\u0416.txt"))));
}

TEST_F(ReplacedFiles, LeaveNothingWhereThereIsNoPlace) {
    std::filesystem::create_directory(OnDriveC("lists\\folder"));
    for (const char* name : {"C:\\lists\\folder", "C:\\lists\\", "C:\\no folder\\list.txt", ""})
        EXPECT_FALSE(Replace(name, "new")) << name;
    EXPECT_EQ(Folder(), "2 old");
}

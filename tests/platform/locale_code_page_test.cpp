#include "platform/error_of.h"
#include "support/code_page_text.h"
#include "support/host_test.h"

#include <win32host/control.h>
#include <windows.h>

#include <string>
#include <thread>
#include <vector>

namespace {

class CodePages : public HostTest {};
class CodePagesThreads : public HostTest {};

TEST_F(CodePages, TheAnsiCodePageCanBeSet) {
    EXPECT_EQ(Decode(CP_OEMCP, "\x81"), u"ü");
    win32host::SetAnsiCodePage(932);
    EXPECT_EQ(GetACP(), 932u);
    EXPECT_EQ(Decode(CP_ACP, "\x93\xFA"), u"日");
}

TEST_F(CodePages, TheSystemKnowsSomeAndATestCanTakeThemAway) {
    for (UINT code_page : {874, 932, 936, 949, 950, 1250, 1258, 1361, 65001, 20127})
        EXPECT_TRUE(IsValidCodePage(code_page)) << code_page;
    for (UINT code_page : {0, 1, 1208, 1249, 99999}) EXPECT_FALSE(IsValidCodePage(code_page));
    win32host::SetMissingCodePages({932});
    EXPECT_FALSE(IsValidCodePage(932));
    EXPECT_EQ(Decode(932, "a"), u"");
    EXPECT_TRUE(IsValidCodePage(936));
}

TEST_F(CodePagesThreads, BuildATableOnceForAll) {
    std::vector<std::thread> threads;
    std::vector<int> answers(4);
    for (int& answer : answers)
        threads.emplace_back([&answer] {
            for (UINT code_page : {1361, 950, 949, 936, 932, 874})
                answer += static_cast<int>(Encode(code_page, u"aé").size());
        });
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(answers, std::vector<int>(4, answers[0]));
}

} // namespace

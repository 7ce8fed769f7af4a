#include "support/host_test.h"

#include <win32host/control.h>
#include <windows.h>

#include <string>

namespace {

using MessageBoxes = HostTest;

TEST_F(MessageBoxes, AreAnsweredWithCareByThemselvesAndAsSetOtherwise) {
    EXPECT_EQ(MessageBoxW(nullptr, u"t", u"c", MB_OK | MB_ICONERROR), IDOK);
    EXPECT_EQ(MessageBoxW(nullptr, u"t", u"c", MB_OKCANCEL), IDCANCEL);
    EXPECT_EQ(MessageBoxW(nullptr, u"t", u"c", MB_YESNO), IDNO);
    EXPECT_EQ(win32host::TakeMessageBoxes().size(), 3u);
    win32host::AnswerMessageBoxes(IDYES);
    EXPECT_EQ(MessageBoxW(nullptr, u"Really?", u"Title", MB_YESNO), IDYES);
    const auto shown = win32host::TakeMessageBoxes();
    ASSERT_EQ(shown.size(), 1u);
    EXPECT_EQ(shown[0].text + u"|" + shown[0].caption, u"Really?|Title");
    EXPECT_EQ(shown[0].type, UINT{MB_YESNO});
}

} // namespace

#include "keys/network_policy.h"

#include <utility>

#include <win32host/clock_control.h>
#include <win32host/control.h>

#include "keys/prtreg.h"
#include "keys/user_info.h"
#include "spooler/platform_flags.h"
#include "support/printer_test.h"

namespace {

using win32host::Group;

win32host::UserFacts User(std::vector<Group> groups) {
    return {TEXT("ann"), TEXT("SALES"), TEXT("DESK7"), std::move(groups)};
}

Group Builtin(const WCHAR* name, DWORD rid) {
    return {Group::Builtin, name, TEXT(""), rid};
}

using CurrentUser = PrinterTest;

class NetworkSharing : public PrinterTest {
protected:
    void AddLocal(DWORD attributes) {
        ASSERT_TRUE(AddDriver("Model 1", "zplqv.ddt"));
        ASSERT_TRUE(AddPrinter("Dock3", "Model 1", attributes));
    }
};

using AccessLevels = NetworkSharing;

const char Remote[] = "\\\\SRV1\\Dock3";

} // namespace

TEST_F(CurrentUser, HasTheLevelOfHisMightiestGroup) {
    const Group admins = Builtin(TEXT("Administrators"), 544);
    const Group power = Builtin(TEXT("Power Users"), 547);
    const Group users = Builtin(TEXT("Users"), 545);
    const Group guests = Builtin(TEXT("Guests"), 546);
    const Group other = {Group::Alias, TEXT("Packers"), TEXT(""), 1005};
    const std::pair<std::vector<Group>, int> cases[] = {
        {{guests, users, admins}, 3}, {{power, users}, 2}, {{users, power}, 2}, {{other, users}, 1},
        {{guests, users}, 1},         {{guests}, 0},       {{other}, 0},        {{}, 0}};
    for (const auto& [groups, level] : cases) {
        win32host::SetUser(User(groups));
        EXPECT_EQ(UserInfo().GetLevel(), level);
    }
}

TEST_F(CurrentUser, HasHisLocalGroupsListedFirst) {
    win32host::SetUser(User({{Group::DomainGroup, TEXT("Clerks"), TEXT("SALES"), 1200},
                             Builtin(TEXT("Users"), 545),
                             {Group::Alias, TEXT("Packers"), TEXT(""), 1005}}));
    const UserInfo user;
    EXPECT_EQ(user.GetUser() + user.GetDomain() + user.GetComputer(), "annSALESDESK7");
    const char* const groups[] = {"DESK7\\Users", "DESK7\\Packers", "SALES\\Clerks"};
    ASSERT_EQ(user.GetGroups().GetSize(), 3);
    for (int i = 0; i < 3; ++i) EXPECT_STREQ(user.GetGroups()[i].nstring(), groups[i]);
}

TEST_F(NetworkSharing, OfALocalPrinterNeedsTheSwitchAndABidirectionalPort) {
    AddLocal(PRINTER_ATTRIBUTE_ENABLE_BIDI);
    ASSERT_TRUE(AddPrinter("One way", "Model 1"));
    for (const bool bidirectional : {false, true}) {
        const OString name = bidirectional ? "Dock3" : "One way";
        NetworkPolicy policy(name);
        EXPECT_EQ(policy.CanShareNetwork(), bidirectional);
        EXPECT_EQ(policy.IsNetworkShared(), bidirectional);
        policy.SetNetworkSharing(false);
        EXPECT_FALSE(policy.IsNetworkShared());
        EXPECT_EQ(policy.CanShareNetwork(), bidirectional);
        EXPECT_EQ(prtreg(name).GetByte("Settings:Network Sharing", 9), 0);
        policy.SetNetworkSharing(true);
        EXPECT_EQ(policy.IsNetworkShared(), bidirectional);
        SetPlatformFlags("C:\\WINDOWS\\SYSTEM");
        EXPECT_FALSE(policy.CanShareNetwork() || policy.IsNetworkShared());
        SetPlatformFlags("C:\\3");
    }
}

TEST_F(NetworkSharing, OfAConnectionIsWhatTheServerAnswersAndTheUserFollows) {
    ConnectToDock3("SRV1");
    // The question carries the tick count, so the answer is never an old one.
    win32host::SetTickCount(3000000000u);
    const struct {
        unsigned char answer;
        bool shared;
    } cases[] = {{1, true}, {0, false}, {255, true}};
    NetworkPolicy policy(Remote);
    policy.SetNetworkAccessLevel(3);
    for (const auto& c : cases) {
        ASSERT_TRUE(
            prtreg(Remote).SetPrinterDataW("Network Sharing3000000000", REG_BINARY, &c.answer, 1));
        EXPECT_EQ(policy.CanShareNetwork(), c.shared) << int{c.answer};
        EXPECT_EQ(policy.IsNetworkShared(), c.shared) << int{c.answer};
        EXPECT_EQ(policy.GetAccessLevel(), c.shared ? 3 : 0) << int{c.answer};
    }
    policy.SetNetworkSharing(false);
    EXPECT_EQ(ORegistry().GetByte("USER:Printers/Dock3/Network Sharing", 9), 0)
        << "outside the shadow tree";
    EXPECT_TRUE(policy.CanShareNetwork());
    EXPECT_FALSE(policy.IsNetworkShared());
    EXPECT_EQ(policy.GetAccessLevel(), 0);
    win32host::SetTickCount(3000000001u);
    EXPECT_FALSE(policy.CanShareNetwork());
    win32host::UseRealTickCount();
}

TEST_F(AccessLevels, OfALocalPrinterDependOnThePlatformUntilTheyAreSet) {
    AddLocal(0);
    NetworkPolicy policy("Dock3");
    EXPECT_EQ(policy.GetAccessLevel(), 2);
    EXPECT_EQ(policy.GetNetworkAccessLevel(), 2);
    SetPlatformFlags("C:\\WINDOWS\\SYSTEM");
    EXPECT_EQ(policy.GetAccessLevel(), 1);
    EXPECT_EQ(policy.GetNetworkAccessLevel(), 1);
    SetPlatformFlags("C:\\3");
    policy.SetLocalAccessLevel(3);
    policy.SetNetworkAccessLevel(0);
    EXPECT_EQ(policy.GetAccessLevel(), 3);
    EXPECT_EQ(policy.GetLocalAccessLevel(), 3);
    EXPECT_EQ(policy.GetNetworkAccessLevel(), 0);
}

// Names from outside that are paths do not lead out of the root folder.
#include <algorithm>
#include <filesystem>

#include "platform/registry_support.h"
#include "platform/spooler_test.h"

namespace {

namespace fs = std::filesystem;

// The root folder of the machine is in a folder of its own, with nothing beside it.
class Confinement : public SpoolerTest {
protected:
    Confinement() {
        fs::create_directories(Machine() + "/servers");
        fs::copy(root() + "/drive_c", Machine() + "/drive_c", fs::copy_options::recursive);
        win32host::SetRoot(Machine());
    }
    std::string Machine() const { return root() + "/around/machine"; }

    // Adds a driver of that name with files of that name.
    static void AddHostileDriver(const std::u16string& name) {
        std::u16string files = name + u'\0' + u"C:\\setup\\" + name;
        files.append(2, u'\0');
        const std::u16string driver = u"C:\\setup\\testdrv.dll";
        DRIVER_INFO_6W info = {};
        info.cVersion = 3;
        info.pName = Text(name);
        info.pDriverPath = info.pConfigFile = info.pDataFile = Text(driver);
        info.pDependentFiles = Text(files);
        info.pMonitorName = Text(name);
        AddPrinterDriverExW(nullptr, 6, reinterpret_cast<LPBYTE>(&info), APD_COPY_ALL_FILES);
        info.pDependentFiles = nullptr;
        AddPrinterDriverExW(nullptr, 6, reinterpret_cast<LPBYTE>(&info), APD_COPY_ALL_FILES);
    }

    // Everything beside the root folder, which should be nothing.
    std::vector<std::string> Outside() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(root() + "/around"))
            if (entry.path().filename() != "machine") names.push_back(entry.path().string());
        return names;
    }
};

constexpr LPCWSTR kNames[] = {
    TEXT("..\\out"),
    TEXT("..\\..\\out"),
    TEXT("../../out"),
    TEXT("..\\..\\..\\..\\..\\..\\..\\..\\..\\..\\out"),
    TEXT(".."),
    TEXT("."),
    TEXT(".. "),
    TEXT("out . ."),
    TEXT("nul"),
    TEXT("COM1"),
    TEXT("C:out"),
    TEXT("C:\\..\\..\\out"),
    TEXT("\\..\\..\\out"),
    TEXT("\\\\?\\C:\\..\\..\\out"),
    TEXT("%2e%2e%5cout"),
    TEXT("..\\machine\\..\\out"),
};

} // namespace

TEST_F(Confinement, FilesOnDriveCStayThere) {
    for (const std::u16string name : kNames)
        for (const std::u16string start :
             {u"C:\\", u"C:\\a\\", u"\\\\?\\C:\\", u"\\\\.\\C:\\", u"\\\\.\\\\C:"}) {
            CreateDirectoryW((start + name).c_str(), nullptr);
            const HANDLE file = CreateFileW((start + name).c_str(), GENERIC_WRITE, 0, nullptr,
                                            CREATE_ALWAYS, 0, nullptr);
            if (file != INVALID_HANDLE_VALUE) CloseHandle(file);
            CopyFileW((start + name).c_str(), (start + name + u".copy").c_str(), FALSE);
            MoveFileExW((start + name).c_str(), (start + name + u"\\..\\..\\moved").c_str(), 0);
        }
    EXPECT_EQ(Outside(), std::vector<std::string>());
    // There is nothing new beside drive C either.
    for (const auto& entry : fs::directory_iterator(Machine()))
        EXPECT_TRUE(entry.path().filename() == "drive_c" || entry.path().filename() == "servers")
            << entry.path();
}

TEST_F(Confinement, PrintersDriversPortsAndServersStayInTheMachine) {
    AddDriver();
    for (const std::u16string name : kNames) {
        if (const HANDLE printer = Add(Wanted(name))) Print(printer, name.c_str(), "^XA^XZ");
        AddHostileDriver(name);
        // Servers exist only as folders of the root's folder "servers".
        HKEY key = nullptr;
        EXPECT_NE(RegConnectRegistryW((u"\\\\" + name).c_str(), HKEY_LOCAL_MACHINE, &key),
                  ERROR_SUCCESS);
        HANDLE remote = nullptr;
        std::u16string remote_name = u"\\\\" + name + u"\\Dock";
        EXPECT_FALSE(OpenPrinterW(remote_name.data(), &remote, nullptr));
        AddPrinterConnectionW(remote_name.data());
        // The port is a path of drive C.
        const std::u16string printer_name = u"Dock";
        PRINTER_INFO_2W wanted = Wanted(printer_name);
        const std::u16string port = u"C:\\a\\" + name;
        wanted.pPortName = Text(port);
        if (const HANDLE dock = Add(wanted)) {
            Print(dock, name.c_str(), "^XA^XZ");
            DeletePrinter(dock);
        }
    }
    EXPECT_EQ(Outside(), std::vector<std::string>());
    // The key of every printer is directly below the key of all printers.
    std::vector<std::u16string> keys = Subkeys(Make(u"SYSTEM\\CurrentControlSet\\Control\\Print"));
    std::sort(keys.begin(), keys.end());
    EXPECT_EQ(keys, (std::vector<std::u16string>{u"Environments", u"Printers"}));
    for (const auto& entry : fs::recursive_directory_iterator(Machine()))
        EXPECT_FALSE(entry.is_symlink()) << entry.path();
}

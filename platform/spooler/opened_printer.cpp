#include "spooler/opened_printer.h"

#include "security/accounts.h"
#include "spooler/spooled_document.h"

#include <algorithm>
#include <utility>

namespace win32host {
bool MayAdminister() {
    SID_IDENTIFIER_AUTHORITY authority = SECURITY_NT_AUTHORITY;
    const std::vector<Account> accounts = Accounts();
    const auto is_member = [&](DWORD alias) {
        PSID group = nullptr;
        if (!AllocateAndInitializeSid(&authority, 2, SECURITY_BUILTIN_DOMAIN_RID, alias, 0, 0, 0, 0,
                                      0, 0, &group))
            return false;
        const bool found =
            std::any_of(accounts.begin(), accounts.end(), [&](const Account& account) {
                return account.in_token && EqualSid(const_cast<BYTE*>(account.sid.data()), group);
            });
        FreeSid(group);
        return found;
    };
    return is_member(DOMAIN_ALIAS_RID_ADMINS) || is_member(DOMAIN_ALIAS_RID_POWER_USERS);
}

OpenedPrinter::OpenedPrinter(std::shared_ptr<PrintServer> server, std::u16string printer,
                             ACCESS_MASK access)
    : server_(std::move(server))
    , printer_(std::move(printer))
    , access_(access) {}

OpenedPrinter::~OpenedPrinter() = default;

std::optional<PrinterRecord> OpenedPrinter::Record() const {
    auto record = ReadPrinter(*server_, printer_);
    if (!record) SetLastError(ERROR_PRINTER_DELETED);
    return record;
}

std::optional<std::u16string> OpenedPrinter::DriverName() const {
    auto name = ReadPrinterDriver(*server_, printer_);
    if (!name) SetLastError(ERROR_PRINTER_DELETED);
    return name;
}

std::optional<DriverRecord> OpenedPrinter::Driver() const {
    const auto name = DriverName();
    if (!name) return std::nullopt;
    auto driver = ReadDriver(*PrintServer::Named({}), *name);
    if (!driver) SetLastError(ERROR_UNKNOWN_PRINTER_DRIVER);
    return driver;
}

std::shared_ptr<OpenedPrinter> FindPrinter(HANDLE handle) {
    auto printer = Find<OpenedPrinter>(handle);
    if (printer && printer->Printer().empty()) {
        SetLastError(ERROR_INVALID_HANDLE);
        return nullptr;
    }
    return printer;
}

std::shared_ptr<const DriverLibrary> LoadDriver(const std::u16string& driver) {
    const auto local = PrintServer::Named({});
    const std::u16string file = ReadConfigFile(*local, driver);
    if (file.empty()) {
        SetLastError(ERROR_UNKNOWN_PRINTER_DRIVER);
        return nullptr;
    }
    return DriverLibrary::Load(local->InstalledFolder() + u'\\' + file);
}

void DropDriver(const std::u16string& driver) {
    const auto local = PrintServer::Named({});
    const std::u16string file = ReadConfigFile(*local, driver);
    if (!file.empty()) DriverLibrary::Drop(local->InstalledFolder() + u'\\' + file);
}

} // namespace win32host

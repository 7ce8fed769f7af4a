#include "spooler/printer_record.h"

#include "registry/transactions.h"
#include "spooler/ansi.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace win32host {
namespace {

constexpr size_t kLongestName = 220;

constexpr char16_t kName[] = u"Name";
constexpr char16_t kPrinterDriver[] = u"Printer Driver";
constexpr char16_t kDefaultDevMode[] = u"Default DevMode";
constexpr char16_t kAttributes[] = u"Attributes";

struct PrinterText {
    const char16_t* name;
    std::u16string PrinterRecord::*member;
};
constexpr PrinterText kPrinterTexts[] = {
    {u"Share Name", &PrinterRecord::share_name},
    {u"Port", &PrinterRecord::port},
    {kPrinterDriver, &PrinterRecord::driver},
    {u"Description", &PrinterRecord::comment},
    {u"Location", &PrinterRecord::location},
    {u"Separator File", &PrinterRecord::separator_file},
    {u"Print Processor", &PrinterRecord::print_processor},
    {u"Datatype", &PrinterRecord::datatype},
    {u"Parameters", &PrinterRecord::parameters},
};

struct NumberValue {
    const char16_t* name;
    DWORD PrinterRecord::*member;
};
constexpr NumberValue kNumbers[] = {
    {kAttributes, &PrinterRecord::attributes},
    {u"Priority", &PrinterRecord::priority},
    {u"Default Priority", &PrinterRecord::default_priority},
    {u"StartTime", &PrinterRecord::start_time},
    {u"UntilTime", &PrinterRecord::until_time},
    {u"Status", &PrinterRecord::status},
};

// Half a record does not count, as the caller would take what is missing for empty.
std::optional<PrinterRecord> Whole(const RegistryKey& key, PrinterRecord& record) {
    if (key.HasFailed()) return std::nullopt;
    return std::move(record);
}

std::optional<PrinterRecord> ReadKey(const RegistryKey& key, bool brief = false) {
    PrinterRecord record;
    record.name = key.Text(kName);
    if (record.name.empty()) return std::nullopt;
    if (brief) {
        record.attributes = key.Number(kAttributes);
        return Whole(key, record);
    }
    key.ReadAhead();
    for (const PrinterText& text : kPrinterTexts) record.*text.member = key.Text(text.name);
    for (const NumberValue& number : kNumbers) record.*number.member = key.Number(number.name);
    const std::vector<BYTE> dev_mode = key.Bytes(kDefaultDevMode);
    record.dev_mode = CheckedDevMode(dev_mode.data(), dev_mode.size());
    return Whole(key, record);
}

bool OpenKey(const PrintServer& server, const std::u16string& name, RegistryKey& key) {
    return IsPrinterName(name) && server.OpenPrinter(name, key) == ERROR_SUCCESS;
}

// A DEVMODEW that is shorter than this says nothing about itself.
constexpr size_t kSmallestDevMode = offsetof(DEVMODEW, dmFields) + sizeof(DWORD);

} // namespace

bool IsPrinterName(std::u16string_view name) {
    return !name.empty() && name.size() <= kLongestName &&
           name.find(u'\\') == std::u16string_view::npos;
}

std::optional<PrinterRecord> ReadPrinter(const PrintServer& server, const std::u16string& name) {
    RegistryKey key;
    return OpenKey(server, name, key) ? ReadKey(key) : std::nullopt;
}

std::u16string ReadPrinterName(const PrintServer& server, const std::u16string& name) {
    RegistryKey key;
    return OpenKey(server, name, key) ? key.Text(kName) : std::u16string();
}

std::optional<std::u16string> ReadPrinterDriver(const PrintServer& server,
                                                const std::u16string& name) {
    RegistryKey key;
    if (!OpenKey(server, name, key) || key.Text(kName).empty()) return std::nullopt;
    std::u16string driver = key.Text(kPrinterDriver);
    if (key.HasFailed()) return std::nullopt;
    return driver;
}

LSTATUS WritePrinter(const RegistryKey& key, const PrinterRecord& record,
                     const PrinterRecord& old) {
    const bool all = old.name.empty();
    registry::KeyTransaction transaction(key.get());
    LSTATUS status = ERROR_SUCCESS;
    const auto then = [&](LSTATUS next) {
        if (status == ERROR_SUCCESS) status = next;
    };
    for (const PrinterText& text : kPrinterTexts) {
        if (all || record.*text.member != old.*text.member)
            then(key.SetText(text.name, record.*text.member));
    }
    for (const NumberValue& number : kNumbers) {
        if (all || record.*number.member != old.*number.member)
            then(key.SetNumber(number.name, record.*number.member));
    }
    if (record.dev_mode != old.dev_mode)
        then(key.SetBytes(kDefaultDevMode, record.dev_mode.data(), record.dev_mode.size()));
    if (status == ERROR_SUCCESS && record.name != old.name)
        status = key.SetText(kName, record.name);
    return transaction.Commit(status);
}

LSTATUS ErasePrinter(const PrintServer& server, const std::u16string& name) {
    RegistryKey printers;
    const LSTATUS status = server.OpenPrinters(printers);
    return status == ERROR_SUCCESS ? printers.DeleteTree(name) : status;
}

std::vector<PrinterRecord> ReadPrinters(const PrintServer& server, bool shared_only, bool brief) {
    std::vector<PrinterRecord> records;
    RegistryKey printers;
    if (server.OpenPrinters(printers) != ERROR_SUCCESS) return records;
    for (const std::u16string& name : printers.SubkeyNames()) {
        RegistryKey key;
        if (key.Open(printers.get(), name) != ERROR_SUCCESS) continue;
        auto record = ReadKey(key, brief);
        if (record && (!shared_only || record->attributes & PRINTER_ATTRIBUTE_SHARED))
            records.push_back(std::move(*record));
    }
    return records;
}

std::vector<BYTE> CheckedDevMode(const void* bytes, size_t size) {
    if (size < kSmallestDevMode) return {};
    WORD public_size, private_size;
    const BYTE* start = static_cast<const BYTE*>(bytes);
    std::memcpy(&public_size, start + offsetof(DEVMODEW, dmSize), sizeof public_size);
    std::memcpy(&private_size, start + offsetof(DEVMODEW, dmDriverExtra), sizeof private_size);
    const size_t whole = size_t{public_size} + private_size;
    if (public_size < kSmallestDevMode || whole > size) return {};
    return {start, start + whole};
}

std::vector<BYTE> CheckedDevMode(const DEVMODEW* dev_mode) {
    if (!dev_mode) return {};
    return CheckedDevMode(dev_mode, size_t{dev_mode->dmSize} + dev_mode->dmDriverExtra);
}

std::vector<BYTE> AnsiDevMode(const std::vector<BYTE>& dev_mode) {
    if (dev_mode.empty()) return {};
    // The layouts differ in their two names only, so what lies between and after them moves.
    constexpr size_t name = sizeof(DEVMODEW::dmDeviceName), form = offsetof(DEVMODEW, dmFormName),
                     tail = form + sizeof(DEVMODEW::dmFormName);
    WORD public_size;
    std::memcpy(&public_size, dev_mode.data() + offsetof(DEVMODEW, dmSize), sizeof public_size);

    const auto text = [&](size_t offset, size_t end) {
        std::u16string units((std::min<size_t>(end, public_size) - offset) / sizeof(WCHAR), u'\0');
        std::memcpy(units.data(), dev_mode.data() + offset, units.size() * sizeof(WCHAR));
        std::string ansi = Ansi(units.substr(0, units.find(u'\0')));
        ansi.resize(CCHDEVICENAME - 1);
        ansi.push_back('\0');
        return ansi;
    };
    std::vector<BYTE> result;
    const auto append = [&](size_t from, size_t to) {
        if (from < to) result.insert(result.end(), dev_mode.data() + from, dev_mode.data() + to);
    };
    static_assert(CCHDEVICENAME == CCHFORMNAME);
    const std::string device = text(0, name);
    result.assign(device.begin(), device.end());
    append(name, std::min<size_t>(form, public_size));
    if (public_size > form) {
        const std::string form_name = text(form, tail);
        result.insert(result.end(), form_name.begin(), form_name.end());
    }
    append(tail, public_size);
    const WORD ansi_size = static_cast<WORD>(result.size());
    append(public_size, dev_mode.size());
    std::memcpy(result.data() + offsetof(DEVMODEA, dmSize), &ansi_size, sizeof ansi_size);
    return result;
}

} // namespace win32host

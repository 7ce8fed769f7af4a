// Presets: stored, exchanged, ordered, and found again by settings.
#include "settings/preset_list.h"

#include <functional>
#include <new>
#include <string>

#include "core/crc.h"
#include "support/dev_mode_test.h"
#include "zpl/extconfig.h"

namespace {

class Presets : public DevModeTest {
protected:
    void SetUp() override {
        Install(Tables());
        model_ = Model();
    }

    // A preset with the model's default settings, but for the page's orientation.
    Preset* Add(const char* name, int orientation = 0, uint32_t built_in = 0) {
        auto* preset = new (std::nothrow) Preset;
        preset->SetToDefaultDevMode(model_.get());
        preset->GetDevMode().SetOrientation(orientation);
        preset->SetName(name);
        preset->SetBuiltIn(built_in);
        list_.AddTail(preset);
        return preset;
    }
    void AddBuiltIns() {
        Add("zz", 0, Preset::DEFAULT_SETTINGS)->SetPriority(Preset::DEFAULT_SETTINGS_PRIORITY);
        Add("zzz", 3, Preset::CURRENT_SETTINGS)->SetPriority(Preset::CURRENT_SETTINGS_PRIORITY);
    }

    Preset* Named(const char* name) const {
        return static_cast<Preset*>(list_.NameList::Find(name));
    }

    static std::string Order(const PresetList& list) {
        return Joined(list, [](const Preset& preset) { return Text(preset.GetName()); });
    }

    std::string Stored() {
        PresetList list;
        list.Load(model_.get());
        return Order(list);
    }

    std::string Exported() {
        return Written([this](OFile& file) { list_.Export(file); });
    }

    int Imported(const std::string& bytes, const std::string& name = "in.kds") {
        const auto read = [&](OFile& file) {
            return name == "in.kds" ? list_.Import(file, model_.get())
                                    : list_.ImportKPR1(file, model_.get());
        };
        return Taken(bytes, read, name);
    }

    static std::string Block(const std::string& name, const std::string& record) {
        return "<preset>\r\nName=" + name + "\r\nDescription=of " + name +
               "\r\nData=" + Encoded(record.data(), record.size()) + "\r\n</preset>\r\n\r\n";
    }
    // A record of a DEVMODE, with `cut` bytes less than it claims.
    static std::string Record(const void* dev_mode, size_t size, const char* signature = "DM32",
                              size_t cut = 0) {
        return signature + Bytes4(static_cast<uint32_t>(size)) +
               std::string(static_cast<const char*>(dev_mode), size - cut);
    }
    // The record of the model's defaults in landscape.
    std::string Landscape(size_t cut = 0) {
        DevMode mode;
        mode.CreateDefault(model_.get());
        mode.SetOrientation(1);
        return Record(mode.GetDevMode(), 1508, "DM32", cut);
    }

    std::unique_ptr<extmodel> model_;
    PresetList list_;
};

DEVMODEA Mode16() {
    DEVMODEA mode = {};
    mode.dmSize = sizeof mode;
    mode.dmFields = DM_ORIENTATION;
    mode.dmOrientation = DMORIENT_LANDSCAPE;
    return mode;
}

} // namespace

TEST_F(Presets, AreInOrderOfPriorityAndName) {
    for (const char* name : {"b", "B", "a", "c", "a b", ""}) Add(name);
    AddBuiltIns();
    list_.Sort();
    EXPECT_EQ(Order(list_), "zzz zz  B a a b b c");
    EXPECT_EQ(list_.GetCurrentSettings(), Named("zzz"));
    EXPECT_EQ(list_.GetDefaultSettings(), Named("zz"));
}

TEST_F(Presets, AreStoredWithoutTheBuiltInOnes) {
    for (int i = 1; i <= 12; ++i) Add(("p" + std::to_string(100 + i)).c_str(), i % 4);
    AddBuiltIns();
    Named("p103")->SetDescription("third");
    EXPECT_EQ(list_.Save(model_.get()), SaveResult::STORED);
    EXPECT_EQ(Stored(), "p101 p102 p103 p104 p105 p106 p107 p108 p109 p110 p111 p112");
    prtreg registry(model_->GetRegistry());
    EXPECT_EQ(registry.GetDWORD("Presets:Total", 0), 12u);
    EXPECT_EQ(Text(registry.GetString("Presets:Preset 03:: Description", "")), "third");
    EXPECT_EQ(registry.GetSize("Presets:Preset 12:: DEVMODE"), 1508);
    EXPECT_EQ(Text(Preset::KeyName(123)), "Preset 123:: ");

    delete Named("p104");
    EXPECT_EQ(list_.Save(model_.get()), SaveResult::STORED);
    EXPECT_EQ(registry.GetDWORD("Presets:Total", 0), 11u);
    EXPECT_EQ(Text(registry.GetString("Presets:Preset 11:: Name", "")), "p112");
    EXPECT_EQ(registry.GetSize("Presets:Preset 12:: DEVMODE"), -1);
}

TEST_F(Presets, AreWrittenOnlyWhenTheyHaveChanged) {
    Add("a");
    EXPECT_EQ(list_.Save(model_.get()), SaveResult::STORED);
    PresetList list;
    list.Load(model_.get());
    auto* current = new (std::nothrow) Preset; // which is never stored
    current->SetBuiltIn(Preset::CURRENT_SETTINGS);
    list.AddTail(current);
    prtreg registry(model_->GetRegistry());
    registry.Delete("Presets:", true);
    EXPECT_EQ(list.Save(model_.get()), SaveResult::UNCHANGED);
    EXPECT_EQ(registry.GetSize("Presets:Total"), -1);
    PresetList copy;
    copy = list;
    EXPECT_EQ(copy.GetCRC32(0), list.GetCRC32(0));
    list.GetNext(nullptr)->SetDescription("changed");
    EXPECT_EQ(copy.Save(model_.get()), SaveResult::UNCHANGED) << "copies are deep";
    EXPECT_EQ(list.Save(model_.get()), SaveResult::STORED);
    EXPECT_EQ(Stored(), "a");
}

TEST_F(Presets, ThatCannotBeReadAreSkipped) {
    Add("a", 1);
    Add("b");
    Add("c");
    Add("d", 2);
    Add("e");
    EXPECT_EQ(list_.Save(model_.get()), SaveResult::STORED);
    prtreg registry(model_->GetRegistry());
    registry.Delete("Presets:Preset 02:: DEVMODE", false);
    registry.SetBinary("Presets:Preset 03:: DEVMODE",
                       list_.GetNext(nullptr)->GetDevMode().GetDevMode(), 1507);
    registry.SetString("Presets:Preset 04:: Name", "a");
    registry.SetBinary("Presets:Preset 05:: DEVMODE", "DEVMODE", 7);
    registry.SetDWORD("Presets:Total", 0xFFFFFFFF);
    list_.Load(model_.get());
    EXPECT_EQ(Order(list_), "a") << "of two with one name the later is left";
    EXPECT_EQ(list_.GetNext(nullptr)->GetDevMode().GetOrientation(), 2);

    // They stay stored. Others, except those without settings, are stored around them.
    Add("f");
    Add("g");
    list_.GetNext(nullptr)->SetDevMode(nullptr);
    EXPECT_EQ(list_.Save(model_.get()), SaveResult::STORED);
    EXPECT_EQ(Stored(), "f g");
    EXPECT_EQ(Text(registry.GetString("Presets:Preset 02:: Name", "")), "g")
        << "a name without settings is no preset";
    EXPECT_EQ(registry.GetSize("Presets:Preset 03:: DEVMODE"), 1507);
    EXPECT_EQ(registry.GetSize("Presets:Preset 04:: Name"), -1);
    EXPECT_EQ(registry.GetSize("Presets:Preset 05:: DEVMODE"), 7);
    EXPECT_EQ(registry.GetDWORD("Presets:Total", 0), 5u);
    delete Named("g");
    EXPECT_EQ(list_.Save(model_.get()), SaveResult::STORED);
    EXPECT_EQ(registry.GetSize("Presets:Preset 02:: Name"), -1);
    EXPECT_EQ(registry.GetDWORD("Presets:Total", 0), 5u);
}

TEST_F(Presets, LeaveTheFingerprintOfTheirNameInTheirSettings) {
    const uint32_t a = CRC32(TEXT("a"), 2, 0);
    Preset* preset = Add("a");
    EXPECT_EQ(preset->GetDevMode().GetPresetCRC32(), a);
    Preset copy(*preset);
    copy.SetName("b");
    EXPECT_NE(copy.GetDevMode().GetPresetCRC32(), a);
    EXPECT_EQ(preset->GetDevMode().GetPresetCRC32(), a) << "a copy has settings of its own";
    copy.SetDevMode(nullptr);
    copy.SetName("c");
    EXPECT_EQ(copy.GetDevModeSize(), 0);

    // A file may have the name before the settings, which then keep their fingerprint.
    const std::string data = Exported().substr(Exported().find("Data="));
    Imported("<preset>\nName=front\n" + data + "<preset>\n" + data.substr(0, data.find('\n') + 1) +
             "Name=behind\n</preset>\n");
    EXPECT_EQ(Named("front")->GetDevMode().GetPresetCRC32(), a);
    EXPECT_EQ(Named("behind")->GetDevMode().GetPresetCRC32(), CRC32(TEXT("behind"), 12, 0));

    list_.AddTail_UniqueName(new (std::nothrow) Preset(*preset), true);
    EXPECT_EQ(Named("a 2")->GetDevMode().GetPresetCRC32(), CRC32(TEXT("a 2"), 6, 0));
}

TEST_F(Presets, CountEverythingInTheirChecksum) {
    Preset* preset = Add("a");
    uint32_t last = preset->GetCRC32(0);
    EXPECT_NE(preset->GetCRC32(1), last);
    const std::function<void()> changes[] = {
        [=] { preset->SetDescription("d"); }, [=] { preset->SetBuiltIn(1); },
        [=] { preset->SetPriority(1); },      [=] { preset->GetDevMode().SetCopies(2); },
        [=] { preset->SetDevMode(nullptr); },
    };
    for (const auto& change : changes) {
        change();
        EXPECT_NE(preset->GetCRC32(0), last) << &change - changes;
        last = preset->GetCRC32(0);
    }
}

TEST_F(Presets, SurviveAFile) {
    Add("Gr\xF6\xDF"
        "e = 1",
        1)
        ->SetDescription("a = b");
    const Preset before(*list_.GetNext(nullptr));
    extconfig::get_cfg(list_.GetNext(nullptr)->GetDevMode().GetDevMode())->absolute_darkness = 20;
    const Preset darker(*list_.GetNext(nullptr));
    Add("plain");
    AddBuiltIns();
    const std::string text = Exported();
    const std::string head = "<preset>\r\nName=Größe = 1\r\nDescription=a = b\r\nData=";
    EXPECT_EQ(text.substr(0, head.size()), head);
    EXPECT_NE(text.find("\r\n</preset>\r\n\r\n<preset>\r\nName=plain\r\nDescription=\r\nData="),
              std::string::npos);

    list_.Clear();
    list_.AddTail(new (std::nothrow) Preset(before));
    EXPECT_EQ(Imported(text), 2);
    Preset* read = list_.GetNext(nullptr);
    EXPECT_EQ(Order(list_), Text(before.GetName()) + " plain");
    EXPECT_EQ(Text(read->GetDescription()), "a = b");
    EXPECT_TRUE(read->GetDevMode() == Preset(darker).GetDevMode());
    EXPECT_EQ(read->GetDevMode().GetPresetCRC32(), Preset(before).GetDevMode().GetPresetCRC32());
}

TEST_F(Presets, AreReadFromWhateverAFileHolds) {
    const DEVMODEA mode = Mode16();
    const std::string record16 = Record(&mode, sizeof mode, "DM16");
    std::string older = Landscape();
    older[4] = older[5] = '\xFF'; // the record's own size is ignored
    const struct {
        const char* what;
        std::string text;
        int count;
        int orientation; // of the last preset in order
        const char* order;
    } cases[] = {
        {"a record", Block("b", Landscape()), 1, 1, "a b"},
        {"one that lies about its size", Block("b", older), 1, 1, "a b"},
        {"of a 16-bit driver", Block("b", record16), 1, 1, "a b"},
        {"of no DEVMODE", Block("b", "KDM32123" + Landscape()), 1, 0, "a b"},
        {"one that ends early", Block("a", Landscape(1)) + Block("b", Landscape()), 1, 1, "a b"},
        {"a head only", Block("a", "DM32" + Bytes4(1508)), 0, 2, "a"},
        {"less than a head", Block("a", "DM32"), 0, 2, "a"},
        {"a 16-bit record that ends early", Block("a", record16.substr(0, record16.size() - 1)), 0,
         2, "a"},
        {"sizes of nothing", Block("a", "DM32" + Bytes4(0) + std::string(400, '\0')), 0, 2, "a"},
        {"the same name", Block("a", Landscape()), 1, 1, "a"},
        {"the same name twice", Block("b", Landscape()) + Block("b", record16), 2, 1, "a b"},
        {"no end", Block("b", Landscape()) + "<preset>\nName=c\n", 1, 1, "a b"},
        {"no data", "<preset>\nName=c\n</preset>\n", 0, 2, "a"},
        {"a name that cannot be stored", Block(std::string(4096, 'n'), Landscape()), 0, 2, "a"},
    };
    for (const auto& c : cases) {
        list_.Clear();
        Add("a", 2);
        EXPECT_EQ(Imported(c.text), c.count) << c.what;
        EXPECT_EQ(Order(list_), c.order) << c.what;
        Preset* last = list_.GetPrev(nullptr);
        EXPECT_EQ(last->GetDevMode().GetOrientation(), c.orientation) << c.what;
        EXPECT_EQ(last->GetDevModeSize(), 1508) << c.what;
    }
}

TEST_F(Presets, AreReadFromTheBinaryFilesOfOldDrivers) {
    const auto named = [](const std::string& name, const std::string& description) {
        return Bytes4(static_cast<uint32_t>(name.size())) + name +
               Bytes4(static_cast<uint32_t>(description.size())) + description;
    };
    const std::string record = Landscape();
    std::string lying = record;
    lying[8 + 70] = '\xFF'; // dmDriverExtra
    const struct {
        const char* what;
        const char* file;
        std::string bytes;
        int count;
        const char* order;
    } cases[] = {
        {"two", "f.kpr", record + named("b", "of b") + record + named("a", "of a"), 2, "a b"},
        {"one alone", "my label.v2.kpr", record, 1, "my label"},
        {"one alone in a file without an ending", "mine", record, 1, "mine"},
        {"a name that is cut off", "f.kpr", record + Bytes4(9000) + "abc", 1, "abc"},
        {"a name that is as long as can be", "f.kpr", record + Bytes4(0xFFFFFFFF) + "abc", 1,
         "abc"},
        {"half a length", "f.kpr", record + "ab", 1, ""},
        {"a record that is cut off", "f.kpr", record.substr(0, 1000), 0, ""},
        {"a record of any size", "f.kpr", "DM32" + Bytes4(0xFFFFFFFF) + record, 0, ""},
        {"sizes that lie", "f.kpr", lying + named("b", "") + record + named("a", ""), 1, "a"},
        {"something behind", "f.kpr", record + named("a", "") + "KPR1" + record, 1, "a"},
    };
    for (const auto& c : cases) {
        list_.Clear();
        EXPECT_EQ(Imported(c.bytes, c.file), c.count) << c.what;
        EXPECT_EQ(Order(list_), c.order) << c.what;
        for (Preset* preset = list_.GetNext(nullptr); preset; preset = list_.GetNext(preset))
            EXPECT_EQ(preset->GetDevMode().GetOrientation(), 1) << c.what;
    }
    Imported(cases[0].bytes, "f.kpr");
    EXPECT_EQ(Text(Named("b")->GetDescription()), "of b");
}

TEST_F(Presets, AreFoundByWhatADevModeHolds) {
    Add("a", 1);
    Add("b", 1);
    Add("c", 2);
    AddBuiltIns();
    const struct {
        const char* what;
        int orientation;
        const char* origin;
        const char* found;
    } cases[] = {
        {"of the second of two with equal settings", 1, "b", "b"},
        {"of no preset", 1, nullptr, "a"},
        {"of a preset that is gone", 1, "gone", "a"},
        {"of a preset, but changed", 1, "c", "a"},
        {"the default settings", 0, nullptr, "zz"},
        {"the default settings by name", 0, "zz", "zz"},
        {"the current settings by name", 3, "zzz", "zzz"},
        {"like the current settings", 3, nullptr, "zzz"},
    };
    DevMode mode;
    for (const auto& c : cases) {
        mode.CreateDefault(model_.get());
        mode.SetOrientation(c.orientation);
        if (c.origin) mode.SetPresetName(OString(c.origin).wstring());
        const Preset* found = list_.Find(mode);
        EXPECT_EQ(found ? Text(found->GetName()) : "-", c.found) << c.what;
    }
    mode.SetCopies(2);
    extconfig::get_cfg(mode.GetDevMode())->label_top = 77;
    EXPECT_EQ(list_.Find(mode), Named("zzz")) << "like none";
    list_.Clear();
    EXPECT_EQ(list_.Find(mode), nullptr);
}

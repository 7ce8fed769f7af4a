// Small operations while memory is short at each of their allocations: either the old data remains,
// or the new data is complete.
#include "torture/memory_faults.h"

#include "core/memory.h"
#include "model/model_data_cache.h"
#include "model/resource_cache.h"
#include "printer/cache_contents.h"
#include "printer/port_info.h"
#include "registry/oregistry.h"
#include "registry/oregistry_text.h"
#include "support/host_test.h"
#include "support/model_test.h"

namespace {

// Does `work` with one allocation after the other failing, and with all from there on. `check` runs
// after each of these, when there is memory again, and is told whether the work noticed.
template <class Prepare, class Work, class Check>
void AtEveryAllocation(Prepare prepare, Work work, Check check) {
    for (const bool from_then : {false, true}) {
        for (uint32_t point = 1, count = 1; point <= count; ++point) {
            SCOPED_TRACE(point);
            prepare();
            const AllocationWatch memory;
            FailAllocation(point, from_then);
            work();
            count = AllocationCount();
            FailAllocation(0);
            check(memory.Failed());
        }
    }
}

} // namespace

TEST(MemoryFaults, EndASplitAndTellOfIt) {
    OStringArray pieces;
    AtEveryAllocation([] {}, [&] { pieces.Split("one, two, three", ", "); },
                      [&](bool failed) {
                          EXPECT_TRUE(failed || Text(pieces) == "one,two,three") << Text(pieces);
                      });
}

TEST(MemoryFaults, MakeNoValueOfHalfARegistryText) {
    // Each value needs more room than the one before it.
    const char* const lines[] = {"[K]",
                                 "\"v\"=dword:00000001",
                                 "\"v\"=\"a longer text\"",
                                 "\"v\"=hex:01,02,03,04,05,06,07,08,09,0a,0b,0c,0d,0e,0f,10,11,\\",
                                 "12,13,14,15,16,17,18,19,1a,1b,1c,1d,1e,1f,20,21,22,23,24",
                                 "\"v\"=hex(7):61,00,00,00,62,00,00,00,63,00,00,00,00,00"};
    uint32_t bytes = 0;
    AtEveryAllocation([&] { bytes = 0; },
                      [&] {
                          RegistryTextReader reader;
                          for (const char* line : lines)
                              if (reader.Read(line) == RegistryTextReader::StoreValue)
                                  bytes += reader.Value().data.GetSize();
                      },
                      [&](bool failed) { EXPECT_TRUE(failed || bytes == 4 + 28 + 36 + 14); });
}

TEST(MemoryFaults, LeaveTheCachesWithWholeEntries) {
    const ModelDataOwner owner{"Dock 3", "Model 1"}, other{"Dock 3", "Model 2"};
    std::string record(4, ' ');
    AtEveryAllocation(
        [&] {
            ModelDataCache::Free();
            ModelDataCache::Initialize();
            ModelDataCache().Synchronize(owner);
            ModelDataCache().SetData(owner, "A", "old", 4);
            ModelDataCache().SetData(owner, "B", "old", 4);
        },
        [&] {
            ModelDataCache().SetData(owner, "A", "new", 4);
            ModelDataCache().SetData(owner, "C", "new", 4);
        },
        [&](bool) {
            ASSERT_TRUE(ModelDataCache().GetData(owner, "A", record.data(), 4));
            EXPECT_TRUE(record == std::string("old", 4) || record == std::string("new", 4));
            EXPECT_TRUE(ModelDataCache().GetData(owner, "B", record.data(), 4));
            EXPECT_EQ(record, std::string("old", 4));
        });
    AtEveryAllocation([&] { ModelDataCache().Synchronize(owner); },
                      [&] { ModelDataCache().Synchronize(other); },
                      [&](bool) {
                          ModelDataCache().SetData(owner, "A", "old", 4);
                          ModelDataCache().Synchronize(other);
                          EXPECT_FALSE(ModelDataCache().GetData(other, "A", record.data(), 4));
                      });
    ModelDataCache::Free();

    OResourceCache::Initialize();
    AtEveryAllocation([] {},
                      [] {
                          OResourceCache::GetResourceFile("C:\\none.ddt");
                          OResourceCache::GetResourceFile("C:\\none too.ddt");
                      },
                      [](bool) {
                          OResourceFile* file = OResourceCache::GetResourceFile("C:\\none.ddt");
                          EXPECT_EQ(file->GetPath(), "C:\\none.ddt");
                      });
    OResourceCache::Free();
}

class RegistryMemoryFaults : public HostTest {};

TEST_F(RegistryMemoryFaults, LeaveOldValuesOrNewOnesAndDeleteNothingElse) {
    OString name;
    for (int i = 0; i < 25; ++i) name << "deep name";
    const OString text = "LOCAL:T/text", list = "LOCAL:T/list", key = "LOCAL:T/" + name;
    OStringArray old, longer;
    old.Add("old");
    for (int i = 0; i < 12; ++i) longer.Add(name);
    AtEveryAllocation(
        [&] {
            ORegistry registry;
            registry.SetString(text, "old");
            registry.SetMultiString(list, old);
            registry.SetInt(key + "/Below/Deep/v", 1);
        },
        [&] {
            ORegistry registry;
            registry.SetString(text, name);
            registry.SetMultiString(list, longer);
            registry.DeletePattern(key + "/Below/*");
        },
        [&](bool) {
            ORegistry registry;
            const OString stored = registry.GetString(text, "");
            EXPECT_TRUE(stored == "old" || stored == name) << Text(stored);
            OStringArray values;
            EXPECT_TRUE(registry.GetMultiString(list, values));
            EXPECT_TRUE(Text(values) == "old" || Text(values) == Text(longer));
            EXPECT_TRUE(registry.GetKeyInfo(key + "/Below", nullptr, nullptr));
        });
}

TEST_F(RegistryMemoryFaults, DoNotHideWhatAnEarlierDescriptionOfTheCacheDidNotShow) {
    struct {
        KVCacheInformation header;
        KVCacheItemInfo items[3];
    } description = {};
    description.header.size = sizeof description;
    description.header.count = 3;
    for (KVCacheItemInfo& item : description.items) item.kind = KVCacheItemInfo::GRAPHIC;
    const auto* bytes = reinterpret_cast<const unsigned char*>(&description);
    CacheContents contents;
    AtEveryAllocation([&] { ++description.items[0].id; },
                      [&] { contents.Take(bytes, sizeof description); },
                      [&](bool) {
                          contents.Take(bytes, sizeof description);
                          EXPECT_EQ(contents.GetSize(), 3);
                          EXPECT_GE(contents.Find(description.items[0].id), 0);
                      });

    PortInfo ports;
    std::vector<char> buffer(4096);
    uint32_t needed = 0, count = 0;
    AtEveryAllocation([] {}, [&] { ports.Refresh(); },
                      [&](bool) {
                          ports.EnumPortInfo(buffer.data(), 4096, needed, count);
                          ports.GetLocalMonitorName();
                      });
}

#include <gtest/gtest.h>

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "toolkit/HostBinding.h"

namespace {

// A table over sorted names; each entry's function is the address of its own
// name, so a hit tells which entry was found.
class Table {
public:
    explicit Table(std::vector<std::string> names) : names_(std::move(names)) {
        for (const std::string& name : names_) entries_.push_back({const_cast<char*>(name.c_str()), name.c_str()});
        toolkit::hostFunctionTable = entries_.data();
        toolkit::hostFunctionCount = static_cast<int>(entries_.size());
    }
    const void* entry(std::size_t index) const { return names_[index].c_str(); }

private:
    std::vector<std::string> names_;
    std::vector<HostFunctionEntry> entries_;
};

TEST(FindHostFunction, EveryEntryOfTablesOfZeroToFortyIsFound) {
    auto nothing = std::make_unique<HostFunctionEntry[]>(0);  // a read is caught by the address sanitizer
    toolkit::hostFunctionTable = nothing.get();
    toolkit::hostFunctionCount = 0;
    EXPECT_EQ(toolkit::findHostFunction("ProRunmodeGet_v"), nullptr);
    for (int count = 1; count <= 40; ++count) {
        std::vector<std::string> names;
        char name[16];
        for (int index = 0; index < count; ++index) {
            std::snprintf(name, sizeof name, "Pro%03d_v", index * 2);
            names.push_back(name);
        }
        Table table(names);
        for (int index = 0; index < count; ++index) {
            EXPECT_EQ(toolkit::findHostFunction(names[index].c_str()), table.entry(index)) << names[index] << count;
            std::snprintf(name, sizeof name, "Pro%03d_v", index * 2 + 1);
            EXPECT_EQ(toolkit::findHostFunction(name), nullptr) << name << " in a table of " << count;
        }
        EXPECT_EQ(toolkit::findHostFunction("Pro"), nullptr);
    }
}

TEST(FindHostFunction, MatchesWholeNamesInUnsignedByteOrder) {
    // "\xc3" sorts after every ASCII letter when bytes are unsigned.
    Table table({"ProViewMatrixGet_v", "ProViewReset", "ProViewResetAll_v", "ProViewReset_vx", "ProZ_v",
                 "Pro\xc3\xa9_v", "Pro\xc3\xbc_v"});
    EXPECT_EQ(toolkit::findHostFunction("ProViewReset_v"), nullptr) << "no match by a prefix";
    EXPECT_EQ(toolkit::findHostFunction("ProViewResetAll_v"), table.entry(2));
    EXPECT_EQ(toolkit::findHostFunction("Pro\xc3\xa9_v"), table.entry(5));
    EXPECT_EQ(toolkit::findHostFunction("Pro\xc3\xbc_v"), table.entry(6));
}

}  // namespace

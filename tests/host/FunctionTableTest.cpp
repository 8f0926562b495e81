#include <gtest/gtest.h>

#include <cstring>
#include <map>
#include <string>

#include "host/FunctionTable.h"
#include "host/OperationShims.h"

namespace {

TEST(FunctionTable, HoldsEachListedOperationOnceUnderItsNameSortedByBytes) {
    const std::map<std::string, void*> expected = {
#define PRO_OPERATION(result, name, parameters, arguments, miss) \
    {#name "_v", reinterpret_cast<void*>(&host::shims::name)},
#include "toolkit/ProOperations.def"
#undef PRO_OPERATION
    };
    auto table = host::hostFunctionTable();
    ASSERT_EQ(table.size(), expected.size());
    for (size_t index = 0; index < table.size(); ++index) {
        std::string name = table[index].name;
        EXPECT_TRUE(name.ends_with("_v")) << name;
        auto listed = expected.find(name);
        ASSERT_NE(listed, expected.end()) << name << " is not a listed operation";
        EXPECT_EQ(table[index].function, listed->second) << name << " points elsewhere";
        if (index > 0) {
            EXPECT_LT(std::strcmp(table[index - 1].name, table[index].name), 0) << name;
        }
    }
}

}  // namespace

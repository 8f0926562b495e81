#include "toolkit/HostBinding.h"

#include <cstring>

namespace toolkit {

const HostFunctionEntry* hostFunctionTable = nullptr;
std::int32_t hostFunctionCount = 0;
std::int32_t applicationContext = 0;
std::int32_t hostLanguage = 0;
const char* hostTextRoot = nullptr;
const char* hostAuxiliaryPath = nullptr;
char hostVersion[hostVersionSize] = {};
char hostBuild[hostVersionSize] = {};

// A binary search that keeps both ends: it narrows to at most two candidates
// and then tests each of them.
void* findHostFunction(const char* name) {
    if (!hostFunctionTable || hostFunctionCount <= 0) return nullptr;
    std::int32_t low = 0;
    std::int32_t high = hostFunctionCount - 1;
    while (low + 1 < high) {
        std::int32_t mid = (low + high) / 2;
        if (std::strcmp(name, hostFunctionTable[mid].name) >= 0) {
            low = mid;
        } else {
            high = mid - 1;
        }
    }
    if (std::strcmp(name, hostFunctionTable[low].name) == 0) return hostFunctionTable[low].function;
    if (std::strcmp(name, hostFunctionTable[high].name) == 0) return hostFunctionTable[high].function;
    return nullptr;
}

}  // namespace toolkit

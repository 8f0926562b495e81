#include "export/SceneArrays.h"

#include <cstddef>

namespace {

void setArray(nvxScene_api& scene, const char* name, int type, const void* data, std::size_t count) {
    ArrayRecord array{data, count};
    scene.set_attribute(name, type, &array);
}

}  // namespace

void setFloatTriples(nvxScene_api& scene, const char* name, const std::vector<float>& values) {
    setArray(scene, name, ATTR_ARRAY | ATTR_FLOAT3, values.data(), values.size() / 3);
}

void setFloats(nvxScene_api& scene, const char* name, const std::vector<float>& values) {
    setArray(scene, name, ATTR_ARRAY | ATTR_FLOAT, values.data(), values.size());
}

void setInts(nvxScene_api& scene, const char* name, const std::vector<int>& values) {
    setArray(scene, name, ATTR_ARRAY | ATTR_INT, values.data(), values.size());
}

void setDoubles(nvxScene_api& scene, const char* name, const std::vector<double>& values) {
    setArray(scene, name, ATTR_ARRAY | ATTR_DOUBLE, values.data(), values.size());
}

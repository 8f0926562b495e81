#pragma once
// A model open in the host session. For now a name and a type; units, solids,
// surfaces, features, layers, views and appearances hang off it as they come.
#include <string>

namespace host {

// The host's model type codes.
inline constexpr int modelTypeAssembly = 1;
inline constexpr int modelTypePart = 2;

struct Model {
    std::u16string name;  // the bare name, without extension
    int type = modelTypePart;
};

}  // namespace host

#pragma once
// Small helpers for editing the glTF JSON with RapidJSON.
#include <rapidjson/document.h>

#include <initializer_list>

namespace scenetools {

using JsonAllocator = rapidjson::Document::AllocatorType;

// The member of that name, made empty of the given type if it is missing.
inline rapidjson::Value& member(rapidjson::Value& object, const char* name, rapidjson::Type type,
                                JsonAllocator& allocator) {
    if (!object.HasMember(name)) object.AddMember(rapidjson::StringRef(name), rapidjson::Value(type), allocator);
    return object[name];
}

inline rapidjson::Value numberArray(std::initializer_list<double> numbers, JsonAllocator& allocator) {
    rapidjson::Value value(rapidjson::kArrayType);
    for (double number : numbers) value.PushBack(number, allocator);
    return value;
}

}  // namespace scenetools

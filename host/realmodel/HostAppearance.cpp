#include "host/realmodel/HostAppearance.h"

#include <Quantity_Color.hxx>

#include <algorithm>
#include <cstring>
#include <string>

#include "platform/Utf8.h"

namespace host::realmodel {

namespace {

template <size_t Size>
void copyWide(const std::u16string& text, ProWchar (&target)[Size]) {
    const size_t count = std::min(text.size(), Size - 1);
    std::copy_n(text.begin(), count, target);
    target[count] = 0;
}

template <size_t Size>
void copyNarrow(const std::string& text, char (&target)[Size]) {
    const size_t count = std::min(text.size(), Size - 1);
    std::memcpy(target, text.data(), count);
    target[count] = 0;
}

std::string colourName(const cad::CadAppearance& appearance) {
    const Quantity_Color colour(appearance.red, appearance.green, appearance.blue, Quantity_TOC_sRGB);
    return Quantity_Color::StringName(colour.Name());
}

}  // namespace

AppearanceProps appearancePropsOf(const cad::CadAppearance& appearance) {
    AppearanceProps props{};
    props.ambient = 0.1;
    props.diffuse = appearance.diffuse;
    props.highlite = 0.2;
    props.shininess = 0.3;
    props.transparency = appearance.transparency;
    props.color[0] = appearance.red;
    props.color[1] = appearance.green;
    props.color[2] = appearance.blue;
    props.highlightColor[0] = props.highlightColor[1] = props.highlightColor[2] = 1.0;
    const std::u16string name = platform::utf8ToWide(appearance.name.empty() ? colourName(appearance) : appearance.name);
    copyWide(name, props.name);
    copyWide(name, props.label);
    return props;
}

std::optional<TextureProps> texturePropsOf(const cad::CadAppearance& appearance) {
    if (appearance.texturePath.empty()) return std::nullopt;
    TextureProps props{};
    copyNarrow(std::filesystem::path(appearance.texturePath).filename().string(), props.color);
    return props;
}

}  // namespace host::realmodel

#pragma once
// The appearance of a surface as the export passes it on: a label, one texture
// path, a colour and the diffuse coefficient. Surfaces whose records are
// equivalent in the order below share one mesh, and meshes come out in it.
#include <string>

struct MaterialRecord {
    std::string name = "color";
    std::u16string texture;
    double red = 0.5;
    double green = 0.5;
    double blue = 0.5;
    float intensity = 1.0f;

    bool operator==(const MaterialRecord&) const = default;
};

// Red, green, blue and intensity numerically, then the name byte by byte and
// the texture by 16-bit unit, a shorter text first on a tie.
inline bool operator<(const MaterialRecord& a, const MaterialRecord& b) {
    if (a.red < b.red) return true;
    if (b.red < a.red) return false;
    if (a.green < b.green) return true;
    if (b.green < a.green) return false;
    if (a.blue < b.blue) return true;
    if (b.blue < a.blue) return false;
    if (a.intensity < b.intensity) return true;
    if (b.intensity < a.intensity) return false;
    // std::string compares its bytes as unsigned, as the order asks.
    int names = a.name.compare(b.name);
    if (names != 0) return names < 0;
    return a.texture < b.texture;
}


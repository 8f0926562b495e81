#pragma once
// Scene bytes for tests, written by hand: text, and the parts of binary array
// blocks (marker, little-endian count, little-endian data).
#include <bit>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>
#include <string_view>

class SceneBytes {
public:
    SceneBytes& text(std::string_view text) {
        bytes_ += text;
        return *this;
    }
    // Marker and count; the data follows by the calls below.
    SceneBytes& marker(char kind, uint32_t count) {
        bytes_ += "\x01\x02\x03";
        bytes_ += kind;
        return word(count);
    }
    SceneBytes& floats(char kind, std::initializer_list<float> values) {
        marker(kind, static_cast<uint32_t>(values.size()));
        for (float value : values) word(std::bit_cast<uint32_t>(value));
        return *this;
    }
    SceneBytes& ints(std::initializer_list<int32_t> values) { return ints(std::vector<int32_t>(values)); }
    SceneBytes& ints(const std::vector<int32_t>& values) {
        marker('i', static_cast<uint32_t>(values.size()));
        for (int32_t value : values) word(static_cast<uint32_t>(value));
        return *this;
    }
    SceneBytes& doubles(std::initializer_list<double> values) { return doubles(std::vector<double>(values)); }
    SceneBytes& doubles(const std::vector<double>& values) {
        marker('r', static_cast<uint32_t>(values.size()));
        for (double value : values) {
            auto bits = std::bit_cast<uint64_t>(value);
            word(static_cast<uint32_t>(bits)).word(static_cast<uint32_t>(bits >> 32));
        }
        return *this;
    }
    SceneBytes& word(uint32_t value) {
        for (int shift = 0; shift < 32; shift += 8) bytes_ += static_cast<char>((value >> shift) & 0xff);
        return *this;
    }
    const std::string& str() const { return bytes_; }

private:
    std::string bytes_;
};

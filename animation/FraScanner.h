#pragma once
// Formatted reads over the bytes of a motion file, with the rules of the C
// library's scanf in the "C" locale: each read skips white space first; a
// word ("%255s") is a run of at most 255 bytes other than white space; a
// number takes the longest run of characters that begins a number, and a run
// that turns out not to be one is consumed all the same, with nothing stored;
// a character that stops a read stays unread.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace fra {

// How one formatted read ended.
enum class ScanResult {
    Converted,  // a value was stored
    Mismatch,   // the input doesn't match; nothing was stored
    End,        // the input ended first; nothing was stored
};

constexpr std::size_t tokenCapacity = 256;  // "%255s" and its terminating zero

class FraScanner {
public:
    explicit FraScanner(std::string_view bytes) : bytes_(bytes) {}

    // "%255s": the next word, zero-terminated. False, leaving the buffer as
    // it was, when only white space is left.
    bool scanWord(char (&token)[tokenCapacity]);
    // "%d". A number beyond 32 bits keeps its low 32 bits.
    ScanResult scanInt(std::int32_t& value);
    // "%f": decimal and hexadecimal forms, "inf", "infinity" and "nan", each
    // with an optional sign, rounded once to single precision.
    ScanResult scanFloat(float& value);
    // An ordinary character of a format: consumed only if it comes next.
    ScanResult scanCharacter(char wanted);
    // A blank in a format: any white space, or none.
    void skipWhiteSpace();

private:
    bool atEnd() const { return position_ >= bytes_.size(); }
    char peek() const { return bytes_[position_]; }
    bool take(char wanted);
    bool takeNoCase(std::string_view word);
    std::size_t takeDigits(bool hexadecimal);
    // The longest run from here that begins a number in each form; each
    // answers whether the run is a whole number.
    bool takeFloatItem();
    bool takeNamedFloat();
    bool takeHexadecimalFloat();
    bool takeDecimalFloat();

    std::string_view bytes_;
    std::size_t position_ = 0;
    std::string number_;  // the text of the float being converted, reused
};

}  // namespace fra

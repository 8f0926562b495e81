// Windows implementation: this file may contain only Windows code.
// The upper-case mappings of Unicode that turn one character into several
// (the unconditional ones of its special casing, such as U+00DF to "SS"):
// the system's case mapping maps characters one to one.
#include "platform/win32/SpecialCasing.h"

#include <algorithm>
#include <iterator>

namespace platform::win32 {
namespace {

struct Expansion {
    char16_t character;
    const char16_t* upper;
};

constexpr Expansion expansions[] = {
    {0x00DF, u"\u0053\u0053"}, {0x0149, u"\u02BC\u004E"}, {0x01F0, u"\u004A\u030C"}, {0x0390, u"\u0399\u0308\u0301"},
    {0x03B0, u"\u03A5\u0308\u0301"}, {0x0587, u"\u0535\u0552"}, {0x1E96, u"\u0048\u0331"}, {0x1E97, u"\u0054\u0308"},
    {0x1E98, u"\u0057\u030A"}, {0x1E99, u"\u0059\u030A"}, {0x1E9A, u"\u0041\u02BE"}, {0x1F50, u"\u03A5\u0313"},
    {0x1F52, u"\u03A5\u0313\u0300"}, {0x1F54, u"\u03A5\u0313\u0301"}, {0x1F56, u"\u03A5\u0313\u0342"},
    {0x1F80, u"\u1F08\u0399"}, {0x1F81, u"\u1F09\u0399"}, {0x1F82, u"\u1F0A\u0399"}, {0x1F83, u"\u1F0B\u0399"},
    {0x1F84, u"\u1F0C\u0399"}, {0x1F85, u"\u1F0D\u0399"}, {0x1F86, u"\u1F0E\u0399"}, {0x1F87, u"\u1F0F\u0399"},
    {0x1F88, u"\u1F08\u0399"}, {0x1F89, u"\u1F09\u0399"}, {0x1F8A, u"\u1F0A\u0399"}, {0x1F8B, u"\u1F0B\u0399"},
    {0x1F8C, u"\u1F0C\u0399"}, {0x1F8D, u"\u1F0D\u0399"}, {0x1F8E, u"\u1F0E\u0399"}, {0x1F8F, u"\u1F0F\u0399"},
    {0x1F90, u"\u1F28\u0399"}, {0x1F91, u"\u1F29\u0399"}, {0x1F92, u"\u1F2A\u0399"}, {0x1F93, u"\u1F2B\u0399"},
    {0x1F94, u"\u1F2C\u0399"}, {0x1F95, u"\u1F2D\u0399"}, {0x1F96, u"\u1F2E\u0399"}, {0x1F97, u"\u1F2F\u0399"},
    {0x1F98, u"\u1F28\u0399"}, {0x1F99, u"\u1F29\u0399"}, {0x1F9A, u"\u1F2A\u0399"}, {0x1F9B, u"\u1F2B\u0399"},
    {0x1F9C, u"\u1F2C\u0399"}, {0x1F9D, u"\u1F2D\u0399"}, {0x1F9E, u"\u1F2E\u0399"}, {0x1F9F, u"\u1F2F\u0399"},
    {0x1FA0, u"\u1F68\u0399"}, {0x1FA1, u"\u1F69\u0399"}, {0x1FA2, u"\u1F6A\u0399"}, {0x1FA3, u"\u1F6B\u0399"},
    {0x1FA4, u"\u1F6C\u0399"}, {0x1FA5, u"\u1F6D\u0399"}, {0x1FA6, u"\u1F6E\u0399"}, {0x1FA7, u"\u1F6F\u0399"},
    {0x1FA8, u"\u1F68\u0399"}, {0x1FA9, u"\u1F69\u0399"}, {0x1FAA, u"\u1F6A\u0399"}, {0x1FAB, u"\u1F6B\u0399"},
    {0x1FAC, u"\u1F6C\u0399"}, {0x1FAD, u"\u1F6D\u0399"}, {0x1FAE, u"\u1F6E\u0399"}, {0x1FAF, u"\u1F6F\u0399"},
    {0x1FB2, u"\u1FBA\u0399"}, {0x1FB3, u"\u0391\u0399"}, {0x1FB4, u"\u0386\u0399"}, {0x1FB6, u"\u0391\u0342"},
    {0x1FB7, u"\u0391\u0342\u0399"}, {0x1FBC, u"\u0391\u0399"}, {0x1FC2, u"\u1FCA\u0399"}, {0x1FC3, u"\u0397\u0399"},
    {0x1FC4, u"\u0389\u0399"}, {0x1FC6, u"\u0397\u0342"}, {0x1FC7, u"\u0397\u0342\u0399"}, {0x1FCC, u"\u0397\u0399"},
    {0x1FD2, u"\u0399\u0308\u0300"}, {0x1FD3, u"\u0399\u0308\u0301"}, {0x1FD6, u"\u0399\u0342"},
    {0x1FD7, u"\u0399\u0308\u0342"}, {0x1FE2, u"\u03A5\u0308\u0300"}, {0x1FE3, u"\u03A5\u0308\u0301"},
    {0x1FE4, u"\u03A1\u0313"}, {0x1FE6, u"\u03A5\u0342"}, {0x1FE7, u"\u03A5\u0308\u0342"}, {0x1FF2, u"\u1FFA\u0399"},
    {0x1FF3, u"\u03A9\u0399"}, {0x1FF4, u"\u038F\u0399"}, {0x1FF6, u"\u03A9\u0342"}, {0x1FF7, u"\u03A9\u0342\u0399"},
    {0x1FFC, u"\u03A9\u0399"}, {0xFB00, u"\u0046\u0046"}, {0xFB01, u"\u0046\u0049"}, {0xFB02, u"\u0046\u004C"},
    {0xFB03, u"\u0046\u0046\u0049"}, {0xFB04, u"\u0046\u0046\u004C"}, {0xFB05, u"\u0053\u0054"},
    {0xFB06, u"\u0053\u0054"}, {0xFB13, u"\u0544\u0546"}, {0xFB14, u"\u0544\u0535"}, {0xFB15, u"\u0544\u053B"},
    {0xFB16, u"\u054E\u0546"}, {0xFB17, u"\u0544\u053D"},
};

}  // namespace

const char16_t* upperExpansion(char16_t character) {
    auto found = std::lower_bound(std::begin(expansions), std::end(expansions), character,
                                  [](const Expansion& entry, char16_t value) { return entry.character < value; });
    return found != std::end(expansions) && found->character == character ? found->upper : nullptr;
}

}  // namespace platform::win32

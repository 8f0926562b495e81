// POSIX implementation: this file may contain only POSIX code.
// The system code page is the charset of the process locale, reached through
// the C library's iconv.
#include "platform/CodePage.h"

#include <iconv.h>
#include <langinfo.h>

#include <cerrno>
#include <clocale>
#include <cstring>

#include "platform/Utf8.h"

namespace platform {
namespace {

// The locale's charset as it stands now: the process locale may change
// between two conversions.
const char* systemCharset() {
    const char* charset = std::setlocale(LC_CTYPE, nullptr) ? nl_langinfo(CODESET) : nullptr;
    return charset && *charset ? charset : "ANSI_X3.4-1968";
}

class Iconv {
public:
    Iconv(const char* to, const char* from) : handle_(iconv_open(to, from)) {}
    ~Iconv() {
        if (ok()) iconv_close(handle_);
    }
    Iconv(const Iconv&) = delete;
    Iconv& operator=(const Iconv&) = delete;
    bool ok() const { return handle_ != reinterpret_cast<iconv_t>(-1); }

    // Converts as much of the input as forms whole characters; answers false
    // at a character that the target can't hold or input that is no
    // character, with `in` left at it.
    bool convert(const char*& in, std::size_t& inLeft, std::string& out) {
        char buffer[256];
        while (inLeft > 0) {
            char* target = buffer;
            std::size_t targetLeft = sizeof buffer;
            std::size_t result = iconv(handle_, const_cast<char**>(&in), &inLeft, &target, &targetLeft);
            out.append(buffer, static_cast<std::size_t>(target - buffer));
            if (result == static_cast<std::size_t>(-1) && errno != E2BIG) {
                iconv(handle_, nullptr, nullptr, nullptr, nullptr);
                return false;
            }
        }
        return true;
    }

private:
    iconv_t handle_;
};

}  // namespace

std::string wideToSystem(std::u16string_view text) {
    if (text.empty()) return {};
    Iconv converter(systemCharset(), "UTF-8");
    if (!converter.ok()) return {};
    // Character by character, so that one the code page can't hold is left
    // out alone.
    const std::string utf8 = wideToUtf8(text);
    std::string out;
    const char* in = utf8.data();
    std::size_t left = utf8.size();
    while (!converter.convert(in, left, out)) {
        std::size_t skip = 1;
        while (skip < left && (static_cast<unsigned char>(in[skip]) & 0xC0) == 0x80) ++skip;
        in += skip;
        left -= skip;
    }
    return out;
}

std::u16string systemToWide(std::string_view text) {
    if (text.empty()) return {};
    Iconv converter("UTF-8", systemCharset());
    if (!converter.ok()) return {};
    std::string utf8;
    const char* in = text.data();
    std::size_t left = text.size();
    // A byte that starts no character of the code page is left out.
    while (!converter.convert(in, left, utf8)) {
        ++in;
        --left;
    }
    return utf8ToWide(utf8);
}

std::string systemCodePageName() { return systemCharset(); }

}  // namespace platform

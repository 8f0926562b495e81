#include "host/cad/StepCodePage.h"

#include <unicode/ucsdet.h>
#include <unicode/ustring.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace host::cad {

namespace {

struct CodePageRow {
    std::string_view kernelName;
    std::string_view displayName;
    std::array<std::string_view, 3> aliases;  // normalised: lower case, no '-' or '_'
};

// The code pages of the kernel's STEP reader, with the names users and ICU
// give them.
constexpr CodePageRow codePages[] = {
    {"UTF8", "utf-8", {"utf8", "", ""}},
    {"CP1250", "cp1250", {"cp1250", "windows1250", ""}},
    {"CP1251", "cp1251", {"cp1251", "windows1251", ""}},
    {"CP1252", "cp1252", {"cp1252", "windows1252", ""}},
    {"CP1253", "cp1253", {"cp1253", "windows1253", ""}},
    {"CP1254", "cp1254", {"cp1254", "windows1254", ""}},
    {"CP1255", "cp1255", {"cp1255", "windows1255", ""}},
    {"CP1256", "cp1256", {"cp1256", "windows1256", ""}},
    {"CP1257", "cp1257", {"cp1257", "windows1257", ""}},
    {"CP1258", "cp1258", {"cp1258", "windows1258", ""}},
    {"iso8859-1", "iso8859-1", {"iso88591", "latin1", ""}},
    {"iso8859-2", "iso8859-2", {"iso88592", "latin2", ""}},
    {"iso8859-3", "iso8859-3", {"iso88593", "", ""}},
    {"iso8859-4", "iso8859-4", {"iso88594", "", ""}},
    {"iso8859-5", "iso8859-5", {"iso88595", "", ""}},
    {"iso8859-6", "iso8859-6", {"iso88596", "", ""}},
    {"iso8859-7", "iso8859-7", {"iso88597", "", ""}},
    {"iso8859-8", "iso8859-8", {"iso88598", "iso88598i", ""}},
    {"iso8859-9", "iso8859-9", {"iso88599", "", ""}},
    {"CP850", "cp850", {"cp850", "ibm850", ""}},
    {"SJIS", "shift-jis", {"shiftjis", "sjis", ""}},
    {"EUC", "euc", {"euc", "eucjp", "euckr"}},
    {"GB", "gb2312", {"gb2312", "gb", "gb18030"}},
};

std::string normalised(std::string_view name) {
    std::string result;
    for (const char c : name) {
        if (c == '-' || c == '_') continue;
        result += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    return result;
}

StepCodePage fromRow(const CodePageRow& row) {
    return StepCodePage{std::string(row.kernelName), std::string(row.displayName), false, false};
}

// The bytes of the file's quoted strings that hold bytes above 127, each
// followed by a blank, up to a sample large enough for the detector.
std::string eightBitStrings(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) throw std::runtime_error("cannot read '" + path.string() + "'");
    constexpr std::size_t sampleLimit = 1 << 16;
    std::string sample;
    std::string current;
    bool inString = false;
    bool highByte = false;
    std::vector<char> chunk(1 << 16);
    while (sample.size() < sampleLimit && in) {
        in.read(chunk.data(), static_cast<std::streamsize>(chunk.size()));
        const std::streamsize got = in.gcount();
        for (std::streamsize i = 0; i < got; ++i) {
            const char c = chunk[static_cast<std::size_t>(i)];
            if (c == '\'') {
                // A doubled quote inside a string closes it and opens it again:
                // the bytes around it still land in one sample each.
                if (inString && highByte) sample += current + ' ';
                inString = !inString;
                current.clear();
                highByte = false;
            } else if (inString) {
                current += c;
                highByte = highByte || static_cast<unsigned char>(c) > 127;
            }
        }
    }
    return sample;
}

bool validUtf8(const std::string& bytes) {
    UErrorCode status = U_ZERO_ERROR;
    int32_t length = 0;
    u_strFromUTF8(nullptr, 0, &length, bytes.data(), static_cast<int32_t>(bytes.size()), &status);
    return status == U_BUFFER_OVERFLOW_ERROR || U_SUCCESS(status);
}

// ICU's candidates, best first; the first that the kernel knows.
std::optional<StepCodePage> detectedByIcu(const std::string& bytes) {
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<UCharsetDetector, decltype(&ucsdet_close)> detector(ucsdet_open(&status), &ucsdet_close);
    if (U_FAILURE(status)) return std::nullopt;
    ucsdet_setText(detector.get(), bytes.data(), static_cast<int32_t>(bytes.size()), &status);
    int32_t count = 0;
    const UCharsetMatch** matches = ucsdet_detectAll(detector.get(), &count, &status);
    if (U_FAILURE(status)) return std::nullopt;
    for (int32_t i = 0; i < count; ++i) {
        const char* name = ucsdet_getName(matches[i], &status);
        if (U_FAILURE(status) || name == nullptr) return std::nullopt;
        if (std::optional<StepCodePage> known = stepCodePageNamed(name); known && known->kernelName != "UTF8") {
            return known;
        }
    }
    return std::nullopt;
}

}  // namespace

std::optional<StepCodePage> stepCodePageNamed(const std::string& name) {
    const std::string key = normalised(name);
    if (key.empty()) return std::nullopt;
    for (const CodePageRow& row : codePages) {
        if (std::find(row.aliases.begin(), row.aliases.end(), key) != row.aliases.end()) return fromRow(row);
    }
    return std::nullopt;
}

std::string knownStepCodePages() {
    std::string list;
    for (const CodePageRow& row : codePages) list += (list.empty() ? "" : ", ") + std::string(row.displayName);
    return list;
}

StepCodePage detectStepCodePage(const std::filesystem::path& path) {
    const std::string bytes = eightBitStrings(path);
    StepCodePage chosen = fromRow(codePages[0]);
    if (!bytes.empty() && !validUtf8(bytes)) chosen = detectedByIcu(bytes).value_or(*stepCodePageNamed("cp1252"));
    chosen.detected = true;
    chosen.eightBitNames = !bytes.empty();
    return chosen;
}

}  // namespace host::cad

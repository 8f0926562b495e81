#include "toolkit/cip/cipstd/strlibsrc/xstring.h"

#include <cstring>
#include <string>

#include "toolkit/cip/cipstd/strlibsrc/xstringdetail.h"

using namespace xstringdetail;

namespace {

template <typename Char>
const Char* markerText(int marker) {
    return reinterpret_cast<const Char*>(static_cast<std::uintptr_t>(marker));
}

}  // namespace

void xstring::setMarker(int marker) {
    buffer = nullptr;
    narrow = markerText<char>(marker);
    wide = markerText<xwchar>(marker);
}

void xstring::release() {
    if (buffer) buffer->Release();
    buffer = nullptr;
}

bool xstring::hasNarrowView() const { return !isMarker(narrow); }
bool xstring::hasWideView() const { return !isMarker(wide); }

// Writes text of `units` characters into this value's own buffer, taken by
// BeginModify, and leaves that form as the only view.
template <typename Char>
void xstring::assignText(const Char* text, std::size_t units) {
    std::basic_string<Char> copy(text, units);  // the text may live in this very buffer
    std::size_t bytes = (units + 1) * sizeof(Char);
    Char* target = nullptr;
    buffer = buffer ? buffer->BeginModify(bytes, &target, false) : btkStrBuf::Create(bytes, sizeof(Char) == 2);
    if (!target) target = reinterpret_cast<Char*>(buffer->InlineText());
    std::memcpy(target, copy.c_str(), bytes);
    buffer->EndModify();
    if constexpr (sizeof(Char) == 1) {
        narrow = target;
        wide = nullptr;
    } else {
        wide = target;
        narrow = nullptr;
    }
}

template <typename Char>
void xstring::setText(const Char* text) {
    std::uintptr_t value = reinterpret_cast<std::uintptr_t>(text);
    if (value <= 2) {
        release();
        setMarker(value == 2 ? 2 : 1);
    } else if (text[0] == 0) {
        release();
        buffer = btkStrBuf::Empty()->Attach(&narrow, &wide);
    } else {
        assignText(text, std::char_traits<Char>::length(text));
    }
}

// Appends in the form that the target already has; a null target takes the
// argument's form.
template <typename Char>
void xstring::appendText(const Char* text) {
    if (isMarker(text) || text[0] == 0) return;
    if (!hasNarrowView() && !hasWideView()) {
        setText(text);
    } else if (hasWideView()) {
        std::u16string joined = std::u16string(wide) + inForm<xwchar>(view(text));
        assignText(joined.c_str(), joined.size());
    } else {
        std::string joined = std::string(narrow) + inForm<char>(view(text));
        assignText(joined.c_str(), joined.size());
    }
}

xstring::xstring() { setMarker(1); }

xstring::xstring(const char* text) {
    setMarker(1);
    setText(text);
}

xstring::xstring(const xwchar* text) {
    setMarker(1);
    setText(text);
}

namespace {

// The characters from `start` up to `end` of a text, a negative end meaning
// to the end of it.
template <typename Char>
std::basic_string<Char> characterRange(const Char* text, int start, int end) {
    std::basic_string_view<Char> whole = view(text);
    std::size_t from = skipCharacters(whole, start < 0 ? 0 : static_cast<std::size_t>(start));
    std::basic_string_view<Char> rest = whole.substr(from);
    if (end < 0) return std::basic_string<Char>(rest);
    std::size_t count = end > start ? static_cast<std::size_t>(end - (start < 0 ? 0 : start)) : 0;
    return std::basic_string<Char>(rest.substr(0, skipCharacters(rest, count)));
}

}  // namespace

xstring::xstring(const char* text, int length) : xstring(text, 0, length < 0 ? -1 : length) {}
xstring::xstring(const xwchar* text, int length) : xstring(text, 0, length < 0 ? -1 : length) {}

xstring::xstring(const char* text, int start, int end) {
    setMarker(1);
    if (isMarker(text)) {
        setText(text);
        return;
    }
    std::string part = characterRange(text, start, end);
    setText(part.c_str());
}

xstring::xstring(const xwchar* text, int start, int end) {
    setMarker(1);
    if (isMarker(text)) {
        setText(text);
        return;
    }
    std::u16string part = characterRange(text, start, end);
    setText(part.c_str());
}

xstring::xstring(const char* first, const char* second) : xstring(first) { appendText(second); }
xstring::xstring(const xwchar* first, const xwchar* second) : xstring(first) { appendText(second); }
xstring::xstring(const xstring& first, const char* second) : xstring(first) { appendText(second); }
xstring::xstring(const xstring& first, const xwchar* second) : xstring(first) { appendText(second); }

xstring::xstring(const xstring& other) : buffer(other.buffer), narrow(other.narrow), wide(other.wide) {
    if (buffer) buffer->Attach(&narrow, &wide);
}

xstring::xstring(const __xstring_c& raw, bool attach) {
    setMarker(1);
    Assign(raw, attach);
}

xstring::xstring(std::strstream& stream) {
    setMarker(1);
    *this = stream;
}

xstring::~xstring() {
    release();
    setMarker(1);
}

xstring& xstring::operator=(const xstring& other) {
    if (other.buffer) other.buffer->Attach(nullptr, nullptr);
    release();
    buffer = other.buffer;
    narrow = other.narrow;
    wide = other.wide;
    return *this;
}

xstring& xstring::operator=(const char* text) {
    setText(text);
    return *this;
}

xstring& xstring::operator=(const xwchar* text) {
    setText(text);
    return *this;
}

xstring& xstring::operator=(const __xstring_c& raw) {
    Assign(raw, true);
    return *this;
}

// Takes the stream's frozen text, and lets the stream free it again.
xstring& xstring::operator=(std::strstream& stream) {
    std::streamsize count = stream.pcount();
    const char* text = stream.str();
    if (count <= 0 || !text) {
        setText("");
    } else {
        std::string copy(text, static_cast<std::size_t>(count));
        setText(copy.c_str());
    }
    stream.freeze(false);
    return *this;
}

xstring& xstring::operator+=(const xstring& other) {
    if (other.IsNull()) return *this;
    if (hasWideView())
        appendText(static_cast<const xwchar*>(other));
    else if (hasNarrowView())
        appendText(static_cast<const char*>(other));
    else
        *this = other;
    return *this;
}

xstring& xstring::operator+=(const char* text) {
    appendText(text);
    return *this;
}

xstring& xstring::operator+=(const xwchar* text) {
    appendText(text);
    return *this;
}

xstring& xstring::operator+=(char character) {
    const char text[2] = {character, 0};
    appendText(text);
    return *this;
}

xstring& xstring::operator+=(xwchar character) {
    const xwchar text[2] = {character, 0};
    appendText(text);
    return *this;
}

// The views are made on first use and kept: const in the interface though
// the cached pointer changes. A marker is given back as it stands.
xstring::operator const char*() const {
    if (!narrow && buffer) buffer->GetViews(&narrow, nullptr);
    return narrow;
}

xstring::operator const xwchar*() const {
    if (!wide && buffer) buffer->GetViews(nullptr, &wide);
    return wide;
}

bool xstring::IsNull() const { return buffer == nullptr; }

bool xstring::IsEmpty() const {
    return IsNull() || (hasNarrowView() && narrow[0] == 0) || (hasWideView() && wide[0] == 0);
}

int xstring::GetLength() const {
    if (IsNull()) return 0;
    if (hasWideView()) return isLowPointer(wide) ? 0 : static_cast<int>(std::char_traits<xwchar>::length(wide));
    if (isLowPointer(narrow)) return 0;
    return characterCount(std::string_view(narrow));
}

// With a narrow view its size with the terminator; without one the size of a
// conversion plus 2, one byte more than the first path gives.
int xstring::GetMBSize() const {
    if (IsNull()) return 0;
    if (hasNarrowView()) return static_cast<int>(std::strlen(narrow)) + 1;
    std::string converted;
    if (!xtext::wideToNarrow(wide, converted)) btk::foundationAbort("xstring::GetMBSize: invalid wide string");
    return static_cast<int>(converted.size()) + 2;
}

__xstring_c xstring::getxstring_c() const {
    if (buffer) buffer->Attach(nullptr, nullptr);
    return {buffer, narrow, wide};
}

__xstring_c xstring::getxstring_c_unattached() const { return {buffer, narrow, wide}; }

void xstring::Assign(const __xstring_c& raw, bool attach) {
    if (attach && raw.buffer) raw.buffer->Attach(nullptr, nullptr);
    release();
    buffer = raw.buffer;
    narrow = raw.narrow;
    wide = raw.wide;
}

// The searching members of xstring: Pos, Match, words, Substitute and
// Substring. Each works in the form that the target already has.
#include <string>

#include "toolkit/cip/cipstd/strlibsrc/xstring.h"
#include "toolkit/cip/cipstd/strlibsrc/xstringdetail.h"
#include "toolkit/cip/cipstd/strlibsrc/xstringmatch.h"

using namespace xstringdetail;

namespace {

// Runs `operation` on this string's text in its own form and the argument
// converted into that form: wide if the wide view exists, narrow otherwise.
template <typename Argument, typename Operation>
auto inTargetForm(const xstring& target, const Argument* argument, Operation operation) {
    const xwchar* wide = target.getxstring_c_unattached().wide;
    if (!isMarker(wide)) {
        std::u16string converted = inForm<xwchar>(view(argument));
        return operation(std::u16string_view(wide), std::u16string_view(converted));
    }
    const char* narrow = target;
    std::string converted = inForm<char>(view(argument));
    return operation(std::string_view(narrow), std::string_view(converted));
}

template <typename Argument>
int position(const xstring& target, const Argument* text) {
    if (target.IsNull()) return -1;
    return inTargetForm(target, text, [](auto haystack, auto needle) {
        std::size_t at = haystack.find(needle);
        return at == decltype(haystack)::npos ? -1 : characterCount(haystack.substr(0, at));
    });
}

template <typename Argument>
bool matches(const xstring& target, const Argument* pattern) {
    if (target.IsNull()) return false;
    return inTargetForm(target, pattern, [](auto text, auto wildcard) { return xstringmatch::match(text, wildcard); });
}

template <typename Argument>
int wordCount(const xstring& target, const Argument* delimiters) {
    if (target.IsNull()) return 0;
    return inTargetForm(target, delimiters, [](auto text, auto list) {
        return static_cast<int>(xstringmatch::words(text, list).size());
    });
}

template <typename Argument>
xstring word(const xstring& target, int index, const Argument* delimiters) {
    auto found = [index](auto text, auto list) {
        auto all = xstringmatch::words(text, list);
        if (index < 0 || static_cast<std::size_t>(index) >= all.size()) btk::foundationAbort("Word index is out of range");
        std::basic_string<typename decltype(text)::value_type> copy(all[static_cast<std::size_t>(index)]);
        return xstring(copy.c_str());
    };
    if (target.IsNull()) btk::foundationAbort("Word index is out of range");
    return inTargetForm(target, delimiters, found);
}

// The offsets of the occurrences of `from` that qualify: numbered from 1
// without overlap, from `first` on, `count` of them (-1 for all).
template <typename Char>
std::vector<std::size_t> qualifying(std::basic_string_view<Char> text, std::basic_string_view<Char> from, int first,
                                    int count) {
    std::vector<std::size_t> offsets;
    int number = 0;
    for (std::size_t at = text.find(from); at != text.npos; at = text.find(from, at + from.size())) {
        ++number;
        if (number < first) continue;
        if (count >= 0 && static_cast<int>(offsets.size()) >= count) break;
        offsets.push_back(at);
    }
    return offsets;
}

template <typename Char>
std::basic_string<Char> replaced(std::basic_string_view<Char> text, std::basic_string_view<Char> from,
                                 std::basic_string_view<Char> to, const std::vector<std::size_t>& offsets) {
    std::basic_string<Char> result;
    result.reserve(text.size() + offsets.size() * to.size());
    std::size_t copied = 0;
    for (std::size_t at : offsets) {
        result.append(text.substr(copied, at - copied)).append(to);
        copied = at + from.size();
    }
    result.append(text.substr(copied));
    return result;
}

}  // namespace

int xstring::Pos(const char* text) const { return position(*this, text); }
int xstring::Pos(const xwchar* text) const { return position(*this, text); }
int xstring::Pos(const xstring& text) const {
    return hasWideView() ? Pos(static_cast<const xwchar*>(text)) : Pos(static_cast<const char*>(text));
}

bool xstring::Match(const char* pattern) const { return matches(*this, pattern); }
bool xstring::Match(const xwchar* pattern) const { return matches(*this, pattern); }
bool xstring::Match(const xstring& pattern) const {
    return hasWideView() ? Match(static_cast<const xwchar*>(pattern)) : Match(static_cast<const char*>(pattern));
}

int xstring::GetNWords(const char* delimiters) const { return wordCount(*this, delimiters); }
int xstring::GetNWords(const xwchar* delimiters) const { return wordCount(*this, delimiters); }
int xstring::GetNWords(const xstring& delimiters) const {
    return hasWideView() ? GetNWords(static_cast<const xwchar*>(delimiters))
                         : GetNWords(static_cast<const char*>(delimiters));
}

xstring xstring::GetWord(int index, const char* delimiters) const { return word(*this, index, delimiters); }
xstring xstring::GetWord(int index, const xwchar* delimiters) const { return word(*this, index, delimiters); }
xstring xstring::GetWord(int index, const xstring& delimiters) const {
    return hasWideView() ? GetWord(index, static_cast<const xwchar*>(delimiters))
                         : GetWord(index, static_cast<const char*>(delimiters));
}

// Replaces in place: into a new buffer when the text grows, into this
// value's own buffer otherwise.
template <typename Char>
void xstring::substituteText(const Char* from, const Char* to, int first, int count) {
    if (IsNull() || from == to || count == 0 || view(from).empty()) return;
    bool wideForm = hasWideView();
    auto run = [&](auto text, auto fromText) {
        using Target = typename decltype(text)::value_type;
        std::basic_string<Target> toText = inForm<Target>(view(to));
        if (fromText == std::basic_string_view<Target>(toText)) return;
        auto offsets = qualifying(text, fromText, first, count);
        if (offsets.empty()) return;
        std::basic_string<Target> result = replaced(text, fromText, std::basic_string_view<Target>(toText), offsets);
        if (result.size() > text.size()) release();
        assignText(result.c_str(), result.size());
    };
    if (wideForm) {
        std::u16string fromText = inForm<xwchar>(view(from));
        run(std::u16string_view(wide), std::u16string_view(fromText));
    } else {
        std::string fromText = inForm<char>(view(from));
        run(std::string_view(static_cast<const char*>(*this)), std::string_view(fromText));
    }
}

void xstring::Substitute(const char* from, const char* to, int first, int count) {
    substituteText(from, to, first, count);
}
void xstring::Substitute(const xwchar* from, const xwchar* to, int first, int count) {
    substituteText(from, to, first, count);
}
void xstring::Substitute(const xstring& from, const xstring& to, int first, int count) {
    if (hasWideView())
        substituteText(static_cast<const xwchar*>(from), static_cast<const xwchar*>(to), first, count);
    else
        substituteText(static_cast<const char*>(from), static_cast<const char*>(to), first, count);
}

xstring xstring::Substring(int start, int end) const {
    if (IsEmpty()) return *this;
    if (hasWideView()) return xstring(wide, start, end);
    return xstring(static_cast<const char*>(*this), start, end);
}

#pragma once
// The text type of the object toolkit. One value reads as narrow or as wide
// text; each view is made on first use and kept. Copies share one
// reference-counted btkStrBuf. The class is exported from the plug-in library
// under its own name, and its three words are an interface: __xstring_c is the
// same layout as a plain record.
//
// The view pointers carry markers: 1 in both for the null string, 2 in both
// for the nil string, whose buffer is null. A text pointer of 0, 1 or 2 is
// accepted wherever text is taken; the casts give a marker back as it stands,
// so callers test IsNull before reading.
#include "platform/Compiler.h"
#include "toolkit/cip/cipstd/strlibsrc/btkStrBuf.h"
#include "toolkit/cip/cipstd/strlibsrc/xstrstream.h"

struct __xstring_c {
    btkStrBuf* buffer;
    const char* narrow;
    const xwchar* wide;
};

class VANTREL_EXPORT xstring {
public:
    xstring();
    xstring(const char* text);
    xstring(const xwchar* text);
    xstring(const char* text, int length);
    xstring(const xwchar* text, int length);
    xstring(const char* text, int start, int end);
    xstring(const xwchar* text, int start, int end);
    xstring(const char* first, const char* second);
    xstring(const xwchar* first, const xwchar* second);
    xstring(const xstring& first, const char* second);
    xstring(const xstring& first, const xwchar* second);
    xstring(const xstring& other);
    xstring(const __xstring_c& raw, bool attach);
    xstring(std::strstream& stream);
    ~xstring();

    xstring& operator=(const xstring& other);
    xstring& operator=(const char* text);
    xstring& operator=(const xwchar* text);
    xstring& operator=(const __xstring_c& raw);
    xstring& operator=(std::strstream& stream);

    xstring& operator+=(const xstring& other);
    xstring& operator+=(const char* text);
    xstring& operator+=(const xwchar* text);
    xstring& operator+=(char character);
    xstring& operator+=(xwchar character);

    operator const char*() const;
    operator const xwchar*() const;

    bool IsNull() const;
    bool IsEmpty() const;
    int GetLength() const;
    int GetMBSize() const;

    bool ToInt(int* value) const;
    bool ToDouble(double* value) const;
    xstring ToLower() const;
    xstring ToUpper() const;

    int Pos(const char* text) const;
    int Pos(const xwchar* text) const;
    int Pos(const xstring& text) const;
    bool Match(const char* pattern) const;
    bool Match(const xwchar* pattern) const;
    bool Match(const xstring& pattern) const;
    int GetNWords(const char* delimiters) const;
    int GetNWords(const xwchar* delimiters) const;
    int GetNWords(const xstring& delimiters) const;
    xstring GetWord(int index, const char* delimiters) const;
    xstring GetWord(int index, const xwchar* delimiters) const;
    xstring GetWord(int index, const xstring& delimiters) const;
    void Substitute(const char* from, const char* to, int first, int count);
    void Substitute(const xwchar* from, const xwchar* to, int first, int count);
    void Substitute(const xstring& from, const xstring& to, int first, int count);
    xstring Substring(int start, int end) const;

    static xstring Printf(const char* format, ...) VANTREL_PRINTF_FORMAT(1, 2);

    __xstring_c getxstring_c() const;
    __xstring_c getxstring_c_unattached() const;
    void Assign(const __xstring_c& raw, bool attach);

private:
    template <typename Char>
    VANTREL_HIDDEN void assignText(const Char* text, std::size_t units);
    template <typename Char>
    VANTREL_HIDDEN void setText(const Char* text);
    template <typename Char>
    VANTREL_HIDDEN void appendText(const Char* text);
    template <typename Char>
    VANTREL_HIDDEN void substituteText(const Char* from, const Char* to, int first, int count);
    VANTREL_HIDDEN void setMarker(int marker);
    VANTREL_HIDDEN void release();
    VANTREL_HIDDEN bool hasWideView() const;
    VANTREL_HIDDEN bool hasNarrowView() const;

    btkStrBuf* buffer;
    mutable const char* narrow;
    mutable const xwchar* wide;
};
